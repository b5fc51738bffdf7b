#include <fstream>

#include "DeviceManager.h"
#include "Harness.h"
#include "ViewControlSpinner.h"

using test::Remote;
using test::Tv;

namespace {

std::string Item(const std::string& id) {
  const test::Outcome outcome = test::Execute("quirelle-tv", {"item", id});
  return outcome.output.substr(0, outcome.output.find('\n'));
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
    EXPECT_EQ(RowTexts(remote), (std::vector<std::string>{"Off", "1", "2", "3"}));
    EXPECT_EQ(remote.Focus(), "Off");
    remote.Press("Down Down Return");
    EXPECT_TRUE(remote.HasExited());
  });
  EXPECT_EQ(Item("hdmi-delay-level"), "2");
  test::Run({"hdmi-delay-level"}, [](Remote& remote) { EXPECT_EQ(remote.Focus(), "2"); });
}

TEST(BottomPopup, WritesOnlyWhatHasChanged) {
  struct {
    const char* keys;
    size_t writes;
  } const cases[] = {{"Return", 0}, {"Down Up Return", 0}, {"Down Back", 0}, {"Down Return", 1}};
  for (const auto& c : cases) {
    Tv tv;
    test::Run({"hdmi-delay-level"}, [&](Remote& remote) {
      remote.Press(c.keys);
      EXPECT_TRUE(remote.HasExited()) << c.keys;
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

// --- sticks and message boxes --------------------------------------------------------------------

class Sticks {
 public:
  explicit Sticks(const Tv& tv) : m_directory(std::filesystem::path(tv.Path()).parent_path()) {}
  ~Sticks() { CDeviceManager::ReleaseInstance(); }
  void Add(const std::string& name, int archives) {
    std::filesystem::create_directory(m_directory / name);
    for (int i = 0; i < archives; ++i) std::ofstream(m_directory / name / ("list" + std::to_string(i) + ".zip")) << "x";
  }
  std::filesystem::path operator/(const std::string& name) const { return m_directory / name; }

 private:
  std::filesystem::path m_directory;
};

TEST(DeviceManager, CountsMountedSticksAndTheirArchives) {
  Tv tv;
  Sticks sticks(tv);
  sticks.Add("A", 0);
  sticks.Add("B", 2);
  std::ofstream(sticks / "A" / "Channel.ZIP") << "x";
  std::filesystem::create_directory(sticks / "A" / "deep");
  std::ofstream(sticks / "A" / "deep" / "list.zip") << "x";
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  EXPECT_EQ(devices->m_nDeviceCount, 2);
  EXPECT_EQ(devices->m_nDeviceWithMapCount, 1);
  EXPECT_EQ(devices->GetSelectedDeviceIndex(), 1);
  ASSERT_NE(devices->GetSelectedDevice(), nullptr);
  EXPECT_EQ(devices->GetSelectedDevice()->nChmapFileCount, 2);
  EXPECT_GT(devices->GetSelectedDevice()->availableSize, 0U);

  sticks.Add("C", 1);
  devices->Initialize(false);
  EXPECT_EQ(devices->m_nDeviceCount, 2);
  devices->Initialize(true);
  EXPECT_EQ(devices->m_nDeviceCount, 3);
  tv.Fail("usb_device_get_mountpath", "-1", 1);
  devices->Initialize(true);
  EXPECT_EQ(devices->m_nDeviceCount, 2);
}

TEST(MessageBox, SaysWhatTheSticksHold) {
  struct {
    const char* menuID;
    int sticks, archives;
    const char* text;
    std::vector<std::string> buttons;
  } const cases[] = {
      {"import-from-usb", 0, 0, "No USB device is connected. Check the connection.", {"OK"}},
      {"import-from-usb", 1, 0, "There is no channel list on the USB device.", {"OK"}},
      {"import-from-usb",
       1,
       1,
       "Import the channel list from the USB device? The list on the TV will be replaced.",
       {"OK", "Cancel"}},
      {"import-from-usb",
       2,
       3,
       "Import the channel list from the USB device? The list on the TV will be replaced.",
       {"OK", "Cancel"}},
      {"export-to-usb", 0, 0, "No USB device is connected. Check the connection.", {"OK"}},
      {"factory-import-from-usb", 1, 0, "There is no channel list on the USB device.", {"OK (15)"}},
      {"factory-export-to-usb", 0, 0, "No USB device is connected. Check the connection.", {"OK (15)"}},
      {"satcr-detect-slot-frequency-slot1", 0, 0, nullptr, {"Start"}},
      {"StartFrequency",
       0,
       0,
       "The start frequency is higher than the stop frequency. Check both and try again.",
       {"OK"}},
  };
  for (const auto& c : cases) {
    Tv tv;
    Sticks sticks(tv);
    for (int i = 0; i < c.sticks; ++i) sticks.Add("S" + std::to_string(i), c.archives);
    test::Run({c.menuID}, [&](Remote& remote) {
      const Json::Value screen = remote.Screen();
      std::vector<std::string> texts, buttons;
      for (const Json::Value& text : screen["texts"]) texts.push_back(text.asString());
      for (const Json::Value& button : screen["buttons"]) buttons.push_back(button["text"].asString());
      if (c.text) {
        EXPECT_NE(std::find(texts.begin(), texts.end(), c.text), texts.end()) << c.menuID;
      }
      EXPECT_EQ(buttons, c.buttons) << c.menuID;
      // What undoes nothing has the focus.
      EXPECT_EQ(remote.Focus(), c.buttons.back()) << c.menuID;
      remote.Press("Return");
      if (std::string(c.menuID).starts_with("satcr")) return;
      EXPECT_TRUE(remote.HasExited()) << c.menuID;
    });
  }
}

TEST(MessageBox, TheFactoryBoxAnswersByItself) {
  Tv tv;
  test::Run({"factory-export-to-usb"}, [](Remote& remote) {
    for (int left = 14; left > 0; --left) {
      remote.Wait(1.0);
      EXPECT_EQ(remote.Focus(), "OK (" + std::to_string(left) + ")");
    }
    EXPECT_FALSE(remote.HasExited());
    remote.Wait(1.0);
    EXPECT_TRUE(remote.HasExited());
  });
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
    EXPECT_EQ(remote.Focus(), "Close");
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "+" + kMark + "0");
    remote.Press("Right Right Left");
    EXPECT_EQ(remote.Focus(), "+" + kMark + "1");
    EXPECT_EQ(Presets(tv), (std::vector<std::string>{"1, 33", "1, 34", "1, 33"}));
    remote.Press("Down");
    EXPECT_EQ(remote.Focus(), "Save");
  });
}

TEST(FineTune, GoesRoundAtBothEnds) {
  Tv tv;
  test::Run({"fine-tune"}, [&](Remote& remote) {
    remote.Press("Up");
    for (int i = 0; i < 32; ++i) remote.Press("Left");
    EXPECT_EQ(remote.Focus(), kMark + "-32");
    remote.Press("Left");
    EXPECT_EQ(remote.Focus(), "+" + kMark + "32");
    remote.Press("Right");
    EXPECT_EQ(remote.Focus(), kMark + "-32");
    EXPECT_EQ(Presets(tv).back(), "1, 0");
  });
}

TEST(FineTune, SavesResetsAndShowsBoth) {
  Tv tv;
  std::string channel;
  test::Run({"fine-tune"}, [&](Remote& remote) {
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
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Shows(remote, channel + "*"));
    remote.Press("Up Right");
    EXPECT_TRUE(Shows(remote, channel));
    EXPECT_FALSE(Shows(remote, "Fine tune:  +2"));
    remote.Press("Down Left Return");
    EXPECT_EQ(remote.Focus(), "OK");
    remote.Wait(4.9);
    EXPECT_EQ(remote.Focus(), "OK");
    remote.Wait(0.2);
    EXPECT_NE(remote.Focus(), "OK");
    EXPECT_FALSE(remote.HasExited());
  });
  test::Run({"fine-tune"}, [&](Remote& remote) {
    EXPECT_TRUE(Shows(remote, channel));
    remote.Press("Up");
    EXPECT_EQ(remote.Focus(), "+" + kMark + "0");
  });
}

}  // namespace
