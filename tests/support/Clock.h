// The tests' clock: the C library's clocks and its sleep, moved on by hand.
#pragma once

#include <functional>

namespace test {

/// Every clock of the process moves on (or back) by so many seconds at once.
void MoveClock(double seconds);

/// Called with every sleep, on the thread that sleeps; null takes it away.
void OnSleep(std::function<void()> watch);

/// A millisecond passes, whatever the clock says.
void Pause();
/// The toolkit's main loop stays up to the end of the tests: it cannot be brought up twice.
void KeepMainLoop();
/// It turns until this holds; false when it does not for long.
bool TurnUntil(const std::function<bool()>& holds);

/// From now on no time passes but by `MoveClock`, or it passes by itself again.
void HoldClock(bool hold);

}  // namespace test
