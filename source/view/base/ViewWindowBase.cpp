#include "ViewWindowBase.h"

#include <iterator>

#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "WrapPatterns.h"
#include "app_framework.h"
#include "config.h"

namespace {

constexpr const char* kLayoutFile =
    "/usr/apps/com.vantrel.tv.ostrany-resource/shared/res/com.vantrel.tv.quirelle/edje/quirelle_dark.edj";

/// Button texts by the number of buttons.
constexpr const char* kTexts[3][3] = {
    {"SID_CLOSE", nullptr, nullptr},
    {"SID_OK", "SID_CLOSE", nullptr},
    {"SID_OK", "SID_CLOSE", "SID_CLOSE"},
};

}  // namespace

int CViewWindowBase::t_GetBaseType() { return BASE_TYPE_POPUP; }

std::string CViewWindowBase::t_GetBaseStyle() { return "NoneDefined"; }

std::string CViewWindowBase::t_GetWindowTitleText() { return {}; }

void CViewWindowBase::t_SetButtonSettingInfo() { LOG_DEBUG(""); }

void CViewWindowBase::t_InitWindowProperty() { LOG_DEBUG(""); }

void CViewWindowBase::t_FirstEnter(std::string& text) { CView::t_FirstEnter(text); }

void CViewWindowBase::t_Create() {
  CView::t_Create();
  t_InitWindowProperty();
  t_SetMainBase(m_CreateMainBase());
  if (!t_pMainBase) {
    LOG_DEBUG("Create MainBase Failed");
    return;
  }
  if (!m_SetTitle()) {
    LOG_DEBUG("Set Title Failed");
    return;
  }
  if (t_DefaultButtonNum > 0 && !m_CreateButtons()) LOG_DEBUG("CreateButton Failed");
}

Evas_Object* CViewWindowBase::m_CreateMainBase() {
  const int type = t_GetBaseType();
  std::string style = t_GetBaseStyle();
  LOG_DEBUG("BaseInfo:Type[%d],TmpStyle[%s]", type, style.c_str());
  if (style == theme::kBottomList && Singleton<MenuConfig>::GetInstance()->GetHighContrast() != 0) {
    style = theme::kBottomListContrast;
  }
  LOG_DEBUG("Final Style[%s]", style.c_str());
  return CRootWindow::CreateBase(static_cast<base_type>(type), style.c_str(), app_get_deployed_path(kLayoutFile));
}

bool CViewWindowBase::m_SetTitle() {
  t_WindowTitle = t_GetWindowTitleText();
  if (t_WindowTitle.empty()) {
    LOG_DEBUG("no title for this item - intentionally, due to new policy");
    return true;
  }
  if (!t_pMainBase) {
    LOG_DEBUG("Null Pointer");
    return false;
  }
  elm_object_part_text_set(t_pMainBase, theme::kTitle, t_WindowTitle.c_str());
  return true;
}

void CViewWindowBase::m_FillButtonSettings() {
  for (int i = 0; i < t_DefaultButtonNum; ++i) {
    t_ButtonSettings[i] = {Utils::GetTranslationStr(kTexts[t_DefaultButtonNum - 1][i]), "", theme::kButton,
                           theme::kButtonParts[i]};
  }
}

bool CViewWindowBase::m_CreateButtons() {
  LOG_DEBUG("DefaultNum:%d", t_DefaultButtonNum);
  m_FillButtonSettings();
  t_SetButtonSettingInfo();
  bool made = true;
  for (int i = 0; i < t_DefaultButtonNum && made; ++i) {
    Evas_Object* button = elm_button_add(t_pMainBase);
    made = button != nullptr;
    if (!made) {
      LOG_DEBUG("Buffer Failed");
      break;
    }
    evas_object_size_hint_weight_set(button, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
    evas_object_size_hint_align_set(button, EVAS_HINT_FILL, EVAS_HINT_FILL);
    elm_object_style_set(button, t_ButtonSettings[i].style.c_str());
    elm_object_text_set(button, t_ButtonSettings[i].text.c_str());
    t_pDefaultButtons[i] = button;
  }
  t_RegisterButtonKeyEvent();
  return made;
}

void CViewWindowBase::t_RegisterButtonKeyEvent() {
  for (Evas_Object* button : t_pDefaultButtons) {
    if (!button) continue;
    evas_object_event_callback_add(button, EVAS_CALLBACK_KEY_DOWN, m_DefaultButtonKeyPressCB, this);
    evas_object_smart_callback_add(button, "focused", m_DefaultButtonFocusCB, this);
    evas_object_smart_callback_add(button, "unfocused", m_DefaultButtonUnFocusCB, this);
    evas_object_smart_callback_add(button, "clicked", m_DefaultButtonClickCB, this);
  }
}

void CViewWindowBase::t_UnRegisterButtonKeyEvent() {
  for (Evas_Object* button : t_pDefaultButtons) {
    if (!button) continue;
    evas_object_event_callback_del_full(button, EVAS_CALLBACK_KEY_DOWN, m_DefaultButtonKeyPressCB, this);
    evas_object_smart_callback_del_full(button, "focused", m_DefaultButtonFocusCB, this);
    evas_object_smart_callback_del_full(button, "unfocused", m_DefaultButtonUnFocusCB, this);
    evas_object_smart_callback_del_full(button, "clicked", m_DefaultButtonClickCB, this);
  }
}

int CViewWindowBase::m_ButtonIndex(const Evas_Object* button) const {
  for (size_t i = 0; i < t_pDefaultButtons.size(); ++i) {
    if (button && t_pDefaultButtons[i] == button) return static_cast<int>(i);
  }
  return -1;
}

void CViewWindowBase::m_DefaultButtonKeyPressCB(void* data, Evas*, Evas_Object* object, void* info) {
  using Operation = void (CViewWindowBase::*)(std::string);
  static constexpr Operation operations[] = {&CViewWindowBase::t_ProcessDefaultButtonOneKeyPressCallBack,
                                             &CViewWindowBase::t_ProcessDefaultButtonTwoKeyPressCallBack,
                                             &CViewWindowBase::t_ProcessDefaultButtonThreeKeyPressCallBack};
  auto* pThis = static_cast<CViewWindowBase*>(data);
  const auto* key = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !object || !key) {
    LOG_ERROR("Assertion failed");
    return;
  }
  const int index = pThis->m_ButtonIndex(object);
  if (index >= 0) (pThis->*operations[index])(key->keyname);
}

