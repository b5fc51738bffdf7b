// From the launch request to the end of the program.
#include <cstdlib>

#include "AppMain.h"
#include "EventManager.h"
#include "Harness.h"
#include "MenuControl.h"
#include "ReturnToMenu.h"
#include "Store.h"
#include "WrapPatterns.h"

using test::Remote;
using test::Tv;

namespace {

MenuControl& Control() { return *Singleton<MenuControl>::GetInstance(); }

/// Launch requests that the program sent, "application {extra}" each.
std::vector<std::string> Launches(Tv& tv) {
  std::vector<std::string> launches;
  for (const test::Call& call : tv.Journal("app_control_send_launch_request")) launches.push_back(call.arguments);
  return launches;
}

bool Exited(Tv& tv) { return !tv.Journal("ui_app_exit").empty(); }

// --- how it ends ---------------------------------------------------------------------------------

struct End {
  const char* name;
  void (*act)(Remote&);
  /// Whether it is the step back to whoever launched the program.
  bool returns;
};

const End kEnds[] = {
    {"Back", [](Remote& r) { r.Press("Back"); }, true},
    {"BackSpace", [](Remote& r) { r.Press("BackSpace"); }, true},
    {"Close", [](Remote& r) { r.Press("Down Down Down Down Down Down Return"); }, true},
    {"time-out", [](Remote& r) { r.Wait(60.1); }, false},
    {"focus loss", [](Remote& r) { r.TakeFocus(); }, false},
};

TEST(Ending, TakesEverythingDownAndReturnsOnlyAfterAPop) {
  for (const End& end : kEnds) {
    SCOPED_TRACE(end.name);
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      // As a window that has somebody to return to would have been launched.
      Control().m_LaunchData = "signal-information";
      Control().m_ReturnSubmenu = "org.example.caller";
      tv.ClearJournal();
      end.act(remote);
      EXPECT_TRUE(remote.HasExited());
      EXPECT_TRUE(remote.Stack().empty());
    });
    using Texts = std::vector<std::string>;
    EXPECT_EQ(Launches(tv), end.returns ? Texts{"org.example.caller, {}"} : Texts{});
    EXPECT_EQ(tv.Journal("avoc_exit_osd").size(), 1U);
    EXPECT_EQ(tv.Journal("KeyRouter_Finalize").size(), 1U);
    EXPECT_EQ(tv.Journal("ui_app_exit").size(), 1U);
    EXPECT_TRUE(test::Logged("[Error]DeleteWindow Done"));
    EXPECT_TRUE(test::Logged("[Error]in terminate"));
  }
}

TEST(Ending, SaysFromWhichViewTheFocusWent) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) { remote.TakeFocus(); });
  EXPECT_TRUE(test::Logged("[Info]Focus Out to [tv-rating] View"));
}

TEST(TimeOut, ComesSixtySecondsAfterTheLastKey) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Wait(59);
    EXPECT_FALSE(remote.HasExited());
    remote.Press("Down");
    remote.Wait(59);
    EXPECT_FALSE(remote.HasExited());
    EXPECT_FALSE(test::Logged("[Error]TimeOut"));
    remote.Wait(1);
    EXPECT_TRUE(remote.HasExited());
    EXPECT_TRUE(test::Logged("[Error]TimeOut"));
  });
}

