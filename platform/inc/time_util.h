// The TV's clock.
#pragma once

#include <string>

/// A broken-down local time, with how the TV shows it.
class CTimeInfo {
 public:
  enum Clock { CLOCK_24_HOURS, CLOCK_12_HOURS, CLOCK_12_HOURS_WORD_FIRST };

  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  Clock clock = CLOCK_24_HOURS;
  /// Time of day as the TV shows it: "HH:MM", or by a clock of twelve hours "HH:MM AM", where the word is the menu
  /// language's and stands before the hour in Korean and Japanese.
  std::string GetTimeString() const;
};

class CTimeUtil {
 public:
  /// Seconds since the epoch; 0 while the clock is not set.
  static unsigned long long GetCurrentTime();
  /// 0 set by the broadcast, 1 by hand; negative is failure.
  static int GetClockMode();
  /// 0 on success; a negative code otherwise, and then `info` is untouched.
  static int ConvertToLocalTime(unsigned long long epochSeconds, CTimeInfo& info);
};
