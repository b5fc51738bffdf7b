// The rows of the settings tree that tell of the signal: nothing of theirs is stored, all is read from the main
// picture's tuner and channel.
#include <libintl.h>
#include <linux/dvb/frontend.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "Store.h"
#include "Tree.h"
#include "Tuning.h"
#include "tvs_api.h"

namespace desktop {

namespace {

constexpr const char* kUnknown = "----";
constexpr int kMissing = -1;

/// Kinds of broadcast, as bits.
enum Broadcast : unsigned {
  kAnalog = 1,
  kAtsc = 2,
  kIsdb = 4,
  kDvbAir = 8,
  kDvbCable = 16,
  kDvbSatellite = 32,
  kDvb = kDvbAir | kDvbCable | kDvbSatellite,
  kAny = kAnalog | kAtsc | kIsdb | kDvb
};

/// The main picture's channel, and the transponder that it is on.
struct Tuned {
  bool channel = false;
  int antenna = ANTENNA_NONE, serviceMode = SERVICE_MODE_NONE, type = CHANNEL_NONE;
  unsigned short major = 0, minor = 0;
  std::string name, label;
  int frequency = kMissing, bandwidth = kMissing, modulation = kMissing, program = kMissing, stream = kMissing;
  int number = kMissing, standard = kMissing;
};

int Known(const Query& q, int column) { return q.IsNull(column) ? kMissing : static_cast<int>(q.Int(column)); }

Tuned ReadTuned() {
  Tuned tuned;
  Query q(
      "SELECT p.antenna, p.service_mode, s.id, s.type, s.major, s.minor, s.name, s.frequency, s.bandwidth, "
      "s.modulation, s.program, s.stream, t.number, t.label, ifnull(t.standard, s.standard) FROM picture p "
      "LEFT JOIN service s ON s.id = p.service LEFT JOIN transponder t ON t.id = p.transponder WHERE p.profile = ?",
      PROFILE_MAIN);
  if (!q.Row()) return tuned;
  tuned.antenna = static_cast<int>(q.Int(0));
  tuned.serviceMode = static_cast<int>(q.Int(1));
  tuned.channel = !q.IsNull(2);
  tuned.type = Known(q, 3);
  tuned.major = static_cast<unsigned short>(q.Int(4));
  tuned.minor = static_cast<unsigned short>(q.Int(5));
  tuned.name = q.Text(6);
  tuned.frequency = Known(q, 7);
  tuned.bandwidth = Known(q, 8);
  tuned.modulation = Known(q, 9);
  tuned.program = Known(q, 10);
  tuned.stream = Known(q, 11);
  tuned.number = Known(q, 12);
  tuned.label = q.Text(13);
  tuned.standard = Known(q, 14);
  return tuned;
}

Broadcast BroadcastOf(const Tuned& tuned) {
  if (tuned.type == CHANNEL_ANALOG_AIR || tuned.type == CHANNEL_ANALOG_CABLE) return kAnalog;
  if (tuned.antenna == ANTENNA_SATELLITE) return kDvbSatellite;
  // North America's cable has a standard of its own.
  if (tuned.standard == SYS_ATSC || tuned.standard == SYS_DVBC_ANNEX_B) return kAtsc;
  if (tuned.standard == SYS_ISDBT) return kIsdb;
  return tuned.antenna == ANTENNA_CABLE ? kDvbCable : kDvbAir;
}

// --- texts ---------------------------------------------------------------------------------------

std::string Translated(const char* id) { return dgettext("quirelle", id); }

std::string NumberText(int number) { return number == kMissing ? kUnknown : std::to_string(number); }

std::string ProgramText(const Tuned& tuned) {
  if (!tuned.channel) return kUnknown;
  const TSTvMode mode(static_cast<EAntennaMode>(tuned.antenna), static_cast<EServiceMode>(tuned.serviceMode));
  return CCChInfoUtil::GetChannelNumberString(mode, tuned.type, tuned.major, tuned.minor) + " " + tuned.name;
}

std::string AntennaText(const Tuned& tuned) {
  constexpr const char* kNames[] = {"SID_AIR_KR_17", "SID_CABLE_KR_17", "SID_SATELLITE"};
  // Where the signal comes from is known once there is one.
  const bool known = tuned.antenna >= ANTENNA_AIR && tuned.antenna <= ANTENNA_SATELLITE;
  return known && ReadTuner(PROFILE_MAIN).locked ? Translated(kNames[tuned.antenna]) : kUnknown;
}

std::string FrequencyText(const Tuned& tuned) {
  return tuned.frequency == kMissing ? kUnknown : std::to_string(tuned.frequency) + " kHz";
}

std::string BandwidthText(const Tuned& tuned) {
  constexpr const char* kNames[] = {"5 MHz", "6 MHz", "7 MHz", "8 MHz", "10 MHz", "712 MHz"};
  const bool known = tuned.bandwidth >= 0 && tuned.bandwidth < static_cast<int>(std::size(kNames));
  return known ? kNames[tuned.bandwidth] : kUnknown;
}

std::string ModulationText(const Tuned& tuned) {
  constexpr const char* kNames[] = {"QPSK", "16QAM", "32QAM", "64QAM",  "128QAM", "256QAM", "QAM",
                                    "8VSB", "16VSB", "8PSK",  "16APSK", "32APSK", "DQPSK",  "4QAM-NR"};
  const bool known = tuned.modulation >= 0 && tuned.modulation < static_cast<int>(std::size(kNames));
  return known ? kNames[tuned.modulation] : kUnknown;
}

std::string StatusText(const Tuned&) {
  const TunerState tuner = ReadTuner(PROFILE_MAIN);
  return Translated(tuner.locked  ? "TV_SID_SIGNAL_LOCKED"
                    : tuner.tuned ? "TV_SID_SIGNAL_NONE"
                                  : "TV_SID_SIGNAL_TUNING");
}

std::string RatioText(const Tuned&) {
  char text[32] = "";
  snprintf(text, sizeof text, "%.1f dB", ReadTuner(PROFILE_MAIN).snr / 100.0);
  return text;
}

struct SignalItem {
  const char* id;
  /// Of what kinds of broadcast it tells.
  unsigned broadcasts;
  std::string (*text)(const Tuned& tuned);
};

constexpr SignalItem kItems[] = {
    {"signal-information-program", kAny, ProgramText},
    {"signal-information-strength", kAny,
     [](const Tuned&) { return std::to_string(std::clamp(ReadTuner(PROFILE_MAIN).strength, 0, 100)); }},
    {"signal-information-quality", kIsdb | kDvb,
     [](const Tuned&) { return std::to_string(std::clamp(ReadTuner(PROFILE_MAIN).quality, 0, 100)); }},
    {"signal-information-biterrlevel", kDvb, [](const Tuned&) { return std::to_string(ReadTuner(PROFILE_MAIN).ber); }},
    {"signal-information-snr", kAtsc, RatioText},
    {"signal-information-status", kAnalog | kAtsc | kIsdb, StatusText},
    {"antenna", kAny, AntennaText},
    {"signal-information-physical", kAnalog | kAtsc, [](const Tuned& tuned) { return NumberText(tuned.number); }},
    {"signal-information-channelid", kIsdb,
     [](const Tuned& tuned) { return tuned.label.empty() ? std::string(kUnknown) : tuned.label; }},
    {"signal-information-frequence", kAnalog | kIsdb | kDvb, FrequencyText},
    {"signal-information-bandwidth", kDvbAir, BandwidthText},
    {"signal-information-modulation", kAtsc | kDvb, ModulationText},
    {"signal-information-multiplex", kDvb, [](const Tuned& tuned) { return NumberText(tuned.stream); }},
    {"signal-information-serviceid", kDvbSatellite, [](const Tuned& tuned) { return NumberText(tuned.program); }},
};

const SignalItem* Find(const std::string& id) {
  const auto* found =
      std::find_if(std::begin(kItems), std::end(kItems), [&](const auto& item) { return item.id == id; });
  return found == std::end(kItems) ? nullptr : found;
}

/// "----" for what is not known now.
std::optional<std::string> Text(const std::string& id) {
  const SignalItem* item = Find(id);
  if (!item) return {};
  return item->text(ReadTuned());
}

/// Not a row of which this kind of broadcast has nothing to tell.
bool IsShown(const std::string& id) {
  const SignalItem* item = Find(id);
  return !item || (item->broadcasts & BroadcastOf(ReadTuned())) != 0;
}

/// The signal is what it is.
std::optional<bool> Set(const std::string& id, const std::string&) {
  if (Find(id)) return false;
  return {};
}

const bool g_registered = AddItemOwner({Text, IsShown, Set});

}  // namespace

}  // namespace desktop
