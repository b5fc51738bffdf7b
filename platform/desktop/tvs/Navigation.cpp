#include "CriteriaSql.h"
#include "Gate.h"
#include "Proxies.h"
#include "Tuning.h"

namespace desktop {

namespace {

class ServiceNavigation : public IServiceNavigation {
 public:
  explicit ServiceNavigation(EProfile profile) : m_profile(profile) {}

  int GetTvMode(TSTvMode& mode) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetTvMode, Entry(m_profile), [&](Entry& entry) {
      Query q("SELECT antenna, service_mode FROM picture WHERE profile = ?", m_profile);
      if (!q.Row()) return -1;
      mode.antennaMode = static_cast<EAntennaMode>(q.Int(0));
      mode.serviceMode = static_cast<EServiceMode>(q.Int(1));
      entry.Out(mode.antennaMode);
      entry.Out(mode.serviceMode);
      return 1;
    });
  }

  int SetTvMode(const TSTvMode& mode) override {
    return Gate::Pass<int>(op::ServiceNavigation_SetTvMode, Entry(m_profile, mode.antennaMode, mode.serviceMode),
                           [&](Entry&) {
                             if (mode.antennaMode < ANTENNA_AIR || mode.antennaMode > ANTENNA_SATELLITE) return 0;
                             Store::Get().Write([&] { EnterMode(mode); });
                             return 1;
                           });
  }

  int GetCurrentServiceInfo(const TSTvMode& mode, const TCCriteriaHelper& criteria, TCServiceData& data) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetCurrentServiceInfo,
                           Entry(m_profile, mode.antennaMode, mode.serviceMode), [&](Entry&) {
                             CriteriaSql sql;
                             if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
                             sql.And("id = (SELECT service FROM picture WHERE profile = ?)", {m_profile});
                             if (mode.antennaMode != ANTENNA_NONE) {
                               sql.And("antenna = ? AND service_mode = ?", {mode.antennaMode, mode.serviceMode});
                             }
                             return First(sql, "", criteria, data);
                           });
  }

  int GetCurrentService(unsigned long long& serviceId, int& kind) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetCurrentService, Entry(m_profile), [&](Entry& entry) {
      Query q("SELECT s.id, s.type FROM picture p JOIN service s ON s.id = p.service WHERE p.profile = ?", m_profile);
      if (!q.Row()) return 0;
      serviceId = static_cast<unsigned long long>(q.Int(0));
      kind = static_cast<int>(q.Int(1));
      entry.Out(serviceId);
      return 1;
    });
  }

  int SetService(unsigned long long serviceId, int option1, int option2, int& state) override {
    return Gate::Pass<int>(op::ServiceNavigation_SetService, Entry(m_profile, serviceId, option1, option2),
                           [&](Entry&) {
                             if (!BeginTune(m_profile, serviceId)) return 0;
                             state = 1;
                             return 1;
                           });
  }

  int SetServiceWithoutChangingServiceInfo(unsigned long long serviceId) override {
    return Gate::Pass<int>(op::ServiceNavigation_SetServiceAgain, Entry(m_profile, serviceId),
                           [&](Entry&) { return BeginTune(m_profile, serviceId) ? 1 : 0; });
  }

  int GetPreviousService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetPreviousService, Entry(m_profile, from),
                           [&](Entry&) { return Neighbour(criteria, from, data, false); });
  }

  int GetNextService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetNextService, Entry(m_profile, from),
                           [&](Entry&) { return Neighbour(criteria, from, data, true); });
  }

  int TuneForFeedingSI(const TSTransponder& transponder, bool positioner) override {
    return Gate::Pass<int>(op::ServiceNavigation_TuneForFeedingSI,
                           Entry(m_profile, transponder.transponderId, positioner), [&](Entry&) {
                             Query q("SELECT 1 FROM transponder WHERE id = ?", transponder.transponderId);
                             if (!q.Row()) return 0;
                             BeginFeeding(m_profile, transponder.transponderId, positioner);
                             return 1;
                           });
  }

  int ResetService() override {
    return Gate::Pass<int>(op::ServiceNavigation_ResetService, Entry(m_profile), [&](Entry&) {
      Query q("SELECT antenna, service_mode FROM picture WHERE profile = ?", m_profile);
      if (!q.Row()) return 0;
      const TSTvMode mode(static_cast<EAntennaMode>(q.Int(0)), static_cast<EServiceMode>(q.Int(1)));
      Store::Get().Write([&] { EnterMode(mode); });
      return 1;
    });
  }

  int GetChannelCount(const TCCriteriaHelper& criteria, const TSTvMode& mode, int& count) override {
    return Gate::Pass<int>(op::ServiceNavigation_GetChannelCount, Entry(mode.antennaMode, mode.serviceMode),
                           [&](Entry& entry) {
                             CriteriaSql sql;
                             if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
                             if (mode.antennaMode != ANTENNA_NONE) {
                               sql.And("antenna = ? AND service_mode = ?", {mode.antennaMode, mode.serviceMode});
                             }
                             Query q(sql.Select("count(*)", ""));
                             sql.Bind(q);
                             q.Row();
                             count = static_cast<int>(q.Int(0));
                             entry.Out(count);
                             return 1;
                           });
  }

 private:
  static int First(const CriteriaSql& sql, const char* tail, const TCCriteriaHelper& criteria, TCServiceData& data) {
    Query q(sql.Select(sql.Columns(), tail));
    sql.Bind(q);
    if (!q.Row()) return 0;
    ReadService(q, criteria, data);
    return 1;
  }

  int Neighbour(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data, bool next) {
    const char* tail = next ? "ORDER BY major, minor, id LIMIT 1" : "ORDER BY major DESC, minor DESC, id DESC LIMIT 1";
    CriteriaSql sql;
    if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
    Query q("SELECT major, minor FROM service WHERE id = ?", static_cast<int64_t>(from));
    if (q.Row()) {
      CriteriaSql beyond = sql;
      beyond.And(next ? "(major, minor, id) > (?, ?, ?)" : "(major, minor, id) < (?, ?, ?)",
                 {q.Int(0), q.Int(1), static_cast<int64_t>(from)});
      if (First(beyond, tail, criteria, data) > 0) return 1;
    }
    return First(sql, tail, criteria, data);
  }

  void EnterMode(const TSTvMode& mode) {
    Query("UPDATE picture SET antenna = ?, service_mode = ?, service = NULL, transponder = NULL WHERE profile = ?",
          mode.antennaMode, mode.serviceMode, m_profile)
        .Run();
    Query last("SELECT service FROM shown WHERE profile = ? AND antenna = ? AND service_mode = ?", m_profile,
               mode.antennaMode, mode.serviceMode);
    if (last.Row() && BeginTune(m_profile, static_cast<unsigned long long>(last.Int(0)))) return;
    Query first("SELECT id FROM service WHERE antenna = ? AND service_mode = ? ORDER BY major, minor, id LIMIT 1",
                mode.antennaMode, mode.serviceMode);
    if (first.Row()) BeginTune(m_profile, static_cast<unsigned long long>(first.Int(0)));
  }

  EProfile m_profile;
};

