#include "Harness.h"
#include "ViewControlSpinner.h"

using test::Remote;
using test::Tv;

namespace {

std::string Item(const std::string& id) {
  const test::Outcome outcome = test::Execute("quirelle-tv", {"item", id});
  return outcome.output.substr(0, outcome.output.find('\n'));
}

/// On a busy machine the program may need some more turns of the loop than it is given.
template <class Condition>
bool Comes(Remote& remote, Condition condition) {
  for (int i = 0; i < 50 && !condition(); ++i) remote.Settle();
  return condition();
}

bool Opens(Remote& remote) {
  return Comes(remote,
               [&] { return !remote.Stack().empty() && !remote.Focus().empty() && !remote.Screen()["texts"].empty(); });
}

std::string FocusAfter(Remote& remote, const std::string& wanted) {
  Comes(remote, [&] { return remote.Focus() == wanted; });
  return remote.Focus();
}

bool Exits(Remote& remote) {
  return Comes(remote, [&] { return remote.HasExited(); });
}

std::vector<std::string> RowTexts(Remote& remote) {
  std::vector<std::string> texts;
  const Json::Value screen = remote.Screen();
  for (const Json::Value& row : screen["rows"]) texts.push_back(row["text"].asString());
  return texts;
}

// --- the bottom popup ----------------------------------------------------------------------------

TEST(BottomPopup, OpensOnTheValueThatIsSet) {
  Tv tv;
  test::Run({"hdmi-delay-level"}, [](Remote& remote) {
    EXPECT_EQ(remote.Screen()["title"].asString(), "HDMI delay level");
    EXPECT_TRUE(Opens(remote));
    EXPECT_TRUE(Comes(remote, [&] { return RowTexts(remote).size() == 4; }));
    EXPECT_EQ(RowTexts(remote), (std::vector<std::string>{"Off", "1", "2", "3"}));
    EXPECT_EQ(FocusAfter(remote, "Off"), "Off");
    remote.Press("Down Down Return");
    EXPECT_TRUE(Exits(remote));
  });
  EXPECT_EQ(Item("hdmi-delay-level"), "2");
  test::Run({"hdmi-delay-level"}, [](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    EXPECT_EQ(FocusAfter(remote, "2"), "2");
  });
}

TEST(BottomPopup, WritesOnlyWhatHasChanged) {
  struct {
    const char* keys;
    size_t writes;
  } const cases[] = {{"Return", 0}, {"Down Up Return", 0}, {"Down Back", 0}, {"Down Return", 1}};
  for (const auto& c : cases) {
    Tv tv;
    test::Run({"hdmi-delay-level"}, [&](Remote& remote) {
      EXPECT_TRUE(Opens(remote));
      remote.Press(c.keys);
      EXPECT_TRUE(Exits(remote)) << c.keys;
    });
    EXPECT_EQ(tv.Journal("SettingsAPI::SetItemValue").size(), c.writes) << c.keys;
  }
}

// --- the spinner's limits ------------------------------------------------------------------------

class Spinner : public CViewControlSpinner {
 public:
  using CViewControlSpinner::t_GetMinMaxValue;
};

TEST(Spinner, KnowsWhatMayBeTyped) {
  const auto frequency = Spinner::t_GetMinMaxValue("user-defined-transponder-frequency");
  EXPECT_TRUE(frequency.valid);
  EXPECT_EQ(frequency.minimum, 10700);
  EXPECT_EQ(frequency.maximum, 12750);
  EXPECT_EQ(Spinner::t_GetMinMaxValue("user-defined-transponder-symbolrate").maximum, 50000);
  EXPECT_FALSE(Spinner::t_GetMinMaxValue("signal-information-bandwidth").valid);
}

// --- fine tune -----------------------------------------------------------------------------------

std::vector<std::string> Presets(Tv& tv) {
  std::vector<std::string> arguments;
  for (const test::Call& call : tv.Journal("TunerControl::PresetMFT")) arguments.push_back(call.arguments);
  return arguments;
}

bool Shows(Remote& remote, const std::string& text) {
  const Json::Value screen = remote.Screen();
  for (const Json::Value& shown : screen["texts"]) {
    if (shown.asString() == text) return true;
  }
  return false;
}

const std::string kMark = "\u200e";

TEST(FineTune, TheTunerFollowsTheSlider) {
  Tv tv;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    EXPECT_EQ(FocusAfter(remote, "Close"), "Close");
    remote.Press("Up");
    EXPECT_EQ(FocusAfter(remote, "+" + kMark + "0"), "+" + kMark + "0");
    for (const char* key : {"Right", "Right", "Left"}) {
      remote.Press(key);
      remote.Settle();
    }
    EXPECT_EQ(FocusAfter(remote, "+" + kMark + "1"), "+" + kMark + "1");
    EXPECT_EQ(Presets(tv), (std::vector<std::string>{"1, 33", "1, 34", "1, 33"}));
    remote.Press("Down");
    EXPECT_EQ(FocusAfter(remote, "Save"), "Save");
  });
}

