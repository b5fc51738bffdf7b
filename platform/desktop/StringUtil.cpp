#include <cstring>
#include <string>

#include "string_util.h"

namespace {

/// Length of `text` cut to `most` bytes without splitting a UTF-8 character.
size_t CutAtCharacter(const std::string& text, size_t most) {
  if (text.size() <= most) return text.size();
  const auto continues = [&](size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80; };
  // No character is longer than four bytes: more of these belong to none.
  size_t start = most;
  while (start > 0 && most - start < 3 && continues(start)) --start;
  return continues(start) ? most : start;
}

}  // namespace

bool CStringUtil::CombinateStrings(char* out, size_t size, const char* format, const char* s1, const char* s2,
                                   const char* s3, const char* s4) {
  if (!out || size == 0 || !format) return false;
  const char* texts[] = {s1, s2, s3, s4};
  std::string result;
  for (const char* at = format; *at;) {
    const bool placeholder = strncmp(at, "<<", 2) == 0 && at[2] >= 'A' && at[2] <= 'D' && strncmp(at + 3, ">>", 2) == 0;
    if (!placeholder) {
      result += *at++;
      continue;
    }
    if (const char* text = texts[at[2] - 'A']) result += text;
    at += 5;
  }
  const size_t length = CutAtCharacter(result, size - 1);
  memcpy(out, result.data(), length);
  out[length] = '\0';
  return true;
}
