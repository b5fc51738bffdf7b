#include "ChannelUtil.h"

#include <cstdio>
#include <cstdlib>

#include "Log.h"
#include "TextUtil.h"
#include "TvsShared.h"
#include "time_util.h"
#include "util.h"

int ChannelUtil::CacheFrequency = -1;
int ChannelUtil::CacheBandWidth = -1;
int ChannelUtil::transponderID = -1;

namespace {

constexpr int kTextSize = 512;
constexpr int kChannelColumns[] = {1, 12, 22, 2, 13, 14, 3};
constexpr int kPrevious = 1;

void LogNullProxy(bool pip) {
  if (pip) {
    LOG_DEBUG("Null: Pip Proxy");
  } else {
    LOG_DEBUG("Null: Proxy");
  }
}

void LogNoService() { LOG_ERROR("Create Service failed!!"); }

constexpr tvs::ReadMessages kMessages = {LogNullProxy, LogNoService};

/// Categories of the channel list as navigation modes; a parameter from `first` to `last`, 0 to ~0 for any.
struct CategoryRow {
  int category, navigation;
  unsigned long long first, last;
};
constexpr CategoryRow kCategories[] = {
    {0, 0, 0, ~0ULL}, {1, 11, 1, 1},     {1, 12, 2, 2},     {1, 13, 3, 3},    {2, 7, 0, 0},
    {2, 6, 1, 1},     {3, 2, 0, 0},      {3, 1, 1, 1},      {4, 4, 0, ~0ULL}, {5, 8, 0, ~0ULL},
    {6, 3, 1, 5},     {7, 10, 0, ~0ULL}, {8, 16, 0, ~0ULL},
};

ENavigationMode NavigationOf(const CCNavigationModeInfo& info) {
  bool known = false;
  for (const CategoryRow& row : kCategories) {
    if (row.category != info.eMode) continue;
    known = true;
    if (info.para >= row.first && info.para <= row.last) return static_cast<ENavigationMode>(row.navigation);
  }
  if (known) {
    LOG_DEBUG("other case");
  } else {
    LOG_DEBUG("invaild case");
  }
  return NAVIGATION_ALL;
}

/// Criteria of the favourite list that the user has chosen.
bool FavouriteCriteria(const TSTvMode& mode, TCCriteriaHelper& criteria) {
  CCCategoryUtil* categories = CCCategoryUtil::GetInstance();
  if (!categories) {
    LOG_ERROR("pCategoryUtil is NULL");
    return false;
  }
  CCNavigationModeInfo info;
  if (categories->GetCurrentCategory(mode, info) <= 0) {
    LOG_ERROR("GetCurrentCategory fails");
    return false;
  }
  return TCNavigationModeHelper::GetNavigationCriteria(NAVIGATION_FAVOURITE, info.para, criteria);
}

bool ChannelCriteria(const TSTvMode& mode, ENavigationMode navigation, bool onlyDigital, TCCriteriaHelper& criteria) {
  const bool built = navigation == NAVIGATION_FAVOURITE
                         ? FavouriteCriteria(mode, criteria)
                         : TCNavigationModeHelper::GetNavigationCriteria(mode, navigation, criteria);
  if (!built) {
    LOG_ERROR("GetNavigationCriteria fails");
    return false;
  }
  for (const int column : kChannelColumns) criteria.Fetch(column);
  criteria.WhereNot(COLUMN_CHANNEL_TYPE, CHANNEL_VIRTUAL);
  if (onlyDigital) criteria.Where(COLUMN_DIGITAL, 1);
  return true;
}

/// Up to six numbers of a note; false when there is not one.
bool ParseNote(const std::string& entry, unsigned long long (&data)[6]) {
  size_t count = 0;
  for (size_t at = 0; count < 6 && at < entry.size();) {
    const size_t end = std::min(entry.find(':', at), entry.size());
    const std::string token = entry.substr(at, end - at);
    at = end + 1;
    if (token.empty()) continue;
    LOG_DEBUG(" token is [%s] ", token.c_str());
    data[count++] = static_cast<unsigned long long>(std::strtoll(token.c_str(), nullptr, 10));
  }
  return count > 0;
}

void WriteTime(unsigned long long seconds, char* date, char* time) {
  CTimeInfo info;
  if (seconds == 0 || CTimeUtil::ConvertToLocalTime(seconds, info) != 0) {
    LOG_ERROR(" Invalid Date ");
    snprintf(date, kTextSize, "----/--/--");
    snprintf(time, kTextSize, "--:--");
    return;
  }
  snprintf(date, kTextSize, "%d/%02d/%02d", info.year, info.month, info.day);
  snprintf(time, kTextSize, "%s", info.GetTimeString().c_str());
}

/// Fills what the caller left open from the current channel.
bool CompleteFromCurrent(int& major, int& minor, int& channelType) {
  if (major != -1 && minor != -1 && channelType != -1) return true;
  tvs_ch_info* record = ChannelUtil::m_TvServiceChannelGetInfo(false);
  if (!record) {
    LOG_ERROR("m_TvServiceChannelGetInfo fails");
    return false;
  }
  if (major == -1) major = record->major;
  if (minor == -1) minor = record->minor;
  if (channelType == -1) channelType = record->channelType;
  ChannelUtil::m_TvServiceChannelDelInfo(record);
  return true;
}

}  // namespace

