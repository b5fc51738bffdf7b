// Size, colours, direction, language and voice of the interface.
#include <Elementary.h>

#include <cstdlib>

#include "AppMain.h"
#include "Harness.h"
#include "KPILog.h"
#include "RootWindow.h"
#include "VoiceGuide.h"

using test::Place;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kZoom = "db/menu/system/accessibility/focuszoom";
constexpr const char* kSize = "db/uifw/uisize";

void RunOn(const char* screen, const test::Body& body) {
  setenv("QUIRELLE_SCREEN", screen, 1);
  test::Run({"tv-rating"}, body);
  unsetenv("QUIRELLE_SCREEN");
}

// --- size ----------------------------------------------------------------------------------------

TEST(Scale, FollowsZoomSizeAndScreen) {
  const struct {
    const char *screen, *zoom, *size;
    double scale;
    const char *failing = nullptr, *message = nullptr;
  } cases[] = {
      {"1920x1080", "0", "normal", 1.0},
      {"1920x1080", "0", "small", 0.75},
      {"1920x1080", "0", "exSmall", 0.625},
      {"1280x720", "0", "small", 0.8},
      {"1280x720", "0", "exSmall", 0.6},
      {"1280x720", "0", "normal", 1.0},
      {"1281x720", "0", "small", 0.75},
      {"1920x1080", "1", "small", 1.2},
      {"1920x1080", "2", "small", 0.75},
      {"1920x1080", "0", "small", 1.0, "vconf_get_str", "[Error]vconf get failed return"},
      {"1920x1080", "1", "small", 0.75, "vconf_get_int", "[Error]vconf get fails"},
      {"1920x1080", "0", "small", 1.0, "display_connect",
       "[Error]Connection fail. ecore_wl2_display_connect returned NULL"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.screen) + " " + c.zoom + " " + c.size + " " + (c.failing ? c.failing : ""));
    Tv tv;
    tv.Set(kZoom, c.zoom);
    tv.Set(kSize, c.size);
    if (c.failing) tv.Fail(c.failing);
    RunOn(c.screen, [&](Remote&) { EXPECT_NEAR(elm_object_scale_get(CRootWindow::GetWindow()), c.scale, 1e-6); });
    EXPECT_TRUE(!c.message || test::Logged(c.message));
  }
}

TEST(Scale, WhatIsOnTheScreenGrowsWithItAndStaysInside) {
  for (const char* size : {"1920x1080", "1280x720"}) {
    const int width = std::atoi(size);
    std::map<std::string, int> pitch;
    for (const char* zoom : {"0", "1"}) {
      Tv tv;
      tv.Set(kZoom, zoom);
      RunOn(size, [&](Remote& remote) {
        pitch[zoom] = remote.PlaceOf("All, TV-MA").y - remote.PlaceOf("All, TV-Y").y;
        for (const char* name : {"All, TV-Y", "D, TV-14", "Close"}) {
          const Place place = remote.PlaceOf(name);
          EXPECT_TRUE(place.x >= 0 && place.x + place.w <= width && place.y + place.h <= width * 9 / 16)
              << name << " on " << size << " with zoom " << zoom;
        }
      });
    }
    EXPECT_NEAR(pitch["0"], 5 * 76 * width / 1920.0, 5) << size;
    EXPECT_NEAR(pitch["1"] / 1.2, pitch["0"], 6) << size;
  }
}

// --- colours -------------------------------------------------------------------------------------

/// But for the rounding of whoever draws.
void ExpectColour(unsigned int colour, unsigned int expected, const char* what) {
  for (const int shift : {0, 8, 16}) {
    EXPECT_NEAR(static_cast<int>(colour >> shift & 0xFF), static_cast<int>(expected >> shift & 0xFF), 2) << what;
  }
}

unsigned int Ground(Remote& remote) {
  const Place box = remote.PlaceOf("D, TV-PG");
  return remote.ColourAt(box.x + 2, box.y + 2);
}

