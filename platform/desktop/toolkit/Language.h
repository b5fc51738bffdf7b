// The language of the TV.
#pragma once

namespace desktop {

/// Makes the TV's language that of the catalogues, whatever locales this machine has.
void UseLanguage();
/// By the TV's orientation setting, or its language where that says "auto".
bool IsRightToLeft();

}  // namespace desktop
