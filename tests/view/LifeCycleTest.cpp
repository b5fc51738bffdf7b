// Every window and every control through its whole life, on TVs that differ in all that a person can choose:
// shown, every key of the remote in every place that the focus can reach, covered, uncovered, refreshed, closed.
#include <Elementary.h>

#include <deque>
#include <map>
#include <regex>
#include <set>

#include "EventManager.h"
#include "Gate.h"
#include "Harness.h"
#include "Keys.h"
#include "Screen.h"
#include "SignalInfo.h"
#include "View.h"
#include "ViewManager.h"
#include "ViewTable.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

/// Lies under the views that are pushed, and is the only window with this name.
constexpr const char* kGround = "StopFrequency";
/// What is put over each view for a moment: a box.
constexpr const char* kCover = "StartFrequency";
constexpr long kCoverID = 18;
/// Steps of the flows with several; a maker that knows no such case tells its steps apart.
constexpr unsigned int kMostSteps = 21, kNoStep = 99;
/// More than the largest window takes: a walk that goes on has found places without end.
constexpr int kMostPresses = 1000;
/// Until the voice guide speaks, and then some.
constexpr double kSpeechSeconds = 0.5;

/// Any two of the choices meet on one of these.
struct Room {
  const char *profile, *language, *contrast, *voice;
};
constexpr Room kRooms[] = {
    {"america", "en_US.utf8", "0", "0"}, {"america", "ar_AE.utf8", "1", "1"}, {"europe", "de_DE.utf8", "0", "1"},
    {"europe", "ar_AE.utf8", "1", "0"},  {"brazil", "en_US.utf8", "1", "0"},  {"brazil", "ar_AE.utf8", "0", "1"},
    {"hdmi", "ko_KR.utf8", "1", "1"},    {"hdmi", "ar_AE.utf8", "0", "0"},
};
constexpr size_t kRoomCount = std::size(kRooms);

std::string NameOf(const Room& room) {
  return std::string(room.profile) + " " + room.language + " contrast " + room.contrast + " voice " + room.voice;
}

void Furnish(Tv& tv, const Room& room) {
  tv.SetLanguage(room.language);
  tv.Set("db/menu/system/accessibility/highcontrast", room.contrast);
  tv.Set("db/setting/accessibility/tts", room.voice);
  for (const char* stick : {"A", "B"}) tv.PutOnStick(stick, {"one.zip", "two.zip"});
}

/// One view to visit, and how it is pushed.
struct Subject {
  std::string name;
  /// Null for a control.
  const ViewEntry* window;
  unsigned int step;
};

IView* Make(const Subject& subject) {
  if (!subject.window) return MakeControl(subject.name.c_str(), 300, 400, 800);
  unsigned int step = subject.step;
  IView* view = subject.window->make(subject.window->menuID, step);
  if (view) view->SetViewKey(static_cast<unsigned int>(subject.window->window), step);
  return view;
}

bool IsMade(const Subject& subject) { return std::unique_ptr<IView>(Make(subject)) != nullptr; }

std::vector<Subject> Subjects() {
  std::vector<Subject> subjects;
  for (const ViewEntry& entry : ViewTable()) {
    if (!entry.make) continue;
    const bool hasSteps = !IsMade({entry.menuID, &entry, kNoStep});
    for (unsigned int step = 0; step < (hasSteps ? kMostSteps : 1); ++step) {
      subjects.push_back({entry.menuID, &entry, step});
    }
  }
  desktop::Query items("SELECT id FROM item ORDER BY id");
  while (items.Row()) subjects.push_back({items.Text(0), nullptr, 0});
  return subjects;
}

/// As the program itself does; what is under the view is the ground.
void Push(Remote& remote, const Subject& subject) {
  if (!subject.window) return remote.OpenControl(subject.name);
  const Window window = subject.window->window;
  if (window == Window::kNone || window == Window::kStopFrequency) {
    remote.Push(std::unique_ptr<IView>(Make(subject)));
  } else {
    remote.Post(EVENT_PUSH_VIEW, static_cast<long>(window), subject.step);
  }
}

// --- the walk ------------------------------------------------------------------------------------

/// A spinner has the focus on a part of its own.
bool HasValues(const Evas_Object* object) {
  for (; object; object = elm_object_parent_widget_get(object)) {
    const std::string_view type = evas_object_type_get(object);
    if (type == "elm_slider" || type == "elm_spinner") return true;
  }
  return false;
}

