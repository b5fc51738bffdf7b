#include "DeviceManager.h"

#include <dirent.h>
#include <sys/vfs.h>

#include <cstdio>
#include <cstring>
#include <string_view>

#include "Log.h"
#include "TextUtil.h"
#include "usb_device.h"

CDeviceManager* CDeviceManager::m_pInstance = nullptr;

namespace {

constexpr std::string_view kArchive = ".zip";
constexpr size_t kLongestName = 512;

bool IsArchive(std::string_view name) { return name.size() <= kLongestName && name.ends_with(kArchive); }

}  // namespace

CDeviceManager* CDeviceManager::GetInstance() {
  if (!m_pInstance) m_pInstance = new CDeviceManager;
  return m_pInstance;
}

void CDeviceManager::ReleaseInstance() {
  delete m_pInstance;
  m_pInstance = nullptr;
}

void CDeviceManager::ConnectStart() { usb_device_init(); }

void CDeviceManager::ConnectEnd() { usb_device_fini(); }

int CDeviceManager::GetConnectDeviceNum() {
  usb_device_list_h list = nullptr;
  if (usb_device_get_device_list(USB_CLASS_MASS_STORAGE, &list) != 0 || !list) return 0;
  int count = 0;
  usb_device_h device = nullptr;
  for (int found = usb_device_list_get_first(list, &device); found == 0;
       found = usb_device_list_get_next(list, &device)) {
    ++count;
  }
  usb_device_free_device_list(list);
  return count;
}

void CDeviceManager::Initialize(bool force) {
  LOG_DEBUG("enter _usb_get_device_list");
  if (m_initialized && !force) {
    LOG_DEBUG("Don't need to initialize again.");
    return;
  }
  m_Scan();
}

void CDeviceManager::m_Scan() {
  usb_device_init();
  usb_device_list_h list = nullptr;
  if (usb_device_get_device_list(USB_CLASS_MASS_STORAGE, &list) != 0) {
    LOG_ERROR("usb_device_get_device_list failed");
    return;
  }
  if (!list) {
    LOG_ERROR("get device list failed");
    return;
  }
  m_ClearUSBInfo();
  usb_device_h device = nullptr;
  for (int found = usb_device_list_get_first(list, &device); found == 0;
       found = usb_device_list_get_next(list, &device)) {
    m_AddDevice(device);
  }
  if (!m_devicesWithMap.empty()) {
    SelectDevice(m_devicesWithMap.front());
    LOG_DEBUG("Set Selected Device Index = %d", m_selectedDevice);
  }
  m_nDeviceCount = static_cast<int>(m_devices.size());
  usb_device_free_device_list(list);
  m_initialized = true;
  LOG_DEBUG("m_nDeviceCount = %d, m_nDeviceWithMapCount=%d", m_nDeviceCount, m_nDeviceWithMapCount);
}

void CDeviceManager::m_AddDevice(usb_device_h device) {
  if (!device) {
    LOG_ERROR("get device failed");
    return;
  }
  DEVICE_INFO info;
  const char* product = usb_device_get_product(device);
  CopyText(info.productName, sizeof info.productName, product ? product : "");
  const char* path = usb_device_get_mountpath(device);
  if (!path) {
    LOG_ERROR("get device mount path failed");
    return;
  }
  if (strcmp(path, "n/a") == 0) {
    LOG_ERROR("The storage is not mounted");
    return;
  }
  snprintf(info.mountPath, sizeof info.mountPath, "%s", path);
  info.availableSize = m_GetDeviceAvailableSize(info.mountPath);
  m_GetImportUsbInfo(&info);
  LOG_DEBUG("usb_mount_path = %s", info.mountPath);
  LOG_DEBUG("usb name = %s", info.productName);
  if (info.nChmapFileCount > 0) {
    m_devicesWithMap.push_back(static_cast<int>(m_devices.size()));
    ++m_nDeviceWithMapCount;
  }
  m_devices.push_back(std::move(info));
}

void CDeviceManager::m_GetImportUsbInfo(DEVICE_INFO* device) {
  if (!device) {
    LOG_DEBUG("Invalid argument");
    return;
  }
  DIR* directory = opendir(device->mountPath);
  if (!directory) {
    LOG_ERROR("Fail to opendir");
    return;
  }
  while (const dirent* ent = readdir(directory)) {
    if (ent->d_type != DT_REG) continue;
    LOG_DEBUG("ent->d_name = %s, len = %d", ent->d_name, static_cast<int>(strlen(ent->d_name)));
    if (IsArchive(ent->d_name)) device->chmapFileNames.emplace_back(ent->d_name);
  }
  device->nChmapFileCount = static_cast<int>(device->chmapFileNames.size());
  LOG_DEBUG("pUsbInfo->nChmapFileCount=%d", device->nChmapFileCount);
  closedir(directory);
}

uint64_t CDeviceManager::m_GetDeviceAvailableSize(const char* path) {
  struct statfs info {};
  uint64_t available = 0;
  if (statfs(path, &info) == 0) available = uint64_t{info.f_bavail} * static_cast<uint64_t>(info.f_bsize);
  LOG_DEBUG("availableDisk= %llu B", static_cast<unsigned long long>(available));
  return available;
}

const DEVICE_INFO* CDeviceManager::GetSelectedDevice() const {
  const auto index = static_cast<size_t>(m_selectedDevice);
  return index < m_devices.size() ? &m_devices[index] : nullptr;
}

void CDeviceManager::m_ClearUSBInfo() {
  m_devices.clear();
  m_devicesWithMap.clear();
  m_nDeviceCount = m_nDeviceWithMapCount = 0;
}

void CDeviceManager::Release() {
  if (!m_initialized) return;
  m_ClearUSBInfo();
  usb_device_fini();
  m_initialized = false;
}
