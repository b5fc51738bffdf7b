// The country settings, and the place for emergency warnings.
#pragma once

#include <string>

#include "system_info.h"

/// A list entry; lists are arrays of pointers from `calloc`.
struct _item {
  static constexpr int kNameSize = 512;
  int value;
  char* name;  ///< `kNameSize` bytes
};

/// Results of 0 / -1 are success / failure.
class CCountryUtil {
 public:
  /// String ID of a country: at most 511 characters and the terminator.
  static void GetCountryName(char* buf, system_info_country_e country);

  // The country of the first setup, and the reception countries that follow from it.
  static int GetAnalogCountryCode(int country);
  static int GetDigitalCountryCode(int country);
  static int GetPnPCountry(int* country);
  static int SetPnPCountry(int country);
  static int GetAnalogCountry(int* country);
  static int SetAnalogCountry(int country);
  static int GetDigitalCountry(int* country);
  static int SetDigitalCountry(int country);
  static int ResetCountryRelatedInfoByPnP(int country);

  static bool IsSupportDVBDigitalChannel();
  static bool FlagVisibleCountryOptions();
  static bool FlagVisibleDigitalCountry();
  static bool FlagVisibleAnalogCountry();

  // Place for emergency warnings, in the country that the set is in: a province and an area within it.
  // IDs count from 0; a name is kept in plain letters and shown with its own ("display").
  static int GetEWBSProvince(int* province);
  /// Also moves the area to the province's first.
  static int SetEWBSProvince(int province);
  /// Lists go back with `FreeListItems`; null when there is none.
  static _item** GetEWBSProvinceList(int* count);
  static std::string GetEWBSProvinceNameByID(int id, bool display);
  static int GetEWBSProvinceIDBySaveName(const std::string& saveName);
  static int GetEWBSAreaCode(int* area);
  static int SetEWBSAreaCode(int area);
  /// The areas of the stored province.
  static _item** GetEWBSAreaCodeList(int* count);
  static std::string GetEWBSAreaCodeNameByID(int id, bool display);
  static int GetEWBSAreaCodeIDBySaveName(const std::string& saveName);
  static int SetEWBSAreaCodeToDefault();

  static void FreeSystemInfoIntArray(_system_info_value_array* array);
  static void FreeListItems(_item** list, int count);
};
