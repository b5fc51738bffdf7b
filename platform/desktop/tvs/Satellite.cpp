#include <deque>

#include "CriteriaSql.h"
#include "Gate.h"
#include "Installation.h"
#include "Proxies.h"
#include "Text.h"

namespace desktop {

namespace {

/// Transponders of the user have the IDs from here.
constexpr int kFirstUserTransponder = 60000;
constexpr int kLastTransponder = 65534;

constexpr const char* kTransponderColumns = "id, satellite, frequency, symbol_rate, polarisation, fec";

int NumberOr(const Query& q, int column, int missing) {
  return q.IsNull(column) ? missing : static_cast<int>(q.Int(column));
}

TSTransponder ReadTransponder(const Query& q) {
  return {static_cast<unsigned short>(q.Int(0)),
          static_cast<ESatelliteId>(NumberOr(q, 1, SATELLITE_NONE)),
          static_cast<int>(q.Int(2)),
          static_cast<unsigned short>(NumberOr(q, 3, 65535)),
          static_cast<EDVBSPolarisation>(NumberOr(q, 4, POLARISATION_NONE)),
          static_cast<EDVBFECInner>(NumberOr(q, 5, INNER_FEC_NONE))};
}

constexpr const char* kAddSql =
    "INSERT INTO transponder (id, satellite, antenna, number, frequency, symbol_rate, polarisation, fec, user_defined) "
    "VALUES (?1, ?2, 2, ?1, ?3, ?4, ?5, ?6, 1)";

class Satellite : public ISatellite {
 public:
  int FindTransponder(const TCCriteriaHelper& criteria, TSTransponder& transponder) override {
    return Gate::Pass<int>(op::Satellite_FindTransponder, Entry(), [&](Entry& entry) {
      CriteriaSql sql;
      if (!CriteriaSql::Make(Records::kTransponder, criteria, sql)) return -1;
      Query q(sql.Select(kTransponderColumns, (sql.Order() + " LIMIT 1").c_str()));
      sql.Bind(q);
      if (!q.Row()) return 0;
      transponder = ReadTransponder(q);
      entry.Out(transponder.transponderId);
      return 1;
    });
  }

  int AddUserTransponder(TSTransponder& transponder) override {
    const TSTransponder& t = transponder;
    return Gate::Pass<int>(op::Satellite_AddUserTransponder,
                           Entry(t.satelliteId, t.frequency, t.symbolRate, t.polarisation), [&](Entry& entry) {
                             int id = 0;
                             Store::Get().Write([&] { id = Add(t); });
                             if (id == 0) return 0;
                             transponder.transponderId = static_cast<unsigned short>(id);
                             entry.Out(id);
                             return 1;
                           });
  }

  int GetSatelliteList(const TCCriteriaHelper& criteria, std::vector<TSSatellite*>& satellites) override {
    return Gate::Pass<int>(op::Satellite_GetSatelliteList, Entry(), [&](Entry&) {
      CriteriaSql sql;
      if (!CriteriaSql::Make(Records::kSatellite, criteria, sql)) return -1;
      Query q(sql.Select("id, name, position", sql.Order().c_str()));
      sql.Bind(q);
      std::vector<TSSatellite*> found;
      while (q.Row()) {
        TSSatellite& satellite = m_satellites.emplace_back();
        satellite.satelliteId = static_cast<ESatelliteId>(q.Int(0));
        satellite.name = ToUtf16(q.Text(1));
        satellite.position = static_cast<int>(q.Int(2));
        found.push_back(&satellite);
      }
      satellites = std::move(found);
      return static_cast<int>(satellites.size());
    });
  }

 private:
  /// The ID, 0 when there is no room.
  static int Add(const TSTransponder& t) {
    Query same(
        "SELECT id FROM transponder WHERE satellite = ? AND frequency = ? AND symbol_rate = ? AND polarisation = ? "
        "AND user_defined = 1",
        t.satelliteId, t.frequency, t.symbolRate, t.polarisation);
    if (same.Row()) return static_cast<int>(same.Int(0));
    Query last("SELECT max(id) FROM transponder WHERE id >= ?", kFirstUserTransponder);
    last.Row();
    const int id = last.IsNull(0) ? kFirstUserTransponder : static_cast<int>(last.Int(0)) + 1;
    if (id > kLastTransponder) return 0;
    Query(kAddSql, id, t.satelliteId, t.frequency, t.symbolRate, t.polarisation, t.fec).Run();
    HearUserTransponders(t.satelliteId);
    return id;
  }

  std::deque<TSSatellite> m_satellites;
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeSatellite() { return std::make_unique<Satellite>(); }

}  // namespace desktop
