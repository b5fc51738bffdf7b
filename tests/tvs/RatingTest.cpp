// The rating system that a broadcast brings along: names of any kind, what is said of those that fail, locks.
#include <dlfcn.h>
#include <iconv.h>

#include <cstdlib>

#include "Gate.h"
#include "RatingJson.h"
#include "RatingUitil.h"
#include "TvsTest.h"
#include "Utils.h"

using desktop::OnAir;
using desktop::RatingDimension;
using desktop::RatingName;
using desktop::RatingSystem;

namespace {

bool g_noConverter = false;

}  // namespace

// The program finds this one before the C library's.
extern "C" __attribute__((visibility("default"))) iconv_t iconv_open(const char* to, const char* from) {
  static const auto open = reinterpret_cast<iconv_t (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "iconv_open"));
  return g_noConverter ? open("no", "code") : open(to, from);
}

namespace test {

namespace {

constexpr ERRTRegion kRegion = RRT_REGION_DOWNLOADABLE;

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

class RatingTest : public TvsTest {
 protected:
  /// On air from now on.
  void Put(const RatingSystem& system) { desktop::WriteRatingSystem(kRegion, system); }
  void PutOne(const RatingName& region, const RatingName& dimension, const RatingName& value) {
    Put({region, {{dimension, {{value}}}}});
  }

  /// "" without a system; otherwise quirelle-tv has it in just this form.
  std::string Json() {
    std::string json = Utils::WrapMallocdString(RatingUtils::GetRatingInfoAsJsonString());
    EXPECT_EQ(json.empty() ? "null" : json, RatingJson(desktop::ReadRatingSystem(kRegion)));
    return json;
  }

  /// The texts of a system with one dimension of one value.
  Texts Names() {
    drrt_rating_info* info = nullptr;
    RatingUtils::FillRatingInfo(&info);
    const auto text = [](const char* name) { return std::string(name ? name : "null"); };
    Texts names = {text(info->regionName), text(info->dimensionNames[0]),
                   text(info->ratingNames[0] ? info->ratingNames[0][0] : nullptr)};
    RatingUtils::EmptyRatingInfo(info);
    return names;
  }
};

constexpr const char* kJson = R"({
	"Count" : 3,
	"Names" : 
	[
		"Alter",
		"Dimension 1",
		""
	],
	"RatingCounts" : 
	[
		2,
		1,
		0
	],
	"RatingNames" : 
	[
		[
			"\u00e9",
			"Rating 1"
		],
		[
			""
		],
		[]
	],
	"RegionName" : "COM_SID_DOWNLOADABLE_US_RATING"
})";

}  // namespace

TEST_F(RatingTest, TheFormOfTheJson) {
  EXPECT_EQ(RatingUtils::GetRatingInfoAsJsonString(), nullptr);
  EXPECT_EQ(TakeLog().back(), "[Error]Assertion failed");
  Put({{}, {{OnAir("Alter"), {{OnAir("é")}, {{}}}}, {{}, {{""}}}, {OnAir("not asked for"), {}}}});
  EXPECT_EQ(Json(), kJson);
  Put({OnAir("No ratings"), {}});
  EXPECT_EQ(Json(), "{\n\t\"Count\" : 0,\n\t\"RegionName\" : \"No ratings\"\n}");
}

TEST_F(RatingTest, AsManyAsAStreamCanTellOf) {
  Put({"", std::vector<RatingDimension>(255, {"", std::vector<desktop::RatingValue>(255)})});
  drrt_rating_info* info = nullptr;
  RatingUtils::FillRatingInfo(&info);
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->dimensionCount, 255);
  EXPECT_EQ(info->ratingCounts[254], 255);
  EXPECT_STREQ(info->ratingNames[254][254], "Rating 254");
  RatingUtils::EmptyRatingInfo(info);
}

