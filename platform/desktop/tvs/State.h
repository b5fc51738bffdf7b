// Single numbers of the TV service, and its clock.
#pragma once

#include <cstdint>

namespace desktop {

/// Milliseconds since the epoch.
int64_t NowMilliseconds();

/// A number of the service by its name.
int64_t TvState(const char* name, int64_t missing);
void SetTvState(const char* name, int64_t value);

}  // namespace desktop
