// What quirelle-tv can do with a TV.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "Words.h"

struct Verb {
  /// One word, or two where the first alone is a verb too.
  const char* name;
  const char* usage;
  const char* what;
  /// Whether the TV is opened before the verb runs.
  bool opens;
  /// The result is the exit status.
  int (*run)(const Arguments& words);
};

/// The set itself: settings, faults, the journal, sticks, the running program.
std::span<const Verb> SetVerbs();
/// What it receives.
std::span<const Verb> ReceptionVerbs();
/// The rating system that comes with it.
std::span<const Verb> RatingVerbs();
/// How it is connected to satellites: the single cable and the dish.
std::span<const Verb> SatelliteVerbs();
/// Its channel list as an archive.
std::span<const Verb> ChannelListVerbs();

/// All of them.
std::vector<std::span<const Verb>> VerbFamilies();
/// The verb that the words begin with, which are taken from them; throws WordError without one.
const Verb& TakeVerb(Arguments& words);

/// The TV that the command line names.
extern std::string g_tv;
