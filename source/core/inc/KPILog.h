// Usage records.
#pragma once

#include <string>

class CKPILog {
 public:
  enum LOG_TYPE { LOG_TYPE_SELECT_VALUE = 0, LOG_TYPE_CLICK = 1 };

  /// Records the item's current value under the event of `type`; a null ID counts as the empty ID.
  static void SendKpiLog(const char* itemID, LOG_TYPE type);

 private:
  static bool m_Describe(const std::string& itemID, LOG_TYPE type);

  static std::string m_strEventName, m_strCategory, m_streamDesc;
};
