#include "Store.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>

#include "Gate.h"
#include "Schema.h"
#include "Text.h"

namespace desktop {

namespace {

constexpr int kBusyMilliseconds = 5000;
constexpr int kMostMilliseconds = 3'600'000;

/// How long another program's lock is waited for; `$QUIRELLE_PATIENCE` (milliseconds) in place of the usual.
int BusyMilliseconds() {
  const char* own = std::getenv("QUIRELLE_PATIENCE");
  if (!own || !*own) return kBusyMilliseconds;
  const auto number = ToNumber(own);
  if (!number || *number < 0 || *number > kMostMilliseconds) {
    throw StoreError(std::string("QUIRELLE_PATIENCE '") + own + "': wants 0 to " + std::to_string(kMostMilliseconds));
  }
  return static_cast<int>(*number);
}

Store*& Current() {
  static Store* current = nullptr;
  return current;
}

/// Changes whenever the machine is started: the TV's power-on.
std::string BootId() {
  std::string id;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> id;
  return id;
}

std::string Home() {
  const char* home = std::getenv("HOME");
  return home ? home : "/tmp";
}

}  // namespace

std::string Store::DefaultPath() {
  if (const char* tv = std::getenv("QUIRELLE_TV"); tv && *tv) return tv;
  const char* data = std::getenv("XDG_DATA_HOME");
  return (data && *data ? std::string(data) : Home() + "/.local/share") + "/quirelle/tv.db";
}

void Store::Open(const std::string& path) {
  Close();
  Current() = new Store(path);
  Gate::FaultsChanged();
}

void Store::Close() {
  if (!Current()) return;
  Gate::Flush();
  delete Current();
  Current() = nullptr;
}

bool Store::IsOpen() { return Current() != nullptr; }

Store& Store::Get() {
  if (!Current()) {
    static std::once_flag closeAtExit;
    std::call_once(closeAtExit, [] { std::atexit([] { Close(); }); });
    Open(DefaultPath());
  }
  return *Current();
}

namespace {

[[noreturn]] void Refuse(const std::string& path, int error) {
  const std::string make = error == ENOENT ? "; to make a TV there: quirelle-tv new PROFILE --tv '" + path + "'" : "";
  throw StoreError(path + ": " + std::strerror(error) + make, SQLITE_CANTOPEN);
}

}  // namespace

Store::Store(const std::string& path) : m_path(path) {
  if (access(path.c_str(), F_OK) != 0) Refuse(path, errno);
  const int code = sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  try {
    if (code != SQLITE_OK) Fail(code);
    sqlite3_extended_result_codes(m_db, 1);
    sqlite3_busy_timeout(m_db, BusyMilliseconds());
    Check();
    Execute("PRAGMA synchronous=FULL");
    ForgetVolatileKeys();
  } catch (...) {
    for (auto& [sql, statement] : m_statements) sqlite3_finalize(statement);
    sqlite3_close(m_db);
    throw;
  }
}

Store::~Store() {
  for (auto& [sql, statement] : m_statements) sqlite3_finalize(statement);
  sqlite3_close(m_db);
}

void Store::Check() {
  auto pragma = [this](const char* sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr);
    if (code == SQLITE_NOTADB) throw StoreError(m_path + ": not a TV", code);
    if (code != SQLITE_OK) Fail(code);
    const int step = sqlite3_step(statement);
    const int value = step == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0;
    sqlite3_finalize(statement);
    if (step == SQLITE_NOTADB) throw StoreError(m_path + ": not a TV", step);
    if (step != SQLITE_ROW) Fail(step);
    return value;
  };
  if (pragma("PRAGMA application_id") != kApplicationId) throw StoreError(m_path + ": not a TV", SQLITE_NOTADB);
  const int schema = pragma("PRAGMA user_version");
  if (schema != kSchema) {
    throw StoreError(m_path + ": made by " + (schema > kSchema ? "a newer" : "an older") + " quirelle (schema " +
                         std::to_string(schema) + ", this one knows " + std::to_string(kSchema) +
                         "); to replace it by a new TV: quirelle-tv new PROFILE --tv '" + m_path + "' --force",
                     SQLITE_SCHEMA);
  }
}

void Store::ForgetVolatileKeys() {
  const std::string boot = BootId();
  sqlite3_stmt* read = Prepared("SELECT value FROM meta WHERE key = 'boot'");
  const bool same =
      sqlite3_step(read) == SQLITE_ROW && boot == reinterpret_cast<const char*>(sqlite3_column_text(read, 0));
  sqlite3_reset(read);
  if (same) return;
  PowerOn(*this, boot);
}

