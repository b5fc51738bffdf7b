#include "ReturnToMenu.h"

#include <cerrno>
#include <ctime>

#include "Launch.h"
#include "Log.h"
#include "MenuControl.h"
#include "WrapPatterns.h"
#include "app_framework.h"

namespace {

constexpr const char* kSelfDiagnosis = "com.vantrel.Mirabeck";
constexpr long kPollNanoseconds = 10'000'000;
/// Five seconds: the window must go even when the application never comes up.
constexpr int kMostPolls = 500;

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

void LaunchSelfDiagnosis(const MenuControl& control) {
  LaunchRequest request = {kSelfDiagnosis, {}};
  if (!control.m_DeepLink.empty()) request.extra.emplace_back("deeplink", control.m_DeepLink);
  if (!control.m_DiagnosisType.empty()) request.extra.emplace_back("DiagnosisType", control.m_DiagnosisType);
  if (Launch(request)) WaitForSelfDiagnosis();
}

}  // namespace

void ReturnToMenu(const std::string& launchData) {
  if (launchData != "signal-information" && launchData != "hdmi-information") return;
  const MenuControl& control = *Singleton<MenuControl>::GetInstance();
  LOG_DEBUG("previous strMenuID[%s]", control.m_ReturnSubmenu.c_str());
  if (control.m_ReturnSubmenu.empty()) return;
  if (control.m_ReturnSubmenu == kSelfDiagnosis) return LaunchSelfDiagnosis(control);
  Launch({control.m_ReturnSubmenu, {}});
}
