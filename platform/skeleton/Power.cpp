// The power of the set: 0, or a negative code.
#include "power.h"

/// 1 keeps the last picture on the screen while the set restarts.
int fb_nv_set_disable(int disable) { return -1; }

/// Restarts the set a moment later; kind 3 is a restart that the menu asks for.
int device_power_request_reboot(int kind) { return -1; }
