// The sticks that are plugged in, and the archives on them.
#include "DeviceManager.h"
#include "Harness.h"
#include "Usb.h"
#include "usb_device.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

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
    tv.PutOnStick("A", {"list.zip"});
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
    desktop::PlugStick("A");
    EXPECT_EQ(since(), Texts{"+A"}) << "the first, with which the folder comes";
    fs::create_directory(sticks / "B");
    desktop::UnplugStick("A");
    desktop::PlugStick("A");
    EXPECT_EQ(since(), (Texts{"+B", "-A", "+A"}));
    fs::rename(sticks, tv.Path() + ".away");
    EXPECT_EQ(since(), (Texts{"-A", "-B"}));
    fs::rename(tv.Path() + ".away", sticks);
    EXPECT_EQ(since(), (Texts{"+A", "+B"}));
    usb_unset_connected_cb();
    desktop::PlugStick("C");
    EXPECT_EQ(since(), Texts{});
  });
}

}  // namespace
