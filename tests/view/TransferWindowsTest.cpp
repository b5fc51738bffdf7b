// The channel list to a stick and back by the remote: every flow, every end, and sticks that go meanwhile.
#include <Ecore.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <thread>

#include "Clock.h"
#include "Deployment.h"
#include "DeviceManager.h"
#include "Harness.h"
#include "Usb.h"
#include "tvs/ChannelList.h"

namespace fs = std::filesystem;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kNoStick = "No USB device is connected. Check the connection.";
constexpr const char* kNoArchive = "There is no channel list on the USB device.";
constexpr const char* kConfirm = "Import the channel list from the USB device? The list on the TV will be replaced.";
constexpr const char* kCopied = "The channel list has been copied.";
constexpr const char* kCopying = "Copying the channel list.";
constexpr const char* kInvalid = "The channel list is not valid.";
constexpr const char* kNoRoom = "The channel list cannot be exported: there is not enough space on the USB device.";
constexpr const char* kFailed = "Copying failed.\nCheck the USB device and try again.";
constexpr const char* kFrom = "Select the USB device to import the channel list from.";
constexpr const char* kTo = "Select the USB device to export the channel list to.";
constexpr const char* kWhich = "Select the channel list to copy.";
constexpr const char* kArchive = "Channel_list_EU_2024.zip";

constexpr const char *kImport = "import-from-usb", *kExport = "export-to-usb";
constexpr const char *kFactoryImport = "factory-import-from-usb", *kFactoryExport = "factory-export-to-usb";

bool OfFactory(const std::string& menuID) { return menuID.starts_with("factory"); }
bool Imports(const std::string& menuID) { return menuID.find("import") != std::string::npos; }
std::string TitleOf(const std::string& menuID) {
  return !OfFactory(menuID) ? "" : Imports(menuID) ? "Import from USB" : "Export to USB";
}

constexpr int kWhole = 1 << 30;

struct Plugged {
  std::string name;
  Texts archives;
};

class TransferWindows : public testing::Test {
 protected:
  /// The thread that copies waits after so many chunks, of which there are 300, until it is waited for.
  TransferWindows() {
    test::OnSleep([this, loop = std::this_thread::get_id()] {
      if (std::this_thread::get_id() == loop) {
        m_allowed = kWhole;
        return;
      }
      for (++m_passed; m_passed > m_allowed;) test::Pause();
    });
  }
  ~TransferWindows() override {
    m_allowed = kWhole;
    test::OnSleep(nullptr);
  }

  static fs::path Stick(const std::string& name) { return desktop::UsbDirectory() / name; }
  /// The program on a TV with these sticks; nothing of it is left in the end.
  void Run(const std::string& menuID, const std::vector<Plugged>& sticks, const test::Body& body) {
    fs::remove_all(desktop::UsbDirectory());
    for (const auto& [stick, archives] : sticks) {
      m_tv.PutOnStick(stick, {});
      for (const std::string& name : archives) desktop::ExportChannelList(Stick(stick) / name);
    }
    CDeviceManager::ReleaseInstance();
    m_allowed = m_passed = 0;
    test::Run({menuID}, body);
    m_allowed = kWhole;
    for (int i = 0; i < 2000 && ecore_thread_active_get() > 0; ++i) test::Pause();
    EXPECT_EQ(ecore_thread_active_get(), 0);
    const fs::path local = desktop::OwnerDirectory() / "share/channelmapinfo";
    EXPECT_TRUE(!fs::exists(local) || fs::is_empty(local));
  }
  /// The same through the confirmation, where there is one.
  void Start(const std::string& menuID, const std::vector<Plugged>& sticks, const test::Body& body) {
    Run(menuID, sticks, [&](Remote& remote) {
      if (menuID == kImport) {
        ASSERT_EQ(Said(remote), kConfirm);
        remote.Press("Left Return");
      }
      body(remote);
    });
  }
  /// The window has seen it too.
  bool Reach(Remote& remote, int chunks) {
    m_allowed = chunks;
    const bool reached = test::TurnUntil([&] { return m_passed > chunks; });
    remote.Wait(0.15);
    return reached;
  }
  bool Finish(Remote& remote) {
    m_allowed = kWhole;
    const bool ended = test::TurnUntil([] { return ecore_thread_active_get() == 0; });
    remote.Settle();
    for (int look = 0; look < 5 && IsCopying(remote); ++look) remote.Wait(0.1);
    return ended && !IsCopying(remote);
  }
  static bool IsCopying(Remote& remote) { return Said(remote).starts_with(kCopying); }
  /// What the window says, without its title, its rows, its percentage and its buttons.
  static std::string Said(Remote& remote) {
    Texts texts = remote.Texts();
    std::erase(texts, remote.Title());
    for (const std::string& button : remote.Buttons()) std::erase(texts, button);
    std::erase_if(texts, [](const std::string& text) { return text.empty() || text.back() == '%'; });
    for (const std::string& row : remote.RowTexts()) std::erase(texts, row);
    std::string said;
    for (const std::string& text : texts) said += (said.empty() ? "" : "\n") + text;
    return said;
  }
  static void Choose(Remote& remote, const std::string& row) {
    remote.Press("Left");
    for (int i = 0; i < 6 && remote.Focus() != row; ++i) remote.Press("Down");
    ASSERT_EQ(remote.Focus(), row);
    remote.Press("Return");
  }
  static Texts On(const std::string& stick) {
    Texts names;
    for (const auto& entry : fs::directory_iterator(Stick(stick))) names.push_back(entry.path().filename());
    return names;
  }

