#include "NewFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "ListFormat.h"

namespace desktop {

namespace {

constexpr mode_t kMode = 0644;

/// Flushes a directory: 0, or the error. A file system that cannot flush one is flushed as a whole.
int FlushDirectory(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return errno;
  int error = fsync(descriptor) == 0 ? 0 : errno;
  if (error == EINVAL || error == ENOSYS || error == ENOTSUP) error = syncfs(descriptor) == 0 ? 0 : errno;
  close(descriptor);
  return error;
}

}  // namespace

NewFile::NewFile(const std::string& path) : m_path(path), m_part(path + ".part") {
  // Whoever had the file before may have put it in its place in the meantime; then there is another one to open.
  while (!Open()) {
  }
}

bool NewFile::Open() {
  m_descriptor = open(m_part.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, kMode);
  if (m_descriptor < 0) Fail(errno);
  struct stat own, there;
  const bool locked = flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
  const int error = errno;
  const bool same = locked && fstat(m_descriptor, &own) == 0 && stat(m_part.c_str(), &there) == 0 &&
                    own.st_ino == there.st_ino && own.st_dev == there.st_dev;
  const int cut = same && ftruncate(m_descriptor, 0) != 0 ? errno : 0;
  if (same && cut == 0) return true;
  close(m_descriptor);
  m_descriptor = -1;
  if (!locked && error == EWOULDBLOCK) throw ListError(kListFailed, m_path + ": another program is writing it");
  if (!locked || cut != 0) Fail(cut ? cut : error);
  return false;
}

NewFile::~NewFile() {
  if (m_descriptor < 0) return;
  unlink(m_part.c_str());
  close(m_descriptor);
}

void NewFile::Fail(int error) const { throw ListError(kListFailed, m_path + ": " + std::strerror(error)); }

void NewFile::Finish() {
  if (fsync(m_descriptor) != 0) Fail(errno);
  if (rename(m_part.c_str(), m_path.c_str()) != 0) Fail(errno);
  // The lock goes only now: who comes meanwhile does not take the finished file for a left-over.
  close(m_descriptor);
  m_descriptor = -1;
  const std::string directory = std::filesystem::path(m_path).parent_path();
  if (const int error = FlushDirectory(directory.empty() ? "." : directory)) Fail(error);
}

}  // namespace desktop
