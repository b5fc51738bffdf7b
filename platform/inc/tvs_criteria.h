// Criteria: which records a service query looks for, what it gives back of each, and in which order.
#pragma once

#include <utility>
#include <vector>

#include "tvs_types.h"

/// Columns of services, satellites and transponders. Numbers that the program uses bare are these.
enum EColumn : int {
  COLUMN_CHANNEL_TYPE = 1,
  COLUMN_CHANNEL_NUMBER = 2,  ///< of a satellite service: its transponder's ID
  COLUMN_SERVICE_PROFILE = 3,
  COLUMN_FREQUENCY = 4,  ///< kHz
  COLUMN_BANDWIDTH = 5,  ///< EBandwidth
  COLUMN_MODULATION = 6,
  COLUMN_SYMBOL_RATE = 7,  ///< kBd
  COLUMN_DIGITAL = 9,      ///< 0 or 1
  COLUMN_SERVICE_ID = 12,  ///< 64 bits
  COLUMN_MAJOR = 13,
  COLUMN_MINOR = 14,
  COLUMN_PROGRAM_NUMBER = 15,
  COLUMN_CODE_RATE = 17,  ///< EDVBFECInner
  COLUMN_TRANSPORT_STREAM_ID = 18,
  COLUMN_LOCKED_MODE = 22,
  COLUMN_IS_DEFAULT = 30,
  COLUMN_FINE_TUNE_TYPE = 31,    ///< 1 tuned by hand, 6 reset
  COLUMN_FINE_TUNE_OFFSET = 32,  ///< one byte, 32 is the middle
  COLUMN_NETWORK_ID = 40,
  COLUMN_ORIGINAL_NETWORK_ID = 41,
  COLUMN_SATELLITE_ID = 71,
  COLUMN_SATELLITE_NAME = 72,
  COLUMN_SATELLITE_USER_DEFINED = 73,
  COLUMN_SATELLITE_POSITION = 74,
  COLUMN_TRANSPONDER_ID = 75,
  COLUMN_PACKAGE_ID = 81,
  COLUMN_PACKAGE_ORDER = 82,
  COLUMN_ANTENNA_MODE = 101,
  COLUMN_SERVICE_MODE = 102,
  COLUMN_BROADCAST_STANDARD = 103,
  COLUMN_FAVOURITE_1 = 111  ///< to 115: 1 where the service is in that favourite list
};

/// A copyable description of a query. A column that the records asked for do not have makes the query fail.
class TCCriteriaHelper : public TCMarshalable {
 public:
  struct Condition {
    int column;
    long long value;
    bool equal;
    bool operator==(const Condition&) const = default;
  };

  /// Fetched columns come in the order of the calls.
  void Fetch(int column) { m_fetched.push_back(column); }
  void Where(int column, unsigned long long value) {
    m_conditions.push_back({column, static_cast<long long>(value), true});
  }
  void WhereNot(int column, unsigned long long value) {
    m_conditions.push_back({column, static_cast<long long>(value), false});
  }
  /// Earlier calls count first. `ascending` 0 sorts the other way round.
  void OrderBy(int column, int ascending) { m_orders.emplace_back(column, ascending != 0); }

  const std::vector<int>& Fetched() const { return m_fetched; }
  const std::vector<Condition>& Conditions() const { return m_conditions; }
  const std::vector<std::pair<int, bool>>& Orders() const { return m_orders; }
  bool operator==(const TCCriteriaHelper& other) const {
    return m_fetched == other.m_fetched && m_conditions == other.m_conditions && m_orders == other.m_orders;
  }

 private:
  std::vector<int> m_fetched;
  std::vector<Condition> m_conditions;
  std::vector<std::pair<int, bool>> m_orders;
};

/// One service's fetched columns.
class TCServiceData : public TCMarshalable {
 public:
  /// The column's value, or null when it was not fetched or the service does not have it. Belongs to this.
  const long long* Find(int column) const {
    for (const auto& [number, value] : m_values) {
      if (number == column) return &value;
    }
    return nullptr;
  }
  void Set(int column, long long value) {
    for (auto& [number, old] : m_values) {
      if (number == column) {
        old = value;
        return;
      }
    }
    m_values.emplace_back(column, value);
  }
  void Clear() { m_values.clear(); }
  const std::vector<std::pair<int, long long>>& Values() const { return m_values; }

 private:
  std::vector<std::pair<int, long long>> m_values;
};

/// The services that a query found, fetched as they are walked.
class TCServiceList {
 public:
  virtual ~TCServiceList() = default;
  /// The next service, or null after the last. Belongs to the list until the next call.
  virtual const TCServiceData* Next() = 0;
};
