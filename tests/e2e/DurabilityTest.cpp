// Processes that are killed, and processes that write at once.
#include <unistd.h>

#include <random>

#include "Gate.h"
#include "Process.h"
#include "vconf.h"

namespace test {

namespace {

constexpr unsigned kSeed = 20260131;
constexpr int kKillsOfWriters = 176;
constexpr int kKillsOfPrograms = 24;

/// Masks that follow one another in two keys, as a box that locks one row and then the next does; says each step
/// that has returned.
void ToggleForEver(const std::string& path) {
  desktop::Store::Open(path);
  const std::string first = kRating + "tv_y", second = kRating + "tv_y7";
  for (unsigned char step = 1;; step = step % 250 + 1) {
    if (vconf_set_int(first.c_str(), step) != 0 || vconf_set_int(second.c_str(), step) != 0) _exit(2);
    if (write(STDOUT_FILENO, &step, 1) != 1) _exit(3);
  }
}

TEST(Durability, KilledWritersLoseNothingThatHadReturned) {
  const TvFile tv;
  std::mt19937 random(kSeed);
  std::printf("seed %u\n", kSeed);
  size_t reported = 0;
  for (int i = 0; i < kKillsOfWriters; ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    const std::string report = tv / ("steps" + std::to_string(i));
    Process writer([&] { ToggleForEver(tv.Path()); }, report);
    ASSERT_TRUE(writer.KillSoon(
        i, [&] { return !ReadWhole(report).empty(); }, random() % 25'000));
    ASSERT_EQ(Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok");
    const std::string steps = ReadWhole(report);
    if (steps.empty()) continue;
    reported += steps.size();
    const int last = static_cast<unsigned char>(steps.back()), next = last % 250 + 1;
    // The step under way may have come as far as either key, in order.
    const Texts kept = Rows(tv.Path(), "SELECT value FROM setting WHERE key GLOB '*/tv_rating/tv_y*' ORDER BY key");
    const int y = std::stoi(kept.at(0)), y7 = std::stoi(kept.at(1));
    ASSERT_TRUE((y == last && y7 == last) || (y == next && y7 == last) || (y == next && y7 == next))
        << y << ", " << y7 << " after " << last;
  }
  EXPECT_GE(reported, kKillsOfWriters / 2U) << "the writers were killed before they wrote";
}

/// The last line of the journal of a write.
std::string Told(const TvFile& tv) {
  return Rows(tv.Path(), "SELECT coalesce(max(seq), 0) FROM journal WHERE operation = 'vconf_set_int'").at(0);
}

/// Masks that the rows can hold: what a toggle writes, it writes as a whole row.
TEST(Durability, TheProgramCanBeKilledAtAnyMoment) {
  const TvFile tv;
  std::mt19937 random(kSeed);
  std::string keys = "Return";
  for (int i = 0; i < 40; ++i) keys += " Return Down Return";
  int changed = 0;
  for (int i = 0; i < kKillsOfPrograms; ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    const std::string before = Told(tv);
    Process program({Built("quirelle"), "tv-rating", "--tv", tv.Path(), "--keys", keys, "--log", "off"});
    program.KillSoon(
        i, [&] { return Told(tv) != before; }, random() % 300'000);
    ASSERT_EQ(Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok");
    EXPECT_EQ(std::stoi(tv.Get(kRating + "tv_y")) & ~32, 0);
    EXPECT_EQ(std::stoi(tv.Get(kRating + "tv_y7")) & ~48, 0);
    changed += Told(tv) != before;
  }
  EXPECT_GT(changed, 0) << "the programs were killed before they wrote";
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Back"}).status, 0);
}

TEST(Durability, TwoWritersAtOnceLoseNothing) {
  constexpr int kTimes = 500;
  const TvFile tv;
  const std::string shared = kRating + "tv_g";
  const auto write = [&](const std::string& own) {
    desktop::Store::Open(tv.Path());
    for (int i = 1; i <= kTimes; ++i) {
      if (vconf_set_int(own.c_str(), i) != 0) throw std::runtime_error("set " + std::to_string(i));
    }
    for (int i = 0; i < kTimes; ++i) Change("UPDATE setting SET value = value + 1 WHERE key = ?", shared);
    desktop::Store::Close();
  };
  Process one([&] { write(kRating + "tv_pg"); }, tv / "one"), other([&] { write(kRating + "tv_ma"); }, tv / "other");
  EXPECT_EQ(one.Wait(60), 0) << ReadWhole(tv / "one");
  EXPECT_EQ(other.Wait(60), 0) << ReadWhole(tv / "other");
  EXPECT_EQ(tv.Get(shared), std::to_string(2 * kTimes));
  for (const char* own : {"tv_pg", "tv_ma"}) EXPECT_EQ(tv.Get(kRating + own), std::to_string(kTimes));
  const char* calls = "SELECT count(*) FROM journal WHERE operation = 'vconf_set_int' AND result = '0'";
  EXPECT_EQ(Rows(tv.Path(), calls).at(0), std::to_string(2 * kTimes)) << "every call is in the journal";
}

}  // namespace

}  // namespace test