int ChannelUtil::m_GetModes(TSTvMode* mode, ENavigationMode* navi, bool pip) { return tvs::ReadModes(mode, navi, pip); }

int ChannelUtil::m_GetCriteria(TCCriteriaHelper& out, TSTvMode* mode, bool pip) {
  TSTvMode current;
  ENavigationMode navi;
  if (m_GetModes(&current, &navi, pip) != 0) return -1;
  if (mode) *mode = current;
  return tvs::FullCriteria(out, current);
}

int ChannelUtil::m_GetCriteria(TCCriteriaHelper& out, const TSTvMode& mode) { return tvs::ShortCriteria(out, mode); }

void ChannelUtil::m_GetChannelInfo(tvs_ch_info* record, TCServiceData* data) {
  tvs::FillRecord(record, data, m_GetSymbolRate);
}

unsigned short ChannelUtil::m_GetSymbolRate(TCServiceData* data, unsigned short channelNumber, EProfile) {
  return tvs::SymbolRate(data, channelNumber, GetSignalKind());
}

tvs_ch_info* ChannelUtil::m_TvServiceChannelGetInfo(bool pip) {
  TCCriteriaHelper criteria;
  TSTvMode mode;
  if (m_GetCriteria(criteria, &mode, pip) != 0) return nullptr;
  return tvs::NewRecord(mode, criteria, pip, kMessages, m_GetSymbolRate);
}

void ChannelUtil::m_TvServiceChannelDelInfo(tvs_ch_info* record) { delete record; }

tvs_ch_info* ChannelUtil::m_GetSignalInfo() { return m_TvServiceChannelGetInfo(false); }

void ChannelUtil::GetTSTvMode(TSTvMode& mode, EProfile) {
  ENavigationMode navi;
  if (m_GetModes(&mode, &navi, false) != 0) LOG_ERROR("m_GetModes failed!");
}

int ChannelUtil::GetCurrentServiceId(unsigned long long& id, bool pip) {
  LOG_INFO("PIP : %d", pip);
  if (tvs::ReadServiceId(id, pip, m_GetCriteria) != 0) return -1;
  LOG_DEBUG("service ID : %llu", id);
  return 0;
}

int ChannelUtil::SetService(unsigned long long id, bool pip) { return tvs::TuneService(id, pip); }

bool ChannelUtil::SetSource() { return tvs::BackToTuner(GetCurrentServiceId); }

int ChannelUtil::GetCurrentSourceInfo() { return tvs::ReadMainSource(); }

int ChannelUtil::GetFrequency(EProfile) {
  tvs_ch_info* record = m_GetSignalInfo();
  const int frequency = record ? record->frequency : 0;
  m_TvServiceChannelDelInfo(record);
  LOG_DEBUG("Frequency[%d]", frequency);
  return frequency;
}

int ChannelUtil::GetBandWidth(EProfile) {
  tvs_ch_info* record = m_GetSignalInfo();
  const int bandwidth = record ? record->bandwidth : -1;
  m_TvServiceChannelDelInfo(record);
  LOG_DEBUG("BandWidth[%d]", bandwidth);
  return bandwidth;
}

