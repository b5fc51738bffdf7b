#include "Profile.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>

#include "Deployment.h"
#include "Gate.h"
#include "Schema.h"
#include "Text.h"

namespace desktop {

namespace {

namespace fs = std::filesystem;

constexpr int kDeepestInclude = 8;

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

ProfileSection& SectionOf(std::vector<ProfileSection>& sections, const std::string& name) {
  for (ProfileSection& section : sections) {
    if (section.name == name) return section;
  }
  sections.push_back({name, {}});
  return sections.back();
}

void ReadFile(const fs::path& path, std::vector<ProfileSection>& sections, int depth) {
  std::ifstream file(path);
  if (!file) throw ProfileError(path.string() + ": " + std::strerror(errno));
  ReadProfileText(file, path, sections, depth);
  if (file.bad()) throw ProfileError(path.string() + ": cannot be read");
}

int64_t Number(const ProfileLine& line, const std::string& word) {
  const auto number = ToNumber(word);
  if (!number) throw ProfileError(line, "'" + word + "' is no number");
  return *number;
}

void WriteSetting(const ProfileLine& line) {
  std::string rest = line.text;
  const std::string type = TakeWord(rest), key = TakeWord(rest);
  if (key.empty()) throw ProfileError(line, "a key is missing");
  const bool kept = !key.starts_with("memory/");
  const auto write = [&](const auto& value) {
    Query("REPLACE INTO setting VALUES (?, ?, ?)", key, type, value).Run();
    if (!kept) Query("REPLACE INTO power_on VALUES (?, ?, ?)", key, type, value).Run();
  };
  if (type == "int") {
    const int64_t number = Number(line, rest);
    if (number < INT32_MIN || number > INT32_MAX) throw ProfileError(line, "'" + rest + "' is too big");
    write(static_cast<int64_t>(number));
  } else if (type == "bool") {
    if (rest != "true" && rest != "false") throw ProfileError(line, "'" + rest + "' is neither true nor false");
    write(rest == "true" ? 1 : 0);
  } else if (type == "ints") {
    for (std::string words = rest; !words.empty();) Number(line, TakeWord(words));
    write(rest);
  } else if (type == "string") {
    write(rest);
  } else {
    throw ProfileError(line, "unknown type '" + type + "'");
  }
}

/// "window|item|group ID NAME [parent=ID] [value=V] [VALUE:NAME ...]"
void WriteItem(const ProfileLine& line, int place) {
  std::string rest = line.text;
  const std::string kind = TakeWord(rest), id = TakeWord(rest), name = TakeWord(rest);
  if (kind != "window" && kind != "item" && kind != "group") throw ProfileError(line, "unknown kind '" + kind + "'");
  if (name.empty()) throw ProfileError(line, "a name is missing");
  // A file that includes another says anew what an item is.
  Query("DELETE FROM choice WHERE item = ?", id).Run();
  std::string parent, value;
  int choice = 0;
  while (!rest.empty()) {
    const std::string word = TakeWord(rest);
    if (word.starts_with("parent=")) {
      parent = word.substr(7);
    } else if (word.starts_with("value=")) {
      value = word.substr(6);
    } else if (const size_t colon = word.find(':'); colon != std::string::npos) {
      Query("INSERT INTO choice (item, place, value, name) VALUES (?, ?, ?, ?)", id, choice++, word.substr(0, colon),
            word.substr(colon + 1))
          .Run();
    } else {
      throw ProfileError(line, "'" + word + "' is no choice");
    }
  }
  Query("REPLACE INTO item (id, parent, place, kind, name, value) VALUES (?, ?, ?, ?, ?, ?)", id, parent, place, kind,
        name, value)
      .Run();
}

void WriteChip(const ProfileLine& line, int contrast) {
  std::string rest = line.text;
  const std::string name = TakeWord(rest);
  int64_t part[4];
  for (int64_t& value : part) {
    value = Number(line, TakeWord(rest));
    if (value < 0 || value > 255) throw ProfileError(line, "a colour is 0 to 255");
  }
  Query("REPLACE INTO chip VALUES (?, ?, ?, ?, ?, ?)", contrast, name, static_cast<int64_t>(part[0]),
        static_cast<int64_t>(part[1]), static_cast<int64_t>(part[2]), static_cast<int64_t>(part[3]))
      .Run();
}

void WriteApplication(const ProfileLine& line) {
  std::string rest = line.text;
  const std::string id = TakeWord(rest);
  if (rest != "running" && rest != "stopped") throw ProfileError(line, "'" + rest + "' is neither running nor stopped");
  Query("REPLACE INTO application VALUES (?, ?)", id, rest == "running" ? 1 : 0).Run();
}

/// An SQLite file with the schema and nothing in it.
void MakeEmpty(const std::string& path) {
  sqlite3* db = nullptr;
  char* message = nullptr;
  int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  // Nobody reads the file before it is moved into place, and what is written last is written through.
  const std::string sql = "PRAGMA synchronous=OFF; PRAGMA journal_mode=WAL; BEGIN; PRAGMA application_id=" +
                          std::to_string(kApplicationId) + "; PRAGMA user_version=" + std::to_string(Store::kSchema) +
                          ";" + kSchemaSql + "COMMIT;";
  if (code == SQLITE_OK) code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message);
  std::string what = message ? message : db ? sqlite3_errmsg(db) : sqlite3_errstr(code);
  if (code == SQLITE_FULL) what = "no space left on the device";
  sqlite3_free(message);
  sqlite3_close(db);
  if (code != SQLITE_OK) throw StoreError(path + ": " + what, code);
}

void Remove(const fs::path& path) {
  std::error_code ignored;  // what is not there needs no removal
  for (const char* ending : {"", "-wal", "-shm"}) fs::remove(path.string() + ending, ignored);
}

/// Into place in one step, so that two programs that make the first TV at once both find a whole one.
void MoveIntoPlace(const fs::path& made, const fs::path& path, bool replace) {
  if (replace) {
    Remove(path);
    fs::rename(made, path);
    return;
  }
  if (link(made.c_str(), path.c_str()) != 0) {
    const int error = errno;
    Remove(made);
    throw StoreError(path.string() + ": " + (error == EEXIST ? "is already there" : std::strerror(error)));
  }
  Remove(made);
}

}  // namespace

