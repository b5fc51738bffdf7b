// The application framework's entry: the command line stands in for the TV's main menu.
#include <cstdio>
#include <cstdlib>

#include "Application.h"
#include "Applications.h"
#include "Gate.h"
#include "Profile.h"
#include "Text.h"

namespace desktop {

namespace {

constexpr int kUsage = 2;
constexpr int kFailure = 1;

/// The windows of the settings tree, which is the same on every TV.
std::vector<std::string> MenuIDs() {
  std::vector<std::string> ids;
  for (const ProfileSection& section : ReadProfile(kDefaultProfile)) {
    if (section.name != "menu") continue;
    for (const ProfileLine& line : section.lines) {
      std::string rest = line.text;
      if (TakeWord(rest) == "window") ids.push_back(TakeWord(rest));
    }
  }
  return ids;
}

bool IsMenuID(const std::string& id) {
  for (const std::string& known : MenuIDs()) {
    if (known == id) return true;
  }
  return false;
}

[[noreturn]] void RefuseMenuID(const std::string& id) {
  if (id.empty()) {
    std::fprintf(stderr, "quirelle: a menu ID is missing; there are:");
  } else {
    std::fprintf(stderr, "quirelle: unknown menu ID '%s'; there are:", OneLine(id).c_str());
  }
  for (const std::string& known : MenuIDs()) std::fprintf(stderr, " %s", known.c_str());
  std::fprintf(stderr, "\n");
  std::exit(kUsage);
}

Options CommandLine(int argc, char** argv) {
  Options options;
  try {
    options = ParseOptions(argc, argv);
  } catch (const UsageError& error) {
    std::fprintf(stderr, "quirelle: %s\n", OneLine(error.what()).c_str());
    std::exit(kUsage);
  }
  if (options.help) {
    PrintHelp();
    std::exit(0);
  }
  if (options.list) {
    for (const std::string& id : MenuIDs()) std::puts(id.c_str());
    std::exit(0);
  }
  if (!IsMenuID(options.menuID)) RefuseMenuID(options.menuID);
  return options;
}

}  // namespace

}  // namespace desktop

using namespace desktop;

int ui_app_main(int argc, char** argv, ui_app_lifecycle_callback_s* callbacks, void* user_data) {
  Application application(CommandLine(argc, argv), *callbacks, user_data);
  try {
    if (application.Start()) application.Loop();
    application.Finish();
  } catch (const std::runtime_error& error) {
    std::fprintf(stderr, "quirelle: %s\n", OneLine(error.what()).c_str());
    std::exit(kFailure);
  }
  return 0;
}

void ui_app_exit() {
  Gate::Run(op::ui_app_exit, Entry(), [](Entry&) {
    if (Application* application = Application::Current()) application->Exit();
  });
}
