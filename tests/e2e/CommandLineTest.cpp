// The programs as a person starts them.
#include <json/json.h>
#include <signal.h>

#include <fstream>
#include <sstream>

#include "Process.h"

using test::Outcome;
using test::Process;
using test::TvFile;
using test::Until;

namespace {

const std::string kRating = "db/menu/broadcasting/program_rating_lock/tv_rating/";

Json::Value Parsed(const std::string& text) {
  Json::Value value;
  std::istringstream(text) >> value;
  return value;
}

/// Width and height from the head of a PNG file; 0, 0 when it is none.
std::pair<unsigned, unsigned> SizeOfPng(const std::string& path) {
  const std::string bytes = test::ReadWhole(path);
  if (bytes.size() < 24 || bytes.compare(1, 3, "PNG") != 0) return {0, 0};
  const auto number = [&](size_t at) {
    unsigned value = 0;
    for (size_t i = at; i < at + 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
  };
  return {number(16), number(20)};
}

TEST(CommandLine, ListAndHelpNeedNoTv) {
  const Outcome list = test::Execute("quirelle", {"--list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.errors, "");
  EXPECT_NE(list.output.find("\ntv-rating\n"), std::string::npos);
  EXPECT_EQ(list.output.find(" "), std::string::npos);

  const Outcome help = test::Execute("quirelle", {"--help"});
  EXPECT_EQ(help.status, 0);
  for (const char* word : {"--keys", "--shot", "--dump", "--tv", "--log", "--extra", "Escape", "Page_Up"}) {
    EXPECT_NE(help.output.find(word), std::string::npos) << word;
  }
}

TEST(CommandLine, ScriptsAreWrittenOutAndKept) {
  const TvFile tv;
  const Outcome first = tv.Program({"tv-rating", "--keys", "shot:" + tv / "before.png" + " Return", "--shot",
                                    tv / "after.png", "--dump", "-", "--log", "off"});
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.errors, "");
  const Json::Value screen = Parsed(first.output);
  EXPECT_EQ(screen["stack"].size(), 1u);
  EXPECT_EQ(screen["title"].asString(), "TV rating");
  EXPECT_EQ(screen["focus"].asString(), "All, TV-Y");
  EXPECT_TRUE(screen["checks"][0]["on"].asBool());
  EXPECT_FALSE(screen["exited"].asBool());
  EXPECT_TRUE(screen["progress"].isNull());
  for (const char* name : {"texts", "rows", "checks", "buttons", "spoken", "launched"}) {
    EXPECT_TRUE(screen[name].isArray()) << name;
  }
  EXPECT_EQ(SizeOfPng(tv / "before.png"), std::make_pair(1920u, 1080u));
  EXPECT_EQ(SizeOfPng(tv / "after.png"), std::make_pair(1920u, 1080u));
  EXPECT_NE(test::ReadWhole(tv / "before.png"), test::ReadWhole(tv / "after.png"));
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");

  const Outcome second = tv.Program({"tv-rating", "--keys", "Back", "--dump", tv / "end.json"});
  EXPECT_EQ(second.output + second.errors, "");
  const Json::Value end = Parsed(test::ReadWhole(tv / "end.json"));
  EXPECT_TRUE(end["exited"].asBool());
  EXPECT_TRUE(end["stack"].isArray());
  EXPECT_EQ(end["stack"].size(), 0u);
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");
}

TEST(CommandLine, AWindowThatIsLeftAloneStaysAsItIs) {
  const TvFile tv;
  const std::string keys = "shot:" + (tv / "opened.png") + " wait:0.5 wait:0.2 wait:0.5 shot:" + (tv / "left.png");
  const Outcome outcome = tv.Program({"signal-information-weakhistory", "--keys", keys, "--dump", tv / "screen.json"});
  EXPECT_EQ(outcome.output + outcome.errors, "");
  EXPECT_FALSE(Parsed(test::ReadWhole(tv / "screen.json"))["exited"].asBool()) << "it waited for too long";
  EXPECT_EQ(SizeOfPng(tv / "opened.png"), std::make_pair(1920u, 1080u));
  EXPECT_TRUE(test::ReadWhole(tv / "opened.png") == test::ReadWhole(tv / "left.png")) << "something has moved";
}

TEST(CommandLine, LaunchParametersReachTheProgram) {
  const TvFile tv;
  EXPECT_EQ(tv.Program({"tv-rating", "--extra", "PrevSubmenu=com.vantrel.tv.parent", "--extra=deeplink=a=b", "--keys",
                        "Back"})
                .status,
            0);
  const std::string journal = tv.Tv({"journal"}).output;
  EXPECT_NE(journal.find("app_control_get_extra_data(ID) = 0 -> tv-rating"), std::string::npos);
  EXPECT_NE(journal.find("app_control_get_extra_data(PrevSubmenu) = 0 -> com.vantrel.tv.parent"), std::string::npos);
  EXPECT_NE(journal.find("app_control_get_extra_data(deeplink) = 0 -> a=b"), std::string::npos);
  EXPECT_NE(journal.find("app_control_get_extra_data(DiagnosisType) = -1"), std::string::npos);
}

TEST(CommandLine, TheLogGoesBesideTheTvOrWhereItIsAskedFor) {
  const TvFile tv;
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).errors, "");
  const std::string file = test::ReadWhole(tv / "tv.log");
  EXPECT_NE(file.find("[Error]App Create"), std::string::npos);
  EXPECT_NE(file.find("TV-Y_All turned 1"), std::string::npos);

  const Outcome error = tv.Program({"tv-rating", "--log", "error", "--keys", "Return"});
  EXPECT_NE(error.errors.find("[Error]App Create"), std::string::npos);
  EXPECT_EQ(error.errors.find("TV-Y_All turned"), std::string::npos);
  const Outcome info = tv.Program({"tv-rating", "--log", "info", "--keys", "Return"});
  EXPECT_NE(info.errors.find("TV-Y_All turned 1"), std::string::npos);
}

TEST(CommandLine, TheFirstStartMakesTheDefaultTv) {
  const test::TemporaryDirectory home;
  const std::vector<std::string> environment = {"QUIRELLE_TV=", "XDG_DATA_HOME=" + std::string(home / "data")};
  EXPECT_EQ(test::Execute("quirelle", {"tv-rating", "--keys", "Return"}, environment).status, 0);
  const Outcome got = test::Execute("quirelle-tv", {"get", kRating + "tv_y"}, environment);
  EXPECT_EQ(got.output, "32\n");
  EXPECT_EQ(test::Rows(home / "data/quirelle/tv.db", "PRAGMA integrity_check").at(0), "ok");
}

TEST(TvCommand, ChangesAndShowsATv) {
  const TvFile tv;
  EXPECT_EQ(tv.Tv({"set", kRating + "tv_14", "47"}).status, 0);
  EXPECT_EQ(tv.Get(kRating + "tv_14"), "47");
  EXPECT_EQ(tv.Tv({"set", "db/setting/accessibility/tts", "true"}).status, 0);
  EXPECT_EQ(tv.Get("db/setting/accessibility/tts"), "true");
  EXPECT_EQ(tv.Tv({"set", "memory/function-osd/number_pad_show", "3"}).status, 0);
  EXPECT_EQ(tv.Tv({"power-cycle"}).status, 0);
  EXPECT_EQ(tv.Get("memory/function-osd/number_pad_show"), "0");

  EXPECT_EQ(tv.Tv({"item", "hdmi-delay-level"}).output, "0\n");
  EXPECT_EQ(tv.Tv({"item", "hdmi-delay-level", "2"}).status, 0);
  EXPECT_EQ(tv.Tv({"item", "hdmi-delay-level"}).output, "2\n");

  for (const char* profile : {"america", "brazil", "europe", "hdmi"}) {
    EXPECT_NE(tv.Tv({"profiles"}).output.find(profile), std::string::npos);
    EXPECT_EQ(tv.Tv({"new", profile, "--force"}).status, 0) << profile;
  }
  EXPECT_EQ(tv.Get(kRating + "tv_14"), "0");
}

TEST(TvCommand, SetsInputsAndHistory) {
  const TvFile tv;
  const Outcome hdmi =
      tv.Tv({"hdmi", "--port", "5", "--name", "Console", "--resolution", "3840x2160@119.88p", "--format", "0x70001"});
  EXPECT_NE(hdmi.output.find("5  yes    Console  3840x2160@119.88p  0x70001\n"), std::string::npos) << hdmi.output;
  const Json::Value screen = Parsed(tv.Program({"hdmi-information", "--dump", "-"}).output);
  EXPECT_EQ(screen["rows"][0]["value"].asString(), "Console (HDMI 5)");
  EXPECT_EQ(screen["rows"][1]["value"].asString(), "3840x2160 Freesync");

  EXPECT_EQ(tv.Tv({"clock", "24"}).output, "hours\n   24\n");
  EXPECT_EQ(Parsed(tv.Tv({"history", "clear", "--json"}).output).size(), 0u);
  EXPECT_EQ(tv.Tv({"history", "add", "0:7:1"}).status, 0);
  const Json::Value notes = Parsed(tv.Tv({"history", "add", "1700000000:8:65535:2:0:0", "--json"}).output);
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_TRUE(notes[0]["time"].isNull());
  EXPECT_EQ(notes[1]["entry"].asString(), "1700000000:8:65535:2:0:0");
  EXPECT_EQ(tv.Tv({"source", "0"}).status, 0);
  const Json::Value rows = Parsed(tv.Program({"signal-information-weakhistory", "--dump", "-"}).output)["rows"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0]["value"].asString(), "8");
  EXPECT_EQ(rows[1]["text"].asString(), "----/--/--         --:--");
}

