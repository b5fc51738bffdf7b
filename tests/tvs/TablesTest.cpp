// The tables, against their numbers written down a second time.
#include <map>
#include <set>

#include "AntennaUtil.h"
#include "CommonUtil.h"
#include "CountryUtil.h"
#include "TvsTest.h"
#include "Utils.h"
#include "util.h"

namespace test {

namespace {

class TablesTest : public TvsTest {
 protected:
  void SetRegion(int region) { m_tv.Set("system_info/127", std::to_string(region)); }
};

/// The types of antennas that stand for a mode; 0 is no broadcaster.
struct AntennaType {
  int antennaMode, serviceMode, broadcaster;
};
const std::map<int, AntennaType> kTypes = {
    {0, {0, -1, 0}},   {1, {1, -1, 0}},   {3, {2, 1, 0}},    {4, {2, 3, 17}},   {5, {2, 4, 16}},   {6, {2, 5, 15}},
    {7, {2, 6, 18}},   {8, {2, 7, 19}},   {9, {2, 8, 20}},   {10, {2, 9, 22}},  {11, {2, 10, 23}}, {12, {2, 11, 25}},
    {13, {2, 12, 26}}, {14, {2, 13, 21}}, {15, {2, 14, 27}}, {16, {2, 15, 29}}, {17, {2, 16, 30}}, {18, {2, 17, 31}},
    {19, {2, 18, 32}}, {20, {2, 19, 0}},  {24, {2, 23, 38}}, {25, {2, 24, 41}}, {26, {2, 25, 40}}, {27, {2, 26, 39}},
    {28, {2, 27, 43}}, {29, {2, 28, 46}}, {30, {2, 29, 48}}, {31, {2, 34, 50}}, {32, {2, 35, 51}}, {33, {2, 36, 52}},
    {34, {2, 38, 66}}, {35, {2, 39, 70}}, {36, {2, 40, 73}}, {37, {2, 45, 77}}, {38, {2, 47, 79}}, {39, {2, 46, 78}},
    {40, {2, 49, 83}}, {41, {2, 48, 82}}, {42, {2, 50, 84}}, {43, {2, 51, 85}}, {44, {2, 42, 74}}, {45, {2, 52, 87}},
    {47, {0, -1, 0}},  {48, {0, -1, 0}},  {49, {1, -1, 0}},  {50, {1, -1, 0}},  {54, {2, 1, 24}}};

const std::set<int> kAtscRegions = {1, 2, 36};
const std::set<int> kIsdbRegions = {3, 14, 15, 17, 18, 20, 21, 30};

int Standard(int region, int country) {
  if (kAtscRegions.count(region)) return 1;
  if (kIsdbRegions.count(region)) return 3;
  if (region < 25 || region > 29) return 2;
  return country == 87 ? 1 : country == 69 || country == 74 ? 3 : 2;
}

std::string Name(CAntennaUtil::EMenuAntennaType type) {
  char text[512] = "untouched";
  CAntennaUtil::GetAntennaName(type, text);
  return text;
}

}  // namespace

TEST_F(TablesTest, RegionAndCountryGiveTheStandard) {
  const std::set<int> noDvb = {0, 2, 34, 64, 65, 67, 69, 70, 71, 72, 73, 74, 80, 85, 87};
  for (int region = 0; region <= 40; ++region) {
    SetRegion(region);
    for (const int country : {0, 2, 8, 10, 26, 27, 28, 34, 64, 65, 67, 69, 70, 71, 72, 73, 74, 75, 80, 85, 87, 88}) {
      SetCountry(country);
      const std::string where = std::to_string(region) + " x " + std::to_string(country);
      EXPECT_EQ(CUtil::GetDTVStandard(), Standard(region, country)) << where;
      EXPECT_EQ(CUtil::FlagATSC(), kAtscRegions.count(region) || (region == 27 && country == 87)) << where;
      EXPECT_EQ(CUtil::FlagNordicCountry(), country == 10 || (country >= 26 && country <= 28)) << where;
      EXPECT_EQ(CCountryUtil::IsSupportDVBDigitalChannel(), region != 17 && !noDvb.count(country)) << where;
    }
    EXPECT_EQ(CUtil::IsExceptionRegionForDVB(), region == 10 || region == 13 || region == 26) << region;
    EXPECT_EQ(CCountryUtil::FlagVisibleCountryOptions(), region < 25 || region > 29) << region;
  }
  m_tv.Remove("system_settings/57");
  for (int region = 25; region <= 29; ++region) {
    SetRegion(region);
    EXPECT_EQ(CUtil::GetDTVStandard(), 0) << region;
  }
  m_tv.Remove("system_info/127");
  EXPECT_EQ(CUtil::GetDTVStandard(), 0);
}

TEST_F(TablesTest, EveryAntennaTypeBothWays) {
  for (int i = 0; i < 55; ++i) {
    SCOPED_TRACE(i);
    const TSTvMode mode = CAntennaUtil::GetTVModeByMenuAntennaType(static_cast<CAntennaUtil::EMenuAntennaType>(i));
    const auto type = kTypes.find(i);
    EXPECT_EQ(mode.antennaMode, type == kTypes.end() ? -1 : type->second.antennaMode);
    EXPECT_EQ(mode.serviceMode, type == kTypes.end() ? -1 : type->second.serviceMode);

    if (mode.antennaMode < 0) continue;
    Change("UPDATE picture SET antenna = ?, service_mode = ?", mode.antennaMode, mode.serviceMode);
    CAntennaUtil::EMenuAntennaType back;
    ASSERT_EQ(CAntennaUtil::GetAntennaMode(&back, PROFILE_MAIN), 0);
    const int other = i == 54 ? 3 : i == 47 || i == 48 ? 0 : i == 49 || i == 50 ? 1 : i;
    EXPECT_EQ(back, other);
    const bool selection = i <= 3 || i == 12 || i == 20 || i == 32 || i == 33 || i >= 46;
    EXPECT_EQ(CAntennaUtil::FlagEnableSatelliteSelection(), selection);
    EXPECT_EQ(CAntennaUtil::FlagSpecificSatelliteMode(), other != 0 && other != 1 && other != 3);
    EXPECT_EQ(CAntennaUtil::IsCurrentOperatorTKGS(), i == 36);
  }
  Change("UPDATE picture SET antenna = 3");
  CAntennaUtil::EMenuAntennaType type;
  ASSERT_EQ(CAntennaUtil::GetAntennaMode(&type, PROFILE_MAIN), 0);
  EXPECT_EQ(type, 46);
  EXPECT_EQ(CAntennaUtil::GetAntennaMode(nullptr, PROFILE_MAIN), -1);
}

TEST_F(TablesTest, AntennaNamesAndWhatTheyNeed) {
  const std::map<int, std::string> names = {{0, "SID_AIR_KR_17"}, {1, "SID_CABLE_KR_17"},
                                            {2, "UNKNOWN"},       {4, "SID_FREESAT"},
                                            {20, "Operator One"}, {22, "UNKNOWN"},
                                            {29, "DIGI"},         {36, "TV_SID_TKGS"},
                                            {37, "SID_FREESAT"},  {46, "UNKNOWN"},
                                            {47, "SID_ATV"},      {50, "COM_SID_DTV_CABLE_KR_17_ABBR_TUNING"},
                                            {52, "SID_IPTV"},     {53, "TV_SID_CANAL_READY_SAT"},
                                            {54, "TV_SID_SKYD"}};
  for (const auto& [type, name] : names) EXPECT_EQ(Name(CAntennaUtil::EMenuAntennaType(type)), name) << type;
  const std::map<int, std::string> telesat = {
      {14, "TV_SID_NON_CANALDIGITAAL"}, {42, "TV_SID_NON_TV_VLAANDEREN"}, {25, "TV_SID_NON_TELESAT"}};
  for (const auto& [country, name] : telesat) {
    SetCountry(country);
    EXPECT_EQ(Name(CAntennaUtil::EMenuAntennaType(7)), name);
  }
  m_tv.Set("com.vantrel/featureconf/broadcast.quirelle.antenna_name_special_sid", "1");
  for (const int country : {7, 23, 8}) {
    SetCountry(country);
    EXPECT_EQ(Name(CAntennaUtil::EMenuAntennaType(47)), country == 8 ? "SID_AIR_KR_17" : "SID_ATV");
    EXPECT_EQ(Name(CAntennaUtil::EMenuAntennaType(48)), country == 8 ? "SID_DTV_AIR_KR_17_ABBR_TUNING" : "SID_ATV");
  }

  const auto supports = [](int type) {
    return CAntennaUtil::FlagSupportAntennaMode(CAntennaUtil::EMenuAntennaType(type));
  };
  for (int type = 0; type < 60; ++type) {
    Change("DELETE FROM broadcaster");
    const bool fixed = type == 0 || type == 1 || type == 3 || type == 20;
    EXPECT_EQ(supports(type), fixed) << type;
    if (!kTypes.count(type) || kTypes.at(type).broadcaster == 0) continue;
    Change("INSERT INTO broadcaster VALUES (-1, ?)", kTypes.at(type).broadcaster);
    EXPECT_TRUE(supports(type)) << type;
  }
  m_tv.Set("com.vantrel/featureconf/product.num_of_iptv_cip", "1");
  EXPECT_TRUE(supports(52));
  for (const auto& [bits, expected] : std::map<int, std::string>{{1, "0"}, {2, "0"}, {4, "1"}, {8, "3"}}) {
    m_tv.Set("system_info/131", std::to_string(bits));
    std::string supported;
    for (const int type : {0, 1, 3}) supported += supports(type) ? std::to_string(type) : "";
    EXPECT_EQ(supported, expected) << bits;
  }
  int count = 0;
  _item** list = CAntennaUtil::GetAntennaList(&count);
  EXPECT_EQ(count, 46);
  EXPECT_STREQ(list[45]->name, "TV_SID_OSTERREICHLISTE");
  EXPECT_STREQ(list[21]->name, "");
  CCountryUtil::FreeListItems(list, count);
}

TEST_F(TablesTest, FirstSetupCountries) {
  const std::set<int> east = {11, 12, 19, 20, 31, 53, 54, 55, 56, 57, 58}, analogOther = {17, 22, 25, 52};
  const std::set<int> digitalOther = {12, 25, 31, 53, 55, 56, 58};
  for (int country = 0; country <= 90; ++country) {
    EXPECT_EQ(CCountryUtil::GetAnalogCountryCode(country), east.count(country)          ? 51
                                                           : analogOther.count(country) ? 78
                                                                                        : country);
    EXPECT_EQ(CCountryUtil::GetDigitalCountryCode(country), digitalOther.count(country) ? 78 : country);
  }
  const std::map<int, std::string> names = {
      {0, "COM_TV_SID_USA"},      {2, "unknown country"}, {8, "SID_COUNTRY_GERMANY"},  {29, "SID_COUNTRY_CHINA"},
      {36, "unknown country"},    {49, "COM_TV_SID_USA"}, {50, "SID_COUNTRY_CHINA"},   {73, "TV_SID_ANALOG_ONLY"},
      {75, "TV_SID_ANALOG_ONLY"}, {87, "BVLQ ATSC"},      {88, "SID_COUNTRY_BELARUS"}, {-1, "unknown country"}};
  char text[512];
  for (const auto& [country, name] : names) {
    CCountryUtil::GetCountryName(text, system_info_country_e(country));
    EXPECT_EQ(text, name);
  }
  int known = 0;
  for (int country = 0; country <= 100; ++country) {
    CCountryUtil::GetCountryName(text, system_info_country_e(country));
    known += std::string(text) != "unknown country";
  }
  EXPECT_EQ(known, 65);

  m_tv.ClearJournal();
  EXPECT_EQ(CCountryUtil::ResetCountryRelatedInfoByPnP(17), 0);
  EXPECT_EQ(m_tv.Get("db/system/analog_country") + "," + m_tv.Get("db/system/country") + "," +
                m_tv.Get("db/system/pnp_country"),
            "78,17,17");
  EXPECT_EQ(m_tv.Journal("CreateSOSpecControl").size(), 2u);
  EXPECT_EQ(CCountryUtil::SetAnalogCountry(78), 0);
  EXPECT_EQ(m_tv.Journal("CreateSOSpecControl").size(), 2u);
}

TEST_F(TablesTest, EmergencyPlaces) {
  const struct {
    int country, provinces, areas;
    const char *firstProvince, *lastProvince, *firstArea, *lastArea;
  } places[] = {{69, 26, 223, "AZUAY", "ZONA NO DELIMITADA", "CAMILO PONCE ENRIQUEZ", "MANGA DEL CURA"},
                {85, 17, 118, "NCR", "ARMM (Autonomous Region in Muslim)", "Caloocan", "Tawi-Tawi"}};
  const std::map<int, std::set<int>> different = {{69, {8, 24, 62, 81, 114, 168, 203}}, {85, {1, 9}}};
  for (const auto& place : places) {
    SetCountry(place.country);
    int count = 0, area = -1;
    _item** provinces = CCountryUtil::GetEWBSProvinceList(&count);
    ASSERT_EQ(count, place.provinces);
    EXPECT_STREQ(provinces[0]->name, place.firstProvince);
    EXPECT_STREQ(provinces[count - 1]->name, place.lastProvince);
    CCountryUtil::FreeListItems(provinces, count);
    EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeNameByID(0, false), place.firstArea);
    EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeNameByID(place.areas - 1, true), place.lastArea);
    EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeNameByID(place.areas, true), "");

    std::set<std::string> names;
    for (int id = 0; id < place.areas; ++id) {
      const std::string saved = CCountryUtil::GetEWBSAreaCodeNameByID(id, false),
                        shown = CCountryUtil::GetEWBSAreaCodeNameByID(id, true);
      EXPECT_FALSE(saved.empty()) << id;
      EXPECT_TRUE(names.insert(saved).second || saved == "BOLIVAR" || saved == "OLMEDO") << saved;
      EXPECT_EQ(saved != shown, different.at(place.country).count(id) > 0) << id;
      if (saved != shown) {
        EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeIDBySaveName(shown), -1) << shown;
      }
    }
    int offered = 0;
    for (int province = 0; province < place.provinces; ++province) {
      EXPECT_EQ(CCountryUtil::SetEWBSProvince(province), 0) << province;
      _item** areas = CCountryUtil::GetEWBSAreaCodeList(&count);
      ASSERT_TRUE(areas);
      EXPECT_EQ(CCountryUtil::GetEWBSAreaCode(&area), 0);
      EXPECT_EQ(area, areas[0]->value) << province;
      offered += count;
      if (place.country == 69 && province == 6) {
        EXPECT_EQ(count, 13);
        for (int i = 0; i < count; ++i) EXPECT_NE(areas[i]->value, 53);
      }
      if (place.country == 69 && province == 14) {
        EXPECT_STREQ(areas[1]->name, "BOLIVAR");
        EXPECT_STREQ(areas[11]->name, "OLMEDO");
      }
      CCountryUtil::FreeListItems(areas, count);
    }
    // Ecuador: one canton is offered nowhere, two of another province's twice.
    EXPECT_EQ(offered, place.country == 69 ? 223 - 1 + 2 : 118);
  }
  SetCountry(8);
  int province;
  EXPECT_EQ(CCountryUtil::GetEWBSProvince(&province), -1);
  EXPECT_EQ(CCountryUtil::SetEWBSProvince(0), -1);
}

