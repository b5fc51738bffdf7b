#include "CriteriaSql.h"

#include <iterator>

namespace desktop {

namespace {

struct Column {
  int number;
  const char* service;
  const char* transponder;
  const char* satellite;
};

// clang-format off
constexpr Column kColumns[] = {
    {COLUMN_CHANNEL_TYPE,             "type",                 nullptr,         nullptr},
    {COLUMN_CHANNEL_NUMBER,           "number",               "number",        nullptr},
    {COLUMN_SERVICE_PROFILE,          "profile",              nullptr,         nullptr},
    {COLUMN_FREQUENCY,                "frequency",            "frequency",     nullptr},
    {COLUMN_BANDWIDTH,                "bandwidth",            "bandwidth",     nullptr},
    {COLUMN_MODULATION,               "modulation",           "modulation",    nullptr},
    {COLUMN_SYMBOL_RATE,              "symbol_rate",          "symbol_rate",   nullptr},
    {COLUMN_DIGITAL,                  "(type IN (2, 4, 7))",  nullptr,         nullptr},
    {COLUMN_SERVICE_ID,               "id",                   nullptr,         nullptr},
    {COLUMN_MAJOR,                    "major",                nullptr,         nullptr},
    {COLUMN_MINOR,                    "minor",                nullptr,         nullptr},
    {COLUMN_PROGRAM_NUMBER,           "program",              nullptr,         nullptr},
    {COLUMN_CODE_RATE,                "code_rate",            "fec",           nullptr},
    {COLUMN_TRANSPORT_STREAM_ID,      "stream",               nullptr,         nullptr},
    {COLUMN_LOCKED_MODE,              "locked_mode",          nullptr,         nullptr},
    {COLUMN_IS_DEFAULT,               "is_default",           nullptr,         nullptr},
    {COLUMN_FINE_TUNE_TYPE,           "fine_tune_type",       nullptr,         nullptr},
    {COLUMN_FINE_TUNE_OFFSET,         "fine_tune_offset",     nullptr,         nullptr},
    {COLUMN_NETWORK_ID,               "network",              nullptr,         nullptr},
    {COLUMN_ORIGINAL_NETWORK_ID,      "original_network",     nullptr,         nullptr},
    {COLUMN_SATELLITE_ID,             "satellite",            "satellite",     "id"},
    {COLUMN_SATELLITE_NAME,           nullptr,                nullptr,         "name"},
    {COLUMN_SATELLITE_USER_DEFINED,   nullptr,                "user_defined",  "user_defined"},
    {COLUMN_SATELLITE_POSITION,       nullptr,                nullptr,         "position"},
    {COLUMN_TRANSPONDER_ID,           "transponder",          "id",            nullptr},
    {COLUMN_PACKAGE_ID,               nullptr,                "package",       nullptr},
    {COLUMN_PACKAGE_ORDER,            nullptr,                "package_order", nullptr},
    {COLUMN_ANTENNA_MODE,             "antenna",              "antenna",       nullptr},
    {COLUMN_SERVICE_MODE,             "service_mode",         nullptr,         nullptr},
    {COLUMN_BROADCAST_STANDARD,       "standard",             "standard",      nullptr},
    {COLUMN_FAVOURITE_1,              "(favourites & 1 > 0)", nullptr,         nullptr},
    {COLUMN_FAVOURITE_1 + 1,          "(favourites & 2 > 0)", nullptr,         nullptr},
    {COLUMN_FAVOURITE_1 + 2,          "(favourites & 4 > 0)", nullptr,         nullptr},
    {COLUMN_FAVOURITE_1 + 3,          "(favourites & 8 > 0)", nullptr,         nullptr},
    {COLUMN_FAVOURITE_1 + 4,          "(favourites & 16 > 0)", nullptr,        nullptr},
};
// clang-format on

const Column* Find(int number) {
  for (const Column& column : kColumns) {
    if (column.number == number) return &column;
  }
  return nullptr;
}

const char* Name(Records records, int number) {
  const Column* column = Find(number);
  if (!column) return nullptr;
  switch (records) {
    case Records::kService:
      return column->service;
    case Records::kTransponder:
      return column->transponder;
    default:
      return column->satellite;
  }
}

constexpr const char* kTables[] = {"service", "transponder", "satellite"};

}  // namespace

bool CriteriaSql::Make(Records records, const TCCriteriaHelper& criteria, CriteriaSql& sql) {
  sql.m_table = kTables[static_cast<int>(records)];
  for (const int number : criteria.Fetched()) {
    const char* name = Name(records, number);
    if (!name) return false;
    if (!sql.m_columns.empty()) sql.m_columns += ", ";
    sql.m_columns += name;
  }
  for (const auto& [number, value, equal] : criteria.Conditions()) {
    const char* name = Name(records, number);
    if (!name) return false;
    sql.And((std::string(name) + (equal ? " = ?" : " IS NOT ?")).c_str(), {value});
  }
  for (const auto& [number, ascending] : criteria.Orders()) {
    const char* name = Name(records, number);
    if (!name) return false;
    sql.m_order += (sql.m_order.empty() ? "ORDER BY " : ", ") + std::string(name) + (ascending ? "" : " DESC");
  }
  return true;
}

void CriteriaSql::And(const char* condition, std::initializer_list<int64_t> values) {
  m_where += m_where.empty() ? " WHERE " : " AND ";
  m_where += condition;
  m_values.insert(m_values.end(), values);
}

std::string CriteriaSql::Select(const std::string& columns, const char* tail) const {
  return "SELECT " + (columns.empty() ? "1" : columns) + " FROM " + m_table + m_where + " " + tail;
}

void CriteriaSql::Bind(Query& query) const {
  for (const int64_t value : m_values) query.Bind(value);
}

void ReadService(const Query& query, const TCCriteriaHelper& criteria, TCServiceData& data) {
  data.Clear();
  int column = 0;
  for (const int number : criteria.Fetched()) {
    if (!query.IsNull(column)) data.Set(number, query.Int(column));
    ++column;
  }
}

const char* ServiceColumn(int column) {
  const Column* found = Find(column);
  return found && found->service && found->service[0] != '(' ? found->service : nullptr;
}

}  // namespace desktop
