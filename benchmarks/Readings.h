// What a measured process reads of itself.
#pragma once

#include <Ecore.h>
#include <sys/resource.h>
#include <time.h>

#include <cstdio>
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

/// Seconds until a window that was opened has nothing left to do.
inline constexpr double kSettled = 7;

inline double ProcessorSeconds() {
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Lets the loop run, then prints how often it woke and how many milliseconds of processor it took, a minute each.
inline void PrintIdle(double seconds) {
  const auto pass = [](double time) {
    ecore_timer_add(
        time,
        [](void*) -> Eina_Bool {
          ecore_main_loop_quit();
          return ECORE_CALLBACK_CANCEL;
        },
        nullptr);
    ecore_main_loop_begin();
  };
  pass(kSettled);  // tuning ends, and its facts are drawn once more
  static int wakes = 0;
  ecore_idle_exiter_add(
      [](void*) -> Eina_Bool {
        ++wakes;
        return ECORE_CALLBACK_RENEW;
      },
      nullptr);
  const double before = ProcessorSeconds();
  pass(seconds);
  std::printf("%.3f %.3f\n", wakes * 60 / seconds, (ProcessorSeconds() - before) * 1000 * 60 / seconds);
}

}  // namespace bench
