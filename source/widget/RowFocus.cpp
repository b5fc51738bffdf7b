#include "RowFocus.h"

#include "CheckRow.h"
#include "ThemeNames.h"
#include "Utils.h"

namespace {

constexpr const char* kRow = "focus-row";
constexpr const char* kPending = "focus-pending";

Elm_Object_Item* RowToFocus(Evas_Object* genlist) {
  const void* wanted = evas_object_data_get(genlist, kRow);
  // The row may be gone by now.
  for (Elm_Object_Item* row = elm_genlist_first_item_get(genlist); row && wanted;
       row = elm_genlist_item_next_get(row)) {
    if (row == wanted) return row;
  }
  return elm_genlist_first_item_get(genlist);
}

void FocusRow(void* data) {
  auto* genlist = static_cast<Evas_Object*>(data);
  if (elm_object_focused_object_get(genlist) != genlist || elm_object_focused_item_get(genlist)) return;
  Elm_Object_Item* row = RowToFocus(genlist);
  if (!row) return;
  if (Utils::IsRowMade(row)) {
    elm_object_item_focus_set(row, EINA_TRUE);
  } else {
    elm_genlist_item_show(row, ELM_GENLIST_ITEM_SCROLLTO_IN);
  }
}

/// A list takes the focus only when the handlers that are under way are through.
void FocusRowLater(Evas_Object* genlist) {
  if (evas_object_data_get(genlist, kPending)) return;
  const auto focus = [](void* data) {
    evas_object_data_del(static_cast<Evas_Object*>(data), kPending);
    FocusRow(data);
  };
  evas_object_data_set(genlist, kPending, ecore_job_add(focus, genlist));
}

void CanvasFocused(void* data, Evas*, void*) { FocusRowLater(static_cast<Evas_Object*>(data)); }

/// A box in a row stands on the row's ground, and no line lies above or below that.
void LookFocused(Elm_Object_Item* row, bool focused) {
  if (!row) return;
  const char* signal = focused ? theme::kActionFocus : theme::kActionUnfocus;
  if (Evas_Object* box = BoxOf(row)) elm_object_signal_emit(box, signal, theme::kSource);
  for (Elm_Object_Item* lined : {row, elm_genlist_item_prev_get(row)}) {
    if (lined) elm_object_item_signal_emit(lined, focused ? theme::kHideLine : theme::kShowLine, "");
  }
}

void ListFocused(void*, Evas_Object* genlist, void*) {
  FocusRow(genlist);
  Elm_Object_Item* row = elm_object_focused_item_get(genlist);
  Utils::ApplyItemHighlight(row, ITEM_STATUS_FOCUSED);
  LookFocused(row, true);
}

/// The toolkit leaves the row as it is: there would be two things that look focused.
void ListUnfocused(void*, Evas_Object* genlist, void*) {
  Elm_Object_Item* row = elm_object_focused_item_get(genlist);
  Utils::ApplyItemHighlight(row, ITEM_STATUS_UNFOCUSED);
  LookFocused(row, false);
}

/// A list without rows on screen can hand the focus to none: it does when they are made.
void RowMade(void*, Evas_Object* genlist, void* row) {
  Elm_Object_Item* focused = elm_object_focused_item_get(genlist);
  if (!focused && RowToFocus(genlist) == row) FocusRowLater(genlist);
  const bool above = focused && elm_genlist_item_prev_get(focused) == row;
  if (focused && (focused == row || above)) return LookFocused(focused, elm_object_focus_get(genlist));
  // What it looks like may be that of a row that went.
  elm_object_item_signal_emit(static_cast<Elm_Object_Item*>(row), theme::kShowLine, "");
}

void RowFocused(void*, Evas_Object* genlist, void* row) {
  evas_object_data_set(genlist, kRow, row);
  LookFocused(static_cast<Elm_Object_Item*>(row), true);
}

void RowUnfocused(void*, Evas_Object*, void* row) { LookFocused(static_cast<Elm_Object_Item*>(row), false); }

void ListGone(void*, Evas* canvas, Evas_Object* genlist, void*) {
  if (void* pending = evas_object_data_del(genlist, kPending)) ecore_job_del(static_cast<Ecore_Job*>(pending));
  evas_event_callback_del_full(canvas, EVAS_CALLBACK_CANVAS_FOCUS_IN, CanvasFocused, genlist);
  evas_event_callback_del_full(canvas, EVAS_CALLBACK_CANVAS_OBJECT_FOCUS_IN, CanvasFocused, genlist);
}

}  // namespace

void KeepRowFocus(Evas_Object* genlist) {
  evas_object_smart_callback_add(genlist, "focused", ListFocused, nullptr);
  evas_object_smart_callback_add(genlist, "unfocused", ListUnfocused, nullptr);
  evas_object_smart_callback_add(genlist, "item,focused", RowFocused, nullptr);
  evas_object_smart_callback_add(genlist, "item,unfocused", RowUnfocused, nullptr);
  evas_object_smart_callback_add(genlist, "realized", RowMade, nullptr);
  Evas* canvas = evas_object_evas_get(genlist);
  evas_event_callback_add(canvas, EVAS_CALLBACK_CANVAS_FOCUS_IN, CanvasFocused, genlist);
  // The list itself says nothing when an arrow key brings the focus from a button.
  evas_event_callback_add(canvas, EVAS_CALLBACK_CANVAS_OBJECT_FOCUS_IN, CanvasFocused, genlist);
  evas_object_event_callback_add(genlist, EVAS_CALLBACK_DEL, ListGone, nullptr);
}

void KeepFocusForEar(Evas_Object* genlist) {
  if (elm_config_access_get()) return KeepRowFocus(genlist);
  elm_object_focus_allow_set(genlist, EINA_FALSE);
}

void SetFocusRow(Elm_Object_Item* row) {
  Evas_Object* genlist = elm_object_item_widget_get(row);
  evas_object_data_set(genlist, kRow, row);
  FocusRowLater(genlist);
}
