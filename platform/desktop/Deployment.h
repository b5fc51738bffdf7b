// Where the program's own files lie on this machine.
#pragma once

#include <filesystem>

namespace desktop {

struct Deployment {
  std::filesystem::path themes, locales, profiles, modules;
};

/// The build tree that this code runs from, or else the installed tree.
const Deployment& Deployed();

}  // namespace desktop
