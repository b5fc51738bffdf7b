#include "CountryUtil.h"

#include <cstdio>
#include <cstdlib>

#include "CountryTable.h"
#include "Log.h"
#include "factory_api.h"
#include "tvs_api.h"
#include "util.h"
#include "vconf.h"

namespace {

constexpr int kTextSize = 512;
constexpr const char* kPnPKey = "db/system/pnp_country";
constexpr const char* kAnalogKey = "db/system/analog_country";
constexpr const char* kDigitalKey = "db/system/country";
constexpr const char* kMultiRegionFeature = "com.vantrel/featureconf/multi_region_supported";

constexpr int kEasternEurope = 51, kOther = 78;
/// First-setup countries that analogue and digital reception know under another one.
constexpr int kAnalogEast[] = {11, 12, 19, 20, 31, 53, 54, 55, 56, 57, 58};
constexpr int kAnalogOther[] = {17, 22, 25, 52};
constexpr int kDigitalOther[] = {12, 25, 31, 53, 55, 56, 58};

constexpr int kNoDvbRegion = 17;
constexpr int kNoDvbCountries[] = {0, 2, 34, 64, 65, 67, 69, 70, 71, 72, 73, 74, 80, 85, 87};
constexpr int kFirstFixedRegion = 25, kLastFixedRegion = 29;

template <size_t N>
bool Contains(const int (&list)[N], int value) {
  for (const int entry : list) {
    if (entry == value) return true;
  }
  return false;
}

int ReadCountry(const char* key, int* country) { return country && vconf_get_int(key, country) == 0 ? 0 : -1; }

/// Whether a country list of the set has an entry; `name` is "d" or "a".
bool HasCountries(system_info_key_e key, const char* name) {
  _system_info_value_array list{};
  if (system_info_get_value_int_array(key, &list) != 0) {
    LOG_ERROR("system info get value fails");
    return false;
  }
  LOG_INFO("%s country LIST COUNT : %d ", name, list.count);
  const bool has = list.count >= 1;
  CCountryUtil::FreeSystemInfoIntArray(&list);
  return has;
}

/// What differs between the two reception countries.
struct Reception {
  const char* key;
  int (ISOSpecControl::*change)(int);
};
constexpr Reception kAnalog = {kAnalogKey, &ISOSpecControl::ChangeAnalogSOSpec};
constexpr Reception kDigital = {kDigitalKey, &ISOSpecControl::ChangeDigitalSOSpec};

bool IsAnalog(const Reception& reception) { return reception.key == kAnalogKey; }

int ApplyCountry(const Reception& reception, int country) {
  CTVSApiWrapper api;
  ISOSpecControl* control = api.CreateSOSpecControl();
  if (!control) {
    LOG_ERROR("CreateSOSpecControl fails");
    return -1;
  }
  if ((control->*reception.change)(country) <= 0) {
    if (IsAnalog(reception)) {
      LOG_ERROR("a country ChangeAnalogSOSpec fails");
    } else {
      LOG_ERROR("d country ChangeDigitalSOSpec fails");
    }
    return -1;
  }
  if (IsAnalog(reception)) {
    LOG_DEBUG("ChangeAnalogSOSpec country[%d]", country);
  } else {
    LOG_DEBUG("ChangeDigitalSOSpec country[%d]", country);
  }
  return 0;
}

int SetReception(const Reception& reception, int country) {
  int current = 0;
  const int result = vconf_get_int(reception.key, &current);
  LOG_DEBUG("ret[%d] curCountry[%d] country[%d]", result, current, country);
  if (result == 0 && current == country) return 0;
  if (vconf_set_int(reception.key, country) != 0) {
    if (IsAnalog(reception)) {
      LOG_ERROR("a country vconf set fails");
    } else {
      LOG_ERROR("d country vconf set fails");
    }
    return -1;
  }
  return ApplyCountry(reception, country);
}

}  // namespace

void CCountryUtil::GetCountryName(char* buf, system_info_country_e country) {
  if (!buf) {
    LOG_DEBUG("countryName == NULL");
    return;
  }
  LOG_DEBUG("country : %d", country);
  const char* name = "unknown country";
  for (const CountryRow& row : kCountryTable) {
    if (row.country == country) name = row.name;
  }
  snprintf(buf, kTextSize, "%s", name);
}

