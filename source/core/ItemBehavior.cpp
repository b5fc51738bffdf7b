#include "ItemBehavior.h"

#include <string_view>

#include "DataProvider.h"
#include "Log.h"

namespace {

constexpr size_t kBufferSize = 1024;
constexpr std::string_view kSublistStyles[] = {"ctxpopup.bottom", "ctxpopup.bottom.shortcut", "ctxpopup"};

void Write(const std::string& itemID, const std::string& value) {
  if (CMenuDataProvider::SetItemValue(itemID.c_str(), value.c_str(), false) != 1) LOG_DEBUG("Set Item Failed");
}

bool IsSublist(const std::string& itemID) {
  char style[kBufferSize] = {};
  CMenuDataProvider::GetItemSettingsUIStyle(itemID.c_str(), style);
  for (const std::string_view sublist : kSublistStyles) {
    if (sublist == style) return true;
  }
  return false;
}

}  // namespace

// --- any item ------------------------------------------------------------------------------------

bool CItemBehavior::Create(std::string) {
  LOG_DEBUG("");
  return true;
}

void CItemBehavior::Destroy() { LOG_DEBUG(""); }

void CItemBehavior::RestoreItem() { LOG_DEBUG(""); }

void CItemBehavior::SetItemData() { LOG_DEBUG(""); }

void CItemBehavior::SaveCurrentValue(std::string) { LOG_DEBUG(""); }

// --- an item with a list -------------------------------------------------------------------------

bool CSublistItemBehavior::Create(std::string itemID) {
  char name[kBufferSize] = {}, value[kBufferSize] = {};
  m_itemID = std::move(itemID);
  const bool read = CMenuDataProvider::GetItemValue(m_itemID.c_str(), name, value);
  m_initialValue = m_currentValue = value;
  LOG_DEBUG("Init[%s]", value);
  return read;
}

void CSublistItemBehavior::SaveCurrentValue(std::string value) {
  m_currentValue = std::move(value);
  LOG_DEBUG("Save[%s]", m_currentValue.c_str());
}

void CSublistItemBehavior::SetItemData() {
  const bool changed = m_currentValue != m_initialValue;
  if (!changed) LOG_DEBUG("value not change");
  LOG_DEBUG(" SetITemData bFlagNeedToSetData: %d", changed);
  if (changed) Write(m_itemID, m_currentValue);
}

void CSublistItemBehavior::RestoreItem() {
  LOG_DEBUG("Restore to Initial");
  Write(m_itemID, m_initialValue);
}

// --- the manager ---------------------------------------------------------------------------------

void CItemBehaviorManager::Create(const std::string& itemID) {
  m_itemID = itemID;
  m_type = IsSublist(itemID) ? ITEM_SUBLIST : ITEM_NONE;
  if (m_type != ITEM_SUBLIST) {
    LOG_DEBUG("None ItemBehavior");
    return;
  }
  m_pBehavior = std::make_unique<CSublistItemBehavior>();
  if (m_pBehavior->Create(itemID)) return;
  LOG_DEBUG("Item Create Failed");
  m_pBehavior.reset();
}

void CItemBehaviorManager::Destroy() {
  if (m_pBehavior) m_pBehavior->Destroy();
  m_pBehavior.reset();
}

void CItemBehaviorManager::DoBehaviorAfterItemFocusChange(const std::string& value) {
  LOG_DEBUG("Current[%s]", value.c_str());
  if (m_type == ITEM_SUBLIST && m_pBehavior) m_pBehavior->SaveCurrentValue(value);
}

void CItemBehaviorManager::DoBehaviorAfterItemSelected() {
  if (!m_pBehavior) {
    LOG_DEBUG("No Defined");
    return;
  }
  m_pBehavior->SetItemData();
  m_preview = PREVIEW_SELECTED;
}

void CItemBehaviorManager::DoBehaviorAfterViewHide() {
  if (m_type == ITEM_SUBLIST && m_pBehavior && m_dataSet && m_preview == PREVIEW_SHOWN) m_pBehavior->RestoreItem();
}
