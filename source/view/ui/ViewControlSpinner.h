// A spinner beside a list row: a value stepped with the arrows or typed in digits.
#pragma once

#include <string>

#include "View.h"

class CViewControlSpinner : public CView {
 public:
  explicit CViewControlSpinner(const char* menuID);

  /// The row that opened it, in screen pixels.
  void SetParentItemPostion(int x, int y, int w) { m_x = x, m_y = y, m_w = w; }

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
  void t_Hide() override;
  void t_FirstEnter(std::string& text) override;

 private:
  void m_PrepareSpinnerWidth();
  void m_ReadValue();
  bool m_CreateSpinner();
  Evas_Object* m_CreateArrow(const char* style, const char* part);
  void m_CreateFocus();
  void m_UpdateDispText();
  void m_ShowText(const std::string& text);
  void m_HandleKey(const std::string& key);
  void m_Step(bool up);
  void m_StepSetting(bool up);
  void m_TypeDigit(int digit);
  void m_Enter();
  void m_StoreSetting();
  bool m_CheckItemMinMax() const;
  static int m_GetNumFromKey(const char* key);

  static void m_ResponseCb(void* data, Evas_Object* object, void* info);
  static void m_SubitemKeyPressed(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void m_FocusedCb(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void m_UnfocusedCb(void* data, Evas* canvas, Evas_Object* object, void* info);
  static void t_BlockClicked(void* data, Evas_Object* object, void* info);

  Evas_Object* m_pSpinner = nullptr;
  /// Has the focus in the spinner's place: the toolkit gives it to the arrows of a spinner, never to itself.
  Evas_Object* m_pFocus = nullptr;
  Evas_Object* m_pIncrease = nullptr;
  Evas_Object* m_pDecrease = nullptr;
  std::string m_pDisplayValue;
  /// The value read at creation.
  std::string m_original;
  int m_x = 0, m_y = 0, m_w = 0;
  int m_nControlPopupWidth = 0, m_nControlPopupHeight = 0;
  /// No digits are pending.
  bool m_firstInput = true;
};
