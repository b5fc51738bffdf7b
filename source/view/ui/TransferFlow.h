// What the windows of the channel-list transfer share.
#pragma once

#include <string>

/// Whether a menu ID is one of the four.
bool IsTransfer(const std::string& menuID);
/// Of the user's menu or of the factory's.
bool IsImport(const std::string& menuID);
/// Display name of the user's import or export.
std::string TransferTitle(const std::string& menuID);
/// The product's word for itself, translated.
std::string ProductName();
/// Whoever leaves the flow does away with the inventory of sticks, and with what was chosen of it.
void ForgetDevices();