void Store::Fail(int code) const {
  const char* what = m_db ? sqlite3_errmsg(m_db) : sqlite3_errstr(code);
  if ((code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED) what = "locked by another program";
  const bool ioError = (code & 0xff) == SQLITE_IOERR || (code & 0xff) == SQLITE_CANTOPEN;
  if ((code & 0xff) == SQLITE_FULL || (ioError && m_db && sqlite3_system_errno(m_db) == ENOSPC))
    what = "no space left on the device";
  throw StoreError(m_path + ": " + what, code);
}

void Store::Execute(const char* sql) {
  const std::lock_guard lock(m_mutex);
  const int code = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code);
}

void Store::SetDurable(bool durable) {
  if (durable == m_durable) return;
  Execute(durable ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=NORMAL");
  m_durable = durable;
}

void Store::Write(const std::function<void()>& body, bool durable) {
  const std::lock_guard lock(m_mutex);
  if (m_depth > 0) return body();
  SetDurable(durable);
  Execute("BEGIN IMMEDIATE");
  ++m_depth;
  try {
    body();
    Gate::WritePending();
    Execute("COMMIT");
    --m_depth;
  } catch (...) {
    --m_depth;
    if (!sqlite3_get_autocommit(m_db)) sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  Gate::PendingWritten();
}

int64_t Store::DataVersion() {
  const std::lock_guard lock(m_mutex);
  sqlite3_stmt* statement = Prepared("PRAGMA data_version");
  const int code = sqlite3_step(statement);
  const int64_t version = sqlite3_column_int64(statement, 0);
  sqlite3_reset(statement);
  if (code != SQLITE_ROW) Fail(code);
  return version;
}

sqlite3_stmt* Store::Prepared(std::string_view sql) {
  const auto found = m_statements.find(std::string(sql));
  if (found != m_statements.end()) return found->second;
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(m_db, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                      &statement, nullptr);
  if (code != SQLITE_OK) Fail(code);
  m_statements.emplace(sql, statement);
  return statement;
}

Query::Query(Store& store, std::string_view sql) : m_store(store), m_lock(store.Mutex()) {
  m_statement = store.Prepared(sql);
  if (!sqlite3_stmt_busy(m_statement)) return;
  // The same query is being walked further up: this run gets a statement of its own.
  const int code = sqlite3_prepare_v2(store.Handle(), sql.data(), static_cast<int>(sql.size()), &m_statement, nullptr);
  if (code != SQLITE_OK) store.Fail(code);
  m_owned = true;
}

Query::~Query() {
  if (m_owned) {
    sqlite3_finalize(m_statement);
  } else {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
  }
}

Query& Query::Bind(int64_t value) {
  sqlite3_bind_int64(m_statement, ++m_bound, value);
  return *this;
}

Query& Query::Bind(double value) {
  sqlite3_bind_double(m_statement, ++m_bound, value);
  return *this;
}

Query& Query::Bind(std::string_view value) {
  sqlite3_bind_text64(m_statement, ++m_bound, value.data(), value.size(), m_copies ? SQLITE_TRANSIENT : SQLITE_STATIC,
                      SQLITE_UTF8);
  return *this;
}

Query& Query::Bind(const std::optional<Blob>& value) {
  if (!value) return Bind(nullptr);
  // Without an address SQLite would take no bytes for null.
  const char* bytes = value->bytes.empty() ? "" : value->bytes.data();
  sqlite3_bind_blob64(m_statement, ++m_bound, bytes, value->bytes.size(), m_copies ? SQLITE_TRANSIENT : SQLITE_STATIC);
  return *this;
}

Query& Query::Bind(std::nullptr_t) {
  sqlite3_bind_null(m_statement, ++m_bound);
  return *this;
}

bool Query::Row() {
  const int code = sqlite3_step(m_statement);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) m_store.Fail(code);
  return false;
}

void Query::Rewind() {
  sqlite3_reset(m_statement);
  m_bound = 0;
  m_copies = false;
}

int Query::Run() {
  while (Row()) {
  }
  return sqlite3_changes(m_store.Handle());
}

int64_t Query::Int(int column) const { return sqlite3_column_int64(m_statement, column); }

std::string Query::Text(int column) const {
  const auto* text = sqlite3_column_text(m_statement, column);
  return text ? std::string(reinterpret_cast<const char*>(text),
                            static_cast<size_t>(sqlite3_column_bytes(m_statement, column)))
              : std::string();
}

std::optional<std::string> Query::Bytes(int column) const {
  if (IsNull(column)) return {};
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
  return bytes ? std::string(bytes, static_cast<size_t>(sqlite3_column_bytes(m_statement, column))) : std::string();
}

bool Query::IsNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

}  // namespace desktop
