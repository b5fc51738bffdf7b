// One cable for several tuners: each has a user band of its own on it. A run takes time: when it began stands in the
// TV, and everything else follows from the clock and from who is on the cable.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tvs_types.h"

namespace desktop {

/// The bands of the usual eight-band converter, in MHz.
constexpr int kUserBands[] = {1284, 1400, 1516, 1632, 1748, 1864, 1980, 2096};
/// What a tuner can be set to, in MHz.
constexpr int kLowestBand = 950, kHighestBand = 2150;
constexpr size_t kMostBands = 32;
/// How a run ends: by what is on the cable, with nothing found; anything above is a frequency that it finds, in MHz.
constexpr int kByTheCable = -1, kNothing = 0;
constexpr int kLongestSeconds = 3600;

/// The run that was started last on a tuner.
struct CableRun {
  ESatCRCommand command = SATCR_COMMAND_STOP;
  int progress = 0;              ///< percent
  int slot = 0, frequency = -1;  ///< the band it has found so far, with these for none
};

/// Nothing for a tuner that the cable does not go to.
std::optional<CableRun> ReadRun(int tuner);
/// Starts or stops a run. False for an unknown tuner or command.
bool RunCableCommand(int tuner, ESatCRCommand command);

/// Replaces the bands by these; who was on one that stays is still on it.
void SetUserBands(const std::vector<int>& frequencies);
/// Stores a tuner's band, 0 for none; the slot is 255 off the bands. False for an unknown tuner.
bool StoreUserBand(int tuner, int frequency);

}  // namespace desktop
