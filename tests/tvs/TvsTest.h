// A TV and the classes over it, without the program: what keeps something between calls is made anew.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "CacheManager.h"
#include "ChannelUtil.h"
#include "Harness.h"
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

class TvsTest : public testing::Test {
 protected:
  explicit TvsTest(const std::string& profile = "europe") : m_tv(profile) {
    ForgetKept();
    ClearLog();
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
