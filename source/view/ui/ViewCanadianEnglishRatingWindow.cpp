#include "ViewCanadianEnglishRatingWindow.h"

namespace {

constexpr const char* kNames[] = {"SID_C", "SID_C8_PLUS", "SID_MPAA_RATING_G", "SID_PG", "SID_14_PLUS", "SID_18_PLUS"};
constexpr LevelRating kCanadianEnglish = {"db/menu/broadcasting/program_rating_lock/canadian_english_rating", kNames};

}  // namespace

CViewCanadianEnglishRatingWindow::CViewCanadianEnglishRatingWindow(const char* menuID)
    : CViewLevelRatingWindow(menuID, kCanadianEnglish) {}
