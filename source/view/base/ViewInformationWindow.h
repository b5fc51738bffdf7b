// What the information windows share: they stay until they are closed, take the number keys from the TV, and hide while
// the history that they have opened is above them.
#pragma once

#include "HistoryAbove.h"
#include "ViewWindowBase.h"

class CViewInformationWindow : public CViewWindowBase {
 public:
  /// `name` is what the log calls the window; it has to last.
  CViewInformationWindow(const char* menuID, const char* name) : CViewWindowBase(menuID), m_name(name) {}

 protected:
  int t_GetBaseType() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_Resume() override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;

  /// Takes the number keys and the key for more, or gives them back. The window lets them do nothing.
  virtual void t_RegisterSpcialKey(bool take);
  /// To be called once the window is on the screen, or is again.
  virtual void t_Stay();
  void t_OpenHistory() { m_history.Request(); }
  /// Up from the first button stays there.
  void t_EndAtFirstButton();

 private:
  const char* m_name;
  HistoryAbove m_history;
};
