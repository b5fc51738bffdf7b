#include "Language.h"

#include <clocale>
#include <cstdlib>
#include <string>

#include "Store.h"

// gettext asks for translations again when this has changed.
extern "C" int _nl_msg_cat_cntr;

namespace desktop {

namespace {

std::string Setting(const char* key) {
  Query q("SELECT value FROM setting WHERE key = ? AND type = 'string'", key);
  return q.Row() ? q.Text(0) : std::string();
}

std::string Language() { return Setting("db/menu_widget/language"); }

}  // namespace

void UseLanguage() {
  const std::string language = Language();
  setenv("LANGUAGE", language.substr(0, language.find('.')).c_str(), 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  setlocale(LC_ALL, "C.UTF-8");
  ++_nl_msg_cat_cntr;
}

bool IsRightToLeft() {
  const std::string orientation = Setting("db/menu_widget/orientation");
  if (orientation == "rtl" || orientation == "ltr") return orientation == "rtl";
  const std::string language = Language().substr(0, 2);
  for (const char* rightToLeft : {"ar", "fa", "he", "ur"}) {
    if (language == rightToLeft) return true;
  }
  return false;
}

}  // namespace desktop
