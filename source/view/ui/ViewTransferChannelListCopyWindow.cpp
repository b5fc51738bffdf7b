#include "ViewTransferChannelListCopyWindow.h"

#include <utility>

#include "Lines.h"
#include "Log.h"
#include "ThemeNames.h"
#include "TransferFlow.h"
#include "Translation.h"
#include "VoiceGuide.h"

namespace {

constexpr double kTickSeconds = 0.1;
constexpr int kWidth = 918, kHeight = 232;

struct Ending {
  int result;
  Step step;
};

constexpr Ending kEndings[] = {
    {COPY_RESULT_IMPORTED, kImported},
    {COPY_RESULT_DAMAGED, kInvalidList},
    {COPY_RESULT_OTHER_COUNTRY, kInvalidCountry},
    {COPY_RESULT_ERROR, kInvalidList},
    {COPY_RESULT_UNKNOWN, kInvalidList},
    {COPY_RESULT_EXPORTED, kExported},
    {COPY_RESULT_NO_SPACE, kNoSpace},
    {COPY_RESULT_DEVICE_REMOVED, kCopyFailed},
};

Step StepAfter(int result) {
  for (const Ending& ending : kEndings) {
    if (ending.result == result) return ending.step;
  }
  return kInvalidList;
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewTransferChannelListCopyWindow::t_GetBaseStyle() { return theme::kSmallBottom; }

void CViewTransferChannelListCopyWindow::t_SetContentSettingInfo() {
  t_ContentGroup = theme::kCopyLayout;
  t_ContentMinWidth = kWidth;
  t_ContentMinHeight = kHeight;
}

void CViewTransferChannelListCopyWindow::t_SetProgressSettingInfo() {
  t_FlagProgressText = true;
  t_ProgressStyle = theme::kProgress;
  t_ProgressPart = theme::kCopyBar;
  t_ProgressText = theme::kCopyPercent;
}

void CViewTransferChannelListCopyWindow::t_SetProgressProperty() {
  CViewProgressWindowBase::t_SetProgressProperty();
  elm_object_focus_allow_set(t_pProgressBar->GetObject(), EINA_TRUE);
}

/// There is nothing else.
void CViewTransferChannelListCopyWindow::t_FocusFirst() {
  if (t_pProgressBar) elm_object_focus_set(t_pProgressBar->GetObject(), EINA_TRUE);
}

bool CViewTransferChannelListCopyWindow::t_CreateOtherPartIntoContentLayout(Evas_Object* layout) {
  std::string part, text;
  m_utils.SetTextBlockText(part, text);
  if (!part.empty()) SetLines(layout, part.c_str(), text, kWidth);
  return true;
}

void CViewTransferChannelListCopyWindow::t_FirstEnter(std::string& text) {
  text = " " + t_TextOf(t_pMainBase, theme::kTitle) + ", " + t_TextOf(t_pContentLayout, theme::kCopyText);
}

void CViewTransferChannelListCopyWindow::t_Create() {
  // What the check has to say is said already.
  if (!m_Check()) return;
  CViewProgressWindowBase::t_Create();
  if (!t_pProgressBar) return;
  if (m_utils.StartTransfer()) return m_Watch();
  m_ShowFailure(CopyEnd::kNoSource);
}

bool CViewTransferChannelListCopyWindow::m_Check() {
  m_utils.RegisterUSBStatusCallback(sm_USBStatusCallback, this);
  if (t_MenuID == t_ImportID()) return m_utils.Initialize(TRANSFER_IMPORT) == 0;
  return t_MenuID != t_ExportID() || m_utils.Initialize(TRANSFER_EXPORT) == 0;
}

void CViewTransferChannelListCopyWindow::t_Destroy() {
  m_timer.Stop();
  m_utils.DeInitialize();
  if (m_open) ForgetDevices();
  CViewProgressWindowBase::t_Destroy();
}

// --- the copy ------------------------------------------------------------------------------------

void CViewTransferChannelListCopyWindow::m_Watch() {
  m_timer.Start(kTickSeconds, [this] { return m_UpdateProgressBar(); });
}

bool CViewTransferChannelListCopyWindow::m_UpdateProgressBar() { return t_UpdateProcessBar(); }

bool CViewTransferChannelListCopyWindow::t_UpdateProcessBar() {
  if (!t_pProgressBar || !t_pProgressBar->GetObject()) {
    LOG_DEBUG("Invailed Pointer");
    return false;
  }
  const CUsbCopyThread* copy = m_utils.GetCopyThread();
  const bool finished = copy->IsFinished();
  if (finished && elm_progressbar_value_get(t_pProgressBar->GetObject()) >= 1.0) {
    m_Finish(t_MenuID == t_ImportID() ? COPY_RESULT_IMPORTED : COPY_RESULT_EXPORTED);
    return false;
  }
  if (m_failed) return true;
  const int progress = copy->GetProgress();
  LOG_DEBUG("Progress[%d]", progress);
  t_SetProgress(progress);
  if (finished && copy->GetEnd() != CopyEnd::kWhole) m_ShowFailure(copy->GetEnd());
  return true;
}

/// The window stays until its user leaves it.
void CViewTransferChannelListCopyWindow::m_ShowFailure(CopyEnd end) {
  if (std::exchange(m_failed, true)) return;
  const std::string failed = T("SID_COPYING_FAILED") + "<br>" + T("SID_PLEASE_CHECK_USB_RETRY");
  const bool full = end == CopyEnd::kNoSpace && t_MenuID == t_ExportID();
  const std::string text = full ? T("SID_UNABLE_EXPORT_CHANNEL_LIST_INSUFFICIENT_SPACE_MSG") : failed;
  SetLines(t_pContentLayout, theme::kCopyText, text, kWidth);
  Speak(t_TextOf(t_pContentLayout, theme::kCopyText));
}

// --- the end -------------------------------------------------------------------------------------

void CViewTransferChannelListCopyWindow::sm_USBStatusCallback(copy_result result, void* data) {
  LOG_DEBUG("Received result = %d", static_cast<int>(result));
  if (data) static_cast<CViewTransferChannelListCopyWindow*>(data)->m_Finish(result);
}

void CViewTransferChannelListCopyWindow::m_Finish(copy_result result) {
  m_timer.Stop();
  t_nCopyResult = result;
  m_DrawFinishMessageBox();
}

/// The next step would take the place of whatever lies above; and only the first end counts.
void CViewTransferChannelListCopyWindow::m_DrawFinishMessageBox() {
  if (m_covered || !std::exchange(m_open, false)) return;
  LOG_DEBUG("t_nCopyResult=%d", t_nCopyResult);
  t_GoTo(StepAfter(t_nCopyResult));
}

void CViewTransferChannelListCopyWindow::t_Pause() {
  m_covered = true;
  m_timer.Stop();
  CViewProgressWindowBase::t_Pause();
}

void CViewTransferChannelListCopyWindow::t_Resume() {
  CViewProgressWindowBase::t_Resume();
  m_covered = false;
  if (t_nCopyResult <= COPY_RESULT_DEVICE_REMOVED) return m_DrawFinishMessageBox();
  if (m_utils.GetCopyThread()) m_Watch();
}
