// Launch requests, as this machine's framework keeps them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app_framework.h"

struct app_control_s {
  std::string application;
  std::map<std::string, std::string> extra;
  std::string operation = APP_CONTROL_OPERATION_DEFAULT;
};

namespace desktop {

struct Launch {
  std::string application;
  std::map<std::string, std::string> extra;
};

/// What this process has launched, in order.
std::vector<Launch> OwnLaunches();

}  // namespace desktop
