#include "TvsBench.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "CacheManager.h"
#include "ChannelUtil.h"
#include "CopyRows.h"
#include "Gate.h"
#include "LogOutput.h"
#include "Profile.h"
#include "Schema.h"
#include "Store.h"
#include "TvsUtil.h"

namespace bench {

namespace {

using Body = std::function<void()>;

constexpr int kPairs = 15;

double Microseconds(const Body& body, int times) { return SecondsOf(body, times) * 1e6; }

/// Runs the two in turn; medians of the pairs.
Figure Compare(const std::string& name, double goal, const Body& ours, const Body& floor, int times) {
  return InTurn(
      name, "us", goal, kPairs, [&] { return Microseconds(ours, times); }, [&] { return Microseconds(floor, times); });
}

/// A prepared statement on a connection of its own, run to its end.
class Bare {
 public:
  Bare(const std::string& path, const char* sql) {
    sqlite3_open(path.c_str(), &m_db);
    if (sqlite3_prepare_v2(m_db, sql, -1, &m_statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(m_db));
  }
  ~Bare() {
    sqlite3_finalize(m_statement);
    sqlite3_close(m_db);
  }
  void Run() {
    while (sqlite3_step(m_statement) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(m_statement); ++i) m_sum += sqlite3_column_int64(m_statement, i);
    }
    sqlite3_reset(m_statement);
  }

 private:
  sqlite3* m_db = nullptr;
  sqlite3_stmt* m_statement = nullptr;
  long long m_sum = 0;
};

void Execute(sqlite3* db, const char* sql) {
  char* message = nullptr;
  if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) throw std::runtime_error(message);
}

/// The same rows and indexes by bare bulk insertion, row by row through one prepared statement.
double BareInsertion(const std::string& tv, const std::string& path) {
  std::filesystem::remove(path);
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  Execute(db, ("ATTACH '" + tv + "' AS tv").c_str());
  Execute(db, "PRAGMA journal_mode=WAL");
  sqlite3_stmt* schema = nullptr;
  sqlite3_prepare_v2(db, "SELECT sql FROM tv.sqlite_schema WHERE name = 'service'", -1, &schema, nullptr);
  sqlite3_step(schema);
  const std::string create = reinterpret_cast<const char*>(sqlite3_column_text(schema, 0));
  sqlite3_finalize(schema);
  Execute(db, create.c_str());
  const auto start = std::chrono::steady_clock::now();
  Execute(db, "BEGIN");
  CopyRows(db, "service");
  Execute(db, desktop::kServiceIndexSql);
  Execute(db, "COMMIT");
  Execute(db, "PRAGMA wal_checkpoint(TRUNCATE)");
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  sqlite3_close(db);
  return seconds;
}

void Open(const std::string& path) {
  desktop::Store::Open(path);
  CCacheManager::FlushCache();
}

struct LookUp {
  const char* name;
  Body run;
};

std::vector<LookUp> LookUps() {
  const auto neighbour = [](bool next) {
    CTVSApiWrapper api;
    IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
    TCCriteriaHelper criteria;
    TCNavigationModeHelper::GetNavigationCriteria(TSTvMode(ANTENNA_SATELLITE, SERVICE_MODE_SATELLITE), NAVIGATION_ALL,
                                                  criteria);
    criteria.Fetch(COLUMN_SERVICE_ID);
    criteria.WhereNot(COLUMN_CHANNEL_TYPE, CHANNEL_VIRTUAL);
    TCServiceData data;
    next ? navigation->GetNextService(criteria, 20, data) : navigation->GetPreviousService(criteria, 20, data);
  };
  return {{"next channel", [=] { neighbour(true); }},
          {"previous channel", [=] { neighbour(false); }},
          {"current service",
           [] {
             unsigned long long id = 0;
             ChannelUtil::GetCurrentServiceId(id, false);
           }},
          {"first match of a frequency", [] {
             CTVSApiWrapper api;
             TCCriteriaHelper criteria;
             criteria.Where(COLUMN_FREQUENCY, 506000);
             criteria.Where(COLUMN_BANDWIDTH, BANDWIDTH_8);
             criteria.Fetch(COLUMN_SERVICE_ID);
             std::unique_ptr<TCServiceList> list;
             api.CreateService()->FindServiceList(criteria, list);
           }}};
}

}  // namespace

std::vector<Figure> TvsFigures(const std::string& directory, long services) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  std::vector<Figure> figures;
  const auto path = [&](long count) { return directory + "/" + std::to_string(count) + ".db"; };
  std::vector<std::vector<double>> costs(LookUps().size());
  for (const long count : {100L, 10000L, services}) {
    const auto start = std::chrono::steady_clock::now();
    desktop::MakeTv(path(count), {"europe", count}, true);
    const double made = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (count == services) {
      const double bare = BareInsertion(path(count), directory + "/bare.db");
      figures.push_back({"making " + std::to_string(count) + " services", made, bare, "s", 1.5});
      figures.push_back({"their size on disk", std::filesystem::file_size(path(count)) / 1e6,
                         std::filesystem::file_size(directory + "/bare.db") / 1e6, "MB"});
    }
    Open(path(count));
    const auto lookUps = LookUps();
    for (size_t i = 0; i < lookUps.size(); ++i) {
      std::vector<double> runs;
      for (int run = 0; run < 15; ++run) runs.push_back(Microseconds(lookUps[i].run, 200));
      costs[i].push_back(Median(runs));
    }
  }
  const auto lookUps = LookUps();
  for (size_t i = 0; i < lookUps.size(); ++i) {
    figures.push_back({std::string(lookUps[i].name) + ", " + std::to_string(services) + " against 100",
                       *std::max_element(costs[i].begin(), costs[i].end()), costs[i].front(), "us", 1.5});
  }
  Open(path(10000));
  Bare bare(
      path(10000),
      "SELECT type, id, locked_mode, number, major, minor, profile, frequency, bandwidth, satellite, code_rate, "
      "modulation, program, network, original_network, stream, symbol_rate, is_default FROM service WHERE id = 1");
  figures.push_back(Compare(
      "fresh channel record", 2.0,
      [] { CTvsUtil::m_TvServiceChannelDelInfo(CTvsUtil::m_TvServiceChannelGetInfo(false)); }, [&] { bare.Run(); },
      200));
  figures.push_back(Compare(
      "cached read against a fresh one", 0.02, [] { CTvsUtil::m_GetSignalInfo(); },
      [] {
        CCacheManager::FlushCache();
        CTvsUtil::m_GetSignalInfo();
      },
      200));
  desktop::Store::Close();
  return figures;
}

}  // namespace bench
