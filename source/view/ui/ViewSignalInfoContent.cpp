// The lists and the picture of the signal information window.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "ChannelUtil.h"
#include "CommonUtil.h"
#include "Content.h"
#include "DataProvider.h"
#include "InformationContent.h"
#include "Log.h"
#include "RowFocus.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "ViewSignalInfoWindow.h"
#include "system_info.h"
#include "toolkit_ext.h"

namespace {

// Pixels of a 1920-pixel screen.
constexpr int kRowHeight = 64;
constexpr int kActionRowHeight = 80, kActionHeight = 190;
constexpr int kImageWidth = 440, kImageHeight = 164;
constexpr int kActionPad = 16, kImagePad = 20, kDvbPad = 96, kIsdbPad = 116;

constexpr size_t kTextSize = 512;
constexpr int kLevelLocalSet = 94;
constexpr double kFullBar = 100.0, kFullErrorBar = 2000.0;

constexpr std::string_view kStrength = "signal-information-strength";
constexpr std::string_view kQuality = "signal-information-quality";
constexpr std::string_view kErrors = "signal-information-biterrlevel";

struct Level {
  int most;
  const char* word;
};
constexpr Level kLevels[] = {{28, "TV_SID_WEAK"}, {50, "TV_SID_ABOUTTV_MODERATE"}, {85, "TV_SID_STRONG"}};
constexpr const char* kHighestLevel = "TV_SID_VERY_STRONG";

int ReadLocalSet() {
  int localSet = 0;
  const int result = system_info_get_value_int(SYSTEM_INFO_KEY_LOCAL_SET, &localSet);
  LOG_DEBUG("nRet = %d, nLocalSet = %d", result, localSet);
  return localSet;
}

const char* LevelWord(int strength) {
  for (const auto& [most, word] : kLevels) {
    if (strength <= most) return word;
  }
  return kHighestLevel;
}

/// The strength with its level in words; the caller frees it.
char* StrengthText(const std::string& value) {
  auto* text = static_cast<char*>(calloc(kTextSize, 1));
  if (!text) {
    LOG_DEBUG("Buffer Failed");
    return nullptr;
  }
  CopyText(text, kTextSize, value + T(LevelWord(NumberAtStart(value.c_str()))));
  return text;
}

/// A short bar alone does not say that it is too short.
std::string WordOf(const std::string& menuID, const std::string& value) {
  const bool strong = menuID != kStrength && menuID != kQuality;
  return strong || NumberAtStart(value.c_str()) > kLevels[0].most ? "" : T("TV_SID_WEAK_SIGNAL");
}

std::string StyleOf(const std::string& menuID) {
  char style[kTextSize] = "";
  CMenuDataProvider::GetItemSettingsUIStyle(menuID.c_str(), style);
  return style;
}

void UpdateRows(Evas_Object* list, const char* textPart) {
  for (auto* row = list ? elm_genlist_first_item_get(list) : nullptr; row; row = elm_genlist_item_next_get(row)) {
    elm_genlist_item_fields_update(row, textPart, ELM_GENLIST_ITEM_FIELD_TEXT);
    elm_genlist_item_fields_update(row, theme::kMeasureBar, ELM_GENLIST_ITEM_FIELD_CONTENT);
  }
}

}  // namespace

// --- the content and what goes with the type -----------------------------------------------------

void CViewSignalInfoWindow::t_CreateContent() {
  m_pContentLayout = AddInformation(t_pMainBase, T("TV_SIDCHECK_THE_SIGNAL_OF_EACH_CHANNEL"));
  if (!m_pContentLayout) return;
  ea_object_config_set_auto_transparency(t_pMainBase, 1);
  t_DecorateBySignalInfoType();
}

bool CViewSignalInfoWindow::m_HasSignalImage() const {
  return m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_ISDB || m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_ATSC;
}

void CViewSignalInfoWindow::t_DecorateBySignalInfoType() {
  switch (m_nSignalInfoType) {
    case CTvsUtil::SIGNAL_INFO_ISDB_DIGITAL:
      AddInformationPad(m_pContentLayout, theme::kInformationImagePad, kIsdbPad);
      break;
    case CTvsUtil::SIGNAL_INFO_ISDB:
    case CTvsUtil::SIGNAL_INFO_ATSC:
      AddInformationPad(m_pContentLayout, theme::kInformationImagePad, kImagePad);
      t_CreateSignalImage();
      t_HandleSignalStrength();
      break;
    case CTvsUtil::SIGNAL_INFO_DVB_BASIC:
    case CTvsUtil::SIGNAL_INFO_DVB_SQI:
      AddInformationPad(m_pContentLayout, theme::kInformationImagePad, kDvbPad);
      break;
    case CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE:
      AddInformationPad(m_pContentLayout, theme::kInformationActionPad, kActionPad);
      break;
    default:
      break;
  }
}

