#include "FineTuneUtil.h"

#include <cstdlib>

#include "Log.h"
#include "Utils.h"
#include "vconf.h"

namespace {

enum { FINE_TUNE_TYPE_MFT = 1, FINE_TUNE_TYPE_RESET = 6 };

/// An offset is stored as the byte this much higher.
constexpr int kZero = 32;
constexpr int kMissing = 255 - kZero;
constexpr int kLastFavourite = 6;

constexpr int kFetched[] = {COLUMN_SERVICE_ID,     COLUMN_MAJOR,          COLUMN_MINOR,
                            COLUMN_CHANNEL_TYPE,   COLUMN_FINE_TUNE_TYPE, COLUMN_FINE_TUNE_OFFSET,
                            COLUMN_SERVICE_PROFILE};

/// The service that was loaded last.
TCServiceData g_svc_info;

unsigned char ByteOf(int offset) { return static_cast<unsigned char>(static_cast<unsigned int>(offset) + kZero); }

long long ValueOr(const TCServiceData& data, int column, long long missing) {
  const long long* value = data.Find(column);
  return value ? *value : missing;
}

/// Of each antenna: where its selected list stands, and the labels of its digital and other channels.
struct Band {
  EAntennaMode antenna;
  const char* listKey;
  int digital;
  const char* digitalLabel;
  const char* label;
};

constexpr Band kBands[] = {
    {ANTENNA_AIR, "db/menu/channel_list/air_mode", CHANNEL_DIGITAL_AIR, "SID_DTV_AIR_KR_17_ABBR_TUNING",
     "SID_AIR_KR_17"},
    {ANTENNA_CABLE, "db/menu/channel_list/cable_mode", CHANNEL_DIGITAL_CABLE, "COM_SID_DTV_CABLE_KR_17_ABBR_TUNING",
     "SID_CABLE_KR_17"},
};

const Band* BandOf(const TSTvMode& mode) {
  for (const Band& band : kBands) {
    if (band.antenna == mode.antennaMode) return &band;
  }
  return nullptr;
}

ENavigationMode NavigationOf(const TSTvMode& mode) {
  const Band* band = BandOf(mode);
  if (!band) {
    LOG_DEBUG("Get navi model[NAVIGATION_MODE_ALL].");
    return NAVIGATION_ALL;
  }
  int list = 0;
  const int result = vconf_get_int(band->listKey, &list);
  if (result == 0 && list >= 1 && list <= kLastFavourite) {
    LOG_DEBUG("Get navi model[NAVIGATION_MODE_FAVORITES].");
    return NAVIGATION_FAVOURITE;
  }
  LOG_ERROR("get navigation favorite mode failed,ret value %d", result);
  return NAVIGATION_ALL;
}

/// Null without one; the wrapper owns it.
ITunerControl* TunerOf(CTVSApiWrapper& wrapper) {
  ITunerControl* tuner = wrapper.CreateTunerControl(PROFILE_MAIN, 0);
  if (!tuner) LOG_ERROR("Interface creation failed!");
  return tuner;
}

}  // namespace

// --- the channel ---------------------------------------------------------------------------------

int FineTuneUtil::GetFineTuneModes(TSTvMode& mode, ENavigationMode& navigation) {
  LOG_DEBUG("Get model.");
  CTVSApiWrapper wrapper;
  IServiceNavigation* service = wrapper.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!service) {
    LOG_ERROR("Create Service Navigation failed");
    return -1;
  }
  const int result = service->GetTvMode(mode);
  if (result < 1) {
    LOG_ERROR("get tv mode failed,ret value %d", result);
    return -1;
  }
  LOG_DEBUG("Get model : %d.", mode.antennaMode);
  navigation = NavigationOf(mode);
  return 1;
}

int FineTuneUtil::GetFinetuneCriteria(TCCriteriaHelper& criteria, TSTvMode& mode) {
  ENavigationMode navigation = NAVIGATION_ALL;
  if (GetFineTuneModes(mode, navigation) != 1) {
    LOG_ERROR("get tv mode failed");
    return -1;
  }
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, navigation, criteria, ~0ULL, ~0ULL)) {
    LOG_ERROR("Get navigation criteria failed");
    return -1;
  }
  for (const int column : kFetched) criteria.Fetch(column);
  return 0;
}

tvs_channel_info* FineTuneUtil::TvServiceChannelGetInfo() {
  CTVSApiWrapper wrapper;
  IServiceNavigation* service = wrapper.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!service) {
    LOG_ERROR("Create Service Navigation failed");
    return nullptr;
  }
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (GetFinetuneCriteria(criteria, mode) != 0 || service->GetCurrentServiceInfo(mode, criteria, g_svc_info) < 1) {
    LOG_ERROR("get current service info failed");
    return nullptr;
  }
  auto* info = static_cast<tvs_channel_info*>(calloc(1, sizeof(tvs_channel_info)));
  if (info) GetFineTuneChannelInfo(info, g_svc_info);
  return info;
}

