#include "util.h"

#include "Log.h"
#include "TvsShared.h"
#include "TvsUtil.h"
#include "app_framework.h"
#include "pvr_client.h"
#include "system_info.h"
#include "vconf.h"

namespace {

/// Region kinds, and what they broadcast.
constexpr int kAtscRegions[] = {1, 2, 36};
constexpr int kIsdbRegions[] = {3, 14, 15, 17, 18, 20, 21, 30};
constexpr int kDvbExceptions[] = {10, 13, 26};
constexpr int kFirstByCountry = 25, kLastByCountry = 29;
constexpr int kSouthAmerica = 27;

constexpr int kNordicCountries[] = {10, 26, 27, 28};
constexpr int kEcuador = 69, kIsdbCountry = 74, kAtscCountry = 87;

constexpr const char* kDualAntennaKey = "db/menu/Broadcast/setting/SatelliteSystem/SatelliteAntConnectionType";

template <size_t N>
bool Contains(const int (&list)[N], int value) {
  for (const int entry : list) {
    if (entry == value) return true;
  }
  return false;
}

int StandardOfCountry() {
  const int country = CUtil::GetCountryId();
  if (country == -1) LOG_ERROR("invalid country");
  switch (country) {
    case -1:
      return CUtil::DTV_NONE;
    case kEcuador:
    case kIsdbCountry:
      return CUtil::DTV_ISDB;
    case kAtscCountry:
      return CUtil::DTV_ATSC;
    default:
      return CUtil::DTV_DVB;
  }
}

int StandardOfRegion(int region) {
  if (Contains(kAtscRegions, region)) return CUtil::DTV_ATSC;
  if (Contains(kIsdbRegions, region)) return CUtil::DTV_ISDB;
  if (region >= kFirstByCountry && region <= kLastByCountry) return StandardOfCountry();
  return CUtil::DTV_DVB;
}

/// Type, ID and lock of the current mode's channels.
bool BasicCriteria(TCCriteriaHelper& criteria, TSTvMode& mode, bool pip) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(tvs::Picture(pip), 0);
  if (!navigation) {
    LOG_DEBUG("Create Service Navigation failed.");
    return false;
  }
  if (navigation->GetTvMode(mode) <= 0) {
    LOG_DEBUG("_get_modes_get tv mode failed");
    return false;
  }
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, NAVIGATION_ALL, criteria)) {
    LOG_DEBUG("Get navigation criteria failed");
    return false;
  }
  for (const int column : {COLUMN_CHANNEL_TYPE, COLUMN_SERVICE_ID, COLUMN_LOCKED_MODE}) criteria.Fetch(column);
  return true;
}

/// One question to the recorder about the current channel, and what is said of its answers.
struct RecorderQuestion {
  int (*ask)(unsigned long long, int*);
  const char *noRecord, *noRecorder, *noAnswer, *yes, *no;
};
constexpr RecorderQuestion kRecording = {svc_pvr_is_recording,
                                         "In flagrecording Function : tvs_ch_info is NULL!",
                                         "svc_pvr_service_init return PS_CLIENT_INIT_FAILED!",
                                         "svc_pvr_is_recording return PS_CALL_METHOD_FAILED . ",
                                         "result_recording is RESULT_TRUE . ",
                                         "result_recording is RESULT_FALSE ."};
constexpr RecorderQuestion kTimeShift = {svc_pvr_is_timeshifting,
                                         "In FlagTimeShift Function : tvs_ch_info is NULL!",
                                         "svc_pvr_service_init retturn PS_CLIENT_INIT_FAILED!",
                                         "svc_pvr_is_timeshifting return PS_CALL_METHOD_FAILED . ",
                                         "result_timeshifting is RESULT_TRUE . ",
                                         "result_timeshifting is RESULT_FALSE ."};

bool AskRecorder(const RecorderQuestion& question) {
  tvs_ch_info record;
  if (!CUtil::tv_service_channel_get_info(record, TV_SERVICE_INFO_CURRENT, false)) {
    LOG_DEBUG("%s", question.noRecord);
    return false;
  }
  if (svc_pvr_service_init() != 1) {
    LOG_DEBUG("%s", question.noRecorder);
    return false;
  }
  int result = 0;
  if (question.ask(record.serviceId, &result) == -2) LOG_ERROR("%s", question.noAnswer);
  LOG_DEBUG("%s", result == 1 ? question.yes : question.no);
  svc_pvr_service_destroy();
  return result == 1;
}

bool IsRunning(const char* application) {
  bool running = false;
  return app_manager_is_running(application, &running) == 0 && running;
}

bool ReadFeature(const char* key, bool& value) { return system_info_get_custom_bool(key, &value) == 0; }

}  // namespace

