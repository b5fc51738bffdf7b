// Criteria as SQL over the TV's tables.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Store.h"
#include "tvs_criteria.h"

namespace desktop {

enum class Records { kService, kTransponder, kSatellite };

/// A statement in the making: text, and the values of its parameters.
class CriteriaSql {
 public:
  /// False when the criteria name a column that these records do not have.
  static bool Make(Records records, const TCCriteriaHelper& criteria, CriteriaSql& sql);

  /// Adds a condition in SQL with its parameters.
  void And(const char* condition, std::initializer_list<int64_t> values = {});
  /// "SELECT columns FROM ... WHERE ... tail".
  std::string Select(const std::string& columns, const char* tail) const;
  void Bind(Query& query) const;

  /// SQL of the fetched columns.
  const std::string& Columns() const { return m_columns; }
  /// "ORDER BY ...", empty for criteria without an order.
  const std::string& Order() const { return m_order; }

 private:
  const char* m_table = "";
  std::string m_columns, m_where, m_order;
  std::vector<int64_t> m_values;
};

/// Fills `data` with the fetched columns of the query's row, which begin at its first.
void ReadService(const Query& query, const TCCriteriaHelper& criteria, TCServiceData& data);

/// Column of the table `service` that a service-data column is stored in, or null for one that is not stored.
const char* ServiceColumn(int column);

}  // namespace desktop
