#include "DataList.h"

#include <string_view>

#include "DataProvider.h"
#include "Log.h"
#include "WrapPatterns.h"
#include "settings_api.h"

namespace {

constexpr size_t kBufferSize = 512;

struct StyleType {
  std::string_view style;
  DataList::LIST_TYPE type;
};

constexpr StyleType kStyleTypes[] = {
    {"popup.transfer", DataList::LIST_PAGE},
    {"popup.satellite", DataList::LIST_PAGE},
    {"weakhistorywindow", DataList::LIST_PAGE},
    {"ctxpopup.bottom", DataList::LIST_CHOICES},
    {"ctxpopup.bottom.shortcut", DataList::LIST_CHOICES},
    {"ctxpopup", DataList::LIST_CHOICES},
};

}  // namespace

void DataList::Create(std::string menuID) {
  LOG_INFO("strMenuID is [ %s ]", menuID.c_str());
  m_parentMenuID = std::move(menuID);
  char style[kBufferSize] = {};
  CMenuDataProvider::GetItemSettingsUIStyle(m_parentMenuID.c_str(), style);
  for (const StyleType& entry : kStyleTypes) {
    if (entry.style == style) m_type = entry.type;
  }
  switch (m_type) {
    case LIST_CHOICES:
      return m_CreateChoices();
    case LIST_PAGE:
      return m_CreatePageRows();
    case LIST_NONE:
      LOG_DEBUG("other case");
  }
}

void DataList::m_CreateChoices() {
  char name[kBufferSize] = {}, value[kBufferSize] = {};
  CMenuDataProvider::GetItemValue(m_parentMenuID.c_str(), name, value);
  std::vector<std::pair<std::string, std::string>> choices;
  SettingsAPI::Get()->GetItemDataList(m_parentMenuID, choices);
  for (const auto& [first, second] : choices) {
    LOG_DEBUG("First[%s],Second[%s]", first.c_str(), second.c_str());
    if (first == value) m_initFocus = GetCount();
    m_nodes.push_back(m_MakeElementaryNode(first, second, m_type));
  }
}

void DataList::m_CreatePageRows() {
  const auto& providers = Singleton<FuncEvents>::GetInstance()->providers;
  const auto provider = providers.find(m_parentMenuID);
  if (provider == providers.end()) return;
  std::vector<DataInfo> rows;
  provider->second(rows);
  LOG_INFO(" pDataVec size: [ %zu ] ", rows.size());
  m_nodes.reserve(rows.size());
  for (DataInfo& row : rows) m_nodes.push_back(m_MakeElementaryNode(m_parentMenuID, std::move(row)));
}

std::unique_ptr<ElementaryNode> DataList::m_MakeElementaryNode(const std::string& value, const std::string& name,
                                                               LIST_TYPE) {
  auto node = std::make_unique<ElementaryNode>(value);
  node->SetShowStatus(ITEM_SHOW_VISIBLE);
  node->SetContent(ElementaryNode::kTitle, name);
  node->SetContent(ElementaryNode::kValue, value);
  node->SetContent(ElementaryNode::kChoice, name);
  return node;
}

std::unique_ptr<ElementaryNode> DataList::m_MakeElementaryNode(const std::string& menuID, DataInfo&& info) {
  if (info.id.empty()) info.id = menuID;
  auto node = std::make_unique<ElementaryNode>(std::move(info.id));
  node->SetShowStatus(ITEM_SHOW_VISIBLE);
  node->SetContent(ElementaryNode::kTitle, std::move(info.displayName));
  node->SetContent(ElementaryNode::kValue, std::move(info.value));
  node->SetContent(ElementaryNode::kDisplayValue, std::move(info.displayValue));
  if (!info.picture.empty()) {
    node->SetContent(ElementaryNode::kContentStyle, "elm_image");
    node->SetContent(ElementaryNode::kContent, std::move(info.picture));
  }
  return node;
}

ElementaryNode* DataList::GetNode(int index) const {
  if (index >= 0 && index < GetCount()) return m_nodes[static_cast<size_t>(index)].get();
  LOG_DEBUG("nIndex : %d,vList.size : %zu", index, m_nodes.size());
  return nullptr;
}

bool DataList::m_EnableCheckAsync(int index) const {
  if (m_type != LIST_CHOICES) {
    return CMenuDataProvider::GetItemEnable(m_nodes[static_cast<size_t>(index)]->GetNodeMenuItemId().c_str(), false);
  }
  // A choice is no item of the tree: its item answers for it.
  bool enabled = false;
  return SettingsAPI::Get()->GetItemEnable(m_parentMenuID, enabled, index) && enabled;
}

void DataList::FetchEnableStatus() {
  for (int i = 0; i < GetCount(); ++i) {
    ElementaryNode* node = GetNode(i);
    if (!node->IsShown()) {
      LOG_DEBUG(" INVISIBLE STATUS : %s", node->GetNodeMenuItemId().c_str());
      continue;
    }
    const bool enabled = m_EnableCheckAsync(i);
    LOG_DEBUG("Enable Check status : %d", enabled);
    node->SetStatus(enabled ? ITEM_STATUS_ENABLED : ITEM_STATUS_DISABLED);
  }
}

void DataList::FetchText() {
  for (int i = 0; i < GetCount(); ++i) FetchText(i);
}

void DataList::FetchText(int index) {
  ElementaryNode* node = GetNode(index);
  if (!node || !node->IsShown()) return;
  char name[kBufferSize] = {}, value[kBufferSize] = {}, title[kBufferSize] = {};
  const char* id = node->GetNodeMenuItemId().c_str();
  if (CMenuDataProvider::GetItemValue(id, name, value)) {
    node->SetContent(ElementaryNode::kValue, value);
    node->SetContent(ElementaryNode::kDisplayValue, name);
  }
  if (CMenuDataProvider::GetItemDisplayName(id, title)) node->SetContent(ElementaryNode::kTitle, title);
}

void DataList::Destroy() {
  m_nodes.clear();
  m_type = LIST_NONE;
  m_initFocus = 0;
}
