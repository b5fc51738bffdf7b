// Manual fine tuning of the analogue channel on screen: the tuner follows the slider at once.
#pragma once

#include "Notice.h"
#include "Timer.h"
#include "ViewWindowBase.h"

class CViewFineTuneWindow : public CViewWindowBase {
 public:
  explicit CViewFineTuneWindow(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  std::vector<Button> t_Buttons() override;

  void t_CreateSlider();
  /// The caller frees it; null without a channel.
  char* t_GetCurrentChannelName();
  void t_UpdateChannelCurrentTuneValue(int tuned);
  void t_UpdateSliderValue();
  void t_SetTextSliderLabel(int offset);
  void t_SetTextChannelName();
  void t_SetTextResultValue(int offset);
  void t_DrawResetPopup();

  /// Whether the channel counts as fine tuned.
  int t_nFineTunered = 0;

 private:
  void m_ReadOrientation();
  void m_ReadChannelName();
  void m_Save();
  void m_Reset();
  std::string m_PopupMessage() const;
  void m_ClosePopup();
  void m_SliderKeyPressCB(Evas_Event_Key_Down& event);
  void m_SliderValueChanged();

  Evas_Object* m_pLayout = nullptr;
  Evas_Object* m_pSlider = nullptr;
  Notice m_popup;
  Timer m_popupTimer;
  char m_channelName[512] = {};
  int m_nCurrentOffset = 0;
  int m_nStoredOffset = 0;
  /// A key made the slider jump from one end to the other.
  bool m_bWrap = false;
};
