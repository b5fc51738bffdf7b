#include "ViewLevelRatingWindow.h"

#include "DataProvider.h"
#include "RatingKeys.h"

std::string CViewLevelRatingWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

void CViewLevelRatingWindow::t_SetRatingNames() { t_RatingNames.assign(m_system.names.begin(), m_system.names.end()); }

bool CViewLevelRatingWindow::t_InitBlockState(int index) {
  const int level = ReadRatingKey(m_system.key);
  return level != 0 && level <= index + 1;
}

void CViewLevelRatingWindow::t_UpdateRatingInfo(int index, bool lock) {
  const int count = static_cast<int>(m_system.names.size());
  if (index < 0 || index >= count) return;
  for (int other = lock ? index + 1 : 0; other < (lock ? count : index); ++other) t_SetItemStateInfo(other, lock);
  const int mildestLocked = lock ? index : index + 1;
  WriteRatingKey(m_system.key, mildestLocked < count ? mildestLocked + 1 : 0);
}
