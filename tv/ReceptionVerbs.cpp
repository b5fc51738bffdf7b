// Channels, satellites, the tuner's figures, notes of weak signal, HDMI inputs.
#include <algorithm>
#include <cctype>
#include <optional>
#include <regex>

#include "CriteriaSql.h"
#include "Gate.h"
#include "Notices.h"
#include "Verbs.h"
#include "Words.h"
#include "tvs/Inputs.h"
#include "tvs/Installation.h"
#include "tvs/State.h"
#include "tvs/Tuning.h"

using namespace desktop;

namespace {

// --- lists ---------------------------------------------------------------------------------------

constexpr const char* kAntennaNames[] = {"air", "cable", "satellite"};
#define ANTENNA_NAME(column) "CASE " column " WHEN 0 THEN 'air' WHEN 1 THEN 'cable' WHEN 2 THEN 'satellite' END"

int Channels(const Arguments& words) {
  const Command command = Parse(words, 1, "channels [air|cable|satellite] [--limit N] [--json]");
  int antenna = -1;
  if (!command.words.empty()) {
    const auto* found = std::find(std::begin(kAntennaNames), std::end(kAntennaNames), command.words[0]);
    if (found == std::end(kAntennaNames)) {
      throw WordError("'" + command.words[0] + "' is neither air, cable nor satellite");
    }
    antenna = static_cast<int>(found - kAntennaNames);
  }
  Query q("SELECT id, " ANTENNA_NAME("antenna") ", service_mode, nullif(major, 65535), nullif(minor, 65535), "
          "CASE type WHEN 1 THEN 'analog' WHEN 3 THEN 'analog' WHEN 9 THEN 'virtual' ELSE 'digital' END, "
          "CASE profile WHEN 2 THEN 'radio' ELSE 'tv' END, frequency, symbol_rate, transponder, name FROM service "
          "WHERE ?1 = -1 OR antenna = ?1 ORDER BY antenna, service_mode, major, minor, id LIMIT ?2",
          antenna, static_cast<int64_t>(command.limit));
  return Print(
      q,
      {"id", "antenna", "mode", "major", "minor", "type", "profile", "frequency", "symbolRate", "transponder", "name"},
      command.json);
}

int Satellites(const Arguments& words) {
  const Command command = Parse(words, 0, "satellites [--limit N] [--json]");
  const TSTvMode choosing = ChoosingMode(MainMode());
  Query q(
      "SELECT s.id, iif(s.position <= 1800, printf('%.1fE', s.position / 10.0), printf('%.1fW', (3600 - s.position) / "
      "10.0)), EXISTS (SELECT 1 FROM selected c WHERE c.satellite = s.id AND c.antenna = ?2 AND c.service_mode = ?3), "
      "(SELECT count(*) FROM transponder t WHERE t.satellite = s.id), s.name FROM satellite s "
      "ORDER BY s.id LIMIT ?1",
      static_cast<int64_t>(command.limit), choosing.antennaMode, choosing.serviceMode);
  return Print(q, {"id", "position", "selected", "transponders", "name"}, command.json);
}

int Transponders(const Arguments& words) {
  const Command command = Parse(words, 1, "transponders [SATELLITE] [--limit N] [--json]");
  const int64_t satellite = command.words.empty() ? -1 : Number(command.words[0], "satellite", 1, 65535);
  Query q(
      "SELECT id, " ANTENNA_NAME("antenna") ", satellite, number, frequency, symbol_rate, CASE polarisation WHEN 0 THEN "
      "'H' WHEN 1 THEN 'V' WHEN 2 THEN 'L' WHEN 3 THEN 'R' END, CASE fec WHEN 0 THEN 'auto' WHEN 1 THEN '1/2' WHEN 2 "
      "THEN '2/3' WHEN 3 THEN '3/4' WHEN 4 THEN '3/5' WHEN 5 THEN '4/5' WHEN 6 THEN '5/6' WHEN 7 THEN '6/7' WHEN 8 THEN "
      "'7/8' WHEN 9 THEN '8/9' WHEN 10 THEN '9/10' WHEN 11 THEN '2/5' END, strength, quality, ber, snr FROM transponder "
      "WHERE ?1 = -1 OR satellite = ?1 ORDER BY id LIMIT ?2",
      static_cast<int64_t>(satellite), static_cast<int64_t>(command.limit));
  return Print(q,
               {"id", "antenna", "satellite", "number", "frequency", "symbolRate", "polarisation", "fec", "strength",
                "quality", "ber", "snr"},
               command.json);
}

// --- what the pictures show ----------------------------------------------------------------------

int PrintPictures(bool json) {
  Query q("SELECT iif(p.profile = 1, 'main', 'pip'), " ANTENNA_NAME("p.antenna") ", p.service_mode, p.source, "
          "p.service, s.name, p.transponder FROM picture p LEFT JOIN service s ON s.id = p.service ORDER BY p.profile");
  return Print(q, {"picture", "antenna", "mode", "source", "service", "name", "transponder"}, json);
}

/// The neighbour of the current channel in its list.
std::optional<int64_t> Neighbour(int profile, bool next) {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(static_cast<EProfile>(profile), 0);
  TSTvMode mode;
  TCCriteriaHelper criteria;
  unsigned long long current = 0;
  int kind = 0;
  if (!navigation || navigation->GetTvMode(mode) <= 0 || navigation->GetCurrentService(current, kind) <= 0) return {};
  if (!TCNavigationModeHelper::GetNavigationCriteria(mode, NAVIGATION_ALL, criteria)) return {};
  criteria.Fetch(COLUMN_SERVICE_ID);
  TCServiceData data;
  const int result = next ? navigation->GetNextService(criteria, current, data)
                          : navigation->GetPreviousService(criteria, current, data);
  if (result <= 0) return {};
  return *data.Find(COLUMN_SERVICE_ID);
}

int Tune(const Arguments& words) {
  const Command command = Parse(words, 1, "tune SERVICE|next|previous [--pip] [--json]");
  if (command.words.empty()) throw WordError("usage: quirelle-tv tune SERVICE|next|previous [--pip] [--json]");
  const std::string& word = command.words[0];
  int64_t service = 0;
  if (word == "next" || word == "previous") {
    const auto neighbour = Neighbour(command.profile, word == "next");
    if (!neighbour) throw std::runtime_error("no channel to go on from");
    service = *neighbour;
  } else {
    service = Number(word, "service", 1, INT64_MAX);
  }
  if (!BeginTune(command.profile, static_cast<unsigned long long>(service))) {
    throw std::runtime_error(Store::Get().Path() + ": no service " + std::to_string(service));
  }
  SendNotice("tune");
  return PrintPictures(command.json);
}

int Source(const Arguments& words) {
  const Command command = Parse(words, 1, "source [NUMBER] [--pip] [--json]");
  if (!command.words.empty()) {
    const int64_t source = Number(command.words[0], "source", 0, 255);
    Store::Get().Write([&] {
      Query("UPDATE picture SET source = ?, active = 1 WHERE profile = ?", static_cast<int64_t>(source),
            command.profile)
          .Run();
    });
  }
  return PrintPictures(command.json);
}

int Mode(const Arguments& words) {
  const Command command = Parse(words, 2, "mode [air|cable|satellite [SERVICE-MODE]] [--pip] [--json]");
  if (!command.words.empty()) {
    const auto* found = std::find(std::begin(kAntennaNames), std::end(kAntennaNames), command.words[0]);
    if (found == std::end(kAntennaNames)) {
      throw WordError("'" + command.words[0] + "' is neither air, cable nor satellite");
    }
    const auto antenna = static_cast<EAntennaMode>(found - kAntennaNames);
    int64_t mode = antenna == ANTENNA_SATELLITE ? SERVICE_MODE_SATELLITE : SERVICE_MODE_NONE;
    if (command.words.size() > 1) mode = Number(command.words[1], "service mode", -1, 1000);
    CTVSApiWrapper api;
    IServiceNavigation* navigation = api.CreateServiceNavigation(static_cast<EProfile>(command.profile), 0);
    if (!navigation || navigation->SetTvMode(TSTvMode(antenna, static_cast<EServiceMode>(mode))) <= 0) {
      throw std::runtime_error(Store::Get().Path() + ": the mode cannot be set");
    }
    SendNotice("tune");
  }
  return PrintPictures(command.json);
}

struct Figure {
  const char* option;
  const char* column;
  int64_t most;
};
constexpr Figure kFigures[] = {{"--strength", "strength", 100},
                               {"--quality", "quality", 100},
                               {"--ber", "ber", 10000000},
                               {"--snr", "snr", 10000}};

/// Sets the figures that the words name, all or none; returns the words that are left.
Arguments SetFigures(const Arguments& words) {
  Arguments left;
  std::vector<std::pair<const Figure*, int64_t>> set;
  for (size_t i = 0; i < words.size(); ++i) {
    const auto* figure =
        std::find_if(std::begin(kFigures), std::end(kFigures), [&](const Figure& f) { return words[i] == f.option; });
    if (figure == std::end(kFigures)) {
      left.push_back(words[i]);
    } else {
      if (++i == words.size()) throw WordError(std::string(figure->option) + ": a number is missing");
      set.emplace_back(figure, Number(words[i], figure->option, 0, figure->most));
    }
  }
  const Command command = Parse(left, 0, "signal [--strength N] [--quality N] [--ber N] [--snr N] [--pip] [--json]");
  Store::Get().Write([&] {
    for (const auto& [figure, value] : set) {
      const std::string sql = std::string("UPDATE transponder SET ") + figure->column +
                              " = ? WHERE id = (SELECT transponder FROM picture WHERE profile = ?)";
      if (Query(sql, static_cast<int64_t>(value), command.profile).Run() == 0) {
        throw std::runtime_error(Store::Get().Path() + ": the tuner is on no transponder");
      }
    }
  });
  return left;
}

int Signal(const Arguments& words) {
  const Command command = Parse(SetFigures(words), 0, "signal");
  const TunerState tuner = ReadTuner(command.profile);
  Query q("SELECT transponder, ?, ?, ?, ?, ?, ? FROM picture WHERE profile = ?", static_cast<int>(tuner.kind),
          tuner.locked  ? "locked"
          : tuner.tuned ? "no signal"
                        : "tuning",
          tuner.strength, tuner.quality, tuner.ber, tuner.snr, command.profile);
  return Print(q, {"transponder", "kind", "state", "strength", "quality", "ber", "snr"}, command.json);
}

// --- notes of weak signal, and the clock that they are shown by ----------------------------------

int PrintNotes(const Command& command) {
  // The number before the first colon is the time; 0 while the set's clock was not set.
  Query q(
      "SELECT seq, datetime(nullif(CAST(entry AS INTEGER), 0), 'unixepoch', 'localtime'), entry FROM weak_signal "
      "ORDER BY seq LIMIT ?",
      static_cast<int64_t>(command.limit));
  return Print(q, {"number", "time", "entry"}, command.json);
}

/// Time in seconds since the epoch, major and minor number, channel type, service mode, and whether it is in ultra high
/// definition; as many of these as are known.
void AddNote(const std::string& entry) {
  static const std::regex form("[0-9]{1,12}(:[0-9]{1,10}){0,5}");
  if (!std::regex_match(entry, form)) {
    throw WordError("'" + entry + "': wants up to six numbers, like 1700000000:7:1:2:0:0");
  }
  Store::Get().Write([&] { Query("INSERT INTO weak_signal (entry) VALUES (?)", entry).Run(); });
}

int History(const Arguments& words) {
  constexpr const char* kUsage = "history [list|clear|add TIME:MAJOR:MINOR:TYPE:MODE:UHD] [--limit N] [--json]";
  const Command command = Parse(words, 2, kUsage);
  const std::string what = command.words.empty() ? "list" : command.words[0];
  const size_t wanted = what == "add" ? 2 : what == "list" || what == "clear" ? 1 : 0;
  if (command.words.size() > wanted || (what == "add" && command.words.size() < wanted)) {
    throw WordError(std::string("usage: quirelle-tv ") + kUsage);
  }
  if (what == "add") AddNote(command.words[1]);
  if (what == "clear") Store::Get().Write([] { Query("DELETE FROM weak_signal").Run(); });
  return PrintNotes(command);
}

int Clock(const Arguments& words) {
  const Command command = Parse(words, 1, "clock [12|24] [--json]");
  if (!command.words.empty()) {
    if (command.words[0] != "12" && command.words[0] != "24") {
      throw WordError("'" + command.words[0] + "' is neither 12 nor 24");
    }
    SetTvState("clock_hours", Number(command.words[0], "clock", 12, 24));
  }
  Query q("SELECT ?", TvState("clock_hours", 24));
  return Print(q, {"hours"}, command.json);
}

// --- HDMI inputs ---------------------------------------------------------------------------------

int PrintHdmi(bool json) {
  std::string ports;
  for (int port = 1; port <= kHdmiPorts; ++port) {
    ports += (ports.empty() ? "(" : "), (") + std::to_string(port) + ", " + std::to_string(HdmiSource(port));
  }
  Query q("WITH port (number, source) AS (VALUES " + ports +
          ")) SELECT t.number, iif(t.source = p.source, 'yes', 'no'), i.name, iif(i.width > 0, "
          "printf('%dx%d@%d.%02d%s', i.width, i.height, i.rate / 100, i.rate % 100, iif(i.progressive, 'p', 'i')), "
          "'none'), printf('0x%x', coalesce(i.format, 2)) FROM port t JOIN picture p ON p.profile = 1 LEFT JOIN input "
          "i ON i.source = t.source ORDER BY t.number");
  return Print(q, {"port", "shown", "name", "resolution", "format"}, json);
}

/// The HDMI input that the main picture shows.
ESource ShownHdmi() {
  Query q("SELECT source FROM picture WHERE profile = ?", PROFILE_MAIN);
  const int64_t source = q.Row() ? q.Int(0) : -1;
  for (int port = 1; port <= kHdmiPorts; ++port) {
    if (HdmiSource(port) == source) return HdmiSource(port);
  }
  throw std::runtime_error(Store::Get().Path() + ": no HDMI input is shown; --port shows one");
}

/// What the options of `hdmi` say; everything is read before anything is changed.
struct HdmiChange {
  std::optional<ESource> source;
  std::optional<std::string> name;
  std::optional<TSResolution> resolution;
  std::optional<int64_t> format;
};

void ReadHdmiOption(HdmiChange& change, const std::string& option, const std::string& value) {
  if (option == "--port") {
    change.source = HdmiSource(Number(value, option, 1, kHdmiPorts));
  } else if (option == "--name") {
    change.name = value;
  } else if (option == "--format") {
    const bool hexadecimal =
        value.starts_with("0x") && value.size() > 2 && std::isxdigit(static_cast<unsigned char>(value[2]));
    char* end = nullptr;
    const int64_t code = hexadecimal ? std::strtol(value.c_str(), &end, 16) : Number(value, option, 0, kMostFormat);
    if (hexadecimal && (*end || code > kMostFormat)) throw WordError(option + " '" + value + "': wants up to 0xfffff");
    change.format = code;
  } else {
    change.resolution = ParseResolution(value);
    if (!change.resolution) throw WordError(option + " '" + value + "': wants none or something like 1920x1080@59.94p");
  }
}

int Hdmi(const Arguments& words) {
  constexpr const char* kUsage = "hdmi [--port N] [--name NAME] [--resolution WxH@RATEp|i] [--format CODE] [--json]";
  HdmiChange change;
  Arguments left;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--port" || word == "--name" || word == "--resolution" || word == "--format") {
      if (++i == words.size()) throw WordError(word + ": a value is missing");
      ReadHdmiOption(change, word, words[i]);
    } else {
      left.push_back(word);
    }
  }
  const Command command = Parse(left, 0, kUsage);
  Store::Get().Write([&] {
    if (change.source) {
      Query("UPDATE picture SET source = ?, active = 1 WHERE profile = ?", *change.source, PROFILE_MAIN).Run();
    }
    if (change.name) SetInputName(ShownHdmi(), *change.name);
    if (change.resolution) SetInputResolution(ShownHdmi(), *change.resolution);
    if (change.format) SetInputFormat(ShownHdmi(), *change.format);
  });
  return PrintHdmi(command.json);
}

