// Pictures of the screen.
#pragma once

#include <string>

namespace desktop {

/// Writes what is on the screen, the TV's picture with the menu over it, as PNG. Throws std::runtime_error.
void SavePicture(const std::string& path);

}  // namespace desktop
