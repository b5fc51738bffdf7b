#include "TvsShared.h"

#include <errno.h>

#include <cstring>
#include <mutex>

#include "Log.h"
#include "vconf.h"

namespace tvs {

namespace {

std::mutex tvs_mutex;

constexpr int kFullColumns[] = {1, 12, 22, 2, 13, 14, 3, 4, 5, 71, 17, 6, 15, 40, 41, 18, 7, 30};
constexpr int kPipColumns[] = {1, 12, 22, 2, 13, 14, 3, 4, 5};
constexpr int kShortColumns[] = {12, 1, 13, 14, 3};
constexpr int kChannelTypes = 13;

bool ReadHiddenPip(IServiceNavigation& navigation, CTVSApiWrapper& api, const ReadMessages& messages,
                   TCServiceData& data) {
  unsigned long long id = 0;
  int kind = 0;
  navigation.GetCurrentService(id, kind);
  TCCriteriaHelper criteria;
  for (const int column : kPipColumns) criteria.Fetch(column);
  criteria.Where(COLUMN_SERVICE_ID, id);
  IService* service = api.CreateService();
  if (!service) {
    messages.noService();
    return false;
  }
  if (service->FindService(criteria, data, 1) >= 1) return true;
  LOG_DEBUG("get current service info failed");
  return false;
}

template <class Number>
Number Column(const TCServiceData& data, int column, Number missing) {
  const long long* value = data.Find(column);
  return value ? static_cast<Number>(*value) : missing;
}

}  // namespace

int ReadModes(TSTvMode* mode, ENavigationMode* navi, bool pip) {
  const std::lock_guard lock(tvs_mutex);
  if (mode) {
    CTVSApiWrapper api;
    IServiceNavigation* navigation = api.CreateServiceNavigation(Picture(pip), 0);
    if (!navigation) {
      if (pip) {
        LOG_DEBUG("Null: Pip Proxy");
      } else {
        LOG_DEBUG("Null: Proxy");
      }
      return -1;
    }
    LOG_DEBUG("_get_modes");
    if (navigation->GetTvMode(*mode) < 1) {
      LOG_DEBUG("_get_modes_get tv mode failed");
      return -1;
    }
  }
  if (navi) *navi = NAVIGATION_ALL;
  return 0;
}

int FullCriteria(TCCriteriaHelper& out, const TSTvMode& mode) {
  TCCriteriaHelper criteria;
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, NAVIGATION_ALL, criteria)) {
    LOG_DEBUG("Get navigation criteria failed");
    return -1;
  }
  for (const int column : kFullColumns) criteria.Fetch(column);
  out = std::move(criteria);
  return 0;
}

int ShortCriteria(TCCriteriaHelper& out, const TSTvMode& mode) {
  LOG_DEBUG("tvmode.antennaMode[%d] tvmode.serviceMode[%d] navimode[%d]", mode.antennaMode, mode.serviceMode,
            NAVIGATION_ALL);
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, NAVIGATION_ALL, out)) {
    LOG_ERROR("Get navigation criteria failed");
    return -1;
  }
  for (const int column : kShortColumns) out.Fetch(column);
  out.WhereNot(COLUMN_CHANNEL_TYPE, CHANNEL_VIRTUAL);
  return 0;
}

bool IsPipShown() {
  int on = 0;
  if (vconf_get_bool("db/menu/picture/pip/onoff", &on) != 0) {
    LOG_DEBUG("Vconf get pip_onoff failed.");
    return false;
  }
  if (on) {
    LOG_DEBUG("PIP is ON.");
  } else {
    LOG_DEBUG("PIP is OFF");
  }
  return on != 0;
}

bool ReadCurrent(const TSTvMode& mode, TCCriteriaHelper& criteria, bool pip, const ReadMessages& messages,
                 TCServiceData& data) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(Picture(pip), 0);
  if (!navigation) {
    messages.noNavigation(pip);
    return false;
  }
  if (pip && !IsPipShown()) return ReadHiddenPip(*navigation, api, messages, data);
  if (navigation->GetCurrentServiceInfo(mode, criteria, data) >= 1) return true;
  LOG_DEBUG("get current service info failed");
  return false;
}

