// Every public operation with every platform call of it failing, in each of its ways, once and for good.
#include <cstdio>
#include <set>
#include <sstream>
#include <string_view>

#include "Gate.h"
#include "TvsTest.h"
#include "tvs/RatingTable.h"

namespace test {

namespace {

struct Answer {
  std::string result;
  Texts log;
};

using Calls = std::vector<std::string_view>;

/// What operations answer instead of their failure value when one of these calls fails; "=" is the healthy result.
struct Exception {
  std::string_view operation;  ///< a part of its name
  Calls calls;
  std::string_view result;
  bool silent = false;  ///< nothing is said of it

  bool IsOf(const PublicOperation& of, const std::string& call) const {
    return of.name.find(operation) != of.name.npos &&
           std::any_of(calls.begin(), calls.end(), [&](std::string_view begin) { return call.starts_with(begin); });
  }
};

const Calls kChannel = {"TCNavigationModeHelper::GetNavigationCriteria", "ServiceNavigation::GetCurrentServiceInfo",
                        "ServiceNavigation::GetTvMode", "CreateServiceNavigation"};

const Exception kExceptions[] = {
    // A record goes without the symbol rate.
    {"", {"Satellite::FindTransponder", "CreateSatellite", "TunerControl::GetSignalKind", "CreateTunerControl"}, "="},
    {"CTvsUtil::GetSymbolRate", {"Satellite::FindTransponder"}, "0"},
    // An unreadable sub-picture setting is off, an unreadable feature the ordinary one.
    {"", {"vconf_get_bool"}, "="},
    {"CAntennaUtil::FlagSupport", {"system_info_get_custom_bool"}, "=", true},
    {"CUtil::is_tunerless", {"system_info_get_custom_bool"}, "=", true},
    {"CTvsUtil::GetChannelString", {"system_info_get_value_int"}, "="},
    {"CTvsUtil::FlagTempUnblockedChildLock", {"RatingUtil::QueryTempUnblock"}, "1"},
    {"Util::GetSignalInfoType", {"SOSpecApp::GetSpec", "CreateSOSpecApp"}, "="},
    {"Util::GetSignalInfoType", {"ServiceNavigation::GetTvMode"}, "4"},
    // No service stored there: the current channel is moved.
    {"Util::SetBandFreqForSignalInformation", {"Service::FindServiceList"}, "=", true},
    // Without a current channel the installation's own choice counts.
    {"CTvsUtil::GetSelectedTransponderId(true)", kChannel, "1"},
    {"CTvsUtil::InitSelectedSatellite(true)", kChannel, "53"},
    {"CTvsUtil::InitSelectedSatellite", {"vconf_set_int"}, "1", true},
    {"CTvsUtil::InitSelectedSatellite(false)", {"SatelliteSettings::GetSatelliteSettings"}, "=", true},
    {"CTvsUtil::InitSelectedSatellite(false)", {"SatelliteSettings::GetSatelliteSettings"}, "54"},
    // An unreadable setting leaves its default.
    {"Util::TuneAloneSelectedTransponder", {"vconf_get_int"}, "=", true},
    {"CTvsUtil::GetSelectedTransponderId", {"vconf_get_int"}, "-2"},
    {"CTvsUtil::SetDefaultChannel", kChannel, "="},
    {"CCountryUtil::Set", {"vconf_get_int"}, "="},
    {"CCountryUtil::ResetCountryRelatedInfoByPnP", {"vconf_get_int"}, "=", true},
    {"CCountryUtil::ResetCountryRelatedInfoByPnP",
     {"vconf_set_int", "CreateSOSpecControl", "SOSpecControl::Change"},
     "="},
    {"CCountryUtil::FlagVisible", {"system_info_get_value_int"}, "="},
    {"CUtil::checkplaying", {"app_manager_is_running"}, "=", true},
    // An antenna that cannot be counted has no channels: the next one is tried.
    {"CAntennaUtil::SetAvailableAntennaModeForPIP", {""}, "="},
    {"ChannelUtil::GetTVNavigationMode", {"ServiceNavigation::GetTvMode", "CreateServiceNavigation"}, "="},
    {"CommonUtil::GetTimeFormatType", {"vconf_get_str"}, "="},
    {"CommonUtil::GetTimeFormatType", {"system_info_get_value_int"}, "1"},
    {"Utils::GetProductTypeOSD", {"system_info_get_custom"}, "="},
    {"Utils::GetCountryCode", {"TCBinderManager::GetValue"}, " "},
    {"Utils::InstallerStorePosition", {"vconf_get_int"}, "=", true},
    {"Utils::InstallerStorePosition",
     {"SatelliteSettings::GetSatelliteSettings", "CreateSatelliteSettings", "vconf_get_int",
      "SatelliteControl::SendPositionerCommand", "CreateSatelliteControl"},
     "2"},
    // Whether a command was taken, nobody asks.
    {"SatCRUtils::SendSatCRCommand", {"SatelliteControl::SendSatCRCommand"}, "=", true},
    {"SatCRUtils::SetSlotFrequency", {"SatelliteSettings::SetSatCRSlotFrequency"}, "0"},
    // Only without the settings is nothing reset.
    {"Utils::ResetSatelliteSettings", {""}, "="},
    {"Utils::ResetSatelliteSettings", {"vconf_set_int", "SatelliteSettings::"}, "=", true},
    {"Utils::LaunchNumberPad", {"vconf_get_int"}, "="},
    {"Utils::LaunchNumberPad", {"app_control_add_extra_data"}, "=", true},
    // A rating system with one thing missing is still one.
    {"RatingUtils::",
     {"TCRegionRating::GetRatingRegionName"},
     "{Count:1,Names:[D],RatingCounts:[1],RatingNames:[[V]],RegionName:COM_SID_DOWNLOADABLE_US_RATING}"},
    {"RatingUtils::", {"TCRegionRating::DimensionCount"}, "{Count:0,RegionName:R}"},
    {"RatingUtils::", {"TCRegionRating::DimensionCount"}, "{Count:-1,RegionName:R}"},
    {"RatingUtils::",
     {"TCRegionRating::RRSDimension", "TCRRSDimension::RatingValueCount"},
     "{Count:1,Names:[],RatingCounts:[0],RatingNames:[[]],RegionName:R}"},
    {"RatingUtils::",
     {"TCRRSDimension::GetDimensionName"},
     "{Count:1,Names:[Dimension0],RatingCounts:[1],RatingNames:[[V]],RegionName:R}"},
    {"RatingUtils::",
     {"TCRRSDimension::RRSRatingValue"},
     "{Count:1,Names:[D],RatingCounts:[1],RatingNames:[[]],RegionName:R}"},
    {"RatingUtils::",
     {"TCRRSRatingValue::GetAbbrevRatingValueName"},
     "{Count:1,Names:[D],RatingCounts:[1],RatingNames:[[Rating0]],RegionName:R}"},
    // These answer their failure value, as the rest does, but say nothing.
    {"Utils::LaunchNumberPad", {"app_control_"}, "", true},
    {"Utils::CloseNumberPad", {"app_manager_is_running"}, "", true},
    {"Utils::GetCountryCode", {"TCBinderManager::GetValue"}, "", true},
    {"Utils::FlagPanelType82InchSdc", {"system_info_get_value_bool"}, "0", true},
    {"CommonUtil::GetCurrentDateStr", {"CTimeUtil::"}, "1", true},
    {"ChannelUtil::GetTVNavigationMode", {"CCCategoryUtil::GetCurrentCategory"}, "0", true},
    {"CUtil::getreginonkind", {"system_info_get_value_string"}, "null", true},
    {"CUtil::IsSmartMonitor", {"system_info_get_custom_bool"}, "0", true},
    {"CAntennaUtil::CheckCurrentBroadcaster", {"SOSpecControl::GetCurrentBroadcaster"}, "0", true},
    {"CCountryUtil::Get", {"vconf_get_int"}, "-1", true},
    {"CCountryUtil::SetPnPCountry", {"vconf_get_int", "vconf_set_int"}, "-1", true},
    {"CCountryUtil::SetEWBSAreaCode", {"vconf_set_str"}, "-1", true},
    {"CCountryUtil::SetEWBSProvince", {"vconf_set_str"}, "-1", true},
};

/// What is said of calls that fail, between bars; each is heard when all of them do.
constexpr const char* kSaid =
    "Null: Proxy|Null: Pip Proxy|Create Service Navigation failed|Interface creation failed!|"
    "CreateServiceNavigation fail|serviceNavigation == nullptr|return SIGNAL_INFO_DVB_BASIC|"
    "Failed to create API, serviceNavi(|get current service info failed|_get_modes_get tv mode failed|"
    "Get TV Mode failed|SIGNAL_INFO_DVB_SET_TUNE|Set TV Mode failed|"
    "serviceNavigation->GetCurrentServiceInfo() failed.|GETXXXService Fails,ret:|TuneForFeedingSI failed|"
    "TVServiceAPI::CreateService Failed!|Create Service failed!!|Create Service Manager failed!|"
    "GetServiceCount fails|find Service List...|CreateSourceControl Failed|Current source : -1|current source:-1|"
    "GetSourceState failed|Current Source Type is  -1|DeactivateSource Failed|"
    "sourceCtrl->SourceLockStatus return_value=|Create tuner control failed|so spec 0 0 / 0 0|"
    "a country ChangeAnalogSOSpec fails|d country ChangeDigitalSOSpec fails|CheckBroadcasterSupported fails 19|"
    "pSatelliteSettings is null|FindTransponder is failed|Add User Transponder FAIL.|Init satellite Id is -1|"
    "Geting current satellite settigns failed|Sending command failed!|Failed to create ChannelData|"
    "Failed to GetDigitalChannelNumber |Failed to GetDigitalChannels |pRatingUtil is NULL.|"
    "[Debug]tv service init failed|[Error]Get Region Rating System failed / RRT not available in stream :|"
    "[Info]Get RRS Lock failed:|[Info]Set RRS Lock failed:|[Debug]Get Rating Region Name failed|"
    "[Debug]No dimensions present in drrt|[Debug]Failed to read dimension|"
    "[Debug]No ratings present for dimension 0|[Debug] Failed to read dimension name|"
    "[Debug]Failed to get RRS rating value|[Debug]Failed to read rating value name|"
    "FlagTempUnblockedPamaitChildLock ret:|Get navigation criteria failed|pCategoryUtil is NULL|"
    "CAService::CAOperatorProfileInstance() failed|Get Binder failed|PS_CLIENT_INIT_FAILED!|"
    "svc_pvr_is_recording return PS_CALL_METHOD_FAILED . |svc_pvr_is_timeshifting return PS_CALL_METHOD_FAILED . |"
    "svc_pvr_is_timeshifting() failed.|CTimeUtil::GetCurrentTime return 0 |app_control_create failed|"
    "Failed to send request[-1]";

bool IsAllowed(const PublicOperation& operation, const std::string& call, const std::string& healthy,
               const std::string& result) {
  return result == operation.failure ||
         std::any_of(std::begin(kExceptions), std::end(kExceptions), [&](const Exception& e) {
           return e.IsOf(operation, call) && result == (e.result == "=" ? healthy : e.result);
         });
}

bool IsSilent(const PublicOperation& operation, const std::string& call) {
  return std::any_of(std::begin(kExceptions), std::end(kExceptions),
                     [&](const Exception& e) { return e.silent && e.IsOf(operation, call); });
}

/// What it changes on the TV is taken back.
Answer RunOn(const PublicOperation& operation) {
  Answer answer;
  ForgetKept();
  TakingBack([&] {
    ClearLog();
    answer.result = operation.run();
    answer.log = TakeLog();
  });
  ForgetKept();
  return answer;
}

class SweepTest : public TvsTest {
 protected:
  SweepTest() {
    // Not the list's first channel, so that going back to it shows; everything that can be so is so.
    Change(
        "UPDATE picture SET (service, transponder) = (SELECT id, transponder FROM service WHERE id = 300) "
        "WHERE profile = 1");
    Change("INSERT INTO recorder VALUES (300, 1, 1)");
    desktop::WriteRatingSystem(RRT_REGION_DOWNLOADABLE,
                               {desktop::OnAir("R"), {{desktop::OnAir("D"), {{desktop::OnAir("V")}}}}});
    Change("UPDATE service SET favourites = 1 WHERE id BETWEEN 295 AND 305");
    Change("REPLACE INTO tv_state VALUES ('category', 6), ('category_parameter', 1)");
    Change("UPDATE satcr SET frequency = 1632, slot = 4");
    desktop::Gate::Flush();
  }

