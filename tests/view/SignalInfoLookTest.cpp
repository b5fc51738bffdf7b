// The rows of the signal information, and what is drawn beside and below them.
#include <cstdlib>

#include "SignalInfo.h"

namespace test {

namespace {

constexpr unsigned int kGood = 0x4CD6A0, kPlain = 0xF3F6FB;

/// Blending with what lies below may cost a shade.
bool Is(unsigned int wanted, unsigned int colour) {
  for (int bits = 0; bits < 24; bits += 8) {
    if (std::abs(static_cast<int>(colour >> bits & 0xFF) - static_cast<int>(wanted >> bits & 0xFF)) > 4) return false;
  }
  return true;
}

/// The picture stands below the last row: how many of its bars are lit.
int LitBars(Remote& remote, const std::string& lastRow) {
  constexpr int kRowHeight = 64, kPad = 20, kHeight = 164, kMiddleOfLowest = 34;
  const Place last = remote.PlaceOf(lastRow);
  const int y = last.y + last.h / 2 + kRowHeight / 2 + kPad + kHeight - kMiddleOfLowest;
  int lit = 0;
  for (int bar = 0; bar < 10; ++bar) {
    if (Is(kGood, remote.ColourAt(last.x - 32 + 46 + 39 * bar, y))) ++lit;
  }
  return lit;
}

/// How much of a row's bar is filled, in percent; -1 without a bar.
int Bar(Remote& remote, const std::string& row, unsigned int fill = kGood) {
  const Place name = remote.PlaceOf(row);
  const int left = name.x - 32 + 370, width = 342, y = name.y + name.h / 2;
  int filled = 0;
  const unsigned int ground = remote.ColourAt(name.x - 16, y);
  if (remote.ColourAt(left + width - 6, y) == ground) return -1;
  for (int x = left; x < left + width; ++x) filled += Is(fill, remote.ColourAt(x, y));
  return filled * 100 / width;
}

TEST(SignalInfoLook, EachTypeShowsItsRowsAndDecoration) {
  const struct {
    int type;
    const char* profile;
    int antenna, country;  ///< -1: as the profile has it
    const char* rows;
  } cases[] = {
      {0, "brazil", 1, -1,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Modulation, Multiplex"},
      {1, "brazil", -1, -1, "Channel, Signal strength, Signal quality, Signal status, Antenna, Channel ID, Frequency"},
      {2, "hdmi", -1, 8,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Bandwidth, Modulation, "
       "Multiplex"},
      {3, "europe", -1, -1,
       "Channel, Signal strength, Signal quality, Bit error level, Antenna, Frequency, Modulation, Multiplex, "
       "Service ID"},
      {4, "europe", 0, -1,
       "Frequency, Bandwidth, Channel, Signal strength, Signal quality, Bit error level, Antenna, Modulation, "
       "Multiplex"},
      {5, "america", -1, -1,
       "Channel, Signal strength, Signal-to-noise ratio, Signal status, Antenna, Physical channel, Modulation"},
  };
  for (const auto& type : cases) {
    SCOPED_TRACE(type.type);
    Tv tv(type.profile);
    if (type.antenna >= 0) Receive(type.antenna);
    if (type.country >= 0) tv.Set("system_settings/57", std::to_string(type.country));
    SetSignal("strength = 57");
    Open([&](Remote& remote) {
      EXPECT_TRUE(Logged("[Debug]nType is [" + std::to_string(type.type) + "] "));
      std::string names, last;
      for (const auto& [name, value] : remote.Rows()) {
        names += (names.empty() ? "" : ", ") + name;
        last = name;
        EXPECT_FALSE(value.empty() || value == "----") << name;
      }
      EXPECT_EQ(names, type.rows);
      EXPECT_EQ(remote.ValueOf("Signal strength"), "57");
      EXPECT_EQ(remote.Title(), "Signal information");
      EXPECT_EQ(remote.Buttons(), (Texts{"Signal history", "Close"}));
      const bool pictured = type.type == 1 || type.type == 5;
      EXPECT_EQ(LitBars(remote, last), pictured ? 5 : 0);
      // Nothing reaches beyond the screen.
      EXPECT_LT(remote.PlaceOf(last).y, 1000);
    });
    EXPECT_EQ(tv.Calls("ST_OPERATION_CALL"), 1U);
  }
}

TEST(SignalInfoLook, ShowsAChannelNameAsItIs) {
  const std::string name = "R&D <b>1</b> &amp; ü";
  Tv tv("europe", 40);
  Change("UPDATE service SET name = '" + name + "'");
  Open([&](Remote& remote) { EXPECT_TRUE(remote.ValueOf("Channel").ends_with(" " + name)); });
}

TEST(SignalInfoLook, ThePictureFollowsTheStrength) {
  Tv tv;
  SetSignal("strength = 100");
  Open([&](Remote& remote) {
    EXPECT_EQ(LitBars(remote, "Modulation"), 10);
    for (const auto& [strength, lit] : {std::pair(9, 0), {10, 1}, {57, 5}, {99, 9}}) {
      SetSignal("strength = " + std::to_string(strength));
      remote.Wait(kRound);
      EXPECT_EQ(LitBars(remote, "Modulation"), lit) << strength;
    }
  });
}

TEST(SignalInfoLook, BarsFollowTheFiguresAndAreFullAtTheirMost) {
  const struct {
    const char* figures;
    int strength, quality, errors;
  } cases[] = {{"strength = 100, quality = 50, ber = 2000", 100, 50, 100},
               {"strength = 25, quality = 100, ber = 500", 25, 100, 25},
               {"strength = 50, quality = 75, ber = 9000", 50, 75, 100}};
  Tv tv("europe");
  Open([&](Remote& remote) {
    for (const auto& c : cases) {
      SetSignal(c.figures);
      remote.Wait(kRound);
      // The ends are round.
      EXPECT_NEAR(Bar(remote, "Signal strength"), c.strength, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Signal quality"), c.quality, 3) << c.figures;
      EXPECT_NEAR(Bar(remote, "Bit error level", kPlain), c.errors, 3) << c.figures;
    }
  });
}

TEST(SignalInfoLook, ALocalSetSaysTheStrengthInWords) {
  struct {
    int strength;
    const char* text;
  } const cases[] = {{28, "28 (weak)"},   {29, "29 (moderate)"}, {50, "50 (moderate)"},
                     {51, "51 (strong)"}, {85, "85 (strong)"},   {86, "86 (very strong)"}};
  Tv tv("europe");
  tv.Set("system_info/284", "94");
  Open([&](Remote& remote) {
    EXPECT_EQ(Bar(remote, "Signal strength"), -1);
    EXPECT_GT(Bar(remote, "Signal quality"), 0);
    for (const auto& c : cases) {
      SetSignal("strength = " + std::to_string(c.strength));
      remote.Wait(kRound);
      EXPECT_EQ(remote.ValueOf("Signal strength"), c.text);
    }
  });
  tv.Set("system_info/284", "93");
  Open([](Remote& remote) {
    EXPECT_EQ(remote.ValueOf("Signal strength"), "86");
    EXPECT_NEAR(Bar(remote, "Signal strength"), 86, 3);
  });
}

}  // namespace

}  // namespace test
