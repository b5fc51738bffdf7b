#include "Deployment.h"

#include <dlfcn.h>

#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "Store.h"
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
  if (fs::exists(own / "profiles")) return {own, own / "locale", own / "profiles", own / "images"};
  // <prefix>/bin, <prefix>/lib or <prefix>/lib/<architecture>
  fs::path prefix = own.parent_path();
  if (!fs::exists(prefix / "share/quirelle")) prefix = prefix.parent_path();
  const fs::path share = prefix / "share";
  return {share / "quirelle/edje", share / "locale", share / "quirelle/profiles", share / "quirelle/images"};
}

/// Longest prefix first where one holds another.
struct Mapping {
  std::string_view path;
  fs::path Deployment::*directory;
};

constexpr std::string_view kThemes =
    "/usr/apps/com.vantrel.tv.ostrany-resource/shared/res/com.vantrel.tv.quirelle/edje";
constexpr std::string_view kLocales = "/usr/apps/com.vantrel.tv.quirelle/shared/locale";
constexpr std::string_view kImages = "/usr/apps/com.vantrel.tv.quirelle/res/images";
constexpr std::string_view kOwner = "/opt/usr/home/owner/";

const Mapping kMappings[] = {
    {kThemes, &Deployment::themes}, {kLocales, &Deployment::locales}, {kImages, &Deployment::images}};

}  // namespace

const Deployment& Deployed() {
  static const Deployment deployment = Find();
  return deployment;
}

fs::path OwnerDirectory() {
  const fs::path tv = fs::absolute(Store::Get().Path());
  const fs::path directory = tv.parent_path() / ("." + tv.filename().string() + ".owner");
  std::error_code error;  // who writes there is told
  fs::create_directories(directory / "share", error);
  return directory;
}

}  // namespace desktop

const char* app_get_deployed_path(const char* path) {
  using namespace desktop;
  static std::set<std::string> known;
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  const std::string_view asked(path);
  if (asked.starts_with(kOwner)) {
    return known.insert(OwnerDirectory() / asked.substr(kOwner.size())).first->c_str();
  }
  for (const Mapping& mapping : kMappings) {
    if (!asked.starts_with(mapping.path)) continue;
    const std::string rest(asked.substr(mapping.path.size()));
    return known.insert((Deployed().*mapping.directory).string() + rest).first->c_str();
  }
  return known.insert(path).first->c_str();
}
