// What the set's make, country and operators fix.
#include "Gate.h"
#include "Proxies.h"
#include "State.h"
#include "ca_api.h"
#include "factory_api.h"

namespace desktop {

namespace {

enum ModelValue { kDigitalCountry = 1, kAnalogCountry = 2 };

class SOSpecApp : public ISOSpecApp {
 public:
  bool GetSpec(int number, int& value) override {
    return Gate::Pass<bool>(op::SOSpecApp_GetSpec, Entry(number), [&](Entry& entry) {
      Query q("SELECT value FROM model_value WHERE number = ?", number);
      if (!q.Row()) return false;
      value = static_cast<int>(q.Int(0));
      entry.Out(value);
      return true;
    });
  }
};

class SOSpecControl : public ISOSpecControl {
 public:
  int ChangeDigitalSOSpec(int country) override {
    return Gate::Pass<int>(op::SOSpecControl_ChangeDigitalSOSpec, Entry(country),
                           [&](Entry&) { return Change(kDigitalCountry, country); });
  }

  int ChangeAnalogSOSpec(int country) override {
    return Gate::Pass<int>(op::SOSpecControl_ChangeAnalogSOSpec, Entry(country),
                           [&](Entry&) { return Change(kAnalogCountry, country); });
  }

  int CheckBroadcasterSupported(int country, EBroadCaster broadcaster, bool& supported) override {
    return Gate::Pass<int>(op::SOSpecControl_CheckBroadcasterSupported, Entry(country, broadcaster), [&](Entry& entry) {
      Query q(
          "SELECT 1 FROM broadcaster WHERE number = ?1 AND country IN (-1, iif(?2 = -1, "
          "(SELECT value FROM setting WHERE key = 'db/system/pnp_country'), ?2))",
          broadcaster, country);
      supported = q.Row();
      entry.Out(supported);
      return 1;
    });
  }

  int GetCurrentBroadcaster(EBroadCaster& broadcaster) override {
    return Gate::Pass<int>(op::SOSpecControl_GetCurrentBroadcaster, Entry(), [&](Entry& entry) {
      broadcaster = static_cast<EBroadCaster>(TvState("broadcaster", 0));
      entry.Out(broadcaster);
      return 1;
    });
  }

 private:
  static int Change(int number, int country) {
    Store::Get().Write([&] { Query("REPLACE INTO model_value VALUES (?, ?)", number, country).Run(); });
    return 1;
  }
};

class OperatorProfile : public CA_API::CAOperatorProfile {
 public:
  int GetInstalledOperatorProfiles(std::list<CA_API::COperatorProfileData>& profiles) override {
    return Gate::Pass<int>(op::GetInstalledOperatorProfiles, Entry(), [&](Entry& entry) {
      Query q("SELECT slot, name, antenna, service_mode FROM operator_profile ORDER BY slot");
      while (q.Row()) {
        profiles.push_back({static_cast<int>(q.Int(0)), q.Text(1),
                            TSTvMode(static_cast<EAntennaMode>(q.Int(2)), static_cast<EServiceMode>(q.Int(3)))});
      }
      entry.Out(profiles.size());
      return 1;
    });
  }
};

class RatingUtil : public IRatingUtil {
 public:
  int QueryTempUnblock(int& unblocked, int& childLocked) override {
    return Gate::Pass<int>(op::RatingUtil_QueryTempUnblock, Entry(unblocked), [&](Entry& entry) {
      unblocked = static_cast<int>(TvState("temp_unblocked", 0));
      childLocked = static_cast<int>(TvState("child_locked", 0));
      entry.Out(unblocked);
      entry.Out(childLocked);
      return 1;
    });
  }
};

/// Region kinds of multi-region sets by what their countries broadcast.
struct CountryRegion {
  int country, region;
};
constexpr CountryRegion kRegions[] = {{87, 27}, {69, 25}, {74, 25}, {64, 25}};
constexpr int kDvbRegion = 28;

}  // namespace

std::unique_ptr<ITVSProxy> MakeSOSpecApp() { return std::make_unique<SOSpecApp>(); }

std::unique_ptr<ITVSProxy> MakeSOSpecControl() { return std::make_unique<SOSpecControl>(); }

std::unique_ptr<ITVSProxy> MakeRatingUtil() { return std::make_unique<RatingUtil>(); }

}  // namespace desktop

using namespace desktop;

CA_API::CAOperatorProfile* CA_API::CAService::CAOperatorProfileInstance() {
  return Gate::Pass<CAOperatorProfile*>(op::CAOperatorProfileInstance, Entry(), [](Entry&) -> CAOperatorProfile* {
    static OperatorProfile instance;
    return &instance;
  });
}

EPackageId TCServiceUtility::ServiceModeToSatellitePackageId(EServiceMode mode) {
  // Mode 2 and below list channels of no operator.
  return static_cast<EPackageId>(mode > 2 ? mode : -1);
}

int factory_update_region_by_country(int country) {
  return Gate::Pass<int>(op::factory_update_region_by_country, Entry(country), [&](Entry& entry) {
    int region = kDvbRegion;
    for (const CountryRegion& known : kRegions) {
      if (known.country == country) region = known.region;
    }
    Store::Get().Write([&] { Query("REPLACE INTO setting VALUES ('system_info/127', 'int', ?)", region).Run(); });
    entry.Out(region);
    return 1;
  });
}
