// One transfer of the channel list, without its window: the checks, the copy, the stick that goes.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "../e2e/Process.h"
#include "../tvs/TvsTest.h"
#include "Clock.h"
#include "Deployment.h"
#include "DeviceManager.h"
#include "TransferChannelListUtils.h"
#include "Usb.h"
#include "tvs/ChannelList.h"

namespace fs = std::filesystem;
using test::Ask;
using test::Change;

namespace {

constexpr uint64_t kPage = 4096;
constexpr const char* kName = "Channel_list_EU_2024.zip";

class Transfer : public test::TvsTest {
 protected:
  Transfer() : TvsTest("hdmi") { test::KeepMainLoop(); }
  ~Transfer() override { test::OnSleep(nullptr); }

  static fs::path Stick(const std::string& name) { return desktop::UsbDirectory() / name; }
  static fs::path Local() { return desktop::OwnerDirectory() / "share/channelmapinfo"; }
  /// What a window would have chosen.
  static void Scan() {
    CDeviceManager::ReleaseInstance();
    CDeviceManager::GetInstance()->Initialize(true);
  }
  void Watch(CTransferChannelListUtils& utils) {
    utils.RegisterUSBStatusCallback(
        [](copy_result result, void* data) { static_cast<std::vector<int>*>(data)->push_back(result); }, &m_results);
  }
  static bool Finish(const CTransferChannelListUtils& utils) {
    return test::TurnUntil([&] { return utils.GetCopyThread()->IsFinished(); });
  }
  void ExpectNothingLeft() const { EXPECT_TRUE(fs::is_empty(Local())); }
  /// An export as its window does it; what has come of it.
  CopyEnd Export() {
    CTransferChannelListUtils utils;
    Watch(utils);
    if (utils.Initialize(TRANSFER_EXPORT) == 0) {
      EXPECT_TRUE(utils.StartTransfer());
      EXPECT_TRUE(Finish(utils));
    }
    utils.DeInitialize();
    ExpectNothingLeft();
    return utils.GetCopyThread() ? utils.GetCopyThread()->GetEnd() : CopyEnd::kRunning;
  }

