// The rating system that is on air, and its locks.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "RatingJson.h"
#include "Text.h"
#include "Verbs.h"
#include "tvs/RatingTable.h"

using namespace desktop;

namespace {

constexpr ERRTRegion kRegion = RRT_REGION_DOWNLOADABLE;
constexpr const char* kUsage = "rating [load FILE.json|clear|lock D V on|off] [--json]";
/// More than the largest system takes.
constexpr size_t kMostBytes = 256U << 20;

// --- what is printed -----------------------------------------------------------------------------

/// A row for each value; what belongs to the dimension stands in its first.
std::vector<Arguments> Rows(const RatingDimension& dimension, size_t number) {
  const Arguments head = {std::to_string(number), OneLine(ShownName(dimension.name, "Dimension ", number))};
  if (dimension.values.empty()) return {{head[0], head[1], "-", "-", "-"}};
  std::vector<Arguments> rows;
  for (size_t i = 0; i < dimension.values.size(); ++i) {
    const RatingValue& value = dimension.values[i];
    rows.push_back({i ? "" : head[0], i ? "" : head[1], std::to_string(i), OneLine(ShownName(value.name, "Rating ", i)),
                    value.locked ? "on" : "off"});
  }
  return rows;
}

void PrintSystem(const RatingSystem& system) {
  std::printf("%s\n", OneLine(ShownRegion(system)).c_str());
  if (system.dimensions.empty()) return;
  std::vector<Arguments> rows;
  for (size_t i = 0; i < system.dimensions.size(); ++i) {
    for (Arguments& row : Rows(system.dimensions[i], i)) rows.push_back(std::move(row));
  }
  PrintTable({"dimension", "name", "value", "rating", "lock"}, rows, {true, false, true, false, false});
}

int PrintRating(bool json) {
  const auto system = ReadRatingSystem(kRegion);
  if (json) {
    std::puts(RatingJson(system).c_str());
  } else if (system) {
    PrintSystem(*system);
  } else {
    std::puts("no rating system");
  }
  return 0;
}

// --- what is changed -----------------------------------------------------------------------------

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path + ": " + std::strerror(errno));
  std::string text;
  for (char part[65536]; file.read(part, sizeof part), file.gcount() > 0;) {
    text.append(part, static_cast<size_t>(file.gcount()));
    if (text.size() > kMostBytes) throw std::runtime_error(path + ": is too big");
  }
  if (file.bad()) throw std::runtime_error(path + ": cannot be read");
  return text;
}

RatingSystem ParseFile(const std::string& path) {
  const std::string text = ReadFile(path);
  try {
    return ParseRatingJson(text);
  } catch (const std::exception& error) {
    throw std::runtime_error(path + ": " + error.what());
  }
}

/// An index into a list that has so many; `of` says what the list belongs to.
int Index(const std::string& word, const char* what, size_t count, const std::string& of) {
  if (count == 0) throw std::runtime_error(of + " has no " + what);
  return static_cast<int>(Number(word, what, 0, static_cast<int64_t>(count) - 1));
}

void Lock(const std::string& dimension, const std::string& value, const std::string& state) {
  if (state != "on" && state != "off") throw WordError("'" + state + "' is neither on nor off");
  Store::Get().Write([&] {
    const auto system = ReadRatingSystem(kRegion);
    if (!system) throw std::runtime_error(Store::Get().Path() + ": no rating system");
    const int d = Index(dimension, "dimension", system->dimensions.size(), "the rating system");
    const size_t count = system->dimensions[static_cast<size_t>(d)].values.size();
    const int v = Index(value, "value", count, "dimension " + std::to_string(d));
    SetRatingLock(kRegion, d, v, state == "on");
  });
}

int Rating(const Arguments& words) {
  const Command command = Parse(words, 4, kUsage);
  const Arguments& is = command.words;
  const std::string what = is.empty() ? "" : is[0];
  if (what == "load" && is.size() == 2) {
    WriteRatingSystem(kRegion, ParseFile(is[1]));
  } else if (what == "clear" && is.size() == 1) {
    ClearRatingSystem(kRegion);
  } else if (what == "lock" && is.size() == 4) {
    Lock(is[1], is[2], is[3]);
  } else if (!is.empty()) {
    throw WordError(std::string("usage: quirelle-tv ") + kUsage);
  }
  return PrintRating(command.json);
}

constexpr Verb kVerbs[] = {
    {"rating", "rating", "the rating system that is on air, with its locks (--json)", true, Rating},
    {"rating", "rating load FILE.json", "puts another one on air, in the form of --json; its locks are off", true,
     Rating},
    {"rating", "rating clear", "takes it off the air", true, Rating},
    {"rating", "rating lock D V on|off", "locks value V of dimension D", true, Rating},
};

}  // namespace

std::span<const Verb> RatingVerbs() { return kVerbs; }
