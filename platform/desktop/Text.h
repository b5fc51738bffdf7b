// Texts as the desktop reads and writes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace desktop {

/// A name of the TV's store (UTF-8) for the service (UTF-16). Bytes that are no UTF-8 become U+FFFD; surrogates stay
/// what they are, so that a name that was broken on air comes out broken.
std::u16string ToUtf16(std::string_view text);

/// Whether a text is made of whole characters (UTF-8, no surrogates) that can be shown: no control characters.
bool IsPlainText(std::string_view text);
/// The same text with U+FFFD in place of what is no such character, and without what is more than `most` bytes.
std::string PlainText(std::string_view text, size_t most);

/// The decimal number that a text is, without anything before or behind it.
std::optional<int64_t> ToNumber(std::string_view text);

/// What is wrong, as one line: words that somebody typed may hold line feeds and worse.
std::string OneLine(std::string text);

}  // namespace desktop
