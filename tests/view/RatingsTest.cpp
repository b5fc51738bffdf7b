// The rating systems in a list: what a lock takes along, where it is stored, and what failures leave.
#include <algorithm>
#include <random>

#include "Gate.h"
#include "Harness.h"
#include "RatingTable.h"

using desktop::OnAir;
using desktop::RatingDimension;
using desktop::RatingSystem;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

using Locks = std::vector<bool>;

Locks LocksOnScreen(Remote& remote) {
  Locks locks;
  const Json::Value screen = remote.Screen();
  for (const Json::Value& row : screen["rows"]) locks.push_back(row["on"].asBool());
  return locks;
}

/// In a window whose rows are all seen.
void PressRow(Remote& remote, int row) {
  const Texts rows = remote.RowTexts();
  const auto at = std::find(rows.begin(), rows.end(), remote.Focus()) - rows.begin();
  remote.Press(test::Times(at < row ? "Down" : "Up", std::abs(static_cast<int>(at) - row)) + "Return");
  ASSERT_EQ(remote.Focus(), rows[row]);
}

// --- the graded systems --------------------------------------------------------------------------

const std::string kKeys = "db/menu/broadcasting/program_rating_lock/";
const std::string kNotRatedKey = kKeys + "movie_rating_nr";

struct Graded {
  const char *menuID, *key;
  Texts names;
  /// A row after the graded ones that goes its own way.
  bool apart = false;

  int Count() const { return static_cast<int>(names.size()) - apart; }
};

const Graded kGraded[] = {
    {"movie-rating", "movie_rating", {"G", "PG", "PG-13", "R", "NC-17", "X", "NR"}, true},
    {"canadian-english-rating", "canadian_english_rating", {"C", "C8+", "G", "PG", "14+", "18+"}},
    {"canadian-french-rating", "canadian_french_rating", {"G", "8 ans+", "13 ans+", "16 ans+", "18 ans+"}},
};

/// Where the strictness begins that is locked; as many as there are ratings for none.
int Pressed(int from, int row) { return row < from ? row : row + 1; }

/// The row that leads from one state to another.
int Way(int from, int to) { return to < from ? to : to - 1; }

/// "" for a key that is not there.
std::string Stored(const std::string& key) { return test::Ask("SELECT value FROM setting WHERE key = ?", key); }

/// Rows and keys are what they are to be, locked from this rating on.
void ExpectLevel(Tv& tv, Remote& remote, const Graded& system, int from, bool apart) {
  Locks locks(system.Count());
  for (int i = from; i < system.Count(); ++i) locks[i] = true;
  if (system.apart) locks.push_back(apart);
  EXPECT_EQ(LocksOnScreen(remote), locks) << "from " << from;
  EXPECT_EQ(tv.GetInt(kKeys + system.key), from < system.Count() ? from + 1 : 0);
  EXPECT_TRUE(!system.apart || (tv.GetInt(kNotRatedKey) & 0xFF) == apart);
}

TEST(GradedRating, EachRowTakesTheStricterOrTheMilderAlongFromEveryLevel) {
  for (const Graded& system : kGraded) {
    Tv tv;
    for (int from = 0; from <= system.Count(); ++from) {
      SCOPED_TRACE(testing::Message() << system.menuID << " locked from " << from);
      tv.Set(kKeys + system.key, std::to_string(from < system.Count() ? from + 1 : 0));
      // The lowest byte alone counts.
      const bool apart = from % 2;
      tv.Set(kNotRatedKey, apart ? "257" : "256");
      test::Run({system.menuID}, [&](Remote& remote) {
        ASSERT_EQ(remote.RowTexts(), system.names);
        ExpectLevel(tv, remote, system, from, apart);
        for (int row = 0; row < system.Count(); ++row) {
          PressRow(remote, row);
          ExpectLevel(tv, remote, system, Pressed(from, row), apart);
          PressRow(remote, Way(Pressed(from, row), from));
          ExpectLevel(tv, remote, system, from, apart);
        }
        if (!system.apart) return;
        PressRow(remote, system.Count());
        ExpectLevel(tv, remote, system, from, !apart);
        PressRow(remote, system.Count());
        ExpectLevel(tv, remote, system, from, apart);
      });
    }
  }
}