ESignalKind ChannelUtil::GetSignalKind() {
  ESignalKind kind = SIGNAL_NONE;
  tvs::ReadSignalKind(kind);
  LOG_DEBUG("signalKind : %d ", kind);
  return kind;
}

int ChannelUtil::GetSignalQuality() {
  const int quality = tvs::ReadQuality();
  LOG_DEBUG("quality[%d]", quality);
  return quality;
}

int ChannelUtil::GetSignalStrength() {
  const int strength = tvs::ReadStrength();
  LOG_DEBUG("strgnth[%d]", strength);
  return strength;
}

CTvsUtil::SIGNAL_INFO_TYPE ChannelUtil::GetSignalInfoType() {
  return tvs::InfoType(m_GetSignalInfo, m_TvServiceChannelDelInfo);
}

bool ChannelUtil::FlagNordicCountry() { return CUtil::FlagNordicCountry(); }

bool ChannelUtil::FlagVisibleSatCRTwoTuner() { return CUtil::FlagVisibleSatCRTwoTuner(); }

int ChannelUtil::GetBandWidthFromDispStr(const char* text) { return tvs::BandWidthFromText(text); }

int ChannelUtil::SetBandFreqForSignalInformation(EBandwidth band, int freq) {
  const int result = tvs::Retune({m_GetCriteria, SetService, true}, band, freq);
  return result > 0 ? -1 : result;
}

bool ChannelUtil::TuneAloneSelectedTransponder(bool enablePositioner) {
  CTvsUtil::transponderID = -2;
  return CTvsUtil::TuneAloneSelectedTransponder(enablePositioner);
}

int ChannelUtil::SetCacheFrequency(MenuKeyDirection direction, const char* text, EProfile) {
  int value = CacheFrequency;
  if (text) {
    const int typed = NumberAtStart(text);
    if (typed < CTvsUtil::kLowestFrequency || typed > CTvsUtil::kHighestFrequency) {
      LOG_DEBUG("Invaild Case");
      return CacheFrequency;
    }
    value = typed;
  } else {
    LOG_DEBUG("CacheValue:%d", value);
    value = tvs::StepFrequency(value, direction);
    const bool steps = direction == MENU_KEY_UP || direction == MENU_KEY_DOWN;
    if (steps && value == CacheFrequency) return value;
  }
  LOG_DEBUG("CacheValue:%d", value);
  CacheFrequency = value;
  return value;
}

int ChannelUtil::SetCacheBandWidth(MenuKeyDirection direction, const char* text, EProfile) {
  const bool nordic = FlagNordicCountry();
  int value = CacheBandWidth;
  if (text) {
    const int typed = GetBandWidthFromDispStr(text);
    if (tvs::AcceptsBandWidth(typed, nordic)) value = typed;
  } else {
    LOG_DEBUG("CacheValue:%d", value);
    value = tvs::StepBandWidth(value, direction, nordic);
  }
  LOG_DEBUG("CacheValue:%d", value);
  CacheBandWidth = value;
  return value;
}

ENavigationMode ChannelUtil::GetTVNavigationMode() {
  TSTvMode mode;
  GetTSTvMode(mode, PROFILE_MAIN);
  CCCategoryUtil* categories = CCCategoryUtil::GetInstance();
  if (!categories) {
    LOG_ERROR("pCategoryUtil is NULL");
    return NAVIGATION_ALL;
  }
  CCNavigationModeInfo info;
  categories->GetCurrentCategory(mode, info);
  LOG_ERROR("naviMode:eMode[%d] para[%lld]", info.eMode, static_cast<long long>(info.para));
  return NavigationOf(info);
}

