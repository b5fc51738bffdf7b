// What the channel on screen is received with.
#include <cstdlib>
#include <set>

#include "EventManager.h"
#include "Gate.h"
#include "Harness.h"
#include "ViewSignalInfoWindow.h"

using test::Ask;
using test::Change;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kWindow = "signal-information";
const std::string kPrefix = "signal-information-";
constexpr const char* kHistory = "signal-information-weakhistory";
/// A box, to lie over the window.
constexpr long kBoxID = 18;

/// Figures of the transponder that the tuner is on.
void SetSignal(const std::string& figures) {
  Change("UPDATE transponder SET " + figures + " WHERE id = (SELECT transponder FROM picture WHERE profile = 1)");
}

/// The first channel of another list is on screen, and has been for long.
void Receive(int antenna) {
  Change("UPDATE picture SET antenna = " + std::to_string(antenna) +
         ", service_mode = -1, (service, transponder) = (SELECT id, transponder FROM service WHERE antenna = " +
         std::to_string(antenna) + " AND service_mode = -1 ORDER BY major, minor, id LIMIT 1) WHERE profile = 1");
}

std::string Tuned(const char* column) {
  return Ask(std::string("SELECT s.") + column +
             " FROM picture p JOIN service s ON s.id = p.service WHERE p.profile = 1");
}

std::string ValueOf(Remote& remote, const std::string& name) {
  for (const auto& [text, value] : remote.Rows()) {
    if (text == name) return value;
  }
  return "no row " + name;
}

/// The program with the window open.
void Open(const test::Body& body) { test::Run({kWindow}, body); }

/// What was read of the tree since the journal was cleared, without the common beginning.
std::multiset<std::string> Read(Tv& tv) {
  std::multiset<std::string> items;
  for (const std::string& item : tv.ArgumentsOf("SettingsAPI::GetItemValue")) {
    items.insert(item.starts_with(kPrefix) ? item.substr(kPrefix.size()) : item);
  }
  return items;
}

/// One round of the refresh.
void Round(Tv& tv, Remote& remote) {
  tv.ClearJournal();
  test::ClearLog();
  remote.Wait(2.05);
}

const std::multiset<std::string> kMeasures = {"strength", "quality", "biterrlevel"};

// --- what is on the screen -----------------------------------------------------------------------

/// Blending with what lies below may cost a shade.
bool IsGood(unsigned int colour) {
  constexpr int kGood[] = {0xA0, 0xD6, 0x4C};
  for (int i = 0; i < 3; ++i) {
    if (std::abs(static_cast<int>(colour >> 8 * i & 0xFF) - kGood[i]) > 4) return false;
  }
  return true;
}

/// The picture stands below the last row: how many of its bars are lit.
int LitBars(Remote& remote, const std::string& lastRow) {
  constexpr int kRowHeight = 64, kPad = 20, kHeight = 164, kMiddleOfLowest = 34;
  const test::Place last = remote.PlaceOf(lastRow);
  const int y = last.y + last.h / 2 + kRowHeight / 2 + kPad + kHeight - kMiddleOfLowest;
  int lit = 0;
  for (int bar = 0; bar < 10; ++bar) {
    if (IsGood(remote.ColourAt(last.x - 32 + 46 + 39 * bar, y))) ++lit;
  }
  return lit;
}

/// How much of a row's bar is filled, in percent; -1 without a bar.
int Bar(Remote& remote, const std::string& row) {
  const test::Place name = remote.PlaceOf(row);
  const int left = name.x - 32 + 370, width = 342, y = name.y + name.h / 2;
  int filled = 0;
  const unsigned int ground = remote.ColourAt(name.x - 16, y);
  if (remote.ColourAt(left + width - 6, y) == ground) return -1;
  for (int x = left; x < left + width; ++x) filled += IsGood(remote.ColourAt(x, y));
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
      EXPECT_TRUE(test::Logged("[Debug]nType is [" + std::to_string(type.type) + "] "));
      std::string names, last;
      for (const auto& [name, value] : remote.Rows()) {
        names += (names.empty() ? "" : ", ") + name;
        last = name;
        EXPECT_FALSE(value.empty() || value == "----") << name;
      }
      EXPECT_EQ(names, type.rows);
      EXPECT_EQ(ValueOf(remote, "Signal strength"), "57");
      EXPECT_EQ(remote.Title(), "Signal information");
      EXPECT_EQ(remote.Buttons(), (Texts{"Signal history", "Close"}));
      const bool pictured = type.type == 1 || type.type == 5;
      EXPECT_EQ(LitBars(remote, last), pictured ? 5 : 0);
      // Nothing reaches beyond the screen.
      EXPECT_LT(remote.PlaceOf(last).y, 1000);
    });
    EXPECT_EQ(tv.Calls("ST_OPERATION_CALL"), 1U);
  }
}

