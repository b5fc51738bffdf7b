// The channel list as an archive: this desktop cannot make or read one yet, and says so.
#include "Gate.h"
#include "Proxies.h"

namespace desktop {

namespace {

constexpr int kNotWritten = 0, kOtherFailure = 3;

class Util : public IUtil {
 public:
  int GetServiceDb(const std::string& path) override {
    return Gate::Pass<int>(op::Util_GetServiceDb, Entry(path), [](Entry&) { return kNotWritten; });
  }

  int SetServiceDb(const std::string& path) override {
    return Gate::Pass<int>(op::Util_SetServiceDb, Entry(path), [](Entry&) { return kOtherFailure; });
  }
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeUtil() { return std::make_unique<Util>(); }

}  // namespace desktop
