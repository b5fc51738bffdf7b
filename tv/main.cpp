// quirelle-tv: makes TVs, looks into them, and makes things happen on them.
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "Profile.h"
#include "Store.h"
#include "Text.h"
#include "Verbs.h"

using namespace desktop;

std::string g_tv;

namespace {

constexpr int kUsage = 2;
constexpr int kFailure = 1;

void PrintUsage(FILE* to) {
  std::fputs("quirelle-tv [--tv FILE] VERB ...   (default TV: $QUIRELLE_TV, else $XDG_DATA_HOME/quirelle/tv.db)\n\n",
             to);
  for (const auto family : VerbFamilies()) {
    for (const Verb& verb : family) std::fprintf(to, "  %-38s %s\n", verb.usage, verb.what);
  }
}

/// Takes "--tv FILE" or "--tv=FILE" out of the words, wherever it stands.
Arguments TakeTv(int argc, char** argv) {
  Arguments words;
  g_tv = Store::DefaultPath();
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word.starts_with("--tv=")) {
      g_tv = word.substr(5);
    } else if (word == "--tv") {
      if (i + 1 >= argc) throw WordError("--tv: a file is missing");
      g_tv = argv[++i];
    } else {
      words.push_back(word);
    }
  }
  return words;
}

int Run(int argc, char** argv) {
  Arguments words = TakeTv(argc, argv);
  if (words.empty()) {
    PrintUsage(stderr);
    return kUsage;
  }
  if (words[0] == "--help" || words[0] == "help") {
    PrintUsage(stdout);
    return 0;
  }
  const Verb& verb = TakeVerb(words);
  if (verb.opens) Store::Open(g_tv);
  const int status = verb.run(words);
  Store::Close();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const WordError& error) {
    std::fprintf(stderr, "quirelle-tv: %s\n", OneLine(error.what()).c_str());
    return kUsage;
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "quirelle-tv: %s\n", OneLine(error.what()).c_str());
    return kFailure;
  }
}
