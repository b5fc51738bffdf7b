// Rows from one file to another, as bare as can be.
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace bench {

/// All rows of a table of the attached "tv", one by one through a prepared statement.
inline void CopyRows(sqlite3* db, const std::string& table) {
  const auto prepare = [db](const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(db));
    return statement;
  };
  sqlite3_stmt* read = prepare("SELECT * FROM tv." + table);
  std::string marks = "?";
  for (int i = 1; i < sqlite3_column_count(read); ++i) marks += ", ?";
  sqlite3_stmt* write = prepare("INSERT INTO main." + table + " VALUES (" + marks + ")");
  while (sqlite3_step(read) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(read); ++i)
      sqlite3_bind_value(write, i + 1, sqlite3_column_value(read, i));
    sqlite3_step(write);
    sqlite3_reset(write);
  }
  sqlite3_finalize(read);
  sqlite3_finalize(write);
}

}  // namespace bench
