// A profile's satellite side: which are in use, the single cable, the dish.
#include "Dish.h"
#include "Installation.h"
#include "SingleCable.h"
#include "Store.h"
#include "TvProfile.h"

namespace desktop {

namespace {

/// The motor's slots for the satellites that the profile stored there begin here, above those of all others.
constexpr int kFirstSlot = 64;

int Frequency(const ProfileLine& line, const std::string& word) {
  return static_cast<int>(Number(line, word, kLowestBand, kHighestBand));
}

void WriteBands(const ProfileLine& line, std::string rest) {
  if (rest == "usual") return SetUserBands({std::begin(kUserBands), std::end(kUserBands)});
  std::vector<int> frequencies;
  while (!rest.empty()) frequencies.push_back(Frequency(line, TakeWord(rest)));
  if (frequencies.empty() || frequencies.size() > kMostBands) throw ProfileError(line, "wants 1 to 32 bands");
  SetUserBands(frequencies);
}

void WriteOccupant(const ProfileLine& line, std::string rest) {
  const std::string frequency = TakeWord(rest);
  if (rest.empty()) throw ProfileError(line, "a name is missing");
  if (Query("UPDATE satcr_band SET occupant = ? WHERE frequency = ?", rest, Frequency(line, frequency)).Run() == 0)
    throw ProfileError(line, "no band at '" + frequency + "'");
}

void WriteTuner(const ProfileLine& line, std::string rest) {
  const auto tuner = static_cast<int>(Number(line, TakeWord(rest), 0, 1));
  Query("REPLACE INTO satcr (tuner) VALUES (?)", tuner).Run();
  if (!rest.empty()) StoreUserBand(tuner, Frequency(line, rest));
}

void WriteMotor(const ProfileLine& line, std::string rest) {
  const int zero = PositionOf(line, TakeWord(rest)), position = PositionOf(line, TakeWord(rest));
  const int64_t speed = Number(line, rest, kSlowest, kFastest) * kDegree;
  Query("UPDATE dish SET motor = 1, zero = ?, speed = ?", zero, speed).Run();
  const Dish dish = ReadDish();
  Query("UPDATE dish SET origin = ?1, target = ?1", dish.Reached(dish.AngleOf(position))).Run();
  Query("UPDATE satellite SET motorised = 1 WHERE user_defined = 1").Run();
}

void WriteMotorised(const ProfileLine& line, std::string rest) {
  const Dish dish = ReadDish();
  if (!dish.motor) throw ProfileError(line, "stands before the dish's motor");
  for (int slot = kFirstSlot; !rest.empty() && slot <= kLastSlot; ++slot) {
    const int position = PositionOf(line, TakeWord(rest));
    Query("REPLACE INTO dish_slot VALUES (?, ?)", slot, dish.AngleOf(position)).Run();
    Query("UPDATE satellite SET motorised = 1, slot = ? WHERE position = ? AND user_defined = 0", slot, position).Run();
  }
}

}  // namespace

void WriteSelection(const ProfileLine& line, std::string rest) {
  while (!rest.empty()) {
    Query("REPLACE INTO selected SELECT ?, ?, id FROM satellite WHERE position = ? AND user_defined = 0", ANTENNA_NONE,
          SERVICE_MODE_NONE, PositionOf(line, TakeWord(rest)))
        .Run();
  }
}

void WriteUserSatellite(const ProfileLine& line, std::string rest) {
  const auto number = static_cast<int>(Number(line, TakeWord(rest), 1, kUserSatellites));
  const int position = PositionOf(line, rest);
  MoveUserSatellite(number, position, LongitudeText(position));
}

void WriteCable(const ProfileLine& line, std::string rest) {
  const std::string what = TakeWord(rest);
  if (what == "bands") return WriteBands(line, rest);
  if (what == "occupant") return WriteOccupant(line, rest);
  if (what == "tuner") return WriteTuner(line, rest);
  throw ProfileError(line, "'" + what + "' is neither bands, occupant nor tuner");
}

void WriteDish(const ProfileLine& line, std::string rest) {
  const std::string what = TakeWord(rest);
  if (what == "motor") return WriteMotor(line, rest);
  if (what == "satellites") return WriteMotorised(line, rest);
  throw ProfileError(line, "'" + what + "' is neither motor nor satellites");
}

}  // namespace desktop
