// The history of weak signals, opened by a window that it hides while it is there.
#pragma once

#include <Ecore.h>

class HistoryAbove {
 public:
  HistoryAbove() = default;
  ~HistoryAbove();
  HistoryAbove(const HistoryAbove&) = delete;
  HistoryAbove& operator=(const HistoryAbove&) = delete;

  /// Asks for it. It may open nothing: what is pushed next is the history only if it comes by this request.
  void Request();
  /// When the window is paused: whether it is the history that comes above it.
  bool Comes();
  /// When the window is resumed: whether it was the history that went.
  bool Went();

 private:
  static void m_EndRequest(void* data);

  /// There from the request until the event that opens the history has been handled.
  Ecore_Job* m_pRequest = nullptr;
  bool m_bThere = false;
};