/// What has the focus; the values of a slider or a spinner, and the seconds on a button, are one place.
std::string PlaceNow(Remote& remote) {
  const Json::Value screen = remote.Screen();
  std::string place;
  for (const Json::Value& view : screen["stack"]) place += view.asString() + "/";
  const Evas_Object* focus = desktop::Window() ? elm_object_focused_object_get(desktop::Window()) : nullptr;
  if (!focus) return place;
  const std::string type = evas_object_type_get(focus);
  static const std::regex seconds(R"( \(\d+\)$)");
  return place + type + (HasValues(focus) ? "" : " " + std::regex_replace(screen["focus"].asString(), seconds, ""));
}

constexpr const char* kClosed = "closed";

/// Where each key has led from each place.
using Paths = std::map<std::string, std::map<std::string, std::string>>;

std::string UntriedKey(Paths& paths, const std::string& place) {
  if (place == kClosed) return {};
  for (const char* key : desktop::RemoteKeys()) {
    if (!paths[place].contains(key)) return key;
  }
  return {};
}

/// The first key of the shortest way to a place with a key that was not tried; "" when there is none.
std::string NextKey(Paths& paths, const std::string& from) {
  if (const std::string key = UntriedKey(paths, from); !key.empty()) return key;
  std::deque<std::pair<std::string, std::string>> ways;
  std::set<std::string> seen = {from};
  const auto spread = [&](const std::string& place, const std::string& first) {
    for (const auto& [key, to] : paths[place]) {
      if (seen.insert(to).second) ways.emplace_back(to, first.empty() ? key : first);
    }
  };
  for (spread(from, ""); !ways.empty(); ways.pop_front()) {
    const auto [place, first] = ways.front();
    if (!UntriedKey(paths, place).empty()) return first;
    spread(place, first);
  }
  return {};
}

void ExpectNoErrors(const std::string& where) { EXPECT_EQ(test::TakeGraveToolkitErrors(), Texts()) << where; }

bool IsOnGround(Remote& remote) { return remote.Stack() == Texts{kGround}; }

/// False when there is nothing to open now, or it was but a step on the way to nothing.
bool Open(Remote& remote, const Subject& subject) {
  if (!IsMade(subject)) return false;
  Push(remote, subject);
  ExpectNoErrors(subject.name + " opened");
  return !IsOnGround(remote);
}

/// False when the program has to be started again to go on: a view that hides what it covers leaves no ground.
bool Walk(Remote& remote, const Subject& subject, Paths& paths) {
  // The delay level hides all that lies below it, and what it did not open from stays hidden.
  constexpr const char* kHiding = "hdmi-delay-level";
  std::string at = PlaceNow(remote);
  bool hidden = subject.name == kHiding;
  for (int presses = 0; presses < kMostPresses; ++presses) {
    const std::string key = NextKey(paths, at);
    if (key.empty()) return true;
    remote.Press(key);
    ExpectNoErrors(at + " " + key);
    std::string& to = paths[at][key];
    if (remote.HasExited()) {
      EXPECT_TRUE(test::Logged("[Debug]start _reset_board")) << at << ": only a restart ends the program";
      to = kClosed;
      return false;
    }
    if (IsOnGround(remote)) {
      to = kClosed;
      if (remote.Focus().empty()) {
        EXPECT_TRUE(hidden) << "the screen is empty after " << at << " " << key;
        return false;
      }
      if (!Open(remote, subject)) return true;
      to = PlaceNow(remote);
    } else {
      to = PlaceNow(remote);
      EXPECT_TRUE(test::HasFocus()) << at << " " << key;
    }
    at = to;
    hidden |= at.find(kHiding) != std::string::npos;
  }
  ADD_FAILURE() << "places without end at " << at;
  return true;
}

/// With a box and a spinner, which go both at once.
void Cover(Remote& remote, const std::string& name) {
  const Texts stack = remote.Stack();
  if (std::find(stack.begin(), stack.end(), kCover) != stack.end()) return;
  remote.Post(EVENT_PUSH_VIEW, kCoverID);
  remote.OpenControl("signal-information-bandwidth");
  EXPECT_EQ(remote.Stack().size(), stack.size() + 2) << "above " << name;
  ExpectNoErrors(name + " covered");
  CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 1, 0, nullptr, nullptr);
  remote.Pop();
  ExpectNoErrors(name + " uncovered");
  EXPECT_EQ(remote.Stack(), stack);
  EXPECT_TRUE(test::HasFocus()) << name;
}

