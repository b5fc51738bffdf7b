#include "Deployment.h"

#include <dlfcn.h>

#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "app_framework.h"

namespace desktop {

namespace {

namespace fs = std::filesystem;

/// The library, or the program that it is linked into.
fs::path OwnDirectory() {
  Dl_info info;
  if (dladdr(reinterpret_cast<void*>(&Deployed), &info) == 0) return fs::current_path();
  std::error_code error;
  const fs::path own = fs::canonical(info.dli_fname, error);
  return error ? fs::current_path() : own.parent_path();
}

Deployment Find() {
  const fs::path own = OwnDirectory();
  if (fs::exists(own / "profiles")) return {own, own / "locale", own / "profiles", own / "modules"};
  // <prefix>/bin, <prefix>/lib or <prefix>/lib/<architecture>
  fs::path prefix = own.parent_path();
  if (!fs::exists(prefix / "share/quirelle")) prefix = prefix.parent_path();
  const fs::path share = prefix / "share";
  return {share / "quirelle/edje", share / "locale", share / "quirelle/profiles", share / "quirelle/modules"};
}

/// Longest prefix first where one holds another.
struct Mapping {
  std::string_view path;
  fs::path Deployment::*directory;
};

constexpr std::string_view kThemes =
    "/usr/apps/com.vantrel.tv.ostrany-resource/shared/res/com.vantrel.tv.quirelle/edje";
constexpr std::string_view kLocales = "/usr/apps/com.vantrel.tv.quirelle/shared/locale";

const Mapping kMappings[] = {{kThemes, &Deployment::themes}, {kLocales, &Deployment::locales}};

}  // namespace

const Deployment& Deployed() {
  static const Deployment deployment = Find();
  return deployment;
}

}  // namespace desktop

const char* app_get_deployed_path(const char* path) {
  using namespace desktop;
  static std::set<std::string> known;
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  const std::string_view asked(path);
  for (const Mapping& mapping : kMappings) {
    if (!asked.starts_with(mapping.path)) continue;
    const std::string rest(asked.substr(mapping.path.size()));
    return known.insert((Deployed().*mapping.directory).string() + rest).first->c_str();
  }
  return known.insert(path).first->c_str();
}
