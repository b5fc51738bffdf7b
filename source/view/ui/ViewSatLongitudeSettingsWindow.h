// Where the user's satellites stand: a row for each.
#pragma once

#include "ViewListActionWindow.h"

class CViewSatLongitudeSettingsWindow : public CViewListActionWindow {
 public:
  using CViewListActionWindow::CViewListActionWindow;
};
