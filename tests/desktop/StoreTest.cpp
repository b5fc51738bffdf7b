// The TV's file and the gate before it: what others change, what fails, what must not be torn.
#include <climits>
#include <fstream>

#include "Gate.h"
#include "Harness.h"
#include "system_info.h"
#include "vconf.h"

using desktop::Query;
using desktop::Store;
using test::Execute;
using test::Tv;

namespace {

constexpr const char* kKey = "db/menu/refresh_menu";
constexpr const char* kText = "db/uifw/uisize";

test::Outcome TvCommand(Tv& tv, test::Texts words) {
  words.insert(words.begin(), {"--tv", tv.Path()});
  return Execute("quirelle-tv", words);
}

int Read(const char* key) {
  int value = -99;
  return vconf_get_int(key, &value) == 0 ? value : -1;
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
  test::Texts calls;
  for (const auto& [operation, arguments, result] : tv.Journal()) {
    calls.push_back(operation + "(" + arguments + ") = " + result);
  }
  const test::Texts expected = {"vconf_set_int(db/menu/refresh_menu, 4) = 0", "vconf_get_int(db/menu/refresh_menu) = 0",
                                "vconf_get_int(no/such/key) = -1", "vconf_set_str(db/uifw/uisize, small) = 0",
                                "vconf_get_str(db/uifw/uisize) = ok"};
  EXPECT_EQ(calls, expected);
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

TEST(Settings, WhatIsNoNumberCannotBeRead) {
  Tv tv;
  for (const std::string value : {"8 9 4", "4294967297", "", "x"}) {
    test::Change("REPLACE INTO setting VALUES ('system_info/0', 'int', ?), ('system_info/1', 'ints', ?)", value,
                 "8 x" + value);
    int number = 7;
    _system_info_value_array array{};
    EXPECT_NE(system_info_get_value_int(system_info_key_e(0), &number), 0) << value;
    EXPECT_NE(system_info_get_value_int_array(system_info_key_e(1), &array), 0) << value;
    EXPECT_TRUE(number == 7 && !array.values) << value;
  }
}

TEST(Settings, MemoryKeysComeUpAnewWithTheSet) {
  Tv tv;
  const char* shown = "memory/function-osd/number_pad_show";
  EXPECT_EQ(vconf_set_int(shown, 1), 0);
  EXPECT_EQ(vconf_set_int("memory/test/new", 1), 0);
  EXPECT_EQ(vconf_set_int(kKey, 5), 0);
  Store::Open(tv.Path());
  EXPECT_EQ(Read(shown), 1) << "the set was not switched off";
  test::Change("UPDATE meta SET value = 'before' WHERE key = 'boot'");
  Store::Open(tv.Path());
  EXPECT_EQ(Read(shown), 0);
  EXPECT_EQ(Read("memory/test/new"), -1);
  EXPECT_EQ(Read(kKey), 5);
}

// --- a file that cannot be written ---------------------------------------------------------------

TEST(Store, ALockedTVFailsTheCallAndChangesNothing) {
  Tv tv;
  vconf_set_int(kKey, 1);
  sqlite3_busy_timeout(Store::Get().Handle(), 20);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(tv.Path().c_str(), &other), SQLITE_OK);
  const char* write = "BEGIN EXCLUSIVE; UPDATE setting SET value = 9 WHERE key = 'db/menu/refresh_menu'";
  ASSERT_EQ(sqlite3_exec(other, write, nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(vconf_set_int(kKey, 2), -1);
  EXPECT_TRUE(test::Logged("vconf_set_int: " + tv.Path() + ": locked by another program"));
  EXPECT_EQ(Read(kKey), 1) << "what another is writing is not seen before it is written";
  sqlite3_close(other);
  EXPECT_EQ(vconf_set_int(kKey, 3), 0);
  EXPECT_EQ(Read(kKey), 3);
  EXPECT_EQ(tv.Journal("vconf_set_int").size(), 3U) << "the failed call is in the journal too";
}

TEST(Store, ATransactionIsAllOrNothing) {
  Tv tv;
  const auto write = [] {
    test::Change("UPDATE setting SET value = 8 WHERE key = 'db/menu/refresh_menu'");
    Store::Get().Write([] { throw std::runtime_error("inside"); });
  };
  EXPECT_THROW(Store::Get().Write(write), std::runtime_error);
  EXPECT_EQ(Read(kKey), 0);
  EXPECT_EQ(vconf_set_int(kKey, 1), 0) << "the connection is as good as before";
}

TEST(Store, AQueryInsideTheSameQueryWalksOnItsOwn) {
  Tv tv;
  const char* sql =
      "SELECT key FROM setting WHERE key GLOB 'db/menu/broadcasting/program_rating_lock/tv_rating/*' ORDER BY key";
  Query outer(sql);
  int pairs = 0;
  while (outer.Row()) {
    Query inner(sql);
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
  const std::pair<const char*, std::string> cases[] = {
      {"int key 1", "bad.tv:2: stands outside a section"},
      {"[settings", "bad.tv:2: section without a closing bracket"},
      {"[nonsense]\nx", "bad.tv:3: unknown section [nonsense]"},
      {"[settings]\nint key one", "bad.tv:3: 'one' is no number"},
      {"[settings]\nbool key maybe", "bad.tv:3: 'maybe' is neither true nor false"},
      {"[settings]\nfloat key 1", "bad.tv:3: unknown type 'float'"},
      {"[settings]\n\n# comment\nint", "bad.tv:5: a key is missing"},
      {"[menu]\nthing id NAME", "bad.tv:3: unknown kind 'thing'"},
      {"[menu]\nitem id NAME choice", "bad.tv:3: 'choice' is no choice"},
      {"[chips]\nCC 1 2 3", "bad.tv:3: '' is no number"},
      {"[chips]\nCC 1 2 3 256", "bad.tv:3: a colour is 0 to 255"},
      {"[applications]\nan.app walking", "bad.tv:3: 'walking' is neither running nor stopped"},
      {"include bad.tv", "bad.tv:2: includes itself"},
      {"include missing.inc", "missing.inc: No such file or directory"},
  };
  const std::string tv = directory / "tv.db";
  for (const auto& [text, message] : cases) {
    std::ofstream(directory / "profiles/bad.tv") << "# A bad one.\n" << text << "\n";
    const test::Outcome outcome = Execute(program, {"--tv", tv, "new", "bad"});
    EXPECT_NE(outcome.status, 0) << message;
    EXPECT_TRUE(outcome.errors.ends_with(message + "\n")) << outcome.errors << "not " << message;
    EXPECT_FALSE(std::filesystem::exists(tv)) << message;
  }
}

}  // namespace
