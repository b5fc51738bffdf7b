#include <algorithm>
#include <cctype>

#include "Fuzz.h"

namespace fuzz {

namespace {

constexpr const char* kEnds[] = {
    "0",
    "1",
    "-1",
    "-0",
    "255",
    "256",
    "65534",
    "65535",
    "65536",
    "47000",
    "890000",
    "2147483646",
    "2147483647",
    "2147483648",
    "-2147483648",
    "-2147483649",
    "4294967295",
    "4294967297",
    "9223372036854775807",
    "9223372036854775808",
    "-9223372036854775808",
    "18446744073709551615",
    "99999999999999999999999",
    // The last seconds of years that are the last that fit.
    "253402300799",
    "67767976233532799",
    "67768036191676799",
    "67768036191676800",
    "-67768040609740800",
    "1e9",
    "1e400",
    "0x10",
    "nan",
    "-nan",
    "inf",
    "1.5",
    ".5",
    "1,5",
    "+7",
    "007",
    "٧",
};

constexpr const char* kOdd[] = {
    "\xC3",
    "\xC0\x80",
    "\xE0\x80\xAF",
    "\xE2\x82",
    "\xED\xA0\x80",
    "\xF4\x90\x80\x80",
    "\xF0\x9F\x93\xBA",
    "\xFF\xFE",
    "\x80\x80",
    "\xEF\xBF\xBF",
    "\xF8\x88\x80\x80",
    "é",
    "닫기",
    "قناة",
    "\u200e",
    "\u202e",
    "<b>",
    "</b",
    "&amp;",
    "&#x200e;",
    "&",
    "<<A>>",
    "<<A>",
    "<br/>",
    "%s%n",
    "'",
    "\"",
    "\\",
    "\n",
    "\r\n",
    "\t",
    " ",
    ":",
    "::",
    "/",
    "-",
    "--",
    "=",
    ".",
    "..",
    "[",
    "]",
    "#",
    ";",
    "\x1b[31m",
    "\x7f",
    "\x01",
    "{}",
    "----",
};

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
      const auto digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
      const auto first = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), digit);
      text.replace(first, std::find_if_not(first, text.end(), digit), Number());
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

bool IsUtf8(std::string_view text) {
  for (size_t at = 0; at < text.size();) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(at + i < text.size() ? text[at + i] : 0); };
    const unsigned char first = byte(0);
    const size_t length = first < 0x80                    ? 1
                          : first >= 0xC2 && first < 0xE0 ? 2
                          : first >= 0xE0 && first < 0xF0 ? 3
                          : first >= 0xF0 && first < 0xF5 ? 4
                                                          : 0;
    if (length == 0) return false;
    for (size_t i = 1; i < length; ++i) {
      if ((byte(i) & 0xC0) != 0x80) return false;
    }
    const bool overlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool beyond = (first == 0xED && byte(1) > 0x9F) || (first == 0xF4 && byte(1) > 0x8F);
    if (overlong || beyond) return false;
    at += length;
  }
  return true;
}

Texts Lines(const std::string& text) {
  Texts lines(1);
  for (const char byte : text) {
    if (byte == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += byte;
    }
  }
  return lines;
}

}  // namespace fuzz
