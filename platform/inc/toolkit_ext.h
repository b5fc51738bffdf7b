// What the TV adds to the toolkit: accessibility helpers, colour chips, voice control, orientation.
#pragma once

struct _Eo_Opaque;

extern "C" {

void ea_init();
void ea_shutdown();
void ea_object_config_set_auto_transparency(struct _Eo_Opaque* object, int on);

void ui_config_manager_init();
void ui_config_manager_fini();
/// 0 and the chip's colour (each 0-255), or -1 for a chip that the TV does not have.
int ui_config_manager_color_chip_color_get(const char* chip, int* r, int* g, int* b, int* a);

/// 0 on success, a negative code otherwise.
int vc_elm_initialize();
int vc_elm_set_auto_register_mode(int mode, int click);
int vc_elm_deinitialize();

/// 0 left-to-right, 1 right-to-left.
int ua_UI_orientation_get();

/// Stops what is being read out.
void elm_access_force_stop();
/// Reads `text` out, interrupting what is being read; a blank text only interrupts.
void elm_access_force_say(const char* text);

}  // extern "C"
