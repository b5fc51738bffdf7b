#include "TemporaryDirectory.h"

#include <cstdlib>
#include <stdexcept>

namespace test {

TemporaryDirectory::TemporaryDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "quirelle-test-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no temporary directory");
  m_path = name;
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;  // the next start of the machine clears what is left
  std::filesystem::remove_all(m_path, ignored);
}

}  // namespace test
