// Names between the TV's store (UTF-8) and the service (UTF-16).
#pragma once

#include <string>
#include <string_view>

namespace desktop {

/// Bytes that are no UTF-8 become U+FFFD; surrogates stay what they are, so that a name that was broken on
/// air comes out broken.
std::u16string ToUtf16(std::string_view text);

}  // namespace desktop
