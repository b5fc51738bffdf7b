#include <Ecore.h>

#include <cstdio>
#include <cstdlib>

#include "CacheManager.h"
#include "Log.h"
#include "TextUtil.h"
#include "TvsShared.h"
#include "TvsUtil.h"
#include "util.h"
#include "vconf.h"

TVServiceAPI::ISignalSubscriber* CTvsUtil::pSubscriber = nullptr;
Ecore_Idler* CTvsUtil::pSubscriberCbIdler = nullptr;

namespace {

constexpr int kTextSize = 512;
constexpr const char* kFrequencyKey = "SignalInfo-Frequency";
constexpr const char* kBandWidthKey = "SignalInfo-BandWidth";

using RecordPointer = tvs_ch_info*;

/// A field of the main channel's record.
template <class Field>
int FromRecord(Field field, int missing) {
  const tvs_ch_info* record = CTvsUtil::m_GetSignalInfo();
  return record ? static_cast<int>(record->*field) : missing;
}

/// One figure of the main picture's tuner that has its failure in its result.
int TunerFigure(int (ITunerControl::*read)(int&), const char* failure) {
  CTVSApiWrapper api;
  ITunerControl* tuner = api.CreateTunerControl(CTvsUtil::GetCurrentProfile(), 0);
  int figure = 0;
  if (!tuner) {
    LOG_ERROR("Create tuner control failed");
  } else if ((tuner->*read)(figure) == 0) {
    LOG_ERROR("%s", failure);
  }
  return figure;
}

int StoreStepped(const char* key, int value) {
  LOG_DEBUG("CacheValue:%d", value);
  CCacheManager::GetInstance()->Store(key, value);
  return value;
}

}  // namespace

CTvsUtil::SIGNAL_INFO_TYPE CTvsUtil::GetSignalInfoType() {
  CCacheManager* cache = CCacheManager::GetInstance();
  if (const auto* kept = cache->Find<SIGNAL_INFO_TYPE>("SignalInfoType")) {
    LOG_INFO("return cached value");
    return *kept;
  }
  const SIGNAL_INFO_TYPE type = tvs::InfoType(m_GetSignalInfo, [](tvs_ch_info*) {});
  if (type != SIGNAL_INFO_ATSC) cache->Store("SignalInfoType", type);
  return type;
}

ESignalKind CTvsUtil::GetSignalKind() {
  CCacheManager* cache = CCacheManager::GetInstance();
  if (const auto* kept = cache->Find<ESignalKind>("SignalInfoKind")) {
    LOG_INFO("return cached value");
    return *kept;
  }
  ESignalKind kind = SIGNAL_NONE;
  if (!tvs::ReadSignalKind(kind)) return SIGNAL_NONE;
  cache->Store("SignalInfoKind", kind);
  return kind;
}

int CTvsUtil::GetSignalStrength() { return tvs::ReadStrength(); }

int CTvsUtil::GetSignalQuality() { return tvs::ReadQuality(); }

int CTvsUtil::GetBitErrorRate() { return TunerFigure(&ITunerControl::GetBER, "GetBER fails"); }

int CTvsUtil::GetSNR() { return TunerFigure(&ITunerControl::GetSNR, "GetSNR fails"); }

bool CTvsUtil::GetTunerLockStatus() {
  LOG_DEBUG("In Function _get_tuner_lock_status.");
  CTVSApiWrapper api;
  ISourceControl* control = api.CreateSourceControl(GetCurrentProfile(), 0);
  if (!control) {
    LOG_ERROR("CreateSourceControl fails");
    return false;
  }
  unsigned char status = 0;
  const int result = control->SourceLockStatus(status);
  LOG_DEBUG("sourceCtrl->SourceLockStatus return_value=%d,status=%d.", result, status);
  if (result > 0) LOG_DEBUG("Get SourceLockStatus success.");
  return status != 0;
}

