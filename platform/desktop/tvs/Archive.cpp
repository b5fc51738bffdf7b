// The channel list as an archive, as the service gives and takes it.
#include "ChannelList.h"
#include "Gate.h"
#include "Proxies.h"
#include "dlog.h"

namespace desktop {

namespace {

constexpr int kNotWritten = 0, kWritten = 1;

std::string& Problem() {
  static std::string problem;
  return problem;
}

ListStatus Note(Entry& entry, const ListOutcome& outcome) {
  Problem() = outcome.what;
  entry.Out(outcome.what);
  if (outcome.status != kListDone) dlog_print(DLOG_ERROR, "desktop", "channel list: %s\n", outcome.what.c_str());
  return outcome.status;
}

class Util : public IUtil {
 public:
  int GetServiceDb(const std::string& path) override {
    Problem().clear();
    return Gate::Pass<int>(op::Util_GetServiceDb, Entry(path), [&](Entry& entry) {
      return Note(entry, ExportChannelList(path)) == kListDone ? kWritten : kNotWritten;
    });
  }

  int SetServiceDb(const std::string& path) override {
    Problem().clear();
    return Gate::Pass<int>(op::Util_SetServiceDb, Entry(path),
                           [&](Entry& entry) -> int { return Note(entry, ImportChannelList(path)); });
  }
};

}  // namespace

const std::string& LastArchiveProblem() { return Problem(); }

std::unique_ptr<ITVSProxy> MakeUtil() { return std::make_unique<Util>(); }

}  // namespace desktop
