// ZIP archives of a fixed set of entries, written and read piece by piece.
#pragma once

#include <zip.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct evp_md_ctx_st;

namespace desktop {

/// SHA-256 of bytes that come in pieces.
class Digest {
 public:
  Digest();
  void Add(std::string_view bytes);
  /// Its hexadecimal digits; nothing can be added any more.
  std::string Finish();

 private:
  struct Free {
    void operator()(evp_md_ctx_st* context) const;
  };
  std::unique_ptr<evp_md_ctx_st, Free> m_context;
};

struct NewEntry {
  const char* name;
  /// Appends the next piece of its contents; false when there is no more. May throw.
  std::function<bool(std::string& out)> draw;
};

/// Writes an archive of these entries to an empty file, in their order: an entry is drawn when those before it have
/// been. Throws ListError, or what an entry's `draw` throws.
void WriteArchive(int descriptor, const std::vector<NewEntry>& entries);

class ArchiveReader {
 public:
  /// Opens an archive that must hold exactly these entries. Throws ListError(kListDamaged).
  ArchiveReader(const std::string& path, std::span<const char* const> entries);
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  /// How many bytes the entry says it has.
  uint64_t Size(const char* entry) const;
  /// Gives the entry's bytes to `take`, piece by piece; nothing is behind its end, and its checksum holds, when this
  /// returns. Throws ListError(kListDamaged); what `take` throws is thrown when the rest of the entry holds.
  void Read(const char* entry, const std::function<void(std::string_view)>& take);

 private:
  [[noreturn]] void Refuse(const std::string& what) const;
  void Check(std::span<const char* const> entries) const;
  void CheckEntry(const char* entry) const;
  zip_stat_t StatOf(const char* entry) const;
  void ReadEntry(zip_file_t* file, const char* entry, const std::function<void(std::string_view)>& take) const;

  struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
  };
  std::string m_path;
  std::unique_ptr<zip_t, Discard> m_archive;
};

}  // namespace desktop
