// A TV and the classes over it, without the program: what keeps something between calls is made anew.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "CacheManager.h"
#include "ChannelUtil.h"
#include "Process.h"
#include "TvsUtil.h"

namespace test {

/// Forgets what the classes keep.
inline void ForgetKept() {
  CCacheManager::FlushCache();
  CTvsUtil::t_CacheEnabled = true;
  CTvsUtil::FlushCache();
  CTvsUtil::t_CacheEnabled = false;
  CTvsUtil::transponderID = -1;
  ChannelUtil::CacheFrequency = ChannelUtil::CacheBandWidth = -1;
}

/// Texts of the log since the last call.
inline Texts TakeLog() {
  Texts log = Log();
  ClearLog();
  return log;
}

/// Whether one of the log's texts has this in it.
inline bool Contains(const Texts& log, const std::string& text) {
  return std::any_of(log.begin(), log.end(), [&](const auto& line) { return line.find(text) != line.npos; });
}

/// What is written to the TV meanwhile is taken back.
inline void TakingBack(const std::function<void()>& body) {
  struct TakenBack {};
  try {
    desktop::Store::Get().Write([&] {
      body();
      throw TakenBack();
    });
  } catch (const TakenBack&) {
  }
}

template <class Value>
std::string Text(Value value) {
  return std::to_string(static_cast<long long>(value));
}
inline std::string Text(const std::string& text) { return text; }
inline std::string Text(char* owned) {
  std::string copy = owned ? owned : "null";
  free(owned);
  return copy;
}

constexpr const char* kNoStatus = "{\n\t\"Progress\" : 0,\n\t\"SlotFrequency\" : -1,\n\t\"SlotNumber\" : 0\n}";

class TvsTest : public testing::Test {
 protected:
  explicit TvsTest(const std::string& profile = "europe") : m_tv(profile) {
    ForgetKept();
    ClearLog();
  }
  /// What quirelle-tv says of this TV in a process of its own; null, and in one line why, when it refuses.
  Json::Value Command(Texts words) {
    words.insert(words.begin(), {"--tv", m_tv.Path()});
    words.emplace_back("--json");
    const Outcome outcome = Execute("quirelle-tv", words);
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 2) << outcome.errors;
    EXPECT_EQ(outcome.status == 0, outcome.errors.empty()) << outcome.errors;
    return outcome.status == 0 ? Parsed(outcome.output) : Json::Value();
  }
  void SetCountry(int country) { m_tv.Set("system_settings/57", std::to_string(country)); }

  Tv m_tv;
};

/// One public operation, its result as text, and what it answers when a call of it fails.
struct PublicOperation {
  std::string name;
  std::function<std::string()> run;
  std::string failure;
};
std::vector<PublicOperation> PublicOperations();

}  // namespace test
