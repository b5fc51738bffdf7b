// What an installer does: the dish and its commands, the satellites in use and the user's own, the rows that set them,
// and the reset of it all.
#include <json/json.h>
#include <signal.h>
#include <unistd.h>

#include <random>

#include "Clock.h"
#include "Process.h"
#include "TvsTest.h"
#include "Utils.h"
#include "settings_api.h"
#include "tvs/Dish.h"
#include "tvs/Installation.h"
#include "tvs/SingleCable.h"
#include "tvs/State.h"
#include "tvs/Tuning.h"
#include "vconf.h"

namespace test {

namespace {

const std::string kSystem = "db/menu/broadcasting/channel-settings/satellite-system/";
constexpr const char* kCommand = "SatelliteControl::SendPositionerCommand";
constexpr int kTurksat = 320;  // at 42.0E, which the dish that turns reaches
constexpr const char* kTurksatTransponder =
    "SELECT id FROM transponder WHERE satellite = 320 ORDER BY quality DESC, id LIMIT 1";

/// All that a reset puts back.
std::string State() {
  return Ask(
      "SELECT (SELECT group_concat(id || ' ' || position || ' ' || lnb_power || ' ' || slot || ' ' || diseqc || ' ' || "
      "low || ' ' || high || ' ' || switch || ' ' || voltage || ' ' || tone || ' ' || user_band) FROM satellite) || "
      "(SELECT group_concat(id || frequency) FROM transponder) || (SELECT group_concat(value) FROM setting WHERE key "
      "LIKE '%satellite-system%') || (SELECT group_concat(value) FROM item WHERE id LIKE 'setting-user-sat-%') || "
      "(SELECT group_concat(slot || ' ' || frequency || ' ' || command) FROM satcr) || "
      "(SELECT group_concat(transponder) FROM picture)");
}

class InstallationTest : public TvsTest {
 protected:
  InstallationTest() { HoldClock(true); }
  ~InstallationTest() override { HoldClock(false); }

  void SetUp(int satellite) { m_tv.Set(kSystem + "lnb-settings/satellite", std::to_string(satellite)); }

  static int Angle() { return desktop::ReadDish().AngleAt(desktop::NowMilliseconds()); }
  static int Position() { return desktop::ReadDish().PositionOf(Angle()); }
  /// Where the dish is to go, at once.
  static void Point(int position) {
    desktop::TurnDish(desktop::ReadDish().AngleOf(position));
    MoveClock(200);
  }

  static std::string Figures() {
    const desktop::TunerState t = desktop::ReadTuner(PROFILE_MAIN);
    return std::to_string(t.strength) + " " + std::to_string(t.quality) + " " + std::to_string(t.ber) + " " +
           std::to_string(t.snr);
  }
  static std::string OnAir(int64_t transponder) {
    return Ask("SELECT strength || ' ' || quality || ' ' || ber || ' ' || snr FROM transponder WHERE id = ?",
               transponder);
  }
  /// As the user would describe that one.
  void Describe(int64_t transponder) {
    desktop::Query q("SELECT frequency, symbol_rate, polarisation FROM transponder WHERE id = ?", transponder);
    ASSERT_TRUE(q.Row());
    m_tv.Set(kSystem + "user-defined-transponder/frequency", q.Text(0));
    m_tv.Set(kSystem + "user-defined-transponder/symbolrate", q.Text(1));
    m_tv.Set(kSystem + "user-defined-transponder/polarity", q.Text(2));
  }

