// Words for people.
#pragma once

#include <string>

/// The text of a string ID in the language of the menu; the ID itself when the catalogue lacks it, empty for none.
std::string T(const char* id);
inline std::string T(const std::string& id) { return T(id.c_str()); }

/// The text of a string ID with its placeholders filled, cut at 511 bytes between two characters.
std::string Filled(const char* id, const std::string& first, const std::string& second = {});
