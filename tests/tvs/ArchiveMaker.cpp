#include "ArchiveMaker.h"

#include <zlib.h>

#include <algorithm>
#include <stdexcept>

#include "TemporaryDirectory.h"
#include "tvs/ArchiveFile.h"
#include "tvs/ChannelList.h"

namespace test {

namespace {

constexpr uint16_t kStored = 0, kDeflated = 8, kVersion = 20, kDate = 0x5A21;

std::string Little(uint64_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
  return text;
}

uint32_t Checksum(const std::string& data) {
  return static_cast<uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
}

/// Deflated without a head; `last` ends the stream, otherwise more can follow.
std::string Deflated(const std::string& data, bool last = true) {
  z_stream stream{};
  deflateInit2(&stream, 9, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, data.size()) + 16, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, last ? Z_FINISH : Z_FULL_FLUSH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

}  // namespace

std::string MakeZip(const std::vector<ZipEntry>& entries) {
  std::string zip, directory;
  for (const ZipEntry& entry : entries) {
    const std::string stored = entry.stored ? *entry.stored : entry.packed ? Deflated(entry.data) : entry.data;
    const uint16_t method = entry.method.value_or(entry.packed ? kDeflated : kStored);
    const std::string figures = Little(entry.flags, 2) + Little(method, 2) + Little(kDate << 16, 4) +
                                Little(entry.checksum.value_or(Checksum(entry.data)), 4) + Little(stored.size(), 4) +
                                Little(entry.size.value_or(static_cast<uint32_t>(entry.data.size())), 4) +
                                Little(entry.name.size(), 2);
    directory += "PK\1\2" + Little(3 << 8 | kVersion, 2) + Little(kVersion, 2) + figures +
                 Little(entry.extra.size(), 2) + Little(0, 6) + Little(entry.attributes, 4) + Little(zip.size(), 4) +
                 entry.name + entry.extra;
    zip += "PK\3\4" + Little(kVersion, 2) + figures + Little(0, 2) + entry.name + stored;
  }
  const uint64_t start = zip.size(), count = entries.size() & 0xFFFF;
  return zip + directory + "PK\5\6" + Little(0, 4) + Little(count, 2) + Little(count, 2) + Little(directory.size(), 4) +
         Little(start, 4) + Little(0, 2);
}

ZipEntry Bomb(const std::string& name, uint32_t mebibytes) {
  const std::string zeros(1 << 20, '\0');
  const std::string piece = Deflated(zeros, false);
  const uint32_t checksum = Checksum(zeros);
  ZipEntry entry{.name = name, .data = "", .stored = ""};
  uint32_t whole = Checksum("");
  for (uint32_t i = 0; i < mebibytes; ++i) {
    *entry.stored += piece;
    whole = static_cast<uint32_t>(crc32_combine(whole, checksum, static_cast<z_off_t>(zeros.size())));
  }
  *entry.stored += Deflated("");
  entry.checksum = whole;
  entry.size = mebibytes << 20;
  return entry;
}

ListTexts ListTexts::OfTv() {
  const TemporaryDirectory directory;
  const std::string path = directory / "list.zip";
  if (const auto made = desktop::ExportChannelList(path); made.status != desktop::kListDone) {
    throw std::runtime_error(made.what);
  }
  std::vector<const char*> names;
  for (const desktop::ListTable& table : desktop::kListFormatTables) names.push_back(table.entry);
  names.push_back(desktop::kManifestEntry);
  desktop::ArchiveReader reader(path, names);
  const auto read = [&](const char* name) {
    std::string text;
    reader.Read(name, [&](std::string_view piece) { text += piece; });
    return text;
  };
  ListTexts list;
  for (size_t i = 0; i < desktop::kListTables; ++i) list.texts[desktop::ListTableIndex(i)] = read(names[i]);
  list.manifest = desktop::ReadManifest(read(desktop::kManifestEntry));
  return list;
}

ListTexts& ListTexts::Seal() {
  for (const auto& [table, text] : texts) {
    desktop::Digest digest;
    digest.Add(text);
    manifest.entries[table] = {std::count(text.begin(), text.end(), '\n') - 1, text.size(), digest.Finish()};
  }
  return *this;
}

std::vector<ZipEntry> ListTexts::Entries() const {
  std::vector<ZipEntry> entries;
  for (const auto& [table, text] : texts) entries.push_back({desktop::kListFormatTables[table].entry, text});
  entries.push_back({desktop::kManifestEntry, manifestText.value_or(WriteManifest(manifest))});
  return entries;
}

}  // namespace test