TEST(TvCommand, FaultsLastAsLongAsAsked) {
  const TvFile tv;
  const Outcome list = tv.Tv({"fail", "--list"});
  EXPECT_NE(list.output.find("vconf_set_int"), std::string::npos);
  EXPECT_EQ(list.output.find("KeyRouter_Finalize"), std::string::npos);

  EXPECT_EQ(tv.Tv({"fail", "vconf_set_int", "-5", "--times", "1"}).status, 0);
  const std::vector<std::string> twice = {"tv-rating", "--keys", "Return Return", "--dump", "-"};
  EXPECT_TRUE(Parsed(tv.Program(twice).output)["checks"][0]["on"].asBool());
  EXPECT_NE(tv.Tv({"journal"}).output.find("vconf_set_int(" + kRating + "tv_y, 32) = -5"), std::string::npos);

  EXPECT_EQ(tv.Tv({"fail", "vconf_set_int"}).status, 0);
  EXPECT_TRUE(Parsed(tv.Program(twice).output)["checks"][0]["on"].asBool());
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "32");
  EXPECT_EQ(tv.Tv({"heal", "vconf_set_int"}).status, 0);
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).status, 0);
  EXPECT_EQ(tv.Get(kRating + "tv_y"), "0");
}

/// Waits until the program's window takes keys.
bool IsUp(const TvFile& tv) {
  return Until([&] { return tv.Tv({"journal"}).output.find("KeyRouter_Set_KeyList") != std::string::npos; });
}

