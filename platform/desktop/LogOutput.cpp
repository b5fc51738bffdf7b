#include "LogOutput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Store.h"
#include "dlog.h"

namespace desktop {

namespace {

/// A longer file is put aside once, under the name with ".1" behind it, when the program starts.
constexpr off_t kMostBytes = 4 << 20;
constexpr int kNothing = 1000;
/// Of lines that have nowhere to go yet: a client may never find its TV.
constexpr size_t kMostEarly = 200;

std::atomic<int> g_lowest{DLOG_INFO};
std::atomic<int> g_descriptor{-1};
std::atomic<LogWatcher> g_watcher{nullptr};

/// Lines from before it was known which TV this is, and where they go.
std::mutex g_earlyMutex;
std::vector<std::pair<int, std::string>> g_early;
std::atomic<bool> g_hasEarly{false};

int OpenFile() {
  const std::filesystem::path tv(Store::Get().Path());
  const std::string path = std::filesystem::path(tv).replace_extension(".log");
  struct stat info;
  if (stat(path.c_str(), &info) == 0 && info.st_size > kMostBytes) rename(path.c_str(), (path + ".1").c_str());
  return open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
}

int Descriptor() {
  if (g_descriptor < 0) {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    if (g_descriptor < 0) g_descriptor = OpenFile();
    // A desk without a place for the log still has a TV to show.
    if (g_descriptor < 0) g_lowest = kNothing;
  }
  return g_descriptor;
}

void KeepEarly(int priority, const char* line, size_t length) {
  const std::lock_guard lock(g_earlyMutex);
  if (g_early.size() >= kMostEarly) return;
  g_early.emplace_back(priority, std::string(line, length));
  g_hasEarly = true;
}

void WriteEarly() {
  const std::lock_guard lock(g_earlyMutex);
  g_hasEarly = false;
  for (const auto& [priority, line] : std::exchange(g_early, {})) {
    if (priority >= g_lowest && write(Descriptor(), line.data(), line.size()) < 0) return;
  }
}

}  // namespace

void LogToStandardError(LogLevel level) {
  g_lowest = level == LogLevel::kInfo ? DLOG_INFO : level == LogLevel::kError ? DLOG_ERROR : kNothing;
  g_descriptor = STDERR_FILENO;
}

void LogToFile() {
  if (g_descriptor > STDERR_FILENO) close(g_descriptor);
  g_descriptor = -1;
  g_lowest = DLOG_INFO;
}

void WatchLog(LogWatcher watcher) { g_watcher = watcher; }

bool ParseLogLevel(std::string_view word, LogLevel& level) {
  if (word == "off")
    level = LogLevel::kOff;
  else if (word == "error")
    level = LogLevel::kError;
  else if (word == "info")
    level = LogLevel::kInfo;
  else
    return false;
  return true;
}

}  // namespace desktop

using namespace desktop;

int dlog_print(log_priority prio, const char* tag, const char* fmt, ...) {
  const LogWatcher watcher = g_watcher.load(std::memory_order_relaxed);
  if (prio < g_lowest.load(std::memory_order_relaxed) && !watcher) return 0;

  char line[2048];
  timeval now;
  gettimeofday(&now, nullptr);
  tm local;
  localtime_r(&now.tv_sec, &local);
  size_t length = strftime(line, sizeof line, "%F %T", &local);
  length += static_cast<size_t>(snprintf(line + length, sizeof line - length, ".%03d %c %s ",
                                         static_cast<int>(now.tv_usec / 1000), prio == DLOG_ERROR ? 'E' : 'I', tag));
  const size_t head = length;
  va_list arguments;
  va_start(arguments, fmt);
  const int text = vsnprintf(line + length, sizeof line - length, fmt, arguments);
  va_end(arguments);
  if (text < 0) return 0;
  length += static_cast<size_t>(text);
  if (length >= sizeof line) {
    length = sizeof line - 1;
    line[length - 1] = '\n';
  }
  if (watcher) watcher(prio, line + head);
  if (prio < g_lowest.load(std::memory_order_relaxed)) return 0;
  if (g_descriptor < 0 && !Store::IsOpen()) {
    KeepEarly(prio, line, length);
    return static_cast<int>(length);
  }
  if (g_hasEarly) WriteEarly();
  const ssize_t written = write(Descriptor(), line, length);
  return written < 0 ? 0 : static_cast<int>(written);
}
