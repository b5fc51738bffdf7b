// The TV's file and the gate before it: what others change, what fails, what must not be torn.
#include <climits>
#include <fstream>

#include "Gate.h"
#include "Harness.h"
#include "Profile.h"
#include "Store.h"
#include "system_info.h"
#include "vconf.h"

using test::Execute;
using test::Tv;

namespace {

constexpr const char* kKey = "db/menu/refresh_menu";
constexpr const char* kText = "db/uifw/uisize";

test::Outcome TvCommand(Tv& tv, std::vector<std::string> words) {
  words.insert(words.begin(), {"--tv", tv.Path()});
  return Execute("quirelle-tv", words);
}

int Read(const char* key) {
  int value = -99;
  return vconf_get_int(key, &value) == 0 ? value : -1;
}

std::string MessageOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "nothing was wrong";
}

// --- several processes ---------------------------------------------------------------------------

TEST(Gate, FaultsOfAnotherProcessCountFromTheNextCall) {
  Tv tv;
  EXPECT_EQ(Read(kKey), 0);
  EXPECT_EQ(TvCommand(tv, {"fail", "vconf_get_int"}).status, 0);
  EXPECT_EQ(Read(kKey), -1);
  EXPECT_EQ(vconf_set_int(kKey, 3), 0) << "other operations work";
  EXPECT_EQ(TvCommand(tv, {"heal"}).status, 0);
  EXPECT_EQ(Read(kKey), 3);
  EXPECT_EQ(TvCommand(tv, {"fail", "vconf_get_int", "--times", "2"}).status, 0);
  EXPECT_EQ(Read(kKey), -1);
  EXPECT_EQ(Read(kKey), -1);
  EXPECT_EQ(Read(kKey), 3) << "twice is twice";
}

TEST(Gate, OnlyWhatCanFailIsMadeTo) {
  Tv tv;
  const std::vector<std::string> wrong[] = {{"fail", "no_such_call"},
                                            {"fail", "ui_app_exit"},
                                            {"fail", "vconf_get_int", "nonsense"},
                                            {"fail", "vconf_get_int", "--times", "0"}};
  for (const auto& words : wrong) {
    const test::Outcome outcome = TvCommand(tv, words);
    EXPECT_NE(outcome.status, 0) << words.back();
    EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
    EXPECT_NE(outcome.errors.find(words.back() == "0" ? "--times" : words.back()), std::string::npos) << outcome.errors;
  }
  EXPECT_EQ(Read(kKey), 0);
}

TEST(Gate, OwnFaultsFailEveryOperationAsItSays) {
  Tv tv;
  for (const desktop::Operation* operation : desktop::Operations()) {
    for (const char* failure : operation->failures) tv.Fail(operation->name, failure);
  }
  char* text = nullptr;
  bool flag = true;
  EXPECT_EQ(vconf_get_str(kText), nullptr);
  EXPECT_EQ(system_info_get_custom_bool("com.vantrel/featureconf/lfd_touch_support", &flag), -1);
  EXPECT_EQ(system_info_get_custom_string("com.vantrel/featureconf/product.device_sid", &text), -1);
  EXPECT_TRUE(flag && !text) << "a failing call touches nothing";
}

TEST(Gate, JournalsWhatWasAskedInOrder) {
  Tv tv;
  vconf_set_int(kKey, 4);
  Read(kKey);
  Read("no/such/key");
  vconf_set_str(kText, "small");
  free(vconf_get_str(kText));
  const char* expected[][3] = {{"vconf_set_int", "db/menu/refresh_menu, 4", "0"},
                               {"vconf_get_int", "db/menu/refresh_menu", "0"},
                               {"vconf_get_int", "no/such/key", "-1"},
                               {"vconf_set_str", "db/uifw/uisize, small", "0"},
                               {"vconf_get_str", "db/uifw/uisize", "ok"}};
  const std::vector<test::Call> calls = tv.Journal();
  ASSERT_EQ(calls.size(), std::size(expected));
  for (size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i].operation, expected[i][0]);
    EXPECT_EQ(calls[i].arguments, expected[i][1]);
    EXPECT_EQ(calls[i].result, expected[i][2]);
  }
  for (int i = 0; i < 600; ++i) Read(kKey);
  EXPECT_EQ(tv.Journal().size(), 605U) << "none is lost when many are pending";
}

// --- keys ----------------------------------------------------------------------------------------

