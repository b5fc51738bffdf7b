// Sticks of the desktop TV: the folders in a folder beside its file. One whose name begins with a dot is none.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "usb_device.h"

namespace desktop {

/// Where the sticks are: "lab.db.sticks" for the TV lab.db. It need not be there.
std::filesystem::path UsbDirectory();
/// Sorted by name.
std::vector<std::filesystem::path> UsbSticks();
/// A handle that `free_usb_device_h` takes. Two sticks of one product are told apart by what their names have behind
/// "@".
usb_device_h MakeUsbDevice(const std::string& name, const std::string& mountPath);

/// The stick `name` comes, empty or with what was on it when it went; goes, and keeps what is on it. Throws
/// std::runtime_error when it cannot.
void PlugStick(const std::string& name);
void UnplugStick(const std::string& name);

}  // namespace desktop