TEST(HighContrast, OpensTheOtherThemeAndItsColoursAndIsReadOnce) {
  constexpr const char* kKey = "db/menu/system/accessibility/highcontrast";
  const struct {
    const char *value, *file;
    unsigned int ground, panel, focus;
    const char* message;
  } cases[] = {{"0", "quirelle_dark.edj", 0x1D2430, 0x151A24, 0xF3F6FB, "[Debug]high contrast off"},
               {"1", "quirelle_hc.edj", 0, 0, 0xFFE100, "[Debug]high contrast on"},
               {nullptr, "quirelle_dark.edj", 0x1D2430, 0x151A24, 0xF3F6FB,
                "[Error]get high contrast failed but considering off"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    Tv tv;
    c.value ? tv.Set(kKey, c.value) : tv.Remove(kKey);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      const char* overlay = static_cast<const char*>(eina_list_last_data_get(elm_theme_overlay_list_get(nullptr)));
      EXPECT_TRUE(std::string(overlay).ends_with(c.file)) << overlay;
      const Place close = remote.PlaceOf("Close");
      ExpectColour(Ground(remote), c.ground, "ground beside the box");
      ExpectColour(remote.ColourAt(close.x - 60, close.y + 10), c.panel, "panel");
      remote.Press("Down Down Down Down Down Down");
      ExpectColour(remote.ColourAt(close.x + 30, close.y + close.h / 2), c.focus, "button with the focus");

      EXPECT_TRUE(test::Logged(c.message));
      EXPECT_FALSE(test::Logged("[Debug]no need to set high contrast"));
      remote.Pause();
      quirelle::isAnyWindowActive = false;
      remote.Launch("tv-rating");
      EXPECT_TRUE(test::Logged("[Debug]no need to set high contrast"));
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
  }
}

TEST(Colours, ComeFromTheTVsChips) {
  Tv tv;
  test::Change("UPDATE chip SET r = 200, g = 100, b = 50 WHERE name = 'CC_Basic200'");
  test::Run({"tv-rating"}, [](Remote& remote) { ExpectColour(Ground(remote), 0xC86432, "ground"); });
}

// --- direction and language ----------------------------------------------------------------------

TEST(RightToLeft, MirrorsTheGridAndItsKeys) {
  const struct {
    const char *orientation, *language;
    bool mirrored;
  } cases[] = {{"auto", "en_US.utf8", false},
               {"rtl", "en_US.utf8", true},
               {"auto", "ar_AE.utf8", true},
               {"ltr", "ar_AE.utf8", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.orientation) + " " + c.language);
    Tv tv;
    tv.Set("db/menu_widget/orientation", c.orientation);
    tv.SetLanguage(c.language);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      EXPECT_EQ(elm_config_mirrored_get() == EINA_TRUE, c.mirrored);
      EXPECT_TRUE(test::Logged(c.mirrored ? "[Debug]AppMain - UA_RTL_UI_ORIENTATION"
                                          : "[Debug]AppMain - UA_LTR_UI_ORIENTATION"));
      const Json::Value checks = remote.Screen()["checks"];
      // Boxes 3 and 16: the first and the last column of a row.
      const Place first = remote.PlaceOf(checks[3]["name"].asString());
      const Place last = remote.PlaceOf(checks[16]["name"].asString());
      EXPECT_EQ(first.x > last.x, c.mirrored);
      EXPECT_EQ(first.y, last.y);
      // Towards the next column, which lies on the other side.
      remote.Press(c.mirrored ? "Down Down Down Left" : "Down Down Down Right");
      EXPECT_EQ(remote.Focus(), checks[7]["name"].asString());
      EXPECT_EQ(remote.PlaceOf(remote.Focus()).x < first.x, c.mirrored);
    });
  }
}

TEST(Language, EveryTextOnTheScreenIsTranslated) {
  Tv tv;
  tv.SetLanguage("de_DE.utf8");
  tv.TurnVoiceOn();
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Wait(0.3);
    EXPECT_EQ(remote.Title(), "TV-Altersfreigabe");
    EXPECT_EQ(remote.Buttons(), Texts{"Schließen"});
    EXPECT_FALSE(remote.Spoken().empty());
    for (const Texts& texts : {remote.Texts(), remote.Spoken()}) {
      for (const std::string& text : texts) {
        EXPECT_TRUE(text.find("SID_") == text.npos && text.find("<<") == text.npos) << text;
      }
    }
  });
}

// --- voice ---------------------------------------------------------------------------------------

