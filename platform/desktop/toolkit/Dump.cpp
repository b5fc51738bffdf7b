#define EFL_BETA_API_SUPPORT

#include "Dump.h"

#include <Efl_Core.h>
#include <Elementary.h>
#include <json/json.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "Application.h"
#include "Applications.h"
#include "Language.h"
#include "Screen.h"
#include "Speech.h"

namespace desktop {

namespace {

constexpr std::string_view kViewPrefix = "view:";
/// Texts whose tops are closer than this stand on one line.
constexpr int kSameLine = 16;

struct Rect {
  int x, y, w, h;
};

struct SeenText {
  Rect place;
  std::string text;
};

/// What one walk over the canvas has found.
struct Found {
  std::vector<std::string> stack;
  Evas_Object* topView = nullptr;
  std::vector<SeenText> texts;
  std::vector<Evas_Object*> checks, buttons, lists, rowChecks;
  Evas_Object* progress = nullptr;
};

bool IsA(const Evas_Object* object, const char* type) {
  const char* own = evas_object_type_get(object);
  return own && std::strcmp(own, type) == 0;
}

Rect PlaceOf(const Evas_Object* object) {
  Rect r{};
  evas_object_geometry_get(object, &r.x, &r.y, &r.w, &r.h);
  return r;
}

Rect Intersection(const Rect& a, const Rect& b) {
  const int x = std::max(a.x, b.x), y = std::max(a.y, b.y);
  return {x, y, std::min(a.x + a.w, b.x + b.w) - x, std::min(a.y + a.h, b.y + b.h) - y};
}

/// Whether anything of the object comes through its clippers.
bool IsSeen(const Evas_Object* object) {
  Rect left = PlaceOf(object);
  int a = 0;
  evas_object_color_get(object, nullptr, nullptr, nullptr, &a);
  for (const Evas_Object* clip = evas_object_clip_get(object); clip && a > 0; clip = evas_object_clip_get(clip)) {
    if (!evas_object_visible_get(clip)) return false;
    left = Intersection(left, PlaceOf(clip));
    evas_object_color_get(clip, nullptr, nullptr, nullptr, &a);
  }
  return a > 0 && left.w > 0 && left.h > 0;
}

std::string Plain(const char* markup) {
  if (!markup) return {};
  char* text = elm_entry_markup_to_utf8(markup);
  std::string plain = text ? text : "";
  free(text);
  return plain;
}

std::string TextOf(Evas_Object* object) {
  if (IsA(object, "text")) return evas_object_text_text_get(object) ? evas_object_text_text_get(object) : "";
  if (IsA(object, "textblock")) return Plain(evas_object_textblock_text_markup_get(object));
  return {};
}

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t\n") == std::string::npos; }

/// A button without a text is an arrow of a control.
bool HasWords(const Evas_Object* button) {
  const char* text = elm_object_text_get(button);
  return text && *text;
}

void TakeView(Evas_Object* object, Found& found) {
  const char* name = evas_object_name_get(object);
  if (!name || !std::string_view(name).starts_with(kViewPrefix)) return;
  found.stack.emplace_back(name + kViewPrefix.size());
  // Behind a layout there may still be popups, hidden.
  if (!found.topView || evas_object_visible_get(object)) found.topView = object;
}

void Walk(Evas_Object* object, Found& found, bool inList = false) {
  TakeView(object, found);
  if (!evas_object_visible_get(object)) return;
  if (IsA(object, "elm_genlist") && IsSeen(object)) found.lists.push_back(object);
  inList = inList || IsA(object, "elm_genlist");
  if (IsA(object, "elm_check")) (inList ? found.rowChecks : found.checks).push_back(object);
  if (IsA(object, "elm_button") && IsSeen(object) && HasWords(object)) found.buttons.push_back(object);
  if (IsA(object, "elm_progressbar") && !inList) found.progress = object;
  if (const std::string text = TextOf(object); !IsBlank(text) && IsSeen(object)) {
    found.texts.push_back({PlaceOf(object), text});
  }
  if (!efl_isa(object, EFL_CANVAS_GROUP_CLASS)) return;
  Eina_List* members = evas_object_smart_members_get(object);
  void* member = nullptr;
  EINA_LIST_FREE(members, member) Walk(static_cast<Evas_Object*>(member), found, inList);
}

Found LookAtScreen() {
  Found found;
  if (!Window()) return found;
  Evas* canvas = evas_object_evas_get(Window());
  for (Evas_Object* o = evas_object_bottom_get(canvas); o; o = evas_object_above_get(o)) {
    if (!evas_object_smart_parent_get(o)) Walk(o, found);
  }
  return found;
}

void SortForReading(std::vector<SeenText>& texts) {
  std::stable_sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) { return a.place.y < b.place.y; });
  const bool reversed = IsRightToLeft();
  for (auto line = texts.begin(); line != texts.end();) {
    const int top = line->place.y;
    const auto end = std::find_if(line, texts.end(), [&](const auto& t) { return t.place.y - top >= kSameLine; });
    std::stable_sort(line, end, [&](const auto& a, const auto& b) {
      return reversed ? a.place.x + a.place.w > b.place.x + b.place.w : a.place.x < b.place.x;
    });
    line = end;
  }
}

