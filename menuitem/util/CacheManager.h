// Answers of the TV service that a burst of drawing asks for again and again, kept for half a second.
#pragma once

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include "tvs_criteria.h"

/// Milliseconds since the epoch by the wall clock.
unsigned long long GetCurrentTimeStamp();

template <class T>
std::string GetStringFromTemplate(const T& value);
template <>
std::string GetStringFromTemplate(const ESource& value);
template <>
std::string GetStringFromTemplate(const TCCriteriaHelper& value);

class ICacheInfo {
 public:
  virtual ~ICacheInfo() = default;
  /// The value and its time stamp as text.
  virtual std::string GetValueByString() = 0;
};

/// One kept value. A time stamp of 0 marks a value that must not be used.
template <class T>
class CCacheInfo : public ICacheInfo {
 public:
  CCacheInfo(const T& kept, unsigned long long at) : value(kept), timeStamp(at) {}
  std::string GetValueByString() override {
    std::ostringstream text;
    text << " value : ";
    if constexpr (std::is_same_v<T, ESource> || std::is_same_v<T, TCCriteriaHelper>) {
      text << GetStringFromTemplate<T>(value);
    } else {
      text << value;
    }
    text << " time : " << timeStamp;
    return text.str();
  }

  T value;
  unsigned long long timeStamp;
};

/// For the main loop only: nothing guards the map.
class CCacheManager {
 public:
  /// A value may be used this many milliseconds after it was stored.
  static constexpr unsigned long long kLifetime = 500;

  static CCacheManager* GetInstance();
  static void FlushCache();
  int m_FlushCache();
  /// Logs one line for each entry.
  int PrintCachedData();
  ~CCacheManager();

  /// The value under `key`, or null when there is none of this type that is fresh enough (`lifetime` in
  /// milliseconds). Belongs to the entry.
  template <class T>
  const T* Find(const std::string& key, unsigned long long lifetime = kLifetime) const {
    const auto* info = Entry<T>(key);
    if (!info || info->timeStamp == 0) return nullptr;
    return GetCurrentTimeStamp() - info->timeStamp <= lifetime ? &info->value : nullptr;
  }
  /// The same whatever its age.
  template <class T>
  const T* FindStored(const std::string& key) const {
    const auto* info = Entry<T>(key);
    return info && info->timeStamp != 0 ? &info->value : nullptr;
  }
  /// Keeps a value; an entry of another type stays as it is.
  template <class T>
  void Store(const std::string& key, const T& value) {
    auto& entry = m_entries[key];
    if (!entry) {
      entry = std::make_unique<CCacheInfo<T>>(value, GetCurrentTimeStamp());
    } else if (auto* info = dynamic_cast<CCacheInfo<T>*>(entry.get())) {
      info->value = value;
      info->timeStamp = GetCurrentTimeStamp();
    }
  }

 private:
  template <class T>
  const CCacheInfo<T>* Entry(const std::string& key) const {
    const auto found = m_entries.find(key);
    return found == m_entries.end() ? nullptr : dynamic_cast<const CCacheInfo<T>*>(found->second.get());
  }

  static CCacheManager* m_pCacheMgrInstance;
  std::map<std::string, std::unique_ptr<ICacheInfo>> m_entries;
};
