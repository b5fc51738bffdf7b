// The sticks that are plugged in, and the boxes of the flows with several steps: what they say, what they offer,
// and where they lead.
#include <chrono>

#include "DeviceManager.h"
#include "EventManager.h"
#include "Harness.h"
#include "MessageBox.h"
#include "Usb.h"
#include "ViewFactoryMessageBox.h"
#include "usb_device.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

/// As many sticks as there are numbers, each with so many archives.
void Plug(Tv& tv, const std::vector<int>& archives) {
  for (size_t i = 0; i < archives.size(); ++i) {
    Texts files;
    for (int file = 0; file < archives[i]; ++file) files.push_back("list" + std::to_string(file) + ".zip");
    tv.PutOnStick("S" + std::to_string(i), files);
  }
}

// --- sticks --------------------------------------------------------------------------------------

TEST(DeviceManager, CountsMountedSticksAndTheirArchives) {
  Tv tv;
  tv.PutOnStick("A", {"Channel.ZIP", "deep/list.zip"});
  tv.PutOnStick("B", {"one.zip", "two.zip"});
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  EXPECT_EQ(devices->m_nDeviceCount, 2);
  EXPECT_EQ(devices->m_nDeviceWithMapCount, 1);
  EXPECT_EQ(devices->GetSelectedDeviceIndex(), 1);
  ASSERT_NE(devices->GetSelectedDevice(), nullptr);
  EXPECT_EQ(devices->GetSelectedDevice()->nChmapFileCount, 2);
  EXPECT_GT(devices->GetSelectedDevice()->availableSize, 0U);

  tv.PutOnStick("C", {"one.zip"});
  devices->Initialize(false);
  EXPECT_EQ(devices->m_nDeviceCount, 2);
  devices->Initialize(true);
  EXPECT_EQ(devices->m_nDeviceCount, 3);
  devices->Release();
  EXPECT_TRUE(devices->GetDevices().empty());
  EXPECT_EQ(devices->GetSelectedDevice(), nullptr);
  devices->Initialize(false);
  EXPECT_EQ(devices->m_nDeviceCount, 3);
}

TEST(DeviceManager, LeavesOutWhatItCannotHave) {
  struct Case {
    const char *operation, *message;
  };
  for (const Case& c : {Case{"usb_device_get_mountpath", "[Error]The storage is not mounted"},
                        Case{"usb_device_get_device_list", "[Error]usb_device_get_device_list failed"}}) {
    Tv tv;
    Plug(tv, {1});
    tv.Fail(c.operation);
    CDeviceManager* devices = CDeviceManager::GetInstance();
    devices->Initialize(false);
    EXPECT_EQ(devices->m_nDeviceCount, 0) << c.operation;
    EXPECT_TRUE(test::Logged(c.message)) << c.message;
    tv.Heal();
    devices->Initialize(true);
    EXPECT_EQ(devices->m_nDeviceCount, 1) << c.operation;
  }
}

TEST(DeviceManager, HearsOfEachStickThatComesOrGoes) {
  namespace fs = std::filesystem;
  Tv tv;
  const fs::path sticks = tv.Path() + ".sticks";
  Texts heard;
  const auto hear = [](usb_device_h device, const char* action, void* data) {
    const bool gone = action == std::string("blocked");
    static_cast<Texts*>(data)->push_back((gone ? "-" : "+") + std::string(usb_device_get_product(device)));
    free_usb_device_h(device);
  };
  test::Run({"tv-rating"}, [&](Remote& remote) {
    const auto since = [&] {
      remote.Settle();
      return std::exchange(heard, {});
    };
    ASSERT_EQ(usb_set_connected_cb(hear, &heard), 0);
    fs::create_directory(tv.Path() + ".other");
    EXPECT_EQ(since(), Texts{});
    desktop::PlugStick("A");
    EXPECT_EQ(since(), Texts{"+A"}) << "the first, with which the folder comes";
    fs::create_directory(sticks / "B");
    desktop::UnplugStick("A");
    desktop::PlugStick("A");
    EXPECT_EQ(since(), (Texts{"+B", "-A", "+A"}));
    fs::rename(sticks, tv.Path() + ".away");
    EXPECT_EQ(since(), (Texts{"-A", "-B"}));
    fs::create_directory(tv.Path() + ".away/C");
    EXPECT_EQ(since(), Texts{}) << "it is no folder of sticks now";
    fs::rename(tv.Path() + ".away", sticks);
    EXPECT_EQ(since(), (Texts{"+A", "+B", "+C"}));
    fs::remove_all(sticks);
    EXPECT_EQ(since().size(), 3U);
    usb_unset_connected_cb();
    desktop::PlugStick("A");
    EXPECT_EQ(since(), Texts{});
  });
}

// --- what a box says and offers ------------------------------------------------------------------

enum Tuners { ONE, TWO, ANY };

constexpr const char* kNoStick = "No USB device is connected. Check the connection.";
constexpr const char* kNoArchive = "There is no channel list on the USB device.";
constexpr const char* kConfirm = "Import the channel list from the USB device? The list on the TV will be replaced.";