  Tv m_tv{"europe", 20};
  std::atomic<int> m_allowed{0}, m_passed{0};
};

// --- the flows -----------------------------------------------------------------------------------

struct Choice {
  const char* help;
  /// In any order.
  Texts rows;
  const char* chosen;
};

struct Flow {
  std::vector<const char*> menuIDs;
  std::vector<Plugged> sticks;
  std::vector<Choice> choices;
  /// Of the copy; what a notice says where there is none.
  const char* between;
  const char* file;
};

const Flow kFlows[] = {
    {{kImport, kExport, kFactoryImport, kFactoryExport}, {}, {}, kNoStick, nullptr},
    {{kImport, kFactoryImport}, {{"A", {}}, {"B", {}}}, {}, kNoArchive, nullptr},
    {{kExport, kFactoryExport}, {{"A", {}}}, {}, "TV -> A", "EU_2024"},
    {{kExport, kFactoryExport}, {{"A", {}}, {"B", {"x.zip"}}}, {{kTo, {"A", "B"}, "A"}}, "TV -> A", "EU_2024"},
    {{kExport},
     {{"DISK@1", {}}, {"DISK@2", {}}, {"R&B", {}}},
     {{kTo, {"DISK 1", "DISK 2", "R&B"}, "R&B"}},
     "TV -> R&B",
     "EU_2024"},
    {{kExport},
     {{"DISK@1", {}}, {"DISK@2", {}}, {"DISK@3", {}}},
     {{kTo, {"DISK 1", "DISK 2", "DISK 3"}, "DISK 3"}},
     "TV -> DISK",
     "EU_2024"},
    {{kImport, kFactoryImport}, {{"A", {"a&b.zip"}}}, {}, "A -> TV", "a&b.zip"},
    {{kImport, kFactoryImport}, {{"A", {}}, {"B", {"1.zip"}}}, {}, "B -> TV", "1.zip"},
    {{kImport, kFactoryImport},
     {{"A", {"1.zip", "2.zip"}}},
     {{kWhich, {"1.zip", "2.zip"}, "2.zip"}},
     "A -> TV",
     "2.zip"},
    {{kImport, kFactoryImport},
     {{"A", {}}, {"B", {"1.zip", "2.zip", "3.zip"}}},
     {{kWhich, {"1.zip", "2.zip", "3.zip"}, "3.zip"}},
     "B -> TV",
     "3.zip"},
    {{kImport}, {{"A", {"1.zip"}}, {"B", {}}, {"C", {"c.zip"}}}, {{kFrom, {"A", "C"}, "C"}}, "C -> TV", "c.zip"},
    {{kImport},
     {{"A@1", {"1.zip", "2.zip"}}, {"A@2", {"3.zip", "4.zip"}}},
     {{kFrom, {"A 1", "A 2"}, "A 2"}, {kWhich, {"3.zip", "4.zip"}, "4.zip"}},
     "A -> TV",
     "4.zip"},
    {{kFactoryImport},
     {{"A", {"1.zip", "2.zip"}}, {"C", {"c.zip"}}},
     {{kTo, {"A", "C"}, "A"}, {kWhich, {"1.zip", "2.zip"}, "2.zip"}},
     "A -> TV",
     "2.zip"},
};