  static bool SetItem(const std::string& id, const std::string& value) {
    return SettingsAPI::Get()->SetItemValue(id, value, false) != -1;
  }
  /// What is shown and, where that is something else, what it stands for.
  static std::string Item(const std::string& id) {
    std::string name, value;
    EXPECT_TRUE(SettingsAPI::Get()->GetItemValue(id, name, value));
    return name == value ? name : name + " = " + value;
  }
};

}  // namespace

// --- the dish ------------------------------------------------------------------------------------

TEST_F(InstallationTest, CommandsOfThePositioner) {
  const auto withLimit = [&](int limit) {
    return [=, this] {
      m_tv.Set(kSystem + "installer-mode/limit-position", std::to_string(limit));
      Utils::InstallerStorePosition();
    };
  };
  SetUp(kTurksat);
  struct Case {
    const char* what;
    std::function<void()> run;
    Texts sent;
    std::string fails, said;
  };
  const Case cases[] = {{"reset", Utils::InstallerResetLimit, {"1, 0"}, "", ""},
                        {"zero", Utils::InstallerGoToZero, {"7, 0"}, "", ""},
                        {"east", withLimit(0), {"2, 0", "6, 65"}, "", "[Debug]Limited position is 0"},
                        {"west", withLimit(1), {"3, 0", "6, 65"}, "", "[Debug]Limited position is 1"},
                        {"user", Utils::UserStorePosition, {"6, 65"}, "", "[Debug]Current Sat=[320], Slot Id=[65]"},
                        {"refused", withLimit(1), {"3, 0"}, kCommand, "[Error]Sending command failed!"},
                        {"unreadable",
                         withLimit(0),
                         {"2, 0"},
                         "SatelliteSettings::GetSatelliteSettings",
                         "[Error]Geting current satellite settigns failed"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Utils::InstallerResetLimit();
    m_tv.ClearJournal();
    ClearLog();
    if (!c.fails.empty()) m_tv.Fail(c.fails);
    c.run();
    m_tv.Heal();
    EXPECT_EQ(m_tv.ArgumentsOf(kCommand), c.sent);
    EXPECT_TRUE(c.said.empty() || Contains(TakeLog(), c.said));
  }
  // The user's satellites have slots of their own.
  SetUp(SATELLITE_USER_FIRST + 2);
  m_tv.ClearJournal();
  Utils::UserStorePosition();
  EXPECT_EQ(m_tv.ArgumentsOf(kCommand), Texts{"6, 52"});
}

TEST_F(InstallationTest, TheMotorTakesItsTimeWithinItsLimits) {
  Point(134 + 300);
  EXPECT_EQ(Angle(), 3000);
  Utils::InstallerGoToZero();
  const std::pair<double, int> seconds[] = {{0, 3000}, {5, 2000}, {2.5, 1500}, {7.4, 20}, {0.1, 0}, {100, 0}};
  for (const auto& [more, angle] : seconds) {
    MoveClock(more);
    EXPECT_EQ(Angle(), angle) << more;
  }
  const auto send = [](EPositionerCommand command, int parameter = 0) {
    return desktop::RunPositionerCommand(command, parameter);
  };
  const auto go = [](int degrees) {
    desktop::TurnDish(degrees * desktop::kDegree);
    MoveClock(200);
    return Angle() / desktop::kDegree;
  };
  EXPECT_EQ(go(90), 75);
  EXPECT_EQ(go(20), 20);
  EXPECT_TRUE(send(POSITIONER_LIMIT_EAST));
  EXPECT_EQ(go(40), 20);
  EXPECT_EQ(go(-40), -40);
  EXPECT_TRUE(send(POSITIONER_LIMIT_WEST));
  EXPECT_EQ(go(-90), -40);
  EXPECT_EQ(go(10), 10);
  // A limit that is set while it turns stops it there.
  desktop::TurnDish(-4000);
  MoveClock(5);
  EXPECT_TRUE(send(POSITIONER_LIMIT_WEST));
  MoveClock(100);
  EXPECT_EQ(Angle(), 0);
  EXPECT_FALSE(desktop::SetEastLimit(-100)) << "west of the other one";
  EXPECT_TRUE(send(POSITIONER_RESET_LIMIT));
  EXPECT_EQ(go(60), 60);
  for (const int slot : {0, 255}) EXPECT_TRUE(send(POSITIONER_STORE, slot));
  EXPECT_EQ(Ask("SELECT group_concat(angle) FROM dish_slot WHERE slot IN (0, 255)"), "6000,6000");
  for (const int slot : {-1, 256}) EXPECT_FALSE(send(POSITIONER_STORE, slot));
  EXPECT_FALSE(send(static_cast<EPositionerCommand>(4)));
  desktop::SetMotor(false);
  EXPECT_FALSE(send(POSITIONER_GO_TO_ZERO));
  EXPECT_EQ(Ask("SELECT command || ' ' || parameter FROM dish"), "6 255") << "the last that was taken";
}

TEST_F(InstallationTest, TheSignalFallsAsTheDishPointsAside) {
  const int64_t transponder = std::stoll(Ask(kTurksatTransponder));
  SetUp(kTurksat);
  CTvsUtil::transponderID = static_cast<int>(transponder);
  ASSERT_TRUE(CTvsUtil::TuneAloneSelectedTransponder(true));
  // From 23.5E, with 2 degrees a second.
  MoveClock(9);
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus()) << "on its way";
  EXPECT_EQ(Position(), 415);
  MoveClock(1.5);
  EXPECT_EQ(Position(), 420);
  EXPECT_TRUE(CTvsUtil::GetTunerLockStatus());
  EXPECT_EQ(Figures(), OnAir(transponder));
  const desktop::TunerState full = desktop::ReadTuner(PROFILE_MAIN);
  int quality = full.quality + 1;
  for (const int position : {420, 425, 430, 436, 460, 600}) {
    Point(position);
    const desktop::TunerState east = desktop::ReadTuner(PROFILE_MAIN);
    EXPECT_LT(east.quality, quality) << position;
    quality = east.quality;
    Point(840 - position);
    EXPECT_EQ(desktop::ReadTuner(PROFILE_MAIN).quality, quality) << "on the other side of " << position;
    if (quality == 0) break;
  }
  EXPECT_EQ(quality, 0);
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus());
  EXPECT_EQ(Item("signal-information-quality"), "0");
  Point(432);
  EXPECT_EQ(desktop::ReadTuner(PROFILE_MAIN).strength, (full.strength + 1) / 2) << "1.2 degrees aside";
  EXPECT_GT(desktop::ReadTuner(PROFILE_MAIN).ber, full.ber);
  // Without the motor's help the dish stays.
  ASSERT_TRUE(CTvsUtil::TuneAloneSelectedTransponder(false));
  MoveClock(60);
  EXPECT_EQ(Position(), 432);
  // Those with a dish of their own do not care.
  ASSERT_EQ(ChannelUtil::SetService(1, false), 0);
  MoveClock(5);
  EXPECT_EQ(Position(), 432);
  EXPECT_EQ(Figures(), OnAir(std::stoll(Ask("SELECT transponder FROM service WHERE id = 1"))));
  // Channels turn it.
  Change("UPDATE service SET satellite = ?, transponder = ? WHERE id = 2", kTurksat, transponder);
  ASSERT_EQ(ChannelUtil::SetService(2, false), 0);
  MoveClock(5);
  EXPECT_EQ(Position(), 420);
  EXPECT_EQ(Figures(), OnAir(transponder));
}

