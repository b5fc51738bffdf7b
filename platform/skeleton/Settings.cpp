// What the set is and what it is set to: settings store, system information, settings tree, factory.
#include "factory_api.h"
#include "settings_api.h"
#include "system_info.h"
#include "vconf.h"

// The settings store: 0, or -1 for a key that is missing or of another type; the output then stays as it is.

int vconf_get_int(const char* key, int* value) { return -1; }

int vconf_get_bool(const char* key, int* value) { return -1; }

/// A `malloc` copy for the caller, or null.
char* vconf_get_str(const char* key) { return nullptr; }

/// What was written survives a power cut once this returns 0, unless its key begins with "memory/".
int vconf_set_int(const char* key, int value) { return -1; }

int vconf_set_str(const char* key, const char* value) { return -1; }

// System information: 0, or a negative code; the output then stays as it is. Texts and arrays are `malloc` copies.

int system_info_get_value_int(system_info_key_e key, int* value) { return -1; }

int system_info_get_value_bool(system_info_key_e key, bool* value) { return -1; }

int system_info_get_value_string(system_info_key_e key, char** value) { return -1; }

int system_info_get_value_int_array(system_info_key_e key, _system_info_value_array* value) { return -1; }

int system_settings_get_value_int(system_settings_key_e key, int* value) { return -1; }

int system_info_get_custom_bool(const char* key, bool* value) { return -1; }

int system_info_get_custom_int(const char* key, int* value) { return -1; }

int system_info_get_custom_string(const char* key, char** value) { return -1; }

namespace {

/// The settings tree: false for an item that the set does not have; the outputs then stay as they are. Texts are in
/// the language of the set.
class Tree : public SettingsAPI {
 public:
  /// The displayed text of the value, and the value.
  bool GetItemValue(const std::string& id, std::string& name, std::string& value) override { return false; }

  bool GetItemDisplayName(const std::string& id, std::string& name) override { return false; }

  /// The choices in order: value and displayed name.
  bool GetItemDataList(const std::string& id, std::vector<std::pair<std::string, std::string>>& list) override {
    return false;
  }

  /// The IDs of the items below, in order.
  bool GetItemChildList(const std::string& id, std::vector<std::string>& children) override { return false; }

  /// Of a choice by its place, or of the item itself (-1).
  bool GetItemEnable(const std::string& id, bool& enabled, int index) override { return false; }

  bool GetItemVisible(const std::string& id, bool& visible, int index) override { return false; }

  /// 1 is success. "Up" and "Down" step through the choices, or by one where there are none.
  int SetItemValue(const std::string& id, const std::string& value, bool silent) override { return -1; }
};

}  // namespace

/// Never null.
SettingsAPI* SettingsAPI::Get() {
  static Tree tree;
  return &tree;
}

/// 1 is success.
int factory_update_region_by_country(int country) { return 0; }
