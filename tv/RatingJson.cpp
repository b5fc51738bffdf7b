#include "RatingJson.h"

#include <iconv.h>
#include <json/json.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "Text.h"

using namespace desktop;

namespace {

constexpr size_t kMostBytes = 511;

// --- names ---------------------------------------------------------------------------------------

std::string FromAir(std::string bytes) {
  static const iconv_t converter = iconv_open("UTF-8", "UTF-16BE");
  if (reinterpret_cast<intptr_t>(converter) == -1) throw std::runtime_error("UTF-16BE cannot be converted here");
  std::string text(kMostBytes, '\0');
  char *from = bytes.data(), *to = text.data();
  size_t left = std::min(bytes.size(), kMostBytes), room = text.size();
  // What is broken or does not fit ends the name, so the result says nothing more.
  iconv(converter, &from, &left, &to, &room);
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  return text.c_str();
}

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Whether these are characters; surrogates count as such.
bool IsText(std::string_view text) {
  const std::u16string units = ToUtf16(text);
  auto replaced = std::count(units.begin(), units.end(), u'\uFFFD');
  for (size_t at = text.find(kReplacement); at != text.npos; at = text.find(kReplacement, at + 1)) --replaced;
  return replaced == 0;
}

// --- parts of a text -----------------------------------------------------------------------------

/// A part of the JSON, and how it is called when it is wrong.
struct Part {
  const Json::Value& value;
  std::string name;

  [[noreturn]] void Refuse(const std::string& what) const { throw std::runtime_error(name + ": " + what); }
  Part operator[](int index) const { return {value[index], name + "[" + std::to_string(index) + "]"}; }
  int Count() const;
  RatingName Name() const;
  /// Itself, when it is an array of so many.
  const Part& Array(int count) const;
};

int Part::Count() const {
  if (!value.isInt() || value.asInt() < 0 || value.asInt() > kMostRatings) {
    Refuse("wants a number from 0 to " + std::to_string(kMostRatings));
  }
  return value.asInt();
}

RatingName Part::Name() const {
  if (value.isNull()) return {};
  if (!value.isString()) Refuse("wants a text");
  if (!IsText(value.asString())) Refuse("is no UTF-8");
  return OnAir(value.asString());
}

const Part& Part::Array(int count) const {
  const auto size = static_cast<Json::ArrayIndex>(count);
  const bool absent = value.isNull() && count == 0;
  if (!absent && (!value.isArray() || value.size() != size)) Refuse("wants an array of " + std::to_string(count));
  return *this;
}

constexpr const char* kMembers[] = {"RegionName", "Names", "RatingCounts", "RatingNames", "Count"};

void CheckMembers(const Json::Value& root) {
  if (!root.isObject()) throw std::runtime_error("wants an object");
  for (const std::string& name : root.getMemberNames()) {
    if (std::find(std::begin(kMembers), std::end(kMembers), name) == std::end(kMembers)) {
      throw std::runtime_error("unknown member '" + name + "'");
    }
  }
}

Part Member(const Json::Value& root, const char* name, bool required) {
  if (required && !root.isMember(name)) throw std::runtime_error(std::string(name) + ": is missing");
  return {root[name], name};
}

/// The first of the reader's complaints: "* Line 1, Column 2", and below it what is wrong.
std::string FirstComplaint(const std::string& complaints) {
  std::istringstream lines(complaints);
  std::string where, what;
  std::getline(lines, where);
  std::getline(lines >> std::ws, what);
  return where.substr(std::min(where.size(), where.find_first_not_of("* "))) + ": " + what;
}

Json::Value Parse(const std::string& text) {
  Json::CharReaderBuilder builder;
  Json::CharReaderBuilder::strictMode(&builder.settings_);
  const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
  Json::Value root;
  std::string complaints;
  if (!reader->parse(text.data(), text.data() + text.size(), &root, &complaints)) {
    throw std::runtime_error(FirstComplaint(complaints));
  }
  return root;
}

Json::Value DimensionNames(const RatingDimension& dimension) {
  Json::Value names(Json::arrayValue);
  for (size_t i = 0; i < dimension.values.size(); ++i) {
    names.append(ShownName(dimension.values[i].name, "Rating ", i));
  }
  return names;
}

}  // namespace

std::string ShownName(const RatingName& name, const std::string& without) { return name ? FromAir(*name) : without; }

std::string ShownName(const RatingName& name, const char* without, size_t number) {
  return ShownName(name, without + std::to_string(number));
}

std::string ShownRegion(const RatingSystem& system) { return ShownName(system.name, "COM_SID_DOWNLOADABLE_US_RATING"); }

std::string RatingJson(const std::optional<RatingSystem>& system) {
  if (!system) return "null";
  Json::Value root;
  root["RegionName"] = ShownRegion(*system);
  for (size_t i = 0; i < system->dimensions.size(); ++i) {
    const RatingDimension& dimension = system->dimensions[i];
    // Without values the program does not ask for the name.
    root["Names"].append(dimension.values.empty() ? "" : ShownName(dimension.name, "Dimension ", i));
    root["RatingCounts"].append(static_cast<int>(dimension.values.size()));
    root["RatingNames"].append(DimensionNames(dimension));
  }
  root["Count"] = static_cast<int>(system->dimensions.size());
  return Json::writeString(Json::StreamWriterBuilder(), root);
}

RatingSystem ParseRatingJson(const std::string& text) {
  const Json::Value root = Parse(text);
  CheckMembers(root);
  RatingSystem system;
  system.name = Member(root, "RegionName", true).Name();
  const int count = Member(root, "Count", true).Count();
  const Part names = Member(root, "Names", count > 0).Array(count);
  const Part counts = Member(root, "RatingCounts", count > 0).Array(count);
  const Part values = Member(root, "RatingNames", count > 0).Array(count);
  for (int d = 0; d < count; ++d) {
    RatingDimension& dimension = system.dimensions.emplace_back();
    dimension.name = names[d].Name();
    const int valueCount = counts[d].Count();
    const Part valueNames = values[d].Array(valueCount);
    for (int v = 0; v < valueCount; ++v) dimension.values.push_back({valueNames[v].Name()});
  }
  return system;
}
