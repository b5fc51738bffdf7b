// A single-cable run that went well.
#pragma once

#include "ViewSatCRDetectProcessWindow.h"

class CViewSatCRDetectSuccessWindow : public CViewSatCRDetectProcessWindow {
 public:
  explicit CViewSatCRDetectSuccessWindow(const char* menuID) : CViewSatCRDetectProcessWindow(menuID) {}

 protected:
  void t_Create() override;
  std::vector<Button> t_Buttons() override;
  void t_SetContentSettingInfo() override;
  void t_SetTextBlockText(std::string& part, std::string& text) override;
  /// The run is over: only the bar is full.
  void t_SetSatCRWorkType() override;

 private:
  std::string m_tunerLabel;
  bool m_twoTuners = false;
};
