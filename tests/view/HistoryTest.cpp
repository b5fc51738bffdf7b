// The history of weak signals, and the delay levels behind it.
#include <Elementary.h>

#include <algorithm>
#include <ctime>
#include <map>

#include "CommonUtil.h"
#include "Harness.h"
#include "SignalHistory.h"
#include "Utils.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kMenuID = "signal-information-weakhistory";
constexpr const char* kNoTime = "----/--/--         --:--";
const std::string kHint = "Channels are listed here when their signal was weak.";

class History : public test::SignalHistory {
 public:
  using CViewWeakSignalHistoryWindow::m_ConvertHDMINumberToESource;
  using CViewWeakSignalHistoryWindow::m_GetTimeStampType;
  using CViewWeakSignalHistoryWindow::STAMP_NONE;

  int Buttons() {
    t_InitWindowProperty();
    return t_DefaultButtonNum;
  }
};

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

void SetSource(int source) { test::Change("UPDATE picture SET source = ? WHERE profile = 1", source); }

Texts Stamps() {
  std::vector<DataInfo> rows;
  History().GetData(rows, History::SOURCE_BROADCAST);
  Texts stamps;
  for (const DataInfo& row : rows) {
    EXPECT_EQ(row.displayValue + row.id + row.picture, "");
    stamps.push_back(row.displayName);
  }
  return stamps;
}

// --- the order -----------------------------------------------------------------------------------

TEST(History, PutsTheNewestFirstInWhicheverOrderTheNotesCome) {
  const struct {
    int hours;
    const char* language;
    /// Times of one date, newest first.
    Texts times;
  } cases[] = {
      {24, "en_US.utf8", {"13:30", "12:10", "01:30", "00:05"}},
      {12, "en_US.utf8", {"01:30 PM", "12:10 PM", "01:30 AM", "12:05 AM"}},
      {12, "de_DE.utf8", {"01:30 PM", "12:10 PM", "01:30 AM", "12:05 AM"}},
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
    test::Run({kMenuID}, [&](Remote&) {
      std::sort(notes.begin(), notes.end());
      do {
        SetNotes(notes);
        const Texts stamps = Stamps();
        ASSERT_EQ(stamps, expected);
      } while (std::next_permutation(notes.begin(), notes.end()));
    });
  }
}

TEST(History, GoesOnPast2038) {
  Tv tv("europe", 0);
  test::Run({kMenuID}, [&](Remote&) {
    SetNotes({Note(2209032000), Note(4102488000)});
    Texts years;
    for (const std::string& stamp : Stamps()) years.push_back(stamp.substr(0, 10));
    EXPECT_EQ(years, (Texts{"2100/01/01", "2040/01/01"}));
  });
  EXPECT_EQ(CommonUtil::GetTimeInfo(4102488000, CommonUtil::TIME_YEAR), 2100);
}

TEST(History, KnowsAStampByItsPieces) {
  const std::pair<const char*, int> languages[] = {{"ko_KR.utf8", History::STAMP_WORD_FIRST},
                                                   {"ja_JP.utf8", History::STAMP_WORD_FIRST},
                                                   {"en_US.utf8", History::STAMP_WORD_LAST},
                                                   {"", History::STAMP_WORD_LAST}};
  Tv tv("europe", 0);
  for (const auto& [language, type] : languages) {
    tv.SetLanguage(language);
    EXPECT_EQ(History::m_GetTimeStampType(4), type) << language;
    EXPECT_EQ(History::m_GetTimeStampType(3), History::STAMP_24_HOURS);
    EXPECT_EQ(History::m_GetTimeStampType(2), History::STAMP_NONE);
  }
  tv.SetLanguage("ko_KR.utf8");
  tv.Fail("vconf_get_str");
  EXPECT_EQ(History::m_GetTimeStampType(4), History::STAMP_WORD_LAST);
}

