// How a wrapper keeps the proxies that it hands out.
#pragma once

#include <memory>
#include <vector>

#include "tvs_api.h"

/// A new proxy, which lives as long as the wrapper. A service that does not answer hands out null in its place.
template <class Proxy>
Proxy* Keep(std::vector<std::unique_ptr<ITVSProxy>>& proxies) {
  auto proxy = std::make_unique<Proxy>();
  Proxy* raw = proxy.get();
  proxies.push_back(std::move(proxy));
  return raw;
}
