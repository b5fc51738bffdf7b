// What is connected to the HDMI input on screen, and the history of weak signals with the delay levels behind it.
#include <Elementary.h>

#include <algorithm>
#include <ctime>

#include "SignalHistory.h"
#include "SignalInfo.h"
#include "tvs/Inputs.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kHdmi = "hdmi-information";
constexpr const char* kHistory = "signal-information-weakhistory";
constexpr const char* kNoTime = "----/--/--         --:--";
const std::string kHint = "Channels are listed here when their signal was weak.";
const std::string kHdbt = "com.vantrel/featureconf/hdbt_source_support";
const std::string kHdbtPort = "com.vantrel/featureconf/hdmi_port_for_hdbt";
const Texts kRegular = {"Cable test", "Signal history", "Close"};

void SetSource(int source) { test::Change("UPDATE picture SET source = ? WHERE profile = 1", source); }

void Show(int source, const std::string& name, const std::string& resolution, long format = 2) {
  SetSource(source);
  desktop::Store::Get().Write([&] {
    desktop::SetInputName(static_cast<ESource>(source), name);
    desktop::SetInputResolution(static_cast<ESource>(source), desktop::ParseResolution(resolution).value());
    desktop::SetInputFormat(static_cast<ESource>(source), format);
  });
}

/// Rows as the window shows them.
std::string Facts(Remote& remote) {
  std::string text;
  for (const auto& [name, value] : remote.Rows()) text += name + "=" + value + ";";
  return text;
}

/// The second of a local time on 2 March 2025.
time_t At(int hour, int minute) {
  tm local{};
  strptime("2025/03/02", "%Y/%m/%d", &local);
  local.tm_hour = hour;
  local.tm_min = minute;
  local.tm_isdst = -1;
  return mktime(&local);
}

std::string Note(time_t time, int major = 7) {
  return std::to_string(time) + ":" + std::to_string(major) + ":65535:2:0:0";
}

void SetNotes(const Texts& notes) {
  test::Change("DELETE FROM weak_signal");
  for (const std::string& note : notes) test::Change("INSERT INTO weak_signal (entry) VALUES (?)", note);
}

Texts Stamps() {
  std::vector<DataInfo> rows;
  test::SignalHistory().GetData(rows, test::SignalHistory::SOURCE_BROADCAST);
  Texts stamps;
  for (const DataInfo& row : rows) stamps.push_back(row.displayName);
  return stamps;
}

