// The bottom popup and fine tune, worked with the remote.
#include <Elementary.h>

#include "DataList.h"
#include "EventManager.h"
#include "Harness.h"
#include "ThemeNames.h"
#include "WrapPatterns.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

// --- the bottom popup ----------------------------------------------------------------------------

constexpr const char* kDelay = "hdmi-delay-level";

TEST(BottomPopup, OpensOnTheValueAndWritesOnlyAnother) {
  const struct {
    const char *value, *focus, *keys, *stored;
    size_t writes;
  } cases[] = {
      {"0", "Off", "Return", "0", 0},           {"0", "Off", "Down Up Return", "0", 0},
      {"0", "Off", "Down Back", "0", 0},        {"0", "Off", "Down BackSpace", "0", 0},
      {"0", "Off", "Down Down Return", "2", 1}, {"2", "2", "Up Return", "1", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.value) + ": " + c.keys);
    Tv tv;
    tv.SetItem(kDelay, c.value);
    test::Run({kDelay}, [&](Remote& remote) {
      EXPECT_EQ(remote.RowTexts(), (Texts{"Off", "1", "2", "3"}));
      EXPECT_EQ(remote.Focus(), c.focus);
      remote.ExpectExit(c.keys);
    });
    EXPECT_EQ(tv.Item(kDelay), c.stored);
    EXPECT_EQ(tv.Calls("SettingsAPI::SetItemValue"), c.writes);
  }
}

TEST(BottomPopup, IsSteeredWithTheVoiceGuideOn) {
  Tv tv;
  tv.TurnVoiceOn();
  test::Run({kDelay}, [&](Remote& remote) {
    remote.ExpectSaid("", "Off, Selected, 1 of 4");
    EXPECT_TRUE(remote.Heard("HDMI delay level, 4 items. Use the arrow keys to move."));
    remote.ExpectSaid("Down", "1, 2 of 4");
    remote.ExpectSaid("5 Down Left Down", "3, 4 of 4");
    remote.ExpectSaid("Up Up Up", "Off, Selected, 1 of 4");
    remote.ExpectExit("Down Return");
  });
  EXPECT_EQ(tv.Item(kDelay), "1");
}

// --- rows ----------------------------------------------------------------------------------------

TEST(PageRows, ShowThePictureThatTheyAreGiven) {
  constexpr const char* kHistory = "signal-information-weakhistory";
  const std::string tick = std::string(SOURCE_DIRECTORY) + "/theme/images/tick.png";
  Tv tv;
  auto& providers = Singleton<FuncEvents>::GetInstance()->providers;
  providers[kHistory] = [&](std::vector<DataInfo>& rows) {
    rows = {{"Shown", "1", "", "", tick},
            {"Gone", "2", "", "", "/no/such/picture.png"},
            {"None", "3", "", "", ""},
            {"TV", "4", "", "", tv.Path()}};
  };
  test::Run({kHistory}, [&](Remote& remote) {
    ASSERT_EQ(remote.RowTexts().size(), 4U);
    test::TakeToolkitErrors();  // what is no picture
    const auto picture = [&](unsigned int row) {
      return elm_object_item_part_content_get(elm_genlist_nth_item_get(remote.List(), row), theme::kRowBox);
    };
    const char* file = nullptr;
    ASSERT_NE(picture(0), nullptr);
    elm_image_file_get(picture(0), &file, nullptr);
    EXPECT_STREQ(file, tick.c_str());
    for (const unsigned int row : {1, 2, 3}) EXPECT_EQ(picture(row), nullptr) << row;
  });
  providers.erase(kHistory);
}

// --- fine tune -----------------------------------------------------------------------------------

/// What the slider says; numbers run from left to right in every language.
std::string Offset(int value) { return (value < 0 ? "" : "+") + std::string("\u200e") + std::to_string(value); }

TEST(FineTune, TheTunerFollowsTheSliderRoundBothEnds) {
  Tv tv;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_EQ(remote.Focus(), "Close");
    remote.ExpectFocus("Up", Offset(0));
    remote.ExpectFocus("Right Right Left", Offset(1));
    EXPECT_EQ(tv.ArgumentsOf("TunerControl::PresetMFT"), (Texts{"1, 33", "1, 34", "1, 33"}));
    remote.ExpectFocus(test::Times("Left", 33), Offset(-32));
    remote.ExpectFocus("Left", Offset(32));
    remote.ExpectFocus("Right", Offset(-32));
    EXPECT_EQ(tv.ArgumentsOf("TunerControl::PresetMFT").back(), "1, 0");
    remote.ExpectFocus("Down", "Save");
  });
}

/// The channel shown has this fine tuning, and the tuner holds it.
void StoreFineTuning(int type, int byte) {
  test::Change(
      "UPDATE service SET fine_tune_type = ?, fine_tune_offset = ? WHERE id IN (SELECT service FROM picture WHERE "
      "profile = 1)",
      type, byte);
  test::Change("REPLACE INTO fine_tune SELECT service, ? FROM picture WHERE profile = 1", byte);
}

