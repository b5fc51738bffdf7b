// The ratings of English-language programmes in Canada.
#pragma once

#include "ViewLevelRatingWindow.h"

class CViewCanadianEnglishRatingWindow : public CViewLevelRatingWindow {
 public:
  explicit CViewCanadianEnglishRatingWindow(const char* menuID);
};
