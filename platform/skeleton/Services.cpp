// Services that take notice, and the platform's helpers.
#include "avoc.h"
#include "dlog.h"
#include "feedback.h"
#include "kpi_log.h"
#include "st_operation.h"
#include "string_util.h"

/// Bytes written; 0 for a priority below the set's level, which costs no formatting.
int dlog_print(log_priority prio, const char* tag, const char* fmt, ...) { return 0; }

/// Plays a sound of the interface: 0, or a negative code.
int feedback_play(int pattern) { return -1; }

/// Leaves on-screen-display mode: 0, or a negative code.
int avoc_exit_osd() { return -1; }

/// Word to the set's self-test.
void ST_OPERATION_CALL(const char* operation, int option) {}

/// `format` with its placeholders filled, cut at a character boundary; false for a null `out` or `format`.
bool CStringUtil::CombinateStrings(char* out, size_t size, const char* format, const char* s1, const char* s2,
                                   const char* s3, const char* s4) {
  return false;
}

bool CStringUtil::UnicodeToUtf8(char* out, size_t size, const char16_t* units, int length) { return false; }

namespace {

class UsageLog : public KPILogFramework::CLogger {
 public:
  /// Written when it returns: 0, or a negative code.
  int AddEventLogSync(const std::string& logId, const std::string& category, const std::string& event,
                      const std::string& description) override {
    return -1;
  }
};

}  // namespace

/// Never null.
KPILogFramework::CLogger* KPILogFramework::CLogger::GetInstance() {
  static UsageLog log;
  return &log;
}
