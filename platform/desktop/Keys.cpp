#include "Keys.h"

#include <cmath>
#include <cstdlib>
#include <sstream>

namespace desktop {

namespace {

constexpr const char* kRemoteKeys[] = {
    "Up",
    "Down",
    "Left",
    "Right",
    "Return",
    "XF86Back",
    "BackSpace",
    "0",
    "1",
    "2",
    "3",
    "4",
    "5",
    "6",
    "7",
    "8",
    "9",
    "XF86RaiseChannel",
    "XF86LowerChannel",
    "XF86AudioStop",
    "XF86AudioPlay",
    "XF86AudioPause",
    "XF86PlayBack",
    "XF86EManual",
    "XF86Red",
    "XF86Green",
    "XF86ListHome",
    "XF86ListEnd",
    "XF86VoiceControl",
    "XF86LeftPage",
    "XF86RightPage",
    "XF86UpPage",
    "XF86DownPage",
    "XF86WheelLeftKey",
    "XF86WheelRightKey",
    "XF86More",
};

constexpr KeyAlias kAliases[] = {
    {"Escape", "XF86Back"},
    {"Back", "XF86Back"},
    {"KP_Enter", "Return"},
    {"space", "Return"},
    {"Prior", "XF86RaiseChannel"},
    {"Page_Up", "XF86RaiseChannel"},
    {"Next", "XF86LowerChannel"},
    {"Page_Down", "XF86LowerChannel"},
    {"F1", "XF86EManual"},
    {"F2", "XF86Red"},
    {"F3", "XF86Green"},
    {"F4", "XF86AudioStop"},
    {"F5", "XF86More"},
    {"Home", "XF86ListHome"},
    {"End", "XF86ListEnd"},
    {"KP_0", "0"},
    {"KP_1", "1"},
    {"KP_2", "2"},
    {"KP_3", "3"},
    {"KP_4", "4"},
    {"KP_5", "5"},
    {"KP_6", "6"},
    {"KP_7", "7"},
    {"KP_8", "8"},
    {"KP_9", "9"},
};

constexpr double kMostSeconds = 86400;

bool ParseSeconds(const std::string& text, double& seconds) {
  char* end = nullptr;
  seconds = std::strtod(text.c_str(), &end);
  return !text.empty() && *end == '\0' && std::isfinite(seconds) && seconds >= 0 && seconds <= kMostSeconds;
}

bool ParseStep(const std::string& word, Step& step) {
  if (word.starts_with("wait:")) {
    step.kind = Step::kWait;
    return ParseSeconds(word.substr(5), step.seconds);
  }
  if (word.starts_with("shot:")) {
    step = {Step::kShot, word.substr(5)};
    return !step.text.empty();
  }
  const char* key = RemoteKey(word);
  if (key) step = {Step::kKey, key};
  return key != nullptr;
}

}  // namespace

std::span<const char* const> RemoteKeys() { return kRemoteKeys; }

std::span<const KeyAlias> KeyAliases() { return kAliases; }

const char* RemoteKey(std::string_view name) {
  for (const char* key : kRemoteKeys) {
    if (name == key) return key;
  }
  for (const KeyAlias& alias : kAliases) {
    if (name == alias.alias) return alias.key;
  }
  return nullptr;
}

bool ParseSteps(const std::string& text, std::vector<Step>& steps, std::string& wrong) {
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    Step step{};
    if (!ParseStep(word, step)) {
      wrong = word;
      return false;
    }
    steps.push_back(step);
  }
  return true;
}

}  // namespace desktop