TEST(Settings, KeepTheTypeOfAKey) {
  Tv tv;
  int value = 7;
  EXPECT_EQ(vconf_get_bool(kKey, &value), -1);
  EXPECT_EQ(vconf_get_int(kText, &value), -1);
  EXPECT_EQ(value, 7);
  EXPECT_EQ(vconf_get_str(kKey), nullptr);
  EXPECT_EQ(vconf_set_str(kKey, "text"), -1);
  EXPECT_EQ(vconf_set_int(kText, 1), -1);
  EXPECT_EQ(tv.Get(kText), "normal");
  for (const int extreme : {INT_MIN, INT_MAX, -1}) {
    EXPECT_EQ(vconf_set_int("db/test/new", extreme), 0);
    EXPECT_EQ(vconf_get_int("db/test/new", &value), 0);
    EXPECT_EQ(value, extreme);
  }
  EXPECT_EQ(vconf_set_int(nullptr, 1), -1);
  EXPECT_EQ(vconf_get_int(nullptr, &value), -1);
  EXPECT_EQ(vconf_set_str("db/test/text", "it's; DROP TABLE setting --"), 0);
  EXPECT_EQ(tv.Get("db/test/text"), "it's; DROP TABLE setting --");
}

TEST(Settings, MemoryKeysComeUpAnewWithTheSet) {
  Tv tv;
  const char* shown = "memory/function-osd/number_pad_show";
  EXPECT_EQ(vconf_set_int(shown, 1), 0);
  EXPECT_EQ(vconf_set_int("memory/test/new", 1), 0);
  EXPECT_EQ(vconf_set_int(kKey, 5), 0);
  desktop::Store::Open(tv.Path());
  EXPECT_EQ(Read(shown), 1) << "the set was not switched off";
  desktop::Store::Get().Write([] { desktop::Query("UPDATE meta SET value = 'before' WHERE key = 'boot'").Run(); });
  desktop::Store::Open(tv.Path());
  EXPECT_EQ(Read(shown), 0);
  EXPECT_EQ(Read("memory/test/new"), -1);
  EXPECT_EQ(Read(kKey), 5);
}

// --- files that are no TV, or cannot be written --------------------------------------------------

TEST(Store, SaysWhatIsWrongWithAFile) {
  const test::TemporaryDirectory directory;
  const std::string text = directory / "text.db", empty = directory / "empty.db", other = directory / "other.db";
  std::ofstream(text) << std::string(5000, 'x');
  std::ofstream(empty).flush();
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(other.c_str(), &db), SQLITE_OK);
  sqlite3_exec(db, "CREATE TABLE setting (key)", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  const std::string missing = directory / "missing.db";
  const auto open = [](const std::string& path) { return MessageOf([&] { desktop::Store::Open(path); }); };
  for (const std::string& path : {text, empty, other}) EXPECT_EQ(open(path), path + ": not a TV");
  EXPECT_EQ(open(missing), missing + ": No such file or directory");
  EXPECT_FALSE(std::filesystem::exists(missing)) << "a look makes no TV";

  Tv tv;
  desktop::Store::Get().Execute("PRAGMA user_version = 99");
  EXPECT_EQ(open(tv.Path()), tv.Path() +
                                 ": made by a newer quirelle (schema 99, this one knows 2); to replace it by a new "
                                 "TV: quirelle-tv new PROFILE --tv '" +
                                 tv.Path() + "' --force");
  EXPECT_FALSE(desktop::Store::IsOpen());
}

