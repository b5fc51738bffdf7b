#include <Ecore_Evas.h>
#include <Elementary.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "AppMain.h"
#include "Application.h"
#include "Bench.h"
#include "EventManager.h"
#include "Log.h"
#include "LogOutput.h"
#include "Profile.h"
#include "Readings.h"
#include "Screen.h"
#include "ViewManager.h"

extern char** environ;

namespace bench {

namespace {

constexpr int kStarts = 25;
constexpr int kKeyPairs = 15;
constexpr int kPresses = 7;
constexpr double kRestSeconds = 0.1;
constexpr int kEvents = 1000;
constexpr int kLines = 100000;
constexpr int kWrittenLines = 2000;

// --- the program as a process of its own ----------------------------------------------------------

/// The first with the window's view in it.
void FirstFrame(void*, Evas*, void*) {
  if (!CViewManager::GetInstance()->GetCurrentView()) return;
  std::printf("%.9f %ld\n", Now(), PeakKibibytes());
  std::fflush(stdout);
  _exit(0);
}

void RunFirstFrame(desktop::Application&) {
  evas_event_callback_add(evas_object_evas_get(desktop::Window()), EVAS_CALLBACK_RENDER_POST, FirstFrame, nullptr);
  ecore_main_loop_begin();
}

/// Frames come when they are ready: where in a frame's time the press falls is not what is measured.
void Turn() {
  ecore_animator_custom_tick();
  ecore_main_loop_iterate();
}

void RunKeys(desktop::Application& application, int presses) {
  static bool drawn = false;
  elm_config_transition_duration_factor_set(0.0);
  desktop::Application::SetClock([](double seconds) {
    const double until = Now() + std::min(seconds, kRestSeconds);
    while (Now() < until) Turn();
  });
  for (const char* key : {"Down", "Right"}) {
    desktop::PressKey(key);
    application.Settle();
  }
  evas_event_callback_add(
      evas_object_evas_get(desktop::Window()), EVAS_CALLBACK_RENDER_POST, [](void*, Evas*, void*) { drawn = true; },
      nullptr);
  for (int i = 0; i < presses; ++i) {
    application.Wait(kRestSeconds);
    drawn = false;
    const double start = Now();
    desktop::PressKey("Return");
    while (!drawn) Turn();
    std::printf("%.9f\n", Now() - start);
    application.Wait(kRestSeconds);
    desktop::PressKey("Return");
  }
}

std::vector<double> Child(const std::vector<std::string>& words) {
  int output[2];
  if (pipe2(output, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  pid_t child = 0;
  if (posix_spawn(&child, words[0].c_str(), &actions, nullptr, arguments.data(), environ) != 0) {
    throw std::runtime_error(words[0] + ": cannot be started");
  }
  posix_spawn_file_actions_destroy(&actions);
  close(output[1]);
  std::string text;
  char buffer[4096];
  for (ssize_t length; (length = read(output[0], buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<size_t>(length));
  }
  close(output[0]);
  waitpid(child, nullptr, 0);
  std::vector<double> numbers;
  std::istringstream words2(text);
  for (double number; words2 >> number;) numbers.push_back(number);
  if (numbers.empty()) throw std::runtime_error(words[0] + " " + words.back() + ": measured nothing");
  return numbers;
}

std::string OwnDirectory() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  const std::string own(path, length > 0 ? static_cast<size_t>(length) : 0);
  return own.substr(0, own.rfind('/') + 1);
}

std::vector<Figure> StartFigures() {
  const std::vector<std::string> own = {OwnDirectory() + "quirelle-bench", "--child", "first-frame"};
  const std::vector<std::string> bare = {OwnDirectory() + "bench-bare", OwnDirectory() + "quirelle_dark.edj",
                                         "first-frame"};
  std::vector<double> times[2], peaks[2];
  for (int i = 0; i < kStarts; ++i) {
    for (int which = 0; which < 2; ++which) {
      const double start = Now();
      const std::vector<double> measured = Child(which == 0 ? own : bare);
      times[which].push_back((measured.at(0) - start) * 1000);
      peaks[which].push_back(measured.at(1) / 1024);
    }
  }
  return {{"tv-rating: launch to first frame", Median(times[0]), Median(times[1]), "ms", 1.3},
          {"tv-rating: peak memory at first frame", Median(peaks[0]), Median(peaks[1]), "MiB", 1.3}};
}

Figure KeyFigure(const std::string& directory) {
  const std::vector<std::string> own = {OwnDirectory() + "quirelle-bench", "--child", "key", std::to_string(kPresses)};
  const std::vector<std::string> bare = {OwnDirectory() + "bench-bare", OwnDirectory() + "quirelle_dark.edj", "key",
                                         directory + "/bare.db", std::to_string(kPresses)};
  return InTurn(
      "tv-rating: key press, bit stored, to its frame", "ms", 1.2, kKeyPairs, [&] { return Median(Child(own)) * 1000; },
      [&] { return Median(Child(bare)) * 1000; });
}

// --- in this process ------------------------------------------------------------------------------

Figure EventFigure() {
  constexpr int kType = 77;
  static int delivered = 0;
  ecore_app_no_system_modules();
  ecore_init();
  CEventManager::GetInstance()->RegisterEventCallback(
      kType,
      [](void*, CEvent*) {
        ++delivered;
        return true;
      },
      nullptr);
  const int type = ecore_event_type_new();
  ecore_event_handler_add(
      type,
      [](void*, int, void*) -> Eina_Bool {
        ++delivered;
        return ECORE_CALLBACK_PASS_ON;
      },
      nullptr);
  const auto pump = [] {
    while (delivered < kEvents) ecore_main_loop_iterate();
    delivered = 0;
  };
  const auto ours = [&] {
    for (int i = 0; i < kEvents; ++i) CEventManager::GetInstance()->SendEvent(kType, i, 0, nullptr, nullptr);
    pump();
  };
  const auto floor = [&] {
    for (int i = 0; i < kEvents; ++i) {
      ecore_event_add(
          type, new CEvent{kType, i, 0, nullptr, nullptr},
          [](void*, void* event) { delete static_cast<CEvent*>(event); }, nullptr);
    }
    pump();
  };
  const auto nanoseconds = [](const auto& body) { return SecondsOf(body, 20) / kEvents * 1e9; };
  return InTurn(
      "one event through CEventManager", "ns", 1.25, 25, [&] { return nanoseconds(ours); },
      [&] { return nanoseconds(floor); });
}

std::vector<Figure> LogFigures(const std::string& directory) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  const double filtered = SecondsOf([] { LOG_DEBUG("nEventType[%ld]", 13L); }, kLines) * 1e9;
  desktop::LogToFile();
  const std::string path = directory + "/bare.log";
  const int bare = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  const char line[] = "2026-01-01 00:00:00.000 I quirelle FrameBench.cpp: operator()(123) > [Debug]nEventType[13]\n";
  const Figure written = InTurn(
      "a log line that is written", "ns", 0, 15,
      [] { return SecondsOf([] { LOG_DEBUG("nEventType[%ld]", 13L); }, kWrittenLines) * 1e9; },
      [&] {
        return SecondsOf(
                   [&] {
                     if (write(bare, line, sizeof line - 1) < 0) throw std::runtime_error("no log");
                   },
                   kWrittenLines) *
               1e9;
      });
  close(bare);
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  return {{"a log line that is filtered out", filtered, 0, "ns", 50}, written};
}

}  // namespace

std::vector<Figure> FrameFigures(const std::string& directory) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  const std::string tv = directory + "/tv.db";
  desktop::MakeTv(tv, {desktop::kDefaultProfile}, true);
  setenv("QUIRELLE_TV", tv.c_str(), 1);
  std::vector<Figure> figures = StartFigures();
  figures.push_back(KeyFigure(directory));
  figures.push_back(EventFigure());
  for (const Figure& figure : LogFigures(directory)) figures.push_back(figure);
  return figures;
}

int RunChild(const std::vector<std::string>& words) {
  desktop::Application::SetDriver([&](desktop::Application& application) {
    if (words.at(0) == "key") {
      RunKeys(application, std::stoi(words.at(1)));
    } else {
      RunFirstFrame(application);
    }
  });
  char name[] = "quirelle", menu[] = "tv-rating";
  char* arguments[] = {name, menu, nullptr};
  return quirelle::main(2, arguments);
}

}  // namespace bench
