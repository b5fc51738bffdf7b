#include "AntennaUtil.h"

#include <cstdio>
#include <cstdlib>

#include "AntennaTable.h"
#include "Log.h"
#include "TvsUtil.h"
#include "util.h"

namespace {

constexpr int kTextSize = 512;
constexpr const char* kIptvFeature = "com.vantrel/featureconf/product.num_of_iptv_cip";
constexpr const char* kCiFeature = "com.vantrel/featureconf/product.num_of_ci";
constexpr const char* kSpecialNameFeature = "com.vantrel/featureconf/broadcast.quirelle.antenna_name_special_sid";

/// Types with a name of their own making.
constexpr int kTelesat = 7, kSpecialAir = 47, kSpecialDigitalAir = 48;
/// Operator profiles are told by their service mode.
constexpr int kFirstProfileMode = 19;

struct Range {
  int first, last;
};
/// Types whose satellites the user may choose.
constexpr Range kSelectable[] = {{0, 3}, {12, 12}, {22, 23}, {32, 33}, {46, 1000}};

const AntennaRow* Row(int type) { return type >= 0 && type < kAntennaTypes ? &kAntennaTable[type] : nullptr; }

int ProfileOf(int type) {
  const AntennaRow* row = Row(type);
  return row && row->support == kProfile ? row->number : 0;
}

const char* TelesatName(int country) {
  if (country == 14) return "TV_SID_NON_CANALDIGITAAL";
  return country == 42 ? "TV_SID_NON_TV_VLAANDEREN" : "TV_SID_NON_TELESAT";
}

/// Null when the feature cannot be read.
const char* SpecialName(bool digital) {
  bool special = false;
  if (system_info_get_custom_bool(kSpecialNameFeature, &special) != 0) {
    LOG_ERROR("system_info_get_custom_bool() fail");
    return nullptr;
  }
  const int country = special ? CUtil::GetCountryId() : 0;
  if (!special || country == 7 || country == 23) return "SID_ATV";
  return digital ? "SID_DTV_AIR_KR_17_ABBR_TUNING" : "SID_AIR_KR_17";
}

const char* FixedName(int type) {
  const AntennaRow* row = Row(type);
  if (row && row->name) return row->name;
  LOG_DEBUG("UNKNOWN");
  return "UNKNOWN";
}

CAntennaUtil::EMenuAntennaType SatelliteType(int serviceMode) {
  for (const AntennaRow& row : kAntennaTable) {
    const bool listed = row.antennaMode == ANTENNA_SATELLITE && row.type < CAntennaUtil::kListed;
    if (listed && row.serviceMode == serviceMode) return static_cast<CAntennaUtil::EMenuAntennaType>(row.type);
  }
  return CAntennaUtil::MENU_ANTENNA_SATELLITE;
}

CAntennaUtil::EMenuAntennaType TypeOf(const TSTvMode& mode) {
  if (mode.serviceMode == kFirstProfileMode) return CAntennaUtil::MENU_ANTENNA_CI_OP1;
  if (mode.serviceMode == kFirstProfileMode + 1) return CAntennaUtil::MENU_ANTENNA_CI_OP2;
  switch (mode.antennaMode) {
    case ANTENNA_AIR:
      return CAntennaUtil::MENU_ANTENNA_AIR;
    case ANTENNA_CABLE:
      return CAntennaUtil::MENU_ANTENNA_CABLE;
    case ANTENNA_SATELLITE:
      return SatelliteType(mode.serviceMode);
    default:
      LOG_DEBUG("INVALID antennaMode. mode.antennaMode[%d] mode.serviceMode[%d]", mode.antennaMode, mode.serviceMode);
      return CAntennaUtil::MENU_ANTENNA_UNKNOWN;
  }
}

int SetMode(CAntennaUtil::EMenuAntennaType type, EProfile profile) {
  LOG_DEBUG("antennaMode : %d", type);
  CUtil::FlushCache();
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(profile, 0);
  if (!navigation) {
    LOG_ERROR("Create Service Navigation failed");
    return -1;
  }
  if (navigation->SetTvMode(CAntennaUtil::GetTVModeByMenuAntennaType(type)) > 0) return 0;
  LOG_ERROR("Set TV Mode failed");
  return -1;
}

/// Whether a profile lists satellite channels; 1, 0, or -1 for one that is not installed.
int ProfileIsSatellite(int profile) {
  std::list<CA_API::COperatorProfileData> profiles;
  CAntennaUtil::GetInstalledOperatorProfiles(profiles);
  for (const auto& data : profiles) {
    if (data.mode.serviceMode == kFirstProfileMode + profile - 1) return data.mode.antennaMode == ANTENNA_SATELLITE;
  }
  return -1;
}

/// The installed profile 1 or 2, with the messages of whoever asks for it.
bool FindProfile(int op, CA_API::COperatorProfileData& found) {
  if (CAntennaUtil::GetNumberOfCI() == 0) {
    LOG_DEBUG("Number of CI is 0");
    return false;
  }
  std::list<CA_API::COperatorProfileData> profiles;
  if (CAntennaUtil::GetInstalledOperatorProfiles(profiles) != 0) return false;
  for (const auto& data : profiles) {
    if (data.mode.serviceMode != kFirstProfileMode + op - 1) continue;
    LOG_DEBUG("antennaMode[%d] serviceMode[%d] slot[%d]", data.mode.antennaMode, data.mode.serviceMode, data.slot);
    found = data;
    return true;
  }
  LOG_DEBUG("CI OP %d is not installed", op);
  return false;
}

/// Counts the channels of a type; false when they cannot be counted.
bool CountChannels(CAntennaUtil::EMenuAntennaType type, EProfile profile, bool digital, int& count) {
  CTVSApiWrapper api;
  if (!api.CreateServiceNavigation(profile, 0)) {
    LOG_ERROR("Interface creation failed!");
    return false;
  }
  const TSTvMode mode = CAntennaUtil::GetTVModeByMenuAntennaType(type);
  LOG_DEBUG("service mode : %d, antenna mode : %d", mode.serviceMode, mode.antennaMode);
  if (mode.antennaMode == ANTENNA_NONE && mode.serviceMode == SERVICE_MODE_NONE) {
    LOG_DEBUG("Not Support");
    return false;
  }
  TCCriteriaHelper criteria;
  const bool built = TCNavigationModeHelper::GetNavigationCriteria(mode, NAVIGATION_ALL, criteria);
  criteria.Fetch(COLUMN_SERVICE_ID);
  criteria.Fetch(COLUMN_CHANNEL_TYPE);
  if (digital) criteria.Where(COLUMN_DIGITAL, 1);
  IService* service = api.CreateService();
  if (built && service && service->GetServiceCount(criteria, count) > 0) return true;
  LOG_ERROR("GetServiceCount fails");
  return false;
}

}  // namespace

