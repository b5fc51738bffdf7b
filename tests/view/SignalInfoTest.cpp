// What the channel on screen is received with.
#include <cstdlib>
#include <set>

#include "EventManager.h"
#include "SignalInfo.h"

namespace test {

namespace {

const std::string kPrefix = "signal-information-";
const std::string kHistory = kPrefix + "weakhistory";
/// A box, to lie over the window.
constexpr long kBoxID = 18;

std::string Tuned(const char* column) {
  return Ask(std::string("SELECT s.") + column +
             " FROM picture p JOIN service s ON s.id = p.service WHERE p.profile = 1");
}

/// What was read of the tree since the journal was cleared, without the common beginning.
std::multiset<std::string> Read(Tv& tv) {
  std::multiset<std::string> items;
  for (const std::string& item : tv.ArgumentsOf("SettingsAPI::GetItemValue")) {
    items.insert(item.starts_with(kPrefix) ? item.substr(kPrefix.size()) : item);
  }
  return items;
}

/// One round of the refresh, and what it reads.
std::multiset<std::string> Round(Tv& tv, Remote& remote) {
  tv.ClearJournal();
  ClearLog();
  remote.Wait(kRound);
  return Read(tv);
}

const std::multiset<std::string> kMeasures = {"strength", "quality", "biterrlevel"}, kNothing = {};

// --- refresh -------------------------------------------------------------------------------------

TEST(SignalInfo, RereadsWhatHasMovedAndNothingElse) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    EXPECT_EQ(Round(tv, remote).size(), 9U) << "the first round settles the channel";
    EXPECT_EQ(Round(tv, remote), kMeasures);
    EXPECT_EQ(Round(tv, remote), kNothing);
    for (const char* figure : {"strength = 33", "quality = 44", "ber = 55"}) {
      SetSignal(figure);
      EXPECT_EQ(Round(tv, remote), kMeasures) << figure;
      EXPECT_EQ(Round(tv, remote), kNothing) << figure;
    }
    EXPECT_EQ(remote.ValueOf("Signal strength"), "33");
    EXPECT_EQ(remote.ValueOf("Signal quality"), "44");
    EXPECT_EQ(remote.ValueOf("Bit error level"), "55");
  });
}

TEST(SignalInfo, WithoutATimeOutAndWithKeysOfItsOwn) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    remote.Wait(300);
    const auto rows = remote.Rows();
    remote.Press("1 0 XF86More");
    EXPECT_EQ(remote.Rows(), rows);
    remote.ExpectExit("Return");
  });
  for (const char* key : {"XF86LowerChannel", "XF86RaiseChannel", "XF86More"}) EXPECT_EQ(tv.Requests(key), "+-") << key;
}

// --- the channel keys ----------------------------------------------------------------------------

TEST(SignalInfo, ZapsAndReadsEverythingUntilTheSignalIsThere) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    Round(tv, remote);
    const std::string channel = remote.ValueOf("Channel");
    for (const bool lower : {true, false}) {
      tv.ClearJournal();
      remote.Press(lower ? "XF86LowerChannel" : "XF86RaiseChannel");
      EXPECT_EQ(tv.Calls(lower ? "ServiceNavigation::GetNextService" : "ServiceNavigation::GetPreviousService"), 1U);
      EXPECT_EQ(Read(tv).size(), 9U);
      EXPECT_EQ(remote.ValueOf("Channel") == channel, !lower);
      EXPECT_EQ(remote.ValueOf("Antenna"), "----");
      EXPECT_EQ(Round(tv, remote).size(), 9U);
      EXPECT_EQ(remote.ValueOf("Antenna"), "Satellite");
      EXPECT_LT(Round(tv, remote).size(), 9U);
    }
    EXPECT_EQ(remote.Stack(), Texts{kSignalInformation});
  });
}

TEST(SignalInfo, WithoutASignalItKeepsReading) {
  Tv tv("europe");
  SetSignal("strength = 0");
  Open([&](Remote& remote) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Round(tv, remote).size(), 9U);
    EXPECT_EQ(remote.ValueOf("Antenna"), "----");
  });
}

