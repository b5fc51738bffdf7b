// The window of the signal history, open to tests where it compares stamps.
#pragma once

#include <cstring>
#include <string>

#include "ViewWeakSignalHistoryWindow.h"

namespace test {

class SignalHistory : public CViewWeakSignalHistoryWindow {
 public:
  using CViewWeakSignalHistoryWindow::STAMP_24_HOURS;
  using CViewWeakSignalHistoryWindow::STAMP_WORD_FIRST;
  using CViewWeakSignalHistoryWindow::STAMP_WORD_LAST;

  SignalHistory() : CViewWeakSignalHistoryWindow("signal-information-weakhistory") {}

  /// The sign of what it makes of two stamps of a type, the new one cut into pieces as it does itself.
  static int Compare(int type, std::string newStamp, const std::string& sorted) {
    char* pieces[4] = {};
    char* rest = nullptr;
    size_t count = 0;
    for (char* piece = strtok_r(newStamp.data(), " :", &rest); piece && count < 4;
         piece = strtok_r(nullptr, " :", &rest)) {
      pieces[count++] = piece;
    }
    const int order = m_CompareTime(type, pieces, sorted);
    return (order > 0) - (order < 0);
  }
};

}  // namespace test
