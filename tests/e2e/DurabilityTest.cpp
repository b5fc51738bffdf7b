// Processes that are killed, and processes that write at once.
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <random>
#include <set>

#include "Gate.h"
#include "Process.h"
#include "vconf.h"

using test::TvFile;

namespace {

const std::string kRating = "db/menu/broadcasting/program_rating_lock/tv_rating/";
constexpr unsigned kSeed = 20260131;
constexpr int kKillsOfWriters = 176;
constexpr int kKillsOfPrograms = 24;

/// Runs `body` in a process of its own; what it writes to the descriptor comes out of `Output`.
class Child {
 public:
  explicit Child(const std::function<void(int)>& body) {
    if (pipe(m_pipe) != 0) throw std::runtime_error("no pipe");
    m_pid = fork();
    if (m_pid != 0) {
      close(m_pipe[1]);
      return;
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    close(m_pipe[0]);
    int status = 0;
    try {
      body(m_pipe[1]);
    } catch (const std::exception& error) {
      dprintf(STDERR_FILENO, "%s\n", error.what());
      status = 1;
    }
    _exit(status);
  }
  ~Child() {
    close(m_pipe[0]);
    if (m_pid > 0) Kill();
  }
  void Kill() {
    kill(m_pid, SIGKILL);
    Wait();
  }
  int Wait() {
    int status = 0;
    waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  std::vector<unsigned char> Output() const {
    std::vector<unsigned char> all;
    unsigned char buffer[4096];
    for (ssize_t length; (length = read(m_pipe[0], buffer, sizeof buffer)) > 0;) {
      all.insert(all.end(), buffer, buffer + length);
    }
    return all;
  }
  void AwaitOutput() const {
    pollfd waiting = {m_pipe[0], POLLIN, 0};
    poll(&waiting, 1, 20'000);
  }

 private:
  int m_pipe[2];
  pid_t m_pid;
};

void SleepMicroseconds(long time) {
  timespec left = {time / 1'000'000, time % 1'000'000 * 1000};
  while (nanosleep(&left, &left) != 0) {
  }
}

/// Masks that follow one another in two keys, as a box that locks one row and then the next does; says each step
/// that has returned.
void ToggleForEver(const std::string& path, int report) {
  desktop::Store::Open(path);
  const std::string first = kRating + "tv_y", second = kRating + "tv_y7";
  for (unsigned char step = 1;; step = step % 250 + 1) {
    if (vconf_set_int(first.c_str(), step) != 0 || vconf_set_int(second.c_str(), step) != 0) _exit(2);
    if (write(report, &step, 1) != 1) _exit(3);
  }
}

TEST(Durability, KilledWritersLoseNothingThatHadReturned) {
  const TvFile tv;
  std::mt19937 random(kSeed);
  std::printf("seed %u\n", kSeed);
  int reported = 0;
  for (int i = 0; i < kKillsOfWriters; ++i) {
    Child writer([&](int report) { ToggleForEver(tv.Path(), report); });
    // Every fourth is killed on its way to the first step, the others somewhere behind it.
    if (i % 4 != 0) writer.AwaitOutput();
    SleepMicroseconds(static_cast<long>(random() % 25'000));
    writer.Kill();
    const std::vector<unsigned char> steps = writer.Output();
    ASSERT_EQ(test::Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok") << "kill " << i;
    if (steps.empty()) continue;
    reported += static_cast<int>(steps.size());
    const std::vector<std::string> kept = test::Rows(tv.Path(), "SELECT value FROM setting WHERE key IN ('" + kRating +
                                                                    "tv_y', '" + kRating + "tv_y7') ORDER BY key");
    const int last = steps.back(), next = last % 250 + 1;
    // The step under way may have come as far as either key, in order.
    const int y = std::stoi(kept.at(0)), y7 = std::stoi(kept.at(1));
    ASSERT_TRUE((y == last && y7 == last) || (y == next && y7 == last) || (y == next && y7 == next))
        << "kill " << i << ": " << y << ", " << y7 << " after " << last;
  }
  EXPECT_GE(reported, kKillsOfWriters / 2) << "the writers were killed before they wrote";
}

/// The last line of the journal of a write.
std::string Told(const TvFile& tv) {
  return test::Rows(tv.Path(), "SELECT coalesce(max(seq), 0) FROM journal WHERE operation = 'vconf_set_int'").at(0);
}

/// Masks that the rows can hold: what a toggle writes, it writes as a whole row.
TEST(Durability, TheProgramCanBeKilledAtAnyMoment) {
  const TvFile tv;
  std::mt19937 random(kSeed);
  std::string keys = "Return";
  for (int i = 0; i < 40; ++i) keys += " Return Down Return";
  const std::set<std::string> whole[] = {{"0", "32"}, {"0", "16", "32", "48"}};
  int changed = 0;
  for (int i = 0; i < kKillsOfPrograms; ++i) {
    test::Process program({test::Built("quirelle"), "tv-rating", "--tv", tv.Path(), "--keys", keys, "--log", "off"});
    // From its first steps on: the journal says when it has come so far.
    const std::string before = Told(tv);
    if (i % 4 != 0) test::Until([&] { return Told(tv) != before; });
    SleepMicroseconds(static_cast<long>(random() % 300'000));
    program.Signal(SIGKILL);
    program.Wait();
    ASSERT_EQ(test::Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok") << "kill " << i;
    EXPECT_TRUE(whole[0].contains(tv.Get(kRating + "tv_y"))) << "kill " << i;
    EXPECT_TRUE(whole[1].contains(tv.Get(kRating + "tv_y7"))) << "kill " << i;
    changed += Told(tv) != before;
  }
  EXPECT_GT(changed, 0) << "the programs were killed before they wrote";
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Back"}).status, 0);
}

/// Adds one to a key so many times, in transactions of its own.
void Count(const std::string& path, const std::string& key, int times) {
  desktop::Store::Open(path);
  for (int i = 0; i < times; ++i) {
    desktop::Store::Get().Write(
        [&] { desktop::Query("UPDATE setting SET value = value + 1 WHERE key = ?", key).Run(); });
  }
  desktop::Store::Close();
}

TEST(Durability, TwoWritersAtOnceLoseNothing) {
  constexpr int kTimes = 500;
  const TvFile tv;
  const std::string shared = kRating + "tv_g";
  const std::string own[] = {kRating + "tv_pg", kRating + "tv_ma"};
  {
    std::vector<std::unique_ptr<Child>> writers;
    for (const std::string& key : own) {
      writers.push_back(std::make_unique<Child>([&](int) {
        desktop::Store::Open(tv.Path());
        for (int i = 1; i <= kTimes; ++i) {
          if (vconf_set_int(key.c_str(), i) != 0) throw std::runtime_error("set " + std::to_string(i));
        }
        Count(tv.Path(), shared, kTimes);
      }));
    }
    for (const auto& writer : writers) EXPECT_EQ(writer->Wait(), 0);
  }
  EXPECT_EQ(tv.Get(shared), std::to_string(2 * kTimes));
  for (const std::string& key : own) EXPECT_EQ(tv.Get(key), std::to_string(kTimes));
  EXPECT_EQ(
      test::Rows(tv.Path(), "SELECT count(*) FROM journal WHERE operation = 'vconf_set_int' AND result = '0'").at(0),
      std::to_string(2 * kTimes))
      << "every call is in the journal";
}

TEST(Durability, TheProgramAndTheCommandWriteAtOnce) {
  const TvFile tv;
  std::string keys;
  for (int i = 0; i < 31; ++i) keys += "Return ";
  test::Process program({test::Built("quirelle"), "tv-rating", "--tv", tv.Path(), "--keys", keys}, {}, tv / "out");
  int set = 0;
  while (!program.Wait(0)) EXPECT_EQ(tv.Tv({"set", kRating + "tv_ma", std::to_string(++set)}).status, 0);
  EXPECT_EQ(program.Wait(), 0) << test::ReadWhole(tv / "out");
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");
  EXPECT_EQ(tv.Get(kRating + "tv_ma"), std::to_string(set));
}

}  // namespace
