// The user's transponder, the longitudes of the user's satellites with the control that takes one, and the reset:
// driven with keys.
#include <Elementary.h>

#include "EventManager.h"
#include "Harness.h"
#include "Screen.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kGround = "StopFrequency";
constexpr const char* kLongitudes = "postype-sat-longitude-settings";
constexpr const char* kTransponder = "user-defined-transponder";
constexpr const char* kSatellite = "setting-user-sat-2";
constexpr const char* kPosition = "SELECT position FROM satellite WHERE id = 65506";
constexpr const char* kWrite = "SettingsAPI::SetItemValue";

void SetTransponder(Tv& tv, const std::string& frequency, const std::string& rate) {
  const std::string keys = "db/menu/broadcasting/channel-settings/satellite-system/user-defined-transponder/";
  tv.Set(keys + "frequency", frequency);
  tv.Set(keys + "symbolrate", rate);
}

void Click(int x, int y) {
  Evas* canvas = evas_object_evas_get(desktop::Window());
  evas_event_feed_mouse_move(canvas, x, y, 0, nullptr);
  evas_event_feed_mouse_down(canvas, 1, EVAS_BUTTON_NONE, 0, nullptr);
  evas_event_feed_mouse_up(canvas, 1, EVAS_BUTTON_NONE, 0, nullptr);
}

// --- the longitude -------------------------------------------------------------------------------

TEST(Positioner, TakesDigitsAndArrowsAndStoresThemOnce) {
  struct Case {
    const char *value, *keys;
    /// What has the focus then; empty when it has closed.
    const char *focus, *stored;
  };
  const Case cases[] = {
      {"5.7 E", "Up", "6", "6.7 E"},
      {"0.7 W", "Down", "180", "180.0 W"},
      {"180.0 E", "Up", "0", "0.0 E"},
      {"5.9 E", "Right Up", "0", "5.0 E"},
      {"5.0 E", "Right Down", "9", "5.9 E"},
      {"5.7 E", "Right Right Up", "W", "5.7 W"},
      {"5.7 E", "Left Left Up", "6", "6.7 E"},
      {"5.7 E", "Right Right Right Left", "7", "5.7 E"},
      {"5.7 E", "0 1 9", "7", "19.7 E"},
      {"5.7 E", "0 1 9 2 8", "E", "19.2 E"},
      {"5.7 E", "1 9 0", "5", "5.7 E"},
      {"5.7 E", "1 8 1", "5", "5.7 E"},
      {"5.7 E", "9 9 9 3", "3", "3.7 E"},
      {"5.7 W", "1 8 0 4", "W", "180.0 W"},
      {"5.7 E", "1 9 Return", "7", "19.7 E"},
      {"5.7 E", "1 9 Up 8", "8", "8.7 E"},
      {"5.7 E", "1 Left 2", "12", "12.7 E"},
      {"5.7 E", "XF86Red XF86RaiseChannel XF86EManual", "5", "5.7 E"},
      {"5.7 E", "Up Return Return Down Return", "", "6.7 W"},
      {"5.7 E", "Up Back", "", "6.7 E"},
      {"5.7 E", "1 2 BackSpace", "", "12.7 E"},
      {"5.7 E", "Right Up BackSpace", "", "5.8 E"},
  };
  Tv tv("europe", 0);
  test::Run({kGround}, [&](Remote& remote) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.value) + ": " + c.keys);
      tv.SetItem(kSatellite, c.value);
      tv.ClearJournal();
      remote.OpenControl(kSatellite);
      remote.ExpectFocus(c.keys, *c.focus ? c.focus : "OK");
      if (*c.focus) {
        EXPECT_EQ(tv.Calls(kWrite), 0U) << "stored before the end";
        remote.Press("Back");
      }
      EXPECT_EQ(remote.Stack(), Texts{kGround});
      EXPECT_EQ(tv.ArgumentsOf(kWrite), Texts{std::string(kSatellite) + ", " + c.stored + ", false"});
      EXPECT_EQ(tv.Item(kSatellite), c.stored);
    }
  });
}

TEST(Positioner, ReadsWhateverIsStored) {
  Tv tv("europe", 0);
  test::Run({kGround}, [&](Remote& remote) {
    const std::pair<std::string, const char*> cases[] = {{"12.5 S", "12.5 W"},
                                                         {"12.5 EAST", "12.5 W"},
                                                         {"12.5", "0.0 E"},
                                                         {"12.E", "0.0 E"},
                                                         {" 7. 1\tE", "7.1 E"},
                                                         {"181.4 W", "0.4 W"},
                                                         {"-3.4 W", "180.0 W"},
                                                         {"19.25 E", "19.0 E"},
                                                         {"99999999999999999999.1 E", "0.1 E"},
                                                         {"1.-99999999999999999999 W", "1.9 W"},
                                                         {"", "0.0 E"},
                                                         {std::string(700, '\xff'), "0.0 E"},
                                                         {std::string(100000, '7'), "0.0 E"},
                                                         {"1.2 \xc3", "1.2 W"}};
    for (const auto& [value, stored] : cases) {
      SCOPED_TRACE(value.substr(0, 30));
      tv.SetItem(kSatellite, value);
      remote.OpenControl(kSatellite);
      remote.Press("Back");
      EXPECT_EQ(tv.Item(kSatellite), stored);
    }
    EXPECT_EQ(test::Ask(kPosition), "3588") << "what was stored last is where the satellite stands";
  });
}