TEST(Information, OpensWithoutWhatTheTvDoesNotSay) {
  const std::string source = "Source=Box (HDMI 2);", resolution = "Resolution=1920x1080 / 60p;",
                    none = "Resolution=No signal;", note = "2025/03/02         18:40=7;";
  const struct {
    const char *menuID, *operation, *result;
    std::string facts;
    const char* said;
  } cases[] = {
      {kHdmi, "SourceAPI::GetSourceEditName", "", "Source=HDMI 2;" + resolution, "[Info]GetSourceEditName : "},
      {kHdmi, "CreateAVControl", "", source + none, "[Error]Current source isn't HDMI"},
      {kHdmi, "AVControl::GetResolution", "1", source + none, "[Error]Current source isn't HDMI"},
      {kHdmi, "SourceControl::GetSource", "", "Source=Error;Resolution=;", "[Error]Current source isn't HDMI"},
      {kHdmi, "system_info_get_custom_bool", "", source + resolution, "[Error]system info fails"},
      {kHdmi, "system_info_get_custom_int", "", source + resolution, "[Error]system info fails"},
      {kHistory, "CreateSourceControl", "null", "", "[Error]WeakSignalHistory is empty"},
      {kHistory, "SourceControl::GetWeakSignalHistory", "0", "", "[Error]WeakSignalHistory is empty"},
      {kHistory, "SourceControl::GetWeakSignalHistory", "-1", "", "[Error]WeakSignalHistory is empty"},
      {kHistory, "SourceControl::GetSource", "-1", note, "[Error]Current source : -1"},
      {kHistory, "CTimeUtil::ConvertToLocalTime", "-1", kNoTime + std::string("=7;"), "[Error] Invalid Date "},
      {kHistory, "SettingsAPI::GetItemDisplayName", "false", note, nullptr},
      {test::kSignalInformation, "SettingsAPI::GetItemChildList", "", "", "[Debug]vSIData is empty"},
      {test::kSignalInformation, "SettingsAPI::GetItemVisible", "", "", "[Debug]vSIData is empty"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.menuID + std::string(" without ") + c.operation);
    const bool hdmi = c.menuID == kHdmi;
    Tv tv(hdmi ? "hdmi" : "europe", 0);
    tv.Set(kHdbt, std::string(c.operation).starts_with("system_info") ? "1" : "0");
    tv.Set(kHdbtPort, "2");
    if (hdmi) Show(SOURCE_TYPE_HDMI2, "Box", "1920x1080@60p");
    SetNotes({Note(At(18, 40))});
    tv.Fail(c.operation, c.result);
    test::Run({c.menuID}, [&](Remote& remote) {
      EXPECT_EQ(Facts(remote), c.facts);
      EXPECT_TRUE(!c.said || test::Logged(c.said));
      EXPECT_EQ(remote.Focus(), "Close");
      remote.Wait(10);
      EXPECT_EQ(tv.Calls("TunerControl::GetSignalQuality"), 0U) << "nothing to refresh";
      if (!hdmi) remote.Wait(55);
      EXPECT_EQ(remote.HasExited(), !hdmi);
    });
  }
}

// --- the external device -------------------------------------------------------------------------

TEST(HdmiInfo, NamesTheDeviceAndThePort) {
  const struct {
    int source;
    const char *name, *shown;
  } cases[] = {{13, "", "HDMI 1"},
               {14, "", "HDMI 2"},
               {15, "Player", "Player (HDMI 3)"},
               {16, "", "HDMI 4"},
               {38, "A & <b>B</b>", "A & <b>B</b> (HDMI 5)"},
               {39, "", "HDMI 6"},
               {46, "안녕", "안녕 (HDMI 7)"},
               {47, "", "HDMI 8"},
               {12, "", "Error"},
               {17, "Aerial", "Aerial (Error)"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.source);
    Tv tv("hdmi", 0);
    Show(c.source, c.name, "1920x1080@50p");
    test::Run({kHdmi}, [&](Remote& remote) {
      const bool hdmi = std::string(c.shown).find("HDMI") != std::string::npos;
      EXPECT_EQ(Facts(remote), std::string("Source=") + c.shown + ";Resolution=" + (hdmi ? "1920x1080 / 50p;" : ";"));
      EXPECT_EQ(remote.Buttons(), kRegular);
      EXPECT_EQ(remote.Focus(), "Close");
    });
  }
}

TEST(HdmiInfo, SaysWhatComesIn) {
  const struct {
    const char* resolution;
    long format;
    const char* shown;
  } cases[] = {{"1920x1080@59.94p", 2, "1920x1080 / 60p"},
               {"1920x1080@29.97i", 2, "1920x1080 / 30i"},
               {"1920x1080@23.49p", 2, "1920x1080 / 23p"},
               {"1920x1080@23.5p", 2, "1920x1080 / 24p"},
               {"720x576@50i", 0x6ffff, "720x576 / 50i"},
               {"3840x2160@120p", 0x70000, "3840x2160 Freesync"},
               {"3840x2160@120i", 0x70009, "3840x2160 Freesync"},
               {"3840x2160@120p", 0x7000a, "3840x2160 / 120p"},
               {"3840x2160@60p", 0x9ffff, "3840x2160 / 60p"},
               {"3840x2160@60p", 0xa0000, "3840x2160 Freesync"},
               {"3840x2160@60p", 0xa0001, "3840x2160 Freesync"},
               {"3840x2160@60p", 0xa0002, "3840x2160 / 60p"},
               {"none", 0x70000, "No signal"}};
  for (const auto& c : cases) {
    Tv tv("hdmi", 0);
    Show(SOURCE_TYPE_HDMI5, "", c.resolution, c.format);
    test::Run({kHdmi}, [&](Remote& remote) {
      EXPECT_EQ(Facts(remote), std::string("Source=HDMI 5;Resolution=") + c.shown + ";") << c.resolution << c.format;
    });
  }
}

