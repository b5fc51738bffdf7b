#include <cmath>
#include <cstdlib>
#include <cstring>

#include "Launch.h"
#include "Log.h"
#include "TextUtil.h"
#include "TvsShared.h"
#include "TvsUtil.h"
#include "Utils.h"
#include "app_framework.h"
#include "app_manager.h"
#include "system_info.h"
#include "vconf.h"

namespace {

constexpr const char* kNumberPad = "org.nyxel.function-osd";
constexpr const char* kNumberPadKey = "memory/function-osd/number_pad_show";
constexpr int kNumberPadShown = 1;

constexpr const char* kDeviceFeature = "com.vantrel/featureconf/product.device_sid";
constexpr const char* kProjectorFeature = "com.vantrel/featureconf/projector_feature_support";
constexpr const char* kProductLineFeature = "com.vantrel/featureconf/zorbel_version";

constexpr const char* kSatelliteKey = "db/menu/broadcasting/channel-settings/satellite-system/lnb-settings/satellite";
constexpr const char* kLimitKey =
    "db/menu/broadcasting/channel-settings/satellite-system/installer-mode/limit-position";
constexpr const char* kMovingModeKey = "db/menu/broadcasting/channel-settings/satellite-system/user-mode/moving-mode";
constexpr const char* kStepSizeKey = "db/menu/broadcasting/channel-settings/satellite-system/user-mode/step-size";

bool SendPositioner(EPositionerCommand command, int parameter) {
  CTVSApiWrapper api;
  ISatelliteControl* control = api.CreateSatelliteControl();
  if (!control) {
    LOG_ERROR("Interface creation failed!");
    return false;
  }
  if (control->SendPositionerCommand(command, parameter) >= 0) return true;
  LOG_ERROR("Sending command failed!");
  return false;
}

/// Stores the dish position in the slot of the satellite being set up.
void StoreInSlot() {
  int satellite = SATELLITE_NONE;
  vconf_get_int(kSatelliteKey, &satellite);
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_ERROR("Interface creation failed!");
    return;
  }
  TSSatelliteSettings own;
  if (settings->GetSatelliteSettings(static_cast<ESatelliteId>(satellite), own) < 0) {
    LOG_ERROR("Geting current satellite settigns failed");
    return;
  }
  LOG_DEBUG("Current Sat=[%d], Slot Id=[%d]", satellite, own.slotId);
  SendPositioner(POSITIONER_STORE, own.slotId);
}

/// The set's own word for itself, empty when it has none.
std::string DeviceWord() {
  char* text = nullptr;
  if (system_info_get_custom_string(kDeviceFeature, &text) != 0) {
    LOG_ERROR("system_info_get_custom_string() fails for 'com.vantrel/featureconf/product.device_sid'");
    return "";
  }
  const std::string word = Utils::WrapMallocdString(text);
  return word == "NOT_READY" ? "" : word;
}

const char* ProductLineWord(int version) {
  return version == 1 ? "COM_SID_ZORBEL" : version == 2 ? "TV_SID_MLED_CAOCT_NON_MICRO_LED" : nullptr;
}

}  // namespace

bool Utils::IsPipOn() { return tvs::IsPipShown(); }

std::string Utils::GetProductTypeOSD() {
  if (std::string word = DeviceWord(); !word.empty()) return word;
  bool projector = false;
  if (system_info_get_custom_bool(kProjectorFeature, &projector) != 0) {
    LOG_ERROR("Failed to get com.vantrel/featureconf/projector_feature_support value[%d]", projector);
  }
  if (projector) return "PJT_SID_TV";
  int version = 0;
  if (system_info_get_custom_int(kProductLineFeature, &version) != 0) {
    LOG_ERROR("Failed to get com.vantrel/featureconf/zorbel_version value[%d]", version);
  }
  if (const char* word = ProductLineWord(version)) return word;
  LOG_DEBUG("Default case for regular TV (product.device_sid FMS has returned NOT_READY)");
  return "SID_TV";
}

bool Utils::FlagPanelType82InchSdc() {
  bool flag = false;
  system_info_get_value_bool(SYSTEM_INFO_KEY_PANEL_TYPE_82INCH_SDC, &flag);
  return flag;
}

char* Utils::GetCountryCode() {
  TCBinderManager* binder = TCBinderManager::Instance();
  if (!binder) {
    LOG_ERROR("Get Binder failed");
    return strdup("");
  }
  constexpr int kCountryLetters = 1;
  unsigned int letters = 0;
  binder->GetValue(kCountryLetters, letters);
  const char text[] = {' ', static_cast<char>(letters >> 16 & 0xFF), static_cast<char>(letters >> 8 & 0xFF),
                       static_cast<char>(letters & 0xFF), '\0'};
  LOG_DEBUG("countryCodeText=%s", text);
  return strdup(text);
}

