#include "ViewListActionWindow.h"

#include <string_view>

#include "Content.h"
#include "DataProvider.h"
#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "settings_api.h"

std::string CViewListActionWindow::t_GetBaseStyle() {
  return t_MenuID == "postype-sat-longitude-settings" ? theme::kRight : theme::kBottom;
}

std::string CViewListActionWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

void CViewListActionWindow::t_Create() {
  m_PrepareListInfo();
  CViewListWindowBase::t_Create();
}

void CViewListActionWindow::t_Refresh() {
  const size_t rows = m_nodes.size();
  m_PrepareListInfo();
  if (t_pGenlist && rows != m_nodes.size()) m_FillList();
  Elm_Object_Item* row = t_pGenlist ? elm_object_focused_item_get(t_pGenlist) : nullptr;
  if (row) elm_genlist_item_selected_set(row, EINA_FALSE);
  CViewListWindowBase::t_Refresh();
}

void CViewListActionWindow::t_FocusFirst() {
  if (m_nodes.empty() || !t_pGenlist) return CViewListWindowBase::t_FocusFirst();
  elm_object_focus_set(t_pGenlist, EINA_TRUE);
}

void CViewListActionWindow::t_FirstEnter(std::string& text) {
  text += spoken::Joined({t_WindowTitle, spoken::Items(static_cast<int>(m_nodes.size()))});
  if (m_nodes.empty()) return;
  const Node& first = m_nodes.front();
  text += ", " + spoken::Joined({first.strName, first.strValue, T("COM_SID_POPUP_WIDGET_SELECT_GUIDE")});
}

// --- the rows ------------------------------------------------------------------------------------

void CViewListActionWindow::m_PrepareListInfo() {
  LOG_DEBUG("t_MenuID=%s", t_MenuID.c_str());
  std::vector<std::string> children;
  // Rows that cannot be read again stay as they are.
  if (!SettingsAPI::Get()->GetItemChildList(t_MenuID, children)) return;
  // As many as before stay where the list has them.
  m_nodes.resize(children.size());
  for (size_t i = 0; i < children.size(); ++i) m_nodes[i] = m_ReadNode(children[i]);
}

CViewListActionWindow::Node CViewListActionWindow::m_ReadNode(const std::string& menuID) {
  LOG_DEBUG("child item = %s", menuID.c_str());
  Node node = {menuID, DisplayName(menuID), {}};
  LOG_DEBUG("displayName = %s", node.strName.c_str());
  std::string value;
  SettingsAPI::Get()->GetItemValue(menuID, node.strValue, value);
  LOG_DEBUG("displayValue = %s, value = %s", node.strValue.c_str(), value.c_str());
  return node;
}

bool CViewListActionWindow::t_AddGenListItems() {
  if (!t_pGenlist) {
    LOG_ERROR("Null");
    return false;
  }
  t_pItemClass = NewRowClass(theme::kRowValue, m_ItemGetText, nullptr);
  if (!t_pItemClass) {
    LOG_ERROR("Buffer failed");
    return false;
  }
  m_FillList();
  return true;
}

void CViewListActionWindow::m_FillList() {
  if (m_nodes.empty() && elm_object_focus_get(t_pGenlist)) CViewListWindowBase::t_FocusFirst();
  elm_genlist_clear(t_pGenlist);
  // Without a row there is nothing in it to be seen with the focus.
  elm_object_focus_allow_set(t_pGenlist, !m_nodes.empty());
  for (Node& node : m_nodes) {
    LOG_DEBUG("Add [%s]", node.strName.c_str());
    elm_genlist_item_append(t_pGenlist, t_pItemClass, &node, nullptr, ELM_GENLIST_ITEM_NONE, m_ItemSelectedCB, this);
  }
  elm_object_signal_emit(t_pMainBase, theme::kContentRows, std::to_string(m_nodes.size()).c_str());
}

char* CViewListActionWindow::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* node = static_cast<const Node*>(data);
  const std::string_view name = part;
  if (name == theme::kRowText) return elm_entry_utf8_to_markup(Showable(node->strName.c_str()));
  if (name == theme::kRowValueText) return elm_entry_utf8_to_markup(Showable(node->strValue.c_str()));
  LOG_ERROR("Null Part[%s]", part);
  return nullptr;
}

void CViewListActionWindow::t_ProcessItemRealized(Elm_Object_Item* item) {
  CViewListWindowBase::t_ProcessItemRealized(item);
  MarkEditable(item);
}

void CViewListActionWindow::t_ProcessItemSelected(void*, Evas_Object*, void* item) {
  auto* row = static_cast<Elm_Object_Item*>(item);
  const int index = elm_genlist_item_index_get(row) - 1;
  LOG_DEBUG("index=%d", index);
  if (index < 0 || index >= static_cast<int>(m_nodes.size())) return;
  const std::string& menuID = m_nodes[index].menuID;
  LOG_DEBUG("menuID=%s", menuID.c_str());
  PushControl(menuID.c_str(), row);
}
