// What opens beside a row: driven with keys.
#include <Elementary.h>

#include "EventManager.h"
#include "Harness.h"
#include "Text.h"
#include "Utils.h"
#include "settings_api.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kGround = "StopFrequency";
constexpr const char* kPolarity = "user-defined-transponder-polarity";
constexpr const char* kFrequency = "user-defined-transponder-frequency";
constexpr const char* kLongitude = "setting-user-sat-2";
constexpr const char* kRate = "user-defined-transponder-symbolrate";

void SetChoices(const std::string& id, int count) {
  test::Change("DELETE FROM choice WHERE item = ?", id);
  for (int i = 0; i < count; ++i) {
    const std::string value = std::to_string(i);
    test::Change("INSERT INTO choice (item, place, value, name) VALUES (?, ?, ?, ?)", id, i, value, "Row " + value);
  }
}

/// What the settings store has for a row, past the tree: MHz, kBd or a choice; a text that is no number as it is.
void SetStored(const std::string& id, const std::string& value) {
  const std::string key = id.substr(id.rfind('-') + 1);
  const auto number = desktop::ToNumber(value);
  const std::string stored = number ? std::to_string(*number * (id == kFrequency ? 1000 : 1)) : value;
  test::Change("UPDATE setting SET value = ? WHERE key LIKE '%/user-defined-transponder/' || ?", stored, key);
}

std::string Value(const std::string& id) {
  std::string name, value;
  EXPECT_TRUE(SettingsAPI::Get()->GetItemValue(id, name, value));
  return value;
}

constexpr const char* kWrite = "SettingsAPI::SetItemValue";

// --- the drop-down -------------------------------------------------------------------------------

TEST(Sublist, OpensOnTheValueAndStoresTheChosenOne) {
  struct Case {
    const char *value, *focus, *keys, *stored;
    size_t writes;
    bool closed;
  };
  Tv tv("europe", 0);
  SetChoices(kPolarity, 4);
  test::Run({kGround}, [&](Remote& remote) {
    for (const Case& c :
         {Case{"0", "Row 0", "Down Return", "1", 1, true}, Case{"3", "Row 3", "Up Up Return", "1", 1, true},
          Case{"3", "Row 3", "Return", "3", 1, true}, Case{"0", "Row 0", "Up Return", "0", 1, true},
          Case{"2", "Row 2", "Down Down Down Down Return", "3", 1, true}, Case{"1", "Row 1", "Down Left", "1", 0, true},
          Case{"1", "Row 1", "Down Back", "1", 0, true}, Case{"1", "Row 1", "Down BackSpace", "1", 0, true},
          Case{"1", "Row 1", "Right 5 XF86Red", "1", 0, false}, Case{"gone", "Row 0", "Return", "0", 1, true}}) {
      SCOPED_TRACE(std::string(c.value) + " " + c.keys);
      SetStored(kPolarity, c.value);
      tv.ClearJournal();
      remote.OpenControl(kPolarity);
      EXPECT_EQ(remote.RowTexts(), (Texts{"Row 0", "Row 1", "Row 2", "Row 3"}));
      EXPECT_EQ(remote.Focus(), c.focus);
      remote.Press(c.keys);
      EXPECT_EQ(remote.Stack().size(), c.closed ? 1U : 2U);
      if (!c.closed) remote.Press("Back");
      EXPECT_EQ(remote.Focus(), "OK") << "the focus is back in the window";
      EXPECT_EQ(Value(kPolarity), c.stored);
      EXPECT_EQ(tv.Calls(kWrite), c.writes);
    }
  });
}

TEST(Sublist, ReachesEveryRowOfALongList) {
  Tv tv("europe", 0);
  SetChoices(kPolarity, 40);
  SetStored(kPolarity, "20");
  test::Run({kGround}, [&](Remote& remote) {
    remote.OpenControl(kPolarity);
    EXPECT_EQ(remote.Focus(), "Row 20");
    for (int row = 21; row < 40; ++row) {
      remote.Press("Down");
      ASSERT_EQ(remote.Focus(), "Row " + std::to_string(row));
      const Texts seen = remote.RowTexts();
      ASSERT_NE(std::find(seen.begin(), seen.end(), remote.Focus()), seen.end()) << "the focus is out of sight";
      ASSERT_LT(seen.size(), 9U) << "it is too high";
    }
    remote.Press("Down");
    EXPECT_EQ(remote.Focus(), "Row 39") << "no way round";
    remote.Press("Return");
  });
  EXPECT_EQ(Value(kPolarity), "39");
}

