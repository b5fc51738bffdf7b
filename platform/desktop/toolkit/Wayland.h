// What a Wayland display says of itself before the toolkit comes to it.
#pragma once

namespace desktop {

struct WaylandDisplay {
  /// Of the first screen, in the units that windows are measured in; 0 when there is none.
  int width = 0, height = 0;
  /// Whether anybody can sit at it: a display without a keyboard has no focus to give.
  bool hasSeat = false;
};

/// Asks the display that `$WAYLAND_DISPLAY` names. False when nobody answers there.
bool AskWayland(WaylandDisplay& display);

}  // namespace desktop