TEST(GradedRating, AnUnreadableKeyReadsAsUnlockedAndIsRewritten) {
  for (const Graded& system : kGraded) {
    for (const bool writes : {true, false}) {
      Tv tv;
      tv.Remove(kKeys + system.key);
      tv.Remove(kNotRatedKey);
      if (!writes) tv.Fail("vconf_set_int");
      test::Run({system.menuID}, [&](Remote& remote) {
        EXPECT_EQ(LocksOnScreen(remote), Locks(system.names.size()));
        EXPECT_EQ(Stored(kKeys + system.key), writes ? "0" : "");
        EXPECT_EQ(Stored(kNotRatedKey), system.apart && writes ? "0" : "");
      });
      EXPECT_EQ(test::Logged("[Info]resetting " + kKeys + system.key + " failed"), !writes);
    }
  }
}

TEST(GradedRating, AFailingWriteLeavesTheKeyBehindTheListUntilTheNextOpening) {
  for (const Graded& system : kGraded) {
    Tv tv;
    test::Run({system.menuID}, [&](Remote& remote) {
      tv.Fail("vconf_set_int");
      PressRow(remote, 2);
      if (system.apart) PressRow(remote, system.Count());
      const Locks locks = LocksOnScreen(remote);
      EXPECT_EQ(std::count(locks.begin() + 2, locks.end(), false), 0);
      tv.Heal();
    });
    test::Run({system.menuID}, [&](Remote& remote) { ExpectLevel(tv, remote, system, system.Count(), false); });
  }
}

TEST(GradedRating, SaysWhatAPressHasDone) {
  Tv tv;
  tv.TurnVoiceOn();
  tv.Set(kKeys + "canadian_french_rating", "4");
  test::Run({"canadian-french-rating"}, [&](Remote& remote) {
    remote.ExpectSaid("Down Return", "8 ans+, Locked");
    remote.ExpectSaid("Down", "13 ans+, Locked, 3 of 5");
    remote.ExpectSaid("Down Return", "16 ans+, Unlocked");
    remote.ExpectSaid("Up", "13 ans+, Unlocked, 3 of 5");
  });
}

// --- the system of the broadcast -----------------------------------------------------------------

constexpr ERRTRegion kRegion = RRT_REGION_DOWNLOADABLE;
constexpr const char* kMenuID = "dynamic-rating";

RatingDimension Dimension(const char* name, const Texts& values) {
  RatingDimension dimension{name ? desktop::RatingName(OnAir(name)) : std::nullopt, {}};
  for (const std::string& value : values) dimension.values.push_back({OnAir(value)});
  return dimension;
}

Texts Values(int count) {
  Texts values;
  for (int i = 0; i < count; ++i) values.push_back("V" + std::to_string(i));
  return values;
}

/// On air from now on.
void Put(const std::vector<RatingDimension>& dimensions) {
  desktop::WriteRatingSystem(kRegion, {OnAir("A & <b>Region</b>"), dimensions});
}

Locks LocksOfTv(int dimension) {
  Locks locks;
  for (int i = 0;; ++i) {
    const auto lock = desktop::RatingLock(kRegion, dimension, i);
    if (!lock) return locks;
    locks.push_back(*lock);
  }
}

void LockAll(int dimension) {
  for (int i = 0; desktop::SetRatingLock(kRegion, dimension, i, true); ++i) continue;
}

TEST(DynamicRating, StepsThroughTheDimensionsPastBothEnds) {
  Tv tv;
  RatingDimension unnamed = Dimension(nullptr, {"0", "", "<i>2</i>"});
  unnamed.values.push_back({std::nullopt});
  Put({Dimension("Age", {"0", "6", "12"}), Dimension("One", {"0"}), Dimension("None", {}), unnamed});
  const std::vector<std::pair<std::string, Texts>> dimensions = {
      {"Age", {"All", "6", "12"}},
      {"One", {"All"}},
      {"Dimension 2", {}},
      {"Dimension 3", {"All", "Rating 1", "<i>2</i>", "Rating 3"}},
  };
  test::Run({kMenuID}, [&](Remote& remote) {
    EXPECT_TRUE(remote.Shows("A & <b>Region</b>"));
    remote.Press("Return");
    int at = 0;
    for (const int step : {-1, 1, 1, 1, 1, -1, -1, -1, -1}) {
      remote.Press(step > 0 ? "Up" : "Down");
      at = std::clamp(at + step, 0, 3);
      EXPECT_EQ(remote.Focus(), dimensions[at].first);
      EXPECT_EQ(remote.RowTexts(), dimensions[at].second);
    }
    // Nowhere to go in a dimension without ratings.
    remote.ExpectFocus("Up Up Return Down", "Dimension 2");
  });
}