/// A step that some windows share.
struct Step {
  std::vector<unsigned int> windowIDs;
  unsigned int step;
  Tuners tuners;
  const char* text;
  Texts buttons;
};

// clang-format off
const Step kSteps[] = {
    {{2}, 1, ANY, kConfirm, {"OK", "Cancel"}},
    {{2, 3}, 3, ANY, kNoStick, {"OK"}},
    {{2, 3}, 10, ANY, kNoStick, {"OK"}},
    {{2}, 4, ANY, kNoArchive, {"OK"}},
    {{6, 7, 8, 9}, 17, ANY, "Disconnect or turn off all other devices on the same cable before you start.", {"Start"}},
    {{6}, 18, ANY, "Detecting the slot frequency. Please wait.", {"Cancel"}},
    {{9}, 18, ANY, "Verifying the slot frequency. Please wait.", {"Cancel"}},
    {{6, 7}, 19, ONE, "The slot frequency has been detected.", {"OK"}},
    {{6, 7}, 20, ONE, "The slot frequency could not be detected.", {"OK"}},
    {{8}, 19, ONE, "Verification is complete.", {"OK"}},
    {{9}, 20, ONE, "The slot frequency could not be verified.", {"OK"}},
    {{6}, 19, TWO, "Detection is complete.\nTuner 1 : Success", {"OK"}},
    {{7}, 19, TWO, "Detection is complete.\nTuner 2 : Success", {"OK"}},
    {{6}, 20, TWO, "Detection is complete.\nTuner 1 : Failed", {"OK"}},
    {{7}, 20, TWO, "Detection is complete.\nTuner 2 : Failed", {"OK"}},
    {{8}, 19, TWO, "Verification is complete.\nTuner 1 : Success", {"OK"}},
    {{9}, 19, TWO, "Verification is complete.\nTuner 2 : Success", {"OK"}},
    {{8}, 20, TWO, "Verification is complete.\nTuner 1 : Failed", {"OK"}},
    {{9}, 20, TWO, "Verification is complete.\nTuner 2 : Failed", {"OK"}},
    {{18, 19}, 0, ANY, "The start frequency is higher than the stop frequency. Check both and try again.", {"OK"}},
    {{15}, 5, ANY, "", {"OK"}},
};
// clang-format on

std::string Name(unsigned int windowID, unsigned int step) {
  return std::to_string(windowID) + " " + std::to_string(step);
}

/// Puts the box of a step on top.
template <class Box>
Box* Show(Remote& remote, const char* menuID, unsigned int windowID, unsigned int step) {
  auto box = std::make_unique<Box>(menuID);
  box->SetViewKey(windowID, step);
  return remote.Push(std::move(box));
}

/// The text of a box, without what its buttons say.
std::string TextOf(Remote& remote) {
  std::string text;
  for (const std::string& shown : remote.Texts()) text += (text.empty() ? "" : "\n") + shown;
  for (const std::string& button : remote.Buttons()) {
    const size_t at = text.rfind(button);
    if (at != std::string::npos) text.erase(at > 0 ? at - 1 : 0);
  }
  return text;
}

TEST(MessageBox, SaysWhatItsStepIs) {
  for (const Tuners tuners : {ONE, TWO}) {
    Tv tv("europe", 0);
    tv.Set("system_info/18", tuners == TWO ? "2" : "1");
    tv.Set("db/menu/Broadcast/setting/SatelliteSystem/SatelliteAntConnectionType", tuners == TWO ? "1" : "0");
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Pop();
      for (const Step& step : kSteps) {
        if (step.tuners != ANY && step.tuners != tuners) continue;
        for (const unsigned int windowID : step.windowIDs) {
          SCOPED_TRACE(Name(windowID, step.step) + (tuners == TWO ? " two tuners" : ""));
          Show<CMessageBox>(remote, "box", windowID, step.step);
          EXPECT_EQ(TextOf(remote), step.text);
          EXPECT_EQ(remote.Buttons(), step.buttons);
          // What changes nothing has the focus.
          EXPECT_EQ(remote.Focus(), step.buttons.back());
          remote.Pop();
        }
      }
    });
  }
}

TEST(MessageBox, OfTheFactorySaysTheSameAndCounts) {
  Texts expected;
  for (int left = 15; left >= 1; --left) expected.push_back("OK (" + std::to_string(left) + ")");
  const struct {
    unsigned int windowID, step;
    const char* text;
  } cases[] = {{4, 3, kNoStick}, {4, 10, kNoStick}, {4, 4, kNoArchive}, {5, 3, kNoStick}, {5, 10, kNoStick}};
  for (const auto& c : cases) {
    SCOPED_TRACE(Name(c.windowID, c.step));
    Tv tv("europe", 0);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      const bool import = c.windowID == 4;
      remote.Pop();
      Show<CViewFactoryMessageBox>(remote, import ? "factory-import-from-usb" : "factory-export-to-usb", c.windowID,
                                   c.step);
      EXPECT_EQ(remote.Title(), import ? "Import from USB" : "Export to USB");
      EXPECT_EQ(remote.Buttons(), Texts{"OK (15)"});
      EXPECT_TRUE(remote.Shows(c.text));
      const auto begin = std::chrono::steady_clock::now();
      Texts counted;
      while (!remote.HasExited() && counted.size() < 20) {
        const std::string now = remote.Focus();
        if (counted.empty() || counted.back() != now) counted.push_back(now);
        remote.Wait(0.3);
      }
      EXPECT_NEAR(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(), 15.0, 1.0);
      EXPECT_EQ(counted, expected);
    });
  }
}