TEST_F(InstallationTest, TheCommandLineDrivesTheDish) {
  const auto motor = [&](Texts words) {
    words.insert(words.begin(), "dish");
    return Command(words)["motor"][0];
  };
  EXPECT_EQ(motor({})["position"], "23.5E");
  EXPECT_EQ(motor({"--east-limit", "28.2E", "--west-limit", "30.0W", "--speed", "5", "--go", "42.0E"})["turnsTo"],
            "28.2E");
  EXPECT_EQ(motor({"--go", "45.0W"})["turnsTo"], "30.0W");
  EXPECT_EQ(motor({"--east-limit", "none"})["eastLimit"], "none");
  const desktop::Dish before = desktop::ReadDish();
  EXPECT_EQ(before.speed, 5 * desktop::kDegree);
  EXPECT_EQ(before.westLimit, before.AngleOf(3300));
  for (const Texts& wrong :
       {Texts{"--go", "here"}, Texts{"--go", "200.0E"}, Texts{"--speed", "0"}, Texts{"--motor", "2"},
        Texts{"--east-limit", "45.0W"}, Texts{"--speed", "2", "--go", "x"}, Texts{"--go"}}) {
    EXPECT_TRUE(motor(wrong).isNull()) << wrong.back();
  }
  EXPECT_EQ(desktop::ReadDish().speed, before.speed);
  EXPECT_EQ(motor({"--motor", "no"})["motor"], "no");
  EXPECT_TRUE(motor({"--go", "19.2E"}).isNull());
}

