#include "ViewSatelliteSelectionWindow.h"

#include <algorithm>

#include "CheckRow.h"
#include "Content.h"
#include "DataProvider.h"
#include "Log.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "string_util.h"
#include "tvs_api.h"

namespace {

constexpr int kWidth = 880, kHeight = 600;
constexpr size_t kNameSize = 512;
constexpr int kFirstSatellite = 1;
constexpr const char* kHint = "TV_SID_SELECT_THE_SATELLITES_YOU_WANT_TO_USE";

bool IsUsers(const TSSatellite* satellite) {
  return satellite->satelliteId >= SATELLITE_USER_FIRST && satellite->satelliteId <= SATELLITE_USER_LAST;
}

std::string NameOf(const TSSatellite& satellite) {
  char name[kNameSize] = {};
  CStringUtil::UnicodeToUtf8(name, sizeof name, satellite.name.data(), static_cast<int>(satellite.name.size()));
  return name;
}

}  // namespace

// --- the satellites ------------------------------------------------------------------------------

void CViewSatelliteSelectionWindow::t_Create() {
  m_PrepareSatelliteInfo();
  CViewListWindowBase::t_Create();
  m_KeepButtonsApart();
}

/// The rows beside the buttons are no more above or below them than they are.
void CViewSatelliteSelectionWindow::m_KeepButtonsApart() {
  const auto& [save, cancel, none] = t_pDefaultButtons;
  if (!save || !cancel) return;
  elm_object_focus_next_object_set(save, save, ELM_FOCUS_UP);
  elm_object_focus_next_object_set(cancel, cancel, ELM_FOCUS_DOWN);
  // Each of these counts the other way too, and what is set last holds.
  elm_object_focus_next_object_set(save, cancel, ELM_FOCUS_DOWN);
}

void CViewSatelliteSelectionWindow::m_PrepareSatelliteInfo() {
  m_items.clear();
  CTVSApiWrapper api;
  ISatellite* service = api.CreateSatellite();
  if (!service) {
    LOG_ERROR("Interface creation failed!");
    return;
  }
  const std::vector<TSSatellite*> satellites = m_ReadSatellites(*service);
  TSTvMode mode(ANTENNA_NONE, SERVICE_MODE_NONE);
  if (satellites.empty() || !m_ReadMode(mode)) return;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_ERROR("Interface creation failed!");
    return;
  }
  m_AddSatellites(t_ReorderSatelliteList(satellites), *settings, mode);
}

std::vector<TSSatellite*> CViewSatelliteSelectionWindow::m_ReadSatellites(ISatellite& service) {
  TCCriteriaHelper criteria;
  criteria.OrderBy(COLUMN_SATELLITE_USER_DEFINED, 1);
  criteria.OrderBy(COLUMN_SATELLITE_POSITION, 1);
  criteria.OrderBy(COLUMN_SATELLITE_NAME, 0);
  std::vector<TSSatellite*> satellites;
  if (service.GetSatelliteList(criteria, satellites) >= 1) return satellites;
  LOG_DEBUG("Satellite list error");
  return {};
}

bool CViewSatelliteSelectionWindow::m_ReadMode(TSTvMode& mode) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!navigation) {
    LOG_ERROR("CreateServiceNavigation fails");
    return false;
  }
  if (navigation->GetTvMode(mode) < 1) {
    LOG_ERROR("GetTvMode fails ");
    return false;
  }
  LOG_DEBUG("antennaMode : %d , serviceMode : %d ", mode.antennaMode, mode.serviceMode);
  return true;
}

void CViewSatelliteSelectionWindow::m_AddSatellites(const std::vector<TSSatellite*>& satellites,
                                                    ISatelliteSettings& settings, const TSTvMode& mode) {
  m_items.reserve(satellites.size());
  for (const TSSatellite* satellite : satellites) {
    const std::string name = NameOf(*satellite);
    unsigned char selected = 0;
    if (settings.GetSatelliteSelected(satellite->satelliteId, mode, selected) < 1) selected = 0;
    m_satelliteIDs[name] = satellite->satelliteId;
    m_selection[name] = selected != 0;
    m_items.push_back({name, this});
  }
}

std::vector<TSSatellite*> CViewSatelliteSelectionWindow::t_ReorderSatelliteList(
    const std::vector<TSSatellite*>& satellites) {
  std::vector<TSSatellite*> order = satellites;
  const auto users = std::stable_partition(order.begin(), order.end(), [](auto* each) { return !IsUsers(each); });
  std::sort(users, order.end(), [](auto* a, auto* b) { return a->satelliteId < b->satelliteId; });
  const auto first =
      std::find_if(order.begin(), users, [](auto* each) { return each->satelliteId == kFirstSatellite; });
  std::rotate(order.begin(), first == users ? order.begin() : first, users);
  return order;
}

bool CViewSatelliteSelectionWindow::m_ExistChannelByCategory(unsigned long long satelliteId) {
  TSTvMode mode(ANTENNA_NONE, SERVICE_MODE_NONE);
  TCCriteriaHelper criteria;
  if (!m_ReadMode(mode)) return false;
  if (!TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_SATELLITE, satelliteId, criteria)) return false;
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  int count = 0;
  if (navigation && navigation->GetChannelCount(criteria, mode, count) > 0) return count > 0;
  LOG_ERROR("GetChannelCount fails");
  return false;
}

// --- the window ----------------------------------------------------------------------------------

std::string CViewSatelliteSelectionWindow::t_GetBaseStyle() { return theme::kRightLarge; }

std::string CViewSatelliteSelectionWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

std::vector<CViewWindowBase::Button> CViewSatelliteSelectionWindow::t_Buttons() {
  return {{"SID_SAVE", [this] { m_Save(); }}, {"SID_CANCEL"}};
}

