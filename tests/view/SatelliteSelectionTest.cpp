// The choice of satellites: their order, which of them can be given up, what is stored, what failures leave; and the
// keys that page through a list.
#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "Harness.h"
#include "ViewSatelliteSelectionWindow.h"
#include "string_util.h"

using test::Ask;
using test::Change;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kSelection = "satellite-selection";
constexpr const char* kStore = "SatelliteSettings::SetSelectedSatellites";

struct Satellite {
  int id;
  std::string name;
};

/// A TV that knows these satellites and no others, from east to west, and uses none of them.
class FewSatellites : public Tv {
 public:
  explicit FewSatellites(const std::vector<Satellite>& satellites) : Tv("europe", 0) {
    Change("DELETE FROM satellite WHERE user_defined = 0");
    Change("DELETE FROM selected");
    int position = 0;
    for (const auto& [id, name] : satellites) {
      Change("INSERT INTO satellite (id, name, position) VALUES (?, ?, ?)", id, name, ++position);
    }
  }
};

void Select(const std::vector<int>& ids) {
  for (const int id : ids) Change("INSERT INTO selected VALUES (-1, -1, ?)", id);
}

/// Of the mode that the main picture receives; 0 stands for its having a choice of its own.
std::string Selected() {
  return Ask(
      "SELECT group_concat(satellite, ' ') FROM (SELECT satellite FROM selected WHERE antenna = 2 AND "
      "service_mode = 1 ORDER BY satellite)");
}

void Open(const std::function<void(Remote&)>& body) {
  test::Run({kSelection}, [&](Remote& remote) {
    remote.Press("Left Up");
    body(remote);
  });
}

bool IsOn(Remote& remote, int row) { return remote.Screen()["rows"][row]["on"].asBool(); }
bool CanTurn(Remote& remote, int row) { return remote.Screen()["rows"][row]["enabled"].asBool(); }
bool CanSave(Remote& remote) { return remote.Screen()["buttons"][0]["enabled"].asBool(); }

/// The order that the rows are to have, as a rule for each one of them.
std::vector<int> OrderOf(std::vector<int> ids) {
  const std::vector<int> given = ids;
  const auto first = std::find(given.begin(), given.end(), 1);
  const auto key = [&](int id) {
    const auto at = std::find(given.begin(), given.end(), id);
    if (id >= 65505) return std::pair(2, static_cast<long>(id));
    return std::pair(first != given.end() && at < first ? 1 : 0, static_cast<long>(at - given.begin()));
  };
  std::sort(ids.begin(), ids.end(), [&](int a, int b) { return key(a) < key(b); });
  return ids;
}

std::vector<int> Reordered(const std::vector<int>& ids) {
  std::vector<TSSatellite> satellites(ids.size());
  std::vector<TSSatellite*> pointers;
  for (size_t i = 0; i < ids.size(); ++i) {
    satellites[i].satelliteId = static_cast<ESatelliteId>(ids[i]);
    pointers.push_back(&satellites[i]);
  }
  std::vector<int> order;
  for (const TSSatellite* each : CViewSatelliteSelectionWindow::t_ReorderSatelliteList(pointers)) {
    order.push_back(each->satelliteId);
  }
  return order;
}

}  // namespace

// --- order ---------------------------------------------------------------------------------------

TEST(SatelliteSelection, BeginsWithTheFirstSatelliteAndEndsWithTheUsers) {
  std::mt19937 random(14);
  for (int round = 0; round < 2000; ++round) {
    std::vector<int> all = {1, 2, 3, 4, 5, 6, 65505, 65506, 65507, 65508};
    std::shuffle(all.begin(), all.end(), random);
    all.resize(random() % (all.size() + 1));
    ASSERT_EQ(Reordered(all), OrderOf(all)) << testing::PrintToString(all);
  }
}

// --- names ---------------------------------------------------------------------------------------

TEST(SatelliteSelection, NamesOfAnyKind) {
  const std::u16string pair = u"\U0001F6F0";
  struct Case {
    std::u16string units;
    size_t size;
    std::string text;
  };
  for (const Case& c :
       {Case{u"", 8, ""}, Case{u"Aé€", 16, "Aé€"}, Case{pair, 8, "\U0001F6F0"}, Case{pair.substr(0, 1), 8, "\uFFFD"},
        Case{pair.substr(1) + u"A", 8, "\uFFFDA"}, Case{pair.substr(0, 1) + u"A", 8, "\uFFFDA"},
        Case{std::u16string(u"A\0B", 3), 8, "A"}, Case{u"A€", 4, "A"}, Case{u"A€", 5, "A€"}, Case{u"A", 1, ""}}) {
    char text[16] = "before";
    EXPECT_TRUE(CStringUtil::UnicodeToUtf8(text, c.size, c.units.data(), static_cast<int>(c.units.size())));
    EXPECT_EQ(std::string(text), c.text);
  }
  char text[8];
  EXPECT_FALSE(CStringUtil::UnicodeToUtf8(nullptr, 8, u"A", 1));
  EXPECT_FALSE(CStringUtil::UnicodeToUtf8(text, 8, nullptr, 1));
  EXPECT_FALSE(CStringUtil::UnicodeToUtf8(text, 8, u"A", -1));

  FewSatellites tv({{2, "Zwölf €"}, {1, "<b>One</b> & more"}, {3, "twin"}, {4, "twin"}, {5, ""}});
  Open([&](Remote& remote) {
    EXPECT_EQ(remote.RowTexts(), (Texts{"<b>One</b> & more", "twin", "twin", "", "Zwölf €", "User Satellite 1"}));
    remote.Press("Down Return");
    EXPECT_TRUE(IsOn(remote, 1));
    EXPECT_TRUE(IsOn(remote, 2)) << "they share a choice";
    remote.ExpectExit("Right Up Return");
  });
  EXPECT_EQ(tv.ArgumentsOf(kStore), Texts{"4"});
}

