// What is wrong with the words or the TV is said in one line, and nothing changes.
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "Process.h"

using test::IsOneLine;
using test::Outcome;
using test::TvFile;

namespace {

const std::string kY = "db/menu/broadcasting/program_rating_lock/tv_rating/tv_y";

struct BadWords {
  std::vector<std::string> words;
  int status;
  const char* said;
};

void ExpectRefused(const Outcome& outcome, int status, const std::string& said, const std::string& what) {
  EXPECT_EQ(outcome.status, status) << what << ": " << outcome.errors;
  EXPECT_TRUE(IsOneLine(outcome.errors)) << what << ": " << outcome.errors;
  EXPECT_NE(outcome.errors.find(said), std::string::npos) << what << ": " << outcome.errors;
  EXPECT_EQ(outcome.output, "") << what;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += " " + word;
  return text;
}

TEST(BadInput, OfTheProgramsCommandLine) {
  const TvFile tv;
  const std::string before = tv.Contents();
  const BadWords cases[] = {
      {{}, 2, "a menu ID is missing; there are: satellite-selection"},
      {{"no-such-window"}, 2, "unknown menu ID 'no-such-window'; there are: satellite-selection"},
      {{"tv-\nrating"}, 2, "unknown menu ID 'tv-?rating'; there are: satellite-selection"},
      {{"tv-rating", "movie-rating"}, 2, "more than one menu ID: 'tv-rating' and 'movie-rating'"},
      {{"tv-rating", "--nope"}, 2, "unknown option '--nope'"},
      {{"tv-rating", "-x"}, 2, "unknown option '-x'"},
      {{"tv-rating", "--keys"}, 2, "--keys: a value is missing"},
      {{"tv-rating", "--keys", "Return Sideways"}, 2, "'Sideways': no key of the remote"},
      {{"tv-rating", "--keys", "Return wait:"}, 2, "'wait:'"},
      {{"tv-rating", "--keys", "Return wait:-1"}, 2, "'wait:-1'"},
      {{"tv-rating", "--keys", "Return wait:2x"}, 2, "'wait:2x'"},
      {{"tv-rating", "--keys", "Return wait:nan"}, 2, "'wait:nan'"},
      {{"tv-rating", "--keys", "Return shot:"}, 2, "'shot:'"},
      {{"tv-rating", "--extra", "PrevSubmenu"}, 2, "--extra 'PrevSubmenu': wants KEY=VALUE"},
      {{"tv-rating", "--extra", "=x"}, 2, "--extra '=x': wants KEY=VALUE"},
      {{"tv-rating", "--log", "loud"}, 2, "--log 'loud': wants off, error or info"},
      {{"tv-rating", "--log="}, 2, "--log '': wants off, error or info"},
      {{"tv-rating", "--shot", "/nowhere/a.png"}, 1, "/nowhere/a.png: "},
      {{"tv-rating", "--dump", "/nowhere/a.json"}, 1, "/nowhere/a.json: "},
  };
  for (const BadWords& bad : cases) {
    ExpectRefused(tv.Program(bad.words), bad.status, bad.said, "quirelle" + Joined(bad.words));
  }
  EXPECT_EQ(tv.Contents(), before);
}

TEST(BadInput, OfTheTvsCommandLine) {
  const TvFile tv;
  const std::string before = tv.Contents();
  const BadWords cases[] = {
      {{"paint"}, 2, "unknown verb 'paint'"},
      {{"get"}, 2, "usage: quirelle-tv get KEY"},
      {{"get", "db/nothing"}, 1, "no key 'db/nothing'"},
      {{"set", kY}, 2, "usage: quirelle-tv set KEY VALUE"},
      {{"set", "db/nothing", "1"}, 1, "no key 'db/nothing'"},
      {{"set", kY, "red"}, 2, "'red': wants "},
      {{"set", kY, ""}, 2, "'': wants "},
      {{"set", kY, "99999999999"}, 2, "'99999999999': wants "},
      {{"set", "db/setting/accessibility/tts", "maybe"}, 2, "'maybe': wants true or false"},
      {{"item", "no-such-item"}, 1, "no item 'no-such-item'"},
      {{"fail", "no_such_operation"}, 2, "unknown operation 'no_such_operation'"},
      {{"fail", "KeyRouter_Finalize"}, 2, "operation 'KeyRouter_Finalize' cannot fail"},
      {{"fail", "vconf_get_int", "null"}, 2, "vconf_get_int 'null'"},
      {{"fail", "vconf_get_int", "--times", "0"}, 2, "--times '0'"},
      {{"fail", "vconf_get_int", "--times"}, 2, "--times ''"},
      {{"heal", "no_such_operation"}, 2, "unknown operation 'no_such_operation'"},
      {{"journal", "--backwards"}, 2, "usage: quirelle-tv journal"},
      {{"new", "atlantis"}, 1, "unknown profile 'atlantis' (there are: america, brazil, europe, hdmi)"},
      {{"new", "../profiles/america"}, 1, "unknown profile"},
      {{"new", "america"}, 1, "is already there"},
      {{"new"}, 2, "a profile is missing"},
      {{"key", "Return", "Sideways"}, 2, "key 'Sideways': no key of the remote"},
      {{"key", "Return"}, 1, "no program runs on this TV"},
      {{"pause"}, 1, "no program runs on this TV"},
      {{"launch", "tv-rating"}, 1, "no program runs on this TV"},
      {{"--tv"}, 2, "--tv: a file is missing"},
      {{"history", "add"}, 2, "usage: quirelle-tv history"},
      {{"history", "paint"}, 2, "usage: quirelle-tv history"},
      {{"history", "add", "noon:7"}, 2, "'noon:7': wants up to six numbers"},
      {{"clock", "1\n3"}, 2, "'1?3' is neither 12 nor 24"},
      {{"clock", "13"}, 2, "'13' is neither 12 nor 24"},
      {{"hdmi", "--port", "9"}, 2, "--port '9': wants 1 to 8"},
      {{"hdmi", "--port", "1", "--resolution", "1920x1080"}, 2, "--resolution '1920x1080': wants none"},
      {{"hdmi", "--port", "1", "--format", "0x100000"}, 2, "--format '0x100000': wants "},
      {{"hdmi", "--port", "1", "--name"}, 2, "--name: a value is missing"},
      {{"hdmi", "--name", "Console"}, 1, "no HDMI input is shown"},
  };
  for (const BadWords& bad : cases) {
    ExpectRefused(tv.Tv(bad.words), bad.status, bad.said, "quirelle-tv" + Joined(bad.words));
  }
  EXPECT_EQ(tv.Contents(), before);
}

TEST(BadInput, OfTheEnvironment) {
  const TvFile tv;
  for (const char* size : {"99999999999x1", "40000x40000", "0x1080", "1920", "1920x1080p"}) {
    const std::string screen = std::string("QUIRELLE_SCREEN=") + size;
    ExpectRefused(tv.Program({"tv-rating", "--keys", "Down"}, {screen}), 1, std::string("'") + size + "': wants", size);
  }
  const std::vector<std::string> patience = {"QUIRELLE_PATIENCE=soon"};
  ExpectRefused(tv.Tv({"get", kY}, patience), 1, "QUIRELLE_PATIENCE 'soon': wants 0 to 3600000", "quirelle-tv");
  ExpectRefused(tv.Program({"tv-rating", "--keys", "Down"}, patience), 1, "QUIRELLE_PATIENCE 'soon'", "quirelle");
}

/// Every way to come to a TV, on a file that is none.
void ExpectNoTv(const std::string& path, const std::string& said) {
  const std::string before = test::ReadWhole(path);
  for (const Outcome& outcome : {test::Execute("quirelle", {"tv-rating", "--tv", path, "--dump", "-"}),
                                 test::Execute("quirelle-tv", {"--tv", path, "get", kY}),
                                 test::Execute("quirelle-tv", {"--tv", path, "set", kY, "1"})}) {
    ExpectRefused(outcome, 1, path + ": " + said, path);
  }
  EXPECT_EQ(test::ReadWhole(path), before) << path;
}

void Write(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

TEST(BadInput, FilesThatAreNoTv) {
  const TvFile tv;
  ExpectNoTv(tv / "missing.db", "No such file or directory");
  EXPECT_NE(access((tv / "missing.db").c_str(), F_OK), 0);

  Write(tv / "empty.db", "");
  ExpectNoTv(tv / "empty.db", "not a TV");
  Write(tv / "letter.db", std::string(8192, 'x'));
  ExpectNoTv(tv / "letter.db", "not a TV");
  ExpectNoTv(tv / ".", "");
  test::Rows(tv.Path(), "VACUUM INTO '" + tv / "other.db" + "'");
  test::Rows(tv / "other.db", "PRAGMA application_id = 1");
  ExpectNoTv(tv / "other.db", "not a TV");
  test::Rows(tv / "other.db", "PRAGMA application_id = " + test::Rows(tv.Path(), "PRAGMA application_id").at(0));
  test::Rows(tv / "other.db", "PRAGMA user_version = 99");
  ExpectNoTv(tv / "other.db", "made by a newer quirelle (schema 99");
  test::Rows(tv / "other.db", "PRAGMA user_version = 1");
  ExpectNoTv(tv / "other.db", "made by an older quirelle (schema 1");
  // As the line says.
  EXPECT_EQ(test::Execute("quirelle-tv", {"new", "europe", "--tv", tv / "other.db", "--force"}).status, 0);
  EXPECT_EQ(test::Execute("quirelle", {"tv-rating", "--tv", tv / "other.db", "--keys", "Back"}).status, 0);
}

/// The program with a half-copied TV: whichever page it misses, it says so instead of showing made-up values.
TEST(BadInput, ATvThatIsCutShort) {
  const TvFile tv;
  test::Rows(tv.Path(), "VACUUM INTO '" + tv / "cut.db" + "'");
  const std::string whole = test::ReadWhole(tv / "cut.db");
  for (const size_t length : {whole.size() / 2, size_t{4096}, size_t{100}}) {
    Write(tv / "cut.db", whole.substr(0, length));
    ExpectNoTv(tv / "cut.db", "");
  }
}

TEST(BadInput, ALockedTv) {
  const TvFile tv;
  const std::string before = tv.Contents();
  const std::vector<std::string> impatient = {"QUIRELLE_PATIENCE=100"};
  for (const char* lock : {"BEGIN IMMEDIATE", "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; COMMIT"}) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(tv.Path().c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, lock, nullptr, nullptr, nullptr), SQLITE_OK) << lock;
    ExpectRefused(tv.Program({"tv-rating", "--keys", "Return"}, impatient), 1, "locked by another program", lock);
    ExpectRefused(tv.Tv({"set", kY, "1"}, impatient), 1, "locked by another program", lock);
    sqlite3_close(db);
  }
  EXPECT_EQ(tv.Contents(), before);
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}, impatient).status, 0);
}

