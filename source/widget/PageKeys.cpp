#include "PageKeys.h"

#include <algorithm>
#include <string_view>

#include "Connections.h"
#include "KeyManager.h"
#include "RowFocus.h"

namespace {

constexpr const char* kUp = "XF86RaiseChannel";
constexpr const char* kDown = "XF86LowerChannel";

/// Whole rows, less the one that stays in sight.
int RowsOfPage(Evas_Object* genlist, Elm_Object_Item* row) {
  int height = 0, rowHeight = 0;
  elm_scroller_region_get(genlist, nullptr, nullptr, nullptr, &height);
  Evas_Object* place = elm_object_item_track(row);
  evas_object_geometry_get(place, nullptr, nullptr, nullptr, &rowHeight);
  elm_object_item_untrack(row);
  return rowHeight > 0 ? std::max(1, height / rowHeight - 1) : 1;
}

void Move(Evas_Object* genlist, bool up) {
  Elm_Object_Item* row = elm_object_focused_item_get(genlist);
  if (!row) return;
  const int last = static_cast<int>(elm_genlist_items_count(genlist)) - 1;
  const int index = elm_genlist_item_index_get(row) - 1, page = RowsOfPage(genlist, row);
  Elm_Object_Item* wanted =
      elm_genlist_nth_item_get(genlist, static_cast<unsigned>(std::clamp(index + (up ? -page : page), 0, last)));
  elm_genlist_item_show(wanted, ELM_GENLIST_ITEM_SCROLLTO_IN);
  elm_object_item_focus_set(wanted, EINA_TRUE);
}

void KeyPressed(void*, Evas*, Evas_Object* genlist, void* info) {
  auto& event = *static_cast<Evas_Event_Key_Down*>(info);
  const std::string_view key = event.keyname;
  if (key != kUp && key != kDown) return;
  HoldKey(event);
  Move(genlist, key == kUp);
}

}  // namespace

void PageWithChannelKeys(Evas_Object* genlist) {
  evas_object_event_callback_add(genlist, EVAS_CALLBACK_KEY_DOWN, KeyPressed, nullptr);
}

void TakePageKeys(bool take) {
  for (const char* key : {kUp, kDown}) (take ? CKeyManager::RegisterKey : CKeyManager::UnRegisterKey)(key);
}