TEST(SignalInfo, ShowsAChannelNameAsItIs) {
  const std::string name = "R&D <b>1</b> &amp; ü";
  Tv tv("europe", 40);
  Change("UPDATE service SET name = '" + name + "'");
  Open([&](Remote& remote) { EXPECT_TRUE(ValueOf(remote, "Channel").ends_with(" " + name)); });
}

TEST(SignalInfo, ThePictureFollowsTheStrength) {
  Tv tv;
  SetSignal("strength = 100");
  Open([&](Remote& remote) {
    EXPECT_EQ(LitBars(remote, "Modulation"), 10);
    for (const auto& [strength, lit] : {std::pair(9, 0), {10, 1}, {57, 5}, {99, 9}}) {
      SetSignal("strength = " + std::to_string(strength));
      Round(tv, remote);
      EXPECT_EQ(LitBars(remote, "Modulation"), lit) << strength;
    }
  });
}

TEST(SignalInfo, BarsAreFullAtTheirMost) {
  struct {
    const char* figures;
    int strength, quality, errors;
  } const cases[] = {{"strength = 100, quality = 50, ber = 2000", 100, 50, 100},
                     {"strength = 25, quality = 100, ber = 500", 25, 100, 25},
                     {"strength = 50, quality = 75, ber = 9000", 50, 75, 100}};
  for (const auto& c : cases) {
    Tv tv("europe");
    SetSignal(c.figures);
    Open([&](Remote& remote) {
      // The ends are round.
      EXPECT_NEAR(Bar(remote, "Signal strength"), c.strength, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Signal quality"), c.quality, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Bit error level"), c.errors, 3) << c.figures;
    });
  }
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
      Round(tv, remote);
      EXPECT_EQ(ValueOf(remote, "Signal strength"), c.text);
    }
  });
  tv.Set("system_info/284", "93");
  Open([](Remote& remote) {
    EXPECT_EQ(ValueOf(remote, "Signal strength"), "86");
    EXPECT_NEAR(Bar(remote, "Signal strength"), 86, 3);
  });
}

// --- refresh -------------------------------------------------------------------------------------

TEST(SignalInfo, RereadsWhatHasMovedAndNothingElse) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    Round(tv, remote);
    EXPECT_EQ(Read(tv).size(), 9U);  // the first round settles the channel
    Round(tv, remote);
    EXPECT_EQ(Read(tv), kMeasures);
    Round(tv, remote);
    EXPECT_EQ(Read(tv).size(), 0U);
    EXPECT_TRUE(test::Logged("[Debug]Nothing has changed, no need to reload"));
    for (const char* figure : {"strength = 33", "quality = 44", "ber = 55"}) {
      SetSignal(figure);
      Round(tv, remote);
      EXPECT_EQ(Read(tv), kMeasures) << figure;
      Round(tv, remote);
      EXPECT_EQ(Read(tv).size(), 0U) << figure;
    }
    EXPECT_EQ(ValueOf(remote, "Signal strength"), "33");
    EXPECT_EQ(ValueOf(remote, "Signal quality"), "44");
    EXPECT_EQ(ValueOf(remote, "Bit error level"), "55");
    EXPECT_NEAR(Bar(remote, "Signal strength"), 33, 3);
  });
}

