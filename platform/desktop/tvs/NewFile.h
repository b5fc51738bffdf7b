// A file that appears under its name whole or not at all.
#pragma once

#include <string>

namespace desktop {

/// Until it is finished it lies beside its place, under its name with ".part" behind it; what another process left
/// there is taken over.
class NewFile {
 public:
  /// Throws ListError, also when another process is writing the same file.
  explicit NewFile(const std::string& path);
  /// What was not finished goes.
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  int Descriptor() const { return m_descriptor; }
  /// Puts the file in its place. When this has returned, a power cut loses neither the file nor its name.
  void Finish();

 private:
  bool Open();
  [[noreturn]] void Fail(int error) const;

  std::string m_path, m_part;
  int m_descriptor = -1;
};

}  // namespace desktop
