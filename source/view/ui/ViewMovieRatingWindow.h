// The movie ratings, and apart from them the lock of what is not rated.
#pragma once

#include "ViewLevelRatingWindow.h"

class CViewMovieRatingWindow : public CViewLevelRatingWindow {
 public:
  explicit CViewMovieRatingWindow(const char* menuID);

 protected:
  void t_SetRatingNames() override;
  bool t_InitBlockState(int index) override;
  void t_UpdateRatingInfo(int index, bool lock) override;
};
