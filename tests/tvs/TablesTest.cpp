// The tables of regions, countries, antennas, places and languages: samples of each, and what holds for them all.
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

using Type = CAntennaUtil::EMenuAntennaType;

class TablesTest : public TvsTest {
 protected:
  void SetRegion(int region) { m_tv.Set("system_info/127", std::to_string(region)); }
};

std::string Name(int type) {
  char text[512] = "untouched";
  CAntennaUtil::GetAntennaName(Type(type), text);
  return text;
}

}  // namespace

TEST_F(TablesTest, RegionAndCountryGiveTheStandard) {
  const struct {
    int region, country, standard;
    bool atsc, dvbChannels, exception, options;
  } places[] = {{1, 8, 1, true, true, false, true},      {36, 0, 1, true, false, false, true},
                {3, 8, 3, false, true, false, true},     {17, 8, 3, false, false, false, true},
                {10, 75, 2, false, true, true, true},    {24, 87, 2, false, false, false, true},
                {25, 69, 3, false, false, false, false}, {26, 8, 2, false, true, true, false},
                {27, 87, 1, true, false, false, false},  {28, 87, 1, false, false, false, false},
                {29, 74, 3, false, false, false, false}, {30, 69, 3, false, false, false, true}};
  for (const auto& place : places) {
    SCOPED_TRACE(std::to_string(place.region) + " x " + std::to_string(place.country));
    SetRegion(place.region);
    SetCountry(place.country);
    EXPECT_EQ(CUtil::GetDTVStandard(), place.standard);
    EXPECT_EQ(CUtil::FlagATSC(), place.atsc);
    EXPECT_EQ(CUtil::IsExceptionRegionForDVB(), place.exception);
    EXPECT_EQ(CCountryUtil::IsSupportDVBDigitalChannel(), place.dvbChannels);
    EXPECT_EQ(CCountryUtil::FlagVisibleCountryOptions(), place.options);
  }
  std::string nordic;
  for (int country = 0; country < 90; ++country) {
    SetCountry(country);
    nordic += CUtil::FlagNordicCountry() ? std::to_string(country) + " " : "";
  }
  EXPECT_EQ(nordic, "10 26 27 28 ");
  for (const char* key : {"system_settings/57", "system_info/127"}) {
    SetRegion(26);
    m_tv.Remove(key);
    EXPECT_EQ(CUtil::GetDTVStandard(), 0) << key;
  }
}

TEST_F(TablesTest, EveryAntennaTypeBothWays) {
  const std::map<int, int> shared = {{47, 0}, {48, 0}, {49, 1}, {50, 1}, {54, 3}};
  std::set<std::pair<int, int>> modes;
  for (int i = 0; i < 60; ++i) {
    SCOPED_TRACE(i);
    const TSTvMode mode = CAntennaUtil::GetTVModeByMenuAntennaType(Type(i));
    if (mode.antennaMode < 0) continue;
    EXPECT_EQ(modes.insert({mode.antennaMode, mode.serviceMode}).second, !shared.contains(i));
    EXPECT_EQ(mode.antennaMode == ANTENNA_SATELLITE, mode.serviceMode > 0);
    Change("UPDATE picture SET antenna = ?, service_mode = ?", mode.antennaMode, mode.serviceMode);
    Type back;
    ASSERT_EQ(CAntennaUtil::GetAntennaMode(&back, PROFILE_MAIN), 0);
    const int other = shared.contains(i) ? shared.at(i) : i;
    EXPECT_EQ(back, other);
    const bool selection = other <= 3 || i == 12 || i == 20 || i == 32 || i == 33;
    EXPECT_EQ(CAntennaUtil::FlagEnableSatelliteSelection(), selection);
    EXPECT_EQ(CAntennaUtil::FlagSpecificSatelliteMode(), other > 1 && other != 3);
    EXPECT_EQ(CAntennaUtil::IsCurrentOperatorTKGS(), i == 36);
  }
  EXPECT_EQ(modes.size(), 42U);
  Change("UPDATE picture SET antenna = 3");
  Type type;
  ASSERT_EQ(CAntennaUtil::GetAntennaMode(&type, PROFILE_MAIN), 0);
  EXPECT_EQ(type, 46);
  EXPECT_EQ(CAntennaUtil::GetAntennaMode(nullptr, PROFILE_MAIN), -1);
}

