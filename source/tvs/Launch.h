// Launch requests to other applications of the set.
#pragma once

#include <string>
#include <utility>
#include <vector>

struct LaunchRequest {
  std::string application;
  /// Extra data.
  std::vector<std::pair<const char*, std::string>> extra;
  /// What the application is to do; null says nothing of it.
  const char* operation = nullptr;
  /// What the log says of a failure: formats of one int, the result.
  const char* notCreated = "app_control_create failed";
  const char* notSent = "Failed to send request[%d]";
};

/// Asks for the application; false when the request could not be made or sent.
bool Launch(const LaunchRequest& request);
