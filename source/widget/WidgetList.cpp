#include "WidgetList.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "CheckRow.h"
#include "Content.h"
#include "DataProvider.h"
#include "EventManager.h"
#include "Log.h"
#include "PageKeys.h"
#include "RootWindow.h"
#include "RowFocus.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"

namespace {

constexpr size_t kBufferSize = 512;

struct RowStyle {
  std::string_view parent;
  const char* style;
  /// On the panel that shows second texts grey.
  const char* grey;
};

constexpr RowStyle kRowStyles[] = {
    {"weakhistorywindow", theme::kRowValueLite, theme::kRowValueGrey},
    {"popup.transfer", theme::kRowLite, theme::kRowGrey},
    {"popup.satellite", theme::kRowValueLite, theme::kRowValueGrey},
    {"ctxpopup.bottom", theme::kRowLite, theme::kRowGrey},
    {"ctxpopup.bottom.shortcut", theme::kRowLite, theme::kRowGrey},
};

}  // namespace

// --- the base ------------------------------------------------------------------------------------

Widget::Widget() : m_widgetID(EventIDPoll::GenerateWidgetID()) {}

Widget::~Widget() { EventIDPoll::DeleteWidgetID(); }

void WidgetGenList::Interface() { LOG_INFO("call Interface"); }

// --- data and rows -------------------------------------------------------------------------------

void WidgetGenList::Create() {
  m_pData = std::make_unique<DataList>();
  m_pData->Create(m_menuID);
}

void WidgetGenList::CreateGenlist(const char* style, bool flag) {
  LOG_DEBUG("menu item id : %s", m_menuID.c_str());
  if (style) m_style = style;
  m_flag = flag;
  if (!m_pData || m_pData->GetCount() == 0 || !CRootWindow::GetWindow()) {
    LOG_ERROR("Assertion failed");
    return;
  }
  t_pGenlist = elm_genlist_add(CRootWindow::GetWindow());
  elm_genlist_select_mode_set(t_pGenlist, ELM_OBJECT_SELECT_MODE_ALWAYS);
  elm_object_scroll_item_loop_enabled_set(t_pGenlist, EINA_FALSE);
  elm_genlist_homogeneous_set(t_pGenlist, EINA_TRUE);
  elm_genlist_mode_set(t_pGenlist, ELM_LIST_COMPRESS);
  elm_object_style_set(t_pGenlist, m_style.c_str());
  LOG_INFO(" style is [%s] ", m_style.c_str());
  KeepRowFocus(t_pGenlist);
  PageWithChannelKeys(t_pGenlist);
  m_AddRows();
  evas_object_smart_callback_add(t_pGenlist, "realized", m_ItemRealizedCB, this);
  evas_object_smart_callback_add(t_pGenlist, "item,focused", m_ItemFocusedCB, this);
  evas_object_smart_callback_add(t_pGenlist, "item,unfocused", m_ItemUnfocusedCB, this);
  evas_object_data_set(t_pGenlist, "data", this);
}

void WidgetGenList::m_BuildRowMap() {
  m_rows.assign(static_cast<size_t>(m_pData->GetCount()), kNotListed);
  int rows = 0;
  for (int i = 0; i < m_pData->GetCount(); ++i) {
    const ElementaryNode* node = m_pData->GetNode(i);
    if (node->IsShown()) {
      m_rows[static_cast<size_t>(i)] = rows++;
    } else {
      LOG_DEBUG(" INVISIBLE STATUS : %s", node->GetNodeMenuItemId().c_str());
    }
  }
}

int WidgetGenList::m_RowOfNode(int node) const {
  const auto index = static_cast<size_t>(node);
  return node >= 0 && index < m_rows.size() ? m_rows[index] : kNotListed;
}