TEST_F(TablesTest, AntennaNamesAndWhatTheyNeed) {
  const std::map<int, std::string> names = {{0, "SID_AIR_KR_17"}, {2, "UNKNOWN"},     {20, "Operator One"},
                                            {36, "TV_SID_TKGS"},  {46, "UNKNOWN"},    {47, "SID_ATV"},
                                            {52, "SID_IPTV"},     {54, "TV_SID_SKYD"}};
  for (const auto& [type, name] : names) EXPECT_EQ(Name(type), name) << type;
  const std::map<int, std::string> telesat = {
      {14, "TV_SID_NON_CANALDIGITAAL"}, {42, "TV_SID_NON_TV_VLAANDEREN"}, {25, "TV_SID_NON_TELESAT"}};
  for (const auto& [country, name] : telesat) {
    SetCountry(country);
    EXPECT_EQ(Name(7), name);
  }
  m_tv.Set("com.vantrel/featureconf/broadcast.quirelle.antenna_name_special_sid", "1");
  for (const int country : {7, 23, 8}) {
    SetCountry(country);
    EXPECT_EQ(Name(47), country == 8 ? "SID_AIR_KR_17" : "SID_ATV");
    EXPECT_EQ(Name(48), country == 8 ? "SID_DTV_AIR_KR_17_ABBR_TUNING" : "SID_ATV");
  }

  const auto supported = [] {
    std::string types;
    for (int type = 0; type < 60; ++type) {
      types += CAntennaUtil::FlagSupportAntennaMode(Type(type)) ? std::to_string(type) + " " : "";
    }
    return types;
  };
  std::set<std::string> seen;
  for (int broadcaster = 0; broadcaster < 100; ++broadcaster) {
    Change("DELETE FROM broadcaster");
    Change("INSERT INTO broadcaster VALUES (-1, ?)", broadcaster);
    const std::string types = supported();
    const bool alone = types == "0 1 3 20 " || seen.insert(types).second;
    EXPECT_TRUE(alone) << broadcaster << ": " << types;
  }
  EXPECT_EQ(seen.size(), 39U) << "each has a broadcaster of its own";
  Change("DELETE FROM broadcaster");
  m_tv.Set("com.vantrel/featureconf/product.num_of_iptv_cip", "1");
  EXPECT_EQ(supported(), "0 1 3 20 52 ");
  for (const auto& [bits, types] : std::map<int, std::string>{{1, "0 "}, {2, "0 "}, {4, "1 "}, {8, "3 "}}) {
    m_tv.Set("system_info/131", std::to_string(bits));
    EXPECT_EQ(supported(), types + "20 52 ") << bits;
  }
  int count = 0;
  _item** list = CAntennaUtil::GetAntennaList(&count);
  EXPECT_EQ(count, 46);
  EXPECT_STREQ(list[45]->name, "TV_SID_OSTERREICHLISTE");
  CCountryUtil::FreeListItems(list, count);
}

TEST_F(TablesTest, FirstSetupCountries) {
  const std::map<int, std::pair<int, int>> codes = {{8, {8, 8}}, {11, {51, 11}}, {12, {51, 78}}, {25, {78, 78}}};
  for (const auto& [country, code] : codes) {
    EXPECT_EQ(CCountryUtil::GetAnalogCountryCode(country), code.first) << country;
    EXPECT_EQ(CCountryUtil::GetDigitalCountryCode(country), code.second) << country;
  }
  char text[512];
  std::map<std::string, int> names;
  for (int country = -1; country <= 100; ++country) {
    CCountryUtil::GetCountryName(text, system_info_country_e(country));
    ++names[text];
  }
  EXPECT_EQ(names["unknown country"], 102 - 65);
  EXPECT_EQ(names["COM_TV_SID_USA"] + names["SID_COUNTRY_CHINA"] + names["TV_SID_ANALOG_ONLY"], 6) << "two of each";

  m_tv.ClearJournal();
  EXPECT_EQ(CCountryUtil::ResetCountryRelatedInfoByPnP(17), 0);
  EXPECT_EQ(m_tv.Get("db/system/analog_country") + "," + m_tv.Get("db/system/country") + "," +
                m_tv.Get("db/system/pnp_country"),
            "78,17,17");
  EXPECT_EQ(CCountryUtil::SetAnalogCountry(78), 0);
  EXPECT_EQ(m_tv.Calls("CreateSOSpecControl"), 2U) << "what is so already is not told";
}

