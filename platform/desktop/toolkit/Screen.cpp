#include "Screen.h"

#include <Ecore_Evas.h>
#include <Ecore_Input.h>
#include <Ecore_Input_Evas.h>
#include <Ecore_Wl2.h>
#include <Ecore_X.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "Gate.h"
#include "Keys.h"
#include "app_framework.h"
#include "display.h"

namespace desktop {

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
/// Sizes of the theme are one to one on a screen of this height at this scale.
constexpr double kScale = 2.0;
constexpr double kDisplaySeconds = 3.0;

Evas_Object* g_window = nullptr;
/// Null unless the display is a Wayland one.
Ecore_Wl2_Display* g_wayland = nullptr;

bool Has(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

bool Is(const char* variable, const char* value) {
  const char* own = std::getenv(variable);
  return own && std::strcmp(own, value) == 0;
}

Ecore_Evas* Canvas() { return g_window ? ecore_evas_ecore_evas_get(evas_object_evas_get(g_window)) : nullptr; }

void WindowDeleted(void*, Evas*, Evas_Object*, void*) { g_window = nullptr; }

void CloseRequested(void*, Evas_Object*, void*) { ui_app_exit(); }

/// `$QUIRELLE_SCREEN` (WIDTHxHEIGHT) stands in for the size of a display that is not there.
void OffScreenSize(int& w, int& h) {
  w = kWidth, h = kHeight;
  const char* size = std::getenv("QUIRELLE_SCREEN");
  int wantedW = 0, wantedH = 0;
  if (size && std::sscanf(size, "%dx%d", &wantedW, &wantedH) == 2 && wantedW > 0 && wantedH > 0) {
    w = wantedW, h = wantedH;
  }
}

/// A Wayland display names its screens and seats some turns of the loop after the program has come to it.
void MeetWayland() {
  ecore_wl2_init();
  g_wayland = ecore_wl2_display_connect(nullptr);
  if (!g_wayland) throw std::runtime_error(std::string("no Wayland display '") + std::getenv("WAYLAND_DISPLAY") + "'");
  const double until = ecore_time_get() + kDisplaySeconds;
  int w = 0, h = 0;
  Ecore_Timer* tick = ecore_timer_add(0.01, [](void*) -> Eina_Bool { return ECORE_CALLBACK_RENEW; }, nullptr);
  do {
    ecore_main_loop_iterate_may_block(1);
    ecore_wl2_display_screen_size_get(g_wayland, &w, &h);
  } while ((h <= 1 || !ecore_wl2_display_sync_is_done(g_wayland)) && ecore_time_get() < until);
  ecore_timer_del(tick);
}

bool HasSeat() {
  Eina_Iterator* seats = ecore_wl2_display_inputs_get(g_wayland);
  void* seat = nullptr;
  const bool found = seats && eina_iterator_next(seats, &seat);
  eina_iterator_free(seats);
  return found;
}

/// Keys belong to a seat; a display without one still takes those that the program is sent.
void AddSeat(Ecore_Evas* canvas) {
  Evas* evas = ecore_evas_get(canvas);
  if (evas_device_get(evas, "seat")) return;
  Evas_Device* seat =
      evas_device_add_full(evas, "seat", nullptr, nullptr, nullptr, EVAS_DEVICE_CLASS_SEAT, EVAS_DEVICE_SUBCLASS_NONE);
  evas_device_add_full(evas, "keyboard", nullptr, seat, nullptr, EVAS_DEVICE_CLASS_KEYBOARD,
                       EVAS_DEVICE_SUBCLASS_NONE);
}

Evas_Object* MakeWindow(const char* name) {
  Evas_Object* window = elm_win_add(nullptr, name, ELM_WIN_BASIC);
  if (!window) return nullptr;
  elm_win_title_set(window, name);
  int w = 0, h = 0;
  if (IsOffScreen()) {
    OffScreenSize(w, h);
    Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(window));
    // A canvas that draws off screen takes part in key events only when it is entered for them.
    ecore_event_window_register(reinterpret_cast<Ecore_Window>(canvas), canvas, ecore_evas_get(canvas), nullptr,
                                nullptr, nullptr, nullptr);
  } else {
    elm_win_fullscreen_set(window, EINA_TRUE);
    elm_win_screen_size_get(window, nullptr, nullptr, &w, &h);
  }
  evas_object_resize(window, w, h);
  if (!Has("ELM_SCALE")) elm_config_scale_set(kScale * h / kHeight);
  evas_object_event_callback_add(window, EVAS_CALLBACK_DEL, WindowDeleted, nullptr);
  evas_object_smart_callback_add(window, "delete,request", CloseRequested, nullptr);
  return window;
}

Eina_Bool TranslateKey(void*, void*, int type, void* event) {
  if (type != ECORE_EVENT_KEY_DOWN && type != ECORE_EVENT_KEY_UP) return EINA_TRUE;
  auto* key = static_cast<Ecore_Event_Key*>(event);
  for (const KeyAlias& alias : KeyAliases()) {
    if (std::strcmp(key->key, alias.alias) == 0 || std::strcmp(key->keyname, alias.alias) == 0) {
      key->keyname = key->key = alias.key;
      break;
    }
  }
  return EINA_TRUE;
}

void FreeKey(void*, void* event) { free(event); }

Ecore_Event_Key* MakeKeyEvent(const char* name) {
  auto* event = static_cast<Ecore_Event_Key*>(calloc(1, sizeof(Ecore_Event_Key)));
  Ecore_Evas* canvas = Canvas();
  event->keyname = event->key = name;
  event->timestamp = static_cast<unsigned int>(ecore_time_get() * 1000);
  event->window = event->event_window =
      IsOffScreen() ? reinterpret_cast<Ecore_Window>(canvas) : ecore_evas_window_get(canvas);
  return event;
}

}  // namespace