TEST(Positioner, TakesThePointer) {
  Tv tv("europe", 0);
  tv.SetItem(kSatellite, "5.7 E");
  test::Run({kGround}, [&](Remote& remote) {
    remote.OpenControl(kSatellite);
    const test::Place tenths = remote.PlaceOf("7");
    const int x = tenths.x + tenths.w / 2, y = tenths.y + tenths.h / 2, arrow = 45;
    Click(x, y - arrow);
    remote.Settle();
    EXPECT_EQ(remote.Focus(), "8") << "the spinner of the arrow has the focus";
    for (int i = 0; i < 2; ++i) Click(x, y + arrow);
    remote.Settle();
    EXPECT_EQ(remote.Focus(), "6");
    for (int i = 0; i < 2; ++i) Click(100, 100);
    remote.Settle();
    EXPECT_EQ(remote.Stack(), Texts{kGround});
  });
  EXPECT_EQ(tv.Item(kSatellite), "5.6 E");
  EXPECT_EQ(tv.Calls(kWrite), 1U);
}

TEST(Positioner, SpeaksEachMoveAndEachValueOnce) {
  Tv tv("europe", 0);
  tv.TurnVoiceOn();
  tv.SetItem(kSatellite, "5.7 E");
  test::Run({kGround}, [&](Remote& remote) {
    remote.Wait(0.5);
    remote.OpenControl(kSatellite);
    remote.ExpectSaid("", "User satellite 2, 3 items. Use the arrow keys to move., 0 to 180, 5");
    remote.ExpectSaid("Up", "6");
    remote.ExpectSaid("Right", "0 to 180, 7");
    remote.ExpectSaid("Right", "East");
    remote.ExpectSaid("Up", "West");
    remote.ExpectSaid("Left Left 1 7", "17");
    remote.ExpectSaid("3", "173, 0 to 180, 7");
    remote.ExpectSaid("4", "4, West");
    remote.ExpectSaid("Left Left 9 9 9", "173");
    const size_t before = remote.Spoken().size();
    remote.Press("Left");
    remote.Wait(0.5);
    EXPECT_EQ(remote.Spoken().size(), before) << "nothing moved";
  });
}

TEST(Positioner, OpensTheNumberPadForDigitsOnly) {
  Tv tv("europe", 0);
  test::Run({kGround}, [&](Remote& remote) {
    remote.OpenControl(kSatellite);
    remote.Press("Right Right XF86More");
    EXPECT_EQ(remote.Screen()["launched"].size(), 0U) << "there are no digits in a direction";
    EXPECT_EQ(tv.Calls("app_manager_is_running"), 1U) << "and the pad is closed where they end";
    remote.Press("Left XF86More");
    EXPECT_EQ(remote.Screen()["launched"][0]["extra"]["type"].asString(), "NUM_SPIN");
    remote.Press("Back");
    EXPECT_EQ(tv.Calls("app_manager_is_running"), 2U);
  });
}

// --- the windows ---------------------------------------------------------------------------------

TEST(SatelliteSettings, OpenTheControlOfARowAndShowWhatItStored) {
  Tv tv("europe", 0);
  SetTransponder(tv, "11494000", "22000");
  for (int i = 1; i <= 4; ++i) tv.SetItem("setting-user-sat-" + std::to_string(i), std::to_string(i) + ".0 E");
  test::Run({kLongitudes}, [&](Remote& remote) {
    for (int i = 1; i <= 4; ++i) {
      const std::string row = "User satellite " + std::to_string(i);
      EXPECT_EQ(remote.ValueOf(row), std::to_string(i) + ".0 E");
      remote.ExpectFocus("Return", std::to_string(i));
      remote.ExpectFocus("0 1 9 2 Up Return", row);
      EXPECT_EQ(remote.ValueOf(row), "19.2 W");
      if (i < 4) remote.Press("Down");
    }
    // What the tree refuses is not shown either.
    tv.Fail(kWrite);
    remote.Press("Return Up Back");
    EXPECT_EQ(remote.ValueOf("User satellite 4"), "19.2 W");
    tv.Heal();
    // Rows that cannot be read again stay.
    tv.Fail("SettingsAPI::GetItemChildList");
    remote.Press("Return Back");
    EXPECT_EQ(remote.RowTexts().size(), 4U);
    EXPECT_EQ(remote.Focus(), "User satellite 4");
    tv.Heal();
  });
  EXPECT_EQ(test::Ask(kPosition), "3408");
  test::Run({kTransponder}, [&](Remote& remote) {
    EXPECT_EQ(remote.Rows(),
              (std::vector<std::pair<std::string, std::string>>{
                  {"Frequency", "11494 MHz"}, {"Symbol rate", "22000 KS/s"}, {"Polarization", "Horizontal"}}));
    remote.Press("Return 1 2 0 0 0 Return Down Return 9 9 9 9 9 Return Down Return Down Return");
    EXPECT_EQ(remote.ValueOf("Frequency"), "12000 MHz");
    EXPECT_EQ(remote.ValueOf("Symbol rate"), "22000 KS/s") << "no transponder is that fast";
    EXPECT_EQ(remote.ValueOf("Polarization"), "Vertical");
    EXPECT_EQ(remote.Focus(), "Polarization");
  });
}

