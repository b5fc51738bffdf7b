// The same window made with nothing but the toolkit: what quirelle is measured against.
//   bench-bare THEME first-frame MENU-ID
//   bench-bare THEME key DATABASE PRESSES
//   bench-bare THEME idle SECONDS
#include <Ecore_Evas.h>
#include <Ecore_Input.h>
#include <Ecore_Input_Evas.h>
#include <Efreet.h>
#include <Elementary.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Readings.h"

using bench::Now;
using bench::PeakKibibytes;

namespace {

constexpr int kBoxes = 18;
constexpr const char* kTexts[] = {"All", "FV", "V", "S", "L", "D", "TV-Y", "TV-Y7", "TV-G", "TV-PG", "TV-14", "TV-MA"};

Evas_Object* g_window = nullptr;
Evas_Object* g_boxes[kBoxes];
sqlite3* g_db = nullptr;
sqlite3_stmt* g_update = nullptr;
bool g_drawn = false;

void FirstFrame(void*, Evas*, void*) {
  std::printf("%.9f %ld\n", Now(), PeakKibibytes());
  std::fflush(stdout);
  _exit(0);
}

void Drawn(void*, Evas*, void*) { g_drawn = true; }

void Changed(void*, Evas_Object* box, void*) {
  sqlite3_exec(g_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  sqlite3_bind_int(g_update, 1, elm_check_state_get(box));
  sqlite3_step(g_update);
  sqlite3_reset(g_update);
  sqlite3_exec(g_db, "COMMIT", nullptr, nullptr, nullptr);
}

void OpenDatabase(const char* path) {
  sqlite3_open(path, &g_db);
  sqlite3_exec(g_db,
               "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
               "CREATE TABLE IF NOT EXISTS setting (key TEXT PRIMARY KEY, value);"
               "INSERT OR IGNORE INTO setting VALUES ('box', 0)",
               nullptr, nullptr, nullptr);
  sqlite3_prepare_v2(g_db, "UPDATE setting SET value = ? WHERE key = 'box'", -1, &g_update, nullptr);
}

Evas_Object* MinimumSize(Evas_Object* object, Evas_Object* parent, int w, int h) {
  Evas_Object* table = elm_table_add(parent);
  Evas_Object* rectangle = evas_object_rectangle_add(evas_object_evas_get(table));
  evas_object_size_hint_min_set(rectangle, w, h);
  evas_object_color_set(rectangle, 0, 0, 0, 0);
  evas_object_size_hint_weight_set(object, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(object, EVAS_HINT_FILL, EVAS_HINT_FILL);
  elm_table_pack(table, rectangle, 0, 0, 1, 1);
  elm_table_pack(table, object, 0, 0, 1, 1);
  evas_object_show(object);
  evas_object_show(table);
  return table;
}

void MakeWindow(const char* theme) {
  elm_app_base_scale_set(2.0);
  elm_theme_overlay_add(nullptr, theme);
  g_window = elm_win_add(nullptr, "bare", ELM_WIN_BASIC);
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(g_window));
  ecore_event_window_register(reinterpret_cast<Ecore_Window>(canvas), canvas, ecore_evas_get(canvas), nullptr, nullptr,
                              nullptr, nullptr);
  evas_object_resize(g_window, 1920, 1080);
  elm_win_alpha_set(g_window, EINA_TRUE);
  elm_win_focus_highlight_style_set(g_window, "elmtv");
  elm_win_focus_highlight_enabled_set(g_window, EINA_TRUE);
  evas_object_show(g_window);
}

Evas_Object* AddPopup(const char* style, const char* title) {
  Evas_Object* popup = elm_popup_add(g_window);
  elm_object_style_set(popup, style);
  elm_popup_align_set(popup, ELM_NOTIFY_ALIGN_FILL, ELM_NOTIFY_ALIGN_FILL);
  elm_object_part_text_set(popup, "title,text", title);
  return popup;
}

void Show(Evas_Object* popup, Evas_Object* content, int w, int h, int buttons) {
  elm_object_part_content_set(popup, "elm.swallow.content", MinimumSize(content, popup, w, h));
  elm_object_signal_emit(popup, "elm,popup,content,bg,hide", "elm");
  evas_object_show(popup);
  for (int i = 1; i <= buttons; ++i) {
    Evas_Object* button = elm_button_add(popup);
    elm_object_style_set(button, "C_ButtonBasic_WhiteText");
    elm_object_text_set(button, "Close");
    elm_object_part_content_set(popup, ("button" + std::to_string(i)).c_str(), button);
    evas_object_show(button);
    if (i == 1) elm_object_focus_set(button, EINA_TRUE);
  }
}

/// A window of facts: a layout with a genlist in it.
struct Facts {
  const char* menuID;
  const char* group;
  const char* rowStyle;
  int rows;
  int buttons;
  /// Of the rows, those with a bar.
  const char* barStyle = nullptr;
  int bars = 0;
};

constexpr Facts kFacts[] = {
    {"signal-information", "signalinfo_content", "styleSignalInfo.2Text", 6, 2, "styleSignalInfo.2Text.1progressbar",
     3},
    {"signal-information-weakhistory", "weakhistory_content", "C_TextItem_WhiteSingleline05_Lite", 6, 1},
    {"hdmi-information", "signalinfo_content", "styleSignalInfo.2Text", 2, 3},
};

void AddRows(Evas_Object* list, const char* style, int count, Elm_Gen_Item_Content_Get_Cb content) {
  Elm_Genlist_Item_Class* itemClass = elm_genlist_item_class_new();
  itemClass->item_style = style;
  itemClass->func.text_get = [](void*, Evas_Object*, const char*) { return strdup("A row of text"); };
  itemClass->func.content_get = content;
  for (int i = 0; i < count; ++i) {
    elm_genlist_item_append(list, itemClass, nullptr, nullptr, ELM_GENLIST_ITEM_NONE, nullptr, nullptr);
  }
  elm_genlist_item_class_unref(itemClass);
}

void MakeFacts(const char* theme, const Facts& facts) {
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteRightLarge", "Signal information");
  Evas_Object* layout = elm_layout_add(popup);
  elm_layout_file_set(layout, theme, facts.group);
  elm_object_part_text_set(layout, "elm.content.text", "What is known of the signal that comes in just now.");
  Evas_Object* list = elm_genlist_add(layout);
  elm_genlist_homogeneous_set(list, EINA_TRUE);
  AddRows(list, facts.rowStyle, facts.rows, nullptr);
  AddRows(list, facts.barStyle, facts.bars, [](void*, Evas_Object* rows, const char* part) -> Evas_Object* {
    if (std::strcmp(part, "elm.swallow.progressbar") != 0) return nullptr;
    Evas_Object* bar = elm_progressbar_add(rows);
    elm_object_style_set(bar, "C_ProgressBar_White");
    elm_progressbar_value_set(bar, 0.5);
    return bar;
  });
  elm_object_part_content_set(layout, "elm.content.swallow.items", list);
  Show(popup, layout, 880, 600, facts.buttons);
}

void MakeFineTune(const char* theme) {
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteBottom", "Fine tune");
  Evas_Object* layout = elm_layout_add(popup);
  elm_layout_file_set(layout, theme, "finetune_layout");
  elm_object_part_text_set(layout, "channeltext", "6 Programme");
  Evas_Object* slider = elm_slider_add(layout);
  elm_object_style_set(slider, "C_SliderBasic_WhiteH");
  elm_object_part_content_set(layout, "sliderswallow", slider);
  Show(popup, layout, 1280, 300, 3);
}

void MakeNotice() {
  Evas_Object* popup = AddPopup("P_PopupSmallBottom_01", nullptr);
  Evas_Object* label = elm_label_add(popup);
  elm_object_style_set(label, "popup/P_PopupSmallBottom_01");
  elm_label_line_wrap_set(label, ELM_WRAP_WORD);
  elm_label_wrap_width_set(label, 1122);
  elm_object_text_set(label, "Disconnect or turn off all other devices on the same cable before you start.");
  Show(popup, label, 0, 0, 1);
}

/// Rows with a check box before their text.
Evas_Object* AddChecks(Evas_Object* parent, int rows, Elm_Gen_Item_Content_Get_Cb box) {
  Evas_Object* list = elm_genlist_add(parent);
  elm_genlist_homogeneous_set(list, EINA_TRUE);
  AddRows(list, "C_TextItem_WhiteSingleline05", rows, box);
  return list;
}

template <const char* const& kStyle>
Evas_Object* Box(void*, Evas_Object* rows, const char* part) {
  if (std::strcmp(part, "elm.swallow.icon") != 0) return nullptr;
  Evas_Object* box = elm_check_add(rows);
  elm_object_style_set(box, kStyle);
  return box;
}

constexpr const char* kCheckBox = "C_Checkbox_White";
constexpr const char* kRatingBox = "tvrating_list_checkbox";

void MakeGradedRating() {
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteRightLarge", "Movie rating");
  Evas_Object* list = AddChecks(popup, 7, Box<kRatingBox>);
  Show(popup, list, 820, 552, 1);
  elm_object_focus_set(list, EINA_TRUE);
}

void MakeDynamicRating(const char* theme) {
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteRightLarge", nullptr);
  Evas_Object* layout = elm_layout_add(popup);
  elm_layout_file_set(layout, theme, "dynamic_rating_style");
  elm_object_part_text_set(layout, "title,text", "Family guide");
  Evas_Object* spinner = elm_spinner_add(layout);
  elm_object_style_set(spinner, "vertical/C_Spincontrol_White");
  elm_object_part_content_set(layout, "dimenpart", spinner);
  elm_object_part_content_set(layout, "scroller-part", AddChecks(layout, 7, Box<kRatingBox>));
  Show(popup, layout, 880, 842, 1);
}

void MakeSatellites(const char* theme) {
  constexpr int kSatellites = 332;
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteRightLarge", "Satellite selection");
  Evas_Object* layout = elm_layout_add(popup);
  elm_layout_file_set(layout, theme, "satellites_content");
  elm_object_part_text_set(layout, "elm.text", "Select the satellites that you want to use.");
  elm_object_part_content_set(layout, "elm.swallow.list", AddChecks(layout, kSatellites, Box<kCheckBox>));
  Show(popup, layout, 880, 600, 2);
}

void MakeSettings(const char* style, int rows, int buttons) {
  Evas_Object* popup = AddPopup(style, "Satellite longitudes");
  Evas_Object* list = elm_genlist_add(popup);
  elm_genlist_homogeneous_set(list, EINA_TRUE);
  AddRows(list, "C_TextItem_WhiteSingleline05", rows, nullptr);
  Show(popup, list, 877, 535, buttons);
}

void MakeRating(const char* theme) {
  Evas_Object* popup = AddPopup("C_PopupBasic_WhiteBottomLarge", "TV rating");
  Evas_Object* layout = elm_layout_add(popup);
  elm_layout_file_set(layout, theme, "tv_rating_style");
  for (size_t i = 0; i < std::size(kTexts); ++i) {
    elm_object_part_text_set(layout, ("text" + std::to_string(i + 1)).c_str(), kTexts[i]);
  }
  for (int i = 0; i < kBoxes; ++i) {
    g_boxes[i] = elm_check_add(layout);
    elm_object_style_set(g_boxes[i], "menu_tvrating_checkbox");
    elm_object_part_content_set(layout, ("check" + std::to_string(i)).c_str(), g_boxes[i]);
  }
  Show(popup, layout, 1280, 520, 1);
  elm_object_focus_set(g_boxes[0], EINA_TRUE);
}

void MakePopup(const char* theme, const char* menuID) {
  for (const Facts& facts : kFacts) {
    if (std::strcmp(menuID, facts.menuID) == 0) return MakeFacts(theme, facts);
  }
  if (std::strncmp(menuID, "satcr-", 6) == 0) return MakeNotice();
  if (std::strncmp(menuID, "reset-", 6) == 0) return MakeNotice();
  if (std::strcmp(menuID, "movie-rating") == 0) return MakeGradedRating();
  if (std::strcmp(menuID, "dynamic-rating") == 0) return MakeDynamicRating(theme);
  if (std::strcmp(menuID, "satellite-selection") == 0) return MakeSatellites(theme);
  if (std::strcmp(menuID, "user-defined-transponder") == 0) return MakeSettings("C_PopupBasic_WhiteBottom", 3, 2);
  if (std::strncmp(menuID, "postype-", 8) == 0) return MakeSettings("C_PopupBasic_WhiteRight", 4, 1);
  if (std::strcmp(menuID, "export-to-usb") == 0) return MakeNotice();
  std::strcmp(menuID, "fine-tune") == 0 ? MakeFineTune(theme) : MakeRating(theme);
}

void Press(const char* name) {
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(g_window));
  for (const int type : {ECORE_EVENT_KEY_DOWN, ECORE_EVENT_KEY_UP}) {
    auto* event = static_cast<Ecore_Event_Key*>(calloc(1, sizeof(Ecore_Event_Key)));
    event->keyname = event->key = name;
    event->window = event->event_window = reinterpret_cast<Ecore_Window>(canvas);
    ecore_event_add(
        type, event, [](void*, void* data) { free(data); }, nullptr);
  }
}

/// Frames come when they are ready: where in a frame's time the press falls is not what is measured.
void Turn() {
  ecore_animator_custom_tick();
  ecore_main_loop_iterate();
}

void Rest() {
  const double until = Now() + 0.1;
  while (Now() < until) Turn();
}

/// Seconds from a press to its frame, one a line.
void MeasureKeys(int presses) {
  Evas* evas = evas_object_evas_get(g_window);
  evas_event_callback_add(evas, EVAS_CALLBACK_RENDER_POST, Drawn, nullptr);
  evas_object_smart_callback_add(g_boxes[6], "changed", Changed, nullptr);
  elm_object_focus_set(g_boxes[6], EINA_TRUE);
  for (int i = 0; i < presses; ++i) {
    Rest();
    g_drawn = false;
    const double start = Now();
    Press("Return");
    while (!g_drawn) Turn();
    std::printf("%.9f\n", Now() - start);
    Rest();
    Press("Return");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  setenv("ELM_DISPLAY", "buffer", 1);
  setenv("ELM_ENGINE", "buffer", 1);
  setenv("ELM_SCALE", "2.0", 1);
  ecore_app_no_system_modules();
  efreet_cache_disable();
  elm_init(1, argv);
  MakeWindow(argv[1]);
  const bool first = std::strcmp(argv[2], "first-frame") == 0;
  MakePopup(argv[1], first ? argv[3] : "tv-rating");
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(g_window));
  ecore_evas_focus_set(canvas, EINA_FALSE);
  ecore_evas_focus_set(canvas, EINA_TRUE);
  if (first) {
    evas_event_callback_add(evas_object_evas_get(g_window), EVAS_CALLBACK_RENDER_POST, FirstFrame, nullptr);
    elm_run();
  } else if (argc == 5) {
    OpenDatabase(argv[3]);
    elm_config_transition_duration_factor_set(0.0);
    ecore_animator_source_set(ECORE_ANIMATOR_SOURCE_CUSTOM);
    MeasureKeys(std::atoi(argv[4]));
  } else {
    ecore_timer_add(
        2.0, [](void*) -> Eina_Bool { return ECORE_CALLBACK_RENEW; }, nullptr);
    bench::PrintIdle(std::atof(argv[3]));
  }
  return 0;
}
