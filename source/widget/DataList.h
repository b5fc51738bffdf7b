// The rows of one parent item, in order.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DataElementary.h"

/// One page row as its window provides it.
struct DataInfo {
  std::string displayName;
  std::string value;
  /// In place of the value; empty where the value itself is shown.
  std::string displayValue;
  /// Of the row's own item; empty for the parent's.
  std::string id;
  /// Path of a picture before the texts; empty for none.
  std::string picture;
};

/// Who fills the page rows of a menu ID; process-wide through `Singleton`.
struct FuncEvents {
  std::map<std::string, std::function<void(std::vector<DataInfo>&)>> providers;
};

class DataList {
 public:
  enum LIST_TYPE { LIST_NONE = 0, LIST_CHOICES = 1, LIST_PAGE = 2 };

  virtual ~DataList() = default;

  /// Makes the rows by the item's list style; none for an item without a list.
  void Create(std::string menuID);
  /// Null outside the list. Owned by the list.
  ElementaryNode* GetNode(int index) const;
  int GetCount() const { return static_cast<int>(m_nodes.size()); }
  LIST_TYPE GetType() const { return m_type; }
  /// The row that is focused first: of choices the one that is set.
  int GetInitFocusIndex() const { return m_initFocus; }
  /// Asks the TV again which of the shown rows are enabled, or for their texts.
  void FetchEnableStatus();
  void FetchText();
  /// The same for one row.
  void FetchText(int index);
  void Destroy();

 private:
  void m_CreateChoices();
  void m_CreatePageRows();
  static std::unique_ptr<ElementaryNode> m_MakeElementaryNode(const std::string& value, const std::string& name,
                                                              LIST_TYPE type);
  static std::unique_ptr<ElementaryNode> m_MakeElementaryNode(const std::string& menuID, DataInfo&& info);
  bool m_EnableCheckAsync(int index) const;

  LIST_TYPE m_type = LIST_NONE;
  std::string m_parentMenuID;
  int m_initFocus = 0;
  std::vector<std::unique_ptr<ElementaryNode>> m_nodes;
};