void CViewSignalInfoWindow::t_CreateSignalImage() {
  m_pImageLayout = AddLayout(m_pContentLayout, theme::kSignalImage);
  if (!m_pImageLayout) {
    LOG_ERROR("Assertion failed");
    return;
  }
  // Bars of a signal rise to the right in every language.
  elm_object_mirrored_automatic_set(m_pImageLayout, EINA_FALSE);
  elm_object_mirrored_set(m_pImageLayout, EINA_FALSE);
  Evas_Object* table = Utils::WidgetMinSet(m_pImageLayout, m_pContentLayout, kImageWidth, kImageHeight, 1);
  evas_object_show(m_pImageLayout);
  evas_object_show(table);
  elm_object_part_content_set(m_pContentLayout, theme::kInformationImage, table);
}

void CViewSignalInfoWindow::t_HandleSignalStrength() {
  constexpr int kHighest = 10;
  const int strength = ChannelUtil::GetSignalStrength();
  LOG_ERROR("nSignalStrength = %d", strength);
  const int level = strength / kHighest;
  char text[16] = "";
  snprintf(text, sizeof text, "%02d", level >= 0 && level < kHighest ? level : kHighest);
  if (m_pImageLayout) elm_layout_signal_emit(m_pImageLayout, theme::kSignalLevel, text);
}

// --- the lists -----------------------------------------------------------------------------------

bool CViewSignalInfoWindow::m_CreateItemClasses() {
  const bool abbreviated = NeedsAdjustFontSize();
  const auto text = ua_UI_orientation_get() != 0 ? m_ItemGetTextReverse : m_ItemGetText;
  m_pTextClass = NewRowClass(abbreviated ? theme::kFactAbbreviated : theme::kFact, text, nullptr);
  if (!m_pTextClass) return false;
  m_pBarClass = NewRowClass(abbreviated ? theme::kMeasureAbbreviated : theme::kMeasure, text, m_ItemGetContent);
  return m_pBarClass != nullptr;
}

void CViewSignalInfoWindow::t_SetContent() {
  if (!m_pContentLayout) return;
  m_pContentList = AddFactList(m_pContentLayout);
  if (!m_pContentList || !m_CreateItemClasses()) return;
  t_AddDVBSetTuneAction();
  t_AddContentItems();
}

void CViewSignalInfoWindow::t_AddDVBSetTuneAction() {
  if (m_nSignalInfoType != CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE || vSIActionData.empty()) return;
  m_pActionClass = NewRowClass(theme::kRowValue, m_ItemGetText, nullptr);
  if (!m_pActionClass) return;
  m_pActionList = elm_genlist_add(m_pContentLayout);
  elm_genlist_select_mode_set(m_pActionList, ELM_OBJECT_SELECT_MODE_ALWAYS);
  elm_object_scroll_item_loop_enabled_set(m_pActionList, EINA_FALSE);
  for (SignalInfoData& row : vSIActionData) {
    elm_genlist_item_append(m_pActionList, m_pActionClass, &row, nullptr, ELM_GENLIST_ITEM_NONE, m_GenlistSelectedCB,
                            &row);
  }
  KeepRowFocus(m_pActionList);
  t_Connections.Smart(m_pActionList, "realized",
                      [](Evas_Object*, void* row) { MarkEditable(static_cast<Elm_Object_Item*>(row)); });
  Evas_Object* table = Utils::WidgetMinSet(m_pActionList, m_pContentLayout, kInformationWidth, kActionHeight, 1);
  // The rows stand in the middle of their ground.
  const int gap = (kActionHeight - kActionRowHeight * static_cast<int>(vSIActionData.size())) / 2;
  const int padding = Utils::Scaled(m_pContentLayout, gap);
  evas_object_size_hint_padding_set(m_pActionList, 0, 0, padding, padding);
  evas_object_show(m_pActionList);
  evas_object_show(table);
  elm_object_part_content_set(m_pContentLayout, theme::kInformationAction, table);
  elm_object_signal_emit(m_pContentLayout, theme::kInformationActionShown, theme::kSource);
}

