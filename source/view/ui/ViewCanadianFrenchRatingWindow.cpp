#include "ViewCanadianFrenchRatingWindow.h"

namespace {

constexpr const char* kNames[] = {"SID_MPAA_RATING_G", "SID_8_ANS_PLUS", "SID_13_ANS_PLUS", "SID_16_ANS_PLUS",
                                  "SID_18_ANS_PLUS"};
constexpr LevelRating kCanadianFrench = {"db/menu/broadcasting/program_rating_lock/canadian_french_rating", kNames};

}  // namespace

CViewCanadianFrenchRatingWindow::CViewCanadianFrenchRatingWindow(const char* menuID)
    : CViewLevelRatingWindow(menuID, kCanadianFrench) {}
