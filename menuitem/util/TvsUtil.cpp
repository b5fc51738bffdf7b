#include "TvsUtil.h"

#include <cstdio>
#include <cstring>

#include "CacheManager.h"
#include "Log.h"
#include "Translation.h"
#include "TvsShared.h"
#include "pvr_client.h"
#include "util.h"

bool CTvsUtil::t_CacheEnabled = false;
tvs_ch_info* CTvsUtil::t_CacheChInfo = nullptr;
tvs_ch_info* CTvsUtil::t_CacheChInfoPip = nullptr;
int CTvsUtil::t_CacheSrc = -1;
int CTvsUtil::t_CacheSrcPip = -1;
bool CTvsUtil::t_FlagTimeShift = false;
bool CTvsUtil::t_FlagTimeShiftCacheValid = false;
bool CTvsUtil::t_FlagRecording = false;
bool CTvsUtil::t_FlagRecordingCacheValid = false;

namespace {

constexpr int kTextSize = 512;
constexpr int kStandardUhd = 16;

void LogNullProxy(bool pip) {
  if (pip) {
    LOG_DEBUG("Null: Pip Proxy");
  } else {
    LOG_DEBUG("Null: Proxy");
  }
}

void LogNoNavigation(bool pip) {
  if (pip) {
    LOG_DEBUG("Create Service Navigation failed.");
  } else {
    LOG_ERROR("CreateServiceNavigation fails");
  }
}

void LogNoService() { LOG_ERROR("TVServiceAPI::CreateService Failed!"); }

constexpr tvs::ReadMessages kRecordMessages = {LogNullProxy, LogNoService};
constexpr tvs::ReadMessages kStringMessages = {LogNoNavigation, LogNoService};

/// What the two flags of the current channel say of themselves.
struct FlagTexts {
  const char *mainKey, *pipKey, *noRecord, *set, *notSet;
};
constexpr FlagTexts kAnalogTexts = {"FlagCurrentChannelAnalog_MAIN", "FlagCurrentChannelAnalog_PIP",
                                    "In flag_analog Function : tvs_ch_info is NULL!",
                                    "Current Channel is analog Channel!", "Current Channel is not analog Channel!"};
constexpr FlagTexts kDigitalTexts = {"FlagCurrentChannelDigital_MAIN", "FlagCurrentChannelDigital_PIP",
                                     "In flag_digital Function : tvs_ch_info is NULL!",
                                     "Current Channel is Digital Channel!", "Current Channel is not Digital Channel!"};

/// "DTV 7-2", or the product's word for its newest standard and the number.
std::string ChannelText(const TSTvMode& mode, const tvs_ch_info& record, const TCServiceData& data) {
  const std::string number = CCChInfoUtil::GetChannelNumberString(mode, record.channelType, record.major, record.minor);
  const long long* standard = data.Find(COLUMN_BROADCAST_STANDARD);
  if (!standard || *standard != kStandardUhd) {
    return CCChInfoUtil::GetChannelTypeString(mode, static_cast<EChannelType>(record.channelType)) + " " + number;
  }
  return T(CUtil::FlagATSC() ? "TV_SID_BJDEC_NEXTGEN_TV" : "TV_SID_DTV_UHD") + " " + number;
}

bool AskTimeShift(unsigned long long serviceId) {
  if (svc_pvr_service_init() != 1) {
    LOG_DEBUG("svc_pvr_service_init retturn PS_CLIENT_INIT_FAILED!");
    return false;
  }
  LOG_DEBUG("svc_pvr_service_init retturn PS_CLIENT_INIT_SUCCESS!");
  int result = 0;
  if (svc_pvr_is_timeshifting(serviceId, &result) == -2) {
    LOG_DEBUG("svc_pvr_is_timeshifting return PS_CALL_METHOD_FAILED . ");
  }
  if (result == 1) {
    LOG_DEBUG("result_timeshifting is RESULT_TRUE");
  } else {
    LOG_DEBUG("result_timeshifting is RESULT_FALSE");
  }
  svc_pvr_service_destroy();
  return result == 1;
}

}  // namespace

int CTvsUtil::m_GetModes(TSTvMode* mode, ENavigationMode* navi, bool pip) { return tvs::ReadModes(mode, navi, pip); }

int CTvsUtil::GetTvMode() {
  LOG_DEBUG("In GetTvMode Function");
  TSTvMode mode;
  ENavigationMode navi;
  if (m_GetModes(&mode, &navi, false) == 0) return mode.antennaMode;
  LOG_ERROR("m_GetModes failed!");
  return -1;
}

