// The settings tree, as lists read it.
#include "DataList.h"
#include "DataProvider.h"
#include "Harness.h"
#include "Store.h"
#include "Utils.h"
#include "WrapPatterns.h"

using test::Tv;

namespace {

std::string StyleOf(const char* id) {
  char style[512] = "untouched";
  const bool known = CMenuDataProvider::GetItemSettingsUIStyle(id, style);
  return std::string(known ? "" : "!") + style;
}

std::string ValueOf(const ElementaryNode& node) {
  char title[512], value[512], display[512];
  node.GetNodeDisplayName(title);
  node.GetNodeValue(value, display);
  return std::string(title) + "|" + value + "|" + display;
}

void Change(const std::string& sql) {
  desktop::Store::Get().Write([&] { desktop::Store::Get().Execute(sql.c_str()); });
}

TEST(DataProvider, KnowsTheStyleOfEachItem) {
  const std::map<std::string, std::vector<const char*>> styles = {
      {"slider.information", {"biterrlevel", "strength", "quality"}},
      {"information",
       {"program", "physical", "modulation", "snr", "status", "antenna", "serviceid", "multiplex", "channelid"}},
      {"controlpopup", {"bandwidth", "frequence"}},
      {"weakhistorywindow", {"weakhistory"}}};
  for (const auto& [style, items] : styles) {
    for (const char* item : items)
      EXPECT_EQ(StyleOf((std::string("signal-information-") + item).c_str()), style) << item;
  }
  EXPECT_EQ(StyleOf("hdmi-delay-level"), "ctxpopup.bottom");
  for (const char* id : {"fine-tune", "", "signal-information"}) EXPECT_EQ(StyleOf(id), "!UnKnown");
  EXPECT_EQ(StyleOf(nullptr), "!untouched");
}

TEST(DataProvider, FailsForNullAndForWhatTheTVDoesNotHave) {
  Tv tv;
  char text[512] = "kept", value[512] = "kept";
  for (const char* id : {static_cast<const char*>(nullptr), "no-such-item"}) {
    EXPECT_FALSE(CMenuDataProvider::GetItemValue(id, text, value));
    EXPECT_FALSE(CMenuDataProvider::GetItemDisplayName(id, text));
    EXPECT_FALSE(CMenuDataProvider::GetItemEnable(id, false));
    EXPECT_FALSE(CMenuDataProvider::GetItemVisible(id));
    EXPECT_EQ(CMenuDataProvider::SetItemValue(id, "1", false), -1);
  }
  EXPECT_EQ(CMenuDataProvider::SetItemValue("hdmi-delay-level", nullptr, false), -1);
  EXPECT_STREQ(text, "kept");
  EXPECT_STREQ(value, "kept");
}

TEST(DataProvider, ReadsAndWritesAnItem) {
  Tv tv;
  const std::string off = Utils::GetTranslationStr("SID_OFF");
  char name[512], value[512];
  const auto values = [&] {
    EXPECT_TRUE(CMenuDataProvider::GetItemValue("hdmi-delay-level", name, value));
    return std::string(value) + " " + name;
  };
  for (const auto& [set, expected] : std::vector<std::pair<const char*, std::string>>{
           {"2", "2 2"}, {"Up", "3 3"}, {"Up", "0 " + off}, {"Down", "3 3"}, {"other", "other other"}}) {
    EXPECT_EQ(CMenuDataProvider::SetItemValue("hdmi-delay-level", set, false), 0);
    EXPECT_EQ(values(), expected);
  }
  Change("UPDATE item SET value = '" + std::string(600, 'x') + "' WHERE id = 'hdmi-delay-level'");
  values();
  EXPECT_EQ(std::string(value), std::string(511, 'x'));
  for (const char* column : {"enabled", "visible"}) {
    Change(std::string("UPDATE item SET ") + column + " = 0 WHERE id = 'hdmi-delay-level'");
  }
  EXPECT_FALSE(CMenuDataProvider::GetItemEnable("hdmi-delay-level", false));
  EXPECT_FALSE(CMenuDataProvider::GetItemVisible("hdmi-delay-level"));
  EXPECT_TRUE(CMenuDataProvider::GetItemVisible("tv-rating"));
}

TEST(DataList, MakesChoicesPageRowsOrNothing) {
  Tv tv;
  const std::string off = Utils::GetTranslationStr("SID_OFF");
  DataList choices;
  choices.Create("hdmi-delay-level");
  ASSERT_EQ(choices.GetCount(), 4);
  EXPECT_EQ(choices.GetType(), DataList::LIST_CHOICES);
  EXPECT_EQ(ValueOf(*choices.GetNode(0)), off + "|0|" + off);
  EXPECT_EQ(ValueOf(*choices.GetNode(3)), "3|3|3");
  for (const int outside : {-1, 4}) EXPECT_EQ(choices.GetNode(outside), nullptr);
  EXPECT_TRUE(test::Logged("[Debug]nIndex : -1,vList.size : 4"));
  choices.Destroy();
  EXPECT_EQ(choices.GetCount(), 0);

  DataList rows;
  rows.Create("signal-information-weakhistory");
  EXPECT_EQ(rows.GetCount(), 0) << "nobody provides them yet";
  auto& providers = Singleton<FuncEvents>::GetInstance()->providers;
  providers["signal-information-weakhistory"] = [](std::vector<DataInfo>& data) {
    data = {{"First", "1", "One", "row-1", ""}, {"Second", "2", "Two", "", ""}};
  };
  rows.Create("signal-information-weakhistory");
  providers.clear();
  ASSERT_EQ(rows.GetCount(), 2);
  EXPECT_EQ(rows.GetType(), DataList::LIST_PAGE);
  EXPECT_EQ(ValueOf(*rows.GetNode(0)), "First|1|One");
  EXPECT_EQ(rows.GetNode(0)->GetNodeMenuItemId(), "row-1");
  EXPECT_EQ(rows.GetNode(1)->GetNodeMenuItemId(), "signal-information-weakhistory");

  DataList none;
  none.Create("tv-rating");
  EXPECT_EQ(none.GetCount(), 0);
  EXPECT_TRUE(test::Logged("[Debug]other case"));
}

TEST(DataList, FetchesStatesAndTextsOfShownRowsOnly) {
  Tv tv;
  Singleton<FuncEvents>::GetInstance()->providers["signal-information-weakhistory"] = [](std::vector<DataInfo>& data) {
    data = {{"", "", "", "hdmi-delay-level", ""}, {"kept", "", "", "tv-rating", ""}, {"", "", "", "fine-tune", ""}};
  };
  DataList list;
  list.Create("signal-information-weakhistory");
  Singleton<FuncEvents>::GetInstance()->providers.clear();
  ASSERT_EQ(list.GetCount(), 3);
  list.GetNode(1)->SetShowStatus(ITEM_SHOW_INVISIBLE_NAMED);
  Change("UPDATE item SET enabled = 0 WHERE id IN ('hdmi-delay-level', 'tv-rating')");
  list.FetchEnableStatus();
  EXPECT_EQ(list.GetNode(0)->GetStatus(), ITEM_STATUS_DISABLED);
  EXPECT_EQ(list.GetNode(1)->GetStatus(), ITEM_STATUS_ENABLED);
  EXPECT_EQ(list.GetNode(2)->GetStatus(), ITEM_STATUS_ENABLED);
  EXPECT_TRUE(test::Logged("[Debug] INVISIBLE STATUS : tv-rating"));
  tv.Fail("SettingsAPI::GetItemEnable");
  list.FetchEnableStatus();
  EXPECT_EQ(list.GetNode(2)->GetStatus(), ITEM_STATUS_DISABLED) << "what cannot be asked cannot be chosen";

  list.FetchText();
  EXPECT_EQ(ValueOf(*list.GetNode(0)), Utils::GetTranslationStr("TV_SID_DIAGNOSIS_HDMI_DEALY_LEVER") + "|0|" +
                                           Utils::GetTranslationStr("SID_OFF"));
  EXPECT_EQ(ValueOf(*list.GetNode(1)), "kept||");
}

}  // namespace
