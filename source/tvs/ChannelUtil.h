// What the signal windows read and change of the TV, always fresh.
#pragma once

#include <string>
#include <vector>

#include "TvsUtil.h"

/// Results of 0 / -1 are success / failure. Operations that `CTvsUtil` has too answer the same here, and
/// keep nothing.
class ChannelUtil {
 public:
  static int m_GetModes(TSTvMode* mode, ENavigationMode* navi, bool pip);
  static int m_GetCriteria(TCCriteriaHelper& out, TSTvMode* mode, bool pip);
  static int m_GetCriteria(TCCriteriaHelper& out, const TSTvMode& mode);
  static void m_GetChannelInfo(tvs_ch_info* record, TCServiceData* data);
  static unsigned short m_GetSymbolRate(TCServiceData* data, unsigned short channelNumber, EProfile profile);
  /// The caller's, to give back with `m_TvServiceChannelDelInfo`; null without a channel.
  static tvs_ch_info* m_TvServiceChannelGetInfo(bool pip);
  static void m_TvServiceChannelDelInfo(tvs_ch_info* record);
  static tvs_ch_info* m_GetSignalInfo();
  static void GetTSTvMode(TSTvMode& mode, EProfile profile);
  static int GetCurrentServiceId(unsigned long long& id, bool pip);
  static int SetService(unsigned long long id, bool pip);
  static bool SetSource();
  static int GetCurrentSourceInfo();

  static int GetFrequency(EProfile profile);
  static int GetBandWidth(EProfile profile);
  static ESignalKind GetSignalKind();
  static int GetSignalQuality();
  static int GetSignalStrength();
  static CTvsUtil::SIGNAL_INFO_TYPE GetSignalInfoType();
  static bool FlagNordicCountry();
  static bool FlagVisibleSatCRTwoTuner();
  static int GetBandWidthFromDispStr(const char* text);
  static int SetBandFreqForSignalInformation(EBandwidth band, int freq);
  static bool TuneAloneSelectedTransponder(bool enablePositioner);

  /// The stepped frequency in kHz, -1 before the first.
  static int SetCacheFrequency(MenuKeyDirection direction, const char* text, EProfile profile);
  static int SetCacheBandWidth(MenuKeyDirection direction, const char* text, EProfile profile);
  static ENavigationMode GetTVNavigationMode();
  /// Direction 1 is the previous channel, any other the next.
  static bool TuneChannel(bool pip, int direction, ENavigationMode navigation, bool onlyDigital);
  /// -1 for `major`, `minor`, `serviceMode` or `channelType` stands for the current channel's. At most 511
  /// characters and the terminator.
  static int GetChannelString(char* dst, int major, int minor, EServiceMode serviceMode, int channelType);
  /// The stored notes of weak signal, oldest first; false when the TV does not tell them.
  static bool ReadWeakSignalHistory(std::vector<std::string>& entries);
  /// Texts of one note of weak signal, each at most 511 characters and the terminator.
  static int GetHistoryItemInfo(const std::string& entry, char* strData, char* strTimer, char* strOther);

  static int CacheFrequency, CacheBandWidth, transponderID;
};
