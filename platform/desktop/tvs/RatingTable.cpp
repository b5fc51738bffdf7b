#include "RatingTable.h"

#include <algorithm>
#include <cctype>

#include "Store.h"
#include "Text.h"

namespace desktop {

namespace {

constexpr const char* kTables[] = {"rating_region", "rating_dimension", "rating_value"};

std::optional<Blob> BytesOf(const RatingName& name) { return name ? std::optional(Blob{*name}) : std::nullopt; }

void WriteValues(ERRTRegion region, int dimension, const std::vector<RatingValue>& values) {
  Query insert("INSERT INTO rating_value VALUES (?, ?, ?, ?, ?)");
  int place = 0;
  for (const RatingValue& value : values) {
    insert.RunWith(region, dimension, place++, BytesOf(value.name), value.locked ? 1 : 0);
  }
}

}  // namespace

std::string OnAir(std::string_view text) {
  std::string bytes;
  for (const char16_t unit : ToUtf16(text)) {
    bytes += static_cast<char>(unit >> 8);
    bytes += static_cast<char>(unit & 0xFF);
  }
  return bytes;
}

std::optional<RatingSystem> ReadRatingSystem(ERRTRegion region) {
  // One statement, so that nothing comes between a dimension and its values.
  Query q(
      "SELECT r.name, d.place, d.name, v.place, v.name, v.locked FROM rating_region r LEFT JOIN rating_dimension d ON "
      "d.region = r.region LEFT JOIN rating_value v ON v.region = d.region AND v.dimension = d.place AND v.place < ?1 "
      "WHERE r.region = ?2 ORDER BY d.place, v.place",
      kMostRatings, region);
  std::optional<RatingSystem> system;
  for (int64_t last = -1; q.Row();) {
    if (!system) system.emplace().name = q.Bytes(0);
    if (q.IsNull(1)) continue;
    if (q.Int(1) != last) system->dimensions.push_back({q.Bytes(2), {}});
    last = q.Int(1);
    if (!q.IsNull(3)) system->dimensions.back().values.push_back({q.Bytes(4), q.Int(5) != 0});
  }
  return system;
}

void WriteRatingSystem(ERRTRegion region, const RatingSystem& system) {
  Store::Get().Write([&] {
    ClearRatingSystem(region);
    Query("INSERT INTO rating_region VALUES (?, ?)", region, BytesOf(system.name)).Run();
    int place = 0;
    for (const RatingDimension& dimension : system.dimensions) {
      Query("INSERT INTO rating_dimension VALUES (?, ?, ?)", region, place, BytesOf(dimension.name)).Run();
      WriteValues(region, place++, dimension.values);
    }
  });
}

void ClearRatingSystem(ERRTRegion region) {
  Store::Get().Write([&] {
    for (const char* table : kTables) Query(std::string("DELETE FROM ") + table + " WHERE region = ?", region).Run();
  });
}

std::optional<bool> RatingLock(ERRTRegion region, int dimension, int value) {
  Query q("SELECT locked FROM rating_value WHERE region = ? AND dimension = ? AND place = ?", region, dimension, value);
  return q.Row() ? std::optional(q.Int(0) != 0) : std::nullopt;
}

bool SetRatingLock(ERRTRegion region, int dimension, int value, bool locked) {
  int changed = 0;
  Store::Get().Write([&] {
    Query q("UPDATE rating_value SET locked = ? WHERE region = ? AND dimension = ? AND place = ?", locked ? 1 : 0,
            region, dimension, value);
    changed = q.Run();
  });
  return changed > 0;
}

// --- profiles ------------------------------------------------------------------------------------

namespace {

const bool g_registered =
    AddSectionReader([]() -> std::unique_ptr<SectionReader> { return std::make_unique<RatingProfile>(); });

/// x'00410042'
std::string FromHexadecimal(const ProfileLine& line, const std::string& word) {
  const std::string digits = word.substr(2, word.size() - 3);
  const auto isDigit = [](unsigned char c) { return std::isxdigit(c) != 0; };
  if (digits.size() % 2 != 0 || !std::all_of(digits.begin(), digits.end(), isDigit)) {
    throw ProfileError(line, "'" + word + "': wants two hexadecimal digits for each byte");
  }
  std::string bytes;
  for (size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

RatingName NameOf(const ProfileLine& line, const std::string& word) {
  if (word.empty()) return {};
  if (word == "\"\"") return "";
  const bool hexadecimal = word.size() > 2 && word.starts_with("x'") && word.ends_with("'");
  return hexadecimal ? FromHexadecimal(line, word) : OnAir(word);
}

template <class Rating>
void Add(const ProfileLine& line, std::vector<Rating>& to, const Rating& rating) {
  if (to.size() == kMostRatings) throw ProfileError(line, "more than " + std::to_string(kMostRatings));
  to.push_back(rating);
}

}  // namespace

void RatingProfile::ReadLine(const ProfileLine& line) {
  std::string rest = line.text;
  const std::string what = TakeWord(rest);
  const RatingName name = NameOf(line, rest);
  std::vector<RatingDimension>& dimensions = m_system->dimensions;
  if (what == "region") {
    m_system->name = name;
  } else if (what == "dimension") {
    Add(line, dimensions, RatingDimension{name, {}});
  } else if (what != "value") {
    throw ProfileError(line, "unknown word '" + what + "'");
  } else if (dimensions.empty()) {
    throw ProfileError(line, "a value before the first dimension");
  } else {
    Add(line, dimensions.back().values, RatingValue{name});
  }
}

void RatingProfile::Read(const ProfileSection& section) {
  if (!m_system) m_system.emplace();
  for (const ProfileLine& line : section.lines) ReadLine(line);
}

std::vector<std::string> RatingProfile::Make(const TvOptions&) {
  if (m_system) WriteRatingSystem(RRT_REGION_DOWNLOADABLE, *m_system);
  return {};
}

}  // namespace desktop
