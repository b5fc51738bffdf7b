// Text helpers of the platform.
#pragma once

#include <cstddef>

class CStringUtil {
 public:
  /// Fills the placeholders `<<A>>`, `<<B>>`, `<<C>>`, `<<D>>` of a translated `format` with up to four
  /// texts (null ones leave their placeholder empty) into `out` (`size` bytes with the terminator).
  /// A result that does not fit is cut at a character boundary. False for a null `out` or `format`.
  static bool CombinateStrings(char* out, size_t size, const char* format, const char* s1, const char* s2 = nullptr,
                               const char* s3 = nullptr, const char* s4 = nullptr);

  /// `length` UTF-16 code units as UTF-8 into `out`, cut at a character boundary to `size` bytes with the terminator.
  /// Half of a pair alone becomes U+FFFD; a null unit ends the text. False for a null `out` or `units`.
  static bool UnicodeToUtf8(char* out, size_t size, const char16_t* units, int length);
};
