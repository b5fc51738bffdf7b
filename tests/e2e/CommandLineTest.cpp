// The programs as a person starts them.
#include <json/json.h>
#include <signal.h>

#include <fstream>

#include "Process.h"

namespace test {

namespace {

TEST(CommandLine, ListAndHelpNeedNoTv) {
  const Outcome list = Execute("quirelle", {"--list"}), help = Execute("quirelle", {"--help"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.errors, "");
  EXPECT_TRUE(Says(list.output, "\ntv-rating\n"));
  EXPECT_FALSE(Says(list.output, " "));
  EXPECT_EQ(help.status, 0);
  for (const char* word : {"--keys", "--shot", "--dump", "--tv", "--log", "--extra", "Escape", "Page_Up"}) {
    EXPECT_TRUE(Says(help.output, word)) << word;
  }
}

TEST(CommandLine, ScriptsAreWrittenOutAndKept) {
  const TvFile tv;
  const std::string before = tv / "before.png", after = tv / "after.png", dump = tv / "end.json";
  const Outcome first =
      tv.Program({"tv-rating", "--keys", "shot:" + before + " Return", "--shot", after, "--dump", "-", "--log", "off"});
  EXPECT_EQ(first.errors, "");
  const Json::Value screen = Parsed(first.output);
  EXPECT_EQ(screen["title"].asString(), "TV rating");
  EXPECT_TRUE(screen["checks"][0]["on"].asBool());
  EXPECT_FALSE(screen["exited"].asBool());
  EXPECT_TRUE(screen["progress"].isNull());
  for (const std::string& path : {before, after}) {
    const Picture picture = LoadPicture(path);
    EXPECT_EQ(std::pair(picture.w, picture.h), std::pair(1920u, 1080u)) << path;
  }
  EXPECT_TRUE(ReadWhole(before) != ReadWhole(after));
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");

  const Outcome second = tv.Program({"tv-rating", "--keys", "Back", "--dump", dump});
  EXPECT_EQ(second.output + second.errors, "");
  const Json::Value end = Parsed(ReadWhole(dump));
  EXPECT_TRUE(end["exited"].asBool());
  EXPECT_TRUE(end["stack"].isArray() && end["stack"].empty());
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");
}

TEST(CommandLine, AWindowThatIsLeftAloneStaysAsItIs) {
  const TvFile tv;
  const std::string opened = tv / "opened.png", left = tv / "left.png";
  const Json::Value screen = tv.Screen(
      {"signal-information-weakhistory", "--keys", "shot:" + opened + " wait:0.5 wait:0.2 wait:0.5 shot:" + left});
  EXPECT_FALSE(screen["exited"].asBool()) << "it waited for too long";
  EXPECT_GT(LoadPicture(opened).w, 0U);
  EXPECT_TRUE(ReadWhole(opened) == ReadWhole(left)) << "something has moved";
}

TEST(CommandLine, TheLogGoesBesideTheTvOrWhereItIsAskedFor) {
  const TvFile tv;
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).errors, "");
  const std::string file = ReadWhole(tv / "tv.log");
  const std::string error = tv.Program({"tv-rating", "--log", "error", "--keys", "Return"}).errors;
  const std::string info = tv.Program({"tv-rating", "--log", "info", "--keys", "Return"}).errors;
  EXPECT_TRUE(Says(file, "[Error]App Create") && Says(file, "TV-Y_All turned 1")) << file;
  EXPECT_TRUE(Says(error, "[Error]App Create") && !Says(error, "TV-Y_All turned")) << error;
  EXPECT_TRUE(Says(info, "TV-Y_All turned 1")) << info;
  constexpr uintmax_t kLong = 3ULL << 30;
  std::filesystem::resize_file(tv / "tv.log", kLong);
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).errors, "");
  EXPECT_EQ(std::filesystem::file_size(tv / "tv.log.1"), kLong) << "a log that has grown too long is put aside";
}

TEST(CommandLine, ASignalEndsAScriptAtOnce) {
  const TvFile tv;
  const std::string first = tv / "first.png", left = tv / "left";
  const std::string keys = "shot:" + first + " wait:70 Return shot:" + left;
  const Texts words = {Built("quirelle"), "tv-rating", "--tv",   tv.Path(), "--keys", keys,
                       "--shot",          left,        "--dump", left};
  for (const int signal : {SIGTERM, SIGINT}) {
    Process program(words);
    const bool waits = Until([&] { return std::filesystem::exists(first) && Says(ReadWhole(first), "IEND"); });
    ASSERT_TRUE(waits);
    program.Signal(signal);
    EXPECT_EQ(program.Wait(5), 0) << signal;
    EXPECT_FALSE(std::filesystem::exists(left)) << signal;
    EXPECT_EQ(tv.Get(kRating + "tv_y"), "0") << signal;
    std::filesystem::remove(first);
  }
}

