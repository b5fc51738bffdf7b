// The remote's keys, and the keyboard that stands in for it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

struct KeyAlias {
  /// A name on the keyboard or a short word.
  const char* alias;
  /// The remote's name.
  const char* key;
};

std::span<const char* const> RemoteKeys();
std::span<const KeyAlias> KeyAliases();

/// The remote's name of a key named either way; null for a key that the remote does not have.
const char* RemoteKey(std::string_view name);

/// One step of a remote-control session.
struct Step {
  enum Kind { kKey, kWait, kShot } kind;
  /// The remote's key, or the file of a picture.
  std::string text;
  double seconds = 0;
};

/// Reads "Down Down Return wait:2.5 shot:a.png"; false, with the word that it stumbled over, when it is malformed.
bool ParseSteps(const std::string& text, std::vector<Step>& steps, std::string& wrong);

}  // namespace desktop
