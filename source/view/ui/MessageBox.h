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
  void t_FirstEnter(std::string& text) override;
  std::vector<Button> t_Buttons() override;
  void t_FocusFirst() override;
  void t_GetDisplayText(char* text) override;

  /// Chooses the buttons of the step, and which of them has the focus first.
  virtual void t_InitWindowButtonInfo();
  /// Goes on from the import's confirmation.
  void t_TransferChannelBtnClickCB();
  /// The text of a window's step; empty for a window that has none.
  std::string t_StepText(Window window) const;

  int t_nButtonNumer = 2;
  /// -1: chosen with the buttons.
  int t_nDefaultFocusIndex = -1;
  /// String IDs of the buttons.
  const char* t_ButtonIDs[2] = {"SID_YES", "SID_NO"};

 private:
  void t_InitializeButton();
  void m_ProcessButtonOne();

  /// The inventory of devices ends with this box.
  bool m_release = true;
};