TEST(History, ComparesWhatIsIncomplete) {
  const struct {
    int type;
    const char *newStamp, *sorted;
    int sign;
  } cases[] = {
      {History::STAMP_24_HOURS, "2025/01/01 10:00", "", 1},
      {History::STAMP_24_HOURS, "2025/01/01", "2025/01/01 10:00", -1},
      {History::STAMP_24_HOURS, "2025/01/01 10:00", "2025/01/01 10", 1},
      {History::STAMP_24_HOURS, "2025/01/01 10:00", kNoTime, 1},
      {History::STAMP_WORD_LAST, "2025/01/01 10:00 AM", "2025/01/01 10:00", 1},
      {History::STAMP_WORD_LAST, "2025/01/01 10:00", "2025/01/01 10:00 PM", -1},
      {History::STAMP_WORD_FIRST, "2025/01/01 AM 10", "2025/01/01 AM 10:00", -1},
      {History::STAMP_WORD_FIRST, "2025/01/01 AM 12:07", "2025/01/01 AM 00:07", 0},
      {History::STAMP_24_HOURS, "2025/01/01 13:30", "2025/01/01 01:30", 1},
  };
  Tv tv("europe", 0);
  for (const auto& c : cases)
    EXPECT_EQ(History::Compare(c.type, c.newStamp, c.sorted), c.sign) << c.newStamp << "|" << c.sorted;
  for (const char* said : {"[Debug]strSortedTimeStamp is NULL", "[Debug]splitNewTimeStamp[ 1 ] is NULL",
                           "[Debug]splitSortedTimeStamp[ 2 ] is NULL"}) {
    EXPECT_TRUE(test::Logged(said)) << said;
  }
}

// --- the window ----------------------------------------------------------------------------------

TEST(History, ListsTimeAndChannelAnewEachTime) {
  Tv tv("europe", 0);
  Texts notes = {"-67768040609740800:12:3:2:0:1", Note(At(18, 40), 8), "::", ""};
  std::vector<std::pair<std::string, std::string>> rows = {{"2025/03/02         18:40", "8"}, {kNoTime, "UHD 12-3"}};
  for (const bool again : {false, true}) {
    if (again) {
      // Of one minute, the one that was noted later stands first.
      for (const int channel : {9, 10}) {
        notes.push_back(Note(At(18, 41), channel));
        rows.insert(rows.begin(), {"2025/03/02         18:41", std::to_string(channel)});
      }
    }
    SetNotes(notes);
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_EQ(remote.Rows(), rows);
      EXPECT_EQ(remote.Title(), "Signal history");
      EXPECT_TRUE(remote.Shows(kHint));
      EXPECT_EQ(remote.Buttons(), Texts{"Close"});
      EXPECT_EQ(remote.Focus(), "Close");
      // A row can be chosen, and nothing comes of it.
      remote.Press("Left Return");
      EXPECT_EQ(remote.Stack(), Texts{kMenuID});
    });
  }
  EXPECT_TRUE(test::Logged("[Info]Can not get weak signal info of vconf value [::]"));
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
      {5, {{"", ""}, {"Left", ""}, {"Down Down Down Down", ""}}},
      {6,
       {{"", "bottom"},
        {"Left", "bottom"},
        {"Down Down Down Down", "bottom"},
        {"Down", "top"},
        {"Right Left", "top"},
        {"Up", "top bottom"},
        {"Up Up Up Up", "bottom"},
        {"Right", "bottom"}}},
      {8, {{"Left Down Down Down Down Down", "top bottom"}, {"Down", "top bottom"}, {"Down", "top"}}},
  };
  for (const auto& c : cases) {
    Tv tv("europe", 0);
    Texts notes;
    for (int i = 0; i < c.rows; ++i) notes.push_back(Note(At(10, i)));
    SetNotes(notes);
    test::Run({kMenuID}, [&](Remote& remote) {
      for (const auto& [keys, shadows] : c.steps) {
        remote.Press(keys);
        EXPECT_EQ(Shadows(remote), shadows) << c.rows << " rows, after " << keys << ", at " << remote.Focus();
      }
    });
  }
}

