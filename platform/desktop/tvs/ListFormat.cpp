#include "ListFormat.h"

#include <json/json.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <sstream>

#include "Text.h"
#include "TvProfile.h"

namespace desktop {

namespace {

constexpr int64_t kMostId = INT64_MAX;
constexpr int64_t kMostSatellite = 65535;
constexpr int64_t kMostTransponders = 1'000'000;
constexpr int64_t kMostText = 4096;
constexpr bool kOptional = true, kNeeded = false;

using enum ListKind;

// clang-format off
constexpr ListColumn kSatelliteColumns[] = {
    {"id",           kNumber, 1,  kMostSatellite, kNeeded},
    {"name",         kText,   0,  kMostText,      kNeeded},
    {"position",     kNumber, 0,  3600,           kNeeded},
    {"user_defined", kNumber, 0,  1,              kNeeded},
    {"motorised",    kNumber, 0,  1,              kNeeded},
    {"lnb_power",    kNumber, -1, 65535,          kNeeded},
    {"slot",         kNumber, -1, 65535,          kNeeded},
    {"diseqc",       kNumber, -1, 65535,          kNeeded},
    {"low",          kNumber, -1, INT_MAX,        kNeeded},
    {"high",         kNumber, -1, INT_MAX,        kNeeded},
    {"switch",       kNumber, -1, INT_MAX,        kNeeded},
    {"voltage",      kNumber, -1, 65535,          kNeeded},
    {"tone",         kNumber, -1, 65535,          kNeeded},
    {"user_band",    kNumber, -1, 65535,          kNeeded},
};

constexpr ListColumn kTransponderColumns[] = {
    {"id",            kNumber,    1,  INT_MAX,        kNeeded},
    {"satellite",     kSatellite, 1,  kMostSatellite, kOptional},
    {"antenna",       kNumber,    0,  2,              kNeeded},
    {"number",        kNumber,    -1, INT_MAX,        kOptional},
    {"label",         kText,      0,  kMostText,      kOptional},
    {"frequency",     kNumber,    -1, INT_MAX,        kNeeded},
    {"symbol_rate",   kNumber,    -1, INT_MAX,        kOptional},
    {"polarisation",  kNumber,    -1, 3,              kOptional},
    {"fec",           kNumber,    -1, 65535,          kOptional},
    {"modulation",    kNumber,    -1, 65535,          kOptional},
    {"bandwidth",     kNumber,    -1, 65535,          kOptional},
    {"standard",      kNumber,    -1, 65535,          kOptional},
    {"package",       kNumber,    -1, INT_MAX,        kOptional},
    {"package_order", kNumber,    -1, INT_MAX,        kOptional},
    {"user_defined",  kNumber,    0,  1,              kNeeded},
    {"strength",      kNumber,    0,  100,            kNeeded},
    {"quality",       kNumber,    0,  100,            kNeeded},
    {"ber",           kNumber,    0,  10'000'000,     kNeeded},
    {"snr",           kNumber,    0,  10'000,         kNeeded},
};

constexpr ListColumn kServiceColumns[] = {
    {"id",               kNumber,      1,  kMostId,        kNeeded},
    {"antenna",          kNumber,      0,  2,              kNeeded},
    {"service_mode",     kNumber,      -1, 65535,          kNeeded},
    {"type",             kNumber,      0,  255,            kOptional},
    {"number",           kNumber,      -1, INT_MAX,        kOptional},
    {"profile",          kNumber,      -1, 65535,          kOptional},
    {"frequency",        kNumber,      -1, INT_MAX,        kOptional},
    {"bandwidth",        kNumber,      -1, 65535,          kOptional},
    {"modulation",       kNumber,      -1, 65535,          kOptional},
    {"symbol_rate",      kNumber,      -1, INT_MAX,        kOptional},
    {"major",            kNumber,      0,  65535,          kNeeded},
    {"minor",            kNumber,      0,  65535,          kNeeded},
    {"program",          kNumber,      -1, INT_MAX,        kOptional},
    {"code_rate",        kNumber,      -1, 65535,          kOptional},
    {"stream",           kNumber,      -1, INT_MAX,        kOptional},
    {"locked_mode",      kNumber,      -1, 65535,          kOptional},
    {"is_default",       kNumber,      -1, 65535,          kOptional},
    {"network",          kNumber,      -1, INT_MAX,        kOptional},
    {"original_network", kNumber,      -1, INT_MAX,        kOptional},
    {"satellite",        kSatellite,   1,  kMostSatellite, kOptional},
    {"standard",         kNumber,      -1, 65535,          kOptional},
    {"transponder",      kTransponder, 1,  INT_MAX,        kOptional},
    {"favourites",       kNumber,      0,  31,             kOptional},
    {"name",             kText,        0,  kMostText,      kOptional},
    {"fine_tune_type",   kNumber,      -1, 65535,          kOptional},
    {"fine_tune_offset", kNumber,      -1, 65535,          kOptional},
};

constexpr ListColumn kFineTuneColumns[] = {
    {"service", kNumber, 1, kMostId, kNeeded},
    {"offset",  kNumber, 0, 255,     kNeeded},
};
// clang-format on

}  // namespace

// No entry needs more than the four bytes that a plain archive has for its size.
const std::array<ListTable, kListTables> kListFormatTables = {{
    {"satellite", "satellites.csv", kMostSatellite, 16'000'000, kSatelliteColumns},
    {"transponder", "transponders.csv", kMostTransponders, 256'000'000, kTransponderColumns},
    {"service", "services.csv", kMostServices, 4'000'000'000, kServiceColumns},
    {"fine_tune", "fine-tuning.csv", kMostTransponders, 64'000'000, kFineTuneColumns,
     "WHERE service IN (SELECT id FROM main.service)"},
}};

std::string ColumnNames(const ListTable& table) {
  std::string names;
  for (const ListColumn& column : table.columns) names += (names.empty() ? "" : ",") + std::string(column.name);
  return names;
}

// --- the manifest --------------------------------------------------------------------------------

namespace {

constexpr size_t kDigestDigits = 64, kMostMaker = 256;

[[noreturn]] void Refuse(const std::string& what) { throw ListError(kListUnknown, "manifest.json: " + what); }

const Json::Value& Member(const Json::Value& object, const char* name, Json::ValueType type) {
  const Json::Value* member = object.find(name, name + std::char_traits<char>::length(name));
  if (!member || member->type() != type) Refuse(std::string("'") + name + "' is missing or of another kind");
  return *member;
}

std::string TextMember(const Json::Value& object, const char* name, size_t most) {
  std::string text = Member(object, name, Json::stringValue).asString();
  if (text.size() > most || !IsPlainText(text)) Refuse(std::string("'") + name + "' is no such text");
  return text;
}

uint64_t NumberMember(const Json::Value& object, const char* name, uint64_t most) {
  // The reader takes what fits for a signed number.
  const bool large = object[name].type() == Json::uintValue;
  const Json::Value& number = Member(object, name, large ? Json::uintValue : Json::intValue);
  if (!number.isUInt64() || number.asUInt64() > most) Refuse(std::string("'") + name + "' is no number that can be");
  return number.asUInt64();
}

void WantMembers(const Json::Value& object, size_t count) {
  if (object.size() != count) Refuse("has members that format " + std::to_string(kListFormat) + " does not know");
}

/// '9' stands for a digit, 'A' for a capital letter, anything else for itself.
bool HasForm(const std::string& text, std::string_view form) {
  return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](char c, char wanted) {
    if (wanted == '9') return c >= '0' && c <= '9';
    return wanted == 'A' ? c >= 'A' && c <= 'Z' : c == wanted;
  });
}

bool IsDigest(const std::string& text) {
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  return text.size() == kDigestDigits && std::all_of(text.begin(), text.end(), isDigit);
}

Json::Value Parse(const std::string& text) {
  Json::CharReaderBuilder builder;
  Json::CharReaderBuilder::strictMode(&builder.settings_);
  const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
  Json::Value root;
  std::string errors;
  bool read = false;
  try {
    read = reader->parse(text.data(), text.data() + text.size(), &root, &errors);
  } catch (const Json::Exception&) {  // nested deeper than anybody would
    read = false;
  }
  if (!read || !root.isObject()) Refuse("is no JSON object");
  return root;
}

EntryFigures ReadFigures(const Json::Value& entry, const ListTable& table) {
  WantMembers(entry, 3);
  EntryFigures figures;
  figures.records = static_cast<int64_t>(NumberMember(entry, "records", static_cast<uint64_t>(table.mostRecords)));
  figures.bytes = NumberMember(entry, "bytes", table.mostBytes);
  figures.digest = TextMember(entry, "sha256", kDigestDigits);
  if (!IsDigest(figures.digest)) Refuse(std::string("the digest of ") + table.entry + " is none");
  return figures;
}

}  // namespace

Json::Value ManifestJson(const Manifest& manifest) {
  Json::Value root;
  root["country"] = manifest.country;
  root["madeAt"] = manifest.madeAt;
  root["madeBy"] = manifest.madeBy;
  for (size_t i = 0; i < kListTables; ++i) {
    root["entries"][kListFormatTables[i].entry]["records"] = static_cast<Json::Int64>(manifest.entries[i].records);
  }
  return root;
}

std::string WriteManifest(const Manifest& manifest) {
  Json::Value root = ManifestJson(manifest);
  root["format"] = kListFormat;
  for (size_t i = 0; i < kListTables; ++i) {
    Json::Value& entry = root["entries"][kListFormatTables[i].entry];
    entry["bytes"] = static_cast<Json::UInt64>(manifest.entries[i].bytes);
    entry["sha256"] = manifest.entries[i].digest;
  }
  Json::StreamWriterBuilder builder;
  builder["indentation"] = "  ";
  return Json::writeString(builder, root) + "\n";
}

Manifest ReadManifest(const std::string& text) {
  const Json::Value root = Parse(text);
  // What another format says besides is not known: its number comes first.
  if (const uint64_t format = NumberMember(root, "format", UINT64_MAX); format != kListFormat) {
    Refuse("format " + std::to_string(format) + ", this TV knows " + std::to_string(kListFormat));
  }
  WantMembers(root, 5);
  Manifest manifest;
  manifest.country = TextMember(root, "country", 3);
  manifest.madeAt = TextMember(root, "madeAt", 20);
  manifest.madeBy = TextMember(root, "madeBy", kMostMaker);
  if (!HasForm(manifest.country, "AAA")) Refuse("'country' is none");
  if (!HasForm(manifest.madeAt, "9999-99-99T99:99:99Z")) Refuse("'madeAt' is no time");
  const Json::Value& entries = Member(root, "entries", Json::objectValue);
  WantMembers(entries, kListTables);
  for (size_t i = 0; i < kListTables; ++i) {
    const ListTable& table = kListFormatTables[i];
    manifest.entries[i] = ReadFigures(Member(entries, table.entry, Json::objectValue), table);
  }
  return manifest;
}

}  // namespace desktop