TEST_F(TransferWindows, AFlowGoesAsTheSticksAre) {
  for (const Flow& flow : kFlows) {
    for (const std::string menuID : flow.menuIDs) {
      SCOPED_TRACE(menuID + " " + flow.between);
      const auto play = [&](Remote& remote) {
        if (!flow.file) {
          EXPECT_EQ(Said(remote), flow.between);
          EXPECT_EQ(remote.Buttons(), Texts{OfFactory(menuID) ? "OK (15)" : "OK"});
          return;
        }
        for (const Choice& choice : flow.choices) {
          EXPECT_EQ(Said(remote), choice.help);
          EXPECT_EQ(remote.Buttons(), Texts{"Cancel"});
          EXPECT_FALSE(CDeviceManager::GetInstance()->GetDevices().empty()) << "the sticks are looked at once";
          Texts rows = remote.RowTexts();
          std::sort(rows.begin(), rows.end());
          EXPECT_EQ(rows, choice.rows);
          ASSERT_NO_FATAL_FAILURE(Choose(remote, choice.chosen));
        }
        EXPECT_EQ(Said(remote), std::string(kCopying) + "\n" + flow.between + "\n" + flow.file);
        EXPECT_EQ(remote.Title(), TitleOf(menuID));
        EXPECT_TRUE(remote.Buttons().empty());
        ASSERT_TRUE(Finish(remote));
        EXPECT_TRUE(Said(remote).starts_with(std::string(kCopied) + "\n" + flow.between)) << Said(remote);
        EXPECT_EQ(remote.Shows("Country code: DEU"), !Imports(menuID));
        EXPECT_EQ(remote.Shows("The TV will restart."), Imports(menuID));
        EXPECT_TRUE(remote.Buttons()[0].starts_with(OfFactory(menuID) ? "OK (1" : "OK"));
        remote.ExpectExit("Return");
      };
      flow.file ? Start(menuID, flow.sticks, play) : Run(menuID, flow.sticks, play);
    }
  }
}

TEST_F(TransferWindows, AnImportThatIsNotConfirmedChangesNothing) {
  for (const char* keys : {"Return", "Left Back", "Left BackSpace"}) {
    Run(kImport, {{"A", {"list.zip"}}}, [&](Remote& remote) {
      m_tv.ClearJournal();
      remote.ExpectExit(keys);
    });
    EXPECT_EQ(m_tv.Calls("Util::SetServiceDb"), 0U) << keys;
  }
}

// --- the ends ------------------------------------------------------------------------------------

TEST_F(TransferWindows, EachResultHasItsScreen) {
  m_tv.TurnVoiceOn();
  const char* country = "The channel list was made for another country.";
  const struct {
    bool import;
    const char *operation, *result, *text;
  } cases[] = {
      {true, "Util::SetServiceDb", "1", kInvalid}, {true, "Util::SetServiceDb", "2", country},
      {true, "Util::SetServiceDb", "3", kInvalid}, {true, "Util::SetServiceDb", "4", kInvalid},
      {true, "Util::SetServiceDb", "7", kInvalid}, {true, "CreateUtil", "null", kInvalid},
      {false, "Util::GetServiceDb", "0", kNoRoom}, {false, "CreateUtil", "null", kNoRoom},
  };
  for (const auto& c : cases) {
    for (const bool factory : {false, true}) {
      const std::string menuID = c.import ? (factory ? kFactoryImport : kImport) : factory ? kFactoryExport : kExport;
      SCOPED_TRACE(menuID + " " + c.operation + " " + c.result);
      m_tv.Fail(c.operation, c.result);
      Start(menuID, {{"A", {"list.zip"}}}, [&](Remote& remote) {
        EXPECT_EQ(Said(remote), c.text);
        EXPECT_EQ(remote.Buttons(), Texts{factory ? "OK (15)" : "OK"});
        remote.ExpectSaid("", " " + TitleOf(menuID) + ", " + c.text + ", OK, Button");
        EXPECT_FALSE(remote.HasExited());
        remote.ExpectExit("Return");
      });
      m_tv.Heal();
    }
  }
}

