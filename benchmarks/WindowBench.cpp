// The windows and lists against bare ones.
#include <algorithm>
#include <cstdlib>

#include "Bench.h"
#include "Profile.h"

namespace bench {

namespace {

constexpr int kStarts = 15;
constexpr int kMoves = 60;
constexpr int kListPairs = 7;
constexpr const char* kIdleSeconds = "20";
/// One frame at 60 Hz, in milliseconds.
constexpr double kFrame = 16.7;

struct Window {
  const char* menuID;
  /// A TV on which it opens.
  const char* profile;
  /// Two keys that change what is seen, the second back again; none where every key leads on.
  const char* there = nullptr;
  const char* back = nullptr;
  /// A key that opens the control in which they do.
  const char* opening = nullptr;
};

constexpr Window kWindows[] = {
    {"signal-information", "europe", "Up", "Down"},
    {"signal-information-weakhistory", "europe", "Left", "Right"},
    {"hdmi-information", "hdmi", "Up", "Down"},
    {"movie-rating", "america", "Down", "Up"},
    {"dynamic-rating", "america", "Up", "Down", "Return"},
    {"fine-tune", "america", "Left", "Right"},
    {"satcr-detect-slot-frequency-slot1", "europe"},
    {"satellite-selection", "europe", "Left", "Right"},
    {"reset-all-settings-satellite", "europe", "Right", "Left"},
    {"user-defined-transponder", "europe", "Down", "Up"},
    {"postype-sat-longitude-settings", "europe", "Up", "Down", "Return"},
    {"export-to-usb", "europe"},
};

std::vector<std::string> Own(const std::string& what, const std::string& menuID, const std::string& number) {
  return {OwnDirectory() + "quirelle-bench", "--child", what, menuID, number};
}

void UseTv(const std::string& directory, const std::string& profile) {
  const std::string tv = directory + "/" + profile + "-window.db";
  desktop::MakeTv(tv, {profile, 100}, true);
  setenv("QUIRELLE_TV", tv.c_str(), 1);
}

void AddMoves(std::vector<Figure>& figures, const Window& window) {
  const std::string menuID = window.menuID;
  std::vector<std::string> words = Own("moves", menuID, std::to_string(kMoves));
  words.insert(words.end(), {window.there, window.back});
  if (window.opening) words.emplace_back(window.opening);
  std::vector<double> times;
  for (const double seconds : Child(words)) times.push_back(seconds * 1000);
  std::sort(times.begin(), times.end());
  figures.push_back({menuID + ": key press to its frame, median", Median(times), 0, "ms", kFrame});
  figures.push_back(
      {menuID + ": key press to its frame, 99 of 100", times.at(times.size() * 99 / 100), 0, "ms", kFrame});
}

void AddLists(std::vector<Figure>& figures) {
  for (const std::string rows : {"10", "10000"}) {
    std::vector<double> opened[2], scrolled[2];
    for (int i = 0; i < kListPairs; ++i) {
      for (int which = 0; which < 2; ++which) {
        const std::vector<double> seconds =
            Child(Own(which == 0 ? "our-list" : "bare-list", "signal-information-weakhistory", rows));
        opened[which].push_back(seconds.at(0) * 1000);
        scrolled[which].push_back(seconds.at(1) * 1000);
      }
    }
    figures.push_back({"a list of " + rows + " rows opened", Median(opened[0]), Median(opened[1]), "ms", 1.25});
    figures.push_back(
        {"a list of " + rows + " rows scrolled through", Median(scrolled[0]), Median(scrolled[1]), "ms", 1.25});
  }
}

void AddIdle(std::vector<Figure>& figures) {
  const std::vector<double> own = Child(Own("idle", "signal-information", kIdleSeconds));
  const std::vector<double> bare =
      Child({OwnDirectory() + "bench-bare", OwnDirectory() + "quirelle_dark.edj", "idle", kIdleSeconds});
  figures.push_back({"signal-information left open: wake-ups a minute", own.at(0), bare.at(0), ""});
  figures.push_back({"signal-information left open: processor a minute", own.at(1), bare.at(1), "ms"});
}

}  // namespace

std::vector<Figure> WindowFigures(const std::string& directory) {
  std::vector<Figure> figures;
  for (const Window& window : kWindows) {
    UseTv(directory, window.profile);
    figures.push_back(StartFigures(window.menuID, kStarts).front());
    if (window.there) AddMoves(figures, window);
  }
  UseTv(directory, "europe");
  AddLists(figures);
  AddIdle(figures);
  return figures;
}

}  // namespace bench
