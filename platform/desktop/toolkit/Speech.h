// What is read out.
#pragma once

#include <string>
#include <vector>

namespace desktop {

/// Follows the TV's voice guide; before the window is made. `aloud` also runs espeak-ng.
void StartSpeech(bool aloud);
void StopSpeech();
/// Whether the voice guide was on when the program was started.
bool IsVoiceOn();

/// Reads a text out, in place of what is being read. Blank ones are none.
void Read(const std::string& text);
/// Reads a text out once what is being read has ended.
void ReadNext(const std::string& text);
void Silence();

/// Texts read out since the start, in order.
const std::vector<std::string>& Spoken();

}  // namespace desktop
