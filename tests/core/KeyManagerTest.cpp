// Keys of the remote: what is asked of the key router, and what a key does in every window.
#include <Ecore_Input.h>

#include "Harness.h"
#include "KeyManager.h"

using test::Remote;
using test::Tv;

namespace {

const std::string kNormal[] = {"XF86Back", "Return", "Up", "Left", "Right", "Down", "XF86AudioStop", "XF86EManual"};
const std::string kReleased[] = {"XF86Back",
                                 "Return",
                                 "Up",
                                 "Left",
                                 "Right",
                                 "Down",
                                 "XF86WheelRightKey",
                                 "XF86WheelLeftKey",
                                 "XF86AudioStop",
                                 "XF86AudioPlay",
                                 "XF86AudioPause",
                                 "XF86PlayBack",
                                 "XF86Red",
                                 "XF86Green",
                                 "XF86EManual",
                                 "XF86ListHome",
                                 "XF86ListEnd",
                                 "XF86VoiceControl",
                                 "XF86LeftPage",
                                 "XF86RightPage",
                                 "XF86UpPage",
                                 "XF86DownPage"};

template <class Keys>
std::string Request(const Keys& keys, const std::string& mode) {
  std::string text = "0, ";
  for (const std::string& key : keys) text += (text.size() > 3 ? " " : "") + key + ":" + mode;
  return text;
}

std::vector<std::string> Arguments(Tv& tv, const std::string& operation) {
  std::vector<std::string> arguments;
  for (const test::Call& call : tv.Journal(operation)) arguments.push_back(call.arguments);
  return arguments;
}

using Texts = std::vector<std::string>;

TEST(KeyRouter, GrabsTheMenusKeysAndGivesThemBack) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    EXPECT_EQ(Arguments(tv, "KeyRouter_Set_KeyList"), (Texts{"0, ", Request(kNormal, "5"), Request(kNormal, "2")}));
    EXPECT_EQ(Arguments(tv, "KeyRouter_Initialize"), Texts{"1"});
    remote.Press("Back");
  });
  EXPECT_EQ(Arguments(tv, "KeyRouter_UnSet_KeyList"), (Texts{Request(kReleased, "5"), Request(kReleased, "2")}));
  EXPECT_EQ(Arguments(tv, "KeyRouter_Finalize").size(), 1U);
  for (const char* line : {"[Debug]Grab Normal Key Ends", "[Debug]UnregisterMenuNormal", "[Debug]UnGrabMenuNormalKey",
                           "[Debug]Del Common Key Handler", "[Debug]Fini key event "}) {
    EXPECT_TRUE(test::Logged(line)) << line;
  }
}

TEST(KeyRouter, FailuresAreSaidAndKeysStillReachTheWindow) {
  struct Case {
    const char* operation;
    /// Calls that initialise it, and messages that a request failed.
    size_t initialised;
    long messages;
  };
  for (const Case& c :
       {Case{"KeyRouter_Set_KeyList", 1, 3}, Case{"KeyRouter_UnSet_KeyList", 1, 2}, Case{"KeyRouter_Initialize", 1, 0},
        Case{"display_connect", 0, 0}, Case{"display_global_find", 1, 0}}) {
    Tv tv;
    tv.Fail(c.operation);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Press("Down Back");
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_EQ(tv.Journal("KeyRouter_Initialize").size(), c.initialised) << c.operation;
    const std::vector<std::string> log = test::Log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "[Error]FAIL to Set Keyrouter list"), c.messages) << c.operation;
  }
}

