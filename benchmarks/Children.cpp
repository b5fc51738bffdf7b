// The program as a process of its own, and what is read of it.
#include <Ecore_Evas.h>
#include <Elementary.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <sstream>
#include <stdexcept>

#include "AppMain.h"
#include "Application.h"
#include "Bench.h"
#include "DataList.h"
#include "Readings.h"
#include "Screen.h"
#include "ThemeNames.h"
#include "ViewManager.h"
#include "WidgetList.h"
#include "WrapPatterns.h"

extern char** environ;

namespace bench {

namespace {

constexpr double kRestSeconds = 0.1;
/// Whatever is measured is drawn by then.
constexpr double kPatience = 10;
constexpr int kListWidth = 1400;
constexpr int kListHeight = 1000;
/// Rows that one step of scrolling passes.
constexpr int kStride = 16;
constexpr int kTurns = 4;

bool g_drawn = false;
bool g_realized = false;

/// The first with the window's view in it.
void FirstFrame(void*, Evas*, void*) {
  if (!CViewManager::GetInstance()->GetCurrentView()) return;
  std::printf("%.9f %ld\n", Now(), PeakKibibytes());
  std::fflush(stdout);
  _exit(0);
}

void RunFirstFrame() {
  evas_event_callback_add(evas_object_evas_get(desktop::Window()), EVAS_CALLBACK_RENDER_POST, FirstFrame, nullptr);
  ecore_main_loop_begin();
}

/// Frames come when they are ready: where in a frame's time the press falls is not what is measured.
void Turn() {
  ecore_animator_custom_tick();
  ecore_main_loop_iterate();
}

void WatchFrames() {
  elm_config_transition_duration_factor_set(0.0);
  evas_event_callback_add(
      evas_object_evas_get(desktop::Window()), EVAS_CALLBACK_RENDER_POST, [](void*, Evas*, void*) { g_drawn = true; },
      nullptr);
}

void Rest() {
  const double until = Now() + kRestSeconds;
  while (Now() < until) Turn();
}

void DrawFrame() {
  g_drawn = false;
  const double until = Now() + kPatience;
  while (!g_drawn) {
    Turn();
    if (Now() > until) throw std::runtime_error("nothing was drawn");
  }
}

/// Seconds from a press to its frame, one a line; the keys come in turn, and only those marked are measured.
void MeasurePresses(const std::vector<std::pair<const char*, bool>>& keys, int rounds) {
  WatchFrames();
  for (int i = 0; i < rounds; ++i) {
    for (const auto& [key, measured] : keys) {
      Rest();
      const double start = Now();
      desktop::PressKey(key);
      if (!measured) continue;
      DrawFrame();
      std::printf("%.9f\n", Now() - start);
    }
  }
}

/// With the two keys behind the number, and before them once the key that follows these.
void RunMoves(const std::vector<std::string>& words, int presses) {
  if (words.size() > 5) MeasurePresses({{words[5].c_str(), false}}, 1);
  MeasurePresses({{words.at(3).c_str(), true}, {words.at(4).c_str(), true}}, presses);
}

/// On the first box of the second row, which the presses turn on; off again is not measured.
void RunToggles(int presses) {
  MeasurePresses({{"Down", false}, {"Right", false}}, 1);
  MeasurePresses({{"Return", true}, {"Return", false}}, presses);
}

/// A list of as many rows, ours or the toolkit's own with rows of the same style: seconds until it is drawn, and
/// until it was scrolled from end to end.
Evas_Object* AddOurList(WidgetGenList& list, int rows) {
  Singleton<FuncEvents>::GetInstance()->providers["signal-information-weakhistory"] = [rows](auto& data) {
    for (int i = 0; i < rows; ++i) {
      const std::string number = std::to_string(i);
      data.push_back({"", "Row " + number, "Value " + number, "Value " + number, ""});
    }
  };
  list.Create();
  list.CreateGenlist(theme::kListDefault, false);
  return list.GetParent();
}

Evas_Object* AddBareList(std::vector<std::string>& texts, int rows) {
  Evas_Object* list = elm_genlist_add(desktop::Window());
  elm_genlist_select_mode_set(list, ELM_OBJECT_SELECT_MODE_ALWAYS);
  elm_genlist_homogeneous_set(list, EINA_TRUE);
  elm_genlist_mode_set(list, ELM_LIST_COMPRESS);
  Elm_Genlist_Item_Class* itemClass = elm_genlist_item_class_new();
  itemClass->item_style = theme::kRowValueLite;
  itemClass->func.text_get = [](void* data, Evas_Object*, const char*) {
    return strdup(static_cast<std::string*>(data)->c_str());
  };
  for (int i = 0; i < rows; ++i) texts.push_back("Row " + std::to_string(i));
  for (std::string& text : texts) {
    elm_genlist_item_append(list, itemClass, &text, nullptr, ELM_GENLIST_ITEM_NONE, nullptr, nullptr);
  }
  elm_genlist_item_class_unref(itemClass);
  return list;
}

/// Drawn at once: a list shows no rows before the loop has turned a few times.
void DrawList(const Evas_Object* list) {
  for (int i = 0; i < kTurns; ++i) Turn();
  ecore_evas_manual_render(ecore_evas_ecore_evas_get(evas_object_evas_get(list)));
}

void RunList(bool ours, int rows) {
  WatchFrames();
  Rest();
  WidgetGenList own("signal-information-weakhistory");
  std::vector<std::string> texts;
  const double start = Now();
  Evas_Object* list = ours ? AddOurList(own, rows) : AddBareList(texts, rows);
  evas_object_smart_callback_add(
      list, "realized", [](void*, Evas_Object*, void*) { g_realized = true; }, nullptr);
  evas_object_resize(list, kListWidth, kListHeight);
  evas_object_show(list);
  evas_object_raise(list);
  while (!g_realized) DrawList(list);
  const double opened = Now();
  Elm_Object_Item* item = elm_genlist_first_item_get(list);
  for (int row = 0; item; ++row, item = elm_genlist_item_next_get(item)) {
    if (row % kStride != 0 && row != rows - 1) continue;
    elm_genlist_item_show(item, ELM_GENLIST_ITEM_SCROLLTO_TOP);
    DrawList(list);
  }
  std::printf("%.9f %.9f\n", opened - start, Now() - opened);
  std::fflush(stdout);
  _exit(0);
}

}  // namespace

std::string OwnDirectory() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  const std::string own(path, length > 0 ? static_cast<size_t>(length) : 0);
  return own.substr(0, own.rfind('/') + 1);
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

std::vector<Figure> StartFigures(const std::string& menuID, int starts) {
  const std::vector<std::string> own = {OwnDirectory() + "quirelle-bench", "--child", "first-frame", menuID};
  const std::vector<std::string> bare = {OwnDirectory() + "bench-bare", OwnDirectory() + "quirelle_dark.edj",
                                         "first-frame", menuID};
  std::vector<double> times[2], peaks[2];
  for (int i = 0; i < starts; ++i) {
    for (int which = 0; which < 2; ++which) {
      const double start = Now();
      const std::vector<double> measured = Child(which == 0 ? own : bare);
      times[which].push_back((measured.at(0) - start) * 1000);
      peaks[which].push_back(measured.at(1) / 1024);
    }
  }
  return {{menuID + ": launch to first frame", Median(times[0]), Median(times[1]), "ms", 1.3},
          {menuID + ": peak memory at first frame", Median(peaks[0]), Median(peaks[1]), "MiB", 1.3}};
}

int RunChild(const std::vector<std::string>& words) {
  const std::string& what = words.at(0);
  const std::string number = words.size() > 2 ? words[2] : "0";
  desktop::Application::SetDriver([&](desktop::Application&) {
    if (what == "first-frame") return RunFirstFrame();
    if (what == "toggle") return RunToggles(std::stoi(number));
    if (what == "moves") return RunMoves(words, std::stoi(number));
    if (what == "idle") return PrintIdle(std::stod(number));
    RunList(what == "our-list", std::stoi(number));
  });
  std::string name = "quirelle", menu = words.at(1);
  char* arguments[] = {name.data(), menu.data(), nullptr};
  return quirelle::main(2, arguments);
}

}  // namespace bench
