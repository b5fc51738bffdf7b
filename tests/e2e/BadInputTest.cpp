// What is wrong with the words or the TV is said in one line, and nothing changes.
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "Process.h"

namespace test {

namespace {

const std::string kY = kRating + "tv_y";

void ExpectRefused(const Outcome& outcome, const std::string& said, const std::string& what, int status = 1) {
  SCOPED_TRACE(what + " said '" + outcome.errors + "', wanted '" + said + "'");
  EXPECT_EQ(outcome.status, status);
  EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1);
  EXPECT_TRUE(outcome.errors.ends_with('\n'));
  EXPECT_TRUE(Says(outcome.errors, said));
  EXPECT_EQ(outcome.output, "");
}

TEST(BadInput, OfTheCommandLines) {
  const TvFile tv;
  const std::string before = tv.Contents();
  struct BadWords {
    Texts words;
    int status;
    const char* said;
  };
  const BadWords programs[] = {
      {{}, 2, "a menu ID is missing; there are: satellite-selection"},
      {{"no-such-window"}, 2, "unknown menu ID 'no-such-window'; there are: satellite-selection"},
      {{"tv-\nrating"}, 2, "unknown menu ID 'tv-?rating'; there are: satellite-selection"},
      {{"tv-rating", "-x"}, 2, "unknown option '-x'"},
      {{"tv-rating", "--keys", "Return Sideways"}, 2, "'Sideways': no key of the remote"},
      {{"tv-rating", "--log="}, 2, "--log '': wants off, error or info"},
      {{"tv-rating", "--shot", "/nowhere/a.png"}, 1, "/nowhere/a.png: "},
      {{"tv-rating", "--dump", "/nowhere/a.json"}, 1, "/nowhere/a.json: "},
  };
  const BadWords tvs[] = {
      {{"paint"}, 2, "unknown verb 'paint'"},
      {{"get"}, 2, "usage: quirelle-tv get KEY"},
      {{"get", "db/nothing"}, 1, "no key 'db/nothing'"},
      {{"set", kY}, 2, "usage: quirelle-tv set KEY VALUE"},
      {{"set", "db/nothing", "1"}, 1, "no key 'db/nothing'"},
      {{"set", kY, "red"}, 2, "'red': wants "},
      {{"set", "db/setting/accessibility/tts", "maybe"}, 2, "'maybe': wants true or false"},
      {{"item", "no-such-item"}, 1, "no item 'no-such-item'"},
      {{"fail", "no_such_operation"}, 2, "unknown operation 'no_such_operation'"},
      {{"fail", "KeyRouter_Finalize"}, 2, "operation 'KeyRouter_Finalize' cannot fail"},
      {{"fail", "vconf_get_int", "null"}, 2, "vconf_get_int 'null'"},
      {{"fail", "vconf_get_int", "--times", "0"}, 2, "--times '0'"},
      {{"new", "atlantis"}, 1, "unknown profile 'atlantis' (there are: america, brazil, europe, hdmi)"},
      {{"new", "america"}, 1, "is already there"},
      {{"new"}, 2, "a profile is missing"},
      {{"key", "Return", "Sideways"}, 2, "key 'Sideways': no key of the remote"},
      {{"key", "Return"}, 1, "no program runs on this TV"},
      {{"--tv"}, 2, "--tv: a file is missing"},
      {{"history", "paint"}, 2, "usage: quirelle-tv history"},
      {{"history", "add", "noon:7"}, 2, "'noon:7': wants up to six numbers"},
      {{"clock", "1\n3"}, 2, "'1?3' is neither 12 nor 24"},
      {{"hdmi", "--port", "9"}, 2, "--port '9': wants 1 to 8"},
      {{"hdmi", "--port", "1", "--resolution", "1920x1080"}, 2, "--resolution '1920x1080': wants none"},
      {{"hdmi", "--port", "1", "--format", "0x100000"}, 2, "--format '0x100000': wants "},
      {{"hdmi", "--port", "1", "--name"}, 2, "--name: a value is missing"},
      {{"hdmi", "--name", "Console"}, 1, "no HDMI input is shown"},
      {{"rating", "paint"}, 2, "usage: quirelle-tv rating"},
      {{"rating", "load", "/nowhere/a.json"}, 1, "/nowhere/a.json: No such file"},
      {{"rating", "load", "/proc/self/comm"}, 1, "/proc/self/comm: Line 1, Column 1: Syntax error"},
      {{"rating", "lock", "6", "0", "on"}, 2, "dimension '6': wants 0 to 5"},
      {{"rating", "lock", "3", "3", "on"}, 2, "value '3': wants 0 to 2"},
      {{"rating", "lock", "5", "0", "on"}, 1, "dimension 5 has no value"},
      {{"rating", "lock", "0", "1", "maybe"}, 2, "'maybe' is neither on nor off"},
  };
  for (const auto& [words, status, said] : programs) {
    ExpectRefused(tv.Program(words), said, "quirelle " + testing::PrintToString(words), status);
  }
  for (const auto& [words, status, said] : tvs) {
    ExpectRefused(tv.Tv(words), said, "quirelle-tv " + testing::PrintToString(words), status);
  }
  EXPECT_EQ(tv.Contents(), before);
}

TEST(BadInput, OfTheEnvironment) {
  const TvFile tv;
  const std::string before = tv.Contents();
  const auto program = [&](const std::string& variable) {
    return tv.Program({"tv-rating", "--keys", "Down"}, {variable});
  };
  for (const std::string size : {"99999999999x1", "40000x40000", "0x1080", "1920", "1920x1080p"}) {
    ExpectRefused(program("QUIRELLE_SCREEN=" + size), "'" + size + "': wants", size);
  }
  const std::string patience = "QUIRELLE_PATIENCE=soon", said = "QUIRELLE_PATIENCE 'soon': wants 0 to 3600000";
  ExpectRefused(program(patience), said, "quirelle");
  ExpectRefused(tv.Tv({"get", kY}, {patience}), said, "quirelle-tv");
  ExpectRefused(tv.Program({"tv-rating"}, {"WAYLAND_DISPLAY=nobody"}), "no Wayland display 'nobody'", "Wayland");
  ExpectRefused(tv.Program({"tv-rating"}, {"DISPLAY=:9999"}), "no X11 display ':9999'", "X11");
  EXPECT_EQ(tv.Contents(), before);
}

/// Every way to come to a TV, on a file that is none.
void ExpectNoTv(const std::string& path, const std::string& said) {
  const std::string before = ReadWhole(path), line = path + ": " + said;
  for (const Outcome& outcome :
       {Execute("quirelle", {"tv-rating", "--tv", path, "--dump", "-"}),
        Execute("quirelle-tv", {"--tv", path, "get", kY}), Execute("quirelle-tv", {"--tv", path, "set", kY, "1"})}) {
    ExpectRefused(outcome, line, path);
  }
  EXPECT_EQ(ReadWhole(path), before) << path;
}

void Write(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

TEST(BadInput, FilesThatAreNoTv) {
  const TvFile tv;
  const std::string missing = tv / "missing.db", make = "quirelle-tv new PROFILE --tv '";
  ExpectNoTv(missing, "No such file or directory; to make a TV there: " + make + missing + "'");
  EXPECT_FALSE(std::filesystem::exists(missing));
  ExpectNoTv(tv / ".", "");
  const std::string path = tv / "other.db";
  Write(path, "");
  ExpectNoTv(path, "not a TV");
  Rows(tv.Path(), "VACUUM INTO '" + path + "'");
  const std::string whole = ReadWhole(path);
  // Half copied: whichever page is missing, made-up values are not shown.
  for (const size_t length : {whole.size() / 2, size_t{4096}, size_t{100}}) {
    Write(path, whole.substr(0, length));
    ExpectNoTv(path, "");
  }
  Write(path, whole);
  Rows(path, "PRAGMA user_version = 1");
  ExpectNoTv(path, "made by an older quirelle (schema 1, this one knows 3); to replace it by a new TV: " + make + path +
                       "' --force\n");
  // As the lines say.
  for (const Texts& words : {Texts{"new", "europe", "--tv", path, "--force"}, {"new", "europe", "--tv", missing}}) {
    EXPECT_EQ(Execute("quirelle-tv", words).status, 0);
    EXPECT_EQ(Execute("quirelle", {"tv-rating", "--tv", words[3], "--keys", "Back"}).status, 0);
  }
}

TEST(BadInput, ALockedTv) {
  const TvFile tv;
  const std::string before = tv.Contents(), said = "locked by another program";
  const Texts impatient = {"QUIRELLE_PATIENCE=100"};
  for (const char* lock : {"BEGIN IMMEDIATE", "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; COMMIT"}) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(tv.Path().c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, lock, nullptr, nullptr, nullptr), SQLITE_OK) << lock;
    ExpectRefused(tv.Program({"tv-rating", "--keys", "Return"}, impatient), said, lock);
    ExpectRefused(tv.Tv({"set", kY, "1"}, impatient), said, lock);
    sqlite3_close(db);
  }
  EXPECT_EQ(tv.Contents(), before);
}

