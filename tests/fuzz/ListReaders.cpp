// What a channel list from a stick is read with.

#include "Fuzz.h"
#include "Text.h"
#include "tvs/ListFormat.h"
#include "tvs/ListRecords.h"

namespace fuzz {

namespace {

using desktop::ListColumn;
using desktop::ListKind;
using desktop::ListValue;

const desktop::ListTable& kTable = desktop::kListFormatTables[desktop::kServiceTable];

const Texts kRecords = {"1,2,1,7,1035,1,11362000,,9,22000,1,65535,1,2,1036,0,1,3,3,53,6,1035,1,\"Programme 1\",,",
                        "2,0,-1,1,5,,506000,3,,,65535,0,,,,,,,,,,,31,\"a, \"\"b\"\"\",1,35",
                        "9223372036854775807,1,-1,,,,,,,,0,0,,,,,,,,,,,,,,"};

std::string MakeRecords(Dice& dice) {
  std::string text = ColumnNames(kTable) + "\n";
  for (const std::string& record : kRecords) text += (dice.Chance(50) ? dice.Mutated(record) : record) + "\n";
  return dice.Chance(10) ? dice.Mutated(text) : text;
}

void WantRight(const std::vector<ListValue>& record) {
  for (size_t i = 0; i < record.size(); ++i) {
    const ListColumn& column = kTable.columns[i];
    const ListValue& value = record[i];
    Want(!value.missing || column.optional, "what must be there is");
    if (value.missing) continue;
    if (column.kind == ListKind::kText) {
      Want(IsUtf8(value.text) && value.text.size() <= static_cast<size_t>(column.most), "a text is one");
    } else {
      Want(value.number >= column.least && value.number <= column.most, "a number is within its bounds");
    }
    Want(column.kind != ListKind::kSatellite || value.number == 53, "a satellite of the list");
    Want(column.kind != ListKind::kTransponder || value.number == 1035, "a transponder of the list");
  }
}

bool ReadRecords(const std::string& input) {
  desktop::ListIds ids;
  ids.satellites.Add(53);
  ids.transponders.Add(1035);
  int64_t last = 0, count = 0;
  desktop::RecordReader reader(kTable, ids, [&](const std::vector<ListValue>& record) {
    WantRight(record);
    Want(record[0].number > last, "IDs ascend");
    last = record[0].number;
    ++count;
  });
  try {
    // Where a piece ends is no matter.
    for (size_t at = 0; at < input.size(); at += 7) reader.Read(std::string_view(input).substr(at, 7));
    Want(reader.Finish() == count, "every record is counted");
    return true;
  } catch (const desktop::ListError& error) {
    Want(error.status == desktop::kListUnknown && *error.what() != '\0', "says what is wrong");
    return false;
  }
}

std::string MakeManifest(Dice& dice) {
  desktop::Manifest manifest{"DEU", "2026-01-31T12:00:00Z", "quirelle", {}};
  for (auto& entry : manifest.entries) entry = {3, 1000, std::string(64, 'a')};
  return dice.Mutated(WriteManifest(manifest));
}

bool ReadManifestText(const std::string& input) {
  try {
    const desktop::Manifest manifest = desktop::ReadManifest(input);
    Want(desktop::ReadManifest(WriteManifest(manifest)).entries == manifest.entries, "is written as it was read");
    Want(manifest.country.size() == 3 && desktop::IsPlainText(manifest.madeBy), "a country and a maker");
    return true;
  } catch (const desktop::ListError& error) {
    Want(error.status == desktop::kListUnknown && *error.what() != '\0', "says what is wrong");
    return false;
  }
}

}  // namespace

std::vector<Reader> ListReaders() {
  return {{"records", 1, MakeRecords, ReadRecords}, {"manifests", 1, MakeManifest, ReadManifestText}};
}

}  // namespace fuzz
