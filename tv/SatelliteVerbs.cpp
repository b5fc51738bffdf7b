// The single cable and the dish.
#include <algorithm>
#include <iterator>
#include <map>

#include "Store.h"
#include "Verbs.h"
#include "Words.h"
#include "tvs/Dish.h"
#include "tvs/ScanTables.h"
#include "tvs/SingleCable.h"
#include "tvs/State.h"

using namespace desktop;

namespace {

/// Options that have a value, by their name; the words that are left.
using Options = std::map<std::string, std::string>;

template <size_t N>
Arguments TakeOptions(const Arguments& words, const char* const (&names)[N], Options& options) {
  Arguments left;
  for (size_t i = 0; i < words.size(); ++i) {
    if (std::find(std::begin(names), std::end(names), words[i]) == std::end(names)) {
      left.push_back(words[i]);
    } else if (i + 1 == words.size()) {
      throw WordError(words[i] + ": a value is missing");
    } else {
      options[words[i]] = words[i + 1];
      ++i;
    }
  }
  return left;
}

/// The two halves around the first '='; the second is empty without one.
std::pair<std::string, std::string> Halves(const std::string& text) {
  const size_t equals = text.find('=');
  return {text.substr(0, equals), equals == std::string::npos ? "" : text.substr(equals + 1)};
}

// --- the single cable ----------------------------------------------------------------------------

constexpr const char* kCableUsage =
    "satcr [--bands usual|MHZ,...] [--occupy MHZ=NAME] [--leave MHZ] [--store TUNER=MHZ|none] [--duration "
    "SECONDS|usual] "
    "[--outcome cable|none|MHZ] [--json]";

int Frequency(const std::string& word, const std::string& what) {
  return static_cast<int>(Number(word, what, kLowestBand, kHighestBand));
}

std::vector<int> ParseBands(const std::string& text) {
  if (text == "usual") return {std::begin(kUserBands), std::end(kUserBands)};
  std::vector<int> bands;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t comma = std::min(text.find(',', begin), text.size());
    bands.push_back(Frequency(text.substr(begin, comma - begin), "--bands"));
    begin = comma + 1;
  }
  std::vector<int> sorted = bands;
  std::sort(sorted.begin(), sorted.end());
  const bool twice = std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end();
  if (twice || bands.size() > kMostBands) throw WordError("--bands '" + text + "': wants up to 32 different ones");
  return bands;
}

void SetOccupant(const std::string& frequency, const std::string& name, const std::string& option) {
  if (Query("UPDATE satcr_band SET occupant = ? WHERE frequency = ?", name, Frequency(frequency, option)).Run() == 0)
    throw WordError(option + " '" + frequency + "': no band of the cable");
}

void Occupy(const std::string& value) {
  const auto [frequency, name] = Halves(value);
  SetOccupant(frequency, name.empty() ? "somebody" : name, "--occupy");
}

void SetStored(const std::string& value) {
  const auto [tuner, frequency] = Halves(value);
  const auto number = static_cast<int>(Number(tuner, "--store", 0, 1));
  if (!StoreUserBand(number, frequency == "none" ? 0 : Frequency(frequency, "--store")))
    throw WordError("--store '" + tuner + "': the cable does not go there");
}

void SetDuration(const std::string& value) {
  if (value == "usual") {
    Query("DELETE FROM tv_state WHERE name = 'satcr_duration'").Run();
  } else {
    SetTvState("satcr_duration", Number(value, "--duration", 1, kLongestSeconds) * 1000);
  }
}

void SetOutcome(const std::string& value) {
  SetTvState("satcr_outcome", value == "cable"  ? kByTheCable
                              : value == "none" ? kNothing
                                                : Frequency(value, "--outcome"));
}

struct CableOption {
  const char* name;
  void (*set)(const std::string& value);
};

constexpr CableOption kCableOptions[] = {
    {"--bands", [](const std::string& value) { SetUserBands(ParseBands(value)); }},
    {"--leave", [](const std::string& value) { SetOccupant(value, "", "--leave"); }},
    {"--occupy", Occupy},
    {"--store", SetStored},
    {"--duration", SetDuration},
    {"--outcome", SetOutcome},
};
constexpr const char* kCableNames[] = {"--bands", "--leave", "--occupy", "--store", "--duration", "--outcome"};

/// What the tuners' runs have come to, as the rows of a query.
std::string RunsSql() {
  constexpr const char* kCommands[] = {"detects", "verifies", "stopped"};
  std::string rows;
  Query q("SELECT tuner FROM satcr");
  while (q.Row()) {
    const auto tuner = static_cast<int>(q.Int(0));
    const CableRun run = ReadRun(tuner).value_or(CableRun());
    rows += (rows.empty() ? "VALUES (" : ", (") + std::to_string(tuner) + ", '" + kCommands[run.command] + "', " +
            std::to_string(run.progress) + ", " + (run.frequency > 0 ? std::to_string(run.frequency) : "NULL") + ")";
  }
  return rows.empty() ? "VALUES (-1, '', 0, NULL)" : rows;
}

