#include "CheckRow.h"

#include <string_view>

#include "TextUtil.h"
#include "ThemeNames.h"

namespace {

constexpr size_t kTextSize = 512;

}  // namespace

char* CheckRowText(const char* part, const std::string& name) {
  if (std::string_view(part) != theme::kRowText) return nullptr;
  char text[kTextSize];
  CopyText(text, sizeof text, name);
  return elm_entry_utf8_to_markup(Showable(text));
}

Evas_Object* AddRowBox(Evas_Object* list, const char* part, const char* style, bool on) {
  Evas_Object* box = std::string_view(part) == theme::kRowBox ? elm_check_add(list) : nullptr;
  if (!box) return nullptr;
  elm_object_style_set(box, style);
  elm_object_focus_allow_set(box, EINA_FALSE);
  evas_object_size_hint_aspect_set(box, EVAS_ASPECT_CONTROL_VERTICAL, 1, 1);
  elm_check_state_set(box, on);
  return box;
}

void ShowRowBox(Elm_Object_Item* row) { elm_object_item_signal_emit(row, theme::kItemIconTwoTexts, ""); }

Evas_Object* BoxOf(const Elm_Object_Item* row) {
  return row ? elm_object_item_part_content_get(row, theme::kRowBox) : nullptr;
}
