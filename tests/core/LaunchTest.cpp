// From the launch request to the end of the program.
#include "Harness.h"
#include "MenuControl.h"
#include "ReturnToMenu.h"
#include "ViewManager.h"
#include "Window.h"
#include "WrapPatterns.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kCaller = "org.example.caller";
constexpr const char* kDiagnosis = "com.vantrel.Mirabeck";
constexpr const char* kRequest = "app_control_send_launch_request";

MenuControl& Control() { return *Singleton<MenuControl>::GetInstance(); }

TEST(Ending, TakesEverythingDownAndReturnsOnlyAfterAPop) {
  const struct {
    const char* name;
    void (*act)(Remote&);
    /// Whether it is the step back to whoever launched the program.
    bool returns;
  } ends[] = {
      {"Back", [](Remote& r) { r.Press("Back"); }, true},
      {"Close", [](Remote& r) { r.Press("Down Down Down Down Down Down Return"); }, true},
      {"time-out", [](Remote& r) { r.Wait(60.1); }, false},
      {"focus loss", [](Remote& r) { r.TakeFocus(); }, false},
  };
  for (const auto& end : ends) {
    SCOPED_TRACE(end.name);
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      // As a window that has somebody to return to would have been launched.
      Control().m_LaunchData = "signal-information";
      Control().m_ReturnSubmenu = kCaller;
      end.act(remote);
      EXPECT_TRUE(remote.HasExited());
      EXPECT_TRUE(remote.Stack().empty());
    });
    EXPECT_EQ(tv.ArgumentsOf(kRequest), Texts(end.returns, "org.example.caller, {}"));
    for (const char* once : {"avoc_exit_osd", "KeyRouter_Finalize", "ui_app_exit"}) {
      EXPECT_EQ(tv.Calls(once), 1U) << once;
    }
  }
}

// --- pause, and who asks again -------------------------------------------------------------------

TEST(Pause, TakesTheViewsDownAndForgetsTheLaunch) {
  Tv tv;
  const Texts words = {"tv-rating", "--extra", "PrevSubmenu=a", "--extra=deeplink=b=c", "--extra", "DiagnosisType=d"};
  test::Run(words, [&](Remote& remote) {
    const auto launch = [] {
      return Texts{Control().m_LaunchData, Control().m_ReturnSubmenu, Control().m_DeepLink, Control().m_DiagnosisType};
    };
    EXPECT_EQ(launch(), (Texts{"tv-rating", "a", "b=c", "d"}));
    remote.Pause();
    EXPECT_EQ(launch(), Texts(4));
    EXPECT_TRUE(remote.Texts().empty());
    remote.Wait(61);
    remote.Resume();
    remote.Press("Down Return");
    EXPECT_FALSE(remote.HasExited());
    EXPECT_TRUE(remote.Stack().empty());
    remote.ExpectExit("Back");
  });
}

TEST(Launch, IsRefusedASecondTimeWhateverItAsksFor) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    tv.ClearJournal();
    for (const char* id : {"tv-rating", "movie-rating", "", "no-such-window"}) remote.Launch(id);
    EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    EXPECT_EQ(Control().m_LaunchData, "tv-rating");
    EXPECT_TRUE(tv.Journal().empty());
    EXPECT_TRUE(test::Logged("[Error]Second window not avaible"));
  });
}

/// An empty screen can be left, and nothing else ends the program.
void ExpectAWayOut(const char* name, Remote& remote) {
  EXPECT_TRUE(remote.Stack().empty()) << name;
  remote.Press("Down Return");
  remote.Wait(59);
  remote.Post(EVENT_POP_VIEW);
  EXPECT_FALSE(remote.HasExited()) << name;
  if (name == std::string("Back")) remote.Press("Back");
  if (name == std::string("time-out")) remote.Wait(60.5);
  if (name == std::string("focus lost")) remote.TakeFocus();
  EXPECT_TRUE(remote.HasExited()) << name;
}

TEST(Launch, WithoutAViewLeavesAnEmptyWindowThatCanBeLeft) {
  for (const char* way : {"Back", "time-out", "focus lost"}) {
    for (const std::string id : {"", "no-such-window", "usermode-store-current-position"}) {
      Tv tv;
      test::Run({"tv-rating", "--extra", "ID=" + id}, [&](Remote& remote) { ExpectAWayOut(way, remote); });
      EXPECT_TRUE(test::Logged("[Debug]Invalid ID[" + id + "]"));
    }
    // A flow whose next step is refused, after the last one has gone.
    Tv tv;
    test::Run({"satcr-detect-slot-frequency-slot1"}, [&](Remote& remote) {
      constexpr unsigned int kNoSuchStep = 99;
      GoToStep(Window::kDetectSlot1, kNoSuchStep);
      remote.Settle();
      ExpectAWayOut(way, remote);
    });
  }
}

