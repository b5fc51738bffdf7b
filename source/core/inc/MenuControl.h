// The launch parameters.
#pragma once

#include <string>

#include "Log.h"
#include "app_framework.h"

class MenuControl {
 public:
  MenuControl() { LOG_ERROR(" MenuControl Construction called "); }
  virtual ~MenuControl() = default;

  /// Reads the request's extra data; false when the window that it asks for may not be shown. A key that
  /// the request lacks leaves its field as it was (the menu ID is cleared first).
  bool SetLaunchParam(app_control_h request);
  void Clear();

  /// Menu ID of the window to open.
  std::string m_LaunchData;
  /// Application to return to.
  std::string m_ReturnSubmenu;
  std::string m_DeepLink;
  std::string m_DiagnosisType;

 private:
  bool m_ResolveInformationWindow();
};