TEST(TimeOut, OpensTheHotelsFactoryMenuInFactoryModeOnly) {
  struct Case {
    bool hotel, factoryMode;
    const char* failing;
    const char* message;
    bool launches;
  };
  const Case cases[] = {
      {false, true, nullptr, nullptr, false},
      {true, false, nullptr, "[Debug] Factory Value : 0", false},
      {true, true, nullptr, "[Debug] Factory Value : 1", true},
      {true, true, "vconf_get_bool", "[Debug] Factory Value : 0", false},
      {true, true, "app_control_create", "[Error]app_control_create failed", false},
      {true, true, "app_control_send_launch_request", "[Error]Failed to send request[-1]", true},
  };
  for (const Case& c : cases) {
    Tv tv;
    tv.Set("com.vantrel/featureconf/product.b2b_option_support", c.hotel ? "1" : "0");
    tv.Set("memory/ephotel/hotelmenu/hotelfactorymode", c.factoryMode ? "1" : "0");
    test::Run({"tv-rating"}, [&](Remote& remote) {
      if (c.failing) tv.Fail(c.failing);
      remote.Wait(60.1);
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_EQ(Launches(tv).size(), c.launches ? 1U : 0U);
    for (const std::string& launch : Launches(tv)) EXPECT_EQ(launch, "org.nyxel.innkeeper-factory, {}");
    EXPECT_EQ(test::Logged("[Debug] Hotel or LFD "), c.hotel);
    EXPECT_TRUE(!c.message || test::Logged(c.message)) << c.message;
  }
}

// --- pause, and who asks again -------------------------------------------------------------------

TEST(Pause, TakesTheViewsDownAndForgetsTheLaunch) {
  Tv tv;
  test::Run({"tv-rating", "--extra", "PrevSubmenu=a", "--extra", "deeplink=b", "--extra", "DiagnosisType=c"},
            [&](Remote& remote) {
              EXPECT_EQ(Control().m_LaunchData, "tv-rating");
              EXPECT_EQ(Control().m_ReturnSubmenu, "a");
              EXPECT_EQ(Control().m_DeepLink, "b");
              EXPECT_EQ(Control().m_DiagnosisType, "c");
              remote.Pause();
              EXPECT_TRUE(remote.Stack().empty());
              EXPECT_TRUE(remote.Texts().empty());
              EXPECT_EQ(
                  Control().m_LaunchData + Control().m_ReturnSubmenu + Control().m_DeepLink + Control().m_DiagnosisType,
                  "");
              remote.Wait(61);
              remote.Resume();
              remote.Press("Down Back Return");
              EXPECT_FALSE(Exited(tv));
              EXPECT_TRUE(remote.Stack().empty());
            });
  for (const char* line : {"[Error]App Pause", "[Debug] current view is NULL ", "[Error]"}) {
    EXPECT_TRUE(test::Logged(line)) << line;
  }
}

TEST(SecondLaunch, IsRefusedWhateverItAsksFor) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    tv.ClearJournal();
    for (const char* id : {"tv-rating", "movie-rating", "", "no-such-window"}) {
      test::ClearLog();
      remote.Launch(id);
      EXPECT_EQ(test::Log(), (std::vector<std::string>{"[Error]start service", "[Error]Second window not avaible"}));
    }
    EXPECT_EQ(remote.Stack(), std::vector<std::string>{"tv-rating"});
    EXPECT_EQ(Control().m_LaunchData, "tv-rating");
    EXPECT_TRUE(tv.Journal().empty());
  });
}

TEST(Launch, WithoutAViewLeavesTheWindowEmptyUntilItLosesTheFocus) {
  for (const char* id : {"", "no-such-window", "usermode-store-current-position"}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Pause();
      quirelle::isAnyWindowActive = false;
      remote.Launch(id);
      EXPECT_TRUE(test::Logged("[Debug]Invalid ID[" + std::string(id) + "]"));
      EXPECT_TRUE(test::Logged("[Debug] view is NULL "));
      EXPECT_TRUE(remote.Stack().empty());
      remote.Press("Back");
      CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 0, 0, nullptr, nullptr);
      remote.Settle();
      EXPECT_FALSE(remote.HasExited());
      remote.TakeFocus();
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_TRUE(test::Logged("[Info]current view stack is empty"));
    EXPECT_TRUE(test::Logged("[Error] Current view is NULL "));
  }
}

TEST(Launch, ReadsHighContrastOnceAndSaysWhatItFound) {
  struct Case {
    const char* value;
    const char* message;
  };
  for (const Case& c : {Case{"0", "[Debug]high contrast off"}, Case{"1", "[Debug]high contrast on"},
                        Case{nullptr, "[Error]get high contrast failed but considering off"}}) {
    Tv tv;
    const char* key = "db/menu/system/accessibility/highcontrast";
    c.value ? tv.Set(key, c.value) : tv.Remove(key);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      EXPECT_TRUE(test::Logged(c.message)) << c.message;
      EXPECT_FALSE(test::Logged("[Debug]no need to set high contrast"));
      remote.Pause();
      quirelle::isAnyWindowActive = false;
      remote.Launch("tv-rating");
      EXPECT_TRUE(test::Logged("[Debug]no need to set high contrast"));
      EXPECT_EQ(remote.Stack(), std::vector<std::string>{"tv-rating"});
    });
  }
}

// --- the information window ----------------------------------------------------------------------

constexpr const char* kFeature = "com.vantrel/featureconf/broadcast.quirelle.signal_information_enabled";

struct Information {
  const char* name;
  const char* profile;
  void (*prepare)(Tv&);
  /// The window that it becomes, or why there is none.
  const char* window;
  const char* message;
};

void MakeVirtual(Tv&) {
  desktop::Store::Get().Write([] { desktop::Query("UPDATE service SET type = 9").Run(); });
}

