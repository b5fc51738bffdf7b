// The TV service: a wrapper hands out one proxy for each of its sides.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tvs_criteria.h"
#include "tvs_rating.h"
#include "tvs_types.h"

/// Base of the proxies. Unless a call says otherwise it returns a value above 0 on success; anything else
/// is failure, and the outputs are then untouched. A proxy belongs to the wrapper that made it.
class ITVSProxy {
 public:
  virtual ~ITVSProxy() = default;
};

/// One picture's channel.
class IServiceNavigation : public ITVSProxy {
 public:
  virtual int GetTvMode(TSTvMode& mode) = 0;
  /// Switches to the channel that the mode showed last, or to its first.
  virtual int SetTvMode(const TSTvMode& mode) = 0;
  /// The current service, if it is one of `mode` and meets the criteria.
  virtual int GetCurrentServiceInfo(const TSTvMode& mode, const TCCriteriaHelper& criteria, TCServiceData& data) = 0;
  /// `kind` is the service's channel type.
  virtual int GetCurrentService(unsigned long long& serviceId, int& kind) = 0;
  /// Begins to tune. `state` is the source state afterwards.
  virtual int SetService(unsigned long long serviceId, int option1, int option2, int& state) = 0;
  /// Tunes again to a service whose record has changed. 1 is success.
  virtual int SetServiceWithoutChangingServiceInfo(unsigned long long serviceId) = 0;
  /// The neighbour of a service in channel order, going round at the ends.
  virtual int GetPreviousService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) = 0;
  virtual int GetNextService(const TCCriteriaHelper& criteria, unsigned long long from, TCServiceData& data) = 0;
  /// Tunes to a transponder without showing a channel; `positioner` lets the dish turn. 1 is success.
  virtual int TuneForFeedingSI(const TSTransponder& transponder, bool positioner) = 0;
  virtual int GetChannelCount(const TCCriteriaHelper& criteria, const TSTvMode& mode, int& count) = 0;
  /// Begins anew with the list as it is now, which has been replaced: with the channel that the mode showed last, or
  /// with its first.
  virtual int ResetService() = 0;
};

/// The channel database.
class IService : public ITVSProxy {
 public:
  /// The first service that meets the criteria; `flag` is 1.
  virtual int FindService(const TCCriteriaHelper& criteria, TCServiceData& data, int flag) = 0;
  /// 0 and no list when no service meets the criteria.
  virtual int FindServiceList(const TCCriteriaHelper& criteria, std::unique_ptr<TCServiceList>& list) = 0;
  virtual int GetServiceCount(const TCCriteriaHelper& criteria, int& count) = 0;
  /// Stores the record's columns for the service whose ID (column 12) it holds. 1 is success.
  virtual int UpdateService(const TCServiceData& data) = 0;
};

class ISourceControl : public ITVSProxy {
 public:
  virtual int GetSource(int& source) = 0;
  /// 0 when the source is shown, 1 while it is being tuned, 2 when it is switched off.
  virtual int GetSourceState(int& state) = 0;
  /// -1 is failure, anything else success. `caller` names the program that asks.
  virtual int SetSource(int source, unsigned long long serviceId, const char* caller) = 0;
  /// 1 is success.
  virtual int DeactivateSource() = 0;
  /// `locked` is 0 or 1.
  virtual int SourceLockStatus(unsigned char& locked) = 0;
  /// The stored notes of weak signal, oldest first: numbers separated by ":". 1 is success.
  virtual int GetWeakSignalHistory(std::vector<std::string>& entries) = 0;
};

/// Figures of the tuner that a picture uses.
class ITunerControl : public ITVSProxy {
 public:
  /// 0 to 100.
  virtual int GetSignalStrength(int option, unsigned char& strength) = 0;
  virtual int GetSignalQuality(unsigned char& quality) = 0;
  virtual int GetSignalKind(ESignalKind& kind) = 0;
  /// 0 is failure, anything else success. Errors per 10^7 bits.
  virtual int GetBER(int& ber) = 0;
  /// The same. Hundredths of a decibel.
  virtual int GetSNR(int& snr) = 0;
  /// Manual fine tuning of an analogue channel: one byte, 32 is the middle. Preset tries a value, set stores it.
  virtual int ResetMFT() = 0;
  virtual int PresetMFT(unsigned char offset) = 0;
  virtual int SetMFT() = 0;
  virtual int GetMFT(unsigned char& offset) = 0;
};