  std::vector<int> m_results;
};

TEST_F(Transfer, GoesToTheStickAndComesBack) {
  m_tv.PutOnStick("USB DISK", {});
  Scan();
  CTransferChannelListUtils utils;
  Watch(utils);
  ASSERT_EQ(utils.Initialize(TRANSFER_EXPORT), 0);
  struct stat info;
  ASSERT_EQ(stat(Local().c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  ASSERT_TRUE(utils.StartTransfer());
  EXPECT_FALSE(utils.StartTransfer());
  ASSERT_TRUE(Finish(utils));
  EXPECT_EQ(utils.GetCopyThread()->GetProgress(), 100);
  EXPECT_TRUE(fs::exists(Local() / kName));
  utils.DeInitialize();
  ExpectNothingLeft();
  EXPECT_EQ(desktop::CheckChannelList(Stick("USB DISK") / kName).outcome.what, "");

  Change("UPDATE service SET name = 'changed'");
  Scan();
  CTransferChannelListUtils back;
  Watch(back);
  ASSERT_EQ(back.Initialize(TRANSFER_IMPORT), 0);
  EXPECT_EQ(Ask("SELECT count(*) FROM service WHERE name = 'changed'"), "0") << "the check takes it over";
  ASSERT_TRUE(back.StartTransfer());
  ASSERT_TRUE(Finish(back));
  EXPECT_TRUE(fs::exists(Local() / "Import_Channel_list_EU_2024.zip"));
  back.DeInitialize();
  ExpectNothingLeft();
  EXPECT_TRUE(m_results.empty());
  EXPECT_EQ(m_tv.Calls("usb_unset_connected_cb"), 2U);
}

TEST_F(Transfer, TheCheckSaysWhatTheServiceSays) {
  const struct {
    transfer_type type;
    const char *operation, *result;
    int reported;
  } cases[] = {{TRANSFER_IMPORT, "Util::SetServiceDb", "-1", 3},
               {TRANSFER_IMPORT, "usb_device_get_device_list", "-1", 3},
               {TRANSFER_IMPORT, nullptr, "", 1},
               {TRANSFER_EXPORT, "system_info_get_value_string", "", 6},
               {TRANSFER_EXPORT, "usb_device_get_device_list", "", 6}};
  m_tv.PutOnStick("USB", {"a.zip"});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.operation ? c.operation : "no archive");
    m_results.clear();
    if (c.operation) m_tv.Fail(c.operation, c.result);
    CDeviceManager::ReleaseInstance();
    CTransferChannelListUtils utils;
    Watch(utils);
    EXPECT_EQ(utils.Initialize(c.type), -1);
    EXPECT_EQ(m_results, std::vector<int>{c.reported});
    utils.DeInitialize();
    m_tv.Heal();
  }
  EXPECT_TRUE(fs::exists(Stick("USB") / "a.zip"));
  const fs::path deep = Stick(std::string(250, 'u'));
  fs::rename(Stick("USB"), deep);
  fs::rename(deep / "a.zip", deep / (std::string(246, 'a') + ".zip"));
  Scan();
  CTransferChannelListUtils utils;
  EXPECT_EQ(utils.Initialize(TRANSFER_IMPORT), -1);
  EXPECT_TRUE(test::Logged("[Error]ERROR in creating source path!"));
}

// --- a stick that is full ------------------------------------------------------------------------

/// Runs this very test in a name space where it may mount what it likes; true there.
bool InOwnMounts(const char* name, const std::string& directory) {
  if (std::getenv("QUIRELLE_OWN_MOUNTS")) return true;
  test::Texts words = {"unshare", "--mount"};
  if (geteuid() != 0) words.insert(words.end(), {"--user", "--map-root-user"});
  words.insert(words.end(), {fs::read_symlink("/proc/self/exe"), "--gtest_filter=" + std::string(name)});
  test::Process process(words, {"QUIRELLE_OWN_MOUNTS=1"}, directory + ".mounts");
  EXPECT_EQ(process.Wait(60), 0) << test::ReadWhole(directory + ".mounts");
  fs::remove(directory + ".mounts");
  return false;
}

struct SmallStick : Transfer {
  static void Mount(const std::string& name, uint64_t pages) {
    const std::string words =
        "mount -t tmpfs -o size=" + std::to_string(pages * kPage) + " none '" + Stick(name).string() + "'";
    ASSERT_EQ(std::system(words.c_str()), 0);
  }
};

TEST_F(SmallStick, KeepsTheOlderExportWhereTheNewOneDoesNotFit) {
  m_tv.PutOnStick("A", {});
  if (!InOwnMounts("SmallStick.*", Stick("A"))) return;
  fs::create_directories(Local());
  EXPECT_EQ(desktop::ExportChannelList(Local() / "probe.zip").what, "");
  const uint64_t pages = fs::file_size(Local() / "probe.zip") / kPage + 1;
  fs::remove(Local() / "probe.zip");
  const fs::path part = Stick("A") / (std::string(kName) + CUsbCopyThread::kPart);
  const struct {
    const char* name;
    uint64_t pages;
    bool old, killed;
    CopyEnd end;
  } cases[] = {{"full before", 1, true, false, CopyEnd::kRunning},
               {"a page short", pages, true, false, CopyEnd::kRunning},
               {"full after", pages, false, false, CopyEnd::kWhole},
               {"full after, beside the older one", pages + 1, true, false, CopyEnd::kWhole},
               {"what a killed export left takes no room", pages, false, true, CopyEnd::kWhole}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Mount("A", c.pages);
    if (c.old) std::ofstream(Stick("A") / kName) << "old";
    if (c.killed) std::ofstream(part) << std::string(kPage, 'x');
    m_results.clear();
    Scan();
    EXPECT_EQ(Export(), c.end);
    const bool whole = c.end == CopyEnd::kWhole;
    EXPECT_EQ(m_results, whole ? std::vector<int>() : std::vector<int>{6});
    EXPECT_EQ(fs::file_size(Stick("A") / kName) > 3, whole);
    EXPECT_EQ(std::distance(fs::directory_iterator(Stick("A")), {}), 1);
    EXPECT_EQ(std::system(("umount '" + Stick("A").string() + "'").c_str()), 0);
  }

  Mount("A", pages);
  Scan();
  CTransferChannelListUtils utils;
  EXPECT_EQ(utils.Initialize(TRANSFER_EXPORT), 0);
  std::ofstream(Stick("A") / "pictures") << std::string(kPage, 'x');  // there was room, and then there is none
  ASSERT_TRUE(utils.StartTransfer());
  ASSERT_TRUE(Finish(utils));
  EXPECT_EQ(utils.GetCopyThread()->GetEnd(), CopyEnd::kNoSpace);
  EXPECT_LT(utils.GetCopyThread()->GetProgress(), 100);
  utils.DeInitialize();
  EXPECT_FALSE(fs::exists(Stick("A") / kName) || fs::exists(part));
}

}  // namespace
