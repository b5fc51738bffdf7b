#include <algorithm>

#include "Gate.h"
#include "Proxies.h"
#include "State.h"

namespace desktop {

namespace {

constexpr int kDetectMilliseconds = 15000;
constexpr int kVerifyMilliseconds = 5000;

constexpr const char* kReadSql =
    "SELECT lnb_power, slot, diseqc, low, high, switch, voltage, tone, user_band, selected FROM satellite WHERE id = ?";
constexpr const char* kWriteSql =
    "UPDATE satellite SET lnb_power = ?, slot = ?, diseqc = ?, low = ?, high = ?, switch = ?, voltage = ?, tone = ?, "
    "user_band = ?, selected = ? WHERE id = ?";

/// The record's fields in the order of the two statements.
constexpr int TSSatelliteSettings::*kFields[] = {
    &TSSatelliteSettings::lnbPower,     &TSSatelliteSettings::slotId,        &TSSatelliteSettings::diseqcMode,
    &TSSatelliteSettings::lowFrequency, &TSSatelliteSettings::highFrequency, &TSSatelliteSettings::switchFrequency,
    &TSSatelliteSettings::voltage,      &TSSatelliteSettings::tone,          &TSSatelliteSettings::userBand,
    &TSSatelliteSettings::enabled};

class SatelliteSettings : public ISatelliteSettings {
 public:
  int GetSatelliteSettings(ESatelliteId satellite, TSSatelliteSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatelliteSettings, Entry(satellite), [&](Entry&) {
      Query q(kReadSql, satellite);
      if (!q.Row()) return -1;
      int column = 0;
      for (const auto field : kFields) settings.*field = static_cast<int>(q.Int(column++));
      return 1;
    });
  }

  int SetSatelliteSettings(ESatelliteId satellite, const TSSatelliteSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteSettings_SetSatelliteSettings, Entry(satellite), [&](Entry&) {
      int changed = 0;
      Store::Get().Write([&] { changed = Write(satellite, settings); });
      return changed > 0 ? 1 : -1;
    });
  }

  int ResetSatelliteSettings(int kind, int satellite) override {
    return Gate::Pass<int>(op::SatelliteSettings_ResetSatelliteSettings, Entry(kind, satellite), [&](Entry&) {
      Store::Get().Write([&] {
        std::vector<std::pair<int, int>> reset;
        Query q("SELECT id, selected FROM satellite WHERE ?1 = -1 OR id = ?1", satellite);
        while (q.Row()) reset.emplace_back(q.Int(0), q.Int(1));
        for (const auto& [id, selected] : reset) {
          TSSatelliteSettings fresh;
          fresh.enabled = selected;
          Write(id, fresh);
        }
        if (satellite == -1) Query("UPDATE satcr SET frequency = -1, slot = 255, command = 2").Run();
      });
      return 1;
    });
  }

  int GetSatelliteSelected(int satellite, const TSTvMode& mode, unsigned char& selected) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatelliteSelected,
                           Entry(satellite, mode.antennaMode, mode.serviceMode), [&](Entry& entry) {
                             Query q("SELECT selected FROM satellite WHERE id = ?", satellite);
                             if (!q.Row()) return 0;
                             selected = q.Int(0) ? 1 : 0;
                             entry.Out(selected);
                             return 1;
                           });
  }

  int SetSelectedSatellites(const std::vector<int>& satellites) override {
    std::string list;
    for (const int id : satellites) list += (list.empty() ? "" : " ") + std::to_string(id);
    return Gate::Pass<int>(op::SatelliteSettings_SetSelectedSatellites, Entry(list), [&](Entry&) {
      Store::Get().Write([&] {
        Query("UPDATE satellite SET selected = 0").Run();
        for (const int id : satellites) Query("UPDATE satellite SET selected = 1 WHERE id = ?", id).Run();
      });
      return 1;
    });
  }

  int GetSatCRSettings(unsigned short tuner, TSSatCRSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatCRSettings, Entry(tuner), [&](Entry& entry) {
      Query q("SELECT slot, frequency FROM satcr WHERE tuner = ?", tuner);
      if (!q.Row()) return 0;
      settings.slotNumber = static_cast<unsigned char>(q.Int(0));
      settings.slotFrequency = static_cast<int>(q.Int(1));
      entry.Out(settings.slotFrequency);
      return 1;
    });
  }

  int SetSatCRSlotFrequency(unsigned short tuner, int slotFrequency) override {
    return Gate::Pass<int>(op::SatelliteSettings_SetSatCRSlotFrequency, Entry(tuner, slotFrequency), [&](Entry&) {
      int changed = 0;
      Store::Get().Write([&] {
        changed = Query(
                      "UPDATE satcr SET slot = iif(?2 = line_frequency, line_slot, slot), frequency = ?2 "
                      "WHERE tuner = ?1",
                      tuner, slotFrequency)
                      .Run();
      });
      return changed > 0 ? 1 : 0;
    });
  }

  /// A run's progress follows from when it began; what is on the line shows at its end.
  int GetSatCRDetectStatus(unsigned char& slotNumber, int& slotFrequency, unsigned char& progress,
                           unsigned short tuner) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatCRDetectStatus, Entry(tuner), [&](Entry& entry) {
      Query q("SELECT command, began, line_slot, line_frequency, frequency FROM satcr WHERE tuner = ?", tuner);
      if (!q.Row()) return 0;
      const bool detect = q.Int(0) == SATCR_DETECT;
      const int64_t lasts = detect ? kDetectMilliseconds : kVerifyMilliseconds;
      const int64_t percent =
          q.Int(0) == SATCR_STOP ? 0 : std::clamp<int64_t>((NowMilliseconds() - q.Int(1)) * 100 / lasts, 0, 100);
      const bool found = percent == 100 && q.Int(3) > 0 && (detect || q.Int(3) == q.Int(4));
      progress = static_cast<unsigned char>(percent);
      slotNumber = found ? static_cast<unsigned char>(q.Int(2)) : 0;
      slotFrequency = found ? static_cast<int>(q.Int(3)) : 0;
      entry.Out(progress);
      entry.Out(slotFrequency);
      return 1;
    });
  }

 private:
  static int Write(int satellite, const TSSatelliteSettings& settings) {
    Query q(kWriteSql);
    for (const auto field : kFields) q.Bind(settings.*field);
    return q.Bind(satellite).Run();
  }
};

class SatelliteControl : public ISatelliteControl {
 public:
  int SendPositionerCommand(EPositionerCommand command, int parameter) override {
    return Gate::Pass<int>(op::SatelliteControl_SendPositionerCommand, Entry(command, parameter), [&](Entry&) {
      Store::Get().Write([&] {
        SetTvState("positioner_command", command);
        SetTvState("positioner_parameter", parameter);
      });
      return 1;
    });
  }

  int SendSatCRCommand(unsigned short tuner, ESatCRCommand command, const TSSatCRSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteControl_SendSatCRCommand,
                           Entry(tuner, command, settings.slotNumber, settings.slotFrequency), [&](Entry&) {
                             int changed = 0;
                             Store::Get().Write([&] {
                               changed = Query("UPDATE satcr SET command = ?, began = ? WHERE tuner = ?", command,
                                               NowMilliseconds(), tuner)
                                             .Run();
                             });
                             return changed > 0 ? 1 : -1;
                           });
  }
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeSatelliteSettings() { return std::make_unique<SatelliteSettings>(); }

std::unique_ptr<ITVSProxy> MakeSatelliteControl() { return std::make_unique<SatelliteControl>(); }

}  // namespace desktop
