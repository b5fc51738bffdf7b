// One SQLite file is one TV. This is the only place that opens it; everything else asks for queries.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>

namespace desktop {

/// What went wrong with the TV's file, as one line that names the file.
class StoreError : public std::runtime_error {
 public:
  explicit StoreError(const std::string& what, int sqliteCode = SQLITE_ERROR)
      : std::runtime_error(what), code(sqliteCode) {}
  int code;
};

class Store {
 public:
  /// Schema that this program reads and writes.
  static constexpr int kSchema = 3;

  /// Opens the TV in `path`; a TV that is already open is closed first. Throws StoreError when the file is
  /// missing, is no TV, or was made by a program with a newer schema.
  static void Open(const std::string& path);
  /// Writes what is pending and closes the TV; nothing when none is open.
  static void Close();
  static bool IsOpen();
  /// The open TV. Opens `DefaultPath()` when none is (a library call in somebody else's process).
  static Store& Get();

  /// `$QUIRELLE_TV`, else `$XDG_DATA_HOME/quirelle/tv.db`.
  static std::string DefaultPath();

  const std::string& Path() const { return m_path; }
  sqlite3* Handle() const { return m_db; }
  /// Guards the connection: the program, its copy thread and foreign threads may all call at once.
  std::recursive_mutex& Mutex() { return m_mutex; }

  /// Runs SQL without results.
  void Execute(const char* sql);
  /// Runs `body` in one transaction that is on the disk when this returns (`durable`), or that a power cut
  /// may undo as a whole. Nested calls join the outer transaction.
  void Write(const std::function<void()>& body, bool durable = true);
  /// A number that changes when another connection has changed the TV.
  int64_t DataVersion();

  /// Throws the last error of the connection, named with the file.
  [[noreturn]] void Fail(int code) const;

 private:
  friend class Query;
  explicit Store(const std::string& path);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  void Check();
  void SetDurable(bool durable);
  void ForgetVolatileKeys();
  sqlite3_stmt* Prepared(std::string_view sql);

  std::string m_path;
  sqlite3* m_db = nullptr;
  std::recursive_mutex m_mutex;
  std::unordered_map<std::string, sqlite3_stmt*> m_statements;
  int m_depth = 0;
  bool m_durable = true;
};

/// Bytes that are no text.
struct Blob {
  std::string_view bytes;
};

/// One run of a prepared statement; holds the connection while it lives.
class Query {
 public:
  template <class... Values>
  explicit Query(std::string_view sql, const Values&... values) : Query(Store::Get(), sql) {
    (Bind(values), ...);
  }
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  /// Binds the next parameter. Texts and bytes are copied.
  Query& Bind(int value) { return Bind(static_cast<int64_t>(value)); }
  Query& Bind(int64_t value);
  Query& Bind(double value);
  Query& Bind(std::string_view value);
  Query& Bind(const char* value) { return Bind(std::string_view(value)); }
  Query& Bind(const std::string& value) { return Bind(std::string_view(value)); }
  Query& Bind(const std::optional<Blob>& value);
  Query& Bind(std::nullptr_t);

  /// Steps to the next row; false when there is none.
  bool Row();
  /// Runs a statement to its end; returns the number of rows that it changed.
  int Run();
  /// Runs it once more with other parameters, whose texts and bytes are not copied.
  template <class... Values>
  int RunWith(const Values&... values) {
    Rewind();
    (Bind(values), ...);
    return Run();
  }

  int64_t Int(int column) const;
  std::string Text(int column) const;
  /// Nothing where the column is null.
  std::optional<std::string> Bytes(int column) const;
  bool IsNull(int column) const;

 private:
  Query(Store& store, std::string_view sql);
  /// What is bound from here on outlives the run.
  void Rewind();

  Store& m_store;
  std::unique_lock<std::recursive_mutex> m_lock;
  sqlite3_stmt* m_statement;
  bool m_owned = false;
  bool m_copies = true;
  int m_bound = 0;
};

}  // namespace desktop
