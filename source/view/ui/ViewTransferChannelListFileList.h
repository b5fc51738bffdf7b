// The list among several on a stick that is imported.
#pragma once

#include "ViewTransferChannelListBase.h"

class CViewTransferChannelListFileList : public CViewTransferChannelListBase {
 public:
  explicit CViewTransferChannelListFileList(const char* menuID) : CViewTransferChannelListBase(menuID) {}

 protected:
  std::vector<std::string> t_Names() override;
  const char* t_HelpID() const override { return "SID_SELECT_CHANNEL_LIST_COPY_MSG"; }
  void t_Choose(size_t row) override;
};
