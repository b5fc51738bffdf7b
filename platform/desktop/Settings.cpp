#include <climits>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <vector>

#include "Gate.h"
#include "Text.h"
#include "system_info.h"
#include "vconf.h"

namespace desktop {

namespace {

constexpr const char* kRead = "SELECT value FROM setting WHERE key = ? AND type = ?";

/// Throws StoreError for what is no number, which then cannot be read.
int ToInt(const char* key, const std::string& text) {
  const auto number = ToNumber(text);
  if (!number || *number < INT_MIN || *number > INT_MAX) {
    throw StoreError(Store::Get().Path() + ": " + key + " is no number: '" + OneLine(text) + "'");
  }
  return static_cast<int>(*number);
}

/// Calls `take(query)` with the key's row; false when there is none of that type.
template <class Take>
bool Read(const char* key, const char* type, Take take) {
  Query q(kRead, key, type);
  if (!q.Row()) return false;
  take(q);
  return true;
}

template <class Value>
int Set(const Operation& operation, const char* key, const char* type, const Value& value) {
  return Gate::Pass<int>(operation, Entry(key, value), [&](Entry&) {
    if (!key) return -1;
    // What is lost at power-off anyway needs no disk.
    const bool durable = std::strncmp(key, "memory/", 7) != 0;
    int changed = 0;
    Store::Get().Write(
        [&] {
          changed = Query(
                        "INSERT INTO setting VALUES (?1, ?2, ?3) ON CONFLICT (key) DO UPDATE SET value = ?3 "
                        "WHERE type = ?2",
                        key, type, value)
                        .Run();
        },
        durable);
    return changed > 0 ? 0 : -1;
  });
}

template <class Number>
int GetNumber(const Operation& operation, const char* key, const char* type, Number* value) {
  return Gate::Pass<int>(operation, Entry(key), [&](Entry& entry) {
    const bool found = key && Read(key, type, [&](Query& q) { *value = static_cast<Number>(ToInt(key, q.Text(0))); });
    if (found) entry.Out(*value);
    return found ? 0 : -1;
  });
}

template <class Key>
std::string NumberedKey(const char* family, Key key) {
  return std::string(family) + "/" + std::to_string(static_cast<int>(key));
}

int GetText(const Operation& operation, const char* key, char** value) {
  return Gate::Pass<int>(operation, Entry(key), [&](Entry& entry) {
    const bool found = key && Read(key, "string", [&](Query& q) { *value = strdup(q.Text(0).c_str()); });
    if (found) entry.Out(*value);
    return found ? 0 : -1;
  });
}

/// The numbers of a text such as "8 9 4".
std::vector<int> Numbers(const char* key, const std::string& text) {
  std::vector<int> numbers;
  std::istringstream stream(text);
  for (std::string word; stream >> word;) numbers.push_back(ToInt(key, word));
  return numbers;
}

}  // namespace

}  // namespace desktop

using namespace desktop;

int vconf_get_int(const char* key, int* value) { return GetNumber(op::vconf_get_int, key, "int", value); }

int vconf_get_bool(const char* key, int* value) { return GetNumber(op::vconf_get_bool, key, "bool", value); }

char* vconf_get_str(const char* key) {
  return Gate::Pass<char*>(op::vconf_get_str, Entry(key), [&](Entry& entry) -> char* {
    char* text = nullptr;
    if (key) Read(key, "string", [&](Query& q) { text = strdup(q.Text(0).c_str()); });
    if (text) entry.Out(text);
    return text;
  });
}

int vconf_set_int(const char* key, int value) { return Set(op::vconf_set_int, key, "int", value); }

int vconf_set_str(const char* key, const char* value) {
  return Set(op::vconf_set_str, key, "string", std::string(value ? value : ""));
}

int system_info_get_custom_bool(const char* key, bool* value) {
  return GetNumber(op::system_info_get_custom_bool, key, "bool", value);
}

int system_info_get_custom_int(const char* key, int* value) {
  return GetNumber(op::system_info_get_custom_int, key, "int", value);
}

int system_info_get_custom_string(const char* key, char** value) {
  return GetText(op::system_info_get_custom_string, key, value);
}

int system_info_get_value_int(system_info_key_e key, int* value) {
  return GetNumber(op::system_info_get_value_int, NumberedKey("system_info", key).c_str(), "int", value);
}

int system_info_get_value_bool(system_info_key_e key, bool* value) {
  return GetNumber(op::system_info_get_value_bool, NumberedKey("system_info", key).c_str(), "bool", value);
}

int system_info_get_value_string(system_info_key_e key, char** value) {
  return GetText(op::system_info_get_value_string, NumberedKey("system_info", key).c_str(), value);
}

int system_info_get_value_int_array(system_info_key_e key, _system_info_value_array* value) {
  const std::string name = NumberedKey("system_info", key);
  return Gate::Pass<int>(op::system_info_get_value_int_array, Entry(name), [&](Entry& entry) {
    std::vector<int> numbers;
    if (!Read(name.c_str(), "ints", [&](Query& q) { numbers = Numbers(name.c_str(), q.Text(0)); })) return -1;
    value->count = static_cast<int>(numbers.size());
    value->values = static_cast<int*>(calloc(numbers.size() + 1, sizeof(int)));
    std::copy(numbers.begin(), numbers.end(), value->values);
    entry.Out(value->count);
    return 0;
  });
}

int system_settings_get_value_int(system_settings_key_e key, int* value) {
  return GetNumber(op::system_settings_get_value_int, NumberedKey("system_settings", key).c_str(), "int", value);
}
