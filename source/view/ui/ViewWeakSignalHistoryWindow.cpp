#include "ViewWeakSignalHistoryWindow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "ChannelUtil.h"
#include "Content.h"
#include "DataProvider.h"
#include "HdmiPorts.h"
#include "InformationContent.h"
#include "Log.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "WrapPatterns.h"
#include "vconf.h"

namespace {

/// So many rows are seen at once.
constexpr int kRowsInView = 5;
constexpr size_t kTextSize = 512;
constexpr size_t kMostTokens = 4;
constexpr long kHalfDay = 12;
constexpr const char* kPlaceholder = "----/--/--         --:--";
constexpr const char* kRightToLeft = "\u200f";
constexpr const char* kBetweenDateAndTime = "         ";

/// A time stamp in pieces.
class Stamp {
 public:
  explicit Stamp(std::string text) : m_text(std::move(text)) {
    char* rest = nullptr;
    for (char* token = strtok_r(m_text.data(), " :", &rest); token && m_count < kMostTokens;
         token = strtok_r(nullptr, " :", &rest)) {
      m_tokens[m_count++] = token;
    }
  }
  Stamp(const Stamp&) = delete;
  Stamp& operator=(const Stamp&) = delete;

  size_t Count() const { return m_count; }
  char** Tokens() { return m_tokens.data(); }

 private:
  std::string m_text;
  std::array<char*, kMostTokens> m_tokens{};
  size_t m_count = 0;
};

/// Year, month and day as the language has them.
struct DateOrder {
  std::string_view language, between;
};
constexpr DateOrder kDayFirst[] = {{"de_DE.utf8", "."}, {"ar_AE.utf8", "/"}};

/// Of a row's text, which begins with its date.
std::string InOrderOfLanguage(const std::string& text) {
  const std::string language = Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language"));
  const size_t month = text.find('/') + 1, day = text.find('/', month) + 1, end = text.find(' ');
  std::string shown = text;
  for (const auto& [entry, between] : kDayFirst) {
    if (entry != language || month == 0 || day == 0 || end == std::string::npos) continue;
    shown = text.substr(day, end - day);
    for (const std::string& part : {text.substr(month, day - 1 - month), text.substr(0, month - 1)}) {
      shown.append(between).append(part);
    }
    shown += text.substr(end);
  }
  // Digits alone do not say which way a line runs.
  return elm_config_mirrored_get() ? kRightToLeft + shown : shown;
}

int CompareNumbers(long a, long b) { return a < b ? -1 : a > b ? 1 : 0; }

long Number(const char* token) { return strtol(token, nullptr, 10); }

int CompareHalfDayHours(const char* a, const char* b) {
  return CompareNumbers(Number(a) % kHalfDay, Number(b) % kHalfDay);
}

int CompareWordFirst(char** a, char** b) {
  constexpr size_t kHour = 2;
  for (size_t i = 0; i < kMostTokens; ++i) {
    const int order = i == kHour ? CompareHalfDayHours(a[i], b[i]) : strcmp(a[i], b[i]);
    if (order != 0) return order;
  }
  return 0;
}

int CompareWordLast(char** a, char** b) {
  if (const int order = strcmp(a[0], b[0]); order != 0) return order;
  if (strcmp(a[3], b[3]) != 0) return a[3] == T("SID_AM_ABBR_4") ? -1 : 1;
  if (const int order = CompareHalfDayHours(a[1], b[1]); order != 0) return order;
  return CompareNumbers(Number(a[2]), Number(b[2]));
}

int Compare24Hours(char** a, char** b) {
  if (const int order = strcmp(a[0], b[0]); order != 0) return order;
  if (const int order = CompareNumbers(Number(a[1]), Number(b[1])); order != 0) return order;
  return CompareNumbers(Number(a[2]), Number(b[2]));
}

}  // namespace

CViewWeakSignalHistoryWindow::CViewWeakSignalHistoryWindow(const char* menuID)
    : CViewWidgetListWindowBase(menuID), m_eSourceType(m_GetCurrentSource()) {}

CViewWeakSignalHistoryWindow::CURRENT_SOURCE_TYPE CViewWeakSignalHistoryWindow::m_GetCurrentSource() {
  const int source = ChannelUtil::GetCurrentSourceInfo();
  LOG_ERROR("Current source : %d", source);
  return FindHdmiPort(source) ? SOURCE_HDMI : SOURCE_BROADCAST;
}

int CViewWeakSignalHistoryWindow::m_ConvertHDMINumberToESource(int number) {
  int source = -1;
  if (number >= 1 && number <= static_cast<int>(std::size(kHdmiPorts))) {
    source = kHdmiPorts[number - 1].source;
  } else {
    LOG_INFO("Number is wrong!!");
  }
  LOG_INFO("ESource is %d", source);
  return source;
}