TEST_F(InstallationTest, ASatelliteOfTheUserIsFoundWhereItIs) {
  const int64_t transponder = std::stoll(Ask(kTurksatTransponder));
  SetUp(SATELLITE_USER_FIRST);
  Describe(transponder);
  ASSERT_TRUE(SetItem("setting-user-sat-1", "42.0 E"));
  EXPECT_EQ(Ask("SELECT group_concat(position) FROM satellite WHERE user_defined = 1"), "420,0,0,0");
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(ChannelUtil::TuneAloneSelectedTransponder(false));
  MoveClock(5);
  EXPECT_EQ(Ask("SELECT satellite FROM transponder WHERE id = (SELECT transponder FROM picture WHERE profile = 1)"),
            std::to_string(SATELLITE_USER_FIRST));
  EXPECT_EQ(Ask("SELECT group_concat(id) FROM transponder WHERE user_defined = 1"), "60000");
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus()) << "the dish points elsewhere";
  Point(420);
  EXPECT_EQ(Figures(), OnAir(transponder));
  Utils::UserStorePosition();
  Point(100);
  EXPECT_FALSE(CTvsUtil::GetTunerLockStatus());
  CTvsUtil::transponderID = -2;
  ASSERT_TRUE(CTvsUtil::TuneAloneSelectedTransponder(true));
  MoveClock(60);
  EXPECT_EQ(Figures(), OnAir(transponder)) << "turned to what was stored";
  // Nearly there it is heard as well, and where no satellite is nothing is.
  ASSERT_TRUE(SetItem("setting-user-sat-1", "42.3 E"));
  EXPECT_TRUE(CTvsUtil::GetTunerLockStatus());
  ASSERT_TRUE(SetItem("setting-user-sat-1", "150.0 W"));
  EXPECT_EQ(Figures(), "0 0 0 0");
  ASSERT_TRUE(SetItem("setting-user-sat-1", "42.0 E"));
  EXPECT_EQ(Figures(), OnAir(transponder));
}

// --- rows that set something ---------------------------------------------------------------------

TEST_F(InstallationTest, RowsTakeWhatTheyCanHave) {
  const std::string user = "user-defined-transponder-", satellite = "setting-user-sat-2";
  const std::string horizontal = Utils::GetTranslationStr("SID_HORIZONTAL"),
                    vertical = Utils::GetTranslationStr("SID_VERTICAL"),
                    right = Utils::GetTranslationStr("SID_RIGHT_CIRCULAR");
  const struct {
    std::string id, set, then;
    Texts refused;
  } steps[] = {
      {user + "frequency", "11494 MHz", "11494 MHz", {"11000 KS/s"}},
      {user + "frequency", "12750 MHz", "12750 MHz", {"Up", "12751 MHz", "10699 MHz", " 11000 MHz", "", "\xff"}},
      {user + "frequency", "Down", "12749 MHz", {"4294978296 MHz", "18446744073709562616", "-11000 MHz"}},
      {user + "frequency", "----", "----", {}},
      {user + "frequency", "Up", "10700 MHz", {"Down"}},
      {user + "symbolrate", "1 KS/s", "1 KS/s", {"Down", "0", "50001 KS/s"}},
      {user + "polarity", "0", horizontal + " = 0", {"Horizontal", "-1", "4"}},
      {user + "polarity", "Up", vertical + " = 1", {}},
      {user + "polarity", "----", "----", {}},
      {user + "polarity", "Down", right + " = 3", {}},
      {satellite, "180.0 W", "180.0 W", {"180.1 E"}},
      {satellite, "5.1 W", "5.1 W", {"19.2 N", "19.2E", "19.20 E", "019.2 E", "19 E", "-1.0 E", "Up", ""}}};
  for (const auto& step : steps) {
    EXPECT_TRUE(SetItem(step.id, step.set));
    const std::string before = State();
    for (const std::string& refused : step.refused) {
      EXPECT_FALSE(SetItem(step.id, refused)) << step.id << " '" << refused << "'";
    }
    EXPECT_EQ(Item(step.id), step.then);
    EXPECT_EQ(State(), before);
  }
  EXPECT_EQ(Ask("SELECT position FROM satellite WHERE id = 65506"), "3549");
  EXPECT_FALSE(SetItem("signal-information-strength", "100"));
  EXPECT_FALSE(SetItem("reset-all-settings-satellite", "Up"));
}

