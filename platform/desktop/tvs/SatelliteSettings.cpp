#include "Dish.h"
#include "Gate.h"
#include "Installation.h"
#include "Proxies.h"
#include "SingleCable.h"

namespace desktop {

namespace {

constexpr const char* kReadSql =
    "SELECT lnb_power, slot, diseqc, low, high, switch, voltage, tone, user_band FROM satellite WHERE id = ?";
constexpr const char* kWriteSql =
    "UPDATE satellite SET lnb_power = ?, slot = ?, diseqc = ?, low = ?, high = ?, switch = ?, voltage = ?, tone = ?, "
    "user_band = ? WHERE id = ?";

/// The record's fields in the order of the two statements; whether it is enabled is the TV mode's choice.
constexpr int TSSatelliteSettings::*kFields[] = {
    &TSSatelliteSettings::lnbPower,     &TSSatelliteSettings::slotId,        &TSSatelliteSettings::diseqcMode,
    &TSSatelliteSettings::lowFrequency, &TSSatelliteSettings::highFrequency, &TSSatelliteSettings::switchFrequency,
    &TSSatelliteSettings::voltage,      &TSSatelliteSettings::tone,          &TSSatelliteSettings::userBand};

class SatelliteSettings : public ISatelliteSettings {
 public:
  int GetSatelliteSettings(ESatelliteId satellite, TSSatelliteSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatelliteSettings, Entry(satellite), [&](Entry&) {
      Query q(kReadSql, satellite);
      if (!q.Row()) return -1;
      int column = 0;
      for (const auto field : kFields) settings.*field = static_cast<int>(q.Int(column++));
      settings.enabled = IsSelected(satellite, MainMode()) ? 1 : 0;
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
      if (satellite == SATELLITE_NONE) {
        ResetInstallation();
      } else {
        ResetSatellite(satellite);
      }
      return 1;
    });
  }

  int GetSatelliteSelected(int satellite, const TSTvMode& mode, unsigned char& selected) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatelliteSelected,
                           Entry(satellite, mode.antennaMode, mode.serviceMode), [&](Entry& entry) {
                             if (!Query("SELECT 1 FROM satellite WHERE id = ?", satellite).Row()) return 0;
                             selected = IsSelected(satellite, mode) ? 1 : 0;
                             entry.Out(selected);
                             return 1;
                           });
  }

  int SetSelectedSatellites(const std::vector<int>& satellites) override {
    std::string list;
    for (const int id : satellites) list += (list.empty() ? "" : " ") + std::to_string(id);
    return Gate::Pass<int>(op::SatelliteSettings_SetSelectedSatellites, Entry(list),
                           [&](Entry&) { return SelectSatellites(satellites, MainMode()) ? 1 : 0; });
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
    return Gate::Pass<int>(op::SatelliteSettings_SetSatCRSlotFrequency, Entry(tuner, slotFrequency),
                           [&](Entry&) { return slotFrequency > 0 && StoreUserBand(tuner, slotFrequency) ? 1 : 0; });
  }

  int GetSatCRDetectStatus(unsigned char& slotNumber, int& slotFrequency, unsigned char& progress,
                           unsigned short tuner) override {
    return Gate::Pass<int>(op::SatelliteSettings_GetSatCRDetectStatus, Entry(tuner), [&](Entry& entry) {
      const auto run = ReadRun(tuner);
      if (!run) return 0;
      progress = static_cast<unsigned char>(run->progress);
      slotNumber = static_cast<unsigned char>(run->slot);
      slotFrequency = run->frequency;
      entry.Out(progress);
      entry.Out(slotFrequency);
      return 1;
    });
  }

 private:
  static int Write(int satellite, const TSSatelliteSettings& settings) {
    Query q(kWriteSql);
    for (const auto field : kFields) q.Bind(settings.*field);
    const int changed = q.Bind(satellite).Run();
    if (changed > 0) SelectSatellite(satellite, settings.enabled != 0, MainMode());
    return changed;
  }
};

class SatelliteControl : public ISatelliteControl {
 public:
  int SendPositionerCommand(EPositionerCommand command, int parameter) override {
    return Gate::Pass<int>(op::SatelliteControl_SendPositionerCommand, Entry(command, parameter),
                           [&](Entry&) { return RunPositionerCommand(command, parameter) ? 1 : -1; });
  }

  int SendSatCRCommand(unsigned short tuner, ESatCRCommand command, const TSSatCRSettings& settings) override {
    return Gate::Pass<int>(op::SatelliteControl_SendSatCRCommand,
                           Entry(tuner, command, settings.slotNumber, settings.slotFrequency),
                           [&](Entry&) { return RunCableCommand(tuner, command) ? 1 : -1; });
  }
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeSatelliteSettings() { return std::make_unique<SatelliteSettings>(); }

std::unique_ptr<ITVSProxy> MakeSatelliteControl() { return std::make_unique<SatelliteControl>(); }

}  // namespace desktop
