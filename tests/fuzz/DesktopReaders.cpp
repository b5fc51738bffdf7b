// What the desktop reads: command lines, keys, profiles, scan tables, names for the service.
#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "Applications.h"
#include "Fuzz.h"
#include "Gate.h"
#include "Harness.h"
#include "Keys.h"
#include "MenuControl.h"
#include "Options.h"
#include "Profile.h"
#include "Screen.h"
#include "Text.h"
#include "Utils.h"
#include "Verbs.h"
#include "app_framework.h"
#include "system_info.h"
#include "tvs/Inputs.h"
#include "tvs/RatingTable.h"
#include "tvs/ScanTables.h"
#include "tvs/TvProfile.h"
#include "vconf.h"

using desktop::Store;

std::string g_tv = "the TV";

namespace fuzz {

namespace {

// --- keys and options ----------------------------------------------------------------------------

const Texts kSteps = {"Up",       "Down",   "Return",     "XF86Back",        "KP_7",     "F2",
                      "wait:2.5", "wait:0", "wait:86400", "shot:/tmp/a.png", "wait:1e3", "Escape"};

bool ReadSteps(const std::string& input) {
  std::vector<desktop::Step> steps;
  std::string wrong;
  const bool read = desktop::ParseSteps(input, steps, wrong);
  Want(read || (!wrong.empty() && input.find(wrong) != input.npos), "names the word that is none");
  for (const desktop::Step& step : steps) {
    if (step.kind == desktop::Step::kWait) {
      Want(std::isfinite(step.seconds) && step.seconds >= 0 && step.seconds <= 86400, "waits at most a day");
    } else {
      Want(!step.text.empty(), "a key or a file");
      Want(step.kind == desktop::Step::kShot || desktop::RemoteKey(step.text), "a key of the remote");
    }
  }
  return read;
}

const Texts kOptions = {"tv-rating",   "--keys", "Down Return", "--keys=Up", "--extra", "a=b",
                        "--extra=c=d", "--log",  "info",        "--log=off", "--shot",  "--dump",
                        "-",           "--tv=x", "--list",      "--help"};

bool ReadOptions(const std::string& input) {
  Texts words = Lines("quirelle\n" + input);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  try {
    const desktop::Options options = desktop::ParseOptions(static_cast<int>(pointers.size()), pointers.data());
    for (const auto& [key, value] : options.extra) Want(!key.empty(), "an extra has a key");
    return true;
  } catch (const desktop::UsageError& error) {
    Want(*error.what() != '\0', "says what is wrong");
    return false;
  }
}

// --- quirelle-tv ---------------------------------------------------------------------------------

const Texts kLines = {"channels\nair\n--limit\n3",
                      "satellites\n--json",
                      "transponders\n1\n--limit\n2",
                      "tune\n1",
                      "tune\nnext\n--pip",
                      "source\n0",
                      "mode\ncable\n-1",
                      "signal\n--strength\n50\n--quality\n60\n--ber\n10\n--snr\n2000",
                      "history\nadd\n1700000000:7:65535:2:0:0",
                      "history\nlist\n--limit\n2",
                      "clock\n12",
                      "satcr\n--bands\n1284,1400,1516\n--occupy\n1400=Kitchen & Co",
                      "satcr\n--store\n0=1284\n--leave\n1516\n--duration\n20\n--outcome\nnone",
                      "dish\n--go\n28.2E\n--speed\n3\n--motor\nyes",
                      "dish\n--east-limit\n42.0E\n--west-limit\nnone\n--json",
                      "item\nsetting-user-sat-1\n19.2 E",
                      "hdmi\n--port\n1\n--resolution\n1920x1080@59.94p\n--format\n0x70000\n--name\nConsole",
                      "rating\nlock\n0\n1\non\n--json",
                      "rating\nload\n/nowhere/a.json",
                      "rating\nclear",
                      "get\ndb/menu_widget/language",
                      "set\ndb/menu_widget/language\nde_DE.utf8",
                      "set\ndb/menu/broadcasting/program_rating_lock/tv_rating/tv_y\n1",
                      "set\ndb/setting/accessibility/tts\ntrue",
                      "settings\ndb/menu/b",
                      "item\nhdmi-delay-level",
                      "item\nuser-defined-transponder-frequency\n11000 MHz",
                      "fail\nvconf_get_int\n-1\n--times\n2",
                      "fail\nSettingsAPI_GetItemValue\nfalse",
                      "heal",
                      "heal\nvconf_get_int",
                      "usage",
                      "key\nReturn",
                      "start\norg.nyxel.function-osd",
                      "plug\n..",
                      "unplug\na/b"};

/// The verb stays: a mutated one is unknown, and that is all.
std::string MakeWords(Dice& dice) {
  const std::string line = dice.Any(kLines);
  const size_t end = std::min(line.find('\n'), line.size());
  return line.substr(0, end) + dice.Mutated(line.substr(end));
}

bool RunWords(Texts words) {
  const Silence silence(stdout);
  const Verb& verb = TakeVerb(words);
  return verb.run(words) == 0;
}

bool ReadWords(const std::string& input) {
  const Texts words = Lines(input);
  const std::string &verb = words[0], &name = words.back();
  // A journal could be followed for ever, a stick would stay.
  if (verb == "journal" || verb == "new" || verb == "power-cycle") return false;
  const bool refused = words.size() == 2 && (name.empty() || name[0] == '.' || name.find('/') != name.npos);
  if (verb.ends_with("plug") && !refused) return false;
  bool read = false;
  try {
    read = RunWords(words);
    Want(read, "a verb that does not do it says why");
  } catch (const std::runtime_error& error) {
    Want(*error.what() != '\0', "says what is wrong");
  }
  if (verb == "fail" && read) {
    test::Change("DELETE FROM fault");
    desktop::Gate::FaultsChanged();
  }
  return read;
}

// --- what a TV is made from ----------------------------------------------------------------------

const Texts kProfile = {"[settings]\nint db/menu/broadcasting/program_rating_lock/tv_rating/tv_y 1",
                        "[settings]\nbool db/menu/picture/pip/onoff true",
                        "[settings]\nstring db/menu_widget/language en_US.utf8",
                        "[settings]\nints system_info/5 8 9 4",
                        "[menu]\nitem hdmi-delay-level SID_DELAY parent=hdmi value=1 0:SID_LOW 1:SID_HIGH",
                        "[chips]\nMENU_LIST 10 20 30 255",
                        "[chips high-contrast]\nMENU_LIST 10 20 30 255",
                        "[applications]\norg.nyxel.function-osd running",
                        "[tv]\npicture main air -1 0",
                        "[tv]\nmodel 47 1",
                        "[tv]\nstate clock_hours 24",
                        "[tv]\nbroadcaster 3 5",
                        "[tv]\nletters DEU",
                        "[tv]\noperator-profile 3 satellite 1 Sky & Co",
                        "[tv]\nsatcr bands 1284 1400\nsatcr occupant 1400 Kitchen & Co",
                        "[tv]\nsatcr tuner 0 1284",
                        "[tv]\ndish motor 13.4E 19.2E 2\ndish satellites 19.2E 5.0W",
                        "[tv]\nuser-satellite 2 30.0W",
                        "[tv]\nselect 19.2E 13.0E",
                        "[tv]\nweak-signal 1700000000:7:65535:2:0:0",
                        "[tv]\nhdmi 1 1920x1080@59.94p 2 Console",
                        "[reception]\nsatellites 19.2E 28.2E",
                        "[reception]\nair dvb-t/de-Berlin",
                        "[reception]\npackage 2 19.2E",
                        "[rating]\nregion Añ€ 📺\ndimension Age\nvalue 4+\nvalue\nvalue \"\"",
                        "[rating]\ndimension\nvalue x'00410042'",
                        "[channels]\nservices 120",
                        "[channels]\nlist air -1 50 analog=10 radio=5 uhd=2 locked=3 virtual=1 subchannels",
                        "[channels]\nlist satellite 8 100 at=19.2E",
                        "# a remark\n[settings]"};

bool ReadProfile(const std::string& input) {
  std::istringstream text(input);
  std::vector<desktop::ProfileSection> sections;
  try {
    desktop::ReadProfileText(text, "/nowhere/fuzz.tv", sections, 1);
    desktop::TvProfile profile;
    desktop::RatingProfile rating;
    for (const desktop::ProfileSection& section : sections) {
      if (profile.Takes(section.name)) {
        profile.Read(section);
        if (section.name != "tv") continue;
        for (const desktop::ProfileLine& line : section.lines) desktop::WriteTvLine(line);
      } else if (rating.Takes(section.name)) {
        rating.Read(section);
      } else {
        desktop::WriteSection(section);
      }
    }
    rating.Make({});
  } catch (const desktop::ProfileError& error) {
    const std::string_view said = error.what();
    Want(said.starts_with("fuzz.tv:") || said.starts_with("/"), "says in which line what is wrong");
    return false;
  }
  return true;
}

const Texts kPositions = {"Astra-19.2E", "Eutelsat_Hotbird-13.0E", "Intelsat-34.5W", "x-0W", "S-180E"};

bool ReadPosition(const std::string& input) {
  const int position = desktop::OrbitalPosition(input);
  Want(position >= -1 && position < 3600, "a position is on the circle, or none");
  if (position < 0) return false;
  const bool west = position > 1800;
  const std::string again = Format("S-%.1f%c", (west ? 3600 - position : position) / 10.0, west ? 'W' : 'E');
  Want(desktop::OrbitalPosition(again) == position, "a position that is written is read again");
  const size_t sign = input.find_last_of("-_");
  Want(input.find_first_not_of("0123456789.", sign + 1) == input.size() - 1, "a position is degrees and E or W");
  return true;
}

const Texts kResolutions = {"1920x1080@59.94p", "720x576@25i", "3840x2160@120p", "none", "1x1@0p"};

bool ReadResolution(const std::string& input) {
  int w = -1, h = -1;
  const bool screen = desktop::ParseScreenSize(std::string_view(input).substr(0, input.find('@')), w, h);
  Want(screen ? w > 0 && w <= 8192 && h > 0 && h <= 8192 : w == -1 && h == -1, "a screen's size is none or fits");
  const auto read = desktop::ParseResolution(input);
  if (!read) return false;
  const auto within = [](int value, int most) { return value >= 0 && value <= most; };
  Want(within(read->horizontal, 99999) && within(read->vertical, 99999) && within(read->frameRate, 99999),
       "a resolution within its digits");
  if (read->horizontal == 0) return true;
  const auto second =
      desktop::ParseResolution(Format("%dx%d@%d.%02d%c", read->horizontal, read->vertical, read->frameRate / 100,
                                      read->frameRate % 100, read->progressive ? 'p' : 'i'));
  Want(second && second->frameRate == read->frameRate && second->vertical == read->vertical, "is read again");
  return true;
}

const Texts kScanTable = {
    "[Astra]\n\tDELIVERY_SYSTEM = DVBS2\n\tFREQUENCY = 10714000\n\tPOLARIZATION = HORIZONTAL\n"
    "\tSYMBOL_RATE = 22000000\n\tINNER_FEC = 5/6\n\tMODULATION = PSK/8\n\tINVERSION = AUTO\n\n"
    "[CHANNEL]\n\tDELIVERY_SYSTEM = DVBT\n\tFREQUENCY = 474000000\n\tBANDWIDTH_HZ = 8000000\n"
    "\tMODULATION = QAM/64\n"};

bool ReadScanTable(const std::string& input) {
  static const std::string file = (std::filesystem::path(Store::Get().Path()).parent_path() / "fuzz-table").string();
  std::ofstream(file, std::ios::binary | std::ios::trunc) << input;
  Texts said;
  // The tables' library says it too.
  const Silence silence(stderr);
  const auto entries = desktop::ReadScanTable(file, [&](const std::string& what) { said.push_back(what); });
  Want(!entries.empty() || !said.empty(), "says why a table gives nothing");
  for (const std::string& what : said) Want(what.starts_with(file), "says of which table it is");
  for (const desktop::ScanEntry& entry : entries) {
    Want(entry.frequency > 0 && entry.symbolRate >= -1, "an entry has a frequency");
  }
  return said.empty();
}

// --- what the TV keeps ---------------------------------------------------------------------------

bool ReadUtf16(const std::string& input) {
  const std::u16string units = desktop::ToUtf16(input);
  Want(units.find(u'\0') == units.npos, "no end in the middle");
  if (const auto expected = Utf16(input)) {
    Want(units == *expected, "characters stay what they are");
    return true;
  }
  Want(std::any_of(units.begin(), units.end(), [](char16_t c) { return c == 0xFFFD || (c >= 0xD800 && c < 0xE000); }),
       "what is broken is seen to be");
  return false;
}

std::string MakeSetting(Dice& dice) {
  constexpr const char* types[] = {"int", "bool", "string", "ints"};
  const std::string value = dice.Chance(70) ? "8 9 " + dice.Number() : "de_DE.utf8";
  return dice.Any(types) + ("\n" + dice.Mutated(value));
}

/// Whether a text is a number that fits, and nothing else.
bool IsInt(const std::string& text) {
  const auto number = desktop::ToNumber(text);
  return number && *number >= INT32_MIN && *number <= INT32_MAX;
}

/// One value under a key of its type, and what the set's functions make of it.
bool ReadSetting(const std::string& input) {
  const auto [type, value] = Halves(input);
  const char* key = type.starts_with("int") ? "system_info/0" : "db/fuzz";
  test::Change("REPLACE INTO setting VALUES (?, ?, ?)", key, type, value);
  ForgetLog();
  if (type == "string") {
    Want(Utils::WrapMallocdString(vconf_get_str(key)) == value, "a text is what it is");
    return true;
  }
  constexpr auto kInfo = static_cast<system_info_key_e>(0);
  int number = 0;
  bool read = false, readable = IsInt(value);
  if (type == "bool") {
    read = vconf_get_bool(key, &number) == 0;
  } else if (type == "int") {
    read = system_info_get_value_int(kInfo, &number) == 0;
    Want(!read || std::strtol(value.c_str(), nullptr, 10) == number, "a number is what it is");
  } else {
    _system_info_value_array array{};
    read = system_info_get_value_int_array(kInfo, &array) == 0;
    std::istringstream words(value);
    readable = true;
    for (std::string word; words >> word; ++number) readable = readable && IsInt(word);
    Want(!read || array.count == number, "every number of a list");
    free(array.values);
  }
  Want(read == readable, "what is no number cannot be read");
  Want(read || Logged(" is no number"), "says what is no number");
  return read;
}

std::string MakeLaunch(Dice& dice) {
  return dice.Mutated("type") + "\n" + dice.Mutated(dice.Chance(50) ? "NUM_SPIN" : "{\"a\": [\"ü\"]}");
}

/// A launch with any words comes out of the TV as it went in.
bool ReadLaunch(const std::string& input) {
  const auto [key, value] = Halves(input);
  app_control_h request = nullptr;
  Want(app_control_create(&request) == 0, "a request can be made");
  app_control_set_app_id(request, "org.nyxel.function-osd");
  app_control_add_extra_data(request, "ID", value.c_str());
  app_control_add_extra_data(request, key.c_str(), value.c_str());
  MenuControl control;
  control.SetLaunchParam(request);
  app_control_send_launch_request(request, nullptr, nullptr);
  app_control_destroy(request);
  auto launches = desktop::OwnLaunches();
  test::Change("DELETE FROM launch");
  Want(launches.size() == 1 && launches[0].extra[key] == value, "a launch keeps its words");
  return IsUtf8(input);
}

}  // namespace

std::vector<Reader> DesktopReaders() {
  const auto makeName = [](Dice& dice) { return dice.Chance(70) ? dice.Mutated("Añ€ 📺 قناة") : dice.Bytes(40); };
  return {{"keys", 1, Some(kSteps, 3, " "), ReadSteps},
          {"options", 1, Some(kOptions, 4, "\n"), ReadOptions},
          {"quirelle-tv", 10, MakeWords, ReadWords},
          {"profiles", 1, Some(kProfile, 3, "\n"), ReadProfile},
          {"positions", 1, Some(kPositions), ReadPosition},
          {"resolutions", 1, Some(kResolutions), ReadResolution},
          {"scan tables", 100, Some(kScanTable), ReadScanTable},
          {"names on air", 1, makeName, ReadUtf16},
          {"settings", 10, MakeSetting, ReadSetting},
          {"launches", 10, MakeLaunch, ReadLaunch}};
}

}  // namespace fuzz
