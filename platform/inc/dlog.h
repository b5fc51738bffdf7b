// Platform logger.
#pragma once

extern "C" {

enum log_priority { DLOG_INFO = 4, DLOG_ERROR = 6 };

/// Writes one message (`fmt` carries its own line feed). A priority below the level that the platform
/// keeps is dropped before anything is formatted. Returns the number of bytes written, 0 when dropped.
int dlog_print(log_priority prio, const char* tag, const char* fmt, ...) __attribute__((format(printf, 3, 4)));

}  // extern "C"
