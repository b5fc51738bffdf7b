#include <algorithm>

#include "CriteriaSql.h"
#include "Gate.h"
#include "Proxies.h"

namespace desktop {

namespace {

/// Whoever asks for a list mostly wants its first entry.
constexpr int kFirstPage = 2, kLongestPage = 64;

/// Reads page by page, so that a list of a million services costs what is looked at.
class ServiceList : public TCServiceList {
 public:
  ServiceList(const TCCriteriaHelper& criteria, CriteriaSql sql) : m_criteria(criteria), m_sql(std::move(sql)) {
    m_text = m_sql.Select(m_sql.Columns(), (m_sql.Order() + " LIMIT ? OFFSET ?").c_str());
  }

  /// Reads the page at the list's place; false when there is nothing there.
  bool ReadPage() {
    m_page.clear();
    m_next = 0;
    Query q(m_text);
    m_sql.Bind(q);
    q.Bind(m_size).Bind(m_offset);
    while (q.Row()) ReadService(q, m_criteria, m_page.emplace_back());
    m_offset += static_cast<int64_t>(m_page.size());
    m_size = std::min(m_size * 2, kLongestPage);
    return !m_page.empty();
  }

  const TCServiceData* Next() override {
    if (m_next == m_page.size() && !m_page.empty()) {
      Gate::Pass<int>(op::Service_ReadServiceList, Entry(m_offset), [&](Entry&) { return ReadPage() ? 1 : 0; });
      if (m_next != 0) m_page.clear();
      m_next = 0;
    }
    return m_next < m_page.size() ? &m_page[m_next++] : nullptr;
  }

 private:
  TCCriteriaHelper m_criteria;
  CriteriaSql m_sql;
  std::string m_text;
  std::vector<TCServiceData> m_page;
  size_t m_next = 0;
  int m_size = kFirstPage;
  int64_t m_offset = 0;
};

/// The service's transponder follows from where it is said to be.
constexpr const char* kMoveSql =
    "UPDATE service SET transponder = (SELECT t.id FROM transponder t WHERE t.antenna = service.antenna AND "
    "t.frequency = service.frequency AND t.satellite IS service.satellite LIMIT 1) WHERE id = ?";

class Service : public IService {
 public:
  int FindService(const TCCriteriaHelper& criteria, TCServiceData& data, int flag) override {
    return Gate::Pass<int>(op::Service_FindService, Entry(flag), [&](Entry&) {
      CriteriaSql sql;
      if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
      Query q(sql.Select(sql.Columns(), (sql.Order() + " LIMIT 1").c_str()));
      sql.Bind(q);
      if (!q.Row()) return 0;
      ReadService(q, criteria, data);
      return 1;
    });
  }

  int FindServiceList(const TCCriteriaHelper& criteria, std::unique_ptr<TCServiceList>& list) override {
    return Gate::Pass<int>(op::Service_FindServiceList, Entry(), [&](Entry&) {
      CriteriaSql sql;
      if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
      auto found = std::make_unique<ServiceList>(criteria, std::move(sql));
      if (!found->ReadPage()) return 0;
      list = std::move(found);
      return 1;
    });
  }

  int GetServiceCount(const TCCriteriaHelper& criteria, int& count) override {
    return Gate::Pass<int>(op::Service_GetServiceCount, Entry(), [&](Entry& entry) {
      CriteriaSql sql;
      if (!CriteriaSql::Make(Records::kService, criteria, sql)) return -1;
      Query q(sql.Select("count(*)", ""));
      sql.Bind(q);
      q.Row();
      count = static_cast<int>(q.Int(0));
      entry.Out(count);
      return 1;
    });
  }

  int UpdateService(const TCServiceData& data) override {
    const long long* id = data.Find(COLUMN_SERVICE_ID);
    return Gate::Pass<int>(op::Service_UpdateService, Entry(id ? *id : -1), [&](Entry&) {
      std::string sql;
      for (const auto& [column, value] : data.Values()) {
        const char* name = column == COLUMN_SERVICE_ID ? nullptr : ServiceColumn(column);
        if (name) sql += (sql.empty() ? "UPDATE service SET " : ", ") + std::string(name) + " = ?";
      }
      if (!id || sql.empty()) return 0;
      int changed = 0;
      Store::Get().Write([&] {
        Query q(sql + " WHERE id = ?");
        for (const auto& [column, value] : data.Values()) {
          if (column != COLUMN_SERVICE_ID && ServiceColumn(column)) q.Bind(static_cast<int64_t>(value));
        }
        changed = q.Bind(static_cast<int64_t>(*id)).Run();
        if (data.Find(COLUMN_FREQUENCY)) Query(kMoveSql, static_cast<int64_t>(*id)).Run();
      });
      return changed > 0 ? 1 : 0;
    });
  }
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeService() { return std::make_unique<Service>(); }

}  // namespace desktop
