// The ratings of French-language programmes in Canada.
#pragma once

#include "ViewLevelRatingWindow.h"

class CViewCanadianFrenchRatingWindow : public CViewLevelRatingWindow {
 public:
  explicit CViewCanadianFrenchRatingWindow(const char* menuID);
};
