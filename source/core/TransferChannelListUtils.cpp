#include "TransferChannelListUtils.h"

#include <Elementary.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "app_framework.h"
#include "system_info.h"
#include "tvs_api.h"

namespace {

constexpr const char* kLocalDirectory = "/opt/usr/home/owner/share/channelmapinfo";
constexpr mode_t kLocalMode = 0700;
constexpr const char* kGone = "blocked";

/// A name that is none of the program's own: what looks like markup in it is shown.
std::string Shown(const std::string& name) { return Utils::WrapMallocdString(elm_entry_utf8_to_markup(name.c_str())); }

/// What the archives of this set are called after; empty when the set does not say.
std::string ListName() {
  char* name = nullptr;
  if (system_info_get_value_string(SYSTEM_INFO_KEY_CHANNEL_LIST_NAME, &name) != 0) {
    LOG_ERROR("system_info_get_value_string fails");
    return {};
  }
  return Utils::WrapMallocdString(name);
}

std::string ExportName(const std::string& name) { return "Channel_list_" + name + ".zip"; }
std::string ImportName(const std::string& name) { return "Import_Channel_list_" + name + ".zip"; }

/// False for a path that does not fit.
template <size_t Size>
bool SetPath(char (&path)[Size], const std::string& directory, const std::string& name) {
  const int length = snprintf(path, Size, "%s/%s", directory.c_str(), name.c_str());
  return length >= 0 && static_cast<size_t>(length) < Size;
}

std::string LocalDirectory() { return app_get_deployed_path(kLocalDirectory); }

/// An older export that was not finished takes room that the new one gets.
uint64_t LeftOver(const DEVICE_INFO& device, const std::string& name) {
  struct stat info;
  const std::string path = std::string(device.mountPath) + "/" + name + CUsbCopyThread::kPart;
  return lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) ? static_cast<uint64_t>(info.st_blocks) * 512 : 0;
}

}  // namespace

CTransferChannelListUtils::~CTransferChannelListUtils() { m_UnregisterUsbEvent(); }

void CTransferChannelListUtils::RegisterUSBStatusCallback(StatusCallback callback, void* data) {
  m_statusCallback = callback;
  m_statusData = data;
}

void CTransferChannelListUtils::m_Report(copy_result result) const {
  if (m_statusCallback) m_statusCallback(result, m_statusData);
}

const DEVICE_INFO* CTransferChannelListUtils::m_SelectedDevice() const {
  const auto index = static_cast<size_t>(t_nSelectUsbIndex);
  if (index < m_devices.size()) return &m_devices[index];
  LOG_DEBUG("over range");
  return nullptr;
}

const std::string* CTransferChannelListUtils::m_SelectedFile() const {
  const DEVICE_INFO* device = m_SelectedDevice();
  if (!device) return nullptr;
  const auto index = static_cast<size_t>(t_nSelectFileIndex);
  if (index < device->chmapFileNames.size()) return &device->chmapFileNames[index];
  LOG_DEBUG("over range");
  return nullptr;
}

// --- the check -----------------------------------------------------------------------------------

int CTransferChannelListUtils::Initialize(transfer_type type) {
  m_type = type;
  m_InitUsbDeviceInfo();
  const std::string directory = LocalDirectory();
  if (access(directory.c_str(), F_OK) != 0) {
    LOG_DEBUG("Channel map dir does not exist.");
    if (mkdir(directory.c_str(), kLocalMode) != 0) LOG_ERROR("Create channel map dir fail!");
  }
  return m_UsbInputDataVaild() ? 0 : -1;
}

void CTransferChannelListUtils::m_InitUsbDeviceInfo() {
  CDeviceManager* manager = CDeviceManager::GetInstance();
  manager->Initialize(false);
  m_devices = manager->GetDevices();
  t_nSelectUsbIndex = manager->GetSelectedDeviceIndex();
  t_nSelectFileIndex = manager->GetSelectedFileIndex();
  LOG_DEBUG("t_nSelectUsbIndex=%d, t_nSelectFileIndex=%d", t_nSelectUsbIndex, t_nSelectFileIndex);
  m_RegisterUsbEvent();
}

bool CTransferChannelListUtils::m_UsbInputDataVaild() {
  if (m_type == TRANSFER_IMPORT) {
    const int status = m_VerifyChannelMapFile();
    if (status != 0) m_Report(static_cast<copy_result>(status));
    return status == 0;
  }
  if (m_type == TRANSFER_EXPORT) {
    const bool fits = m_CheckUSBSpace();
    if (!fits) m_Report(COPY_RESULT_NO_SPACE);
    return fits;
  }
  LOG_ERROR("Not defined");
  return false;
}

bool CTransferChannelListUtils::m_CheckUSBSpace() {
  const std::string name = ListName();
  if (name.empty() || !SetPath(m_SrcPath, LocalDirectory(), ExportName(name))) return false;
  CTVSApiWrapper api;
  IUtil* util = api.CreateUtil();
  if (!util) {
    LOG_ERROR("Interface creation failed!");
    return false;
  }
  if (util->GetServiceDb(m_SrcPath) == 0) {
    LOG_ERROR("GetServiceDb failed");
    return false;
  }
  return m_CheckArchiveFits();
}

bool CTransferChannelListUtils::m_CheckArchiveFits() {
  struct stat info;
  if (stat(m_SrcPath, &info) != 0) {
    LOG_ERROR("stat failed");
    return false;
  }
  if (info.st_size < 0) {
    LOG_DEBUG("negative size");
    return false;
  }
  const auto size = static_cast<uint64_t>(info.st_size);
  LOG_DEBUG("filesize= %llu B", static_cast<unsigned long long>(size));
  const DEVICE_INFO* device = m_SelectedDevice();
  if (!device) return false;
  const char* name = strrchr(m_SrcPath, '/') + 1;
  if (device->availableSize + LeftOver(*device, name) >= size) return true;
  LOG_DEBUG("fileSize>availablesize,copy failed");
  return false;
}