TEST(CommandLine, TheFirstStartMakesTheDefaultTv) {
  const TemporaryDirectory home;
  const Texts environment = {"QUIRELLE_TV=", "XDG_DATA_HOME=" + std::string(home / "data")};
  EXPECT_EQ(Execute("quirelle", {"tv-rating", "--keys", "Return"}, environment).status, 0);
  EXPECT_EQ(Execute("quirelle-tv", {"get", kRating + "tv_y"}, environment).output, "32\n");
  EXPECT_EQ(Rows(home / "data/quirelle/tv.db", "PRAGMA integrity_check").at(0), "ok");
}

TEST(TvCommand, ChangesAndShowsATv) {
  const TvFile tv;
  const char* number = "memory/function-osd/number_pad_show";
  for (const auto& [key, value] : {std::pair<std::string, const char*>(kRating + "tv_14", "47"),
                                   {"db/setting/accessibility/tts", "true"},
                                   {number, "3"}}) {
    tv.Do({"set", key, value});
    EXPECT_EQ(tv.Get(key), value);
  }
  tv.Do({"power-cycle"});
  EXPECT_EQ(tv.Get(number), "0");

  EXPECT_EQ(tv.Do({"item", "hdmi-delay-level"}), "0\n");
  tv.Do({"item", "hdmi-delay-level", "2"});
  EXPECT_EQ(tv.Do({"item", "hdmi-delay-level"}), "2\n");

  EXPECT_TRUE(Says(tv.Do({"profiles"}), "brazil"));
  tv.Do({"new", "brazil", "--force"});
  EXPECT_EQ(tv.Get(kRating + "tv_14"), "0");
}

TEST(TvCommand, SetsInputsAndHistory) {
  const TvFile tv;
  const std::string hdmi =
      tv.Do({"hdmi", "--port", "5", "--name", "Console", "--resolution", "3840x2160@119.88p", "--format", "0x70001"});
  EXPECT_TRUE(Says(hdmi, "5  yes    Console  3840x2160@119.88p  0x70001\n")) << hdmi;
  const Json::Value facts = tv.Screen({"hdmi-information"})["rows"];
  EXPECT_EQ(facts[0]["value"].asString(), "Console (HDMI 5)");
  EXPECT_EQ(facts[1]["value"].asString(), "3840x2160 Freesync");

  EXPECT_EQ(tv.Do({"clock", "24"}), "hours\n   24\n");
  EXPECT_TRUE(Parsed(tv.Do({"history", "clear", "--json"})).empty());
  tv.Do({"history", "add", "0:7:1"});
  const Json::Value notes = Parsed(tv.Do({"history", "add", "1700000000:8:65535:2:0:0", "--json"}));
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_TRUE(notes[0]["time"].isNull());
  EXPECT_EQ(notes[1]["entry"].asString(), "1700000000:8:65535:2:0:0");
  tv.Do({"source", "0"});
  const Json::Value rows = tv.Screen({"signal-information-weakhistory"})["rows"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0]["value"].asString(), "8");
  EXPECT_EQ(rows[1]["text"].asString(), "----/--/--         --:--");
}

TEST(TvCommand, PutsRatingSystemsOnAir) {
  const TvFile tv, other("europe");
  const std::string file = tv / "system.json";
  const std::string locked = tv.Do({"rating", "lock", "0", "3", "on"});
  EXPECT_TRUE(locked.starts_with("Family Guide\n")) << locked;
  EXPECT_TRUE(Says(locked, "        1  Violence               0  None       off\n")) << locked;
  EXPECT_TRUE(Says(locked, " 3  10+        on\n") && Says(locked, " 2  7+         off\n")) << locked;
  EXPECT_TRUE(Says(locked, " 2  Rating 2   off\n") && Says(locked, "        5  Reserved               -  -  "))
      << locked;
  const std::string json = tv.Do({"rating", "--json"});
  std::ofstream(file) << json;

  EXPECT_EQ(other.Do({"rating"}), "no rating system\n");
  EXPECT_EQ(other.Do({"rating", "load", file, "--json"}), json);
  EXPECT_FALSE(Says(other.Do({"rating"}), " on\n")) << "locks do not come with a system";
  EXPECT_EQ(tv.Do({"rating", "clear"}), "no rating system\n");
  EXPECT_EQ(tv.Do({"rating", "--json"}), "null\n");
  EXPECT_EQ(Rows(tv.Path(), "SELECT count(*) FROM rating_value"), Texts{"0"});
}