std::string NameOfCheck(const Evas_Object* check) { return Plain(efl_access_object_i18n_name_get(check)); }

/// Rows and spinners have their texts in parts that know no markup.
std::string Unmarked(const char* text) { return text ? text : ""; }

std::string TextOfRow(const Elm_Object_Item* row, const char* part) {
  return row ? Unmarked(elm_object_item_part_text_get(row, part)) : "";
}

/// What stands at the trailing edge of a row, whichever way the layout runs.
std::string ValueOfRow(const Elm_Object_Item* row) {
  for (const char* part : {"elm.text.1", "elm.text.1.rtl"}) {
    if (std::string value = TextOfRow(row, part); !value.empty()) return value;
  }
  return {};
}

Rect PlaceOfRow(Elm_Object_Item* row) {
  const Rect place = PlaceOf(elm_object_item_track(row));
  elm_object_item_untrack(row);
  return place;
}

bool Holds(const Rect& outer, const Rect& inner) {
  const int x = inner.x + inner.w / 2, y = inner.y + inner.h / 2;
  return x >= outer.x && x < outer.x + outer.w && y >= outer.y && y < outer.y + outer.h;
}

void AddRow(Json::Value& rows, Elm_Object_Item* row, const Rect& place, const Found& found) {
  Json::Value one;
  one["text"] = TextOfRow(row, "elm.text");
  one["value"] = ValueOfRow(row);
  one["enabled"] = elm_object_item_disabled_get(row) == EINA_FALSE;
  for (const Evas_Object* check : found.rowChecks) {
    if (!Holds(place, PlaceOf(check))) continue;
    one["on"] = elm_check_state_get(check) == EINA_TRUE;
    if (elm_object_disabled_get(check)) one["enabled"] = false;
  }
  rows.append(one);
}

/// The rows that are seen at least by half, from top to bottom.
Json::Value Rows(const Found& found) {
  Json::Value rows(Json::arrayValue);
  for (Evas_Object* list : found.lists) {
    Eina_List* realized = elm_genlist_realized_items_get(list);
    std::vector<std::pair<Rect, Elm_Object_Item*>> seen;
    void* data = nullptr;
    EINA_LIST_FREE(realized, data) {
      auto* row = static_cast<Elm_Object_Item*>(data);
      if (const Rect place = PlaceOfRow(row); Holds(PlaceOf(list), place)) seen.emplace_back(place, row);
    }
    std::stable_sort(seen.begin(), seen.end(), [](auto& a, auto& b) { return a.first.y < b.first.y; });
    for (const auto& [place, row] : seen) AddRow(rows, row, place, found);
  }
  return rows;
}

