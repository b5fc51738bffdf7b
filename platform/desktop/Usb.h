// Sticks of the desktop TV: the folders beside its file. A folder whose name begins with a dot is none.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "usb_device.h"

namespace desktop {

/// Where the sticks are.
std::filesystem::path UsbDirectory();
/// Sorted by name.
std::vector<std::filesystem::path> UsbSticks();
/// A handle that `free_usb_device_h` takes.
usb_device_h MakeUsbDevice(const std::string& product, const std::string& mountPath);

/// The stick `name` comes, empty or with what was on it when it went; goes, and keeps what is on it. Throws
/// std::runtime_error when it cannot.
void PlugStick(const std::string& name);
void UnplugStick(const std::string& name);

}  // namespace desktop
