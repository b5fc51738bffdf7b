// Profiles: readable text from which a TV is made.
#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace desktop {

struct ProfileLine {
  /// "file:line", for what is wrong with it.
  std::string where;
  std::string text;
};

struct ProfileSection {
  std::string name;
  std::vector<ProfileLine> lines;
};

/// A profile that cannot be read: "file:line: what".
class ProfileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ProfileError(const ProfileLine& line, const std::string& what) : std::runtime_error(line.where + ": " + what) {}
};

/// What a TV is that nobody asked for by name.
inline constexpr const char* kDefaultProfile = "america";

/// Names of the profiles there are, sorted, with what each says of itself in its first line.
std::vector<std::pair<std::string, std::string>> Profiles();
/// The sections of a profile, those of the files that it includes first.
std::vector<ProfileSection> ReadProfile(const std::string& name);

struct TvOptions {
  std::string profile;
  /// Services to make; -1 as many as the profile says.
  int64_t services = -1;
};

/// Makes a TV in `path`, as a whole or not at all; what was skipped on the way, a line each. Throws ProfileError
/// or StoreError; a file that is already there is an error unless `replace` is set.
std::vector<std::string> MakeTv(const std::string& path, const TvOptions& options, bool replace);

/// Adds the sections of a profile's text, and of the files beside `path` that it includes, at most `includes` deep.
/// Throws ProfileError.
void ReadProfileText(std::istream& text, const std::filesystem::path& path, std::vector<ProfileSection>& sections,
                     int includes);
/// Reads sections that are more than lines to be written, and makes of them what belongs to the TV.
class SectionReader {
 public:
  virtual ~SectionReader() = default;
  virtual bool Takes(const std::string& section) const = 0;
  /// Throws ProfileError for a line that cannot be read.
  virtual void Read(const ProfileSection& section) = 0;
  /// Fills the TV; called once, after the last section and within the transaction that makes the TV. Returns what was
  /// skipped, a line each.
  virtual std::vector<std::string> Make(const TvOptions& options) = 0;
};
using SectionReaderMaker = std::unique_ptr<SectionReader> (*)();
/// From now on each TV is made with such a reader too; true, so that a reader can register itself.
bool AddSectionReader(SectionReaderMaker make);

/// Writes a section that no SectionReader takes into the open TV. Throws ProfileError.
void WriteSection(const ProfileSection& section);

/// The next word of a line, taken off its front; empty at its end.
std::string TakeWord(std::string& text);

}  // namespace desktop
