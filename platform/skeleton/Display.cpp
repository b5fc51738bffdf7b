// The display, the keys of the remote, and what the set adds to the toolkit.
#include "display.h"

#include "key_router.h"
#include "toolkit_ext.h"

/// Null without a display; the program then draws where the toolkit does.
display_s* display_connect() { return nullptr; }

/// In pixels.
void display_screen_size_get(display_s* display, int* width, int* height) {}

display_registry_s* display_registry_get(display_s* display) { return nullptr; }

display_seat_s* display_default_seat_get(display_s* display) { return nullptr; }

/// 0 for a global that the display does not have.
unsigned int display_global_find(display_s* display, const char* interfaceName) { return 0; }

/// False without a router, and then nothing is grabbed: the keys that reach the window are all there are.
bool KeyRouter_Initialize(display_s* display, display_registry_s* registry, display_seat_s* seat,
                          unsigned int globalId) {
  return false;
}

/// Empties a request.
void KeyRouter_Reset_KeyList(KeyRouterKeyList* list) {}

/// Adds to a request; what is past `kMost` is dropped.
void KeyRouter_Add_Key(const char* keyName, int mode, KeyRouterKeyList* list) {}

/// Grabs every key of the request, or none and false.
bool KeyRouter_Set_KeyList(int surface, KeyRouterKeyList* list) { return false; }

/// Releases them.
bool KeyRouter_UnSet_KeyList(int surface, KeyRouterKeyList* list) { return false; }

void KeyRouter_Finalize() {}

void ea_init() {}

void ea_shutdown() {}

/// Lets an object follow the set's own rules of transparency.
void ea_object_config_set_auto_transparency(_Eo_Opaque* object, int on) {}

void ui_config_manager_init() {}

void ui_config_manager_fini() {}

/// 0 and a colour (each part 0 to 255); -1 leaves the theme's own.
int ui_config_manager_color_chip_color_get(const char* chip, int* r, int* g, int* b, int* a) { return -1; }

// Voice control: 0, or a negative code.

int vc_elm_initialize() { return -1; }

int vc_elm_set_auto_register_mode(int mode, int click) { return -1; }

int vc_elm_deinitialize() { return -1; }

/// 0 left-to-right, 1 right-to-left.
int ua_UI_orientation_get() { return 0; }

/// Stops what is being read out.
void elm_access_force_stop() {}

/// Reads a text out at once; a blank one only interrupts.
void elm_access_force_say(const char* text) {}
