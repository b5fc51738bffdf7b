// Names of the set's inputs.
#pragma once

#include <string>

#include "tvs_types.h"

class CSourceAPI {
 public:
  virtual ~CSourceAPI() = default;
  static CSourceAPI* Get();
  /// The name that the user has given to the device at an input, empty when none was given. `option` -2 asks for
  /// nothing else. 0 on success; a negative code otherwise, and then `name` is untouched.
  virtual int GetSourceEditName(ESource source, std::string& name, int option) = 0;
};
