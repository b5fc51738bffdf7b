#include "Screen.h"

#include <Ecore_Evas.h>
#include <Ecore_Input.h>
#include <Ecore_Input_Evas.h>
#include <Ecore_X.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <stdexcept>

#include "Gate.h"
#include "Keys.h"
#include "Text.h"
#include "Wayland.h"
#include "app_framework.h"
#include "display.h"

namespace desktop {

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int64_t kMostPixels = 8192;
constexpr const char* kOwnSize = "QUIRELLE_SCREEN";
/// Sizes of the theme are one to one on a screen of this height at this scale.
constexpr double kScale = 2.0;

Evas_Object* g_window = nullptr;
/// Set when the display is a Wayland one.
std::optional<WaylandDisplay> g_wayland;

bool Has(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

bool Is(const char* variable, const char* value) {
  const char* own = std::getenv(variable);
  return own && std::strcmp(own, value) == 0;
}

Ecore_Evas* Canvas() { return g_window ? ecore_evas_ecore_evas_get(evas_object_evas_get(g_window)) : nullptr; }

void WindowDeleted(void* canvas, Evas*, Evas_Object*, void*) {
  g_window = nullptr;
  if (IsOffScreen()) ecore_event_window_unregister(reinterpret_cast<Ecore_Window>(canvas));
}

void CloseRequested(void*, Evas_Object*, void*) { ui_app_exit(); }

/// `$QUIRELLE_SCREEN` (WIDTHxHEIGHT) stands in for the size of a display that is not there.
void OffScreenSize(int& w, int& h) {
  w = kWidth, h = kHeight;
  const char* size = std::getenv(kOwnSize);
  if (!size || !*size) return;
  if (!ParseScreenSize(size, w, h)) {
    throw std::runtime_error(std::string(kOwnSize) + " '" + size + "': wants something like 1920x1080, up to " +
                             std::to_string(kMostPixels) + " each way");
  }
}

/// Off screen the toolkit takes its frames from a thread of its own, which complains on a busy machine; a timer
/// does the same. Each window that is made sets the toolkit's source again.
void TakeFramesFromTimer() {
  static Ecore_Timer* timer = nullptr;
  const auto begin = [](void*) {
    const auto tick = [](void*) -> Eina_Bool {
      ecore_animator_custom_tick();
      return ECORE_CALLBACK_RENEW;
    };
    if (!timer) timer = ecore_timer_add(ecore_animator_frametime_get(), tick, nullptr);
  };
  const auto end = [](void*) {
    if (timer) ecore_timer_del(timer);
    timer = nullptr;
  };
  ecore_animator_custom_source_tick_begin_callback_set(begin, nullptr);
  ecore_animator_custom_source_tick_end_callback_set(end, nullptr);
  ecore_animator_source_set(ECORE_ANIMATOR_SOURCE_CUSTOM);
}

/// Keys belong to a seat; a display without one still takes those that the program is sent.
void AddSeat(Evas* evas) {
  Evas_Device* seat =
      evas_device_add_full(evas, "seat", nullptr, nullptr, nullptr, EVAS_DEVICE_CLASS_SEAT, EVAS_DEVICE_SUBCLASS_NONE);
  evas_device_add_full(evas, "keyboard", nullptr, seat, nullptr, EVAS_DEVICE_CLASS_KEYBOARD, EVAS_DEVICE_SUBCLASS_NONE);
}

void FocusCanvas(Ecore_Evas* canvas) {
  ecore_evas_focus_set(canvas, EINA_FALSE);
  ecore_evas_focus_set(canvas, EINA_TRUE);
}

/// A window that is given the focus before its first frame never gets that frame.
void FirstFrameDrawn(void*, Evas* evas, void*) {
  evas_event_callback_del(evas, EVAS_CALLBACK_RENDER_POST, FirstFrameDrawn);
  ecore_job_add(
      [](void*) {
        if (Ecore_Evas* canvas = Canvas()) FocusCanvas(canvas);
      },
      nullptr);
}

}  // namespace

/// The toolkit learns a Wayland screen's size only some turns of the loop after the window is made.
void ScreenSize(const Evas_Object* window, int& w, int& h) {
  if (g_wayland && g_wayland->height > 0) {
    w = g_wayland->width, h = g_wayland->height;
  } else {
    elm_win_screen_size_get(window, nullptr, nullptr, &w, &h);
  }
}

namespace {

Evas_Object* MakeWindow(const char* name) {
  Evas_Object* window = elm_win_add(nullptr, name, ELM_WIN_BASIC);
  if (!window) return nullptr;
  elm_win_title_set(window, name);
  int w = 0, h = 0;
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(window));
  if (IsOffScreen()) {
    OffScreenSize(w, h);
    TakeFramesFromTimer();
    // A canvas that draws off screen takes part in key events only when it is entered for them.
    ecore_event_window_register(reinterpret_cast<Ecore_Window>(canvas), canvas, ecore_evas_get(canvas), nullptr,
                                nullptr, nullptr, nullptr);
  } else {
    elm_win_fullscreen_set(window, EINA_TRUE);
    ScreenSize(window, w, h);
  }
  evas_object_resize(window, w, h);
  if (!Has("ELM_SCALE")) elm_config_scale_set(kScale * h / kHeight);
  evas_object_event_callback_add(window, EVAS_CALLBACK_DEL, WindowDeleted, canvas);
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
  event->timestamp = static_cast<unsigned int>(static_cast<int64_t>(ecore_time_get() * 1000));
  event->window = event->event_window =
      IsOffScreen() ? reinterpret_cast<Ecore_Window>(canvas) : ecore_evas_window_get(canvas);
  return event;
}

}  // namespace

