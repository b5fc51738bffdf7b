// Programs in processes of their own, and what they leave behind.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Harness.h"

namespace test {

/// Polls until `holds` does; false when it has not within so many seconds.
bool Until(const std::function<bool()>& holds, double seconds = 20);

/// A program that runs beside the test; it does not outlive this object.
class Process {
 public:
  /// `words[0]` is found through PATH; `environment` as NAME=VALUE. Its output goes to `output` when that is given.
  explicit Process(const std::vector<std::string>& words, const std::vector<std::string>& environment = {},
                   const std::string& output = "/dev/null");
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Signal(int signal);
  /// Its exit status (negative: the signal that ended it), or nothing when it still runs after so many seconds.
  std::optional<int> Wait(double seconds = 20);

 private:
  pid_t m_pid;
  std::optional<int> m_status;
};

/// Path of a program of the build.
std::string Built(const std::string& program);

/// A TV in a file that only other processes have open.
class TvFile {
 public:
  explicit TvFile(const std::string& profile = "america");
  std::string Path() const { return m_directory / "tv.db"; }
  std::string operator/(const std::string& name) const { return m_directory / name; }

  /// Runs quirelle-tv, or quirelle, on this TV to its end.
  Outcome Tv(std::vector<std::string> words, const std::vector<std::string>& environment = {}) const;
  Outcome Program(std::vector<std::string> words, const std::vector<std::string>& environment = {}) const;
  std::string Get(const std::string& key) const;
  /// What the TV keeps, as text: settings, tree, faults. The journal and who is running are not part of it.
  std::string Contents() const;

 private:
  TemporaryDirectory m_directory;
};

/// Rows of a query on a file, columns separated by '|'. Throws with SQLite's message.
std::vector<std::string> Rows(const std::string& path, const std::string& sql);

std::string ReadWhole(const std::string& path);
/// The text is one line: not empty, one line feed, at its end.
bool IsOneLine(const std::string& text);

}  // namespace test
