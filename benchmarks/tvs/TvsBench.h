// What reading and making a TV costs, against the bare database.
#pragma once

#include <string>
#include <vector>

#include "Bench.h"

namespace bench {

/// Makes TVs in `directory`; sizes up to `services`.
std::vector<Figure> TvsFigures(const std::string& directory, long services);

}  // namespace bench