/// A frame with arrows lies around the plate with the name, on the panel.
bool IsStepping(Remote& remote, const std::string& dimension) {
  const test::Place name = remote.PlaceOf(dimension);
  return remote.ColourAt(name.x, name.y + name.h / 2 - 54) != remote.ColourAt(name.x, 1060);
}

TEST(DynamicRating, KeysEnterAndLeaveTheSpinner) {
  const struct {
    const char *language, *keys, *focus;
    bool stepping = false;
  } cases[] = {
      {"en_US.utf8", "", "Age"},
      {"en_US.utf8", "Return", "Age", true},
      {"en_US.utf8", "Return Left Right 5 Up", "Kind", true},
      {"en_US.utf8", "Return Up Return Up", "Kind"},
      {"en_US.utf8", "Return BackSpace Down", "All"},
      {"en_US.utf8", "Down Down Up Up", "Age"},
      {"en_US.utf8", "Right Left", "Age"},
      {"en_US.utf8", "Down Down Right", "Close"},
      {"en_US.utf8", "Return Back Down Back", ""},
      {"en_US.utf8", "Right Return", ""},
      {"ar_AE.utf8", "Left Right", "Age"},
  };
  Tv tv;
  Put({Dimension("Age", {"0", "6", "12"}), Dimension("Kind", {"0", "1"})});
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.language) + " " + each.keys);
    tv.SetLanguage(each.language);
    test::Run({kMenuID}, [&](Remote& remote) {
      remote.Press(each.keys);
      ASSERT_EQ(remote.HasExited(), !*each.focus);
      if (remote.HasExited()) return;
      EXPECT_EQ(remote.Focus(), each.focus);
      EXPECT_EQ(IsStepping(remote, remote.Shows("Age") ? "Age" : "Kind"), each.stepping);
    });
  }
}

/// A row pressed: that of all takes every value along; the lock of the first value is whether a change of another has
/// locked them all.
void Press(Locks& rows, Locks& tv, int row) {
  const bool lock = rows[row] = !rows[row];
  for (size_t i = 1; i < rows.size(); ++i) {
    if (row == 0 || row == static_cast<int>(i)) rows[i] = tv[i] = lock;
  }
  if (row != 0) rows[0] = tv[0] = std::count(rows.begin() + 1, rows.end(), false) == 0;
}

TEST(DynamicRating, AllGoesWithItsValuesAndTheyWithIt) {
  Tv tv;
  Put({Dimension("Kind", {"0", "1"}), Dimension("Age", {"0", "6", "12", "18"}), Dimension("One", {"0"})});
  for (int dimension = 0; dimension < 3; ++dimension) {
    std::mt19937 random(20);
    Locks locks = LocksOfTv(dimension), rows = locks;
    for (int round = 0; round < 2; ++round) {
      test::Run({kMenuID}, [&](Remote& remote) {
        remote.Press("Return " + test::Times("Up", dimension) + "Return Down");
        if (rows.size() == 1) rows[0] = false;
        ASSERT_EQ(LocksOnScreen(remote), rows);
        for (int press = 0; press < 24; ++press) {
          const int row = static_cast<int>(random() % rows.size());
          PressRow(remote, row);
          Press(rows, locks, row);
          ASSERT_EQ(LocksOnScreen(remote), rows) << "row " << row;
          ASSERT_EQ(LocksOfTv(dimension), locks) << "row " << row;
        }
      });
    }
  }
}

TEST(DynamicRating, EveryValueIsReachedHoweverManyThereAre) {
  for (const int count : {2, 26, 27, 255}) {
    Tv tv;
    Put({Dimension("Many", Values(count))});
    test::Run({kMenuID}, [&](Remote& remote) {
      remote.ExpectFocus(test::Times("Down", count), "V" + std::to_string(count - 1));
      remote.Press("Return");
      Locks locks(count);
      locks.back() = true;
      locks.front() = count == 2;
      EXPECT_EQ(LocksOfTv(0), locks);
      remote.ExpectFocus(test::Times("Up", count - 1) + "Return", "All");
      std::fill(locks.begin() + 1, locks.end(), count > 2);
      EXPECT_EQ(LocksOfTv(0), locks);
    });
  }
}

