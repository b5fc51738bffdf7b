#include "ArchiveFile.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "ListFormat.h"

namespace desktop {

// --- digests -------------------------------------------------------------------------------------

void Digest::Free::operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }

Digest::Digest() : m_context(EVP_MD_CTX_new()) {
  if (!m_context || EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr) != 1) {
    throw ListError(kListFailed, "this system has no SHA-256");
  }
}

void Digest::Add(std::string_view bytes) { EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size()); }

std::string Digest::Finish() {
  unsigned char bytes[EVP_MAX_MD_SIZE];
  unsigned int count = 0;
  EVP_DigestFinal_ex(m_context.get(), bytes, &count);
  std::string digits;
  for (unsigned int i = 0; i < count; ++i) {
    for (const int nibble : {bytes[i] >> 4, bytes[i] & 15}) digits += "0123456789abcdef"[nibble];
  }
  return digits;
}

// --- writing -------------------------------------------------------------------------------------

namespace {

/// Fast enough that the disk decides, and a third larger than the smallest.
constexpr zip_uint32_t kLevel = 1;

/// What goes wrong below the library's calls is thrown when they have returned.
struct Failure {
  std::exception_ptr thrown;
};

/// One entry, drawn when the library asks for its bytes.
struct EntrySource {
  const NewEntry* entry;
  Failure* failure;
  std::string piece;
  size_t taken = 0;
  zip_error_t error;

  zip_int64_t Read(char* to, size_t size) {
    if (taken == piece.size()) {
      piece.clear();
      taken = 0;
      while (piece.empty() && entry->draw(piece)) {
      }
    }
    const size_t count = std::min(size, piece.size() - taken);
    std::memcpy(to, piece.data() + taken, count);
    taken += count;
    return static_cast<zip_int64_t>(count);
  }
};

zip_int64_t AnswerForEntry(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* source = static_cast<EntrySource*>(state);
  switch (command) {
    case ZIP_SOURCE_READ:
      try {
        return source->Read(static_cast<char*>(data), static_cast<size_t>(length));
      } catch (...) {
        source->failure->thrown = std::current_exception();
        zip_error_set(&source->error, ZIP_ER_READ, 0);
        return -1;
      }
    case ZIP_SOURCE_STAT: {
      auto* stat = static_cast<zip_stat_t*>(data);
      zip_stat_init(stat);
      // The size is written once it is known; this only says that it will be one of a plain archive.
      stat->size = 0;
      stat->valid = ZIP_STAT_SIZE;
      return sizeof *stat;
    }
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&source->error, data, length);
    case ZIP_SOURCE_FREE:
      delete source;
      return 0;
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
    default:
      return 0;
  }
}

/// The file that the archive is written to. The library would write to a file of a name of its own.
struct FileSink {
  int descriptor;
  Failure* failure;
  zip_int64_t at = 0, end = 0;
  zip_error_t error;

  zip_int64_t Write(const char* bytes, size_t size) {
    for (size_t done = 0; done < size;) {
      const ssize_t count = pwrite(descriptor, bytes + done, size - done, at);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) throw ListError(kListFailed, std::strerror(count < 0 ? errno : ENOSPC));
      done += static_cast<size_t>(count);
      at += count;
    }
    end = std::max(end, at);
    return static_cast<zip_int64_t>(size);
  }
  zip_int64_t Refuse(int what) {
    zip_error_set(&error, ZIP_ER_WRITE, what);
    return -1;
  }
};

zip_int64_t AnswerForFile(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* sink = static_cast<FileSink*>(state);
  switch (command) {
    case ZIP_SOURCE_STAT:
      // How the library is told that there is nothing to read yet.
      zip_error_set(&sink->error, ZIP_ER_READ, ENOENT);
      return -1;
    case ZIP_SOURCE_WRITE:
      try {
        return sink->Write(static_cast<const char*>(data), static_cast<size_t>(length));
      } catch (...) {
        sink->failure->thrown = std::current_exception();
        return sink->Refuse(EIO);
      }
    case ZIP_SOURCE_SEEK_WRITE: {
      const zip_int64_t at = zip_source_seek_compute_offset(
          static_cast<zip_uint64_t>(sink->at), static_cast<zip_uint64_t>(sink->end), data, length, &sink->error);
      if (at < 0) return -1;
      sink->at = at;
      return 0;
    }
    case ZIP_SOURCE_TELL_WRITE:
      return sink->at;
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&sink->error, data, length);
    case ZIP_SOURCE_FREE:
      delete sink;
      return 0;
    case ZIP_SOURCE_BEGIN_WRITE:
    case ZIP_SOURCE_COMMIT_WRITE:
    case ZIP_SOURCE_ROLLBACK_WRITE:
    case ZIP_SOURCE_REMOVE:
      return 0;
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL,
                                            ZIP_SOURCE_SUPPORTS, ZIP_SOURCE_BEGIN_WRITE, ZIP_SOURCE_COMMIT_WRITE,
                                            ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_WRITE, ZIP_SOURCE_SEEK_WRITE,
                                            ZIP_SOURCE_TELL_WRITE, ZIP_SOURCE_REMOVE, -1);
    default:
      return sink->Refuse(EOPNOTSUPP);
  }
}

