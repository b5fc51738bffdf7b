// What the menu reads and changes of the TV: modes, channels, sources, signal figures, satellites.
#pragma once

#include "ChannelRecord.h"
#include "tvs_api.h"

struct _Ecore_Factorized_Idle;

/// 0 up, 1 down; any other value steps nothing.
enum MenuKeyDirection : int { MENU_KEY_UP = 0, MENU_KEY_DOWN = 1, MENU_KEY_NONE = 2 };

/// Main loop only, `m_GetModes` excepted. Results of 0 / -1 are success / failure.
class CTvsUtil {
 public:
  /// Layout of the signal information.
  enum SIGNAL_INFO_TYPE : int {
    SIGNAL_INFO_ISDB_DIGITAL = 0,
    SIGNAL_INFO_ISDB = 1,  ///< current channel of type 1 or 2
    SIGNAL_INFO_DVB_BASIC = 2,
    SIGNAL_INFO_DVB_SQI = 3,
    SIGNAL_INFO_DVB_SET_TUNE = 4,
    SIGNAL_INFO_ATSC = 5
  };

  // Modes. `pip` chooses the sub picture.
  static EProfile GetCurrentProfile() { return PROFILE_MAIN; }
  /// Either may be null; `*navi` is set to 0. Any thread.
  static int m_GetModes(TSTvMode* mode, ENavigationMode* navi, bool pip);
  /// The main picture's antenna mode, or -1.
  static int GetTvMode();
  static void GetTSTvMode(TSTvMode& mode, EProfile profile);
  static bool GetCurrentTvMode(TSTvMode& mode);
  /// Every column of the record, for the current mode, which comes out in `*mode`. Cached.
  static int m_GetCriteria(TCCriteriaHelper& out, TSTvMode* mode, bool pip);
  /// Type, ID, number and profile of a mode's channels, virtual ones left out.
  static int m_GetCriteria(TCCriteriaHelper& out, const TSTvMode& mode);

  // Channels.
  /// The current channel's record, or null. Goes back with `m_TvServiceChannelDelInfo`.
  static tvs_ch_info* m_TvServiceChannelGetInfo(bool pip);
  static void m_GetChannelInfo(tvs_ch_info* record, TCServiceData* data);
  /// Frees a record, unless the static cache holds it. Null is allowed.
  static void m_TvServiceChannelDelInfo(tvs_ch_info* record);
  static bool m_GetDigitalFlag(tvs_ch_info* record);
  static bool m_GetAnalogFlag(tvs_ch_info* record);
  static bool m_GetVirtualFlag(tvs_ch_info* record);
  static int GetCurrentServiceId(unsigned long long& id, bool pip);
  static int SetService(unsigned long long id, bool pip);
  static bool FlagCurrentChannelAnalog(EProfile profile);
  static bool FlagCurrentChannelDigital(EProfile profile);
  static bool FlagCurrentChannelVirtual(EProfile profile);
  static bool IsCurrentChannelDefault(EProfile profile);
  /// -1 without a channel.
  static int GetCurrentChannelType(EProfile profile);
  /// Writes at most 511 characters and the terminator.
  static int GetChannelString(char* out, bool pip);
  static bool FlagTimeShift();
  static bool FlagTempUnblockedChildLock();

  // Sources; -1 is failure.
  static int GetCurrentSource(EProfile profile);
  static int GetCurrentSourceInfo();
  static int GetCurrentState(EProfile profile);
  static bool FlagTvSource(EProfile profile);
  static bool FlagExternalSource(EProfile profile);
  static bool IsCurrentSourceHDMI();
  /// Back to the tuner and the current service.
  static bool SetSource();

  // Signal figures, as the tuner gives them; 0 is failure.
  static SIGNAL_INFO_TYPE GetSignalInfoType();
  static ESignalKind GetSignalKind();
  static int GetSignalStrength();
  static int GetSignalQuality();
  static int GetBitErrorRate();
  static int GetSNR();
  static bool GetTunerLockStatus();
  /// The main channel's record, or null; not the caller's to free.
  static tvs_ch_info* m_GetSignalInfo();
  static int GetFrequency(EProfile profile);
  static int GetBandWidth(EProfile profile);
  static int GetModulation(EProfile profile);
  static int GetChannelNumber(EProfile profile);
  static int GetSymbolRate(EProfile profile);
  static int GetProgramNum(EProfile profile);
  static int GetTransportStreamID(EProfile profile);
  static int GetOringinalNwtworkID(EProfile profile);
  static int GetNetworkID(EProfile profile);
  /// 0 when the transponder is not found, 65535 when the data does not say.
  static unsigned short m_GetSymbolRate(TCServiceData* data, unsigned short channelNumber, EProfile profile);
  /// Text of the current digital channel: at most 511 characters and the terminator.
  static int GetChannelID(char* out);
  /// Retunes to a frequency in kHz.
  static int SetBandFreqForSignalInformation(EBandwidth band, int freq);

  // Values that the arrow keys step before they are applied.
  static constexpr int kLowestFrequency = 47000, kHighestFrequency = 890000;  ///< kHz
  /// A frequency of the range, or as typed when there is none yet.
  static int SetCacheFrequency(MenuKeyDirection direction, const char* text, EProfile profile);
  static int SetCacheBandWidth(MenuKeyDirection direction, const char* text, EProfile profile);
  /// "8 MHz" is 3; -1 for a text that is no bandwidth.
  static int GetBandWidthFromDispStr(const char* text);

  // Satellites.
  /// -1 not chosen, -2 the user's own.
  static int transponderID;
  /// -2 on failure.
  static int GetSelectedTransponderId(bool checkCurrentChannel);
  static int InitSelectedTransponder(bool checkCurrentChannel);
  static void InitSelectedSatellite(bool fromCurrentChannel);
  static bool TuneAloneSelectedTransponder(bool enablePositioner);
  static void SetDefaultChannelAfterSatellitePropertyChanges();

  // The tune-success signal: sets "db/menu/refresh_menu" to 1.
  static void SubscribeForTuneSuccessSignal();
  static void UnsubscribeForTuneSuccessSignal();
  static void Clean();

  /// Drops what the static cache holds.
  static void FlushCache();

  static bool t_CacheEnabled;

 private:
  static int FreshServiceId(unsigned long long& id, bool pip);
  static bool FlagCurrentChannel(EProfile profile, bool digital);
  static int m_SubscribeForTuneSuccessSignalCb(void* data);
  static int m_UnsubscribeForTuneSuccessSignalCb(void* data);
  static void m_UnsubscribeForTuneSuccessSignal();
  static int m_RefreshMenu(ESignalType signal, EProfile profile, unsigned short session, const TSSignalData& data,
                           void* userData);

  static tvs_ch_info *t_CacheChInfo, *t_CacheChInfoPip;
  static int t_CacheSrc, t_CacheSrcPip;
  static bool t_FlagTimeShift, t_FlagTimeShiftCacheValid, t_FlagRecording, t_FlagRecordingCacheValid;
  static TVServiceAPI::ISignalSubscriber* pSubscriber;
  static struct _Ecore_Factorized_Idle* pSubscriberCbIdler;
};
