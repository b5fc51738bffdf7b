// The power of the set, and the picture that it shows meanwhile.
#pragma once

extern "C" {

/// 1 keeps the last picture on the screen while the set restarts, 0 does not. 0 on success, otherwise negative, also
/// below.
int fb_nv_set_disable(int disable);

/// Asks the set to restart, which it does a moment later. Kind 3 is a restart that the menu asks for.
int device_power_request_reboot(int kind);

}  // extern "C"
