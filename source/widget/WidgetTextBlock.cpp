#include "WidgetTextBlock.h"

#include <string>

#include "Log.h"
#include "ThemeNames.h"
#include "Utils.h"

void WidgetTextBlock::Create(Evas_Object* parent, const char* text, int lineWrap, int width, int fontSize) {
  m_label = elm_label_add(parent);
  if (!m_label) return;
  elm_object_style_set(m_label, theme::kNoticeLabel);
  elm_label_line_wrap_set(m_label, static_cast<Elm_Wrap_Type>(lineWrap));
  elm_label_wrap_width_set(m_label, Utils::Scaled(parent, width));
  const std::string style = "DEFAULT='font_size=" + std::to_string(fontSize) + "'";
  elm_layout_text_set(m_label, theme::kLabelText, text);
  edje_object_part_text_style_user_push(elm_layout_edje_get(m_label), theme::kLabelText, style.c_str());
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
