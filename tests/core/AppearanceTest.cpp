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

// --- size ----------------------------------------------------------------------------------------

TEST(Scale, FollowsZoomSizeAndScreen) {
  const struct {
    const char *screen, *zoom, *size;
    double scale;
    const char* failing = nullptr;
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
      {"1920x1080", "0", "small", 1.0, "vconf_get_str"},
      {"1920x1080", "1", "small", 0.75, "vconf_get_int"},
      {"1920x1080", "0", "small", 1.0, "display_connect"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.screen) + " " + c.zoom + " " + c.size + " " + (c.failing ? c.failing : ""));
    Tv tv;
    tv.Set("db/menu/system/accessibility/focuszoom", c.zoom);
    tv.Set("db/uifw/uisize", c.size);
    if (c.failing) tv.Fail(c.failing);
    setenv("QUIRELLE_SCREEN", c.screen, 1);
    test::Run({"tv-rating"},
              [&](Remote&) { EXPECT_NEAR(elm_object_scale_get(CRootWindow::GetWindow()), c.scale, 1e-6); });
    unsetenv("QUIRELLE_SCREEN");
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
  const Place box = remote.PlaceOf("D, Suggestive dialogue, TV-PG");
  return remote.ColourAt(box.x + 2, box.y + 2);
}

TEST(HighContrast, OpensTheOtherThemeAndItsColours) {
  constexpr const char* kKey = "db/menu/system/accessibility/highcontrast";
  const struct {
    const char* value;
    unsigned int ground, panel, focus;
  } cases[] = {{"0", 0x1D2430, 0x151A24, 0xF3F6FB}, {"1", 0, 0, 0xFFE100}, {nullptr, 0x1D2430, 0x151A24, 0xF3F6FB}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value ? c.value : "none");
    Tv tv;
    c.value ? tv.Set(kKey, c.value) : tv.Remove(kKey);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      const Place close = remote.PlaceOf("Close");
      ExpectColour(Ground(remote), c.ground, "ground beside the box");
      ExpectColour(remote.ColourAt(close.x - 60, close.y + 10), c.panel, "panel");
      remote.Press("Down Down Down Down Down Down");
      ExpectColour(remote.ColourAt(close.x + 30, close.y + close.h / 2), c.focus, "button with the focus");
      remote.Pause();
      quirelle::isAnyWindowActive = false;
      remote.Launch("tv-rating");
      EXPECT_TRUE(test::Logged("[Debug]no need to set high contrast")) << "it is read once";
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
      // Towards the next column, which lies on the other side.
      const Place first = remote.PlaceOf(remote.Focus());
      remote.Press(c.mirrored ? "Down Left" : "Down Right");
      EXPECT_EQ(remote.PlaceOf(remote.Focus()).x < first.x, c.mirrored);
      EXPECT_NE(remote.PlaceOf(remote.Focus()).x, first.x);
    });
  }
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
    Texts sent;
  } cases[] = {
      {kItem, 0, "", {select + "com.vantrel.tv.viewer}"}},
      {kItem, 0, "vconf_get_str", {select + "}"}},
      {kItem, 1, "AddEventLogSync", {"20_sqa, EV001, CLICK, {hdmilevel=2}"}},
      {nullptr, 1, "", {"20_sqa, EV001, CLICK, {hdmilevel=}"}},
      {kItem, 2, "", {}},
  };
  for (const auto& c : cases) {
    Tv tv;
    tv.SetItem(kItem, "2");
    if (*c.failing) tv.Fail(c.failing);
    CKPILog::SendKpiLog(c.id, static_cast<CKPILog::LOG_TYPE>(c.type));
    EXPECT_EQ(tv.ArgumentsOf("AddEventLogSync"), c.sent) << c.type << c.failing;
  }
}

}  // namespace
