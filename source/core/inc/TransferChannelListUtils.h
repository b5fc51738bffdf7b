// One transfer of the channel list, from the TV to a USB stick or back.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "DeviceManager.h"
#include "filecopy.h"
#include "usb_device.h"

// A type of its own, because a caller may hand over any number and is refused by it.
enum transfer_type : int { TRANSFER_EXPORT = 0, TRANSFER_IMPORT = 1 };

/// What a transfer has come to. 1, 2 and 4 are the service's own words for an archive that it refuses.
enum copy_result {
  COPY_RESULT_IMPORTED = 0,
  COPY_RESULT_DAMAGED = 1,
  COPY_RESULT_OTHER_COUNTRY = 2,
  COPY_RESULT_ERROR = 3,
  COPY_RESULT_UNKNOWN = 4,
  COPY_RESULT_EXPORTED = 5,
  COPY_RESULT_NO_SPACE = 6,
  COPY_RESULT_DEVICE_REMOVED = 7
};

/// Main loop only. RegisterUSBStatusCallback, Initialize, StartTransfer, DeInitialize, in this order.
class CTransferChannelListUtils {
 public:
  using StatusCallback = void (*)(copy_result result, void* data);

  CTransferChannelListUtils() = default;
  ~CTransferChannelListUtils();
  CTransferChannelListUtils(const CTransferChannelListUtils&) = delete;
  CTransferChannelListUtils& operator=(const CTransferChannelListUtils&) = delete;

  /// Gets what a check has to say against the transfer, and word of the stick when it goes.
  void RegisterUSBStatusCallback(StatusCallback callback, void* data);
  /// Checks whether the transfer can work: writes the list to be exported, or has the service take the selected archive
  /// over. 0, or -1 when the callback has been told why not.
  int Initialize(transfer_type type);
  /// Begins to copy between the TV and the stick; once.
  bool StartTransfer();
  /// Null before StartTransfer; belongs to this object.
  CUsbCopyThread* GetCopyThread() const { return m_copyThread.get(); }
  /// Gives the layout's part and what it is to say. Untouched where the transfer has no device or no name.
  void SetTextBlockText(std::string& part, std::string& text) const;
  /// Cancels a copy that runs, and removes the TV's own copy of the archive.
  void DeInitialize();

 private:
  static constexpr size_t kPathSize = 512;

  void m_InitUsbDeviceInfo();
  void m_RegisterUsbEvent();
  void m_UnregisterUsbEvent();
  static void m_USBPlugedCallBack(usb_device_h device, const char* action, void* data);
  void m_DeviceChanged(usb_device_h device, const std::string& action);
  bool m_UsbInputDataVaild();
  bool m_CheckUSBSpace();
  bool m_CheckArchiveFits();
  int m_VerifyChannelMapFile();
  bool m_StartTransferThread();
  bool m_PrepareExport(const std::string& name);
  bool m_PrepareImport(const std::string& name);
  static void m_RemoveTempFile(const char* pFilepath);
  void m_Report(copy_result result) const;
  /// Null when the index is none of the inventory's.
  const DEVICE_INFO* m_SelectedDevice() const;
  const std::string* m_SelectedFile() const;

  std::unique_ptr<CUsbCopyThread> m_copyThread;
  char m_SrcPath[kPathSize] = {};
  char m_DesPath[kPathSize] = {};
  transfer_type m_type = TRANSFER_EXPORT;
  std::vector<DEVICE_INFO> m_devices;
  int t_nSelectUsbIndex = 0;
  int t_nSelectFileIndex = 0;
  void* m_statusData = nullptr;
  StatusCallback m_statusCallback = nullptr;
  bool m_watching = false;
};
