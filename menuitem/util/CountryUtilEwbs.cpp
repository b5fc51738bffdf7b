#include <cstdio>
#include <cstdlib>

#include "CountryUtil.h"
#include "EwbsTable.h"
#include "Log.h"
#include "util.h"
#include "vconf.h"

namespace {

constexpr const char* kProvinceKey = "db/menu/broadcasting/ewbs_province";
constexpr const char* kAreaKey = "db/menu/broadcasting/ewbs_area_code";
constexpr int kEcuador = 69, kPhilippines = 85;

using Names = std::vector<nameMap>;

/// The places of one country.
struct Places {
  const Names &provinces, &areas;
  const std::vector<std::vector<AreaRange>>& areasOfProvinces;
};

/// Null in a country without emergency warnings.
const Places* PlacesHere() {
  static const Places ecuador = {EWBS_PROVINCE_NAME_TABLE(), EWBS_AREA_CODE_NAME_TABLE(), EWBS_PROVINCE_AREAS()};
  static const Places philippines = {EWBS_PHI_PROVINCE_NAME_TABLE(), EWBS_PHI_AREA_CODE_NAME_TABLE(),
                                     EWBS_PHI_PROVINCE_AREAS()};
  const int country = CUtil::GetCountryId();
  if (country == kEcuador) return &ecuador;
  if (country == kPhilippines) return &philippines;
  LOG_DEBUG("Non Support EWBS Country");
  return nullptr;
}

/// Null for an ID that the table does not have.
const nameMap* FindById(const Names& names, int id) {
  LOG_DEBUG("id : %d", id);
  for (const nameMap& entry : names) {
    if (entry.id == id) return &entry;
  }
  LOG_DEBUG("impossible case : cannot found %d", id);
  return nullptr;
}

int FindBySaveName(const Names& names, const std::string& saveName) {
  LOG_DEBUG("saveName : %s", saveName.c_str());
  for (const nameMap& entry : names) {
    if (entry.saveName != saveName) continue;
    LOG_DEBUG("found : %d", entry.id);
    return entry.id;
  }
  LOG_DEBUG("impossible case : cannot found %s", saveName.c_str());
  return -1;
}

/// False when the key is missing.
bool ReadName(const char* key, std::string& name) {
  char* value = vconf_get_str(key);
  if (!value) {
    LOG_DEBUG("value == NULL");
    return false;
  }
  name = value;
  free(value);
  return true;
}

_item** MakeList(const std::vector<const nameMap*>& entries, int* count) {
  auto** list = static_cast<_item**>(calloc(entries.size(), sizeof(void*)));
  *count = static_cast<int>(entries.size());
  for (size_t i = 0; i < entries.size(); ++i) {
    list[i] = static_cast<_item*>(calloc(1, sizeof(_item)));
    list[i]->value = entries[i]->id;
    list[i]->name = static_cast<char*>(calloc(_item::kNameSize, 1));
    snprintf(list[i]->name, _item::kNameSize, "%s", entries[i]->displayName.c_str());
    LOG_DEBUG("name : %s, value : %d", list[i]->name, list[i]->value);
  }
  LOG_DEBUG("count : %d", *count);
  return list;
}

int ReadPlace(const char* key, int* id, int (*idOf)(const std::string&)) {
  if (!id) {
    LOG_DEBUG("province == NULL");
    return -1;
  }
  std::string name;
  if (!ReadName(key, name)) return -1;
  *id = idOf(name);
  return *id == -1 ? -1 : 0;
}

}  // namespace

std::string CCountryUtil::GetEWBSProvinceNameByID(int id, bool display) {
  const Places* places = PlacesHere();
  const nameMap* entry = places ? FindById(places->provinces, id) : nullptr;
  if (!entry) return "";
  LOG_DEBUG("found : %s, %s", entry->saveName.c_str(), entry->displayName.c_str());
  return display ? entry->displayName : entry->saveName;
}

std::string CCountryUtil::GetEWBSAreaCodeNameByID(int id, bool display) {
  const Places* places = PlacesHere();
  const nameMap* entry = places ? FindById(places->areas, id) : nullptr;
  if (!entry) return "";
  LOG_DEBUG("found : %s / %s", entry->saveName.c_str(), entry->displayName.c_str());
  return display ? entry->displayName : entry->saveName;
}

int CCountryUtil::GetEWBSProvinceIDBySaveName(const std::string& saveName) {
  const Places* places = PlacesHere();
  return places ? FindBySaveName(places->provinces, saveName) : -1;
}

int CCountryUtil::GetEWBSAreaCodeIDBySaveName(const std::string& saveName) {
  const Places* places = PlacesHere();
  return places ? FindBySaveName(places->areas, saveName) : -1;
}

int CCountryUtil::GetEWBSProvince(int* province) {
  return ReadPlace(kProvinceKey, province, GetEWBSProvinceIDBySaveName);
}

int CCountryUtil::GetEWBSAreaCode(int* area) { return ReadPlace(kAreaKey, area, GetEWBSAreaCodeIDBySaveName); }

int CCountryUtil::SetEWBSProvince(int province) {
  const Places* places = PlacesHere();
  const nameMap* entry = places ? FindById(places->provinces, province) : nullptr;
  if (!entry) return -1;
  if (vconf_set_str(kProvinceKey, entry->saveName.c_str()) != 0) {
    LOG_ERROR("VCONF SET FAILS");
    return -1;
  }
  return SetEWBSAreaCodeToDefault();
}

int CCountryUtil::SetEWBSAreaCode(int area) {
  const Places* places = PlacesHere();
  const nameMap* entry = places ? FindById(places->areas, area) : nullptr;
  return entry ? vconf_set_str(kAreaKey, entry->saveName.c_str()) : -1;
}

_item** CCountryUtil::GetEWBSProvinceList(int* count) {
  const Places* places = PlacesHere();
  if (!places || !count) return nullptr;
  std::vector<const nameMap*> entries;
  for (const nameMap& province : places->provinces) entries.push_back(&province);
  return MakeList(entries, count);
}

_item** CCountryUtil::GetEWBSAreaCodeList(int* count) {
  const Places* places = PlacesHere();
  if (!places || !count) return nullptr;
  std::string stored;
  if (!ReadName(kProvinceKey, stored)) {
    LOG_DEBUG("province == NULL");
    return nullptr;
  }
  const int province = FindBySaveName(places->provinces, stored);
  if (province == -1) {
    LOG_ERROR("currentProvince == -1");
    return nullptr;
  }
  std::vector<const nameMap*> entries;
  for (const AreaRange& range : places->areasOfProvinces[static_cast<size_t>(province)]) {
    for (int id = range.first; id <= range.last; ++id) entries.push_back(&places->areas[static_cast<size_t>(id)]);
  }
  return MakeList(entries, count);
}

int CCountryUtil::SetEWBSAreaCodeToDefault() {
  int count = 0;
  _item** areas = GetEWBSAreaCodeList(&count);
  if (!areas || count < 1) {
    LOG_ERROR("GET ITEM FAILS");
    FreeListItems(areas, count);
    return -1;
  }
  const int result = SetEWBSAreaCode(areas[0]->value);
  FreeListItems(areas, count);
  return result;
}
