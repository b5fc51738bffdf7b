// The TV service's satellites, its make and country, its archives. Above 0 is success where nothing else is said; on
// failure the outputs stay as they are.
#include "Proxies.h"

namespace {

class Satellite : public ISatellite {
 public:
  /// The first transponder that meets the criteria.
  int FindTransponder(const TCCriteriaHelper& criteria, TSTransponder& transponder) override { return 0; }

  /// Stores a transponder of the user and gives it an ID.
  int AddUserTransponder(TSTransponder& transponder) override { return 0; }

  /// The count, -1 on failure. The satellites belong to this proxy.
  int GetSatelliteList(const TCCriteriaHelper& criteria, std::vector<TSSatellite*>& satellites) override { return -1; }
};

class SatelliteSettings : public ISatelliteSettings {
 public:
  /// Negative is failure, also of the next two.
  int GetSatelliteSettings(ESatelliteId satellite, TSSatelliteSettings& settings) override { return -1; }

  int SetSatelliteSettings(ESatelliteId satellite, const TSSatelliteSettings& settings) override { return -1; }

  /// Back to what the set was made with; 0 and -1: everything of all satellites.
  int ResetSatelliteSettings(int kind, int satellite) override { return -1; }

  /// `selected` is 0 or 1.
  int GetSatelliteSelected(int satellite, const TSTvMode& mode, unsigned char& selected) override { return 0; }

  /// These and no others. 1 is success, also below.
  int SetSelectedSatellites(const std::vector<int>& satellites) override { return 0; }

  /// Of tuner 0 or 1.
  int GetSatCRSettings(unsigned short tuner, TSSatCRSettings& settings) override { return 0; }

  int SetSatCRSlotFrequency(unsigned short tuner, int slotFrequency) override { return 0; }

  /// The run that was started last on the tuner, in percent.
  int GetSatCRDetectStatus(unsigned char& slotNumber, int& slotFrequency, unsigned char& progress,
                           unsigned short tuner) override {
    return 0;
  }
};

/// Negative is failure.
class SatelliteControl : public ISatelliteControl {
 public:
  int SendPositionerCommand(EPositionerCommand command, int parameter) override { return -1; }

  int SendSatCRCommand(unsigned short tuner, ESatCRCommand command, const TSSatCRSettings& settings) override {
    return -1;
  }
};

class SOSpecApp : public ISOSpecApp {
 public:
  /// False for a value that the set does not have. 1 is the country, 94 whether frequency and bandwidth can be set.
  bool GetSpec(int number, int& value) override { return false; }
};

class SOSpecControl : public ISOSpecControl {
 public:
  int ChangeDigitalSOSpec(int country) override { return 0; }

  int ChangeAnalogSOSpec(int country) override { return 0; }

  /// Country -1 is that of the initial setup.
  int CheckBroadcasterSupported(int country, EBroadCaster broadcaster, bool& supported) override { return 0; }

  int GetCurrentBroadcaster(EBroadCaster& broadcaster) override { return 0; }
};

class RatingUtil : public IRatingUtil {
 public:
  /// `unblocked` comes out as whether the lock is lifted for now.
  int QueryTempUnblock(int& unblocked, int& childLocked) override { return 0; }
};

class Util : public IUtil {
 public:
  /// Writes the channel list to an archive; 0 is failure.
  int GetServiceDb(const std::string& path) override { return 0; }

  /// Replaces the channel list by an archive's: 0 done; 1, 2, 4 the archive is refused; 3 another failure.
  int SetServiceDb(const std::string& path) override { return 3; }
};

}  // namespace

ISOSpecApp* CTVSApiWrapper::CreateSOSpecApp(EProfile profile, int option) { return Keep<SOSpecApp>(m_proxies); }

ISOSpecControl* CTVSApiWrapper::CreateSOSpecControl() { return Keep<SOSpecControl>(m_proxies); }

ISatellite* CTVSApiWrapper::CreateSatellite() { return Keep<Satellite>(m_proxies); }

ISatelliteSettings* CTVSApiWrapper::CreateSatelliteSettings() { return Keep<SatelliteSettings>(m_proxies); }

ISatelliteControl* CTVSApiWrapper::CreateSatelliteControl() { return Keep<SatelliteControl>(m_proxies); }

IRatingUtil* CTVSApiWrapper::CreateRatingUtil() { return Keep<RatingUtil>(m_proxies); }

IUtil* CTVSApiWrapper::CreateUtil() { return Keep<Util>(m_proxies); }

/// -1 for a mode without a package of its own.
EPackageId TCServiceUtility::ServiceModeToSatellitePackageId(EServiceMode mode) { return static_cast<EPackageId>(-1); }

/// Null when the service does not answer.
TCBinderManager* TCBinderManager::Instance() { return nullptr; }