TEST(Store, ALockedTVFailsTheCallAndChangesNothing) {
  Tv tv;
  vconf_set_int(kKey, 1);
  sqlite3_busy_timeout(desktop::Store::Get().Handle(), 20);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(tv.Path().c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE; UPDATE setting SET value = 9 WHERE key = 'db/menu/refresh_menu'",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  EXPECT_EQ(vconf_set_int(kKey, 2), -1);
  EXPECT_TRUE(test::Logged("vconf_set_int: " + tv.Path() + ": locked by another program"));
  EXPECT_EQ(Read(kKey), 1) << "what another is writing is not seen before it is written";
  sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  EXPECT_EQ(vconf_set_int(kKey, 3), 0);
  EXPECT_EQ(Read(kKey), 3);
  EXPECT_EQ(tv.Journal("vconf_set_int").size(), 3U) << "the failed call is in the journal too";
}

TEST(Store, AFullDiskFailsTheCallAndTearsNothing) {
  Tv tv;
  vconf_set_str(kText, "small");
  desktop::Gate::Flush();
  desktop::Store::Get().Execute("PRAGMA max_page_count = 1");
  EXPECT_EQ(vconf_set_str(kText, std::string(300000, 'x').c_str()), -1);
  EXPECT_EQ(tv.Get(kText), "small");
  desktop::Store::Get().Execute("PRAGMA max_page_count = 100000");
  EXPECT_EQ(vconf_set_str(kText, "exSmall"), 0);
  desktop::Store::Open(tv.Path());
  EXPECT_EQ(tv.Get(kText), "exSmall");
  desktop::Query check("PRAGMA integrity_check");
  ASSERT_TRUE(check.Row());
  EXPECT_EQ(check.Text(0), "ok");
}

TEST(Store, ATransactionIsAllOrNothing) {
  Tv tv;
  EXPECT_EQ(MessageOf([] {
              desktop::Store::Get().Write([] {
                desktop::Query("UPDATE setting SET value = 8 WHERE key = 'db/menu/refresh_menu'").Run();
                desktop::Store::Get().Write([] { throw std::runtime_error("inside"); });
              });
            }),
            "inside");
  EXPECT_EQ(Read(kKey), 0);
  EXPECT_EQ(vconf_set_int(kKey, 1), 0) << "the connection is as good as before";
}

TEST(Store, AQueryInsideTheSameQueryWalksOnItsOwn) {
  Tv tv;
  const char* sql = "SELECT key FROM setting WHERE key GLOB 'db/menu/broadcasting/program_rating_lock/*' ORDER BY key";
  desktop::Query outer(sql);
  int pairs = 0;
  while (outer.Row()) {
    desktop::Query inner(sql);
    while (inner.Row()) ++pairs;
  }
  EXPECT_EQ(pairs, 36);
}

// --- profiles ------------------------------------------------------------------------------------

TEST(Profiles, SayWhereTheyAreWrong) {
  // A copy of the program beside profiles of the test's own.
  const test::TemporaryDirectory directory;
  const std::string program = directory / "quirelle-tv";
  std::filesystem::copy(std::filesystem::path(BUILD_DIRECTORY) / "quirelle-tv", program);
  std::filesystem::create_directory(directory / "profiles");
  struct Case {
    const char* text;
    const char* message;
  };
  const Case cases[] = {
      {"int key 1", "bad.tv:2: stands outside a section"},
      {"[settings", "bad.tv:2: section without a closing bracket"},
      {"[nonsense]\nx", "bad.tv:3: unknown section [nonsense]"},
      {"[settings]\nint key one", "bad.tv:3: 'one' is no number"},
      {"[settings]\nint key 99999999999999999999", "bad.tv:3: '99999999999999999999' is no number"},
      {"[settings]\nbool key maybe", "bad.tv:3: 'maybe' is neither true nor false"},
      {"[settings]\nfloat key 1", "bad.tv:3: unknown type 'float'"},
      {"[settings]\n\n# comment\nint", "bad.tv:5: a key is missing"},
      {"[menu]\nthing id NAME", "bad.tv:3: unknown kind 'thing'"},
      {"[menu]\nitem id", "bad.tv:3: a name is missing"},
      {"[menu]\nitem id NAME choice", "bad.tv:3: 'choice' is no choice"},
      {"[chips]\nCC 1 2 3", "bad.tv:3: '' is no number"},
      {"[chips]\nCC 1 2 3 256", "bad.tv:3: a colour is 0 to 255"},
      {"[applications]\nan.app walking", "bad.tv:3: 'walking' is neither running nor stopped"},
      {"include bad.tv", "bad.tv:2: includes itself"},
      {"include missing.inc", "missing.inc: No such file or directory"},
  };
  for (const Case& c : cases) {
    std::ofstream(directory / "profiles" / "bad.tv") << "# A bad one.\n" << c.text << "\n";
    const test::Outcome outcome = Execute(program, {"--tv", (directory / "tv.db").string(), "new", "bad"});
    EXPECT_NE(outcome.status, 0) << c.message;
    EXPECT_TRUE(outcome.errors.ends_with(c.message + std::string("\n"))) << outcome.errors << "not " << c.message;
    EXPECT_FALSE(std::filesystem::exists(directory / "tv.db"));
  }
  const test::Outcome unknown = Execute(program, {"--tv", (directory / "tv.db").string(), "new", "../bad"});
  EXPECT_NE(unknown.errors.find("unknown profile '../bad' (there are: bad)"), std::string::npos) << unknown.errors;
}

TEST(Profiles, MakeATVAsAWholeAndNeverOverAnother) {
  Tv tv;
  vconf_set_int(kKey, 6);
  const std::string path = tv.Path();
  EXPECT_EQ(MessageOf([&] { desktop::MakeTv(path, {"america", 0}, false); }), path + ": is already there");
  desktop::Store::Open(path);
  EXPECT_EQ(Read(kKey), 6);
  desktop::MakeTv(path, {"america", 0}, true);
  desktop::Store::Open(path);
  EXPECT_EQ(Read(kKey), 0);
}

}  // namespace
