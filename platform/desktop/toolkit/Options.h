// The command line of the program.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Keys.h"
#include "LogOutput.h"

namespace desktop {

struct Options {
  std::string menuID;
  std::map<std::string, std::string> extra;
  std::vector<desktop::Step> steps;
  std::string shot;
  /// "-" is standard output.
  std::string dump;
  /// Empty: the default TV.
  std::string tv;
  std::optional<LogLevel> log;
  bool list = false, help = false, speak = false;

  /// Whether the program leaves by itself after its last step.
  bool IsScripted() const { return !steps.empty() || !shot.empty() || !dump.empty(); }
};

/// What is wrong with a command line, as one line.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws UsageError.
Options ParseOptions(int argc, char** argv);
void PrintHelp();

}  // namespace desktop