TEST_F(TransferWindows, AnImportEndsInARestart) {
  const Texts calls = {"fb_nv_set_disable", "ServiceNavigation::ResetService", "device_power_request_reboot"};
  const struct {
    bool voice;
    /// Until it restarts by itself; 0 for a press.
    double seconds;
    std::string failing;
  } cases[] = {
      {false, 3, ""},      {true, 12, ""}, {true, 0, ""}, {false, 3, calls[0]}, {false, 0, "CreateServiceNavigation"},
      {false, 0, calls[2]}};
  for (const std::string menuID : {kImport, kFactoryImport}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(menuID + " after " + std::to_string(c.seconds) + c.failing);
      m_tv.Set("db/setting/accessibility/tts", c.voice ? "1" : "0");
      Start(menuID, {{"A", {"list.zip"}}}, [&](Remote& remote) {
        ASSERT_TRUE(Reach(remote, 299));
        m_tv.ClearJournal();
        ASSERT_TRUE(Finish(remote));
        EXPECT_EQ(m_tv.Requests("XF86Exit").back(), '+') << "nobody leaves in between";
        if (!c.failing.empty()) m_tv.Fail(c.failing);
        if (c.seconds == 0) {
          remote.Press("Return Return");
        } else {
          remote.Wait(c.seconds - 0.5);
          EXPECT_EQ(m_tv.Calls(calls[2]), 0U);
          remote.Wait(1.0);
        }
        EXPECT_EQ(remote.HasExited(), calls[2] != c.failing);
      });
      EXPECT_EQ(m_tv.ArgumentsOf(calls[0]), Texts{"1"});
      EXPECT_EQ(m_tv.Calls(calls[1]), c.failing == "CreateServiceNavigation" ? 0U : 1U);
      EXPECT_EQ(m_tv.ArgumentsOf(calls[2]), Texts{"3"});
      m_tv.Heal();
    }
  }
}

TEST_F(TransferWindows, TheFactorysEndsCountAndClose) {
  for (const bool copies : {false, true}) {
    if (copies) m_tv.Fail("Util::GetServiceDb");
    Run(kFactoryExport, std::vector<Plugged>(copies, {"A", {}}), [&](Remote& remote) {
      Texts counted;
      while (!remote.HasExited() && counted.size() < 20) {
        const std::string now = remote.Focus();
        if (counted.empty() || counted.back() != now) counted.push_back(now);
        remote.Wait(0.3);
      }
      ASSERT_EQ(counted.size(), 15U);
      for (int left = 15; left >= 1; --left) EXPECT_EQ(counted[15 - left], "OK (" + std::to_string(left) + ")");
    });
  }
}

TEST_F(TransferWindows, ACopyCanBeFollowedByEar) {
  m_tv.TurnVoiceOn();
  Start(kExport, {{"A", {}}}, [&](Remote& remote) {
    for (const int chunks : {50, 100, 170, 240}) {
      ASSERT_TRUE(Reach(remote, chunks));
      remote.Wait(3);
    }
    ASSERT_TRUE(Finish(remote));
    remote.Wait(0.5);
    const Texts heard = remote.Sayings();
    ASSERT_EQ(heard.size(), 5U) << testing::PrintToString(heard);
    EXPECT_EQ(heard[0], std::string(" , ") + kCopying + "\nTV -> A\nEU_2024");
    for (const size_t quarter : {1, 2, 3}) EXPECT_EQ(std::atoi(heard[quarter].c_str()) / 25, static_cast<int>(quarter));
    EXPECT_TRUE(heard[4].starts_with(std::string(" , ") + kCopied + "\nTV -> A, Channel list version: "));
    EXPECT_TRUE(heard[4].ends_with(", Country code: DEU, OK, Button")) << heard[4];
  });
}

// --- sticks that go ------------------------------------------------------------------------------

