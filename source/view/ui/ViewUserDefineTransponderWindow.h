// The transponder that the user enters by hand: frequency, symbol rate and polarisation; Save tunes to it.
#pragma once

#include "ViewListActionWindow.h"

class CViewUserDefineTransponderWindow : public CViewListActionWindow {
 public:
  using CViewListActionWindow::CViewListActionWindow;
};