int CTransferChannelListUtils::m_VerifyChannelMapFile() {
  const std::string* file = m_SelectedFile();
  if (!file) return COPY_RESULT_ERROR;
  if (!SetPath(m_SrcPath, m_SelectedDevice()->mountPath, *file)) {
    LOG_ERROR("ERROR in creating source path!");
    return COPY_RESULT_ERROR;
  }
  CTVSApiWrapper api;
  IUtil* util = api.CreateUtil();
  if (!util) {
    LOG_ERROR("Interface creation failed!");
    return COPY_RESULT_ERROR;
  }
  const int status = util->SetServiceDb(m_SrcPath);
  LOG_DEBUG("Import result: m_SrcPath = %s status = %d", m_SrcPath, status);
  return status < 0 || status > COPY_RESULT_UNKNOWN ? COPY_RESULT_ERROR : status;
}

// --- the copy ------------------------------------------------------------------------------------

bool CTransferChannelListUtils::StartTransfer() { return m_StartTransferThread(); }

bool CTransferChannelListUtils::m_StartTransferThread() {
  if (m_copyThread) {
    LOG_ERROR("transfer already started");
    return false;
  }
  const std::string name = ListName();
  if (name.empty()) return false;
  if (m_type != TRANSFER_EXPORT && m_type != TRANSFER_IMPORT) {
    LOG_DEBUG("ERROR in _start_transfer_thread");
    return false;
  }
  if (!(m_type == TRANSFER_EXPORT ? m_PrepareExport(name) : m_PrepareImport(name))) return false;
  m_copyThread = std::make_unique<CUsbCopyThread>(m_SrcPath, m_DesPath);
  m_copyThread->Create();
  return true;
}

bool CTransferChannelListUtils::m_PrepareExport(const std::string& name) {
  const DEVICE_INFO* device = m_SelectedDevice();
  if (!device || !SetPath(m_SrcPath, LocalDirectory(), ExportName(name))) return false;
  // Once more: the list may have changed since it was weighed.
  Utils::ExportChannelList(m_SrcPath);
  if (!SetPath(m_DesPath, device->mountPath, ExportName(name))) {
    LOG_ERROR("ERROR in creating destination path");
    return false;
  }
  LOG_DEBUG("src = %s, des = %s", m_SrcPath, m_DesPath);
  return true;
}

bool CTransferChannelListUtils::m_PrepareImport(const std::string& name) {
  if (!SetPath(m_DesPath, LocalDirectory(), ImportName(name))) return false;
  LOG_DEBUG("t_SrcPath = %s, t_DesPath = %s", m_SrcPath, m_DesPath);
  return true;
}

void CTransferChannelListUtils::SetTextBlockText(std::string& part, std::string& text) const {
  const DEVICE_INFO* device = m_SelectedDevice();
  if (!device) return;
  const std::string product = T(Utils::GetProductTypeOSD()), stick = Shown(device->productName);
  const bool fromStick = m_type == TRANSFER_IMPORT;
  std::string name;
  if (fromStick) {
    const std::string* file = m_SelectedFile();
    if (!file) return;
    name = *file;
  } else if ((name = ListName()).empty()) {
    return;
  }
  part = theme::kCopyText;
  text = T("SID_COPYING_CHANNEL_LIST_MSG") + "<br>" + (fromStick ? stick : product) + " -> " +
         (fromStick ? product : stick) + "<br>" + Shown(name);
}

void CTransferChannelListUtils::DeInitialize() {
  m_UnregisterUsbEvent();
  if (m_copyThread && !m_copyThread->IsFinished()) m_copyThread->Destroy();
  m_RemoveTempFile(m_type == TRANSFER_IMPORT ? m_DesPath : m_SrcPath);
}

void CTransferChannelListUtils::m_RemoveTempFile(const char* pFilepath) {
  LOG_DEBUG("pFilepath=%s", pFilepath);
  const int nRet = unlink(pFilepath);
  LOG_DEBUG("nRet=%d", nRet);
}

// --- the stick comes and goes --------------------------------------------------------------------

void CTransferChannelListUtils::m_RegisterUsbEvent() {
  if (m_watching) return;
  m_watching = true;
  usb_device_init();
  usb_set_connected_cb(m_USBPlugedCallBack, this);
}

void CTransferChannelListUtils::m_UnregisterUsbEvent() {
  if (!m_watching) return;
  m_watching = false;
  usb_unset_connected_cb();
  usb_device_fini();
}

void CTransferChannelListUtils::m_USBPlugedCallBack(usb_device_h device, const char* action, void* data) {
  if (!data || !device || !action) {
    LOG_ERROR("Assertion failed");
  } else {
    static_cast<CTransferChannelListUtils*>(data)->m_DeviceChanged(device, action);
  }
  free_usb_device_h(device);
}

void CTransferChannelListUtils::m_DeviceChanged(usb_device_h device, const std::string& action) {
  if (usb_device_get_class(device) != USB_CLASS_MASS_STORAGE) {
    LOG_DEBUG("nType != USB_MASS_STORAGE");
    return;
  }
  const char* pMountPath = usb_device_get_mountpath(device);
  if (!pMountPath) {
    LOG_DEBUG("pMountPath == NULL");
    return;
  }
  const DEVICE_INFO* selected = m_SelectedDevice();
  if (!selected || action != kGone || strcmp(pMountPath, selected->mountPath) != 0) return;
  if (m_copyThread) m_copyThread->Destroy();
  m_Report(COPY_RESULT_DEVICE_REMOVED);
}