int PrintCable(bool json) {
  Query bands(
      "SELECT number, frequency, nullif(occupant, ''), (SELECT group_concat(tuner) FROM satcr WHERE satcr.frequency = "
      "satcr_band.frequency) FROM satcr_band ORDER BY number");
  Query tuners("WITH run (tuner, command, progress, found) AS (" + RunsSql() +
               ") SELECT tuner, nullif(satcr.frequency, 0), run.command, progress, found FROM satcr JOIN run USING "
               "(tuner) ORDER BY tuner");
  const auto outcome = TvState("satcr_outcome", kByTheCable);
  Query next("SELECT ?, ?", outcome == kByTheCable ? "cable" : outcome == kNothing ? "none" : std::to_string(outcome));
  const auto duration = TvState("satcr_duration", 0);
  next.Bind(duration ? std::to_string(duration / 1000) : "usual");
  return Print({{"bands", bands, {"band", "frequency", "occupant", "tuner"}},
                {"tuners", tuners, {"tuner", "stored", "run", "progress", "found"}},
                {"next", next, {"outcome", "duration"}}},
               json);
}

int Cable(const Arguments& words) {
  Options options;
  const Command command = Parse(TakeOptions(words, kCableNames, options), 0, kCableUsage);
  Store::Get().Write([&] {
    for (const CableOption& option : kCableOptions) {
      if (options.contains(option.name)) option.set(options[option.name]);
    }
  });
  return PrintCable(command.json);
}

// --- the dish ------------------------------------------------------------------------------------

constexpr const char* kDishUsage =
    "dish [--motor yes|no] [--go POSITION] [--east-limit POSITION|none] [--west-limit POSITION|none] "
    "[--speed DEGREES] [--json]";

int Angle(const std::string& word, const std::string& option) {
  const int position = OrbitalPosition("-" + word);
  if (position < 0) throw WordError(option + " '" + word + "': wants an orbital position like 19.2E");
  return ReadDish().AngleOf(position);
}

std::optional<int> Limit(const std::string& word, const std::string& option) {
  if (word == "none") return {};
  return Angle(word, option);
}

void SetLimit(bool (*set)(std::optional<int>), const std::string& word, const std::string& option) {
  if (!set(Limit(word, option))) throw WordError(option + " '" + word + "': lies beyond the other limit");
}

void SetMotorOption(const std::string& value) {
  if (value != "yes" && value != "no") throw WordError("--motor '" + value + "': wants yes or no");
  SetMotor(value == "yes");
}

void Go(const std::string& value) {
  if (!ReadDish().motor) throw WordError("--go '" + value + "': the dish has no motor");
  TurnDish(Angle(value, "--go"));
}

constexpr CableOption kDishOptions[] = {
    {"--motor", SetMotorOption},
    {"--speed",
     [](const std::string& value) {
       SetSpeed(static_cast<int>(Number(value, "--speed", kSlowest, kFastest)) * kDegree);
     }},
    {"--east-limit", [](const std::string& value) { SetLimit(SetEastLimit, value, "--east-limit"); }},
    {"--west-limit", [](const std::string& value) { SetLimit(SetWestLimit, value, "--west-limit"); }},
    {"--go", Go},
};
constexpr const char* kDishNames[] = {"--motor", "--speed", "--east-limit", "--west-limit", "--go"};

std::string PositionText(const Dish& dish, std::optional<int> angle) {
  if (!angle) return "none";
  const int position = dish.PositionOf(*angle);
  const int tenths = position <= 1800 ? position : 3600 - position;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + (position <= 1800 ? "E" : "W");
}

int PrintDish(bool json) {
  const Dish dish = ReadDish();
  const int64_t now = NowMilliseconds();
  const auto text = [&](std::optional<int> angle) { return PositionText(dish, angle); };
  Query motor("SELECT ?, ?, ?, ?, ?, ?, ?, command || '(' || parameter || ')' FROM dish", dish.motor ? "yes" : "no",
              text(dish.AngleAt(now)), now < dish.Arrival() ? text(dish.target) : "rests", text(0),
              text(dish.eastLimit), text(dish.westLimit), dish.speed / kDegree);
  std::string slots;
  Query stored("SELECT slot, angle FROM dish_slot ORDER BY slot");
  while (stored.Row()) {
    slots += (slots.empty() ? "VALUES (" : ", (") + std::to_string(stored.Int(0)) + ", '" +
             text(static_cast<int>(stored.Int(1))) + "')";
  }
  Query positions("WITH kept (slot, position) AS (" + (slots.empty() ? "SELECT 0, '' WHERE 0" : slots) +
                  ") SELECT slot, position, (SELECT group_concat(name, ', ') FROM satellite s WHERE s.slot = kept.slot "
                  "AND s.motorised = 1) FROM kept ORDER BY slot");
  return Print(
      {{"motor", motor, {"motor", "position", "turnsTo", "zero", "eastLimit", "westLimit", "speed", "command"}},
       {"slots", positions, {"slot", "position", "satellites"}}},
      json);
}

int RunDish(const Arguments& words) {
  Options options;
  const Command command = Parse(TakeOptions(words, kDishNames, options), 0, kDishUsage);
  Store::Get().Write([&] {
    for (const CableOption& option : kDishOptions) {
      if (options.contains(option.name)) option.set(options[option.name]);
    }
  });
  return PrintDish(command.json);
}

constexpr Verb kVerbs[] = {
    {"satcr", "satcr [--bands MHZ,...] [--outcome ...]",
     "shows the single cable; --bands, --occupy, --leave, --store, --duration, --outcome", true, Cable},
    {"dish", "dish [--go POSITION] [--speed N]", "shows the dish; --go, --east-limit, --west-limit, --speed, --motor",
     true, RunDish},
};

}  // namespace

std::span<const Verb> SatelliteVerbs() { return kVerbs; }