TEST_F(RatingTest, NamesOfAnyKind) {
  const std::string a256 = Times(256, "a"), euros = Times(170, "€"), air = OnAir(a256);
  const struct {
    RatingName name;
    std::string shown;
    const char* complaint;
  } cases[] = {
      {"", "", ""},
      {OnAir("Añ€📺\u200fقناة\uFFFF"), "Añ€📺\u200fقناة\uFFFF", ""},
      // Broken in the middle, at the end, and the halves of a pair alone.
      {OnAir("a\xED\xA0\x80z"), "a", "84"},
      {OnAir("a\xED\xB0\x80z"), "a", "84"},
      {OnAir("a\xED\xA0\x80"), "a", "22"},
      {"\xFF", "", "22"},
      {OnAir("a") + std::string(2, '\0') + OnAir("z"), "a", ""},
      // At and around the buffers' ends.
      {air.substr(0, 510), a256.substr(0, 255), ""},
      {air.substr(0, 511), a256.substr(0, 255), "22"},
      {air, a256.substr(0, 255), "22"},
      {OnAir(euros + "aa"), euros + "a", "7"},
      {OnAir(euros + "é"), euros, "7"},
      {OnAir(Times(127, "📺") + "ab"), Times(127, "📺") + "a", "22"},
  };
  for (const auto& [name, shown, complaint] : cases) {
    SCOPED_TRACE(testing::PrintToString(name.value()));
    PutOne(name, name, name);
    ClearLog();
    EXPECT_EQ(Names(), Texts(3, shown));
    const Texts log = TakeLog();
    EXPECT_EQ(std::count(log.begin(), log.end(), std::string("[Error]iconv failed: ") + complaint), *complaint ? 3 : 0);
    EXPECT_EQ(Contains(log, "iconv failed"), *complaint != '\0');
    Json();
  }
  PutOne({}, {}, {});
  EXPECT_EQ(Names(), (Texts{"COM_SID_DOWNLOADABLE_US_RATING", "Dimension 0", "Rating 0"}));
}

TEST_F(RatingTest, WithoutAConverterNamesAreEmpty) {
  PutOne(OnAir("Region"), OnAir("Dimension"), OnAir("Value"));
  g_noConverter = true;
  EXPECT_EQ(Names(), Texts(3, ""));
  char text[4] = {'#', '#', '#', '#'}, letters[] = {0, 'a', 0, 'b', 0, 'c'};
  RatingUtils::Ucs2Utf8(text, sizeof text - 1, letters, sizeof letters);
  g_noConverter = false;
  EXPECT_EQ(std::string(text, sizeof text), std::string("\0\0\0#", 4));
  const Texts log = TakeLog();
  EXPECT_EQ(std::count(log.begin(), log.end(), "[Error]Iconv open failed"), 4);
  RatingUtils::Ucs2Utf8(text, sizeof text - 1, letters, sizeof letters);
  EXPECT_EQ(std::string(text, sizeof text), std::string("ab\0#", 4));
}

TEST_F(RatingTest, WhatIsSaidOfASystem) {
  auto* const kept = reinterpret_cast<drrt_rating_info*>(&m_tv);
  drrt_rating_info* info = kept;
  RatingUtils::FillRatingInfo(&info);
  EXPECT_EQ(info, kept) << "without a system nothing is written";
  PutOne(OnAir("Region"), OnAir("Dimension"), OnAir("Value"));
  ClearLog();
  const std::string json = Json();
  EXPECT_EQ(TakeLog(), (Texts{"[Debug]state[1] name[]", "[Info]RRT region name:Region", "[Info]dimension count :1",
                              "[Info] dimesion 0 rating count 1 ", "[Debug]json size: " + std::to_string(json.size()),
                              "[Debug]json:" + json}));
}

TEST_F(RatingTest, Locks) {
  Put({{}, {{{}, {{{}}, {{}}}}, {{}, {}}}});
  const auto get = [](int dimension, int value) {
    bool locked = false, untouched = true;
    const int result = RatingUtils::GetRRSLock(dimension, value, &locked);
    EXPECT_EQ(RatingUtils::GetRRSLock(dimension, value, &untouched), result);
    return result > 0 ? locked == untouched && locked ? 1 : 0 : untouched && !locked ? result : -2;
  };
  EXPECT_EQ(get(0, 1), 0);
  EXPECT_EQ(RatingUtils::SetRRSLock(0, 1, true), 1);
  EXPECT_EQ(TakeLog().back(), "[Info]Set RRS Lock success:1");
  EXPECT_EQ(get(0, 1), 1);
  EXPECT_EQ(TakeLog().back(), "[Info]Get RRS Lock success:1");
  EXPECT_EQ(get(0, 0), 0);
  EXPECT_EQ(RatingUtils::SetRRSLock(0, 1, false), 1);
  EXPECT_EQ(get(0, 1), 0);
  for (const auto& [dimension, value] : {std::pair(0, 2), {0, -1}, {-1, 0}, {1, 0}, {2, 0}, {1 << 30, 1 << 30}}) {
    EXPECT_EQ(RatingUtils::SetRRSLock(dimension, value, true), -1);
    EXPECT_EQ(TakeLog().back(), "[Info]Set RRS Lock failed:-1");
    EXPECT_EQ(get(dimension, value), -1);
    EXPECT_EQ(TakeLog().back(), "[Info]Get RRS Lock failed:-1");
  }
}

