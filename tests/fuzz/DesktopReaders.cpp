// What the desktop reads: command lines, keys, profiles, scan tables, names for the service.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "Fuzz.h"
#include "Gate.h"
#include "Harness.h"
#include "Keys.h"
#include "Options.h"
#include "Profile.h"
#include "Screen.h"
#include "Text.h"
#include "Verbs.h"
#include "tvs/Inputs.h"
#include "tvs/RatingTable.h"
#include "tvs/ScanTables.h"
#include "tvs/TvProfile.h"

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
    Want(step.kind == desktop::Step::kWait ? step.seconds >= 0 && step.seconds <= 86400
                                           : step.kind == desktop::Step::kShot || desktop::RemoteKey(step.text),
         "a key of the remote, a file, or a wait of at most a day");
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

const Texts kLines = {"channels air --limit 3",
                      "satellites --json",
                      "transponders 1 --limit 2",
                      "tune next --pip",
                      "source 0",
                      "mode cable -1",
                      "signal --strength 50 --quality 60 --ber 10 --snr 2000",
                      "history add 1700000000:7:65535:2:0:0",
                      "history list --limit 2",
                      "clock 12",
                      "satcr --bands 1284,1400,1516 --occupy 1400=Kitchen --store 0=1284 --leave 1516 --duration 20",
                      "satcr --outcome none",
                      "dish --go 28.2E --speed 3 --motor yes",
                      "dish --east-limit 42.0E --west-limit none --json",
                      "hdmi --port 1 --resolution 1920x1080@59.94p --format 0x70000 --name Console",
                      "rating lock 0 1 on --json",
                      "rating load /nowhere/a.json",
                      "rating clear",
                      "get db/menu_widget/language",
                      "set db/menu_widget/language de_DE.utf8",
                      "set db/menu/broadcasting/program_rating_lock/tv_rating/tv_y 1",
                      "set db/setting/accessibility/tts true",
                      "settings db/menu/b",
                      "item hdmi-delay-level",
                      "item user-defined-transponder-frequency 11000",
                      "fail vconf_get_int -1 --times 2",
                      "heal vconf_get_int",
                      "usage",
                      "key Return",
                      "start org.nyxel.function-osd",
                      "plug ..",
                      "unplug a/b"};

/// The verb stays: a mutated one is unknown, and that is all.
std::string MakeWords(Dice& dice) {
  std::string line = dice.Any(kLines);
  std::replace(line.begin(), line.end(), ' ', '\n');
  const size_t end = std::min(line.find('\n'), line.size());
  return line.substr(0, end) + dice.Mutated(line.substr(end));
}

bool ReadWords(const std::string& input) {
  Texts words = Lines(input);
  const std::string verb = words[0], name = words.back();
  // A journal could be followed for ever, a stick would stay.
  if (verb == "journal" || verb == "new" || verb == "power-cycle") return false;
  const bool refused = words.size() == 2 && (name.empty() || name[0] == '.' || name.find('/') != name.npos);
  if (verb.ends_with("plug") && !refused) return false;
  const Silence silence(stdout);
  try {
    const Verb& taken = TakeVerb(words);
    Want(taken.run(words) == 0, "a verb that does not do it says why");
  } catch (const std::runtime_error& error) {
    Want(*error.what() != '\0', "says what is wrong");
    return false;
  }
  test::Change("DELETE FROM fault");
  desktop::Gate::FaultsChanged();
  return true;
}

// --- what a TV is made from ----------------------------------------------------------------------

