// Other applications of the set.
#pragma once

extern "C" {

/// Sends a running application to the background. 0 on success, a negative code otherwise.
int app_manager_pause_app(const char* app_id);

}  // extern "C"
