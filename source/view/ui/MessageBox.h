// The notice of the flows with several steps: text and buttons by window and step, the next step on a button.
#pragma once

#include "ViewNotifyWindowBase.h"

class CMessageBox : public CViewNotifyWindowBase {
 public:
  explicit CMessageBox(const char* menuID) : CViewNotifyWindowBase(menuID) {}
  ~CMessageBox() override;

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_FirstEnter(std::string& text) override;
  void t_SetButtonSettingInfo() override;
  void t_InitWindowProperty() override;
  void t_ProcessDefaultButtonOneClickCallBack() override;
  void t_ProcessDefaultButtonTwoClickCallBack() override;
  void t_GetDisplayText(char* text) override;

  /// Chooses the buttons of the step, and which of them has the focus first.
  virtual void t_InitWindowButtonInfo();
  /// Goes on from the import's confirmation.
  void t_TransferChannelBtnClickCB();
  unsigned int t_WindowID();
  unsigned int t_Case();
  /// The text of a window's step; empty for a window that has none.
  std::string t_TextOf(unsigned int windowID);

  int t_nButtonNumer = 2;
  /// -1: chosen with the buttons.
  int t_nDefaultFocusIndex = -1;
  /// String IDs of the buttons.
  std::string t_ButtonIDs[2] = {"SID_YES", "SID_NO"};

 private:
  void t_InitializeButton();
  void m_DetectVerifyFrequencyStartBtnClickCB();
  void m_DetectVerifyFrequencyCancelBtnClickCB();
  void m_BtnDefaultClickCB();
  void m_GoTo(unsigned int nextCase);

  /// The inventory of devices ends with this box.
  bool m_release = true;
  /// Text of the windows without a rule of their own.
  std::string m_displayText;
};
