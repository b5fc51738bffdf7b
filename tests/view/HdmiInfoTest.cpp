// What is connected to the HDMI input on screen.
#include "Harness.h"
#include "Store.h"
#include "tvs/Inputs.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kMenuID = "hdmi-information";
constexpr const char* kHistory = "signal-information-weakhistory";
const std::string kHdbt = "com.vantrel/featureconf/hdbt_source_support";
const std::string kHdbtPort = "com.vantrel/featureconf/hdmi_port_for_hdbt";

void Show(int source, const std::string& name, const std::string& resolution, long format = 2) {
  desktop::Store::Get().Write([&] {
    desktop::Query("UPDATE picture SET source = ? WHERE profile = 1", source).Run();
    desktop::SetInputName(static_cast<ESource>(source), name);
    desktop::SetInputResolution(static_cast<ESource>(source), desktop::ParseResolution(resolution).value());
    desktop::SetInputFormat(static_cast<ESource>(source), format);
  });
}

/// Source and resolution as the window shows them.
std::string Facts(Remote& remote) {
  std::string text;
  for (const auto& [name, value] : remote.Rows()) text += name + "=" + value + ";";
  return text;
}

const Texts kRegular = {"Cable test", "Signal history", "Close"};

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
               {0, "", "Error"},
               {12, "", "Error"},
               {17, "Aerial", "Aerial (Error)"},
               {48, "", "Error"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.source);
    Tv tv("hdmi");
    Show(c.source, c.name, "1920x1080@50p");
    test::Run({kMenuID}, [&](Remote& remote) {
      const bool hdmi = std::string(c.shown).find("HDMI") != std::string::npos;
      EXPECT_EQ(Facts(remote), std::string("Source=") + c.shown + ";Resolution=" + (hdmi ? "1920x1080 / 50p;" : ";"));
      EXPECT_EQ(remote.Buttons(), kRegular);
      EXPECT_EQ(remote.Focus(), "Close");
      EXPECT_EQ(test::Logged("[Error]Current source isn't HDMI"), !hdmi);
      remote.Press("Up Up Up");
      EXPECT_EQ(remote.Focus(), "Cable test") << "up stays on the first button";
      remote.Press("Down");
      EXPECT_EQ(remote.Focus(), "Signal history");
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
               {"1920x1080@23.97p", 2, "1920x1080 / 24p"},
               {"1920x1080@23.49p", 2, "1920x1080 / 23p"},
               {"1920x1080@23.5p", 2, "1920x1080 / 24p"},
               {"7680x4320@120p", 2, "7680x4320 / 120p"},
               {"720x576@50i", 0x6ffff, "720x576 / 50i"},
               {"3840x2160@120p", 0x70000, "3840x2160 Freesync"},
               {"3840x2160@120i", 0x70009, "3840x2160 Freesync"},
               {"3840x2160@120p", 0x7000a, "3840x2160 / 120p"},
               {"3840x2160@60p", 0x9ffff, "3840x2160 / 60p"},
               {"3840x2160@60p", 0xa0000, "3840x2160 Freesync"},
               {"3840x2160@60p", 0xa0001, "3840x2160 Freesync"},
               {"3840x2160@60p", 0xa0002, "3840x2160 / 60p"},
               {"none", 2, "No signal"},
               {"none", 0x70000, "No signal"}};
  for (const auto& c : cases) {
    Tv tv("hdmi", 0);
    Show(SOURCE_TYPE_HDMI5, "", c.resolution, c.format);
    test::Run({kMenuID}, [&](Remote& remote) {
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
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_EQ(remote.Buttons(), c.isHdbt ? Texts{"Close"} : kRegular);
      EXPECT_EQ(Facts(remote).starts_with("Source=HDBaseT;"), c.isHdbt);
      EXPECT_EQ(remote.Focus(), "Close");
      remote.Press("Return");
      EXPECT_TRUE(remote.HasExited());
      EXPECT_EQ(tv.Calls("app_control_send_launch_request"), 0U);
    });
  }
}

