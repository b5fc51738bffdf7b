#include <cstdlib>

#include "AntennaUtil.h"
#include "ChannelUtil.h"
#include "CommonUtil.h"
#include "CountryUtil.h"
#include "RatingUitil.h"
#include "SatCRUtil.h"
#include "TvsTest.h"
#include "TvsUtil.h"
#include "Utils.h"
#include "util.h"

namespace test {

namespace {

/// What operations write to.
struct Out {
  TSTvMode mode;
  ENavigationMode navigation;
  EAntennaMode antennaMode;
  CAntennaUtil::EMenuAntennaType type;
  TCCriteriaHelper criteria;
  TSSatCRSettings satCr;
  std::list<CA_API::COperatorProfileData> profiles;
  tvs_ch_info record;
  unsigned long long id = 0;
  int number = -1;
  bool flag = false;
  char* owned = nullptr;
  char text[512] = "", date[512], time[512];
};

using test::Text;

std::string Text(const TSTvMode& mode) { return Text(mode.antennaMode) + "," + Text(mode.serviceMode); }

std::string Text(tvs_ch_info* r) {
  if (!r) return "null";
  return Text(r->channelType) + "/" + Text(r->serviceId) + "/" + Text(r->channelNumber) + "/" + Text(r->major) + "/" +
         Text(r->frequency) + "/" + Text(r->satelliteId);
}

/// The result, and what else was written.
template <class Result>
std::string Told(Result result, const Out& out) {
  return Text(result) + (out.number == -1 ? "" : " " + Text(out.number)) + out.text;
}

std::string Told(_item** list, const Out& out) {
  const std::string text = list ? Text(out.number) + " " + (out.number ? list[out.number - 1]->name : "") : "null";
  CCountryUtil::FreeListItems(list, out.number);
  return text;
}

std::string TuneAlone(int transponder, bool enablePositioner) {
  CTvsUtil::transponderID = transponder;
  return Text(CTvsUtil::TuneAloneSelectedTransponder(enablePositioner));
}

/// A record of `CTvsUtil` or `ChannelUtil`, given back.
template <class Util>
std::string Record(bool pip) {
  tvs_ch_info* record = Util::m_TvServiceChannelGetInfo(pip);
  std::string text = Text(record);
  Util::m_TvServiceChannelDelInfo(record);
  return text;
}

std::string Rating() {
  drrt_rating_info* info = nullptr;
  RatingUtils::FillRatingInfo(&info);
  if (!info) return "null";
  std::string json = RatingUtils::SerializeRatingInfo(*info);
  RatingUtils::EmptyRatingInfo(info);
  std::erase_if(json, [](unsigned char c) { return std::isspace(c) || c == '"'; });
  return json;
}

/// Name an operation in one line: its expression's text is its name.
#define VALUE(expression, failure)    \
  PublicOperation(                    \
      #expression,                    \
      [] {                            \
        Out out;                      \
        return Told(expression, out); \
      },                              \
      failure)
#define VOID(expression, result, failure) \
  PublicOperation(                        \
      #expression,                        \
      [] {                                \
        Out out;                          \
        expression;                       \
        return Text(result);              \
      },                                  \
      failure)

constexpr const char* kSatellite = "SELECT value FROM setting WHERE key LIKE '%lnb-settings/satellite'";
constexpr const char* kPositioner = "SELECT command FROM dish";
constexpr const char* kService = "SELECT service FROM picture WHERE profile = 1";
constexpr const char* kLaunch = "SELECT application FROM launch";

std::vector<PublicOperation> OperationsHere() {
  using Type = CAntennaUtil::EMenuAntennaType;
  return {
      VALUE(CTvsUtil::GetTvMode(), "-1"),
      VALUE(CTvsUtil::m_GetModes(&out.mode, &out.navigation, true), "-1"),
      VOID(CTvsUtil::GetTSTvMode(out.mode, PROFILE_MAIN), out.mode, "-1,-1"),
      VALUE(CTvsUtil::GetCurrentTvMode(out.mode), "0"),
      VALUE(CTvsUtil::m_GetCriteria(out.criteria, &out.mode, false), "-1"),
      VALUE(CTvsUtil::m_GetCriteria(out.criteria, TSTvMode(ANTENNA_AIR, SERVICE_MODE_NONE)), "-1"),
      {"CTvsUtil::m_TvServiceChannelGetInfo main", [] { return Record<CTvsUtil>(false); }, "null"},
      {"CTvsUtil::m_TvServiceChannelGetInfo pip", [] { return Record<CTvsUtil>(true); }, "null"},
      VALUE(CTvsUtil::GetCurrentServiceId(out.id, false), "-1"),
      VALUE(CTvsUtil::SetService(2, false), "-1"),
      VALUE(CTvsUtil::FlagCurrentChannelAnalog(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::FlagCurrentChannelDigital(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::FlagCurrentChannelVirtual(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::IsCurrentChannelDefault(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetCurrentChannelType(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetChannelString(out.text, false), "-1"),
      VALUE(CTvsUtil::GetChannelString(out.text, true), "-1"),
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
      VALUE(CTvsUtil::m_GetSignalInfo(), "null"),
      VALUE(CTvsUtil::GetFrequency(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetBandWidth(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetModulation(PROFILE_MAIN), "-1"),
      VALUE(CTvsUtil::GetChannelNumber(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetSymbolRate(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetProgramNum(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetTransportStreamID(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetOringinalNwtworkID(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetNetworkID(PROFILE_MAIN), "0"),
      VALUE(CTvsUtil::GetChannelID(out.text), "-1"),
      VALUE(CTvsUtil::SetBandFreqForSignalInformation(BANDWIDTH_8, 11494000), "-1"),
      VALUE(CTvsUtil::SetBandFreqForSignalInformation(BANDWIDTH_8, 506000), "-1"),
      VALUE(CTvsUtil::SetCacheBandWidth(MENU_KEY_UP, "6 MHz", PROFILE_MAIN), "1"),
      VALUE(CTvsUtil::GetSelectedTransponderId(true), "-2"),
      VALUE(CTvsUtil::GetSelectedTransponderId(false), "-2"),
      VALUE(CTvsUtil::InitSelectedTransponder(false), "-2"),
      VOID(CTvsUtil::InitSelectedSatellite(true), Ask(kSatellite), "-1"),
      VOID(CTvsUtil::InitSelectedSatellite(false), Ask(kSatellite), "-1"),
      {"CTvsUtil::TuneAloneSelectedTransponder user", [] { return TuneAlone(-2, true); }, "0"},
      {"CTvsUtil::TuneAloneSelectedTransponder chosen", [] { return TuneAlone(7, false); }, "0"},
      VOID(CTvsUtil::SetDefaultChannelAfterSatellitePropertyChanges(), Ask(kService), "300"),

      VALUE(CUtil::GetCountryId(), "-1"),
      VALUE(CUtil::GetRegionKind(), "-1"),
      VALUE(CUtil::FlagNordicCountry(), "0"),
      VALUE(CUtil::FlagATSC(), "0"),
      VALUE(CUtil::GetDTVStandard(), "0"),
      VALUE(CUtil::IsExceptionRegionForDVB(), "0"),
      VALUE(CUtil::getreginonkind(), "null"),
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
      VALUE(CUtil::tv_service_channel_get_info(out.record, TV_SERVICE_INFO_CURRENT, false), "0"),

      VALUE(CCountryUtil::GetPnPCountry(&out.number), "-1"),
      VALUE(CCountryUtil::GetAnalogCountry(&out.number), "-1"),
      VALUE(CCountryUtil::GetDigitalCountry(&out.number), "-1"),
      VALUE(CCountryUtil::SetPnPCountry(9), "-1"),
      VALUE(CCountryUtil::SetAnalogCountry(9), "-1"),
      VALUE(CCountryUtil::SetDigitalCountry(9), "-1"),
      VALUE(CCountryUtil::ResetCountryRelatedInfoByPnP(9), "-1"),
      VALUE(CCountryUtil::IsSupportDVBDigitalChannel(), "1"),
      VALUE(CCountryUtil::FlagVisibleCountryOptions(), "1"),
      VALUE(CCountryUtil::FlagVisibleDigitalCountry(), "0"),
      VALUE(CCountryUtil::FlagVisibleAnalogCountry(), "0"),

      VALUE(CAntennaUtil::GetAntennaMode(&out.type, PROFILE_MAIN), "-1"),
      VALUE(CAntennaUtil::GetTVModeByMenuAntennaType(Type(20)), "-1,-1"),
      VOID(CAntennaUtil::GetAntennaName(Type(20), out.text), std::string(out.text), ""),
      VOID(CAntennaUtil::GetAntennaName(Type(47), out.text), std::string(out.text), ""),
      VALUE(CAntennaUtil::GetCurrentAntennaName(out.text), "0"),
      VALUE(CAntennaUtil::GetAntennaList(&out.number), "46 TV_SID_OSTERREICHLISTE"),
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
      VALUE(CAntennaUtil::GetInstalledOperatorProfiles(out.profiles), "-1"),
      VALUE(CAntennaUtil::GetCIOPInfo(1, out.mode, out.text), "-1"),
      VALUE(CAntennaUtil::FlagInstalledCIOP(1, &out.antennaMode), "0"),
      VALUE(CAntennaUtil::FlagExistChannel(Type(3), PROFILE_MAIN), "0"),
      VALUE(CAntennaUtil::FlagExistDigitalChannel(Type(3), PROFILE_MAIN), "0"),

      VALUE(ChannelUtil::m_GetCriteria(out.criteria, &out.mode, false), "-1"),
      {"ChannelUtil::m_TvServiceChannelGetInfo main", [] { return Record<ChannelUtil>(false); }, "null"},
      {"ChannelUtil::m_TvServiceChannelGetInfo pip", [] { return Record<ChannelUtil>(true); }, "null"},
      VALUE(ChannelUtil::GetCurrentServiceId(out.id, false), "-1"),
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
      VALUE(ChannelUtil::GetChannelString(out.text, -1, -1, SERVICE_MODE_NONE, -1), "-1"),
      VALUE(ChannelUtil::GetHistoryItemInfo("86400:7:65535:2:1:1", out.date, out.time, out.text), "0UHD 7"),

      VALUE(CommonUtil::IsTimeSet(), "0"),
      VALUE(CommonUtil::GetRegionKind(), "-1"),
      VOID(CommonUtil::GetCurrentLanguage(&out.owned), out.owned, "null"),
      VALUE(CommonUtil::GetTimeFormatType(), "1"),
      VALUE(CommonUtil::GetCurrentDateStr().size() >= 8, "1"),

      VALUE(RatingUtils::SetRRSLock(0, 0, true), "-1"),
      VALUE(RatingUtils::GetRRSLock(0, 0, &out.flag), "-1"),
      {"RatingUtils::FillRatingInfo", Rating, "null"},

      VALUE(Utils::IsPipOn(), "0"),
      VALUE(Utils::GetProductTypeOSD(), "SID_TV"),
      VALUE(Utils::FlagPanelType82InchSdc(), "0"),
      VALUE(Utils::GetCountryCode(), ""),
      VALUE(Utils::GetSatCRSettings(0, out.satCr), "0"),
      VALUE(SatCRUtils::SendSatCRCommand(0, SATCR_COMMAND_DETECT), "0"),
      VALUE(SatCRUtils::SetSlotFrequency(0, 1400), "-1"),
      VALUE(SatCRUtils::GetSlotFrequency(0), "-1"),
      VALUE(SatCRUtils::IsSatCRCommandSuccess(0, 1632, 3), "0"),
      VALUE(SatCRUtils::GetSatCRProcessStatusAsJsonString(0), kNoStatus),
      VOID(Utils::UserStorePosition(), Ask(kPositioner), ""),
      VOID(Utils::InstallerStorePosition(), Ask(kPositioner), ""),
      VOID(Utils::InstallerGoToZero(), Ask(kPositioner), ""),
      VOID(Utils::InstallerResetLimit(), Ask(kPositioner), ""),
      VALUE(Utils::ResetSatelliteSettings(), "0"),
      VOID(Utils::LaunchNumberPad("type", "NUM_SPIN"), Ask(kLaunch), ""),
      VOID(Utils::CloseNumberPad(), Ask(kLaunch), ""),
  };
}

/// Those for a country with emergency warnings, where a place is chosen.
std::vector<PublicOperation> OperationsInEcuador() {
  std::vector<PublicOperation> operations = {
      VALUE(CCountryUtil::GetEWBSProvince(&out.number), "-1"),
      VALUE(CCountryUtil::GetEWBSAreaCode(&out.number), "-1"),
      VALUE(CCountryUtil::SetEWBSProvince(3), "-1"),
      VALUE(CCountryUtil::SetEWBSAreaCode(3), "-1"),
      VALUE(CCountryUtil::SetEWBSAreaCodeToDefault(), "-1"),
      VALUE(CCountryUtil::GetEWBSProvinceList(&out.number), "null"),
      VALUE(CCountryUtil::GetEWBSAreaCodeList(&out.number), "null"),
      VALUE(CCountryUtil::GetEWBSProvinceNameByID(6, true), ""),
      VALUE(CCountryUtil::GetEWBSAreaCodeIDBySaveName("BALSAS"), "-1"),
  };
  for (PublicOperation& operation : operations) {
    operation.run = [run = operation.run] {
      Change("UPDATE setting SET value = 69 WHERE key = 'system_settings/57'");
      Change("UPDATE setting SET value = 'EL ORO' WHERE key LIKE '%ewbs_province'");
      Change("UPDATE setting SET value = 'BALSAS' WHERE key LIKE '%ewbs_area_code'");
      return run();
    };
  }
  return operations;
}

}  // namespace

std::vector<PublicOperation> PublicOperations() {
  std::vector<PublicOperation> all = OperationsHere();
  const std::vector<PublicOperation> more = OperationsInEcuador();
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

}  // namespace test