/// The picture and sound of a picture's input.
class IAVControl : public ITVSProxy {
 public:
  /// 0 is success, also when nothing comes in.
  virtual int GetResolution(int& videoFormat, TSResolution& resolution) = 0;
};

/// Values that the set's make and country fix.
class ISOSpecApp : public ITVSProxy {
 public:
  /// False when the set has no such value. 1 is the country, 94 whether frequency and bandwidth can be set.
  virtual bool GetSpec(int number, int& value) = 0;
};

class ISOSpecControl : public ITVSProxy {
 public:
  virtual int ChangeDigitalSOSpec(int country) = 0;
  virtual int ChangeAnalogSOSpec(int country) = 0;
  /// `country` -1 is the country of the initial setup.
  virtual int CheckBroadcasterSupported(int country, EBroadCaster broadcaster, bool& supported) = 0;
  virtual int GetCurrentBroadcaster(EBroadCaster& broadcaster) = 0;
};

class ISatellite : public ITVSProxy {
 public:
  /// The first transponder that meets the criteria.
  virtual int FindTransponder(const TCCriteriaHelper& criteria, TSTransponder& transponder) = 0;
  /// Stores a transponder of the user and gives it an ID.
  virtual int AddUserTransponder(TSTransponder& transponder) = 0;
  /// Returns the count, -1 on failure. The satellites belong to this proxy.
  virtual int GetSatelliteList(const TCCriteriaHelper& criteria, std::vector<TSSatellite*>& satellites) = 0;
};

class ISatelliteSettings : public ITVSProxy {
 public:
  /// Negative is failure, also of the next two.
  virtual int GetSatelliteSettings(ESatelliteId satellite, TSSatelliteSettings& settings) = 0;
  virtual int SetSatelliteSettings(ESatelliteId satellite, const TSSatelliteSettings& settings) = 0;
  /// Back to what the set was made with. `kind` 0 and `satellite` -1: everything of all satellites.
  virtual int ResetSatelliteSettings(int kind, int satellite) = 0;
  /// Whether a TV mode's channels come from it: `selected` is 0 or 1. Above 0 is success.
  virtual int GetSatelliteSelected(int satellite, const TSTvMode& mode, unsigned char& selected) = 0;
  /// Selects these satellites and no others for what the main picture receives. 1 is success.
  virtual int SetSelectedSatellites(const std::vector<int>& satellites) = 0;
  /// 1 is success, also below. `tuner` is 0 or 1.
  virtual int GetSatCRSettings(unsigned short tuner, TSSatCRSettings& settings) = 0;
  virtual int SetSatCRSlotFrequency(unsigned short tuner, int slotFrequency) = 0;
  /// Progress in percent of the run that was started last on the tuner, 0 after a stop; the slot that it has found so
  /// far, 0 and -1 while there is none.
  virtual int GetSatCRDetectStatus(unsigned char& slotNumber, int& slotFrequency, unsigned char& progress,
                                   unsigned short tuner) = 0;
};

class ISatelliteControl : public ITVSProxy {
 public:
  /// Negative is failure, also below.
  virtual int SendPositionerCommand(EPositionerCommand command, int parameter) = 0;
  virtual int SendSatCRCommand(unsigned short tuner, ESatCRCommand command, const TSSatCRSettings& settings) = 0;
};

/// Physical channels of the current antenna. -1 is failure, anything else success.
class IChannelData : public ITVSProxy {
 public:
  virtual int GetDigitalChannelNumber(int& number) = 0;
  virtual int GetDigitalChannels(std::vector<std::pair<int, std::string>>& channels) = 0;
};

class IRatingUtil : public ITVSProxy {
 public:
  /// `unblocked` goes in as 1 and comes out as whether the lock is lifted for now.
  virtual int QueryTempUnblock(int& unblocked, int& childLocked) = 0;
};

/// The rating system that the broadcast on screen brings along, and the locks of its rating values. A lock is kept
/// by the set for as long as the broadcast's system stays the same. A dimension or value that the system does not
/// have is failure.
class IRatingSystem : public ITVSProxy {
 public:
  /// Fills `rating` with the system as it is now; a broadcast without one is failure.
  virtual int GetRegionRating(TCRegionRating& rating) = 0;
  virtual int GetRRSLock(int dimension, int value, bool& locked) = 0;
  virtual int SetRRSLock(int dimension, int value, bool locked) = 0;
};

