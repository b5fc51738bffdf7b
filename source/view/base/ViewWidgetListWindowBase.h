// A window around a list of the settings tree, which hides under other views and remembers its focus.
#pragma once

#include <memory>

#include "ViewListBase.h"
#include "WidgetList.h"

class CViewWidgetListWindowBase : public CViewListBase {
 public:
  explicit CViewWidgetListWindowBase(const char* menuID) : CViewListBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_Resume() override;
  bool t_CreateWidgetList() override;
  void t_RegisterListKeyEvent() override;
  void t_UnRegisterListKeyEvent() override;
  void t_ProcessListFocusCB(Evas_Object* list, void* item) override;
  void t_ProcessItemSelected(void* data, Evas_Object* list, void* item) override;
  void t_ProcessItemRealized(Elm_Object_Item* item) override { t_ConfigueTTS(item); }
  /// None when the item has no rows.
  Evas_Object* t_List() const override { return t_pWidgetList ? t_pWidgetList->GetParent() : nullptr; }

  virtual void t_ConfigueTTS(Evas_Object* item);
  virtual void t_SublistItemPress();

  std::unique_ptr<WidgetGenList> t_pWidgetList;
  bool t_FlagFirst = true;
  /// A selection first marks the row in the list.
  bool t_FlagSelect = true;

 private:
  static void m_ItemSelectedCB(void* data, Evas_Object* list, void* item, void* userData);
};