int CAntennaUtil::GetAntennaMode(EMenuAntennaType* out, EProfile profile) {
  if (!out) {
    LOG_DEBUG("Invalid variable");
    return -1;
  }
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(profile, 0);
  if (!navigation) {
    LOG_ERROR("Create Service Navigation failed");
    return -1;
  }
  TSTvMode mode;
  if (navigation->GetTvMode(mode) <= 0) {
    LOG_ERROR("Get TV Mode failed");
    return -1;
  }
  LOG_DEBUG("antennaMode : %d, serviceMode : %d", mode.antennaMode, mode.serviceMode);
  *out = TypeOf(mode);
  LOG_DEBUG("antennaMode = %d", *out);
  return 0;
}

TSTvMode CAntennaUtil::GetTVModeByMenuAntennaType(EMenuAntennaType type) {
  LOG_DEBUG("antennaMode : %d", type);
  TSTvMode mode;
  const AntennaRow* row = Row(type);
  if (const int op = ProfileOf(type)) {
    char name[kTextSize] = "";
    if (GetCIOPInfo(op, mode, name) != 0) LOG_ERROR("CI OP %d IS NOT AVAILABLE", op);
  } else if (row && row->antennaMode != ANTENNA_NONE) {
    mode = TSTvMode(static_cast<EAntennaMode>(row->antennaMode), static_cast<EServiceMode>(row->serviceMode));
  } else {
    LOG_DEBUG("IMPOSSIBLE mode : %d", type);
  }
  LOG_DEBUG("service mode : %d / antenna mode : %d", mode.serviceMode, mode.antennaMode);
  return mode;
}

