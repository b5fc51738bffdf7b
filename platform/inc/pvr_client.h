// Recorder client.
#pragma once

extern "C" {

/// 1 is success; then `svc_pvr_service_destroy` is due.
int svc_pvr_service_init();
/// `*result` is 1 when the service is being recorded (shifted in time), else 0. 0 on
/// success, -2 on failure.
int svc_pvr_is_recording(unsigned long long serviceId, int* result);
int svc_pvr_is_timeshifting(unsigned long long serviceId, int* result);
void svc_pvr_service_destroy();

}  // extern "C"
