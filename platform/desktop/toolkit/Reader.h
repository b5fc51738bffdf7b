// The TV's screen reader: says what has the focus, from the texts that its object has for the ear, unless the program
// has named it.
#pragma once

namespace desktop {

/// Nothing happens while the voice guide is off.
void StartReader();
void StopReader();

}  // namespace desktop