TEST(HdmiInfo, OpensWithoutWhatTheTvDoesNotSay) {
  const std::string source = "Source=Box (HDMI 2);", resolution = "Resolution=1920x1080 / 60p;",
                    none = "Resolution=No signal;";
  const struct {
    const char *operation, *result;
    std::string facts;
    const char* said;
  } cases[] = {
      {"SourceAPI::GetSourceEditName", "", "Source=HDMI 2;" + resolution, "[Info]GetSourceEditName : "},
      {"CreateAVControl", "", source + none, "[Error]Current source isn't HDMI"},
      {"AVControl::GetResolution", "1", source + none, "[Error]Current source isn't HDMI"},
      {"SourceControl::GetSource", "", "Source=Error;Resolution=;", "[Error]Current source isn't HDMI"},
      {"system_info_get_custom_bool", "", source + resolution, "[Error]system info fails"},
      {"system_info_get_custom_int", "", source + resolution, "[Error]system info fails"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.operation);
    Tv tv("hdmi", 0);
    tv.Set(kHdbt, std::string(c.operation).starts_with("system_info") ? "1" : "0");
    tv.Set(kHdbtPort, "2");
    Show(SOURCE_TYPE_HDMI2, "Box", "1920x1080@60p");
    tv.Fail(c.operation, c.result);
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_EQ(Facts(remote), c.facts);
      EXPECT_TRUE(test::Logged(c.said));
      EXPECT_EQ(remote.Buttons(), kRegular);
    });
  }
}

TEST(HdmiInfo, TestsTheCable) {
  const std::string request = R"(com.vantrel.tv.wirelore, {"type":"VIDEO_TROUBLE_SHOOTING_SETUP"})";
  const char* launch = "app_control_send_launch_request";
  Tv tv("hdmi", 0);
  test::Run({kMenuID}, [&](Remote& remote) {
    remote.Press("Up Up Return");
    EXPECT_EQ(tv.ArgumentsOf(launch), Texts{request});
    EXPECT_EQ(test::Ask("SELECT running FROM application WHERE id = 'com.vantrel.tv.wirelore'"), "1");
    EXPECT_EQ(remote.Stack(), Texts{kMenuID});
    tv.Fail(launch, "-7");
    remote.Press("Return");
    EXPECT_EQ(tv.ArgumentsOf(launch), (Texts{request, request}));
    EXPECT_TRUE(test::Logged("[Error]Failed to send request : -7"));
    tv.Fail("app_control_create");
    remote.Press("Return");
    EXPECT_EQ(tv.Calls(launch), 2U);
    EXPECT_EQ(remote.Focus(), "Cable test");
    EXPECT_EQ(tv.Calls("app_control_destroy") + 1, tv.Calls("app_control_create"));
  });
}

/// What was asked of the key router last: "+" the keys are taken, "-" they are given back.
std::string SpecialKeys(Tv& tv) {
  std::string state;
  for (const test::Call& call : tv.Journal()) {
    if (call.arguments.find("XF86More") == std::string::npos) continue;
    if (call.operation == "KeyRouter_Set_KeyList") state += "+";
    if (call.operation == "KeyRouter_UnSet_KeyList") state += "-";
  }
  return state;
}

TEST(HdmiInfo, GivesWayToTheHistoryAndComesBack) {
  Tv tv("hdmi", 0);
  test::Run({kMenuID}, [&](Remote& remote) {
    remote.Press("1 9 F5");
    EXPECT_EQ(remote.Focus(), "Close") << "the number keys do nothing";
    EXPECT_EQ(SpecialKeys(tv), "+");
    remote.Wait(3600);
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack().back(), kHistory);
    EXPECT_EQ(remote.Buttons(), (Texts{"HDMI delay level", "Close"})) << "the window below is hidden";
    EXPECT_EQ(SpecialKeys(tv), "+-");
    EXPECT_TRUE(test::Logged("[Debug]need Hide HDMIInfoWindow"));

    remote.Press("Return");
    EXPECT_EQ(remote.Stack(), Texts{kMenuID});
    EXPECT_EQ(remote.Focus(), "Signal history");
    EXPECT_EQ(remote.Buttons(), kRegular);
    EXPECT_EQ(SpecialKeys(tv).back(), '+');
    remote.Wait(3600);
    EXPECT_FALSE(remote.HasExited()) << "the window has no time-out";

    remote.Press("Return Back");
    EXPECT_EQ(remote.Focus(), "Signal history");
    remote.Press("Down Return");
    EXPECT_TRUE(remote.HasExited());
    EXPECT_EQ(SpecialKeys(tv).back(), '-');
  });
}

