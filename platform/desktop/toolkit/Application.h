// One run of the program on this machine: start, loop, end.
#pragma once

#include <Ecore.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "Options.h"
#include "app_framework.h"

namespace desktop {

class Application {
 public:
  Application(Options options, const ui_app_lifecycle_callback_s& callbacks, void* data);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// The run that is under way, or null.
  static Application* Current();

  /// Opens the TV, brings the toolkit up and hands the program its launch request. False when the program
  /// refuses to start. Throws StoreError.
  bool Start();
  /// Until the program exits, or its script has come to its end.
  void Loop();
  void Finish();

  /// Lets everything that is under way come to its end, without waiting for timers.
  void Settle();
  /// Lets time pass.
  void Wait(double seconds);

  void Exit();
  bool HasExited() const { return m_exited; }
  void Pause() { m_callbacks.pause(m_data); }
  void Resume() { m_callbacks.resume(m_data); }
  void Launch(const std::string& menuID, const std::map<std::string, std::string>& extra);

  /// Takes the place of the loop; a test drives the program from inside it.
  using Driver = std::function<void(Application&)>;
  static void SetDriver(Driver driver);
  /// Moves the clock that the toolkit reads by so many seconds, where it is not left to itself.
  using Clock = std::function<void(double seconds)>;
  static void SetClock(Clock clock);

 private:
  void OpenTv() const;
  void StartToolkit();
  void HoldFramesForView();
  void RunSteps();
  void RunStep(const Step& step);
  void Report();
  void WaitForWindow();
  void PostMarker();
  void DeliverEvents();
  void Listen();
  void Deal(const std::string& notice);
  static Eina_Bool NoticeCB(void* data, Ecore_Fd_Handler* handler);
  static Eina_Bool IdleCB(void* data);
  static Eina_Bool FlushCB(void* data);
  static Eina_Bool SignalCB(void* data, int type, void* event);
  static Eina_Bool EventCB(void* data, void* loopData, int type, void* event);

  Options m_options;
  ui_app_lifecycle_callback_s m_callbacks;
  void* m_data;
  bool m_exited = false;
  /// By a signal: what is left of a script, its picture and its dump included, is left out.
  bool m_interrupted = false;
  bool m_active = false;
  int m_marker = 0;
  bool m_marked = false;
  bool m_toolkit = false;
  int m_socket = -1;
  Ecore_Fd_Handler* m_listener = nullptr;
  Ecore_Idle_Enterer* m_idle = nullptr;
  Ecore_Timer* m_flush = nullptr;
  Ecore_Event_Filter* m_filter = nullptr;
  Ecore_Event_Filter* m_keys = nullptr;
  Ecore_Event_Handler* m_signal = nullptr;
  Ecore_Event_Handler* m_release = nullptr;
  /// Senders of notices, and the turns of the loop until they are answered.
  std::vector<std::pair<int, int>> m_replies;
};

}  // namespace desktop
