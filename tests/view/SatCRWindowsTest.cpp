// Single-cable runs from their confirmation to their end: what is on the screen, what is heard, what is stored, and
// that each run is stopped.
#include "Clock.h"
#include "EventManager.h"
#include "Harness.h"
#include "Window.h"
#include "tvs/State.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

enum Type { kDetect1, kDetect2, kVerify1, kVerify2 };
constexpr const char* kMenuIDs[] = {"satcr-detect-slot-frequency-slot1", "satcr-detect-slot-frequency-slot2",
                                    "satcr-verify-slot-frequency-slot1", "satcr-verify-slot-frequency-slot2"};
constexpr const char* kDetecting = "Detecting the slot frequency. Please wait.";
constexpr const char* kVerifying = "Verifying the slot frequency. Please wait.";
constexpr const char* kPrepare = "Disconnect or turn off all other devices on the same cable before you start.";
constexpr const char* kNotDetected = "The slot frequency could not be detected.";
constexpr const char* kSend = "SatelliteControl::SendSatCRCommand";
constexpr const char* kSettings = "CreateSatelliteSettings";
constexpr const char* kStatus = "SatelliteSettings::GetSatCRDetectStatus";

using Act = std::function<void()>;
const Act kNothing = [] {};

Act Take(int frequency) {
  return [=] { test::Change("UPDATE satcr_band SET occupant = 'a neighbour' WHERE frequency = ?", frequency); };
}
void TakeAll() { test::Change("UPDATE satcr_band SET occupant = 'everybody'"); }
Act Find(int frequency) {
  return [=] { test::Change("REPLACE INTO tv_state VALUES ('satcr_outcome', ?)", frequency); };
}

/// A cable whose first free bands are 1400, which a detection finds after a quarter, and 1632.
class SatCRWindows : public testing::Test {
 protected:
  void Connect(int tuners) {
    m_tv.Set("system_info/18", std::to_string(tuners));
    m_tv.Set("db/menu/Broadcast/setting/SatelliteSystem/SatelliteAntConnectionType", tuners == 2 ? "1" : "0");
    test::Change("UPDATE satcr SET slot = 255, frequency = 0, command = 2");
  }
  static void Store(int tuner, int frequency) {
    test::Change("UPDATE satcr SET slot = 9, frequency = ? WHERE tuner = ?", frequency, tuner);
  }
  static std::string Stored(int tuner) {
    return test::Ask("SELECT slot || ' ' || frequency FROM satcr WHERE tuner = ?", tuner);
  }
  /// From its confirmation on, with a run that has just started.
  void Run(Type type, const test::Body& body) {
    m_tv.ClearJournal();
    test::Run({kMenuIDs[type]}, [&](Remote& remote) {
      EXPECT_TRUE(remote.Shows(kPrepare));
      ASSERT_EQ(remote.Focus(), "Start");
      remote.Press("Return");
      body(remote);
    });
  }
  /// The run is so far, and takes so long, that it stays there.
  static void Bring(int percent) {
    constexpr int64_t kLasts = 3600 * 1000;
    const int64_t passed = percent >= 100 ? kLasts : percent * kLasts / 100 + 1000;
    test::Change("UPDATE satcr SET began = ?, lasts = ?", desktop::NowMilliseconds() - passed, kLasts);
  }
  size_t Looks() { return m_tv.Calls(kSettings); }
  /// Until the window has looked at a run that is so far.
  void Tick(Remote& remote, int percent) {
    Bring(percent);
    const size_t looks = Looks();
    for (int i = 0; i < 20 && Looks() == looks; ++i) remote.Wait(0.1);
    ASSERT_GT(Looks(), looks);
  }
  /// Tuner and command of each that was sent.
  Texts Sent() {
    Texts sent = m_tv.ArgumentsOf(kSend);
    for (std::string& arguments : sent) arguments.resize(4);
    return sent;
  }

  Tv m_tv{"europe", 0};
};

