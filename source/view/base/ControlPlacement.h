// Where an in-place control stands: beside the list row that opened it.
#pragma once

#include <Elementary.h>

/// The row in screen pixels; the control in pixels of a 1920-pixel screen.
struct ControlPlacement {
  int x, y, w;
  int width, height;
  /// How far above the row's top the control begins.
  int above;
};

/// Puts the popup beside its row, on the other side in a right-to-left layout.
void PlaceControl(Evas_Object* popup, const ControlPlacement& placement);