/// What narrows a navigation mode; a value of -1 is the mode's parameter.
struct Narrowing {
  ENavigationMode navigation;
  int column;
  long long value;
};

constexpr ENavigationMode kEverything[] = {NAVIGATION_ALL,      ENavigationMode(8),  ENavigationMode(10),
                                           ENavigationMode(11), ENavigationMode(12), ENavigationMode(13),
                                           ENavigationMode(16)};
constexpr Narrowing kNarrowings[] = {
    {NAVIGATION_DIGITAL, COLUMN_DIGITAL, 1},
    {NAVIGATION_ANALOG, COLUMN_DIGITAL, 0},
    {NAVIGATION_FAVOURITE, COLUMN_FAVOURITE_1, -1},
    {NAVIGATION_SATELLITE, COLUMN_SATELLITE_ID, -1},
    {NAVIGATION_TV, COLUMN_SERVICE_PROFILE, SERVICE_TV},
    {NAVIGATION_RADIO, COLUMN_SERVICE_PROFILE, SERVICE_RADIO},
};

bool Narrow(ENavigationMode navigation, unsigned long long parameter, TCCriteriaHelper& criteria) {
  for (const ENavigationMode mode : kEverything) {
    if (mode == navigation) return true;
  }
  for (const auto& [mode, column, value] : kNarrowings) {
    if (mode != navigation) continue;
    if (value >= 0) {
      criteria.Where(column, static_cast<unsigned long long>(value));
    } else if (parameter == ~0ULL) {
      // The favourite list that is watched: what is tuned is in it.
      return navigation == NAVIGATION_FAVOURITE;
    } else if (navigation == NAVIGATION_FAVOURITE) {
      if (parameter < 1 || parameter > 5) return false;
      criteria.Where(column + static_cast<int>(parameter) - 1, 1);
    } else {
      criteria.Where(column, parameter);
    }
    return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<ITVSProxy> MakeServiceNavigation(EProfile profile) {
  return std::make_unique<ServiceNavigation>(profile);
}

}  // namespace desktop

using namespace desktop;

bool TCNavigationModeHelper::GetNavigationCriteria(const TSTvMode& mode, ENavigationMode navigation,
                                                   TCCriteriaHelper& criteria, unsigned long long parameter,
                                                   unsigned long long) {
  return Gate::Pass<bool>(op::GetNavigationCriteria,
                          Entry(mode.antennaMode, mode.serviceMode, navigation, static_cast<long long>(parameter)),
                          [&](Entry&) {
                            if (mode.antennaMode != ANTENNA_NONE) {
                              criteria.Where(COLUMN_ANTENNA_MODE, static_cast<unsigned long long>(mode.antennaMode));
                              criteria.Where(COLUMN_SERVICE_MODE, static_cast<unsigned long long>(mode.serviceMode));
                            }
                            return Narrow(navigation, parameter, criteria);
                          });
}

bool TCNavigationModeHelper::GetNavigationCriteria(ENavigationMode navigation, unsigned long long parameter,
                                                   TCCriteriaHelper& criteria) {
  return GetNavigationCriteria(TSTvMode(), navigation, criteria, parameter);
}
