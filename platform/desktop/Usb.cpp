#include "Usb.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "Gate.h"

namespace fs = std::filesystem;

struct usb_device_s {
  std::string product, mountPath;
};

struct usb_device_list_s {
  std::vector<std::unique_ptr<usb_device_s>> devices;
  size_t next = 0;
};

namespace desktop {

fs::path UsbDirectory() { return fs::absolute(Store::Get().Path() + ".sticks"); }

std::vector<fs::path> UsbSticks() {
  std::vector<fs::path> sticks;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(UsbDirectory(), error)) {
    const std::string name = entry.path().filename();
    if (entry.is_directory(error) && !name.starts_with(".")) sticks.push_back(entry.path());
  }
  std::sort(sticks.begin(), sticks.end());
  return sticks;
}

usb_device_h MakeUsbDevice(const std::string& name, const std::string& mountPath) {
  return new usb_device_s{name.substr(0, name.find('@')), mountPath};
}

namespace {

struct StickPaths {
  fs::path plugged, unplugged;
};

StickPaths PathsOf(const std::string& name) {
  if (name.empty() || name.starts_with(".") || name.find('/') != std::string::npos) {
    throw std::runtime_error("stick '" + name + "': wants the name of a folder");
  }
  return {UsbDirectory() / name, UsbDirectory() / ("." + name)};
}

[[noreturn]] void Refuse(const fs::path& path, const std::string& why) {
  throw std::runtime_error(path.string() + ": " + why);
}

}  // namespace

void PlugStick(const std::string& name) {
  const auto [plugged, unplugged] = PathsOf(name);
  if (fs::exists(plugged)) Refuse(plugged, "is there already");
  std::error_code error;
  if (fs::is_directory(unplugged)) {
    fs::rename(unplugged, plugged, error);
  } else {
    fs::create_directories(plugged, error);
  }
  if (error) Refuse(plugged, error.message());
}

void UnplugStick(const std::string& name) {
  const auto [plugged, unplugged] = PathsOf(name);
  if (!fs::is_directory(plugged)) Refuse(plugged, "no such stick");
  std::error_code error;
  fs::rename(plugged, unplugged, error);
  if (error) Refuse(plugged, error.message());
}

}  // namespace desktop

using namespace desktop;

int usb_device_init() {
  return Gate::Pass<int>(op::usb_device_init, Entry(), [](Entry&) { return 0; });
}

int usb_device_fini() {
  return Gate::Pass<int>(op::usb_device_fini, Entry(), [](Entry&) { return 0; });
}

int usb_device_get_device_list(int device_class, usb_device_list_h* list) {
  return Gate::Pass<int>(op::usb_device_get_device_list, Entry(device_class), [&](Entry& entry) {
    auto made = std::make_unique<usb_device_list_s>();
    if (device_class == USB_CLASS_MASS_STORAGE) {
      for (const fs::path& stick : UsbSticks()) {
        made->devices.emplace_back(MakeUsbDevice(stick.filename(), stick));
      }
    }
    entry.Out(made->devices.size());
    *list = made.release();
    return 0;
  });
}

int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device) {
  if (!list || list->next >= list->devices.size()) return -1;
  *device = list->devices[list->next++].get();
  return 0;
}

int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device) {
  if (list) list->next = 0;
  return usb_device_list_get_next(list, device);
}

int usb_device_free_device_list(usb_device_list_h list) {
  delete list;
  return 0;
}

const char* usb_device_get_product(usb_device_h device) { return device ? device->product.c_str() : nullptr; }

/// A fault makes the device one that is not mounted.
const char* usb_device_get_mountpath(usb_device_h device) {
  if (!device) return nullptr;
  const int result = Gate::Pass<int>(op::usb_device_get_mountpath, Entry(device->product), [](Entry&) { return 0; });
  return result == 0 ? device->mountPath.c_str() : "n/a";
}

int usb_device_get_class(usb_device_h device) { return device ? USB_CLASS_MASS_STORAGE : -1; }

int free_usb_device_h(usb_device_h device) {
  delete device;
  return 0;
}
