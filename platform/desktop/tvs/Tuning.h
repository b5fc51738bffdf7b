// Tuners. A tune takes time: when it began stands in the TV, and everything else follows from the clock.
#pragma once

#include <cstdint>

#include "tvs_api.h"

namespace desktop {

/// What a picture's tuner receives now.
struct TunerState {
  bool tuned = false;   ///< the tune has come to its end
  bool locked = false;  ///< and found a signal
  ESignalKind kind = SIGNAL_NONE;
  int strength = 0, quality = 0, ber = 0, snr = 0;
};

TunerState ReadTuner(int profile);

/// Begins to tune a picture to a service, which becomes its current one. False when there is no such service.
bool BeginTune(int profile, unsigned long long service);
/// Begins to tune to a transponder; the current service stays what it is.
void BeginFeeding(int profile, int transponder, bool dishTurns);

/// When the picture's last tune began and ends, by the service's clock.
struct TuneTimes {
  int64_t began = 0, ends = 0;
};
TuneTimes LastTune(int profile);

/// Whoever runs a main loop says here how to be called back: `wake(ms)` is to call `DeliverTunes` after that
/// many milliseconds. Null takes it back.
using TuneWaker = void (*)(int milliseconds);
void SetTuneWaker(TuneWaker wake);
/// Tells the subscribers in this process of every tune that has ended in success since the last call, and
/// asks to be woken for the next. Also for whoever hears that another process has begun to tune.
void DeliverTunes();

}  // namespace desktop
