// The one gate that every platform operation passes: it consults the faults, runs the operation, and
// writes the journal.
#pragma once

#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "Store.h"

namespace desktop {

/// One platform operation by its name, with the results that mean failure ("null" for a proxy, "false",
/// or numbers); the first is what it answers unless a fault says otherwise. Without any it cannot fail.
struct Operation {
  const char* name;
  std::vector<const char*> failures;
};

namespace op {
#define OPERATION(id, name, ...) extern const Operation id;
#include "operations.def"
#undef OPERATION
}  // namespace op

/// Every operation there is, in the order of the table.
const std::vector<const Operation*>& Operations();
/// Null for a name that no operation has.
const Operation* FindOperation(std::string_view name);

/// What one call says of itself in the journal.
class Entry {
 public:
  template <class... Values>
  explicit Entry(const Values&... values) {
    (Add(m_arguments, values), ...);
  }
  /// Something that the call gave back besides its result.
  template <class Value>
  void Out(const Value& value) {
    Add(m_outputs, value);
  }
  const std::string& Arguments() const { return m_arguments; }
  const std::string& Outputs() const { return m_outputs; }

 private:
  static void Add(std::string& to, std::string_view value);
  static void Add(std::string& to, const char* value);
  static void Add(std::string& to, const std::string& value) { Add(to, std::string_view(value)); }
  static void Add(std::string& to, bool value) { Add(to, std::string_view(value ? "true" : "false")); }
  template <class Number>
  requires(std::is_arithmetic_v<Number> || std::is_enum_v<Number>) static void Add(std::string& to, Number value) {
    if constexpr (std::is_enum_v<Number>) {
      Add(to, std::string_view(std::to_string(static_cast<long long>(value))));
    } else {
      Add(to, std::string_view(std::to_string(value)));
    }
  }

  std::string m_arguments, m_outputs;
};

class Gate {
 public:
  /// Runs `body(entry)` as the operation, or answers with its failure where a fault says so. A store that
  /// fails inside `body` is that failure too. `R` is an integer, an enum, `bool`, a pointer or a smart pointer.
  template <class R, class Body>
  static R Pass(const Operation& operation, Entry entry, Body&& body) {
    const std::lock_guard lock(Mutex());
    std::string failure;
    if (!Faulted(operation, failure)) {
      try {
        R result = body(entry);
        Record(operation, std::move(entry), ResultText(result));
        return result;
      } catch (const StoreError& error) {
        failure = operation.failures.empty() ? "" : operation.failures.front();
        Report(operation, error);
      }
    }
    Record(operation, std::move(entry), failure);
    return Failure<R>(failure);
  }

  /// For operations without a result.
  template <class Body>
  static void Run(const Operation& operation, Entry entry, Body&& body) {
    Pass<int>(operation, std::move(entry), [&](Entry& e) {
      body(e);
      return 0;
    });
  }

  /// Says that faults were set or healed over this process's own connection; those of others are noticed.
  static void FaultsChanged();

  /// Makes the n-th call (1 is the next) of an operation that can fail, whichever it is, fail once or from
  /// then on. 0 takes that back. Tests use it to fail each call of a run in turn.
  static void FailNth(int n, bool forGood);
  /// Whether the n-th call has come.
  static bool NthReached();
  /// Watches every call after it was made. Null takes the watcher away.
  using Watcher = std::function<void(const Operation&, const Entry&, const std::string& result)>;
  static void Watch(Watcher watcher);

  /// Whether the journal has lines that are not written yet.
  static bool HasPending();
  /// Writes the journal's pending lines in a transaction of their own.
  static void Flush();

 private:
  friend class Store;
  static std::recursive_mutex& Mutex();
  static bool Faulted(const Operation& operation, std::string& failure);
  static void Record(const Operation& operation, Entry entry, std::string result);
  static void Report(const Operation& operation, const StoreError& error);
  static void WritePending();
  static void PendingWritten();

  template <class R>
  static std::string ResultText(const R& result) {
    if constexpr (std::is_same_v<R, bool>) {
      return result ? "true" : "false";
    } else if constexpr (std::is_enum_v<R>) {
      return std::to_string(static_cast<long long>(result));
    } else if constexpr (std::is_arithmetic_v<R>) {
      return std::to_string(result);
    } else {
      return result ? "ok" : "null";
    }
  }
  template <class R>
  static R Failure(const std::string& text) {
    if constexpr (std::is_same_v<R, bool>) {
      return text == "true";
    } else if constexpr (std::is_arithmetic_v<R> || std::is_enum_v<R>) {
      return static_cast<R>(std::strtoll(text.c_str(), nullptr, 10));
    } else {
      return R(nullptr);
    }
  }
};

}  // namespace desktop
