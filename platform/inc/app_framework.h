// Application framework: life cycle, launch requests, and what the set knows of other applications.
#pragma once

struct _Eo_Opaque;

extern "C" {

/// One launch request: an application ID and a map of extra data (UTF-8 keys and values).
struct app_control_s;
typedef app_control_s* app_control_h;

/// The operation of a launch that just starts the application.
#define APP_CONTROL_OPERATION_DEFAULT "default"

struct ui_app_lifecycle_callback_s {
  /// Toolkit is up; false refuses the start.
  bool (*create)(void* user_data);
  void (*terminate)(void* user_data);
  void (*pause)(void* user_data);
  void (*resume)(void* user_data);
  /// A launch request arrived. The handle belongs to the framework and is gone on return.
  void (*app_control)(app_control_h app_control, void* user_data);
};

/// Runs the program until `ui_app_exit`, and returns 0. What cannot be started ends the process here, with an exit
/// status of its own: the program ends with 0 whatever this returns.
int ui_app_main(int argc, char** argv, ui_app_lifecycle_callback_s* callbacks, void* user_data);

/// Asks the main loop to end; `terminate` is called on the way out.
void ui_app_exit();

/// The window that the framework made before `create`, or null when it made none. The caller owns it.
struct _Eo_Opaque* app_get_preinitialized_window(const char* window_name);

/// All of these return 0 on success and a negative code otherwise; `*handle` is set only on success.
int app_control_create(app_control_h* handle);
int app_control_destroy(app_control_h handle);
/// What the application is to do. The text is copied.
int app_control_set_operation(app_control_h handle, const char* operation);
int app_control_set_app_id(app_control_h handle, const char* app_id);
int app_control_add_extra_data(app_control_h handle, const char* key, const char* value);
/// `*value` is a `malloc` copy that the caller frees; untouched when the key is absent (negative result).
int app_control_get_extra_data(app_control_h handle, const char* key, char** value);
typedef void (*app_control_reply_cb)(app_control_h request, app_control_h reply, int result, void* user_data);
/// Starts the application named in the handle. `callback` may be null.
int app_control_send_launch_request(app_control_h handle, app_control_reply_cb callback, void* user_data);

/// 0 and `*running`, or a negative code.
int app_manager_is_running(const char* app_id, bool* running);

/// Where a path of the set's file system lies on this machine: on a set the path itself. The text is
/// static for the process and never null.
const char* app_get_deployed_path(const char* path);

}  // extern "C"
