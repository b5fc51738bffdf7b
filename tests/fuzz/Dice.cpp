#include <iconv.h>

#include <algorithm>
#include <sstream>

#include "Fuzz.h"

namespace fuzz {

namespace {

constexpr const char* kEnds[] = {
    "0", "1", "-1", "-0", "255", "256", "65534", "65535", "65536", "47000", "890000", "2147483646", "2147483647",
    "2147483648", "-2147483648", "-2147483649", "4294967295", "4294967297", "9223372036854775807",
    "9223372036854775808", "-9223372036854775808", "18446744073709551615", "99999999999999999999999",
    // The last seconds of years that are the last that fit.
    "253402300799", "67767976233532799", "67768036191676799", "67768036191676800", "-67768040609740800", "1e9", "1e400",
    "0x10", "nan", "-nan", "inf", "1.5", ".5", "1,5", "+7", "007", "٧"};

constexpr const char* kOdd[] = {
    // Broken and rare characters.
    "\xC3", "\xC0\x80", "\xE0\x80\xAF", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x9F\x93\xBA", "\xFF\xFE",
    "\x80\x80", "\xEF\xBF\xBF", "\xF8\x88\x80\x80", "é", "닫기", "قناة", "\u200e", "\u202e",
    // What means something to a text, a format, a command line or a file.
    "<b>", "</b", "&amp;", "&#x200e;", "&", "<<A>>", "<<A>", "<br/>", "%s%n", "'", "\"", "\\", "\n", "\r\n", "\t", " ",
    ":", "::", "/", "-", "--", "=", ".", "..", "[", "]", "#", ";", "\x1b[31m", "\x7f", "\x01", "{}", "----"};

}  // namespace

std::string Dice::Number() {
  if (Chance(50)) return Any(kEnds);
  const std::string number = std::to_string(Below(Chance(50) ? 100 : 1'000'000));
  return Chance(15) ? "-" + number : number;
}

std::string Dice::Bytes(unsigned int most) {
  std::string text(Below(most + 1), ' ');
  for (char& byte : text) byte = static_cast<char>(Chance(30) ? 128 + Below(128) : 1 + Below(127));
  return text;
}

void Dice::Mutate(std::string& text) {
  const auto place = [&] { return static_cast<size_t>(Below(static_cast<unsigned int>(text.size()) + 1)); };
  const size_t from = place(), count = Below(8);
  switch (Below(12)) {
    case 0:
      text.resize(from);
      break;
    case 1:
      text.erase(0, from);
      break;
    case 2:
      text.erase(from, count);
      break;
    case 3:
      text += text;
      break;
    case 4:
      text.insert(place(), text.substr(from, count));
      break;
    case 5:
      text.insert(from, Bytes(6));
      break;
    case 6:
    case 7:
      text.insert(from, Any(kOdd));
      break;
    case 8:
    case 9: {
      constexpr const char* kDigits = "0123456789";
      const size_t first = std::min(text.find_first_of(kDigits, from), text.size());
      text.replace(first, text.find_first_not_of(kDigits, first) - first, Number());
      break;
    }
    case 10:
      if (from < text.size()) text[from] = static_cast<char>(1 + Below(255));
      break;
    default: {
      static constexpr size_t lengths[] = {255, 256, 510, 511, 512, 513, 1024, 2100, 20000};
      if (Chance(80) || text.empty()) break;
      const std::string whole = text;
      const size_t length = Any(lengths);
      while (text.size() < length) text += whole;
      text.resize(length);
    }
  }
}

std::string Dice::Mutated(std::string text) {
  for (unsigned int i = Below(4); i > 0; --i) Mutate(text);
  std::erase(text, '\0');
  return text;
}

std::function<std::string(Dice&)> Some(const Texts& words, unsigned int most, const std::string& between) {
  return [=](Dice& dice) {
    std::string text;
    for (unsigned int i = dice.Below(most) + 1; i > 0; --i) {
      const std::string& word = dice.Any(words);
      text += (text.empty() ? "" : between) + (dice.Chance(100 / most) ? dice.Mutated(word) : word);
    }
    return text;
  };
}

std::optional<std::u16string> Utf16(std::string_view text) {
  static const iconv_t decoder = iconv_open("UTF-16LE", "UTF-8");
  std::u16string units(text.size(), u' ');
  char *from = const_cast<char*>(text.data()), *to = reinterpret_cast<char*>(units.data());
  size_t left = text.size(), room = units.size() * sizeof(char16_t);
  const bool whole = iconv(decoder, &from, &left, &to, &room) != static_cast<size_t>(-1);
  iconv(decoder, nullptr, nullptr, nullptr, nullptr);
  units.resize(units.size() - room / sizeof(char16_t));
  return whole ? std::optional(units) : std::nullopt;
}

Texts Lines(const std::string& text, size_t least) {
  Texts lines;
  std::istringstream stream(text + "\n");
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  lines.resize(std::max(lines.size(), least));
  return lines;
}

std::pair<std::string, std::string> Halves(const std::string& text) {
  const size_t end = std::min(text.find('\n'), text.size());
  return {text.substr(0, end), text.substr(std::min(end + 1, text.size()))};
}

}  // namespace fuzz
