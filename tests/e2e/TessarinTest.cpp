// Programs that use the exported functions: built as their authors would, at work beside the menu, and killed.
#include <cstdlib>
#include <fstream>

#include "Process.h"

namespace test {

namespace {

const std::string kExamples = SOURCE_DIRECTORY "/examples/";
const std::string kLibrary = BUILD_DIRECTORY "/libquirelle.so";

#ifdef __SANITIZE_ADDRESS__
constexpr bool kAsan = true;
#else
constexpr bool kAsan = false;
#endif

/// What a client needs to know. Under the sanitizer, one that was not built with it has to bring it along.
Texts Environment(const std::string& tv, const std::string& directory, bool foreign) {
  Texts environment = {"QUIRELLE_TV=" + tv, "LD_LIBRARY_PATH=" + directory,
                       "TESSARIN_LIBRARY=" + directory + "/libquirelle.so"};
  if (kAsan && foreign) {
    const std::string path = Execute("/usr/bin/gcc", {"-print-file-name=libasan.so"}).output;
    environment.push_back("LD_PRELOAD=" + path.substr(0, path.find('\n')));
    environment.emplace_back("ASAN_OPTIONS=detect_leaks=0");
  }
  return environment;
}

/// Lines of Python to which the functions are known as `t`.
const std::string kHead = "import os, sys\nsys.path.insert(0, '" + kExamples + "')\nimport client as t\n";

std::string Said(const std::string& tv, const std::string& lines) {
  const Outcome outcome =
      Execute("/usr/bin/python3", {"-B", "-c", kHead + lines}, Environment(tv, BUILD_DIRECTORY, true));
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  return outcome.output;
}

/// A TV of Europe with a rating system of two dimensions on air, and single-cable runs of half a second.
class ClientTv : public TvFile {
 public:
  ClientTv() : TvFile("europe") {
    Rows(Path(), "REPLACE INTO tv_state VALUES ('satcr_duration', 500)");
    const std::string ratings = *this / "ratings.json";
    std::ofstream(ratings) << TvFile().Do({"rating", "--json"});
    Do({"rating", "load", ratings});
  }
};

/// As an author would build and run them, from an installed tree.
class Clients : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_directory = new TemporaryDirectory;
    const Outcome installed = Execute("/usr/bin/cmake", {"--install", BUILD_DIRECTORY, "--prefix", In("usr")});
    ASSERT_EQ(installed.status, 0) << installed.errors;
    const std::string find = "export PKG_CONFIG_PATH=$(dirname $(find " + In("usr") +
                             " -name tessarin.pc)); cc $0 -std=c99 -pedantic -Wall -Wextra -Werror " + kExamples +
                             "client.c $(pkg-config --cflags --libs tessarin) -o " + In("client");
    const Outcome built = Execute("/bin/sh", {"-c", find, kAsan ? "-fsanitize=address" : "-O2"});
    ASSERT_EQ(built.status, 0) << built.errors;
  }
  static void TearDownTestSuite() { delete s_directory; }

  static std::string In(const std::string& name) { return *s_directory / name; }
  static std::string Run(const Texts& words, const TvFile& tv, bool foreign) {
    Texts arguments(words.begin() + 1, words.end());
    arguments.push_back(tv / "list.zip");
    const std::string library = Execute("/usr/bin/find", {In("usr"), "-name", "libquirelle.so"}).output;
    const std::string directory = library.substr(0, library.rfind('/'));
    const Outcome outcome = Execute(words[0], arguments, Environment(tv.Path(), directory, foreign));
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return outcome.output;
  }

  static inline TemporaryDirectory* s_directory = nullptr;
};

TEST_F(Clients, DoTheSameInEachLanguage) {
  const ClientTv first, second, third;
  const std::string c = Run({In("client")}, first, false);
  for (const char* part : {"country:  DEU\n", "text: 3 items. Use the arrow keys to move.\n", "two tuners: 1\n",
                           "slot: found 1, stored 1, now 1400 MHz\n", "tuned: 1\n", "fine tune: 5 steps, then 0\n",
                           "\"Fear & Suspense\"", "lock: 1, locked 1\n", "list: 0\n", "reset: 1\n"}) {
    EXPECT_TRUE(Says(c, part)) << part << "\n" << c;
  }
  EXPECT_TRUE(std::filesystem::exists(first / "list.zip"));
  EXPECT_EQ(Run({"/usr/bin/python3", "-B", kExamples + "client.py"}, second, true), c);
  EXPECT_EQ(first.Contents(), second.Contents());
  if (kAsan) GTEST_SKIP() << "the managed runtime has handlers of its own for what the sanitizer catches";
  const Outcome compiled = Execute(
      "/usr/bin/mcs", {"-warnaserror", "-out:" + In("client.exe"), kExamples + "Client.cs", kExamples + "Tessarin.cs"});
  ASSERT_EQ(compiled.status, 0) << compiled.output << compiled.errors;
  EXPECT_EQ(Run({"/usr/bin/mono", In("client.exe")}, third, true), c);
  EXPECT_EQ(first.Contents(), third.Contents());
}

TEST(Tessarin, WithoutATvEachFunctionFails) {
  const ClientTv tv;
  for (const std::string& path : {tv / "none.db", tv / "ratings.json"}) {
    const std::string said = Said(path, "t.main('" + (tv / "list.zip") + "')");
    EXPECT_EQ(said,
              "date: --/--/----\ncountry: \ntext: COM_SID_POPUP_WIDGET_SHOW_GUIDE\ntwo tuners: 0\n"
              "slot: cannot be read\ntuned: 0\nfine tune: -1 steps, then -1\nratings: none\nlock: -1, locked 0\n"
              "list: 3\nreset: 0\n");
  }
  EXPECT_FALSE(std::filesystem::exists(tv / "list.zip"));
}