TEST_F(InstallationTest, RowsAndTheSettingsStoreAreOne) {
  const std::string keys = kSystem + "user-defined-transponder/";
  const std::tuple<std::string, int, std::string> rows[] = {
      {"frequency", 11494500, "11494 MHz"}, {"frequency", -1, "----"}, {"frequency", 999, "----"},
      {"symbolrate", 27500, "27500 KS/s"},  {"symbolrate", 0, "----"}, {"polarity", 9, "----"},
      {"frequency", 3700000, "3700 MHz"}};
  for (const auto& [row, stored, shown] : rows) {
    vconf_set_int((keys + row).c_str(), stored);
    EXPECT_EQ(Item("user-defined-transponder-" + row), shown) << stored;
    // What is shown is less exact; to put it back is no change.
    EXPECT_TRUE(SetItem("user-defined-transponder-" + row, shown));
    EXPECT_EQ(m_tv.GetInt(keys + row), stored);
  }
  ASSERT_TRUE(SetItem("user-defined-transponder-frequency", "11836 MHz"));
  EXPECT_EQ(m_tv.GetInt(keys + "frequency"), 11836000);
  Change("UPDATE setting SET value = ? WHERE key = ?", "\xff nonsense", keys + "frequency");
  EXPECT_EQ(Item("user-defined-transponder-frequency"), "----");
  m_tv.Remove(keys + "frequency");
  EXPECT_EQ(Item("user-defined-transponder-frequency"), "----");
  EXPECT_FALSE(SetItem("user-defined-transponder-frequency", "11836 MHz"));
}

// --- satellites in use ---------------------------------------------------------------------------

TEST_F(InstallationTest, EachTvModeHasItsSatellites) {
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  const auto selected = [&](const TSTvMode& mode) {
    std::string list;
    desktop::Query q("SELECT id FROM satellite ORDER BY id");
    while (q.Row()) {
      unsigned char flag = 9;
      EXPECT_EQ(settings->GetSatelliteSelected(static_cast<int>(q.Int(0)), mode, flag), 1);
      EXPECT_LE(flag, 1);
      if (flag) list += (list.empty() ? "" : " ") + q.Text(0);
    }
    return list;
  };
  const TSTvMode general(ANTENNA_SATELLITE, SERVICE_MODE_SATELLITE), operators(ANTENNA_SATELLITE, EServiceMode(7));
  const std::string made = selected(TSTvMode());
  EXPECT_EQ(made, Ask("SELECT group_concat(id, ' ') FROM satellite WHERE position IN (192, 130, 282)"));
  for (const TSTvMode& mode : {general, operators}) EXPECT_EQ(selected(mode), made);
  EXPECT_EQ(settings->SetSelectedSatellites({300, 2, 65505, 2}), 1);
  EXPECT_EQ(selected(general), "2 300 65505");
  EXPECT_EQ(selected(operators), made);
  EXPECT_EQ(settings->SetSelectedSatellites({3, 12345}), 0) << "no such satellite";
  EXPECT_EQ(selected(general), "2 300 65505");
  CTVSApiWrapper navigation;
  ASSERT_EQ(navigation.CreateServiceNavigation(PROFILE_MAIN, 0)->SetTvMode(operators), 1);
  EXPECT_EQ(settings->SetSelectedSatellites({}), 1);
  EXPECT_EQ(selected(operators), "");
  EXPECT_EQ(selected(general), "2 300 65505");
  // A satellite's own record says the same of the main picture's mode.
  TSSatelliteSettings own;
  ASSERT_EQ(settings->GetSatelliteSettings(ESatelliteId(300), own), 1);
  EXPECT_EQ(own.enabled, 0);
  own.enabled = 1;
  ASSERT_EQ(settings->SetSatelliteSettings(ESatelliteId(300), own), 1);
  EXPECT_EQ(selected(operators), "300");
  unsigned char flag = 9;
  EXPECT_EQ(settings->GetSatelliteSelected(0, operators, flag), 0);
  EXPECT_EQ(flag, 9);
}