TEST_F(TransferWindows, AStickPulledAtEachTenthOfTheCopyCostsNothing) {
  for (const std::string menuID : {kExport, kImport, kFactoryExport, kFactoryImport}) {
    for (int tenth = 0; tenth < 10; ++tenth) {
      SCOPED_TRACE(menuID + " " + std::to_string(tenth));
      Start(menuID, {{"A", {"list.zip"}}}, [&](Remote& remote) {
        ASSERT_TRUE(Reach(remote, tenth * 30));
        desktop::PlugStick("another");
        remote.Settle();
        desktop::UnplugStick("another");
        remote.Settle();
        EXPECT_TRUE(IsCopying(remote));
        desktop::UnplugStick("A");
        desktop::PlugStick("A");
        desktop::UnplugStick("A");
        remote.Settle();
        EXPECT_EQ(Said(remote), kNoStick);
        EXPECT_EQ(remote.Stack(), Texts{menuID});
        remote.ExpectExit("Return");
      });
      EXPECT_EQ(On(".A"), Texts{"list.zip"});
    }
  }
}

TEST_F(TransferWindows, InTheOtherWindowsAStickMayComeAndGo) {
  const struct {
    const char *menuID, *keys;
    /// What is seen after the pull; null for a window that has closed.
    const char* after;
    const char *then = "", *last = "";
  } cases[] = {{kExport, "", nullptr},
               {kImport, "Left Return", nullptr},
               {kImport, "", kConfirm, "Left Return", kFrom},
               {kImport, "Left Return Left Return", kWhich, "Left Return", kInvalid}};
  for (const auto& c : cases) {
    for (const bool comes : {false, true}) {
      SCOPED_TRACE(std::string(c.menuID) + " " + c.keys + (comes ? " another comes" : " it goes"));
      Run(c.menuID, {{"A", {"1.zip", "2.zip"}}, {"B", {"3.zip"}}}, [&](Remote& remote) {
        remote.Press(c.keys);
        comes ? desktop::PlugStick("C") : desktop::UnplugStick("A");
        remote.Settle();
        EXPECT_EQ(remote.HasExited(), c.after == nullptr);
        if (!c.after) return;
        EXPECT_EQ(Said(remote), c.after);
        remote.Press(c.then);
        const bool copies = comes && c.last == std::string(kInvalid);
        EXPECT_EQ(Said(remote).substr(0, 20), std::string(copies ? kCopying : c.last).substr(0, 20));
      });
    }
  }
}

// --- leaving -------------------------------------------------------------------------------------

TEST_F(TransferWindows, HoweverACopyIsLeftNothingStays) {
  const struct {
    const char* what;
    std::function<void(Remote&)> leave;
    bool goesOn;
  } cases[] = {
      {"Back", [](Remote& remote) { remote.Press("Back"); }, false},
      {"time-out", [](Remote& remote) { remote.Wait(61); }, false},
      {"switched off", [](Remote& remote) { remote.End(); }, false},
      {"launched again", [](Remote& remote) { remote.Launch(kExport); }, true},
      {"another window launched", [](Remote& remote) { remote.Launch("tv-rating"); }, true},
      {"any other key", [](Remote& remote) { remote.Press("Return Up Left 5"); }, true},
      {"paused",
       [](Remote& remote) {
         remote.Pause();
         remote.Resume();
       },
       false},
  };
  for (const std::string menuID : {kExport, kImport}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(menuID + " " + c.what);
      bool copied = false;
      Start(menuID, {{"A", {"list.zip"}}}, [&](Remote& remote) {
        ASSERT_TRUE(Reach(remote, 100));
        c.leave(remote);
        if (remote.HasExited() || remote.Stack() != Texts{menuID}) return;
        Finish(remote);
        copied = Said(remote).starts_with(kCopied);
      });
      EXPECT_EQ(copied, c.goesOn);
      EXPECT_EQ(On("A").size(), copied && menuID == kExport ? 2U : 1U);
    }
  }
}

TEST_F(TransferWindows, ACopyThatCannotEndSaysSoAndWaits) {
  m_tv.TurnVoiceOn();
  Start(kExport, {{"A", {}}}, [&](Remote& remote) {
    fs::create_directory(Stick("A") / kArchive);
    std::ofstream(Stick("A") / kArchive / "in the way");
    ASSERT_TRUE(Finish(remote));
    remote.Wait(5);
    EXPECT_EQ(Said(remote), kFailed);
    EXPECT_TRUE(remote.Heard(kFailed)) << testing::PrintToString(remote.Sayings());
    EXPECT_FALSE(remote.Shows("100%"));
    remote.ExpectExit("Back");
  });
  EXPECT_EQ(On("A"), Texts{kArchive});
}

}  // namespace