// --- the window ----------------------------------------------------------------------------------

std::string CViewWeakSignalHistoryWindow::t_GetBaseStyle() { return theme::kRightLarge; }

std::string CViewWeakSignalHistoryWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

std::vector<CViewWindowBase::Button> CViewWeakSignalHistoryWindow::t_Buttons() {
  const Button close = {"SID_CLOSE", CloseView, "i_close_cancel"};
  if (m_eSourceType != SOURCE_HDMI) return {close};
  return {{"TV_SID_DIAGNOSIS_HDMI_DEALY_LEVER", [] { PushWindow(Window::kDelayLevel); }, "i_history"}, close};
}

void CViewWeakSignalHistoryWindow::t_Create() {
  m_RegisterProvider();
  CViewWidgetListWindowBase::t_Create();
}

void CViewWeakSignalHistoryWindow::m_RegisterProvider() {
  const CURRENT_SOURCE_TYPE type = m_eSourceType;
  auto& providers = Singleton<FuncEvents>::GetInstance()->providers;
  m_bProvides = providers
                    .try_emplace(t_MenuID,
                                 [this, type](std::vector<DataInfo>& rows) {
                                   GetData(rows, type);
                                   for (DataInfo& row : rows) row.displayName = InOrderOfLanguage(row.displayName);
                                 })
                    .second;
}

void CViewWeakSignalHistoryWindow::t_AddListToUserDefineContent() {
  if (!t_pMainBase) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  m_pContentLayout = AddLayout(t_pMainBase, theme::kHistory);
  if (!m_pContentLayout) return;
  const char* id = m_eSourceType == SOURCE_HDMI ? "TV_SID_DIAGNOSIS_INFO_BELOW_SHOWS_SIGANL_EXTERNAL_DEV"
                                                : "TV_SHOWS_CHANNEL_AUTO_SAVED_WHEN_SIGNAL_WEAK_MSG";
  const std::string text = T(id);
  LOG_DEBUG(" text is [%s] ", text.c_str());
  elm_object_part_text_set(m_pContentLayout, theme::kInformationText, text.c_str());
  if (t_List()) {
    t_SetListProperty();
    elm_object_part_content_set(m_pContentLayout, theme::kInformationItems, t_List());
  } else {
    elm_object_part_text_set(m_pContentLayout, theme::kHistoryEmpty, T("TV_SID_NO_WEAK_SIGNAL_RECORDED").c_str());
  }
  PlaceInformation(t_pMainBase, m_pContentLayout);
}

void CViewWeakSignalHistoryWindow::t_SetListProperty() {
  elm_genlist_multi_select_set(t_List(), EINA_FALSE);
  elm_scroller_policy_set(t_List(), ELM_SCROLLER_POLICY_OFF, ELM_SCROLLER_POLICY_AUTO);
}

void CViewWeakSignalHistoryWindow::t_Show() {
  CViewWidgetListWindowBase::t_Show();
  if (m_HasShadows()) m_ShowShadow(m_bBottomShadow, true, theme::kShowBottomShadow);
}

void CViewWeakSignalHistoryWindow::t_Resume() {
  CViewWidgetListWindowBase::t_Resume();
  if (m_eSourceType == SOURCE_HDMI) t_FocusButton(0);
}

void CViewWeakSignalHistoryWindow::t_Destroy() {
  // It would be called for a window that is gone.
  if (m_bProvides) Singleton<FuncEvents>::GetInstance()->providers.erase(t_MenuID);
  m_bProvides = false;
  if (m_pContentLayout) {
    // The list goes with its widget.
    elm_object_part_content_unset(m_pContentLayout, theme::kInformationItems);
    evas_object_del(m_pContentLayout);
  }
  m_pContentLayout = nullptr;
  CViewWidgetListWindowBase::t_Destroy();
}

void CViewWeakSignalHistoryWindow::t_FirstEnter(std::string& text) {
  text += " " + t_WindowTitle;
  if (m_pContentLayout) text += ", " + t_TextOf(m_pContentLayout, theme::kInformationText);
  text += ", " + (t_List() ? spoken::Items(t_pWidgetList->GetVisibleListCount()) : T("TV_SID_NO_WEAK_SIGNAL_RECORDED"));
  text += ", " + spoken::Button("SID_CLOSE");
}

// --- the rows ------------------------------------------------------------------------------------

