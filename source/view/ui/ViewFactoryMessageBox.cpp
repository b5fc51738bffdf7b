#include "ViewFactoryMessageBox.h"

#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "TransferFlow.h"
#include "Translation.h"

namespace {

constexpr int kTimeOutSeconds = 60;

/// The window of the user that a factory window has its text from.
Window UserWindow(Window window) {
  if (window == Window::kFactoryImport) return Window::kImport;
  return window == Window::kFactoryExport ? Window::kExport : window;
}

}  // namespace

int CViewFactoryMessageBox::t_GetTimeOutSeconds() { return kTimeOutSeconds; }

std::string CViewFactoryMessageBox::t_GetWindowTitleText() { return TransferTitle(t_MenuID); }

void CViewFactoryMessageBox::t_InitWindowButtonInfo() {
  t_nDefaultFocusIndex = 0;
  CMessageBox::t_InitWindowButtonInfo();
}

std::string CViewFactoryMessageBox::m_CountedText() const {
  return T(t_ButtonIDs[0]) + " (" + std::to_string(m_seconds) + ")";
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
  CopyText(text, kDisplayTextSize, t_StepText(UserWindow(t_Window())));
}

void CViewFactoryMessageBox::t_Show() {
  // The factory does not ask before an import.
  if (t_Case() == kImportConfirm) return t_TransferChannelBtnClickCB();
  CMessageBox::t_Show();
  // The seconds are for the eye.
  spoken::SetName(t_pDefaultButtons[0], T(t_ButtonIDs[0]));
  m_timer.Start(1.0, [this] { return sm_TimerUpdateBtnCb(); });
}

bool CViewFactoryMessageBox::sm_TimerUpdateBtnCb() {
  --m_seconds;
  if (t_pDefaultButtons[0]) elm_object_text_set(t_pDefaultButtons[0], m_CountedText().c_str());
  if (m_seconds > 0) return true;
  t_ProcessDefaultButtonOneClickCallBack();
  return false;
}