void ChooseDisplay() {
  // Drawn in a thread of the toolkit's, a window at times waits for ever for its first frame.
  setenv("ECORE_EVAS_FORCE_SYNC_RENDER", "1", 0);
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

bool HasSeat() { return !IsOffScreen() && (!g_wayland || g_wayland->hasSeat); }

void MeetDisplay() {
  if (Is("ELM_DISPLAY", "wl") && Has("WAYLAND_DISPLAY")) {
    g_wayland.emplace();
    if (AskWayland(*g_wayland)) return;
    throw std::runtime_error(std::string("no Wayland display '") + std::getenv("WAYLAND_DISPLAY") + "'");
  } else if (Is("ELM_DISPLAY", "x11") && Has("DISPLAY") && ecore_x_init(nullptr) == 0) {
    throw std::runtime_error(std::string("no X11 display '") + std::getenv("DISPLAY") + "'");
  }
  int w = 0, h = 0;
  if (IsOffScreen()) OffScreenSize(w, h);
}

bool ParseScreenSize(std::string_view text, int& w, int& h) {
  const size_t by = text.find('x');
  if (by == text.npos) return false;
  const auto width = ToNumber(text.substr(0, by)), height = ToNumber(text.substr(by + 1));
  const auto fits = [](const auto& pixels) { return pixels && *pixels > 0 && *pixels <= kMostPixels; };
  if (!fits(width) || !fits(height)) return false;
  w = static_cast<int>(*width), h = static_cast<int>(*height);
  return true;
}

Evas_Object* Window() { return g_window; }

void HoldFrames(bool hold) {
  if (Ecore_Evas* canvas = Canvas()) ecore_evas_manual_render_set(canvas, hold);
}

void GiveFocus() {
  Ecore_Evas* canvas = Canvas();
  if (!canvas) return;
  if (IsOffScreen()) {
    FocusCanvas(canvas);
  } else if (!HasSeat()) {
    AddSeat(ecore_evas_get(canvas));
    evas_event_callback_add(ecore_evas_get(canvas), EVAS_CALLBACK_RENDER_POST, FirstFrameDrawn, nullptr);
  }
}

void TakeFocus() {
  if (Ecore_Evas* canvas = Canvas()) ecore_evas_focus_set(canvas, EINA_FALSE);
}

void PressKey(const char* remoteKey) {
  if (!Canvas()) return;
  ecore_event_add(ECORE_EVENT_KEY_DOWN, MakeKeyEvent(remoteKey), FreeKey, nullptr);
  ecore_event_add(ECORE_EVENT_KEY_UP, MakeKeyEvent(remoteKey), FreeKey, nullptr);
}

Ecore_Event_Filter* TranslateKeyboard() { return ecore_event_filter_add(nullptr, TranslateKey, nullptr, nullptr); }

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
  if (!IsOffScreen() && g_window) ScreenSize(g_window, *width, *height);
}

display_registry_s* display_registry_get(display_s* display) { return reinterpret_cast<display_registry_s*>(display); }

display_seat_s* display_default_seat_get(display_s* display) { return reinterpret_cast<display_seat_s*>(display); }
