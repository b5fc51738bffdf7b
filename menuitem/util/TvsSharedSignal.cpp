#include <climits>
#include <cstdlib>
#include <cstring>

#include "Log.h"
#include "TvsShared.h"
#include "util.h"

namespace tvs {

namespace {

constexpr int kCountry = 1, kSetTune = 94;
constexpr int kAtscCountries[] = {0, 2, 87};
constexpr int kIsdbCountries[] = {34, 64, 65, 67, 69, 71, 72, 74, 80, 85};

template <size_t N>
bool Contains(const int (&list)[N], int value) {
  for (const int entry : list) {
    if (entry == value) return true;
  }
  return false;
}

CTvsUtil::SIGNAL_INFO_TYPE IsdbType(tvs_ch_info* (*read)(), void (*release)(tvs_ch_info*)) {
  tvs_ch_info* record = read();
  const bool plain =
      record && (record->channelType == CHANNEL_ANALOG_AIR || record->channelType == CHANNEL_DIGITAL_AIR);
  release(record);
  return plain ? CTvsUtil::SIGNAL_INFO_ISDB : CTvsUtil::SIGNAL_INFO_ISDB_DIGITAL;
}

CTvsUtil::SIGNAL_INFO_TYPE DvbType(bool setTune) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  TSTvMode mode;
  if (!navigation) {
    LOG_DEBUG("return SIGNAL_INFO_DVB_BASIC");
    return CTvsUtil::SIGNAL_INFO_DVB_BASIC;
  }
  navigation->GetTvMode(mode);
  if (mode.antennaMode == ANTENNA_SATELLITE) {
    LOG_DEBUG("antennaMode = %d", mode.antennaMode);
    return CTvsUtil::SIGNAL_INFO_DVB_SQI;
  }
  if (setTune) {
    LOG_DEBUG("return SIGNAL_INFO_DVB_SET_TUNE");
    return CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE;
  }
  if (!CUtil::FlagNordicCountry()) return CTvsUtil::SIGNAL_INFO_DVB_BASIC;
  LOG_DEBUG("return SIGNAL_INFO_DVB_SQI");
  return CTvsUtil::SIGNAL_INFO_DVB_SQI;
}

/// Tunes to the first stored service of the place; false when there is none.
bool TuneStored(IService& service, const Retuning& how, EBandwidth band, int freq, int& result) {
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_BANDWIDTH, static_cast<unsigned long long>(band));
  criteria.Where(COLUMN_FREQUENCY, static_cast<unsigned long long>(freq));
  criteria.Fetch(COLUMN_SERVICE_ID);
  std::unique_ptr<TCServiceList> list;
  if (service.FindServiceList(criteria, list) <= 0) {
    LOG_ERROR("FindServiceList fails");
    return false;
  }
  LOG_DEBUG("FindServiceList success");
  while (const TCServiceData* data = list->Next()) {
    const long long* id = data->Find(COLUMN_SERVICE_ID);
    if (!id || *id == 0) continue;
    LOG_DEBUG("found service ID : %lld", *id);
    result = how.setService(static_cast<unsigned long long>(*id), false);
    if (result != 0) LOG_ERROR("SetService Fails");
    return true;
  }
  return false;
}

/// Moves the current channel itself.
int MoveCurrent(IService& service, IServiceNavigation& navigation, TCServiceData& data, EBandwidth band, int freq) {
  data.Set(COLUMN_FREQUENCY, freq);
  data.Set(COLUMN_BANDWIDTH, band);
  if (service.UpdateService(data) != 1) {
    LOG_ERROR("UpdateService fails");
    return -1;
  }
  const long long* id = data.Find(COLUMN_SERVICE_ID);
  if (navigation.SetServiceWithoutChangingServiceInfo(id ? static_cast<unsigned long long>(*id) : ~0ULL) != 1) {
    LOG_ERROR("SetServiceWithoutChangingServiceInfo fails");
    return -1;
  }
  return 0;
}

bool SamePlace(const TCServiceData& data, bool frequencyOnly, EBandwidth band, int freq) {
  const long long* frequency = data.Find(COLUMN_FREQUENCY);
  const long long* bandwidth = data.Find(COLUMN_BANDWIDTH);
  const int currentFrequency = frequency ? static_cast<int>(*frequency) : -1;
  const int currentBand = bandwidth ? static_cast<int>(*bandwidth) : -1;
  LOG_DEBUG("curr FREQ : %d, curr BAND : %d", currentFrequency, currentBand);
  if (currentFrequency != freq) return false;
  if (frequencyOnly) {
    LOG_DEBUG("same freq. nothing to do.");
    return true;
  }
  if (currentBand != band) return false;
  LOG_DEBUG("same freq and band. nothing to do.");
  return true;
}

}  // namespace

bool ReadSignalKind(ESignalKind& kind) {
  CTVSApiWrapper api;
  ITunerControl* tuner = api.CreateTunerControl(CTvsUtil::GetCurrentProfile(), 0);
  if (!tuner) {
    LOG_ERROR("Create tuner control failed");
    return false;
  }
  if (tuner->GetSignalKind(kind) > 0) return true;
  LOG_ERROR("GetSignalKind fails");
  return false;
}