TEST(SignalInfo, ZapsThroughThePartOfTheListThatIsOpen) {
  const struct {
    int category, parameter;
    const char* criteria;
  } cases[] = {{0, 0, "2, 1, 0, -1"}, {1, 2, "2, 1, 12, -1"}, {2, 1, "2, 1, 0, -1"},
               {3, 1, "2, 1, 0, -1"}, {6, 2, "-1, -1, 3, 2"}, {8, 0, "2, 1, 0, -1"}};
  Tv tv("europe");
  Open([&](Remote& remote) {
    for (const auto& c : cases) {
      Change("REPLACE INTO tv_state VALUES ('category', ?), ('category_parameter', ?)", c.category, c.parameter);
      tv.ClearJournal();
      remote.Press("XF86LowerChannel");
      const Texts criteria = tv.ArgumentsOf("TCNavigationModeHelper::GetNavigationCriteria");
      ASSERT_FALSE(criteria.empty());
      EXPECT_EQ(criteria.back(), c.criteria) << c.category << " " << c.parameter;
    }
  });
}

TEST(SignalInfo, AChannelThatCannotBeHadChangesNothing) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    const auto rows = remote.Rows();
    for (const char* operation : {"ServiceNavigation::GetNextService", "ServiceNavigation::SetService"}) {
      tv.Fail(operation);
      tv.ClearJournal();
      remote.Press("XF86LowerChannel");
      EXPECT_EQ(Read(tv), kNothing) << operation;
      EXPECT_EQ(remote.Rows(), rows) << operation;
      tv.Heal();
    }
    EXPECT_EQ(remote.Stack(), Texts{kSignalInformation});
  });
}

// --- setting the tuner ---------------------------------------------------------------------------

TEST(SignalInfo, RetunesBesideTheRowAndPutsItBack) {
  for (const char* language : {"en_US.utf8", "ar_AE.utf8"}) {
    SCOPED_TRACE(language);
    Tv tv("europe");
    Receive(0);
    tv.SetLanguage(language);
    const std::string frequency = Tuned("frequency"), service = Tuned("id");
    const std::string other = Ask("SELECT max(frequency) FROM service WHERE antenna = 0");
    Open([&](Remote& remote) {
      EXPECT_EQ(remote.Rows()[0].second, frequency + " kHz");
      remote.Press(*language == 'a' ? "Right Return" : "Left Return");
      ASSERT_EQ(remote.Stack(), (Texts{kSignalInformation, kPrefix + "frequence"}));
      remote.ExpectFocus("Up Up Down", std::to_string(std::stoi(frequency) + 1) + " kHz");
      EXPECT_EQ(Tuned("frequency"), frequency) << "not before it is entered";
      for (const char digit : other) remote.Press(std::string(1, digit));
      remote.Press("Return");
      EXPECT_EQ(remote.Stack(), Texts{kSignalInformation});
      EXPECT_EQ(Tuned("frequency"), other);
      EXPECT_EQ(tv.Calls("SettingsAPI::SetItemValue"), 0U);
      for (int round = 0; round < 2; ++round) Round(tv, remote);
      EXPECT_EQ(remote.Rows()[0].second, other + " kHz");
      remote.Press("Back");
    });
    EXPECT_EQ(Tuned("frequency"), frequency);
    EXPECT_EQ(Tuned("id"), service);
  }
}

TEST(SignalInfo, LeavingTheSpinnerLeavesTheTuner) {
  Tv tv("europe");
  Receive(0);
  const std::string frequency = Tuned("frequency");
  Open([&](Remote& remote) {
    remote.Press("Left Return Up Back");
    EXPECT_EQ(remote.Stack(), Texts{kSignalInformation});
    EXPECT_EQ(Tuned("frequency"), frequency);
    EXPECT_EQ(remote.Focus(), "Frequency");
    remote.Press("Down Return");
    EXPECT_EQ(remote.Stack(), (Texts{kSignalInformation, kPrefix + "bandwidth"}));
    EXPECT_EQ(remote.Focus(), "8 MHz");
    remote.ExpectFocus("Up", "10 MHz");
    remote.ExpectFocus("7", "7 MHz");
    remote.Press("Back");
    EXPECT_EQ(remote.ValueOf("Bandwidth"), "8 MHz");
    EXPECT_EQ(remote.Focus(), "Bandwidth");
  });
  EXPECT_EQ(Tuned("frequency"), frequency);
  tv.Fail("SettingsAPI::GetItemValue");
  Open([&](Remote& remote) { remote.Press("Back"); });
  EXPECT_EQ(Tuned("frequency"), frequency) << "what was not read is not put back";
}

