// The channel list on its way, in the factory.
#pragma once

#include "TransferFlow.h"
#include "ViewTransferChannelListCopyWindow.h"

class CViewFactoryTransferCLCopyWindow : public CViewTransferChannelListCopyWindow {
 public:
  explicit CViewFactoryTransferCLCopyWindow(const char* menuID) : CViewTransferChannelListCopyWindow(menuID) {}

 protected:
  std::string t_GetWindowTitleText() override { return TransferTitle(t_MenuID); }
  const char* t_ImportID() const override { return "factory-import-from-usb"; }
  const char* t_ExportID() const override { return "factory-export-to-usb"; }
};