TEST(SignalInfo, WithoutATimeOutAndWithKeysOfItsOwn) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    remote.Wait(300);
    EXPECT_FALSE(remote.HasExited());
    const auto rows = remote.Rows();
    remote.Press("1 0 XF86More");
    EXPECT_EQ(remote.Rows(), rows);
    remote.Press("Return");
    EXPECT_TRUE(remote.HasExited());
  });
  for (const char* key : {"XF86LowerChannel", "XF86RaiseChannel", "XF86More"}) {
    EXPECT_TRUE(test::Logged("[Debug]Resigster Key : " + std::string(key) + ", Init Key Flag : 1")) << key;
    EXPECT_TRUE(test::Logged("[Debug]UnResigster Key : " + std::string(key) + ", Init Key Flag : 1")) << key;
  }
}

// --- the channel keys ----------------------------------------------------------------------------

TEST(SignalInfo, ZapsAndReadsEverythingUntilTheSignalIsThere) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    Round(tv, remote);
    const std::string channel = ValueOf(remote, "Channel");
    for (const bool lower : {true, false}) {
      tv.ClearJournal();
      remote.Press(lower ? "XF86LowerChannel" : "XF86RaiseChannel");
      EXPECT_EQ(tv.Calls(lower ? "ServiceNavigation::GetNextService" : "ServiceNavigation::GetPreviousService"), 1U);
      EXPECT_EQ(Read(tv).size(), 9U);
      EXPECT_EQ(ValueOf(remote, "Channel") == channel, !lower);
      EXPECT_EQ(ValueOf(remote, "Antenna"), "----");
      Round(tv, remote);
      EXPECT_EQ(Read(tv).size(), 9U);
      EXPECT_EQ(ValueOf(remote, "Antenna"), "Satellite");
      Round(tv, remote);
      EXPECT_LT(Read(tv).size(), 9U);
    }
    EXPECT_EQ(remote.Stack(), Texts{kWindow});
  });
}

TEST(SignalInfo, WithoutASignalItKeepsReading) {
  Tv tv("europe");
  SetSignal("strength = 0");
  Open([&](Remote& remote) {
    for (int i = 0; i < 3; ++i) {
      Round(tv, remote);
      EXPECT_EQ(Read(tv).size(), 9U);
    }
    EXPECT_EQ(ValueOf(remote, "Antenna"), "----");
  });
}

TEST(SignalInfo, ZapsThroughThePartOfTheListThatIsOpen) {
  struct {
    int category, parameter;
    std::string navigation;
  } const cases[] = {{0, 0, "0"}, {1, 2, "12"}, {2, 0, "0"}, {2, 1, "0"}, {3, 0, "0"}, {3, 1, "0"},
                     {4, 0, "0"}, {5, 0, "0"},  {6, 2, "3"}, {7, 0, "0"}, {8, 0, "0"}};
  Tv tv("europe");
  Open([&](Remote& remote) {
    for (const auto& c : cases) {
      Change("REPLACE INTO tv_state VALUES ('category', " + std::to_string(c.category) + "), ('category_parameter', " +
             std::to_string(c.parameter) + ")");
      tv.ClearJournal();
      test::ClearLog();
      remote.Press("XF86LowerChannel");
      const Texts criteria = tv.ArgumentsOf("TCNavigationModeHelper::GetNavigationCriteria");
      ASSERT_FALSE(criteria.empty());
      const bool favourites = c.navigation == "3";
      EXPECT_EQ(criteria.back(), favourites ? "-1, -1, 3, 2" : "2, 1, " + c.navigation + ", -1") << c.category;
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
      EXPECT_EQ(Read(tv).size(), 0U) << operation;
      EXPECT_EQ(remote.Rows(), rows) << operation;
      tv.Heal();
    }
    EXPECT_EQ(remote.Stack(), Texts{kWindow});
  });
}

// --- setting the tuner ---------------------------------------------------------------------------

/// When a popup above a popup closes, the toolkit looks once for a focus that has gone, and then finds the right one.
void ForgetLostFocus() {
  for (const std::string& error : test::TakeGraveToolkitErrors()) ADD_FAILURE() << error;
}

