// One single-cable run, from its start until it has ended or was cancelled.
#pragma once

#include <memory>

#include "SatCRProcessManager.h"
#include "Timer.h"
#include "ViewProgressWindowBase.h"

class CViewSatCRDetectProcessWindow : public CViewProgressWindowBase {
 public:
  explicit CViewSatCRDetectProcessWindow(const char* menuID) : CViewProgressWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Pause() override;
  void t_Resume() override;
  void t_FirstEnter(std::string& text) override;
  /// A run may take longer than anybody presses no key.
  int t_GetTimeOutSeconds() override { return 0; }
  std::string t_GetBaseStyle() override;
  std::vector<Button> t_Buttons() override;
  void t_SetProgressSettingInfo() override;
  void t_SetContentSettingInfo() override;
  bool t_CreateOtherPartIntoContentLayout(Evas_Object* layout) override;

  /// One look at the run; whether there is to be another.
  virtual bool t_UpdateProcessBar();
  /// Names the part of the layout that has the message. A menu ID without a run leaves `text` as it is.
  virtual void t_SetTextBlockText(std::string& part, std::string& text);
  /// Starts the run, and looks at it every second.
  virtual void t_SetSatCRWorkType();

  /// That of `CSatCRProcessManager`; 0 for a menu ID without a run.
  int t_ProcessType() const;
  bool t_IsDetection() const;

 private:
  void m_Watch();
  bool m_End(Step step);

  Timer m_timer;
  std::unique_ptr<CSatCRProcessManager> m_manager;
  bool m_ended = false;
};
