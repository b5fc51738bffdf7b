// What quirelle-tv can do with a TV.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tvs/Verbs.h"

using Arguments = std::vector<std::string>;

struct Verb {
  const char* name;
  const char* usage;
  const char* what;
  /// Whether the TV is opened before the verb runs.
  bool opens;
  int (*run)(const Arguments& arguments);
};

std::span<const Verb> Verbs();

/// The TV that the command line names.
extern std::string g_tv;

/// Wrong words on the command line.
using WordError = desktop::TvWordError;
