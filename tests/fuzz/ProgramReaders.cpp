// What the program itself reads: notes of weak signal, numbers and names of the TV, sticks.
#include <algorithm>
#include <climits>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "CacheManager.h"
#include "ChannelUtil.h"
#include "CommonUtil.h"
#include "DataElementary.h"
#include "DataProvider.h"
#include "DeviceManager.h"
#include "FineTuneUtil.h"
#include "Fuzz.h"
#include "Harness.h"
#include "SatCRUtil.h"
#include "SignalHistory.h"
#include "TextUtil.h"
#include "TvsShared.h"
#include "TvsUtil.h"
#include "Usb.h"
#include "Utils.h"
#include "settings_api.h"
#include "string_util.h"
#include "tvs/State.h"

using test::Change;

/// The window adds a row to its sorted ones where nobody else can ask it to.
void AddSorted(CViewWeakSignalHistoryWindow& window, std::vector<DataInfo>& rows, DataInfo row);
template <void (CViewWeakSignalHistoryWindow::*Add)(std::vector<DataInfo>&, DataInfo)>
struct RowOpener {
  friend void AddSorted(CViewWeakSignalHistoryWindow& window, std::vector<DataInfo>& rows, DataInfo row) {
    (window.*Add)(rows, std::move(row));
  }
};
template struct RowOpener<&CViewWeakSignalHistoryWindow::m_AddRow>;