// --- the spinner ---------------------------------------------------------------------------------

struct Typed {
  const char *id, *value, *keys, *shown, *stored;
};

const Typed kTyped[] = {
    {kFrequency, "11000 MHz", "", "11000 MHz", "11000 MHz"},
    {kFrequency, "11000 MHz", "Up Up Down", "11001 MHz", "11001 MHz"},
    {kFrequency, "11000 MHz", "1 2 3", "123 MHz", "11000 MHz"},
    {kFrequency, "11000 MHz", "1 1 2 2 2 Return", nullptr, "11222 MHz"},
    {kFrequency, "11000 MHz", "1 0 6 9 9 Return", nullptr, "11000 MHz"},
    {kFrequency, "11000 MHz", "1 0 7 0 0 Return", nullptr, "10700 MHz"},
    {kFrequency, "11000 MHz", "1 2 7 5 0 Return", nullptr, "12750 MHz"},
    {kFrequency, "11000 MHz", "1 2 7 5 1 Return", nullptr, "11000 MHz"},
    {kFrequency, "11000 MHz", "9 9 9 9 9 9 9 9 9 9 9 9 Return", nullptr, "11000 MHz"},
    {kFrequency, "11000 MHz", "1 2 Up 3", "3 MHz", "11001 MHz"},
    {kFrequency, "11000 MHz", "1 2 Back", nullptr, "11000 MHz"},
    {kFrequency, "11000 MHz", "1 2 BackSpace", nullptr, "11000 MHz"},
    {kFrequency, "11000 MHz", "Left Right XF86Red XF86RaiseChannel", "11000 MHz", "11000 MHz"},
    {kFrequency, "----", "", "----", "----"},
    {kFrequency, "----", "Return", nullptr, "----"},
    {kFrequency, "----", "Up", "10700 MHz", "10700 MHz"},
    {kFrequency, "12750 MHz", "Up", "12750 MHz", "12750 MHz"},
    {kFrequency, "10700 MHz", "Down", "10700 MHz", "10700 MHz"},
    {kRate, "27500 KS/s", "2 2 0 0 0 Return", nullptr, "22000 KS/s"},
    {kRate, "27500 KS/s", "0 Return", nullptr, "27500 KS/s"},
    {kRate, "27500 KS/s", "5 0 0 0 1 Return", nullptr, "27500 KS/s"},
    {kRate, "27500 KS/s", "0 1 Return", nullptr, "1 KS/s"},
};

TEST(Spinner, StepsAndTakesDigitsWithinItsLimits) {
  Tv tv("europe", 0);
  test::Run({kGround}, [&](Remote& remote) {
    for (const Typed& c : kTyped) {
      SCOPED_TRACE(std::string(c.id) + " " + c.value + ": " + c.keys);
      const std::string value = c.value;
      SetStored(c.id, value.substr(0, value.find(' ')));
      remote.OpenControl(c.id);
      EXPECT_EQ(remote.Focus(), c.value);
      remote.Press(c.keys);
      EXPECT_EQ(remote.Stack().size(), c.shown ? 2U : 1U);
      EXPECT_EQ(remote.Focus(), c.shown ? c.shown : "OK");
      EXPECT_EQ(Value(c.id), c.stored);
      if (c.shown) remote.Press("Back");
      EXPECT_EQ(Value(c.id), c.stored) << "after Back";
    }
  });
}

TEST(Spinner, SpeaksEachStepAndOpensTheNumberPad) {
  Tv tv("europe", 0);
  tv.TurnVoiceOn();
  SetStored(kFrequency, "11000");
  test::Run({kGround}, [&](Remote& remote) {
    remote.OpenControl(kFrequency);
    remote.Wait(0.3);
    remote.ExpectSaid("Up", "11001 MHz");
    remote.Press("XF86More");
    const Json::Value launched = remote.Screen()["launched"];
    EXPECT_EQ(launched[0]["app"].asString() + launched[0]["extra"]["type"].asString(),
              "org.nyxel.function-osdNUM_SPIN");
  });
}

