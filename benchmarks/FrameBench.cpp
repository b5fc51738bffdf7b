#include <Ecore.h>
#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

#include "Bench.h"
#include "EventManager.h"
#include "Log.h"
#include "LogOutput.h"
#include "Profile.h"

namespace bench {

namespace {

constexpr const char* kMenuID = "tv-rating";
constexpr int kStarts = 25;
constexpr int kKeyPairs = 15;
constexpr int kPresses = 7;
constexpr int kEvents = 1000;
constexpr int kLines = 100000;
constexpr int kWrittenLines = 2000;

// --- against a process of its own --------------------------------------------------------------------

Figure KeyFigure(const std::string& directory) {
  const std::vector<std::string> own = {OwnDirectory() + "quirelle-bench", "--child", "toggle", kMenuID,
                                        std::to_string(kPresses)};
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
  std::vector<Figure> figures = StartFigures(kMenuID, kStarts);
  figures.push_back(KeyFigure(directory));
  figures.push_back(EventFigure());
  for (const Figure& figure : LogFigures(directory)) figures.push_back(figure);
  return figures;
}

}  // namespace bench
