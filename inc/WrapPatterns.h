// A process-wide instance made on first use.
#pragma once

#include <mutex>

#include "Log.h"

/// The instance is made under a mutex and lives until the process ends.
template <class T>
class Singleton {
 public:
  static T* GetInstance() {
    if (!m_pSingleton) {
      LOG_ERROR(" GetInstance is nullptr ");
      const std::lock_guard lock(m_mutex);
      if (!m_pSingleton) m_pSingleton = new T;
    }
    return m_pSingleton;
  }

  static inline T* m_pSingleton = nullptr;
  static inline std::mutex m_mutex;
};
