#include "Tuning.h"

#include <algorithm>
#include <cmath>

#include "Dish.h"
#include "State.h"
#include "Store.h"

namespace desktop {

namespace {

// Milliseconds until a tune has found its signal or given up.
constexpr int kSameTransponder = 200;
constexpr int kAir = 700;
constexpr int kSatellite = 1200;

constexpr int kDvbS2 = 6;

ESignalKind KindOf(int64_t antenna, int64_t standard, int64_t type) {
  if (antenna == ANTENNA_SATELLITE) return standard == kDvbS2 ? SIGNAL_SATELLITE2 : SIGNAL_SATELLITE;
  if (type == CHANNEL_ANALOG_AIR || type == CHANNEL_ANALOG_CABLE) return SIGNAL_ANALOG;
  return antenna == ANTENNA_CABLE ? SIGNAL_DIGITAL_CABLE : SIGNAL_DIGITAL_AIR;
}

int Left(int figure, double share) { return static_cast<int>(std::lround(figure * share)); }

/// A dish that points aside hears less.
void PointAside(TunerState& state, const Pointing& pointing) {
  constexpr double kMostErrors = 10'000'000;
  state.strength = Left(state.strength, pointing.strength);
  state.quality = Left(state.quality, pointing.quality);
  state.snr = Left(state.snr, pointing.quality);
  state.ber = static_cast<int>(std::min(state.ber / std::max(pointing.quality, 1 / kMostErrors), kMostErrors));
}

int64_t TurnToTransponder(int transponder) {
  Query q("SELECT satellite FROM transponder WHERE id = ?", transponder);
  return q.Row() && !q.IsNull(0) ? TurnDishTo(static_cast<int>(q.Int(0))) : 0;
}

}  // namespace

TunerState ReadTuner(int profile) {
  TunerState state;
  Query q(
      "SELECT p.tuned_at + p.lock_time, p.antenna, t.antenna, t.standard, s.type, t.strength, t.quality, t.ber, t.snr, "
      "a.motorised, a.position FROM picture p LEFT JOIN transponder t ON t.id = p.transponder LEFT JOIN service s ON "
      "s.id = p.service LEFT JOIN satellite a ON a.id = t.satellite WHERE p.profile = ?",
      profile);
  if (!q.Row()) throw StoreError("no picture " + std::to_string(profile));
  state.tuned = NowMilliseconds() >= q.Int(0);
  state.kind = KindOf(q.IsNull(2) ? q.Int(1) : q.Int(2), q.Int(3), q.Int(4));
  state.strength = static_cast<int>(q.Int(5));
  if (state.tuned) {
    state.quality = static_cast<int>(q.Int(6));
    state.ber = static_cast<int>(q.Int(7));
    state.snr = static_cast<int>(q.Int(8));
  }
  if (q.Int(9)) PointAside(state, PointingAt(static_cast<int>(q.Int(10))));
  state.locked = state.strength > 0 && state.quality > 0;
  return state;
}

bool BeginTune(int profile, unsigned long long service) {
  bool found = false;
  Store::Get().Write([&] {
    Query s("SELECT antenna, service_mode, transponder FROM service WHERE id = ?", static_cast<int64_t>(service));
    if (!s.Row()) return;
    found = true;
    Query p("SELECT transponder FROM picture WHERE profile = ?", profile);
    const bool same = p.Row() && !p.IsNull(0) && !s.IsNull(2) && p.Int(0) == s.Int(2);
    const int64_t turn = s.IsNull(2) ? 0 : TurnToTransponder(static_cast<int>(s.Int(2)));
    const int64_t time = turn + (same ? kSameTransponder : s.Int(0) == ANTENNA_SATELLITE ? kSatellite : kAir);
    Query(
        "UPDATE picture SET (antenna, service_mode, transponder) = (SELECT antenna, service_mode, transponder FROM "
        "service WHERE id = ?2), service = ?2, active = 1, fine_tune = NULL, tuned_at = ?3, lock_time = ?4 "
        "WHERE profile = ?1",
        profile, static_cast<int64_t>(service), NowMilliseconds(), time)
        .Run();
    Query("REPLACE INTO shown VALUES (?, ?, ?, ?)", profile, s.Int(0), s.Int(1), static_cast<int64_t>(service)).Run();
  });
  if (found) DeliverTunes();
  return found;
}

void BeginFeeding(int profile, int transponder, bool dishTurns) {
  Store::Get().Write([&] {
    const int64_t turn = dishTurns ? TurnToTransponder(transponder) : 0;
    Query("UPDATE picture SET transponder = ?, tuned_at = ?, lock_time = ? WHERE profile = ?", transponder,
          NowMilliseconds(), kSatellite + turn, profile)
        .Run();
  });
  DeliverTunes();
}

TuneTimes LastTune(int profile) {
  Query q("SELECT tuned_at, tuned_at + lock_time FROM picture WHERE profile = ?", profile);
  return q.Row() ? TuneTimes{q.Int(0), q.Int(1)} : TuneTimes{};
}

}  // namespace desktop
