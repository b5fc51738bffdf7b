#include "Verbs.h"

#include <json/json.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <optional>
#include <regex>

#include "CriteriaSql.h"
#include "Gate.h"
#include "Inputs.h"
#include "Notices.h"
#include "State.h"
#include "Text.h"
#include "Tuning.h"

namespace desktop {

namespace {

using Words = std::vector<std::string>;

/// Words with the options taken out.
struct Command {
  Words words;
  bool json = false;
  int profile = PROFILE_MAIN;
  long limit = -1;
};

long Number(const std::string& word, const std::string& what, long least, long most) {
  const auto number = ToNumber(word);
  if (!number || *number < least || *number > most) {
    throw TvWordError(what + " '" + word + "': wants " + std::to_string(least) + " to " + std::to_string(most));
  }
  return *number;
}

Command Parse(const Words& words, size_t most, const char* usage) {
  Command command;
  for (size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--json") {
      command.json = true;
    } else if (words[i] == "--pip") {
      command.profile = PROFILE_PIP;
    } else if (words[i] == "--limit" && i + 1 < words.size()) {
      command.limit = Number(words[++i], "--limit", 0, INT32_MAX);
    } else if (words[i].starts_with("--")) {
      throw TvWordError("'" + words[i] + "': usage: quirelle-tv " + usage);
    } else {
      command.words.push_back(words[i]);
    }
  }
  if (command.words.size() > most) throw TvWordError(std::string("usage: quirelle-tv ") + usage);
  return command;
}

// --- output --------------------------------------------------------------------------------------

/// A name that is a number in digits counts as one.
bool IsNumber(const Query& q, int column) {
  const std::string text = q.Text(column);
  return !text.empty() && text == std::to_string(q.Int(column));
}

Json::Value JsonOf(const Query& q, int column) {
  if (q.IsNull(column)) return Json::Value();
  return IsNumber(q, column) ? Json::Value(static_cast<Json::Int64>(q.Int(column))) : Json::Value(q.Text(column));
}

size_t Width(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

void PrintTable(const std::vector<const char*>& names, const std::vector<Words>& rows, const std::vector<bool>& right) {
  std::vector<size_t> widths;
  widths.reserve(names.size());
  for (const char* name : names) widths.push_back(Width(name));
  for (const Words& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  const auto print = [&](size_t i, const std::string& text) {
    const std::string blanks(widths[i] - Width(text), ' ');
    const bool last = i + 1 == names.size();
    std::printf("%s%s", (right[i] ? blanks + text : last ? text : text + blanks).c_str(), last ? "\n" : "  ");
  };
  for (size_t i = 0; i < names.size(); ++i) print(i, names[i]);
  for (const Words& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) print(i, row[i]);
  }
}

/// Prints the rows of a query: a table, or an array of objects.
int Print(Query& q, const std::vector<const char*>& names, bool json) {
  Json::Value array(Json::arrayValue);
  std::vector<Words> rows;
  std::vector<bool> right(names.size(), true);
  while (q.Row()) {
    Json::Value object;
    Words& row = rows.emplace_back();
    for (size_t i = 0; i < names.size(); ++i) {
      const int column = static_cast<int>(i);
      if (json) object[names[i]] = JsonOf(q, column);
      if (!q.IsNull(column) && !IsNumber(q, column)) right[i] = false;
      row.push_back(q.IsNull(column) ? "-" : q.Text(column));
    }
    if (json) array.append(object);
  }
  if (json) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "  ";
    std::puts(Json::writeString(builder, array).c_str());
  } else {
    PrintTable(names, rows, right);
  }
  return 0;
}

// --- lists ---------------------------------------------------------------------------------------

constexpr const char* kAntennaNames[] = {"air", "cable", "satellite"};
#define ANTENNA_NAME(column) "CASE " column " WHEN 0 THEN 'air' WHEN 1 THEN 'cable' WHEN 2 THEN 'satellite' END"

int Channels(const Words& words) {
  const Command command = Parse(words, 1, "channels [air|cable|satellite] [--limit N] [--json]");
  int antenna = -1;
  if (!command.words.empty()) {
    const auto* found = std::find(std::begin(kAntennaNames), std::end(kAntennaNames), command.words[0]);
    if (found == std::end(kAntennaNames)) {
      throw TvWordError("'" + command.words[0] + "' is neither air, cable nor satellite");
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

int Satellites(const Words& words) {
  const Command command = Parse(words, 0, "satellites [--limit N] [--json]");
  Query q(
      "SELECT s.id, iif(s.position <= 1800, printf('%.1fE', s.position / 10.0), printf('%.1fW', (3600 - s.position) / "
      "10.0)), s.selected, (SELECT count(*) FROM transponder t WHERE t.satellite = s.id), s.name FROM satellite s "
      "ORDER BY s.id LIMIT ?",
      static_cast<int64_t>(command.limit));
  return Print(q, {"id", "position", "selected", "transponders", "name"}, command.json);
}

int Transponders(const Words& words) {
  const Command command = Parse(words, 1, "transponders [SATELLITE] [--limit N] [--json]");
  const long satellite = command.words.empty() ? -1 : Number(command.words[0], "satellite", 1, 65535);
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

int Tune(const Words& words) {
  const Command command = Parse(words, 1, "tune SERVICE|next|previous [--pip] [--json]");
  if (command.words.empty()) throw TvWordError("usage: quirelle-tv tune SERVICE|next|previous [--pip] [--json]");
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

int Source(const Words& words) {
  const Command command = Parse(words, 1, "source [NUMBER] [--pip] [--json]");
  if (!command.words.empty()) {
    const long source = Number(command.words[0], "source", 0, 255);
    Store::Get().Write([&] {
      Query("UPDATE picture SET source = ?, active = 1 WHERE profile = ?", static_cast<int64_t>(source),
            command.profile)
          .Run();
    });
  }
  return PrintPictures(command.json);
}

int Mode(const Words& words) {
  const Command command = Parse(words, 2, "mode [air|cable|satellite [SERVICE-MODE]] [--pip] [--json]");
  if (!command.words.empty()) {
    const auto* found = std::find(std::begin(kAntennaNames), std::end(kAntennaNames), command.words[0]);
    if (found == std::end(kAntennaNames)) {
      throw TvWordError("'" + command.words[0] + "' is neither air, cable nor satellite");
    }
    const auto antenna = static_cast<EAntennaMode>(found - kAntennaNames);
    long mode = antenna == ANTENNA_SATELLITE ? SERVICE_MODE_SATELLITE : SERVICE_MODE_NONE;
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
  long most;
};
constexpr Figure kFigures[] = {{"--strength", "strength", 100},
                               {"--quality", "quality", 100},
                               {"--ber", "ber", 10000000},
                               {"--snr", "snr", 10000}};

/// Sets the figures that the words name, all or none; returns the words that are left.
Words SetFigures(const Words& words) {
  Words left;
  std::vector<std::pair<const Figure*, long>> set;
  for (size_t i = 0; i < words.size(); ++i) {
    const auto* figure =
        std::find_if(std::begin(kFigures), std::end(kFigures), [&](const Figure& f) { return words[i] == f.option; });
    if (figure == std::end(kFigures)) {
      left.push_back(words[i]);
    } else {
      if (++i == words.size()) throw TvWordError(std::string(figure->option) + ": a number is missing");
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

int Signal(const Words& words) {
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
    throw TvWordError("'" + entry + "': wants up to six numbers, like 1700000000:7:1:2:0:0");
  }
  Store::Get().Write([&] { Query("INSERT INTO weak_signal (entry) VALUES (?)", entry).Run(); });
}

int History(const Words& words) {
  constexpr const char* kUsage = "history [list|clear|add TIME:MAJOR:MINOR:TYPE:MODE:UHD] [--limit N] [--json]";
  const Command command = Parse(words, 2, kUsage);
  const std::string what = command.words.empty() ? "list" : command.words[0];
  const size_t wanted = what == "add" ? 2 : what == "list" || what == "clear" ? 1 : 0;
  if (command.words.size() > wanted || (what == "add" && command.words.size() < wanted)) {
    throw TvWordError(std::string("usage: quirelle-tv ") + kUsage);
  }
  if (what == "add") AddNote(command.words[1]);
  if (what == "clear") Store::Get().Write([] { Query("DELETE FROM weak_signal").Run(); });
  return PrintNotes(command);
}

int Clock(const Words& words) {
  const Command command = Parse(words, 1, "clock [12|24] [--json]");
  if (!command.words.empty()) {
    if (command.words[0] != "12" && command.words[0] != "24") {
      throw TvWordError("'" + command.words[0] + "' is neither 12 nor 24");
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
  std::optional<long> format;
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
    const long code = hexadecimal ? std::strtol(value.c_str(), &end, 16) : Number(value, option, 0, kMostFormat);
    if (hexadecimal && (*end || code > kMostFormat))
      throw TvWordError(option + " '" + value + "': wants up to 0xfffff");
    change.format = code;
  } else {
    change.resolution = ParseResolution(value);
    if (!change.resolution)
      throw TvWordError(option + " '" + value + "': wants none or something like 1920x1080@59.94p");
  }
}

int Hdmi(const Words& words) {
  constexpr const char* kUsage = "hdmi [--port N] [--name NAME] [--resolution WxH@RATEp|i] [--format CODE] [--json]";
  HdmiChange change;
  Words left;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--port" || word == "--name" || word == "--resolution" || word == "--format") {
      if (++i == words.size()) throw TvWordError(word + ": a value is missing");
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

}  // namespace

const std::vector<TvVerb>& TvServiceVerbs() {
  static const std::vector<TvVerb> verbs = {
      {"channels", "channels [ANTENNA]", "lists the channels (--limit N, --json)", Channels},
      {"satellites", "satellites", "lists the satellites (--limit N, --json)", Satellites},
      {"transponders", "transponders [SATELLITE]", "lists what is on air (--limit N, --json)", Transponders},
      {"tune", "tune SERVICE|next|previous", "changes the channel (--pip, --json)", Tune},
      {"source", "source [NUMBER]", "shows or changes the source, 0 is the tuner (--pip, --json)", Source},
      {"mode", "mode [ANTENNA [MODE]]", "shows or changes what is received (--pip, --json)", Mode},
      {"signal", "signal [--strength N ...]", "shows or sets the tuner's figures (--quality, --ber, --snr, --json)",
       Signal},
      {"history", "history [list|clear|add ENTRY]", "the notes of weak signal (--limit N, --json)", History},
      {"clock", "clock [12|24]", "shows or sets by how many hours the TV shows the time (--json)", Clock},
      {"hdmi", "hdmi [--port N ...]", "shows an HDMI input, or changes it (--name, --resolution, --format, --json)",
       Hdmi},
  };
  return verbs;
}

}  // namespace desktop
