// What the program itself reads: notes of weak signal, numbers and names of the TV, sticks.
#include <algorithm>
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
#include "TvsUtil.h"
#include "Usb.h"
#include "Utils.h"
#include "settings_api.h"
#include "string_util.h"

using test::Change;

namespace fuzz {

namespace {

constexpr size_t kText = 512;

// --- the notes of weak signal --------------------------------------------------------------------

std::string MakeNote(Dice& dice) {
  if (dice.Chance(5)) return dice.Bytes(60);
  const std::string note = std::to_string(1'500'000'000 + dice.Below(400'000'000)) + ":" +
                           std::to_string(dice.Below(1000)) + ":65535:2:0:" + (dice.Chance(50) ? "0" : "1");
  return dice.Chance(60) ? dice.Mutated(note) : note;
}

bool ReadNote(const std::string& note) {
  Buffer<kText> date, time, other;
  ForgetLog();
  const bool read = ChannelUtil::GetHistoryItemInfo(note, date.text, time.text, other.text) == 0;
  Want(read == (note.find_first_not_of(':') != note.npos), "a note is read when there is anything in it");
  if (!read) return false;
  const bool timeless = time.Checked() == "--:--";
  Want(timeless == (date.Checked() == "----/--/--") && timeless == Logged("[Error] Invalid Date "),
       "says that a note's time is none");
  Want(IsUtf8(time.Checked()) && IsUtf8(other.Checked()), "what is shown is UTF-8");
  Want(!date.Checked().empty() && date.Checked().find_first_not_of("0123456789/-") == std::string_view::npos,
       "a date is digits");
  return true;
}

/// Whole ones.
Texts Stamps() {
  const std::string am = Utils::GetTranslationStr("SID_AM_ABBR_4"), pm = Utils::GetTranslationStr("SID_PM_ABBR_4");
  return {"2025/03/01         10:20 " + am, "2025/03/01         10:20 " + pm, "2025/03/01         12:59 " + am,
          "2024/12/31         01:00 " + pm, "2025/03/02         12:00 " + pm};
}

std::string MakeStamps(Dice& dice) {
  const auto stamp = [&] {
    const std::string whole = dice.Any(Stamps());
    return dice.Chance(40) ? dice.Mutated(whole) : whole;
  };
  return std::to_string(1 + dice.Below(3)) + "\n" + stamp() + "\n" + stamp();
}

bool ReadStamps(const std::string& input) {
  const Texts lines = Lines(input, 3);
  const int type = NumberAtStart(lines[0].c_str());
  const auto compare = [=](const std::string& left, const std::string& right) {
    return test::SignalHistory::Compare(type, left, right);
  };
  Want(compare(lines[1], "") == 1, "anything is newer than nothing");
  const int order = compare(lines[1], lines[2]), back = compare(lines[2], lines[1]);
  const Texts whole = Stamps();
  const auto isWhole = [&](const std::string& stamp) {
    return std::find(whole.begin(), whole.end(), stamp) != whole.end();
  };
  if (type != test::SignalHistory::STAMP_WORD_LAST || !isWhole(lines[1]) || !isWhole(lines[2])) return false;
  Want(order == -back, "stamps that are whole have one order");
  return true;
}

// --- numbers -------------------------------------------------------------------------------------

std::string MakeNumber(Dice& dice) {
  static constexpr const char* units[] = {"", " kHz", " MHz", " KS/s", "°", "E", "----"};
  std::string text = dice.Number() + dice.Any(units);
  return dice.Chance(50) ? dice.Mutated(text) : text;
}

bool ReadNumber(const std::string& input) {
  int same = 0;
  std::istringstream(input) >> same;
  const int number = NumberAtStart(input.c_str());
  Want(number == same, "the nearest number that an int holds");
  return number != 0;
}

// --- texts ---------------------------------------------------------------------------------------

std::string MakeFilled(Dice& dice) {
  static const Texts formats = {"<<A>> rows", "Reset <<B>>?<br/><<A>>", "<<A>><<A>>", "전체 <<A>>개", "<<C>>|<<D>>"};
  return dice.Mutated(dice.Any(formats)) + "\n" + dice.Mutated(dice.Chance(50) ? "USB-Stick größer" : "닫기");
}

/// Everything that fills a buffer with a text of the TV.
bool ReadFilled(const std::string& input) {
  const Texts lines = Lines(input);
  const std::string &format = lines[0], &value = lines.back();
  const bool whole = IsUtf8(format) && IsUtf8(value);
  const auto checked = [&](const auto& buffer) {
    const std::string_view shown = buffer.Checked();
    Want(!whole || IsUtf8(shown), "a text is cut between characters");
    return shown;
  };
  Buffer<24> small, cut;
  Buffer<kText> large, name, stored, shown;
  Want(CStringUtil::CombinateStrings(small.text, 24, format.c_str(), value.c_str(), "b"), "fills");
  checked(small);
  CStringUtil::CombinateStrings(large.text, kText, format.c_str(), value.c_str(), "b", "c", "d");
  checked(large);
  Utils::ReplaceSingleText(small.text, format.c_str(), "<<A>>", value.c_str(), 24);
  checked(small);
  CopyText(cut.text, 24, value);
  const std::string_view rest = checked(cut);
  Want(value.starts_with(rest) && (rest.size() == value.size() || rest.size() + 4 >= 24), "as much as there is room");

  ElementaryNode node(value);
  node.SetContent(ElementaryNode::kTitle, value);
  node.SetContent(ElementaryNode::kValue, value);
  node.SetContent(ElementaryNode::kChoice, format);
  node.GetNodeDisplayName(name.text);
  node.GetNodeValue(stored.text, shown.text);
  checked(shown);
  Want(checked(name) == checked(stored) && value.starts_with(name.Checked()), "a row keeps its text");
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
  return found;
}

// --- what is received ----------------------------------------------------------------------------

/// What of it the TV's file keeps: every column that holds a figure or a name, none that tells records apart.
const Texts& Columns() {
  static const Texts columns = [] {
    Texts found;
    desktop::Query q(
        "SELECT t.name || '.' || c.name FROM sqlite_master t, pragma_table_info(t.name) c WHERE NOT c.pk AND t.name IN "
        "('service', 'transponder', 'satellite', 'picture', 'tv_state', 'model_value', 'satcr', 'satcr_band', 'dish', "
        "'dish_slot') ORDER BY 1");
    while (q.Row()) found.push_back(q.Text(0));
    return found;
  }();
  return columns;
}

std::string MakeReceived(Dice& dice) {
  return dice.Any(Columns()) + ("\n" + (dice.Chance(70) ? dice.Number() : dice.Mutated("Astra & Söhne <HD>")));
}

/// One figure of everything that is on air, and all that the windows ask for it.
bool ReadReceived(const std::string& input) {
  const auto [column, value] = Halves(input);
  if (std::find(Columns().begin(), Columns().end(), column) == Columns().end()) return false;
  const std::string table = column.substr(0, column.find('.'));
  // Of the thousands on air, those that the pictures show.
  const bool many = table == "service" || table == "transponder";
  Change("UPDATE " + table + " SET " + column.substr(table.size() + 1) + " = ?" +
             (many ? " WHERE id IN (SELECT " + table + " FROM picture)" : ""),
         value);
  CCacheManager::FlushCache();
  for (const char* row : {"program", "strength", "quality", "biterrlevel", "snr", "frequence", "bandwidth",
                          "modulation", "multiplex", "physical", "channelid"}) {
    std::string name, shown;
    SettingsAPI::Get()->GetItemValue(std::string("signal-information-") + row, name, shown);
    const bool measure = std::string_view(row) == "strength" || std::string_view(row) == "quality";
    const int percent = NumberAtStart(shown.c_str());
    Want(!measure || (percent >= 0 && percent <= 100 && shown == std::to_string(percent)), "a measure is a percentage");
  }
  CTvsUtil::InitSelectedSatellite(true);
  CTvsUtil::InitSelectedTransponder(true);
  CTvsUtil::TuneAloneSelectedTransponder(false);
  Utils::InstallerStorePosition();
  Want(SatCRUtils::GetSatCRProcessStatus(0).Progress <= 100, "a run's progress is a percentage");
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
  Want(Utils::WrapMallocdString(Utils::GetCountryCode()).size() <= 4, "a country is three letters");
  CommonUtil::GetCurrentDateStr();
  return value.find_first_not_of("-0123456789") == value.npos;
}

// --- sticks --------------------------------------------------------------------------------------

/// Without what means something in a path, or in a stick's name.
std::string FileName(std::string text) {
  std::replace(text.begin(), text.end(), '/', '%');
  std::replace(text.begin(), text.end(), '@', '%');
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
  std::set<std::string> plugged, seen;
  fs::path stick;
  for (const std::string& line : Lines(input)) {
    if (line.starts_with('/') && !stick.empty()) {
      const std::string name = FileName(line.substr(1));
      if (std::ofstream(stick / name) && name.ends_with(".zip")) plugged.insert(stick.filename() / name);
    } else if (!line.empty() && line[0] != '/') {
      stick = desktop::UsbDirectory() / FileName(line);
      if (fs::create_directories(stick, error)) plugged.insert(stick.filename());
    }
  }
  CDeviceManager* manager = CDeviceManager::GetInstance();
  manager->Initialize(true);
  for (const DEVICE_INFO& device : manager->GetDevices()) {
    seen.insert(device.productName);
    for (const std::string& name : device.chmapFileNames) seen.insert(std::string(device.productName) + "/" + name);
  }
  for (const std::string& name : plugged) fs::remove_all(desktop::UsbDirectory() / name, error);
  const DEVICE_INFO* selected = manager->GetSelectedDevice();
  Want(seen == plugged, "each stick and each archive is seen, and nothing else");
  Want(manager->m_nDeviceWithMapCount == 0 || (selected && !selected->chmapFileNames.empty()),
       "a stick with archives is selected");
  return manager->m_nDeviceWithMapCount > 0;
}

}  // namespace

std::vector<Reader> ProgramReaders() {
  return {{"notes of weak signal", 1, MakeNote, ReadNote},
          {"time stamps", 1, MakeStamps, ReadStamps},
          {"numbers", 1, MakeNumber, ReadNumber},
          {"filled texts", 1, MakeFilled, ReadFilled},
          {"items", 10, MakeItem, ReadItem},
          {"what is received", 500, MakeReceived, ReadReceived},
          {"sticks", 200, MakeSticks, ReadSticks}};
}

}  // namespace fuzz