TEST_F(RatingTest, ARecordMayHaveGaps) {
  RatingUtils::EmptyRatingInfo(nullptr);
  for (const bool counted : {false, true}) {
    auto* info = static_cast<drrt_rating_info*>(calloc(1, sizeof(drrt_rating_info)));
    info->dimensionCount = 2;
    if (counted) info->ratingCounts = static_cast<int*>(calloc(2, sizeof(int)));
    info->ratingNames = static_cast<char***>(calloc(2, sizeof(char**)));
    info->ratingNames[1] = static_cast<char**>(calloc(3, sizeof(char*)));
    if (counted) {
      info->ratingCounts[1] = 3;
      info->ratingNames[1][2] = strdup("the third");
    }
    RatingUtils::EmptyRatingInfo(info);
  }
}

// --- what quirelle-tv reads ----------------------------------------------------------------------

TEST_F(RatingTest, ProfilesTellOfAnyName) {
  desktop::RatingProfile profile;
  const auto read = [&](const Texts& lines) {
    desktop::ProfileSection section{"rating", {}};
    for (const std::string& line : lines) section.lines.push_back({"x:1", line});
    profile.Read(section);
  };
  read({"region", "dimension Añ€📺", "value \"\"", "value x'D8000041'", "value", "value x'", "dimension x''"});
  profile.Make({});
  const auto system = desktop::ReadRatingSystem(kRegion);
  ASSERT_TRUE(system && system->dimensions.size() == 2);
  EXPECT_EQ(system->name, RatingName());
  EXPECT_EQ(system->dimensions[0].name, OnAir("Añ€📺"));
  const RatingName names[] = {"", std::string("\xD8\0\0A", 4), {}, OnAir("x'")};
  ASSERT_EQ(system->dimensions[0].values.size(), std::size(names));
  for (size_t i = 0; i < std::size(names); ++i) EXPECT_EQ(system->dimensions[0].values[i].name, names[i]) << i;
  EXPECT_EQ(system->dimensions[1].name, "");
  EXPECT_TRUE(system->dimensions[1].values.empty());
  for (const char* line : {"value x'0'", "value x'0g'", "paint it"}) {
    EXPECT_THROW(read({line}), desktop::ProfileError) << line;
  }
  EXPECT_THROW(read(Texts(256, "value")), desktop::ProfileError);
}

TEST_F(RatingTest, WhatIsWrongWithATextIsSaid) {
  const auto whole = [](const std::string& middle) { return "{\"RegionName\": \"R\", \"Count\": 1, " + middle + "}"; };
  const std::pair<std::string, std::string> cases[] = {
      {"{\"Count\": 1,\n\"Names\": }", "Line 2, Column 10: Syntax error: value, object or array expected."},
      {"{} {}", "Line 1, Column 4: Extra non-whitespace after JSON value."},
      {"{\"Count\": 0, \"Count\": 0}", "Line 1, Column 14: Duplicate key: 'Count'"},
      {Times(2000, "["), "Exceeded stackLimit in readValue()."},
      {"[]", "wants an object"},
      {"{\"Regionname\": \"\"}", "unknown member 'Regionname'"},
      {"{\"Count\": 0}", "RegionName: is missing"},
      {"{\"RegionName\": \"\xFF\", \"Count\": 0}", "RegionName: is no UTF-8"},
      {"{\"RegionName\": \"\", \"Count\": 256}", "Count: wants a number from 0 to 255"},
      {"{\"RegionName\": \"\", \"Count\": 0, \"Names\": [\"a\"]}", "Names: wants an array of 0"},
      {whole(R"("Names": {}, "RatingCounts": [0], "RatingNames": [[]])"), "Names: wants an array of 1"},
      {whole(R"("Names": ["a"], "RatingCounts": ["0"], "RatingNames": [[]])"),
       "RatingCounts[0]: wants a number from 0 to 255"},
      {whole(R"("Names": ["a"], "RatingCounts": [2], "RatingNames": [["a", 7]])"), "RatingNames[0][1]: wants a text"},
  };
  for (const auto& [text, said] : cases) {
    try {
      ParseRatingJson(text);
      ADD_FAILURE() << text << " was read";
    } catch (const std::exception& error) {
      EXPECT_EQ(error.what(), said) << text;
    }
  }
}

TEST_F(RatingTest, ATextIsReadAsItIsWritten) {
  EXPECT_EQ(RatingJson(ParseRatingJson(kJson)), kJson);
  const RatingSystem read = ParseRatingJson(
      R"({"RegionName": null, "Count": 1, "Names": ["\udc00"], "RatingCounts": [2], "RatingNames": [[null, "\ud83d\udcfa"]]})");
  EXPECT_EQ(read.name, RatingName());
  EXPECT_EQ(read.dimensions[0].name, std::string("\xDC\0", 2));
  EXPECT_EQ(read.dimensions[0].values[0].name, RatingName());
  EXPECT_EQ(read.dimensions[0].values[1].name, OnAir("📺"));
}

}  // namespace test