TEST(FineTune, GoesRoundAtBothEnds) {
  Tv tv;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    remote.Press("Up");
    for (int i = 0; i < 32; ++i) remote.Press("Left");
    EXPECT_EQ(FocusAfter(remote, kMark + "-32"), kMark + "-32");
    remote.Press("Left");
    EXPECT_EQ(FocusAfter(remote, "+" + kMark + "32"), "+" + kMark + "32");
    remote.Press("Right");
    EXPECT_EQ(FocusAfter(remote, kMark + "-32"), kMark + "-32");
    EXPECT_EQ(Presets(tv).back(), "1, 0");
  });
}

TEST(FineTune, SavesResetsAndShowsBoth) {
  Tv tv;
  std::string channel;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    channel = remote.Screen()["texts"][1].asString();
    EXPECT_TRUE(channel.starts_with("Channel: ")) << channel;
    remote.Press("Up Right Right Down Return");
    EXPECT_TRUE(Shows(remote, channel + "*"));
    EXPECT_TRUE(Shows(remote, "Fine tune:  +2"));
    std::vector<std::string> order;
    for (const test::Call& call : tv.Journal()) {
      if (call.operation.ends_with("MFT") || call.operation == "Service::UpdateService")
        order.push_back(call.operation);
    }
    order.erase(order.begin(), order.end() - 5);
    EXPECT_EQ(order,
              (std::vector<std::string>{"TunerControl::SetMFT", "Service::UpdateService", "Service::UpdateService",
                                        "TunerControl::GetMFT", "TunerControl::PresetMFT"}));
    remote.Press("Back");
    EXPECT_TRUE(Exits(remote));
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    EXPECT_TRUE(Shows(remote, channel + "*"));
    remote.Press("Up Right");
    EXPECT_TRUE(Shows(remote, channel));
    EXPECT_FALSE(Shows(remote, "Fine tune:  +2"));
    remote.Press("Down Left");
    EXPECT_EQ(FocusAfter(remote, "Reset"), "Reset");
    remote.Press("Return");
    EXPECT_EQ(FocusAfter(remote, "OK"), "OK");
    remote.Wait(4.0);
    EXPECT_EQ(FocusAfter(remote, "OK"), "OK");
    remote.Wait(2.0);
    EXPECT_NE(remote.Focus(), "OK");
    EXPECT_FALSE(remote.HasExited());
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    EXPECT_TRUE(Shows(remote, channel));
    remote.Press("Up");
    EXPECT_EQ(FocusAfter(remote, "+" + kMark + "0"), "+" + kMark + "0");
  });
}

TEST(FineTune, BackClosesTheWordAfterAResetAndThenTheWindow) {
  for (const char* key : {"Back", "Return"}) {
    Tv tv;
    test::Run({"fine-tune"}, [&](Remote& remote) {
      EXPECT_TRUE(Opens(remote));
      remote.Press("Left Left Return");
      EXPECT_EQ(FocusAfter(remote, "OK"), "OK");
      remote.Press(key);
      EXPECT_EQ(remote.Stack(), std::vector<std::string>{"fine-tune"}) << key;
      EXPECT_EQ(FocusAfter(remote, "Reset"), "Reset") << key;
      remote.Press("Back");
      EXPECT_TRUE(Exits(remote)) << key;
    });
  }
}

// --- the voice guide -----------------------------------------------------------------------------

TEST(BottomPopup, IsSteeredWithTheVoiceGuideOn) {
  Tv tv;
  tv.Set("db/setting/accessibility/tts", "1");
  test::Run({"hdmi-delay-level"}, [&](Remote& remote) {
    EXPECT_TRUE(Opens(remote));
    EXPECT_EQ(FocusAfter(remote, "Off"), "Off");
    struct {
      const char *key, *focus;
    } const steps[] = {{"Down", "1"}, {"5", "1"},  {"Down", "2"}, {"Left", "2"},
                       {"Down", "3"}, {"Up", "2"}, {"Up", "1"}};
    for (const auto& step : steps) {
      remote.Press(step.key);
      EXPECT_EQ(FocusAfter(remote, step.focus), step.focus) << step.key;
    }
    remote.Press("Return");
    EXPECT_TRUE(Exits(remote));
  });
  EXPECT_EQ(Item("hdmi-delay-level"), "1");
}

}  // namespace