TEST(TvCommand, FaultsLastAsLongAsAsked) {
  const TvFile tv;
  const std::string list = tv.Do({"fail", "--list"});
  EXPECT_TRUE(Says(list, "vconf_set_int") && !Says(list, "KeyRouter_Finalize")) << list;

  tv.Do({"fail", "vconf_set_int", "-5", "--times", "1"});
  const Texts twice = {"tv-rating", "--keys", "Return Return"};
  EXPECT_TRUE(tv.Screen(twice)["checks"][0]["on"].asBool());
  const std::string journal = tv.Do({"journal"});
  EXPECT_TRUE(Says(journal, "vconf_set_int(" + kRating + "tv_y, 32) = -5")) << journal;
  EXPECT_TRUE(Says(journal, "app_control_get_extra_data(ID) = 0 -> tv-rating")) << journal;

  tv.Do({"fail", "vconf_set_int"});
  tv.Do({"fail", "avoc_exit_osd"});
  EXPECT_TRUE(tv.Screen(twice)["checks"][0]["on"].asBool());
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");
  tv.Do({"heal", "vconf_set_int"});
  tv.Screen({"tv-rating", "--keys", "Return"});
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "0");
  EXPECT_EQ(Rows(tv.Path(), "SELECT operation FROM fault"), Texts{"avoc_exit_osd"});
  tv.Do({"heal"});
  EXPECT_EQ(Rows(tv.Path(), "SELECT operation FROM fault"), Texts{});
}

TEST(TvCommand, SticksAreTheFoldersInOneOfTheTvsOwn) {
  namespace fs = std::filesystem;
  const TvFile tv;
  fs::create_directory(tv / "build");
  EXPECT_EQ(tv.Do({"sticks"}), "");
  const Texts importing = {"import-from-usb"};
  EXPECT_EQ(tv.Screen(importing)["texts"][0], "No USB device is connected. Check the connection.");
  tv.Do({"plug", "B"});
  std::ofstream(tv / "tv.db.sticks/B/list.zip") << "x";
  fs::create_directories(tv / "tv.db.sticks/A");
  EXPECT_EQ(tv.Do({"sticks"}), "A\nB\n");
  EXPECT_NE(tv.Screen(importing)["texts"][0], "No USB device is connected. Check the connection.");
  tv.Do({"unplug", "B"});
  EXPECT_EQ(tv.Do({"sticks"}), "A\n");
  tv.Do({"plug", "B"});
  EXPECT_TRUE(fs::exists(tv / "tv.db.sticks/B/list.zip")) << "a stick keeps what is on it";
  EXPECT_EQ(tv.Tv({"plug", "A"}).status, 1) << "it is there already";
}

TEST(TvCommand, TakesNumbersOf64Bits) {
  const TvFile tv;
  const std::string id = "4294967297";
  Rows(tv.Path(), "UPDATE service SET id = " + id + " WHERE id = (SELECT max(id) FROM service)");
  EXPECT_TRUE(Says(tv.Do({"tune", id}), " " + id + " "));
  EXPECT_EQ(Rows(tv.Path(), "SELECT service FROM picture WHERE profile = 1"), Texts{id});
  EXPECT_TRUE(Says(tv.Do({"history", "add", "4102488000:7"}), "2100-01-01"));
}

TEST(TvCommand, ReachesTheRunningProgram) {
  const TvFile tv;
  const auto program = tv.Start();
  tv.Do({"key", "Down", "Return"});
  EXPECT_EQ(tv.Get(kRating + "tv_y7"), "48") << "a key is dealt with when the command is back";
  tv.Do({"launch", "movie-rating"});
  EXPECT_TRUE(Says(ReadWhole(tv / "tv.log"), "Second window not avaible"));
  tv.Do({"key", "Return"});
  EXPECT_EQ(tv.Get(kRating + "tv_y7"), "0");
  tv.Do({"pause"});
  EXPECT_TRUE(Says(ReadWhole(tv / "tv.log"), "App Pause"));
  program->Signal(SIGTERM);
  EXPECT_EQ(program->Wait(), 0);
  EXPECT_EQ(tv.Tv({"key", "Return"}).status, 1);
}

TEST(TvCommand, FollowsTheJournal) {
  const TvFile tv;
  const Process follower({Built("quirelle-tv"), "--tv", tv.Path(), "journal", "--follow"}, {}, tv / "journal");
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).status, 0);
  EXPECT_TRUE(Until([&] { return Says(ReadWhole(tv / "journal"), "vconf_set_int(" + kRating + "tv_y, 32) = 0"); }));
}

}  // namespace

}  // namespace test
