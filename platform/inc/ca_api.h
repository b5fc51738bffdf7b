// CA service: operator profiles of common-interface modules.
#pragma once

#include <list>
#include <string>

#include "tvs_types.h"

namespace CA_API {

struct COperatorProfileData {
  int slot = 0;
  std::string name;
  TSTvMode mode;
};

class CAOperatorProfile {
 public:
  virtual ~CAOperatorProfile() = default;
  /// Appends the installed profiles in slot order; above 0 is success.
  virtual int GetInstalledOperatorProfiles(std::list<COperatorProfileData>& profiles) = 0;
};

class CAService {
 public:
  /// Null when the service does not answer; owned by the service.
  static CAOperatorProfile* CAOperatorProfileInstance();
};

}  // namespace CA_API