TEST_F(TablesTest, LanguagesAndDates) {
  const std::map<int, std::string> locales = {{0, "ko_KR.utf8"},   {31, "mi_NZ.utf8"}, {34, "hi_IN.utf8"},
                                              {67, "ms_MY.utf8"},  {85, "az_AZ.utf8"}, {99, "km_KH.utf8"},
                                              {115, "tl_PH.utf8"}, {32, "UNKNOWN"},    {91, "UNKNOWN"},
                                              {116, "UNKNOWN"},    {-1, "UNKNOWN"}};
  char text[512];
  for (const auto& [language, locale] : locales) {
    CommonUtil::GetLanguageLocale(text, system_info_language_e(language));
    EXPECT_EQ(text, locale) << language;
  }
  constexpr int kFormats[] = {1, 1, 4, 2, 4, 4, 2, 2, 2, 4, 2, 2, 4, 4, 4, 0, 4,
                              4, 2, 4, 4, 2, 2, 4, 4, 4, 4, 4, 4, 2, 2, 2, 2, 2};
  for (int region = 0; region <= 40; ++region) {
    SetRegion(region);
    EXPECT_EQ(CommonUtil::GetTimeFormatType(), region >= 1 && region <= 34 ? kFormats[region - 1] : 1) << region;
  }
  for (const char* language : {"ko_KR.utf8", "zh_CN.utf8", "zh_HK.utf8", "zh_TW.utf8"}) {
    m_tv.Set("db/menu_widget/language", language);
    EXPECT_EQ(CommonUtil::GetTimeFormatType(), 3) << language;
  }
  m_tv.Set("db/menu_widget/language", "de_DE.utf8");
  Change("REPLACE INTO tv_state VALUES ('clock_set', 0)");
  SetRegion(16);
  EXPECT_EQ(CommonUtil::GetCurrentDateStr(), "----/--/--");
  SetRegion(1);
  EXPECT_EQ(CommonUtil::GetCurrentDateStr(), "--/--/----");

  const struct {
    int day, month, year;
    const char* model;
    int expectedDay, expectedYear;
  } dates[] = {{29, 2, 1970, "2023", 28, 2023}, {29, 2, 1970, "2024", 29, 2024},  {29, 2, 2000, "2023", 28, 2023},
               {29, 2, 2096, "2023", 29, 2096}, {31, 12, 2100, "2023", 31, 2023}, {1, 1, 2001, "2023", 1, 2001}};
  for (auto date : dates) {
    m_tv.Set("system_info/367", date.model);
    CommonUtil::DealWithInvalidDataValue(&date.month, &date.day, &date.year);
    EXPECT_EQ(date.day, date.expectedDay);
    EXPECT_EQ(date.year, date.expectedYear);
  }
}

