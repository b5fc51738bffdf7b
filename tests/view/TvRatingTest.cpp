#include <array>
#include <bitset>
#include <map>
#include <optional>
#include <random>
#include <sstream>

#include "Gate.h"
#include "Harness.h"

using test::Remote;
using test::Tv;

namespace {

const std::string kKeys = "db/menu/broadcasting/program_rating_lock/tv_rating/";
constexpr const char* kRows[] = {"tv_y", "tv_y7", "tv_g", "tv_pg", "tv_14", "tv_ma"};
/// What a fully locked row holds.
constexpr int kMasks[] = {0x20, 0x30, 0x20, 0x2F, 0x2F, 0x2E};
constexpr int kBoxCount = 18;

struct Box {
  const char* name;
  int row, bit;
  /// Keys that lead to it from the first box.
  int downs, rights;
};

/// The boxes by their number.
constexpr Box kBoxes[kBoxCount] = {
    {"All, TV-Y", 0, 0x20, 0, 0},  {"All, TV-Y7", 1, 0x20, 1, 0}, {"All, TV-G", 2, 0x20, 2, 0},
    {"All, TV-PG", 3, 0x20, 3, 0}, {"All, TV-14", 4, 0x20, 4, 0}, {"All, TV-MA", 5, 0x20, 5, 0},
    {"FV, TV-Y7", 1, 0x10, 1, 1},  {"V, TV-PG", 3, 0x08, 3, 1},   {"V, TV-14", 4, 0x08, 4, 1},
    {"V, TV-MA", 5, 0x08, 5, 1},   {"S, TV-PG", 3, 0x04, 3, 2},   {"S, TV-14", 4, 0x04, 4, 2},
    {"S, TV-MA", 5, 0x04, 5, 2},   {"L, TV-PG", 3, 0x02, 3, 3},   {"L, TV-14", 4, 0x02, 4, 3},
    {"L, TV-MA", 5, 0x02, 5, 3},   {"D, TV-PG", 3, 0x01, 3, 4},   {"D, TV-14", 4, 0x01, 4, 4},
};

bool IsBox(const std::string& name) {
  return std::any_of(std::begin(kBoxes), std::end(kBoxes), [&](const Box& box) { return name == box.name; });
}

int BoxNamed(const std::string& name) {
  for (int i = 0; i < kBoxCount; ++i) {
    if (name == kBoxes[i].name) return i;
  }
  throw std::runtime_error("no box '" + name + "'");
}

/// What follows a box, as a person would say it: which boxes change with it, and which whole rows are written.
/// Boxes without rows write their own bits.
struct Follows {
  const char* onBoxes;
  const char* onRows;
  const char* offBoxes;
  const char* offRows;
};

constexpr Follows kFollows[kBoxCount] = {
    /* TV-Y All  */ {"1 6", "0 1", "", "0"},
    /* TV-Y7 All */ {"6", "1", "6 1 0", "1 0"},
    /* TV-G All  */ {"3 4 5 7 8 9 10 11 12 13 14 15 16 17", "2 3 4 5", "", "2"},
    /* TV-PG All */ {"4 5 7 8 9 10 11 12 13 14 15 16 17", "3 4 5", "2 7 10 13 16", "3 2"},
    /* TV-14 All */ {"5 8 11 14 17 9 12 15", "4 5", "2 3 7 10 13 16 8 11 14 17", "4 2 3"},
    /* TV-MA All */ {"9 12 15", "5", "2 3 4 7 10 13 16 8 11 14 17 5 9 12 15", "5 2 3 4"},
    /* TV-Y7 FV  */ {"", "", "1 0", ""},
    /* TV-PG V   */ {"8 9", "", "2 3", ""},
    /* TV-14 V   */ {"9", "", "2 3 4 7", ""},
    /* TV-MA V   */ {"", "", "2 3 4 5 8 7", ""},
    /* TV-PG S   */ {"11 12", "", "3 2", ""},
    /* TV-14 S   */ {"12", "", "10 2 3 4", ""},
    /* TV-MA S   */ {"", "", "11 10 2 3 4 5", ""},
    /* TV-PG L   */ {"14 15", "", "2 3", ""},
    /* TV-14 L   */ {"15", "", "13 2 3 4", ""},
    /* TV-MA L   */ {"", "", "14 13 2 3 4 5", ""},
    /* TV-PG D   */ {"17", "", "2 3", ""},
    /* TV-14 D   */ {"", "", "16 2 3 4", ""},
};

std::vector<int> Numbers(const char* text) {
  std::istringstream stream(text);
  return {std::istream_iterator<int>(stream), {}};
}

/// The grid and the store beside it.
struct Grid {
  std::bitset<kBoxCount> boxes;
  std::array<int, 6> keys{};

