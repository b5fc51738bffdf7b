// Asks whether all satellite settings go back to what the set was made with, and says so when they have.
#pragma once

#include "Notice.h"
#include "ViewNotifyWindowBase.h"

class CViewResetPopup : public CViewNotifyWindowBase {
 public:
  explicit CViewResetPopup(const char* menuID) : CViewNotifyWindowBase(menuID) {}

 protected:
  void t_Destroy() override;
  void t_FirstEnter(std::string& text) override;
  std::vector<Button> t_Buttons() override;
  void t_FocusFirst() override;
  void t_CreateDisplayText() override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;

  /// What is said after the reset, cut at 511 bytes, into `text` of 512.
  void t_GetResultText(char* text);
  void t_CreatAndShowComfirmPopup();

 private:
  void m_Reset();
  void m_Close();

  Notice m_confirmation;
};
