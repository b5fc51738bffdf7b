// The TV service over its database: channels, tuning, satellites as the scan tables have them, bad input.
#include <Ecore.h>
#include <unistd.h>

#include <fstream>
#include <map>

#include "Clock.h"
#include "Gate.h"
#include "Process.h"
#include "Text.h"
#include "TvsTest.h"
#include "Utils.h"
#include "tvs/ScanTables.h"
#include "tvs/Tuning.h"
#include "vconf.h"

namespace test {

namespace {

class ServiceTest : public TvsTest {
 protected:
  static long long Current() { return std::stoll(Ask("SELECT service FROM picture WHERE profile = 1")); }
};

}  // namespace

TEST_F(ServiceTest, HoldsTheSatellitesOfTheScanTables) {
  const auto tables = desktop::SatelliteTables(desktop::ScanTableDirectory() / "dvb-s");
  ASSERT_GT(tables.size(), 100u);
  EXPECT_EQ(Ask("SELECT group_concat(id) FROM satellite WHERE user_defined = 1"), "65505,65506,65507,65508");
  const std::string size = std::to_string(tables.size());
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || min(id) || ' ' || max(id) FROM satellite WHERE user_defined = 0"),
            size + " 1 " + size);
  for (size_t i = 0; i < tables.size(); ++i) {
    SCOPED_TRACE(tables[i].file);
    desktop::Query q(
        "SELECT frequency, symbol_rate, polarisation, fec, standard FROM transponder WHERE satellite = ? ORDER BY id",
        static_cast<int>(i + 1));
    for (const desktop::ScanEntry& e : desktop::ReadScanTable(tables[i].file, [](const std::string&) {})) {
      ASSERT_TRUE(q.Row());
      const int expected[] = {e.frequency, e.symbolRate, e.polarisation, e.fec, e.standard};
      for (int column = 0; column < 5; ++column) EXPECT_EQ(q.Int(column), expected[column]) << column;
    }
    EXPECT_FALSE(q.Row());
  }
}

TEST_F(ServiceTest, ReadsScanTablesAndNamesBadOnes) {
  constexpr const char* kPolarisations[] = {"HORIZONTAL", "VERTICAL", "LEFT", "RIGHT"};
  constexpr const char* kRates[] = {"AUTO", "1/2", "2/3", "3/4", "3/5", "4/5", "5/6", "6/7", "7/8", "8/9", "9/10"};
  const std::string begin = "[CHANNEL]\n\tFREQUENCY = 11362000\n\tDELIVERY_SYSTEM = DVBS";
  std::string whole;
  for (size_t i = 0; i < std::size(kRates); ++i) {
    whole += begin + (i % 2 ? "2" : "") + "\n\tPOLARIZATION = " + kPolarisations[i % 4] +
             "\n\tSYMBOL_RATE = 22000000\n\tINNER_FEC = " + kRates[i] + "\n";
  }
  const struct {
    const char* name;
    std::string text;
    size_t entries, complaints;
  } files[] = {{"Whole-1.0E", whole, 11, 0},
               {"CutOff-2.0E", whole + "[CHANNEL]\n\tFREQUENCY = 114", 11, 1},
               {"TooFast-2.5E", whole + begin + "\n\tSYMBOL_RATE = 65536000\n", 11, 1},
               {"Nonsense-3.0E", std::string("\x01\x02\xff nonsense \0 = [[[", 20), 0, 1},
               {"Empty-4.0E", "", 0, 1}};
  const TemporaryDirectory directory;
  for (const auto& file : files) {
    SCOPED_TRACE(file.name);
    std::ofstream(directory / file.name) << file.text;
    Texts complaints;
    const auto entries =
        desktop::ReadScanTable(directory / file.name, [&](const std::string& c) { complaints.push_back(c); });
    ASSERT_EQ(entries.size(), file.entries);
    ASSERT_EQ(complaints.size(), file.complaints);
    for (const std::string& complaint : complaints) EXPECT_NE(complaint.find(file.name), complaint.npos) << complaint;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
      const auto& [frequency, symbolRate, polarisation, fec, modulation, bandwidth, standard] = entries[i];
      EXPECT_EQ(std::tie(frequency, symbolRate, polarisation, fec, standard),
                std::make_tuple(11362000, 22000, i % 4, i, 5 + i % 2));
    }
  }
  EXPECT_EQ(desktop::OrbitalPosition("X-19.2E"), 192);
  EXPECT_EQ(desktop::OrbitalPosition("X_5.0W"), 3550);
  for (const char* name : {"X", "X-", "X-E", "X-19.2", "X-200E", "X-1.0E2", "S-nanE", "S-1e1E"}) {
    EXPECT_EQ(desktop::OrbitalPosition(name), -1) << name;
  }
}

