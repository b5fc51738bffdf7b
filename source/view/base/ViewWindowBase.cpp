#include "ViewWindowBase.h"

#include "Content.h"
#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Translation.h"
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

void CViewWindowBase::t_InitWindowProperty() {
  LOG_DEBUG("");
  m_buttons = t_Buttons();
  t_DefaultButtonNum = static_cast<int>(m_buttons.size());
}

void CViewWindowBase::t_SetButtonSettingInfo() {
  LOG_DEBUG("");
  for (size_t i = 0; i < m_buttons.size(); ++i) {
    t_ButtonSettings[i].text = T(m_buttons[i].id);
    t_ButtonSettings[i].icon = m_buttons[i].icon;
  }
}

void CViewWindowBase::m_Act(size_t index) {
  if (index < m_buttons.size()) m_buttons[index].action();
}

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
    t_ButtonSettings[i] = {T(kTexts[t_DefaultButtonNum - 1][i]), "", theme::kButton, theme::kButtonParts[i]};
  }
}

Evas_Object* CViewWindowBase::m_CreateButton(const ButtonSetting& setting) {
  Evas_Object* button = elm_button_add(t_pMainBase);
  if (!button) {
    LOG_DEBUG("Buffer Failed");
    return nullptr;
  }
  evas_object_size_hint_weight_set(button, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(button, EVAS_HINT_FILL, EVAS_HINT_FILL);
  elm_object_style_set(button, setting.style.c_str());
  elm_object_text_set(button, setting.text.c_str());
  return button;
}

bool CViewWindowBase::m_CreateButtons() {
  LOG_DEBUG("DefaultNum:%d", t_DefaultButtonNum);
  m_FillButtonSettings();
  t_SetButtonSettingInfo();
  bool made = true;
  for (int i = 0; i < t_DefaultButtonNum && made; ++i) {
    t_pDefaultButtons[i] = m_CreateButton(t_ButtonSettings[i]);
    made = t_pDefaultButtons[i] != nullptr;
  }
  t_RegisterButtonKeyEvent();
  return made;
}

void CViewWindowBase::t_RegisterButtonKeyEvent() {
  for (size_t i = 0; i < t_pDefaultButtons.size(); ++i) {
    Evas_Object* button = t_pDefaultButtons[i];
    m_buttonConnections.Key(button, [this, i](Evas_Object*, const Evas_Event_Key_Down& event) {
      m_DefaultButtonKeyPressCB(i, event.keyname);
    });
    m_buttonConnections.Smart(button, "focused", [this, i](Evas_Object*, void*) { m_DefaultButtonFocusCB(i); });
    m_buttonConnections.Smart(button, "unfocused", [this, i](Evas_Object*, void*) { m_DefaultButtonUnFocusCB(i); });
    m_buttonConnections.Smart(button, "clicked", [this, i](Evas_Object*, void*) { m_DefaultButtonClickCB(i); });
  }
}

void CViewWindowBase::t_UnRegisterButtonKeyEvent() { m_buttonConnections.Clear(); }

void CViewWindowBase::m_DefaultButtonKeyPressCB(size_t index, const char* key) {
  using Operation = void (CViewWindowBase::*)(std::string);
  static constexpr Operation operations[] = {&CViewWindowBase::t_ProcessDefaultButtonOneKeyPressCallBack,
                                             &CViewWindowBase::t_ProcessDefaultButtonTwoKeyPressCallBack,
                                             &CViewWindowBase::t_ProcessDefaultButtonThreeKeyPressCallBack};
  (this->*operations[index])(key);
}

void CViewWindowBase::m_Dispatch(size_t index, const ButtonOperation (&operations)[3]) { (this->*operations[index])(); }

/// The toolkit lets the focus pass over a button on its way to where it belongs: what counts is who has it in the end.
void CViewWindowBase::m_DefaultButtonFocusCB(size_t index) {
  m_focusPause.Start(0.0, [this, index] {
    if (elm_object_focus_get(t_pDefaultButtons[index])) m_Focused(index);
    return false;
  });
}

void CViewWindowBase::m_Focused(size_t index) {
  m_Dispatch(index, {&CViewWindowBase::t_ProcessDefaultButtonOneFocusCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonTwoFocusCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonThreeFocusCallBack});
}

void CViewWindowBase::m_DefaultButtonUnFocusCB(size_t index) {
  m_Dispatch(index, {&CViewWindowBase::t_ProcessDefaultButtonOneUnFocusCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonTwoUnFocusCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonThreeUnFocusCallBack});
}

void CViewWindowBase::m_DefaultButtonClickCB(size_t index) {
  m_Dispatch(index, {&CViewWindowBase::t_ProcessDefaultButtonOneClickCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonTwoClickCallBack,
                     &CViewWindowBase::t_ProcessDefaultButtonThreeClickCallBack});
}

void CViewWindowBase::t_FocusButton(size_t index) {
  if (t_pDefaultButtons[index]) elm_object_focus_set(t_pDefaultButtons[index], EINA_TRUE);
}

void CViewWindowBase::t_FocusFirst() {
  for (size_t i = t_pDefaultButtons.size(); i-- > 0;) {
    if (t_pDefaultButtons[i]) return t_FocusButton(i);
  }
}

Evas_Object* CViewWindowBase::t_AddContent(const char* group, int w, int h) {
  Evas_Object* layout = AddLayout(t_pMainBase, group);
  if (!layout) return nullptr;
  Evas_Object* table = Utils::WidgetMinSet(layout, t_pMainBase, w, h, 1);
  evas_object_show(layout);
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
  return layout;
}

std::string CViewWindowBase::t_TextOf(Evas_Object* layout, const char* part) {
  const char* text = layout ? elm_object_part_text_get(layout, part) : nullptr;
  return text ? Utils::WrapMallocdString(elm_entry_markup_to_utf8(text)) : "";
}

void CViewWindowBase::m_PlaceButtons() {
  for (size_t i = 0; i < t_pDefaultButtons.size(); ++i) {
    if (!t_pDefaultButtons[i]) continue;
    elm_object_part_content_set(t_pMainBase, t_ButtonSettings[i].part.c_str(), t_pDefaultButtons[i]);
    // It was taken out of the window while the window could not have the focus.
    elm_object_tree_focus_allow_set(t_pDefaultButtons[i], EINA_TRUE);
    evas_object_show(t_pDefaultButtons[i]);
  }
}

void CViewWindowBase::t_Show() {
  CView::t_Show();
  if (!t_pMainBase) return;
  Utils::DisableBgRect(t_pMainBase);
  t_ShowMainBase();
  m_PlaceButtons();
  if (!t_FocusAgain()) t_FocusFirst();
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
  m_focusPause.Stop();
  t_Connections.Clear();
  // Taken out of the window when it was hidden, the buttons do not go with it; and none may go that has the focus.
  t_GiveFocusUp();
  for (Evas_Object*& button : t_pDefaultButtons) {
    if (button) evas_object_del(button);
    button = nullptr;
  }
  // The toolkit's screen reader trips over a title that is deleted together with its popup.
  if (t_pMainBase && !t_WindowTitle.empty()) elm_object_part_text_set(t_pMainBase, theme::kTitle, nullptr);
  CView::t_Destroy();
}
