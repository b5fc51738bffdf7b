#include "filecopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>

#include "Log.h"

namespace {

constexpr int64_t kChunks = 300;
constexpr int kPauseMilliseconds = 5;
constexpr int kPollMilliseconds = 10;
constexpr int kMostPolls = 20;

bool IsLink(const std::string& path) {
  struct stat info;
  return lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

bool IsRegular(FILE* file) {
  struct stat info;
  return fstat(fileno(file), &info) == 0 && S_ISREG(info.st_mode);
}

bool IsFull(int error) { return error == ENOSPC || error == EDQUOT || error == EFBIG; }

/// Flushes a directory; a file system that cannot flush one is flushed as a whole.
bool FlushDirectory(int directory) {
  if (fsync(directory) == 0) return true;
  return (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP) && syncfs(directory) == 0;
}

/// The directory of the destination, held from beginning to end: another stick may come to the same path.
class Directory {
 public:
  explicit Directory(const std::string& path)
      : m_descriptor(open(Of(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
  ~Directory() {
    if (m_descriptor >= 0) close(m_descriptor);
  }
  Directory(const Directory&) = delete;
  Directory& operator=(const Directory&) = delete;
  int Descriptor() const { return m_descriptor; }

 private:
  static std::string Of(const std::string& path) {
    const std::string parent = std::filesystem::path(path).parent_path();
    return parent.empty() ? "." : parent;
  }
  int m_descriptor;
};

}  // namespace

/// What the main loop and the thread both look at. The flags are written with full fences.
struct CUsbCopyThread::Shared {
  std::string source, destination;
  FILE* in = nullptr;
  FILE* out = nullptr;
  /// Written once, before the first chunk.
  std::atomic<int64_t> m_lFilelenth{0};
  std::atomic<int64_t> copied{0};
  std::atomic<bool> finished{false}, cancelled{false}, running{false};
  std::atomic<CopyEnd> end{CopyEnd::kRunning};

  // The rest is the thread's alone.
  void m_TransferFile();
  FILE* m_SafeFileOpen(const std::string& path, const char* mode) const;
  void m_GiveUp();
  bool m_OpenFiles();
  void m_CopyChunks();
  bool m_WriteChunk(const char* chunk, size_t length);
  void m_Count(int64_t bytes);
  void m_CloseFiles();
  CopyEnd m_Finish(const Directory& directory);
  CopyEnd m_WriteFailure();
  std::string m_PartName() const { return std::filesystem::path(destination + kPart).filename(); }

  CopyEnd result = CopyEnd::kWhole;
  int64_t written = 0;
  /// Bytes of the last chunk, which count when the file is in its place.
  int64_t held = 0;
};

CUsbCopyThread::CUsbCopyThread(const std::string& source, const std::string& destination)
    : m_shared(std::make_shared<Shared>()) {
  m_shared->source = source;
  m_shared->destination = destination;
}

CUsbCopyThread::~CUsbCopyThread() { m_shared->cancelled = true; }

void CUsbCopyThread::Create() {
  if (m_thread) {
    LOG_ERROR("already created");
    return;
  }
  m_thread = ecore_thread_feedback_run(m_StartThread, m_NotifyThread, m_EndThread, m_CancellThread, new Held(m_shared),
                                       EINA_FALSE);
}

int CUsbCopyThread::GetProgress() const {
  const int64_t length = m_shared->m_lFilelenth;
  return length > 0 ? static_cast<int>(m_shared->copied * 100 / length) : 0;
}

bool CUsbCopyThread::IsFinished() const { return m_shared->finished; }

CopyEnd CUsbCopyThread::GetEnd() const { return m_shared->end; }

void CUsbCopyThread::Destroy() {
  m_shared->cancelled = true;
  int polls = 0;
  for (; m_shared->running && polls < kMostPolls; ++polls) m_Sleep(kPollMilliseconds);
  if (polls > 0) LOG_ERROR("transfer cancelled after %d ms", polls * kPollMilliseconds);
}

void CUsbCopyThread::m_Sleep(int milliseconds) {
  const timespec pause{milliseconds / 1000, milliseconds % 1000 * 1'000'000L};
  nanosleep(&pause, nullptr);
}

void CUsbCopyThread::m_StartThread(void* data, Ecore_Thread*) { (*static_cast<Held*>(data))->m_TransferFile(); }

void CUsbCopyThread::m_NotifyThread(void*, Ecore_Thread*, void*) { LOG_DEBUG("m_NotifyThread is called"); }

void CUsbCopyThread::m_EndThread(void* data, Ecore_Thread*) {
  const std::unique_ptr<Held> held(static_cast<Held*>(data));
  LOG_INFO("m_SendCopyThreadEndEvent is called");
  (*held)->finished = true;
}

void CUsbCopyThread::m_CancellThread(void* data, Ecore_Thread*) {
  const std::unique_ptr<Held> held(static_cast<Held*>(data));
  LOG_INFO("m_SendCopyThreadCancellEvent is called");
  (*held)->finished = true;
}

// --- on the thread -------------------------------------------------------------------------------

/// It was cancelled before there was a thread for it.
void CUsbCopyThread::Shared::m_GiveUp() {
  LOG_ERROR("transfer cancelled");
  end = CopyEnd::kCancelled;
  running = false;
}

FILE* CUsbCopyThread::Shared::m_SafeFileOpen(const std::string& path, const char* mode) const {
  struct stat info;
  if (lstat(path.c_str(), &info) != 0) {
    LOG_DEBUG("no file exists");
  } else if (S_ISLNK(info.st_mode)) {
    LOG_DEBUG("is symbolic link.");
    return nullptr;
  }
  FILE* file = fopen(path.c_str(), mode);
  if (!file) LOG_ERROR("Fail to fopen file; errno: %s", strerror(errno));
  return file;
}

bool CUsbCopyThread::Shared::m_OpenFiles() {
  in = m_SafeFileOpen(source, "rb");
  if (!in || !IsRegular(in)) {
    if (in) fclose(in);
    LOG_ERROR("Fail to fopen in_file");
    result = CopyEnd::kNoSource;
    return false;
  }
  if (IsLink(destination)) {
    LOG_DEBUG("is symbolic link.");
  } else {
    out = m_SafeFileOpen(destination + kPart, "wb+");
  }
  if (out) return true;
  LOG_ERROR("Fail to fopen out_file");
  fclose(in);
  result = CopyEnd::kNoDestination;
  return false;
}

void CUsbCopyThread::Shared::m_TransferFile() {
  running = true;
  if (cancelled) return m_GiveUp();
  const Directory directory(destination);
  if (!m_OpenFiles()) {
    end = result;  // a thread that has opened nothing does not say that it stopped running
    return;
  }
  fseeko(in, 0, SEEK_END);
  m_lFilelenth = ftello(in);
  fseeko(in, 0, SEEK_SET);
  LOG_DEBUG("m_lFilelenth=%lld", static_cast<long long>(m_lFilelenth));
  m_CopyChunks();
  const CopyEnd ended = m_Finish(directory);
  LOG_ERROR("FileTransfer end, copied %lld from %s (file size: %lld) to %s", static_cast<long long>(copied),
            source.c_str(), static_cast<long long>(m_lFilelenth), destination.c_str());
  end = ended;
  running = false;
}

void CUsbCopyThread::Shared::m_CopyChunks() {
  const auto length = static_cast<size_t>(std::max<int64_t>(m_lFilelenth / kChunks, 1));
  LOG_DEBUG("nCopyLength=%zu", length);
  const std::unique_ptr<char[]> chunk(new (std::nothrow) char[length + 1]());
  if (!chunk) result = CopyEnd::kReadError;
  while (result == CopyEnd::kWhole) {
    const size_t count = fread(chunk.get(), 1, length, in);
    if (count < length && ferror(in)) {
      LOG_ERROR("read error, file: %s", source.c_str());
      result = CopyEnd::kReadError;
    }
    if (count == 0 || result != CopyEnd::kWhole || !m_WriteChunk(chunk.get(), count)) break;
    memset(chunk.get(), 0, length + 1);
    m_Sleep(kPauseMilliseconds);
  }
  // The source has changed meanwhile.
  if (result == CopyEnd::kWhole && written != m_lFilelenth) result = CopyEnd::kReadError;
}

bool CUsbCopyThread::Shared::m_WriteChunk(const char* chunk, size_t length) {
  if (fwrite(chunk, 1, length, out) < length) {
    result = m_WriteFailure();
    return false;
  }
  if (cancelled) {
    LOG_ERROR("transfer cancelled");
    result = CopyEnd::kCancelled;
    return false;
  }
  const auto bytes = static_cast<int64_t>(length);
  written += bytes;
  if (written < m_lFilelenth) {
    m_Count(bytes);
  } else {
    held += bytes;
  }
  return true;
}

void CUsbCopyThread::Shared::m_Count(int64_t bytes) {
  copied += bytes;
  LOG_DEBUG("m_lCopyLenth =%lld", static_cast<long long>(copied));
}

CopyEnd CUsbCopyThread::Shared::m_WriteFailure() {
  const CopyEnd why = IsFull(errno) ? CopyEnd::kNoSpace : CopyEnd::kWriteError;
  LOG_ERROR("write error, file: %s", destination.c_str());
  return why;
}

/// Closes both files and puts the copy into its place, or takes it away.
CopyEnd CUsbCopyThread::Shared::m_Finish(const Directory& directory) {
  if (result == CopyEnd::kWhole && (fflush(out) != 0 || fsync(fileno(out)) != 0)) result = m_WriteFailure();
  fclose(in);
  if (fclose(out) != 0 && result == CopyEnd::kWhole) result = m_WriteFailure();
  if (result == CopyEnd::kWhole && cancelled) result = CopyEnd::kCancelled;
  const std::string part = m_PartName(), name = std::filesystem::path(destination).filename();
  const int place = directory.Descriptor();
  if (result == CopyEnd::kWhole && renameat(place, part.c_str(), place, name.c_str()) != 0) result = m_WriteFailure();
  if (result != CopyEnd::kWhole) {
    unlinkat(place, part.c_str(), 0);
    return result;
  }
  if (!FlushDirectory(place)) return m_WriteFailure();
  m_Count(held);
  return CopyEnd::kWhole;
}
