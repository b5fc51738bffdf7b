// The display that the program draws on, as the display server describes it.
#pragma once

struct display_s;
struct display_registry_s;
struct display_seat_s;

extern "C" {

/// The display in use, or null when there is none. Owned by the platform.
display_s* display_connect();
/// Size in pixels.
void display_screen_size_get(display_s* display, int* width, int* height);
display_registry_s* display_registry_get(display_s* display);
display_seat_s* display_default_seat_get(display_s* display);
/// Identifier of the global with this interface name, 0 when the display has none.
unsigned int display_global_find(display_s* display, const char* interfaceName);

}  // extern "C"