TEST_F(ServiceTest, MissingColumnsGiveTheDefaults) {
  const long long id = Current();
  Change(
      "UPDATE service SET type = NULL, number = NULL, profile = NULL, frequency = NULL, bandwidth = NULL, "
      "modulation = NULL, symbol_rate = NULL, program = NULL, stream = NULL, locked_mode = NULL, is_default = NULL, "
      "network = NULL, original_network = NULL, satellite = NULL, major = 65535 WHERE id = ?",
      static_cast<int64_t>(id));
  tvs_ch_info* record = CTvsUtil::m_TvServiceChannelGetInfo(false);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->channelType, 0);
  EXPECT_EQ(record->digital + record->analog + record->virtualChannel + record->lockedModeOff + record->isDefault, 0);
  EXPECT_EQ(record->serviceId, static_cast<unsigned long long>(id));
  for (const auto field :
       {&tvs_ch_info::channelNumber, &tvs_ch_info::major, &tvs_ch_info::minor, &tvs_ch_info::programNumber,
        &tvs_ch_info::transportStreamId, &tvs_ch_info::originalNetworkId, &tvs_ch_info::networkId}) {
    EXPECT_EQ(record->*field, 65535);
  }
  for (const auto field : {&tvs_ch_info::serviceProfile, &tvs_ch_info::satelliteId, &tvs_ch_info::modulation,
                           &tvs_ch_info::frequency, &tvs_ch_info::bandwidth}) {
    EXPECT_EQ(record->*field, -1);
  }
  CTvsUtil::m_TvServiceChannelDelInfo(record);
}

TEST_F(ServiceTest, ChannelTypesSetTheirFlags) {
  const std::map<int, std::string> flags = {{0, "0000"}, {1, "1010"}, {2, "2100"},   {3, "3010"},  {4, "4100"},
                                            {5, "5000"}, {9, "9001"}, {12, "12000"}, {13, "0000"}, {200, "0000"}};
  for (const auto& [type, expected] : flags) {
    Change("UPDATE service SET locked_mode = 0, type = ? WHERE id = ?", type, static_cast<int64_t>(Current()));
    tvs_ch_info* r = CTvsUtil::m_TvServiceChannelGetInfo(false);
    const std::string set = std::to_string(r->channelType) + std::to_string(r->digital) + std::to_string(r->analog);
    EXPECT_EQ(set + std::to_string(r->virtualChannel), expected) << type;
    EXPECT_EQ(r->lockedModeOff, 1);
    CTvsUtil::m_TvServiceChannelDelInfo(r);
  }
}

