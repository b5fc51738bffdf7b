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
/// The other windows, and lists.
std::vector<Figure> WindowFigures(const std::string& directory);

/// What a client of the exported functions waits for.
std::vector<Figure> TessarinFigures(const std::string& directory);

/// Launch to first frame of a window against a bare one of the same widgets, and the memory of both.
std::vector<Figure> StartFigures(const std::string& menuID, int starts);
/// Where the built programs are, with the slash at the end.
std::string OwnDirectory();
/// Runs a program; the numbers that it prints.
std::vector<double> Child(const std::vector<std::string>& words);
/// What such a process does as "the program": WHAT MENU-ID [NUMBER [KEY KEY]].
int RunChild(const std::vector<std::string>& words);

}  // namespace bench
