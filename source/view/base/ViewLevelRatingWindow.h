// The window of a rating system whose ratings are graded: a lock goes on to the stricter ones, a release to the milder.
#pragma once

#include <span>

#include "ViewRatingWindowBase.h"

struct LevelRating {
  /// Of the settings store. 0: nothing is locked; level L: the L-th rating and all that are stricter.
  const char* key;
  /// String IDs, from the mildest to the strictest.
  std::span<const char* const> names;
};

class CViewLevelRatingWindow : public CViewRatingWindowBase {
 public:
  /// The system outlives the window.
  CViewLevelRatingWindow(const char* menuID, const LevelRating& system)
      : CViewRatingWindowBase(menuID), m_system(system) {}

 protected:
  std::string t_GetWindowTitleText() override;
  void t_SetRatingNames() override;
  bool t_InitBlockState(int index) override;
  void t_UpdateRatingInfo(int index, bool lock) override;

 private:
  const LevelRating& m_system;
};
