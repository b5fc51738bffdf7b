// The application framework: the main loop, launch requests, other applications.
#include <cstdio>
#include <cstdlib>

#include "app_framework.h"
#include "app_manager.h"

/// Brings the toolkit up, calls `create`, then `app_control` with the launch request, and runs the main loop until
/// `ui_app_exit`; `terminate` on the way out, and 0. A failing start ends the process with a status of its own.
int ui_app_main(int argc, char** argv, ui_app_lifecycle_callback_s* callbacks, void* user_data) {
  std::fputs("quirelle: this platform has no main loop yet; ui_app_main is the first call to fill in\n", stderr);
  std::exit(EXIT_FAILURE);
}

/// Ends the main loop, from inside it.
void ui_app_exit() {}

/// A window that the framework made before `create`, which the program then owns; null without one.
_Eo_Opaque* app_get_preinitialized_window(const char* window_name) { return nullptr; }

// Launch requests: 0, or a negative code. Texts are copied.

/// An empty request, which `app_control_destroy` frees.
int app_control_create(app_control_h* handle) { return -1; }

int app_control_destroy(app_control_h handle) { return -1; }

int app_control_set_operation(app_control_h handle, const char* operation) { return -1; }

int app_control_set_app_id(app_control_h handle, const char* app_id) { return -1; }

int app_control_add_extra_data(app_control_h handle, const char* key, const char* value) { return -1; }

/// A `malloc` copy for the caller; `*value` stays as it is without the key.
int app_control_get_extra_data(app_control_h handle, const char* key, char** value) { return -1; }

/// Starts the application; `callback` may be null.
int app_control_send_launch_request(app_control_h handle, app_control_reply_cb callback, void* user_data) { return -1; }

/// 0 and `*running`, or a negative code.
int app_manager_is_running(const char* app_id, bool* running) { return -1; }

/// Sends a running application to the background: 0, or a negative code.
int app_manager_pause_app(const char* app_id) { return -1; }

/// Where a path of the set's file system lies; never null, static for the process.
const char* app_get_deployed_path(const char* path) { return path; }