constexpr Verb kVerbs[] = {
    {"channels", "channels [ANTENNA]", "lists the channels (--limit N, --json)", true, Channels},
    {"satellites", "satellites", "lists the satellites (--limit N, --json)", true, Satellites},
    {"transponders", "transponders [SATELLITE]", "lists what is on air (--limit N, --json)", true, Transponders},
    {"tune", "tune SERVICE|next|previous", "changes the channel (--pip, --json)", true, Tune},
    {"source", "source [NUMBER]", "shows or changes the source, 0 is the tuner (--pip, --json)", true, Source},
    {"mode", "mode [ANTENNA [MODE]]", "shows or changes what is received (--pip, --json)", true, Mode},
    {"signal", "signal [--strength N ...]", "shows or sets the tuner's figures (--quality, --ber, --snr, --json)", true,
     Signal},
    {"history", "history [list|clear|add ENTRY]", "the notes of weak signal (--limit N, --json)", true, History},
    {"clock", "clock [12|24]", "shows or sets by how many hours the TV shows the time (--json)", true, Clock},
    {"hdmi", "hdmi [--port N ...]", "shows an HDMI input, or changes it (--name, --resolution, --format, --json)", true,
     Hdmi},
};

}  // namespace

std::span<const Verb> ReceptionVerbs() { return kVerbs; }