void ChooseDisplay() {
  if (Has("ELM_DISPLAY") || Has("ELM_ENGINE")) return;
  if (Has("WAYLAND_DISPLAY")) {
    setenv("ELM_DISPLAY", "wl", 1);
  } else if (Has("DISPLAY")) {
    setenv("ELM_DISPLAY", "x11", 1);
  } else {
    setenv("ELM_DISPLAY", "buffer", 1);
    setenv("ELM_ENGINE", "buffer", 1);
  }
}

bool IsOffScreen() { return Is("ELM_ENGINE", "buffer"); }

void MeetDisplay() {
  if (Is("ELM_DISPLAY", "wl") && Has("WAYLAND_DISPLAY")) {
    MeetWayland();
  } else if (Is("ELM_DISPLAY", "x11") && Has("DISPLAY") && ecore_x_init(nullptr) == 0) {
    throw std::runtime_error(std::string("no X11 display '") + std::getenv("DISPLAY") + "'");
  }
}

Evas_Object* Window() { return g_window; }

void GiveFocus() {
  Ecore_Evas* canvas = Canvas();
  if (!canvas || (!IsOffScreen() && !(g_wayland && !HasSeat()))) return;
  if (g_wayland) AddSeat(canvas);
  ecore_evas_focus_set(canvas, EINA_FALSE);
  ecore_evas_focus_set(canvas, EINA_TRUE);
}

void TakeFocus() {
  if (Ecore_Evas* canvas = Canvas()) ecore_evas_focus_set(canvas, EINA_FALSE);
}

void PressKey(const char* remoteKey) {
  if (!Canvas()) return;
  ecore_event_add(ECORE_EVENT_KEY_DOWN, MakeKeyEvent(remoteKey), FreeKey, nullptr);
  ecore_event_add(ECORE_EVENT_KEY_UP, MakeKeyEvent(remoteKey), FreeKey, nullptr);
}

void TranslateKeyboard() { ecore_event_filter_add(nullptr, TranslateKey, nullptr, nullptr); }

}  // namespace desktop

using namespace desktop;

struct _Eo_Opaque* app_get_preinitialized_window(const char* window_name) {
  return Gate::Pass<Evas_Object*>(op::app_get_preinitialized_window, Entry(window_name), [&](Entry&) {
    if (!g_window) g_window = MakeWindow(window_name);
    return g_window;
  });
}

display_s* display_connect() {
  return Gate::Pass<display_s*>(op::display_connect, Entry(),
                                [](Entry&) { return reinterpret_cast<display_s*>(Canvas()); });
}

void display_screen_size_get(display_s* display, int* width, int* height) {
  ecore_evas_screen_geometry_get(reinterpret_cast<Ecore_Evas*>(display), nullptr, nullptr, width, height);
}

display_registry_s* display_registry_get(display_s* display) { return reinterpret_cast<display_registry_s*>(display); }

display_seat_s* display_default_seat_get(display_s* display) { return reinterpret_cast<display_seat_s*>(display); }
