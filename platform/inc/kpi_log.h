// Usage-log framework.
#pragma once

#include <string>

namespace KPILogFramework {

class CLogger {
 public:
  virtual ~CLogger() = default;
  /// Never null; owned by the platform.
  static CLogger* GetInstance();
  /// Writes one usage record before it returns: 0 on success, a negative code otherwise.
  virtual int AddEventLogSync(const std::string& logId, const std::string& category, const std::string& event,
                              const std::string& description) = 0;
};

}  // namespace KPILogFramework