int WidgetGenList::m_NodeOfRow(int row) const {
  const auto found = row < 0 ? m_rows.end() : std::find(m_rows.begin(), m_rows.end(), row);
  return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int WidgetGenList::m_FocusNode() const {
  if (const int node = m_NodeOfRow(m_nFocusItemNum); node >= 0) return node;
  const int first = m_pData->GetInitFocusIndex();
  return m_RowOfNode(first) == kNotListed ? 0 : first;
}

void WidgetGenList::m_AddRows() {
  m_BuildRowMap();
  m_rowCount = 0;
  // The row that will have the focus first, so that it is made first.
  const int start = m_FocusNode();
  if (const int row = m_RowOfNode(start); row != kNotListed) m_nFocusItemNum = row;
  // The parent decides the style, so it is one for all rows.
  Elm_Genlist_Item_Class* itemClass = m_ItemClass(start);
  if (!m_AddRow(start, itemClass, false)) return;
  for (int i = start - 1; i >= 0; --i) {
    if (!m_AddRow(i, itemClass, true)) return;
  }
  for (int i = start + 1; i < m_pData->GetCount(); ++i) {
    if (!m_AddRow(i, itemClass, false)) return;
  }
}

/// False when there is no such node, which ends the adding; a node that is not shown gets no row.
bool WidgetGenList::m_AddRow(int nodeIndex, Elm_Genlist_Item_Class* itemClass, bool before) {
  ElementaryNode* node = m_pData->GetNode(nodeIndex);
  if (!node) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  if (m_RowOfNode(nodeIndex) == kNotListed) return true;
  const auto add = before ? elm_genlist_item_prepend : elm_genlist_item_append;
  add(t_pGenlist, itemClass, node, nullptr, ELM_GENLIST_ITEM_NONE, m_ItemSelCB, this);
  ++m_rowCount;
  return true;
}

void WidgetGenList::t_AddGenListItem(int nodeIndex, int position) {
  if (!t_pGenlist || !m_pData || position >= m_pData->GetCount()) return;
  ElementaryNode* node = m_pData->GetNode(nodeIndex);
  Elm_Object_Item* neighbour = m_ItemAt(position < 1 ? 0 : position - 1);
  if (!node || !neighbour) return;
  const auto insert = position < 1 ? elm_genlist_item_insert_before : elm_genlist_item_insert_after;
  insert(t_pGenlist, m_ItemClass(nodeIndex), node, nullptr, neighbour, ELM_GENLIST_ITEM_NONE, m_ItemSelCB, this);
  ++m_rowCount;
}

std::string WidgetGenList::t_GetGenlistItcStyle(int index) {
  if (!m_pData || !m_pData->GetNode(index)) {
    LOG_DEBUG("NULL pointer.");
    return {};
  }
  char parent[kBufferSize] = {};
  CMenuDataProvider::GetItemSettingsUIStyle(m_menuID.c_str(), parent);
  LOG_DEBUG(" pParentItemUIStyle is [%s] ", parent);
  for (const RowStyle& entry : kRowStyles) {
    if (entry.parent != parent) continue;
    return Utils::FlagPanelType82InchSdc() ? entry.grey : entry.style;
  }
  LOG_DEBUG("Other case");
  return "not defined";
}

void WidgetGenList::t_AddListItemItc(Elm_Genlist_Item_Class* itemClass, const std::string& style) {
  itemClass->item_style = eina_stringshare_add(style.c_str());
  itemClass->func.text_get = m_ItemGetText;
  itemClass->func.content_get = m_ItemGetContent;
}

Elm_Genlist_Item_Class* WidgetGenList::m_ItemClass(int index) {
  const std::string style = t_GetGenlistItcStyle(index);
  Elm_Genlist_Item_Class*& itemClass = m_itemClasses[style];
  if (!itemClass) {
    itemClass = elm_genlist_item_class_new();
    if (!itemClass) std::abort();
    t_AddListItemItc(itemClass, style);
  }
  LOG_DEBUG(" pItc is [%p] ,style is [%s]", static_cast<void*>(itemClass), style.c_str());
  return itemClass;
}

char* WidgetGenList::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* node = static_cast<const ElementaryNode*>(data);
  char text[kBufferSize] = "invalid-name", value[kBufferSize] = {};
  if (node && std::string_view(part) == theme::kRowText) node->GetNodeDisplayName(text);
  if (node && std::string_view(part) == theme::kRowValueText) node->GetNodeValue(value, text);
  // A page row without a displayed value shows the value itself.
  const char* shown = *text || !*value ? text : value;
  LOG_DEBUG("Part[%s] SetTo[%s]", part, shown);
  return elm_entry_utf8_to_markup(Showable(shown));
}

Evas_Object* WidgetGenList::m_ItemGetContent(void* data, Evas_Object* object, const char* part) {
  const auto* node = static_cast<const ElementaryNode*>(data);
  if (!node || std::string_view(part) != theme::kRowBox) return nullptr;
  const std::string style = node->GetContent(ElementaryNode::kContentStyle);
  const std::string content = node->GetContent(ElementaryNode::kContent);
  LOG_DEBUG("part is [%s], strContentStyle is [%s], strContent is [%s] ", part, style.c_str(), content.c_str());
  return style == "elm_image" ? Utils::GetImageObjectByPath(object, content.c_str()) : nullptr;
}

// --- states --------------------------------------------------------------------------------------