TEST(FineTune, ShowsWhatIsStoredAtTheEndsOfAByte) {
  constexpr int kTuned = 1, kReset = 6;
  struct Case {
    int type, byte;
    const char *language, *status;
    int slider;
  };
  for (const Case& c :
       {Case{kTuned, 0, "en_US.utf8", "Fine tune:  -32", -32}, Case{kTuned, 32, "en_US.utf8", "Fine tune:  0", 0},
        Case{kTuned, 64, "en_US.utf8", "Fine tune:  +32", 32}, Case{kTuned, 223, "en_US.utf8", "Fine tune:  +32", 32},
        Case{kReset, 64, "en_US.utf8", "", 32}, Case{kTuned, 0, "ar_AE.utf8", " 32-", -32},
        Case{kTuned, 64, "ar_AE.utf8", " 32+", 32}}) {
    SCOPED_TRACE(testing::Message() << c.type << " " << c.byte << " " << c.language);
    Tv tv;
    tv.SetLanguage(c.language);
    StoreFineTuning(c.type, c.byte);
    test::Run({"fine-tune"}, [&](Remote& remote) {
      const Texts texts = remote.Texts();
      const auto ends = [](const std::string& end) {
        return [end](const std::string& text) { return text.ends_with(end); };
      };
      const bool starred = std::any_of(texts.begin(), texts.end(), ends("*"));
      EXPECT_EQ(starred, *c.status != 0);
      EXPECT_TRUE(starred ? std::any_of(texts.begin(), texts.end(), ends(c.status)) : true);
      remote.ExpectFocus("Up", Offset(c.slider));
    });
  }
}

TEST(FineTune, KnowsTheChannelWhicheverListIsWatched) {
  Tv tv;
  for (const auto& [list, isFavourites] : {std::pair{"0", false}, std::pair{"1", true}, std::pair{"6", true}}) {
    tv.Set("db/menu/channel_list/air_mode", list);
    test::ClearLog();
    test::Run({"fine-tune"}, [&](Remote& remote) {
      EXPECT_GT(remote.Texts()[1].size(), std::string("Channel: ").size()) << list;
      EXPECT_EQ(test::Logged("[Debug]Get navi model[NAVIGATION_MODE_FAVORITES]."), isFavourites) << list;
    });
  }
}

TEST(FineTune, SavesResetsAndShowsBoth) {
  Tv tv;
  std::string channel;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    channel = remote.Texts()[1];
    EXPECT_TRUE(channel.starts_with("Channel: ")) << channel;
    remote.Press("Up Right Right Down Return");
    EXPECT_TRUE(remote.Shows(channel + "*"));
    EXPECT_TRUE(remote.Shows("Fine tune:  +2"));
    Texts order;
    for (const test::Call& call : tv.Journal()) {
      if (call.operation.ends_with("MFT") || call.operation == "Service::UpdateService")
        order.push_back(call.operation);
    }
    order.erase(order.begin(), order.end() - 5);
    EXPECT_EQ(order, (Texts{"TunerControl::SetMFT", "Service::UpdateService", "Service::UpdateService",
                            "TunerControl::GetMFT", "TunerControl::PresetMFT"}));
    remote.ExpectExit("Back");
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(remote.Shows(channel + "*"));
    remote.Press("Up Right");
    EXPECT_TRUE(remote.Shows(channel));
    EXPECT_FALSE(remote.Shows("Fine tune:  +2"));
    remote.ExpectFocus("Down Left", "Reset");
    remote.Press("Return");
    remote.Wait(4.0);
    EXPECT_EQ(remote.Focus(), "OK");
    remote.Wait(2.0);
    EXPECT_NE(remote.Focus(), "OK");
    EXPECT_FALSE(remote.HasExited());
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(remote.Shows(channel));
    remote.ExpectFocus("Up", Offset(0));
  });
}

TEST(FineTune, TheWordAfterAResetGoesWithBackAndWithTheWindow) {
  constexpr int kFineTuneWindow = 15;
  Tv tv;
  test::Run({"signal-information-weakhistory"}, [](Remote& remote) {
    const std::string focus = remote.Focus();
    remote.Post(EVENT_PUSH_VIEW, kFineTuneWindow);
    for (const char* key : {"Back", "BackSpace", "Return"}) {
      remote.ExpectFocus("Left Left Return", "OK");
      remote.Press(key);
      EXPECT_EQ(remote.Focus(), "Reset") << key;
    }
    remote.ExpectFocus("Return", "OK");
    remote.Post(EVENT_POP_VIEW);
    EXPECT_EQ(remote.Focus(), focus);
    remote.ExpectExit("Back");
  });
}

}  // namespace
