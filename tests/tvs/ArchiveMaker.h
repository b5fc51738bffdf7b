// Archives byte by byte, right ones and such as no program would write.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tvs/ListFormat.h"

namespace test {

/// One entry of an archive: what it holds, and what it says of itself where that is something else.
struct ZipEntry {
  std::string name = {}, data = {};
  bool packed = true;
  uint16_t flags = 0;
  std::optional<uint16_t> method = {};
  /// As the system that made it has them; the upper half are a Unix file's type and permissions.
  uint32_t attributes = 0100644u << 16;
  std::optional<uint32_t> size = {}, checksum = {};
  /// What is stored in place of the packed data.
  std::optional<std::string> stored = {};
  /// In the list at the end alone.
  std::string extra = {};
};

std::string MakeZip(const std::vector<ZipEntry>& entries);
/// Deflated zeros, so many times 1 MiB, and their checksum.
ZipEntry Bomb(const std::string& name, uint32_t mebibytes);

/// The entries of a list as text, and the manifest that goes with them.
struct ListTexts {
  /// What the TV would write now.
  static ListTexts OfTv();
  std::string& Of(desktop::ListTableIndex table) { return texts[table]; }
  /// Makes the manifest say what the texts are.
  ListTexts& Seal();
  std::vector<ZipEntry> Entries() const;
  std::string Zip() const { return MakeZip(Entries()); }

  std::map<desktop::ListTableIndex, std::string> texts;
  desktop::Manifest manifest;
  /// In place of what the manifest would be.
  std::optional<std::string> manifestText;
};

}  // namespace test
