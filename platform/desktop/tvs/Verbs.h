// What quirelle-tv can do with the TV service.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace desktop {

struct TvVerb {
  const char* name;
  const char* usage;
  const char* what;
  /// On the open TV; the words after the verb. The result is the exit status.
  int (*run)(const std::vector<std::string>& words);
};

const std::vector<TvVerb>& TvServiceVerbs();

/// Wrong words; anything else that goes wrong is another std::runtime_error. Nothing has changed then.
class TvWordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace desktop