// --- where a box leads ---------------------------------------------------------------------------

/// The steps that were asked for since the last look, as "menu ID step".
Texts TakeSteps() {
  Texts steps;
  for (const std::string& line : test::Log()) {
    char menuID[64] = "";
    int step = 0;
    if (std::sscanf(line.c_str(), "[Debug]menuID =%63s nCase[%d]", menuID, &step) == 2) {
      steps.push_back(std::string(menuID) + " " + std::to_string(step));
    }
  }
  test::ClearLog();
  return steps;
}

TEST(MessageBox, AConfirmedImportGoesOnWithWhatTheSticksHold) {
  const struct {
    std::vector<int> archives;
    int next;
  } cases[] = {
      {{}, 2}, {{0}, 2}, {{1}, 2}, {{2}, 11}, {{0, 0}, 2}, {{0, 1}, 2}, {{0, 2}, 11}, {{1, 1}, 12}, {{2, 2}, 12},
  };
  for (const auto& c : cases) {
    for (const char* menuID : {"import-from-usb", "factory-import-from-usb"}) {
      const bool factory = *menuID == 'f';
      SCOPED_TRACE(menuID + (" with " + testing::PrintToString(c.archives)));
      Tv tv("europe", 0);
      Plug(tv, c.archives);
      test::Run({"tv-rating"}, [&](Remote& remote) {
        if (factory) {
          test::ClearLog();
          Show<CViewFactoryMessageBox>(remote, menuID, 4, 1);
        } else {
          Show<CMessageBox>(remote, menuID, 2, 1);
          ASSERT_EQ(remote.Focus(), "Cancel");
          remote.Press("Left");
          ASSERT_EQ(remote.Focus(), "OK");
          test::ClearLog();
          remote.Press("Return");
        }
        const Texts steps = TakeSteps();
        ASSERT_FALSE(steps.empty());
        EXPECT_EQ(steps[0], std::string(menuID) + " " + std::to_string(c.next));
        // None of the archives is one: a copy ends there.
        EXPECT_TRUE(c.next == 2 || CDeviceManager::GetInstance()->GetDevices().size() == c.archives.size());
      });
    }
  }
}

TEST(MessageBox, AnythingElseLeadsBack) {
  struct Case {
    unsigned int windowID, step;
    const char* keys;
    Texts next;
  };
  for (const Case& c : {Case{2, 1, "Return", {}}, Case{2, 1, "Left Back", {}}, Case{2, 1, "Left BackSpace", {}},
                        Case{2, 3, "Return", {}}, Case{6, 19, "Return", {}}, Case{18, 0, "Return", {}},
                        Case{6, 17, "Back", {}}, Case{6, 17, "Return", {"satcr-detect-slot-frequency-slot1 18"}},
                        Case{9, 18, "Return", {"satcr-verify-slot-frequency-slot2 20"}}}) {
    SCOPED_TRACE(Name(c.windowID, c.step) + " " + c.keys);
    Tv tv("europe", 0);
    Plug(tv, {1});
    test::Run({"tv-rating"}, [&](Remote& remote) {
      Show<CMessageBox>(remote, "box", c.windowID, c.step);
      test::ClearLog();
      remote.Press(c.keys);
      EXPECT_EQ(TakeSteps(), c.next);
      EXPECT_TRUE(!c.next.empty() || remote.Stack() == Texts{"tv-rating"});
      // A further box takes stock anew.
      EXPECT_TRUE(remote.Stack().size() > 1 || CDeviceManager::GetInstance()->GetDevices().empty());
    });
  }
}

TEST(MessageBox, OpensOnTheStepThatTheSticksAllow) {
  struct Case {
    const char* menuID;
    std::vector<int> archives;
    const char* text;
    const char* focus;
  };
  for (const Case& c :
       {Case{"import-from-usb", {}, kNoStick, "OK"}, Case{"import-from-usb", {0}, kNoArchive, "OK"},
        Case{"import-from-usb", {1}, kConfirm, "Cancel"}, Case{"import-from-usb", {0, 3}, kConfirm, "Cancel"},
        Case{"export-to-usb", {}, kNoStick, "OK"}, Case{"factory-import-from-usb", {0}, kNoArchive, "OK (15)"},
        Case{"factory-export-to-usb", {}, kNoStick, "OK (15)"}}) {
    SCOPED_TRACE(c.menuID);
    Tv tv("europe", 0);
    Plug(tv, c.archives);
    test::Run({c.menuID}, [&](Remote& remote) {
      EXPECT_TRUE(remote.Shows(c.text));
      EXPECT_EQ(remote.Focus(), c.focus);
      remote.Press("Return");
      EXPECT_TRUE(remote.HasExited());
    });
  }
}

}  // namespace
