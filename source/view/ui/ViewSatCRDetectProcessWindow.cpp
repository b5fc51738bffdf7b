#include "ViewSatCRDetectProcessWindow.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "Lines.h"
#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"

namespace {

constexpr double kTickSeconds = 1.0;
constexpr int kComplete = 100;
constexpr int kWidth = 918, kHeight = 135;

/// By process type, the first is 1.
constexpr std::string_view kMenuIDs[] = {"satcr-detect-slot-frequency-slot1", "satcr-detect-slot-frequency-slot2",
                                         "satcr-verify-slot-frequency-slot1", "satcr-verify-slot-frequency-slot2"};
constexpr int kLastDetection = 2;

}  // namespace

int CViewSatCRDetectProcessWindow::t_ProcessType() const {
  const auto* found = std::find(std::begin(kMenuIDs), std::end(kMenuIDs), t_MenuID);
  return found == std::end(kMenuIDs) ? 0 : static_cast<int>(found - kMenuIDs) + 1;
}

bool CViewSatCRDetectProcessWindow::t_IsDetection() const {
  return t_ProcessType() >= 1 && t_ProcessType() <= kLastDetection;
}

// --- the window ----------------------------------------------------------------------------------

std::string CViewSatCRDetectProcessWindow::t_GetBaseStyle() { return theme::kSmallBottom; }

std::vector<CViewWindowBase::Button> CViewSatCRDetectProcessWindow::t_Buttons() {
  return {{"SID_CANCEL", [this] { m_End(kSatcrFailure); }}};
}

void CViewSatCRDetectProcessWindow::t_SetProgressSettingInfo() {
  t_FlagProgressText = true;
  t_ProgressStyle = theme::kProgressWhite;
  t_ProgressPart = theme::kProgressPart;
  t_ProgressText = theme::kRunPercent;
}

void CViewSatCRDetectProcessWindow::t_SetContentSettingInfo() {
  t_ContentGroup = theme::kRun;
  t_ContentMinWidth = kWidth;
  t_ContentMinHeight = kHeight;
}

bool CViewSatCRDetectProcessWindow::t_CreateOtherPartIntoContentLayout(Evas_Object* layout) {
  if (!layout) {
    LOG_DEBUG("Null Pointer");
    return false;
  }
  std::string part, text;
  t_SetTextBlockText(part, text);
  SetLines(layout, part.c_str(), text, kWidth);
  return true;
}

void CViewSatCRDetectProcessWindow::t_SetTextBlockText(std::string& part, std::string& text) {
  part = theme::kRunText;
  if (t_ProcessType() == 0) return;
  text = T(t_IsDetection() ? "TV_SID_DETECTION_IN_PROGRESS_WAIT" : "TV_SID_VERIFICAITON_IN_PROFRESS_WAIT");
}

void CViewSatCRDetectProcessWindow::t_FirstEnter(std::string& text) {
  text = " " + t_TextOf(t_pMainBase, theme::kTitle) + ", " + t_TextOf(t_pContentLayout, theme::kRunText);
}

void CViewSatCRDetectProcessWindow::t_Create() {
  CViewProgressWindowBase::t_Create();
  t_SetSatCRWorkType();
}

void CViewSatCRDetectProcessWindow::t_Destroy() {
  m_timer.Stop();
  if (m_manager) m_manager->Stop();
  m_manager.reset();
  CViewProgressWindowBase::t_Destroy();
}

// --- the run -------------------------------------------------------------------------------------

void CViewSatCRDetectProcessWindow::t_SetSatCRWorkType() {
  m_manager = std::make_unique<CSatCRProcessManager>();
  m_manager->SetProcessType(t_ProcessType());
  m_manager->Start();
  m_Watch();
}

void CViewSatCRDetectProcessWindow::m_Watch() {
  m_timer.Start(kTickSeconds, [this] { return t_UpdateProcessBar(); });
}

/// The next step would take the place of whatever lies above.
void CViewSatCRDetectProcessWindow::t_Pause() {
  m_timer.Stop();
  CViewProgressWindowBase::t_Pause();
}

void CViewSatCRDetectProcessWindow::t_Resume() {
  CViewProgressWindowBase::t_Resume();
  if (m_manager && !m_ended) m_Watch();
}

bool CViewSatCRDetectProcessWindow::t_UpdateProcessBar() {
  if (!t_pProgressBar) {
    LOG_DEBUG("Null Pointer");
    return m_End(kSatcrFailure);
  }
  if (!m_manager) return m_End(kSatcrFailure);
  unsigned char progress = 0;
  m_manager->GetSatCRProcessStatus(progress);
  if (progress >= kComplete) return m_End(m_manager->IsSatCRCommandSuccess() ? kSatcrSuccess : kSatcrFailure);
  t_SetProgress(progress);
  return true;
}

/// A key may still come between the end and the window's going: only the first end counts.
bool CViewSatCRDetectProcessWindow::m_End(Step step) {
  m_timer.Stop();
  if (!std::exchange(m_ended, true)) t_GoTo(step);
  return false;
}
