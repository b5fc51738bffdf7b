// Sound feedback.
#pragma once

extern "C" {

/// Plays one of the TV's interface sounds. 0 on success, a negative code otherwise.
int feedback_play(int pattern);

}  // extern "C"
