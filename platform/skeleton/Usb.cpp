// USB sticks. What returns an int returns 0 on success.
#include "usb_device.h"

/// Opens the service; calls nest.
int usb_device_init() { return -1; }

int usb_device_fini() { return -1; }

/// The devices of a class by name, which `usb_device_free_device_list` frees with the list.
int usb_device_get_device_list(int device_class, usb_device_list_h* list) { return -1; }

/// Anything but 0: there is no (further) device.
int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device) { return -1; }

int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device) { return -1; }

int usb_device_free_device_list(usb_device_list_h list) { return -1; }

const char* usb_device_get_product(usb_device_h device) { return ""; }

/// "n/a" for a device that is not mounted.
const char* usb_device_get_mountpath(usb_device_h device) { return "n/a"; }

int usb_device_get_class(usb_device_h device) { return -1; }

/// Calls back on the main loop with each device that comes or goes; the callee frees it.
int usb_set_connected_cb(usb_device_connected_cb callback, void* data) { return -1; }

int usb_unset_connected_cb() { return -1; }

int free_usb_device_h(usb_device_h device) { return -1; }
