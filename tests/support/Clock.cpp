#include "Clock.h"

#include <Ecore.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <utility>

#define EXPORTED __attribute__((visibility("default")))

namespace {

constexpr int64_t kNanoseconds = 1'000'000'000;
/// A clock that is held still moves on a little with each look: the toolkit minds one that does not.
constexpr int64_t kLook = 200;
std::atomic<int64_t> g_moved{0};
/// How far the set's own monotonic clock had come when it was held; 0 while it runs.
std::atomic<int64_t> g_heldAt{0};

#ifdef SYS_clock_gettime64
constexpr long kClockGettime = SYS_clock_gettime64;
#else
constexpr long kClockGettime = SYS_clock_gettime;
#endif

int64_t OwnTime(clockid_t clock) {
  timespec now;
  syscall(kClockGettime, clock, &now);
  return now.tv_sec * kNanoseconds + now.tv_nsec;
}

bool IsMoved(clockid_t clock) {
  return clock == CLOCK_REALTIME || clock == CLOCK_MONOTONIC || clock == CLOCK_BOOTTIME || clock == CLOCK_MONOTONIC_RAW;
}

std::mutex g_watchMutex;
std::function<void()> g_watch;

}  // namespace

namespace test {

void OnSleep(std::function<void()> watch) {
  const std::lock_guard lock(g_watchMutex);
  g_watch = std::move(watch);
}

void MoveClock(double seconds) { g_moved += static_cast<int64_t>(seconds * kNanoseconds); }

void HoldClock(bool hold) {
  // What has passed in the meantime stays left out: no clock jumps when it runs again.
  if (g_heldAt != 0) g_moved -= OwnTime(CLOCK_MONOTONIC) - g_heldAt;
  g_heldAt = hold ? OwnTime(CLOCK_MONOTONIC) : 0;
}

void Pause() {
  const timespec pause{0, 1'000'000};
  syscall(SYS_nanosleep, &pause, nullptr);
}

void KeepMainLoop() {
  static const bool kept = [] {
    ecore_app_no_system_modules();
    std::atexit([] { ecore_shutdown(); });
    return ecore_init() > 0;
  }();
  if (!kept) throw std::runtime_error("no main loop");
}

bool TurnUntil(const std::function<bool()>& holds) {
  for (int i = 0; i < 20'000 && !holds(); ++i) {
    Pause();
    ecore_main_loop_iterate();
  }
  return holds();
}

}  // namespace test

// The toolkit and the standard library ask here, because a program's own functions come before a library's.
extern "C" EXPORTED int clock_gettime(clockid_t clock, timespec* now) {
  if (syscall(kClockGettime, clock, now) != 0) return -1;
  if (!IsMoved(clock)) return 0;
  if (g_heldAt != 0) g_moved += kLook;
  const int64_t held = g_heldAt != 0 ? OwnTime(CLOCK_MONOTONIC) - g_heldAt : 0;
  const int64_t moved = now->tv_sec * kNanoseconds + now->tv_nsec + g_moved - held;
  now->tv_sec = moved / kNanoseconds;
  now->tv_nsec = moved % kNanoseconds;
  return 0;
}

/// A sleep passes at once, and the clock has moved.
extern "C" EXPORTED int nanosleep(const timespec* wanted, timespec*) {
  test::MoveClock(static_cast<double>(wanted->tv_sec) + static_cast<double>(wanted->tv_nsec) / kNanoseconds);
  std::function<void()> watch;
  {
    const std::lock_guard lock(g_watchMutex);
    watch = g_watch;
  }
  if (watch) watch();
  return 0;
}

#ifdef __USE_TIME_BITS64
// The functions above are those for times of 64 bits; libraries of a 32-bit system ask for shorter ones.
namespace {

struct ShortTime {
  int32_t tv_sec, tv_nsec;
};

}  // namespace

extern "C" EXPORTED int ShortClockGettime(clockid_t clock, ShortTime* now) asm("clock_gettime");
extern "C" EXPORTED int ShortClockGettime(clockid_t clock, ShortTime* now) {
  timespec wide;
  if (clock_gettime(clock, &wide) != 0) return -1;
  *now = {static_cast<int32_t>(wide.tv_sec), static_cast<int32_t>(wide.tv_nsec)};
  return 0;
}

extern "C" EXPORTED int ShortNanosleep(const ShortTime* wanted, ShortTime*) asm("nanosleep");
extern "C" EXPORTED int ShortNanosleep(const ShortTime* wanted, ShortTime*) {
  const timespec wide{wanted->tv_sec, wanted->tv_nsec};
  return nanosleep(&wide, nullptr);
}
#endif