/// Types a value into the spinner that stands beside a row.
void Type(Remote& remote, const std::string& digits) {
  for (const char digit : digits) remote.Press(std::string(1, digit));
  remote.Press("Return");
}

TEST(SignalInfo, RetunesBesideTheRowAndPutsItBack) {
  for (const char* language : {"en_US.utf8", "ar_AE.utf8"}) {
    SCOPED_TRACE(language);
    Tv tv("europe");
    Receive(0);
    tv.SetLanguage(language);
    const bool reversed = std::string(language).starts_with("ar");
    const std::string frequency = Tuned("frequency"), service = Tuned("id");
    const std::string other = Ask("SELECT max(frequency) FROM service WHERE antenna = 0");
    ASSERT_NE(frequency, other);
    test::Run({kWindow}, [&](Remote& remote) {
      ASSERT_EQ(remote.Rows().size(), 9U);
      EXPECT_EQ(remote.Rows()[0].second, frequency + " kHz");
      remote.Press(reversed ? "Right Return" : "Left Return");
      ASSERT_EQ(remote.Stack(), (Texts{kWindow, kPrefix + "frequence"}));
      EXPECT_EQ(remote.Focus(), frequency + " kHz");
      remote.Press("Up Up Down");
      EXPECT_EQ(remote.Focus(), std::to_string(std::stoi(frequency) + 1) + " kHz");
      Type(remote, other);
      EXPECT_EQ(remote.Stack(), Texts{kWindow});
      EXPECT_EQ(Tuned("frequency"), other);
      EXPECT_EQ(remote.Rows()[0].second, other + " kHz");
      EXPECT_NE(remote.Focus(), "");
      Round(tv, remote);
      Round(tv, remote);
      EXPECT_EQ(remote.Rows()[0].second, other + " kHz");
      remote.Press("Back");
      EXPECT_TRUE(remote.HasExited());
      ForgetLostFocus();
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
    EXPECT_EQ(remote.Stack(), Texts{kWindow});
    EXPECT_EQ(Tuned("frequency"), frequency);
    EXPECT_EQ(remote.Focus(), "Frequency");
    remote.Press("Down Return");
    EXPECT_EQ(remote.Stack(), (Texts{kWindow, kPrefix + "bandwidth"}));
    EXPECT_EQ(remote.Focus(), "8 MHz");
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "10 MHz");
    remote.Press("Back");
    EXPECT_EQ(ValueOf(remote, "Bandwidth"), "8 MHz");
    EXPECT_EQ(remote.Focus(), "Bandwidth");
    remote.Press("Right Down Return");
    EXPECT_TRUE(remote.HasExited());
    ForgetLostFocus();
  });
  EXPECT_EQ(Tuned("frequency"), frequency);
}

TEST(SignalInfo, AFrequencyThatWasNotReadIsNotPutBack) {
  Tv tv("europe");
  Receive(0);
  const std::string frequency = Tuned("frequency");
  tv.Fail("SettingsAPI::GetItemValue");
  test::Run({kWindow}, [&](Remote& remote) { remote.Press("Back"); });
  EXPECT_EQ(Tuned("frequency"), frequency);
}

// --- the stack -----------------------------------------------------------------------------------

size_t Measurements(Tv& tv) { return tv.Calls("TunerControl::GetSignalQuality"); }

TEST(SignalInfo, RestsWhileAnotherViewIsOnTop) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    remote.Post(EVENT_PUSH_VIEW, kBoxID);
    tv.ClearJournal();
    remote.Wait(10);
    EXPECT_EQ(Measurements(tv), 0U);
    EXPECT_EQ(remote.Rows().size(), 9U);
    remote.Press("Back");
    remote.Wait(2.05);
    EXPECT_EQ(Measurements(tv), 1U);
    remote.Wait(100);
    EXPECT_FALSE(remote.HasExited());
  });
}