TEST(Tessarin, LoadsNoDisplayNoThemeAndNoThread) {
  const ClientTv tv;
  const std::string look = R"(
import stat
handles = [os.stat('/proc/self/fd/%d' % f).st_mode for f in range(3, 99) if os.path.exists('/proc/self/fd/%d' % f)]
print('sockets:', sum(map(stat.S_ISSOCK, handles)))
print('mapped:', '.edj' in open('/proc/self/maps').read())
print('threads:', len(os.listdir('/proc/self/task')))
)";
  const std::string displays = "os.environ['DISPLAY'] = os.environ['WAYLAND_DISPLAY'] = 'none'\n";
  const std::string said = Said(tv.Path(), displays + "t.main('" + (tv / "list.zip") + "')\n" + look);
  EXPECT_TRUE(Says(said, "sockets: 0\nmapped: False\nthreads: 1\n")) << said;
  EXPECT_FALSE(Says(tv.Do({"journal"}), "app_control")) << "nothing was launched";
}

TEST(Tessarin, ShowsItsFunctionsAndTheEntryAlone) {
  std::string exported = Execute("/usr/bin/nm", {"-D", "--defined-only", "--format=just-symbols", kLibrary}).output;
  EXPECT_EQ(std::count(exported.begin(), exported.end(), '\n'), 28) << exported;
  EXPECT_TRUE(Says(exported, "_ZN8quirelle4mainEiPPc")) << exported;
  if (kAsan || sizeof(void*) != 8) GTEST_SKIP() << "described as it is installed, for 64 bits";
  const std::string committed = SOURCE_DIRECTORY "/tessarin/tessarin-64.abi";
  const TemporaryDirectory directory;
  const std::string built = directory / "built.abi", describe = SOURCE_DIRECTORY "/tessarin/abi";
  ASSERT_EQ(Execute("/bin/sh", {"-c", describe + " " + kLibrary + " > " + built}).status, 0);
  const Outcome changed = Execute("/usr/bin/abidiff", {committed, built});
  EXPECT_EQ(changed.status, 0) << changed.output << "is it meant? " << describe << " LIBRARY > " << committed;
}

TEST(Tessarin, SeesWhatAWindowDoesAndIsSeenByIt) {
  Tv tv("europe");
  Change("REPLACE INTO tv_state VALUES ('satcr_duration', 300)");
  test::Run({"satcr-detect-slot-frequency-slot1"}, [&](Remote& remote) {
    remote.Press("Return");
    EXPECT_EQ(Said(tv.Path(), "print(t.slot_frequency(0))"), "0\n");
    remote.Wait(2.5);
    EXPECT_EQ(Said(tv.Path(), "print(t.slot_frequency(0))"), "1400\n");
  });
  // The second band is free, the first a neighbour's.
  const std::pair<const char*, bool> stored[] = {{"1632", true}, {"1284", false}};
  for (const auto& [frequency, verified] : stored) {
    EXPECT_EQ(Said(tv.Path(), std::string("print(t.set_slot_frequency(0, ") + frequency + "))"), "1\n");
    test::Run({"satcr-verify-slot-frequency-slot1"}, [&](Remote& remote) {
      remote.Press("Return");
      remote.Wait(2.5);
      EXPECT_TRUE(
          remote.Shows(std::string("Verification is complete.\nTuner 1 : ") + (verified ? "Success" : "Failed")))
          << frequency;
    });
  }
}

/// Everything that a client changes, over and over.
constexpr const char* kChanges = R"(
while True:
    t.send_satcr_command(0, 0)
    t.set_slot_frequency(0, 1400)
    t.set_rating_lock(0, 1, True)
    t.installer_store_position()
    t.tune_alone(True)
    t.preset_tuner_mft(5)
    t.set_tuner_mft()
    t.export_list(os.environ['QUIRELLE_TV'].encode() + b'.zip')
    t.load_list(os.environ['QUIRELLE_TV'].encode() + b'.zip')
    t.reset_satellite_settings()
)";

TEST(Tessarin, AKilledClientLeavesTheTvSound) {
  const ClientTv tv;
  Said(tv.Path(), "t.export_list(os.environ['QUIRELLE_TV'].encode() + b'.zip')");
  const auto lists = [&] { return Rows(tv.Path(), "SELECT count(*), total(id), count(name) FROM service").at(0); };
  const std::string before = lists();
  for (int i = 0; i < 20; ++i) {
    Process client({"/usr/bin/python3", "-B", "-c", kHead + kChanges}, Environment(tv.Path(), BUILD_DIRECTORY, true),
                   tv / "out");
    ASSERT_TRUE(client.KillSoon(0, {}, (kAsan ? 1'500'000 : 150'000) + static_cast<unsigned>(i) * 7'300))
        << ReadWhole(tv / "out");
    EXPECT_EQ(Rows(tv.Path(), "PRAGMA integrity_check").at(0), "ok");
    EXPECT_EQ(lists(), before);
  }
  EXPECT_EQ(Said(tv.Path(), "print(t.set_slot_frequency(1, 1632), t.slot_frequency(1))"), "1 1632\n");
}

}  // namespace

}  // namespace test
