// Menu IDs, window IDs, and the view that each of them opens.
#pragma once

#include <span>

#include "Window.h"

class IView;

/// Makes the view of a menu ID and a case; the case may be rewritten. Null when the case has no view.
using ViewMaker = IView* (*)(const char* menuID, unsigned int& nCase);

struct ViewEntry {
  /// None for a window that is never pushed by its ID.
  Window window;
  const char* menuID;
  /// Null for a menu ID that opens no window.
  ViewMaker make;
};

/// In the order of the window IDs, then those without one.
std::span<const ViewEntry> ViewTable();

/// The in-place control of a menu ID, placed beside the row at x, y of width w; null when it has none.
IView* MakeControl(const char* menuID, int x, int y, int w);