void CAntennaUtil::GetAntennaName(EMenuAntennaType type, char* buf) {
  if (!buf) {
    LOG_INFO("NULL pointer");
    return;
  }
  if (const int op = ProfileOf(type)) {
    TSTvMode mode;
    GetCIOPInfo(op, mode, buf);
    return;
  }
  const bool special = type == kSpecialAir || type == kSpecialDigitalAir;
  const char* name = type == kTelesat ? TelesatName(CUtil::GetCountryId())
                     : special        ? SpecialName(type == kSpecialDigitalAir)
                                      : FixedName(type);
  if (name) snprintf(buf, kTextSize, "%s", name);
}

bool CAntennaUtil::GetCurrentAntennaName(char* buf) {
  EMenuAntennaType type;
  if (GetAntennaMode(&type, PROFILE_MAIN) != 0) {
    LOG_ERROR("GetAntennaMode fails");
    return false;
  }
  GetAntennaName(type, buf);
  return true;
}

_item** CAntennaUtil::GetAntennaList(int* count) {
  LOG_DEBUG("size %d", kListed);
  if (!count) return nullptr;
  *count = kListed;
  auto** list = static_cast<_item**>(calloc(kListed, sizeof(void*)));
  for (int i = 0; i < kListed; ++i) {
    list[i] = static_cast<_item*>(calloc(1, sizeof(_item)));
    list[i]->value = i;
    list[i]->name = static_cast<char*>(calloc(_item::kNameSize, 1));
    GetAntennaName(static_cast<EMenuAntennaType>(i), list[i]->name);
    LOG_DEBUG("name : %s, value : %d", list[i]->name, i);
  }
  return list;
}

int CAntennaUtil::SetAntennaMode(EMenuAntennaType type, EProfile profile) { return SetMode(type, profile); }

int CAntennaUtil::SetPIPAntennaMode(EMenuAntennaType type, EProfile profile) { return SetMode(type, profile); }

int CAntennaUtil::SetAvailableAntennaModeForPIP() {
  if (CUtil::GetDTVStandard() != CUtil::DTV_DVB || CUtil::IsExceptionRegionForDVB()) {
    LOG_DEBUG("no need to change antenna in this region");
    return 0;
  }
  EMenuAntennaType current;
  if (GetAntennaMode(&current, PROFILE_PIP) != 0) {
    LOG_ERROR("GetAntennaMode fails");
    return -1;
  }
  if (FlagExistChannel(current, PROFILE_PIP)) {
    LOG_DEBUG("current antenna is available");
    return 0;
  }
  for (int i = 0; i < kListed; ++i) {
    const auto type = static_cast<EMenuAntennaType>(i);
    if (!FlagSupportAntennaMode(type) || !FlagExistChannel(type, PROFILE_PIP)) continue;
    if (SetPIPAntennaMode(type, PROFILE_PIP) == 0) {
      LOG_DEBUG("antenna was set");
      return 0;
    }
    LOG_ERROR("antenna set fails");
    return -1;
  }
  return -1;
}

bool CAntennaUtil::FlagSupportAntennaMode(EMenuAntennaType type) {
  const AntennaRow* row = Row(type);
  switch (row ? row->support : kNever) {
    case kTuner:
      return FlagSupportTunerType(static_cast<system_info_tuner_kind_e>(row->number));
    case kBroadcaster:
      return FlagSupportBroadcaster(static_cast<EBroadCaster>(row->number), -1);
    case kProfile: {
      EAntennaMode antenna;
      return FlagInstalledCIOP(row->number, &antenna);
    }
    case kIptv: {
      int slots = 0;
      return system_info_get_custom_int(kIptvFeature, &slots) == 0 && slots > 0;
    }
    default:
      LOG_DEBUG("TODO : IMPLEMENT SATELLITES");
      return false;
  }
}

