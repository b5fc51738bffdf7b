// Keeps the value of a menu item around a preview, and stores or restores it.
#pragma once

#include <memory>
#include <string>

class CItemBehavior {
 public:
  virtual ~CItemBehavior() = default;
  virtual bool Create(std::string itemID);
  virtual void Destroy();
  virtual void RestoreItem();
  virtual void SetItemData();
  virtual void SaveCurrentValue(std::string value);
};

/// Of an item whose values stand in a list: the value that was there at first, and the one shown last.
class CSublistItemBehavior : public CItemBehavior {
 public:
  bool Create(std::string itemID) override;
  void RestoreItem() override;
  /// Writes the value shown last, unless it is the one that was there at first.
  void SetItemData() override;
  void SaveCurrentValue(std::string value) override;

 private:
  std::string m_itemID, m_initialValue, m_currentValue;
};

class CItemBehaviorManager {
 public:
  void Create(const std::string& itemID);
  void Destroy();
  void DoBehaviorAfterItemFocusChange(const std::string& value);
  void DoBehaviorAfterItemSelected();
  void DoBehaviorAfterViewHide();

 private:
  enum { ITEM_NONE = 0, ITEM_SUBLIST = 1 };
  enum { PREVIEW_NONE = 0, PREVIEW_SHOWN = 1, PREVIEW_SELECTED = 2 };

  int m_type = ITEM_NONE;
  bool m_dataSet = false;
  std::unique_ptr<CItemBehavior> m_pBehavior;
  std::string m_itemID;
  int m_preview = PREVIEW_NONE;
};