TEST_F(ServiceTest, ChannelsFollowEachOtherRoundTheList) {
  Change("UPDATE service SET type = 9 WHERE id = 3");
  Change("UPDATE service SET type = 3 WHERE id = 4");
  const long long last = std::stoll(Ask("SELECT max(id) FROM service WHERE antenna = 2 AND service_mode = 1"));
  const struct {
    int direction;
    bool onlyDigital;
    long long from, to;
  } steps[] = {{0, false, 1, 2}, {0, false, 2, 4},    {0, true, 2, 5},
               {1, true, 5, 2},  {1, false, 1, last}, {0, false, last, 1}};
  for (const auto& step : steps) {
    ASSERT_EQ(ChannelUtil::SetService(static_cast<unsigned long long>(step.from), false), 0);
    EXPECT_TRUE(ChannelUtil::TuneChannel(false, step.direction, NAVIGATION_ALL, step.onlyDigital));
    EXPECT_EQ(Current(), step.to) << "from " << step.from;
  }
  EXPECT_EQ(ChannelUtil::SetService(999999, false), -1);
  EXPECT_EQ(Current(), 1);
  const std::tuple<int, int, int> categories[] = {{0, 0, 9}, {1, 11, 1}, {1, 13, 3}, {1, 0, 4},  {2, 7, 0}, {2, 6, 1},
                                                  {3, 2, 0}, {3, 1, 1},  {3, 0, 2},  {4, 4, 24}, {5, 8, 7}, {6, 0, 0},
                                                  {6, 3, 5}, {6, 0, 6},  {7, 10, 0}, {8, 16, 0}, {9, 0, 0}};
  for (const auto& [category, mode, parameter] : categories) {
    Change("REPLACE INTO tv_state VALUES ('category', ?), ('category_parameter', ?)", category, parameter);
    EXPECT_EQ(ChannelUtil::GetTVNavigationMode(), mode) << category << " " << parameter;
  }
}

TEST_F(ServiceTest, ATuneTakesTimeAndEndsInItsSignal) {
  static int told, wakes;
  told = wakes = 0;
  const auto tell = [](ESignalType, EProfile, unsigned short, const TSSignalData& data, void*) {
    told = static_cast<int>(data.serviceId);
    return 0;
  };
  TVServiceAPI::ISignalSubscriber* subscriber = nullptr;
  ASSERT_GT(TVServiceAPI::CreateSignalSubscriber(tell, &subscriber), 0);
  ASSERT_GT(subscriber->Subscribe(SIGNAL_TUNE_SUCCESS, 0, 1, 0, tell), 0);
  desktop::SetTuneWaker([](int milliseconds) { wakes = milliseconds; });
  ASSERT_EQ(CTvsUtil::SetService(500, false), 0);
  EXPECT_GT(wakes, 0);
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus());
  EXPECT_EQ(CTvsUtil::GetCurrentState(PROFILE_MAIN), 1);
  EXPECT_EQ(CTvsUtil::GetSignalQuality(), 0);
  EXPECT_EQ(told, 0);
  MoveClock(1.3);
  desktop::DeliverTunes();
  EXPECT_EQ(told, 500);
  EXPECT_TRUE(CTvsUtil::GetTunerLockStatus());
  EXPECT_EQ(CTvsUtil::GetCurrentState(PROFILE_MAIN), 0);
  Change(
      "UPDATE transponder SET strength = 57, quality = 80, ber = 120, snr = 1234 WHERE id = (SELECT transponder FROM "
      "picture WHERE profile = 1)");
  EXPECT_EQ(CTvsUtil::GetSignalStrength(), 57);
  EXPECT_EQ(CTvsUtil::GetSignalQuality(), 80);
  EXPECT_EQ(CTvsUtil::GetBitErrorRate(), 120);
  EXPECT_EQ(CTvsUtil::GetSNR(), 1234);
  // A transponder without signal is never a success.
  told = 0;
  Change("UPDATE transponder SET strength = 0 WHERE id = (SELECT transponder FROM service WHERE id = 510)");
  ASSERT_EQ(CTvsUtil::SetService(510, false), 0);
  MoveClock(5);
  desktop::DeliverTunes();
  EXPECT_EQ(told, 0);
  EXPECT_GT(subscriber->Unsubscribe(SIGNAL_TUNE_SUCCESS, 1, 0, tell), 0);
  delete subscriber;
  desktop::SetTuneWaker(nullptr);
}