/// A file system of 2 MiB, while it lives. Who is not root has to be allowed `sudo`, as for the packages.
class SmallDisk {
 public:
  explicit SmallDisk(std::string path) : m_path(std::move(path)) {
    mkdir(m_path.c_str(), 0700);
    AsRoot({"/usr/bin/mount", "-t", "tmpfs", "-o", "size=2M,mode=0777", "tmpfs", m_path});
  }
  ~SmallDisk() { AsRoot({"/usr/bin/umount", m_path}); }
  void Fill() const {
    const int filler = open((m_path + "/filler").c_str(), O_WRONLY | O_CREAT, 0600);
    const std::string block(4096, 'x');
    while (write(filler, block.data(), block.size()) > 0) {
    }
    close(filler);
  }
  void Free() const { unlink((m_path + "/filler").c_str()); }

 private:
  static void AsRoot(std::vector<std::string> words) {
    if (getuid() != 0) words.insert(words.begin(), {"/usr/bin/sudo", "-n"});
    const Outcome outcome = test::Execute(words.front(), {words.begin() + 1, words.end()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
  }

  std::string m_path;
};

TEST(BadInput, AFullDisk) {
  const test::TemporaryDirectory directory;
  const SmallDisk disk(directory / "disk");
  const std::string path = directory / "disk/tv.db";
  const auto tv = [&](std::vector<std::string> words) {
    words.insert(words.begin(), {"--tv", path});
    return test::Execute("quirelle-tv", words);
  };
  ASSERT_EQ(tv({"new", "america"}).status, 0);
  disk.Fill();
  ExpectRefused(tv({"set", kY, "32"}), 1, path + ": no space left on the device", "set");
  ExpectRefused(test::Execute("quirelle", {"tv-rating", "--tv", path, "--keys", "Return"}), 1,
                path + ": no space left on the device", "quirelle");
  ExpectRefused(test::Execute("quirelle-tv", {"--tv", directory / "disk/second.db", "new", "america"}), 1,
                "no space left on the device", "new");
  EXPECT_NE(access((directory / "disk/second.db").c_str(), F_OK), 0);
  disk.Free();
  EXPECT_EQ(tv({"get", kY}).output, "0\n");
  EXPECT_EQ(test::Rows(path, "PRAGMA integrity_check").at(0), "ok");
  EXPECT_EQ(tv({"set", kY, "32"}).status, 0);
}

TEST(BadInput, ADisplayThatIsNotThere) {
  const TvFile tv;
  const std::string before = tv.Contents();
  ExpectRefused(tv.Program({"tv-rating"}, {"WAYLAND_DISPLAY=nobody"}), 1, "no Wayland display 'nobody'", "Wayland");
  ExpectRefused(tv.Program({"tv-rating"}, {"DISPLAY=:9999"}), 1, "no X11 display ':9999'", "X11");
  EXPECT_EQ(tv.Contents(), before);
}

}  // namespace
