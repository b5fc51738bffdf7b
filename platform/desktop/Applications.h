// Launch requests, as this machine's framework keeps them.
#pragma once

#include <map>
#include <string>
#include <vector>

struct app_control_s {
  std::string application;
  std::map<std::string, std::string> extra;
};

namespace desktop {

struct Launch {
  std::string application;
  std::map<std::string, std::string> extra;
};

/// What this process has launched, in order.
std::vector<Launch> OwnLaunches();

}  // namespace desktop
