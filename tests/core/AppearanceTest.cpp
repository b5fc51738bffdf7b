// Size, colours, direction, language and voice of the interface.
#include <Elementary.h>

#include <cmath>
#include <cstdlib>

#include "EventManager.h"
#include "Harness.h"
#include "KPILog.h"
#include "RootWindow.h"
#include "Store.h"
#include "VoiceGuide.h"

using test::Place;
using test::Remote;
using test::Tv;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* kZoom = "db/menu/system/accessibility/focuszoom";
constexpr const char* kSize = "db/uifw/uisize";
constexpr const char* kContrast = "db/menu/system/accessibility/highcontrast";
constexpr const char* kVoice = "db/setting/accessibility/tts";
constexpr const char* kLanguage = "db/menu_widget/language";

/// A screen of another size for as long as this lives.
class ScreenOf {
 public:
  explicit ScreenOf(const char* size) { setenv("QUIRELLE_SCREEN", size, 1); }
  ~ScreenOf() { unsetenv("QUIRELLE_SCREEN"); }
};

void SetOrRemove(Tv& tv, const char* key, const char* value) { value ? tv.Set(key, value) : tv.Remove(key); }

// --- size ----------------------------------------------------------------------------------------

TEST(Scale, FollowsZoomSizeAndScreen) {
  struct Case {
    const char* screen;
    /// Null where the key cannot be read.
    const char* zoom;
    const char* size;
    double scale;
    const char* message;
  };
  const Case cases[] = {
      {"1920x1080", "0", "normal", 1.0, nullptr},
      {"1920x1080", "0", "small", 0.75, nullptr},
      {"1920x1080", "0", "exSmall", 0.625, nullptr},
      {"1280x720", "0", "small", 0.8, nullptr},
      {"1280x720", "0", "exSmall", 0.6, nullptr},
      {"1280x720", "0", "normal", 1.0, nullptr},
      {"1281x720", "0", "small", 0.75, nullptr},
      {"1920x1080", "1", "small", 1.2, nullptr},
      {"1920x1080", "2", "small", 0.75, nullptr},
      {"1920x1080", "0", nullptr, 1.0, "[Error]vconf get failed return"},
      {"1920x1080", nullptr, "small", 0.75, "[Error]vconf get fails"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.screen) + " " + (c.zoom ? c.zoom : "-") + " " + (c.size ? c.size : "-"));
    const ScreenOf screen(c.screen);
    Tv tv;
    SetOrRemove(tv, kZoom, c.zoom);
    SetOrRemove(tv, kSize, c.size);
    test::Run({"tv-rating"},
              [&](Remote&) { EXPECT_NEAR(elm_object_scale_get(CRootWindow::GetWindow()), c.scale, 1e-6); });
    EXPECT_TRUE(!c.message || test::Logged(c.message)) << c.message;
  }
}

TEST(Scale, IsOneWithoutADisplay) {
  Tv tv;
  tv.Set(kSize, "small");
  tv.Fail("display_connect");
  test::Run({"tv-rating"}, [&](Remote&) { EXPECT_EQ(elm_object_scale_get(CRootWindow::GetWindow()), 1.0); });
  EXPECT_TRUE(test::Logged("[Error]Connection fail. ecore_wl2_display_connect returned NULL"));
}

TEST(Scale, WhatIsOnTheScreenGrowsWithItAndStaysInside) {
  for (const char* size : {"1920x1080", "1280x720"}) {
    const ScreenOf screen(size);
    const int width = std::atoi(size);
    std::map<std::string, int> pitch;
    for (const char* zoom : {"0", "1"}) {
      Tv tv;
      tv.Set(kZoom, zoom);
      test::Run({"tv-rating"}, [&](Remote& remote) {
        pitch[zoom] = remote.PlaceOf("All, TV-MA").y - remote.PlaceOf("All, TV-Y").y;
        for (const char* name : {"All, TV-Y", "D, TV-14", "Close"}) {
          const Place place = remote.PlaceOf(name);
          EXPECT_TRUE(place.x >= 0 && place.x + place.w <= width && place.y + place.h <= width * 9 / 16) << name;
        }
      });
    }
    EXPECT_NEAR(pitch["0"], 5 * 76 * width / 1920, 5) << size;
    EXPECT_NEAR(pitch["1"] / 1.2, pitch["0"], 6) << size;
  }
}

// --- colours -------------------------------------------------------------------------------------