namespace fuzz {

namespace {

constexpr size_t kText = 512;

// --- the notes of weak signal --------------------------------------------------------------------

using History = test::SignalHistory;

const std::string kNoTime = "----/--/--         --:--";

/// As it is where the stamps are of this type.
void SetClock(int type) {
  if (desktop::TvState("fuzz_clock", -1) == type) return;
  desktop::SetTvState("fuzz_clock", type);
  desktop::SetTvState("clock_hours", type == History::STAMP_24_HOURS ? 24 : 12);
  constexpr const char* kLanguages[] = {"", "ko_KR.utf8", "de_DE.utf8", "en_US.utf8"};
  Change("UPDATE setting SET value = ? WHERE key = 'db/menu_widget/language'", kLanguages[type]);
}

std::string Stamp(const std::string& date, int hour, int minute, const std::string& word, int type) {
  const std::string time = Format("%02d:%02d", hour, minute);
  return date + "         " + (type == History::STAMP_WORD_FIRST ? word + " " : "") + time +
         (type == History::STAMP_WORD_LAST ? " " + word : "");
}

/// When a stamp says that it was; empty for one that is not written as stamps are.
std::string TimeOf(const std::string& stamp, int type) {
  std::istringstream words(stamp);
  std::string date, time, word;
  const bool wordFirst = type == History::STAMP_WORD_FIRST;
  words >> date >> (wordFirst ? word : time) >> (wordFirst ? time : word);
  int hour = -1, minute = -1;
  sscanf(time.c_str(), "%2d:%2d", &hour, &minute);
  const bool day =
      date.size() == 10 && date[4] == '/' && date[7] == '/' && date.find_first_not_of("0123456789/") == date.npos;
  if (!day || hour < 0 || minute < 0 || stamp != Stamp(date, hour, minute, word, type)) return "";
  if (type != History::STAMP_24_HOURS) {
    const bool morning = word == Utils::GetTranslationStr("SID_AM_ABBR_4");
    if (!morning && word != Utils::GetTranslationStr("SID_PM_ABBR_4")) return "";
    hour = hour % 12 + (morning ? 0 : 12);
  }
  return Stamp(date, hour, minute, "", History::STAMP_24_HOURS);
}

/// A row as the window makes it of a note; false when there is nothing in the note.
bool ReadNote(const std::string& note, int type, DataInfo& row) {
  Buffer<kText> date, time, other;
  ForgetLog();
  const int result = ChannelUtil::GetHistoryItemInfo(note, date.text, time.text, other.text);
  const bool numbers = note.find_first_not_of(':') != note.npos;
  Want(result == (numbers ? 0 : -1), "a note is read when there is anything in it");
  if (!numbers) {
    Want(Logged("[Debug] Can not Get Time"), "says that a note has no time");
    return false;
  }
  const std::string stamp = std::string(date.Checked()) + "         " + std::string(time.Checked());
  Want(Logged("[Error] Invalid Date ") == (stamp == kNoTime), "says that a note's time is none");
  Want(IsUtf8(stamp) && IsUtf8(other.Checked()), "what is shown is UTF-8");
  const bool dated = date.Checked().find_first_not_of("0123456789/-") == std::string_view::npos;
  Want(dated && !date.Checked().empty(), "a date is digits");
  Want(date.Checked()[0] != '-' || stamp == kNoTime || note.find('-') != note.npos, "no year before the first");
  const bool fourDigits = date.Checked().size() == 10 && date.Checked().find('-') == std::string_view::npos;
  Want(!fourDigits || !TimeOf(stamp, type).empty(), "a stamp is a date and a time of day");
  row = {stamp, std::string(other.Checked()), "", "", ""};
  return true;
}

std::string MakeNotes(Dice& dice) {
  // The clock stays for a while: to set it takes longer than to read a note.
  static unsigned int clock = History::STAMP_24_HOURS;
  if (dice.Chance(1)) clock = 1 + dice.Below(3);
  std::string text = std::to_string(clock);
  for (unsigned int i = dice.Chance(70) ? 1 : dice.Below(4) + 1; i > 0; --i) {
    std::string note = std::to_string(1'500'000'000 + dice.Below(400'000'000)) + ":" +
                       std::to_string(dice.Below(1000)) + ":65535:2:0:" + (dice.Chance(50) ? "0" : "1");
    if (dice.Chance(60)) note = dice.Mutated(note);
    if (dice.Chance(5)) note = dice.Bytes(60);
    text += "\n" + note;
  }
  return text;
}

bool ReadNotes(const std::string& input) {
  const Texts notes = Lines(input);
  const int type = NumberAtStart(notes[0].c_str());
  SetClock(type);
  static History window;
  std::vector<DataInfo> rows;
  std::multiset<std::string> read;
  for (size_t i = 1; i < notes.size(); ++i) {
    DataInfo row;
    if (!ReadNote(notes[i], type, row)) continue;
    read.insert(row.displayName + "|" + row.value);
    AddSorted(window, rows, row);
  }
  std::multiset<std::string> listed;
  std::string last = "~";
  bool timesOver = false;
  for (const DataInfo& row : rows) {
    listed.insert(row.displayName + "|" + row.value);
    timesOver = timesOver || row.displayName == kNoTime;
    Want(timesOver == (row.displayName == kNoTime), "notes without a time come last");
    const std::string time = TimeOf(row.displayName, type);
    Want(time <= last, "the newest note comes first");
    if (!time.empty()) last = time;
  }
  Want(listed == read, "the rows are the notes that could be read");
  return read.size() + 1 == notes.size();
}

std::string MakeStamp(Dice& dice, int type) {
  const int hour = static_cast<int>(dice.Below(24)), minute = static_cast<int>(dice.Below(60));
  const std::string date = "2025/03/0" + std::to_string(1 + dice.Below(3));
  const std::string word = Utils::GetTranslationStr(hour < 12 ? "SID_AM_ABBR_4" : "SID_PM_ABBR_4");
  return Stamp(date, type == History::STAMP_24_HOURS ? hour : (hour + 11) % 12 + 1, minute, word, type);
}

std::string MakeStamps(Dice& dice) {
  const auto anyType = [&] { return 1 + static_cast<int>(dice.Below(3)); };
  const int type = anyType();
  const std::string first = MakeStamp(dice, dice.Chance(10) ? anyType() : type);
  const std::string second = dice.Chance(10) ? first : dice.Chance(3) ? kNoTime : MakeStamp(dice, type);
  const auto maybeMutated = [&](const std::string& stamp) { return dice.Chance(40) ? dice.Mutated(stamp) : stamp; };
  return std::to_string(type) + "\n" + maybeMutated(first) + "\n" + maybeMutated(second);
}

bool ReadStamps(const std::string& input) {
  const Texts lines = Lines(input, 3);
  const int type = NumberAtStart(lines[0].c_str());
  const int order = History::Compare(type, lines[1], lines[2]), back = History::Compare(type, lines[2], lines[1]);
  const std::string first = TimeOf(lines[1], type), second = TimeOf(lines[2], type);
  Want(History::Compare(type, lines[1], "") == 1, "anything is newer than nothing");
  if (first.empty() || second.empty()) return false;
  Want(order == (first > second) - (first < second) && back == -order, "stamps compare as their times");
  return true;
}

// --- numbers -------------------------------------------------------------------------------------

/// The same in another way.
int Parsed(const std::string& text) {
  int number = 0;
  std::istringstream(text) >> number;
  return number;
}

std::string MakeNumber(Dice& dice) {
  static constexpr const char* units[] = {"", " kHz", " MHz", " KS/s", "°", "E", "----"};
  std::string text = dice.Number() + dice.Any(units);
  return dice.Chance(50) ? dice.Mutated(text) : text;
}

bool ReadNumber(const std::string& input) {
  const int number = NumberAtStart(input.c_str());
  Want(number == Parsed(input), "the nearest number that an int holds");
  return number != 0;
}

std::string MakeFrequency(Dice& dice) {
  static constexpr const char* bandwidths[] = {"5 MHz", "6 MHz", "7 MHz", "8 MHz", "10 MHz", "712 MHz"};
  return dice.Number() + "\n" + (dice.Chance(50) ? MakeNumber(dice) : dice.Mutated(dice.Any(bandwidths)));
}

bool IsStep(long from, long to, long least, long most) {
  const bool inside = from >= least && from <= most;
  return std::labs(to - from) <= 1 && (!inside || (to >= least && to <= most));
}

/// A cached number, typed over and stepped, by both of those who keep one.
bool ReadFrequency(const std::string& input) {
  const Texts lines = Lines(input, 2);
  const int stored = NumberAtStart(lines[0].c_str());
  const std::string& text = lines[1];
  const long typed = std::strtol(text.c_str(), nullptr, 10);
  const bool fits = typed >= CTvsUtil::kLowestFrequency && typed <= CTvsUtil::kHighestFrequency;

  ChannelUtil::CacheFrequency = stored;
  ForgetLog();
  const int kept = ChannelUtil::SetCacheFrequency(MENU_KEY_NONE, text.c_str(), PROFILE_MAIN);
  Want(kept == (fits ? typed : stored), "a typed frequency is taken when it is in range");
  Want(Logged("[Debug]Invaild Case") == !fits, "says that a typed frequency is out of range");
  CCacheManager::FlushCache();
  const int shared = CTvsUtil::SetCacheFrequency(MENU_KEY_NONE, text.c_str(), PROFILE_MAIN);
  Want(shared == NumberAtStart(text.c_str()), "the first number is taken as it is");
  for (const MenuKeyDirection direction : {MENU_KEY_UP, MENU_KEY_DOWN, MENU_KEY_DOWN}) {
    const long before = ChannelUtil::CacheFrequency;
    const long after = ChannelUtil::SetCacheFrequency(direction, nullptr, PROFILE_MAIN);
    Want(IsStep(before, after, CTvsUtil::kLowestFrequency, CTvsUtil::kHighestFrequency), "a step is a step");
    CTvsUtil::SetCacheFrequency(direction, nullptr, PROFILE_MAIN);
  }

  const int bandwidth = ChannelUtil::GetBandWidthFromDispStr(text.c_str());
  Want(bandwidth >= BANDWIDTH_UNKNOWN && bandwidth <= BANDWIDTH_712, "a known bandwidth or none");
  for (const MenuKeyDirection direction : {MENU_KEY_UP, MENU_KEY_DOWN}) {
    for (const int code : {stored, bandwidth}) {
      const int stepped = tvs::StepBandWidth(code, direction, false),
                nordic = tvs::StepBandWidth(code, direction, true);
      Want(stepped >= BANDWIDTH_5 && stepped <= BANDWIDTH_712, "a step leads to a bandwidth");
      Want(nordic >= BANDWIDTH_UNKNOWN && nordic <= BANDWIDTH_712, "a step leads to a bandwidth or none");
    }
  }
  return fits || bandwidth != BANDWIDTH_UNKNOWN;
}

// --- texts ---------------------------------------------------------------------------------------

std::string MakeFilled(Dice& dice) {
  static const Texts formats = {"<<A>> rows", "Reset <<B>>?<br/><<A>>", "<<A>><<A>>", "전체 <<A>>개", "<<C>>|<<D>>"};
  return dice.Mutated(dice.Any(formats)) + "\n" + dice.Mutated(dice.Chance(50) ? "USB-Stick größer" : "닫기");
}

template <size_t Size>
void CheckCut(const std::string& text) {
  Buffer<Size> cut;
  CopyText(cut.text, Size, text);
  const std::string_view shown = cut.Checked();
  Want(text.starts_with(shown) && (shown.size() == text.size() || shown.size() + 4 >= Size),
       "as much as there is room");
  Want(!IsUtf8(text) || IsUtf8(shown), "cut between characters");
}

/// Everything that fills a buffer with a text of the TV.
bool ReadFilled(const std::string& input) {
  const Texts lines = Lines(input);
  const std::string &format = lines[0], &value = lines.back();
  const bool whole = IsUtf8(format) && IsUtf8(value);
  const auto checked = [&](std::string_view shown) {
    Want(!whole || IsUtf8(shown), "a text is cut between characters");
    return shown;
  };
  Buffer<24> small;
  Want(CStringUtil::CombinateStrings(small.text, 24, format.c_str(), value.c_str(), "b"), "fills");
  checked(small.Checked());
  Buffer<kText> large, name, stored, shown;
  CStringUtil::CombinateStrings(large.text, kText, format.c_str(), value.c_str(), "b", "c", "d");
  checked(large.Checked());
  Utils::ReplaceSingleText(small.text, format.c_str(), "<<A>>", value.c_str(), 24);
  checked(small.Checked());
  CheckCut<1>(value);
  CheckCut<7>(value);
  CheckCut<kText>(value);

  ElementaryNode node(value);
  node.SetContent(ElementaryNode::kTitle, value);
  node.SetContent(ElementaryNode::kValue, value);
  node.SetContent(ElementaryNode::kChoice, format);
  node.GetNodeDisplayName(name.text);
  node.GetNodeValue(stored.text, shown.text);
  Want(checked(name.Checked()) == stored.Checked() && value.starts_with(name.Checked()), "a row keeps its text");
  checked(shown.Checked());
  const int digit = Utils::GetNumberFromKey(value.c_str());
  Want(digit >= -1 && digit <= 9, "a key is a digit or none");
  return whole;
}

// --- items of the settings tree ------------------------------------------------------------------

constexpr const char* kItems[] = {"user-defined-transponder-frequency", "user-defined-transponder-symbolrate",
                                  "user-defined-transponder-polarity",  "hdmi-delay-level",
                                  "signal-information-program",         "no-such-item"};

std::string MakeItem(Dice& dice) {
  const std::string name = dice.Chance(50) ? "Vertikal" : "수직";
  return dice.Any(kItems) + ("\n" + (dice.Chance(60) ? MakeNumber(dice) : dice.Mutated(name)));
}

bool ReadItem(const std::string& input) {
  const auto [id, value] = Halves(input);
  Change("UPDATE item SET value = ? WHERE id = ?", value, id);
  Change("UPDATE setting SET value = ? WHERE key LIKE '%/user-defined-transponder/' || ?", value,
         id.substr(id.rfind('-') + 1));
  Change(
      "UPDATE choice SET name = ?1, value = iif(?2 = 'user-defined-transponder-polarity', ?1, value) WHERE item = ?2 "
      "AND place = 1",
      value, id);
  Buffer<kText> name, shown;
  ForgetLog();
  const bool found = CMenuDataProvider::GetItemValue(id.c_str(), name.text, shown.text);
  Want(Logged("Ret[" + std::to_string(found) + "], Menu Id : " + id), "says whether an item was found");
  Want(!IsUtf8(value) || (IsUtf8(shown.Checked()) && IsUtf8(name.Checked())), "a value is cut between characters");
  for (const char* step : {"Up", "Down"}) {
    const int result = SettingsAPI::Get()->SetItemValue(id, step, false);
    Want(found || result != 1, "an item that is not there cannot be stepped");
  }
  std::string back, text;
  if (found) SettingsAPI::Get()->GetItemValue(id, back, text);
  const bool isFrequency = id == kItems[0];
  Want(!isFrequency || text == "----" || text == std::to_string(Parsed(text)) + " MHz", "a frequency or none");
  return found;
}

// --- what is received ----------------------------------------------------------------------------

constexpr const char* kColumns[] = {"service.frequency",
                                    "service.bandwidth",
                                    "service.symbol_rate",
                                    "service.major",
                                    "service.minor",
                                    "service.type",
                                    "service.name",
                                    "service.modulation",
                                    "service.fine_tune_offset",
                                    "service.satellite",
                                    "transponder.frequency",
                                    "transponder.label",
                                    "transponder.strength",
                                    "transponder.quality",
                                    "transponder.ber",
                                    "transponder.snr",
                                    "transponder.symbol_rate",
                                    "transponder.number",
                                    "transponder.standard",
                                    "satellite.position",
                                    "satellite.name",
                                    "satellite.low",
                                    "satellite.high",
                                    "satellite.switch",
                                    "satellite.slot",
                                    "satellite.user_band",
                                    "picture.antenna",
                                    "picture.service_mode",
                                    "picture.source",
                                    "picture.tuned_at",
                                    "tv_state.value",
                                    "model_value.value",
                                    "satcr.frequency",
                                    "satcr.slot",
                                    "satcr.command",
                                    "satcr.began",
                                    "satcr.lasts",
                                    "satcr_band.occupant",
                                    "dish.origin",
                                    "dish.target",
                                    "dish.began",
                                    "dish.speed",
                                    "dish.zero",
                                    "dish.east_limit",
                                    "dish_slot.angle"};

std::string MakeReceived(Dice& dice) {
  return dice.Any(kColumns) + ("\n" + (dice.Chance(70) ? dice.Number() : dice.Mutated("Astra & Söhne <HD>")));
}

void CheckRows() {
  for (const char* row : {"program", "strength", "quality", "biterrlevel", "snr", "frequence", "bandwidth",
                          "modulation", "multiplex", "physical", "channelid"}) {
    std::string name, value;
    SettingsAPI::Get()->GetItemValue(std::string("signal-information-") + row, name, value);
    const bool measure = std::string_view(row) == "strength" || std::string_view(row) == "quality";
    Want(!measure || (!value.empty() && value.size() <= 3 && Parsed(value) >= 0 && Parsed(value) <= 100),
         "a measure is a percentage");
  }
}

/// One figure of everything that is on air, and all that the windows ask for it.
bool ReadReceived(const std::string& input) {
  const auto [column, value] = Halves(input);
  if (std::find(std::begin(kColumns), std::end(kColumns), column) == std::end(kColumns)) return false;
  const std::string table = column.substr(0, column.find('.'));
  // Of the thousands on air, those that the pictures show.
  const bool many = table == "service" || table == "transponder";
  Change("UPDATE " + table + " SET " + column.substr(table.size() + 1) + " = ?" +
             (many ? " WHERE id IN (SELECT " + table + " FROM picture)" : ""),
         value);
  CCacheManager::FlushCache();
  CheckRows();
  CTvsUtil::InitSelectedSatellite(true);
  CTvsUtil::InitSelectedTransponder(true);
  CTvsUtil::TuneAloneSelectedTransponder(false);
  Utils::InstallerStorePosition();
  const SatCRUtils::SatCRDetectStatus run = SatCRUtils::GetSatCRProcessStatus(0);
  Want(run.Progress <= 100, "a run's progress is a percentage");
  SatCRUtils::SendSatCRCommand(0, SATCR_COMMAND_DETECT);
  ChannelUtil::CacheFrequency = ChannelUtil::GetFrequency(PROFILE_MAIN);
  ChannelUtil::SetCacheFrequency(MENU_KEY_UP, nullptr, PROFILE_MAIN);
  ChannelUtil::CacheBandWidth = ChannelUtil::GetBandWidth(PROFILE_MAIN);
  ChannelUtil::SetCacheBandWidth(MENU_KEY_UP, nullptr, PROFILE_MAIN);
  ChannelUtil::SetBandFreqForSignalInformation(BANDWIDTH_8, 474000);
  ChannelUtil::GetSignalInfoType();
  ChannelUtil::GetTVNavigationMode();
  CTvsUtil::GetBitErrorRate();
  char text[kText] = "";
  CTvsUtil::GetChannelID(text);
  free(FineTuneUtil::TvServiceChannelGetInfo());
  const int offset = FineTuneUtil::GetFinetuneFreq();
  Want(offset >= -32 && offset <= 223, "a stored offset is a byte");
  Want(std::abs(FineTuneUtil::GetTunerMft()) <= 223, "the tuner's offset is a byte");
  Want(std::strlen(Utils::WrapMallocdString(Utils::GetCountryCode()).c_str()) <= 4, "a country is three letters");
  CommonUtil::GetCurrentDateStr();
  return value.find_first_not_of("-0123456789") == value.npos;
}

// --- sticks --------------------------------------------------------------------------------------

std::string FileName(std::string text) {
  std::replace(text.begin(), text.end(), '/', '%');
  std::replace(text.begin(), text.end(), '\n', '|');
  if (text.empty() || text[0] == '.') text.insert(0, "n");
  return text.substr(0, 250);
}

std::string MakeSticks(Dice& dice) {
  static constexpr const char* files[] = {
      "channel_list.zip", "Ärger & <b>.zip", "list.ZIP", ".zip", "x.zip.txt", "zip"};
  std::string text;
  for (unsigned int stick = dice.Below(3); stick > 0; --stick) {
    text += (text.empty() ? "" : "\n") + FileName(dice.Mutated("USB DISK"));
    for (unsigned int file = dice.Below(3); file > 0; --file) text += "\n/" + FileName(dice.Mutated(dice.Any(files)));
  }
  return text;
}

/// Lines of a stick's name, and lines of its files behind a slash.
bool ReadSticks(const std::string& input) {
  namespace fs = std::filesystem;
  std::error_code error;
  std::set<std::string> sticks, archives;
  fs::path stick;
  for (const std::string& line : Lines(input)) {
    if (line.empty()) continue;
    if (line[0] != '/') {
      stick = desktop::UsbDirectory() / FileName(line);
      if (fs::create_directories(stick, error)) sticks.insert(stick.filename());
    } else if (!stick.empty()) {
      const std::string name = FileName(line.substr(1));
      if (std::ofstream(stick / name) && name.ends_with(".zip")) archives.insert(stick.filename() / name);
    }
  }
  CDeviceManager* manager = CDeviceManager::GetInstance();
  manager->Initialize(true);
  std::set<std::string> seen, found;
  int withMap = 0;
  for (const DEVICE_INFO& device : manager->GetDevices()) {
    seen.insert(device.productName);
    withMap += device.chmapFileNames.empty() ? 0 : 1;
    for (const std::string& name : device.chmapFileNames) found.insert(std::string(device.productName) + "/" + name);
    Want(device.nChmapFileCount == static_cast<int>(device.chmapFileNames.size()), "archives are counted");
  }
  const DEVICE_INFO* selected = manager->GetSelectedDevice();
  const bool chosen = selected && !selected->chmapFileNames.empty();
  const bool counted = manager->m_nDeviceWithMapCount == withMap;
  for (const std::string& name : sticks) fs::remove_all(desktop::UsbDirectory() / name, error);
  Want(seen == sticks, "each stick is seen once, by its name");
  Want(found == archives, "each archive is seen, and nothing else");
  Want(counted && (withMap == 0 || chosen), "a stick with archives is selected");
  return withMap > 0;
}

}  // namespace

std::vector<Reader> ProgramReaders() {
  return {{"notes of weak signal", 1, MakeNotes, ReadNotes},
          {"time stamps", 1, MakeStamps, ReadStamps},
          {"numbers", 1, MakeNumber, ReadNumber},
          {"frequencies and bandwidths", 1, MakeFrequency, ReadFrequency},
          {"filled texts", 1, MakeFilled, ReadFilled},
          {"items", 10, MakeItem, ReadItem},
          {"what is received", 500, MakeReceived, ReadReceived},
          {"sticks", 200, MakeSticks, ReadSticks}};
}

}  // namespace fuzz
