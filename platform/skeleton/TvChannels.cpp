// The TV service's channels: modes, services, sources, tuner, picture. Above 0 is success where nothing else is said;
// on failure the outputs stay as they are.
#include "Proxies.h"

namespace {

/// One picture's channel.
class ServiceNavigation : public IServiceNavigation {
 public:
  int GetTvMode(TSTvMode& mode) override { return 0; }

  /// Switches to the channel that the mode showed last, or to its first.
  int SetTvMode(const TSTvMode& mode) override { return 0; }

  /// Fetches the current service, if it is one of the mode and meets the criteria.
  int GetCurrentServiceInfo(const TSTvMode& mode, const TCCriteriaHelper& criteria, TCServiceData& data) override {
    return 0;
  }

  int GetCurrentService(unsigned long long& serviceId, int& kind) override { return 0; }

  /// Begins to tune; `state` is the state of the source then.
  int SetService(unsigned long long serviceId, int option1, int option2, int& state) override { return 0; }

  /// Tunes again to a service whose record has changed. 1 is success.
  int SetServiceWithoutChangingServiceInfo(unsigned long long serviceId) override { return 0; }

  /// The neighbour in channel order, going round at the ends.
  int GetPreviousService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) override {
    return 0;
  }

  int GetNextService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) override {
    return 0;
  }

  /// Tunes to a transponder and shows nothing. 1 is success.
  int TuneForFeedingSI(const TSTransponder& transponder, bool positioner) override { return 0; }

  /// Begins anew with a list that has been replaced: with the channel that was shown last, or with the first.
  int ResetService() override { return 0; }

  int GetChannelCount(const TCCriteriaHelper& criteria, const TSTvMode& mode, int& count) override { return 0; }
};

/// The channel database.
class Service : public IService {
 public:
  /// The first service that meets the criteria.
  int FindService(const TCCriteriaHelper& criteria, TCServiceData& data, int flag) override { return 0; }

  /// All of them, fetched as they are walked; 0 and no list when there is none.
  int FindServiceList(const TCCriteriaHelper& criteria, std::unique_ptr<TCServiceList>& list) override { return 0; }

  int GetServiceCount(const TCCriteriaHelper& criteria, int& count) override { return 0; }

  /// Stores the columns for the service of column 12. 1 is success.
  int UpdateService(const TCServiceData& data) override { return 0; }
};

class SourceControl : public ISourceControl {
 public:
  int GetSource(int& source) override { return 0; }

  /// 0 shown, 1 being tuned, 2 switched off.
  int GetSourceState(int& state) override { return 0; }

  /// -1 is failure, anything else success.
  int SetSource(int source, unsigned long long serviceId, const char* caller) override { return -1; }

  /// 1 is success.
  int DeactivateSource() override { return 0; }

  /// `locked` is 0 or 1.
  int SourceLockStatus(unsigned char& locked) override { return 0; }

  /// The notes, oldest first. 1 is success.
  int GetWeakSignalHistory(std::vector<std::string>& entries) override { return 0; }
};

/// Figures of the tuner that a picture uses.
class TunerControl : public ITunerControl {
 public:
  /// 0 to 100.
  int GetSignalStrength(int option, unsigned char& strength) override { return 0; }

  int GetSignalQuality(unsigned char& quality) override { return 0; }

  int GetSignalKind(ESignalKind& kind) override { return 0; }

  /// Errors per 10^7 bits. 0 is failure.
  int GetBER(int& ber) override { return 0; }

  /// Hundredths of a decibel. 0 is failure.
  int GetSNR(int& snr) override { return 0; }

  /// Fine tuning by hand: one byte, 32 is the middle. Back to the middle; tries a value; stores it; reads it.
  int ResetMFT() override { return 0; }

  int PresetMFT(unsigned char offset) override { return 0; }

  int SetMFT() override { return 0; }

  int GetMFT(unsigned char& offset) override { return 0; }
};

class AVControl : public IAVControl {
 public:
  /// 0 is success, also when nothing comes in.
  int GetResolution(int& videoFormat, TSResolution& resolution) override { return -1; }
};

/// Physical channels of the current antenna. -1 is failure.
class ChannelData : public IChannelData {
 public:
  int GetDigitalChannelNumber(int& number) override { return -1; }

  int GetDigitalChannels(std::vector<std::pair<int, std::string>>& channels) override { return -1; }
};

}  // namespace

IServiceNavigation* CTVSApiWrapper::CreateServiceNavigation(EProfile profile, int option) {
  return Keep<ServiceNavigation>(m_proxies);
}

ISourceControl* CTVSApiWrapper::CreateSourceControl(EProfile profile, int option) {
  return Keep<SourceControl>(m_proxies);
}

ITunerControl* CTVSApiWrapper::CreateTunerControl(EProfile profile, int option) {
  return Keep<TunerControl>(m_proxies);
}

IAVControl* CTVSApiWrapper::CreateAVControl(EProfile profile, int option) { return Keep<AVControl>(m_proxies); }

IChannelData* CTVSApiWrapper::CreateChannelData(EProfile profile, int option) { return Keep<ChannelData>(m_proxies); }

IService* CTVSApiWrapper::CreateService() { return Keep<Service>(m_proxies); }

/// Adds what picks the channels of a mode; false for a navigation mode that the service does not have.
bool TCNavigationModeHelper::GetNavigationCriteria(const TSTvMode& mode, ENavigationMode navigation,
                                                   TCCriteriaHelper& criteria, unsigned long long parameter,
                                                   unsigned long long parameter2) {
  return false;
}

/// The same for every TV mode.
bool TCNavigationModeHelper::GetNavigationCriteria(ENavigationMode navigation, unsigned long long parameter,
                                                   TCCriteriaHelper& criteria) {
  return false;
}

/// The user's channel-list category; null when the service does not answer.
CCCategoryUtil* CCCategoryUtil::GetInstance() { return nullptr; }

std::string CCChInfoUtil::GetChannelTypeString(const TSTvMode& mode, EChannelType type) { return {}; }

/// "7", "7-2" with a minor number, "0" without a major one.
std::string CCChInfoUtil::GetChannelNumberString(const TSTvMode& mode, int type, unsigned short major,
                                                 unsigned short minor) {
  return "0";
}

/// 1 and a subscriber that the caller deletes.
int TVServiceAPI::CreateSignalSubscriber(SignalCallback callback, ISignalSubscriber** subscriber) { return 0; }
