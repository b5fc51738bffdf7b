#include <Elementary.h>

#include <cstdlib>

#include "Gate.h"
#include "Language.h"
#include "toolkit_ext.h"

using namespace desktop;

void ea_init() {}

void ea_shutdown() {}

void ea_object_config_set_auto_transparency(struct _Eo_Opaque*, int on) {
  Gate::Run(op::ea_object_config_set_auto_transparency, Entry(on), [](Entry&) {});
}

void ui_config_manager_init() {}

void ui_config_manager_fini() {}

int ui_config_manager_color_chip_color_get(const char* chip, int* r, int* g, int* b, int* a) {
  return Gate::Pass<int>(op::ui_config_manager_color_chip_color_get, Entry(chip), [&](Entry&) {
    Query q(
        "SELECT r, g, b, a FROM chip WHERE name = ? AND contrast = (SELECT count(*) FROM setting WHERE "
        "key = 'db/menu/system/accessibility/highcontrast' AND type = 'int' AND value <> 0)",
        chip);
    if (!q.Row()) return -1;
    int* parts[] = {r, g, b, a};
    for (int i = 0; i < 4; ++i) *parts[i] = static_cast<int>(q.Int(i));
    return 0;
  });
}

int vc_elm_initialize() {
  return Gate::Pass<int>(op::vc_elm_initialize, Entry(), [](Entry&) { return 0; });
}

int vc_elm_set_auto_register_mode(int mode, int click) {
  return Gate::Pass<int>(op::vc_elm_set_auto_register_mode, Entry(mode, click), [](Entry&) { return 0; });
}

int vc_elm_deinitialize() {
  return Gate::Pass<int>(op::vc_elm_deinitialize, Entry(), [](Entry&) { return 0; });
}

int ua_UI_orientation_get() {
  return Gate::Pass<int>(op::ua_UI_orientation_get, Entry(), [](Entry&) { return IsRightToLeft() ? 1 : 0; });
}
