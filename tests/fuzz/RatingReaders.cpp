// Rating systems: names as they may come from a broadcast, and texts that are to be put in place of one.
#include <json/json.h>

#include <fstream>
#include <sstream>

#include "Fuzz.h"
#include "Gate.h"
#include "Harness.h"
#include "RatingJson.h"
#include "RatingUitil.h"
#include "Utils.h"
#include "Verbs.h"

using desktop::RatingSystem;

namespace fuzz {

namespace {

constexpr ERRTRegion kRegion = RRT_REGION_DOWNLOADABLE;
constexpr size_t kMost = 511;

/// What the program makes of the system on air, which quirelle-tv makes of it too.
std::string OnAirNow() {
  std::string json = Utils::WrapMallocdString(RatingUtils::GetRatingInfoAsJsonString());
  Want((json.empty() ? "null" : json) == RatingJson(desktop::ReadRatingSystem(kRegion)), "one form of a system");
  return json;
}

// --- names ---------------------------------------------------------------------------------------

/// Any bytes, as UTF-16 for the most part.
std::string MakeName(Dice& dice) {
  const char* const kPieces[] = {"a", "ä", "€", "📺", "قناة", "Violence", "\n", "\xED\xA0\x80", "\xED\xB0\x80"};
  std::string bytes;
  do {
    const unsigned int often = dice.Chance(90) ? 1 : dice.Below(300);
    // Broken characters are rare, so that most names come to their end.
    const std::string piece = desktop::OnAir(kPieces[dice.Below(dice.Chance(95) ? 7 : 9)]);
    for (unsigned int i = 0; i < often; ++i) bytes += piece;
  } while (dice.Chance(80));
  if (dice.Chance(5)) bytes += static_cast<char>(dice.Below(256));
  if (dice.Chance(5)) bytes.insert(dice.Below(static_cast<unsigned int>(bytes.size()) + 1), std::string(2, '\0'));
  if (dice.Chance(10)) {
    for (char& byte : bytes) byte = static_cast<char>(dice.Below(256));
  }
  if (dice.Chance(5)) bytes.resize(kMost + dice.Below(2), 'a');
  return bytes;
}

/// The same name as region, dimension and value.
bool ReadName(const std::string& bytes) {
  desktop::WriteRatingSystem(kRegion, {bytes, {{bytes, {{bytes}, {bytes}}}}});
  const std::string json = OnAirNow();
  const bool whole = !Logged("iconv failed");
  Json::Value read;
  std::istringstream(json) >> read;
  const std::string shown = read["RegionName"].asString();
  Want(IsUtf8(shown) && shown.size() <= kMost, "a name up to where it is broken or cut");
  Want(read["Names"][0] == shown && read["RatingNames"][0][1] == shown, "a name is the same everywhere");
  desktop::WriteRatingSystem(kRegion, ParseRatingJson(json));
  Want(OnAirNow() == json, "what is written is read again");
  return whole;
}

// --- texts ---------------------------------------------------------------------------------------

std::string MakeSystem(Dice& dice) {
  const auto name = [&] { return desktop::RatingName(dice.Chance(90) ? MakeName(dice) : ""); };
  RatingSystem system{name(), {}};
  for (unsigned int d = dice.Below(4); d > 0; --d) {
    auto& dimension = system.dimensions.emplace_back(desktop::RatingDimension{name(), {}});
    for (unsigned int v = dice.Below(4); v > 0; --v) dimension.values.push_back({name()});
  }
  return dice.Mutated(RatingJson(system));
}

bool Load(const std::string& file) {
  const Silence silence(stdout);
  try {
    return RatingVerbs()[0].run({"load", file}) == 0;
  } catch (const std::runtime_error& error) {
    const std::string_view said = error.what();
    Want(said.starts_with(file + ": ") && said.size() > file.size() + 2, "says of which file it is, and what");
    return false;
  }
}

/// One system after the other takes the place of the last, or changes nothing.
bool ReadSystem(const std::string& input) {
  static const std::string file =
      (std::filesystem::path(desktop::Store::Get().Path()).parent_path() / "fuzz-rating.json").string();
  const std::string before = OnAirNow();
  std::ofstream(file, std::ios::binary | std::ios::trunc) << input;
  const bool read = Load(file);
  const std::string after = OnAirNow();
  Want(read || after == before, "a text that cannot be read changes nothing");
  if (!read) return false;
  std::ofstream(file, std::ios::binary | std::ios::trunc) << after;
  test::Change("UPDATE rating_value SET locked = 1");
  Want(Load(file) && OnAirNow() == after, "what is written is read again");
  Want(test::Ask("SELECT count(*) FROM rating_value WHERE locked") == "0", "the locks of a new system are off");
  return true;
}

}  // namespace

std::vector<Reader> RatingReaders() {
  return {{"rating names", 4, MakeName, ReadName}, {"rating systems", 10, MakeSystem, ReadSystem}};
}

}  // namespace fuzz