TEST(Voice, ReadsTheFirstWordsOnceAndTheLaterOfTwoTexts) {
  const char* first = " TV rating, 18 items. Use the arrow keys to move., All, TV-Y, Check box ";
  const std::string longText(600, 'x');
  Tv tv;
  tv.TurnVoiceOn();
  test::Run({"tv-rating"}, [&](Remote& remote) {
    const auto said = [&remote](const std::string& words) {
      const Texts spoken = remote.Spoken();
      return std::count_if(spoken.begin(), spoken.end(), [&](const auto& text) { return text.starts_with(words); });
    };
    EXPECT_EQ(said(first), 0);
    for (const double seconds : {0.25, 5.0}) {
      remote.Wait(seconds);
      EXPECT_EQ(said(first), 1) << "after " << seconds;
    }
    EXPECT_EQ(tv.ArgumentsOf("elm_access_force_say"), Texts{" "});

    tv.ClearJournal();
    CVoiceGuide* guide = CVoiceGuide::GetInstance();
    EXPECT_TRUE(guide->StartVoiceGuide("earlier", 2, true));
    EXPECT_TRUE(guide->StartVoiceGuide(longText.c_str(), 2, true));
    EXPECT_EQ(tv.Calls("elm_access_force_stop"), 2U);
    remote.Wait(1);
    EXPECT_EQ(tv.Calls("elm_access_say"), 0U);
    remote.Wait(1.1);
    EXPECT_EQ(said(longText), 1);
    EXPECT_FALSE(guide->StartVoiceGuide(nullptr, 2, true));
    EXPECT_FALSE(guide->StartVoiceGuide("", 2, true));
    EXPECT_TRUE(test::Logged("[Debug]Empty String Fail to Voice Guide"));
    EXPECT_TRUE(guide->StartVoiceGuide("cancelled", 2, true));
    guide->Cancel();
    remote.Wait(3);
    EXPECT_EQ(tv.Calls("elm_access_say"), 1U);
  });
}

TEST(Voice, SaysNothingOfAWindowThatIsGoneOrWhenItIsOff) {
  for (const bool on : {true, false}) {
    SCOPED_TRACE(on ? "gone" : "off");
    Tv tv;
    if (on) tv.TurnVoiceOn();
    test::Run({"tv-rating"}, [&](Remote& remote) {
      if (on) remote.Pop();
      remote.Wait(2);
      for (const std::string& text : remote.Spoken()) EXPECT_EQ(text.find("18 items"), text.npos) << text;
    });
    EXPECT_EQ(tv.Calls("elm_access_force_say"), on ? 1U : 0U);
  }
}

// --- usage records -------------------------------------------------------------------------------

TEST(Usage, RecordsTheValueOfAnItem) {
  constexpr const char* kItem = "hdmi-delay-level";
  const std::string select = "20_sqa, EV014, SELECT_VALUE, {sl_item=hdmi-delay-level;sl_value=2;appid=";
  const struct {
    const char* id;
    int type;
    const char* failing;
    /// Empty when nothing is.
    std::string sent;
    const char* message;
  } cases[] = {
      {kItem, 0, nullptr, select + "com.vantrel.tv.viewer}", "[Debug]AddEventLog Success"},
      {kItem, 0, "vconf_get_str", select + "}", "[Debug]getting current fullscreen appid failed"},
      {kItem, 1, nullptr, "20_sqa, EV001, CLICK, {hdmilevel=2}", "[Debug]RetCode=0"},
      {kItem, 1, "AddEventLogSync", "20_sqa, EV001, CLICK, {hdmilevel=2}", "[Debug]Could not add event log"},
      {nullptr, 1, nullptr, "20_sqa, EV001, CLICK, {hdmilevel=}", "[Debug]AddEventLog Success"},
      {kItem, 2, nullptr, "", "[Info]Not matched with any log types"},
  };
  for (const auto& c : cases) {
    Tv tv;
    tv.SetItem(kItem, "2");
    if (c.failing) tv.Fail(c.failing);
    CKPILog::SendKpiLog(c.id, static_cast<CKPILog::LOG_TYPE>(c.type));
    EXPECT_EQ(tv.ArgumentsOf("AddEventLogSync"), c.sent.empty() ? Texts{} : Texts{c.sent}) << c.message;
    EXPECT_TRUE(test::Logged(c.message)) << c.message;
  }
}

}  // namespace