tvs_ch_info* CTvsUtil::m_GetSignalInfo() {
  // A copy, so that a pointer in the cache outlives a flush of the record that it was taken from.
  static tvs_ch_info shown;
  CCacheManager* cache = CCacheManager::GetInstance();
  if (const auto* kept = cache->Find<RecordPointer>("SignalInfo")) {
    LOG_INFO("return cached value");
    return *kept;
  }
  tvs_ch_info* record = m_TvServiceChannelGetInfo(false);
  if (record) shown = *record;
  m_TvServiceChannelDelInfo(record);
  cache->Store<RecordPointer>("SignalInfo", record ? &shown : nullptr);
  return record ? &shown : nullptr;
}

int CTvsUtil::GetFrequency(EProfile) {
  const int frequency = FromRecord(&tvs_ch_info::frequency, 0);
  CCacheManager::GetInstance()->Store(kFrequencyKey, frequency);
  return frequency;
}

int CTvsUtil::GetBandWidth(EProfile) {
  const int bandwidth = FromRecord(&tvs_ch_info::bandwidth, BANDWIDTH_UNKNOWN);
  CCacheManager::GetInstance()->Store(kBandWidthKey, bandwidth);
  return bandwidth;
}

int CTvsUtil::GetModulation(EProfile) { return FromRecord(&tvs_ch_info::modulation, -1); }

int CTvsUtil::GetChannelNumber(EProfile) { return FromRecord(&tvs_ch_info::channelNumber, 0); }

int CTvsUtil::GetSymbolRate(EProfile) { return FromRecord(&tvs_ch_info::symbolRate, 0); }

int CTvsUtil::GetProgramNum(EProfile) { return FromRecord(&tvs_ch_info::programNumber, 0); }

int CTvsUtil::GetTransportStreamID(EProfile) { return FromRecord(&tvs_ch_info::transportStreamId, 0); }

int CTvsUtil::GetOringinalNwtworkID(EProfile) { return FromRecord(&tvs_ch_info::originalNetworkId, 0); }

int CTvsUtil::GetNetworkID(EProfile) { return FromRecord(&tvs_ch_info::networkId, 0); }

unsigned short CTvsUtil::m_GetSymbolRate(TCServiceData* data, unsigned short channelNumber, EProfile) {
  return tvs::SymbolRate(data, channelNumber, GetSignalKind());
}

int CTvsUtil::GetChannelID(char* out) {
  if (!out) {
    LOG_DEBUG("Input Arr is empty");
    return -1;
  }
  CTVSApiWrapper api;
  IChannelData* channelData = api.CreateChannelData(GetCurrentProfile(), 0);
  if (!channelData) {
    LOG_ERROR("Failed to create ChannelData");
    return -1;
  }
  int number = 0;
  if (channelData->GetDigitalChannelNumber(number) == -1) {
    LOG_ERROR("Failed to GetDigitalChannelNumber ");
    return -1;
  }
  std::vector<std::pair<int, std::string>> channels;
  if (channelData->GetDigitalChannels(channels) == -1) {
    LOG_ERROR("Failed to GetDigitalChannels ");
    return -1;
  }
  if (channels.empty()) return 0;
  for (const auto& [known, text] : channels) {
    if (known != number) continue;
    CopyText(out, kTextSize, text);
    LOG_DEBUG("found : %d / text : %s", known, out);
    return 0;
  }
  return -1;
}

int CTvsUtil::SetBandFreqForSignalInformation(EBandwidth band, int freq) {
  const int result = tvs::Retune({m_GetCriteria, SetService, false}, band, freq);
  if (result > 0) return -1;
  FlushCache();
  return result;
}

int CTvsUtil::GetBandWidthFromDispStr(const char* text) { return tvs::BandWidthFromText(text); }

