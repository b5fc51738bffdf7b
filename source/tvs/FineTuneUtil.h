// Manual fine tuning of the analogue channel on screen: what is stored with the channel, and what the tuner
// applies now.
#pragma once

#include "tvs_api.h"

struct tvs_channel_info {
  /// Translated; null for a TV mode that has none. Not owned.
  const char* bandLabel;
  unsigned short channelType;
  /// -1: none.
  short major;
  short minor;
};

/// Stored operations work on the service that `TvServiceChannelGetInfo` loaded last. Offsets are steps, -32
/// to +32.
class FineTuneUtil {
 public:
  /// 1, or -1.
  static int GetFineTuneModes(TSTvMode& mode, ENavigationMode& navigation);
  /// 0, or -1.
  static int GetFinetuneCriteria(TCCriteriaHelper& criteria, TSTvMode& mode);
  /// The caller frees it with `free`; null without a channel.
  static tvs_channel_info* TvServiceChannelGetInfo();
  static void GetFineTuneChannelInfo(tvs_channel_info* info, TCServiceData& data);

  /// -1 without one.
  static int GetFinetuneType();
  static void SetFineTuneType();
  static void ResetFinetuneType();
  /// 223 without one.
  static int GetFinetuneFreq();
  static void SetFinetuneFreq(int offset);

  /// 0 when it cannot be read, -1 without a tuner.
  static int GetTunerMft();
  static void PresetTunerMft(int offset);
  static void SetTunerMft();
  static void ResetTurnerMft();

  /// 1 when the channel is stored as fine tuned and the tuner applies just that.
  static int CheckIfInitialFinetuned();

 private:
  static void m_SetType(int type);
  static void m_UpdateService();
};
