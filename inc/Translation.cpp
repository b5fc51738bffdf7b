#include "Translation.h"

#include <libintl.h>

#include "string_util.h"

namespace {

constexpr const char* kTextDomain = "quirelle";
constexpr size_t kTextSize = 512;

}  // namespace

std::string T(const char* id) { return id && *id ? dgettext(kTextDomain, id) : ""; }

std::string Filled(const char* id, const std::string& first, const std::string& second) {
  char text[kTextSize] = {};
  CStringUtil::CombinateStrings(text, sizeof text, T(id).c_str(), first.c_str(), second.c_str());
  return text;
}
