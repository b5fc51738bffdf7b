// The channel list as an archive: made, checked, and put in the place of the list in use.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "ListFormat.h"
#include "ListStage.h"

namespace desktop {

struct ListOutcome {
  ListStatus status = kListDone;
  /// Why, as one line; empty when it is done.
  std::string what;
};

/// Writes the list to the archive `path`: whole, or not at all, and then what was there before is still there.
ListOutcome ExportChannelList(const std::string& path);
/// Replaces the list by the archive's: whole, or not at all.
ListOutcome ImportChannelList(const std::string& path);

/// What an archive holds, as far as it could be read.
struct ListContents {
  ListOutcome outcome;
  std::optional<Manifest> manifest;
  /// What an import would change in each table; only where it would be done.
  std::array<ListDifference, kListTables> differences;
};
/// Changes nothing.
ListContents CheckChannelList(const std::string& path);

/// What the last call of the service about an archive had to say of it; empty when it was done.
const std::string& LastArchiveProblem();

}  // namespace desktop