void CViewWeakSignalHistoryWindow::GetData(std::vector<DataInfo>& rows, CURRENT_SOURCE_TYPE sourceType) {
  m_nRowCount = 0;
  if (sourceType == SOURCE_HDMI) return;
  std::vector<std::string> entries;
  if (!ChannelUtil::ReadWeakSignalHistory(entries)) {
    LOG_ERROR("WeakSignalHistory is empty");
    return;
  }
  for (const std::string& entry : entries) {
    char date[kTextSize] = {}, time[kTextSize] = {}, other[kTextSize] = {};
    if (ChannelUtil::GetHistoryItemInfo(entry, date, time, other) == -1) {
      LOG_INFO("Can not get weak signal info of vconf value [%s]", entry.c_str());
      continue;
    }
    LOG_INFO("vconf value is [%s] . strData is [%s], strTimer is [%s], strOther is [%s] ", entry.c_str(), date, time,
             other);
    if (!*date) {
      LOG_ERROR("Does not set any values");
      continue;
    }
    m_AddRow(rows, {std::string(date) + kBetweenDateAndTime + time, other, "", "", ""});
  }
}

void CViewWeakSignalHistoryWindow::m_AddRow(std::vector<DataInfo>& rows, DataInfo row) {
  const std::string& text = row.displayName;
  Stamp stamp(text);
  const int type = text == kPlaceholder ? STAMP_NONE : m_GetTimeStampType(static_cast<int>(stamp.Count()));
  LOG_DEBUG("TimeStampType : [ %d ] , Str : [ %s ]", type, text.c_str());
  ++m_nRowCount;
  if (type == STAMP_NONE || rows.empty()) {
    rows.push_back(std::move(row));
    LOG_DEBUG("Empty String");
    return;
  }
  const auto older = std::find_if(rows.begin(), rows.end(), [&](const DataInfo& sorted) {
    return m_CompareTime(type, stamp.Tokens(), sorted.displayName) >= 0;
  });
  rows.insert(older, std::move(row));
}

int CViewWeakSignalHistoryWindow::m_GetTimeStampType(int tokenCount) {
  if (tokenCount == 3) return STAMP_24_HOURS;
  if (tokenCount < 3) return STAMP_NONE;
  const std::string language = Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language"));
  return language == "ko_KR.utf8" || language == "ja_JP.utf8" ? STAMP_WORD_FIRST : STAMP_WORD_LAST;
}

int CViewWeakSignalHistoryWindow::m_CompareTime(int type, char** newTokens, std::string sortedTimeStamp) {
  if (sortedTimeStamp.empty()) {
    LOG_DEBUG("strSortedTimeStamp is NULL");
    return 1;
  }
  Stamp sorted(std::move(sortedTimeStamp));
  const size_t needed = type == STAMP_24_HOURS ? 3 : kMostTokens;
  for (size_t i = 0; i < std::max(needed, sorted.Count()); ++i) {
    if (!newTokens[i]) {
      LOG_DEBUG("splitNewTimeStamp[ %d ] is NULL", static_cast<int>(i));
      return -1;
    }
    if (!sorted.Tokens()[i]) {
      LOG_DEBUG("splitSortedTimeStamp[ %d ] is NULL", static_cast<int>(i));
      return 1;
    }
  }
  if (type == STAMP_WORD_FIRST) return CompareWordFirst(newTokens, sorted.Tokens());
  if (type == STAMP_WORD_LAST) return CompareWordLast(newTokens, sorted.Tokens());
  return Compare24Hours(newTokens, sorted.Tokens());
}

// --- the shadows at the list's edges -------------------------------------------------------------

bool CViewWeakSignalHistoryWindow::m_HasShadows() const { return t_List() && m_nRowCount > kRowsInView; }

void CViewWeakSignalHistoryWindow::m_ShowShadow(bool& shown, bool show, const char* signal) {
  if (shown == show) return;
  elm_object_signal_emit(t_List(), signal, "");
  shown = show;
}

void CViewWeakSignalHistoryWindow::t_ProcessListFocusCB(Evas_Object* list, void* item) {
  CViewWidgetListWindowBase::t_ProcessListFocusCB(list, item);
  const int row = elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item));
  LOG_DEBUG("nFocusIndex : %d", row);
  if (!m_HasShadows()) return;
  if (row > kRowsInView) m_ShowShadow(m_bTopShadow, true, theme::kShowTopShadow);
  if (row == m_nRowCount) {
    m_ShowShadow(m_bBottomShadow, false, theme::kHideBottomShadow);
    return;
  }
  if (row == 1) m_ShowShadow(m_bTopShadow, false, theme::kHideTopShadow);
  m_ShowShadow(m_bBottomShadow, true, theme::kShowBottomShadow);
}

void CViewWeakSignalHistoryWindow::t_ProcessListUnFocusCB(Evas_Object* list, void* item) {
  CViewWidgetListWindowBase::t_ProcessListFocusCB(list, item);
  elm_genlist_item_selected_set(static_cast<Elm_Object_Item*>(item), EINA_FALSE);
}
