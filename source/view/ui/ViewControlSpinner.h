// A spinner beside a list row: a value stepped with the arrows or typed in digits.
#pragma once

#include <string>

#include "BesideRow.h"
#include "Spinner.h"
#include "View.h"

class CViewControlSpinner : public CView, public BesideRow {
 public:
  explicit CViewControlSpinner(const char* menuID);

  struct MinMax {
    bool valid;
    int minimum, maximum, entryCode;
  };
  /// What may be typed for a menu ID; not valid for one without limits.
  static MinMax t_GetMinMaxValue(const std::string& menuID);

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_FirstEnter(std::string& text) override;

 private:
  void m_PrepareSpinnerWidth();
  void m_ReadValue();
  bool m_CreateSpinner();
  void m_ShowText(const std::string& text);
  void m_UpdateDispText();
  void m_HandleKey(const std::string& key);
  void m_Step(bool up);
  void m_StepSetting(bool up);
  void m_TypeDigit(int digit);
  void m_Enter();
  void m_StoreSetting();
  bool m_CheckItemMinMax() const;
  static int m_GetNumFromKey(const char* key);

  void m_ResponseCb(bool up);
  void m_SubitemKeyPressed(Evas_Event_Key_Down& event);

  Spinner m_spinner;
  Connections m_connections;
  /// The value read at creation.
  std::string m_original;
  int m_nControlPopupWidth = 0, m_nControlPopupHeight = 0;
  /// No digits are pending.
  bool m_firstInput = true;
};
