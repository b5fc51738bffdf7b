// Settings-tree service: the TV's menu items by ID.
#pragma once

#include <string>
#include <utility>
#include <vector>

class SettingsAPI {
 public:
  virtual ~SettingsAPI() = default;
  /// Never null; owned by the platform.
  static SettingsAPI* Get();

  /// True on success; on failure (an item that the TV does not have, a failing service) the outputs are untouched.
  /// Texts are in the language of the TV. `name` is the displayed text of the value; both are empty for an item without
  /// a value.
  virtual bool GetItemValue(const std::string& id, std::string& name, std::string& value) = 0;
  virtual bool GetItemDisplayName(const std::string& id, std::string& name) = 0;
  /// The choices of an item, in order: value and displayed name.
  virtual bool GetItemDataList(const std::string& id, std::vector<std::pair<std::string, std::string>>& list) = 0;
  /// The IDs of the items below this one, in order.
  virtual bool GetItemChildList(const std::string& id, std::vector<std::string>& children) = 0;
  /// `index` picks one choice of the item, -1 the item itself.
  virtual bool GetItemEnable(const std::string& id, bool& enabled, int index) = 0;
  virtual bool GetItemVisible(const std::string& id, bool& visible, int index) = 0;
  /// 1 on success, anything else is failure. "Up" and "Down" step a value through the item's choices, or by one where
  /// it has none. `silent` keeps other programs from being told.
  virtual int SetItemValue(const std::string& id, const std::string& value, bool silent) = 0;
};