// --- where they stand ----------------------------------------------------------------------------

TEST(Controls, StandAtTheEndOfTheirRow) {
  constexpr int kX = 400, kY = 300, kW = 800;
  for (const char* language : {"en_US.utf8", "ar_AE.utf8"}) {
    SCOPED_TRACE(language);
    Tv tv("europe", 0);
    tv.SetLanguage(language);
    SetChoices(kPolarity, 4);
    tv.SetItem(kLongitude, "5.7 E");
    test::Run({kGround}, [&](Remote& remote) {
      for (const char* id : {kFrequency, kPolarity, kLongitude}) {
        remote.OpenControl(id, kX, kY, kW);
        const test::Place place = remote.PlaceOf(id == kLongitude ? "7" : remote.Focus());
        EXPECT_TRUE(place.x >= kX && place.x + place.w <= kX + kW) << id;
        EXPECT_EQ(place.x + place.w / 2 < kX + kW / 2, language[0] == 'a') << id;
        EXPECT_NEAR(place.y, kY, 150) << id;
        if (id == kLongitude) {
          EXPECT_LT(remote.PlaceOf("5").x, place.x) << "numbers run from left to right";
        }
        remote.Press("Back");
      }
    });
  }
}

/// The toolkit still wants to give the focus to what has gone, and says so the next time that something gets it.
TEST(Controls, MayGoBeforeTheyHadTheFocus) {
  Tv tv("europe", 0);
  test::Run({"signal-information"}, [&](Remote& remote) {
    for (const char* id : {kFrequency, kPolarity}) {
      auto* place = new CEventPositionData(id);
      CEventManager::GetInstance()->SendEvent(EVENT_PUSH_VIEW, 0, 0, nullptr, place);
      remote.Post(EVENT_POP_VIEW);
      EXPECT_EQ(remote.Focus(), "Close") << id;
      remote.OpenControl(id);
      remote.Press("Back");
      EXPECT_EQ(remote.Focus(), "Close") << id;
    }
  });
}

// --- anything that may stand in the TV -----------------------------------------------------------

TEST(Controls, LiveWithAnyStoredText) {
  Tv tv("europe", 0);
  test::Run({kGround}, [&](Remote& remote) {
    for (const std::string& value :
         Texts{"", std::string(700, '\xff'), std::string(700, 'W'), "\x01\n\t", "\xc3", "x\xc3", "<b>&amp;",
               "2147483647", "-2147483648", "99999999999999999999", "----", "1e9", "0x10"}) {
      for (const char* id : {kFrequency, kRate, kPolarity, "signal-information-bandwidth"}) {
        SCOPED_TRACE(std::string(id) + ": " + value);
        SetStored(id, value);
        SetChoices(kPolarity, 2);
        test::Change("UPDATE choice SET value = ?1, name = ?1 WHERE item = ?2 AND place = 1", value, kPolarity);
        remote.OpenControl(id);
        EXPECT_EQ(remote.Stack().size(), 2U);
        remote.Press("Up Down 9 Return");
        if (remote.Stack().size() > 1) remote.Press("Back");
        ASSERT_EQ(remote.Stack(), Texts{kGround});
      }
    }
  });
}

TEST(Rows, ThatAreDimmedAreFaintUntilTheyAreNot) {
  Tv tv("europe", 0);
  SetChoices(kPolarity, 3);
  test::Run({kGround}, [&](Remote& remote) {
    remote.OpenControl(kPolarity);
    Elm_Object_Item* row = elm_genlist_nth_item_get(remote.List(), 1);
    const test::Place place = remote.PlaceOf("Row 1");
    const auto brightest = [&] {
      unsigned int most = 0;
      for (int x = place.x; x < place.x + 100; ++x) {
        for (int y = place.y; y < place.y + place.h; ++y) most = std::max(most, remote.ColourAt(x, y) & 0xFF);
      }
      return most;
    };
    const unsigned int plain = brightest();
    Utils::ApplyItemHighlight(row, ITEM_STATUS_DISABLED);
    remote.Settle();
    EXPECT_LT(brightest(), plain);
    Utils::ApplyItemHighlight(row, ITEM_STATUS_ENABLED);
    remote.Settle();
    EXPECT_EQ(brightest(), plain);
  });
}

}  // namespace
