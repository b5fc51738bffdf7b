#include "ScanTables.h"

#include <dlfcn.h>
#include <libdvbv5/dvb-file.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "tvs_types.h"

namespace desktop {

namespace {

namespace fs = std::filesystem;

/// The library is loaded when a TV is made: the programs that run on one do without it.
struct ScanLibrary {
  decltype(&dvb_read_file) read = nullptr;
  decltype(&dvb_retrieve_entry_prop) property = nullptr;
};

const ScanLibrary& Library() {
  static const ScanLibrary library = [] {
    ScanLibrary loaded;
    if (void* handle = dlopen("libdvbv5.so.0", RTLD_NOW | RTLD_LOCAL)) {
      loaded.read = reinterpret_cast<decltype(loaded.read)>(dlsym(handle, "dvb_read_file"));
      loaded.property = reinterpret_cast<decltype(loaded.property)>(dlsym(handle, "dvb_retrieve_entry_prop"));
    }
    return loaded;
  }();
  return library;
}

struct Pair {
  int library, ours;
};

// clang-format off
constexpr Pair kCodeRates[] = {
    {FEC_AUTO, INNER_FEC_AUTO}, {FEC_1_2, INNER_FEC_1_2}, {FEC_2_3, INNER_FEC_2_3}, {FEC_3_4, INNER_FEC_3_4},
    {FEC_3_5, INNER_FEC_3_5},   {FEC_4_5, INNER_FEC_4_5}, {FEC_5_6, INNER_FEC_5_6}, {FEC_6_7, INNER_FEC_6_7},
    {FEC_7_8, INNER_FEC_7_8},   {FEC_8_9, INNER_FEC_8_9}, {FEC_9_10, INNER_FEC_9_10}, {FEC_2_5, INNER_FEC_2_5},
};
constexpr Pair kPolarisations[] = {
    {POLARIZATION_H, POLARISATION_HORIZONTAL}, {POLARIZATION_V, POLARISATION_VERTICAL},
    {POLARIZATION_L, POLARISATION_LEFT},       {POLARIZATION_R, POLARISATION_RIGHT},
};
constexpr Pair kBandwidths[] = {
    {5000000, BANDWIDTH_5}, {6000000, BANDWIDTH_6},   {7000000, BANDWIDTH_7},
    {8000000, BANDWIDTH_8}, {10000000, BANDWIDTH_10}, {1712000, BANDWIDTH_712},
};
// clang-format on

template <size_t N>
int Ours(const Pair (&pairs)[N], int value) {
  for (const Pair& pair : pairs) {
    if (pair.library == value) return pair.ours;
  }
  return -1;
}

/// The entry's property, -1 when it does not have it.
int Property(dvb_entry* entry, unsigned command) {
  uint32_t value = 0;
  return Library().property(entry, command, &value) == 0 ? static_cast<int>(value) : -1;
}

bool IsSatellite(int standard) { return standard == SYS_DVBS || standard == SYS_DVBS2 || standard == SYS_TURBO; }

ScanEntry Read(dvb_entry* entry) {
  ScanEntry read;
  read.standard = Property(entry, DTV_DELIVERY_SYSTEM);
  const int frequency = Property(entry, DTV_FREQUENCY);
  const int symbolRate = Property(entry, DTV_SYMBOL_RATE);
  const auto known = [](int value) { return value > 0 ? value : -1; };
  read.frequency = known(IsSatellite(read.standard) ? frequency : frequency / 1000);
  read.symbolRate = known(symbolRate / 1000);
  read.polarisation = Ours(kPolarisations, Property(entry, DTV_POLARIZATION));
  read.fec = Ours(kCodeRates, Property(entry, DTV_INNER_FEC));
  read.modulation = Property(entry, DTV_MODULATION);
  // ATSC has one bandwidth, and its tables do not repeat it.
  read.bandwidth = read.standard == SYS_ATSC ? BANDWIDTH_6 : Ours(kBandwidths, Property(entry, DTV_BANDWIDTH_HZ));
  return read;
}

/// What an entry lacks to be tuned to; null for a whole one.
const char* Missing(const ScanEntry& entry) {
  if (entry.frequency < 0) return "no frequency";
  if (!IsSatellite(entry.standard)) return nullptr;
  if (entry.symbolRate <= 0 || entry.symbolRate >= 65535) return "no symbol rate";
  return entry.polarisation < 0 ? "no polarisation" : nullptr;
}

struct FreeFile {
  void operator()(dvb_file* file) const { dvb_file_free(file); }
};

}  // namespace

std::vector<ScanEntry> ReadScanTable(const fs::path& file, const Complain& complain) {
  const ScanLibrary& library = Library();
  if (!library.read || !library.property) {
    complain(file.string() + ": libdvbv5.so.0 is missing");
    return {};
  }
  const std::unique_ptr<dvb_file, FreeFile> table(library.read(file.c_str()));
  if (!table || !table->first_entry) {
    complain(file.string() + ": cannot be read; skipped");
    return {};
  }
  std::vector<ScanEntry> entries;
  int number = 0;
  for (dvb_entry* entry = table->first_entry; entry; entry = entry->next) {
    ++number;
    const ScanEntry read = Read(entry);
    if (const char* missing = Missing(read)) {
      complain(file.string() + ": entry " + std::to_string(number) + ": " + missing + "; skipped");
    } else {
      entries.push_back(read);
    }
  }
  return entries;
}

int OrbitalPosition(const std::string& name) {
  const size_t at = name.find_last_of("-_");
  const bool east = name.ends_with('E');
  if (at == std::string::npos || (!east && !name.ends_with('W'))) return -1;
  double degrees = 0;
  const char* last = name.data() + name.size() - 1;
  const auto [end, error] = std::from_chars(name.data() + at + 1, last, degrees, std::chars_format::fixed);
  // What is no number is not between these either.
  if (error != std::errc() || end != last || !(degrees >= 0 && degrees <= 180)) return -1;
  const int tenths = static_cast<int>(std::lround(degrees * 10));
  return east || tenths == 0 ? tenths : 3600 - tenths;
}

std::vector<SatelliteTable> SatelliteTables(const fs::path& directory) {
  std::vector<SatelliteTable> tables;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(directory, error)) {
    const std::string name = entry.path().filename();
    const int position = OrbitalPosition(name);
    if (position < 0 || !entry.is_regular_file()) continue;
    std::string shown = name;
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '-' || c == '_'; }, ' ');
    tables.push_back({shown, position, entry.path()});
  }
  std::sort(tables.begin(), tables.end(), [](const auto& a, const auto& b) { return a.file < b.file; });
  return tables;
}

fs::path ScanTableDirectory() {
  const char* directory = std::getenv("QUIRELLE_SCAN_TABLES");
  return directory && *directory ? directory : "/usr/share/dvb";
}

}  // namespace desktop