/// Opens the window as often as there are calls, each of which fails once.
void ForEachCall(const std::string& keys, const std::function<void(Remote&)>& body) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE(testing::Message() << "call " << n);
    bool reached = false;
    test::Run({kMenuID}, [&](Remote& remote) {
      remote.Press(keys);
      test::ClearLog();
      desktop::Gate::FailNth(n, false);
      body(remote);
      reached = desktop::Gate::NthReached();
      desktop::Gate::FailNth(0, false);
    });
    if (!reached) return;
  }
}

size_t Differences(const Locks& one, const Locks& other) {
  size_t count = one.size() > other.size() ? one.size() - other.size() : other.size() - one.size();
  for (size_t i = 1; i < std::min(one.size(), other.size()); ++i) count += one[i] != other[i];
  return count;
}

TEST(DynamicRating, ALockThatCannotBeReadIsShownOpen) {
  Tv tv;
  Put({Dimension("One", {"0"}), Dimension("Age", {"0", "6", "12", "18"})});
  LockAll(1);
  size_t open = 0, without = 0;
  ForEachCall("Return", [&](Remote& remote) {
    remote.Press("Up");
    const Locks rows = LocksOnScreen(remote);
    const bool said = test::Logged("[Error]CTvService::GetRRSLock failed.");
    EXPECT_EQ(said, !rows[0] || Differences(rows, LocksOfTv(1)) == 1);
    EXPECT_LE(Differences(rows, LocksOfTv(1)), 1U);
    open += Differences(rows, LocksOfTv(1));
    without += !rows[0];
  });
  // Each of the two calls for a lock: three for the row of all, three for the others.
  EXPECT_EQ(open, 6U);
  EXPECT_EQ(without, 6U);
}

TEST(DynamicRating, ALockThatCannotBeWrittenKeepsItsNewLook) {
  Tv tv;
  size_t failures = 0;
  Put({Dimension("Age", {"0", "6", "12", "18"})});
  ForEachCall("Down", [&](Remote& remote) {
    remote.Press("Return");
    const Locks rows = LocksOnScreen(remote);
    EXPECT_EQ(rows, Locks(4, rows[0]));
    const size_t unwritten = Differences(rows, LocksOfTv(0));
    const std::string said = "[Debug]CTvService::SetRRSLock failed, m_nCurDimension = 0, i = ";
    size_t lines = 0;
    for (const std::string& line : test::Log()) lines += line.starts_with(said);
    EXPECT_EQ(unwritten, lines);
    EXPECT_LE(lines, 1U);
    failures += lines;
    Put({Dimension("Age", {"0", "6", "12", "18"})});
  });
  EXPECT_EQ(failures, 6U);
}

TEST(DynamicRating, WithoutASystemNothingIsDrawnAndBackLeaves) {
  Tv tv;
  for (const bool empty : {false, true}) {
    empty ? Put({}) : desktop::ClearRatingSystem(kRegion);
    test::Run({kMenuID}, [](Remote& remote) {
      EXPECT_EQ(remote.Texts(), Texts());
      remote.Press("Return Up Down");
      EXPECT_FALSE(remote.HasExited());
      remote.ExpectExit("Back");
    });
  }
}

TEST(DynamicRating, SaysWhereItStepsAndStaysUntilItIsClosed) {
  Tv tv;
  tv.TurnVoiceOn();
  Put({Dimension("Age", {"0", "6", "12"}), Dimension("Kind", {"0"})});
  test::Run({kMenuID}, [&](Remote& remote) {
    remote.Wait(1);
    EXPECT_EQ(remote.Spoken(), (Texts{"   Age, 3 items. Use the arrow keys to move.", "A & <b>Region</b>, Age"}));
    remote.ExpectSaid("Return Up", " Kind, 1 items. Use the arrow keys to move.");
    remote.ExpectSaid("Return Down Up", "Kind, Selected");
    remote.Wait(3600);
    EXPECT_FALSE(remote.HasExited());
  });
}

}  // namespace
