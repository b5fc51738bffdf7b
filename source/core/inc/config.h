// What the program was started with besides its launch parameters.
#pragma once

#include "Log.h"

class MenuConfig {
 public:
  MenuConfig() { LOG_ERROR(" MenuConfig Construction called "); }

  /// Reads the setting; unreadable counts as off.
  void SetHighContrast();
  /// -1 never read, 0 off, anything else on.
  int GetHighContrast() const { return m_nHighContrast; }

 private:
  int m_nHighContrast = -1;
};
