#include "ViewFactoryMessageBox.h"

#include "Log.h"
#include "TextUtil.h"
#include "Utils.h"
#include "settings_api.h"

namespace {

constexpr int kTimeOutSeconds = 60;
constexpr unsigned int kConfirmImport = 1;

/// The window of the user that a factory window has its text from.
unsigned int UserWindow(unsigned int windowID) {
  switch (windowID) {
    case 4:
      return 2;
    case 5:
      return 3;
    default:
      return windowID;
  }
}

}  // namespace

int CViewFactoryMessageBox::t_GetTimeOutSeconds() { return kTimeOutSeconds; }

std::string CViewFactoryMessageBox::t_GetWindowTitleText() {
  std::string name;
  const bool import = t_MenuID == "factory-import-from-usb";
  SettingsAPI::Get()->GetItemDisplayName(import ? "import-from-usb" : "export-to-usb", name);
  return name;
}

void CViewFactoryMessageBox::t_InitWindowButtonInfo() {
  t_nDefaultFocusIndex = 0;
  CMessageBox::t_InitWindowButtonInfo();
}

std::string CViewFactoryMessageBox::m_CountedText() const {
  return Utils::GetTranslationStr(t_ButtonIDs[0].c_str()) + " (" + std::to_string(m_seconds) + ")";
}

void CViewFactoryMessageBox::t_SetButtonSettingInfo() {
  CMessageBox::t_SetButtonSettingInfo();
  t_ButtonSettings[0].text = m_CountedText();
}

void CViewFactoryMessageBox::t_GetDisplayText(char* text) {
  if (!text) {
    LOG_ERROR("pDisplayText is nullptr");
    return;
  }
  const unsigned int windowID = UserWindow(t_WindowID());
  CopyText(text, kDisplayTextSize, t_TextOf(windowID));
}

void CViewFactoryMessageBox::t_Show() {
  // The factory does not ask before an import.
  if (t_Case() == kConfirmImport) return t_TransferChannelBtnClickCB();
  CMessageBox::t_Show();
  m_pTimer = ecore_timer_add(1.0, sm_TimerUpdateBtnCb, this);
}

Eina_Bool CViewFactoryMessageBox::sm_TimerUpdateBtnCb(void* data) {
  auto* pThis = static_cast<CViewFactoryMessageBox*>(data);
  --pThis->m_seconds;
  if (pThis->t_pDefaultButtons[0]) elm_object_text_set(pThis->t_pDefaultButtons[0], pThis->m_CountedText().c_str());
  if (pThis->m_seconds > 0) return ECORE_CALLBACK_RENEW;
  pThis->m_pTimer = nullptr;
  pThis->t_ProcessDefaultButtonOneClickCallBack();
  return ECORE_CALLBACK_CANCEL;
}

void CViewFactoryMessageBox::t_Destroy() {
  if (m_pTimer) ecore_timer_del(m_pTimer);
  m_pTimer = nullptr;
  CMessageBox::t_Destroy();
}
