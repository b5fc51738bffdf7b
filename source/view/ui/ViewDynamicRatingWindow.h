// The rating system that comes with the broadcast: a spinner steps through its dimensions, the list locks the values of
// the one that it shows.
#pragma once

#include <memory>
#include <string>

#include "RatingUitil.h"
#include "Spinner.h"
#include "ViewRatingWindowBase.h"

class CViewDynamicRatingWindow : public CViewRatingWindowBase {
 public:
  explicit CViewDynamicRatingWindow(const char* menuID) : CViewRatingWindowBase(menuID) {}

 protected:
  /// Nothing is made when no system is on air.
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Resume() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  void t_FocusFirst() override { m_spinner.Focus(); }

  void t_CreateUserDefinedLayout() override;
  void t_CreateContent() override;
  void t_AddGenlistToContent(Evas_Object* list, Evas_Object* parent) override;
  void t_SetRatingNames() override;
  bool t_InitBlockState(int index) override;
  void t_UpdateRatingInfo(int index, bool lock) override;

 private:
  void m_CreateContentEditLabel();
  void m_FillIntoRatingVector(int dimension);
  void m_RemoveListItems();
  void m_CreateListItems();

  bool m_CheckTopButtonState();
  bool m_IsLocked(int index);
  void m_SetItemCheckInfo(int index, bool lock);

  void m_SpinKeyPressed(Evas_Event_Key_Down& event);
  void m_SpinFocusedCB();
  void m_ShowSpinnerArrow();
  void m_HideSpinnerArrow();
  void m_UpdateDimeSpinState(bool editing);
  void m_FocusFirstRating();
  void m_Step(bool up);
  void m_HandleKeyUp();
  void m_HandleKeyDown();
  void m_ShowDimension(int index);

  std::string m_DimensionName(int dimension) const;
  void m_GetDimensionTTSInfo(int dimension, std::string& out) const;

  struct Free {
    void operator()(drrt_rating_info* info) const { RatingUtils::EmptyRatingInfo(info); }
  };

  Evas_Object* m_pLayout = nullptr;
  /// As it was when the window was opened; its dimensions and values are those of the TV's locks.
  std::unique_ptr<drrt_rating_info, Free> m_pRatingInfo;
  Spinner m_spinner;
  /// The dimension in the spinner.
  int m_nSpinner = 0;
  /// The dimension in the list.
  int m_nCurDimension = 0;
  /// Up and Down step through the dimensions, and Back ends that.
  bool m_bEditing = false;
  bool m_bFirstFocus = true;
  /// The last Back ended the editing, and nothing else.
  bool m_bBackConsumed = false;
};
