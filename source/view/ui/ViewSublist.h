// A drop-down beside a list row: the values of one setting, of which one is chosen.
#pragma once

#include <string>
#include <vector>

#include "BesideRow.h"
#include "Connections.h"
#include "View.h"

class CViewSublist : public CView, public BesideRow {
 public:
  explicit CViewSublist(const char* menuID) : CView(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  Evas_Object* t_List() const override { return m_pGenlist; }

 private:
  struct Choice {
    std::string name, value;
    CViewSublist* owner;
    /// From 1.
    int index;
  };

  bool m_CreatePopup();
  void m_ReadChoices();
  bool m_CreateList();
  void m_SelectCurrent();
  void m_Store(const Choice& choice);

  static char* m_ItemGetText(void* data, Evas_Object* object, const char* part);
  static void m_ItemSelectedCB(void* data, Evas_Object* object, void* info);
  void m_KeyPressCB(const std::string& key);

  Evas_Object* m_pGenlist = nullptr;
  Elm_Genlist_Item_Class* m_pItemClass = nullptr;
  int m_nControlPopupWidth = 0, m_nControlPopupHeight = 0;
  bool t_bSelect = false;
  bool m_bIgnoreSelect = false;
  /// The row of the stored value; null where none of them is.
  Elm_Object_Item* m_pStored = nullptr;
  bool m_bMoved = false;
  std::vector<Choice> m_choices;
  Connections m_connections;
};
