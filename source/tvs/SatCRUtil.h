// Single-cable runs by tuner, for callers that keep no state of their own.
#pragma once

#include <string>

#include "tvs_types.h"

class SatCRUtils {
 public:
  struct SatCRDetectStatus {
    int SlotFrequency = -1;  ///< MHz; -1 when the status cannot be read
    unsigned char SlotNumber = 0;
    unsigned char Progress = 0;  ///< percent
  };

  /// False when the tuner's settings cannot be read or there is nobody to send it to; whether the command was taken is
  /// not asked.
  static bool SendSatCRCommand(int tunerId, ESatCRCommand command);
  /// 1 when it is stored. -1 for a frequency below 1, without asking the TV, and without the settings.
  static int SetSlotFrequency(int tunerId, int slotFrequency);
  /// What the tuner has stored; -1 when it cannot be read.
  static int GetSlotFrequency(int tunerId);
  /// Whether a run of this type (1, 2: detection; others: verification) that ended with this frequency has succeeded.
  static bool IsSatCRCommandSuccess(int tunerId, int slotFrequency, int processType);
  static SatCRDetectStatus GetSatCRProcessStatus(int tunerId);
  /// A JSON object of the three fields.
  static std::string SerializeSatCRDetectStatus(SatCRDetectStatus& status);
  /// The caller frees it with `free`.
  static char* GetSatCRProcessStatusAsJsonString(int tunerId);
};
