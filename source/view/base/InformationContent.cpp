#include "InformationContent.h"

#include <string_view>

#include "Content.h"
#include "Log.h"
#include "RowFocus.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "WrapPatterns.h"
#include "vconf.h"

namespace {

constexpr int kLeastHeight = 600;
constexpr const char* kLongLanguage = "xh_ZA.utf8";

}  // namespace

void PlaceInformation(Evas_Object* window, Evas_Object* layout) {
  Evas_Object* table = Utils::WidgetMinSet(layout, window, kInformationWidth, kLeastHeight, 1);
  evas_object_show(layout);
  evas_object_show(table);
  elm_object_part_content_set(window, theme::kContent, table);
}

Evas_Object* AddInformation(Evas_Object* window, const std::string& hint) {
  Evas_Object* layout = AddLayout(window, theme::kInformation);
  if (!layout) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  elm_object_part_text_set(layout, theme::kInformationText, hint.c_str());
  PlaceInformation(window, layout);
  return layout;
}

void AddInformationPad(Evas_Object* layout, const char* part, int height) {
  Evas_Object* pad = Utils::CreateRectTable(layout, kInformationWidth, height, 1);
  evas_object_show(pad);
  elm_object_part_content_set(layout, part, pad);
}

Evas_Object* AddFactList(Evas_Object* layout) {
  Evas_Object* list = layout ? elm_genlist_add(layout) : nullptr;
  if (!list) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  elm_object_scroll_item_loop_enabled_set(list, EINA_TRUE);
  KeepFocusForEar(list);
  // All of its rows are there; a zoomed height may be rounded by a pixel.
  elm_scroller_policy_set(list, ELM_SCROLLER_POLICY_OFF, ELM_SCROLLER_POLICY_OFF);
  return list;
}

bool NeedsAdjustFontSize() {
  return Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language")) == kLongLanguage;
}

char* FactText(const char* part, const std::string& title, const std::string& value, bool reversed) {
  if (std::string_view(part) == theme::kRowText) return elm_entry_utf8_to_markup(title.c_str());
  const char* valuePart = reversed ? theme::kRowValueTextReversed : theme::kRowValueText;
  return std::string_view(part) == valuePart ? elm_entry_utf8_to_markup(Showable(value.c_str())) : nullptr;
}
