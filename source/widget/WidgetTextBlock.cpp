#include "WidgetTextBlock.h"

#include <string>

#include "Lines.h"
#include "Log.h"
#include "ThemeNames.h"
#include "Utils.h"

namespace {

/// That the theme's own letters have.
constexpr int kThemeLine = 48;
/// Of a letter's size, for its line.
constexpr int kLineShare = 79;

std::string WithBreaks(std::string text) {
  for (size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) text.replace(at, 1, "<br>");
  return text;
}

/// As markup: a style pushed upon the label's own is lost when the label is scaled.
std::string Sized(const std::string& text, int line) {
  if (line == kThemeLine) return text;
  const std::string size = std::to_string(line * kLineShare / 100);
  return "<font_size=" + size + ">" + text + "</font_size>";
}

}  // namespace

void WidgetTextBlock::Create(Evas_Object* parent, const char* text, int lineWrap, int width, int line) {
  m_label = elm_label_add(parent);
  if (!m_label) return;
  elm_object_style_set(m_label, theme::kNoticeLabel);
  elm_label_line_wrap_set(m_label, static_cast<Elm_Wrap_Type>(lineWrap));
  elm_label_wrap_width_set(m_label, Utils::Scaled(parent, width));
  SetLines(m_label, theme::kLabelText, Sized(WithBreaks(text), line), width);
}

void WidgetTextBlock::SetContent(Evas_Object* parent, const char* part) {
  if (!m_label || !parent) return;
  elm_object_part_content_set(parent, part, m_label);
  evas_object_show(m_label);
}

void WidgetTextBlock::Show() {
  if (m_label) evas_object_show(m_label);
}

void WidgetTextBlock::Hide() {
  if (m_label) evas_object_hide(m_label);
}

void WidgetTextBlock::Destroy() {
  if (m_label) evas_object_del(m_label);
  m_label = nullptr;
}

std::unique_ptr<WidgetTextBlock> AddNoticeText(Evas_Object* notice, const std::string& text) {
  constexpr int kLineWrap = 2, kWidth = 1122, kLine = 48;
  auto block = std::make_unique<WidgetTextBlock>();
  block->Create(notice, text.c_str(), kLineWrap, kWidth, kLine);
  block->SetContent(notice, nullptr);
  return block;
}
