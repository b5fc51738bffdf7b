// Texts that are filled in, and texts that are read.
#include <gtest/gtest.h>

#include "Keys.h"
#include "LogOutput.h"
#include "string_util.h"

namespace {

TEST(CombinateStrings, FillsAndCutsAtACharacter) {
  const struct {
    const char* format;
    size_t size;
    const char* expected;
  } cases[] = {{"<<A>> items", 63, "one items"},
               {"<<B>><<A>><<B>>", 63, "zweionezwei"},
               {"<<D>>|<<C>>|<<E>>|<<A>|<<", 63, "||<<E>>|<<A>|<<"},
               {"plain", 63, "plain"},
               {"", 63, ""},
               {"<<A>>", 4, "one"},
               {"<<A>>", 3, "on"},
               {"<<A>>", 1, ""},
               {"aé", 4, "aé"},
               {"aé", 3, "a"},
               {"닫기", 6, "닫"},
               {"닫기", 4, "닫"},
               {"닫기", 3, ""},
               {"\x80\x80\x80\x80\x80\x80", 5, "\x80\x80\x80\x80"}};
  for (const auto& [format, size, expected] : cases) {
    std::string out(64, '#');
    EXPECT_TRUE(CStringUtil::CombinateStrings(out.data(), size, format, "one", "zwei", nullptr));
    EXPECT_STREQ(out.c_str(), expected) << format;
    EXPECT_EQ(out[size], '#') << format << ": nothing behind the end";
  }
  char out[8] = "kept";
  EXPECT_FALSE(CStringUtil::CombinateStrings(out, 0, "x", "y"));
  EXPECT_FALSE(CStringUtil::CombinateStrings(out, 8, nullptr, "y"));
  EXPECT_FALSE(CStringUtil::CombinateStrings(nullptr, 8, "x", "y"));
  EXPECT_STREQ(out, "kept");
}

/// "Down; wait 2.5; shot a.png", or "wrong: " and the word.
std::string Steps(const std::string& text) {
  std::vector<desktop::Step> steps;
  std::string wrong, told;
  if (!desktop::ParseSteps(text, steps, wrong)) return "wrong: " + wrong;
  for (const desktop::Step& step : steps) {
    told += told.empty() ? "" : "; ";
    if (step.kind == desktop::Step::kShot) told += "shot ";
    told += step.kind == desktop::Step::kWait ? "wait " + std::to_string(step.seconds).substr(0, 3) : step.text;
  }
  return told;
}

TEST(Keys, AreReadFromAText) {
  const std::pair<const char*, const char*> cases[] = {
      {"Down  Return\twait:2.5 shot:a.png", "Down; Return; wait 2.5; shot a.png"},
      {"Back Escape KP_Enter KP_7 Page_Up", "XF86Back; XF86Back; Return; 7; XF86RaiseChannel"},
      {"", ""},
      {"wait:0 wait:86400", "wait 0.0; wait 864"},
      {"Down down", "wrong: down"},
      {"wait:inf", "wrong: wait:inf"},
      {"wait:86401", "wrong: wait:86401"},
      {"Return, Down", "wrong: Return,"},
      {"10", "wrong: 10"}};
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

}  // namespace