void WidgetGenList::FetchAllContext(bool show, bool) {
  if (!m_pData || !t_pGenlist) {
    LOG_ERROR("Assertion failed");
    return;
  }
  if (m_pData->GetType() == DataList::LIST_CHOICES) m_FetchRows();
  if (show) evas_object_show(t_pGenlist);
}

void WidgetGenList::m_FetchRows() {
  m_pData->FetchEnableStatus();
  for (int i = 0; i < m_pData->GetCount(); ++i) {
    ElementaryNode* node = m_pData->GetNode(i);
    LOG_DEBUG("i : %d, m_pData->GetNode(i)->GetEnableStatus() : %d", i, node->GetStatus());
    if (node->GetStatus() == ITEM_STATUS_DISABLED) m_pData->FetchText(i);
    if (Elm_Object_Item* item = m_ItemAt(m_RowOfNode(i))) t_SetItemStatus(item, false, false);
  }
}

void WidgetGenList::t_SetItemStatus(Elm_Object_Item* item, bool focused, bool) {
  const auto* node = static_cast<const ElementaryNode*>(elm_object_item_data_get(item));
  if (!m_pData || !node) {
    LOG_DEBUG(" can't find index ");
    return;
  }
  elm_object_item_disabled_set(item, node->GetStatus() == ITEM_STATUS_DISABLED);
  Utils::ApplyRealizedListItemHighlight(item, node->GetStatus());
  if (focused) Utils::ApplyItemHighlight(item, ITEM_STATUS_FOCUSED);
  if (!node->GetContent(ElementaryNode::kContent).empty()) ShowRowBox(item);
  if (m_pData->GetType() == DataList::LIST_CHOICES) MarkChosen(item, m_IsStoredChoice(item));
}

bool WidgetGenList::m_IsStoredChoice(const Elm_Object_Item* item) const {
  const int first = m_pData->GetInitFocusIndex();
  return m_pData->GetType() == DataList::LIST_CHOICES && elm_object_item_data_get(item) == m_pData->GetNode(first);
}

void WidgetGenList::m_ItemRealizedCB(void* data, Evas_Object*, void* info) {
  static_cast<WidgetGenList*>(data)->t_SetItemStatus(static_cast<Elm_Object_Item*>(info), false, false);
}

void WidgetGenList::m_ItemFocusedCB(void* data, Evas_Object*, void* info) {
  static_cast<WidgetGenList*>(data)->t_SetItemStatus(static_cast<Elm_Object_Item*>(info), true, false);
}

void WidgetGenList::m_ItemUnfocusedCB(void* data, Evas_Object*, void* info) {
  auto* pThis = static_cast<WidgetGenList*>(data);
  auto* item = static_cast<Elm_Object_Item*>(info);
  pThis->m_nUnFocusItemNum = elm_genlist_item_index_get(item) - 1;
  pThis->t_SetItemStatus(item, false, false);
  Utils::ApplyItemHighlight(item, ITEM_STATUS_UNFOCUSED);
}

// --- selection -----------------------------------------------------------------------------------

void WidgetGenList::SetItemSelectCB(SelectCallback callback, void* userData) {
  m_selectCallback = callback;
  m_userData = userData;
}

void WidgetGenList::m_ItemSelCB(void* data, Evas_Object* object, void* info) {
  LOG_INFO(" call m_ItemSelCB ");
  auto* pThis = static_cast<WidgetGenList*>(data);
  auto* item = static_cast<Elm_Object_Item*>(info);
  auto* node = item ? static_cast<ElementaryNode*>(elm_object_item_data_get(item)) : nullptr;
  if (!pThis || !node) {
    LOG_DEBUG("pItem or ElementaryNode is null!");
    return;
  }
  if (node->GetIgnoreSelect()) {
    node->SetIgnoreSelect(false);
    LOG_DEBUG("bIgnoreSelectCB was true. Now bIgnoreSelectCB is false");
    return;
  }
  if (pThis->m_selectCallback) pThis->m_selectCallback(pThis->m_userData, object, item, pThis->m_userData);
}

void WidgetGenList::SetWidgetSelectedItem() {
  LOG_DEBUG("m_bIsSelected is [ %d ]", m_bIsSelected);
  m_bIsSelected = true;
  Elm_Object_Item* item = GetFocusedGenlistItem();
  if (item) {
    LOG_DEBUG("Set With Focus Item");
  } else {
    LOG_DEBUG("Set With Focus Index");
    item = m_ItemAt(m_nFocusItemNum);
  }
  if (item && !elm_genlist_item_selected_get(item)) elm_genlist_item_selected_set(item, EINA_TRUE);
}