void CViewWindowBase::m_Dispatch(void* data, const Evas_Object* object, const ButtonOperation (&operations)[3]) {
  auto* pThis = static_cast<CViewWindowBase*>(data);
  if (!pThis) {
    LOG_ERROR("Assertion failed");
    return;
  }
  const int index = pThis->m_ButtonIndex(object);
  if (index >= 0 && index < std::ssize(operations)) (pThis->*operations[index])();
}

void CViewWindowBase::m_DefaultButtonFocusCB(void* data, Evas_Object* object, void*) {
  m_Dispatch(data, object,
             {&CViewWindowBase::t_ProcessDefaultButtonOneFocusCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonTwoFocusCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonThreeFocusCallBack});
}

void CViewWindowBase::m_DefaultButtonUnFocusCB(void* data, Evas_Object* object, void*) {
  m_Dispatch(data, object,
             {&CViewWindowBase::t_ProcessDefaultButtonOneUnFocusCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonTwoUnFocusCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonThreeUnFocusCallBack});
}

void CViewWindowBase::m_DefaultButtonClickCB(void* data, Evas_Object* object, void*) {
  m_Dispatch(data, object,
             {&CViewWindowBase::t_ProcessDefaultButtonOneClickCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonTwoClickCallBack,
              &CViewWindowBase::t_ProcessDefaultButtonThreeClickCallBack});
}

void CViewWindowBase::t_Show() {
  CView::t_Show();
  if (!t_pMainBase) return;
  Utils::DisableBgRect(t_pMainBase);
  elm_object_tree_focus_allow_set(t_pMainBase, EINA_TRUE);
  t_ShowMainBase();
  for (size_t i = 0; i < t_pDefaultButtons.size(); ++i) {
    if (!t_pDefaultButtons[i]) continue;
    elm_object_part_content_set(t_pMainBase, t_ButtonSettings[i].part.c_str(), t_pDefaultButtons[i]);
    // It was taken out of the window while the window could not have the focus.
    elm_object_tree_focus_allow_set(t_pDefaultButtons[i], EINA_TRUE);
    evas_object_show(t_pDefaultButtons[i]);
  }
  t_FocusAgain();
}

void CViewWindowBase::t_Hide() {
  t_GiveFocusUp();
  for (size_t i = 0; i < t_pDefaultButtons.size(); ++i) {
    if (!t_pDefaultButtons[i]) continue;
    elm_object_part_content_unset(t_pMainBase, t_ButtonSettings[i].part.c_str());
    evas_object_hide(t_pDefaultButtons[i]);
  }
  if (t_pMainBase) evas_object_hide(t_pMainBase);
  CView::t_Hide();
}

void CViewWindowBase::t_Destroy() {
  t_UnRegisterButtonKeyEvent();
  // Taken out of the window when it was hidden, the buttons do not go with it; and none may go that has the focus.
  t_GiveFocusUp();
  for (Evas_Object* button : t_pDefaultButtons) {
    if (button) evas_object_del(button);
  }
  t_pDefaultButtons.fill(nullptr);
  // The toolkit's screen reader trips over a title that is deleted together with its popup.
  if (t_pMainBase && !t_WindowTitle.empty()) elm_object_part_text_set(t_pMainBase, theme::kTitle, nullptr);
  CView::t_Destroy();
}
