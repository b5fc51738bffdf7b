#include "TvProfile.h"

#include <algorithm>

#include "Gate.h"
#include "Inputs.h"
#include "Installation.h"
#include "State.h"
#include "Text.h"
#include "tvs_criteria.h"

namespace desktop {

int64_t Number(const ProfileLine& line, const std::string& word, int64_t least, int64_t most) {
  const auto number = ToNumber(word);
  if (!number || *number < least || *number > most) {
    throw ProfileError(line, "'" + word + "': wants " + std::to_string(least) + " to " + std::to_string(most));
  }
  return *number;
}

int PositionOf(const ProfileLine& line, const std::string& word) {
  const int position = OrbitalPosition("-" + word);
  if (position < 0) throw ProfileError(line, "'" + word + "' is no orbital position");
  return position;
}

namespace {

int AntennaOf(const ProfileLine& line, const std::string& word) {
  constexpr const char* kNames[] = {"air", "cable", "satellite"};
  const auto* found = std::find(std::begin(kNames), std::end(kNames), word);
  if (found == std::end(kNames)) throw ProfileError(line, "'" + word + "' is neither air, cable nor satellite");
  return static_cast<int>(found - kNames);
}

/// A number that is the same whenever a TV is made, and different for each transponder.
uint32_t Scatter(int64_t id) {
  uint64_t x = static_cast<uint64_t>(id) * 0x9E3779B97F4A7C15ULL;
  x ^= x >> 29;
  x *= 0xBF58476D1CE4E5B9ULL;
  return static_cast<uint32_t>(x >> 32);
}

/// Physical channel of a frequency on air, by the raster of its bandwidth; 0 off the raster.
int AirChannel(int bandwidth, int kHz) {
  struct Raster {
    int bandwidth, first, last, lowest, step;  // kHz at the channels' middles
  };
  constexpr Raster kRasters[] = {{BANDWIDTH_6, 2, 4, 57000, 6000},   {BANDWIDTH_6, 5, 6, 79000, 6000},
                                 {BANDWIDTH_6, 7, 13, 177000, 6000}, {BANDWIDTH_6, 14, 69, 473000, 6000},
                                 {BANDWIDTH_7, 5, 12, 177500, 7000}, {BANDWIDTH_8, 21, 69, 474000, 8000}};
  for (const Raster& raster : kRasters) {
    const int channel = raster.first + (kHz - raster.lowest + raster.step / 4) / raster.step;
    const bool inside = kHz >= raster.lowest - raster.step / 4 && channel <= raster.last;
    if (raster.bandwidth == bandwidth && inside) return channel;
  }
  return 0;
}

/// Adds transponders with IDs that go on from the last.
class Transponders {
 public:
  void Add(int satellite, int antenna, const ScanEntry& entry) {
    const int id = ++m_last;
    const int number = antenna == ANTENNA_SATELLITE ? id
                       : antenna == ANTENNA_AIR     ? AirChannel(entry.bandwidth, entry.frequency)
                                                    : ++m_cable;
    Query q(
        "INSERT INTO transponder (id, satellite, antenna, number, label, frequency, symbol_rate, polarisation, fec, "
        "modulation, bandwidth, standard, strength, quality, ber, snr) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
        "?, ?, ?)",
        id);
    BindKnown(q, satellite);
    q.Bind(antenna).Bind(number);
    if (antenna == ANTENNA_SATELLITE) {
      q.Bind(nullptr);
    } else {
      q.Bind("CH " + std::to_string(number));
    }
    q.Bind(entry.frequency);
    for (const int value :
         {entry.symbolRate, entry.polarisation, entry.fec, entry.modulation, entry.bandwidth, entry.standard}) {
      BindKnown(q, value);
    }
    const uint32_t scatter = Scatter(id);
    const int strength = 45 + static_cast<int>(scatter % 51);
    const int quality = 50 + static_cast<int>(scatter / 64 % 50);
    q.Bind(strength).Bind(quality).Bind((100 - quality) * 12 + 1).Bind(700 + quality * 11);
    q.Run();
  }

 private:
  static void BindKnown(Query& q, int value) {
    if (value < 0) {
      q.Bind(nullptr);
    } else {
      q.Bind(value);
    }
  }