void ReadProfileText(std::istream& text, const fs::path& path, std::vector<ProfileSection>& sections, int includes) {
  std::string current;
  int number = 0;
  for (std::string raw; std::getline(text, raw);) {
    ProfileLine line{path.filename().string() + ":" + std::to_string(++number), Trimmed(raw)};
    if (line.text.empty() || line.text[0] == '#') continue;
    if (line.text[0] == '[') {
      if (line.text.back() != ']') throw ProfileError(line, "section without a closing bracket");
      current = line.text.substr(1, line.text.size() - 2);
    } else if (line.text.starts_with("include ")) {
      if (includes == 0) throw ProfileError(line, "includes itself");
      ReadFile(path.parent_path() / Trimmed(line.text.substr(8)), sections, includes - 1);
    } else if (current.empty()) {
      throw ProfileError(line, "stands outside a section");
    } else {
      SectionOf(sections, current).lines.push_back(line);
    }
  }
}

void WriteSection(const ProfileSection& section) {
  int place = 0;
  for (const ProfileLine& line : section.lines) {
    if (section.name == "settings" || section.name == "features" || section.name == "system") {
      WriteSetting(line);
    } else if (section.name == "menu") {
      WriteItem(line, place++);
    } else if (section.name == "chips") {
      WriteChip(line, 0);
    } else if (section.name == "chips high-contrast") {
      WriteChip(line, 1);
    } else if (section.name == "applications") {
      WriteApplication(line);
    } else {
      throw ProfileError(line, "unknown section [" + section.name + "]");
    }
  }
}

std::string TakeWord(std::string& text) {
  const size_t end = text.find_first_of(" \t");
  std::string word = text.substr(0, end);
  text = end == std::string::npos ? std::string() : Trimmed(text.substr(end));
  return word;
}

std::vector<std::pair<std::string, std::string>> Profiles() {
  std::vector<std::pair<std::string, std::string>> profiles;
  for (const auto& entry : fs::directory_iterator(Deployed().profiles)) {
    if (entry.path().extension() != ".tv") continue;
    std::string first;
    std::ifstream file(entry.path());
    std::getline(file, first);
    first.erase(0, first.find_first_not_of("# "));
    profiles.emplace_back(entry.path().stem(), Trimmed(first));
  }
  std::sort(profiles.begin(), profiles.end());
  return profiles;
}

std::vector<ProfileSection> ReadProfile(const std::string& name) {
  const fs::path path = Deployed().profiles / (name + ".tv");
  if (name.find('/') != std::string::npos || !fs::exists(path)) {
    std::string known;
    for (const auto& [profile, what] : Profiles()) known += (known.empty() ? "" : ", ") + profile;
    throw ProfileError("unknown profile '" + name + "' (there are: " + known + ")");
  }
  std::vector<ProfileSection> sections;
  ReadFile(path, sections, kDeepestInclude);
  return sections;
}

namespace {

std::vector<SectionReaderMaker>& ReaderMakers() {
  static std::vector<SectionReaderMaker> makers;
  return makers;
}

/// What the readers skipped.
std::vector<std::string> Fill(const std::vector<ProfileSection>& sections, const TvOptions& options) {
  std::vector<std::unique_ptr<SectionReader>> readers;
  for (const SectionReaderMaker make : ReaderMakers()) readers.push_back(make());
  for (const ProfileSection& section : sections) {
    const auto takes = [&](const auto& reader) { return reader->Takes(section.name); };
    const auto reader = std::find_if(readers.begin(), readers.end(), takes);
    if (reader == readers.end()) {
      WriteSection(section);
    } else {
      (*reader)->Read(section);
    }
  }
  std::vector<std::string> skipped;
  for (const auto& reader : readers) {
    for (std::string& line : reader->Make(options)) skipped.push_back(std::move(line));
  }
  return skipped;
}

}  // namespace

bool AddSectionReader(SectionReaderMaker make) {
  ReaderMakers().push_back(make);
  return true;
}

std::vector<std::string> MakeTv(const std::string& path, const TvOptions& options, bool replace) {
  const std::vector<ProfileSection> sections = ReadProfile(options.profile);
  const fs::path target(path);
  if (!replace && fs::exists(target)) throw StoreError(path + ": is already there");
  std::error_code error;
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), error);
  if (error) throw StoreError(target.parent_path().string() + ": " + error.message());

  std::vector<std::string> skipped;
  const std::string made = path + ".new-" + std::to_string(getpid());
  Remove(made);
  try {
    MakeEmpty(made);
    Store::Open(made);
    Store::Get().Write([&] {
      Query("INSERT INTO meta VALUES ('profile', ?)", options.profile).Run();
      skipped = Fill(sections, options);
    });
    Store::Get().Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    Store::Close();
  } catch (...) {
    Store::Close();
    Remove(made);
    throw;
  }
  MoveIntoPlace(made, target, replace);
  return skipped;
}

}  // namespace desktop
