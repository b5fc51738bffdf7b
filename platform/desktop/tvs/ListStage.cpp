#include "ListStage.h"

#include <utility>

#include "Store.h"

namespace desktop {

namespace {

void Execute(const std::string& sql) { Store::Get().Execute(sql.c_str()); }

std::string InsertSql(const ListTable& table) {
  std::string marks = "?";
  for (size_t i = 1; i < table.columns.size(); ++i) marks += ",?";
  return std::string("INSERT INTO stage.") + table.table + " (" + ColumnNames(table) + ") VALUES (" + marks + ")";
}

/// The satellites in use, the pictures, the recorder and the memory of what was shown last go on with what the new list
/// has.
constexpr const char* kFollow[] = {
    // Satellite 0 says that a mode has a choice of its own.
    "DELETE FROM selected WHERE satellite NOT IN (SELECT id FROM satellite UNION SELECT 0)",
    "DELETE FROM shown WHERE NOT EXISTS (SELECT 1 FROM service s WHERE s.id = shown.service AND s.antenna = "
    "shown.antenna AND s.service_mode = shown.service_mode)",
    "DELETE FROM recorder WHERE service NOT IN (SELECT id FROM service)",
    "UPDATE picture SET service = (SELECT id FROM service WHERE antenna = picture.antenna AND service_mode = "
    "picture.service_mode ORDER BY major, minor, id LIMIT 1), fine_tune = NULL WHERE NOT EXISTS (SELECT 1 FROM service "
    "s WHERE s.id = picture.service AND s.antenna = picture.antenna AND s.service_mode = picture.service_mode)",
    "UPDATE picture SET transponder = (SELECT transponder FROM service WHERE id = picture.service)",
};

}  // namespace

ListStage::ListStage() {
  Execute("ATTACH '' AS stage");
  try {
    Prepare();
  } catch (...) {
    for (auto& insert : m_insert) insert.reset();
    sqlite3_exec(Store::Get().Handle(), "ROLLBACK; DETACH stage", nullptr, nullptr, nullptr);
    throw;
  }
}

void ListStage::Prepare() {
  // Nobody reads it after a failure, and it may be as large as the disk allows, not the memory.
  Execute("PRAGMA stage.journal_mode=OFF; PRAGMA stage.synchronous=OFF; PRAGMA stage.cache_size=-8000; BEGIN");
  CopySchema("table");
  for (size_t i = 0; i < kListTables; ++i) {
    m_insert[i] = std::make_unique<Statement>(InsertSql(kListFormatTables[i]));
  }
}

ListStage::~ListStage() {
  sqlite3* db = Store::Get().Handle();
  for (auto& insert : m_insert) insert.reset();
  if (!sqlite3_get_autocommit(db)) sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_exec(db, "DETACH stage", nullptr, nullptr, nullptr);
}

/// Whole pages can be copied from one table to another when both are of one shape, with the same indexes.
void ListStage::CopySchema(const char* type) const {
  for (const ListTable& table : kListFormatTables) {
    Statement read("SELECT sql FROM main.sqlite_schema WHERE sql NOT NULL AND type = '" + std::string(type) +
                   "' AND tbl_name = '" + table.table + "'");
    const std::string begin = type == std::string("table") ? "CREATE TABLE " : "CREATE INDEX ";
    while (read.Row()) {
      const std::string sql = reinterpret_cast<const char*>(sqlite3_column_text(read.Handle(), 0));
      Execute(begin + "stage." + sql.substr(begin.size()));
    }
  }
}

void ListStage::Add(const ListTable& table, const std::vector<ListValue>& record) {
  Statement& insert = *m_insert[IndexOf(table)];
  int parameter = 0;
  for (size_t i = 0; i < record.size(); ++i) {
    const ListValue& value = record[i];
    ++parameter;
    if (value.missing) {
      sqlite3_bind_null(insert.Handle(), parameter);
    } else if (table.columns[i].kind == ListKind::kText) {
      sqlite3_bind_text64(insert.Handle(), parameter, value.text.data(), value.text.size(), SQLITE_STATIC, SQLITE_UTF8);
    } else {
      sqlite3_bind_int64(insert.Handle(), parameter, value.number);
    }
  }
  insert.Run();
}

void ListStage::Finish() {
  for (auto& insert : m_insert) insert.reset();
  Statement lost("SELECT service FROM stage.fine_tune WHERE service NOT IN (SELECT id FROM stage.service) LIMIT 1");
  if (lost.Row()) {
    throw ListError(kListUnknown, std::string(kListFormatTables[kFineTuneTable].entry) + ": service " +
                                      std::to_string(sqlite3_column_int64(lost.Handle(), 0)) + " is not in the list");
  }
  CopySchema("index");
  Execute("COMMIT");
}

ListDifference ListStage::Compare(const ListTable& table) const {
  if (m_kept[IndexOf(table)]) return {};
  const std::string name = table.table, id = table.columns.front().name;
  std::string old, made;
  for (const ListColumn& column : table.columns) {
    old += (old.empty() ? "o." : ", o.") + std::string(column.name);
    made += (made.empty() ? "n." : ", n.") + std::string(column.name);
  }
  const std::string both = "stage." + name + " n JOIN main." + name + " o USING (" + id + ")";
  const auto count = [](const std::string& sql) {
    Statement q("SELECT count(*) FROM " + sql);
    q.Row();
    return sqlite3_column_int64(q.Handle(), 0);
  };
  const int64_t kept = count(both);
  return {count("stage." + name) - kept, count(both + " WHERE (" + made + ") IS NOT (" + old + ")"),
          count("main." + name) - kept};
}

void ListStage::Swap() const {
  for (const ListTable& table : kListFormatTables) {
    if (m_kept[IndexOf(table)]) continue;
    Execute(std::string("DELETE FROM main.") + table.table);
    Execute(std::string("INSERT INTO main.") + table.table + " SELECT * FROM stage." + table.table);
  }
  for (const char* sql : kFollow) Execute(sql);
}

}  // namespace desktop
