// The settings tree, as lists read it.
#include "DataList.h"
#include "DataProvider.h"
#include "Harness.h"
#include "Utils.h"
#include "WrapPatterns.h"

using test::Tv;

namespace {

constexpr const char* kHistory = "signal-information-weakhistory";
constexpr const char* kLevel = "hdmi-delay-level";

std::string ValueOf(const ElementaryNode& node) {
  char title[512], value[512], display[512];
  node.GetNodeDisplayName(title);
  node.GetNodeValue(value, display);
  return std::string(title) + "|" + value + "|" + display;
}

TEST(DataProvider, FailsForNullAndForWhatTheTVDoesNotHave) {
  Tv tv;
  char text[512], value[512];
  for (const char* id : {static_cast<const char*>(nullptr), "no-such-item"}) {
    EXPECT_FALSE(CMenuDataProvider::GetItemValue(id, text, value) || CMenuDataProvider::GetItemDisplayName(id, text));
    EXPECT_FALSE(CMenuDataProvider::GetItemEnable(id, false) || CMenuDataProvider::GetItemVisible(id));
    EXPECT_EQ(CMenuDataProvider::SetItemValue(id, "1", false), -1);
  }
  EXPECT_EQ(CMenuDataProvider::SetItemValue(kLevel, nullptr, false), -1);
}

TEST(DataProvider, ReadsAndWritesAnItem) {
  Tv tv;
  const std::string off = Utils::GetTranslationStr("SID_OFF");
  char name[512], value[512];
  const auto values = [&] {
    EXPECT_TRUE(CMenuDataProvider::GetItemValue(kLevel, name, value));
    return std::string(value) + " " + name;
  };
  for (const auto& [set, expected] : std::vector<std::pair<const char*, std::string>>{
           {"2", "2 2"}, {"Up", "3 3"}, {"Up", "0 " + off}, {"Down", "3 3"}, {"other", "other other"}}) {
    EXPECT_EQ(CMenuDataProvider::SetItemValue(kLevel, set, false), 1) << set;
    EXPECT_EQ(values(), expected) << set;
  }
  tv.SetItem(kLevel, std::string(600, 'x'));
  values();
  EXPECT_EQ(std::string(value), std::string(511, 'x'));
  test::Change("UPDATE item SET enabled = 0, visible = 0 WHERE id = ?", kLevel);
  EXPECT_FALSE(CMenuDataProvider::GetItemEnable(kLevel, false));
  EXPECT_FALSE(CMenuDataProvider::GetItemVisible(kLevel));
  EXPECT_TRUE(CMenuDataProvider::GetItemVisible("tv-rating"));
}

TEST(DataList, FetchesStatesAndTextsOfShownRowsOnly) {
  Tv tv;
  DataList list;
  auto& providers = Singleton<FuncEvents>::GetInstance()->providers;
  providers[kHistory] = [](std::vector<DataInfo>& data) {
    data = {{"", "", "", kLevel, ""}, {"kept", "", "", "tv-rating", ""}, {"Third", "3", "Three", "", ""}};
  };
  list.Create(kHistory);
  providers.clear();
  ASSERT_EQ(list.GetCount(), 3);
  EXPECT_EQ(ValueOf(*list.GetNode(2)), "Third|3|Three");
  EXPECT_EQ(list.GetNode(2)->GetNodeMenuItemId(), kHistory) << "what has no ID has its list's";
  list.GetNode(1)->SetShowStatus(ITEM_SHOW_INVISIBLE_NAMED);
  test::Change("UPDATE item SET enabled = 0 WHERE id IN (?, 'tv-rating')", kLevel);
  list.FetchEnableStatus();
  EXPECT_EQ(list.GetNode(0)->GetStatus(), ITEM_STATUS_DISABLED);
  EXPECT_EQ(list.GetNode(1)->GetStatus(), ITEM_STATUS_ENABLED);
  EXPECT_EQ(list.GetNode(2)->GetStatus(), ITEM_STATUS_ENABLED);
  tv.Fail("SettingsAPI::GetItemEnable");
  list.FetchEnableStatus();
  EXPECT_EQ(list.GetNode(2)->GetStatus(), ITEM_STATUS_DISABLED) << "what cannot be asked cannot be chosen";

  list.FetchText();
  EXPECT_EQ(ValueOf(*list.GetNode(0)), Utils::GetTranslationStr("TV_SID_DIAGNOSIS_HDMI_DEALY_LEVER") + "|0|" +
                                           Utils::GetTranslationStr("SID_OFF"));
  EXPECT_EQ(ValueOf(*list.GetNode(1)), "kept||");
  for (const int outside : {-1, 3}) EXPECT_EQ(list.GetNode(outside), nullptr);
  list.Destroy();
  EXPECT_EQ(list.GetCount(), 0);
}

}  // namespace
