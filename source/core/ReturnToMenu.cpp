#include "ReturnToMenu.h"

#include <cerrno>
#include <ctime>

#include "Log.h"
#include "MenuControl.h"
#include "WrapPatterns.h"
#include "app_framework.h"

namespace {

constexpr const char* kSelfDiagnosis = "com.vantrel.Mirabeck";
constexpr long kPollNanoseconds = 10'000'000;
/// Five seconds: the window must go even when the application never comes up.
constexpr int kMostPolls = 500;

bool Send(app_control_h handle) {
  const int result = app_control_send_launch_request(handle, nullptr, nullptr);
  if (result != 0) LOG_ERROR("Failed to send request[%d]", result);
  return result == 0;
}

void WaitForSelfDiagnosis() {
  for (int poll = 0; poll < kMostPolls; ++poll) {
    bool running = false;
    app_manager_is_running(kSelfDiagnosis, &running);
    if (running) return;
    timespec left = {0, kPollNanoseconds};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
  }
}

void LaunchSelfDiagnosis(app_control_h handle, const MenuControl& control) {
  app_control_set_app_id(handle, kSelfDiagnosis);
  if (!control.m_DeepLink.empty()) app_control_add_extra_data(handle, "deeplink", control.m_DeepLink.c_str());
  if (!control.m_DiagnosisType.empty()) {
    app_control_add_extra_data(handle, "DiagnosisType", control.m_DiagnosisType.c_str());
  }
  if (Send(handle)) WaitForSelfDiagnosis();
}

void LaunchReturnApplication(app_control_h handle, const MenuControl& control) {
  LOG_DEBUG("previous strMenuID[%s]", control.m_ReturnSubmenu.c_str());
  if (control.m_ReturnSubmenu.empty()) return;
  if (control.m_ReturnSubmenu == kSelfDiagnosis) {
    LaunchSelfDiagnosis(handle, control);
    return;
  }
  app_control_set_app_id(handle, control.m_ReturnSubmenu.c_str());
  Send(handle);
}

}  // namespace

void ReturnToMenu(const std::string& launchData) {
  if (launchData == "factory-export-to-usb" || launchData == "factory-import-from-usb") return;
  app_control_h handle = nullptr;
  if (app_control_create(&handle) != 0) {
    LOG_ERROR("app_control_create failed");
    return;
  }
  if (launchData == "signal-information" || launchData == "hdmi-information") {
    LaunchReturnApplication(handle, *Singleton<MenuControl>::GetInstance());
  }
  app_control_destroy(handle);
}
