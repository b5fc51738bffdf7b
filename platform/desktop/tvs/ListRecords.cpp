#include "ListRecords.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "Store.h"
#include "Text.h"

namespace desktop {

namespace {

/// No record is longer: its texts with every character doubled, and its numbers.
constexpr size_t kMostLine = 32 * 1024;
constexpr size_t kMostDigits = 20;

std::string Selection(const ListTable& table) {
  const std::string id = table.columns.front().name;
  return "SELECT " + ColumnNames(table) + " FROM main." + table.table + " " + table.rows + " ORDER BY " + id;
}

}  // namespace

// --- statements ----------------------------------------------------------------------------------

Statement::Statement(const std::string& sql) {
  Store& store = Store::Get();
  const int code = sqlite3_prepare_v2(store.Handle(), sql.data(), static_cast<int>(sql.size()), &m_statement, nullptr);
  if (code != SQLITE_OK) store.Fail(code);
}

Statement::~Statement() { sqlite3_finalize(m_statement); }

bool Statement::Row() {
  const int code = sqlite3_step(m_statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) Store::Get().Fail(code);
  return code == SQLITE_ROW;
}

void Statement::Run() {
  while (Row()) {
  }
  sqlite3_reset(m_statement);
}

// --- IDs -----------------------------------------------------------------------------------------

bool IdSet::Has(int64_t id) const {
  if (id == m_last) return true;
  if (!std::binary_search(m_ids.begin(), m_ids.end(), id)) return false;
  m_last = id;
  return true;
}

void ListIds::Add(const ListTable& table, int64_t id) {
  if (&table == &kListFormatTables[kSatelliteTable]) satellites.Add(id);
  if (&table == &kListFormatTables[kTransponderTable]) transponders.Add(id);
}

bool ListIds::Has(ListKind kind, int64_t id) const {
  return (kind == ListKind::kSatellite ? satellites : transponders).Has(id);
}

// --- writing -------------------------------------------------------------------------------------

RecordWriter::RecordWriter(const ListTable& table, ListIds& ids)
    : m_table(table), m_ids(ids), m_rows(Selection(table)) {}

bool RecordWriter::Append(std::string& out) {
  if (m_records < 0) {
    out += ColumnNames(m_table) + "\n";
    m_records = 0;
    return true;
  }
  // A statement that has come to its end would begin again.
  m_ended = m_ended || !m_rows.Row();
  if (!m_ended) AppendRecord(out);
  return !m_ended;
}

void RecordWriter::AppendRecord(std::string& out) {
  ++m_records;
  m_ids.Add(m_table, sqlite3_column_int64(m_rows.Handle(), 0));
  int index = 0;
  for (const ListColumn& column : m_table.columns) {
    if (index > 0) out += ',';
    AppendValue(column, index++, out);
  }
  out += '\n';
}

void RecordWriter::AppendValue(const ListColumn& column, int index, std::string& out) {
  // Asked once for each column: the connection is ours alone.
  sqlite3_value* value = sqlite3_column_value(m_rows.Handle(), index);
  if (sqlite3_value_type(value) == SQLITE_NULL && column.optional) return;
  if (column.kind == ListKind::kText) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    AppendText(column, std::string_view(text, static_cast<size_t>(sqlite3_value_bytes(value))), out);
  } else {
    AppendNumber(column, sqlite3_value_int64(value), out);
  }
}

