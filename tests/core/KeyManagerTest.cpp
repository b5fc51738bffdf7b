// Keys of the remote: what is asked of the key router, and what a key does in every window.
#include <Ecore_Input.h>

#include <algorithm>
#include <iterator>
#include <regex>
#include <sstream>

#include "Harness.h"
#include "KeyManager.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kRequest = "app_control_send_launch_request";

/// The keys behind "0, ".
Texts Words(const std::string& request) {
  std::istringstream words(request.substr(3));
  return {std::istream_iterator<std::string>(words), {}};
}

TEST(KeyRouter, GrabsTheMenusKeysAndGivesThemBack) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) { remote.Press("Back"); });
  EXPECT_EQ(tv.ArgumentsOf("KeyRouter_Initialize"), Texts{"1"});
  const Texts set = tv.ArgumentsOf("KeyRouter_Set_KeyList"), unset = tv.ArgumentsOf("KeyRouter_UnSet_KeyList");
  ASSERT_EQ(set.size(), 3U);
  ASSERT_EQ(unset.size(), 2U);
  EXPECT_EQ(set[0], "0, ") << "what an earlier program asked for is taken back";
  EXPECT_EQ(set[2], std::regex_replace(set[1], std::regex(":5"), ":2"));
  EXPECT_EQ(unset[1], std::regex_replace(unset[0], std::regex(":5"), ":2"));
  const Texts taken = Words(set[1]), given = Words(unset[0]);
  EXPECT_EQ(taken.size(), 8U);
  EXPECT_EQ(given.size(), 22U);
  for (const std::string& key : taken) EXPECT_EQ(std::count(given.begin(), given.end(), key), 1) << key;
  for (const char* key : {"XF86Back:5", "Return:5", "Up:5", "Down:5", "Left:5", "Right:5"}) {
    EXPECT_EQ(std::count(taken.begin(), taken.end(), key), 1) << key;
  }
  EXPECT_EQ(tv.Calls("KeyRouter_Finalize"), 1U);
}

TEST(KeyRouter, WithoutItKeysStillReachTheWindow) {
  for (const char* operation : {"KeyRouter_Set_KeyList", "KeyRouter_UnSet_KeyList", "KeyRouter_Initialize",
                                "display_connect", "display_global_find"}) {
    Tv tv;
    tv.Fail(operation);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Press("Down Back");
      EXPECT_TRUE(remote.HasExited()) << operation;
    });
    EXPECT_EQ(tv.Calls("KeyRouter_Initialize"), operation == std::string("display_connect") ? 0U : 1U) << operation;
  }
}

TEST(KeyManager, FurtherKeysAreAskedForInBothModesOnceItIsUp) {
  Tv tv;
  CKeyManager keys(nullptr);
  const auto all = [&keys] {
    keys.RegisterKey("XF86Red");
    keys.UnRegisterKey("XF86Red");
    keys.RegisterNumberKey();
    keys.UnRegisterNumberKey();
  };
  all();
  EXPECT_TRUE(tv.Journal().empty());
  test::Run({"tv-rating"}, [&](Remote&) {
    tv.ClearJournal();
    all();
    const Texts expected = {"0, XF86Red:2 XF86Red:5",
                            "0, 0:2 0:5 1:2 1:5 2:2 2:5 3:2 3:5 4:2 4:5 5:2 5:5 6:2 6:5 7:2 7:5 8:2 8:5 9:2 9:5"};
    EXPECT_EQ(tv.ArgumentsOf("KeyRouter_Set_KeyList"), expected);
    EXPECT_EQ(tv.ArgumentsOf("KeyRouter_UnSet_KeyList"), expected);
  });
}

TEST(KeyManager, TheManualKeyOpensTheManual) {
  for (const char* failing : {"", "app_control_create", kRequest}) {
    SCOPED_TRACE(failing);
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      if (*failing) tv.Fail(failing);
      remote.Press("XF86EManual");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
    const size_t requests = failing == std::string("app_control_create") ? 0 : 1;
    const Texts request(requests,
                        R"(org.nyxel.pagelet-host, {"EVENT_TYPE":"4201","WIDGET_ID_SRC":"com.vantrel.tv.quirelle"})");
    EXPECT_EQ(tv.ArgumentsOf(kRequest), request);
    EXPECT_EQ(tv.Calls("app_control_destroy"), requests);
  }
}

TEST(TimeOut, ComesSixtySecondsAfterTheLastKeyOrMovementOfTheMouse) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Wait(59);
    remote.Press("Down");
    for (const int type : {ECORE_EVENT_MOUSE_MOVE, ECORE_EVENT_MOUSE_WHEEL, ECORE_EVENT_MOUSE_BUTTON_DOWN,
                           ECORE_EVENT_MOUSE_BUTTON_UP}) {
      remote.Wait(59);
      EXPECT_FALSE(remote.HasExited()) << "before " << type;
      ecore_event_add(type, calloc(1, 512), nullptr, nullptr);
      remote.Settle();
    }
    remote.Wait(59);
    EXPECT_FALSE(remote.HasExited());
    remote.Wait(1);
    EXPECT_TRUE(remote.HasExited());
  });
}

TEST(TimeOut, OpensTheHotelsFactoryMenuInFactoryModeOnly) {
  const struct {
    const char *hotel, *factoryMode, *failing;
    size_t launches;
  } cases[] = {{"0", "1", "", 0}, {"1", "0", "", 0}, {"1", "1", "", 1}, {"1", "1", "vconf_get_bool", 0}};
  for (const auto& c : cases) {
    Tv tv;
    tv.Set("com.vantrel/featureconf/product.b2b_option_support", c.hotel);
    tv.Set("memory/ephotel/hotelmenu/hotelfactorymode", c.factoryMode);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      if (*c.failing) tv.Fail(c.failing);
      remote.Wait(60.1);
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_EQ(tv.ArgumentsOf(kRequest), Texts(c.launches, "org.nyxel.innkeeper-factory, {}"))
        << c.hotel << c.factoryMode << c.failing;
  }
}

}  // namespace