TEST_F(TablesTest, EmergencyPlaces) {
  const struct {
    int country, provinces, areas, offered;
    const char *firstProvince, *lastArea;
    size_t different;
  } places[] = {// One canton is offered nowhere, two of another province's twice.
                {69, 26, 223, 224, "AZUAY", "MANGA DEL CURA", 7},
                {85, 17, 118, 118, "NCR", "Tawi-Tawi", 2}};
  for (const auto& place : places) {
    SetCountry(place.country);
    int count = 0, area = -1, offered = 0;
    _item** provinces = CCountryUtil::GetEWBSProvinceList(&count);
    ASSERT_EQ(count, place.provinces);
    EXPECT_STREQ(provinces[0]->name, place.firstProvince);
    CCountryUtil::FreeListItems(provinces, count);
    EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeNameByID(place.areas - 1, true), place.lastArea);
    EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeNameByID(place.areas, true), "");

    std::set<std::string> names;
    size_t different = 0;
    for (int id = 0; id < place.areas; ++id) {
      const std::string saved = CCountryUtil::GetEWBSAreaCodeNameByID(id, false),
                        shown = CCountryUtil::GetEWBSAreaCodeNameByID(id, true);
      EXPECT_FALSE(saved.empty()) << id;
      EXPECT_TRUE(names.insert(saved).second || saved == "BOLIVAR" || saved == "OLMEDO") << saved;
      if (saved == shown) continue;
      ++different;
      EXPECT_EQ(CCountryUtil::GetEWBSAreaCodeIDBySaveName(shown), -1) << shown;
    }
    EXPECT_EQ(different, place.different);
    for (int province = 0; province < place.provinces; ++province) {
      EXPECT_EQ(CCountryUtil::SetEWBSProvince(province), 0) << province;
      _item** areas = CCountryUtil::GetEWBSAreaCodeList(&count);
      ASSERT_TRUE(areas);
      EXPECT_EQ(CCountryUtil::GetEWBSAreaCode(&area), 0);
      EXPECT_EQ(area, areas[0]->value) << province;
      offered += count;
      if (place.country == 69 && province == 14) {
        EXPECT_EQ(std::string(areas[1]->name) + areas[11]->name, "BOLIVAROLMEDO");
      }
      CCountryUtil::FreeListItems(areas, count);
    }
    EXPECT_EQ(offered, place.offered);
  }
  SetCountry(8);
  int province;
  EXPECT_EQ(CCountryUtil::GetEWBSProvince(&province), -1);
  EXPECT_EQ(CCountryUtil::SetEWBSProvince(0), -1);
}

TEST_F(TablesTest, LanguagesAndDates) {
  char text[512];
  std::map<std::string, int> locales;
  for (int language = -1; language <= 120; ++language) {
    CommonUtil::GetLanguageLocale(text, system_info_language_e(language));
    ++locales[language == 34 ? std::string(text) + " of India" : text];
  }
  EXPECT_TRUE(locales.contains("hi_IN.utf8 of India"));
  EXPECT_EQ(locales.erase("UNKNOWN"), 1U);
  for (const auto& [locale, count] : locales) EXPECT_EQ(count, 1) << locale;

  for (const auto& [region, format] : std::map<int, int>{{0, 1}, {1, 1}, {3, 4}, {7, 2}, {16, 0}, {34, 2}, {35, 1}}) {
    SetRegion(region);
    EXPECT_EQ(CommonUtil::GetTimeFormatType(), format) << region;
  }
  for (const char* language : {"ko_KR.utf8", "zh_CN.utf8", "zh_HK.utf8", "zh_TW.utf8"}) {
    m_tv.SetLanguage(language);
    EXPECT_EQ(CommonUtil::GetTimeFormatType(), 3) << language;
  }
  m_tv.SetLanguage("de_DE.utf8");
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
  for (const char* key : {"0", "KP_0", "9", "KP_9"})
    EXPECT_EQ(Utils::GetNumberFromKey(key), std::string(key).back() - '0');
  for (const char* key : {"", "10", "KP_", "KP_10", "kp_1", "a", "1 ", " 1"}) {
    EXPECT_EQ(Utils::GetNumberFromKey(key), -1) << key;
  }
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
