// The recorder, the clock, the names of the inputs, operator profiles.
#include "ca_api.h"
#include "pvr_client.h"
#include "source_api.h"
#include "time_util.h"

/// 1 is success.
int svc_pvr_service_init() { return 0; }

/// 0 and `*result` 1 or 0; -2 is failure.
int svc_pvr_is_recording(unsigned long long serviceId, int* result) { return -2; }

int svc_pvr_is_timeshifting(unsigned long long serviceId, int* result) { return -2; }

void svc_pvr_service_destroy() {}

/// Seconds since the epoch; 0 while the clock is not set.
unsigned long long CTimeUtil::GetCurrentTime() { return 0; }

/// 0 set by the broadcast, 1 by hand; negative is failure.
int CTimeUtil::GetClockMode() { return -1; }

/// 0, or a negative code with `info` as it was.
int CTimeUtil::ConvertToLocalTime(unsigned long long epochSeconds, CTimeInfo& info) { return -1; }

/// The time of day as the set shows it.
std::string CTimeInfo::GetTimeString() const { return {}; }

namespace {

class SourceNames : public CSourceAPI {
 public:
  /// 0 and the user's name for an input, empty without one; or a negative code with `name` as it was.
  int GetSourceEditName(ESource source, std::string& name, int option) override { return -1; }
};

}  // namespace

/// Never null.
CSourceAPI* CSourceAPI::Get() {
  static SourceNames names;
  return &names;
}

/// Null when the service does not answer.
CA_API::CAOperatorProfile* CA_API::CAService::CAOperatorProfileInstance() { return nullptr; }
