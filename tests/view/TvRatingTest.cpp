// The grid of ratings: which boxes go with the one that is pressed, where the focus goes, and what failures leave.
#include <array>
#include <bitset>
#include <random>

#include "Gate.h"
#include "Harness.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

const std::string kKeys = "db/menu/broadcasting/program_rating_lock/tv_rating/";
constexpr const char* kRows[] = {"tv_y", "tv_y7", "tv_g", "tv_pg", "tv_14", "tv_ma"};
constexpr int kFirstRowForAll = 2;
/// Bit of the boxes in the first column.
constexpr int kAll = 0x20;
constexpr int kBoxCount = 18;

struct Box {
  const char* name;
  /// It is as many keys down from the first box as its row says, and then so many to the right.
  int row, rights;
  int bit;
};

/// The boxes by their number.
constexpr Box kBoxes[kBoxCount] = {
    {"All, TV-Y", 0, 0, kAll},
    {"All, TV-Y7", 1, 0, kAll},
    {"All, TV-G", 2, 0, kAll},
    {"All, TV-PG", 3, 0, kAll},
    {"All, TV-14", 4, 0, kAll},
    {"All, TV-MA", 5, 0, kAll},
    {"FV, Fantasy violence, TV-Y7", 1, 1, 0x10},
    {"V, Violence, TV-PG", 3, 1, 0x08},
    {"V, Violence, TV-14", 4, 1, 0x08},
    {"V, Violence, TV-MA", 5, 1, 0x08},
    {"S, Sexual situations, TV-PG", 3, 2, 0x04},
    {"S, Sexual situations, TV-14", 4, 2, 0x04},
    {"S, Sexual situations, TV-MA", 5, 2, 0x04},
    {"L, Coarse language, TV-PG", 3, 3, 0x02},
    {"L, Coarse language, TV-14", 4, 3, 0x02},
    {"L, Coarse language, TV-MA", 5, 3, 0x02},
    {"D, Suggestive dialogue, TV-PG", 3, 4, 0x01},
    {"D, Suggestive dialogue, TV-14", 4, 4, 0x01},
};

int BoxNamed(const std::string& name) {
  for (int i = 0; i < kBoxCount; ++i) {
    if (name == kBoxes[i].name) return i;
  }
  throw std::runtime_error("no box '" + name + "'");
}

using Boxes = std::bitset<kBoxCount>;

const Boxes kEmpty, kLocked = Boxes().set();

/// The boxes after one was pressed: a lock goes on to the stricter ratings, a release to the milder ones, of children's
/// programmes or of the others. The first column takes whole rows along, and is released with any box of its rows.
Boxes Pressed(Boxes boxes, int index) {
  const Box& pressed = kBoxes[index];
  const bool on = !boxes[index];
  for (int i = 0; i < kBoxCount; ++i) {
    const Box& box = kBoxes[i];
    const bool sameKind = (box.row < kFirstRowForAll) == (pressed.row < kFirstRowForAll);
    const bool reached = on ? box.row >= pressed.row : box.row <= pressed.row;
    const bool follows = pressed.bit == kAll || box.bit == pressed.bit || (!on && box.bit == kAll);
    if (sameKind && reached && follows) boxes[i] = on;
  }
  return boxes;
}

std::array<int, 6> KeysOf(const Boxes& boxes) {
  std::array<int, 6> keys{};
  for (int i = 0; i < kBoxCount; ++i) keys[kBoxes[i].row] |= boxes[i] ? kBoxes[i].bit : 0;
  return keys;
}

std::string Text(const Boxes& boxes, const std::array<int, 6>& keys) {
  std::string text;
  for (int i = 0; i < kBoxCount; ++i) text += boxes[i] ? std::string(kBoxes[i].name) + "; " : "";
  for (const int key : keys) text += " " + std::to_string(key);
  return text;
}

std::string Text(const Boxes& boxes) { return Text(boxes, KeysOf(boxes)); }

void SetKeys(Tv& tv, const Boxes& boxes) {
  for (int row = 0; row < 6; ++row) tv.Set(kKeys + kRows[row], std::to_string(KeysOf(boxes)[row]));
}

/// The boxes on the screen, and the keys in the store.
std::string Look(Tv& tv, Remote& remote) {
  Boxes boxes;
  std::array<int, 6> keys{};
  const Json::Value screen = remote.Screen();
  for (const Json::Value& check : screen["checks"]) boxes[BoxNamed(check["name"].asString())] = check["on"].asBool();
  for (int row = 0; row < 6; ++row) keys[row] = tv.GetInt(kKeys + kRows[row]);
  return Text(boxes, keys);
}

/// From the first box to another one.
void GoTo(Remote& remote, int index) {
  remote.Press(test::Times("Down", kBoxes[index].row) + test::Times("Right", kBoxes[index].rights));
  ASSERT_EQ(remote.Focus(), kBoxes[index].name);
}

// --- the cascade ---------------------------------------------------------------------------------