// --- the information window ----------------------------------------------------------------------

TEST(InformationWindow, IsResolvedByWhatIsOnTheScreen) {
  constexpr const char* kFeature = "com.vantrel/featureconf/broadcast.quirelle.signal_information_enabled";
  const struct {
    const char *profile, *feature;
    bool isVirtual;
    /// The window that it becomes, or why there is none.
    const char *window, *message;
  } cases[] = {
      {"america", "1", false, "signal-information", nullptr},
      {"hdmi", "1", false, "hdmi-information", nullptr},
      {"hdmi", "1", true, "hdmi-information", nullptr},
      {"america", "1", true, nullptr, "[Error]Signal Information is not avaible for Virtual services"},
      {"america", nullptr, false, nullptr, "[Error]system_info_get_custom_bool() fail"},
      {"hdmi", "0", false, nullptr, "[Error]Signal Information/HDMI Information window is not avaible on LFD product"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.profile) + " " + (c.window ? c.window : c.message));
    Tv tv(c.profile);
    c.feature ? tv.Set(kFeature, c.feature) : tv.Remove(kFeature);
    if (c.isVirtual) test::Change("UPDATE service SET type = 9");
    test::Run({"information-window", "--extra", "PrevSubmenu=org.example.caller"}, [&](Remote& remote) {
      if (c.window) {
        EXPECT_EQ(Control().m_LaunchData, c.window);
        EXPECT_EQ(remote.Stack(), Texts{c.window});
        return;
      }
      EXPECT_TRUE(test::Logged(c.message));
      EXPECT_FALSE(test::Logged("[Error]Window Create Done"));
      remote.Launch("tv-rating");
      EXPECT_TRUE(remote.Stack().empty());
    });
  }
}

// --- back to whoever launched --------------------------------------------------------------------

TEST(BackToMenu, LaunchesTheCallerOfAnInformationWindow) {
  const struct {
    const char *launch, *previous, *deepLink, *diagnosis;
    Texts sent;
  } cases[] = {
      {"signal-information", kCaller, "d", "t", {"org.example.caller, {}"}},
      {"hdmi-information", kCaller, "", "", {"org.example.caller, {}"}},
      {"signal-information", "", "d", "t", {}},
      {"tv-rating", kCaller, "", "", {}},
      {"factory-export-to-usb", kCaller, "", "", {}},
      {"factory-import-from-usb", kCaller, "", "", {}},
      {"hdmi-information", kDiagnosis, "d", "t", {R"(com.vantrel.Mirabeck, {"DiagnosisType":"t","deeplink":"d"})"}},
      {"signal-information", kDiagnosis, "d", "", {R"(com.vantrel.Mirabeck, {"deeplink":"d"})"}},
      {"signal-information", kDiagnosis, "", "", {"com.vantrel.Mirabeck, {}"}},
  };
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote&) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.launch) + " " + c.previous + " " + c.deepLink + c.diagnosis);
      Control().m_ReturnSubmenu = c.previous;
      Control().m_DeepLink = c.deepLink;
      Control().m_DiagnosisType = c.diagnosis;
      tv.ClearJournal();
      ReturnToMenu(c.launch);
      EXPECT_EQ(tv.ArgumentsOf(kRequest), c.sent);
      EXPECT_EQ(tv.Calls("app_control_create"), tv.Calls("app_control_destroy"));
      EXPECT_EQ(tv.Calls("app_manager_is_running"), c.previous == kDiagnosis ? 1U : 0U);
    }
  });
}

TEST(BackToMenu, WaitsOnlySoLongAndEndsWhateverFails) {
  const struct {
    const char *failing, *previous;
    /// Questions whether the application runs.
    size_t polls;
  } cases[] = {{"app_control_create", kCaller, 0},
               {kRequest, kCaller, 0},
               {kRequest, kDiagnosis, 0},
               {"app_manager_is_running", kDiagnosis, 500}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.failing) + " " + c.previous);
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      Control().m_LaunchData = "hdmi-information";
      Control().m_ReturnSubmenu = c.previous;
      tv.Fail(c.failing);
      remote.Press("Back");
    });
    EXPECT_EQ(tv.Calls("app_manager_is_running"), c.polls);
    EXPECT_EQ(tv.Calls("ui_app_exit"), 1U);
  }
}

}  // namespace
