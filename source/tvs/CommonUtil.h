// Date and time texts, languages, reading direction.
#pragma once

#include <string>

#include "system_info.h"

class CommonUtil {
 public:
  /// Parts of a local time; a year has four digits, a month counts from 1.
  enum ETimeInfoType : int {
    TIME_YEAR = 0,
    TIME_MONTH = 1,
    TIME_DAY = 2,
    TIME_HOUR = 3,
    TIME_MINUTE = 4,
    TIME_SECOND = 5
  };

  /// -1 for a type that is none.
  static int GetTimeInfo(unsigned long epochSeconds, ETimeInfoType type);
  /// Seconds since the epoch, 0 while the clock is not set.
  static unsigned long long GetCurrentTime();
  static bool IsTimeSet();
  /// -1 when it cannot be read.
  static int GetRegionKind();
  /// 0 and a text that the caller frees, or -1 and null.
  static int GetCurrentLanguage(char** language);
  /// Locale of a language, "UNKNOWN" for one that has none; `out` takes 512 bytes.
  static void GetLanguageLocale(char* out, system_info_language_e language);
  /// 0 and 3: year first; 1: month first; 2 and 4: day first.
  static int GetTimeFormatType();
  static std::string GetCurrentDateStr();
  /// The model year into `*year`, where it can be read.
  static void GetDeafaultYearByLocalSet(int* month, int* day, int* year);
  /// Replaces a year outside 2001 to 2099 by the model year.
  static void DealWithInvalidDataValue(int* month, int* day, int* year);
  static bool IsRTL();
  /// Whether a widget style has the common look.
  static bool CommonWidgetView(const char* style);
};