const Information kInformation[] = {
    {"tuner", "america", [](Tv&) {}, "signal-information", nullptr},
    {"HDMI", "hdmi", [](Tv&) {}, "hdmi-information", nullptr},
    {"virtual channel", "america", MakeVirtual, nullptr,
     "[Error]Signal Information is not avaible for Virtual services"},
    {"HDMI above a virtual channel", "hdmi", MakeVirtual, "hdmi-information", nullptr},
    {"feature unreadable", "america", [](Tv& tv) { tv.Remove(kFeature); }, nullptr,
     "[Error]system_info_get_custom_bool() fail"},
    {"feature off", "hdmi", [](Tv& tv) { tv.Set(kFeature, "0"); }, nullptr,
     "[Error]Signal Information/HDMI Information window is not avaible on LFD product"},
};

TEST(InformationWindow, IsResolvedByWhatIsOnTheScreen) {
  for (const Information& c : kInformation) {
    SCOPED_TRACE(c.name);
    Tv tv(c.profile);
    c.prepare(tv);
    test::Run({"information-window", "--extra", "PrevSubmenu=org.example.caller"}, [&](Remote& remote) {
      if (c.window) {
        EXPECT_EQ(Control().m_LaunchData, c.window);
        EXPECT_TRUE(test::Logged("[Debug]m_LaunchData is [" + std::string(c.window) +
                                 "], m_ReturnSubmenu is [org.example.caller]"));
      } else {
        EXPECT_TRUE(test::Logged(c.message));
        EXPECT_TRUE(test::Logged("[Error]LFD special case - Quirelle launch faild"));
        EXPECT_FALSE(test::Logged("[Error]Window Create Done"));
        test::ClearLog();
        remote.Launch("tv-rating");
        EXPECT_TRUE(test::Logged("[Error]Second window not avaible"));
      }
    });
  }
}

// --- back to whoever launched --------------------------------------------------------------------

struct Return {
  const char* launch;
  const char* previous;
  const char* deepLink;
  const char* diagnosis;
  /// The request that is sent; null for none.
  const char* sent;
};

constexpr const char* kDiagnosis = "com.vantrel.Mirabeck";

const Return kReturns[] = {
    {"signal-information", "org.example.caller", "d", "t", "org.example.caller, {}"},
    {"hdmi-information", "org.example.caller", "", "", "org.example.caller, {}"},
    {"signal-information", "", "d", "t", nullptr},
    {"tv-rating", "org.example.caller", "", "", nullptr},
    {"factory-export-to-usb", "org.example.caller", "", "", nullptr},
    {"factory-import-from-usb", "org.example.caller", "", "", nullptr},
    {"hdmi-information", kDiagnosis, "d", "t", R"(com.vantrel.Mirabeck, {"DiagnosisType":"t","deeplink":"d"})"},
    {"signal-information", kDiagnosis, "d", "", R"(com.vantrel.Mirabeck, {"deeplink":"d"})"},
    {"signal-information", kDiagnosis, "", "", "com.vantrel.Mirabeck, {}"},
};

TEST(BackToMenu, LaunchesTheCallerOfAnInformationWindow) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote&) {
    for (const Return& c : kReturns) {
      SCOPED_TRACE(std::string(c.launch) + " " + c.previous);
      Control().m_ReturnSubmenu = c.previous;
      Control().m_DeepLink = c.deepLink;
      Control().m_DiagnosisType = c.diagnosis;
      tv.ClearJournal();
      ReturnToMenu(c.launch);
      EXPECT_EQ(Launches(tv), c.sent ? std::vector<std::string>{c.sent} : std::vector<std::string>{});
      EXPECT_EQ(tv.Journal("app_control_create").size(), tv.Journal("app_control_destroy").size());
      EXPECT_EQ(tv.Journal("app_manager_is_running").size(), c.sent && c.previous == kDiagnosis ? 1U : 0U);
    }
  });
}

TEST(BackToMenu, SaysWhatFailedAndWaitsOnlySoLong) {
  struct Case {
    const char* failing;
    const char* previous;
    const char* message;
    /// Questions whether the application runs.
    size_t polls;
  };
  for (const Case& c :
       {Case{"app_control_create", "org.example.caller", "[Error]app_control_create failed", 0},
        Case{"app_control_send_launch_request", "org.example.caller", "[Error]Failed to send request[-1]", 0},
        Case{"app_control_send_launch_request", kDiagnosis, "[Error]Failed to send request[-1]", 0},
        Case{"app_manager_is_running", kDiagnosis, nullptr, 500}}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      Control().m_LaunchData = "hdmi-information";
      Control().m_ReturnSubmenu = c.previous;
      tv.Fail(c.failing);
      remote.Press("Back");
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_TRUE(!c.message || test::Logged(c.message)) << c.message;
    EXPECT_EQ(tv.Journal("app_manager_is_running").size(), c.polls);
    EXPECT_EQ(tv.Journal("ui_app_exit").size(), 1U);
  }
}

}  // namespace