// --- saving --------------------------------------------------------------------------------------

TEST(SatelliteSelection, StoresWhatIsTickedInTheOrderOfTheNames) {
  Tv tv("europe", 0);
  Change("DELETE FROM selected");
  std::mt19937 random(332);
  std::map<std::string, std::string> ticked;
  Open([&](Remote& remote) {
    for (int i = 0; i < 50; ++i) {
      remote.Press(
          test::Times(random() % 3 ? "XF86LowerChannel" : "XF86RaiseChannel", 1 + static_cast<int>(random() % 4)));
      remote.Press(test::Times("Down", static_cast<int>(random() % 3)) + "Return");
      const std::string name = remote.Focus();
      if (ticked.erase(name) == 0) ticked[name] = Ask("SELECT max(id) FROM satellite WHERE name = ?", name);
    }
    ASSERT_GT(ticked.size(), 30U);
    remote.Press("Right Up");
    ASSERT_EQ(remote.Focus(), "Save");
    remote.ExpectExit("Return");
  });
  std::string ids;
  for (const auto& [name, id] : ticked) ids += (ids.empty() ? "" : " ") + id;
  EXPECT_EQ(tv.ArgumentsOf(kStore), Texts{ids});
  EXPECT_EQ(Ask("SELECT count(*) FROM selected WHERE satellite > 0"), std::to_string(ticked.size()));
  // What was stored is what is shown, and every satellite is.
  std::set<std::string> shown;
  Open([&](Remote& remote) {
    for (std::string before; remote.Focus() != std::exchange(before, remote.Focus());) {
      const Json::Value screen = remote.Screen();
      for (const Json::Value& row : screen["rows"]) {
        shown.insert(row["text"].asString());
        EXPECT_EQ(row["on"].asBool(), ticked.count(row["text"].asString()) == 1) << row["text"].asString();
      }
      remote.Press("XF86LowerChannel");
    }
  });
  EXPECT_EQ(std::to_string(shown.size()), Ask("SELECT count(DISTINCT name) FROM satellite"));
}

TEST(SatelliteSelection, StoresNothingThatWasNotSaved) {
  struct Case {
    const char* keys;
    const char* failing;
    bool exits;
    size_t calls;
  };
  const char* save = "Right Up Return";
  for (const Case& c :
       {Case{"Right Up Down Return", nullptr, true, 0}, Case{"Back", nullptr, true, 0}, Case{save, kStore, true, 1},
        Case{save, "CreateSatelliteSettings", false, 0}, Case{"Return Right Up Return", nullptr, true, 0}}) {
    SCOPED_TRACE(std::string(c.keys) + " " + (c.failing ? c.failing : ""));
    FewSatellites tv({{1, "One"}, {2, "Two"}, {3, "Three"}});
    Open([&](Remote& remote) {
      remote.Press("Down Return");
      EXPECT_TRUE(IsOn(remote, 1));
      if (c.failing) tv.Fail(c.failing);
      remote.Press(c.keys);
      EXPECT_EQ(remote.HasExited(), c.exits);
    });
    EXPECT_EQ(tv.Calls(kStore), c.calls);
    EXPECT_EQ(Selected(), "");
  }
}

TEST(SatelliteSelection, NeedsOneToSave) {
  FewSatellites tv({{1, "One"}, {2, "Two"}});
  Open([&](Remote& remote) {
    EXPECT_TRUE(CanSave(remote)) << "until something is turned";
    remote.Press("Right Up Return");
    EXPECT_FALSE(remote.HasExited());
    remote.Press("Left Up Return");
    EXPECT_TRUE(CanSave(remote));
    remote.Press("Return");
    EXPECT_FALSE(CanSave(remote));
    remote.ExpectExit("Return Right Up Return");
  });
  EXPECT_EQ(tv.ArgumentsOf(kStore), Texts{"1"});
  EXPECT_EQ(Selected(), "0 1");
}