TEST_F(SatCRWindows, ARunEndsAsTheCableIsThen) {
  struct Case {
    Type type;
    int tuners, stored;
    /// Done before the start, and half-way.
    Act before, meanwhile;
    const char* text;
    bool success;
    const char* kept;
  };
  const char *detected = "The slot frequency has been detected.", *verified = "Verification is complete.",
             *notVerified = "The slot frequency could not be verified.";
  const Case cases[] = {
      {kDetect1, 1, 0, kNothing, kNothing, detected, true, "2 1400"},
      {kDetect2, 1, 0, kNothing, kNothing, detected, true, "2 1400"},
      {kDetect1, 2, 0, kNothing, kNothing, "Detection is complete.\nTuner 1 : Success", true, "2 1400"},
      {kDetect2, 2, 0, kNothing, kNothing, "Detection is complete.\nTuner 2 : Success", true, "2 1400"},
      {kVerify1, 1, 1632, kNothing, kNothing, verified, true, "4 1632"},
      {kVerify2, 1, 1632, kNothing, kNothing, verified, true, "4 1632"},
      {kVerify1, 2, 1632, kNothing, kNothing, "Verification is complete.\nTuner 1 : Success", true, "4 1632"},
      {kVerify2, 2, 1632, kNothing, kNothing, "Verification is complete.\nTuner 2 : Success", true, "4 1632"},
      // No band is free, from the start or in the end.
      {kDetect1, 1, 0, TakeAll, kNothing, kNotDetected, false, "255 0"},
      {kDetect1, 2, 0, kNothing, TakeAll, "Detection is complete.\nTuner 1 : Failed", false, "255 0"},
      {kDetect2, 2, 0, kNothing, TakeAll, "Detection is complete.\nTuner 2 : Failed", false, "255 0"},
      // The band that it had found is taken meanwhile.
      {kDetect1, 1, 0, kNothing, Take(1400), detected, true, "4 1632"},
      {kVerify1, 1, 1632, kNothing, Take(1632), notVerified, false, "9 1632"},
      {kVerify2, 2, 1516, kNothing, kNothing, "Verification is complete.\nTuner 2 : Failed", false, "9 1516"},
      // Another one answers than was stored, or none was.
      {kVerify1, 1, 1632, Find(1748), kNothing, notVerified, false, "5 1748"},
      {kVerify2, 1, 0, kNothing, kNothing, notVerified, false, "9 0"},
      {kDetect1, 1, 0, Find(0), kNothing, kNotDetected, false, "255 0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(kMenuIDs[c.type]) + ": " + c.text);
    const int tuner = c.type % 2;
    const bool detects = c.type <= kDetect2;
    test::Change("DELETE FROM tv_state WHERE name = 'satcr_outcome'");
    test::Change("UPDATE satcr_band SET occupant = iif(frequency IN (1284, 1516), 'others', '')");
    Connect(c.tuners);
    if (!detects) Store(tuner, c.stored);
    c.before();
    Run(c.type, [&](Remote& remote) {
      const std::string before = Stored(tuner);
      const char* running = detects ? kDetecting : kVerifying;
      for (const int percent : {0, 29, 57, 99}) {
        if (percent > 0) Tick(remote, percent);
        EXPECT_EQ(remote.Texts(), (Texts{running, std::to_string(percent) + "%", "Cancel"}));
        EXPECT_EQ(remote.Screen()["progress"].asInt(), percent);
        EXPECT_EQ(remote.Focus(), "Cancel");
        EXPECT_EQ(Stored(tuner), before);
        if (percent == 57) c.meanwhile();
      }
      Tick(remote, 100);
      EXPECT_EQ(remote.Texts(), c.success ? (Texts{c.text, "100%", "OK"}) : (Texts{c.text, "OK"}));
      EXPECT_EQ(remote.Focus(), "OK");
      const std::string sent = std::to_string(tuner) + ", ";
      EXPECT_EQ(Sent(), (Texts{sent + (detects ? "0" : "1"), sent + "2"}));
      EXPECT_EQ(Stored(tuner), c.kept);
      remote.Wait(3);
      EXPECT_EQ(m_tv.Calls(kStatus), 4U) << "nobody looks at it any more";
      remote.ExpectExit("Return");
      EXPECT_EQ(m_tv.Calls(kSend), 2U);
    });
  }
}

TEST_F(SatCRWindows, HoweverItIsLeftTheRunIsStoppedAndWhatWasSeenIsStored) {
  enum Next { kFailed, kSucceeded, kHidden, kExited };
  struct Case {
    const char* what;
    /// At the last tick before, if there was any.
    int percent;
    std::function<void(Remote&)> leave;
    Next next;
    const char* kept;
  };
  const auto press = [](const char* key) { return [=](Remote& remote) { remote.Press(key); }; };
  const Case cases[] = {
      {"Cancel before the first tick", 0, press("Return"), kFailed, "255 0"},
      {"Cancel before it knows", 24, press("Return"), kFailed, "255 0"},
      {"Cancel when it knows", 25, press("Return"), kFailed, "2 1400"},
      {"Cancel at the very end", 99, press("Return"), kFailed, "2 1400"},
      {"Back", 25, press("Back"), kExited, "2 1400"},
      {"the program is paused", 25, [](Remote& remote) { remote.Pause(); }, kHidden, "2 1400"},
      {"the program ends", 25, [](Remote& remote) { remote.End(); }, kExited, "2 1400"},
      {"Cancel in the moment that it ends", 99,
       [](Remote& remote) {
         Bring(100);
         test::MoveClock(1.0);
         remote.Press("Return");
       },
       kSucceeded, "2 1400"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Connect(1);
    Run(kDetect1, [&](Remote& remote) {
      if (c.percent > 0) Tick(remote, c.percent);
      const size_t seen = m_tv.Calls(kStatus);
      EXPECT_EQ(seen, c.percent > 0 ? 1U : 0U);
      c.leave(remote);
      EXPECT_EQ(remote.Shows(kNotDetected), c.next == kFailed);
      EXPECT_EQ(remote.Shows("100%"), c.next == kSucceeded);
      EXPECT_EQ(remote.HasExited(), c.next == kExited);
      EXPECT_EQ(m_tv.Calls(kStatus), seen + (c.next == kSucceeded ? 1 : 0));
    });
    EXPECT_EQ(Sent(), (Texts{"0, 0", "0, 2"}));
    EXPECT_EQ(Stored(0), c.kept);
  }
}

TEST_F(SatCRWindows, UnderAnotherWindowItWaits) {
  Connect(1);
  Run(kDetect1, [&](Remote& remote) {
    remote.Post(EVENT_PUSH_VIEW, static_cast<long>(Window::kStartFrequency));
    Bring(100);
    remote.Wait(5);
    EXPECT_EQ(remote.Stack(), (Texts{kMenuIDs[kDetect1], "StartFrequency"}));
    EXPECT_EQ(m_tv.Calls(kStatus), 0U);
    remote.ExpectFocus("Back", "Cancel");
    Tick(remote, 100);
    EXPECT_TRUE(remote.Shows("100%"));
  });
}

TEST_F(SatCRWindows, EachCallMayFailFromEachTickOn) {
  /// What two ticks show, where a percentage that stays until Cancel is the end of nothing; what is kept, and whether a
  /// stop was sent: with the call failing before the start, before the first tick and before the second.
  struct Case {
    const char* operation;
    Type type;
    const char* ends[3];
  };
  constexpr const char *kNoRun = "0% 0%, 255 0", *kUnstopped = "50% 100%, 2 1400", *kHealthy = "50% 100%, 2 1400, stop";
  const Case cases[] = {
      {"CreateSatelliteSettings", kDetect1, {kNoRun, kNoRun, "50% 0%, 255 0"}},
      {"SatelliteSettings::GetSatCRSettings", kDetect1, {kNoRun, kUnstopped, kUnstopped}},
      {"CreateSatelliteControl", kDetect1, {kNoRun, kUnstopped, kUnstopped}},
      {kSend, kDetect1, {"0% 0%, 255 0, stop", kHealthy, kHealthy}},
      {kStatus, kDetect1, {"0% 0%, 255 0, stop", "0% 0%, 255 0, stop", "50% 0%, 2 1400, stop"}},
      {"SatelliteSettings::SetSatCRSlotFrequency",
       kDetect1,
       {"50% 100%, 255 0, stop", "50% 100%, 255 0, stop", "50% 100%, 255 0, stop"}},
      // Only a verification reads what is stored.
      {"SatelliteSettings::GetSatCRSettings", kVerify1, {"0% 0%, 9 1632", "50% failed, 4 1632", "50% failed, 4 1632"}},
  };
  const auto shown = [](Remote& remote) -> std::string {
    for (const std::string& text : remote.Texts()) {
      if (text.back() == '%') return text;
    }
    return "failed";
  };
  for (const Case& c : cases) {
    for (const int tick : {0, 1, 2}) {
      SCOPED_TRACE(std::string(c.operation) + " from tick " + std::to_string(tick));
      Connect(1);
      if (c.type == kVerify1) Store(0, 1632);
      if (tick == 0) m_tv.Fail(c.operation);
      Run(c.type, [&](Remote& remote) {
        std::string seen;
        for (const int now : {1, 2}) {
          if (now == tick) m_tv.Fail(c.operation);
          Tick(remote, now * 50);
          seen += shown(remote) + (now == 1 ? " " : ", ");
        }
        if (remote.Focus() == "Cancel") {
          for (int second = 0; second < 70; ++second) remote.Wait(1);
          EXPECT_EQ(remote.Focus(), "Cancel") << "it waits for a person";
          remote.Press("Return");
          EXPECT_EQ(shown(remote), "failed");
        }
        const Texts sent = Sent();
        const bool stopped = !sent.empty() && sent.back() == "0, 2";
        EXPECT_EQ(seen + Stored(0) + (stopped ? ", stop" : ""), c.ends[tick]);
        EXPECT_EQ(remote.Focus(), "OK");
      });
      m_tv.Heal();
    }
  }
}

TEST_F(SatCRWindows, ARunCanBeFollowedByEar) {
  m_tv.TurnVoiceOn();
  const struct {
    Type type;
    /// At each second.
    std::vector<int> percents;
    Texts heard;
  } cases[] = {
      // What was said before is heard out.
      {kDetect2,
       {10, 30, 35, 55, 60, 62, 74, 74, 74, 76, 100},
       {kDetecting, "Cancel, Button", "35%", "62%", "76%", "Detection is complete.\nTuner 2 : Success", "OK, Button"}},
      {kDetect1, {50, 100}, {kDetecting, "Cancel, Button", "Detection is complete.\nTuner 1 : Success", "OK, Button"}},
      {kVerify1,
       {1, 2, 3, 99, 100},
       {kVerifying, "Cancel, Button", "99%", "Verification is complete.\nTuner 1 : Failed, OK, Button"}},
  };
  for (const auto& c : cases) {
    Connect(2);
    Run(c.type, [&](Remote& remote) {
      for (const int percent : c.percents) Tick(remote, percent);
      remote.Wait(0.5);
      Texts heard = remote.Sayings();
      for (std::string& text : heard) text.erase(0, text.find_first_not_of(" ,"));
      EXPECT_EQ(heard, c.heard);
    });
  }
}

}  // namespace
