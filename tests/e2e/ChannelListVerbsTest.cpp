// quirelle-tv channels export, import and check; and processes that are killed while they do it.
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "Process.h"
#include "tvs/ChannelList.h"

using test::Outcome;
using test::Process;
using test::Rows;
using test::Says;
using test::Texts;
using test::TvFile;

namespace fs = std::filesystem;

namespace {

void ExpectLine(const Outcome& outcome, int status, const std::string& part) {
  EXPECT_EQ(outcome.status, status);
  const std::string& said = status ? outcome.errors : outcome.output;
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  EXPECT_TRUE(Says(said, part)) << said;
}

TEST(ChannelListVerbs, SayInOneLineWhatHasBecomeOfTheList) {
  const TvFile tv, german("europe");
  const std::string zip = tv / "list.zip";
  ExpectLine(tv.Tv({"channels", "export", zip}), 0, "list.zip: 400 channels, 225 transponders, 4 satellites");
  tv.Do({"new", "america", "--services", "20", "--force"});
  const Outcome check = tv.Tv({"channels", "check", zip});
  EXPECT_EQ(check.status, 0);
  for (const char* part :
       {"a list of USA, made 20", "by quirelle ", "services.csv          400    380", "satellites.csv"}) {
    EXPECT_TRUE(Says(check.output, part)) << part << "\n" << check.output;
  }
  EXPECT_EQ(test::Parsed(tv.Do({"channels", "check", zip, "--json"}))["entries"]["services.csv"]["added"].asInt(), 380);
  EXPECT_EQ(Rows(tv.Path(), "SELECT count(*) FROM service").at(0), "20");
  ExpectLine(tv.Tv({"channels", "import", zip}), 0, "list.zip: 400 channels");
  EXPECT_EQ(Rows(tv.Path(), "SELECT count(*) FROM service").at(0), "400");
  EXPECT_TRUE(Says(tv.Do({"channels", "air", "--limit", "1"}), "Programme 1"));

  for (const char* verb : {"import", "check"}) {
    SCOPED_TRACE(verb);
    EXPECT_EQ(german.Tv({"channels", verb, zip}).status, 2);
    EXPECT_TRUE(Says(german.Tv({"channels", verb, zip}).errors, "the list is of USA, this TV is in DEU"));
    ExpectLine(tv.Tv({"channels", verb, tv / "none.zip"}), 1, "none.zip: No such file or directory");
    std::ofstream(tv / "text.zip") << "text";
    ExpectLine(tv.Tv({"channels", verb, tv / "text.zip"}), 1, "text.zip: is no archive");
  }
  ExpectLine(tv.Tv({"channels", "export", tv / "none/list.zip"}), 3, "No such file or directory");
  ExpectLine(tv.Tv({"channels", "export"}), 2, "usage: quirelle-tv channels export FILE");
  for (const auto& [result, status, text] :
       {std::tuple("4", 4, "a list that this TV does not know"), std::tuple("2", 2, "another country"),
        std::tuple("3", 3, "the service did not do it")}) {
    tv.Do({"fail", "Util::SetServiceDb", result});
    ExpectLine(tv.Tv({"channels", "import", zip}), status, text);
  }
  tv.Do({"heal"});
  tv.Do({"fail", "CreateUtil"});
  ExpectLine(tv.Tv({"channels", "export", zip}), 1, "the service does not answer");
}

// --- killed at any moment ------------------------------------------------------------------------

/// "SEED TIMES" in place of what the suite does.
std::pair<unsigned, int> Kills() {
  unsigned seed = 20260219;
  int times = 36;
  if (const char* asked = std::getenv("QUIRELLE_KILLS")) sscanf(asked, "%u %d", &seed, &times);
  std::printf("QUIRELLE_KILLS=\"%u %d\"\n", seed, times);
  return {seed, times};
}

Texts ListOf(const std::string& tv) {
  Texts all;
  for (const char* table : {"satellite", "transponder", "service", "fine_tune"}) {
    for (std::string& row : Rows(tv, std::string("SELECT * FROM ") + table + " ORDER BY 1"))
      all.push_back(std::move(row));
  }
  return all;
}

/// Does it over and over, says each time that it has, and is killed within so many steps.
void Kill(std::mt19937& random, const std::string& report, const std::function<void()>& step) {
  Process process(
      [&] {
        for (;;) {
          step();
          if (write(STDOUT_FILENO, ".", 1) != 1) _exit(3);
        }
      },
      report);
  if (random() % 4 != 0) test::Until([&] { return !test::ReadWhole(report).empty(); });
  usleep(random() % 120'000);
  process.Signal(SIGKILL);
  ASSERT_EQ(process.Wait(), -SIGKILL) << test::ReadWhole(report);
}

TEST(ChannelListKilled, AnImportLeavesTheOldListOrTheNewOne) {
  const auto [seed, times] = Kills();
  std::mt19937 random(seed);
  const TvFile tv;
  const std::string zips[] = {tv / "one.zip", tv / "two.zip"};
  Texts lists[2];
  for (const int i : {0, 1}) {
    tv.Do({"new", "america", "--services", std::to_string(3000 + 500 * i), "--force"});
    tv.Do({"channels", "export", zips[i]});
    lists[i] = ListOf(tv.Path());
  }
  int changes = 0, which = 1;
  for (int i = 0; i < times && !testing::Test::HasFatalFailure(); ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    Kill(random, tv / "report", [&, next = 0]() mutable {
      if (!desktop::Store::IsOpen()) desktop::Store::Open(tv.Path());
      const auto outcome = desktop::ImportChannelList(zips[next++ % 2]);
      if (outcome.status != 0) throw std::runtime_error(outcome.what);
    });
    ASSERT_EQ(Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok");
    const Texts list = ListOf(tv.Path());
    ASSERT_TRUE(list == lists[0] || list == lists[1]) << "neither the one nor the other";
    const int now = list == lists[1];
    changes += now != which;
    which = now;
  }
  EXPECT_GT(changes, times / 8) << "they were killed before they did anything";
}

TEST(ChannelListKilled, AnExportLeavesTheOldArchiveOrTheNewOne) {
  const auto [seed, times] = Kills();
  std::mt19937 random(seed);
  const TvFile tv("america");
  tv.Do({"new", "america", "--services", "3000", "--force"});
  const std::string zip = tv / "Channel_list.zip", old = "the older one";
  int made = 0;
  for (int i = 0; i < times && !testing::Test::HasFatalFailure(); ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    std::ofstream(zip) << old;
    Kill(random, tv / "report", [&] {
      if (!desktop::Store::IsOpen()) desktop::Store::Open(tv.Path());
      const auto outcome = desktop::ExportChannelList(zip);
      if (outcome.status != 0) throw std::runtime_error(outcome.what);
    });
    if (test::ReadWhole(zip) == old) continue;
    ++made;
    ASSERT_TRUE(Says(tv.Do({"channels", "check", zip}), "services.csv         3000      0        0        0"));
  }
  EXPECT_GT(made, times / 8) << "they were killed before they did anything";
  tv.Do({"channels", "export", zip});
  EXPECT_FALSE(fs::exists(zip + ".part")) << "what a killed one left is taken over";
}

}  // namespace
