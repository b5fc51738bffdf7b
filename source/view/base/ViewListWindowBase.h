// A window around a plain toolkit list.
#pragma once

#include "ViewWindowBase.h"

class CViewListWindowBase : public CViewWindowBase {
 public:
  explicit CViewListWindowBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_Refresh() override;
  std::string t_GetBaseStyle() override;
  void t_InitWindowProperty() override;
  void t_ProcessDefaultButtonOneClickCallBack() override;
  void t_ProcessDefaultButtonTwoClickCallBack() override;

  /// Makes the genlist, its item class left to the subclass.
  virtual bool t_CreateWidgetList();
  virtual void t_RegisterListKeyEvent();
  virtual void t_UnRegisterListKeyEvent();
  virtual void t_ProcessListFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListUnFocusCB(Evas_Object* list, void* item);
  virtual void t_ProcessListKeyPressCB(std::string keyName);
  virtual void t_ProcessItemSelected(void* data, Evas_Object* list, void* item);
  virtual void t_AddListToUserDefineContent();
  /// Fills the list; its rows select with `m_ItemSelectedCB` and this view as data.
  virtual bool t_AddGenListItems();
  /// The list on its ground, framed by spacers. `width` and `height` are pixels of a 1920-pixel screen.
  virtual void t_PackListToTable(Evas_Object* parent, int width, bool fixed, int height);
  virtual void t_ConfigueTTS(Evas_Object* item);
  virtual void t_AddWidgetToWindowContent();

  static void m_ItemSelectedCB(void* data, Evas_Object* object, void* info);

  Evas_Object* t_pGenlist = nullptr;
  Elm_Genlist_Item_Class* t_pItemClass = nullptr;
  bool t_FlagFirst = false;
  bool t_FlagSecond = true;

 private:
  bool m_CreateList();
  void m_CheckTransponder();
  bool m_IsTransponderWindow() const;

  static void m_ItemRealized(void* data, Evas_Object* object, void* info);
  static void m_GenlistFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistUnFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_GenlistKeyPressedCB(void* data, Evas* canvas, Evas_Object* object, void* info);
};
