// The channel list on its way: how far the copy is, until it has ended or the stick has gone.
#pragma once

#include "Timer.h"
#include "TransferChannelListUtils.h"
#include "ViewProgressWindowBase.h"

class CViewTransferChannelListCopyWindow : public CViewProgressWindowBase {
 public:
  explicit CViewTransferChannelListCopyWindow(const char* menuID) : CViewProgressWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Pause() override;
  void t_Resume() override;
  void t_FirstEnter(std::string& text) override;
  void t_FocusFirst() override;
  std::string t_GetBaseStyle() override;
  void t_SetContentSettingInfo() override;
  void t_SetProgressSettingInfo() override;
  void t_SetProgressProperty() override;
  bool t_CreateOtherPartIntoContentLayout(Evas_Object* layout) override;

  /// One look at the copy; whether there is to be another.
  virtual bool t_UpdateProcessBar();
  /// The menu IDs that the window is for; with another it copies nothing.
  virtual const char* t_ImportID() const { return "import-from-usb"; }
  virtual const char* t_ExportID() const { return "export-to-usb"; }

 private:
  static void sm_USBStatusCallback(copy_result result, void* data);
  bool m_Check();
  void m_Watch();
  bool m_UpdateProgressBar();
  void m_Finish(copy_result result);
  void m_DrawFinishMessageBox();
  void m_ShowFailure(CopyEnd end);

  CTransferChannelListUtils m_utils;
  Timer m_timer;
  int t_nCopyResult = 8;
  /// Until the next step was asked for.
  bool m_open = true;
  bool m_covered = false, m_failed = false;
};