TEST(KeyManager, FurtherKeysAreAskedForInBothModesOnceItIsUp) {
  Tv tv;
  CKeyManager keys;
  const auto all = [&keys] {
    keys.RegisterKey("XF86Red");
    keys.UnRegisterKey("XF86Red");
    keys.RegisterNumberKey();
    keys.UnRegisterNumberKey();
  };
  keys.FiniKeyEvent();
  all();
  EXPECT_EQ(test::Log(),
            (Texts{"[Debug]Flag Init Key Event : 0", "[Debug] Key event is not initialized ",
                   "[Debug]Resigster Key : XF86Red, Init Key Flag : 0", "[Debug]Key Manager is not initialized",
                   "[Debug]UnResigster Key : XF86Red, Init Key Flag : 0", "[Debug]Key Manager is not initialized",
                   "[Debug]Resigster menu_number_key", "[Debug] Key Manager is not initialized ",
                   "[Debug]UnRegister_menu_number_key", "[Debug]Key Manager is not initialized"}));
  EXPECT_TRUE(tv.Journal().empty());
  test::Run({"tv-rating"}, [&](Remote&) {
    tv.ClearJournal();
    all();
    const Texts expected = {"0, XF86Red:2 XF86Red:5",
                            "0, 0:2 0:5 1:2 1:5 2:2 2:5 3:2 3:5 4:2 4:5 5:2 5:5 6:2 6:5 7:2 7:5 8:2 8:5 9:2 9:5"};
    EXPECT_EQ(Arguments(tv, "KeyRouter_Set_KeyList"), expected);
    EXPECT_EQ(Arguments(tv, "KeyRouter_UnSet_KeyList"), expected);
    tv.ClearJournal();
    keys.InitKeyEvent(nullptr);
    EXPECT_TRUE(tv.Journal().empty()) << "a second start asks for nothing";
  });
}

TEST(KeyManager, ZeroSecondsTakeTheTimeOutAway) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    CKeyManager::SetTimeOut(0);
    remote.Press("Down");
    remote.Wait(3600);
    EXPECT_FALSE(remote.HasExited());
    CKeyManager::SetTimeOut(5);
    CKeyManager::SetTimeOut(10);
    remote.Wait(6);
    EXPECT_FALSE(remote.HasExited()) << "a new time-out takes the place of the old one";
    remote.Wait(4.1);
    EXPECT_TRUE(remote.HasExited());
  });
}

TEST(KeyManager, TheManualKeyOpensTheManual) {
  struct Case {
    const char* failing;
    const char* message;
    size_t requests;
  };
  for (const Case& c : {Case{nullptr, "[Error]Common Key [XF86EManual]", 1},
                        Case{"app_control_create", "[Error]app_control_create failed", 0},
                        Case{"app_control_send_launch_request", "[Error]Failed to send request[-1]", 1}}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      tv.ClearJournal();
      if (c.failing) tv.Fail(c.failing);
      remote.Press("XF86EManual");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
    EXPECT_TRUE(test::Logged(c.message)) << c.message;
    const Texts requests = Arguments(tv, "app_control_send_launch_request");
    ASSERT_EQ(requests.size(), c.requests);
    for (const std::string& request : requests) {
      EXPECT_EQ(request, R"(org.nyxel.pagelet-host, {"EVENT_TYPE":"4201","WIDGET_ID_SRC":"com.vantrel.tv.quirelle"})");
    }
    EXPECT_EQ(tv.Journal("app_control_destroy").size(), c.requests);
  }
}

TEST(KeyManager, StopsEveryKeyDownThatItIsGiven) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote&) {
    Ecore_Event_Key key{};
    EXPECT_EQ(CKeyManager::HandleMenuCommonKeyCB(nullptr, ECORE_EVENT_KEY_UP, &key), ECORE_CALLBACK_DONE);
    EXPECT_TRUE(test::Logged("[Debug] This is not KEY DOWN event "));
    test::ClearLog();
    EXPECT_EQ(CKeyManager::HandleMenuCommonKeyCB(nullptr, ECORE_EVENT_KEY_DOWN, nullptr), ECORE_CALLBACK_DONE);
    EXPECT_EQ(CKeyManager::HandleMenuCommonKeyCB(nullptr, ECORE_EVENT_KEY_DOWN, &key), ECORE_CALLBACK_DONE);
    EXPECT_TRUE(test::Log().empty());
  });
}

TEST(KeyManager, TheMouseKeepsTheProgramOpenToo) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    for (const int type : {ECORE_EVENT_MOUSE_MOVE, ECORE_EVENT_MOUSE_WHEEL, ECORE_EVENT_MOUSE_BUTTON_DOWN,
                           ECORE_EVENT_MOUSE_BUTTON_UP}) {
      remote.Wait(59);
      test::ClearLog();
      ecore_event_add(type, calloc(1, 512), nullptr, nullptr);
      remote.Settle();
      EXPECT_TRUE(test::Logged("[Debug]Key press ,Reset Timer."));
    }
    remote.Wait(59);
    EXPECT_FALSE(remote.HasExited());
  });
}

}  // namespace
