// What the channel list costs on its way to a stick and back, against bare rows, bare packing and a bare copy.
#pragma once

#include <string>
#include <vector>

#include "Bench.h"

namespace bench {

/// Makes TVs in `directory`; 10,000 services, and `services` where that is another number.
std::vector<Figure> ListFigures(const std::string& directory, long services);
/// What a process of its own does: export|import TV FILE. Prints the most memory that it had.
int RunListChild(const std::vector<std::string>& words);

}  // namespace bench
