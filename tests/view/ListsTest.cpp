// The bottom popup and fine tune, worked with the remote.
#include "EventManager.h"
#include "Harness.h"

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
      EXPECT_EQ(remote.Title(), "HDMI delay level");
      EXPECT_EQ(remote.RowTexts(), (Texts{"Off", "1", "2", "3"}));
      EXPECT_EQ(remote.Focus(), c.focus);
      remote.Press(c.keys);
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_EQ(tv.Item(kDelay), c.stored);
    EXPECT_EQ(tv.Calls("SettingsAPI::SetItemValue"), c.writes);
  }
}

TEST(BottomPopup, IsSteeredWithTheVoiceGuideOn) {
  const std::pair<const char*, const char*> steps[] = {{"Down", "1"}, {"5", "1"},  {"Down", "2"}, {"Left", "2"},
                                                       {"Down", "3"}, {"Up", "2"}, {"Up", "1"}};
  Tv tv;
  tv.TurnVoiceOn();
  test::Run({kDelay}, [&](Remote& remote) {
    EXPECT_EQ(remote.Focus(), "Off");
    for (const auto& [key, focus] : steps) {
      remote.Press(key);
      EXPECT_EQ(remote.Focus(), focus) << key;
    }
    remote.Press("Return");
    EXPECT_TRUE(remote.HasExited());
  });
  EXPECT_EQ(tv.Item(kDelay), "1");
}

// --- fine tune -----------------------------------------------------------------------------------

/// What the slider says; numbers run from left to right in every language.
std::string Offset(int value) { return (value < 0 ? "" : "+") + std::string("\u200e") + std::to_string(value); }

TEST(FineTune, TheTunerFollowsTheSliderRoundBothEnds) {
  Tv tv;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_EQ(remote.Focus(), "Close");
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), Offset(0));
    remote.Press("Right Right Left");
    EXPECT_EQ(remote.Focus(), Offset(1));
    EXPECT_EQ(tv.ArgumentsOf("TunerControl::PresetMFT"), (Texts{"1, 33", "1, 34", "1, 33"}));
    for (int i = 0; i < 33; ++i) remote.Press("Left");
    EXPECT_EQ(remote.Focus(), Offset(-32));
    remote.Press("Left");
    EXPECT_EQ(remote.Focus(), Offset(32));
    remote.Press("Right");
    EXPECT_EQ(remote.Focus(), Offset(-32));
    EXPECT_EQ(tv.ArgumentsOf("TunerControl::PresetMFT").back(), "1, 0");
    remote.Press("Down");
    EXPECT_EQ(remote.Focus(), "Save");
  });
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
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(remote.Shows(channel + "*"));
    remote.Press("Up Right");
    EXPECT_TRUE(remote.Shows(channel));
    EXPECT_FALSE(remote.Shows("Fine tune:  +2"));
    remote.Press("Down Left");
    EXPECT_EQ(remote.Focus(), "Reset");
    remote.Press("Return");
    remote.Wait(4.0);
    EXPECT_EQ(remote.Focus(), "OK");
    remote.Wait(2.0);
    EXPECT_NE(remote.Focus(), "OK");
    EXPECT_FALSE(remote.HasExited());
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(remote.Shows(channel));
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), Offset(0));
  });
}

TEST(FineTune, BackClosesTheWordAfterAResetAndThenTheWindow) {
  for (const char* key : {"Back", "BackSpace", "Return"}) {
    Tv tv;
    test::Run({"fine-tune"}, [&](Remote& remote) {
      remote.Press("Left Left Return");
      EXPECT_EQ(remote.Focus(), "OK");
      remote.Press(key);
      EXPECT_EQ(remote.Stack(), Texts{"fine-tune"}) << key;
      EXPECT_EQ(remote.Focus(), "Reset") << key;
      remote.Press("Back");
      EXPECT_TRUE(remote.HasExited()) << key;
    });
  }
}

TEST(FineTune, TheWordAfterAResetGoesWithTheWindow) {
  constexpr int kFineTuneWindow = 15;
  Tv tv;
  test::Run({"signal-information-weakhistory"}, [](Remote& remote) {
    const std::string focus = remote.Focus();
    remote.Post(EVENT_PUSH_VIEW, kFineTuneWindow);
    remote.Press("Left Left Return");
    EXPECT_EQ(remote.Focus(), "OK");
    remote.Post(EVENT_POP_VIEW);
    EXPECT_EQ(remote.Focus(), focus);
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
}

}  // namespace