int CUtil::GetCountryId() {
  int country = -1;
  if (system_settings_get_value_int(SYSTEM_SETTINGS_KEY_COUNTRY, &country) == 0) return country;
  LOG_ERROR("system_info_get_value_int(SYSTEM_SETTINGS_KEY_COUNTRY) returned error");
  return -1;
}

int CUtil::GetRegionKind() {
  int region = -1;
  if (system_info_get_value_int(SYSTEM_INFO_KEY_REGION_KIND, &region) != 0) {
    LOG_ERROR("system_info_get_value_int(SYSTEM_INFO_KEY_REGION_KIND) returned error");
    return -1;
  }
  LOG_DEBUG("region kind : %d", region);
  return region;
}

bool CUtil::FlagNordicCountry() {
  const int country = GetCountryId();
  if (Contains(kNordicCountries, country)) {
    LOG_DEBUG("this is nordic country : [%d]", country);
    return true;
  }
  LOG_DEBUG("this is not nordic country : [%d]", country);
  return false;
}

bool CUtil::FlagATSC() {
  const int region = GetRegionKind();
  if (Contains(kAtscRegions, region) || (region == kSouthAmerica && GetCountryId() == kAtscCountry)) {
    LOG_DEBUG("US KR ATSC");
    return true;
  }
  LOG_DEBUG("not ATSC");
  return false;
}

int CUtil::GetDTVStandard() {
  const int region = GetRegionKind();
  if (region == -1) {
    LOG_ERROR("invalid region kind");
    return DTV_NONE;
  }
  const int standard = StandardOfRegion(region);
  LOG_DEBUG("eDTVtype : %d", standard);
  return standard;
}

bool CUtil::IsExceptionRegionForDVB() { return Contains(kDvbExceptions, GetRegionKind()); }

char* CUtil::getreginonkind() {
  char* code = nullptr;
  return system_info_get_value_string(SYSTEM_INFO_KEY_REGION_CODE, &code) == 0 ? code : nullptr;
}

bool CUtil::IsProjector() {
  bool projector = false;
  if (!ReadFeature("com.vantrel/featureconf/projector_feature_support", projector)) LOG_ERROR("system info fails");
  return projector;
}

bool CUtil::IsSmartMonitor() {
  bool monitor = false;
  ReadFeature("com.vantrel/featureconf/product.smart_monitor_feature_support", monitor);
  LOG_DEBUG("IsSmartMonitor Flag[%d]", monitor);
  return monitor;
}

bool CUtil::is_tunerless() {
  bool tuner = true;
  if (!ReadFeature("com.vantrel/featureconf/product.connectivity.rf_tuner_support", tuner) || tuner) return false;
  LOG_ERROR("Tunerless TV, FMS product.connectivity.rf_tuner_support returned false");
  return true;
}

bool CUtil::IsDtvOnly() {
  int digital = 0, analog = 0;
  if (system_info_get_value_int(SYSTEM_INFO_KEY_NUM_OF_DTV, &digital) != 0) {
    LOG_DEBUG(" SYSTEM_INFO_KEY_NUM_OF_DTV is error");
    return false;
  }
  if (system_info_get_value_int(SYSTEM_INFO_KEY_NUM_OF_ATV, &analog) != 0) {
    LOG_DEBUG(" SYSTEM_INFO_KEY_NUM_OF_ATV is error");
    return false;
  }
  if (digital == 0 || analog != 0) return false;
  LOG_DEBUG(" It is DTV only ");
  return true;
}

bool CUtil::IsAtvOnly() {
  int digital = 0, analog = 0;
  if (system_info_get_value_int(SYSTEM_INFO_KEY_NUM_OF_DTV, &digital) != 0) {
    LOG_DEBUG("SYSTEM_INFO_KEY_NUM_OF_DTV is error");
    return false;
  }
  if (system_info_get_value_int(SYSTEM_INFO_KEY_NUM_OF_ATV, &analog) != 0) {
    LOG_DEBUG("SYSTEM_INFO_KEY_NUM_OF_ATV is error");
    return false;
  }
  if (digital != 0 || analog == 0) return false;
  LOG_DEBUG("It is ATV only ");
  return true;
}

bool CUtil::FlagVisibleSatCRTwoTuner() {
  int tuners = 0, dual = 0;
  const int result = system_info_get_value_int(SYSTEM_INFO_KEY_NUM_OF_TUNER, &tuners);
  if (result != 0) {
    LOG_ERROR("system_info_get_value_int is fail, ret[%d] NumOfTuner[%d]", result, tuners);
    return false;
  }
  LOG_DEBUG("NumOfTuner[%d]", tuners);
  if (tuners <= 1) return false;
  if (vconf_get_bool(kDualAntennaKey, &dual) != 0) {
    LOG_ERROR("vconf_get_bool( KEY_ANTENNA_CONNECTION_TYPE, &bIsAntennaTypeDual ) failed");
    return false;
  }
  LOG_DEBUG("bIsAntennaTypeDual[%d]", dual);
  if (!dual) {
    LOG_DEBUG("nIsAntennaTypeDual == false ");
    return false;
  }
  LOG_DEBUG("visible sacr 2 tuner");
  return true;
}

