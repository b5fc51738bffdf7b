#include "TvsTest.h"

#include <algorithm>

#include "CacheManager.h"
#include "ChannelUtil.h"
#include "Gate.h"
#include "LogOutput.h"
#include "Store.h"
#include "TvsUtil.h"

namespace test {

namespace {

std::vector<std::string> g_lines;

void TakeLine(int, const char* text) {
  std::string line = text;
  if (!line.empty() && line.back() == '\n') line.pop_back();
  const size_t head = line.find(" > ");
  g_lines.push_back(head == std::string::npos ? line : line.substr(head + 3));
}

struct RolledBack {};

}  // namespace

OtherProcess::OtherProcess(const std::string& path) {
  if (sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(m_db));
  }
  sqlite3_busy_timeout(m_db, 5000);
  Execute("PRAGMA synchronous=OFF");
}

OtherProcess::~OtherProcess() { sqlite3_close(m_db); }

void OtherProcess::Execute(const std::string& sql) {
  if (sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(m_db));
  }
}

void ForgetKept() {
  CCacheManager::FlushCache();
  CTvsUtil::t_CacheEnabled = true;
  CTvsUtil::FlushCache();
  CTvsUtil::t_CacheEnabled = false;
  CTvsUtil::transponderID = -1;
  ChannelUtil::CacheFrequency = ChannelUtil::CacheBandWidth = -1;
}

std::string Ask(const std::string& sql) {
  desktop::Query q(sql);
  return q.Row() ? q.Text(0) : "";
}

void Change(const std::string& sql) {
  desktop::Store::Get().Write([&] { desktop::Store::Get().Execute(sql.c_str()); });
}

void InTransaction(const std::function<void()>& body) {
  try {
    desktop::Store::Get().Write([&] {
      body();
      throw RolledBack();
    });
  } catch (const RolledBack&) {
  }
}

std::vector<std::string> TakeLog() { return std::exchange(g_lines, {}); }

bool Contains(const std::vector<std::string>& log, const std::string& text) {
  return std::any_of(log.begin(), log.end(), [&](const auto& line) { return line.find(text) != std::string::npos; });
}

TvsTest::TvsTest(const std::string& profile) : m_tv(profile) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  desktop::WatchLog(TakeLine);
  ForgetKept();
  TakeLog();
}

}  // namespace test