  void Store(int row, int bits, bool on) { keys[row] = on ? keys[row] | bits : keys[row] & ~bits; }

  void Toggle(int index) {
    const bool on = !boxes[index];
    const Follows& follows = kFollows[index];
    const std::vector<int> changed = Numbers(on ? follows.onBoxes : follows.offBoxes);
    const std::vector<int> rows = Numbers(on ? follows.onRows : follows.offRows);
    boxes[index] = on;
    if (rows.empty()) Store(kBoxes[index].row, kBoxes[index].bit, on);
    for (const int box : changed) {
      boxes[box] = on;
      if (rows.empty()) Store(kBoxes[box].row, kBoxes[box].bit, on);
    }
    for (const int row : rows) Store(row, kMasks[row], on);
  }

  std::string Text() const {
    std::string text;
    for (int i = 0; i < kBoxCount; ++i) text += boxes[i] ? std::string(kBoxes[i].name) + "; " : "";
    for (const int key : keys) text += " " + std::to_string(key);
    return text;
  }
};

const Grid kEmpty;
const Grid kLocked = {std::bitset<kBoxCount>().set(), std::to_array(kMasks)};

void SetKeys(Tv& tv, const Grid& grid) {
  for (int row = 0; row < 6; ++row) tv.Set(kKeys + kRows[row], std::to_string(grid.keys[row]));
}

Grid Look(Tv& tv, Remote& remote) {
  Grid grid;
  const Json::Value screen = remote.Screen();
  for (const Json::Value& check : screen["checks"]) {
    grid.boxes[BoxNamed(check["name"].asString())] = check["on"].asBool();
  }
  for (int row = 0; row < 6; ++row) grid.keys[row] = tv.GetInt(kKeys + kRows[row]);
  return grid;
}

std::string Times(const char* key, int times) {
  std::string keys;
  while (times-- > 0) keys += std::string(key) + " ";
  return keys;
}

/// From the first box to another one.
void GoTo(Remote& remote, int index) {
  remote.Press(Times("Down", kBoxes[index].downs) + Times("Right", kBoxes[index].rights));
  ASSERT_EQ(remote.Focus(), kBoxes[index].name);
}

// --- the cascade ---------------------------------------------------------------------------------

TEST(TvRating, EachBoxTurnsTheOthersWithIt) {
  Tv tv;
  for (const Grid& start : {kEmpty, kLocked}) {
    for (int index = 0; index < kBoxCount; ++index) {
      SCOPED_TRACE(std::string(kBoxes[index].name) + (start.boxes.none() ? " on" : " off"));
      SetKeys(tv, start);
      Grid expected = start;
      expected.Toggle(index);
      test::Run({"tv-rating"}, [&](Remote& remote) {
        EXPECT_EQ(Look(tv, remote).Text(), start.Text());
        GoTo(remote, index);
        remote.Press("Return");
        EXPECT_EQ(Look(tv, remote).Text(), expected.Text());
        remote.Press("Return");
        expected.Toggle(index);
        EXPECT_EQ(Look(tv, remote).Text(), expected.Text());
      });
    }
  }
}

TEST(TvRating, CascadesAddUpAndAreThereAtTheNextOpening) {
  Tv tv;
  Grid expected;
  std::mt19937 random(20);
  std::bitset<kBoxCount> pressed;
  for (int round = 0; round < 3; ++round) {
    test::Run({"tv-rating"}, [&](Remote& remote) {
      ASSERT_EQ(Look(tv, remote).Text(), expected.Text());
      for (int step = 0; step < 80; ++step) {
        constexpr const char* arrows[] = {"Up", "Down", "Left", "Right"};
        remote.Press(arrows[random() % 4]);
        if (remote.Focus() == "Close") remote.Press("Up");
        const int index = BoxNamed(remote.Focus());
        pressed[index] = true;
        const std::string before = expected.Text();
        expected.Toggle(index);
        remote.Press("Return");
        ASSERT_EQ(Look(tv, remote).Text(), expected.Text()) << kBoxes[index].name << " after " << before;
      }
    });
  }
  EXPECT_TRUE(pressed.all()) << pressed;
}

// --- keys and the focus --------------------------------------------------------------------------

struct Path {
  int from;
  const char* keys;
  /// -1 for the button.
  int to;
};

constexpr Path kPaths[] = {
    {5, "Down", -1},  {6, "Down", -1},   {9, "Down", -1},    {12, "Down", -1},     {15, "Down", -1},
    {17, "Down", -1}, {5, "Down Up", 9}, {17, "Down Up", 9}, {9, "Down Left", -1}, {9, "Down Right", -1},
    {0, "Left", 0},   {0, "Right", 0},   {2, "Left", 2},     {2, "Right", 2},      {6, "Right", 1},
    {1, "Left", 6},   {16, "Right", 3},  {3, "Left", 16},    {17, "Right", 4},     {4, "Left", 17},
    {15, "Right", 5}, {5, "Left", 15},   {3, "Right", 7},    {4, "Right", 8},      {5, "Right", 9},
    {7, "Left", 3},   {8, "Left", 4},    {9, "Left", 5},
};

TEST(TvRating, TheFocusTakesTheseWays) {
  Tv tv;
  for (const Path& path : kPaths) {
    test::Run({"tv-rating"}, [&](Remote& remote) {
      GoTo(remote, path.from);
      remote.Press(path.keys);
      EXPECT_EQ(remote.Focus(), path.to < 0 ? "Close" : kBoxes[path.to].name)
          << kBoxes[path.from].name << " " << path.keys;
    });
  }
}

TEST(TvRating, NoArrowLosesTheFocus) {
  Tv tv;
  for (int index = 0; index <= kBoxCount; ++index) {
    for (const char* arrow : {"Up", "Down", "Left", "Right"}) {
      test::Run({"tv-rating"}, [&](Remote& remote) {
        GoTo(remote, index % kBoxCount);
        if (index == kBoxCount) remote.Press("Down Down Down Down Down Down");
        const std::string from = remote.Focus();
        remote.Press(arrow);
        const std::string to = remote.Focus();
        EXPECT_TRUE(to == "Close" || IsBox(to)) << from << " " << arrow << " leads to '" << to << "'";
      });
    }
  }
}

TEST(TvRating, KeysSoundAndOnlyReturnToggles) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    tv.ClearJournal();
    remote.Press("1 XF86Red Down");
    EXPECT_EQ(Look(tv, remote).Text(), kEmpty.Text());
    EXPECT_TRUE(tv.Journal("feedback_play").empty());
    remote.Press("Return");
    ASSERT_EQ(tv.Journal("feedback_play").size(), 1U);
    EXPECT_EQ(tv.Journal("feedback_play")[0].arguments, "69");
    remote.Press("Down Down Down Down Down");
    ASSERT_EQ(remote.Focus(), "Close");
    EXPECT_EQ(tv.Journal("feedback_play").back().arguments, "65");
    remote.Press("Return");
    EXPECT_TRUE(remote.HasExited());
  });
  for (const char* line : {"[Info] TV-Y7_All turned 1", "[Info]t_ProcessDefaultButtonOneFocusCallBack called"}) {
    EXPECT_TRUE(test::Logged(line)) << line;
  }
}

