// A list that rises from the bottom edge: the HDMI delay levels.
#pragma once

#include "ItemBehavior.h"
#include "ViewWidgetListWindowBase.h"

class CViewBottomCtxPopup : public CViewWidgetListWindowBase {
 public:
  explicit CViewBottomCtxPopup(const char* menuID) : CViewWidgetListWindowBase(menuID) {}

 protected:
  int t_GetBaseType() override;
  std::string t_GetBaseStyle() override;
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  bool t_PrepareHide() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  void t_ProcessListFocusCB(Evas_Object* list, void* item) override;
  void t_ProcessListKeyPressCB(std::string keyName) override;
  void t_AddListToUserDefineContent() override;
  void t_SublistItemPress() override;

 private:
  /// Plays the popup out and closes it.
  void m_Close();
  void t_EndMotionCB(const std::string& signal);

  CItemBehaviorManager m_behavior;
  bool m_closing = false;
};