double Luminance(unsigned int colour) {
  const auto part = [&](int shift) {
    const double value = (colour >> shift & 0xFF) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
}

/// But for the rounding of whoever draws.
bool IsColour(unsigned int colour, unsigned int expected) {
  for (const int shift : {0, 8, 16}) {
    const int apart = static_cast<int>(colour >> shift & 0xFF) - static_cast<int>(expected >> shift & 0xFF);
    if (std::abs(apart) > 2) return false;
  }
  return true;
}

TEST(HighContrast, OpensTheOtherThemeAndItsColours) {
  struct Case {
    const char* value;
    const char* file;
    unsigned int ground, panel;
  };
  for (const Case& c : {Case{"0", "quirelle_dark.edj", 0x1D2430, 0x151A24}, Case{"1", "quirelle_hc.edj", 0, 0}}) {
    Tv tv;
    tv.Set(kContrast, c.value);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      const char* overlay = static_cast<const char*>(eina_list_last_data_get(elm_theme_overlay_list_get(nullptr)));
      EXPECT_TRUE(std::string(overlay).ends_with(c.file)) << overlay;
      const Place box = remote.PlaceOf("D, TV-PG"), close = remote.PlaceOf("Close");
      EXPECT_TRUE(IsColour(remote.ColourAt(box.x + 2, box.y + 2), c.ground)) << "beside the box there is the ground";
      EXPECT_TRUE(IsColour(remote.ColourAt(close.x - 60, close.y + 10), c.panel));
      remote.Press("Down Down Down Down Down Down");
      const Place button = remote.PlaceOf("Close");
      const unsigned int focused = remote.ColourAt(button.x + 30, button.y + button.h / 2);
      EXPECT_GT(Luminance(focused), 0.5) << "what has the focus is filled";
    });
  }
}

TEST(Colours, ComeFromTheTVsChips) {
  Tv tv;
  desktop::Store::Get().Write(
      [] { desktop::Query("UPDATE chip SET r = 200, g = 100, b = 50 WHERE name = 'CC_Basic200'").Run(); });
  test::Run({"tv-rating"}, [](Remote& remote) {
    const Place box = remote.PlaceOf("D, TV-PG");
    EXPECT_TRUE(IsColour(remote.ColourAt(box.x + 2, box.y + 2), 0xC86432));
  });
}

// --- direction and language ----------------------------------------------------------------------

TEST(RightToLeft, MirrorsTheGridAndItsKeys) {
  struct Case {
    const char* orientation;
    const char* language;
    bool mirrored;
  };
  for (const Case& c : {Case{"auto", "en_US.utf8", false}, Case{"rtl", "en_US.utf8", true},
                        Case{"auto", "ar_AE.utf8", true}, Case{"ltr", "ar_AE.utf8", false}}) {
    SCOPED_TRACE(std::string(c.orientation) + " " + c.language);
    Tv tv;
    tv.Set("db/menu_widget/orientation", c.orientation);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      static_cast<void>(remote);
      EXPECT_EQ(elm_config_mirrored_get() == EINA_TRUE, std::string(c.orientation) == "rtl");
    });
    tv.Set(kLanguage, c.language);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      EXPECT_EQ(elm_config_mirrored_get() == EINA_TRUE, c.mirrored);
      EXPECT_TRUE(test::Logged(c.mirrored ? "[Debug]AppMain - UA_RTL_UI_ORIENTATION"
                                          : "[Debug]AppMain - UA_LTR_UI_ORIENTATION"));
      const Json::Value screen = remote.Screen();
      // Boxes 3 and 16: the first and the last column of a row.
      const Place first = remote.PlaceOf(screen["checks"][3]["name"].asString());
      const Place last = remote.PlaceOf(screen["checks"][16]["name"].asString());
      EXPECT_EQ(first.x > last.x, c.mirrored);
      EXPECT_EQ(first.y, last.y);
      // Towards the next column, which lies on the other side.
      remote.Press("Down Down Down");
      remote.Press(c.mirrored ? "Left" : "Right");
      EXPECT_EQ(remote.Focus(), screen["checks"][7]["name"].asString());
      const Place content = remote.PlaceOf(remote.Focus());
      EXPECT_EQ(content.x < first.x, c.mirrored);
    });
  }
}

TEST(Language, EveryTextOnTheScreenIsTranslated) {
  struct Case {
    const char* language;
    const char* title;
    const char* close;
  };
  Texts english;
  for (const Case& c : {Case{"en_US.utf8", "TV rating", "Close"}, Case{"de_DE.utf8", "TV-Altersfreigabe", "Schließen"},
                        Case{"ar_AE.utf8", nullptr, "إغلاق"}, Case{"ko_KR.utf8", nullptr, "닫기"},
                        Case{"xx_XX.utf8", "SID_TV_RATING", "SID_CLOSE"}}) {
    SCOPED_TRACE(c.language);
    Tv tv;
    tv.Set(kLanguage, c.language);
    tv.Set(kVoice, "1");
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Wait(0.3);
      const Json::Value screen = remote.Screen();
      if (c.title) {
        EXPECT_EQ(screen["title"].asString(), c.title);
      }
      EXPECT_EQ(screen["buttons"][0]["text"].asString(), c.close);
      Texts texts = remote.Texts();
      const Texts spoken = remote.Spoken();
      texts.insert(texts.end(), spoken.begin(), spoken.end());
      if (english.empty()) english = texts;
      for (const std::string& text : texts) {
        const bool known = text.find("SID_") == std::string::npos && text.find("<<") == std::string::npos;
        EXPECT_EQ(known, c.language[0] != 'x' || text.find("SID_") == std::string::npos) << text;
      }
    });
  }
}

// --- voice ---------------------------------------------------------------------------------------

constexpr const char* kFirstWords = " TV rating, 18 items. Use the arrow keys to move., All, TV-Y, Check box ";