bool ChannelUtil::TuneChannel(bool pip, int direction, ENavigationMode navigationMode, bool onlyDigital) {
  LOG_DEBUG("IsPip : %d / nDirection : %d Onlyditial[%d]", pip, direction, onlyDigital);
  unsigned long long current = 0;
  if (GetCurrentServiceId(current, pip) != 0) {
    LOG_ERROR("GetCurrentServiceId fails");
    return false;
  }
  TSTvMode mode;
  ENavigationMode navi;
  if (m_GetModes(&mode, &navi, pip) != 0) {
    LOG_ERROR("m_GetModes fails");
    return false;
  }
  TCCriteriaHelper criteria;
  if (!ChannelCriteria(mode, navigationMode, onlyDigital, criteria)) return false;
  CTVSApiWrapper api;
  IServiceNavigation* navigation = api.CreateServiceNavigation(tvs::Picture(pip), 0);
  if (!navigation) {
    LOG_ERROR("Create Service Navigation failed");
    return false;
  }
  TCServiceData data;
  const int result = direction == kPrevious ? navigation->GetPreviousService(criteria, current, data)
                                            : navigation->GetNextService(criteria, current, data);
  LOG_DEBUG("retV : %d", result);
  if (result < 1) {
    LOG_ERROR("GETXXXService Fails,ret:%d", result);
    return false;
  }
  const long long* id = data.Find(COLUMN_SERVICE_ID);
  const unsigned long long next = id ? static_cast<unsigned long long>(*id) : ~0ULL;
  LOG_DEBUG("newServId : %llu", next);
  int state = 0;
  if (navigation->SetService(next, 0, 0, state) > 0) {
    LOG_DEBUG("success");
    return true;
  }
  LOG_ERROR("SetService fails");
  return false;
}

int ChannelUtil::GetChannelString(char* dst, int major, int minor, EServiceMode serviceMode, int channelType) {
  LOG_DEBUG("init : %s %d %d %d %d", dst ? dst : "", major, minor, serviceMode, channelType);
  if (!dst) {
    LOG_DEBUG("chStr is NULL");
    return -1;
  }
  TSTvMode mode(ANTENNA_NONE, serviceMode);
  if (serviceMode == SERVICE_MODE_NONE) {
    TCCriteriaHelper criteria;
    if (m_GetCriteria(criteria, &mode, false) != 0) {
      LOG_ERROR("m_GetCriteria fails");
      return -1;
    }
  }
  if (!CompleteFromCurrent(major, minor, channelType)) return -1;
  LOG_DEBUG("aftr : %s %d %d %d %d", dst, major, minor, mode.serviceMode, channelType);
  const std::string text = CCChInfoUtil::GetChannelNumberString(mode, channelType, static_cast<unsigned short>(major),
                                                                static_cast<unsigned short>(minor));
  snprintf(dst, kTextSize, "%s", text.c_str());
  LOG_DEBUG("reaches end / %s", dst);
  return 0;
}

bool ChannelUtil::ReadWeakSignalHistory(std::vector<std::string>& entries) {
  CTVSApiWrapper api;
  ISourceControl* control = api.CreateSourceControl(PROFILE_MAIN, 0);
  return control && control->GetWeakSignalHistory(entries) == 1;
}

int ChannelUtil::GetHistoryItemInfo(const std::string& entry, char* strData, char* strTimer, char* strOther) {
  LOG_ERROR(" vconfValue is [%s] ", entry.c_str());
  unsigned long long data[6] = {};
  if (!ParseNote(entry, data)) {
    LOG_DEBUG(" Can not Get Time");
    return -1;
  }
  LOG_DEBUG(" data[0]=%llu,data[1]=%llu,data[2]=%llu,data[3]=%llu,data[4]=%llu,data[5]=%llu", data[0], data[1], data[2],
            data[3], data[4], data[5]);
  const auto& [time, major, minor, channelType, serviceMode, uhd] = data;
  WriteTime(time, strData, strTimer);
  char channel[kTextSize] = "";
  GetChannelString(channel, static_cast<int>(major), static_cast<int>(minor), static_cast<EServiceMode>(serviceMode),
                   static_cast<int>(channelType));
  constexpr unsigned long long kNoMinor = 65534;
  if (std::string_view(channel) == "0") {
    if (minor > kNoMinor) {
      snprintf(channel, sizeof channel, "%llu", major);
    } else {
      snprintf(channel, sizeof channel, "%llu-%llu", major, minor);
    }
  }
  const std::string other = (uhd ? "UHD " : "") + std::string(channel);
  snprintf(strOther, kTextSize, "%s", other.c_str());
  LOG_DEBUG(" key is [%s] . strData is [%s], strTimer is [%s], strOther is [%s] ", entry.c_str(), strData, strTimer,
            strOther);
  return 0;
}
