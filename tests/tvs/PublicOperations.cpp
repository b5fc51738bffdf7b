#include <cstdlib>

#include "AntennaUtil.h"
#include "ChannelUtil.h"
#include "CommonUtil.h"
#include "CountryUtil.h"
#include "TvsTest.h"
#include "TvsUtil.h"
#include "Utils.h"
#include "util.h"

namespace test {

namespace {

template <class Value>
std::string Text(Value value) {
  return std::to_string(static_cast<long long>(value));
}

std::string Text(const tvs_ch_info& r) {
  return Text(r.channelType) + "/" + Text(r.serviceId) + "/" + Text(r.channelNumber) + "/" + Text(r.major) + "/" +
         Text(r.frequency) + "/" + Text(r.symbolRate) + "/" + Text(r.satelliteId);
}

std::string Text(const TSTvMode& mode) { return Text(mode.antennaMode) + "," + Text(mode.serviceMode); }

/// A record of `CTvsUtil` or `ChannelUtil`, given back.
std::string Record(tvs_ch_info* record, void (*release)(tvs_ch_info*)) {
  const std::string text = record ? Text(*record) : "null";
  if (release) release(record);
  return text;
}

std::string List(_item** list, int count) {
  const std::string text = list ? Text(count) + " " + (count ? list[count - 1]->name : "") : "null";
  CCountryUtil::FreeListItems(list, count);
  return text;
}

std::string Owned(char* text) {
  const std::string copy = text ? text : "null";
  free(text);
  return copy;
}

/// Name an operation in one line: its expression's text is its name.
#define VALUE(expression, failure) {#expression, [] { return Text(expression); }, failure}
#define STRING(expression, failure) {#expression, [] { return std::string(expression); }, failure}
#define VOID(expression, state, failure) \
  {#expression, [] { expression; return Ask(state); }, failure}

constexpr const char* kSatellite =
    "SELECT value FROM setting WHERE key LIKE '%lnb-settings/satellite'";
constexpr const char* kPositioner = "SELECT value FROM tv_state WHERE name = 'positioner_command'";
constexpr const char* kLaunch = "SELECT application FROM launch";

std::vector<PublicOperation> TvsUtilOperations() {
  return {
      VALUE(CTvsUtil::GetTvMode(), "-1"),
      {"CTvsUtil::m_GetModes",
       [] {
         TSTvMode mode;
         ENavigationMode navi;
         return Text(CTvsUtil::m_GetModes(&mode, &navi, true));
       },
       "-1"},
      {"CTvsUtil::GetTSTvMode", [] { TSTvMode mode; CTvsUtil::GetTSTvMode(mode, PROFILE_MAIN); return Text(mode); }, "-1,-1"},
      {"CTvsUtil::GetCurrentTvMode", [] { TSTvMode mode; return Text(CTvsUtil::GetCurrentTvMode(mode)); }, "0"},
      {"CTvsUtil::m_GetCriteria full",
       [] { TCCriteriaHelper c; TSTvMode mode; return Text(CTvsUtil::m_GetCriteria(c, &mode, false)); }, "-1"},
      {"CTvsUtil::m_GetCriteria short",
       [] { TCCriteriaHelper c; return Text(CTvsUtil::m_GetCriteria(c, TSTvMode(ANTENNA_AIR, SERVICE_MODE_NONE))); }, "-1"},
      {"CTvsUtil::m_TvServiceChannelGetInfo main",
       [] { return Record(CTvsUtil::m_TvServiceChannelGetInfo(false), CTvsUtil::m_TvServiceChannelDelInfo); }, "null"},
      {"CTvsUtil::m_TvServiceChannelGetInfo pip",
       [] { return Record(CTvsUtil::m_TvServiceChannelGetInfo(true), CTvsUtil::m_TvServiceChannelDelInfo); }, "null"},
      {"CTvsUtil::GetCurrentServiceId",
       [] { unsigned long long id = 0; return Text(CTvsUtil::GetCurrentServiceId(id, false)); }, "-1"},
      VALUE(CTvsUtil::SetService(2, false), "-1"),
      VALUE(CTvsUtil::FlagCurrentChannelAnalog(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::FlagCurrentChannelDigital(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::FlagCurrentChannelVirtual(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::IsCurrentChannelDefault(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetCurrentChannelType(PROFILE_MAIN), "-1"),
      {"CTvsUtil::GetChannelString main",
       [] { char text[512] = ""; return Text(CTvsUtil::GetChannelString(text, false)) + text; }, "-1"},
      {"CTvsUtil::GetChannelString pip",
       [] { char text[512] = ""; return Text(CTvsUtil::GetChannelString(text, true)) + text; }, "-1"},
      VALUE(CTvsUtil::FlagTimeShift(), "0"),
      VALUE(CTvsUtil::FlagTempUnblockedChildLock(), "0"),
      VALUE(CTvsUtil::GetCurrentSource(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetCurrentSourceInfo(), "-1"),
      VALUE(CTvsUtil::GetCurrentState(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::FlagTvSource(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::FlagExternalSource(PROFILE_MAIN), "1"),
      VALUE(CTvsUtil::IsCurrentSourceHDMI(), "0"),
      VALUE(CTvsUtil::SetSource(), "0"),
      VALUE(CTvsUtil::GetSignalInfoType(), "2"),
      VALUE(CTvsUtil::GetSignalKind(), "0"),
      VALUE(CTvsUtil::GetSignalStrength(), "0"),
      VALUE(CTvsUtil::GetSignalQuality(), "0"),
      VALUE(CTvsUtil::GetBitErrorRate(), "0"),
      VALUE(CTvsUtil::GetSNR(), "0"),
      VALUE(CTvsUtil::GetTunerLockStatus(), "0"),
      {"CTvsUtil::m_GetSignalInfo", [] { return Record(CTvsUtil::m_GetSignalInfo(), nullptr); }, "null"},
      VALUE(CTvsUtil::GetFrequency(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetBandWidth(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetModulation(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetChannelNumber(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetSymbolRate(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetProgramNum(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetTransportStreamID(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetOringinalNwtworkID(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetNetworkID(PROFILE_MAIN), "0"),
      {"CTvsUtil::GetChannelID", [] { char text[512] = ""; return Text(CTvsUtil::GetChannelID(text)) + text; }, "-1"},
      VALUE(CTvsUtil::SetBandFreqForSignalInformation(BANDWIDTH_8, 11494000), "-1"),
      VALUE(CTvsUtil::SetCacheBandWidth(MENU_KEY_UP, "6 MHz", PROFILE_MAIN), "1"),
      VALUE(CTvsUtil::GetSelectedTransponderId(true), "-2"),
      VALUE(CTvsUtil::GetSelectedTransponderId(false), "-2"),
      VALUE(CTvsUtil::InitSelectedTransponder(false), "-2"),
      VOID(CTvsUtil::InitSelectedSatellite(true), kSatellite, "-1"),
      VOID(CTvsUtil::InitSelectedSatellite(false), kSatellite, "-1"),
      {"CTvsUtil::TuneAloneSelectedTransponder user",
       [] { CTvsUtil::transponderID = -2; return Text(CTvsUtil::TuneAloneSelectedTransponder(true)); }, "0"},
      {"CTvsUtil::TuneAloneSelectedTransponder chosen",
       [] { CTvsUtil::transponderID = 7; return Text(CTvsUtil::TuneAloneSelectedTransponder(false)); }, "0"},
      VOID(CTvsUtil::SetDefaultChannelAfterSatellitePropertyChanges(), "SELECT service FROM picture WHERE profile = 1",
           "300"),
  };
}

std::vector<PublicOperation> UtilOperations() {
  return {
      VALUE(CUtil::GetCountryId(), "-1"),
      VALUE(CUtil::GetRegionKind(), "-1"),
      VALUE(CUtil::FlagNordicCountry(), "0"),
      VALUE(CUtil::FlagATSC(), "0"),
      VALUE(CUtil::GetDTVStandard(), "0"),
      VALUE(CUtil::IsExceptionRegionForDVB(), "0"),
      {"CUtil::getreginonkind", [] { return Owned(CUtil::getreginonkind()); }, "null"},
      VALUE(CUtil::IsProjector(), "0"),
      VALUE(CUtil::IsSmartMonitor(), "0"),
      VALUE(CUtil::is_tunerless(), "0"),
      VALUE(CUtil::IsDtvOnly(), "0"),
      VALUE(CUtil::IsAtvOnly(), "0"),
      VALUE(CUtil::FlagVisibleSatCRTwoTuner(), "0"),
      VALUE(CUtil::checkplaying(), "0"),
      VALUE(CUtil::flagrecording(), "0"),
      VALUE(CUtil::flagtimeshift(), "0"),
      VALUE(CUtil::is_timeshift_running(), "0"),
      VALUE(CUtil::check_source_tv(), "-1"),
      VALUE(CUtil::flagexternalsource(), "1"),
      VALUE(CUtil::dtv_check(), "0"),
      {"CUtil::tv_service_channel_get_info",
       [] { tvs_ch_info record; return Text(CUtil::tv_service_channel_get_info(record, TV_SERVICE_INFO_CURRENT, false)); },
       "0"},
  };
}

std::vector<PublicOperation> CountryOperations() {
  return {
      {"CCountryUtil::GetPnPCountry", [] { int c = -1; return Text(CCountryUtil::GetPnPCountry(&c)); }, "-1"},
      {"CCountryUtil::GetAnalogCountry", [] { int c = -1; return Text(CCountryUtil::GetAnalogCountry(&c)); }, "-1"},
      {"CCountryUtil::GetDigitalCountry", [] { int c = -1; return Text(CCountryUtil::GetDigitalCountry(&c)); }, "-1"},
      VALUE(CCountryUtil::SetPnPCountry(9), "-1"),
      VALUE(CCountryUtil::SetAnalogCountry(9), "-1"),
      VALUE(CCountryUtil::SetDigitalCountry(9), "-1"),
      VALUE(CCountryUtil::ResetCountryRelatedInfoByPnP(9), "-1"),
      VALUE(CCountryUtil::IsSupportDVBDigitalChannel(), "1"),
      VALUE(CCountryUtil::FlagVisibleCountryOptions(), "1"),
      VALUE(CCountryUtil::FlagVisibleDigitalCountry(), "0"),
      VALUE(CCountryUtil::FlagVisibleAnalogCountry(), "0"),
  };
}

std::vector<PublicOperation> AntennaOperations() {
  using Type = CAntennaUtil::EMenuAntennaType;
  return {
      {"CAntennaUtil::GetAntennaMode", [] { Type t; return Text(CAntennaUtil::GetAntennaMode(&t, PROFILE_MAIN)); }, "-1"},
      {"CAntennaUtil::GetTVModeByMenuAntennaType 20", [] { return Text(CAntennaUtil::GetTVModeByMenuAntennaType(Type(20))); },
       "-1,-1"},
      {"CAntennaUtil::GetAntennaName 20",
       [] { char text[512] = ""; CAntennaUtil::GetAntennaName(Type(20), text); return std::string(text); }, ""},
      {"CAntennaUtil::GetAntennaName 47",
       [] { char text[512] = ""; CAntennaUtil::GetAntennaName(Type(47), text); return std::string(text); }, ""},
      {"CAntennaUtil::GetCurrentAntennaName", [] { char text[512] = ""; return Text(CAntennaUtil::GetCurrentAntennaName(text)); },
       "0"},
      {"CAntennaUtil::GetAntennaList", [] { int n = 0; _item** l = CAntennaUtil::GetAntennaList(&n); return List(l, n); },
       "46 TV_SID_OSTERREICHLISTE"},
      VALUE(CAntennaUtil::SetAntennaMode(Type(0), PROFILE_MAIN), "-1"),
      VALUE(CAntennaUtil::SetPIPAntennaMode(Type(1), PROFILE_PIP), "-1"),
      VALUE(CAntennaUtil::SetAvailableAntennaModeForPIP(), "-1"),
      VALUE(CAntennaUtil::FlagSupportAntennaMode(Type(8)), "0"),
      VALUE(CAntennaUtil::FlagSupportAntennaMode(Type(20)), "0"),
      VALUE(CAntennaUtil::FlagSupportTunerType(SYSTEM_INFO_TUNER_SATELLITE), "0"),
      VALUE(CAntennaUtil::FlagSupportBroadcaster(EBroadCaster(19), -1), "0"),
      VALUE(CAntennaUtil::CheckCurrentBroadcaster(EBroadCaster(0)), "0"),
      VALUE(CAntennaUtil::FlagEnableSatelliteSelection(), "0"),
      VALUE(CAntennaUtil::FlagEnableSatelliteSystem(), "0"),
      VALUE(CAntennaUtil::IsCurrentTVModeSatellite(), "0"),
      VALUE(CAntennaUtil::FlagSpecificSatelliteMode(), "1"),
      VALUE(CAntennaUtil::IsCurrentOperatorTKGS(), "0"),
      VALUE(CAntennaUtil::GetSatellitePackageId(), "-1"),
      VALUE(CAntennaUtil::GetNumberOfCI(), "0"),
      {"CAntennaUtil::GetInstalledOperatorProfiles",
       [] { std::list<CA_API::COperatorProfileData> l; return Text(CAntennaUtil::GetInstalledOperatorProfiles(l)); }, "-1"},
      {"CAntennaUtil::GetCIOPInfo",
       [] { TSTvMode m; char text[512] = ""; return Text(CAntennaUtil::GetCIOPInfo(1, m, text)); }, "-1"},
      {"CAntennaUtil::FlagInstalledCIOP", [] { EAntennaMode m; return Text(CAntennaUtil::FlagInstalledCIOP(1, &m)); }, "0"},
      VALUE(CAntennaUtil::FlagExistChannel(Type(3), PROFILE_MAIN), "0"),
      VALUE(CAntennaUtil::FlagExistDigitalChannel(Type(3), PROFILE_MAIN), "0"),
  };
}

std::vector<PublicOperation> ChannelOperations() {
  return {
      {"ChannelUtil::m_GetCriteria",
       [] { TCCriteriaHelper c; TSTvMode mode; return Text(ChannelUtil::m_GetCriteria(c, &mode, false)); }, "-1"},
      {"ChannelUtil::m_TvServiceChannelGetInfo",
       [] { return Record(ChannelUtil::m_TvServiceChannelGetInfo(false), ChannelUtil::m_TvServiceChannelDelInfo); }, "null"},
      {"ChannelUtil::m_TvServiceChannelGetInfo pip",
       [] { return Record(ChannelUtil::m_TvServiceChannelGetInfo(true), ChannelUtil::m_TvServiceChannelDelInfo); }, "null"},
      {"ChannelUtil::GetCurrentServiceId",
       [] { unsigned long long id = 0; return Text(ChannelUtil::GetCurrentServiceId(id, false)); }, "-1"},
      VALUE(ChannelUtil::SetService(2, false), "-1"),
      VALUE(ChannelUtil::SetSource(), "0"),
      VALUE(ChannelUtil::GetCurrentSourceInfo(), "-1"),
      VALUE(ChannelUtil::GetFrequency(PROFILE_MAIN), "0"),
      VALUE(ChannelUtil::GetBandWidth(PROFILE_MAIN), "-1"),
      VALUE(ChannelUtil::GetSignalKind(), "0"),
      VALUE(ChannelUtil::GetSignalQuality(), "0"),
      VALUE(ChannelUtil::GetSignalStrength(), "0"),
      VALUE(ChannelUtil::GetSignalInfoType(), "2"),
      VALUE(ChannelUtil::SetBandFreqForSignalInformation(BANDWIDTH_8, 11494000), "-1"),
      VALUE(ChannelUtil::TuneAloneSelectedTransponder(false), "0"),
      VALUE(ChannelUtil::GetTVNavigationMode(), "0"),
      VALUE(ChannelUtil::TuneChannel(false, 0, NAVIGATION_ALL, true), "0"),
      VALUE(ChannelUtil::TuneChannel(false, 1, NAVIGATION_FAVOURITE, false), "0"),
      {"ChannelUtil::GetChannelString",
       [] { char text[512] = ""; return Text(ChannelUtil::GetChannelString(text, -1, -1, SERVICE_MODE_NONE, -1)) + text; },
       "-1"},
      {"ChannelUtil::GetHistoryItemInfo",
       [] {
         char a[512], b[512], c[512];
         return Text(ChannelUtil::GetHistoryItemInfo("86400:7:65535:2:1:1", a, b, c)) + c;
       },
       "0UHD 7"},
  };
}

std::vector<PublicOperation> HelperOperations() {
  return {
      VALUE(CommonUtil::IsTimeSet(), "0"),
      VALUE(CommonUtil::GetRegionKind(), "-1"),
      {"CommonUtil::GetCurrentLanguage", [] { char* t = nullptr; CommonUtil::GetCurrentLanguage(&t); return Owned(t); }, "null"},
      VALUE(CommonUtil::GetTimeFormatType(), "1"),
      {"CommonUtil::GetCurrentDateStr", [] { return Text(CommonUtil::GetCurrentDateStr().size() >= 8); }, "1"},
      VALUE(Utils::IsPipOn(), "0"),
      STRING(Utils::GetProductTypeOSD(), "SID_TV"),
      VALUE(Utils::FlagPanelType82InchSdc(), "0"),
      {"Utils::GetCountryCode", [] { return Owned(Utils::GetCountryCode()); }, ""},
      {"Utils::GetSatCRSettings", [] { TSSatCRSettings s; return Text(Utils::GetSatCRSettings(0, s)); }, "0"},
      VOID(Utils::UserStorePosition(), kPositioner, ""),
      VOID(Utils::InstallerStorePosition(), kPositioner, ""),
      VOID(Utils::InstallerGoToZero(), kPositioner, ""),
      VOID(Utils::InstallerResetLimit(), kPositioner, ""),
      VALUE(Utils::ResetSatelliteSettings(), "0"),
      VOID(Utils::LaunchNumberPad("type", "NUM_SPIN"), kLaunch, ""),
      VOID(Utils::CloseNumberPad(), kLaunch, ""),
  };
}

}  // namespace

std::vector<PublicOperation> PublicOperations() {
  std::vector<PublicOperation> all;
  for (const auto& some : {TvsUtilOperations(), UtilOperations(), CountryOperations(), AntennaOperations(),
                           ChannelOperations(), HelperOperations()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace test