void Close(Remote& remote) {
  for (int i = 0; i < 10 && !IsOnGround(remote) && !remote.HasExited(); ++i) remote.Pop();
}

/// Without paths just for a moment. False when it has to be gone on with in another run.
bool Stay(Remote& remote, const Subject& subject, Paths* paths) {
  if (!Open(remote, subject)) return true;
  remote.Wait(kSpeechSeconds);
  if (paths) {
    if (!Walk(remote, subject, *paths)) return false;
  } else {
    for (const char* key : {"Down", "Right", "Up", "Left", "5", "Return"}) {
      if (!IsOnGround(remote)) remote.Press(key);
    }
    ExpectNoErrors(subject.name + " on the way");
  }
  if (remote.HasExited() || (IsOnGround(remote) && (remote.Focus().empty() || !Open(remote, subject)))) return true;
  Cover(remote, subject.name);
  remote.Post(EVENT_REFRESH_VIEW);
  remote.Wait(kSpeechSeconds);
  ExpectNoErrors(subject.name + " refreshed");
  Close(remote);
  ExpectNoErrors(subject.name + " closed");
  EXPECT_TRUE(IsOnGround(remote)) << subject.name;
  return true;
}

/// A view is walked through in one of the rooms, another in the next; in the others it is opened, covered and closed.
/// The steps of one window differ in little more than their words.
TEST(LifeCycle, EveryKeyInEveryPlace) {
  std::set<std::string> all, made, walked;
  std::map<std::string, Paths> paths;
  for (size_t room = 0; room < kRoomCount; ++room) {
    SCOPED_TRACE(NameOf(kRooms[room]));
    Tv tv(kRooms[room].profile);
    Furnish(tv, kRooms[room]);
    // A copy ends when its thread does: no key leads to what comes then.
    tv.Fail("Util::GetServiceDb");
    const std::vector<Subject> subjects = Subjects();
    std::set<std::string> visited;
    for (size_t next = 0; next < subjects.size() && !HasFailure();) {
      test::Run({kGround}, [&](Remote& remote) {
        EXPECT_FALSE(remote.Focus().empty());
        const size_t objects = test::CountObjects();
        for (; next < subjects.size() && !remote.Focus().empty() && !HasFailure(); ++next) {
          const Subject& subject = subjects[next];
          if (subject.window) all.insert(subject.name);
          if (!IsMade(subject)) continue;
          made.insert(subject.name);
          const bool isNew = visited.insert(subject.name).second;
          if (!isNew && room > 0) continue;
          const bool walks = next % kRoomCount <= room && walked.insert(subject.name).second;
          if (Stay(remote, subject, walks ? &paths[subject.name] : nullptr)) {
            const size_t left = remote.HasExited() ? objects : test::CountObjects();
            EXPECT_LE(left, objects) << "once " << subject.name << " had gone";
            continue;
          }
          walked.erase(subject.name);
          visited.erase(subject.name);
          return;
        }
      });
    }
  }
  for (const std::string& name : all) EXPECT_TRUE(made.contains(name)) << name << " was never made";
  for (const std::string& name : made) {
    EXPECT_TRUE(walked.contains(name)) << name << " was never walked through";
    for (const auto& [place, keys] : Paths(paths[name])) {
      EXPECT_EQ(UntriedKey(paths[name], place), "") << "left out, maybe among others, at " << place;
    }
  }
}

// --- the program around a window -----------------------------------------------------------------

/// It shows what is going on, and stays until it is closed.
bool Waits(std::string_view menuID) {
  return menuID == "signal-information" || menuID == "hdmi-information" || menuID == "dynamic-rating";
}

constexpr const char* kTimeOut = "time-out";

const struct {
  const char* name;
  std::function<void(Remote&)> end;
} kEndings[] = {
    {"Back", [](Remote& remote) { remote.Press("Back"); }},
    {"exit event", [](Remote& remote) { remote.Post(EVENT_EXIT_APP); }},
    {"switched off", [](Remote& remote) { remote.End(); }},
    {"focus lost", [](Remote& remote) { remote.TakeFocus(); }},
    {kTimeOut, [](Remote& remote) { remote.Wait(3601); }},
    {"pause and resume",
     [](Remote& remote) {
       remote.Pause();
       remote.Resume();
       EXPECT_FALSE(remote.HasExited());
       EXPECT_EQ(remote.Stack(), Texts{});
       remote.Press("Back");
     }},
    {"launched again",
     [](Remote& remote) {
       const Texts stack = remote.Stack();
       remote.Launch("tv-rating");
       EXPECT_FALSE(remote.HasExited());
       EXPECT_EQ(remote.Stack(), stack);
       remote.Press("Back");
     }},
};

