#include "Text.h"

#include <charconv>
#include <cstdint>

namespace desktop {

namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementUtf8 = "\xEF\xBF\xBD";

/// Length of the sequence that begins with this byte; 0 for a byte that begins none.
int SequenceLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

/// The code point that begins at `at`, which moves past it.
uint32_t Decode(std::string_view text, size_t& at) {
  const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
  const int length = SequenceLength(byte(at));
  uint32_t code = length > 1 ? byte(at) & (0x7F >> length) : byte(at);
  for (int i = 1; i < length; ++i) {
    if (at + i >= text.size() || (byte(at + i) & 0xC0) != 0x80) {
      ++at;
      return kReplacement;
    }
    code = code << 6 | (byte(at + i) & 0x3F);
  }
  at += length ? length : 1;
  constexpr uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  return length && code >= least[length] && code <= 0x10FFFF ? code : kReplacement;
}

bool IsControl(unsigned char byte) { return byte < ' ' || byte == 0x7F; }

bool IsSurrogate(uint32_t code) { return code >= 0xD800 && code < 0xE000; }

/// Moves past the character at `at`; false when it is none that can be shown.
bool PassPlain(std::string_view text, size_t& at) {
  const size_t begin = at;
  const uint32_t code = Decode(text, at);
  // U+FFFD itself is a character; what becomes one is not.
  const bool replaced = code == kReplacement && text.substr(begin, at - begin) != kReplacementUtf8;
  return !replaced && !IsSurrogate(code) && (code >= 0x80 || !IsControl(static_cast<unsigned char>(code)));
}

}  // namespace

bool IsPlainText(std::string_view text) {
  for (size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte >= 0x80 ? !PassPlain(text, at) : IsControl(byte)) return false;
    if (byte < 0x80) ++at;
  }
  return true;
}

std::string PlainText(std::string_view text, size_t most) {
  std::string plain;
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    const std::string_view next = PassPlain(text, at) ? text.substr(begin, at - begin) : kReplacementUtf8;
    if (plain.size() + next.size() > most) break;
    plain += next;
  }
  return plain;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  for (size_t at = 0; at < text.size();) {
    const uint32_t code = Decode(text, at);
    if (code < 0x10000) {
      units += static_cast<char16_t>(code);
    } else {
      units += static_cast<char16_t>(0xD7C0 + (code >> 10));
      units += static_cast<char16_t>(0xDC00 | (code & 0x3FF));
    }
  }
  return units;
}

std::optional<int64_t> ToNumber(std::string_view text) {
  int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

std::string OneLine(std::string text) {
  for (char& byte : text) {
    if (static_cast<unsigned char>(byte) < ' ' || byte == '\x7f') byte = '?';
  }
  return text;
}

}  // namespace desktop