bool CUtil::checkplaying() {
  if (IsRunning("org.nyxel.pvrplayer")) {
    LOG_DEBUG("org.nyxel.pvrplayer is running!");
    return true;
  }
  LOG_DEBUG("org.nyxel.pvrplayer is not running, check org.nyxel.pvrrecorder!");
  if (IsRunning("org.nyxel.pvrrecorder")) {
    LOG_DEBUG("org.nyxel.pvrrecorder is running!");
    return true;
  }
  LOG_DEBUG("org.nyxel.pvrrecorder is not running!");
  return false;
}

bool CUtil::flagrecording() { return AskRecorder(kRecording); }

bool CUtil::flagtimeshift() { return AskRecorder(kTimeShift); }

bool CUtil::is_timeshift_running() {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!navigation) {
    LOG_DEBUG("unexpected condition: serviceNavigation == nullptr");
    return false;
  }
  TCCriteriaHelper criteria;
  criteria.Fetch(COLUMN_SERVICE_ID);
  TCServiceData data;
  if (navigation->GetCurrentServiceInfo(TSTvMode(), criteria, data) <= 0) {
    LOG_DEBUG("serviceNavigation->GetCurrentServiceInfo() failed.");
    return false;
  }
  const long long* id = data.Find(COLUMN_SERVICE_ID);
  if (!id || *id == 0) {
    LOG_DEBUG("unexpected condition: serviceId == 0");
    return false;
  }
  int result = 0;
  if (svc_pvr_is_timeshifting(static_cast<unsigned long long>(*id), &result) < 0) {
    LOG_DEBUG("svc_pvr_is_timeshifting() failed.");
  }
  return result != 0;
}

int CUtil::check_source_tv() {
  LOG_DEBUG("In Function check_source_tv.");
  CTVSApiWrapper api;
  ISourceControl* control = api.CreateSourceControl(PROFILE_MAIN, 0);
  int source = -1;
  if (control) control->GetSource(source);
  if (source == SOURCE_TYPE_TV) {
    LOG_DEBUG("Current Source Type is SOURCE_TYPE_TV.");
  } else {
    LOG_DEBUG("Current Source Type is not SOURCE_TYPE_TV.");
  }
  LOG_INFO("current source:%d ", source);
  return source;
}

bool CUtil::flagexternalsource() {
  if (check_source_tv() == SOURCE_TYPE_TV) return false;
  LOG_DEBUG("Current Source Type is EXTERNALSOURCE.");
  return true;
}

bool CUtil::dtv_check() {
  tvs_ch_info record;
  const bool digital = tv_service_channel_get_info(record, TV_SERVICE_INFO_CURRENT, false) &&
                       !get_analog_flag(record) && get_digital_flag(record);
  if (digital) LOG_DEBUG("Current Channel is DTV mode.");
  return digital;
}

bool CUtil::tv_service_channel_get_info(tvs_ch_info& record, _tv_service_info, bool pip) {
  LOG_DEBUG("");
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (!BasicCriteria(criteria, mode, pip)) return false;
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(tvs::Picture(pip), 0);
  TCServiceData data;
  if (!navigation || navigation->GetCurrentServiceInfo(mode, criteria, data) < 1) {
    LOG_DEBUG("get current service info failed");
    return false;
  }
  tvs::FillBasics(record, data);
  return true;
}

bool CUtil::get_analog_flag(tvs_ch_info& record) { return record.analog; }

bool CUtil::get_digital_flag(tvs_ch_info& record) { return record.digital; }

bool CUtil::get_lockedmodeoff_flag(tvs_ch_info& record) { return record.lockedModeOff; }

void CUtil::TransStrExceptLF(unsigned short* text) {
  if (!text) {
    LOG_DEBUG("srv Is NUll");
    return;
  }
  unsigned short* to = text;
  for (const unsigned short* from = text; *from; ++from) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(from);
    const bool lineBreak = bytes[0] == 0 && (bytes[1] == '\n' || bytes[1] == '\r');
    if (!lineBreak) *to++ = *from;
  }
  *to = 0;
}

void CUtil::FlushCache() {
  CTvsUtil::FlushCache();
  // Sound settings keep nothing.
  LOG_DEBUG("Cache is not enabled");
}
