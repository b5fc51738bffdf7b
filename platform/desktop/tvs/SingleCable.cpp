#include "SingleCable.h"

#include <algorithm>
#include <string>

#include "State.h"
#include "Store.h"

namespace desktop {

namespace {

constexpr int kDetectMilliseconds = 15000;
constexpr int kVerifyMilliseconds = 5000;

struct Band {
  int number = 0, frequency = -1;
};

int NumberOf(int frequency, int missing) {
  Query q("SELECT number FROM satcr_band WHERE frequency = ?", frequency);
  return q.Row() ? static_cast<int>(q.Int(0)) : missing;
}

/// Nobody else is on it.
bool IsFree(int frequency, int tuner) {
  Query q(
      "SELECT 1 FROM satcr_band WHERE frequency = ?1 AND occupant = '' AND NOT EXISTS "
      "(SELECT 1 FROM satcr WHERE frequency = ?1 AND tuner <> ?2)",
      frequency, tuner);
  return q.Row();
}

std::vector<Band> ReadBands() {
  std::vector<Band> bands;
  Query q("SELECT number, frequency FROM satcr_band ORDER BY number");
  while (q.Row()) bands.push_back({static_cast<int>(q.Int(0)), static_cast<int>(q.Int(1))});
  return bands;
}

/// The bands are tried one after the other, each as long as the next.
Band DetectedBand(int tuner, int progress) {
  const std::vector<Band> bands = ReadBands();
  const size_t tried = bands.size() * static_cast<size_t>(progress) / 100;
  for (size_t i = 0; i < tried; ++i) {
    if (IsFree(bands[i].frequency, tuner)) return bands[i];
  }
  return {};
}

Band VerifiedBand(int tuner, int progress) {
  Query q("SELECT frequency FROM satcr WHERE tuner = ?", tuner);
  const int stored = q.Row() ? static_cast<int>(q.Int(0)) : 0;
  if (progress < 100 || !IsFree(stored, tuner)) return {};
  return {NumberOf(stored, 0), stored};
}

Band FoundBand(int tuner, const CableRun& run) {
  const auto outcome = static_cast<int>(TvState("satcr_outcome", kByTheCable));
  if (outcome == kNothing || run.command == SATCR_COMMAND_STOP) return {};
  if (outcome > 0) return run.progress < 100 ? Band{} : Band{NumberOf(outcome, 0), outcome};
  return run.command == SATCR_COMMAND_DETECT ? DetectedBand(tuner, run.progress) : VerifiedBand(tuner, run.progress);
}

/// Percent of a run of so many milliseconds.
int Progress(int64_t began, int64_t lasts) {
  const int64_t now = NowMilliseconds();
  const int64_t passed = now - std::clamp<int64_t>(began, 0, now);
  return passed >= lasts ? 100 : static_cast<int>(passed * 100 / lasts);
}

int64_t Duration(ESatCRCommand command) {
  return TvState("satcr_duration", command == SATCR_COMMAND_DETECT ? kDetectMilliseconds : kVerifyMilliseconds);
}

}  // namespace

std::optional<CableRun> ReadRun(int tuner) {
  Query q("SELECT command, began, lasts FROM satcr WHERE tuner = ?", tuner);
  if (!q.Row()) return {};
  CableRun run;
  if (q.Int(0) != SATCR_COMMAND_DETECT && q.Int(0) != SATCR_COMMAND_VERIFY) return run;
  run.command = static_cast<ESatCRCommand>(q.Int(0));
  run.progress = Progress(q.Int(1), q.Int(2));
  const Band found = FoundBand(tuner, run);
  run.slot = found.number;
  run.frequency = found.frequency;
  return run;
}

bool RunCableCommand(int tuner, ESatCRCommand command) {
  if (command < SATCR_COMMAND_DETECT || command > SATCR_COMMAND_STOP) return false;
  int changed = 0;
  Store::Get().Write([&] {
    changed = Query("UPDATE satcr SET command = ?, began = ?, lasts = ? WHERE tuner = ?", command, NowMilliseconds(),
                    Duration(command), tuner)
                  .Run();
  });
  return changed > 0;
}

void SetUserBands(const std::vector<int>& frequencies) {
  Store::Get().Write([&] {
    Query("UPDATE satcr_band SET number = -number - 1").Run();
    int number = 0;
    for (const int frequency : frequencies) {
      Query(
          "INSERT INTO satcr_band (number, frequency) VALUES (?1, ?2) ON CONFLICT (frequency) DO UPDATE SET number = "
          "?1",
          ++number, frequency)
          .Run();
    }
    Query("DELETE FROM satcr_band WHERE number < 0").Run();
  });
}

bool StoreUserBand(int tuner, int frequency) {
  constexpr int kNoSlot = 255;
  int changed = 0;
  Store::Get().Write([&] {
    changed = Query("UPDATE satcr SET slot = ?, frequency = ? WHERE tuner = ?", NumberOf(frequency, kNoSlot), frequency,
                    tuner)
                  .Run();
  });
  return changed > 0;
}

}  // namespace desktop