TEST(HdmiInfo, AnHDBaseTInputCanOnlyBeClosed) {
  const struct {
    const char *supported, *port;
    int source;
    bool isHdbt;
  } cases[] = {{"1", "2", 14, true}, {"1", "2", 13, false}, {"0", "2", 14, false}, {"1", "5", 38, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.source);
    Tv tv("hdmi", 0);
    tv.Set(kHdbt, c.supported);
    tv.Set(kHdbtPort, c.port);
    Show(c.source, "", "1920x1080@60p");
    test::Run({kHdmi}, [&](Remote& remote) {
      EXPECT_EQ(remote.Buttons(), c.isHdbt ? Texts{"Close"} : kRegular);
      EXPECT_EQ(Facts(remote).starts_with("Source=HDBaseT;"), c.isHdbt);
      remote.ExpectExit("Return");
    });
    EXPECT_EQ(tv.Calls("app_control_send_launch_request"), 0U);
  }
}

TEST(HdmiInfo, TestsTheCable) {
  const std::string request = R"(com.vantrel.tv.wirelore, {"type":"VIDEO_TROUBLE_SHOOTING_SETUP"})";
  const char* launch = "app_control_send_launch_request";
  Tv tv("hdmi", 0);
  test::Run({kHdmi}, [&](Remote& remote) {
    remote.Press("Up Up Return");
    EXPECT_EQ(tv.ArgumentsOf(launch), Texts{request});
    EXPECT_EQ(test::Ask("SELECT running FROM application WHERE id = 'com.vantrel.tv.wirelore'"), "1");
    for (const char* failing : {launch, "app_control_create"}) {
      tv.Fail(failing);
      remote.Press("Return");
      EXPECT_EQ(tv.ArgumentsOf(launch), (Texts{request, request}));
    }
    EXPECT_EQ(remote.Focus(), "Cable test");
    EXPECT_EQ(tv.Calls("app_control_destroy") + 1, tv.Calls("app_control_create"));
  });
}

TEST(HdmiInfo, GivesWayToTheHistoryAndComesBack) {
  Tv tv("hdmi", 0);
  test::Run({kHdmi}, [&](Remote& remote) {
    remote.Press("1 9 F5");
    EXPECT_EQ(remote.Focus(), "Close") << "the number keys do nothing";
    EXPECT_EQ(tv.Requests("XF86More"), "+");
    remote.Wait(3600);
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack().back(), kHistory);
    EXPECT_EQ(remote.Buttons(), (Texts{"HDMI delay level", "Close"})) << "the window below is hidden";
    EXPECT_EQ(tv.Requests("XF86More"), "+-");

    remote.Press("Return");
    EXPECT_EQ(remote.Stack(), Texts{kHdmi});
    EXPECT_EQ(remote.Focus(), "Signal history");
    EXPECT_EQ(remote.Buttons(), kRegular);
    EXPECT_EQ(tv.Requests("XF86More").back(), '+');
    remote.Wait(3600);
    EXPECT_FALSE(remote.HasExited()) << "the window has no time-out";
    remote.ExpectExit("Down Return");
    EXPECT_EQ(tv.Requests("XF86More").back(), '-');
  });
}

