#include "ViewTransferChannelListUSBList.h"

#include <cstdio>
#include <cstring>
#include <string_view>

#include "Log.h"
#include "TransferFlow.h"

namespace {

constexpr std::string_view kComes = "added", kGoes = "blocked";

std::string NumberedName(const char* name, int number) {
  char text[sizeof DEVICE_INFO::productName];
  const int length = snprintf(text, sizeof text, "%s %d", name, number);
  if (length >= static_cast<int>(sizeof text)) LOG_ERROR("ERROR, strbuf was truncated!");
  return text;
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

void CViewTransferChannelListUSBList::t_Create() {
  usb_device_init();
  usb_set_connected_cb(m_USBPlugedCallBack, this);
  CViewTransferChannelListBase::t_Create();
}

void CViewTransferChannelListUSBList::t_Destroy() {
  usb_unset_connected_cb();
  usb_device_fini();
  CViewTransferChannelListBase::t_Destroy();
}

const char* CViewTransferChannelListUSBList::t_HelpID() const {
  return t_MenuID == "import-from-usb" ? "SID_IMPORT_FROM_USB_HELP" : "SID_EXPORT_TO_USB_HELP";
}

// --- the sticks ----------------------------------------------------------------------------------

std::vector<std::string> CViewTransferChannelListUSBList::t_Names() {
  const CDeviceManager* manager = CDeviceManager::GetInstance();
  m_devices = manager->GetDevices();
  m_FillDeviceDisplayName(manager->m_nDeviceCount);
  return m_PrepareUsbDeviceInfo();
}

void CViewTransferChannelListUSBList::m_FillDeviceDisplayName(int count) {
  const size_t end = std::min(m_devices.size(), static_cast<size_t>(count));
  m_displayNames.assign(m_devices.size(), {});
  for (size_t first = 0; first < end; ++first) {
    if (!m_displayNames[first].empty()) continue;
    const char* name = m_devices[first].productName;
    m_displayNames[first] = name;
    int number = 1;
    for (size_t later = first + 1; later < end; ++later) {
      if (strcmp(m_devices[later].productName, name) != 0) continue;
      if (number == 1) m_displayNames[first] = NumberedName(name, number);
      m_displayNames[later] = NumberedName(name, ++number);
      LOG_DEBUG("Index %d Modified cDevName %s", static_cast<int>(later), m_displayNames[later].c_str());
    }
  }
}

std::vector<std::string> CViewTransferChannelListUSBList::m_PrepareUsbDeviceInfo() const {
  const std::vector<int>& withMap = CDeviceManager::GetInstance()->GetDevicesWithMap();
  const size_t rows = IsImport(t_MenuID) ? withMap.size() : m_devices.size();
  LOG_DEBUG("nUsbNum=%d", static_cast<int>(rows));
  std::vector<std::string> names;
  for (size_t row = 0; row < rows; ++row) {
    names.push_back(m_displayNames[IsImport(t_MenuID) ? static_cast<size_t>(withMap[row]) : row]);
    LOG_DEBUG("DeviceName[%s]", names.back().c_str());
  }
  return names;
}

int CViewTransferChannelListUSBList::m_DeviceOf(size_t row) const {
  if (!IsImport(t_MenuID)) return static_cast<int>(row);
  const std::vector<int>& withMap = CDeviceManager::GetInstance()->GetDevicesWithMap();
  if (row >= withMap.size()) {
    LOG_DEBUG("over range,size=%zu, data->currentusbitem=%d", withMap.size(), static_cast<int>(row));
    return -1;
  }
  if (static_cast<size_t>(withMap[row]) < m_devices.size()) return withMap[row];
  LOG_DEBUG("over range,size=%zu, cur_usb_order=%d", m_devices.size(), withMap[row]);
  return -1;
}

void CViewTransferChannelListUSBList::t_Choose(size_t row) {
  const int device = m_DeviceOf(row);
  if (device < 0) return;
  CDeviceManager::GetInstance()->SelectDevice(device);
  if (!IsImport(t_MenuID)) return t_GoOn(kCopy);
  const int files = m_devices[static_cast<size_t>(device)].nChmapFileCount;
  LOG_DEBUG("nUsbIndex=%d, nChmapFileCount=%d", device, files);
  t_GoOn(files < 2 ? kCopy : kFileList);
}

// --- a stick comes or goes -----------------------------------------------------------------------

void CViewTransferChannelListUSBList::m_USBPlugedCallBack(usb_device_h device, const char* action, void* data) {
  const bool changed = action && (action == kComes || action == kGoes);
  if (data && changed && usb_device_get_class(device) == USB_CLASS_MASS_STORAGE) {
    LOG_DEBUG("USB disconnect or connect");
    usb_unset_connected_cb();
    static_cast<CViewTransferChannelListUSBList*>(data)->m_Close();
  }
  free_usb_device_h(device);
}

/// It is the uppermost view that closes.
void CViewTransferChannelListUSBList::m_Close() {
  m_outdated = true;
  if (!m_covered) CloseView();
}

void CViewTransferChannelListUSBList::t_Pause() {
  m_covered = true;
  CViewTransferChannelListBase::t_Pause();
}

void CViewTransferChannelListUSBList::t_Resume() {
  CViewTransferChannelListBase::t_Resume();
  m_covered = false;
  if (m_outdated) CloseView();
}
