// The rows of the settings tree that an installer sets: the transponder that the user defines, which the settings store
// keeps, the longitudes of the user's satellites, and the reset of it all.
#include <libintl.h>

#include <algorithm>
#include <iterator>

#include "Installation.h"
#include "Store.h"
#include "Text.h"
#include "Tree.h"

namespace desktop {

namespace {

#define TRANSPONDER_KEY "db/menu/broadcasting/channel-settings/satellite-system/user-defined-transponder/"
constexpr const char* kUnset = "----";
constexpr int kUnsetNumber = -1;

/// A number that stands in the settings store.
struct NumberItem {
  const char* id;
  const char* key;
  int unit;         ///< of the stored number in one of the shown one
  int least, most;  ///< for an item without choices
  const char* suffix;
};

constexpr NumberItem kNumbers[] = {
    {"user-defined-transponder-frequency", TRANSPONDER_KEY "frequency", 1000, 10700, 12750, " MHz"},
    {"user-defined-transponder-symbolrate", TRANSPONDER_KEY "symbolrate", 1, 1, 50000, " KS/s"},
    {"user-defined-transponder-polarity", TRANSPONDER_KEY "polarity", 1, 0, -1, ""},
};

const NumberItem* FindNumber(const std::string& id) {
  const auto* found =
      std::find_if(std::begin(kNumbers), std::end(kNumbers), [&](const auto& item) { return item.id == id; });
  return found == std::end(kNumbers) ? nullptr : found;
}

bool HasChoices(const NumberItem& item) { return item.most < item.least; }

bool IsAllowed(const NumberItem& item, int64_t number) {
  if (!HasChoices(item)) return number >= item.least && number <= item.most;
  return Query("SELECT 1 FROM choice WHERE item = ? AND value = ?", item.id, std::to_string(number)).Row();
}

/// In the unit that is shown; nothing for what is unset, no number or no choice. Numbers that nobody could enter here
/// are shown all the same: they are tuned to.
std::optional<int64_t> Shown(const NumberItem& item) {
  Query q("SELECT value FROM setting WHERE key = ? AND type = 'int'", item.key);
  const auto stored = q.Row() ? ToNumber(q.Text(0)) : std::nullopt;
  if (!stored || *stored < 0 || *stored / item.unit < std::min(item.least, 1)) return {};
  if (HasChoices(item) && !IsAllowed(item, *stored)) return {};
  return *stored / item.unit;
}

std::string TextOf(const NumberItem& item) {
  const auto number = Shown(item);
  return number ? std::to_string(*number) + item.suffix : kUnset;
}

bool Keep(const NumberItem& item, int64_t number) {
  return Query("UPDATE setting SET value = ? WHERE key = ? AND type = 'int'", number, item.key).Run() > 0;
}

bool StoreShown(const NumberItem& item, int64_t number) {
  return IsAllowed(item, number) && Keep(item, number * item.unit);
}

/// One step on from what is shown; the first one from nothing.
bool Step(const NumberItem& item, int step) {
  const auto number = Shown(item);
  return StoreShown(item, number ? *number + step : item.least);
}

/// Takes a number with its unit or without.
bool SetNumber(const NumberItem& item, const std::string& value) {
  // What is shown may be less exact than what is stored.
  if (value == TextOf(item)) return true;
  if (value == kUnset) return Keep(item, kUnsetNumber);
  if (value == "Up" || value == "Down") return Step(item, value == "Up" ? 1 : -1);
  const std::string_view suffix = item.suffix;
  const auto number = ToNumber(value.ends_with(suffix) ? value.substr(0, value.size() - suffix.size()) : value);
  return number && StoreShown(item, *number);
}

/// 1 to 4; 0 for an item of something else.
int UserSatellite(const std::string& id) {
  for (int number = 1; number <= kUserSatellites; ++number) {
    if (id == UserSatelliteItem(number)) return number;
  }
  return 0;
}

bool SetLongitude(int number, const std::string& value) {
  const auto position = ParseLongitude(value);
  if (position) MoveUserSatellite(number, *position, value);
  return position.has_value();
}

std::optional<std::string> Text(const std::string& id) {
  const NumberItem* item = FindNumber(id);
  if (!item) return {};
  return TextOf(*item);
}

bool IsShown(const std::string&) { return true; }

std::optional<bool> Set(const std::string& id, const std::string& value) {
  if (const NumberItem* item = FindNumber(id)) return SetNumber(*item, value);
  if (const int number = UserSatellite(id)) return SetLongitude(number, value);
  if (id != "reset-all-settings-satellite") return {};
  if (value != "1") return false;
  ResetInstallation();
  return true;
}

/// East and west in the language of the TV.
std::string Displayed(const std::string& id, const std::string& value) {
  if (UserSatellite(id) == 0 || !ParseLongitude(value)) return value;
  const size_t letter = value.size() - 1;
  return value.substr(0, letter) + dgettext("quirelle", value.c_str() + letter);
}

const bool g_registered = AddItemOwner({Text, IsShown, Set, Displayed});

}  // namespace

}  // namespace desktop
