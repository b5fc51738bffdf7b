// System information and feature keys: what this model of TV is and has.
#pragma once

extern "C" {

enum system_info_key_e : int {
  SYSTEM_INFO_KEY_NUM_OF_TUNER = 18,
  SYSTEM_INFO_KEY_REGION_CODE = 90,
  SYSTEM_INFO_KEY_NUM_OF_DTV = 110,
  SYSTEM_INFO_KEY_NUM_OF_ATV = 112,
  SYSTEM_INFO_KEY_REGION_KIND = 127,
  SYSTEM_INFO_KEY_CHANNEL_LIST_NAME = 128,  ///< what the files of this model's channel lists are called after
  SYSTEM_INFO_KEY_TUNER_KIND = 131,
  SYSTEM_INFO_KEY_LOCAL_SET = 284,
  SYSTEM_INFO_KEY_TV_CURRENT_YEAR = 367,
  SYSTEM_INFO_KEY_D_COUNTRY_LIST = 389,
  SYSTEM_INFO_KEY_A_COUNTRY_LIST = 390,
  SYSTEM_INFO_KEY_PANEL_TYPE_82INCH_SDC = 670
};

enum system_settings_key_e : int { SYSTEM_SETTINGS_KEY_COUNTRY = 57 };

/// Values stand in the tables that name them; -1 is none.
enum system_info_country_e : int {};
enum system_info_language_e : int {};

/// Bits of what the tuners receive.
enum system_info_tuner_kind_e : int {
  SYSTEM_INFO_TUNER_AIR = 1,
  SYSTEM_INFO_TUNER_AIR2 = 2,
  SYSTEM_INFO_TUNER_CABLE = 4,
  SYSTEM_INFO_TUNER_SATELLITE = 8
};

struct _system_info_value_array {
  int* values;
  int count;
};

/// All of these: 0 on success, a negative code otherwise, and then the output is untouched. Texts are
/// `malloc` copies and so are the values of an array; the caller frees them.
int system_info_get_value_int(system_info_key_e key, int* value);
int system_info_get_value_bool(system_info_key_e key, bool* value);
int system_info_get_value_string(system_info_key_e key, char** value);
int system_info_get_value_int_array(system_info_key_e key, _system_info_value_array* value);
int system_settings_get_value_int(system_settings_key_e key, int* value);
/// Feature keys ("com.vantrel/featureconf/...").
int system_info_get_custom_bool(const char* key, bool* value);
int system_info_get_custom_int(const char* key, int* value);
int system_info_get_custom_string(const char* key, char** value);

}  // extern "C"
