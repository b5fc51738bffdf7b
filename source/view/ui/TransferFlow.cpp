#include "TransferFlow.h"

#include "DataProvider.h"
#include "DeviceManager.h"
#include "Translation.h"
#include "Utils.h"

namespace {

constexpr const char *kImport = "import-from-usb", *kExport = "export-to-usb";

}  // namespace

bool IsImport(const std::string& menuID) { return menuID == kImport || menuID == "factory-import-from-usb"; }

bool IsTransfer(const std::string& menuID) {
  return IsImport(menuID) || menuID == kExport || menuID == "factory-export-to-usb";
}

std::string TransferTitle(const std::string& menuID) { return DisplayName(IsImport(menuID) ? kImport : kExport); }

std::string ProductName() { return T(Utils::GetProductTypeOSD()); }

void ForgetDevices() {
  CDeviceManager::GetInstance()->Release();
  CDeviceManager::ReleaseInstance();
}