// --- failures ------------------------------------------------------------------------------------

TEST(TvRating, AFailingFirstWritePutsTheBoxBack) {
  for (const char* operation : {"vconf_set_int", "vconf_get_int"}) {
    for (const Grid& start : {kEmpty, kLocked}) {
      Tv tv;
      SetKeys(tv, start);
      for (const int index : {2, 9}) {
        SCOPED_TRACE(std::string(operation) + " " + kBoxes[index].name);
        test::Run({"tv-rating"}, [&](Remote& remote) {
          GoTo(remote, index);
          tv.Fail(operation);
          remote.Press("Return");
          EXPECT_EQ(Look(tv, remote).Text(), start.Text());
          tv.Heal();
          Grid expected = start;
          expected.Toggle(index);
          remote.Press("Return");
          EXPECT_EQ(Look(tv, remote).Text(), expected.Text());
        });
        SetKeys(tv, start);
      }
    }
  }
}

/// Fails the write behind the first one of a key press.
void FailSecondWrite() {
  desktop::Gate::Watch([](const desktop::Operation& operation, const desktop::Entry&, const std::string&) {
    if (std::string(operation.name) != "vconf_set_int") return;
    desktop::Gate::Watch(nullptr);
    desktop::Gate::FailNth(2, false);  // the read, then the write
  });
}

