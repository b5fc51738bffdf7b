// Where the platform logger writes.
#pragma once

#include <string_view>

namespace desktop {

enum class LogLevel { kOff, kError, kInfo };

/// Messages of `level` and worse go to standard error from now on.
void LogToStandardError(LogLevel level);
/// Messages go to the file beside the TV (its name with ".log" for the ending), the default. Those from before
/// a TV is open wait until one is.
void LogToFile();

/// Is called with the text of every message, dropped or not; null takes it away.
using LogWatcher = void (*)(int priority, const char* text);
void WatchLog(LogWatcher watcher);

/// False for a word that is no level.
bool ParseLogLevel(std::string_view word, LogLevel& level);

}  // namespace desktop
