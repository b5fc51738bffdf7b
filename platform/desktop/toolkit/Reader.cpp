#define EFL_BETA_API_SUPPORT

#include "Reader.h"

#include <Efl_Core.h>
#include <Elementary.h>
#include <libintl.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

const Eo* ObjectOf(const Place& place) { return place.row ? static_cast<const Eo*>(place.row) : place.object; }

std::string Translated(const char* id) { return dgettext("quirelle", id); }

Place PlaceNow() {
  Evas_Object* window = Window();
  Evas_Object* object = window ? elm_object_focused_object_get(window) : nullptr;
  if (!object || object == window) return {};
  return {object, IsA(object, "elm_genlist") ? elm_object_focused_item_get(object) : nullptr};
}

/// The toolkit takes the name of an object for markup, and the one of a row for a text.
std::string NameOf(const Place& place) {
  const char* name = efl_access_object_i18n_name_get(ObjectOf(place));
  if (!name || place.row) return name ? name : "";
  char* text = elm_entry_markup_to_utf8(name);
  std::string plain = text ? text : "";
  free(text);
  return plain;
}

/// Name and state for the ear, joined by ", ".
std::string Described(const Place& place) {
  const char* state = efl_access_object_description_get(ObjectOf(place));
  std::string text = NameOf(place);
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

/// The pieces between the commas of a text, without the blanks around them.
std::vector<std::string> Pieces(const std::string& text) {
  std::vector<std::string> pieces;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, ',');) {
    const size_t first = piece.find_first_not_of(' ');
    if (first != std::string::npos) pieces.push_back(piece.substr(first, piece.find_last_not_of(' ') + 1 - first));
  }
  return pieces;
}

/// Whether what the program has said since then names what has the focus; the state goes with the name.
bool IsNamed(const Place& place, size_t since) {
  const std::vector<std::string> name = Pieces(NameOf(place));
  if (name.empty()) return Spoken().size() > since;
  for (size_t i = since; i < Spoken().size(); ++i) {
    const std::vector<std::string> said = Pieces(Spoken()[i]);
    if (Spoken()[i].ends_with(name[0]) || std::find(said.begin(), said.end(), name[0]) != said.end()) return true;
  }
  return false;
}

std::string SentenceOf(const Place& place) {
  if (!place.object) return {};
  if (place.row) return Described(place) + ", " + Position(place);
  if (IsA(place.object, "elm_genlist")) return {};
  std::string text = Described(place);
  if (IsA(place.object, "elm_button")) text += ", " + Translated("TV_SID_BUTTON");
  return text;
}

Eina_Bool ReadCB(void*) {
  g_reader.timer = nullptr;
  // The row, or the object, may have gone meanwhile.
  if (PlaceNow() == g_reader.place && !IsNamed(g_reader.place, g_reader.said)) ReadNext(SentenceOf(g_reader.place));
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
