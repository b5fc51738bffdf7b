// How a transfer in the factory has ended; it closes by itself after a countdown.
#pragma once

#include "ViewTransferChannelListEnd.h"

class CViewFactoryTransferCLEnd : public CViewTransferChannelListEnd {
 public:
  explicit CViewFactoryTransferCLEnd(const char* menuID) : CViewTransferChannelListEnd(menuID) {}

 protected:
  void t_Show() override;
  void t_Destroy() override;
  int t_GetTimeOutSeconds() override;
  std::string t_GetWindowTitleText() override;
  void t_SetButtonSettingInfo() override;

 private:
  bool sm_TimerUpdateBtnCb();
  std::string m_CountedText() const;

  Timer m_timer;
  int m_seconds = 15;
};
