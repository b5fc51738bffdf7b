// A window around a list of the settings tree, which hides under other views and remembers its focus.
#pragma once

#include <memory>

#include "ViewWindowBase.h"
#include "WidgetList.h"

class CViewWidgetListWindowBase : public CViewWindowBase {
 public:
  explicit CViewWidgetListWindowBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_Resume() override;
  void t_Refresh() override;

  virtual bool t_CreateWidgetList();
  virtual void t_RegisterListKeyEvent();
  virtual void t_UnRegisterListKeyEvent();
  virtual void t_ProcessListFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListUnFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListKeyPressCB(std::string keyName);
  virtual void t_ProcessItemSelected(void* data, Evas_Object* list, void* item);
  virtual void t_AddListToUserDefineContent();
  virtual void t_ConfigueTTS(Evas_Object* item);
  virtual void t_SublistItemPress();

  /// The toolkit's list; null when the item has no rows.
  Evas_Object* t_List() const { return t_pWidgetList ? t_pWidgetList->GetParent() : nullptr; }

  std::unique_ptr<WidgetGenList> t_pWidgetList;
  Elm_Genlist_Item_Class* t_pItemClass = nullptr;
  bool t_FlagFirst = true;
  /// A selection first marks the row in the list.
  bool t_FlagSelect = true;

 private:
  static void m_ItemSelectedCB(void* data, Evas_Object* list, void* item, void* userData);
  static void m_ItemRealized(void* data, Evas_Object* object, void* info);
  static void m_GenlistFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistUnFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistKeyPressedCB(void* data, Evas* canvas, Evas_Object* object, void* info);
};
