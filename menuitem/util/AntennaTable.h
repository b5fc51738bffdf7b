// The menu's antenna types: TV mode, name, and what they need.
#pragma once

/// What supports a type; the number beside it is the tuner bits (any of them), the broadcaster, or the
/// operator profile.
enum AntennaSupport { kNever, kTuner, kBroadcaster, kProfile, kIptv };

struct AntennaRow {
  int type;
  int antennaMode, serviceMode;  ///< -1 is not set
  const char* name;              ///< string ID; null for a type whose name is not a fixed one
  AntennaSupport support;
  int number;
};

constexpr int kAntennaTypes = 55;
extern const AntennaRow kAntennaTable[kAntennaTypes];
