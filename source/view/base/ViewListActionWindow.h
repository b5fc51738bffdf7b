// A list of settings with their values, and a row of buttons: a row opens the control that changes its setting.
#pragma once

#include <vector>

#include "ViewListWindowBase.h"

/// The rows are the items below the window's own in the settings tree, in its order.
class CViewListActionWindow : public CViewListWindowBase {
 public:
  explicit CViewListActionWindow(const char* menuID) : CViewListWindowBase(menuID) {}

 protected:
  void t_Create() override;
  /// Reads the values again: a control may have changed one.
  void t_Refresh() override;
  /// The first row, or without any the last button.
  void t_FocusFirst() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  bool t_AddGenListItems() override;
  void t_ProcessItemRealized(Elm_Object_Item* item) override;
  void t_ProcessItemSelected(void* data, Evas_Object* list, void* item) override;

 private:
  struct Node {
    std::string menuID, strName, strValue;
  };

  void m_PrepareListInfo();
  static Node m_ReadNode(const std::string& menuID);
  void m_FillList();
  static char* m_ItemGetText(void* data, Evas_Object* list, const char* part);

  /// The rows of the list point at these.
  std::vector<Node> m_nodes;
};