TEST(SignalInfo, TheHistoryOpensInItsPlace) {
  Tv tv("europe");
  Open([&](Remote& remote) {
    remote.Press("Up");
    ASSERT_EQ(remote.Focus(), "Signal history");
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "Signal history");
    remote.Press("Down");
    EXPECT_EQ(remote.Focus(), "Close");
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack(), (Texts{kWindow, kHistory}));
    EXPECT_TRUE(test::Logged("[Debug]need Hide SignalInfoWindow "));
    tv.ClearJournal();
    remote.Wait(10);
    EXPECT_EQ(Measurements(tv), 0U);
    remote.Press("Back");
    EXPECT_EQ(remote.Rows().size(), 9U);
    EXPECT_EQ(remote.Focus(), "Signal history");
    remote.Wait(2.05);
    EXPECT_EQ(Measurements(tv), 1U);
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
}

/// The history that is asked for lies below already, so none opens.
TEST(SignalInfo, StaysWhenTheHistoryDoesNotOpen) {
  Tv tv("europe");
  test::Run({kHistory}, [&](Remote& remote) {
    remote.Push(std::make_unique<CViewSignalInfoWindow>(kWindow));
    remote.Press("Up Return");
    EXPECT_TRUE(test::Logged("[Error]view exist"));
    remote.Post(EVENT_PUSH_VIEW, kBoxID);
    EXPECT_EQ(remote.Title(), "Signal information") << "hidden as if the box were the history";
    remote.Press("Back");
    EXPECT_EQ(remote.Focus(), "Signal history");
  });
}

// --- voice guide ---------------------------------------------------------------------------------

TEST(SignalInfo, ReadsTitleRowsAndTheButton) {
  const std::string hint = "Check the signal of each channel.";
  for (const bool setTune : {false, true}) {
    Tv tv("europe");
    if (setTune) Receive(0);
    SetSignal("strength = 80, quality = 70, ber = 60");
    tv.TurnVoiceOn();
    test::Run({kWindow}, [&](Remote& remote) {
      remote.Wait(1.0);
      std::string expected = "Signal information";
      const auto rows = remote.Rows();
      for (size_t i = 0; i < rows.size(); ++i) {
        if (i == (setTune ? 2 : 0)) expected += hint;
        expected += rows[i].first + rows[i].second + (setTune ? "" : " ");
      }
      EXPECT_EQ(rows.size(), 9U);
      EXPECT_TRUE(remote.Heard(expected + "Close")) << expected;
    });
  }
}

// --- failures ------------------------------------------------------------------------------------

TEST(SignalInfo, WithoutRowsItOnlyWaitsToBeClosed) {
  for (const char* operation : {"SettingsAPI::GetItemChildList", "SettingsAPI::GetItemVisible"}) {
    Tv tv("europe");
    tv.Fail(operation);
    test::Run({kWindow}, [&](Remote& remote) {
      EXPECT_TRUE(test::Logged("[Debug]vSIData is empty")) << operation;
      remote.Wait(10);
      EXPECT_EQ(Measurements(tv), 0U) << operation;
      EXPECT_EQ(tv.Calls("ST_OPERATION_CALL"), 0U) << operation;
      remote.Wait(55);
      EXPECT_TRUE(remote.HasExited()) << operation;
    });
  }
}

/// One visit: a refresh, a zap, on the set-tune type a spinner, and out.
void Visit() {
  test::Run({kWindow}, [](Remote& remote) {
    remote.Wait(2.05);
    remote.Press("XF86LowerChannel Left Return Up Return Back");
    if (!remote.HasExited()) remote.Press("Back Back");
    if (!remote.HasExited()) remote.Wait(61);
    ForgetLostFocus();
  });
}

TEST(SignalInfo, EachOperationOfAVisitMayFail) {
  for (const int antenna : {0, 2}) {
    std::set<std::string> operations;
    {
      Tv tv("europe");
      if (antenna == 0) Receive(antenna);
      Visit();
      for (const test::Call& call : tv.Journal()) {
        if (!desktop::FindOperation(call.operation)->failures.empty()) operations.insert(call.operation);
      }
    }
    EXPECT_GT(operations.size(), 30U);
    Tv tv("europe");
    if (antenna == 0) Receive(antenna);
    for (const std::string& operation : operations) {
      SCOPED_TRACE(operation);
      tv.Fail(operation);
      Visit();
      tv.Heal();
    }
  }
}

}  // namespace