TEST(SatelliteSettings, FollowATreeThatChanges) {
  Tv tv("europe", 0);
  test::Run({kLongitudes}, [&](Remote& remote) {
    test::Change("UPDATE item SET parent = '' WHERE id = 'setting-user-sat-1'");
    remote.Post(EVENT_REFRESH_VIEW);
    EXPECT_EQ(remote.RowTexts().size(), 3U);
    EXPECT_EQ(remote.Focus(), "User satellite 2");
    test::Change("UPDATE item SET parent = '' WHERE parent = ?", kLongitudes);
    remote.Post(EVENT_REFRESH_VIEW);
    EXPECT_EQ(remote.RowTexts(), Texts{});
    remote.ExpectFocus("Left", "Close");
  });
  test::Run({kLongitudes}, [&](Remote& remote) {
    EXPECT_EQ(remote.Focus(), "Close");
    remote.ExpectExit("Left Up Return");
  });
}

TEST(SatelliteSettings, SaveATransponderOnceItIsComplete) {
  struct Case {
    const char *frequency, *rate;
    bool complete;
    const char* button;
  };
  for (const Case& c :
       {Case{"-1", "-1", false, "Save"}, Case{"11000000", "-1", false, "Save"}, Case{"-1", "22000", false, "Save"},
        Case{"11000000", "22000", true, "Save"}, Case{"11000000", "22000", true, "Cancel"}}) {
    SCOPED_TRACE(std::string(c.frequency) + " " + c.rate + " " + c.button);
    Tv tv("europe", 0);
    SetTransponder(tv, c.frequency, c.rate);
    test::Run({kTransponder}, [&](Remote& remote) {
      const auto canSave = [&] { return remote.Screen()["buttons"][0]["enabled"].asBool(); };
      EXPECT_EQ(canSave(), c.complete);
      SetTransponder(tv, "12000000", "27500");
      remote.Post(EVENT_REFRESH_VIEW);
      EXPECT_TRUE(canSave());
      remote.Press("Down Down Down");
      remote.ExpectFocus(c.button[0] == 'S' ? "Left" : "Right", c.button);
      remote.ExpectExit("Return");
    });
    EXPECT_EQ(tv.Calls("ServiceNavigation::TuneForFeedingSI"), c.button[0] == 'S' ? 1U : 0U);
  }
}

// --- the question before the reset, and the word after it ------------------------------------------

constexpr const char* kReset = "reset-all-settings-satellite";
constexpr const char* kQuestion = "Reset all satellite settings to their defaults?";
constexpr const char* kDone = "The transponder database has been reset.";

std::string Lnb() { return test::Ask("SELECT low FROM satellite WHERE id = 2"); }

TEST(ResetPopup, ResetsOnceWhenItMayAndNothingOtherwise) {
  const struct {
    const char* keys;
    /// Of the word after the question; null where there is none.
    const char* leave;
    bool fails = false;
  } cases[] = {{"Return", "Return"},
               {"Return", "Back"},
               {"Right Return", nullptr},
               {"Back", nullptr},
               {"Return", nullptr, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keys);
    Tv tv("europe", 0);
    tv.TurnVoiceOn();
    const std::string made = Lnb();
    test::Change("UPDATE satellite SET low = 5150000 WHERE id = 2");
    if (c.fails) tv.Fail(kWrite);
    test::Run({kReset}, [&](Remote& remote) {
      EXPECT_TRUE(remote.Shows(kQuestion));
      remote.Wait(3);
      EXPECT_NE(remote.Spoken().front().find(std::string(kQuestion) + ", Yes, Button, No, Button"), std::string::npos);
      remote.Press(c.keys);
      EXPECT_EQ(remote.HasExited(), !c.leave);
      if (!c.leave) return;
      EXPECT_TRUE(remote.Shows(kDone));
      EXPECT_FALSE(remote.Shows(kQuestion));
      remote.ExpectExit(c.leave);
    });
    EXPECT_EQ(Lnb(), c.leave ? made : "5150000");
    EXPECT_EQ(tv.Calls(kWrite), c.leave || c.fails ? 1U : 0U);
  }
}

TEST(ResetPopup, GoesWithItsConfirmation) {
  Tv tv("europe", 0);
  test::Run({kReset}, [](Remote& remote) {
    remote.Press("Return");
    remote.Pop();
    EXPECT_FALSE(remote.Shows(kDone));
    EXPECT_EQ(remote.Buttons(), Texts{});
  });
  test::Run({kReset}, [](Remote& remote) {
    remote.Press("Return");
    remote.End();
  });
  EXPECT_EQ(test::TakeGraveToolkitErrors(), Texts{});
}

}  // namespace
