// Where the program's own files lie on this machine.
#pragma once

#include <filesystem>

namespace desktop {

struct Deployment {
  std::filesystem::path themes, locales, profiles, images;
};

/// The build tree that this code runs from, or else the installed tree.
const Deployment& Deployed();

/// What the open TV keeps of its user, beside its file; made when it is not there. The name begins with a dot: it is no
/// stick.
std::filesystem::path OwnerDirectory();

}  // namespace desktop
