#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace {

/// --monkey SEED STEPS, --fuzz SEED RUNS: just that test, with this seed, for so long.
void ReadSeeded(int argc, char** argv) {
  struct Seeded {
    const char *option, *variable, *filter;
  };
  constexpr Seeded kSeeded[] = {{"--monkey", "QUIRELLE_MONKEY", "Monkey.*"}, {"--fuzz", "QUIRELLE_FUZZ", "Fuzz.*"}};
  for (int i = 1; i + 2 < argc; ++i) {
    for (const auto& [option, variable, filter] : kSeeded) {
      if (std::strcmp(argv[i], option) != 0) continue;
      setenv(variable, (std::string(argv[i + 1]) + " " + argv[i + 2]).c_str(), 1);
      testing::GTEST_FLAG(filter) = filter;
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  // Nothing of the person who runs the tests: no display, no home, no TV.
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QUIRELLE_SCREEN", "ELM_SCALE", "QUIRELLE_TV"}) unsetenv(name);
  std::string home = (std::filesystem::temp_directory_path() / "quirelle-home-XXXXXX").string();
  if (!mkdtemp(home.data())) return 1;
  setenv("HOME", home.c_str(), 1);
  setenv("XDG_RUNTIME_DIR", home.c_str(), 1);
  setenv("XDG_DATA_HOME", (home + "/data").c_str(), 1);
  testing::InitGoogleTest(&argc, argv);
  ReadSeeded(argc, argv);
  const int result = RUN_ALL_TESTS();
  std::error_code ignored;  // left-overs of a crashed test do not make the tests fail
  std::filesystem::remove_all(home, ignored);
  return result;
}
