// USB devices of the set.
#pragma once

extern "C" {

struct usb_device_s;
typedef usb_device_s* usb_device_h;
/// Devices with the place of a walk over them.
struct usb_device_list_s;
typedef usb_device_list_s* usb_device_list_h;

/// The class of a mass-storage device.
enum { USB_CLASS_MASS_STORAGE = 8 };

/// Opens and closes the service; calls nest. 0 on success, also below, otherwise negative.
int usb_device_init();
int usb_device_fini();

/// The devices of a class, in the order of their names. The caller frees the list, and the devices with it.
int usb_device_get_device_list(int device_class, usb_device_list_h* list);
/// Anything but 0: there is no (further) device.
int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device);
int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device);
int usb_device_free_device_list(usb_device_list_h list);

/// Texts live as long as the device. The mount path is "n/a" for a device that is not mounted.
const char* usb_device_get_product(usb_device_h device);
const char* usb_device_get_mountpath(usb_device_h device);
/// Negative for a null device.
int usb_device_get_class(usb_device_h device);

/// Calls `callback` on the main loop with every device that comes ("added") or goes ("blocked"), which still says where
/// it was mounted; the callee frees the device. One callback at a time: a second takes the place of the first.
typedef void (*usb_device_connected_cb)(usb_device_h device, const char* action, void* data);
int usb_set_connected_cb(usb_device_connected_cb callback, void* data);
int usb_unset_connected_cb();
int free_usb_device_h(usb_device_h device);

}  // extern "C"
