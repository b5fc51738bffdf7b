#include "Dish.h"

#include <algorithm>
#include <cmath>

#include "State.h"
#include "Store.h"

namespace desktop {

namespace {

constexpr int kRound = 360 * kDegree;
constexpr int kPerTenth = kDegree / 10;
constexpr int kTenthsRound = 3600;
/// So many degrees beside a satellite half of its signal is left.
constexpr double kHalfStrength = 1.2, kHalfQuality = 0.8;

/// The same direction from -180 degrees to 180.
int Turned(int angle) {
  const int around = ((angle + kRound / 2) % kRound + kRound) % kRound;
  return around - kRound / 2;
}

/// A file may say anything; a motor is somewhere on its way.
int Within(const Query& q, int column, int64_t least, int64_t most) {
  return static_cast<int>(std::clamp(q.Int(column), least, most));
}

int ReadAngle(const Query& q, int column) { return Within(q, column, -kReach, kReach); }

std::optional<int> ReadLimit(const Query& q, int column) {
  if (q.IsNull(column)) return {};
  return ReadAngle(q, column);
}

void BindKnown(Query& q, const std::optional<int>& value) {
  if (value) {
    q.Bind(*value);
  } else {
    q.Bind(nullptr);
  }
}

/// What bounds it has changed: a dish that turns past them stops at them.
void Stop(const Dish& dish) {
  Query("UPDATE dish SET origin = ?, target = ?, began = ?", dish.AngleAt(NowMilliseconds()), dish.Reached(dish.target),
        NowMilliseconds())
      .Run();
}

bool SetLimits(const Dish& dish) {
  if (dish.eastLimit && dish.westLimit && *dish.eastLimit < *dish.westLimit) return false;
  Store::Get().Write([&] {
    Query q("UPDATE dish SET east_limit = ?, west_limit = ?");
    BindKnown(q, dish.eastLimit);
    BindKnown(q, dish.westLimit);
    q.Run();
    Stop(dish);
  });
  return true;
}

bool StoreAngle(int slot, int angle) {
  if (slot < 0 || slot > kLastSlot) return false;
  Query("REPLACE INTO dish_slot VALUES (?, ?)", slot, angle).Run();
  return true;
}

bool Run(EPositionerCommand command, int parameter) {
  Dish dish = ReadDish();
  const int angle = dish.AngleAt(NowMilliseconds());
  switch (command) {
    case POSITIONER_RESET_LIMIT:
      dish.eastLimit = dish.westLimit = {};
      return SetLimits(dish);
    case POSITIONER_LIMIT_EAST:
      return SetEastLimit(angle);
    case POSITIONER_LIMIT_WEST:
      return SetWestLimit(angle);
    case POSITIONER_STORE:
      return StoreAngle(parameter, angle);
    case POSITIONER_GO_TO_ZERO:
      TurnDish(0);
      return true;
  }
  return false;
}

}  // namespace

int Dish::AngleAt(int64_t now) const {
  const int64_t turned = std::max<int64_t>(now - began, 0) * speed / 1000;
  const int64_t left = std::abs(target - origin);
  const auto step = static_cast<int>(std::min(turned, left));
  return origin + (target < origin ? -step : step);
}

int64_t Dish::Arrival() const { return began + (int64_t{1000} * std::abs(target - origin) + speed - 1) / speed; }

int Dish::Reached(int angle) const {
  return std::min(std::max(angle, westLimit.value_or(-kReach)), eastLimit.value_or(kReach));
}

int Dish::AngleOf(int position) const { return Turned((position % kTenthsRound - zero) * kPerTenth); }

int Dish::PositionOf(int angle) const {
  const auto tenths = static_cast<int>(std::lround(angle / double{kPerTenth}));
  return ((zero + tenths) % kTenthsRound + kTenthsRound) % kTenthsRound;
}

Dish ReadDish() {
  Query q("SELECT motor, zero, origin, target, began, speed, east_limit, west_limit FROM dish");
  Dish dish;
  if (!q.Row()) throw StoreError(Store::Get().Path() + ": no dish");
  dish.motor = q.Int(0) != 0;
  dish.zero = Within(q, 1, 0, kTenthsRound - 1);
  dish.origin = ReadAngle(q, 2);
  dish.target = ReadAngle(q, 3);
  dish.began = std::clamp<int64_t>(q.Int(4), 0, NowMilliseconds());
  dish.speed = Within(q, 5, int64_t{kSlowest} * kDegree, int64_t{kFastest} * kDegree);
  dish.eastLimit = ReadLimit(q, 6);
  dish.westLimit = ReadLimit(q, 7);
  return dish;
}

void SetMotor(bool motor) {
  Store::Get().Write([&] {
    TurnDish(ReadDish().AngleAt(NowMilliseconds()));
    Query("UPDATE dish SET motor = ?", motor ? 1 : 0).Run();
  });
}

void SetSpeed(int speed) {
  Store::Get().Write([&] {
    const Dish dish = ReadDish();
    Query("UPDATE dish SET origin = ?, began = ?, speed = ?", dish.AngleAt(NowMilliseconds()), NowMilliseconds(), speed)
        .Run();
  });
}

bool SetEastLimit(std::optional<int> angle) {
  Dish dish = ReadDish();
  dish.eastLimit = angle;
  return SetLimits(dish);
}

bool SetWestLimit(std::optional<int> angle) {
  Dish dish = ReadDish();
  dish.westLimit = angle;
  return SetLimits(dish);
}

int64_t TurnDish(int angle) {
  int64_t time = 0;
  Store::Get().Write([&] {
    const int64_t now = NowMilliseconds();
    Dish dish = ReadDish();
    dish.origin = dish.AngleAt(now);
    dish.target = dish.Reached(angle);
    dish.began = now;
    Query("UPDATE dish SET origin = ?, target = ?, began = ?", dish.origin, dish.target, now).Run();
    time = dish.Arrival() - now;
  });
  return time;
}

int64_t TurnDishTo(int satellite) {
  Query q(
      "SELECT d.angle FROM satellite s JOIN dish_slot d ON d.slot = s.slot JOIN dish ON dish.motor = 1 "
      "WHERE s.id = ? AND s.motorised = 1",
      satellite);
  return q.Row() ? TurnDish(static_cast<int>(q.Int(0))) : 0;
}

bool RunPositionerCommand(EPositionerCommand command, int parameter) {
  bool done = false;
  Store::Get().Write([&] {
    done = ReadDish().motor && Run(command, parameter);
    if (done) Query("UPDATE dish SET command = ?, parameter = ?", command, parameter).Run();
  });
  return done;
}

Pointing PointingAt(int position) {
  const Dish dish = ReadDish();
  const double aside = std::abs(Turned(dish.AngleAt(NowMilliseconds()) - dish.AngleOf(position))) / double{kDegree};
  const auto left = [&](double half) { return std::exp2(-(aside / half) * (aside / half)); };
  return {left(kHalfStrength), left(kHalfQuality)};
}

}  // namespace desktop