TEST(HdmiInfo, IsShownInEveryLanguage) {
  const struct {
    const char *language, *facts, *button;
    int height;
  } cases[] = {
      {"de_DE.utf8", "Quelle=Box (HDMI 2);Auflösung=1920x1080 / 60p;", "Kabeltest", 52},
      {"ko_KR.utf8", "외부 입력=Box (HDMI 2);해상도=1920x1080 / 60p;", "케이블 테스트", 52},
      {"ar_AE.utf8", "المصدر=Box (HDMI 2);الدقة=1920x1080 / 60p;", "اختبار الكابل", 52},
      // This one has no catalogue here, and long words on a set: the rows stand smaller.
      {"xh_ZA.utf8", "COM_SID_SOURCE_KR_EXT=Box (COM_SID_HDMI2);COM_SID_RESOLUTION_ABBR_10=1920x1080 / 60p;",
       "TV_SID_DIAGNOSIS_HDMI_CABLE_TEST", 42},
  };
  for (const auto& c : cases) {
    Tv tv("hdmi", 0);
    tv.SetLanguage(c.language);
    Show(SOURCE_TYPE_HDMI2, "Box", "1920x1080@60p");
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_EQ(Facts(remote), c.facts);
      EXPECT_EQ(remote.Buttons().front(), c.button);
      EXPECT_EQ(remote.PlaceOf("1920x1080 / 60p").h, c.height);
    });
  }
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
               {"xh_ZA.utf8", std::string(40, 'W')},
               {"ar_AE.utf8", std::string(40, 'W')}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.language + (" " + c.name));
    Tv tv("hdmi", 0);
    tv.SetLanguage(c.language);
    Show(SOURCE_TYPE_HDMI1, "W", "1920x1080@50p");
    std::vector<unsigned> end;
    std::string port;
    test::Run({kMenuID}, [&](Remote& remote) {
      const std::string value = remote.Rows()[0].second;
      port = value.substr(1);
      end = EndOf(remote, value);
    });
    Show(SOURCE_TYPE_HDMI1, c.name, "1920x1080@50p");
    test::Run({kMenuID}, [&](Remote& remote) {
      const std::string value = remote.Rows()[0].second;
      ASSERT_TRUE(value.ends_with("\u2026" + port)) << value;
      EXPECT_TRUE(c.name.starts_with(value.substr(0, value.find("\u2026")))) << value;
      EXPECT_GT(remote.PlaceOf(value).w, 400) << "it gives way too far";
      EXPECT_EQ(EndOf(remote, value), end) << "the theme cuts it once more";
    });
  }
}

TEST(HdmiInfo, ShowsNamesThatAreNoText) {
  for (const std::string& name : {std::string("Bad\xff\xfe\xc3"), std::string(2000, '\xff'), std::string("\x01\n\t")}) {
    Tv tv("hdmi", 0);
    Show(SOURCE_TYPE_HDMI1, name, "1920x1080@60p");
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_NE(Facts(remote).find("1920x1080 / 60p"), std::string::npos);
      remote.Press("Up Return Back Down Return");
      EXPECT_TRUE(remote.HasExited());
    });
  }
}

TEST(HdmiInfo, IsReadOut) {
  const std::string expected =
      "Signal informationCheck the signal of the current external device."
      "SourceBox (HDMI 2) Resolution1920x1080 / 60p Close";
  Tv tv("hdmi", 0);
  tv.TurnVoiceOn();
  Show(SOURCE_TYPE_HDMI2, "Box", "1920x1080@60p");
  test::Run({kMenuID}, [&](Remote& remote) {
    remote.Wait(1);
    EXPECT_TRUE(remote.Heard(expected)) << testing::PrintToString(remote.Spoken());
    EXPECT_TRUE(test::Logged("[Debug]m_sReadBuff = " + expected));
  });
}

}  // namespace
