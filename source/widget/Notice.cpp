#include "Notice.h"

#include <utility>

#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"

bool Notice::Show(const char* style, const NoticeWords& words, Closed closed) {
  Close();
  m_popup = CRootWindow::CreateBase(BASE_TYPE_POPUP, style, Utils::GetEDJFile().c_str());
  if (!m_popup) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  Utils::DisableBgRect(m_popup);
  elm_object_signal_emit(m_popup, theme::kAbove, "");
  if (!words.text.empty()) m_text = AddNoticeText(m_popup, words.text);
  if (!words.title.empty()) elm_object_part_text_set(m_popup, theme::kTitle, words.title.c_str());
  if (!m_AddButton(words.button)) {
    LOG_ERROR("Assertion failed");
    Close();
    return false;
  }
  m_closed = std::move(closed);
  return true;
}

bool Notice::m_AddButton(const char* id) {
  Evas_Object* button = elm_button_add(m_popup);
  if (!button) return false;
  elm_object_style_set(button, theme::kButton);
  elm_object_text_set(button, T(id).c_str());
  elm_object_part_content_set(m_popup, theme::kButtonParts[0], button);
  m_connections.Smart(button, "clicked", [this](Evas_Object*, void*) { m_End(false); });
  m_connections.Key(button, [this](Evas_Object*, const Evas_Event_Key_Down& event) {
    if (!CKeyManager::IsBack(event.keyname)) return;
    m_back = true;
    m_End(true);
  });
  evas_object_show(button);
  evas_object_show(m_popup);
  elm_object_focus_set(button, EINA_TRUE);
  return true;
}

void Notice::m_End(bool byBack) {
  const Closed closed = std::exchange(m_closed, nullptr);
  Close();
  if (closed) closed(byBack);
}

bool Notice::TakeBack() { return std::exchange(m_back, false); }

void Notice::Close() {
  m_connections.Clear();
  if (m_text) m_text->Destroy();
  m_text.reset();
  if (!m_popup) return;
  elm_object_part_text_set(m_popup, theme::kTitle, nullptr);
  elm_object_tree_focus_allow_set(m_popup, EINA_FALSE);
  evas_object_del(std::exchange(m_popup, nullptr));
}
