// Three spinners beside a list row: the orbital longitude of a satellite in degrees, tenths, and east or west.
#pragma once

#include <array>
#include <string>

#include "BesideRow.h"
#include "Spinner.h"
#include "View.h"

class CViewPositioner : public CView, public BesideRow {
 public:
  explicit CViewPositioner(const char* menuID) : CView(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  int t_GetTimeOutSeconds() override { return 0; }
  void t_FirstEnter(std::string& text) override;
  /// Back belongs to the popup: it stores what it shows.
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;

  /// Pixels of a 1920-pixel screen.
  static int t_GetViewWidth();
  static int t_GetViewHeight();
  void t_SetPosition();
  /// Reads the stored longitude; 0.0 east when there is none.
  void t_GetValue();
  void t_SetValue();
  /// Brings the values into their ranges and shows them.
  void t_UpdateDisplayVaule();

  void t_KeyPressCB(Evas_Event_Key_Down& event);
  void t_ArrowClickCB(int index, bool up);
  void t_FocusInCB(int index);
  void t_PopupClickedCB();

 private:
  enum { kDegrees, kTenths, kDirection, kSpinners };
  enum Speech { kValue = 1, kMove = 2 };
  struct KeyAction;
  static const KeyAction kKeyActions[];

  bool m_DrawItems();
  bool t_DrawSpinner(Evas_Object* box, int index);
  void m_DrawSlash(Evas_Object* box);
  void m_RegisterKeys(bool take);

  void m_HandleKey(const std::string& key);
  void m_LaunchNumberPad();
  void m_Left();
  void m_Right();
  void m_Up() { m_Step(true); }
  void m_Down() { m_Step(false); }
  void m_Enter();
  void m_SaveAndClose();
  void m_Step(bool up);
  void m_TypeDigit(int digit);
  /// Where the digit leads: the same spinner, or the one after it.
  int m_TypeDegrees(int digit);
  int m_TypeTenths(int digit);
  void m_MoveTo(int index);

  std::string m_TextOf(int index) const;
  std::string m_SpokenText(int index, Speech kind) const;
  void m_PlayTTS(Speech kind);

  std::array<Spinner, kSpinners> m_spinners;
  Connections m_connections;
  /// Degrees 0 to 180, tenths 0 to 9, 0 for east and 1 for west.
  std::array<int, kSpinners> m_values{};
  int m_nSubFocus = kDegrees;
  /// Digits of the degrees that have been typed, 0 to 2, and the degrees before the first of them.
  int m_nDigits = 0, m_nDegreesBefore = 0;
  bool m_bClosing = false;
};
