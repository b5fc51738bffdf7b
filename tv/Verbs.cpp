#include "Verbs.h"

std::vector<std::span<const Verb>> VerbFamilies() {
  return {SetVerbs(), ReceptionVerbs(), RatingVerbs(), SatelliteVerbs(), ChannelListVerbs()};
}

const Verb& TakeVerb(Arguments& words) {
  for (const size_t length : {2, 1}) {
    if (words.size() < length) continue;
    const std::string name = length == 2 ? words[0] + " " + words[1] : words[0];
    for (const auto family : VerbFamilies()) {
      for (const Verb& verb : family) {
        if (name != verb.name) continue;
        words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(length));
        return verb;
      }
    }
  }
  throw WordError("unknown verb '" + (words.empty() ? "" : words[0]) + "'; quirelle-tv --help names them");
}
