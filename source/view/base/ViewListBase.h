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

  /// The toolkit's list; null when there is none.
  virtual Evas_Object* t_List() const = 0;
  /// A row was made.
  virtual void t_ProcessItemRealized(Elm_Object_Item* item) = 0;

  Elm_Genlist_Item_Class* t_pItemClass = nullptr;

 private:
  static void m_ItemRealized(void* data, Evas_Object* object, void* info);
  static void m_GenlistFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistUnFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistKeyPressedCB(void* data, Evas* canvas, Evas_Object* object, void* info);
};
