#include "AntennaUtil.h"
#include "Log.h"
#include "TvsUtil.h"
#include "vconf.h"

int CTvsUtil::transponderID = -1;

namespace {

constexpr int kUserDefined = -2;
constexpr const char* kSatelliteKey = "db/menu/broadcasting/channel-settings/satellite-system/lnb-settings/satellite";
constexpr const char* kFrequencyKey =
    "db/menu/broadcasting/channel-settings/satellite-system/user-defined-transponder/frequency";
constexpr const char* kSymbolRateKey =
    "db/menu/broadcasting/channel-settings/satellite-system/user-defined-transponder/symbolrate";
constexpr const char* kPolarityKey =
    "db/menu/broadcasting/channel-settings/satellite-system/user-defined-transponder/polarity";

/// -1 when the setting cannot be read.
int ReadSatelliteSetting() {
  int satellite = SATELLITE_NONE;
  if (vconf_get_int(kSatelliteKey, &satellite) != 0) LOG_ERROR("vconf_get_int fails");
  return satellite;
}

TSTransponder EmptyTransponder() { return {65535, SATELLITE_NONE, -1, 65535, POLARISATION_NONE, INNER_FEC_NONE}; }

bool FindTransponder(const TCCriteriaHelper& criteria, TSTransponder& transponder) {
  CTVSApiWrapper api;
  ISatellite* satellite = api.CreateSatellite();
  if (!satellite) {
    LOG_ERROR("CreateSatellite fails");
    return false;
  }
  if (satellite->FindTransponder(criteria, transponder) > 0) return true;
  LOG_ERROR("FindTransponder is failed");
  return false;
}

int NormalTransponder() {
  LOG_DEBUG("NORMAL! mode");
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_SATELLITE_ID, static_cast<unsigned long long>(ReadSatelliteSetting()));
  TSTransponder transponder = EmptyTransponder();
  if (!FindTransponder(criteria, transponder)) return kUserDefined;
  LOG_DEBUG("Transponder ID : %d", transponder.transponderId);
  return transponder.transponderId;
}

EPackageId Package(const TSTvMode& mode) {
  LOG_DEBUG("service Mode : %d", mode.serviceMode);
  const EPackageId package = TCServiceUtility::ServiceModeToSatellitePackageId(mode.serviceMode);
  LOG_DEBUG("pkgID : %d", package);
  return package;
}

int HomeTransponder() {
  LOG_DEBUG("SPECIFIC! find home");
  LOG_DEBUG("current sat id  : %d", ReadSatelliteSetting());
  if (CTvsUtil::transponderID != -1) {
    LOG_DEBUG("transponderID already set");
    return CTvsUtil::transponderID;
  }
  TSTvMode mode;
  if (!CTvsUtil::GetCurrentTvMode(mode)) return kUserDefined;
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_PACKAGE_ID, static_cast<unsigned long long>(Package(mode)));
  TSTransponder transponder = EmptyTransponder();
  if (!FindTransponder(criteria, transponder)) return kUserDefined;
  LOG_DEBUG("Home transponder ID : %d", transponder.transponderId);
  return transponder.transponderId;
}

/// The package's first transponder becomes the chosen one; its satellite, or -1.
int PackageSatellite() {
  LOG_DEBUG("SPECIFIC! mode");
  TSTvMode mode;
  if (!CTvsUtil::GetCurrentTvMode(mode)) return SATELLITE_NONE;
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_PACKAGE_ID, static_cast<unsigned long long>(Package(mode)));
  criteria.OrderBy(COLUMN_PACKAGE_ORDER, 1);
  TSTransponder transponder = EmptyTransponder();
  if (!FindTransponder(criteria, transponder)) return SATELLITE_NONE;
  CTvsUtil::transponderID = transponder.transponderId;
  LOG_DEBUG("Init transponder Id is %d", CTvsUtil::transponderID);
  return transponder.satelliteId;
}

