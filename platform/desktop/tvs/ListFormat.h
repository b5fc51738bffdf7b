// The form that a channel list has outside of the TV: entries of an archive, their columns, what each value may be.
#pragma once

#include <json/forwards.h>

#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace desktop {

/// What the service answers about an archive.
enum ListStatus : int {
  kListDone = 0,
  kListDamaged = 1,  ///< no archive of a channel list, or one that cannot be read
  kListOtherCountry = 2,
  kListFailed = 3,  ///< what is wrong is not the archive
  kListUnknown = 4  ///< a format of another time, or contents that are not what the manifest and the format say
};

/// Why an archive is refused or not made, as one line.
class ListError : public std::runtime_error {
 public:
  ListError(ListStatus why, const std::string& what) : std::runtime_error(what), status(why) {}
  ListStatus status;
};

constexpr int kListFormat = 1;

/// Records of these kinds name a satellite or a transponder of the same list.
enum class ListKind { kNumber, kText, kSatellite, kTransponder };

struct ListColumn {
  /// In the TV's table and in the first line of the entry.
  const char* name;
  ListKind kind;
  /// Of a number; of a text the bytes.
  int64_t least, most;
  /// Whether it may be missing.
  bool optional;
};

struct ListTable {
  const char* table;
  const char* entry;
  int64_t mostRecords;
  uint64_t mostBytes;
  /// The first is the number by which the records are told apart and sorted.
  std::span<const ListColumn> columns;
  /// Which of the TV's rows are part of the list, as SQL.
  const char* rows = "";
};

/// A table stands behind those that its records name.
enum ListTableIndex { kSatelliteTable, kTransponderTable, kServiceTable, kFineTuneTable, kListTables };
extern const std::array<ListTable, kListTables> kListFormatTables;

/// The names of the table's columns with commas between them.
std::string ColumnNames(const ListTable& table);

// --- the manifest --------------------------------------------------------------------------------

constexpr const char* kManifestEntry = "manifest.json";
constexpr uint64_t kMostManifestBytes = uint64_t{16} * 1024;

struct EntryFigures {
  int64_t records = 0;
  uint64_t bytes = 0;
  /// SHA-256 in hexadecimal digits.
  std::string digest;
  bool operator==(const EntryFigures&) const = default;
};

struct Manifest {
  /// Three capital letters.
  std::string country;
  /// "2026-01-31T12:00:00Z".
  std::string madeAt;
  std::string madeBy;
  std::array<EntryFigures, kListTables> entries;
};

/// Where a list is from, and how many records each entry has.
Json::Value ManifestJson(const Manifest& manifest);
std::string WriteManifest(const Manifest& manifest);
/// Throws ListError.
Manifest ReadManifest(const std::string& text);

}  // namespace desktop
