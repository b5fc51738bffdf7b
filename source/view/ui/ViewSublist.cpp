#include "ViewSublist.h"

#include <string_view>

#include "Content.h"
#include "Log.h"
#include "RootWindow.h"
#include "RowFocus.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "app_framework.h"
#include "settings_api.h"

namespace {

constexpr int kMinWidth = 388;
/// What the popup has around its list, both sides together.
constexpr int kMarginWidth = 20, kMarginHeight = 30;
constexpr int kRowHeight = 80;
constexpr int kMostRows = 6;
constexpr int kFullHeight = 535;
constexpr int kAbove = 15;

int PopupHeight(size_t rows) {
  if (rows == 0 || rows > kMostRows) return kFullHeight;
  return kRowHeight * static_cast<int>(rows) + kMarginHeight;
}

}  // namespace

void CViewSublist::t_Create() {
  CView::t_Create();
  if (!m_CreatePopup()) return;
  m_ReadChoices();
  m_nControlPopupWidth = kMinWidth + kMarginWidth;
  m_nControlPopupHeight = PopupHeight(m_choices.size());
  if (!m_CreateList()) LOG_DEBUG("Failed to Creat");
}

bool CViewSublist::m_CreatePopup() {
  t_SetMainBase(CRootWindow::CreateBase(BASE_TYPE_POPUP, theme::kDropDown, Utils::GetEDJFile().c_str()));
  if (t_pMainBase) {
    m_connections.Smart(t_pMainBase, "block,clicked", [](Evas_Object*, void*) { CloseView(); });
    return true;
  }
  LOG_DEBUG("Null Pointer");
  return false;
}

void CViewSublist::m_ReadChoices() {
  LOG_DEBUG("t_MenuID=%s", t_MenuID.c_str());
  std::vector<std::pair<std::string, std::string>> list;
  SettingsAPI::Get()->GetItemDataList(t_MenuID, list);
  for (const auto& [value, name] : list) {
    LOG_DEBUG("name = %s", name.c_str());
    LOG_DEBUG("value = %s", value.c_str());
    m_choices.push_back({name, value, this, static_cast<int>(m_choices.size()) + 1});
  }
}

bool CViewSublist::m_CreateList() {
  m_pGenlist = AddList(t_pMainBase);
  m_pItemClass = NewRowClass(theme::kRow, m_ItemGetText, nullptr);
  if (!m_pGenlist || !m_pItemClass) return false;
  for (Choice& choice : m_choices) {
    LOG_DEBUG("Add [%s]", choice.name.c_str());
    elm_genlist_item_append(m_pGenlist, m_pItemClass, &choice, nullptr, ELM_GENLIST_ITEM_NONE, m_ItemSelectedCB, this);
  }
  m_connections.Key(m_pGenlist,
                    [this](Evas_Object*, const Evas_Event_Key_Down& event) { m_KeyPressCB(event.keyname); });
  m_connections.Smart(m_pGenlist, "realized", [this](Evas_Object*, void* row) {
    MarkChosen(static_cast<Elm_Object_Item*>(row), row == m_pStored);
  });
  Evas_Object* table =
      Utils::WidgetMinSet(m_pGenlist, t_pMainBase, kMinWidth, m_nControlPopupHeight - kMarginHeight, 1);
  evas_object_show(table);
  elm_object_content_set(t_pMainBase, table);
  return true;
}

char* CViewSublist::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* choice = static_cast<const Choice*>(data);
  return std::string_view(part) == theme::kRowText ? elm_entry_utf8_to_markup(Showable(choice->name.c_str())) : nullptr;
}

// --- showing -------------------------------------------------------------------------------------

void CViewSublist::t_Show() {
  t_PlaceBesideRow(t_pMainBase, m_nControlPopupWidth, m_nControlPopupHeight, kAbove);
  CView::t_Show();
  if (!t_pMainBase) return;
  Utils::DisableBgRect(t_pMainBase);
  t_ShowMainBase();
  if (m_pGenlist) evas_object_show(m_pGenlist);
  if (m_pGenlist) elm_object_focus_set(m_pGenlist, EINA_TRUE);
  m_SelectCurrent();
}

void CViewSublist::m_SelectCurrent() {
  std::string name, value;
  if (!m_pGenlist || !SettingsAPI::Get()->GetItemValue(t_MenuID, name, value)) return;
  for (Elm_Object_Item* item = elm_genlist_first_item_get(m_pGenlist); item; item = elm_genlist_item_next_get(item)) {
    if (static_cast<const Choice*>(elm_object_item_data_get(item))->value != value) continue;
    m_pStored = item;
    MarkChosen(item, true);
    SetFocusRow(item);
    Utils::SetObjectItemFocus(item);
    m_bIgnoreSelect = true;
    elm_genlist_item_selected_set(item, EINA_TRUE);
    return;
  }
}

void CViewSublist::t_Destroy() {
  m_connections.Clear();
  t_GiveFocusUp();
  if (m_pGenlist) evas_object_del(m_pGenlist);
  if (m_pItemClass) elm_genlist_item_class_free(m_pItemClass);
  m_pGenlist = nullptr;
  m_pStored = nullptr;
  m_pItemClass = nullptr;
  CView::t_Destroy();
}

// --- choosing ------------------------------------------------------------------------------------

void CViewSublist::m_ItemSelectedCB(void* data, Evas_Object*, void* info) {
  LOG_DEBUG(" Select CB ");
  auto* pThis = static_cast<CViewSublist*>(data);
  auto* item = static_cast<Elm_Object_Item*>(info);
  if (!pThis || !item) {
    LOG_DEBUG("Null");
    return;
  }
  if (pThis->m_bIgnoreSelect) {
    LOG_DEBUG("ignore first selectcb");
    pThis->m_bIgnoreSelect = false;
    return;
  }
  if (pThis->t_bSelect) {
    LOG_DEBUG("ignore multi-click");
    return;
  }
  pThis->m_Store(*static_cast<const Choice*>(elm_object_item_data_get(item)));
}

void CViewSublist::m_Store(const Choice& choice) {
  t_bSelect = true;
  LOG_DEBUG("t_bSelect=%d", t_bSelect);
  LOG_DEBUG("index=%d", choice.index);
  if (choice.index <= static_cast<int>(m_choices.size())) {
    SettingsAPI::Get()->SetItemValue(t_MenuID, choice.value, false);
  }
  CloseView();
}

void CViewSublist::m_KeyPressCB(const std::string& key) {
  LOG_INFO("Key[%s]", key.c_str());
  if (key == "Up" || key == "Down") m_bMoved = true;
  if (key == "Left") CloseView();
}