/// The first satellite that the user has switched on, or -1.
int EnabledSatellite() {
  LOG_DEBUG("NORMAL! mode");
  CTVSApiWrapper api;
  ISatellite* satellite = api.CreateSatellite();
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!satellite || !settings) {
    LOG_ERROR("Interface creation failed!");
    return SATELLITE_NONE;
  }
  TCCriteriaHelper criteria;
  criteria.OrderBy(COLUMN_SATELLITE_ID, 1);
  std::vector<TSSatellite*> satellites;
  satellite->GetSatelliteList(criteria, satellites);
  for (const TSSatellite* candidate : satellites) {
    TSSatelliteSettings own;
    if (settings->GetSatelliteSettings(candidate->satelliteId, own) >= 0 && own.enabled) return candidate->satelliteId;
  }
  return SATELLITE_NONE;
}

int CurrentChannelSatellite() {
  tvs_ch_info* record = CTvsUtil::m_TvServiceChannelGetInfo(false);
  const int satellite = record ? record->satelliteId : SATELLITE_NONE;
  CTvsUtil::m_TvServiceChannelDelInfo(record);
  if (satellite != SATELLITE_NONE) LOG_DEBUG("got satellite id from current channel");
  return satellite;
}

void AddUserTransponder(ISatellite& manager, int satellite, TSTransponder& transponder) {
  int frequency = -1, symbolRate = 65535, polarity = -1;
  vconf_get_int(kFrequencyKey, &frequency);
  vconf_get_int(kSymbolRateKey, &symbolRate);
  vconf_get_int(kPolarityKey, &polarity);
  LOG_DEBUG("Set User Define Transponder. nFrequency[%d] nSymbolrate[%d] nPolarity[%d]", frequency, symbolRate,
            polarity);
  transponder.satelliteId = static_cast<ESatelliteId>(satellite);
  transponder.frequency = frequency;
  transponder.symbolRate = static_cast<unsigned short>(symbolRate);
  transponder.polarisation = static_cast<EDVBSPolarisation>(polarity);
  if (manager.AddUserTransponder(transponder) <= 0) {
    LOG_ERROR("Add User Transponder FAIL.");
    return;
  }
  LOG_DEBUG("TRansponder:%hu is added!", transponder.transponderId);
}

bool FindChosenTransponder(ISatellite& manager, TSTransponder& transponder) {
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_TRANSPONDER_ID, static_cast<unsigned long long>(CTvsUtil::transponderID));
  if (manager.FindTransponder(criteria, transponder) <= 0) {
    LOG_ERROR("pSatelliteMgr->FindTransponder fails");
    return false;
  }
  LOG_DEBUG("Set Define Transponder. nFrequency[%d] nSymbolrate[%d] nPolarity[%d]", transponder.frequency,
            transponder.symbolRate, transponder.polarisation);
  return true;
}

bool SwitchSourceOff() {
  CTVSApiWrapper api;
  ISourceControl* source = api.CreateSourceControl(PROFILE_MAIN, 0);
  if (!source) {
    LOG_ERROR("CreateSourceControl Failed");
    return false;
  }
  if (source->DeactivateSource() == 1) return true;
  LOG_ERROR("DeactivateSource Failed");
  return false;
}

bool Feed(const TSTransponder& transponder, bool enablePositioner) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!navigation) {
    LOG_ERROR("CreateServiceNavigation failed");
    return false;
  }
  if (navigation->TuneForFeedingSI(transponder, enablePositioner) == 1) {
    LOG_DEBUG("TuneForFeedingSI Success");
    return true;
  }
  LOG_ERROR("TuneForFeedingSI failed");
  return false;
}

