// The rows of the settings tree that tell of the signal: nothing of theirs is stored, all is read from the main
// picture's tuner and channel.
#pragma once

#include <optional>
#include <string>

namespace desktop {

/// The text of such a row, "----" for what is not known now; nothing for any other item.
std::optional<std::string> SignalItemText(const std::string& id);
/// False for a row of which this kind of broadcast has nothing to tell.
bool IsSignalItemShown(const std::string& id);

}  // namespace desktop
