// What is told of a process that falls, or stands still.
#pragma once

#include <string>

namespace test {

/// As long as it lives, a process that falls says first what it was told last.
class Watch {
 public:
  Watch();
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  void Tell(const std::string& story);
  /// From now on it falls after so many real seconds, unless it is asked again.
  void Expect(unsigned int seconds);
};

}  // namespace test
