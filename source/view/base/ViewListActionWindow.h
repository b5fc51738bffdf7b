// A list with a row of buttons: Save and Cancel for the user's transponder, otherwise Close.
#pragma once

#include "ViewListWindowBase.h"

class CViewListActionWindow : public CViewListWindowBase {
 public:
  explicit CViewListActionWindow(const char* menuID) : CViewListWindowBase(menuID) {}

 protected:
  std::string t_GetBaseStyle() override;
  void t_SetButtonSettingInfo() override;
  void t_InitWindowProperty() override;
};