  int m_last = 0, m_cable = 0;
};

void AddUserDefinedSatellites() {
  constexpr int kFirstSlot = 50;
  for (int number = 1; number <= kUserSatellites; ++number) {
    Query("INSERT INTO satellite (id, name, position, user_defined, slot) VALUES (?, ?, 0, 1, ?)",
          SATELLITE_USER_FIRST + number - 1, "User Satellite " + std::to_string(number), kFirstSlot + number - 1)
        .Run();
    MoveUserSatellite(number, 0, LongitudeText(0));
  }
}

void WritePicture(const ProfileLine& line, std::string rest) {
  const std::string name = TakeWord(rest);
  if (name != "main" && name != "pip") throw ProfileError(line, "'" + name + "' is neither main nor pip");
  const int antenna = AntennaOf(line, TakeWord(rest));
  const int64_t mode = Number(line, TakeWord(rest), -1, 1000), source = Number(line, TakeWord(rest), 0, 1000);
  Query("REPLACE INTO picture (profile, antenna, service_mode, source) VALUES (?, ?, ?, ?)",
        name == "main" ? PROFILE_MAIN : PROFILE_PIP, antenna, static_cast<int64_t>(mode), static_cast<int64_t>(source))
      .Run();
}

void WriteLetters(const ProfileLine& line, std::string letters) {
  const auto isLetter = [](char c) { return c >= 'A' && c <= 'Z'; };
  if (letters.size() != 3 || !std::all_of(letters.begin(), letters.end(), isLetter))
    throw ProfileError(line, "'" + letters + "': wants three letters");
  SetTvState("country_letters", letters[0] << 16 | letters[1] << 8 | letters[2]);
}

/// `INSERT` of a line's numbers, as many as `sql` has parameters.
void WriteNumbers(const ProfileLine& line, std::string rest, const char* sql, size_t count) {
  Query q(sql);
  for (size_t i = 0; i < count; ++i) q.Bind(static_cast<int64_t>(Number(line, TakeWord(rest), -1, INT32_MAX)));
  q.Run();
}

void WriteOperator(const ProfileLine& line, std::string rest) {
  const int64_t slot = Number(line, TakeWord(rest), 0, 100);
  const int antenna = AntennaOf(line, TakeWord(rest));
  const int64_t mode = Number(line, TakeWord(rest), 0, 1000);
  Query("REPLACE INTO operator_profile VALUES (?, ?, ?, ?)", static_cast<int64_t>(slot), rest, antenna,
        static_cast<int64_t>(mode))
      .Run();
}

void WriteHdmi(const ProfileLine& line, std::string rest) {
  const ESource source = HdmiSource(Number(line, TakeWord(rest), 1, kHdmiPorts));
  const std::string resolution = TakeWord(rest);
  const auto parsed = ParseResolution(resolution);
  if (!parsed) throw ProfileError(line, "'" + resolution + "' is no resolution");
  SetInputResolution(source, *parsed);
  SetInputFormat(source, Number(line, TakeWord(rest), 0, kMostFormat));
  SetInputName(source, rest);
}

/// Each picture shows the first channel of its list, tuned long ago.
void ShowFirstChannels() {
  Query(
      "UPDATE picture SET (service, transponder) = (SELECT id, transponder FROM service WHERE antenna = "
      "picture.antenna AND service_mode = picture.service_mode ORDER BY major, minor, id LIMIT 1)")
      .Run();
}

std::vector<std::string> Words(std::string rest) {
  std::vector<std::string> words;
  while (!rest.empty()) words.push_back(TakeWord(rest));
  return words;
}

}  // namespace

namespace {

void WriteModel(const ProfileLine& line, std::string rest) {
  WriteNumbers(line, std::move(rest), "REPLACE INTO model_value VALUES (?, ?)", 2);
}

void WriteBroadcaster(const ProfileLine& line, std::string rest) {
  const std::string number = TakeWord(rest);
  WriteNumbers(line, (rest.empty() ? "-1" : rest) + " " + number, "REPLACE INTO broadcaster VALUES (?, ?)", 2);
}

void WriteState(const ProfileLine& line, std::string rest) {
  const std::string name = TakeWord(rest);
  SetTvState(name.c_str(), Number(line, rest, INT32_MIN, INT32_MAX));
}

void WriteWeakSignal(const ProfileLine&, std::string rest) {
  Query("INSERT INTO weak_signal (entry) VALUES (?)", rest).Run();
}

struct TvLine {
  std::string_view what;
  void (*write)(const ProfileLine& line, std::string rest);
};

constexpr TvLine kTvLines[] = {
    {"picture", WritePicture},
    {"letters", WriteLetters},
    {"operator-profile", WriteOperator},
    {"model", WriteModel},
    {"broadcaster", WriteBroadcaster},
    {"state", WriteState},
    {"weak-signal", WriteWeakSignal},
    {"hdmi", WriteHdmi},
    {"select", WriteSelection},
    {"user-satellite", WriteUserSatellite},
    {"satcr", WriteCable},
    {"dish", WriteDish},
};

}  // namespace

void WriteTvLine(const ProfileLine& line) {
  std::string rest = line.text;
  const std::string what = TakeWord(rest);
  const auto* found =
      std::find_if(std::begin(kTvLines), std::end(kTvLines), [&](const auto& l) { return l.what == what; });
  if (found == std::end(kTvLines)) throw ProfileError(line, "unknown word '" + what + "'");
  found->write(line, rest);
}

namespace {

const bool g_registered =
    AddSectionReader([]() -> std::unique_ptr<SectionReader> { return std::make_unique<TvProfile>(); });

}  // namespace

bool TvProfile::Takes(const std::string& section) const {
  return section == "tv" || section == "reception" || section == "channels";
}

void TvProfile::Read(const ProfileSection& section) {
  for (const ProfileLine& line : section.lines) {
    if (section.name == "tv") {
      m_tv.push_back(line);
    } else if (section.name == "reception") {
      ReadReception(line);
    } else {
      ReadChannels(line);
    }
  }
}

void TvProfile::ReadReception(const ProfileLine& line) {
  std::string rest = line.text;
  const std::string what = TakeWord(rest);
  const std::vector<std::string> words = Words(rest);
  if (words.empty()) throw ProfileError(line, "names nothing");
  if (what == "satellites" && words.front() == "all") {
    m_allSatellites = true;
  } else if (what == "satellites") {
    for (const std::string& word : words) m_positions.push_back(PositionOf(line, word));
  } else if (what == "air") {
    m_air.insert(m_air.end(), words.begin(), words.end());
  } else if (what == "cable") {
    m_cable.insert(m_cable.end(), words.begin(), words.end());
  } else if (what == "package" && words.size() == 2) {
    m_packages.push_back({static_cast<int>(Number(line, words[0], 0, 1000)), PositionOf(line, words[1])});
  } else {
    throw ProfileError(line, "unknown word '" + what + "'");
  }
}

void TvProfile::ReadChannels(const ProfileLine& line) {
  std::vector<std::string> words = Words(line.text);
  if (words[0] == "services" && words.size() == 2) {
    m_services = Number(line, words[1], 0, kMostServices);
    return;
  }
  if (words[0] != "list" || words.size() < 4) throw ProfileError(line, "wants services or list");
  ListPlan plan;
  plan.antenna = AntennaOf(line, words[1]);
  plan.serviceMode = static_cast<int>(Number(line, words[2], -1, 1000));
  plan.share = static_cast<int>(Number(line, words[3], 0, 100));
  struct Option {
    const char* name;
    int ListPlan::*field;
  };
  constexpr Option kOptions[] = {{"analog", &ListPlan::analog},
                                 {"radio", &ListPlan::radio},
                                 {"uhd", &ListPlan::uhd},
                                 {"locked", &ListPlan::locked},
                                 {"virtual", &ListPlan::virtualChannels}};
  for (size_t i = 4; i < words.size(); ++i) {
    const size_t equals = words[i].find('=');
    const std::string name = words[i].substr(0, equals),
                      value = words[i].substr(std::min(equals, words[i].size() - 1) + 1);
    const auto* option =
        std::find_if(std::begin(kOptions), std::end(kOptions), [&](const Option& o) { return name == o.name; });
    if (option != std::end(kOptions)) {
      plan.*option->field = static_cast<int>(Number(line, value, 0, 100));
    } else if (name == "at") {
      plan.position = PositionOf(line, value);
    } else if (name == "subchannels") {
      plan.subchannels = true;
    } else {
      throw ProfileError(line, "unknown word '" + name + "'");
    }
  }
  m_lists.push_back(plan);
}

std::vector<std::string> TvProfile::Make(const TvOptions& options) {
  std::vector<std::string> skipped;
  const Complain complain = [&](const std::string& what) { skipped.push_back(what); };
  const std::filesystem::path tables = ScanTableDirectory();
  Transponders transponders;
  int id = 0;
  for (const SatelliteTable& table : SatelliteTables(tables / "dvb-s")) {
    const bool wanted =
        m_allSatellites || std::find(m_positions.begin(), m_positions.end(), table.position) != m_positions.end();
    if (!wanted) continue;
    const std::vector<ScanEntry> entries = ReadScanTable(table.file, complain);
    if (entries.empty()) continue;
    ++id;
    Query("INSERT INTO satellite (id, name, position, slot) VALUES (?, ?, ?, ?)", id, table.name, table.position,
          id % 64)
        .Run();
    for (const ScanEntry& entry : entries) transponders.Add(id, ANTENNA_SATELLITE, entry);
  }
  AddUserDefinedSatellites();
  for (const auto& [names, antenna] : {std::pair(m_air, ANTENNA_AIR), std::pair(m_cable, ANTENNA_CABLE)}) {
    for (const std::string& name : names) {
      for (const ScanEntry& entry : ReadScanTable(tables / name, complain)) {
        transponders.Add(SATELLITE_NONE, antenna, entry);
      }
    }
  }
  for (const Package& package : m_packages) {
    Query(
        "UPDATE transponder SET package = ?, package_order = frequency WHERE satellite IN "
        "(SELECT id FROM satellite WHERE position = ?)",
        package.id, package.position)
        .Run();
  }
  for (const ProfileLine& line : m_tv) WriteTvLine(line);
  MakeServices(m_lists, options.services < 0 ? m_services : options.services);
  ShowFirstChannels();
  KeepAsMade();
  return skipped;
}

}  // namespace desktop