int CCountryUtil::GetAnalogCountryCode(int country) {
  if (Contains(kAnalogEast, country)) {
    LOG_DEBUG("Analog country %d is changed to EASTEUROPE_ANALOG", country);
    return kEasternEurope;
  }
  if (!Contains(kAnalogOther, country)) return country;
  LOG_DEBUG("Analog country %d is changed to OTHER", country);
  return kOther;
}

int CCountryUtil::GetDigitalCountryCode(int country) {
  if (!Contains(kDigitalOther, country)) return country;
  LOG_DEBUG("Digital country %d is changed to OTHER", country);
  return kOther;
}

int CCountryUtil::GetPnPCountry(int* country) {
  if (!country) {
    LOG_DEBUG("country==NULL");
    return -1;
  }
  const int result = vconf_get_int(kPnPKey, country);
  if (result != 0) LOG_ERROR("vconf error %d", result);
  return result == 0 ? 0 : -1;
}

int CCountryUtil::SetPnPCountry(int country) {
  int current = 0;
  if (vconf_get_int(kPnPKey, &current) == 0 && current == country) {
    LOG_DEBUG("Same Country");
    return 0;
  }
  LOG_DEBUG("country : %d", country);
  return vconf_set_int(kPnPKey, country);
}

int CCountryUtil::GetAnalogCountry(int* country) { return ReadCountry(kAnalogKey, country); }

int CCountryUtil::SetAnalogCountry(int country) { return SetReception(kAnalog, country); }

int CCountryUtil::GetDigitalCountry(int* country) { return ReadCountry(kDigitalKey, country); }

int CCountryUtil::SetDigitalCountry(int country) { return SetReception(kDigital, country); }

int CCountryUtil::ResetCountryRelatedInfoByPnP(int country) {
  int digital = -1, analog = -1;
  const bool read = GetDigitalCountry(&digital) == 0;
  if (GetAnalogCountry(&analog) != 0 || !read) {
    LOG_ERROR("Failed getting country, d[%d], a[%d]", digital, analog);
    return -1;
  }
  bool multiRegion = false;
  if (system_info_get_custom_bool(kMultiRegionFeature, &multiRegion) != 0) {
    LOG_ERROR("Failed getting 'com.vantrel/featureconf/multi_region_supported'");
    return -1;
  }
  if (multiRegion) {
    LOG_DEBUG("%s", factory_update_region_by_country(country) == 1 ? "Change BVLQ Region" : "Factory-api ERROR");
  }
  const int digitalResult = SetDigitalCountry(GetDigitalCountryCode(country));
  const int analogResult = SetAnalogCountry(GetAnalogCountryCode(country));
  if (digitalResult != 0 && analogResult != 0) {
    LOG_ERROR("Failed setting country, d[%d], a[%d]", digitalResult, analogResult);
    return -1;
  }
  if (SetPnPCountry(country) == 0) return 0;
  LOG_ERROR("Failed setting pnp country %d", country);
  return -1;
}

bool CCountryUtil::IsSupportDVBDigitalChannel() {
  return CUtil::GetRegionKind() != kNoDvbRegion && !Contains(kNoDvbCountries, CUtil::GetCountryId());
}

bool CCountryUtil::FlagVisibleCountryOptions() {
  const int region = CUtil::GetRegionKind();
  LOG_DEBUG("region kind : %d", region);
  return region < kFirstFixedRegion || region > kLastFixedRegion;
}

bool CCountryUtil::FlagVisibleDigitalCountry() {
  if (!FlagVisibleCountryOptions()) {
    LOG_DEBUG("no need to add country");
    return false;
  }
  if (CUtil::IsAtvOnly()) {
    LOG_DEBUG("atv only");
    return false;
  }
  return HasCountries(SYSTEM_INFO_KEY_D_COUNTRY_LIST, "d");
}

bool CCountryUtil::FlagVisibleAnalogCountry() {
  if (!FlagVisibleCountryOptions()) {
    LOG_DEBUG("no need to add country");
    return false;
  }
  if (CUtil::IsDtvOnly()) {
    LOG_DEBUG("dtv only");
    return false;
  }
  return HasCountries(SYSTEM_INFO_KEY_A_COUNTRY_LIST, "a");
}

void CCountryUtil::FreeSystemInfoIntArray(_system_info_value_array* array) {
  if (!array) return;
  free(array->values);
  array->values = nullptr;
  array->count = 0;
}

void CCountryUtil::FreeListItems(_item** list, int count) {
  if (!list) return;
  for (int i = 0; i < count; ++i) {
    if (list[i]) free(list[i]->name);
    free(list[i]);
  }
  free(list);
}