/// A layout has its title in a part of its own.
std::string TitleOf(Evas_Object* view) {
  if (!view) return {};
  return Plain(elm_object_part_text_get(view, IsA(view, "elm_popup") ? "title,text" : "elm.text.sliding"));
}

Json::Value Focus() {
  const Evas_Object* focused = Window() ? elm_object_focused_object_get(Window()) : nullptr;
  if (!focused || focused == Window()) return Json::nullValue;
  if (IsA(focused, "elm_check")) return NameOfCheck(focused);
  if (IsA(focused, "elm_genlist")) return TextOfRow(elm_object_focused_item_get(focused), "elm.text");
  if (IsA(focused, "elm_slider")) return Plain(elm_layout_text_get(focused, "elm.indicator"));
  // A spinner has the focus through something inside it.
  const Evas_Object* parent = elm_object_parent_widget_get(focused);
  if (parent && IsA(parent, "elm_spinner")) focused = parent;
  if (IsA(focused, "elm_spinner")) return Unmarked(elm_layout_text_get(focused, "elm.text"));
  return Plain(elm_object_text_get(focused));
}

Json::Value Progress(const Evas_Object* bar) {
  if (!bar) return Json::nullValue;
  return static_cast<int>(std::lround(elm_progressbar_value_get(bar) * 100));
}

Json::Value Checks(const Found& found) {
  Json::Value checks(Json::arrayValue);
  for (const Evas_Object* check : found.checks) {
    Json::Value one;
    one["name"] = NameOfCheck(check);
    one["on"] = elm_check_state_get(check) == EINA_TRUE;
    one["enabled"] = elm_object_disabled_get(check) == EINA_FALSE;
    checks.append(one);
  }
  return checks;
}

Json::Value Buttons(const Found& found) {
  Json::Value buttons(Json::arrayValue);
  for (const Evas_Object* button : found.buttons) {
    Json::Value one;
    one["text"] = Plain(elm_object_text_get(button));
    one["enabled"] = elm_object_disabled_get(button) == EINA_FALSE;
    buttons.append(one);
  }
  return buttons;
}

Json::Value Launched() {
  Json::Value launched(Json::arrayValue);
  for (const auto& launch : OwnLaunches()) {
    Json::Value one;
    one["app"] = launch.application;
    one["extra"] = Json::objectValue;
    for (const auto& [key, value] : launch.extra) one["extra"][key] = value;
    launched.append(one);
  }
  return launched;
}

template <class Texts>
Json::Value Array(const Texts& texts) {
  Json::Value array(Json::arrayValue);
  for (const auto& text : texts) array.append(text);
  return array;
}

}  // namespace

Json::Value DumpScreen() {
  Found found = LookAtScreen();
  SortForReading(found.texts);
  Json::Value dump;
  dump["stack"] = Array(found.stack);
  dump["title"] = TitleOf(found.topView);
  dump["texts"] = Json::arrayValue;
  for (const SeenText& seen : found.texts) dump["texts"].append(seen.text);
  dump["rows"] = Rows(found);
  dump["checks"] = Checks(found);
  dump["buttons"] = Buttons(found);
  dump["focus"] = Focus();
  dump["progress"] = Progress(found.progress);
  dump["spoken"] = Array(Spoken());
  dump["launched"] = Launched();
  dump["exited"] = Application::Current() && Application::Current()->HasExited();
  return dump;
}

void SaveDump(const std::string& path) {
  Json::StreamWriterBuilder builder;
  builder["indentation"] = "  ";
  builder["emitUTF8"] = true;
  const std::string text = Json::writeString(builder, DumpScreen()) + "\n";
  if (path == "-") {
    std::cout << text << std::flush;
    return;
  }
  std::ofstream file(path);
  file << text << std::flush;
  if (!file) throw std::runtime_error(path + ": " + std::strerror(errno));
}

}  // namespace desktop