TEST_F(TablesTest, SmallHelpers) {
  for (int digit = 0; digit <= 9; ++digit) {
    EXPECT_EQ(Utils::GetNumberFromKey(std::to_string(digit).c_str()), digit);
    EXPECT_EQ(Utils::GetNumberFromKey(("KP_" + std::to_string(digit)).c_str()), digit);
  }
  for (const char* key : {"", "10", "KP_", "KP_10", "kp_1", "a", "1 ", " 1"})
    EXPECT_EQ(Utils::GetNumberFromKey(key), -1) << key;
  EXPECT_TRUE(Utils::CompareDouble(0.1 + 0.2, 0.3));
  EXPECT_FALSE(Utils::CompareDouble(0.0, 0.00002));
  char text[8] = "";
  Utils::ReplaceSingleText(text, "a%1b%1", "%1", "xyz", sizeof text);
  EXPECT_STREQ(text, "axyzb%1");
  unsigned char wide[] = {0, 'a', 0, '\n', '\n', 0, 0, '\r', 0, 'b', 0, 0};
  CUtil::TransStrExceptLF(reinterpret_cast<unsigned short*>(wide));
  EXPECT_EQ(std::string(reinterpret_cast<char*>(wide), 8), std::string("\0a\n\0\0b\0\0", 8));
  EXPECT_TRUE(CommonUtil::CommonWidgetView("slider.ontimer"));
  EXPECT_FALSE(CommonUtil::CommonWidgetView("slider"));
}

}  // namespace test
