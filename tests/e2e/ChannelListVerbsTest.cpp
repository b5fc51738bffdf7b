// quirelle-tv channels export, import and check; and processes that are killed while they do it.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "Process.h"
#include "tvs/ChannelList.h"

namespace test {

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
  EXPECT_EQ(Parsed(tv.Do({"channels", "check", zip, "--json"}))["entries"]["services.csv"]["added"].asInt(), 380);
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

Texts ListOf(const std::string& tv) {
  Texts all;
  for (const char* table : {"satellite", "transponder", "service", "fine_tune"}) {
    const Texts rows = Rows(tv, std::string("SELECT * FROM ") + table + " ORDER BY 1");
    all.insert(all.end(), rows.begin(), rows.end());
  }
  return all;
}

/// Does a step over and over and kills it, so many times, and looks at what is left; QUIRELLE_KILLS="SEED TIMES" says
/// how often. `changed` answers whether something had happened.
void KillManyTimes(const TvFile& tv, const std::function<desktop::ListOutcome()>& step,
                   const std::function<bool()>& changed) {
  unsigned seed = 20260219;
  int times = 36, changes = 0;
  if (const char* asked = std::getenv("QUIRELLE_KILLS")) sscanf(asked, "%u %d", &seed, &times);
  std::printf("QUIRELLE_KILLS=\"%u %d\"\n", seed, times);
  std::mt19937 random(seed);
  for (int i = 0; i < times && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    const std::string report = tv / ("report" + std::to_string(i));
    Process process(
        [&] {
          for (desktop::Store::Open(tv.Path());;) {
            if (const auto outcome = step(); outcome.status != 0) throw std::runtime_error(outcome.what);
            if (write(STDOUT_FILENO, ".", 1) != 1) _exit(3);
          }
        },
        report);
    ASSERT_TRUE(process.KillSoon(
        i, [&] { return !ReadWhole(report).empty(); }, random() % 120'000))
        << ReadWhole(report);
    changes += changed();
  }
  EXPECT_GT(changes, times / 8) << "they were killed before they did anything";
}

TEST(ChannelListKilled, AnImportLeavesTheOldListOrTheNewOne) {
  const TvFile tv;
  const std::string zips[] = {tv / "one.zip", tv / "two.zip"};
  Texts lists[2];
  for (const int i : {0, 1}) {
    tv.Do({"new", "america", "--services", std::to_string(3000 + 500 * i), "--force"});
    tv.Do({"channels", "export", zips[i]});
    lists[i] = ListOf(tv.Path());
  }
  bool second = true;
  int next = 0;
  const auto step = [&] { return desktop::ImportChannelList(zips[next++ % 2]); };
  KillManyTimes(tv, step, [&] {
    EXPECT_EQ(Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok");
    const Texts list = ListOf(tv.Path());
    EXPECT_TRUE(list == lists[0] || list == lists[1]) << "neither the one nor the other";
    const bool before = std::exchange(second, list == lists[1]);
    // What comes first is a change, however few imports there is time for.
    next = second ? 0 : 1;
    return before != second;
  });
}

TEST(ChannelListKilled, AnExportLeavesTheOldArchiveOrTheNewOne) {
  const TvFile tv;
  tv.Do({"new", "america", "--services", "3000", "--force"});
  const std::string zip = tv / "Channel_list.zip", old = "the older one";
  std::ofstream(zip) << old;
  const auto step = [&] { return desktop::ExportChannelList(zip); };
  KillManyTimes(tv, step, [&] {
    const bool made = ReadWhole(zip) != old;
    EXPECT_TRUE(!made || Says(tv.Do({"channels", "check", zip}), "services.csv         3000      0        0        0"));
    std::ofstream(zip) << old;
    return made;
  });
  tv.Do({"channels", "export", zip});
  EXPECT_FALSE(std::filesystem::exists(zip + ".part")) << "what a killed one left is taken over";
}

}  // namespace

}  // namespace test
