#include "MenuControl.h"

#include <cstdlib>

#include "TvsUtil.h"
#include "system_info.h"

namespace {

constexpr int kMainPicture = 1;
constexpr const char* kSignalInformationFeature =
    "com.vantrel/featureconf/broadcast.quirelle.signal_information_enabled";

void ReadExtraData(app_control_h request, const char* key, std::string& field) {
  char* value = nullptr;
  if (app_control_get_extra_data(request, key, &value) != 0 || !value) return;
  field = value;
  free(value);
}

}  // namespace

bool MenuControl::SetLaunchParam(app_control_h request) {
  m_LaunchData.clear();
  ReadExtraData(request, "ID", m_LaunchData);
  ReadExtraData(request, "PrevSubmenu", m_ReturnSubmenu);
  ReadExtraData(request, "deeplink", m_DeepLink);
  ReadExtraData(request, "DiagnosisType", m_DiagnosisType);
  if (m_LaunchData == "information-window" && !m_ResolveInformationWindow()) return false;
  LOG_DEBUG("m_LaunchData is [%s], m_ReturnSubmenu is [%s]", m_LaunchData.c_str(), m_ReturnSubmenu.c_str());
  return true;
}

bool MenuControl::m_ResolveInformationWindow() {
  if (CTvsUtil::FlagCurrentChannelVirtual(static_cast<EProfile>(kMainPicture))) {
    LOG_ERROR("Signal Information is not avaible for Virtual services");
    return false;
  }
  bool enabled = false;
  if (system_info_get_custom_bool(kSignalInformationFeature, &enabled) != 0) {
    LOG_ERROR("system_info_get_custom_bool() fail");
    return false;
  }
  if (!enabled) {
    LOG_ERROR("Signal Information/HDMI Information window is not avaible on LFD product");
    return false;
  }
  m_LaunchData = CTvsUtil::IsCurrentSourceHDMI() ? "hdmi-information" : "signal-information";
  return true;
}

void MenuControl::Clear() {
  m_LaunchData.clear();
  m_ReturnSubmenu.clear();
  m_DeepLink.clear();
  m_DiagnosisType.clear();
}
