#include <cstring>
#include <string>
#include <string_view>

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

constexpr char32_t kReplacement = 0xFFFD;

/// The character that begins at `at`, which moves past it.
char32_t DecodeUtf16(std::u16string_view units, size_t& at) {
  const char16_t unit = units[at++];
  if ((unit & 0xF800) != 0xD800) return unit;
  if (unit >= 0xDC00 || at == units.size() || (units[at] & 0xFC00) != 0xDC00) return kReplacement;
  return 0x10000 + ((unit & 0x3FFU) << 10) + (units[at++] & 0x3FFU);
}

void AppendUtf8(std::string& text, char32_t code) {
  const int more = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  constexpr unsigned first[] = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(first[more] | code >> (6 * more));
  for (int left = more; left-- > 0;) text += static_cast<char>(0x80 | (code >> (6 * left) & 0x3F));
}

}  // namespace

bool CStringUtil::UnicodeToUtf8(char* out, size_t size, const char16_t* units, int length) {
  if (!out || size == 0 || !units || length < 0) return false;
  std::u16string_view left(units, static_cast<size_t>(length));
  left = left.substr(0, left.find(u'\0'));
  std::string text;
  for (size_t at = 0; at < left.size();) AppendUtf8(text, DecodeUtf16(left, at));
  const size_t kept = CutAtCharacter(text, size - 1);
  memcpy(out, text.data(), kept);
  out[kept] = '\0';
  return true;
}

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