[[noreturn]] void Throw(const Failure& failure, const char* what) {
  if (failure.thrown) std::rethrow_exception(failure.thrown);
  throw ListError(kListFailed, std::string("the archive cannot be made: ") + what);
}

/// The library's error of a call that has no archive to ask.
class ZipError {
 public:
  ZipError() { zip_error_init(&m_error); }
  ~ZipError() { zip_error_fini(&m_error); }
  ZipError(const ZipError&) = delete;
  ZipError& operator=(const ZipError&) = delete;
  zip_error_t* Get() { return &m_error; }
  const char* Text() { return zip_error_strerror(&m_error); }

 private:
  zip_error_t m_error;
};

template <class State>
zip_source_t* MakeSource(zip_source_callback answer, State state, ZipError& error) {
  auto* own = new State(std::move(state));
  zip_error_init(&own->error);
  zip_source_t* source = zip_source_function_create(answer, own, error.Get());
  if (!source) delete own;
  return source;
}

zip_t* CreateArchive(int descriptor, Failure& failure) {
  ZipError error;
  zip_source_t* sink = MakeSource(AnswerForFile, FileSink{descriptor, &failure, 0, 0, {}}, error);
  zip_t* archive = sink ? zip_open_from_source(sink, ZIP_CREATE | ZIP_TRUNCATE, error.Get()) : nullptr;
  if (archive) return archive;
  zip_source_free(sink);
  Throw(failure, error.Text());
}

void AddEntry(zip_t* archive, const NewEntry& entry, Failure& failure) {
  ZipError error;
  zip_source_t* source = MakeSource(AnswerForEntry, EntrySource{&entry, &failure, {}, 0, {}}, error);
  if (!source) Throw(failure, error.Text());
  const zip_int64_t index = zip_file_add(archive, entry.name, source, ZIP_FL_ENC_UTF_8);
  if (index < 0) zip_source_free(source);
  if (index < 0 || zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, kLevel) != 0) {
    Throw(failure, zip_strerror(archive));
  }
}

}  // namespace

void WriteArchive(int descriptor, const std::vector<NewEntry>& entries) {
  Failure failure;
  zip_t* archive = CreateArchive(descriptor, failure);
  try {
    for (const NewEntry& entry : entries) AddEntry(archive, entry, failure);
    if (zip_close(archive) != 0) Throw(failure, zip_strerror(archive));
  } catch (...) {
    zip_discard(archive);
    throw;
  }
}

// --- reading -------------------------------------------------------------------------------------

namespace {

constexpr size_t kPiece = 64 * 1024;
constexpr size_t kEndSize = 22, kLocator64Size = 20, kMostComment = 65535;
/// Heads and names of the few entries that there are, with room for what other programs note beside them.
constexpr uint32_t kMostDirectory = 4096;
constexpr std::string_view kEndMark("PK\5\6", 4), kLocator64Mark("PK\6\7", 4);

struct CloseFile {
  void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

/// A regular file; a folder, a device or a pipe of that name is none.
File OpenRegular(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) throw ListError(kListDamaged, path + ": " + std::strerror(errno));
  struct stat info;
  const bool regular = fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
  File file(regular ? fdopen(descriptor, "rb") : nullptr);
  if (file) return file;
  close(descriptor);
  throw ListError(kListDamaged, path + ": is no file");
}

uint32_t Number(std::string_view bytes, size_t at, int count) {
  uint32_t number = 0;
  for (int i = count; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + static_cast<size_t>(i)]);
  return number;
}

/// The end of the file, as far as an archive's last record can begin there.
std::string ReadTail(FILE* file, uint64_t& size) {
  if (fseeko(file, 0, SEEK_END) != 0) return {};
  size = static_cast<uint64_t>(ftello(file));
  std::string tail(static_cast<size_t>(std::min<uint64_t>(size, kEndSize + kMostComment + kLocator64Size)), '\0');
  if (fseeko(file, -static_cast<off_t>(tail.size()), SEEK_END) != 0) return {};
  tail.resize(std::fread(tail.data(), 1, tail.size(), file));
  return tail;
}

