// Texts that nobody would write, and what reads them.
#pragma once

#include <cstdio>
#include <functional>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fuzz {

using Texts = std::vector<std::string>;

/// Makes texts; the same ones with the same seed. None holds the byte that ends a text.
class Dice {
 public:
  explicit Dice(unsigned int seed) : m_random(seed) {}

  unsigned int Below(unsigned int limit) { return limit ? m_random() % limit : 0; }
  bool Chance(unsigned int percent) { return Below(100) < percent; }
  template <class Range>
  auto& Any(const Range& range) {
    return *(std::begin(range) + Below(static_cast<unsigned int>(std::size(range))));
  }

  /// At the ends of what a type holds, just beyond them, or anywhere.
  std::string Number();
  std::string Bytes(unsigned int most);
  /// Cut, doubled, with numbers exchanged, with broken characters and much else in it; sometimes as it was.
  std::string Mutated(std::string text);

 private:
  void Mutate(std::string& text);

  std::mt19937 m_random;
};

/// What a reader did that it must not do.
class Wrong : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void Want(bool held, const char* what) {
  if (!held) throw Wrong(what);
}

/// One reader of texts.
struct Reader {
  const char* name;
  /// Of the runs that were asked for it makes one in so many: it needs the TV's file or a folder for each.
  int every;
  std::function<std::string(Dice&)> make;
  /// Whether the text could be read. Throws Wrong.
  bool (*read)(const std::string& input);
};

std::vector<Reader> ProgramReaders();
std::vector<Reader> DesktopReaders();
std::vector<Reader> ListReaders();
std::vector<Reader> RatingReaders();

/// Makes some of the words, at most so many, each as it is or mutated; a single one always mutated.
std::function<std::string(Dice&)> Some(const Texts& words, unsigned int most = 1, const std::string& between = "");

/// Nothing when these are not whole characters only.
std::optional<std::u16string> Utf16(std::string_view text);
inline bool IsUtf8(std::string_view text) { return Utf16(text).has_value(); }
/// At least so many, without the line feeds.
Texts Lines(const std::string& text, size_t least = 1);
/// The first line, and all that comes after it.
std::pair<std::string, std::string> Halves(const std::string& text);

template <class... Values>
std::string Format(const char* format, Values... values) {
  char text[128];
  snprintf(text, sizeof text, format, values...);
  return text;
}

/// Whether a line of the program's log since the last `ForgetLog` holds the text.
bool Logged(std::string_view text);
void ForgetLog();

/// A stream of the process goes nowhere.
class Silence {
 public:
  explicit Silence(FILE*& stream) : m_stream(stream), m_kept(stream) {
    static FILE* nowhere = std::fopen("/dev/null", "w");
    stream = nowhere;
  }
  ~Silence() { m_stream = m_kept; }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  FILE*& m_stream;
  FILE* m_kept;
};

/// A buffer that notices what is written behind its end.
template <size_t Size>
struct Buffer {
  char text[Size], behind[16];
  Buffer() {
    for (char& byte : behind) byte = '#';
    for (char& byte : text) byte = '?';
    text[0] = '\0';
  }
  std::string_view Checked() const {
    Want(std::string_view(behind, sizeof behind) == "################", "writes behind the buffer");
    const std::string_view all(text, Size);
    const size_t end = all.find('\0');
    Want(end != all.npos, "leaves the buffer without an end");
    return all.substr(0, end);
  }
};

}  // namespace fuzz