void FillBasics(tvs_ch_info& record, const TCServiceData& data) {
  const int type = Column(data, COLUMN_CHANNEL_TYPE, 0);
  record.channelType = type < kChannelTypes ? type : 0;
  record.digital = type == CHANNEL_DIGITAL_AIR || type == CHANNEL_DIGITAL_CABLE || type == CHANNEL_DIGITAL_SATELLITE;
  record.analog = type == CHANNEL_ANALOG_AIR || type == CHANNEL_ANALOG_CABLE;
  record.virtualChannel = type == CHANNEL_VIRTUAL;
  if (record.digital) LOG_DEBUG("Current Channel is DTV");
  if (record.analog) LOG_DEBUG("Current Channel is ATV");
  if (record.virtualChannel) LOG_ERROR("VIRTUAL CHANNEL");
  const long long* locked = data.Find(COLUMN_LOCKED_MODE);
  record.lockedModeOff = locked && *locked == 0;
  record.serviceId = Column(data, COLUMN_SERVICE_ID, ~0ULL);
}

void FillRecord(tvs_ch_info* record, TCServiceData* data, SymbolRateReader symbolRate) {
  if (!data) {
    LOG_DEBUG("svc is null");
    return;
  }
  constexpr unsigned short kMissing = 65535;
  FillBasics(*record, *data);
  record->isDefault = Column<unsigned char>(*data, COLUMN_IS_DEFAULT, 0);
  record->channelNumber = Column(*data, COLUMN_CHANNEL_NUMBER, kMissing);
  record->major = Column(*data, COLUMN_MAJOR, kMissing);
  record->minor = Column(*data, COLUMN_MINOR, kMissing);
  record->serviceProfile = Column(*data, COLUMN_SERVICE_PROFILE, -1);
  record->satelliteId = Column(*data, COLUMN_SATELLITE_ID, -1);
  record->modulation = Column(*data, COLUMN_MODULATION, -1);
  record->frequency = Column(*data, COLUMN_FREQUENCY, -1);
  record->bandwidth = Column(*data, COLUMN_BANDWIDTH, -1);
  record->symbolRate = symbolRate(data, record->channelNumber, PROFILE_MAIN);
  record->programNumber = Column(*data, COLUMN_PROGRAM_NUMBER, kMissing);
  record->transportStreamId = Column(*data, COLUMN_TRANSPORT_STREAM_ID, kMissing);
  record->originalNetworkId = Column(*data, COLUMN_ORIGINAL_NETWORK_ID, kMissing);
  record->networkId = Column(*data, COLUMN_NETWORK_ID, kMissing);

  LOG_DEBUG("ch num : %d", record->channelNumber);
  LOG_DEBUG("major : %d", record->major);
  LOG_DEBUG("minor : %d", record->minor);
  LOG_DEBUG("service profile : %d", record->serviceProfile);
  LOG_DEBUG("satellite id : %d", record->satelliteId);
  LOG_DEBUG("eModulation id : %d", record->modulation);
  LOG_DEBUG("frequency id : %d", record->frequency);
  LOG_DEBUG("eBandwidth id : %d", record->bandwidth);
  LOG_DEBUG("nSymbolRate id : %d", record->symbolRate);
  LOG_DEBUG("nProgramNum id : %d", record->programNumber);
  LOG_DEBUG("nTransportStreamID id : %d", record->transportStreamId);
  LOG_DEBUG("nOringinalNwtworkID id : %d", record->originalNetworkId);
  LOG_DEBUG("nNetworkID id : %d", record->networkId);
  LOG_DEBUG("is_default: %d", record->isDefault);
  LOG_DEBUG("TCServiceId =%llu", record->serviceId);
}