void CViewSatelliteSelectionWindow::t_FirstEnter(std::string& text) {
  text += " " + spoken::Joined({t_WindowTitle, T(kHint), spoken::Items(static_cast<int>(m_items.size())),
                                spoken::Button("SID_SAVE")});
}

void CViewSatelliteSelectionWindow::t_AddListToUserDefineContent() {
  Evas_Object* layout = t_AddContent(theme::kSatellites, kWidth, kHeight);
  if (!layout || !t_pGenlist) return;
  elm_object_part_text_set(layout, theme::kSatellitesHint, Markup(T(kHint)).c_str());
  elm_object_part_content_set(layout, theme::kSatellitesList, t_pGenlist);
  evas_object_show(t_pGenlist);
}

std::vector<int> CViewSatelliteSelectionWindow::m_SelectedIDs() const {
  std::vector<int> ids;
  for (const auto& [name, selected] : m_selection) {
    if (!selected) continue;
    ids.push_back(m_satelliteIDs.at(name));
    LOG_DEBUG("Selected satname is %s %d", name.c_str(), ids.back());
  }
  return ids;
}

void CViewSatelliteSelectionWindow::m_Save() {
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_ERROR("Interface creation failed!");
    return;
  }
  const std::vector<int> ids = m_SelectedIDs();
  if (ids.empty()) {
    LOG_DEBUG("You need to select atleast one satellite");
    Speak(T(kHint));
    return;
  }
  const bool stored = settings->SetSelectedSatellites(ids) == 1;
  LOG_DEBUG("%s", stored ? "Selected satellites are set successfully" : "Selected satellites set failed!");
  if (stored) SayNow(T("COM_SID_SAVED"));
  CloseView();
}

// --- the rows ------------------------------------------------------------------------------------

bool CViewSatelliteSelectionWindow::t_AddGenListItems() {
  if (!t_pGenlist) {
    LOG_ERROR("Null");
    return false;
  }
  t_pItemClass = NewRowClass(theme::kRowValue, m_ItemGetText, m_ItemGetContent);
  if (!t_pItemClass) {
    LOG_ERROR("Buffer failed");
    return false;
  }
  for (Row& row : m_items) {
    elm_genlist_item_append(t_pGenlist, t_pItemClass, &row, nullptr, ELM_GENLIST_ITEM_NONE, m_ProcessSelectedCB, this);
    LOG_DEBUG("Add [%s]", row.name.c_str());
  }
  return true;
}

char* CViewSatelliteSelectionWindow::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  return CheckRowText(part, static_cast<const Row*>(data)->name);
}

/// A satellite in use cannot be given up: its channels hang on it.
Evas_Object* CViewSatelliteSelectionWindow::m_ItemGetContent(void* data, Evas_Object* list, const char* part) {
  auto* row = static_cast<Row*>(data);
  CViewSatelliteSelectionWindow& window = *row->window;
  const bool selected = window.m_selection[row->name];
  Evas_Object* box = AddRowBox(list, part, theme::kCheckBox, selected);
  if (!box) return nullptr;
  LOG_DEBUG("Check obtained %d", selected);
  const auto id = static_cast<unsigned long long>(window.m_satelliteIDs[row->name]);
  if (selected && window.m_ExistChannelByCategory(id)) elm_object_disabled_set(box, EINA_TRUE);
  return box;
}

std::string CViewSatelliteSelectionWindow::m_Spoken(const std::string& name) const {
  return spoken::Joined({name, T(m_selection.at(name) ? "SID_ON" : "SID_OFF")});
}

void CViewSatelliteSelectionWindow::t_ConfigueTTS(Evas_Object* item) {
  spoken::SetRowName(item, m_Spoken(static_cast<const Row*>(elm_object_item_data_get(item))->name));
}

void CViewSatelliteSelectionWindow::m_ProcessSelectedCB(void* data, Evas_Object*, void* info) {
  auto* window = static_cast<CViewSatelliteSelectionWindow*>(data);
  auto* item = static_cast<Elm_Object_Item*>(info);
  elm_genlist_item_selected_set(item, EINA_FALSE);
  elm_object_item_focus_set(item, EINA_TRUE);
  const Evas_Object* box = BoxOf(item);
  if (!box) return;
  const std::string& name = static_cast<const Row*>(elm_object_item_data_get(item))->name;
  if (!elm_object_disabled_get(box)) {
    LOG_DEBUG("TOGGLE");
    window->m_Toggle(name, !elm_check_state_get(box));
  }
  window->m_CheckSave();
  Speak(window->m_Spoken(name));
}

/// Rows of the same name are the same choice.
void CViewSatelliteSelectionWindow::m_Toggle(const std::string& name, bool selected) {
  m_selection[name] = selected;
  Eina_List* rows = elm_genlist_realized_items_get(t_pGenlist);
  for (const Eina_List* each = rows; each; each = eina_list_next(each)) {
    auto* item = static_cast<Elm_Object_Item*>(eina_list_data_get(each));
    if (static_cast<const Row*>(elm_object_item_data_get(item))->name != name) continue;
    elm_check_state_set(BoxOf(item), selected);
    t_ConfigueTTS(item);
  }
  eina_list_free(rows);
}

void CViewSatelliteSelectionWindow::m_CheckSave() {
  const bool none = m_SelectedIDs().empty();
  if (none) LOG_DEBUG("No satellite is selected, disable button");
  const auto& [save, cancel, unused] = t_pDefaultButtons;
  if (!save || !cancel) return;
  elm_object_disabled_set(save, none);
  // The list is no way up either.
  elm_object_focus_next_object_set(cancel, none ? cancel : save, ELM_FOCUS_UP);
}