/// The mode's first service that has an ID, or 0.
unsigned long long FirstService(const TCCriteriaHelper& criteria) {
  CTVSApiWrapper api;
  IService* service = api.CreateService();
  if (!service) {
    LOG_ERROR("Create Service Manager failed!");
    return 0;
  }
  std::unique_ptr<TCServiceList> list;
  if (service->FindServiceList(criteria, list) <= 0) {
    LOG_INFO("find Service List...");
    return 0;
  }
  while (const TCServiceData* data = list->Next()) {
    const long long* id = data->Find(COLUMN_SERVICE_ID);
    if (id && *id != 0) return static_cast<unsigned long long>(*id);
  }
  return 0;
}

void TuneFirst(unsigned long long id) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (!navigation) {
    LOG_DEBUG("Create Service Navigation failed.");
    return;
  }
  int state = 0;
  if (navigation->SetService(id, 0, 0, state) <= 0) LOG_ERROR("SetService fails");
}

}  // namespace

int CTvsUtil::GetSelectedTransponderId(bool checkCurrentChannel) {
  LOG_DEBUG("bCheckCurrentChannel = [%d]", checkCurrentChannel);
  if (checkCurrentChannel) {
    if (tvs_ch_info* record = m_TvServiceChannelGetInfo(false)) {
      const int id = record->channelNumber;
      LOG_DEBUG("transponder ID : %d", id);
      m_TvServiceChannelDelInfo(record);
      return id;
    }
  }
  return CAntennaUtil::FlagSpecificSatelliteMode() ? HomeTransponder() : NormalTransponder();
}

int CTvsUtil::InitSelectedTransponder(bool checkCurrentChannel) {
  transponderID = GetSelectedTransponderId(checkCurrentChannel);
  return transponderID;
}

void CTvsUtil::InitSelectedSatellite(bool fromCurrentChannel) {
  int satellite = fromCurrentChannel ? CurrentChannelSatellite() : SATELLITE_NONE;
  if (satellite == SATELLITE_NONE) {
    satellite = CAntennaUtil::FlagSpecificSatelliteMode() ? PackageSatellite() : EnabledSatellite();
  }
  LOG_DEBUG("Init satellite Id is %d", satellite);
  vconf_set_int(kSatelliteKey, satellite);
  LOG_DEBUG("reaches end");
}

bool CTvsUtil::TuneAloneSelectedTransponder(bool enablePositioner) {
  const int satellite = ReadSatelliteSetting();
  LOG_DEBUG("enablePositioner[%d] nSatelliteId[%d] transponderID[%d]", enablePositioner, satellite, transponderID);
  CTVSApiWrapper api;
  ISatellite* manager = api.CreateSatellite();
  if (!manager) {
    LOG_ERROR("Interface creation failed!");
    return false;
  }
  TSTransponder transponder = EmptyTransponder();
  if (transponderID == kUserDefined) {
    AddUserTransponder(*manager, satellite, transponder);
  } else if (!FindChosenTransponder(*manager, transponder)) {
    return false;
  }
  return SwitchSourceOff() && Feed(transponder, enablePositioner);
}

void CTvsUtil::SetDefaultChannelAfterSatellitePropertyChanges() {
  unsigned long long current = 0;
  if (GetCurrentServiceId(current, false) == 0 && !SetSource()) {
    LOG_ERROR("SetService(CurrentService ID) fails");
    return;
  }
  TSTvMode mode;
  ENavigationMode navi;
  if (m_GetModes(&mode, &navi, false) != 0) {
    LOG_ERROR("m_GetModes failed!");
    return;
  }
  TCCriteriaHelper criteria;
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, navi, criteria)) {
    LOG_ERROR("Get navigation criteria failed");
    return;
  }
  for (const int column : {COLUMN_SERVICE_ID, COLUMN_MAJOR, COLUMN_MINOR}) criteria.Fetch(column);
  criteria.OrderBy(COLUMN_MAJOR, 1);
  const unsigned long long first = FirstService(criteria);
  if (first == 0) return;
  LOG_DEBUG("srvid : %llu , findflag : %d", first, 1);
  TuneFirst(first);
}