int CTvsUtil::SetCacheFrequency(MenuKeyDirection direction, const char* text, EProfile) {
  const int* stored = CCacheManager::GetInstance()->FindStored<int>(kFrequencyKey);
  if (text) {
    const int typed = NumberAtStart(text);
    const bool inRange = typed >= kLowestFrequency && typed <= kHighestFrequency;
    if (!inRange) return stored ? *stored : typed;
    return StoreStepped(kFrequencyKey, typed);
  }
  if (!stored) return StoreStepped(kFrequencyKey, 0);
  LOG_DEBUG("CacheValue:%d", *stored);
  const int value = tvs::StepFrequency(*stored, direction);
  const bool atBound = value == *stored && (direction == MENU_KEY_UP || direction == MENU_KEY_DOWN);
  return atBound ? value : StoreStepped(kFrequencyKey, value);
}

int CTvsUtil::SetCacheBandWidth(MenuKeyDirection direction, const char* text, EProfile) {
  const bool nordic = CUtil::FlagNordicCountry();
  const int* stored = CCacheManager::GetInstance()->FindStored<int>(kBandWidthKey);
  int value = 0;
  if (text) {
    value = GetBandWidthFromDispStr(text);
    if (!tvs::AcceptsBandWidth(value, nordic) && stored) value = *stored;
  } else if (stored) {
    LOG_DEBUG("CacheValue:%d", *stored);
    value = tvs::StepBandWidth(*stored, direction, nordic);
  }
  return StoreStepped(kBandWidthKey, value);
}

void CTvsUtil::SubscribeForTuneSuccessSignal() {
  if (pSubscriberCbIdler) return;
  pSubscriberCbIdler =
      ecore_idler_add([](void* data) -> Eina_Bool { return m_SubscribeForTuneSuccessSignalCb(data); }, nullptr);
}

int CTvsUtil::m_SubscribeForTuneSuccessSignalCb(void*) {
  pSubscriberCbIdler = nullptr;
  if (!pSubscriber && TVServiceAPI::CreateSignalSubscriber(m_RefreshMenu, &pSubscriber) <= 0) return 0;
  if (pSubscriber->Subscribe(SIGNAL_TUNE_SUCCESS, 0, 1, 0, m_RefreshMenu) > 0) {
    LOG_DEBUG("Succesfully subscribed for signal SIGNAL_TUNE_SUCCESS");
  } else {
    delete pSubscriber;
    pSubscriber = nullptr;
  }
  if (GetCurrentState(PROFILE_MAIN) == 0) m_RefreshMenu(SIGNAL_TUNE_SUCCESS, PROFILE_MAIN, 0, TSSignalData(), nullptr);
  return 0;
}

void CTvsUtil::UnsubscribeForTuneSuccessSignal() {
  if (!pSubscriber) return;
  if (pSubscriberCbIdler) ecore_idler_del(pSubscriberCbIdler);
  pSubscriberCbIdler =
      ecore_idler_add([](void* data) -> Eina_Bool { return m_UnsubscribeForTuneSuccessSignalCb(data); }, nullptr);
}

int CTvsUtil::m_UnsubscribeForTuneSuccessSignalCb(void*) {
  m_UnsubscribeForTuneSuccessSignal();
  pSubscriberCbIdler = nullptr;
  return 0;
}

void CTvsUtil::m_UnsubscribeForTuneSuccessSignal() {
  if (!pSubscriber || pSubscriber->Unsubscribe(SIGNAL_TUNE_SUCCESS, 1, 0, m_RefreshMenu) <= 0) return;
  LOG_DEBUG("Succesfully unsubscribed for signal SIGNAL_TUNE_ACCESS");
  delete pSubscriber;
  pSubscriber = nullptr;
}

void CTvsUtil::Clean() {
  if (pSubscriberCbIdler) ecore_idler_del(pSubscriberCbIdler);
  pSubscriberCbIdler = nullptr;
  m_UnsubscribeForTuneSuccessSignal();
}

int CTvsUtil::m_RefreshMenu(ESignalType, EProfile, unsigned short, const TSSignalData&, void*) {
  LOG_DEBUG("refresh menu");
  if (vconf_set_int("db/menu/refresh_menu", 1) == 0) return 0;
  LOG_ERROR("vconf set fails db/menu/refresh_menu");
  return -1;
}
