// Records of a channel list as lines of text, written and read one after the other.
#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ListFormat.h"

namespace desktop {

/// A prepared statement of the TV's connection that is not kept. Throws StoreError.
class Statement {
 public:
  explicit Statement(const std::string& sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Steps to the next row; false when there is none.
  bool Row();
  /// Runs to the end and is ready to run again.
  void Run();
  sqlite3_stmt* Handle() const { return m_statement; }

 private:
  sqlite3_stmt* m_statement = nullptr;
};

/// IDs that came in ascending order.
class IdSet {
 public:
  void Add(int64_t id) { m_ids.push_back(id); }
  bool Has(int64_t id) const;

 private:
  std::vector<int64_t> m_ids;
  /// Services of one transponder follow one another.
  mutable int64_t m_last = INT64_MIN;
};

/// The records of a list that others name.
struct ListIds {
  IdSet satellites, transponders;
  /// Notes the ID of a record of the table.
  void Add(const ListTable& table, int64_t id);
  bool Has(ListKind kind, int64_t id) const;
};

/// The lines of one table of the TV, its head first. What the TV has wrong and a list may not have is put right: a
/// reference to nothing is left out, a text is made plain.
class RecordWriter {
 public:
  /// `ids` has what the tables before this one hold, and gets what this one does.
  RecordWriter(const ListTable& table, ListIds& ids);
  /// Appends one line; false when there is none left. Throws StoreError, and ListError for a number out of its range.
  bool Append(std::string& out);
  int64_t Records() const { return m_records; }

 private:
  void AppendRecord(std::string& out);
  void AppendValue(const ListColumn& column, int index, std::string& out);
  void AppendNumber(const ListColumn& column, int64_t number, std::string& out) const;
  static void AppendText(const ListColumn& column, std::string_view text, std::string& out);

  const ListTable& m_table;
  ListIds& m_ids;
  Statement m_rows;
  int64_t m_records = -1;
  bool m_ended = false;
};

/// One value of a record. Its text is good until the next value of text is read.
struct ListValue {
  bool missing = false;
  int64_t number = 0;
  std::string_view text;
};

/// Reads the lines of one table from pieces of any size; holds no more than one line.
class RecordReader {
 public:
  using Take = std::function<void(const std::vector<ListValue>&)>;
  /// `take` gets each record that is right in itself and in what it names.
  RecordReader(const ListTable& table, ListIds& ids, Take take);
  /// Throws ListError that names the entry and the line.
  void Read(std::string_view bytes);
  /// The number of records, when all bytes have come.
  int64_t Finish();

 private:
  [[noreturn]] void Refuse(const std::string& what) const;
  void ReadLine(std::string_view line);
  void ReadValue(const ListColumn& column, std::string_view& rest, ListValue& value, std::string& unquoted);
  void ReadText(const ListColumn& column, std::string_view& rest, ListValue& value, std::string& unquoted);
  void ReadNumber(const ListColumn& column, std::string_view& rest, ListValue& value);

  const ListTable& m_table;
  ListIds& m_ids;
  Take m_take;
  std::string m_cut;
  std::vector<ListValue> m_values;
  std::vector<std::string> m_unquoted;
  int64_t m_line = 0;
  int64_t m_last = 0;
};

}  // namespace desktop
