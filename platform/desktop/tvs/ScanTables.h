// Debian's scan tables: what is on air where.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace desktop {

/// One transponder or physical channel as its file says; -1 for what it does not say.
struct ScanEntry {
  int frequency = -1;     ///< kHz
  int symbolRate = -1;    ///< kBd
  int polarisation = -1;  ///< EDVBSPolarisation
  int fec = -1;           ///< EDVBFECInner
  int modulation = -1;    ///< as the tables' library numbers it
  int bandwidth = -1;     ///< EBandwidth
  int standard = -1;      ///< delivery system, as the tables' library numbers it
};

/// Is told of every file or entry that is skipped: "file: what is wrong".
using Complain = std::function<void(const std::string&)>;

/// The usable entries of one file in their order. Empty when the file cannot be read.
std::vector<ScanEntry> ReadScanTable(const std::filesystem::path& file, const Complain& complain);

struct SatelliteTable {
  std::string name;
  int position;  ///< tenths of a degree, eastwards from 0 to 3599
  std::filesystem::path file;
};
/// The satellites of a directory by file name; files whose name has no position are left out.
std::vector<SatelliteTable> SatelliteTables(const std::filesystem::path& directory);

/// "19.2E" at a name's end in tenths of a degree, -1 when there is none.
int OrbitalPosition(const std::string& name);

/// `$QUIRELLE_SCAN_TABLES`, else where Debian has them.
std::filesystem::path ScanTableDirectory();

}  // namespace desktop
