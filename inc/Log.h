// The program's log lines: file, function and line, then the level word and the message.
#pragma once

#include "dlog.h"

// clang-format off
#define QUIRELLE_LOG(priority, level, format, ...) \
  dlog_print(priority, "quirelle", "%s: %s(%d) > [" level "]" format "\n", __FILE_NAME__, __func__, __LINE__ __VA_OPT__(,) __VA_ARGS__)
// clang-format on

/// `format` is a literal without the closing line feed.
#define LOG_DEBUG(format, ...) QUIRELLE_LOG(DLOG_INFO, "Debug", format __VA_OPT__(, ) __VA_ARGS__)
#define LOG_INFO(format, ...) QUIRELLE_LOG(DLOG_INFO, "Info", format __VA_OPT__(, ) __VA_ARGS__)
#define LOG_ERROR(format, ...) QUIRELLE_LOG(DLOG_ERROR, "Error", format __VA_OPT__(, ) __VA_ARGS__)
