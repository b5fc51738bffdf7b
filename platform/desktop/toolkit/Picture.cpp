#include "Picture.h"

#include <Ecore_Evas.h>
#include <Elementary.h>

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "Screen.h"

namespace desktop {

namespace {

struct Colour {
  double r, g, b;
};

/// The TV's picture: an evening sky from the top left to the bottom right.
constexpr Colour kTop = {20, 40, 56}, kMiddle = {50, 66, 58}, kBottom = {92, 62, 40};
constexpr int kDefaultWidth = 1920, kDefaultHeight = 1080;
constexpr double kFrameSeconds = 2.0;

Colour Between(const Colour& a, const Colour& b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}

Colour TvPicture(double x, double y) {
  const double along = x * 0.45 + y * 0.55;
  return along < 0.5 ? Between(kTop, kMiddle, along * 2) : Between(kMiddle, kBottom, along * 2 - 1);
}

/// `pixel` has its colour multiplied by its opacity.
uint32_t Over(uint32_t pixel, const Colour& below) {
  const uint32_t alpha = pixel >> 24;
  const double through = (255 - alpha) / 255.0;
  const auto part = [&](int shift, double under) {
    const double value = ((pixel >> shift) & 0xff) + under * through;
    return static_cast<uint32_t>(std::lround(std::min(value, 255.0))) << shift;
  };
  return 0xff000000U | part(16, below.r) | part(8, below.g) | part(0, below.b);
}

/// Until the whole canvas has been drawn anew.
void DrawFrame(Evas* canvas, int w, int h) {
  bool drawn = false;
  const Evas_Event_Cb mark = [](void* data, Evas*, void*) { *static_cast<bool*>(data) = true; };
  evas_event_callback_add(canvas, EVAS_CALLBACK_RENDER_POST, mark, &drawn);
  evas_damage_rectangle_add(canvas, 0, 0, w, h);
  const double until = ecore_time_get() + kFrameSeconds;
  Ecore_Timer* tick = ecore_timer_add(0.01, [](void*) -> Eina_Bool { return ECORE_CALLBACK_RENEW; }, nullptr);
  while (!drawn && ecore_time_get() < until) ecore_main_loop_iterate_may_block(1);
  ecore_timer_del(tick);
  evas_event_callback_del_full(canvas, EVAS_CALLBACK_RENDER_POST, mark, &drawn);
}

/// The menu as it was drawn last; empty when there is no window.
std::vector<uint32_t> MenuPixels(int& w, int& h) {
  Evas_Object* window = Window();
  w = kDefaultWidth, h = kDefaultHeight;
  if (!window) return {};
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(window));
  evas_object_geometry_get(window, nullptr, nullptr, &w, &h);
  const size_t count = static_cast<size_t>(w) * static_cast<size_t>(h);
  if (IsOffScreen()) {
    const auto* pixels = static_cast<const uint32_t*>(ecore_evas_buffer_pixels_get(canvas));
    return pixels ? std::vector<uint32_t>(pixels, pixels + count) : std::vector<uint32_t>();
  }
  Evas_Object* snapshot = evas_object_image_filled_add(evas_object_evas_get(window));
  evas_object_image_snapshot_set(snapshot, EINA_TRUE);
  evas_object_geometry_set(snapshot, 0, 0, w, h);
  evas_object_layer_set(snapshot, EVAS_LAYER_MAX);
  evas_object_show(snapshot);
  DrawFrame(evas_object_evas_get(window), w, h);
  const auto* pixels = static_cast<const uint32_t*>(evas_object_image_data_get(snapshot, EINA_FALSE));
  std::vector<uint32_t> copy;
  if (pixels) copy.assign(pixels, pixels + count);
  evas_object_del(snapshot);
  return copy;
}

void Save(const std::vector<uint32_t>& pixels, int w, int h, const std::string& path) {
  Ecore_Evas* canvas = ecore_evas_buffer_new(1, 1);
  Evas_Object* image = canvas ? evas_object_image_add(ecore_evas_get(canvas)) : nullptr;
  bool saved = false;
  if (image) {
    evas_object_image_size_set(image, w, h);
    evas_object_image_data_set(image, const_cast<uint32_t*>(pixels.data()));
    saved = evas_object_image_save(image, path.c_str(), nullptr, "compress=6");
    evas_object_image_data_set(image, nullptr);
    evas_object_del(image);
  }
  if (canvas) ecore_evas_free(canvas);
  if (!saved) throw std::runtime_error(path + ": the picture cannot be written");
}

}  // namespace

void SavePicture(const std::string& path) {
  int w = 0, h = 0;
  const std::vector<uint32_t> menu = MenuPixels(w, h);
  std::vector<uint32_t> picture(static_cast<size_t>(w) * static_cast<size_t>(h));
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      const size_t at = static_cast<size_t>(y) * static_cast<size_t>(w) + static_cast<size_t>(x);
      const uint32_t pixel = menu.empty() ? 0 : menu[at];
      picture[at] = pixel >> 24 == 255 ? pixel : Over(pixel, TvPicture(double(x) / w, double(y) / h));
    }
  }
  Save(picture, w, h, path);
}

}  // namespace desktop