int ReadStrength() {
  CTVSApiWrapper api;
  ITunerControl* tuner = api.CreateTunerControl(CTvsUtil::GetCurrentProfile(), 0);
  unsigned char strength = 0;
  if (!tuner) {
    LOG_ERROR("Create tuner control failed");
  } else if (tuner->GetSignalStrength(0, strength) <= 0) {
    LOG_ERROR("GetSignalStrength fails");
  }
  return strength;
}

int ReadQuality() {
  CTVSApiWrapper api;
  ITunerControl* tuner = api.CreateTunerControl(CTvsUtil::GetCurrentProfile(), 0);
  unsigned char quality = 0;
  if (!tuner) {
    LOG_ERROR("Create tuner control failed");
  } else if (tuner->GetSignalQuality(quality) <= 0) {
    LOG_ERROR("GetSignalQuality fails");
  }
  return quality;
}

CTvsUtil::SIGNAL_INFO_TYPE InfoType(tvs_ch_info* (*record)(), void (*release)(tvs_ch_info*)) {
  CTVSApiWrapper api;
  ISOSpecApp* model = api.CreateSOSpecApp(PROFILE_MAIN, 0);
  int setTune = 0, country = 0;
  const bool setTuneRead = model && model->GetSpec(kSetTune, setTune);
  const bool countryRead = model && model->GetSpec(kCountry, country);
  LOG_DEBUG("so spec %d %d / %d %d", setTuneRead, setTune != 0, countryRead, country);
  if (countryRead && Contains(kAtscCountries, country)) {
    LOG_DEBUG("eCountry = %d", country);
    return CTvsUtil::SIGNAL_INFO_ATSC;
  }
  if (countryRead && Contains(kIsdbCountries, country)) {
    LOG_DEBUG("eCountry = %d", country);
    return IsdbType(record, release);
  }
  return DvbType(setTuneRead && setTune != 0);
}

int BandWidthFromText(const char* text) {
  constexpr const char* kTexts[] = {"5 MHz", "6 MHz", "7 MHz", "8 MHz", "10 MHz", "712 MHz"};
  int code = 0;
  for (const char* known : kTexts) {
    if (text && std::strcmp(text, known) == 0) return code;
    ++code;
  }
  return BANDWIDTH_UNKNOWN;
}

int StepFrequency(int value, MenuKeyDirection direction) {
  if (direction == MENU_KEY_UP && value != CTvsUtil::kHighestFrequency && value != INT_MAX) return value + 1;
  if (direction == MENU_KEY_DOWN && value != CTvsUtil::kLowestFrequency && value != INT_MIN) return value - 1;
  return value;
}

int StepBandWidth(int value, MenuKeyDirection direction, bool nordic) {
  if (direction != MENU_KEY_UP && direction != MENU_KEY_DOWN) return value;
  // A channel may have been stored with any number for its bandwidth.
  if (value < BANDWIDTH_5 || value > BANDWIDTH_712) value = BANDWIDTH_UNKNOWN;
  if (!nordic) return (value + (direction == MENU_KEY_UP ? 1 : 5)) % 6;
  if (value == BANDWIDTH_7) return BANDWIDTH_8;
  if (value == BANDWIDTH_8) return BANDWIDTH_7;
  return direction == MENU_KEY_UP ? BANDWIDTH_UNKNOWN : value;
}

bool AcceptsBandWidth(int code, bool nordic) {
  return code != BANDWIDTH_UNKNOWN && (!nordic || code == BANDWIDTH_7 || code == BANDWIDTH_8);
}

int Retune(const Retuning& how, EBandwidth band, int freq) {
  constexpr int kNothingDone = 1;
  LOG_INFO("band : %d, freq : %d", band, freq);
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (how.criteria(criteria, &mode, false) != 0) {
    LOG_ERROR("m_GetCriteria fails");
    return kNothingDone;
  }
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  IService* service = how.atOnce ? api.CreateService() : nullptr;
  if (how.atOnce && (!navigation || !service)) {
    LOG_ERROR("Failed to create API, serviceNavi(%p), serviceMgr(%p)", static_cast<void*>(navigation),
              static_cast<void*>(service));
    return kNothingDone;
  }
  if (!navigation) {
    LOG_DEBUG("Create Service Navigation failed.");
    return kNothingDone;
  }
  TCServiceData data;
  if (navigation->GetCurrentServiceInfo(mode, criteria, data) < 1) {
    LOG_ERROR("get current service info failed");
    return kNothingDone;
  }
  if (SamePlace(data, how.atOnce, band, freq)) return kNothingDone;
  if (!service) service = api.CreateService();
  if (!service) {
    LOG_ERROR("TVServiceAPI::CreateService Failed!");
    return kNothingDone;
  }
  int result = 0;
  if (TuneStored(*service, how, band, freq, result)) return result;
  return MoveCurrent(*service, *navigation, data, band, freq);
}

}  // namespace tvs