TEST(SatelliteSelection, OneWithChannelsCannotBeGivenUp) {
  Tv tv("europe", 100);
  tv.TurnVoiceOn();
  const std::string used = Ask("SELECT satellite FROM service WHERE antenna = 2 AND service_mode = 1 LIMIT 1");
  Change("DELETE FROM satellite WHERE user_defined = 0 AND id <> ? AND id <> 2", used);
  Change("UPDATE satellite SET name = 'Used', position = 1 WHERE id = ?", used);
  Change("UPDATE satellite SET name = 'Free', position = 2 WHERE id = 2");
  Change("DELETE FROM selected");
  Select({std::stoi(used), 2});
  for (const bool known : {true, false}) {
    if (!known) tv.Fail("ServiceNavigation::GetChannelCount");
    Open([&](Remote& remote) {
      EXPECT_TRUE(IsOn(remote, 0) && IsOn(remote, 1));
      EXPECT_EQ(CanTurn(remote, 0), !known);
      EXPECT_TRUE(CanTurn(remote, 1));
      remote.Press("Return");
      remote.Wait(0.3);
      EXPECT_EQ(IsOn(remote, 0), known);
      EXPECT_EQ(remote.Spoken().back(), known ? "Used, On" : "Used, Off");
      remote.Press("Down Return");
      EXPECT_FALSE(IsOn(remote, 1));
      EXPECT_EQ(CanSave(remote), known);
    });
  }
}

// --- failures ------------------------------------------------------------------------------------

TEST(SatelliteSelection, OpensWithoutRowsWhenTheTvCannotTell) {
  const struct {
    const char *operation, *result;
    size_t rows;
  } cases[] = {{"CreateSatellite", "", 0},
               {"CreateSatelliteSettings", "", 0},
               {"Satellite::GetSatelliteList", "-1", 0},
               {"Satellite::GetSatelliteList", "0", 0},
               {"CreateServiceNavigation", "", 0},
               {"ServiceNavigation::GetTvMode", "0", 0},
               {"ServiceNavigation::GetTvMode", "-1", 0},
               {"SatelliteSettings::GetSatelliteSelected", "", 6}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.operation) + " " + c.result);
    FewSatellites tv({{1, "One"}, {2, "Two"}});
    Select({2});
    tv.Fail(c.operation, c.result);
    test::Run({kSelection}, [&](Remote& remote) {
      EXPECT_EQ(remote.RowTexts().size(), c.rows);
      EXPECT_EQ(remote.Focus(), "Save");
      remote.Press("Left Return Right Up Return");
      EXPECT_EQ(tv.Calls(kStore), c.rows ? 1U : 0U) << "what could not be read is not ticked, and can be";
      remote.ExpectExit(c.rows ? "" : "Back");
    });
  }
}

// --- voice and pages -----------------------------------------------------------------------------

TEST(SatelliteSelection, SaysWhatAPressHasDoneAndNothingElse) {
  FewSatellites tv({{1, "One"}, {2, "Two"}});
  tv.TurnVoiceOn();
  Select({2});
  Open([&](Remote& remote) {
    remote.Press("Down");
    remote.Wait(3);
    const size_t before = remote.Sayings().size();
    remote.ExpectSaid("Return", "Two, Off");
    EXPECT_EQ(remote.Sayings().size(), before + 1);
  });
}

TEST(PageKeys, MoveByWhatIsInSightAndStopAtTheEnds) {
  std::vector<Satellite> satellites;
  for (int i = 1; i <= 20; ++i) satellites.push_back({i, "S" + std::to_string(i)});
  for (const char* language : {"en_US.utf8", "ar_AE.utf8"}) {
    FewSatellites tv(satellites);
    tv.SetLanguage(language);
    test::Run({kSelection}, [&](Remote& remote) {
      const std::string save = remote.Focus();
      remote.Press("XF86LowerChannel");
      EXPECT_EQ(remote.Focus(), save) << "no list has the focus";
      remote.Press(*language == 'a' ? "Right" : "Left");
      for (const int row : {1, 6, 11, 16, 21, 24, 24}) {
        EXPECT_EQ(remote.Focus(),
                  row <= 20 ? "S" + std::to_string(row) : Ask("SELECT name FROM satellite WHERE id = ?", 65484 + row));
        EXPECT_EQ(remote.RowTexts().size(), 6U);
        remote.Press("XF86LowerChannel");
      }
      remote.ExpectFocus("XF86RaiseChannel", "S19");
      remote.ExpectFocus(test::Times("XF86RaiseChannel", 4), "S1");
    });
  }
}

TEST(PageKeys, AreLeftToTheWindowBelow) {
  Tv tv("europe");
  test::Run({"signal-information"}, [&](Remote& remote) {
    remote.Press("Up Return");
    ASSERT_EQ(remote.Stack().size(), 2U);
    remote.Press("Back");
    EXPECT_TRUE(tv.Requests("XF86RaiseChannel").ends_with("+")) << tv.Requests("XF86RaiseChannel");
  });
}
