// The notice of the factory menu: it answers OK by itself after a countdown.
#pragma once

#include <Ecore.h>

#include "MessageBox.h"

class CViewFactoryMessageBox : public CMessageBox {
 public:
  explicit CViewFactoryMessageBox(const char* menuID) : CMessageBox(menuID) {}

 protected:
  void t_Destroy() override;
  void t_Show() override;
  int t_GetTimeOutSeconds() override;
  std::string t_GetWindowTitleText() override;
  void t_InitWindowButtonInfo() override;
  void t_SetButtonSettingInfo() override;
  void t_GetDisplayText(char* text) override;

 private:
  static Eina_Bool sm_TimerUpdateBtnCb(void* data);

  std::string m_CountedText() const;

  Ecore_Timer* m_pTimer = nullptr;
  int m_seconds = 15;
};
