#include <array>
#include <map>

#include "Gate.h"
#include "Schema.h"
#include "TvProfile.h"
#include "tvs_criteria.h"

namespace desktop {

namespace {

struct Carrier {
  int64_t id, frequency;
  int satellite, number, symbolRate, fec, modulation, bandwidth, standard;
};

constexpr int kUhd = 16;
constexpr int kNone = -1;
/// Highest number of a channel; a longer list goes on in the second number.
constexpr int64_t kMostMajor = 60000;
constexpr int64_t kNoMinor = 65535;

std::vector<Carrier> Carriers(const ListPlan& plan) {
  std::vector<Carrier> carriers;
  Query q(
      "SELECT t.id, t.frequency, t.satellite, t.number, t.symbol_rate, t.fec, t.modulation, t.bandwidth, t.standard "
      "FROM transponder t LEFT JOIN satellite s ON s.id = t.satellite WHERE t.antenna = ?1 AND t.user_defined = 0 "
      "AND (?2 = -1 OR s.position = ?2) ORDER BY t.id",
      plan.antenna, plan.position);
  const auto number = [&](int column) { return q.IsNull(column) ? kNone : static_cast<int>(q.Int(column)); };
  while (q.Row()) {
    carriers.push_back(
        {q.Int(0), q.Int(1), number(2), number(3), number(4), number(5), number(6), number(7), number(8)});
  }
  return carriers;
}

/// Inserts rows through one statement that stays bound from row to row.
class Inserter {
 public:
  Inserter() : m_db(Store::Get().Handle()) {
    const int code = sqlite3_prepare_v2(
        m_db,
        "INSERT INTO service (antenna, service_mode, type, number, profile, frequency, bandwidth, modulation, "
        "symbol_rate, major, minor, program, code_rate, stream, locked_mode, is_default, network, original_network, "
        "satellite, standard, transponder, favourites, name) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
        "?, ?, ?, ?, ?, ?, ?)",
        -1, &m_statement, nullptr);
    if (code != SQLITE_OK) Store::Get().Fail(code);
  }
  ~Inserter() { sqlite3_finalize(m_statement); }
  Inserter(const Inserter&) = delete;
  Inserter& operator=(const Inserter&) = delete;

  template <size_t N>
  void Insert(const std::array<int64_t, N>& values, const std::string& name) {
    int column = 0;
    for (const int64_t value : values) {
      ++column;
      if (value == kNone && column != 2) {
        sqlite3_bind_null(m_statement, column);
      } else {
        sqlite3_bind_int64(m_statement, column, value);
      }
    }
    sqlite3_bind_text(m_statement, ++column, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    const int code = sqlite3_step(m_statement);
    sqlite3_reset(m_statement);
    if (code != SQLITE_DONE) Store::Get().Fail(code);
  }

 private:
  sqlite3* m_db;
  sqlite3_stmt* m_statement = nullptr;
};

int DigitalType(int antenna) {
  return antenna == ANTENNA_SATELLITE ? CHANNEL_DIGITAL_SATELLITE
         : antenna == ANTENNA_CABLE   ? CHANNEL_DIGITAL_CABLE
                                      : CHANNEL_DIGITAL_AIR;
}

int AnalogType(int antenna) { return antenna == ANTENNA_CABLE ? CHANNEL_ANALOG_CABLE : CHANNEL_ANALOG_AIR; }

/// Spreads `percent` of the list evenly: true for those of its places.
bool Falls(int64_t place, int percent) { return (place + 1) * percent / 100 != place * percent / 100; }

/// What tells one service of a list from the next.
struct Kind {
  int type;
  bool radio, uhd, locked;
};

Kind KindOf(const ListPlan& plan, int64_t place, int64_t count) {
  if (place >= count - plan.virtualChannels) return {CHANNEL_VIRTUAL, false, false, false};
  const bool analog = Falls(place, plan.analog);
  return {analog ? AnalogType(plan.antenna) : DigitalType(plan.antenna), !analog && Falls(place, plan.radio),
          !analog && Falls(place, plan.uhd), Falls(place, plan.locked)};
}

/// `before`: services that the list's mode already has; channel numbers go on after them.
void InsertList(Inserter& inserter, const ListPlan& plan, const std::vector<Carrier>& carriers, int64_t count,
                int64_t before) {
  const int64_t each = (count + static_cast<int64_t>(carriers.size()) - 1) / static_cast<int64_t>(carriers.size());
  for (int64_t place = 0; place < count; ++place) {
    const Carrier& carrier = carriers[static_cast<size_t>(place / each)];
    const Kind kind = KindOf(plan, place, count);
    const bool digital = kind.type != CHANNEL_VIRTUAL && kind.type != AnalogType(plan.antenna);
    const int64_t within = place % each;
    const int64_t number = before + place;
    const int64_t major = plan.subchannels ? carrier.number : number % kMostMajor + 1;
    const int64_t minor = plan.subchannels ? within + 1 : number < kMostMajor ? kNoMinor : number / kMostMajor;
    const int stream = static_cast<int>(carrier.id % 65000 + 1);
    const int physical = plan.antenna == ANTENNA_SATELLITE ? static_cast<int>(carrier.id) : carrier.number;
    inserter.Insert(std::array<int64_t, 22>{plan.antenna,
                                            plan.serviceMode,
                                            kind.type,
                                            physical,
                                            kind.radio ? SERVICE_RADIO : SERVICE_TV,
                                            carrier.frequency,
                                            carrier.bandwidth,
                                            carrier.modulation,
                                            carrier.symbolRate,
                                            major,
                                            minor,
                                            digital ? within + 1 : kNone,
                                            carrier.fec,
                                            digital ? stream : kNone,
                                            kind.locked ? 1 : 0,
                                            number == 0 ? 1 : 0,
                                            digital ? plan.antenna + 1 : kNone,
                                            digital ? plan.antenna + 1 : kNone,
                                            carrier.satellite,
                                            kind.uhd ? kUhd : carrier.standard,
                                            carrier.id,
                                            number < 5 ? 1 : kNone},
                    (kind.radio ? "Radio " : "Programme ") + std::to_string(number + 1));
  }
}

}  // namespace

void MakeServices(const std::vector<ListPlan>& plans, int64_t count) {
  if (count < 0 || count > kMostServices) {
    throw ProfileError("--services " + std::to_string(count) + ": wants 0 to " + std::to_string(kMostServices));
  }
  Store& store = Store::Get();
  store.Write([&] {
    Inserter inserter;
    std::map<std::pair<int, int>, int64_t> made;
    int64_t left = count;
    for (size_t i = 0; i < plans.size(); ++i) {
      const std::vector<Carrier> carriers = Carriers(plans[i]);
      const int64_t share = i + 1 == plans.size() ? left : std::min(left, count * plans[i].share / 100);
      if (carriers.empty() || share == 0) continue;
      int64_t& before = made[{plans[i].antenna, plans[i].serviceMode}];
      InsertList(inserter, plans[i], carriers, share, before);
      before += share;
      left -= share;
    }
    store.Execute(kServiceIndexSql);
  });
}

}  // namespace desktop