bool CAntennaUtil::FlagSupportTunerType(system_info_tuner_kind_e kind) {
  if (CUtil::is_tunerless()) {
    LOG_ERROR("Tunerless model");
    return false;
  }
  int supported = 0;
  if (system_info_get_value_int(SYSTEM_INFO_KEY_TUNER_KIND, &supported) != 0) {
    LOG_ERROR("system_info_get_value_int fails");
    return false;
  }
  LOG_DEBUG("supportTunerType : %d ", supported);
  return (supported & kind) != 0;
}

bool CAntennaUtil::FlagSupportBroadcaster(EBroadCaster broadcaster, int country) {
  LOG_DEBUG("broadCaster : %d", broadcaster);
  if (!FlagSupportTunerType(SYSTEM_INFO_TUNER_SATELLITE)) {
    LOG_DEBUG("not support satellite");
    return false;
  }
  CTVSApiWrapper api;
  ISOSpecControl* control = api.CreateSOSpecControl();
  if (!control) {
    LOG_ERROR("CreateSOSpecControl fails");
    return false;
  }
  LOG_INFO("Current Country default value is -1(invalid),it is used by Initial Setup : %d ", country);
  bool supported = false;
  if (control->CheckBroadcasterSupported(country, broadcaster, supported) <= 0) {
    LOG_ERROR("CheckBroadcasterSupported fails %d", broadcaster);
    return false;
  }
  if (supported) {
    LOG_INFO("%d supports", broadcaster);
  } else {
    LOG_DEBUG("%d  is not supported", broadcaster);
  }
  return supported;
}

bool CAntennaUtil::CheckCurrentBroadcaster(EBroadCaster broadcaster) {
  CTVSApiWrapper api;
  ISOSpecControl* control = api.CreateSOSpecControl();
  if (!control) {
    LOG_ERROR("CreateSOSpecControl fails");
    return false;
  }
  EBroadCaster current;
  return control->GetCurrentBroadcaster(current) > 0 && current == broadcaster;
}

bool CAntennaUtil::FlagEnableSatelliteSelection() {
  LOG_DEBUG("satelite selection enable check");
  EMenuAntennaType type;
  if (GetAntennaMode(&type, PROFILE_MAIN) != 0) {
    LOG_ERROR("CAntennaUtil::GetAntennaMode fails");
    return false;
  }
  LOG_DEBUG("antennaType : %d", type);
  if (const int op = ProfileOf(type)) {
    LOG_DEBUG("CI OP");
    if (ProfileIsSatellite(op) == 1) {
      LOG_DEBUG("CI Satellite found");
      return true;
    }
    LOG_DEBUG("not a satellite CI");
    return false;
  }
  for (const Range& range : kSelectable) {
    if (type < range.first || type > range.last) continue;
    LOG_DEBUG("enable satellite selection");
    return true;
  }
  LOG_DEBUG("antenna : %d", type);
  return false;
}

bool CAntennaUtil::FlagEnableSatelliteSystem() {
  return CTvsUtil::FlagTvSource(PROFILE_MAIN) && CTvsUtil::GetTvMode() == ANTENNA_SATELLITE;
}

bool CAntennaUtil::IsCurrentTVModeSatellite() { return CTvsUtil::GetTvMode() == ANTENNA_SATELLITE; }

