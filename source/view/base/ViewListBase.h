// What the windows with a list share: the events of the list, and what they come to by default.
#pragma once

#include "ViewWindowBase.h"

class CViewListBase : public CViewWindowBase {
 public:
  explicit CViewListBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Destroy() override;
  void t_Refresh() override;

  virtual bool t_CreateWidgetList() = 0;
  virtual void t_RegisterListKeyEvent();
  virtual void t_UnRegisterListKeyEvent();
  virtual void t_ProcessListFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListUnFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListKeyPressCB(std::string keyName);
  virtual void t_ProcessItemSelected(void* data, Evas_Object* list, void* item);
  virtual void t_AddListToUserDefineContent();
  /// A row was made.
  virtual void t_ProcessItemRealized(Elm_Object_Item* item) = 0;

  Elm_Genlist_Item_Class* t_pItemClass = nullptr;

 private:
  void m_ItemRealized(Evas_Object* list, void* item);
  void m_GenlistFocusedCB(Evas_Object* list, void* item);
  void m_GenlistUnFocusedCB(Evas_Object* list, void* item);
};
