// The channel list to a stick and back by the remote: every flow, every end, and sticks that go meanwhile.
#include <Ecore.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <condition_variable>
#include <fstream>
#include <mutex>
#include <thread>

#include "Clock.h"
#include "Deployment.h"
#include "DeviceManager.h"
#include "Harness.h"
#include "Usb.h"
#include "Utils.h"

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
constexpr const char* kArchive = "Channel_list_EU_2024.zip";

constexpr const char *kImport = "import-from-usb", *kExport = "export-to-usb";
constexpr const char *kFactoryImport = "factory-import-from-usb", *kFactoryExport = "factory-export-to-usb";

bool OfFactory(const std::string& menuID) { return menuID.starts_with("factory"); }
bool Imports(const std::string& menuID) { return menuID.find("import") != std::string::npos; }

/// Lets the thread that copies go so many chunks, of which there are 300.
class Pace {
 public:
  Pace() {
    test::OnSleep([this, loop = std::this_thread::get_id()] {
      std::unique_lock lock(m_mutex);
      if (std::this_thread::get_id() == loop) return;
      ++m_passed;
      m_changed.notify_all();
      m_changed.wait(lock, [this] { return m_passed <= m_allowed; });
    });
  }
  ~Pace() {
    Allow(1 << 30);
    test::OnSleep(nullptr);
  }
  void Allow(int chunks) {
    const std::lock_guard lock(m_mutex);
    m_allowed = chunks;
    m_changed.notify_all();
  }
  int Passed() {
    const std::lock_guard lock(m_mutex);
    return m_passed;
  }
  void Again() {
    const std::lock_guard lock(m_mutex);
    m_allowed = m_passed = 0;
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  int m_allowed = 0, m_passed = 0;
};

class TransferWindows : public testing::Test {
 protected:
  static fs::path Stick(const std::string& name) { return desktop::UsbDirectory() / name; }
  static fs::path Local() { return desktop::OwnerDirectory() / "share/channelmapinfo"; }
  void Plug(const std::string& stick, const Texts& archives) {
    m_tv.PutOnStick(stick, {});
    for (const std::string& name : archives) Utils::ExportChannelList(Stick(stick) / name);
  }
  static void Pause() {
    const timespec pause{0, 500'000};
    syscall(SYS_nanosleep, &pause, nullptr);
  }
  static void Turn() {
    Pause();
    ecore_main_loop_iterate();
  }
  /// Until the thread has come so far, whatever the clock of the windows says.
  static bool Until(const std::function<bool()>& holds) {
    for (int i = 0; i < 20'000 && !holds(); ++i) Turn();
    return holds();
  }
  /// The window has seen it too.
  bool Reach(Remote& remote, int chunks) {
    m_pace.Allow(chunks);
    const bool reached = Until([&] { return m_pace.Passed() > chunks; });
    remote.Wait(0.15);
    return reached;
  }
  bool Finish(Remote& remote) {
    m_pace.Allow(1 << 30);
    const bool ended = Until([] { return ecore_thread_active_get() == 0; });
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
  /// Through the confirmation, where there is one.
  static void Confirm(Remote& remote, const std::string& menuID) {
    if (menuID != kImport) return;
    ASSERT_EQ(Said(remote), kConfirm);
    remote.Press("Left Return");
  }
  bool IsNothingLeft() {
    m_pace.Allow(1 << 30);
    for (int i = 0; i < 2000 && ecore_thread_active_get() > 0; ++i) Pause();
    EXPECT_EQ(ecore_thread_active_get(), 0);
    return !fs::exists(Local()) || fs::is_empty(Local());
  }
  static Texts On(const std::string& stick) {
    Texts names;
    for (const auto& entry : fs::directory_iterator(Stick(stick))) names.push_back(entry.path().filename());
    return names;
  }
  static Texts Sayings(Remote& remote) {
    Texts heard;
    for (const std::string& text : remote.Spoken()) {
      if (text != " " && text != " , ") heard.push_back(text);
    }
    return heard;
  }

  Tv m_tv{"europe", 20};
  Pace m_pace;
};

// --- the flows -----------------------------------------------------------------------------------

struct Plugged {
  std::string name;
  Texts archives;
};

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

constexpr const char* kFrom = "Select the USB device to import the channel list from.";
constexpr const char* kTo = "Select the USB device to export the channel list to.";
constexpr const char* kWhich = "Select the channel list to copy.";

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
      fs::remove_all(desktop::UsbDirectory());
      for (const Plugged& stick : flow.sticks) Plug(stick.name, stick.archives);
      CDeviceManager::ReleaseInstance();
      m_pace.Again();
      test::Run({menuID}, [&](Remote& remote) {
        const Texts ok = {OfFactory(menuID) ? "OK (15)" : "OK"};
        if (!flow.file) {
          EXPECT_EQ(Said(remote), flow.between);
          EXPECT_EQ(remote.Buttons(), ok);
          return;
        }
        ASSERT_NO_FATAL_FAILURE(Confirm(remote, menuID));
        for (const Choice& choice : flow.choices) {
          EXPECT_EQ(Said(remote), choice.help);
          EXPECT_EQ(remote.Buttons(), Texts{"Cancel"});
          Texts rows = remote.RowTexts();
          std::sort(rows.begin(), rows.end());
          EXPECT_EQ(rows, choice.rows);
          ASSERT_NO_FATAL_FAILURE(Choose(remote, choice.chosen));
        }
        EXPECT_EQ(Said(remote), std::string(kCopying) + "\n" + flow.between + "\n" + flow.file);
        EXPECT_EQ(remote.Title(), OfFactory(menuID) ? (Imports(menuID) ? "Import from USB" : "Export to USB") : "");
        EXPECT_TRUE(remote.Buttons().empty());
        ASSERT_TRUE(Finish(remote));
        EXPECT_TRUE(Said(remote).starts_with(std::string(kCopied) + "\n" + flow.between)) << Said(remote);
        EXPECT_EQ(remote.Shows("Country code: DEU"), !Imports(menuID));
        EXPECT_EQ(remote.Shows("The TV will restart."), Imports(menuID));
        EXPECT_EQ(remote.Buttons().size(), 1U);
        EXPECT_TRUE(remote.Buttons()[0].starts_with(OfFactory(menuID) ? "OK (1" : "OK"));
        remote.Press("Return");
        EXPECT_TRUE(remote.HasExited());
      });
      EXPECT_TRUE(IsNothingLeft());
    }
  }
}

// --- the ends ------------------------------------------------------------------------------------

TEST_F(TransferWindows, EachResultHasItsScreen) {
  m_tv.TurnVoiceOn();
  struct Case {
    bool import;
    const char *operation, *result;
    const char* text;
  };
  const char* country = "The channel list was made for another country.";
  const Case cases[] = {
      {true, "Util::SetServiceDb", "1", kInvalid}, {true, "Util::SetServiceDb", "2", country},
      {true, "Util::SetServiceDb", "3", kInvalid}, {true, "Util::SetServiceDb", "4", kInvalid},
      {true, "Util::SetServiceDb", "7", kInvalid}, {true, "CreateUtil", "null", kInvalid},
      {false, "Util::GetServiceDb", "0", kNoRoom}, {false, "CreateUtil", "null", kNoRoom},
  };
  Plug("A", {"list.zip"});
  for (const Case& c : cases) {
    for (const bool factory : {false, true}) {
      const std::string menuID = c.import ? (factory ? kFactoryImport : kImport) : factory ? kFactoryExport : kExport;
      SCOPED_TRACE(menuID + " " + c.operation + " " + c.result);
      CDeviceManager::ReleaseInstance();
      m_tv.Fail(c.operation, c.result);
      test::Run({menuID}, [&](Remote& remote) {
        ASSERT_NO_FATAL_FAILURE(Confirm(remote, menuID));
        EXPECT_EQ(Said(remote), c.text);
        EXPECT_EQ(remote.Buttons(), Texts{factory ? "OK (15)" : "OK"});
        remote.Wait(0.5);
        const std::string title = factory ? (c.import ? "Import from USB" : "Export to USB") : "";
        EXPECT_TRUE(remote.Heard(" " + title + ", " + c.text + ", OK, Button")) << Sayings(remote).back();
        EXPECT_EQ(remote.HasExited(), false);
        remote.Press("Return");
        EXPECT_TRUE(remote.HasExited());
      });
      m_tv.Heal();
      EXPECT_TRUE(IsNothingLeft());
    }
  }
}

TEST_F(TransferWindows, AnImportEndsInARestart) {
  Plug("A", {"list.zip"});
  const Texts calls = {"fb_nv_set_disable", "ServiceNavigation::ResetService", "device_power_request_reboot"};
  struct Case {
    bool voice, presses;
    double seconds;
    std::string failing;
  };
  for (const std::string menuID : {kImport, kFactoryImport}) {
    for (const Case& c : {Case{false, false, 3, ""}, Case{true, false, 12, ""}, Case{true, true, 0, ""},
                          Case{false, false, 3, "fb_nv_set_disable"}, Case{false, true, 0, "CreateServiceNavigation"},
                          Case{false, true, 0, "device_power_request_reboot"}}) {
      SCOPED_TRACE(menuID + " after " + std::to_string(c.seconds) + c.failing);
      m_tv.Set("db/setting/accessibility/tts", c.voice ? "1" : "0");
      CDeviceManager::ReleaseInstance();
      m_pace.Again();
      test::Run({menuID}, [&](Remote& remote) {
        ASSERT_NO_FATAL_FAILURE(Confirm(remote, menuID));
        ASSERT_TRUE(Reach(remote, 299));
        m_tv.ClearJournal();
        ASSERT_TRUE(Finish(remote));
        const Texts taken = m_tv.ArgumentsOf("KeyRouter_Set_KeyList");
        EXPECT_TRUE(!taken.empty() && taken.back().find("XF86Exit") != std::string::npos);
        if (!c.failing.empty()) m_tv.Fail(c.failing);
        if (c.presses) {
          remote.Press("Return");
          remote.Press("Return");
        } else {
          remote.Wait(c.seconds - 0.5);
          EXPECT_EQ(m_tv.Calls(calls[2]), 0U);
          EXPECT_TRUE(remote.Buttons() == Texts{"OK"} || remote.Buttons() == Texts{"OK (15)"});
          remote.Wait(1.0);
        }
        EXPECT_EQ(remote.HasExited(), calls[2] != c.failing);
      });
      for (const std::string& call : calls) {
        const bool cannot = c.failing == "CreateServiceNavigation" && call == calls[1];
        EXPECT_EQ(m_tv.Calls(call), cannot ? 0U : 1U) << call;
      }
      EXPECT_EQ(m_tv.ArgumentsOf(calls[0]), Texts{"1"});
      EXPECT_EQ(m_tv.ArgumentsOf(calls[2]), Texts{"3"});
      m_tv.Heal();
      EXPECT_TRUE(IsNothingLeft());
    }
  }
}

TEST_F(TransferWindows, TheFactoryEndCountsAndCloses) {
  Plug("A", {});
  m_tv.Fail("Util::GetServiceDb");
  test::Run({kFactoryExport}, [&](Remote& remote) {
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

TEST_F(TransferWindows, ACopyCanBeFollowedByEar) {
  m_tv.TurnVoiceOn();
  Plug("A", {});
  test::Run({kExport}, [&](Remote& remote) {
    for (const int chunks : {50, 100, 170, 240}) {
      ASSERT_TRUE(Reach(remote, chunks));
      remote.Wait(3);
    }
    ASSERT_TRUE(Finish(remote));
    remote.Wait(0.5);
    const Texts heard = Sayings(remote);
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
      fs::remove_all(desktop::UsbDirectory());
      Plug("A", {"list.zip"});
      CDeviceManager::ReleaseInstance();
      m_pace.Again();
      test::Run({menuID}, [&](Remote& remote) {
        ASSERT_NO_FATAL_FAILURE(Confirm(remote, menuID));
        ASSERT_TRUE(Reach(remote, tenth * 30));
        desktop::PlugStick("another");
        remote.Settle();
        desktop::UnplugStick("another");
        remote.Settle();
        EXPECT_TRUE(IsCopying(remote));
        desktop::UnplugStick("A");
        desktop::PlugStick("A");
        desktop::UnplugStick("A");
        m_pace.Allow(1 << 30);
        remote.Settle();
        EXPECT_EQ(Said(remote), kNoStick);
        EXPECT_EQ(remote.Stack(), Texts{menuID});
        remote.Press("Return");
        EXPECT_TRUE(remote.HasExited());
      });
      EXPECT_TRUE(IsNothingLeft());
      EXPECT_EQ(On(".A"), Texts{"list.zip"});
    }
  }
}

TEST_F(TransferWindows, InTheOtherWindowsAStickMayComeAndGo) {
  struct Case {
    const char* menuID;
    const char* keys;
    /// What is seen after the pull; null for a window that has closed.
    const char* after;
    const char* then;
    const char* last;
  };
  for (const Case& c : {Case{kExport, "", nullptr, "", nullptr}, Case{kImport, "Left Return", nullptr, "", nullptr},
                        Case{kImport, "", kConfirm, "Left Return", kFrom},
                        Case{kImport, "Left Return Left Return", kWhich, "Left Return", kInvalid}}) {
    for (const bool comes : {false, true}) {
      SCOPED_TRACE(std::string(c.menuID) + " " + c.keys + (comes ? " another comes" : " it goes"));
      fs::remove_all(desktop::UsbDirectory());
      Plug("A", {"1.zip", "2.zip"});
      Plug("B", {"3.zip"});
      CDeviceManager::ReleaseInstance();
      m_pace.Again();
      test::Run({c.menuID}, [&](Remote& remote) {
        if (*c.keys) remote.Press(c.keys);
        comes ? desktop::PlugStick("C") : desktop::UnplugStick("A");
        remote.Settle();
        EXPECT_EQ(remote.HasExited(), c.after == nullptr);
        if (!c.after) return;
        EXPECT_EQ(Said(remote), c.after);
        remote.Press(c.then);
        const bool copies = comes && c.last == std::string(kInvalid);
        EXPECT_EQ(Said(remote).substr(0, 20), std::string(copies ? kCopying : c.last).substr(0, 20));
      });
      EXPECT_TRUE(IsNothingLeft());
    }
  }
}

// --- leaving -------------------------------------------------------------------------------------

TEST_F(TransferWindows, HoweverACopyIsLeftNothingStays) {
  struct Case {
    const char* what;
    std::function<void(Remote&)> leave;
    /// It goes on.
    bool stays;
  };
  const Case cases[] = {
      {"Back", [](Remote& remote) { remote.Press("Back"); }, false},
      {"time-out", [](Remote& remote) { remote.Wait(61); }, false},
      {"switched off", [](Remote& remote) { remote.End(); }, false},
      {"launched again", [](Remote& remote) { remote.Launch(kExport); }, true},
      {"another window launched", [](Remote& remote) { remote.Launch("tv-rating"); }, true},
      {"any other key", [](Remote& remote) { remote.Press("Return Up Left 5"); }, true},
      {"covered and uncovered",
       [](Remote& remote) {
         remote.Pause();
         remote.Resume();
       },
       true},
  };
  for (const std::string menuID : {kExport, kImport}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(menuID + " " + c.what);
      fs::remove_all(desktop::UsbDirectory());
      Plug("A", {"list.zip"});
      CDeviceManager::ReleaseInstance();
      m_pace.Again();
      bool copied = false;
      test::Run({menuID}, [&](Remote& remote) {
        ASSERT_NO_FATAL_FAILURE(Confirm(remote, menuID));
        ASSERT_TRUE(Reach(remote, 100));
        c.leave(remote);
        if (remote.HasExited() || remote.Stack() != Texts{menuID}) return;
        Finish(remote);
        copied = Said(remote).starts_with(kCopied);
      });
      EXPECT_TRUE(c.stays || !copied);
      EXPECT_TRUE(IsNothingLeft());
      EXPECT_EQ(On("A").size(), copied && menuID == kExport ? 2U : 1U);
    }
  }
}

TEST_F(TransferWindows, ACopyThatCannotEndSaysSoAndWaits) {
  Plug("A", {});
  fs::create_directory(Stick("A") / kArchive);
  std::ofstream(Stick("A") / kArchive / "in the way");
  m_tv.TurnVoiceOn();
  test::Run({kExport}, [&](Remote& remote) {
    ASSERT_TRUE(Finish(remote));
    remote.Wait(5);
    EXPECT_EQ(Said(remote), kFailed);
    EXPECT_TRUE(remote.Heard(kFailed)) << testing::PrintToString(Sayings(remote));
    EXPECT_FALSE(remote.Shows("100%"));
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
  EXPECT_TRUE(IsNothingLeft());
  EXPECT_EQ(On("A"), Texts{kArchive});
}

}  // namespace
