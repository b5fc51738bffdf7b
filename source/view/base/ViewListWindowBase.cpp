#include "ViewListWindowBase.h"

#include <string_view>

#include "ChannelUtil.h"
#include "Content.h"
#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "settings_api.h"

namespace {

constexpr double kEdge = 19.99944;
constexpr double kSide = 20.00064;
constexpr int kListHeight = 535;

constexpr std::string_view kTransponder = "user-defined-transponder";
constexpr std::string_view kSatelliteSelection = "satellite-selection";
constexpr std::string_view kTransferWindows[] = {"import-from-usb", "export-to-usb", "factory-export-to-usb",
                                                 "factory-import-from-usb"};

/// How the list is framed in a window of each style.
struct Frame {
  std::string_view style;
  int width;
  bool fixed;
  int height;
};

constexpr Frame kFrames[] = {
    {theme::kBottom, 877, true, 0},
    {theme::kSmallBottom, 877, true, 0},
    {theme::kBottomLarge, 1220, false, 480},
    {theme::kRightLarge, 820, false, 600},
};

bool IsUnset(const char* item) {
  std::string name, value;
  SettingsAPI::Get()->GetItemValue(item, name, value);
  return value == "----";
}

Evas_Object* AddSpacer(Evas_Object* table, int column, int row, int w, int h, double weight) {
  Evas_Object* spacer = evas_object_rectangle_add(evas_object_evas_get(table));
  evas_object_color_set(spacer, 0, 0, 0, 0);
  evas_object_size_hint_min_set(spacer, w, h);
  evas_object_size_hint_weight_set(spacer, EVAS_HINT_EXPAND, weight);
  evas_object_size_hint_align_set(spacer, EVAS_HINT_FILL, EVAS_HINT_FILL);
  elm_table_pack(table, spacer, column, row, 1, 1);
  return spacer;
}

void PackFilling(Evas_Object* table, Evas_Object* object, int column, int row) {
  evas_object_size_hint_weight_set(object, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(object, EVAS_HINT_FILL, EVAS_HINT_FILL);
  elm_table_pack(table, object, column, row, 1, 1);
  evas_object_show(object);
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewListWindowBase::t_GetBaseStyle() { return "NoneDifined"; }

std::vector<CViewWindowBase::Button> CViewListWindowBase::t_Buttons() {
  if (!m_IsTransponderWindow()) return {{"SID_CLOSE"}};
  const auto save = [] {
    ChannelUtil::TuneAloneSelectedTransponder(false);
    SayNow(T("COM_SID_SAVED"));
    CloseView();
  };
  return {{"SID_SAVE", save}, {"SID_CANCEL"}};
}

void CViewListWindowBase::t_Create() {
  CViewWindowBase::t_Create();
  if (!m_CreateList()) {
    LOG_DEBUG("CreataList Failed");
    return;
  }
  t_AddWidgetToWindowContent();
  t_RegisterListKeyEvent();
}

bool CViewListWindowBase::m_CreateList() {
  LOG_DEBUG("");
  if (t_CreateWidgetList() && t_AddGenListItems()) return true;
  LOG_DEBUG("Create List Failed");
  return false;
}

bool CViewListWindowBase::t_CreateWidgetList() {
  if (!t_pMainBase) return false;
  t_pGenlist = AddList(t_pMainBase);
  return t_pGenlist != nullptr;
}

bool CViewListWindowBase::t_AddGenListItems() { return true; }

void CViewListWindowBase::t_AddWidgetToWindowContent() {
  const std::string style = t_GetBaseStyle();
  if (t_MenuID == kSatelliteSelection) return t_AddListToUserDefineContent();
  for (const Frame& frame : kFrames) {
    if (frame.style == style) return t_PackListToTable(t_pMainBase, frame.width, frame.fixed, frame.height);
  }
  if (style != theme::kRight) return t_AddListToUserDefineContent();
  elm_object_part_content_unset(t_pMainBase, theme::kContent);
  elm_object_part_content_set(t_pMainBase, theme::kContent, t_pGenlist);
}

void CViewListWindowBase::t_PackListToTable(Evas_Object* parent, int width, bool fixed, int height) {
  if (!parent || !t_pGenlist) return;
  LOG_DEBUG("nItemCount=%d", static_cast<int>(elm_genlist_items_count(t_pGenlist)));

  const auto scaled = [parent](double pixels) { return Utils::Scaled(parent, pixels); };
  const int w = scaled(width), edge = scaled(kEdge), listHeight = scaled(kListHeight);
  const int below = fixed || height == 0 ? edge : scaled(height - kListHeight - kEdge);
  Evas_Object* table = elm_table_add(parent);
  AddSpacer(table, 1, 0, w, edge, 0.0);
  AddSpacer(table, 1, 2, w, below < 1 ? edge : below, 0.0);
  AddSpacer(table, 0, 1, scaled(kSide), listHeight, 0.0);
  AddSpacer(table, 2, 1, scaled(kSide), listHeight, 0.0);

  if (Evas_Object* ground = AddLayout(table, theme::kListGround)) {
    evas_object_size_hint_min_set(ground, w, listHeight);
    PackFilling(table, ground, 1, 1);
  }
  PackFilling(table, t_pGenlist, 1, 1);
  evas_object_size_hint_weight_set(table, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(table, EVAS_HINT_FILL, EVAS_HINT_FILL);
  evas_object_show(table);
  elm_object_content_set(parent, table);
}

void CViewListWindowBase::t_Show() {
  CViewWindowBase::t_Show();
  if (t_pGenlist) evas_object_show(t_pGenlist);
  m_CheckTransponder();
}

void CViewListWindowBase::t_Refresh() {
  CViewListBase::t_Refresh();
  m_CheckTransponder();
}

void CViewListWindowBase::t_Destroy() {
  t_UnRegisterListKeyEvent();
  if (t_pGenlist) evas_object_del(t_pGenlist);
  t_pGenlist = nullptr;
  CViewListBase::t_Destroy();
}

// --- the user's transponder ----------------------------------------------------------------------

bool CViewListWindowBase::m_IsTransponderWindow() const { return t_MenuID == kTransponder; }

/// A transponder can be saved once it has a frequency and a symbol rate.
void CViewListWindowBase::m_CheckTransponder() {
  if (!m_IsTransponderWindow() || !t_pDefaultButtons[0]) return;
  const bool unset = IsUnset("user-defined-transponder-frequency") || IsUnset("user-defined-transponder-symbolrate");
  elm_object_disabled_set(t_pDefaultButtons[0], unset);
}

// --- the list's events ---------------------------------------------------------------------------

void CViewListWindowBase::t_RegisterListKeyEvent() {
  if (!t_pGenlist) LOG_DEBUG("Null Pointer");
  CViewListBase::t_RegisterListKeyEvent();
}

void CViewListWindowBase::t_ProcessItemRealized(Elm_Object_Item* item) {
  if (t_MenuID == kSatelliteSelection) elm_object_item_signal_emit(item, theme::kItemIconTwoTexts, "");
  for (const std::string_view window : kTransferWindows) {
    if (t_MenuID == window) elm_object_item_signal_emit(item, theme::kItemIconText, "");
  }
  t_ConfigueTTS(item);
}

void CViewListWindowBase::t_ConfigueTTS(Evas_Object*) { LOG_DEBUG(""); }

void CViewListWindowBase::m_ItemSelectedCB(void* data, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewListWindowBase*>(data);
  if (!pThis) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  pThis->t_ProcessItemSelected(data, object, info);
}