TEST(TvRating, EachBoxTurnsTheOthersWithItAndAllAreThereAtTheNextOpening) {
  Tv tv;
  Boxes turnedOn, turnedOff;
  std::mt19937 random(20);
  for (const Boxes& start : {kEmpty, kLocked}) {
    Boxes expected = start;
    SetKeys(tv, start);
    for (int round = 0; round < 2; ++round) {
      test::Run({"tv-rating"}, [&](Remote& remote) {
        ASSERT_EQ(Look(tv, remote), Text(expected));
        for (int step = 0; step < 80; ++step) {
          constexpr const char* arrows[] = {"Up", "Down", "Left", "Right"};
          remote.Press(arrows[random() % 4]);
          if (remote.Focus() == "Close") remote.Press("Up");
          const int index = BoxNamed(remote.Focus());
          (expected[index] ? turnedOff : turnedOn)[index] = true;
          const std::string before = Text(expected);
          expected = Pressed(expected, index);
          remote.Press("Return");
          ASSERT_EQ(Look(tv, remote), Text(expected)) << kBoxes[index].name << " after " << before;
        }
      });
    }
  }
  EXPECT_TRUE(turnedOn.all() && turnedOff.all()) << turnedOn << " " << turnedOff;
}

// --- keys and the focus --------------------------------------------------------------------------

TEST(TvRating, TheFocusGoesRoundARowAndDownToTheButton) {
  struct Way {
    int from;
    std::string keys, to;
  };
  std::vector<Way> ways;
  constexpr int kLasts[] = {0, 6, 2, 16, 17, 15}, kLowest[] = {5, 6, 9, 12, 15, 17};
  for (int row = 0; row < 6; ++row) {
    ways.push_back({row, "Left", kBoxes[kLasts[row]].name});
    ways.push_back({kLasts[row], "Right", kBoxes[row].name});
  }
  for (const int box : kLowest) {
    ways.push_back({box, "Down", "Close"});
    ways.push_back({box, "Down Left Right Up", "V, Violence, TV-MA"});
  }
  Tv tv;
  for (const Way& way : ways) {
    test::Run({"tv-rating"}, [&](Remote& remote) {
      GoTo(remote, way.from);
      remote.Press(way.keys);
      EXPECT_EQ(remote.Focus(), way.to) << kBoxes[way.from].name << " " << way.keys;
    });
  }
}

TEST(TvRating, KeysSoundAndOnlyReturnToggles) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    tv.ClearJournal();
    remote.Press("1 XF86Red Down");
    EXPECT_EQ(Look(tv, remote), Text(kEmpty));
    EXPECT_EQ(tv.ArgumentsOf("feedback_play"), Texts());
    remote.Press("Return");
    EXPECT_EQ(tv.ArgumentsOf("feedback_play"), Texts{"69"});
    remote.Press("Down Down Down Down Down");
    ASSERT_EQ(remote.Focus(), "Close");
    EXPECT_EQ(tv.ArgumentsOf("feedback_play"), (Texts{"69", "65"}));
    remote.ExpectExit("Return");
  });
}

// --- failures ------------------------------------------------------------------------------------

TEST(TvRating, AFailingFirstWritePutsTheBoxBack) {
  for (const char* operation : {"vconf_set_int", "vconf_get_int"}) {
    for (const Boxes& start : {kEmpty, kLocked}) {
      Tv tv;
      SetKeys(tv, start);
      for (const int index : {2, 9}) {
        SCOPED_TRACE(std::string(operation) + " " + kBoxes[index].name);
        test::Run({"tv-rating"}, [&](Remote& remote) {
          GoTo(remote, index);
          tv.Fail(operation);
          remote.Press("Return");
          EXPECT_EQ(Look(tv, remote), Text(start));
          tv.Heal();
          remote.Press("Return");
          EXPECT_EQ(Look(tv, remote), Text(Pressed(start, index)));
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
  for (const auto& [index, unwritten] : {std::pair(7, 4), {2, 3}}) {
    Tv tv;
    test::Run({"tv-rating"}, [&, index = index, unwritten = unwritten](Remote& remote) {
      GoTo(remote, index);
      FailSecondWrite();
      remote.Press("Return");
      ASSERT_TRUE(desktop::Gate::NthReached());
      const Boxes expected = Pressed(kEmpty, index);
      std::array<int, 6> keys = KeysOf(expected);
      keys[unwritten] = 0;
      EXPECT_EQ(Look(tv, remote), Text(expected, keys));
    });
  }
}

TEST(TvRating, AnUnreadableKeyReadsAsUnlockedAndIsRewritten) {
  for (int row = 0; row < 6; ++row) {
    Tv tv;
    SetKeys(tv, kLocked);
    tv.Remove(kKeys + kRows[row]);
    test::Run({"tv-rating"}, [&](Remote& remote) {
      Boxes expected;
      for (int i = 0; i < kBoxCount; ++i) expected[i] = kBoxes[i].row != row;
      EXPECT_EQ(Look(tv, remote), Text(expected));
    });
  }
  Tv tv;
  tv.Fail("vconf_get_int");
  tv.Fail("vconf_set_int");
  test::Run({"tv-rating"}, [](Remote&) {});
  for (const char* row : kRows) EXPECT_TRUE(test::Logged("[Info]resetting " + kKeys + row + " failed")) << row;
}

}  // namespace
