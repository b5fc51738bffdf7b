// The children of a menu item as a toolkit list.
#pragma once

#include <Elementary.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DataList.h"

/// Owns the identifier of a list widget.
class Widget {
 public:
  Widget();
  virtual ~Widget();
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  virtual void Interface() = 0;
  virtual int GetWidgetID() { return m_widgetID; }
  virtual void ResetWidgetConfig() = 0;

 protected:
  Evas_Object* t_pGenlist = nullptr;

 private:
  int m_widgetID;
};

class WidgetGenList : public Widget {
 public:
  using SelectCallback = void (*)(void* data, Evas_Object* genlist, void* item, void* userData);

  /// `menuID`: the item whose children are the rows.
  explicit WidgetGenList(const char* menuID) : m_menuID(menuID ? menuID : "") {}

  void Interface() override;
  void ResetWidgetConfig() override;

  /// Makes the data; then `CreateGenlist` the rows. Without a node there is no list.
  void Create();
  virtual void CreateGenlist(const char* style, bool flag);
  virtual void Destroy();
  virtual void Hide();
  virtual void Show();
  /// Rows are counted from 0 in the order of the list; `top` scrolls the row to the top, otherwise into view.
  virtual void SetFocus(int index, bool top);
  virtual void SetFocusPresetItem();
  virtual void SetPreFocus(int index, bool top);
  virtual void SetFocusGenlistItemNum(int number);
  /// -1 without data.
  virtual int GetInitFocusedGenlistItemNum();
  virtual bool GetFocusGenlistItemValue(std::string* value);
  virtual Elm_Object_Item* GetFocusedGenlistItem();
  virtual int GetListCount();
  virtual int GetVisibleListCount();
  /// The genlist; null before it is made.
  virtual Evas_Object* GetParent();
  virtual void SetWidgetSelectedItem();

  /// `callback` gets `userData` as its first and its last argument.
  void SetItemSelectCB(SelectCallback callback, void* userData);
  /// Asks the TV again which rows are enabled.
  void FetchAllContext(bool show, bool all);

 protected:
  /// Style of the row at a node.
  virtual std::string t_GetGenlistItcStyle(int index);
  virtual void t_AddListItemItc(Elm_Genlist_Item_Class* itemClass, const std::string& style);
  /// One further row before the row at `position`, after the row before it where `position` is not below 1.
  void t_AddGenListItem(int nodeIndex, int position);
  void t_SetItemStatus(Elm_Object_Item* item, bool focused, bool selected);

 private:
  static constexpr int kNoRow = 255;
  static constexpr int kNotListed = -1;

  Elm_Genlist_Item_Class* m_ItemClass(int index);
  void m_BuildRowMap();
  void m_AddRows();
  bool m_AddRow(int nodeIndex, Elm_Genlist_Item_Class* itemClass, bool before);
  int m_FocusNode() const;
  int m_RowOfNode(int node) const;
  /// The node of a row; -1 for a row that the list does not have.
  int m_NodeOfRow(int row) const;
  Elm_Object_Item* m_ItemAt(int index) const;
  void m_FetchRows();

  bool m_IsStoredChoice(const Elm_Object_Item* item) const;

  static char* m_ItemGetText(void* data, Evas_Object* object, const char* part);
  static Evas_Object* m_ItemGetContent(void* data, Evas_Object* object, const char* part);
  static void m_ItemSelCB(void* data, Evas_Object* object, void* info);
  static void m_ItemRealizedCB(void* data, Evas_Object* object, void* info);
  static void m_ItemFocusedCB(void* data, Evas_Object* object, void* info);
  static void m_ItemUnfocusedCB(void* data, Evas_Object* object, void* info);

  std::string m_style = "default";
  std::string m_menuID;
  std::unique_ptr<DataList> m_pData;
  /// One for each style.
  std::map<std::string, Elm_Genlist_Item_Class*> m_itemClasses;
  bool m_flag = false;
  int m_nFocusItemNum = kNoRow;
  int m_nUnFocusItemNum = kNoRow;
  bool m_bIsSelected = false;
  /// The row of each node; `kNotListed` for one that is not shown.
  std::vector<int> m_rows;
  SelectCallback m_selectCallback = nullptr;
  void* m_userData = nullptr;
  int m_rowCount = 0;
};
