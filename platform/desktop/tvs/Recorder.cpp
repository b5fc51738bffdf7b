// The recorder, and the clock.
#include <libintl.h>

#include <ctime>

#include "Gate.h"
#include "State.h"
#include "pvr_client.h"
#include "time_util.h"

using namespace desktop;

namespace {

constexpr int kCallFailed = -2;
constexpr int kHalfDay = 12, kWholeDay = 24;
constexpr int kFirstYear = 1900, kLastYear = 9999;

CTimeInfo::Clock ReadClock() {
  if (TvState("clock_hours", kWholeDay) != kHalfDay) return CTimeInfo::CLOCK_24_HOURS;
  Query q("SELECT value IN ('ko_KR.utf8', 'ja_JP.utf8') FROM setting WHERE key = 'db/menu_widget/language'");
  return q.Row() && q.Int(0) ? CTimeInfo::CLOCK_12_HOURS_WORD_FIRST : CTimeInfo::CLOCK_12_HOURS;
}

int Ask(const Operation& operation, const char* sql, unsigned long long serviceId, int* result) {
  return Gate::Pass<int>(operation, Entry(serviceId), [&](Entry& entry) {
    if (!result) return kCallFailed;
    Query q(sql, static_cast<int64_t>(serviceId));
    *result = q.Row() && q.Int(0) ? 1 : 0;
    entry.Out(*result);
    return 0;
  });
}

}  // namespace

int svc_pvr_service_init() {
  return Gate::Pass<int>(op::svc_pvr_service_init, Entry(), [](Entry&) { return 1; });
}

int svc_pvr_is_recording(unsigned long long serviceId, int* result) {
  return Ask(op::svc_pvr_is_recording, "SELECT recording FROM recorder WHERE service = ?", serviceId, result);
}

int svc_pvr_is_timeshifting(unsigned long long serviceId, int* result) {
  return Ask(op::svc_pvr_is_timeshifting, "SELECT timeshifting FROM recorder WHERE service = ?", serviceId, result);
}

void svc_pvr_service_destroy() {
  Gate::Run(op::svc_pvr_service_destroy, Entry(), [](Entry&) {});
}

unsigned long long CTimeUtil::GetCurrentTime() {
  return Gate::Pass<unsigned long long>(op::TimeUtil_GetCurrentTime, Entry(), [](Entry&) -> unsigned long long {
    if (!TvState("clock_set", 1)) return 0;
    const int64_t now = NowMilliseconds() / 1000 + TvState("clock_offset", 0);
    return static_cast<unsigned long long>(now);
  });
}

int CTimeUtil::GetClockMode() {
  return Gate::Pass<int>(op::TimeUtil_GetClockMode, Entry(),
                         [](Entry&) { return static_cast<int>(TvState("clock_mode", 0)); });
}

int CTimeUtil::ConvertToLocalTime(unsigned long long epochSeconds, CTimeInfo& info) {
  return Gate::Pass<int>(op::TimeUtil_ConvertToLocalTime, Entry(epochSeconds), [&](Entry&) {
    const time_t seconds = static_cast<time_t>(epochSeconds);
    tm parts;
    if (seconds < 0 || !localtime_r(&seconds, &parts) || parts.tm_year > kLastYear - kFirstYear) return -1;
    info.year = parts.tm_year + kFirstYear;
    info.month = parts.tm_mon + 1;
    info.day = parts.tm_mday;
    info.hour = parts.tm_hour;
    info.minute = parts.tm_min;
    info.second = parts.tm_sec;
    info.clock = ReadClock();
    return 0;
  });
}

std::string CTimeInfo::GetTimeString() const {
  char text[32];
  if (clock == CLOCK_24_HOURS) {
    snprintf(text, sizeof text, "%02d:%02d", hour, minute);
    return text;
  }
  const std::string word = dgettext("quirelle", hour < kHalfDay ? "SID_AM_ABBR_4" : "SID_PM_ABBR_4");
  snprintf(text, sizeof text, "%02d:%02d", (hour + kHalfDay - 1) % kHalfDay + 1, minute);
  return clock == CLOCK_12_HOURS ? text + (" " + word) : word + " " + text;
}
