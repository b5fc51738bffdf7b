#include "ViewSatCRDetectSuccessWindow.h"

#include "ChannelUtil.h"
#include "ThemeNames.h"
#include "Translation.h"

namespace {

/// With a line for the tuner.
constexpr int kHeightTwoTuners = 183;

}  // namespace

void CViewSatCRDetectSuccessWindow::t_Create() {
  if (const int type = t_ProcessType()) m_tunerLabel = T(type % 2 == 1 ? "TV_SID_TUNER_1" : "TV_SID_TUNER_2");
  m_twoTuners = ChannelUtil::FlagVisibleSatCRTwoTuner();
  CViewSatCRDetectProcessWindow::t_Create();
}

std::vector<CViewWindowBase::Button> CViewSatCRDetectSuccessWindow::t_Buttons() { return {{"SID_OK"}}; }

void CViewSatCRDetectSuccessWindow::t_SetContentSettingInfo() {
  CViewSatCRDetectProcessWindow::t_SetContentSettingInfo();
  if (m_twoTuners) t_ContentMinHeight = kHeightTwoTuners;
}

void CViewSatCRDetectSuccessWindow::t_SetTextBlockText(std::string& part, std::string& text) {
  const char* completed = m_twoTuners ? "COM_BDP_SID_SATCR_DETECTION_COMPLETED" : "SID_SATCR_DETECTION_SUCCEEDED_MSG";
  part = theme::kRunText;
  text = T(t_IsDetection() ? completed : "SID_SATCR_VERIFICATION_SUCCEEDED_MSG");
  if (m_twoTuners) text += "<br>" + m_tunerLabel + " : " + T("COM_SID_SUCCESS");
}

void CViewSatCRDetectSuccessWindow::t_SetSatCRWorkType() {
  if (t_pProgressBar) t_pProgressBar->SetItemData(1.0);
}
