// The step back to the application that launched an information window.
#pragma once

#include <string>

/// Launches the application to return to, where the window `launchData` has one; waits at most five
/// seconds for the self-diagnosis application to run.
void ReturnToMenu(const std::string& launchData);
