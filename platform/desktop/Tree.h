// Items of the settings tree whose values are not just stored there.
#pragma once

#include <optional>
#include <string>

namespace desktop {

/// Answers for the items of one kind.
struct ItemOwner {
  /// The item's text now; nothing for an item that is not its own, or whose text is stored in the tree.
  std::optional<std::string> (*text)(const std::string& id);
  /// True for an item that is not its own.
  bool (*isShown)(const std::string& id);
  /// Changes the item within the caller's transaction: whether the value is taken; nothing for an item that is not its
  /// own. "Up" and "Down" come as they are unless the item has choices.
  std::optional<bool> (*set)(const std::string& id, const std::string& value);
  /// How a value without a choice's name is shown; as it is for an item that is not its own. Null: all are.
  std::string (*displayed)(const std::string& id, const std::string& value) = nullptr;
};

/// From now on the tree asks this owner too; true, so that an owner can register itself.
bool AddItemOwner(const ItemOwner& owner);

}  // namespace desktop
