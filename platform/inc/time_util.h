// The TV's clock.
#pragma once

#include <string>

/// A broken-down local time.
class CTimeInfo {
 public:
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  /// Time of day as the TV shows it: "HH:MM".
  std::string GetTimeString() const;
};

class CTimeUtil {
 public:
  /// Seconds since the epoch; 0 while the clock is not set.
  static unsigned long GetCurrentTime();
  /// 0 set by the broadcast, 1 by hand.
  static int GetClockMode();
  /// 0 is success.
  static int ConvertToLocalTime(unsigned long epochSeconds, CTimeInfo& info);
};
