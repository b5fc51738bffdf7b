#include "Utils.h"

#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "app_framework.h"
#include "system_info.h"
#include "toolkit_ext.h"
#include "vconf.h"

namespace {

constexpr const char* kThemeDirectory =
    "/usr/apps/com.vantrel.tv.ostrany-resource/shared/res/com.vantrel.tv.quirelle/edje/";

}  // namespace

bool Utils::IsHighContrastOn() {
  int value = 0;
  if (vconf_get_int("db/menu/system/accessibility/highcontrast", &value) == 0) return value != 0;
  LOG_ERROR("get high contrast failed but considering off");
  return false;
}

bool Utils::FlagVoiceGuideSetting() {
  int mode = 0;
  if (vconf_get_bool("db/setting/accessibility/tts", &mode) != 0) return false;
  LOG_DEBUG("Voice guide Mode is [%d]", mode);
  return mode != 0;
}

bool Utils::FlagTouchSupport() {
  bool touch = false;
  if (system_info_get_custom_bool("com.vantrel/featureconf/lfd_touch_support", &touch) != 0) {
    LOG_DEBUG("No Support Touch");
    return false;
  }
  LOG_DEBUG("TouchSupport[%d]", touch);
  return touch;
}

bool Utils::FlagOptionTV() {
  bool option = false;
  system_info_get_custom_bool("com.vantrel/featureconf/product.b2b_option_support", &option);
  LOG_DEBUG("B2B Option Support: %d", option);
  return option;
}

bool Utils::FlagReverseMode() {
  if (ua_UI_orientation_get() == 0) return false;
  LOG_DEBUG("Reverse Mode");
  return true;
}

std::string Utils::GetEDJFile() {
  const std::string file = IsHighContrastOn() ? "quirelle_hc.edj" : "quirelle_dark.edj";
  return app_get_deployed_path((kThemeDirectory + file).c_str());
}

std::string Utils::GetTranslationStr(const char* id) { return T(id); }

void Utils::setColorChips(const char* colorClass, const char* chip) {
  int r = 0, g = 0, b = 0, a = 0;
  if (ui_config_manager_color_chip_color_get(chip, &r, &g, &b, &a) != 0) return;
  LOG_DEBUG("color_class=%s, colorChip=%s %02x%02x%02x %02x", colorClass, chip, r, g, b, a);
  edje_color_class_set(colorClass, r, g, b, a, 0, 0, 0, 0, 0, 0, 0, 0);
}

void Utils::DisableBgRect(Evas_Object* popup) { elm_object_signal_emit(popup, theme::kHideBackground, theme::kSource); }
