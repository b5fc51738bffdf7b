// Audio/video output service.
#pragma once

extern "C" {

/// Leaves on-screen-display mode. 0 on success, a negative code otherwise.
int avoc_exit_osd();

}  // extern "C"
