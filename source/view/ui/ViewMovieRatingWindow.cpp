#include "ViewMovieRatingWindow.h"

#include "Log.h"
#include "RatingKeys.h"

namespace {

constexpr const char* kNames[] = {"SID_MPAA_RATING_G", "SID_PG",    "SID_PG_13",
                                  "SID_MPAA_RATING_R", "SID_NC_17", "SID_X"};
constexpr LevelRating kMovie = {"db/menu/broadcasting/program_rating_lock/movie_rating", kNames};

/// What is not rated comes after the ratings, with a key of its own.
constexpr int kNotRated = std::size(kNames);
constexpr const char* kNotRatedKey = "db/menu/broadcasting/program_rating_lock/movie_rating_nr";
constexpr int kLockByte = 0xFF;

}  // namespace

CViewMovieRatingWindow::CViewMovieRatingWindow(const char* menuID) : CViewLevelRatingWindow(menuID, kMovie) {}

void CViewMovieRatingWindow::t_SetRatingNames() {
  CViewLevelRatingWindow::t_SetRatingNames();
  t_RatingNames.emplace_back("SID_NR");
}

bool CViewMovieRatingWindow::t_InitBlockState(int index) {
  if (index == kNotRated) return (ReadRatingKey(kNotRatedKey) & kLockByte) != 0;
  const bool locked = CViewLevelRatingWindow::t_InitBlockState(index);
  LOG_DEBUG("Init[%d]", locked);
  return locked;
}

void CViewMovieRatingWindow::t_UpdateRatingInfo(int index, bool lock) {
  if (index != kNotRated) return CViewLevelRatingWindow::t_UpdateRatingInfo(index, lock);
  t_SetItemStateInfo(kNotRated, lock);
  WriteRatingKey(kNotRatedKey, lock ? 1 : 0);
}
