// What the channel on screen is received with.
#include <set>

#include "EventManager.h"
#include "SignalInfo.h"
#include "ViewHDMIInfoWindow.h"
#include "ViewSignalInfoWindow.h"

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
    EXPECT_TRUE(Logged("[Debug]Nothing has changed, no need to reload"));
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
    EXPECT_FALSE(remote.HasExited());
    const auto rows = remote.Rows();
    remote.Press("1 0 XF86More");
    EXPECT_EQ(remote.Rows(), rows);
    remote.Press("Return");
    EXPECT_TRUE(remote.HasExited());
  });
  for (const char* key : {"XF86LowerChannel", "XF86RaiseChannel", "XF86More"}) {
    EXPECT_TRUE(Logged("[Debug]Resigster Key : " + std::string(key) + ", Init Key Flag : 1")) << key;
    EXPECT_TRUE(Logged("[Debug]UnResigster Key : " + std::string(key) + ", Init Key Flag : 1")) << key;
  }
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
  } cases[] = {{0, 0, "2, 1, 0, -1"},  {1, 2, "2, 1, 12, -1"}, {2, 0, "2, 1, 0, -1"}, {2, 1, "2, 1, 0, -1"},
               {3, 0, "2, 1, 0, -1"},  {3, 1, "2, 1, 0, -1"},  {4, 0, "2, 1, 0, -1"}, {5, 0, "2, 1, 0, -1"},
               {6, 2, "-1, -1, 3, 2"}, {7, 0, "2, 1, 0, -1"},  {8, 0, "2, 1, 0, -1"}};
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
    const bool reversed = std::string(language).starts_with("ar");
    const std::string frequency = Tuned("frequency"), service = Tuned("id");
    const std::string other = Ask("SELECT max(frequency) FROM service WHERE antenna = 0");
    ASSERT_NE(frequency, other);
    Open([&](Remote& remote) {
      ASSERT_EQ(remote.Rows().size(), 9U);
      EXPECT_EQ(remote.Rows()[0].second, frequency + " kHz");
      remote.Press(reversed ? "Right Return" : "Left Return");
      ASSERT_EQ(remote.Stack(), (Texts{kSignalInformation, kPrefix + "frequence"}));
      EXPECT_EQ(remote.Focus(), frequency + " kHz");
      remote.Press("Up Up Down");
      EXPECT_EQ(remote.Focus(), std::to_string(std::stoi(frequency) + 1) + " kHz");
      EXPECT_EQ(Tuned("frequency"), frequency) << "not before it is entered";
      for (const char digit : other) remote.Press(std::string(1, digit));
      remote.Press("Return");
      EXPECT_EQ(remote.Stack(), Texts{kSignalInformation});
      EXPECT_EQ(Tuned("frequency"), other);
      EXPECT_EQ(tv.Calls("SettingsAPI::SetItemValue"), 0U);
      EXPECT_EQ(remote.Rows()[0].second, other + " kHz");
      EXPECT_NE(remote.Focus(), "");
      Round(tv, remote);
      Round(tv, remote);
      EXPECT_EQ(remote.Rows()[0].second, other + " kHz");
      remote.Press("Back");
      EXPECT_TRUE(remote.HasExited());
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
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "10 MHz");
    remote.Press("7");
    EXPECT_EQ(remote.Focus(), "7 MHz");
    remote.Press("Back");
    EXPECT_EQ(remote.ValueOf("Bandwidth"), "8 MHz");
    EXPECT_EQ(remote.Focus(), "Bandwidth");
    remote.Press("Right Down Return");
    EXPECT_TRUE(remote.HasExited());
  });
  EXPECT_EQ(Tuned("frequency"), frequency);
}

TEST(SignalInfo, AFrequencyThatWasNotReadIsNotPutBack) {
  Tv tv("europe");
  Receive(0);
  const std::string frequency = Tuned("frequency");
  tv.Fail("SettingsAPI::GetItemValue");
  Open([&](Remote& remote) { remote.Press("Back"); });
  EXPECT_EQ(Tuned("frequency"), frequency);
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
    remote.Wait(100);
    EXPECT_FALSE(remote.HasExited());

    remote.Press("Up");
    ASSERT_EQ(remote.Focus(), "Signal history");
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "Signal history");
    remote.Press("Down");
    EXPECT_EQ(remote.Focus(), "Close");
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack(), (Texts{kSignalInformation, kHistory}));
    EXPECT_TRUE(Logged("[Debug]need Hide SignalInfoWindow "));
    EXPECT_EQ(measuresIn(remote, 10), 0U);
    remote.Press("Back");
    EXPECT_EQ(remote.Rows().size(), 9U);
    EXPECT_EQ(remote.Focus(), "Signal history");
    EXPECT_EQ(measuresIn(remote, kRound), 1U);
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
}

/// The history that is asked for lies below already, so none opens.
TEST(SignalInfo, StaysWhenTheHistoryDoesNotOpen) {
  for (const bool hdmi : {false, true}) {
    Tv tv(hdmi ? "hdmi" : "europe");
    test::Run({kHistory}, [&](Remote& remote) {
      if (hdmi) {
        remote.Push(std::make_unique<CViewHDMIInfoWindow>("hdmi-information"));
      } else {
        remote.Push(std::make_unique<CViewSignalInfoWindow>(kSignalInformation));
      }
      remote.Press("Up Return");
      EXPECT_TRUE(Logged("[Error]view exist"));
      remote.Post(EVENT_PUSH_VIEW, kBoxID);
      EXPECT_EQ(remote.Rows().size(), hdmi ? 2U : 9U) << "hidden as if the box were the history";
      remote.Press("Back");
      EXPECT_EQ(remote.Focus(), "Signal history");
    });
  }
}

// --- voice guide ---------------------------------------------------------------------------------

TEST(SignalInfo, ReadsTitleRowsAndTheButton) {
  const std::string hint = "Check the signal of each channel.";
  for (const bool setTune : {false, true}) {
    Tv tv("europe");
    if (setTune) Receive(0);
    SetSignal("strength = 80, quality = 70, ber = 60");
    tv.TurnVoiceOn();
    Open([&](Remote& remote) {
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
    Open([&](Remote& remote) {
      EXPECT_TRUE(Logged("[Debug]vSIData is empty")) << operation;
      remote.Wait(10);
      EXPECT_EQ(tv.Calls(kMeasurement), 0U) << operation;
      EXPECT_EQ(tv.Calls("ST_OPERATION_CALL"), 0U) << operation;
      remote.Wait(55);
      EXPECT_TRUE(remote.HasExited()) << operation;
    });
  }
}

}  // namespace

}  // namespace test
