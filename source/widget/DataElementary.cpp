#include "DataElementary.h"

#include <cstdio>

#include "Log.h"

namespace {

constexpr size_t kBufferSize = 512;

}  // namespace

std::string SimpleElementaryNode::GetContent(const std::string& key) const {
  const auto found = t_contents.find(key);
  return found == t_contents.end() ? std::string() : found->second;
}

void ElementaryNode::GetNodeDisplayName(char* out) const {
  snprintf(out, kBufferSize, "%s", GetContent(kTitle).c_str());
  LOG_DEBUG("GetNodeDisplayName is [%s]", out);
}

void ElementaryNode::GetNodeValue(char* value, char* displayValue) const {
  const bool choice = t_contents.contains(kChoice);
  snprintf(value, kBufferSize, "%s", GetContent(kValue).c_str());
  snprintf(displayValue, kBufferSize, "%s", GetContent(choice ? kChoice : kDisplayValue).c_str());
}
