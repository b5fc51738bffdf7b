#include "ViewTransferChannelListFileList.h"

#include "DeviceManager.h"

std::vector<std::string> CViewTransferChannelListFileList::t_Names() {
  const DEVICE_INFO* device = CDeviceManager::GetInstance()->GetSelectedDevice();
  return device ? device->chmapFileNames : std::vector<std::string>();
}

void CViewTransferChannelListFileList::t_Choose(size_t row) {
  CDeviceManager::GetInstance()->SelectFile(static_cast<int>(row));
  t_GoOn(kCopy);
}
