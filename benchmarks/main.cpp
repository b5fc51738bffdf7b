#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "Bench.h"
#include "ListBench.h"
#include "TvsBench.h"

namespace bench {

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

Figure InTurn(const std::string& name, const char* unit, double goal, int pairs, const Measure& ours,
              const Measure& floor) {
  std::vector<double> own, bare;
  for (int i = 0; i < pairs; ++i) {
    own.push_back(ours());
    bare.push_back(floor());
  }
  return {name, Median(own), Median(bare), unit, goal};
}

double SecondsOf(const std::function<void()>& body, int times) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) body();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / times;
}

}  // namespace bench

namespace {

constexpr long kServices = 1'000'000;
constexpr long kUsualServices = 10'000;

void Print(const bench::Figure& figure) {
  const bool floor = figure.floor > 0;
  char bare[32] = "-", ratio[32] = "-", goal[32] = "-";
  if (floor) {
    std::snprintf(bare, sizeof bare, "%.2f", figure.floor);
    std::snprintf(ratio, sizeof ratio, "%.2f", figure.ours / figure.floor);
  }
  if (figure.goal > 0) std::snprintf(goal, sizeof goal, floor ? "%.2f" : "%.0f", figure.goal);
  const double reached = floor ? figure.ours / figure.floor : figure.ours;
  std::printf("%-58s %12.2f %12s %-4s %8s %6s %s\n", figure.name.c_str(), figure.ours, bare, figure.unit, ratio, goal,
              figure.goal > 0 && reached > figure.goal ? "missed" : "");
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 && std::string(argv[1]) == "--child") return bench::RunChild({argv + 2, argv + argc});
  if (argc > 2 && std::string(argv[1]) == "--list-child") return bench::RunListChild({argv + 2, argv + argc});
  std::string directory = (std::filesystem::current_path() / "quirelle-bench-XXXXXX").string();
  if (!mkdtemp(directory.data())) return 1;
  int status = 0;
  try {
    std::printf("%-58s %12s %12s %-4s %8s %6s\n", "figure", "ours", "floor", "", "ratio", "goal");
    const std::string only = argc > 1 ? argv[1] : "";
    if (only.empty() || only == "frame") {
      for (const bench::Figure& figure : bench::FrameFigures(directory)) Print(figure);
    }
    if (only.empty() || only == "windows") {
      for (const bench::Figure& figure : bench::WindowFigures(directory)) Print(figure);
    }
    if (only.empty() || only == "tvs") {
      const long services = argc > 2 ? std::atol(argv[2]) : kServices;
      for (const bench::Figure& figure : bench::TvsFigures(directory, services)) Print(figure);
    }
    if (only.empty() || only == "tessarin") {
      for (const bench::Figure& figure : bench::TessarinFigures(directory)) Print(figure);
    }
    if (only.empty() || only == "list") {
      const long services = argc > 2 ? std::atol(argv[2]) : kUsualServices;
      for (const bench::Figure& figure : bench::ListFigures(directory, services)) Print(figure);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quirelle-bench: %s\n", error.what());
    status = 1;
  }
  std::filesystem::remove_all(directory);
  return status;
}