void CTvsUtil::GetTSTvMode(TSTvMode& mode, EProfile) {
  ENavigationMode navi;
  if (m_GetModes(&mode, &navi, false) != 0) LOG_ERROR("m_GetModes failed!");
}

bool CTvsUtil::GetCurrentTvMode(TSTvMode& mode) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(GetCurrentProfile(), 0);
  if (!navigation) {
    LOG_ERROR("Create Service Navigation failed");
    return false;
  }
  if (navigation->GetTvMode(mode) > 0) return true;
  LOG_ERROR("Get TV Mode failed");
  return false;
}

int CTvsUtil::m_GetCriteria(TCCriteriaHelper& out, TSTvMode* mode, bool pip) {
  TSTvMode current;
  ENavigationMode navi;
  if (m_GetModes(&current, &navi, pip) != 0) return -1;
  if (mode) *mode = current;
  CCacheManager* cache = CCacheManager::GetInstance();
  const char* key = pip ? "criteria_help_pip" : "criteria_help_main";
  if (const auto* kept = cache->Find<TCCriteriaHelper>(key)) {
    LOG_DEBUG("return cached v");
    out = *kept;
    return 0;
  }
  if (tvs::FullCriteria(out, current) != 0) return -1;
  cache->Store(key, out);
  return 0;
}

int CTvsUtil::m_GetCriteria(TCCriteriaHelper& out, const TSTvMode& mode) { return tvs::ShortCriteria(out, mode); }

tvs_ch_info* CTvsUtil::m_TvServiceChannelGetInfo(bool pip) {
  tvs_ch_info*& kept = pip ? t_CacheChInfoPip : t_CacheChInfo;
  if (t_CacheEnabled && kept) return kept;
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (m_GetCriteria(criteria, &mode, pip) != 0) return nullptr;
  tvs_ch_info* record = tvs::NewRecord(mode, criteria, pip, kRecordMessages, m_GetSymbolRate);
  if (t_CacheEnabled) kept = record;
  return record;
}

void CTvsUtil::m_GetChannelInfo(tvs_ch_info* record, TCServiceData* data) {
  tvs::FillRecord(record, data, m_GetSymbolRate);
}

void CTvsUtil::m_TvServiceChannelDelInfo(tvs_ch_info* record) {
  if (!t_CacheEnabled) delete record;
}

bool CTvsUtil::m_GetDigitalFlag(tvs_ch_info* record) { return record && record->digital; }

bool CTvsUtil::m_GetAnalogFlag(tvs_ch_info* record) { return record && record->analog; }

bool CTvsUtil::m_GetVirtualFlag(tvs_ch_info* record) { return record && record->virtualChannel; }

int CTvsUtil::GetCurrentServiceId(unsigned long long& id, bool pip) {
  LOG_INFO("PIP : %d", pip);
  CCacheManager* cache = CCacheManager::GetInstance();
  const char* key = pip ? "GetCurrentServiceId_pip" : "GetCurrentServiceId_main";
  if (const auto* kept = cache->Find<unsigned long long>(key)) {
    LOG_DEBUG("return cached v %llu", *kept);
    id = *kept;
    return 0;
  }
  if (tvs::ReadServiceId(id, pip, m_GetCriteria) != 0) return -1;
  cache->Store(key, id);
  LOG_DEBUG("service ID : %llu", id);
  return 0;
}

int CTvsUtil::SetService(unsigned long long id, bool pip) { return tvs::TuneService(id, pip); }

bool CTvsUtil::FlagCurrentChannel(EProfile profile, bool digital) {
  const FlagTexts& texts = digital ? kDigitalTexts : kAnalogTexts;
  const char* key = profile == PROFILE_MAIN ? texts.mainKey : texts.pipKey;
  CCacheManager* cache = CCacheManager::GetInstance();
  if (const bool* kept = cache->Find<bool>(key)) {
    LOG_INFO("return cached value");
    return *kept;
  }
  bool flag = false;
  if (!FlagTvSource(profile)) {
    LOG_DEBUG("not tv source");
  } else {
    tvs_ch_info* record = m_TvServiceChannelGetInfo(profile != PROFILE_MAIN);
    if (!record) {
      LOG_DEBUG("%s", texts.noRecord);
      return false;
    }
    flag = digital ? m_GetDigitalFlag(record) : m_GetAnalogFlag(record);
    LOG_DEBUG("%s", flag ? texts.set : texts.notSet);
    m_TvServiceChannelDelInfo(record);
  }
  cache->Store(key, flag);
  return flag;
}