  /// Calls of a healthy run that can fail, in order.
  std::vector<const desktop::Operation*> Calls(const PublicOperation& operation, Answer& healthy) {
    std::vector<const desktop::Operation*> calls;
    desktop::Gate::Watch([&](const desktop::Operation& call, const desktop::Entry&, const std::string&) {
      if (!call.failures.empty()) calls.push_back(&call);
    });
    healthy = RunOn(operation);
    desktop::Gate::Watch(nullptr);
    return calls;
  }

  void Check(const PublicOperation& operation, const std::string& call, const std::string& how, const Answer& healthy,
             const Answer& faulty) {
    ++m_pairs;
    EXPECT_TRUE(IsAllowed(operation, call, healthy.result, faulty.result))
        << operation.name << ": " << call << " " << how << ": " << faulty.result << ", healthy " << healthy.result;
    bool news = false;
    for (const std::string& line : faulty.log) news |= !Contains(healthy.log, line);
    EXPECT_TRUE(news || faulty.log.size() < healthy.log.size() || IsSilent(operation, call))
        << operation.name << ": " << call << " " << how << " says nothing";
    m_said.insert(faulty.log.begin(), faulty.log.end());
  }

  int m_pairs = 0;
  std::set<std::string> m_said;
};

}  // namespace

TEST_F(SweepTest, EveryCallFailsInEachOfItsWays) {
  for (const PublicOperation& operation : PublicOperations()) {
    Answer healthy;
    const auto calls = Calls(operation, healthy);
    EXPECT_FALSE(calls.empty()) << operation.name;
    for (const desktop::Operation* call : std::set<const desktop::Operation*>(calls.begin(), calls.end())) {
      for (const char* failure : call->failures) {
        m_tv.Fail(call->name, failure);
        const Answer faulty = RunOn(operation);
        m_tv.Heal();
        Check(operation, call->name, std::string("= ") + failure, healthy, faulty);
      }
    }
    EXPECT_EQ(RunOn(operation).result, healthy.result) << operation.name;
  }
  std::istringstream texts(kSaid);
  for (std::string text; std::getline(texts, text, '|');) {
    EXPECT_TRUE(Contains({m_said.begin(), m_said.end()}, text)) << text;
  }
  std::printf("%d pairs of operation and fault\n", m_pairs);
}

TEST_F(SweepTest, TheNthCallFailsOnceAndForGood) {
  for (const PublicOperation& operation : PublicOperations()) {
    Answer healthy;
    const auto calls = Calls(operation, healthy);
    for (const bool forGood : {false, true}) {
      for (size_t n = 1; n <= calls.size(); ++n) {
        desktop::Gate::FailNth(static_cast<int>(n), forGood);
        const Answer faulty = RunOn(operation);
        EXPECT_TRUE(desktop::Gate::NthReached()) << operation.name << " call " << n;
        desktop::Gate::FailNth(0, false);
        if (!forGood) Check(operation, calls[n - 1]->name, "call " + std::to_string(n), healthy, faulty);
      }
    }
  }
  std::printf("%d pairs of operation and call\n", m_pairs);
}

}  // namespace test
