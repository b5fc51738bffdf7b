// The USB storage devices that are plugged in, as the channel-list transfer sees them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct DEVICE_INFO {
  /// Free bytes; 0 when they cannot be read.
  uint64_t availableSize = 0;
  int nChmapFileCount = 0;
  char productName[512] = {};
  char mountPath[512] = {};
  /// Names of the archives in the top directory, in the order of the directory.
  std::vector<std::string> chmapFileNames;
};

/// Main loop only.
class CDeviceManager {
 public:
  static CDeviceManager* GetInstance();
  static void ReleaseInstance();
  virtual ~CDeviceManager() = default;

  /// Scans the devices, again only where `force` is set or the inventory was released.
  void Initialize(bool force);
  void Release();
  void ConnectStart();
  void ConnectEnd();
  int GetConnectDeviceNum();

  const std::vector<DEVICE_INFO>& GetDevices() const { return m_devices; }
  /// Indices of the devices that hold archives, ascending.
  const std::vector<int>& GetDevicesWithMap() const { return m_devicesWithMap; }
  int GetSelectedDeviceIndex() const { return m_selectedDevice; }
  int GetSelectedFileIndex() const { return m_selectedFile; }
  /// The device with its first file.
  void SelectDevice(int index) { m_selectedDevice = index, m_selectedFile = 0; }
  void SelectFile(int index) { m_selectedFile = index; }
  /// Null when there is no such device.
  const DEVICE_INFO* GetSelectedDevice() const;

  int m_nDeviceCount = 0;
  int m_nDeviceWithMapCount = 0;

 private:
  CDeviceManager() = default;

  void m_Scan();
  void m_AddDevice(struct usb_device_s* device);
  void m_ClearUSBInfo();
  static void m_GetImportUsbInfo(DEVICE_INFO* device);
  static uint64_t m_GetDeviceAvailableSize(const char* path);

  int m_selectedDevice = 0;
  int m_selectedFile = 0;
  std::vector<DEVICE_INFO> m_devices;
  std::vector<int> m_devicesWithMap;
  bool m_initialized = false;
  static CDeviceManager* m_pInstance;
};
