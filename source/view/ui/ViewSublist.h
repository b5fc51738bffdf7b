// A drop-down beside a list row: the values of one setting, of which one is chosen.
#pragma once

#include <string>
#include <vector>

#include "View.h"

class CViewSublist : public CView {
 public:
  explicit CViewSublist(const char* menuID) : CView(menuID) {}

  /// The row that opened it, in screen pixels.
  void SetParentItemPostion(int x, int y, int w) { m_x = x, m_y = y, m_w = w; }

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;

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
  static void m_KeyPressCB(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void m_BlockClicked(void* data, Evas_Object* object, void* info);

  Evas_Object* m_pGenlist = nullptr;
  Elm_Genlist_Item_Class* m_pItemClass = nullptr;
  int m_x = 0, m_y = 0, m_w = 0;
  int m_nControlPopupWidth = 0, m_nControlPopupHeight = 0;
  bool t_bSelect = false;
  bool m_bIgnoreSelect = false;
  bool m_bMoved = false;
  std::vector<Choice> m_choices;
};
