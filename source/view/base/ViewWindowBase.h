// A window: main base, title, and up to three default buttons.
#pragma once

#include <array>

#include "View.h"

class CViewWindowBase : public CView {
 public:
  explicit CViewWindowBase(const char* menuID) : CView(menuID) {}

 protected:
  struct ButtonSetting {
    std::string text;
    std::string reserved;
    std::string style;
    std::string part;
  };

  int t_GetBaseType() override;
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_FirstEnter(std::string& text) override;

  virtual std::string t_GetBaseStyle();
  virtual std::string t_GetWindowTitleText();
  /// Replaces texts, styles or parts of the button records.
  virtual void t_SetButtonSettingInfo();
  /// Sets the number of buttons.
  virtual void t_InitWindowProperty();

  virtual void t_ProcessDefaultButtonOneFocusCallBack() {}
  virtual void t_ProcessDefaultButtonOneUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonOneClickCallBack() {}
  virtual void t_ProcessDefaultButtonOneKeyPressCallBack(std::string) {}
  virtual void t_ProcessDefaultButtonTwoFocusCallBack() {}
  virtual void t_ProcessDefaultButtonTwoUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonTwoClickCallBack() {}
  virtual void t_ProcessDefaultButtonTwoKeyPressCallBack(std::string) {}
  virtual void t_ProcessDefaultButtonThreeFocusCallBack() {}
  virtual void t_ProcessDefaultButtonThreeUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonThreeClickCallBack() {}
  virtual void t_ProcessDefaultButtonThreeKeyPressCallBack(std::string) {}

  void t_RegisterButtonKeyEvent();
  void t_UnRegisterButtonKeyEvent();

  std::string t_WindowTitle;
  int t_DefaultButtonNum = 0;
  std::array<Evas_Object*, 3> t_pDefaultButtons{};
  std::array<ButtonSetting, 3> t_ButtonSettings;

 private:
  Evas_Object* m_CreateMainBase();
  bool m_SetTitle();
  bool m_CreateButtons();
  void m_FillButtonSettings();
  int m_ButtonIndex(const Evas_Object* button) const;

  using ButtonOperation = void (CViewWindowBase::*)();
  static void m_Dispatch(void* data, const Evas_Object* object, const ButtonOperation (&operations)[3]);
  static void m_DefaultButtonKeyPressCB(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void m_DefaultButtonFocusCB(void* data, Evas_Object* object, void* info);
  static void m_DefaultButtonUnFocusCB(void* data, Evas_Object* object, void* info);
  static void m_DefaultButtonClickCB(void* data, Evas_Object* object, void* info);
};