TEST_F(ServiceTest, ATuneRefreshesTheMenuWhileItIsSubscribed) {
  const auto iterate = [] {
    ecore_timer_add(
        0.01, [](void*) { return ecore_main_loop_quit(), ECORE_CALLBACK_CANCEL; }, nullptr);
    ecore_main_loop_begin();
  };
  const auto refreshed = [&] { return m_tv.GetInt("db/menu/refresh_menu") == 1; };
  ecore_app_no_system_modules();
  ecore_init();
  CTvsUtil::SubscribeForTuneSuccessSignal();
  CTvsUtil::SubscribeForTuneSuccessSignal();
  iterate();
  EXPECT_TRUE(Contains(TakeLog(), "Succesfully subscribed for signal SIGNAL_TUNE_SUCCESS"));
  EXPECT_TRUE(refreshed());
  for (const bool listens : {true, false}) {
    m_tv.Set("db/menu/refresh_menu", "0");
    ASSERT_EQ(CTvsUtil::SetService(listens ? 600 : 610, false), 0);
    EXPECT_FALSE(refreshed());
    MoveClock(2);
    desktop::DeliverTunes();
    EXPECT_EQ(refreshed(), listens);
    CTvsUtil::UnsubscribeForTuneSuccessSignal();
    iterate();
  }
  EXPECT_TRUE(Contains(TakeLog(), "Succesfully unsubscribed for signal SIGNAL_TUNE_ACCESS"));
  // Taken back before the main loop has run it, and while it is subscribed.
  CTvsUtil::SubscribeForTuneSuccessSignal();
  CTvsUtil::Clean();
  iterate();
  EXPECT_FALSE(Contains(TakeLog(), "Succesfully subscribed"));
  CTvsUtil::SubscribeForTuneSuccessSignal();
  iterate();
  CTvsUtil::Clean();
  EXPECT_TRUE(Contains(TakeLog(), "Succesfully unsubscribed"));
  ecore_shutdown();
}

TEST_F(ServiceTest, MovingTheCurrentChannel) {
  ASSERT_EQ(CTvsUtil::SetService(1126, false), 0);
  const auto bandwidth = static_cast<EBandwidth>(std::stoi(Ask("SELECT bandwidth FROM service WHERE id = 1126")));
  const int from = std::stoi(Ask("SELECT frequency FROM service WHERE id = 1126"));
  EXPECT_EQ(ChannelUtil::SetBandFreqForSignalInformation(BANDWIDTH_7, from), -1);
  ForgetKept();
  EXPECT_EQ(CTvsUtil::SetBandFreqForSignalInformation(bandwidth, from), -1);
  // Where a service is stored, it is tuned to; elsewhere the current one moves there.
  const std::string other = Ask("SELECT min(frequency) FROM service WHERE antenna = 0 AND frequency > ?", from);
  EXPECT_EQ(ChannelUtil::SetBandFreqForSignalInformation(bandwidth, std::stoi(other)), 0);
  EXPECT_EQ(Ask("SELECT s.frequency FROM picture p JOIN service s ON s.id = p.service WHERE p.profile = 1"), other);
  const long long moved = Current();
  EXPECT_NE(moved, 1126);
  EXPECT_EQ(ChannelUtil::SetBandFreqForSignalInformation(BANDWIDTH_7, 123456), 0);
  EXPECT_EQ(Current(), moved);
  EXPECT_EQ(Ask("SELECT frequency || ' ' || bandwidth || ' ' || ifnull(transponder, '-') FROM service WHERE id = ?",
                static_cast<int64_t>(moved)),
            "123456 2 -");
  MoveClock(5);
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus());
}

