#include "CacheManager.h"
#include "Log.h"
#include "TvsShared.h"
#include "TvsUtil.h"

namespace {

struct Range {
  int first, last;
};
constexpr Range kHdmiSources[] = {{13, 16}, {38, 39}, {46, 47}};

}  // namespace

int CTvsUtil::GetCurrentSource(EProfile profile) {
  CCacheManager* cache = CCacheManager::GetInstance();
  const char* key = profile == PROFILE_MAIN ? "GetCurrentSource_MAIN" : "GetCurrentSource_PIP";
  if (const auto* kept = cache->Find<ESource>(key)) {
    LOG_INFO("return cached value");
    return *kept;
  }
  int* known = profile == PROFILE_MAIN ? &t_CacheSrc : profile == PROFILE_PIP ? &t_CacheSrcPip : nullptr;
  if (!t_CacheEnabled) known = nullptr;
  if (known && *known != -1) return *known;
  LOG_DEBUG("eProfile : %d", profile);
  CTVSApiWrapper api;
  ISourceControl* control = api.CreateSourceControl(profile, 0);
  int source = -1;
  if (!control) {
    LOG_ERROR("CreateSourceControl fails");
    return -1;
  }
  const bool read = control->GetSource(source) > 0;
  LOG_DEBUG("Current Source Type is  %d", source);
  if (!read) return -1;
  if (known) *known = source;
  cache->Store(key, static_cast<ESource>(source));
  return source;
}

bool CTvsUtil::FlagTvSource(EProfile profile) {
  const bool tuner = GetCurrentSource(profile) == SOURCE_TYPE_TV;
  if (tuner) {
    LOG_DEBUG("Current Source Type is SOURCE_TYPE_TV.");
  } else {
    LOG_DEBUG("Current Source Type is not SOURCE_TYPE_TV.");
  }
  LOG_INFO("current source:%d ", tuner);
  return tuner;
}

bool CTvsUtil::FlagExternalSource(EProfile profile) {
  const bool external = GetCurrentSource(profile) != SOURCE_TYPE_TV;
  if (external) {
    LOG_DEBUG("Current Source Type is EXTERNALSOURCE.");
  } else {
    LOG_DEBUG("Current Source Type is SOURCE_TYPE_TV.");
  }
  return external;
}

int CTvsUtil::GetCurrentSourceInfo() { return tvs::ReadMainSource(); }

bool CTvsUtil::IsCurrentSourceHDMI() {
  const int source = GetCurrentSourceInfo();
  for (const Range& range : kHdmiSources) {
    if (source >= range.first && source <= range.last) return true;
  }
  return false;
}

int CTvsUtil::GetCurrentState(EProfile profile) {
  LOG_DEBUG("eProfile : %d", profile);
  CTVSApiWrapper api;
  ISourceControl* control = api.CreateSourceControl(profile, 0);
  if (!control) {
    LOG_ERROR("CreateSourceControl fails");
    return -1;
  }
  int state = -1;
  if (control->GetSourceState(state) <= 0) {
    LOG_ERROR("GetSourceState failed");
    return -1;
  }
  LOG_DEBUG("Current Source State : %d", state);
  return state;
}

bool CTvsUtil::SetSource() {
  const bool done = tvs::BackToTuner(GetCurrentServiceId);
  if (t_CacheEnabled) t_CacheSrc = -1;
  return done;
}
