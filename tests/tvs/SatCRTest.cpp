// Single-cable runs: what the utilities and the manager of a run do, and what is on the cable.
#include <json/json.h>

#include "Clock.h"
#include "SatCRProcessManager.h"
#include "SatCRUtil.h"
#include "TvsTest.h"
#include "Utils.h"
#include "tvs/SingleCable.h"

namespace test {

namespace {

enum ProcessType { kDetectFirst = 1, kDetectSecond, kVerifyFirst, kVerifySecond };

/// A cable whose first free bands are 1400 and 1632, and whose runs take 100 seconds.
class SatCRTest : public TvsTest {
 protected:
  SatCRTest() {
    HoldClock(true);
    Change("REPLACE INTO tv_state VALUES ('satcr_duration', 100000)");
  }
  ~SatCRTest() override { HoldClock(false); }

  static std::string Stored(int tuner) {
    return Ask("SELECT slot || ' ' || frequency FROM satcr WHERE tuner = ?", tuner);
  }
  static int Progress(CSatCRProcessManager& manager) {
    unsigned char progress = 77;
    manager.GetSatCRProcessStatus(progress);
    return progress;
  }
};

struct Manager : CSatCRProcessManager {
  explicit Manager(int type) { SetProcessType(type); }
};

}  // namespace

TEST_F(SatCRTest, ADetectionFindsTheFirstFreeBandOnItsWay) {
  Manager first(kDetectFirst);
  ASSERT_TRUE(first.Start());
  const std::pair<double, int> seconds[] = {{0, -1}, {24, -1}, {1, 1400}, {74, 1400}, {1, 1400}, {500, 1400}};
  double passed = 0;
  for (const auto& [more, found] : seconds) {
    MoveClock(more);
    passed += more;
    EXPECT_EQ(Progress(first), static_cast<int>(std::min(passed, 100.0)));
    EXPECT_EQ(SatCRUtils::GetSatCRProcessStatus(0).SlotFrequency, found) << passed;
  }
  EXPECT_TRUE(first.IsSatCRCommandSuccess());
  EXPECT_EQ(Stored(0), "255 0") << "not before the end";
  first.Stop();
  EXPECT_EQ(Stored(0), "2 1400");
  EXPECT_EQ(Progress(first), 0) << "a stop ends it";
  EXPECT_EQ(m_tv.ArgumentsOf("SatelliteControl::SendSatCRCommand"), (Texts{"0, 0, 255, 0", "0, 2, 255, 0"}));
  // Its band is taken for the other tuner.
  Manager second(kDetectSecond);
  ASSERT_TRUE(second.Start());
  MoveClock(100);
  EXPECT_EQ(Progress(second), 100);
  second.Stop();
  EXPECT_EQ(Stored(1), "4 1632");
  EXPECT_EQ(Stored(0), "2 1400");
}

TEST_F(SatCRTest, EndsAsTheCableIsThen) {
  struct Case {
    const char* what;
    int type, stored;
    /// Done at the start, and half-way.
    std::function<void()> before, meanwhile;
    bool success;
    std::string kept;
  };
  const auto nothing = [] {};
  const auto take = [](int frequency) {
    return [=] { Change("UPDATE satcr_band SET occupant = 'a neighbour' WHERE frequency = ?", frequency); };
  };
  const auto takeAll = [] { Change("UPDATE satcr_band SET occupant = 'everybody'"); };
  const auto outcome = [](int frequency) {
    return [=] { Change("REPLACE INTO tv_state VALUES ('satcr_outcome', ?)", frequency); };
  };
  const Case cases[] = {
      {"nothing is free", kDetectFirst, 0, takeAll, nothing, false, "255 0"},
      {"no band", kDetectFirst, 0, [] { Change("DELETE FROM satcr_band"); }, nothing, false, "255 0"},
      {"taken meanwhile", kDetectFirst, 0, nothing, take(1400), true, "4 1632"},
      {"all taken meanwhile", kDetectSecond, 0, nothing, takeAll, false, "255 0"},
      {"its own band is no other's", kDetectFirst, 1400, nothing, nothing, true, "2 1400"},
      {"told to find nothing", kDetectFirst, 0, outcome(0), nothing, false, "255 0"},
      {"told what to find", kDetectFirst, 0, outcome(1284), nothing, true, "1 1284"},
      {"stored and free", kVerifyFirst, 1632, nothing, nothing, true, "4 1632"},
      {"stored and free, second", kVerifySecond, 2096, nothing, nothing, true, "8 2096"},
      {"stored and taken", kVerifyFirst, 1516, nothing, nothing, false, "9 1516"},
      {"stored and taken meanwhile", kVerifyFirst, 1632, nothing, take(1632), false, "9 1632"},
      {"off the bands", kVerifyFirst, 1700, nothing, nothing, false, "9 1700"},
      {"nothing stored", kVerifySecond, 0, nothing, nothing, false, "255 0"},
      {"another one answers", kVerifyFirst, 1632, outcome(1748), nothing, false, "5 1748"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const int tuner = (c.type - 1) % 2;
    Change("UPDATE satcr SET frequency = 0, slot = 255");
    if (c.stored) Change("UPDATE satcr SET frequency = ?, slot = 9 WHERE tuner = ?", c.stored, tuner);
    Change("DELETE FROM tv_state WHERE name = 'satcr_outcome'");
    desktop::SetUserBands({1284, 1400, 1516, 1632, 1748, 1864, 1980, 2096});
    Change("UPDATE satcr_band SET occupant = iif(number IN (1, 3), 'others', '')");
    c.before();
    Manager manager(c.type);
    ASSERT_TRUE(manager.Start());
    MoveClock(60);
    EXPECT_EQ(Progress(manager), 60);
    c.meanwhile();
    MoveClock(39);
    EXPECT_EQ(Progress(manager), 99);
    MoveClock(1);
    EXPECT_EQ(Progress(manager), 100);
    EXPECT_EQ(manager.IsSatCRCommandSuccess(), c.success);
    manager.Stop();
    EXPECT_EQ(Stored(tuner), c.kept);
  }
}

TEST_F(SatCRTest, ACancelledDetectionKeepsWhatItHadSeen) {
  for (const auto& [seconds, asked] : {std::pair(10.0, true), {50.0, false}, {50.0, true}}) {
    Change("UPDATE satcr SET frequency = 0, slot = 255");
    Manager manager(kDetectFirst);
    manager.Start();
    MoveClock(seconds);
    if (asked) Progress(manager);
    manager.Stop();
    EXPECT_EQ(Stored(0), asked && seconds == 50 ? "2 1400" : "255 0") << seconds << asked;
  }
}

TEST_F(SatCRTest, WithoutAProcessTypeNothingStarts) {
  for (const int type : {0, -1, 5}) {
    Manager manager(type);
    m_tv.ClearJournal();
    ClearLog();
    EXPECT_FALSE(manager.Start());
    const std::string number = std::to_string(type);
    EXPECT_TRUE(Contains(TakeLog(), "[Error]Invaild process type, m_nProcessType=" + number));
    EXPECT_EQ(Progress(manager), 0) << "of the first tuner";
    EXPECT_TRUE(Contains(TakeLog(), "[Error]Invalid process type value, m_nProcessType=" + number));
    EXPECT_EQ(m_tv.ArgumentsOf("SatelliteSettings::GetSatCRSettings"), Texts{"65535"});
    EXPECT_EQ(m_tv.ArgumentsOf("SatelliteSettings::GetSatCRDetectStatus"), Texts{"0"});
  }
}

TEST_F(SatCRTest, EachCallMayFailFromEachTickOn) {
  /// Whether the run starts, the progress that two ticks see (77 without a status), success, and what is kept: with the
  /// call failing before the start, before the first tick and before the second.
  struct Case {
    const char* operation;
    const char* ends[3];
    bool stops;
    const char* said;
  };
  constexpr const char *kHealthy = "1 50 100 1 2 1400", *kNoRun = "0 0 0 0 255 0";
  const Case cases[] = {
      {"CreateSatelliteSettings",
       {"0 77 77 0 255 0", "1 77 77 0 255 0", "1 50 77 1 255 0"},
       false,
       "[Debug]pSatelliteSettings is null"},
      {"SatelliteSettings::GetSatCRSettings", {kNoRun, kHealthy, kHealthy}, false, "[Error]GetSatCRSettings fails"},
      {"SatelliteControl::SendSatCRCommand",
       {"1 0 0 0 255 0", kHealthy, kHealthy},
       true,
       "[Debug]SendSatCRCommand.nTunerId[0] eSatCRCmd[2] satCrSetting.slotNumber[255] satCrSetting.slotFrequency[0]"},
      {"SatelliteSettings::GetSatCRDetectStatus",
       {"1 77 77 0 255 0", "1 77 77 0 255 0", "1 50 77 1 2 1400"},
       true,
       "[Debug]GetSatCRDetectStatus fails. nRetVal[0]"},
      {"SatelliteSettings::SetSatCRSlotFrequency",
       {"1 50 100 1 255 0", "1 50 100 1 255 0", "1 50 100 1 255 0"},
       true,
       "[Error]SetSatCRSlotFrequency failed. nTunerId[0] nSlotFrequency[1400]"}};
  for (const Case& c : cases) {
    for (const int tick : {0, 1, 2}) {
      SCOPED_TRACE(std::string(c.operation) + " from tick " + std::to_string(tick));
      Change("UPDATE satcr SET frequency = 0, slot = 255, command = 2");
      m_tv.ClearJournal();
      ClearLog();
      const auto failAt = [&](int now) {
        if (now == tick) m_tv.Fail(c.operation);
      };
      Manager manager(kDetectFirst);
      failAt(0);
      std::string seen = std::to_string(manager.Start());
      for (const int now : {1, 2}) {
        MoveClock(50);
        failAt(now);
        seen += " " + std::to_string(Progress(manager));
      }
      seen += " " + std::to_string(manager.IsSatCRCommandSuccess());
      manager.Stop();
      m_tv.Heal();
      EXPECT_EQ(seen + " " + Stored(0), c.ends[tick]);
      EXPECT_TRUE(Contains(TakeLog(), c.said));
      const Texts sent = m_tv.ArgumentsOf("SatelliteControl::SendSatCRCommand");
      EXPECT_EQ(!sent.empty() && sent.back() == "0, 2, 255, 0", c.stops);
    }
  }
}

TEST_F(SatCRTest, UtilitiesWithoutAManager) {
  m_tv.ClearJournal();
  for (const int frequency : {0, -1}) EXPECT_EQ(SatCRUtils::SetSlotFrequency(0, frequency), -1);
  EXPECT_EQ(m_tv.Calls("SatelliteSettings::SetSatCRSlotFrequency"), 0U);
  EXPECT_EQ(SatCRUtils::SetSlotFrequency(7, 1400), 0) << "no such tuner";
  EXPECT_EQ(SatCRUtils::SetSlotFrequency(1, 1980), 1);
  EXPECT_EQ(SatCRUtils::GetSlotFrequency(1), 1980);
  EXPECT_EQ(SatCRUtils::GetSlotFrequency(7), -1);
  const struct {
    int frequency, type;
    bool success;
  } ends[] = {{-1, 1, false}, {0, 1, false}, {0, 2, false},    {1, 1, true},    {1400, 2, true},
              {-1, 4, false}, {0, 4, false}, {1400, 4, false}, {1980, 4, true}, {1980, 0, true}};
  for (const auto& [frequency, type, success] : ends) {
    EXPECT_EQ(SatCRUtils::IsSatCRCommandSuccess(1, frequency, type), success) << frequency << " " << type;
  }
  EXPECT_FALSE(SatCRUtils::IsSatCRCommandSuccess(7, 1980, 4));

  EXPECT_TRUE(SatCRUtils::SendSatCRCommand(1, SATCR_COMMAND_VERIFY));
  MoveClock(100);
  const struct { int tuner, frequency, slot, progress; } states[] = {{1, 1980, 7, 100}, {0, -1, 0, 0}, {7, -1, 0, 0}};
  for (const auto& state : states) {
    const Json::Value json =
        Parsed(Utils::WrapMallocdString(SatCRUtils::GetSatCRProcessStatusAsJsonString(state.tuner)));
    EXPECT_EQ(json.size(), 3U);
    EXPECT_EQ(json["SlotFrequency"].asInt(), state.frequency);
    EXPECT_EQ(json["SlotNumber"].asInt(), state.slot);
    EXPECT_EQ(json["Progress"].asInt(), state.progress);
  }
}

TEST_F(SatCRTest, AnotherProcessSeesTheRunAndSetsTheCable) {
  const auto tell = [&](Texts words) {
    words.insert(words.begin(), "satcr");
    return Command(words);
  };
  tell({"--bands", "1210,1420,1680,2040", "--occupy", "1210=Kitchen", "--duration", "3600", "--store", "1=1420"});
  ASSERT_TRUE(SatCRUtils::SendSatCRCommand(0, SATCR_COMMAND_DETECT));
  // The clock of the others is not the tests'.
  Change("UPDATE satcr SET began = ? - 3600000 * 6 / 10 WHERE tuner = 0",
         static_cast<int64_t>(std::stoll(Execute("/bin/date", {"+%s000"}).output)));
  const Json::Value seen = tell({});
  EXPECT_EQ(seen["bands"].size(), 4U);
  EXPECT_EQ(seen["bands"][0]["occupant"], "Kitchen");
  EXPECT_EQ(seen["bands"][1]["tuner"], 1);
  EXPECT_EQ(seen["tuners"][0]["run"], "detects");
  EXPECT_EQ(seen["tuners"][0]["progress"].asInt(), 60);
  EXPECT_TRUE(seen["tuners"][0]["found"].isNull()) << "the third band takes its whole time";
  tell({"--leave", "1210"});
  EXPECT_EQ(SatCRUtils::GetSatCRProcessStatus(0).SlotFrequency, 1210);
  SatCRUtils::SendSatCRCommand(0, SATCR_COMMAND_STOP);
  EXPECT_EQ(tell({})["tuners"][0]["run"], "stopped");
  for (const Texts& wrong :
       {Texts{"--bands", "10"}, Texts{"--bands", "1210,1210"}, Texts{"--bands", "1210,"}, Texts{"--occupy", "1234=x"},
        Texts{"--store", "2=1210"}, Texts{"--duration", "0"}, Texts{"--outcome", "any"}, Texts{"--bands"},
        Texts{"--bands", "1500", "--leave", "1210"}}) {
    EXPECT_TRUE(tell(wrong).isNull()) << wrong.back();
  }
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || sum(frequency) FROM satcr_band"), "4 6350") << "all or nothing";
}

}  // namespace test
