// Where a channel list waits beside the one in use until it is whole.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "ListFormat.h"
#include "ListRecords.h"

namespace desktop {

struct ListDifference {
  int64_t added = 0, changed = 0, removed = 0;
  bool operator==(const ListDifference&) const = default;
};

/// Tables like the TV's in a database of their own, which is gone when this is, or when the process is. One at a time.
/// Throws StoreError.
class ListStage {
 public:
  ListStage();
  ~ListStage();
  ListStage(const ListStage&) = delete;
  ListStage& operator=(const ListStage&) = delete;

  void Add(const ListTable& table, const std::vector<ListValue>& record);
  /// This table of the list in use stays as it is.
  void Keep(const ListTable& table) { m_kept[IndexOf(table)] = true; }
  /// When everything has been added. Throws ListError where a record names another that is not there.
  void Finish();
  /// What would change in the list that is in use; of one table.
  ListDifference Compare(const ListTable& table) const;
  /// Replaces the list in use, inside a transaction of the caller's.
  void Swap() const;

 private:
  static size_t IndexOf(const ListTable& table) { return static_cast<size_t>(&table - kListFormatTables.data()); }
  void Prepare();
  void CopySchema(const char* type) const;

  std::array<std::unique_ptr<Statement>, kListTables> m_insert;
  std::array<bool, kListTables> m_kept{};
};

}  // namespace desktop
