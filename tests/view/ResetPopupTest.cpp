// The question before the satellite settings go back to what they were, and the word after it.
#include "Harness.h"

using test::Ask;
using test::Change;
using test::Remote;
using test::Texts;
using test::Tv;

namespace {

constexpr const char* kReset = "reset-all-settings-satellite";
constexpr const char* kSet = "SettingsAPI::SetItemValue";
constexpr const char* kQuestion = "Reset all satellite settings to their defaults?";
constexpr const char* kDone = "The transponder database has been reset.";

std::string Lnb() { return Ask("SELECT low FROM satellite WHERE id = 2"); }

}  // namespace

TEST(ResetPopup, ResetsOnceWhenItMayAndNothingOtherwise) {
  const struct {
    const char* keys;
    /// Of the word after the question; null where there is none.
    const char* leave;
    bool fails = false;
  } cases[] = {{"Return", "Return"},
               {"Return", "Back"},
               {"Right Return", nullptr},
               {"Back", nullptr},
               {"Return", nullptr, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keys);
    Tv tv("europe", 0);
    tv.TurnVoiceOn();
    const std::string made = Lnb();
    Change("UPDATE satellite SET low = 5150000 WHERE id = 2");
    if (c.fails) tv.Fail(kSet);
    test::Run({kReset}, [&](Remote& remote) {
      EXPECT_TRUE(remote.Shows(kQuestion));
      remote.Wait(3);
      EXPECT_NE(remote.Spoken().front().find(std::string(kQuestion) + ", Yes, Button, No, Button"), std::string::npos);
      remote.Press(c.keys);
      EXPECT_EQ(remote.HasExited(), !c.leave);
      if (!c.leave) return;
      EXPECT_TRUE(remote.Shows(kDone));
      EXPECT_FALSE(remote.Shows(kQuestion));
      remote.Press(c.leave);
      EXPECT_TRUE(remote.HasExited());
    });
    EXPECT_EQ(Lnb(), c.leave ? made : "5150000");
    EXPECT_EQ(tv.Calls(kSet), c.leave || c.fails ? 1U : 0U);
  }
}

TEST(ResetPopup, GoesWithItsConfirmation) {
  Tv tv("europe", 0);
  test::Run({kReset}, [](Remote& remote) {
    remote.Press("Return");
    remote.Pop();
    EXPECT_FALSE(remote.Shows(kDone));
    EXPECT_EQ(remote.Buttons(), Texts{});
  });
  test::Run({kReset}, [](Remote& remote) {
    remote.Press("Return");
    remote.End();
  });
  EXPECT_EQ(test::TakeGraveToolkitErrors(), Texts{});
}