void WidgetGenList::ResetWidgetConfig() {
  LOG_DEBUG("m_bIsSelected is [ %d ]", m_bIsSelected);
  m_bIsSelected = false;
  Elm_Object_Item* item = t_pGenlist ? elm_genlist_selected_item_get(t_pGenlist) : nullptr;
  if (item) elm_genlist_item_selected_set(item, EINA_FALSE);
}

// --- showing and focus ---------------------------------------------------------------------------

void WidgetGenList::Show() {
  const int first = m_NodeOfRow(m_nFocusItemNum);
  ElementaryNode* node = m_pData && first >= 0 ? m_pData->GetNode(first) : nullptr;
  if (!t_pGenlist || !node) {
    LOG_ERROR("Assertion failed");
    return;
  }
  evas_object_show(t_pGenlist);
  LOG_INFO(" List Type : %d", m_pData->GetType());
  if (m_pData->GetType() != DataList::LIST_CHOICES) return;
  Elm_Object_Item* item = m_ItemAt(m_nFocusItemNum);
  if (!item || elm_genlist_item_selected_get(item)) return;
  node->SetIgnoreSelect(true);
  elm_genlist_item_selected_set(item, EINA_TRUE);
}

void WidgetGenList::Hide() {
  if (t_pGenlist) evas_object_hide(t_pGenlist);
}

Elm_Object_Item* WidgetGenList::m_ItemAt(int index) const {
  if (!t_pGenlist || index < 0) return nullptr;
  return elm_genlist_nth_item_get(t_pGenlist, static_cast<unsigned>(index));
}

void WidgetGenList::SetFocus(int index, bool top) {
  Elm_Object_Item* item = m_ItemAt(index);
  if (!item) return;
  SetFocusRow(item);
  Utils::SetObjectItemFocus(item);
  elm_genlist_item_show(item, top ? ELM_GENLIST_ITEM_SCROLLTO_TOP : ELM_GENLIST_ITEM_SCROLLTO_IN);
}

void WidgetGenList::SetPreFocus(int index, bool top) {
  m_nFocusItemNum = index;
  if (Elm_Object_Item* item = m_ItemAt(index)) {
    elm_genlist_item_show(item, top ? ELM_GENLIST_ITEM_SCROLLTO_TOP : ELM_GENLIST_ITEM_SCROLLTO_IN);
  }
  LOG_INFO(" SetPreFocus is [ %d ] ", index);
}

void WidgetGenList::SetFocusGenlistItemNum(int number) {
  m_nFocusItemNum = number;
  LOG_INFO(" m_nFocusItemNum is [ %d ] ", number);
}

void WidgetGenList::SetFocusPresetItem() {
  LOG_DEBUG("Focused Item Num : %d", m_nFocusItemNum);
  SetFocus(m_nFocusItemNum, false);
}

int WidgetGenList::GetInitFocusedGenlistItemNum() { return m_pData ? m_pData->GetInitFocusIndex() : -1; }

bool WidgetGenList::GetFocusGenlistItemValue(std::string* value) {
  Elm_Object_Item* item = GetFocusedGenlistItem();
  const auto* node = item ? static_cast<const ElementaryNode*>(elm_object_item_data_get(item)) : nullptr;
  if (!node || !value) return false;
  char text[kBufferSize] = {}, displayed[kBufferSize] = {};
  node->GetNodeValue(text, displayed);
  *value = text;
  return true;
}

Elm_Object_Item* WidgetGenList::GetFocusedGenlistItem() {
  return t_pGenlist ? elm_object_focused_item_get(t_pGenlist) : nullptr;
}

int WidgetGenList::GetListCount() { return m_pData ? m_pData->GetCount() : 0; }

int WidgetGenList::GetVisibleListCount() { return m_rowCount; }

Evas_Object* WidgetGenList::GetParent() { return t_pGenlist; }

void WidgetGenList::Destroy() {
  if (t_pGenlist) {
    evas_object_smart_callback_del_full(t_pGenlist, "realized", m_ItemRealizedCB, this);
    evas_object_smart_callback_del_full(t_pGenlist, "item,focused", m_ItemFocusedCB, this);
    evas_object_smart_callback_del_full(t_pGenlist, "item,unfocused", m_ItemUnfocusedCB, this);
    evas_object_hide(t_pGenlist);
    evas_object_del(t_pGenlist);
    t_pGenlist = nullptr;
  }
  if (m_pData) m_pData->Destroy();
  m_pData.reset();
  for (const auto& [style, itemClass] : m_itemClasses) {
    eina_stringshare_del(itemClass->item_style);
    elm_genlist_item_class_free(itemClass);
  }
  m_itemClasses.clear();
}