/// Each window ends in some of the ways, and the next in others.
TEST(LifeCycle, EveryWindowEnds) {
  constexpr size_t kWays = 3;
  size_t turn = 0;
  for (const ViewEntry& entry : ViewTable()) {
    if (!entry.make) continue;
    for (size_t way = 0; way < kWays; ++way, ++turn) {
      const auto& ending = kEndings[turn % std::size(kEndings)];
      const Room& room = kRooms[turn % kRoomCount];
      SCOPED_TRACE(std::string(entry.menuID) + ", " + ending.name + ", " + NameOf(room));
      Tv tv(room.profile);
      Furnish(tv, room);
      test::Run({entry.menuID}, [&](Remote& remote) {
        // A window that cannot be opened leaves an empty screen, which ends in the same ways.
        const bool isOpen = CViewManager::GetInstance()->GetCurrentView() != nullptr;
        const bool stays = ending.name == kTimeOut && Waits(entry.menuID) && isOpen;
        ending.end(remote);
        EXPECT_NE(remote.HasExited(), stays);
      });
    }
  }
}

struct Visit {
  const char *profile, *menuID, *keys;
};

/// Whatever fails, a window that has opened can be left.
void Go(const Visit& visit) {
  test::Run({visit.menuID}, [&](Remote& remote) {
    const bool opened = !remote.Stack().empty();
    remote.Press(visit.keys);
    if (!remote.HasExited()) remote.Wait(61);
    EXPECT_TRUE(remote.HasExited() || !opened);
    ExpectNoErrors(visit.menuID);
  });
}

/// Each operation that a visit needs for good, each of its calls once, and all from one on.
TEST(LifeCycle, AnyCallOfAVisitMayFail) {
  for (const Visit& visit :
       {Visit{"europe", "postype-sat-longitude-settings",
              "Return XF86More 0 1 9 2 Up Return Down Return Right Back Right Return"},
        Visit{"europe", "user-defined-transponder",
              "Return Up Return Down Down Return Down Return Down Left Return Back"},
        Visit{"america", "tv-rating", "Return Down Right Return Left Return Back"},
        Visit{"america", "movie-rating", "Return Down Return Right Return"},
        Visit{"america", "dynamic-rating", "Return Up Return Down Down Return Up Return Back Back"},
        Visit{"hdmi", "hdmi-information", "Up Return Up Return Down Return Back Back Back"},
        Visit{"europe", "signal-information", "XF86LowerChannel Left Return Up Return Back Back Back"}}) {
    Tv tv(visit.profile, 40);
    // What comes from the air can be tuned by hand.
    if (std::string_view(visit.profile) == "europe") test::Receive(0);
    Go(visit);
    std::set<std::string> operations;
    for (const test::Call& call : tv.Journal()) {
      if (!desktop::FindOperation(call.operation)->failures.empty()) operations.insert(call.operation);
    }
    EXPECT_GT(operations.size(), 15U) << "so few: is it still the whole visit?";
    for (const std::string& operation : operations) {
      SCOPED_TRACE(std::string(visit.menuID) + " without " + operation);
      tv.Fail(operation);
      Go(visit);
      tv.Heal();
    }
    for (const bool forGood : {false, true}) {
      int n = 0;
      do {
        SCOPED_TRACE(std::string(visit.menuID) + ", call " + std::to_string(++n) + (forGood ? " and all later" : ""));
        desktop::Gate::FailNth(n, forGood);
        Go(visit);
      } while (desktop::Gate::NthReached());
    }
  }
}

/// What was pressed just before the end may still push a view when the screen has gone.
TEST(LifeCycle, EveryWindowComesTooLate) {
  Tv tv("hdmi");
  Furnish(tv, {"hdmi", "ar_AE.utf8", "0", "1"});
  for (const Subject& subject : Subjects()) {
    if (!IsMade(subject)) continue;
    SCOPED_TRACE(subject.name);
    test::Run({kGround}, [&](Remote& remote) {
      CEventManager::GetInstance()->SendEvent(EVENT_EXIT_APP, 0, 0, nullptr, nullptr);
      Push(remote, subject);
      remote.Wait(kSpeechSeconds);
      EXPECT_TRUE(remote.HasExited());
    });
  }
}

}  // namespace