TEST(Voice, ReadsTheFirstWordsOnceAfterAMoment) {
  Tv tv;
  tv.Set(kVoice, "1");
  test::Run({"tv-rating"}, [&](Remote& remote) {
    const auto said = [&] {
      const Texts spoken = remote.Spoken();
      return std::count_if(spoken.begin(), spoken.end(), [](const auto& t) { return t.starts_with(kFirstWords); });
    };
    EXPECT_EQ(said(), 0);
    remote.Wait(0.25);
    EXPECT_EQ(said(), 1) << (remote.Spoken().empty() ? "nothing" : remote.Spoken().back());
    remote.Wait(5);
    EXPECT_EQ(said(), 1);
    EXPECT_EQ(tv.Journal("elm_access_force_say").size(), 1U);
    EXPECT_EQ(tv.Journal("elm_access_force_say")[0].arguments, " ");
  });
}

TEST(Voice, SaysNothingOfAWindowThatIsGoneOrWhenItIsOff) {
  for (const char* value : {"1", "0"}) {
    Tv tv;
    tv.Set(kVoice, value);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      if (*value == '1') CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 1, 0, nullptr, nullptr);
      remote.Settle();
      remote.Wait(2);
      for (const std::string& text : remote.Spoken()) EXPECT_EQ(text.find("18 items"), std::string::npos) << text;
    });
    EXPECT_EQ(tv.Journal("elm_access_force_say").size(), *value == '1' ? 1U : 0U);
  }
}

TEST(Voice, TheLaterOfTwoTextsIsRead) {
  Tv tv;
  tv.Set(kVoice, "1");
  test::Run({"tv-rating"}, [&](Remote& remote) {
    remote.Wait(1);
    tv.ClearJournal();
    CVoiceGuide* guide = CVoiceGuide::GetInstance();
    const std::string longText(600, 'x');
    EXPECT_TRUE(guide->StartVoiceGuide("first", 2, true));
    EXPECT_TRUE(guide->StartVoiceGuide(longText.c_str(), 2, true));
    remote.Wait(1);
    EXPECT_TRUE(tv.Journal("elm_access_say").empty());
    remote.Wait(1.1);
    const std::vector<test::Call> said = tv.Journal("elm_access_say");
    ASSERT_EQ(said.size(), 1U);
    EXPECT_TRUE(said[0].arguments.starts_with(longText));
    EXPECT_EQ(tv.Journal("elm_access_force_stop").size(), 2U);
    for (const char* text : {static_cast<const char*>(nullptr), ""})
      EXPECT_FALSE(guide->StartVoiceGuide(text, 2, true));
    EXPECT_TRUE(test::Logged("[Debug]Empty String Fail to Voice Guide"));
    EXPECT_TRUE(guide->StartVoiceGuide("cancelled", 2, true));
    guide->Cancel();
    remote.Wait(3);
    EXPECT_EQ(tv.Journal("elm_access_say").size(), 1U);
  });
}

// --- usage records -------------------------------------------------------------------------------

TEST(Usage, RecordsTheValueOfAnItem) {
  struct Case {
    const char* id;
    int type;
    const char* failing;
    /// Null when nothing is sent.
    const char* sent;
    const char* message;
  };
  const Case cases[] = {
      {"hdmi-delay-level", 0, nullptr,
       "20_sqa, EV014, SELECT_VALUE, {sl_item=hdmi-delay-level;sl_value=2;appid=com.vantrel.tv.viewer}",
       "[Debug]AddEventLog Success"},
      {"hdmi-delay-level", 1, nullptr, "20_sqa, EV001, CLICK, {hdmilevel=2}", "[Debug]RetCode=0"},
      {"hdmi-delay-level", 0, "vconf_get_str",
       "20_sqa, EV014, SELECT_VALUE, {sl_item=hdmi-delay-level;sl_value=2;appid=}",
       "[Debug]getting current fullscreen appid failed"},
      {"hdmi-delay-level", 1, "AddEventLogSync", "20_sqa, EV001, CLICK, {hdmilevel=2}",
       "[Debug]Could not add event log"},
      {nullptr, 1, nullptr, "20_sqa, EV001, CLICK, {hdmilevel=}", nullptr},
      {"hdmi-delay-level", 2, nullptr, nullptr, "[Info]Not matched with any log types"},
  };
  for (const Case& c : cases) {
    Tv tv;
    desktop::Store::Get().Write(
        [] { desktop::Query("UPDATE item SET value = '2' WHERE id = 'hdmi-delay-level'").Run(); });
    if (c.failing) tv.Fail(c.failing);
    CKPILog::SendKpiLog(c.id, static_cast<CKPILog::LOG_TYPE>(c.type));
    const std::vector<test::Call> calls = tv.Journal("AddEventLogSync");
    ASSERT_EQ(calls.size(), c.sent ? 1U : 0U);
    for (const test::Call& call : calls) EXPECT_EQ(call.arguments, c.sent);
    EXPECT_TRUE(!c.message || test::Logged(c.message)) << c.message;
  }
}

}  // namespace
