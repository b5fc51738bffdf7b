#define EFL_BETA_API_SUPPORT

#include "Reader.h"

#include <Efl_Core.h>
#include <Elementary.h>
#include <libintl.h>

#include <string>
#include <utility>

#include "Screen.h"
#include "Speech.h"
#include "string_util.h"

namespace desktop {

namespace {

/// A little more than the program takes to speak of what has just come up: what it says goes before.
constexpr double kDelaySeconds = 0.25;

/// What has the focus: an object, or a row of one.
struct Place {
  const Evas_Object* object = nullptr;
  Elm_Object_Item* row = nullptr;
  bool operator==(const Place&) const = default;
};

struct Reader {
  Ecore_Idle_Enterer* idle = nullptr;
  Ecore_Timer* timer = nullptr;
  Place place;
  /// How much had been said when the focus came there.
  size_t said = 0;
};

Reader g_reader;

bool IsA(const Eo* object, const char* type) { return std::string(type) == evas_object_type_get(object); }

std::string Translated(const char* id) { return dgettext("quirelle", id); }

Place PlaceNow() {
  Evas_Object* window = Window();
  Evas_Object* object = window ? elm_object_focused_object_get(window) : nullptr;
  if (!object || object == window) return {};
  return {object, IsA(object, "elm_genlist") ? elm_object_focused_item_get(object) : nullptr};
}

/// Name and state for the ear, joined by ", ".
std::string Described(const Eo* object) {
  const char* name = efl_access_object_i18n_name_get(object);
  const char* state = efl_access_object_description_get(object);
  std::string text = name ? name : "";
  if (state && *state) text += (text.empty() ? "" : ", ") + std::string(state);
  return text;
}

std::string Position(const Place& place) {
  char text[64] = {};
  CStringUtil::CombinateStrings(text, sizeof text, Translated("COM_SID_MIX_A_OF_B").c_str(),
                                std::to_string(elm_genlist_item_index_get(place.row)).c_str(),
                                std::to_string(elm_genlist_items_count(place.object)).c_str());
  return text;
}

std::string SentenceOf(const Place& place) {
  if (!place.object) return {};
  if (place.row) return Described(place.row) + ", " + Position(place);
  if (IsA(place.object, "elm_genlist")) return {};
  std::string text = Described(place.object);
  if (IsA(place.object, "elm_button")) text += ", " + Translated("TV_SID_BUTTON");
  return text;
}

Eina_Bool ReadCB(void*) {
  g_reader.timer = nullptr;
  // The row, or the object, may have gone meanwhile.
  if (PlaceNow() == g_reader.place && Spoken().size() == g_reader.said) Read(SentenceOf(g_reader.place));
  return ECORE_CALLBACK_CANCEL;
}

Eina_Bool LookCB(void*) {
  const Place place = PlaceNow();
  if (place == g_reader.place) return ECORE_CALLBACK_RENEW;
  Silence();
  g_reader.place = place;
  g_reader.said = Spoken().size();
  if (g_reader.timer) ecore_timer_del(g_reader.timer);
  g_reader.timer = ecore_timer_add(kDelaySeconds, ReadCB, nullptr);
  return ECORE_CALLBACK_RENEW;
}

}  // namespace

void StartReader() {
  if (IsVoiceOn()) g_reader.idle = ecore_idle_enterer_add(LookCB, nullptr);
}

void StopReader() {
  if (g_reader.timer) ecore_timer_del(g_reader.timer);
  if (g_reader.idle) ecore_idle_enterer_del(g_reader.idle);
  g_reader = {};
}

}  // namespace desktop