TEST(TvCommand, ReachesTheRunningProgram) {
  const TvFile tv;
  Process program({test::Built("quirelle"), "tv-rating", "--tv", tv.Path()});
  ASSERT_TRUE(IsUp(tv));
  EXPECT_EQ(tv.Tv({"key", "Down", "Return"}).status, 0);
  EXPECT_EQ(tv.Get(kRating + "tv_y7"), "48") << "a key is dealt with when the command is back";
  EXPECT_EQ(tv.Tv({"launch", "movie-rating"}).status, 0);
  EXPECT_NE(test::ReadWhole(tv / "tv.log").find("Second window not avaible"), std::string::npos);
  EXPECT_EQ(tv.Tv({"key", "Return"}).status, 0);
  EXPECT_EQ(tv.Get(kRating + "tv_y7"), "0");
  EXPECT_EQ(tv.Tv({"pause"}).status, 0);
  EXPECT_NE(test::ReadWhole(tv / "tv.log").find("App Pause"), std::string::npos);
  program.Signal(SIGTERM);
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_EQ(tv.Tv({"key", "Return"}).status, 1);
}

TEST(TvCommand, FollowsTheJournal) {
  const TvFile tv;
  Process follower({test::Built("quirelle-tv"), "--tv", tv.Path(), "journal", "--follow"}, {}, tv / "journal.txt");
  EXPECT_EQ(tv.Program({"tv-rating", "--keys", "Return"}).status, 0);
  EXPECT_TRUE(Until([&] {
    return test::ReadWhole(tv / "journal.txt").find("vconf_set_int(" + kRating + "tv_y, 32) = 0") != std::string::npos;
  }));
}

}  // namespace
