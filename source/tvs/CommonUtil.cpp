#include "CommonUtil.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "LanguageTable.h"
#include "Log.h"
#include "TextUtil.h"
#include "Utils.h"
#include "time_util.h"
#include "toolkit_ext.h"
#include "util.h"
#include "vconf.h"

namespace {

constexpr int kTextSize = 512;
constexpr int kClockByHand = 1;
constexpr int kFirstYear = 2001, kLastYear = 2099;

/// Date layouts by region kind, from region kind 1.
constexpr int kTimeFormats[] = {1, 1, 4, 2, 4, 4, 2, 2, 2, 4, 2, 2, 4, 4, 4, 0, 4,
                                4, 2, 4, 4, 2, 2, 4, 4, 4, 4, 4, 4, 2, 2, 2, 2, 2};
constexpr int kOtherRegionFormat = 1, kReverseFormat = 0, kEastAsianFormat = 3;
constexpr const char* kEastAsian[] = {"ko_KR.utf8", "zh_CN.utf8", "zh_HK.utf8", "zh_TW.utf8"};

constexpr const char* kCommonStyles[] = {"ctxpopup",        "popup.date",     "popup.time",      "controlpopup",
                                         "popup.direction", "slider.ontimer", "popup.positioner"};

template <size_t N>
bool Contains(const char* const (&list)[N], const char* text) {
  for (const char* entry : list) {
    if (std::strcmp(entry, text) == 0) return true;
  }
  return false;
}

int FormatOfRegion(int region) {
  LOG_DEBUG("nRegionKind[%d]", region);
  const bool known = region >= 1 && region <= static_cast<int>(std::size(kTimeFormats));
  return known ? kTimeFormats[region - 1] : kOtherRegionFormat;
}

std::string NoDate(int format) { return format == 0 || format == 3 ? "----/--/--" : "--/--/----"; }

std::string DateText(int format, int year, int month, int day) {
  char text[kTextSize] = "";
  switch (format) {
    case 0:
    case 3:
    case 5:
      snprintf(text, sizeof text, "%04d/%d/%d", year, month, day);
      break;
    case 1:
      snprintf(text, sizeof text, "%d/%d/%04d", month, day, year);
      break;
    case 2:
    case 4:
      snprintf(text, sizeof text, "%d/%d/%04d", day, month, year);
      break;
    default:
      break;
  }
  return text;
}

bool IsLeap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

}  // namespace

int CommonUtil::GetTimeInfo(unsigned long epochSeconds, ETimeInfoType type) {
  const time_t seconds = static_cast<time_t>(epochSeconds);
  tm parts{};
  localtime_r(&seconds, &parts);
  const int values[] = {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                        parts.tm_hour,        parts.tm_min,     parts.tm_sec};
  const bool valid = type >= TIME_YEAR && type <= TIME_SECOND;
  if (!valid) LOG_DEBUG("Invalid eTimeInfoType[%d]", type);
  const int result = valid ? values[type] : -1;
  LOG_INFO("ulEpochSeconds[%lu] eTimeInfoType[%d] nRetVal[%d]", epochSeconds, type, result);
  return result;
}

unsigned long long CommonUtil::GetCurrentTime() {
  const unsigned long long now = CTimeUtil::GetCurrentTime();
  if (now == 0) LOG_DEBUG("CTimeUtil::GetCurrentTime return 0 ");
  return now;
}

bool CommonUtil::IsTimeSet() {
  const unsigned long long now = GetCurrentTime();
  LOG_DEBUG("lCurrentTime[%llu] bIsTimeSet[%d]", now, now != 0);
  return now != 0;
}

int CommonUtil::GetRegionKind() { return CUtil::GetRegionKind(); }

int CommonUtil::GetCurrentLanguage(char** language) {
  *language = vconf_get_str("db/menu_widget/language");
  if (!*language) {
    LOG_DEBUG("*languageLocale==NULL");
    return -1;
  }
  LOG_DEBUG("languageLocale = %s", *language);
  return 0;
}

void CommonUtil::GetLanguageLocale(char* out, system_info_language_e language) {
  const char* locale = "UNKNOWN";
  for (const LanguageRow& row : kLanguageTable) {
    if (row.language == language) locale = row.locale;
  }
  snprintf(out, kTextSize, "%s", locale);
  LOG_DEBUG("langauge : %d,languageLocale:%s", language, out);
}

int CommonUtil::GetTimeFormatType() {
  if (Utils::FlagReverseMode()) return kReverseFormat;
  char* language = nullptr;
  GetCurrentLanguage(&language);
  const bool eastAsian = language && Contains(kEastAsian, language);
  free(language);
  return eastAsian ? kEastAsianFormat : FormatOfRegion(GetRegionKind());
}

std::string CommonUtil::GetCurrentDateStr() {
  const int format = GetTimeFormatType();
  LOG_DEBUG("nTimeFormatType[%d]", format);
  std::string text;
  if (!IsTimeSet()) {
    text = NoDate(format);
  } else {
    CTimeInfo now;
    CTimeUtil::ConvertToLocalTime(CTimeUtil::GetCurrentTime(), now);
    if (CTimeUtil::GetClockMode() == kClockByHand) DealWithInvalidDataValue(&now.month, &now.day, &now.year);
    text = DateText(format, now.year, now.month, now.day);
  }
  LOG_DEBUG("strCurrentDateStr[%s]", text.c_str());
  return text;
}

void CommonUtil::GetDeafaultYearByLocalSet(int*, int*, int* year) {
  char* text = nullptr;
  if (system_info_get_value_string(SYSTEM_INFO_KEY_TV_CURRENT_YEAR, &text) != 0) {
    LOG_ERROR("system info fails SYSTEM_INFO_KEY_TV_CURRENT_YEAR");
    return;
  }
  LOG_DEBUG("SYSTEM_INFO_KEY_TV_CURRENT_YEAR : %s", text);
  *year = NumberAtStart(text);
  free(text);
  LOG_DEBUG(" Default year ");
}

void CommonUtil::DealWithInvalidDataValue(int* month, int* day, int* year) {
  if (*year < kFirstYear || *year > kLastYear) {
    GetDeafaultYearByLocalSet(month, day, year);
    if (*month == 2 && *day == 29 && !IsLeap(*year)) *day = 28;
  }
  LOG_DEBUG("Date:%02d/%02d/%04d", *month, *day, *year);
}

bool CommonUtil::IsRTL() {
  const bool rtl = ua_UI_orientation_get() == 1;
  if (rtl) {
    LOG_DEBUG("rtl mode");
  } else {
    LOG_DEBUG("ltr mode");
  }
  return rtl;
}

bool CommonUtil::CommonWidgetView(const char* style) {
  if (!style) {
    LOG_DEBUG("Null Pointer:pStyle");
    return false;
  }
  const bool common = Contains(kCommonStyles, style);
  LOG_INFO("CommonWidgetView[%d]", common);
  return common;
}
