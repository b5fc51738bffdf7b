// Each exported function beside the operation that it calls, on a healthy TV and with each of its calls failing; and
// what nobody should pass.
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Clock.h"
#include "CommonUtil.h"
#include "FineTuneUtil.h"
#include "Gate.h"
#include "RatingUitil.h"
#include "SatCRUtil.h"
#include "TvsTest.h"
#include "Utils.h"
#include "tessarin.h"
#include "tvs/RatingTable.h"
#include "util.h"
#include "vconf.h"

namespace test {

namespace {

constexpr const char* kGuide = "COM_SID_POPUP_WIDGET_SHOW_GUIDE";

using Action = std::function<std::string()>;

struct Export {
  const char* name;
  Action call, operation;
  const char* failure;  ///< when all that it calls fails
  enum { kNamed, kUnnamed } log = kNamed;
  enum { kTakenBack, kOnItsOwn } store = kTakenBack;
};

#define RUN(expression) [] { return Text(expression); }
#define DO(statement)     \
  [] {                    \
    statement;            \
    return std::string(); \
  }
#define EXPORT(function, arguments, operation, ...) \
  { #function, RUN(function arguments), RUN(operation), __VA_ARGS__ }
#define EXPORT_VOID(function, arguments, operation, ...) \
  { #function, DO(function arguments), DO(operation), "" __VA_OPT__(, ) __VA_ARGS__ }

bool Lock() {
  bool lock = false;
  return RatingUtils::GetRRSLock(1, 2, &lock) > 0 && lock;
}

std::string Filled() {
  free(vconf_get_str("db/menu_widget/language"));
  return "3 items. Use the arrow keys to move.";
}

std::string Archive() { return std::string(std::getenv("QUIRELLE_TV")) + ".zip"; }

const Export kExports[] = {
    EXPORT(Tessarin_CombinateStrings, (kGuide, "3", "b", "c", "d"), Filled(), "3 items. Use the arrow keys to move."),
    EXPORT(Tessarin_GetCurrentCountryCode, (), Utils::GetCountryCode(), "", Export::kUnnamed),
    EXPORT(Tessarin_GetCurrentDateString, (), CommonUtil::GetCurrentDateStr(), "--/--/----", Export::kUnnamed),
    EXPORT(Tessarin_FlagVisibleSatCRTwoTuner, (), CUtil::FlagVisibleSatCRTwoTuner(), "0"),
    EXPORT(Tessarin_SendSatCRCommand, (1, 0), SatCRUtils::SendSatCRCommand(1, SATCR_COMMAND_DETECT), "0"),
    EXPORT(Tessarin_GetSatCRProgress, (1), SatCRUtils::GetSatCRProcessStatusAsJsonString(1), kNoStatus),
    EXPORT(Tessarin_IsSatCRCommandSuccess, (1, 1632, 3), SatCRUtils::IsSatCRCommandSuccess(1, 1632, 3), "0"),
    EXPORT(Tessarin_GetSlotFrequency, (1), SatCRUtils::GetSlotFrequency(1), "-1"),
    EXPORT(Tessarin_SetSatCRSlotFrequency, (1, 1400), SatCRUtils::SetSlotFrequency(1, 1400), "-1"),
    EXPORT_VOID(Tessarin_UserStorePosition, (), Utils::UserStorePosition()),
    EXPORT_VOID(Tessarin_InstallerStorePosition, (), Utils::InstallerStorePosition()),
    EXPORT_VOID(Tessarin_InstallerGoToZero, (), Utils::InstallerGoToZero()),
    EXPORT_VOID(Tessarin_InstallerResetLimit, (), Utils::InstallerResetLimit()),
    EXPORT(Tessarin_TuneAloneSelectedTransponder, (true), ChannelUtil::TuneAloneSelectedTransponder(true), "0"),
    EXPORT(Tessarin_ResetSatelliteSettings, (), Utils::ResetSatelliteSettings(), "0", Export::kUnnamed),
    EXPORT(Tessarin_GetTunerMft, (), FineTuneUtil::GetTunerMft(), "-1", Export::kUnnamed),
    EXPORT_VOID(Tessarin_PresetTunerMft, (-7), FineTuneUtil::PresetTunerMft(-7), Export::kUnnamed),
    EXPORT_VOID(Tessarin_SetTunerMft, (), FineTuneUtil::SetTunerMft(), Export::kUnnamed),
    EXPORT_VOID(Tessarin_ResetTurnerMft, (), FineTuneUtil::ResetTurnerMft(), Export::kUnnamed),
    EXPORT_VOID(Tessarin_SetFineTuneType, (), FineTuneUtil::SetFineTuneType(), Export::kUnnamed),
    EXPORT_VOID(Tessarin_ResetFinetuneType, (), FineTuneUtil::ResetFinetuneType(), Export::kUnnamed),
    EXPORT_VOID(Tessarin_SetFinetuneFreq, (9), FineTuneUtil::SetFinetuneFreq(9), Export::kUnnamed),
    EXPORT(Tessarin_GetRatingInfo, (), RatingUtils::GetRatingInfoAsJsonString(), "null"),
    EXPORT(Tessarin_GetRRSLock, (1, 2), Lock(), "0", Export::kUnnamed),
    EXPORT(Tessarin_SetRRSLock, (1, 0, true), RatingUtils::SetRRSLock(1, 0, true), "-1"),
    EXPORT_VOID(Tessarin_InitiateExportToTemp, (Archive().c_str()), Utils::ExportChannelList(Archive()),
                Export::kUnnamed, Export::kOnItsOwn),
    EXPORT(Tessarin_LoadCopiedChannelList, (Archive().data()), Utils::LoadImportedChannelList(Archive().c_str()), "3",
           Export::kUnnamed, Export::kOnItsOwn),
};

struct Answer {
  std::string result;
  Texts calls, log;
  std::vector<const desktop::Operation*> fallible;
};

class ExportsTest : public TvsTest {
 protected:
  ExportsTest() {
    HoldClock(true);
    m_tv.SetLanguage("en_US.utf8");
    const desktop::RatingDimension one{desktop::OnAir("D"), {{desktop::OnAir("V")}}};
    desktop::RatingDimension three{desktop::OnAir("E"), {{desktop::OnAir("1")}, {desktop::OnAir("2")}}};
    three.values.push_back({desktop::OnAir("3"), true});
    desktop::WriteRatingSystem(RRT_REGION_DOWNLOADABLE, {desktop::OnAir("R"), {one, three}});
    Change("UPDATE satcr SET frequency = 1632, slot = 4");
    free(FineTuneUtil::TvServiceChannelGetInfo());
    Utils::ExportChannelList(Archive());
  }

  ~ExportsTest() override { HoldClock(false); }

  /// What it changes is taken back, where the list is not what it changes.
  static Answer Do(const Export& function, const Action& run) {
    Answer answer;
    ForgetKept();
    desktop::Gate::Watch([&](const desktop::Operation& call, const desktop::Entry& entry, const std::string& result) {
      answer.calls.push_back(std::string(call.name) + "(" + entry.Arguments() + ") = " + result);
      if (!call.failures.empty()) answer.fallible.push_back(&call);
    });
    const auto body = [&] {
      ClearLog();
      answer.result = run();
      answer.log = TakeLog();
    };
    if (function.store == Export::kOnItsOwn) {
      body();
    } else {
      TakingBack(body);
    }
    desktop::Gate::Watch(nullptr);
    return answer;
  }

  static Answer DoWithNth(const Export& function, const Action& run, int nth, bool forGood) {
    desktop::Gate::FailNth(nth, forGood);
    Answer answer = Do(function, run);
    EXPECT_TRUE(desktop::Gate::NthReached()) << function.name << " " << nth;
    desktop::Gate::FailNth(0, false);
    return answer;
  }

  static void ExpectSame(const Answer& own, const Answer& operation, const std::string& how) {
    EXPECT_EQ(own.result, operation.result) << how;
    EXPECT_EQ(own.calls, operation.calls) << how;
  }
};

}  // namespace

TEST_F(ExportsTest, EachCallsItsOperationAndSaysSo) {
  EXPECT_EQ(std::size(kExports), 27U);
  for (const Export& function : kExports) {
    const Answer own = Do(function, function.call);
    ExpectSame(own, Do(function, function.operation), function.name);
    EXPECT_FALSE(own.calls.empty()) << function.name;
    const std::string named = std::string("[Debug]") + function.name;
    const auto isNamed = [&](const std::string& line) { return line == named || line == named + "\n"; };
    EXPECT_EQ(std::count_if(own.log.begin(), own.log.end(), isNamed), function.log == Export::kNamed) << function.name;
  }
  m_tv.Set("system_info/18", "1");
  ClearLog();
  EXPECT_FALSE(Tessarin_FlagVisibleSatCRTwoTuner());
  EXPECT_TRUE(Logged("[Debug]Tessarin_FlagVisibleSatCRTwoTuner result = false"));
  EXPECT_TRUE(Tessarin_GetRRSLock(1, 2));
  EXPECT_TRUE(Logged("[Info]Get rating lock for rating: 2 of dimension: 1"));
  EXPECT_FALSE(Tessarin_GetRRSLock(2, 1));
  EXPECT_TRUE(Logged("[Error]CTvService::GetRRSLock failed."));
}

TEST_F(ExportsTest, WhateverFailsTheyAnswerAsTheOperation) {
  int runs = 0;
  for (const Export& function : kExports) {
    const Answer healthy = Do(function, function.call);
    const int count = static_cast<int>(healthy.fallible.size());
    EXPECT_EQ(DoWithNth(function, function.call, 1, true).result, function.failure) << function.name;
    for (int n = 1; n <= count; ++n) {
      for (const bool forGood : {false, true}) {
        const std::string how = std::string(function.name) + " call " + std::to_string(n);
        const Answer own = DoWithNth(function, function.call, n, forGood);
        ExpectSame(own, DoWithNth(function, function.operation, n, forGood), how);
        ++runs;
      }
      const desktop::Operation& call = *healthy.fallible[static_cast<size_t>(n) - 1];
      for (const char* failure : call.failures) {
        m_tv.Fail(call.name, failure);
        ExpectSame(Do(function, function.call), Do(function, function.operation), call.name);
        m_tv.Heal();
        ++runs;
      }
    }
    ExpectSame(Do(function, function.call), healthy, function.name);
  }
  std::printf("%d runs with a fault\n", runs);
}

TEST_F(ExportsTest, ANumberThatIsNoneIsRefused) {
  const std::string before = Ask("SELECT group_concat(tuner || ' ' || frequency) FROM satcr");
  for (const int tuner : {-1, 2, 255, 65535, INT_MAX, 65536 + 7}) {
    EXPECT_EQ(Tessarin_GetSlotFrequency(tuner), -1) << tuner;
    EXPECT_FALSE(Tessarin_SendSatCRCommand(tuner, TESSARIN_SATCR_DETECT)) << tuner;
    EXPECT_NE(Tessarin_SetSatCRSlotFrequency(tuner, 1400), 1) << tuner;
    EXPECT_EQ(Text(Tessarin_GetSatCRProgress(tuner)), kNoStatus) << tuner;
    EXPECT_FALSE(Tessarin_IsSatCRCommandSuccess(tuner, 1632, 3)) << tuner;
  }
  for (const int frequency : {0, -1, INT_MIN}) EXPECT_EQ(Tessarin_SetSatCRSlotFrequency(0, frequency), -1) << frequency;
  EXPECT_EQ(Ask("SELECT group_concat(tuner || ' ' || frequency) FROM satcr"), before);
  for (const int command : {3, -1, INT_MAX, INT_MIN}) {
    EXPECT_TRUE(Tessarin_SendSatCRCommand(0, command)) << "whether it was taken is not asked";
    EXPECT_TRUE(Contains({Text(Tessarin_GetSatCRProgress(0))}, "\"Progress\" : 0")) << command;
  }
  for (const int type : {0, 5, -1, INT_MAX, INT_MIN}) {
    EXPECT_TRUE(Tessarin_IsSatCRCommandSuccess(0, 1632, type));
    EXPECT_FALSE(Tessarin_IsSatCRCommandSuccess(0, 1400, type));
    EXPECT_FALSE(Tessarin_IsSatCRCommandSuccess(0, INT_MIN, type));
  }
  for (const auto& [dimension, rating] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 1}, {INT_MAX, INT_MIN}}) {
    EXPECT_EQ(Tessarin_SetRRSLock(dimension, rating, true), -1) << dimension << " " << rating;
    EXPECT_FALSE(Tessarin_GetRRSLock(dimension, rating)) << dimension << " " << rating;
  }
  m_tv.ClearJournal();
  for (const int offset : {33, -33, 1000, INT_MAX, INT_MIN}) {
    Tessarin_PresetTunerMft(offset);
    Tessarin_SetFinetuneFreq(offset);
  }
  EXPECT_EQ(m_tv.ArgumentsOf("TunerControl::PresetMFT"), (Texts{"1, 65", "1, 255", "1, 8", "1, 31", "1, 32"}));
}

TEST_F(ExportsTest, ATextOfAnyKindIsFilledIn) {
  const std::string longText(600, 'x'), broken = "\xff\xfe\xc3";
  std::string umlauts;
  for (int i = 0; i < 300; ++i) umlauts += "ä";
  EXPECT_EQ(Text(Tessarin_CombinateStrings(nullptr, nullptr, nullptr, nullptr, nullptr)), "");
  EXPECT_EQ(Text(Tessarin_CombinateStrings("", "a", "b", "c", "d")), "");
  EXPECT_EQ(Text(Tessarin_CombinateStrings(kGuide, nullptr, "b", "c", "d")), " items. Use the arrow keys to move.");
  EXPECT_EQ(Text(Tessarin_CombinateStrings("NO_ID <<D>><<C>><<B>><<A>><<E>>", "a", "b", "c", "d")), "NO_ID dcba<<E>>");
  EXPECT_EQ(Text(Tessarin_CombinateStrings(kGuide, longText.c_str(), "b", "c", "d")), longText.substr(0, 511));
  EXPECT_EQ(Text(Tessarin_CombinateStrings(longText.c_str(), "a", "b", "c", "d")), longText.substr(0, 511));
  EXPECT_EQ(Text(Tessarin_CombinateStrings("<<A>>", umlauts.c_str(), "b", "c", "d")), umlauts.substr(0, 510));
  EXPECT_EQ(Text(Tessarin_CombinateStrings((broken + "<<A>>").c_str(), broken.c_str(), "b", "c", "d")),
            broken + broken);

  m_tv.SetLanguage("de_DE.utf8");
  const std::string german = Text(Tessarin_CombinateStrings("SID_CLOSE", "", "", "", ""));
  m_tv.SetLanguage("en_US.utf8");
  const std::string english = Text(Tessarin_CombinateStrings("SID_CLOSE", "", "", "", ""));
  EXPECT_EQ(german + " " + english, "Schließen Close");
}

TEST_F(ExportsTest, APathThatIsNoneLeavesTheListAndTheDisk) {
  const std::string services = Ask("SELECT count(*) || total(id) FROM service"), archive = Archive();
  const auto files = [&] {
    const std::filesystem::directory_iterator all(std::filesystem::path(archive).parent_path());
    return std::distance(begin(all), end(all));
  };
  const auto before = files();
  std::string paths[] = {"",
                         "/",
                         "none.zip",
                         archive + "/x",
                         "/no/such/dir/list.zip",
                         std::string(600, 'p'),
                         "/\xff\xfe/\xc3.zip",
                         std::string(6000, '/') + "x/y"};
  for (std::string& path : paths) {
    if (path != "none.zip" && path[0] != 'p') Tessarin_InitiateExportToTemp(path.c_str());
    EXPECT_GT(Tessarin_LoadCopiedChannelList(path.data()), 0) << path.substr(0, 40);
  }
  Tessarin_InitiateExportToTemp(nullptr);
  EXPECT_GT(Tessarin_LoadCopiedChannelList(nullptr), 0);
  std::ofstream(archive) << "no archive";
  EXPECT_EQ(Tessarin_LoadCopiedChannelList(Archive().data()), 1);
  EXPECT_EQ(files(), before);
  EXPECT_EQ(Ask("SELECT count(*) || total(id) FROM service"), services);
}

}  // namespace test
