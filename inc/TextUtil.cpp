#include "TextUtil.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

int NumberAtStart(const char* text) {
  return static_cast<int>(std::clamp<long>(std::strtol(text, nullptr, 10), INT_MIN, INT_MAX));
}

const char* Showable(const char* text) { return (text[0] & 0x80) && text[1] == '\0' ? "" : text; }

void CopyText(char* out, size_t size, std::string_view text) {
  size_t length = std::min(text.size(), size - 1);
  const auto continues = [&](size_t at) { return at < text.size() && (text[at] & 0xC0) == 0x80; };
  // No character is longer than four bytes: more of these belong to none.
  size_t start = length;
  while (start > 0 && length - start < 3 && continues(start)) --start;
  if (!continues(start)) length = start;
  text.copy(out, length);
  out[length] = '\0';
}