/// The channel list as an archive.
class IUtil : public ITVSProxy {
 public:
  /// Writes the channel list to the archive `path`; 0 is failure.
  virtual int GetServiceDb(const std::string& path) = 0;
  /// Replaces the channel list by the archive's: 0 done; 1, 2, 4 the archive is refused; 3 another failure.
  virtual int SetServiceDb(const std::string& path) = 0;
};

/// Hands out the proxies, each null when the service does not answer. A wrapper is made for one operation
/// and let go with the proxies at its end.
class CTVSApiWrapper {
 public:
  CTVSApiWrapper() = default;
  CTVSApiWrapper(const CTVSApiWrapper&) = delete;
  CTVSApiWrapper& operator=(const CTVSApiWrapper&) = delete;

  IServiceNavigation* CreateServiceNavigation(EProfile profile, int option);
  ISourceControl* CreateSourceControl(EProfile profile, int option);
  ITunerControl* CreateTunerControl(EProfile profile, int option);
  IAVControl* CreateAVControl(EProfile profile, int option);
  ISOSpecApp* CreateSOSpecApp(EProfile profile, int option);
  IChannelData* CreateChannelData(EProfile profile, int option);
  IService* CreateService();
  ISOSpecControl* CreateSOSpecControl();
  ISatellite* CreateSatellite();
  ISatelliteSettings* CreateSatelliteSettings();
  ISatelliteControl* CreateSatelliteControl();
  IRatingUtil* CreateRatingUtil();
  IRatingSystem* CreateRatingSystem(ERRTRegion region);
  IUtil* CreateUtil();

 private:
  std::vector<std::unique_ptr<ITVSProxy>> m_proxies;
};

class TCNavigationModeHelper {
 public:
  /// Adds to `criteria` what picks the channels of a TV mode and navigation mode; -1 stands for no
  /// parameter. False for a navigation mode that the service does not have or that lacks its parameter.
  static bool GetNavigationCriteria(const TSTvMode& mode, ENavigationMode navigation, TCCriteriaHelper& criteria,
                                    unsigned long long parameter = ~0ULL, unsigned long long parameter2 = ~0ULL);
  /// The same for every TV mode.
  static bool GetNavigationCriteria(ENavigationMode navigation, unsigned long long parameter,
                                    TCCriteriaHelper& criteria);
};

class TCServiceUtility {
 public:
  /// -1 for a service mode without a package of its own.
  static EPackageId ServiceModeToSatellitePackageId(EServiceMode mode);
};

/// The channel-list category that the user has chosen.
class CCNavigationModeInfo : public TCMarshalable {
 public:
  int eMode = 0;
  unsigned long long para = 0;
};

class CCCategoryUtil {
 public:
  virtual ~CCCategoryUtil() = default;
  /// Null when the service does not answer; owned by the service.
  static CCCategoryUtil* GetInstance();
  /// Above 0 is success.
  virtual int GetCurrentCategory(const TSTvMode& mode, CCNavigationModeInfo& category) = 0;
};

/// How a channel is called on screen.
class CCChInfoUtil {
 public:
  static std::string GetChannelTypeString(const TSTvMode& mode, EChannelType type);
  /// "7", or "7-2" where the channel has a minor number; "0" without a major number.
  static std::string GetChannelNumberString(const TSTvMode& mode, int type, unsigned short major, unsigned short minor);
};

class TCBinderManager {
 public:
  virtual ~TCBinderManager() = default;
  /// Null when the service does not answer; owned by the service.
  static TCBinderManager* Instance();
  /// Kind 1 is the country as three letters in the low 24 bits. Above 0 is success.
  virtual int GetValue(int kind, unsigned int& value) = 0;
};

enum ESignalType : int { SIGNAL_TUNE_SUCCESS = 60 };

/// What goes with a signal.
class TSSignalData : public TCMarshalable {
 public:
  unsigned long long serviceId = 0;
};

namespace TVServiceAPI {

using SignalCallback = int (*)(ESignalType signal, EProfile profile, unsigned short session, const TSSignalData& data,
                               void* userData);

/// Above 0 is success, also below.
class ISignalSubscriber {
 public:
  virtual ~ISignalSubscriber() = default;
  /// Calls `callback` with every such signal of the picture (`profile` 0: of any) from now on.
  virtual int Subscribe(ESignalType signal, int profile, int option1, int option2, SignalCallback callback) = 0;
  virtual int Unsubscribe(ESignalType signal, int option1, int option2, SignalCallback callback) = 0;
};

/// `*subscriber` belongs to the caller, who deletes it.
int CreateSignalSubscriber(SignalCallback callback, ISignalSubscriber** subscriber);

}  // namespace TVServiceAPI
