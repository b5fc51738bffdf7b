#include "Tree.h"

#include <libintl.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "Gate.h"
#include "settings_api.h"

namespace desktop {

namespace {

std::vector<ItemOwner>& Owners() {
  static std::vector<ItemOwner> owners;
  return owners;
}

/// What an item's owner says of its value; the stored one without an owner.
std::string ValueOf(const std::string& id, const std::string& stored) {
  for (const ItemOwner& owner : Owners()) {
    if (auto text = owner.text(id)) return *text;
  }
  return stored;
}

bool IsShown(const std::string& id) {
  return std::all_of(Owners().begin(), Owners().end(), [&](const ItemOwner& owner) { return owner.isShown(id); });
}

std::string Displayed(const std::string& id, std::string value) {
  for (const ItemOwner& owner : Owners()) {
    if (owner.displayed) value = owner.displayed(id, value);
  }
  return value;
}

using Choices = std::vector<std::pair<std::string, std::string>>;

/// Names in the tree are string IDs of the program's catalogue.
std::string Translated(const std::string& id) { return id.empty() ? id : dgettext("quirelle", id.c_str()); }

Choices ReadChoices(const std::string& id) {
  Choices choices;
  Query q("SELECT value, name FROM choice WHERE item = ? ORDER BY place", id);
  while (q.Row()) choices.emplace_back(q.Text(0), Translated(q.Text(1)));
  return choices;
}

bool ReadItem(const std::string& id, std::string& value, std::string& name) {
  Query q("SELECT value, name FROM item WHERE id = ?", id);
  if (!q.Row()) return false;
  value = q.Text(0);
  name = q.Text(1);
  return true;
}

/// The choice one step on; the last one is followed by the first, and so is a value that is none of them.
std::string SteppedChoice(const Choices& choices, const std::string& value, int step) {
  const auto count = static_cast<int>(choices.size());
  for (int i = 0; i < count; ++i) {
    if (choices[static_cast<size_t>(i)].first == value) {
      return choices[static_cast<size_t>((i + step + count) % count)].first;
    }
  }
  return choices[step > 0 ? 0 : choices.size() - 1].first;
}

std::string SteppedNumber(const std::string& value, int step) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  // There is no next one to a number that nobody can read.
  if (error == std::errc::result_out_of_range) return value;
  return std::to_string(int64_t{number} + step);
}

bool IsStep(const std::string& value) { return value == "Up" || value == "Down"; }

int StepOf(const std::string& value) { return value == "Up" ? 1 : -1; }

/// Whether an owner has taken the value; nothing for an item without one.
std::optional<bool> SetOwned(const std::string& id, const std::string& value) {
  for (const ItemOwner& owner : Owners()) {
    if (const auto taken = owner.set(id, value)) return taken;
  }
  return {};
}

bool SetStored(const std::string& id, const std::string& value) {
  return Query("UPDATE item SET value = ? WHERE id = ?", value, id).Run() > 0;
}

/// `value` becomes what the item then has.
bool Change(const std::string& id, std::string& value) {
  std::string stored, title;
  if (!ReadItem(id, stored, title)) return false;
  const Choices choices = IsStep(value) ? ReadChoices(id) : Choices();
  const std::string old = ValueOf(id, stored);
  if (!choices.empty()) value = SteppedChoice(choices, old, StepOf(value));
  if (const auto taken = SetOwned(id, value)) {
    ReadItem(id, stored, title);
    value = ValueOf(id, stored);
    return *taken;
  }
  if (IsStep(value)) value = SteppedNumber(old, StepOf(value));
  return SetStored(id, value);
}

class Tree : public SettingsAPI {
 public:
  bool GetItemValue(const std::string& id, std::string& name, std::string& value) override {
    return Gate::Pass<bool>(op::SettingsAPI_GetItemValue, Entry(id), [&](Entry& entry) {
      std::string text, title;
      if (!ReadItem(id, text, title)) return false;
      value = ValueOf(id, text);
      name = Displayed(id, value);
      for (const auto& [choice, displayed] : ReadChoices(id)) {
        if (choice == value) name = displayed;
      }
      entry.Out(value);
      return true;
    });
  }

  bool GetItemDisplayName(const std::string& id, std::string& name) override {
    return Gate::Pass<bool>(op::SettingsAPI_GetItemDisplayName, Entry(id), [&](Entry& entry) {
      std::string value, title;
      if (!ReadItem(id, value, title)) return false;
      name = Translated(title);
      entry.Out(name);
      return true;
    });
  }

  bool GetItemDataList(const std::string& id, Choices& list) override {
    return Gate::Pass<bool>(op::SettingsAPI_GetItemDataList, Entry(id), [&](Entry&) {
      std::string value, title;
      if (!ReadItem(id, value, title)) return false;
      list = ReadChoices(id);
      return true;
    });
  }

  bool GetItemChildList(const std::string& id, std::vector<std::string>& children) override {
    return Gate::Pass<bool>(op::SettingsAPI_GetItemChildList, Entry(id), [&](Entry&) {
      std::string value, title;
      if (!ReadItem(id, value, title)) return false;
      children.clear();
      Query q("SELECT id FROM item WHERE parent = ? ORDER BY place", id);
      while (q.Row()) children.push_back(q.Text(0));
      return true;
    });
  }

  bool GetItemEnable(const std::string& id, bool& enabled, int index) override {
    return GetFlag(op::SettingsAPI_GetItemEnable, id, enabled, index, "SELECT enabled FROM item WHERE id = ?",
                   "SELECT enabled FROM choice WHERE item = ? AND place = ?");
  }

  bool GetItemVisible(const std::string& id, bool& visible, int index) override {
    return GetFlag(op::SettingsAPI_GetItemVisible, id, visible, index, "SELECT visible FROM item WHERE id = ?",
                   "SELECT visible FROM choice WHERE item = ? AND place = ?");
  }

  int SetItemValue(const std::string& id, const std::string& value, bool silent) override {
    return Gate::Pass<int>(op::SettingsAPI_SetItemValue, Entry(id, value, silent), [&](Entry& entry) {
      bool changed = false;
      std::string taken = value;
      Store::Get().Write([&] { changed = Change(id, taken); });
      entry.Out(taken);
      return changed ? 1 : -1;
    });
  }

 private:
  static bool GetFlag(const Operation& operation, const std::string& id, bool& flag, int index, const char* ofItem,
                      const char* ofChoice) {
    return Gate::Pass<bool>(operation, Entry(id, index), [&](Entry& entry) {
      Query q(index < 0 ? ofItem : ofChoice, id);
      if (index >= 0) q.Bind(index);
      if (!q.Row()) return false;
      flag = q.Int(0) != 0 && (&operation != &op::SettingsAPI_GetItemVisible || IsShown(id));
      entry.Out(flag);
      return true;
    });
  }
};

}  // namespace

bool AddItemOwner(const ItemOwner& owner) {
  Owners().push_back(owner);
  return true;
}

}  // namespace desktop

SettingsAPI* SettingsAPI::Get() {
  static desktop::Tree tree;
  return &tree;
}