// --- the stack -----------------------------------------------------------------------------------

constexpr const char* kMeasurement = "TunerControl::GetSignalQuality";

TEST(SignalInfo, RestsBelowABoxAndMakesRoomForTheHistory) {
  Tv tv("europe");
  const auto measuresIn = [&](Remote& remote, double seconds) {
    tv.ClearJournal();
    remote.Wait(seconds);
    return tv.Calls(kMeasurement);
  };
  Open([&](Remote& remote) {
    remote.Post(EVENT_PUSH_VIEW, kBoxID);
    EXPECT_EQ(measuresIn(remote, 10), 0U);
    EXPECT_EQ(remote.Rows().size(), 9U);
    remote.Press("Back");
    EXPECT_EQ(measuresIn(remote, kRound), 1U);

    remote.Press("Up Up Return");
    EXPECT_EQ(remote.Stack(), (Texts{kSignalInformation, kHistory}));
    EXPECT_NE(remote.Title(), "Signal information") << "it is hidden";
    EXPECT_EQ(measuresIn(remote, 10), 0U);
    remote.Press("Back");
    EXPECT_EQ(remote.Rows().size(), 9U);
    EXPECT_EQ(remote.Focus(), "Signal history");
    EXPECT_EQ(measuresIn(remote, kRound), 1U);
  });
}

// --- the rows, and what is drawn beside and below them -------------------------------------------

constexpr unsigned int kGood = 0x4CD6A0, kPlain = 0xF3F6FB;

/// Blending with what lies below may cost a shade.
bool Is(unsigned int wanted, unsigned int colour) {
  for (int bits = 0; bits < 24; bits += 8) {
    if (std::abs(static_cast<int>(colour >> bits & 0xFF) - static_cast<int>(wanted >> bits & 0xFF)) > 4) return false;
  }
  return true;
}

/// The picture stands below the last row: how many of its bars are lit.
int LitBars(Remote& remote, const std::string& lastRow) {
  constexpr int kRowHeight = 64, kPad = 20, kHeight = 164, kMiddleOfLowest = 34;
  const Place last = remote.PlaceOf(lastRow);
  const int y = last.y + last.h / 2 + kRowHeight / 2 + kPad + kHeight - kMiddleOfLowest;
  int lit = 0;
  for (int bar = 0; bar < 10; ++bar) {
    if (Is(kGood, remote.ColourAt(last.x - 32 + 46 + 39 * bar, y))) ++lit;
  }
  return lit;
}

/// How much of a row's bar is filled, in percent; -1 without a bar.
int Bar(Remote& remote, const std::string& row, unsigned int fill = kGood) {
  const Place name = remote.PlaceOf(row);
  const int left = name.x - 32 + 370, width = 342, y = name.y + name.h / 2;
  int filled = 0;
  const unsigned int ground = remote.ColourAt(name.x - 16, y);
  if (remote.ColourAt(left + width - 6, y) == ground) return -1;
  for (int x = left; x < left + width; ++x) filled += Is(fill, remote.ColourAt(x, y));
  return filled * 100 / width;
}