TEST_F(ServiceTest, WhatIsNotThereIsNotTunedTo) {
  CTvsUtil::transponderID = 424242;
  EXPECT_FALSE(CTvsUtil::TuneAloneSelectedTransponder(false));
  Change("DELETE FROM service");
  const std::string before = Ask("SELECT tuned_at FROM picture WHERE profile = 1");
  CTvsUtil::SetDefaultChannelAfterSatellitePropertyChanges();
  EXPECT_EQ(Ask("SELECT tuned_at FROM picture WHERE profile = 1"), before);
}

TEST(ServiceNameTest, BrokenNamesStayBroken) {
  EXPECT_EQ(desktop::ToUtf16("a\xED\xA0\x80"
                             "b"),
            (std::u16string{u'a', char16_t(0xD800), u'b'}));
  EXPECT_EQ(desktop::ToUtf16("a\xFF\xC3"), u"a\uFFFD\uFFFD");
}

TEST_F(ServiceTest, SignalInformationTypes) {
  const struct {
    int model, setTune, antenna, country, expected;
  } rows[] = {{0, 1, 2, 8, 5}, {2, 0, 0, 8, 5}, {87, 1, 2, 8, 5}, {34, 1, 2, 8, 0}, {85, 0, 0, 8, 1}, {72, 0, 1, 8, 0},
              {8, 1, 2, 8, 3}, {8, 0, 0, 8, 2}, {8, 1, 0, 8, 4},  {8, 0, 0, 10, 3}, {8, 1, 0, 10, 4}, {8, 0, 1, 28, 3}};
  constexpr unsigned long long kChannels[] = {1126, 1276, 1};  // of each antenna
  for (const auto& row : rows) {
    Change("REPLACE INTO model_value VALUES (1, ?), (94, ?)", row.model, row.setTune);
    SetCountry(row.country);
    ASSERT_EQ(ChannelUtil::SetService(kChannels[row.antenna], false), 0);
    ForgetKept();
    SCOPED_TRACE(testing::Message() << "model " << row.model << ", antenna " << row.antenna << ", country "
                                    << row.country);
    EXPECT_EQ(ChannelUtil::GetSignalInfoType(), row.expected);
    EXPECT_EQ(CTvsUtil::GetSignalInfoType(), row.expected);
  }
}

TEST_F(ServiceTest, TwoProcessesOnOneTv) {
  // Every figure of a channel is its number, so that a torn record shows.
  Change("UPDATE service SET frequency = id, program = id, stream = id, number = id, transponder = id WHERE id <= 200");
  desktop::Store::Close();
  Process other([&] {
    desktop::Store::Open(m_tv.Path());
    for (int n = 0;; ++n) {
      const auto zap = [&] {
        desktop::BeginTune(PROFILE_MAIN, static_cast<unsigned long long>(n % 200 + 1));
        Change("UPDATE setting SET value = ? WHERE key = 'db/menu/refresh_menu'", n % 200 + 1);
      };
      desktop::Store::Get().Write(zap, false);
      // Leaves the other one a moment to write its journal.
      if (n % 20 == 0) usleep(1000);
    }
  });
  desktop::Store::Open(m_tv.Path());
  int wrong = 0;
  for (int i = 0; i < 5000; ++i) {
    tvs_ch_info* r = ChannelUtil::m_TvServiceChannelGetInfo(false);
    int key = -1;
    const bool whole = r && r->frequency == static_cast<int>(r->serviceId) && r->programNumber == r->frequency &&
                       r->transportStreamId == r->frequency && r->major == r->frequency;
    wrong += !whole || vconf_get_int("db/menu/refresh_menu", &key) != 0 || key < 0 || key > 200;
    if (i % 10 == 0) wrong += ChannelUtil::GetSignalStrength() == 0;
    ChannelUtil::m_TvServiceChannelDelInfo(r);
  }
  EXPECT_FALSE(other.Wait(0)) << "the other process has ended";
  EXPECT_EQ(wrong, 0);
  EXPECT_FALSE(Contains(TakeLog(), "locked"));
}

}  // namespace test
