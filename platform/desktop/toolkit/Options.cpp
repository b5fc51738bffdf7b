#include "Options.h"

#include <cstdio>
#include <stdexcept>

namespace desktop {

namespace {

void TakeExtra(Options& options, const std::string& pair) {
  const size_t equals = pair.find('=');
  if (equals == 0 || equals == std::string::npos) throw UsageError("--extra '" + pair + "': wants KEY=VALUE");
  options.extra[pair.substr(0, equals)] = pair.substr(equals + 1);
}

void TakeKeys(Options& options, const std::string& text) {
  std::string wrong;
  if (!ParseSteps(text, options.steps, wrong)) throw UsageError("--keys '" + wrong + "': no key of the remote");
}

void TakeLog(Options& options, const std::string& word) {
  LogLevel level;
  if (!ParseLogLevel(word, level)) throw UsageError("--log '" + word + "': wants off, error or info");
  options.log = level;
}

struct ValueOption {
  const char* name;
  void (*take)(Options&, const std::string&);
};

constexpr ValueOption kValueOptions[] = {
    {"--extra", TakeExtra},
    {"--keys", TakeKeys},
    {"--shot", [](Options& o, const std::string& value) { o.shot = value; }},
    {"--dump", [](Options& o, const std::string& value) { o.dump = value; }},
    {"--tv", [](Options& o, const std::string& value) { o.tv = value; }},
    {"--log", TakeLog},
};

struct SwitchOption {
  const char* name;
  bool Options::*flag;
};

constexpr SwitchOption kSwitches[] = {
    {"--list", &Options::list},
    {"--help", &Options::help},
    {"--speak", &Options::speak},
};

bool TakeSwitch(Options& options, const std::string& word) {
  for (const SwitchOption& option : kSwitches) {
    if (word == option.name) return options.*option.flag = true;
  }
  return false;
}

/// Either "--name value" or "--name=value".
bool TakeValue(Options& options, const std::string& word, int& i, int argc, char** argv) {
  for (const ValueOption& option : kValueOptions) {
    const std::string name = option.name;
    if (word.starts_with(name + "=")) {
      option.take(options, word.substr(name.size() + 1));
      return true;
    }
    if (word != name) continue;
    if (i + 1 >= argc) throw UsageError(name + ": a value is missing");
    option.take(options, argv[++i]);
    return true;
  }
  return false;
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (TakeSwitch(options, word) || TakeValue(options, word, i, argc, argv)) continue;
    if (word.starts_with("-")) throw UsageError("unknown option '" + word + "'");
    if (!options.menuID.empty()) throw UsageError("more than one menu ID: '" + options.menuID + "' and '" + word + "'");
    options.menuID = word;
  }
  return options;
}

void PrintHelp() {
  std::puts(
      "quirelle MENU-ID [flags]   opens the window of a menu ID\n"
      "\n"
      "  --list             names the menu IDs\n"
      "  --extra KEY=VALUE  a launch parameter (repeatable): PrevSubmenu, deeplink, DiagnosisType\n"
      "  --keys \"KEY ...\"   presses keys one after the other; wait:2.5 lets so many seconds pass,\n"
      "                     shot:FILE.png takes a picture in between\n"
      "  --shot FILE.png    after the last key, writes the picture of the screen, then exits\n"
      "  --dump FILE.json   after the last key, writes what a person would see and hear (- is standard\n"
      "                     output), then exits\n"
      "  --tv FILE          the TV to run on (default $QUIRELLE_TV, else $XDG_DATA_HOME/quirelle/tv.db)\n"
      "  --log LEVEL        platform log to standard error: off, error or info\n"
      "  --speak            reads out through the speakers what the voice guide says (espeak-ng)\n"
      "\n"
      "Keys of the remote, and the keyboard's keys that stand in for them:");
  std::string line = " ";
  for (const char* key : RemoteKeys()) {
    if (line.size() + std::string(key).size() > 96) {
      std::puts(line.c_str());
      line = " ";
    }
    line += std::string(" ") + key;
  }
  std::puts(line.c_str());
  for (const KeyAlias& alias : KeyAliases()) std::printf("  %-10s %s\n", alias.alias, alias.key);
}

}  // namespace desktop
