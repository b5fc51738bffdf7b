// The words of quirelle-tv's command line, and what is printed for them.
#pragma once

#include <json/forwards.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "Store.h"
#include "tvs_types.h"

using Arguments = std::vector<std::string>;

/// Wrong words; anything else that goes wrong is another std::runtime_error. Nothing has changed then.
class WordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws WordError with the usage unless there are so many words.
void Want(const Arguments& words, size_t least, size_t most, const char* usage);
/// A number within its bounds; throws WordError that names `what`.
int64_t Number(const std::string& word, const std::string& what, int64_t least, int64_t most);

/// Words with the options taken out that any verb that prints has.
struct Command {
  Arguments words;
  bool json = false;
  int profile = PROFILE_MAIN;
  /// -1: all.
  int64_t limit = -1;
};
Command Parse(const Arguments& words, size_t most, const char* usage);

/// Prints the rows of a query: a table, or an array of objects. The exit status.
int Print(desktop::Query& query, const std::vector<const char*>& names, bool json);
/// Several of them: tables one below the other, or an object of arrays.
struct Section {
  const char* name;
  desktop::Query& query;
  std::vector<const char*> names;
};
int Print(const std::vector<Section>& sections, bool json);
void PrintJson(const Json::Value& value);
/// A table; `right` says which columns end on one line.
void PrintTable(const std::vector<const char*>& names, const std::vector<Arguments>& rows,
                const std::vector<bool>& right);
