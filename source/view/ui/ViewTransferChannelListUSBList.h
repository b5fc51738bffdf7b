// The stick that the channel list goes to or comes from.
#pragma once

#include "DeviceManager.h"
#include "ViewTransferChannelListBase.h"
#include "usb_device.h"

class CViewTransferChannelListUSBList : public CViewTransferChannelListBase {
 public:
  explicit CViewTransferChannelListUSBList(const char* menuID) : CViewTransferChannelListBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Pause() override;
  void t_Resume() override;
  std::vector<std::string> t_Names() override;
  const char* t_HelpID() const override;
  void t_Choose(size_t row) override;

 private:
  void m_FillDeviceDisplayName(int count);
  std::vector<std::string> m_PrepareUsbDeviceInfo() const;
  /// The device of a row; -1 for none.
  int m_DeviceOf(size_t row) const;
  static void m_USBPlugedCallBack(usb_device_h device, const char* action, void* data);
  void m_Close();

  std::vector<DEVICE_INFO> m_devices;
  /// By device: two of one product are numbered.
  std::vector<std::string> m_displayNames;
  bool m_covered = false, m_outdated = false;
};