/// The library takes every such record into account, and the memory that each asks for: there must be one, and it must
/// ask for little. What it says besides, the library checks.
const char* WhatIsWrong(std::string_view tail, uint64_t size, size_t entries) {
  if (tail.size() < kEndSize) return "is no archive";
  const size_t last = tail.size() - kEndSize;
  for (size_t at = tail.find(kEndMark); at < last; at = tail.find(kEndMark, at + 1)) {
    if (Number(tail, at + 20, 2) == tail.size() - at - kEndSize) return "ends in two ways";
  }
  if (tail.substr(last, kEndMark.size()) != kEndMark || Number(tail, last + 20, 2) != 0) return "is no whole archive";
  if (last >= kLocator64Size && tail.substr(last - kLocator64Size).starts_with(kLocator64Mark)) {
    return "is an archive for larger files than a channel list has";
  }
  const uint32_t directory = Number(tail, last + 12, 4), offset = Number(tail, last + 16, 4);
  if (Number(tail, last + 8, 2) != entries || Number(tail, last + 10, 2) != entries || directory > kMostDirectory) {
    return "does not hold the entries of a channel list";
  }
  return uint64_t{offset} + directory == size - kEndSize ? nullptr : "is no whole archive";
}

bool IsLink(zip_t* archive, zip_uint64_t index) {
  zip_uint8_t system = 0;
  zip_uint32_t attributes = 0;
  if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0) return true;
  const mode_t type = system == ZIP_OPSYS_UNIX ? attributes >> 16 & S_IFMT : 0;
  return type != 0 && type != S_IFREG;
}

}  // namespace

ArchiveReader::ArchiveReader(const std::string& path, std::span<const char* const> entries) : m_path(path) {
  File file = OpenRegular(path);
  uint64_t size = 0;
  const std::string tail = ReadTail(file.get(), size);
  if (const char* wrong = WhatIsWrong(tail, size, entries.size())) Refuse(wrong);
  ZipError error;
  zip_source_t* source = zip_source_filep_create(file.get(), 0, -1, error.Get());
  if (!source) Refuse(error.Text());
  file.release();  // the source closes it
  m_archive.reset(zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, error.Get()));
  if (!m_archive) {
    zip_source_free(source);
    Refuse(error.Text());
  }
  Check(entries);
}

void ArchiveReader::Refuse(const std::string& what) const { throw ListError(kListDamaged, m_path + ": " + what); }

void ArchiveReader::Check(std::span<const char* const> entries) const {
  // As many as there are names, and each name once: there can be no other.
  if (zip_get_num_entries(m_archive.get(), 0) != static_cast<zip_int64_t>(entries.size())) {
    Refuse("does not hold the entries of a channel list");
  }
  for (const char* entry : entries) CheckEntry(entry);
}

void ArchiveReader::CheckEntry(const char* entry) const {
  const zip_stat_t stat = StatOf(entry);
  if (stat.encryption_method != ZIP_EM_NONE) Refuse(std::string(entry) + " is encrypted");
  if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE) {
    Refuse(std::string(entry) + " is packed in another way");
  }
  if (IsLink(m_archive.get(), stat.index)) Refuse(std::string(entry) + " is no file");
}

zip_stat_t ArchiveReader::StatOf(const char* entry) const {
  constexpr zip_uint64_t kWanted = ZIP_STAT_INDEX | ZIP_STAT_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
  zip_stat_t stat;
  if (zip_stat(m_archive.get(), entry, 0, &stat) != 0) Refuse(std::string(entry) + " is missing");
  if ((stat.valid & kWanted) != kWanted) Refuse(std::string(entry) + " says too little of itself");
  return stat;
}

uint64_t ArchiveReader::Size(const char* entry) const { return StatOf(entry).size; }

void ArchiveReader::Read(const char* entry, const std::function<void(std::string_view)>& take) {
  zip_file_t* file = zip_fopen_index(m_archive.get(), StatOf(entry).index, 0);
  if (!file) Refuse(std::string(entry) + ": " + zip_strerror(m_archive.get()));
  const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> closed(file, zip_fclose);
  ReadEntry(file, entry, take);
}

void ArchiveReader::ReadEntry(zip_file_t* file, const char* entry,
                              const std::function<void(std::string_view)>& take) const {
  const uint64_t size = Size(entry);
  std::string piece(kPiece, '\0');
  std::exception_ptr refused;
  uint64_t total = 0;
  for (zip_int64_t count; (count = zip_fread(file, piece.data(), piece.size())) != 0;) {
    if (count < 0) Refuse(std::string(entry) + ": " + zip_file_strerror(file));
    total += static_cast<uint64_t>(count);
    if (total > size) Refuse(std::string(entry) + " is longer than it says");
    try {
      if (!refused) take(std::string_view(piece.data(), static_cast<size_t>(count)));
    } catch (const ListError&) {
      refused = std::current_exception();
    }
  }
  if (total != size) Refuse(std::string(entry) + " is shorter than it says");
  if (refused) std::rethrow_exception(refused);
}

}  // namespace desktop
