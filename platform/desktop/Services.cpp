// Sound feedback, usage log, on-screen display: services that only take notice.
#include "Gate.h"
#include "avoc.h"
#include "feedback.h"
#include "kpi_log.h"
#include "st_operation.h"

using namespace desktop;

int feedback_play(int pattern) {
  return Gate::Pass<int>(op::feedback_play, Entry(pattern), [](Entry&) { return 0; });
}

int avoc_exit_osd() {
  return Gate::Pass<int>(op::avoc_exit_osd, Entry(), [](Entry&) { return 0; });
}

void ST_OPERATION_CALL(const char* operation, int option) {
  Gate::Run(op::ST_OPERATION_CALL, Entry(operation, option), [](Entry&) {});
}

namespace {

class UsageLog : public KPILogFramework::CLogger {
 public:
  int AddEventLogSync(const std::string& logId, const std::string& category, const std::string& event,
                      const std::string& description) override {
    return Gate::Pass<int>(op::AddEventLogSync, Entry(logId, category, event, description), [&](Entry&) {
      Store::Get().Write(
          [&] {
            Query("INSERT INTO usage (log, category, event, description) VALUES (?, ?, ?, ?)", logId, category, event,
                  description)
                .Run();
          },
          false);
      return 0;
    });
  }
};

}  // namespace

KPILogFramework::CLogger* KPILogFramework::CLogger::GetInstance() {
  static UsageLog log;
  return &log;
}