void RecordWriter::AppendNumber(const ListColumn& column, int64_t number, std::string& out) const {
  if (column.kind != ListKind::kNumber && !m_ids.Has(column.kind, number)) return;
  if (number < column.least || number > column.most) {
    throw ListError(kListFailed, std::string(m_table.table) + " " +
                                     std::to_string(sqlite3_column_int64(m_rows.Handle(), 0)) +
                                     ": no list can hold its " + column.name + ", " + std::to_string(number));
  }
  char digits[kMostDigits + 1];
  out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void RecordWriter::AppendText(const ListColumn& column, std::string_view text, std::string& out) {
  const auto most = static_cast<size_t>(column.most);
  std::string plain;
  if (text.size() > most || !IsPlainText(text)) text = plain = PlainText(text, most);
  out += '"';
  for (size_t quote = text.find('"'); quote != text.npos; quote = text.find('"')) {
    out.append(text.substr(0, quote + 1)).append(1, '"');
    text.remove_prefix(quote + 1);
  }
  out.append(text).append(1, '"');
}

// --- reading -------------------------------------------------------------------------------------

RecordReader::RecordReader(const ListTable& table, ListIds& ids, Take take)
    : m_table(table),
      m_ids(ids),
      m_take(std::move(take)),
      m_values(table.columns.size()),
      m_unquoted(table.columns.size()) {}

void RecordReader::Refuse(const std::string& what) const {
  throw ListError(kListUnknown, std::string(m_table.entry) + ":" + std::to_string(m_line) + ": " + what);
}

void RecordReader::Read(std::string_view bytes) {
  for (size_t end = bytes.find('\n'); end != bytes.npos; end = bytes.find('\n')) {
    const std::string_view piece = bytes.substr(0, end);
    bytes.remove_prefix(end + 1);
    if (m_cut.empty()) {
      ReadLine(piece);
    } else {
      ReadLine(m_cut.append(piece));
      m_cut.clear();
    }
  }
  m_cut += bytes;
  if (m_cut.size() > kMostLine) {
    ++m_line;
    Refuse("is longer than a record can be");
  }
}

int64_t RecordReader::Finish() {
  if (!m_cut.empty() || m_line == 0) Refuse("ends within a line");
  return m_line - 1;
}

void RecordReader::ReadLine(std::string_view line) {
  if (m_line++ == 0) {
    if (line != ColumnNames(m_table)) Refuse("does not name the columns of format " + std::to_string(kListFormat));
    return;
  }
  size_t index = 0;
  for (const ListColumn& column : m_table.columns) {
    if (index > 0) {
      if (!line.starts_with(',')) Refuse(std::string("no comma before '") + column.name + "'");
      line.remove_prefix(1);
    }
    ReadValue(column, line, m_values[index], m_unquoted[index]);
    ++index;
  }
  if (!line.empty()) Refuse("more than its columns");
  const int64_t id = m_values.front().number;
  if (id <= m_last) Refuse(std::to_string(id) + " does not come after " + std::to_string(m_last));
  if (m_line - 1 > m_table.mostRecords) Refuse("more records than there can be");
  m_last = id;
  m_ids.Add(m_table, id);
  m_take(m_values);
}

void RecordReader::ReadValue(const ListColumn& column, std::string_view& rest, ListValue& value,
                             std::string& unquoted) {
  value.missing = rest.empty() || rest.front() == ',';
  if (value.missing) {
    if (!column.optional) Refuse(std::string("'") + column.name + "' is missing");
  } else if (column.kind == ListKind::kText) {
    ReadText(column, rest, value, unquoted);
  } else {
    ReadNumber(column, rest, value);
  }
}

void RecordReader::ReadText(const ListColumn& column, std::string_view& rest, ListValue& value, std::string& unquoted) {
  if (rest.front() != '"') Refuse(std::string("'") + column.name + "' stands without quotes");
  rest.remove_prefix(1);
  size_t end = rest.find('"');
  if (end != rest.npos && !rest.substr(end + 1).starts_with('"')) {
    value.text = rest.substr(0, end);
  } else {
    unquoted.clear();
    for (; end != rest.npos && rest.substr(end + 1).starts_with('"'); end = rest.find('"')) {
      unquoted += rest.substr(0, end + 1);
      rest.remove_prefix(end + 2);
    }
    if (end == rest.npos) Refuse(std::string("'") + column.name + "' has no closing quotes");
    value.text = unquoted += rest.substr(0, end);
  }
  rest.remove_prefix(end + 1);
  if (value.text.size() > static_cast<size_t>(column.most) || !IsPlainText(value.text)) {
    Refuse(std::string("'") + column.name + "' is too long, or no text");
  }
}

void RecordReader::ReadNumber(const ListColumn& column, std::string_view& rest, ListValue& value) {
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value.number);
  const std::string_view digits(rest.data(), static_cast<size_t>(end - rest.data()));
  // One way to write each number, so that the list's digest says what is in it.
  const bool padded = (digits.starts_with('0') && digits.size() > 1) || digits.starts_with("-0");
  if (error != std::errc() || padded || value.number < column.least || value.number > column.most) {
    Refuse(std::string("'") + column.name + "' is no number from " + std::to_string(column.least) + " to " +
           std::to_string(column.most));
  }
  if (column.kind != ListKind::kNumber && !m_ids.Has(column.kind, value.number)) {
    Refuse(std::string("'") + column.name + "' " + std::to_string(value.number) + " is not in the list");
  }
  rest.remove_prefix(digits.size());
}

}  // namespace desktop
