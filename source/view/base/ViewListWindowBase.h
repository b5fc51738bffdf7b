// A window around a plain toolkit list.
#pragma once

#include "ViewListBase.h"

class CViewListWindowBase : public CViewListBase {
 public:
  explicit CViewListWindowBase(const char* menuID) : CViewListBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Refresh() override;
  std::string t_GetBaseStyle() override;
  /// Save, which tunes, and Cancel for the user's transponder, otherwise Close.
  std::vector<Button> t_Buttons() override;

  /// Makes the genlist, its item class left to the subclass.
  bool t_CreateWidgetList() override;
  void t_RegisterListKeyEvent() override;
  void t_ProcessItemRealized(Elm_Object_Item* item) override;
  Evas_Object* t_List() const override { return t_pGenlist; }

  /// Fills the list; its rows select with `m_ItemSelectedCB` and this view as data.
  virtual bool t_AddGenListItems();
  /// The list on its ground, framed by spacers. `width` and `height` are pixels of a 1920-pixel screen.
  virtual void t_PackListToTable(Evas_Object* parent, int width, bool fixed, int height);
  virtual void t_ConfigueTTS(Evas_Object* item);
  virtual void t_AddWidgetToWindowContent();

  static void m_ItemSelectedCB(void* data, Evas_Object* object, void* info);

  Evas_Object* t_pGenlist = nullptr;
  bool t_FlagFirst = false;
  bool t_FlagSecond = true;

 private:
  bool m_CreateList();
  void m_CheckTransponder();
  bool m_IsTransponderWindow() const;
};