/// The pixels of the last letters of a text.
std::vector<unsigned> EndOf(Remote& remote, const std::string& text) {
  const test::Place place = remote.PlaceOf(text);
  std::vector<unsigned> pixels;
  for (int y = place.y; y < place.y + place.h; ++y) {
    for (int x = place.x + place.w - 80; x < place.x + place.w; ++x) pixels.push_back(remote.ColourAt(x, y));
  }
  return pixels;
}

TEST(HdmiInfo, ALongNameGivesWayToThePort) {
  const struct {
    const char* language;
    std::string name;
  } cases[] = {{"en_US.utf8", std::string(40, 'W')},
               {"en_US.utf8", std::string(2000, 'i')},
               {"en_US.utf8", "A & <b>player</b> in the room at the end of the corridor"},
               // This one has no catalogue here, and long words on a set: the rows stand smaller.
               {"xh_ZA.utf8", std::string(40, 'W')},
               {"ar_AE.utf8", std::string(40, 'W')}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.language + (" " + c.name));
    Tv tv("hdmi", 0);
    tv.SetLanguage(c.language);
    Show(SOURCE_TYPE_HDMI1, "W", "1920x1080@50p");
    std::vector<unsigned> end;
    std::string port;
    test::Run({kHdmi}, [&](Remote& remote) {
      const std::string value = remote.Rows()[0].second;
      EXPECT_EQ(remote.PlaceOf(value).h, *c.language == 'x' ? 42 : 52);
      port = value.substr(1);
      end = EndOf(remote, value);
    });
    Show(SOURCE_TYPE_HDMI1, c.name, "1920x1080@50p");
    test::Run({kHdmi}, [&](Remote& remote) {
      const std::string value = remote.Rows()[0].second;
      ASSERT_TRUE(value.ends_with("\u2026" + port)) << value;
      EXPECT_TRUE(c.name.starts_with(value.substr(0, value.find("\u2026")))) << value;
      EXPECT_GT(remote.PlaceOf(value).w, 400) << "it gives way too far";
      EXPECT_EQ(EndOf(remote, value), end) << "the theme cuts it once more";
    });
  }
}

// --- the history ---------------------------------------------------------------------------------

TEST(History, PutsTheNewestFirstInWhicheverOrderTheNotesCome) {
  const struct {
    int hours;
    const char* language;
    /// Times of one date, newest first.
    Texts times;
  } cases[] = {
      {24, "en_US.utf8", {"13:30", "12:10", "01:30", "00:05"}},
      {12, "en_US.utf8", {"01:30 PM", "12:10 PM", "01:30 AM", "12:05 AM"}},
      {12, "ar_AE.utf8", {"01:30 م", "12:10 م", "01:30 ص", "12:05 ص"}},
      {12, "ko_KR.utf8", {"오후 01:30", "오후 12:10", "오전 01:30", "오전 12:05"}},
  };
  Texts notes = {Note(At(0, 5)), Note(At(1, 30)), Note(At(12, 10)), Note(At(13, 30)), Note(0)};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.language) + " " + std::to_string(c.hours));
    Tv tv("europe", 0);
    test::Change("REPLACE INTO tv_state VALUES ('clock_hours', ?)", c.hours);
    tv.SetLanguage(c.language);
    Texts expected;
    for (const std::string& time : c.times) expected.push_back("2025/03/02         " + time);
    expected.emplace_back(kNoTime);
    test::Run({kHistory}, [&](Remote&) {
      std::sort(notes.begin(), notes.end());
      do {
        SetNotes(notes);
        ASSERT_EQ(Stamps(), expected);
      } while (std::next_permutation(notes.begin(), notes.end()));
      SetNotes({Note(2209032000), Note(4102488000)});
      EXPECT_TRUE(Stamps()[0].starts_with("2100/01/01") && Stamps()[1].starts_with("2040/01/01"));
    });
  }
}

