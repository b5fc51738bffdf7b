// What an installer changes beside the dish and the cable: which satellites are in use, where the user's own stand; and
// how all of it goes back to what the TV was made with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tvs_types.h"

namespace desktop {

constexpr int kUserSatellites = SATELLITE_USER_LAST - SATELLITE_USER_FIRST + 1;

/// What the main picture receives.
TSTvMode MainMode();
/// The mode whose choice of satellites holds in this one: itself, or none for that of all modes together.
TSTvMode ChoosingMode(const TSTvMode& mode);
bool IsSelected(int satellite, const TSTvMode& mode);
/// Gives the mode a choice of its own. False, and nothing has changed, when one of them is no satellite.
bool SelectSatellites(const std::vector<int>& satellites, const TSTvMode& mode);
/// Adds one to the mode's choice, or takes it away.
void SelectSatellite(int satellite, bool selected, const TSTvMode& mode);

/// "19.2 E" for a position in tenths of a degree from 0 to 3599, and back.
std::string LongitudeText(int position);
std::optional<int> ParseLongitude(const std::string& text);
/// The setting of a satellite of the user, 1 to 4, as an item of the settings tree.
std::string UserSatelliteItem(int number);
/// Moves one and says so in its item, in these words.
void MoveUserSatellite(int number, int position, const std::string& text);
/// The user's transponders of a satellite are heard as what is on air at its position.
void HearUserTransponders(int satellite);

/// Keeps what the TV is made with. Once, when it is made.
void KeepAsMade();
/// Back to that, as a whole: one satellite's settings, or those of all with the user's satellites and transponders, the
/// installation's keys and the tuners' bands.
void ResetSatellite(int satellite);
void ResetInstallation();

}  // namespace desktop