/// A file system of 2 MiB, while it lives. Who is not root has to be allowed `sudo`, as for the packages.
class SmallDisk {
 public:
  explicit SmallDisk(const std::string& path) : m_path(path) {
    std::filesystem::create_directory(path);
    AsRoot("mount -t tmpfs -o size=2M,mode=0777 tmpfs " + path);
  }
  ~SmallDisk() { AsRoot("umount " + m_path); }

 private:
  static void AsRoot(const std::string& command) {
    const Outcome outcome = Execute("/bin/sh", {"-c", (getuid() == 0 ? "" : "sudo -n ") + command});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
  }

  std::string m_path;
};

TEST(BadInput, AFullDisk) {
  const std::string full = "no space left on the device";
  const TemporaryDirectory directory;
  const SmallDisk disk(directory / "disk");
  const std::string path = directory / "disk/tv.db", second = directory / "disk/second.db";
  const std::string filler = directory / "disk/filler";
  const auto tv = [](const std::string& file, Texts words) {
    words.insert(words.begin(), {"--tv", file});
    return Execute("quirelle-tv", words);
  };
  ASSERT_EQ(tv(path, {"new", "america"}).status, 0);
  for (std::ofstream file(filler); file << std::string(4096, 'x') << std::flush;) {
  }
  ExpectRefused(tv(path, {"set", kY, "32"}), path + ": " + full, "set");
  ExpectRefused(Execute("quirelle", {"tv-rating", "--tv", path, "--keys", "Return"}), path + ": " + full, "show");
  ExpectRefused(tv(second, {"new", "america"}), full, "new");
  EXPECT_FALSE(std::filesystem::exists(second));
  std::filesystem::remove(filler);
  EXPECT_EQ(tv(path, {"get", kY}).output, "0\n");
  EXPECT_EQ(Rows(path, "PRAGMA integrity_check").at(0), "ok");
  EXPECT_EQ(tv(path, {"set", kY, "32"}).status, 0);
}

}  // namespace

}  // namespace test
