// Programs in processes of their own, and what they leave behind.
#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Harness.h"

namespace test {

inline const std::string kRating = "db/menu/broadcasting/program_rating_lock/tv_rating/";

/// Polls until `holds` does; false when it has not within so many seconds.
bool Until(const std::function<bool()>& holds, double seconds = 20);

/// A program that runs beside the test; it does not outlive this object.
class Process {
 public:
  /// `words[0]` is found through PATH; `environment` as NAME=VALUE. Its output goes to `output` when that is given.
  explicit Process(const Texts& words, const Texts& environment = {}, const std::string& output = "/dev/null");
  /// A process that is a copy of this one and does this.
  explicit Process(const std::function<void()>& body, const std::string& output = "/dev/null");
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Signal(int signal);
  /// Its exit status (negative: the signal that ended it), or nothing when it still runs after so many seconds.
  std::optional<int> Wait(double seconds = 20);
  /// Kills it so many microseconds after it has begun to do what it does, every fourth at any moment of its start.
  /// Whether that is what ended it.
  bool KillSoon(int turn, const std::function<bool()>& hasBegun, unsigned microseconds);

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
  Outcome Tv(const Texts& words, const Texts& environment = {}) const { return Run("quirelle-tv", words, environment); }
  Outcome Program(const Texts& words, const Texts& environment = {}) const {
    return Run("quirelle", words, environment);
  }
  /// What quirelle-tv answers when all is well.
  std::string Do(const Texts& words) const;
  /// What quirelle shows in the end.
  Json::Value Screen(Texts words) const;
  std::string Get(const std::string& key) const;
  /// A program on this TV whose window takes keys.
  std::unique_ptr<Process> Start(const Texts& environment = {}) const;
  /// What the TV keeps, as text: settings, tree, faults, ratings. The journal and who is running are not part of it.
  std::string Contents() const;

 private:
  Outcome Run(const char* program, Texts words, const Texts& environment) const;

  TemporaryDirectory m_directory;
};

/// Rows of a query on a file, columns separated by '|'. Throws with SQLite's message.
Texts Rows(const std::string& path, const std::string& sql);

std::string ReadWhole(const std::string& path);

Json::Value Parsed(const std::string& json);

bool Says(const std::string& text, const std::string& part);

struct Picture {
  unsigned w = 0, h = 0;
  std::vector<unsigned char> rgb;
};

Picture LoadPicture(const std::string& path);

}  // namespace test