void CViewSignalInfoWindow::t_AddContentItems() {
  m_strengthInWords = ReadLocalSet() == kLevelLocalSet;
  for (SignalInfoData& row : vSIContentData) {
    const bool bar =
        row.strMenuID == kQuality || row.strMenuID == kErrors || (row.strMenuID == kStrength && !m_strengthInWords);
    elm_genlist_item_append(m_pContentList, bar ? m_pBarClass : m_pTextClass, &row, nullptr, ELM_GENLIST_ITEM_NONE,
                            nullptr, nullptr);
  }
  m_TellWords();
  const int height = kRowHeight * static_cast<int>(vSIContentData.size());
  Evas_Object* table = Utils::WidgetMinSet(m_pContentList, m_pContentLayout, kInformationWidth, height, 1);
  evas_object_show(m_pContentList);
  evas_object_show(table);
  elm_object_part_content_set(m_pContentLayout, theme::kInformationItems, table);
}

void CViewSignalInfoWindow::m_TellWords() {
  auto* row = m_pContentList ? elm_genlist_first_item_get(m_pContentList) : nullptr;
  for (; row; row = elm_genlist_item_next_get(row)) {
    const auto* data = static_cast<const SignalInfoData*>(elm_object_item_data_get(row));
    const bool bar = elm_genlist_item_item_class_get(row) == m_pBarClass;
    if (bar) spoken::SetRowState(row, WordOf(data->strMenuID, data->strValue));
  }
}

void CViewSignalInfoWindow::t_HandleAdditionalSignalInfoCases() {
  const char* text = ua_UI_orientation_get() != 0 ? theme::kRowValueTextReversed : theme::kRowValueText;
  UpdateRows(m_pContentList, text);
  m_TellWords();
  if (m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE) {
    for (SignalInfoData& row : vSIActionData) m_ReadValue(row);
    // Action rows have one part for both directions of writing.
    UpdateRows(m_pActionList, theme::kRowValueText);
  }
  if (m_HasSignalImage()) t_HandleSignalStrength();
}

// --- the rows ------------------------------------------------------------------------------------

char* CViewSignalInfoWindow::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* row = static_cast<SignalInfoData*>(data);
  if (!row || !part) return nullptr;
  const bool value = std::strcmp(part, theme::kRowValueText) == 0;
  if (value && row->strMenuID == kStrength && m_strengthInWords) return StrengthText(row->strValue);
  return FactText(part, row->strTitle, row->strValue, false);
}

char* CViewSignalInfoWindow::m_ItemGetTextReverse(void* data, Evas_Object*, const char* part) {
  const auto* row = static_cast<SignalInfoData*>(data);
  return row && part ? FactText(part, row->strTitle, row->strValue, true) : nullptr;
}

Evas_Object* CViewSignalInfoWindow::m_ItemGetContent(void* data, Evas_Object* list, const char* part) {
  const auto* row = static_cast<SignalInfoData*>(data);
  if (!row || !part || std::strcmp(part, theme::kMeasureBar) != 0) return nullptr;
  if (StyleOf(row->strMenuID) != "slider.information") return nullptr;
  Evas_Object* bar = elm_progressbar_add(list);
  if (!bar) return nullptr;
  elm_object_style_set(bar, theme::kMeasureBarStyle);
  elm_progressbar_horizontal_set(bar, EINA_TRUE);
  // Inverted is all that turns it round.
  elm_object_mirrored_automatic_set(bar, EINA_FALSE);
  elm_object_mirrored_set(bar, EINA_FALSE);
  elm_progressbar_inverted_set(bar, CommonUtil::IsRTL());
  const bool errors = row->strMenuID == kErrors;
  const double value = NumberAtStart(row->strValue.c_str()) / (errors ? kFullErrorBar : kFullBar);
  elm_progressbar_value_set(bar, value);
  if (value <= 0) elm_object_signal_emit(bar, theme::kMeasureBarEmpty, "");
  if (const std::string word = WordOf(row->strMenuID, row->strValue); !word.empty()) {
    elm_object_part_text_set(bar, theme::kMeasureBarWord, word.c_str());
    const bool reversed = CommonUtil::IsRTL();
    elm_object_signal_emit(bar, reversed ? theme::kMeasureBarWordedReversed : theme::kMeasureBarWorded, "");
  }
  // A long one is no good news.
  if (errors) elm_object_signal_emit(bar, theme::kMeasureBarPlain, "");
  return bar;
}

void CViewSignalInfoWindow::m_GenlistSelectedCB(void* data, Evas_Object*, void* item) {
  const auto* row = static_cast<SignalInfoData*>(data);
  auto* selected = static_cast<Elm_Object_Item*>(item);
  if (!row || !selected) {
    LOG_ERROR("Assertion failed");
    return;
  }
  if (!CommonUtil::CommonWidgetView(StyleOf(row->strMenuID).c_str())) return;
  PushControl(row->strMenuID.c_str(), selected);
}
