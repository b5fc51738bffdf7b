// A window: main base, title, and up to three default buttons.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "Connections.h"
#include "Timer.h"
#include "View.h"

class CViewWindowBase : public CView {
 public:
  explicit CViewWindowBase(const char* menuID) : CView(menuID) {}

 protected:
  /// One default button. The count, the records, the clicks and the focus follow from the rows of `t_Buttons`.
  struct Button {
    /// String ID of its text.
    const char* id;
    std::function<void()> action = CloseView;
    const char* icon = "";
  };

  struct ButtonSetting {
    std::string text;
    std::string icon;
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
  /// At most three; asked for once, when the window is made.
  virtual std::vector<Button> t_Buttons() { return {}; }
  /// Replaces texts, styles or parts of the button records.
  virtual void t_SetButtonSettingInfo();
  /// Sets the number of buttons.
  virtual void t_InitWindowProperty();
  /// Gives the focus to what has it first: the last button unless a window says otherwise.
  virtual void t_FocusFirst();

  virtual void t_ProcessDefaultButtonOneFocusCallBack() {}
  virtual void t_ProcessDefaultButtonOneUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonOneClickCallBack() { m_Act(0); }
  virtual void t_ProcessDefaultButtonOneKeyPressCallBack(std::string) {}
  virtual void t_ProcessDefaultButtonTwoFocusCallBack() {}
  virtual void t_ProcessDefaultButtonTwoUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonTwoClickCallBack() { m_Act(1); }
  virtual void t_ProcessDefaultButtonTwoKeyPressCallBack(std::string) {}
  virtual void t_ProcessDefaultButtonThreeFocusCallBack() {}
  virtual void t_ProcessDefaultButtonThreeUnFocusCallBack() {}
  virtual void t_ProcessDefaultButtonThreeClickCallBack() { m_Act(2); }
  virtual void t_ProcessDefaultButtonThreeKeyPressCallBack(std::string) {}

  void t_RegisterButtonKeyEvent();
  void t_UnRegisterButtonKeyEvent();

  /// Nothing happens without such a button.
  void t_FocusButton(size_t index);
  /// A layout of the theme's group as the window's content, at least w x h pixels of a 1920-pixel screen; null without
  /// a window or such a group. It goes with the window.
  Evas_Object* t_AddContent(const char* group, int w, int h);
  /// Text of a part of a layout without its markup, empty without one.
  static std::string t_TextOf(Evas_Object* layout, const char* part);

  std::string t_WindowTitle;
  int t_DefaultButtonNum = 0;
  std::array<Evas_Object*, 3> t_pDefaultButtons{};
  std::array<ButtonSetting, 3> t_ButtonSettings;
  /// Of the objects in the window; they end with it.
  Connections t_Connections;

 private:
  Evas_Object* m_CreateMainBase();
  bool m_SetTitle();
  bool m_CreateButtons();
  Evas_Object* m_CreateButton(const ButtonSetting& setting);
  void m_FillButtonSettings();
  void m_Act(size_t index);
  void m_PlaceButtons();

  using ButtonOperation = void (CViewWindowBase::*)();
  void m_Dispatch(size_t index, const ButtonOperation (&operations)[3]);
  void m_DefaultButtonKeyPressCB(size_t index, const char* key);
  void m_DefaultButtonFocusCB(size_t index);
  void m_Focused(size_t index);
  void m_DefaultButtonUnFocusCB(size_t index);
  void m_DefaultButtonClickCB(size_t index);

  std::vector<Button> m_buttons;
  Connections m_buttonConnections;
  Timer m_focusPause;
};
