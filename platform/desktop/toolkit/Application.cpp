#include "Application.h"

#include <Efreet.h>
#include <Elementary.h>

#include <filesystem>
#include <sstream>

#include "Applications.h"
#include "Dump.h"
#include "Gate.h"
#include "Language.h"
#include "Notices.h"
#include "Picture.h"
#include "Profile.h"
#include "Reader.h"
#include "Screen.h"
#include "Speech.h"
#include "tvs/Tuning.h"

namespace desktop {

namespace {

/// Frames without an event before the program counts as at rest: motion that is switched off still ends with
/// the next frame.
constexpr int kQuietFrames = 3;
/// A display of its own accord may send events for ever.
constexpr int kMostFrames = 30;
constexpr double kWindowSeconds = 3.0;
/// The voice guide speaks this long after a window has come up.
constexpr double kVoiceSeconds = 0.5;
constexpr double kFlushSeconds = 0.05;
/// A notice is answered when the loop has turned so many times after it.
constexpr int kReplyTurns = 8;

Application* g_current = nullptr;
Application::Driver g_driver;
Application::Clock g_clock;

/// A tune that is under way is looked at again when it should have ended.
void WakeForTune(int milliseconds) {
  ecore_timer_add(
      milliseconds / 1000.0,
      [](void*) -> Eina_Bool {
        DeliverTunes();
        return ECORE_CALLBACK_CANCEL;
      },
      nullptr);
}

void SetDefault(const char* variable, const std::string& value) { setenv(variable, value.c_str(), 0); }

}  // namespace

Application::Application(Options options, const ui_app_lifecycle_callback_s& callbacks, void* data)
    : m_options(std::move(options)), m_callbacks(callbacks), m_data(data) {
  g_current = this;
}

Application::~Application() { g_current = nullptr; }

Application* Application::Current() { return g_current; }

void Application::SetDriver(Driver driver) { g_driver = std::move(driver); }

void Application::SetClock(Clock clock) { g_clock = std::move(clock); }

void Application::OpenTv() const {
  if (!m_options.tv.empty()) return Store::Open(m_options.tv);
  const std::string path = Store::DefaultPath();
  if (!std::filesystem::exists(path)) {
    try {
      MakeTv(path, {kDefaultProfile}, false);
    } catch (const StoreError&) {
      // Another program may have made it meanwhile.
      if (!std::filesystem::exists(path)) throw;
    }
  }
  Store::Open(path);
}

void Application::StartToolkit() {
  SetDefault("HOME", "/tmp");
  ChooseDisplay();
  ecore_app_no_system_modules();
  efreet_cache_disable();
  // The toolkit keeps them, and names an X11 window by them.
  static char name[] = "quirelle";
  static char* arguments[] = {name, nullptr};
  elm_init(1, arguments);
  m_toolkit = true;
  MeetDisplay();
  elm_policy_set(ELM_POLICY_QUIT, ELM_POLICY_QUIT_NONE);
  if (m_options.IsScripted()) elm_config_transition_duration_factor_set(0.0);
  StartSpeech(m_options.speak);
  StartReader();
  m_keys = TranslateKeyboard();
  SetTuneWaker(WakeForTune);
}

bool Application::Start() {
  OpenTv();
  if (m_options.log) LogToStandardError(*m_options.log);
  UseLanguage();
  StartToolkit();
  m_marker = ecore_event_type_new();
  m_filter = ecore_event_filter_add(nullptr, EventCB, nullptr, this);
  m_signal = ecore_event_handler_add(ECORE_EVENT_SIGNAL_EXIT, SignalCB, this);
  m_idle = ecore_idle_enterer_add(IdleCB, this);
  Listen();
  if (!m_callbacks.create(m_data)) return false;
  Launch(m_options.menuID, m_options.extra);
  if (!Window()) std::fprintf(stderr, "quirelle: '%s' opens no window on this TV\n", m_options.menuID.c_str());
  GiveFocus();
  HoldFramesForView();
  return true;
}

/// The window is made before the view in it: nobody needs a frame of an empty one.
void Application::HoldFramesForView() {
  HoldFrames(true);
  const auto release = [](void* data, int, void*) -> Eina_Bool {
    HoldFrames(false);
    auto* application = static_cast<Application*>(data);
    ecore_event_handler_del(std::exchange(application->m_release, nullptr));
    return ECORE_CALLBACK_PASS_ON;
  };
  m_release = ecore_event_handler_add(m_marker, release, this);
  PostMarker();
}

void Application::Launch(const std::string& menuID, const std::map<std::string, std::string>& extra) {
  app_control_s request{"com.vantrel.tv.quirelle", extra};
  // A parameter that was given by its name comes first.
  if (!menuID.empty()) request.extra.try_emplace("ID", menuID);
  m_callbacks.app_control(&request, m_data);
}

void Application::Loop() {
  if (g_driver) return g_driver(*this);
  if (m_options.IsScripted()) return RunSteps();
  if (!m_exited) ecore_main_loop_begin();
}

void Application::Exit() {
  m_exited = true;
  ecore_main_loop_quit();
}

void Application::Finish() {
  if (m_toolkit) {
    m_callbacks.terminate(m_data);
    SetTuneWaker(nullptr);
    if (m_signal) ecore_event_handler_del(m_signal);
    if (m_release) ecore_event_handler_del(m_release);
    for (const auto& [reply, turns] : m_replies) AnswerNotice(reply);
    m_replies.clear();
    if (m_listener) ecore_main_fd_handler_del(m_listener);
    if (m_idle) ecore_idle_enterer_del(m_idle);
    if (m_flush) ecore_timer_del(m_flush);
    for (Ecore_Event_Filter* filter : {m_filter, m_keys}) {
      if (filter) ecore_event_filter_del(filter);
    }
    StopReader();
    StopSpeech();
    elm_shutdown();
  }
  if (Store::IsOpen()) CloseNoticeSocket(m_socket);
  Store::Close();
}

// --- scripts -------------------------------------------------------------------------------------

/// A turn of the loop ends with an event: one that dealt with nothing but a timer sleeps on until the next.
void Application::PostMarker() {
  ecore_event_add(
      m_marker, nullptr, [](void*, void*) {}, nullptr);
}

void Application::Settle() {
  int frames = 0, all = 0;
  auto count = [this, &frames] {
    ++frames;
    PostMarker();
  };
  Ecore_Animator* animator = ecore_animator_add(
      [](void* data) -> Eina_Bool {
        (*static_cast<decltype(count)*>(data))();
        return ECORE_CALLBACK_RENEW;
      },
      &count);
  m_active = false;
  while (!m_interrupted && frames < kQuietFrames && (IsOffScreen() || all < kMostFrames)) {
    if (g_clock) {
      g_clock(ecore_animator_frametime_get());
      ecore_animator_custom_tick();
    }
    ecore_main_loop_iterate_may_block(g_clock ? 0 : 1);
    DeliverEvents();
    if (m_active) all += std::exchange(frames, 0);
    m_active = false;
  }
  ecore_animator_del(animator);
}

/// A turn of the loop may deal with timers alone: an event of our own comes last of those that wait.
void Application::DeliverEvents() {
  m_marked = false;
  PostMarker();
  while (!m_marked) ecore_main_loop_iterate_may_block(0);
}

void Application::Wait(double seconds) {
  if (g_clock) {
    g_clock(seconds);
    return Settle();
  }
  bool passed = false;
  auto pass = [this, &passed] {
    passed = true;
    PostMarker();
  };
  Ecore_Timer* timer = ecore_timer_add(
      seconds,
      [](void* data) -> Eina_Bool {
        (*static_cast<decltype(pass)*>(data))();
        return ECORE_CALLBACK_CANCEL;
      },
      &pass);
  while (!passed && !m_exited) ecore_main_loop_iterate_may_block(1);
  if (!passed) ecore_timer_del(timer);
}

void Application::WaitForWindow() {
  Settle();
  if (!HasSeat()) return;
  const double until = ecore_time_get() + kWindowSeconds;
  while (!m_interrupted && Window() && !elm_win_focus_get(Window()) && ecore_time_get() < until) Settle();
  Settle();
}

void Application::RunSteps() {
  WaitForWindow();
  for (const Step& step : m_options.steps) {
    if (m_exited && step.kind != Step::kShot) continue;
    RunStep(step);
    Settle();
    if (m_interrupted) return;
  }
  if (IsVoiceOn() && !m_exited) Wait(kVoiceSeconds);
  if (!m_interrupted) Report();
}

void Application::RunStep(const Step& step) {
  switch (step.kind) {
    case Step::kKey:
      return PressKey(step.text.c_str());
    case Step::kWait:
      return Wait(step.seconds);
    case Step::kShot:
      return SavePicture(step.text);
  }
}

void Application::Report() {
  if (!m_options.shot.empty()) SavePicture(m_options.shot);
  if (!m_options.dump.empty()) SaveDump(m_options.dump);
}

// --- notices and the journal ---------------------------------------------------------------------

void Application::Listen() {
  m_socket = OpenNoticeSocket();
  if (m_socket < 0) return;
  m_listener = ecore_main_fd_handler_add(m_socket, ECORE_FD_READ, NoticeCB, this, nullptr, nullptr);
}

Eina_Bool Application::NoticeCB(void* data, Ecore_Fd_Handler*) {
  auto* application = static_cast<Application*>(data);
  std::string notice;
  int reply = -1;
  while (TakeNotice(application->m_socket, notice, &reply)) {
    application->Deal(notice);
    application->m_replies.emplace_back(reply, kReplyTurns);
  }
  return ECORE_CALLBACK_RENEW;
}

void Application::Deal(const std::string& notice) {
  std::istringstream words(notice);
  std::string verb, word;
  words >> verb;
  if (verb == "key" && words >> word) {
    if (const char* key = RemoteKey(word)) PressKey(key);
  } else if (verb == "pause") {
    Pause();
  } else if (verb == "resume") {
    Resume();
  } else if (verb == "tune") {
    DeliverTunes();
  } else if (verb == "launch" && words >> word) {
    Launch(word, {});
  }
}

Eina_Bool Application::IdleCB(void* data) {
  auto* application = static_cast<Application*>(data);
  // Behind the frame that is drawn now, and not once for each call.
  if (!application->m_flush && Gate::HasPending()) {
    application->m_flush = ecore_timer_add(kFlushSeconds, FlushCB, application);
  }
  for (auto& [reply, turns] : application->m_replies) {
    if (--turns == 0) AnswerNotice(reply);
  }
  std::erase_if(application->m_replies, [](const auto& waiting) { return waiting.second <= 0; });
  if (!application->m_replies.empty()) ecore_job_add([](void*) {}, nullptr);
  return ECORE_CALLBACK_RENEW;
}

Eina_Bool Application::FlushCB(void* data) {
  static_cast<Application*>(data)->m_flush = nullptr;
  Gate::Flush();
  return ECORE_CALLBACK_CANCEL;
}

Eina_Bool Application::SignalCB(void* data, int, void*) {
  auto* application = static_cast<Application*>(data);
  application->m_interrupted = true;
  application->Exit();
  return ECORE_CALLBACK_DONE;
}

Eina_Bool Application::EventCB(void* data, void*, int type, void*) {
  auto* application = static_cast<Application*>(data);
  (type == application->m_marker ? application->m_marked : application->m_active) = true;
  return EINA_TRUE;
}

}  // namespace desktop
