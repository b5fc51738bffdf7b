// A restart of the set ends the program, as it does on any set.
#include "power.h"

#include "Application.h"
#include "Gate.h"

using namespace desktop;

int fb_nv_set_disable(int disable) {
  return Gate::Pass<int>(op::fb_nv_set_disable, Entry(disable), [](Entry&) { return 0; });
}

int device_power_request_reboot(int kind) {
  return Gate::Pass<int>(op::device_power_request_reboot, Entry(kind), [](Entry&) {
    if (Application* application = Application::Current()) application->Exit();
    return 0;
  });
}
