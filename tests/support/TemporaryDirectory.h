// A directory of the test's own.
#pragma once

#include <filesystem>
#include <string>

namespace test {

/// Gone when the test is over.
class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

 private:
  std::filesystem::path m_path;
};

}  // namespace test