TEST(History, ListsTimeAndChannelAnewEachTime) {
  Tv tv("europe", 0);
  Texts notes = {"-67768040609740800:12:3:2:0:1", Note(At(18, 40), 8), "::", ""};
  std::vector<std::pair<std::string, std::string>> rows = {{"2025/03/02         18:40", "8"}, {kNoTime, "UHD 12-3"}};
  for (const bool again : {false, true}) {
    // Of one minute, the one that was noted later stands first.
    for (const int channel : again ? std::vector{9, 10} : std::vector<int>()) {
      notes.push_back(Note(At(18, 41), channel));
      rows.insert(rows.begin(), {"2025/03/02         18:41", std::to_string(channel)});
    }
    SetNotes(notes);
    test::Run({kHistory}, [&](Remote& remote) {
      EXPECT_EQ(remote.Rows(), rows);
      EXPECT_TRUE(remote.Shows(kHint));
      // A row can be chosen, and nothing comes of it.
      remote.Press("Left Return");
      EXPECT_EQ(remote.Stack(), Texts{kHistory});
    });
  }
}

/// "top", "bottom", both or none.
std::string Shadows(Remote& remote) {
  const Evas_Object* edje = elm_layout_edje_get(remote.List());
  std::string shown;
  for (const char* edge : {"top", "bottom"}) {
    double value = 0;
    const char* state = edje_object_part_state_get(edje, (std::string("shadow.") + edge).c_str(), &value);
    if (std::string_view(state) == "visible") shown += (shown.empty() ? "" : " ") + std::string(edge);
  }
  return shown;
}

TEST(History, ShadowsSayWhereThereIsMore) {
  const struct {
    int rows;
    /// Keys, and the shadows after them.
    std::vector<std::pair<const char*, const char*>> steps;
  } cases[] = {
      {5, {{"", ""}, {"Left Down Down Down Down", ""}}},
      {6, {{"Left Down Down Down Down", "bottom"}, {"Down", "top"}, {"Right Left", "top"}, {"Up", "top bottom"}}},
      {8, {{"", "bottom"}, {"Left Down Down Down Down Down", "top bottom"}, {"Down Down", "top"}}}};
  for (const auto& c : cases) {
    Tv tv("europe", 0);
    Texts notes;
    for (int i = 0; i < c.rows; ++i) notes.push_back(Note(At(10, i)));
    SetNotes(notes);
    test::Run({kHistory}, [&](Remote& remote) {
      for (const auto& [keys, shadows] : c.steps) {
        remote.Press(keys);
        EXPECT_EQ(Shadows(remote), shadows) << c.rows << " rows, after " << keys << ", at " << remote.Focus();
      }
    });
  }
}

TEST(History, OfAnExternalDeviceOpensTheDelayLevels) {
  Tv tv("hdmi", 0);
  for (const int source : {12, 13, 14, 15, 16, 17, 37, 38, 39, 40, 45, 46, 47, 48}) {
    SetSource(source);
    const bool hdmi = (source > 12 && source < 17) || source == 38 || source == 39 || source == 46 || source == 47;
    test::Run({kHistory}, [&](Remote& remote) { EXPECT_EQ(remote.Buttons().size(), hdmi ? 2U : 1U) << source; });
  }
  SetSource(39);
  tv.ClearJournal();
  test::Run({kHistory}, [&](Remote& remote) {
    EXPECT_TRUE(remote.RowTexts().empty());
    EXPECT_TRUE(remote.Shows("The signal history of the external device."));
    EXPECT_EQ(tv.Calls("SourceControl::GetWeakSignalHistory"), 0U);
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack().size(), 2U);
    EXPECT_TRUE(remote.Buttons().empty()) << "the window below is hidden";
    remote.Press("Down Down Return");
    EXPECT_EQ(tv.Item("hdmi-delay-level"), "2");
    EXPECT_EQ(remote.Focus(), "HDMI delay level");
    EXPECT_EQ(remote.Buttons(), (Texts{"HDMI delay level", "Close"}));
    remote.Wait(61);
    EXPECT_TRUE(remote.HasExited());
  });
}

}  // namespace
