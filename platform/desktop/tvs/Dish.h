// The dish and its motor. A turn takes time: when it began stands in the TV, and where the dish points follows from the
// clock.
#pragma once

#include <cstdint>
#include <optional>

#include "tvs_types.h"

namespace desktop {

/// Angles of the motor are in hundredths of a degree from its zero, those to the east above 0.
constexpr int kDegree = 100;
/// How far the motor turns to either side.
constexpr int kReach = 75 * kDegree;
/// Positions that the motor keeps: 0 to this.
constexpr int kLastSlot = 255;
/// Degrees a second.
constexpr int kSlowest = 1, kFastest = 30;

struct Dish {
  bool motor = false;
  int zero = 0;  ///< orbital position at its zero, in tenths of a degree from 0 to 3599
  int origin = 0, target = 0;
  int64_t began = 0;
  int speed = kSlowest * kDegree;  ///< in a second
  std::optional<int> eastLimit, westLimit;

  int AngleAt(int64_t now) const;
  /// When it is at its target.
  int64_t Arrival() const;
  /// The nearest angle to this one that the motor reaches within its limits.
  int Reached(int angle) const;
  /// From an orbital position and to one, in tenths of a degree from 0 to 3599.
  int AngleOf(int position) const;
  int PositionOf(int angle) const;
};

Dish ReadDish();

/// What an installer says of it. A limit beyond the other one is refused: false.
void SetMotor(bool motor);
void SetSpeed(int speed);
bool SetEastLimit(std::optional<int> angle);
bool SetWestLimit(std::optional<int> angle);
/// Begins to turn from where the dish is, as far as it may; milliseconds until it is there.
int64_t TurnDish(int angle);
/// Begins to turn to what is stored for a satellite; 0 when nothing turns for it.
int64_t TurnDishTo(int satellite);

/// False without a motor, and for what the motor cannot do.
bool RunPositionerCommand(EPositionerCommand command, int parameter);

/// What is left of a full signal from an orbital position, 0 to 1.
struct Pointing {
  double strength = 1, quality = 1;
};
Pointing PointingAt(int position);

}  // namespace desktop