bool CAntennaUtil::FlagSpecificSatelliteMode() {
  EMenuAntennaType type;
  if (GetAntennaMode(&type, PROFILE_MAIN) != 0) {
    LOG_ERROR("GetAntennaMode fails");
    return true;
  }
  if (const int op = ProfileOf(type)) {
    LOG_DEBUG("CI");
    TSTvMode mode;
    char name[kTextSize] = "";
    if (GetCIOPInfo(op, mode, name) != 0) {
      LOG_ERROR("GetCIOPInfo fails");
      return false;
    }
    if (mode.antennaMode != ANTENNA_SATELLITE) {
      LOG_DEBUG("normal CI");
      return false;
    }
    LOG_DEBUG("SAT CI");
    return true;
  }
  if (type == MENU_ANTENNA_AIR || type == MENU_ANTENNA_CABLE || type == MENU_ANTENNA_SATELLITE ||
      type == MENU_ANTENNA_UNKNOWN) {
    LOG_DEBUG("normal antenna");
    return false;
  }
  LOG_DEBUG("others are special");
  return true;
}

bool CAntennaUtil::IsCurrentOperatorTKGS() {
  EMenuAntennaType type;
  if (GetAntennaMode(&type, PROFILE_MAIN) != 0) {
    LOG_ERROR("GetAntennaMode fails");
    return false;
  }
  if (type != MENU_ANTENNA_TKGS) return false;
  LOG_DEBUG("antennaMode == MENU_ANTENNA_TKGS");
  return true;
}

int CAntennaUtil::GetSatellitePackageId() {
  TSTvMode mode;
  CTvsUtil::GetTSTvMode(mode, PROFILE_MAIN);
  return TCServiceUtility::ServiceModeToSatellitePackageId(mode.serviceMode);
}

int CAntennaUtil::GetNumberOfCI() {
  int slots = 0;
  if (system_info_get_custom_int(kCiFeature, &slots) != 0) {
    LOG_ERROR("system_info_get_custom_int() fails");
    return 0;
  }
  LOG_DEBUG("NUM_OF_CI : %d", slots);
  return slots;
}

int CAntennaUtil::GetInstalledOperatorProfiles(std::list<CA_API::COperatorProfileData>& profiles) {
  CA_API::CAOperatorProfile* service = CA_API::CAService::CAOperatorProfileInstance();
  if (!service) {
    LOG_ERROR("CAService::CAOperatorProfileInstance() failed");
    return -1;
  }
  if (service->GetInstalledOperatorProfiles(profiles) > 0) {
    LOG_DEBUG("GetInstalledOperatorProfiles was successful");
    return 0;
  }
  LOG_ERROR("GetInstalledOperatorProfiles fails");
  return -1;
}

int CAntennaUtil::GetCIOPInfo(int op, TSTvMode& mode, char* name) {
  LOG_DEBUG("CI OP Number[%d]", op);
  if (!name) {
    LOG_DEBUG("CIOPName is invalid");
    return -1;
  }
  CA_API::COperatorProfileData found;
  if (!FindProfile(op, found)) return -1;
  mode = found.mode;
  snprintf(name, kTextSize, "%s", found.name.c_str());
  LOG_DEBUG("antennaMode[%d] serviceMode[%d] CIOPName[%s]", mode.antennaMode, mode.serviceMode, name);
  return 0;
}

bool CAntennaUtil::FlagInstalledCIOP(int op, EAntennaMode* antenna) {
  LOG_DEBUG("CI OP Number : %d", op);
  if (!antenna) {
    LOG_DEBUG("validAntenna is NULL");
    return false;
  }
  CA_API::COperatorProfileData found;
  if (!FindProfile(op, found)) return false;
  *antenna = found.mode.antennaMode;
  LOG_DEBUG("CI slot[%d] is installed", found.slot);
  return true;
}

bool CAntennaUtil::FlagExistChannel(EMenuAntennaType type, EProfile profile) {
  int count = 0;
  if (!CountChannels(type, profile, false, count)) return false;
  if (count >= 1) return true;
  LOG_DEBUG("count < 1");
  return false;
}

bool CAntennaUtil::FlagExistDigitalChannel(EMenuAntennaType type, EProfile profile) {
  int count = 0;
  if (!CountChannels(type, profile, true, count)) return false;
  if (count >= 1) return true;
  LOG_DEBUG("only analog channel or no program of the antenna");
  return false;
}