TEST(TvRating, AFailureInsideACascadeLeavesTheBoxChangedAndItsBitNot) {
  struct Case {
    int index, row, kept;
  };
  for (const Case& c : {Case{7, 4, 0}, Case{2, 3, 0}}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      GoTo(remote, c.index);
      FailSecondWrite();
      remote.Press("Return");
      ASSERT_TRUE(desktop::Gate::NthReached());
      Grid expected;
      expected.Toggle(c.index);
      expected.keys[c.row] = c.kept;
      EXPECT_EQ(Look(tv, remote).Text(), expected.Text());
    });
  }
}

TEST(TvRating, AnUnreadableKeyReadsAsUnlockedAndIsRewritten) {
  for (int row = 0; row < 6; ++row) {
    Tv tv;
    SetKeys(tv, kLocked);
    tv.Remove(kKeys + kRows[row]);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      Grid expected = kLocked;
      expected.keys[row] = 0;
      for (int i = 0; i < kBoxCount; ++i) expected.boxes[i] = kBoxes[i].row != row;
      EXPECT_EQ(Look(tv, remote).Text(), expected.Text());
    });
  }
}

TEST(TvRating, SaysWhichKeyCannotBeReset) {
  Tv tv;
  SetKeys(tv, kLocked);
  tv.Fail("vconf_get_int");
  tv.Fail("vconf_set_int");
  test::Run({"tv-rating"}, [&](Remote& remote) {
    EXPECT_TRUE(Look(tv, remote).boxes.none());
    for (const char* row : kRows) EXPECT_TRUE(test::Logged("[Info]resetting " + kKeys + row + " failed")) << row;
  });
  EXPECT_EQ(tv.GetInt(kKeys + "tv_14"), 0x2F);
}

/// One whole visit with its n-th platform call failing; false when it has no n-th call.
bool VisitWithFailure(Tv& tv, int n, bool forGood) {
  SCOPED_TRACE("call " + std::to_string(n) + (forGood ? " for good" : " once"));
  desktop::Gate::FailNth(n, forGood);
  test::Run({"tv-rating"}, [&](Remote& remote) {
    remote.Press("Return Down Right Return Left Return Back");
    // A window that was never made takes no key: the time-out, or whoever launched, ends such a run.
    if (!remote.HasExited()) remote.Wait(61);
  });
  const bool reached = desktop::Gate::NthReached();
  desktop::Gate::FailNth(0, false);
  for (const char* row : kRows) {
    const int value = tv.GetInt(kKeys + row);
    EXPECT_EQ(value & ~0x3F, 0) << row;
  }
  return reached;
}

TEST(TvRating, EveryCallOfAVisitMayFail) {
  Tv tv;
  for (const bool forGood : {false, true}) {
    int n = 1;
    while (VisitWithFailure(tv, n, forGood)) ++n;
    EXPECT_GT(n, 40) << "so few calls: is the sweep still of the whole visit?";
  }
}

// --- what is read out and shown ------------------------------------------------------------------

TEST(TvRating, ShowsTitleHeadsAndTheButton) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    const Json::Value screen = remote.Screen();
    EXPECT_EQ(screen["title"].asString(), "TV rating");
    EXPECT_EQ(screen["focus"].asString(), "All, TV-Y");
    EXPECT_EQ(screen["buttons"].size(), 1U);
    const std::vector<std::string> expected = {"TV rating", "All",   "FV",   "V",     "S",     "L",     "D",
                                               "TV-Y",      "TV-Y7", "TV-G", "TV-PG", "TV-14", "TV-MA", "Close"};
    EXPECT_EQ(remote.Texts(), expected);
  });
}

}  // namespace
