#include <cstdlib>

#include "Bench.h"
#include "FineTuneUtil.h"
#include "LogOutput.h"
#include "Profile.h"
#include "RatingUitil.h"
#include "Readings.h"
#include "SatCRUtil.h"
#include "Store.h"
#include "Utils.h"
#include "string_util.h"
#include "tessarin.h"
#include "tvs/RatingTable.h"
#include "vconf.h"

namespace bench {

namespace {

constexpr int kStarts = 15, kPairs = 25;
constexpr const char* kText = "COM_SID_POPUP_WIDGET_SHOW_GUIDE";

/// Milliseconds from the launch of a process to its first answer.
double FirstAnswer(const std::vector<std::string>& words) {
  const double start = Now();
  return (Child(words).at(0) - start) * 1000;
}

struct Kind {
  const char* name;
  std::function<void()> ours, floor;
  int times;
};

const Kind kKinds[] = {
    {"a text in the TV's language", [] { free(Tessarin_CombinateStrings(kText, "3", nullptr, nullptr, nullptr)); },
     [] {
       // In the TV's language, which another program may have changed.
       free(vconf_get_str("db/menu_widget/language"));
       char text[512] = {};
       CStringUtil::CombinateStrings(text, sizeof text, Utils::GetTranslationStr(kText).c_str(), "3");
       free(strdup(text));
     },
     2000},
    {"a number", [] { Tessarin_GetSlotFrequency(0); }, [] { SatCRUtils::GetSlotFrequency(0); }, 1000},
    {"JSON", [] { free(Tessarin_GetRatingInfo()); }, [] { free(RatingUtils::GetRatingInfoAsJsonString()); }, 200},
    {"a lock", [] { Tessarin_SetRRSLock(0, 0, true); }, [] { RatingUtils::SetRRSLock(0, 0, true); }, 20},
    {"a preset", [] { Tessarin_PresetTunerMft(3); }, [] { FineTuneUtil::PresetTunerMft(3); }, 20},
    {"a command", [] { Tessarin_InstallerGoToZero(); }, [] { Utils::InstallerGoToZero(); }, 20},
};

}  // namespace

std::vector<Figure> TessarinFigures(const std::string& directory) {
  const std::string tv = directory + "/client.db";
  desktop::MakeTv(tv, {"europe", 400}, false);
  setenv("QUIRELLE_TV", tv.c_str(), 1);
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  const std::string client = OwnDirectory() + "bench-client";
  std::vector<Figure> figures = {InTurn(
      "client: launch to first answer, against bare SQLite", "ms", 0, kStarts,
      [&] {
        return FirstAnswer({client, OwnDirectory() + "libquirelle.so"});
      },
      [&] { return FirstAnswer({client}); })};
  desktop::Store::Open(tv);
  desktop::WriteRatingSystem(RRT_REGION_DOWNLOADABLE,
                             {desktop::OnAir("R"), {{desktop::OnAir("D"), {{desktop::OnAir("V")}}}}});
  for (const Kind& kind : kKinds) {
    figures.push_back(InTurn(
        std::string("client: ") + kind.name + ", against its operation", "us", 1.05, kPairs,
        [&] { return SecondsOf(kind.ours, kind.times) * 1e6; },
        [&] { return SecondsOf(kind.floor, kind.times) * 1e6; }));
  }
  desktop::Store::Close();
  return figures;
}

}  // namespace bench
