// What is read out: the toolkit's speech module hands it here.
#pragma once

#include <string>
#include <vector>

namespace desktop {

/// Table of functions that the speech module finds on the main loop's object under `kSpeechKey`.
struct SpeechOutput {
  void (*read)(const char* text);
  void (*cancel)();
};
inline constexpr const char* kSpeechKey = "quirelle.speech";

/// Offers the output to the module; the toolkit must be up. `aloud` also runs espeak-ng.
void StartSpeech(bool aloud);
void StopSpeech();
/// Turns the toolkit's screen reader on or off as the TV's voice guide is; before the window is made.
void FollowVoiceGuide();

/// Texts read out since the start, in order.
const std::vector<std::string>& Spoken();

}  // namespace desktop