void FineTuneUtil::GetFineTuneChannelInfo(tvs_channel_info* info, TCServiceData& data) {
  const auto type = static_cast<int>(ValueOr(data, COLUMN_CHANNEL_TYPE, -1));
  CTVSApiWrapper wrapper;
  IServiceNavigation* service = wrapper.CreateServiceNavigation(PROFILE_MAIN, 0);
  TSTvMode mode;
  const int result = service ? service->GetTvMode(mode) : 0;
  if (result < 1) {
    LOG_ERROR("get tv mode failed,ret value %d", result);
    return;
  }
  if (const Band* band = BandOf(mode)) {
    static std::string label;
    label = Utils::GetTranslationStr(type == band->digital ? band->digitalLabel : band->label);
    info->bandLabel = label.c_str();
    info->channelType = static_cast<unsigned short>(type);
  }
  info->major = static_cast<short>(ValueOr(data, COLUMN_MAJOR, -1));
  info->minor = static_cast<short>(ValueOr(data, COLUMN_MINOR, -1));
  if (info->minor == 0) info->minor = -1;
}

// --- stored with the channel ---------------------------------------------------------------------

int FineTuneUtil::GetFinetuneType() { return static_cast<int>(ValueOr(g_svc_info, COLUMN_FINE_TUNE_TYPE, -1)); }

void FineTuneUtil::m_UpdateService() {
  CTVSApiWrapper wrapper;
  IService* service = wrapper.CreateService();
  if (!service) {
    LOG_ERROR("Interface creation failed!");
    return;
  }
  if (service->UpdateService(g_svc_info) == 1) {
    LOG_DEBUG("Update Service Successful");
  } else {
    LOG_DEBUG("Update Service Failed");
  }
}

void FineTuneUtil::m_SetType(int type) {
  g_svc_info.Set(COLUMN_FINE_TUNE_TYPE, type);
  LOG_DEBUG("TCServiceId is %llu", static_cast<unsigned long long>(ValueOr(g_svc_info, COLUMN_SERVICE_ID, -1)));
  m_UpdateService();
}

void FineTuneUtil::SetFineTuneType() {
  LOG_DEBUG("Set MFT Type FINE_TUNE_TYPE_MFT");
  m_SetType(FINE_TUNE_TYPE_MFT);
}

void FineTuneUtil::ResetFinetuneType() {
  LOG_DEBUG("reSet MFT Type FINE_TUNE_TYPE_RESET");
  m_SetType(FINE_TUNE_TYPE_RESET);
}

int FineTuneUtil::GetFinetuneFreq() {
  const long long* stored = g_svc_info.Find(COLUMN_FINE_TUNE_OFFSET);
  return stored ? static_cast<unsigned char>(*stored) - kZero : kMissing;
}

void FineTuneUtil::SetFinetuneFreq(int offset) {
  const unsigned char byte = ByteOf(offset);
  g_svc_info.Set(COLUMN_FINE_TUNE_OFFSET, byte);
  LOG_DEBUG("Set MFT Frequency %c[%d]", byte, byte);
  m_UpdateService();
}

// --- on the tuner --------------------------------------------------------------------------------

int FineTuneUtil::GetTunerMft() {
  CTVSApiWrapper wrapper;
  ITunerControl* tuner = TunerOf(wrapper);
  if (!tuner) return -1;
  unsigned char byte = 0;
  if (tuner->GetMFT(byte) < 1) {
    LOG_DEBUG("GET TUNER MFT VALUE Error,Using 0");
    return 0;
  }
  const int offset = byte - kZero;
  LOG_DEBUG("GET TUNER MFT VALUE is %d", offset);
  return offset;
}

void FineTuneUtil::PresetTunerMft(int offset) {
  CTVSApiWrapper wrapper;
  ITunerControl* tuner = TunerOf(wrapper);
  if (!tuner) return;
  const unsigned char byte = ByteOf(offset);
  LOG_DEBUG("pre Set Tuner MFT %c[%d]", byte, byte);
  LOG_DEBUG("%s", tuner->PresetMFT(byte) >= 1 ? "Pre Set Tuner MFT Succ." : "Pre Set Tuner MFT Error.");
}

void FineTuneUtil::SetTunerMft() {
  CTVSApiWrapper wrapper;
  ITunerControl* tuner = TunerOf(wrapper);
  if (tuner) LOG_DEBUG("%s", tuner->SetMFT() >= 1 ? "Set Tuner MFT Succ." : "Set Tuner MFT Error.");
}

void FineTuneUtil::ResetTurnerMft() {
  CTVSApiWrapper wrapper;
  ITunerControl* tuner = TunerOf(wrapper);
  if (tuner) LOG_DEBUG("%s", tuner->ResetMFT() >= 1 ? "reset tuner mft Succ." : "reset tuner mft Error.");
}

int FineTuneUtil::CheckIfInitialFinetuned() {
  return GetFinetuneType() == FINE_TUNE_TYPE_MFT && GetFinetuneFreq() == GetTunerMft() ? 1 : 0;
}