TEST_F(InstallationTest, CountsTheChannelsOfEachSatellite) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  desktop::Query q(
      "SELECT id, (SELECT count(*) FROM service s WHERE s.satellite = o.id AND s.antenna = 2 AND s.service_mode = 1) "
      "FROM satellite o");
  while (q.Row()) {
    TCCriteriaHelper criteria;
    int count = -1;
    TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_SATELLITE, static_cast<uint64_t>(q.Int(0)), criteria);
    navigation->GetChannelCount(criteria, TSTvMode(ANTENNA_SATELLITE, SERVICE_MODE_SATELLITE), count);
    EXPECT_EQ(count, q.Int(1));
  }
}

// --- the reset -----------------------------------------------------------------------------------

namespace {

/// All of it changed, as an installer does.
void Install() {
  desktop::Store::Get().Write([] {
    Change(
        "UPDATE satellite SET lnb_power = 0, slot = slot + 1, diseqc = 3, user_band = 3, tone = 3, low = 5150000, "
        "high = 5150000, switch = 5150000, voltage = 13");
    for (int number = 1; number <= 4; ++number) {
      SettingsAPI::Get()->SetItemValue("setting-user-sat-" + std::to_string(number), "7.0 W", false);
    }
    SettingsAPI::Get()->SetItemValue("user-defined-transponder-frequency", "12000 MHz", false);
    SettingsAPI::Get()->SetItemValue("user-defined-transponder-polarity", "3", false);
    vconf_set_int((kSystem + "user-mode/step-size").c_str(), 5);
    vconf_set_int((kSystem + "lnb-settings/satellite").c_str(), 65506);
    ChannelUtil::TuneAloneSelectedTransponder(false);
    desktop::StoreUserBand(0, 1400);
    desktop::RunCableCommand(1, SATCR_COMMAND_DETECT);
  });
}

bool Reset() { return SettingsAPI::Get()->SetItemValue("reset-all-settings-satellite", "1", false) != -1; }

}  // namespace

TEST_F(InstallationTest, AResetPutsAllOfItBack) {
  const std::string made = State(), selected = Ask("SELECT group_concat(satellite) FROM selected");
  EXPECT_TRUE(Reset());
  EXPECT_EQ(State(), made) << "nothing to put back";
  Install();
  const std::string installed = State();
  ASSERT_NE(installed, made);
  m_tv.Fail("SettingsAPI::SetItemValue");
  EXPECT_FALSE(Reset());
  m_tv.Heal();
  EXPECT_EQ(State(), installed);
  EXPECT_TRUE(Reset());
  EXPECT_EQ(State(), made);
  EXPECT_EQ(Ask("SELECT group_concat(satellite) FROM selected"), selected) << "what is in use stays";
  // The service's own reset is the same; of one satellite it is that satellite's.
  Install();
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  EXPECT_EQ(settings->ResetSatelliteSettings(0, 65505), 1);
  EXPECT_EQ(Ask("SELECT group_concat(position) FROM satellite WHERE user_defined = 1"), "0,3530,3530,3530");
  EXPECT_EQ(Item("setting-user-sat-1"), "0.0 E");
  EXPECT_EQ(Item("setting-user-sat-2"), "7.0 W");
  EXPECT_EQ(settings->ResetSatelliteSettings(0, -1), 1);
  EXPECT_EQ(State(), made);
}

TEST_F(InstallationTest, AKilledProcessResetsAllOrNothing) {
  HoldClock(false);
  const std::string made = State();
  Install();
  const std::string installed = State();
  Reset();
  desktop::Store::Close();
  std::mt19937 dice(20250728);
  int ends[2] = {};
  for (int round = 0; round < 12; ++round) {
    Process process([&] {
      for (desktop::Store::Open(m_tv.Path());;) {
        Install();
        Reset();
      }
    });
    usleep(80'000 + dice() % 200'000);
    process.Signal(SIGKILL);
    EXPECT_EQ(process.Wait(), -SIGKILL) << "it had ended";
    desktop::Store::Open(m_tv.Path());
    const std::string state = State();
    EXPECT_TRUE(state == made || state == installed) << "round " << round;
    ++ends[state == made];
    desktop::Store::Close();
  }
  desktop::Store::Open(m_tv.Path());
  std::printf("%d times installed, %d times reset\n", ends[0], ends[1]);
}

}  // namespace test
