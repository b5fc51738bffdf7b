// One row of a list: its texts and states.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ItemStatus.h"

class SimpleElementaryNode {
 public:
  virtual ~SimpleElementaryNode() = default;

  /// The text under a key; empty when there is none.
  std::string GetContent(std::string_view key) const;
  /// `key` is kept as it is and has to last.
  void SetContent(std::string_view key, std::string text);

 protected:
  const std::string* t_Find(std::string_view key) const;

 private:
  /// Few enough to be looked through, and thousands of rows have some.
  std::vector<std::pair<std::string_view, std::string>> m_contents;
};

enum ITEM_SHOW_STATUS {
  ITEM_SHOW_INVISIBLE = 1,
  ITEM_SHOW_VISIBLE = 2,
  /// Invisible, with a name that was fetched.
  ITEM_SHOW_INVISIBLE_NAMED = 3,
};

class ElementaryNode : public SimpleElementaryNode {
 public:
  static constexpr const char* kTitle = "MainListTitle";
  static constexpr const char* kValue = "MainListValue";
  static constexpr const char* kDisplayValue = "MainListDisplayValue";
  /// What a choice row shows in place of the display value.
  static constexpr const char* kChoice = "SubListItemDisPlayValue";

  /// What stands before the texts: the kind of object, and what it shows.
  static constexpr const char* kContentStyle = "ContentStyle";
  static constexpr const char* kContent = "Content";

  explicit ElementaryNode(std::string menuID) : m_menuID(std::move(menuID)) {}

  const std::string& GetNodeMenuItemId() const { return m_menuID; }
  ITEM_SHOW_STATUS GetShowStatus() const { return m_showStatus; }
  void SetShowStatus(ITEM_SHOW_STATUS status) { m_showStatus = status; }
  bool IsShown() const { return m_showStatus != ITEM_SHOW_INVISIBLE && m_showStatus != ITEM_SHOW_INVISIBLE_NAMED; }
  ITEM_STATUS GetStatus() const { return m_status; }
  void SetStatus(ITEM_STATUS status) { m_status = status; }
  bool GetIgnoreSelect() const { return m_ignoreSelect; }
  void SetIgnoreSelect(bool ignore) { m_ignoreSelect = ignore; }

  /// Into caller buffers of 512 characters, at most 511 filled.
  void GetNodeDisplayName(char* out) const;
  void GetNodeValue(char* value, char* displayValue) const;

 private:
  std::string m_menuID;
  ITEM_SHOW_STATUS m_showStatus = ITEM_SHOW_INVISIBLE;
  ITEM_STATUS m_status = ITEM_STATUS_ENABLED;
  /// Set by the list before it selects a row itself.
  bool m_ignoreSelect = false;
};
