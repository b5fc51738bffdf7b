// What a measured process reads of itself.
#pragma once

#include <time.h>

#include <fstream>
#include <string>

namespace bench {

/// Seconds of the clock that every process of the machine shares.
inline double Now() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The most memory that was resident at once.
inline long PeakKibibytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long peak = 0;
    if (word == "VmHWM:" && status >> peak) return peak;
  }
  return 0;
}

}  // namespace bench
