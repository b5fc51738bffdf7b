#include "Wayland.h"

#include <wayland-client.h>

#include <algorithm>
#include <cstring>

namespace desktop {

namespace {

struct Question {
  WaylandDisplay* answer;
  wl_output* output = nullptr;
  int scale = 1;
};

void TakeMode(void* data, wl_output*, uint32_t flags, int32_t width, int32_t height, int32_t) {
  WaylandDisplay* answer = static_cast<Question*>(data)->answer;
  if (flags & WL_OUTPUT_MODE_CURRENT) answer->width = width, answer->height = height;
}

void TakeScale(void* data, wl_output*, int32_t factor) { static_cast<Question*>(data)->scale = std::max(factor, 1); }

void IgnoreGeometry(void*, wl_output*, int32_t, int32_t, int32_t, int32_t, int32_t, const char*, const char*, int32_t) {
}

void IgnoreDone(void*, wl_output*) {}

constexpr wl_output_listener kOutput = {IgnoreGeometry, TakeMode, IgnoreDone, TakeScale, nullptr, nullptr};

void TakeGlobal(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t version) {
  auto* question = static_cast<Question*>(data);
  if (std::strcmp(interface, wl_seat_interface.name) == 0) question->answer->hasSeat = true;
  if (question->output || std::strcmp(interface, wl_output_interface.name) != 0) return;
  question->output = static_cast<wl_output*>(wl_registry_bind(
      registry, name, &wl_output_interface, std::min(version, uint32_t{WL_OUTPUT_SCALE_SINCE_VERSION})));
  wl_output_add_listener(question->output, &kOutput, question);
}

void IgnoreRemoval(void*, wl_registry*, uint32_t) {}

constexpr wl_registry_listener kRegistry = {TakeGlobal, IgnoreRemoval};

}  // namespace

bool AskWayland(WaylandDisplay& display) {
  wl_display* connection = wl_display_connect(nullptr);
  if (!connection) return false;
  Question question{&display};
  wl_registry* registry = wl_display_get_registry(connection);
  wl_registry_add_listener(registry, &kRegistry, &question);
  // The first answer names what there is, the second what that is like.
  const bool answered = wl_display_roundtrip(connection) >= 0 && wl_display_roundtrip(connection) >= 0;
  display.width /= question.scale, display.height /= question.scale;
  if (question.output) wl_output_destroy(question.output);
  wl_registry_destroy(registry);
  wl_display_disconnect(connection);
  return answered;
}

}  // namespace desktop
