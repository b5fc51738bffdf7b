#include "ViewFactoryTransferCLEnd.h"

#include "Spoken.h"
#include "TransferFlow.h"
#include "Translation.h"

namespace {

constexpr int kTimeOutSeconds = 15;

}  // namespace

int CViewFactoryTransferCLEnd::t_GetTimeOutSeconds() { return kTimeOutSeconds; }

std::string CViewFactoryTransferCLEnd::t_GetWindowTitleText() { return TransferTitle(t_MenuID); }

std::string CViewFactoryTransferCLEnd::m_CountedText() const {
  return T("SID_OK") + " (" + std::to_string(m_seconds) + ")";
}

void CViewFactoryTransferCLEnd::t_SetButtonSettingInfo() {
  CViewTransferChannelListEnd::t_SetButtonSettingInfo();
  t_ButtonSettings[0].text = m_CountedText();
}

void CViewFactoryTransferCLEnd::t_Show() {
  CViewTransferChannelListEnd::t_Show();
  // The seconds are for the eye.
  spoken::SetName(t_pDefaultButtons[0], T("SID_OK"));
  if (t_Case() != kImported) m_timer.Start(1.0, [this] { return sm_TimerUpdateBtnCb(); });
}

bool CViewFactoryTransferCLEnd::sm_TimerUpdateBtnCb() {
  --m_seconds;
  if (t_pDefaultButtons[0]) elm_object_text_set(t_pDefaultButtons[0], m_CountedText().c_str());
  return m_seconds > 0;
}

void CViewFactoryTransferCLEnd::t_Destroy() {
  m_timer.Stop();
  CViewTransferChannelListEnd::t_Destroy();
}
