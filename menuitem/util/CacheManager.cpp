#include "CacheManager.h"

#include <chrono>

#include "Log.h"

CCacheManager* CCacheManager::m_pCacheMgrInstance = nullptr;

unsigned long long GetCurrentTimeStamp() {
  const long long nanoseconds = std::chrono::system_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
  return static_cast<unsigned long long>(nanoseconds / 1000000);
}

template <>
std::string GetStringFromTemplate(const ESource& value) {
  std::ostringstream text;
  text << static_cast<int>(value);
  return text.str();
}

template <>
std::string GetStringFromTemplate(const TCCriteriaHelper&) {
  return "cannot print TCCriteriaHelper";
}

CCacheManager* CCacheManager::GetInstance() {
  if (!m_pCacheMgrInstance) m_pCacheMgrInstance = new CCacheManager;
  return m_pCacheMgrInstance;
}

void CCacheManager::FlushCache() { GetInstance()->m_FlushCache(); }

int CCacheManager::m_FlushCache() {
  m_entries.clear();
  return 0;
}

int CCacheManager::PrintCachedData() {
  for (const auto& [key, info] : m_entries) {
    LOG_DEBUG(" key : %s%s", key.c_str(), info ? info->GetValueByString().c_str() : "INVALID!");
  }
  return 0;
}

CCacheManager::~CCacheManager() { m_FlushCache(); }
