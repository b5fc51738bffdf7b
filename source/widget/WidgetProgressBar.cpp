#include "WidgetProgressBar.h"

#include <cstdio>

#include "Log.h"

namespace {

/// A hundredth is a hair less than a whole number of percent.
constexpr double kHair = 0.00001;

}  // namespace

bool WidgetProgressBar::Create(Evas_Object* parent, const char* style) {
  if (!parent) {
    LOG_DEBUG("Null Pointer");
    return false;
  }
  m_bar = elm_progressbar_add(parent);
  if (!m_bar) {
    LOG_DEBUG("Failed to Add");
    return false;
  }
  m_parent = parent;
  if (!style) style = "";
  elm_object_style_set(m_bar, style);
  LOG_DEBUG("ProgressBar:Style[%s] ", style);
  return true;
}

void WidgetProgressBar::AddToParentWithPartName(const char* part) {
  if (!m_bar || !m_parent || !part) return;
  evas_object_show(m_bar);
  elm_object_part_content_set(m_parent, part, m_bar);
  LOG_DEBUG("Add Progress");
}

void WidgetProgressBar::EnableProgressTextFlag(bool flag, const char* part) {
  m_textFlag = flag;
  if (flag && part) {
    m_textPart = part;
    LOG_DEBUG("Enable ProgressBar Part[%s]", part);
  } else {
    LOG_DEBUG("Failed to Enable Text");
  }
}

void WidgetProgressBar::SetItemData(double value) {
  LOG_DEBUG("Set[%f]", value);
  if (!m_bar) return;
  elm_progressbar_value_set(m_bar, value);
  char text[16];
  snprintf(text, sizeof text, "%d%%", static_cast<int>(value * 100 + kHair));
  LOG_DEBUG("Data[%s]", text);
  if (m_textFlag && !m_textPart.empty()) elm_object_part_text_set(m_parent, m_textPart.c_str(), text);
}

void WidgetProgressBar::Show() {
  if (m_bar) evas_object_show(m_bar);
}

void WidgetProgressBar::Hide() {
  if (m_bar) evas_object_hide(m_bar);
}

void WidgetProgressBar::SetFocus(bool focus) {
  if (m_bar) elm_object_focus_set(m_bar, focus);
}

void WidgetProgressBar::Destroy() {
  if (m_bar) evas_object_del(m_bar);
  m_bar = m_parent = nullptr;
}