int Utils::GetNumberFromKey(const char* keyName) {
  if (!keyName) return -1;
  const char* digit = std::strncmp(keyName, "KP_", 3) == 0 ? keyName + 3 : keyName;
  return digit[0] >= '0' && digit[0] <= '9' && digit[1] == '\0' ? digit[0] - '0' : -1;
}

void Utils::LaunchNumberPad(const char* key, const char* value) {
  if (!key || !value) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  int state = 0;
  if (vconf_get_int(kNumberPadKey, &state) != 0) LOG_ERROR("vconf get NUMBERPAD_APP_STATE failed.");
  if (state == kNumberPadShown) {
    LOG_DEBUG("Function-osd is running state. so don't launch again");
    return;
  }
  Launch({kNumberPad, {{key, value}}});
}

void Utils::CloseNumberPad() {
  int state = 0;
  if (vconf_get_int(kNumberPadKey, &state) != 0) LOG_ERROR("vconf get NUMBERPAD_APP_STATE failed.");
  bool running = false;
  if (state != kNumberPadShown && app_manager_is_running(kNumberPad, &running) == 0 && running) {
    LOG_DEBUG("Function-osd is not running, close it.");
    app_manager_pause_app(kNumberPad);
  } else {
    LOG_DEBUG("Function-osd app is not running.");
  }
}

void Utils::ReplaceSingleText(char* dst, const char* text, const char* pattern, const char* replacement, size_t size) {
  if (!dst || !text || !pattern || !replacement || size == 0) {
    LOG_DEBUG("params error.");
    return;
  }
  LOG_DEBUG("original text:%s", text);
  std::string result = text;
  const size_t at = *pattern ? result.find(pattern) : std::string::npos;
  if (at != std::string::npos) result.replace(at, std::strlen(pattern), replacement);
  CopyText(dst, size, result);
  LOG_DEBUG("result text:%s", dst);
}

bool Utils::CompareDouble(double a, double b) { return std::fabs(a - b) < 0.00001; }

std::string Utils::WrapMallocdString(char* text) {
  std::string owned = text ? text : "";
  free(text);
  return owned;
}

bool Utils::GetSatCRSettings(int slot, TSSatCRSettings& settings) {
  CTVSApiWrapper api;
  ISatelliteSettings* satellite = api.CreateSatelliteSettings();
  if (!satellite) {
    LOG_DEBUG("pSatelliteSettings is null");
    return false;
  }
  if (satellite->GetSatCRSettings(static_cast<unsigned short>(slot), settings) != 1) {
    LOG_ERROR("GetSatCRSettings fails");
    return false;
  }
  LOG_DEBUG("slotNumber : %d, slotFreq : %d ", settings.slotNumber, settings.slotFrequency);
  return true;
}

void Utils::UserStorePosition() { StoreInSlot(); }

void Utils::InstallerStorePosition() {
  int limit = 0;
  vconf_get_int(kLimitKey, &limit);
  LOG_DEBUG("Limited position is %d", limit);
  if (SendPositioner(limit == 0 ? POSITIONER_LIMIT_EAST : POSITIONER_LIMIT_WEST, 0)) StoreInSlot();
}

void Utils::InstallerGoToZero() { SendPositioner(POSITIONER_GO_TO_ZERO, 0); }

void Utils::InstallerResetLimit() { SendPositioner(POSITIONER_RESET_LIMIT, 0); }

bool Utils::ResetSatelliteSettings() {
  LOG_DEBUG("Resetting satellite settings");
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_ERROR("Interface creation failed!");
    return false;
  }
  constexpr int kEverything = 0, kAllSatellites = -1;
  settings->ResetSatelliteSettings(kEverything, kAllSatellites);
  vconf_set_int(kMovingModeKey, 0);
  vconf_set_int(kStepSizeKey, 1);
  CTvsUtil::InitSelectedSatellite(true);
  CTvsUtil::InitSelectedTransponder(true);
  CTvsUtil::SetDefaultChannelAfterSatellitePropertyChanges();
  return true;
}

void Utils::ExportChannelList(const std::string& path) {
  LOG_DEBUG("Export start");
  CTVSApiWrapper api;
  if (IUtil* util = api.CreateUtil()) {
    util->GetServiceDb(path);
  } else {
    LOG_ERROR("Interface creation failed!");
  }
  LOG_DEBUG("Export end");
}

int Utils::LoadImportedChannelList(const char* zipPath) {
  constexpr int kOtherFailure = 3;
  CTVSApiWrapper api;
  IUtil* util = api.CreateUtil();
  if (!util) {
    LOG_ERROR("Interface creation failed!");
    return kOtherFailure;
  }
  const int status = util->SetServiceDb(zipPath ? zipPath : "");
  LOG_DEBUG("Import result: zipFilePath = %s status = %d", zipPath ? zipPath : "", status);
  return status;
}

bool Utils::ResetService() {
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(PROFILE_MAIN, 0);
  if (navigation) return navigation->ResetService() > 0;
  LOG_ERROR("Interface creation failed!");
  return false;
}
