// Texts that are filled in, and texts that are read.
#include <gtest/gtest.h>

#include "Keys.h"
#include "LogOutput.h"
#include "Options.h"
#include "string_util.h"

namespace {

TEST(CombinateStrings, FillsAndCutsAtACharacter) {
  struct Case {
    const char* format;
    size_t size;
    const char* expected;
  };
  const Case cases[] = {
      {"<<A>> items", 64, "one items"},
      {"<<B>><<A>><<B>>", 64, "zweionezwei"},
      {"<<D>>|<<C>>|<<E>>|<<A>|<<", 64, "||<<E>>|<<A>|<<"},
      {"plain", 64, "plain"},
      {"", 64, ""},
      {"<<A>>", 4, "one"},
      {"<<A>>", 3, "on"},
      {"<<A>>", 1, ""},
      {"aé", 4, "aé"},
      {"aé", 3, "a"},
      {"닫기", 6, "닫"},
      {"닫기", 4, "닫"},
      {"닫기", 3, ""},
  };
  for (const Case& c : cases) {
    char out[64];
    memset(out, '#', sizeof out);
    EXPECT_TRUE(CStringUtil::CombinateStrings(out, c.size, c.format, "one", "zwei", nullptr));
    EXPECT_STREQ(out, c.expected) << c.format;
    EXPECT_TRUE(c.size == sizeof out || out[c.size] == '#') << "nothing behind the end";
  }
  char out[8] = "kept";
  EXPECT_FALSE(CStringUtil::CombinateStrings(out, 0, "x", "y"));
  EXPECT_FALSE(CStringUtil::CombinateStrings(out, 8, nullptr, "y"));
  EXPECT_FALSE(CStringUtil::CombinateStrings(nullptr, 8, "x", "y"));
  EXPECT_STREQ(out, "kept");
}

/// "key Down; wait 2.5; shot a.png", or "wrong: " and the word.
std::string Steps(const std::string& text) {
  std::vector<desktop::Step> steps;
  std::string wrong, told;
  if (!desktop::ParseSteps(text, steps, wrong)) return "wrong: " + wrong;
  for (const desktop::Step& step : steps) {
    const char* kind = step.kind == desktop::Step::kKey    ? "key "
                       : step.kind == desktop::Step::kWait ? "wait "
                                                           : "shot ";
    told += (told.empty() ? "" : "; ") + std::string(kind) +
            (step.kind == desktop::Step::kWait ? std::to_string(step.seconds).substr(0, 3) : step.text);
  }
  return told;
}

TEST(Keys, AreReadFromAText) {
  const std::pair<const char*, const char*> cases[] = {
      {"Down  Return\twait:2.5 shot:a.png", "key Down; key Return; wait 2.5; shot a.png"},
      {"Back Escape KP_Enter KP_7 Page_Up", "key XF86Back; key XF86Back; key Return; key 7; key XF86RaiseChannel"},
      {"", ""},
      {"wait:0 wait:86400", "wait 0.0; wait 864"},
      {"Down down", "wrong: down"},
      {"wait:", "wrong: wait:"},
      {"wait:-1", "wrong: wait:-1"},
      {"wait:nan", "wrong: wait:nan"},
      {"wait:inf", "wrong: wait:inf"},
      {"wait:86401", "wrong: wait:86401"},
      {"wait:2s", "wrong: wait:2s"},
      {"shot:", "wrong: shot:"},
      {"Return, Down", "wrong: Return,"},
      {"10", "wrong: 10"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Steps(text), expected) << text;
}

TEST(Keys, EachKeyAndAliasIsAKey) {
  for (const char* key : desktop::RemoteKeys()) EXPECT_STREQ(desktop::RemoteKey(key), key);
  for (const desktop::KeyAlias& alias : desktop::KeyAliases()) {
    EXPECT_STREQ(desktop::RemoteKey(alias.alias), alias.key);
    EXPECT_STREQ(desktop::RemoteKey(alias.key), alias.key) << "an alias leads to a key, not to another alias";
  }
  EXPECT_EQ(desktop::RemoteKey(""), nullptr);
}

std::string WrongOptions(std::vector<std::string> words) {
  words.insert(words.begin(), "quirelle");
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  try {
    desktop::ParseOptions(static_cast<int>(pointers.size()), pointers.data());
  } catch (const desktop::UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(Options, SayWhichWordIsWrong) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"tv-rating", "--keys", "Down", "--extra", "a=b", "--extra=c=d=e", "--log=info", "--dump", "-"}, ""},
      {{"tv-rating", "--keys=Down Dwon"}, "--keys 'Dwon': no key of the remote"},
      {{"--keys"}, "--keys: a value is missing"},
      {{"--extra", "novalue"}, "--extra 'novalue': wants KEY=VALUE"},
      {{"--extra", "=x"}, "--extra '=x': wants KEY=VALUE"},
      {{"--log", "loud"}, "--log 'loud': wants off, error or info"},
      {{"--nonsense"}, "unknown option '--nonsense'"},
      {{"a", "b"}, "more than one menu ID: 'a' and 'b'"},
  };
  for (const auto& [words, expected] : cases) EXPECT_EQ(WrongOptions(words), expected);
}

}  // namespace