TEST(SignalInfo, EachTypeShowsItsRowsAndDecoration) {
  const struct {
    int type;
    const char* profile;
    int antenna, country;  ///< -1: as the profile has it
    const char* rows;
  } cases[] = {
      {0, "brazil", 1, -1,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Modulation, Multiplex"},
      {1, "brazil", -1, -1, "Channel, Signal strength, Signal quality, Signal status, Antenna, Channel ID, Frequency"},
      {2, "hdmi", -1, 8,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Bandwidth, Modulation, "
       "Multiplex"},
      {3, "europe", -1, -1,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Modulation, Multiplex, "
       "Service ID"},
      {4, "europe", 0, -1,
       "Frequency, Bandwidth, Channel, Signal strength, Signal quality, Bit error level, Antenna, Modulation, "
       "Multiplex"},
      {5, "america", -1, -1,
       "Channel, Signal strength, Signal-to-noise ratio, Signal status, Antenna, Physical channel, Modulation"},
  };
  for (const auto& type : cases) {
    SCOPED_TRACE(type.type);
    Tv tv(type.profile);
    if (type.antenna >= 0) Receive(type.antenna);
    if (type.country >= 0) tv.Set("system_settings/57", std::to_string(type.country));
    SetSignal("strength = 57");
    Open([&](Remote& remote) {
      std::string names, last;
      for (const auto& [name, value] : remote.Rows()) {
        names += (names.empty() ? "" : ", ") + name;
        last = name;
        EXPECT_FALSE(value.empty() || value == "----") << name;
      }
      EXPECT_EQ(names, type.rows);
      EXPECT_EQ(remote.ValueOf("Signal strength"), "57");
      const bool pictured = type.type == 1 || type.type == 5;
      EXPECT_EQ(LitBars(remote, last), pictured ? 5 : 0);
    });
    EXPECT_EQ(tv.Calls("ST_OPERATION_CALL"), 1U);
  }
}

TEST(SignalInfo, ThePictureFollowsTheStrength) {
  Tv tv;
  SetSignal("strength = 100");
  Open([&](Remote& remote) {
    EXPECT_EQ(LitBars(remote, "Modulation"), 10);
    for (const auto& [strength, lit] : {std::pair(9, 0), {10, 1}, {57, 5}, {99, 9}}) {
      SetSignal("strength = " + std::to_string(strength));
      remote.Wait(kRound);
      EXPECT_EQ(LitBars(remote, "Modulation"), lit) << strength;
    }
  });
}

TEST(SignalInfo, BarsFollowTheFiguresAndAreFullAtTheirMost) {
  const struct {
    const char* figures;
    int strength, quality, errors;
  } cases[] = {{"strength = 100, quality = 50, ber = 2000", 100, 50, 100},
               {"strength = 25, quality = 100, ber = 500", 25, 100, 25},
               {"strength = 50, quality = 75, ber = 9000", 50, 75, 100}};
  Tv tv("europe");
  Open([&](Remote& remote) {
    for (const auto& c : cases) {
      SetSignal(c.figures);
      remote.Wait(kRound);
      // The ends are round.
      EXPECT_NEAR(Bar(remote, "Signal strength"), c.strength, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Signal quality"), c.quality, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Bit error level", kPlain), c.errors, 3) << c.figures;
    }
  });
}

TEST(SignalInfo, ALocalSetSaysTheStrengthInWords) {
  struct {
    int strength;
    const char* text;
  } const cases[] = {{28, "28 (weak)"},   {29, "29 (moderate)"}, {50, "50 (moderate)"},
                     {51, "51 (strong)"}, {85, "85 (strong)"},   {86, "86 (very strong)"}};
  Tv tv("europe");
  tv.Set("system_info/284", "94");
  Open([&](Remote& remote) {
    EXPECT_EQ(Bar(remote, "Signal strength"), -1);
    EXPECT_GT(Bar(remote, "Signal quality"), 0);
    for (const auto& c : cases) {
      SetSignal("strength = " + std::to_string(c.strength));
      remote.Wait(kRound);
      EXPECT_EQ(remote.ValueOf("Signal strength"), c.text);
    }
  });
  tv.Set("system_info/284", "93");
  Open([](Remote& remote) {
    EXPECT_EQ(remote.ValueOf("Signal strength"), "86");
    EXPECT_NEAR(Bar(remote, "Signal strength"), 86, 3);
  });
}

}  // namespace

}  // namespace test
