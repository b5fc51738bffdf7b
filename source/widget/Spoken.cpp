// The toolkit counts what it tells other programs of its objects among what may still change.
#define EFL_BETA_API_SUPPORT

#include "Spoken.h"

#include <Efl_Core.h>
#include <Elementary.h>

#include "Translation.h"
#include "Utils.h"

namespace spoken {

std::string Joined(std::initializer_list<std::string> parts) {
  std::string sentence;
  for (const std::string& part : parts) {
    if (part.empty()) continue;
    if (!sentence.empty()) sentence += ", ";
    sentence += part;
  }
  return sentence;
}

std::string Items(int count) { return Filled("COM_SID_POPUP_WIDGET_SHOW_GUIDE", std::to_string(count)); }

std::string Button(const char* id) { return Joined({T(id), T("TV_SID_BUTTON")}); }

namespace {

std::string Text(const char* text) { return text ? text : ""; }

}  // namespace

void SetName(Evas_Object* object, const std::string& name) {
  if (!object) return;
  // The toolkit takes the name of an object for markup.
  const std::string markup = Utils::WrapMallocdString(elm_entry_utf8_to_markup(name.c_str()));
  efl_access_object_i18n_name_set(object, markup.c_str());
}

void SetState(Evas_Object* object, const std::string& state) {
  if (object) efl_access_object_description_set(object, state.c_str());
}

std::string NameOf(const Evas_Object* object) {
  return object ? Text(efl_access_object_i18n_name_get(object)) : std::string();
}

std::string StateOf(const Evas_Object* object) {
  return object ? Text(efl_access_object_description_get(object)) : std::string();
}

void SetRowName(Elm_Object_Item* row, const std::string& name) {
  if (row) efl_access_object_i18n_name_set(row, name.c_str());
}

void SetRowState(Elm_Object_Item* row, const std::string& state) {
  if (row) efl_access_object_description_set(row, state.c_str());
}

}  // namespace spoken
