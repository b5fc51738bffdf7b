// Manual fine tuning of the analogue channel on screen: the tuner follows the slider at once.
#pragma once

#include <Ecore.h>

#include <memory>

#include "ViewWindowBase.h"
#include "WidgetTextBlock.h"

class CViewFineTuneWindow : public CViewWindowBase {
 public:
  explicit CViewFineTuneWindow(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  void t_SetButtonSettingInfo() override;
  void t_InitWindowProperty() override;
  void t_ProcessDefaultButtonOneClickCallBack() override;
  void t_ProcessDefaultButtonTwoClickCallBack() override;
  void t_ProcessDefaultButtonThreeClickCallBack() override;

  void t_SetContent(Evas_Object* layout, double width, double height);
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
  void m_SetFocusDirections();
  bool m_CreatePopupButton();
  std::string m_PopupMessage() const;
  void m_SpeakPopup(const std::string& message);
  void m_ClosePopup();

  static void m_SliderKeyPressCB(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void m_SliderValueChanged(void* data, Evas_Object* object, void* info);
  static void m_PopupOkBtnClicked(void* data, Evas_Object* object, void* info);
  static void m_OkBtnKeyPressed(void* data, Evas* canvas, Evas_Object* object, void* info);
  static Eina_Bool m_HideAndDeleteMsgbox(void* data);

  Evas_Object* m_pLayout = nullptr;
  Evas_Object* m_pPopup = nullptr;
  Evas_Object* m_pSlider = nullptr;
  Evas_Object* m_pOkButton = nullptr;
  std::unique_ptr<WidgetTextBlock> m_pPopupText;
  Ecore_Timer* m_pTimer = nullptr;
  /// Time stamp of the key that closed the popup: it must not close the window as well.
  unsigned int m_closedAt = 0;
  char m_channelName[512] = {};
  int m_nCurrentOffset = 0;
  int m_nStoredOffset = 0;
  /// A key made the slider jump from one end to the other.
  bool m_bWrap = false;
};
