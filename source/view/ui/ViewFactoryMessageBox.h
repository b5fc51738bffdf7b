// The notice of the factory menu: it answers OK by itself after a countdown.
#pragma once

#include "MessageBox.h"
#include "Timer.h"

class CViewFactoryMessageBox : public CMessageBox {
 public:
  explicit CViewFactoryMessageBox(const char* menuID) : CMessageBox(menuID) {}

 protected:
  void t_Show() override;
  int t_GetTimeOutSeconds() override;
  std::string t_GetWindowTitleText() override;
  void t_InitWindowButtonInfo() override;
  void t_SetButtonSettingInfo() override;
  void t_GetDisplayText(char* text) override;

 private:
  bool sm_TimerUpdateBtnCb();
  std::string m_CountedText() const;

  Timer m_timer;
  int m_seconds = 15;
};
