#include "DataElementary.h"

#include "Log.h"
#include "TextUtil.h"

namespace {

constexpr size_t kBufferSize = 512;
constexpr size_t kTextsOfARow = 3;

}  // namespace

const std::string* SimpleElementaryNode::t_Find(std::string_view key) const {
  for (const auto& [stored, text] : m_contents) {
    if (stored == key) return &text;
  }
  return nullptr;
}

std::string SimpleElementaryNode::GetContent(std::string_view key) const {
  const std::string* text = t_Find(key);
  return text ? *text : std::string();
}

void SimpleElementaryNode::SetContent(std::string_view key, std::string text) {
  for (auto& [stored, content] : m_contents) {
    if (stored != key) continue;
    content = std::move(text);
    return;
  }
  if (m_contents.empty()) m_contents.reserve(kTextsOfARow);
  m_contents.emplace_back(key, std::move(text));
}

void ElementaryNode::GetNodeDisplayName(char* out) const {
  CopyText(out, kBufferSize, GetContent(kTitle));
  LOG_DEBUG("GetNodeDisplayName is [%s]", out);
}

void ElementaryNode::GetNodeValue(char* value, char* displayValue) const {
  const bool choice = t_Find(kChoice) != nullptr;
  CopyText(value, kBufferSize, GetContent(kValue));
  CopyText(displayValue, kBufferSize, GetContent(choice ? kChoice : kDisplayValue));
}