bool CTvsUtil::FlagCurrentChannelAnalog(EProfile profile) { return FlagCurrentChannel(profile, false); }

bool CTvsUtil::FlagCurrentChannelDigital(EProfile profile) { return FlagCurrentChannel(profile, true); }

bool CTvsUtil::FlagCurrentChannelVirtual(EProfile profile) {
  if (!FlagTvSource(profile)) {
    LOG_DEBUG("not tv source");
    return false;
  }
  tvs_ch_info* record = m_TvServiceChannelGetInfo(profile != PROFILE_MAIN);
  const bool flag = m_GetVirtualFlag(record);
  m_TvServiceChannelDelInfo(record);
  return flag;
}

bool CTvsUtil::IsCurrentChannelDefault(EProfile profile) {
  tvs_ch_info* record = m_TvServiceChannelGetInfo(profile != PROFILE_MAIN);
  if (!record) LOG_DEBUG("tvs_ch_info is NULL!");
  const int isDefault = record ? record->isDefault : 0;
  LOG_DEBUG("Current Channel IsDefault: %d", isDefault);
  m_TvServiceChannelDelInfo(record);
  return isDefault != 0;
}

int CTvsUtil::GetCurrentChannelType(EProfile profile) {
  tvs_ch_info* record = m_TvServiceChannelGetInfo(profile != PROFILE_MAIN);
  const int type = record ? record->channelType : -1;
  LOG_DEBUG("channel type : %d", type);
  m_TvServiceChannelDelInfo(record);
  return type;
}

int CTvsUtil::GetChannelString(char* out, bool pip) {
  if (!out) {
    LOG_DEBUG("chStr is NULL");
    return -1;
  }
  tvs_ch_info* kept = m_TvServiceChannelGetInfo(pip);
  if (!kept) {
    LOG_ERROR("m_TvServiceChannelGetInfo fails");
    return -1;
  }
  const tvs_ch_info record = *kept;
  m_TvServiceChannelDelInfo(kept);
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (m_GetCriteria(criteria, &mode, pip) != 0) {
    LOG_ERROR("m_GetCriteria fails");
    return -1;
  }
  criteria.Fetch(COLUMN_BROADCAST_STANDARD);
  TCServiceData data;
  if (!tvs::ReadCurrent(mode, criteria, pip, kStringMessages, data)) return -1;
  snprintf(out, kTextSize, "%s", ChannelText(mode, record, data).c_str());
  LOG_DEBUG("channelString : %s", out);
  return 0;
}

bool CTvsUtil::FlagTimeShift() {
  if (t_CacheEnabled && t_FlagTimeShiftCacheValid) return t_FlagTimeShift;
  tvs_ch_info* record = m_TvServiceChannelGetInfo(false);
  if (!record) {
    LOG_DEBUG("In FlagTimeShift Function : tvs_ch_info is NULL!");
    return false;
  }
  const bool shifted = AskTimeShift(record->serviceId);
  m_TvServiceChannelDelInfo(record);
  if (t_CacheEnabled) {
    t_FlagTimeShift = shifted;
    t_FlagTimeShiftCacheValid = true;
  }
  return shifted;
}

bool CTvsUtil::FlagTempUnblockedChildLock() {
  CTVSApiWrapper api;
  IRatingUtil* rating = api.CreateRatingUtil();
  if (!rating) {
    LOG_DEBUG("pRatingUtil is NULL.");
    return false;
  }
  int unblocked = 1, childLocked = 0;
  const int result = rating->QueryTempUnblock(unblocked, childLocked);
  LOG_INFO("FlagTempUnblockedPamaitChildLock ret:%d, bChildLocked:%d", result, childLocked);
  return unblocked != 0;
}

void CTvsUtil::FlushCache() {
  if (!t_CacheEnabled) {
    LOG_DEBUG("Cache is not enabled");
    return;
  }
  LOG_DEBUG("Cache flushing...");
  t_CacheEnabled = false;
  m_TvServiceChannelDelInfo(t_CacheChInfo);
  m_TvServiceChannelDelInfo(t_CacheChInfoPip);
  t_CacheChInfo = t_CacheChInfoPip = nullptr;
  t_CacheEnabled = true;
  t_CacheSrc = t_CacheSrcPip = -1;
  t_FlagTimeShiftCacheValid = t_FlagRecordingCacheValid = false;
}