/// A section, and a line of it after each bar.
const Texts kProfile = {
    "settings|int db/menu/broadcasting/program_rating_lock/tv_rating/tv_y 1|bool db/menu/picture/pip/onoff true",
    "settings|string db/menu_widget/language en_US.utf8|ints system_info/5 8 9 4|# a remark",
    "menu|item hdmi-delay-level SID_DELAY parent=hdmi value=1 0:SID_LOW 1:SID_HIGH",
    "chips|MENU_LIST 10 20 30 255",
    "chips high-contrast|MENU_LIST 10 20 30 255",
    "applications|org.nyxel.function-osd running",
    "tv|picture main air -1 0|model 47 1|state clock_hours 24|broadcaster 3 5|letters DEU",
    "tv|operator-profile 3 satellite 1 Sky & Co|user-satellite 2 30.0W|select 19.2E 13.0E",
    "tv|satcr bands 1284 1400|satcr occupant 1400 Kitchen & Co|satcr tuner 0 1284",
    "tv|dish motor 13.4E 19.2E 2|dish satellites 19.2E 5.0W",
    "tv|weak-signal 1700000000:7:65535:2:0:0|hdmi 1 1920x1080@59.94p 2 Console",
    "reception|satellites 19.2E 28.2E|air dvb-t/de-Berlin|package 2 19.2E",
    "rating|region Añ€ 📺|dimension Age|value 4+|value|value \"\"",
    "rating|dimension|value x'00410042'",
    "channels|services 120|list air -1 50 analog=10 radio=5 uhd=2 locked=3 virtual=1 subchannels",
    "channels|list satellite 8 100 at=19.2E"};

std::string MakeProfile(Dice& dice) {
  std::string text;
  for (unsigned int sections = 1 + dice.Below(3); sections > 0; --sections) {
    std::istringstream lines(dice.Any(kProfile));
    std::string line;
    std::getline(lines, line, '|');
    text += "[" + line + "]\n";
    while (std::getline(lines, line, '|')) text += (dice.Chance(30) ? dice.Mutated(line) : line) + "\n";
  }
  return dice.Chance(20) ? dice.Mutated(text) : text;
}

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

const Texts kResolutions = {"1920x1080@59.94p", "720x576@25i", "3840x2160@120p", "none", "1x1@0p"};

bool ReadResolution(const std::string& input) {
  int w = -1, h = -1;
  const bool screen = desktop::ParseScreenSize(std::string_view(input).substr(0, input.find('@')), w, h);
  Want(screen ? w > 0 && w <= 8192 && h > 0 && h <= 8192 : w == -1 && h == -1, "a screen's size is none or fits");
  const auto read = desktop::ParseResolution(input);
  if (!read || read->horizontal == 0) return read.has_value();
  const auto again =
      desktop::ParseResolution(Format("%dx%d@%d.%02d%c", read->horizontal, read->vertical, read->frameRate / 100,
                                      read->frameRate % 100, read->progressive ? 'p' : 'i'));
  Want(again && again->frameRate == read->frameRate && again->vertical == read->vertical, "is read again");
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
  Want(std::all_of(entries.begin(), entries.end(), [](const auto& entry) { return entry.frequency > 0; }),
       "an entry has a frequency");
  return said.empty();
}

// --- what the TV keeps ---------------------------------------------------------------------------

bool ReadUtf16(const std::string& input) {
  const std::u16string units = desktop::ToUtf16(input);
  Want(units.find(u'\0') == units.npos, "no end in the middle");
  const auto same = Utf16(input);
  Want(same ? units == *same : std::any_of(units.begin(), units.end(), [](char16_t c) { return c >= 0xD800; }),
       "characters stay what they are, and what is broken is seen to be");
  const std::string plain = desktop::PlainText(input, 20);
  Want(desktop::IsPlainText(plain) && IsUtf8(plain) && plain.size() <= 20, "becomes a plain text");
  const bool isPlain = desktop::IsPlainText(input);
  Want(!isPlain || desktop::PlainText(input, input.size()) == input, "a plain one stays what it is");
  return isPlain;
}

}  // namespace

std::vector<Reader> DesktopReaders() {
  const auto makeName = [](Dice& dice) { return dice.Chance(70) ? dice.Mutated("Añ€ 📺 قناة") : dice.Bytes(40); };
  return {{"keys", 1, Some(kSteps, 3, " "), ReadSteps},
          {"options", 1, Some(kOptions, 4, "\n"), ReadOptions},
          {"quirelle-tv", 10, MakeWords, ReadWords},
          {"profiles", 1, MakeProfile, ReadProfile},
          {"resolutions", 1, Some(kResolutions), ReadResolution},
          {"scan tables", 100, Some(kScanTable), ReadScanTable},
          {"names on air", 1, makeName, ReadUtf16}};
}

}  // namespace fuzz
