// Texts that come from the TV: the numbers in them, and buffers that they may be too long for.
#pragma once

#include <cstddef>
#include <string_view>

/// The decimal number that a text begins with, 0 without one. What no int holds is the nearest that one does.
int NumberAtStart(const char* text);

/// What the toolkit can show of a text: not one byte alone that is no character, which it would look up outside of its
/// table of short texts.
const char* Showable(const char* text);

/// Copies at most `size` - 1 bytes and ends them. A character that would be cut is left out.
void CopyText(char* out, size_t size, std::string_view text);