TEST(History, KnowsThePorts) {
  Tv tv("hdmi");
  const std::vector<int> ports = {13, 14, 15, 16, 38, 39, 46, 47};
  for (int source = -1; source < 60; ++source) {
    SetSource(source);
    const bool hdmi = std::find(ports.begin(), ports.end(), source) != ports.end();
    EXPECT_EQ(History().Buttons(), hdmi ? 2 : 1) << source;
  }
  for (int port = 0; port <= 9; ++port) {
    EXPECT_EQ(History::m_ConvertHDMINumberToESource(port), port >= 1 && port <= 8 ? ports[port - 1] : -1) << port;
  }
}

TEST(History, OfAnExternalDeviceOpensTheDelayLevels) {
  Tv tv("hdmi");
  SetSource(39);
  test::Run({kMenuID}, [&](Remote& remote) {
    EXPECT_TRUE(remote.RowTexts().empty());
    EXPECT_TRUE(remote.Shows("The signal history of the external device."));
    EXPECT_EQ(remote.Buttons(), (Texts{"HDMI delay level", "Close"}));
    EXPECT_EQ(remote.Focus(), "Close");
    EXPECT_EQ(tv.Calls("SourceControl::GetWeakSignalHistory"), 0U);
    remote.Press("Up Return");
    EXPECT_EQ(remote.Stack().size(), 2U);
    EXPECT_TRUE(remote.Buttons().empty()) << "the window below is hidden";
    remote.Press("Down Down Return");
    EXPECT_EQ(tv.Item("hdmi-delay-level"), "2");
    EXPECT_EQ(remote.Stack(), Texts{kMenuID});
    EXPECT_EQ(remote.Focus(), "HDMI delay level");
    EXPECT_EQ(remote.Buttons(), (Texts{"HDMI delay level", "Close"}));
    remote.Press("Return Back Down");
    EXPECT_EQ(remote.Focus(), "Close");
    remote.Wait(61);
    EXPECT_TRUE(remote.HasExited());
  });
}

TEST(History, OpensWithoutWhatTheTvDoesNotSay) {
  const struct {
    const char *operation, *result;
    /// Of the first row; null without rows.
    const char* first;
    const char* said;
  } cases[] = {
      {"CreateSourceControl", "null", nullptr, "[Error]WeakSignalHistory is empty"},
      {"SourceControl::GetWeakSignalHistory", "0", nullptr, "[Error]WeakSignalHistory is empty"},
      {"SourceControl::GetWeakSignalHistory", "-1", nullptr, "[Error]WeakSignalHistory is empty"},
      {"SourceControl::GetSource", "-1", "2025/03/02         18:40", "[Error]Current source : -1"},
      {"CTimeUtil::ConvertToLocalTime", "-1", kNoTime, "[Error] Invalid Date "},
      {"SettingsAPI::GetItemDisplayName", "false", "2025/03/02         18:40", nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.operation);
    Tv tv("europe", 0);
    SetNotes({Note(At(18, 40))});
    tv.Fail(c.operation, c.result);
    test::Run({kMenuID}, [&](Remote& remote) {
      EXPECT_EQ(remote.RowTexts(), c.first ? Texts{c.first} : Texts{});
      EXPECT_TRUE(!c.said || test::Logged(c.said));
      EXPECT_TRUE(remote.Shows(kHint));
      EXPECT_EQ(remote.Focus(), "Close");
      remote.Press("Left Return");
      EXPECT_EQ(remote.HasExited(), !c.first);
    });
  }
}

TEST(History, IsReadOut) {
  const std::pair<size_t, std::string> cases[] = {{0, ", No weak signal has been recorded."},
                                                  {3, ", 3 items. Use the arrow keys to move."}};
  for (const auto& [notes, said] : cases) {
    Tv tv("europe", 0);
    tv.TurnVoiceOn();
    SetNotes(Texts(notes, Note(At(18, 40))));
    test::Run({kMenuID}, [&, said = said](Remote& remote) {
      remote.Wait(1);
      EXPECT_TRUE(remote.Heard(" Signal history, " + kHint + said + ", Close, Button"))
          << testing::PrintToString(remote.Spoken());
    });
  }
}

}  // namespace