tvs_ch_info* NewRecord(const TSTvMode& mode, TCCriteriaHelper& criteria, bool pip, const ReadMessages& messages,
                       SymbolRateReader symbolRate) {
  TCServiceData data;
  if (!ReadCurrent(mode, criteria, pip, messages, data)) return nullptr;
  auto* record = new tvs_ch_info;
  FillRecord(record, &data, symbolRate);
  record->antennaMode = static_cast<unsigned short>(mode.antennaMode);
  record->serviceMode = mode.serviceMode;
  return record;
}

unsigned short SymbolRate(TCServiceData* data, unsigned short channelNumber, ESignalKind kind) {
  constexpr unsigned short kMissing = 65535;
  if (kind != SIGNAL_SATELLITE && kind != SIGNAL_SATELLITE2) {
    return data ? Column(*data, COLUMN_SYMBOL_RATE, kMissing) : kMissing;
  }
  CTVSApiWrapper api;
  ISatellite* satellite = api.CreateSatellite();
  if (!satellite) {
    LOG_ERROR("CreateSatellite fails");
    return 0;
  }
  LOG_DEBUG("channelNumber = %d", channelNumber);
  TCCriteriaHelper criteria;
  criteria.Where(COLUMN_TRANSPONDER_ID, channelNumber);
  TSTransponder transponder(65535, SATELLITE_NONE, -1, 65535, POLARISATION_NONE, INNER_FEC_NONE);
  if (satellite->FindTransponder(criteria, transponder) < 1) {
    LOG_ERROR("FindTransponder is failed");
    return 0;
  }
  LOG_DEBUG("nSymbolRate = %d", transponder.symbolRate);
  return transponder.symbolRate;
}

int ReadServiceId(unsigned long long& id, bool pip, CriteriaReader readCriteria) {
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (readCriteria(criteria, &mode, pip) != 0) {
    LOG_ERROR("m_GetCriteria fails");
    return -1;
  }
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(Picture(pip), 0);
  if (!navigation) {
    LOG_ERROR("Interface creation failed!");
    return -1;
  }
  TCServiceData data;
  if (navigation->GetCurrentServiceInfo(mode, criteria, data) < 1) {
    LOG_ERROR("GetCurrentServiceInfo fails");
    return -1;
  }
  id = Column(data, COLUMN_SERVICE_ID, ~0ULL);
  return 0;
}

int TuneService(unsigned long long id, bool pip) {
  LOG_DEBUG("svcID : %lld / IsPip : %d", static_cast<long long>(id), pip);
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(Picture(pip), 0);
  if (!navigation) {
    LOG_DEBUG("Create Service Navigation failed.");
    return -1;
  }
  int state = 0;
  if (navigation->SetService(id, 0, 0, state) > 0) return 0;
  LOG_ERROR("SetService fails %lld", static_cast<long long>(id));
  return -1;
}

bool BackToTuner(int (*serviceId)(unsigned long long&, bool)) {
  constexpr const char* kService = "settings-service";
  unsigned long long id = 0;
  LOG_DEBUG("serviceId1 %llu", id);
  if (serviceId(id, false) != 0) {
    LOG_ERROR("GetCurrentServiceId fails");
    return false;
  }
  LOG_DEBUG("serviceId2 %llu", id);
  CTVSApiWrapper api;
  ISourceControl* source = api.CreateSourceControl(PROFILE_MAIN, 0);
  if (!source) {
    LOG_ERROR("CreateSourceControl fails");
    return false;
  }
  const char* self = program_invocation_short_name;
  const char* caller = std::strncmp(self, kService, std::strlen(kService)) == 0 ? self : "NoAppId";
  if (source->SetSource(SOURCE_TYPE_TV, id, caller) != -1) return true;
  LOG_ERROR("SetSource fails");
  return false;
}

int ReadMainSource() {
  int value = -1;
  CTVSApiWrapper api;
  ISourceControl* source = api.CreateSourceControl(PROFILE_MAIN, 0);
  if (source && source->GetSource(value) > 0) LOG_INFO("GetCurrentSourceInfo success");
  LOG_INFO("Current source : %d", value);
  return value;
}

}  // namespace tvs
