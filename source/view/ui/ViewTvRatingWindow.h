// The TV parental guideline ratings: a grid of 18 check boxes, stored as they are changed.
#pragma once

#include <array>

#include "ViewWindowBase.h"

class CViewTvRatingWindow : public CViewWindowBase {
 public:
  static constexpr int kBoxes = 18;

  explicit CViewTvRatingWindow(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  std::vector<Button> t_Buttons() override { return {{"SID_CLOSE"}}; }
  void t_FocusFirst() override;
  void t_ProcessDefaultButtonOneFocusCallBack() override;

 private:
  void m_CreateContent();
  void m_SetLabels();
  bool m_CreateRatingCheck();
  /// Of the box that has the focus.
  void m_ShowColumnName(int index);
  void m_SetInitialState(int index);
  void m_SetFocusDirections();
  void m_SetCheckState(int index, unsigned char state);
  bool m_UpdateVconfKey(int index, unsigned char state);
  bool m_UpdateVconfKeyBitForAll(int row, unsigned char state);
  bool m_WriteFirst(int index, unsigned char state);
  void m_Cascade(int index, unsigned char state);
  void m_ShowState(int index, bool locked);
  void m_SpeakChange(int index);

  void m_CheckboxStateChanged(int index);

  Evas_Object* m_pLayout = nullptr;
  std::array<Evas_Object*, kBoxes> m_pCheck{};
  /// Keeps cascaded changes from writing their bits one by one.
  bool m_FlagBlock = false;
  /// Boxes that the last change took along.
  size_t m_followers = 0;
};
