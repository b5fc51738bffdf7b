#include "Launch.h"

#include <cstdio>

#include "Log.h"
#include "app_framework.h"

namespace {

void Complain(const char* format, int result) {
  char text[128];
  snprintf(text, sizeof text, format, result);
  LOG_ERROR("%s", text);
}

}  // namespace

bool Launch(const LaunchRequest& request) {
  app_control_h handle = nullptr;
  if (const int result = app_control_create(&handle); result != 0) {
    Complain(request.notCreated, result);
    return false;
  }
  if (request.operation) app_control_set_operation(handle, request.operation);
  app_control_set_app_id(handle, request.application.c_str());
  for (const auto& [key, value] : request.extra) app_control_add_extra_data(handle, key, value.c_str());
  const int result = app_control_send_launch_request(handle, nullptr, nullptr);
  if (result != 0) Complain(request.notSent, result);
  app_control_destroy(handle);
  return result == 0;
}
