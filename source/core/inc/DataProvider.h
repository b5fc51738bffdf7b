// The settings tree, item by item.
#pragma once

#include <string>

/// The displayed name of an item; empty for one that the TV does not have.
std::string DisplayName(const std::string& id);
/// The displayed text of its value.
std::string DisplayValue(const std::string& id);

class CMenuDataProvider {
 public:
  /// Caller buffers hold 512 characters; at most 511 are filled. All of these fail for a null ID.
  static bool GetItemValue(const char* id, char* valueName, char* value);
  static bool GetItemDisplayName(const char* id, char* name);
  static bool GetItemEnable(const char* id, bool async);
  static bool GetItemVisible(const char* id);
  /// -1 for a null ID or value, else the service's result.
  static int SetItemValue(const char* id, const char* value, bool flag);
  /// The list style of an item; "UnKnown" and false for an item that has none.
  static bool GetItemSettingsUIStyle(const char* id, char* style);
};
