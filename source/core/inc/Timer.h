// A timer that dies with its owner.
#pragma once

#include <functional>
#include <memory>

class Timer {
 public:
  /// What is done when the time has passed; whether it is to be done again after as long.
  using Action = std::function<bool()>;

  Timer() = default;
  ~Timer() { Stop(); }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// In place of what it was set to before. The action may start, stop or destroy the timer.
  void Start(double seconds, Action action);
  void Stop();
  bool IsRunning() const { return m_run != nullptr; }

 private:
  struct Run;
  std::shared_ptr<Run> m_run;
};
