// Figures, ours beside the floor: medians of pairs that are run in turn.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Figure {
  std::string name;
  double ours, floor;
  const char* unit;
  /// What ours may be at most: times the floor, or, without a floor (0), in the unit itself. 0 for no goal.
  double goal = 0;
};

double Median(std::vector<double> values);

/// Runs the two in turn, `pairs` times; each answers with one measurement.
using Measure = std::function<double()>;
Figure InTurn(const std::string& name, const char* unit, double goal, int pairs, const Measure& ours,
              const Measure& floor);

/// Time of one of `times` calls, in seconds.
double SecondsOf(const std::function<void()>& body, int times);

/// The frame and the rating window; TVs are made in `directory`.
std::vector<Figure> FrameFigures(const std::string& directory);
/// What the process does that FrameFigures runs as "the program"; the first word says which.
int RunChild(const std::vector<std::string>& words);

}  // namespace bench
