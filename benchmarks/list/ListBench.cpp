#include "ListBench.h"

#include <Ecore.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <time.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "CopyRows.h"
#include "LogOutput.h"
#include "Profile.h"
#include "Readings.h"
#include "Schema.h"
#include "Store.h"
#include "filecopy.h"
#include "tvs/ArchiveFile.h"
#include "tvs/ChannelList.h"

namespace fs = std::filesystem;

namespace bench {

namespace {

constexpr long kUsual = 10'000;
constexpr int kPairs = 9;
constexpr double kMostStill = 50;
constexpr size_t kPiece = 64 * 1024;
constexpr size_t kCopyBytes = 100'000'000;
constexpr int kCopyPairs = 3;
constexpr const char* kTables[] = {"satellite", "transponder", "service", "fine_tune"};

void Check(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what);
}

// --- the floor -----------------------------------------------------------------------------------

class Bare {
 public:
  explicit Bare(const std::string& path) {
    Check(sqlite3_open(path.c_str(), &m_db) == SQLITE_OK, path);
    Do("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL");
  }
  ~Bare() { sqlite3_close(m_db); }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;

  sqlite3* Handle() const { return m_db; }
  void Do(const std::string& sql) const {
    Check(sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sqlite3_errmsg(m_db));
  }
  sqlite3_stmt* Prepare(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(m_db, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK, sqlite3_errmsg(m_db));
    return statement;
  }

 private:
  sqlite3* m_db = nullptr;
};

void Flush(const fs::path& path) {
  const int descriptor = open(path.c_str(), O_RDONLY);
  fsync(descriptor);
  close(descriptor);
}

/// Every value of every row.
void ReadRows(const std::string& tv) {
  const Bare bare(tv);
  int64_t sum = 0;
  for (const char* table : kTables) {
    sqlite3_stmt* rows = bare.Prepare(std::string("SELECT * FROM ") + table);
    while (sqlite3_step(rows) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(rows); ++i) sum += sqlite3_column_int64(rows, i);
    }
    sqlite3_finalize(rows);
  }
  Check(sum != 0, "nothing was read");
}

/// The same bytes with the same effort, onto the disk.
void Pack(const std::string& from, const std::string& to) {
  std::ifstream in(from, std::ios::binary);
  std::ofstream out(to, std::ios::binary);
  z_stream stream{};
  deflateInit2(&stream, 1, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
  std::string piece(kPiece, '\0'), packed(kPiece, '\0');
  for (bool last = false; !last;) {
    in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    last = in.gcount() < static_cast<std::streamsize>(piece.size());
    stream.next_in = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_in = static_cast<uInt>(in.gcount());
    do {
      stream.next_out = reinterpret_cast<Bytef*>(packed.data());
      stream.avail_out = static_cast<uInt>(packed.size());
      deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
      out.write(packed.data(), static_cast<std::streamsize>(packed.size() - stream.avail_out));
    } while (stream.avail_out == 0);
  }
  deflateEnd(&stream);
  out.close();
  Flush(to);
  Flush(fs::path(to).parent_path());
}

void Unpack(const std::string& from) {
  std::ifstream in(from, std::ios::binary);
  z_stream stream{};
  inflateInit2(&stream, -MAX_WBITS);
  std::string piece(kPiece, '\0'), plain(kPiece, '\0');
  for (int code = Z_OK; code == Z_OK;) {
    in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    stream.next_in = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_in = static_cast<uInt>(in.gcount());
    do {
      stream.next_out = reinterpret_cast<Bytef*>(plain.data());
      stream.avail_out = static_cast<uInt>(plain.size());
      code = inflate(&stream, Z_NO_FLUSH);
    } while (stream.avail_out == 0 && code == Z_OK);
  }
  inflateEnd(&stream);
}

/// Into tables without rows, then the indexes.
void InsertRows(const Bare& bare) {
  bare.Do("BEGIN");
  for (const char* table : kTables) CopyRows(bare.Handle(), table);
  bare.Do(desktop::kServiceIndexSql);
  bare.Do(
      "CREATE INDEX transponder_satellite ON transponder (satellite, frequency);"
      "CREATE INDEX transponder_frequency ON transponder (antenna, frequency);"
      "CREATE INDEX transponder_package ON transponder (package, package_order) WHERE package IS NOT NULL; COMMIT");
}

double SecondsOfInsertion(const std::string& tv, const std::string& path, const std::string& packed) {
  for (const char* ending : {"", "-wal", "-shm"}) fs::remove(path + ending);
  const Bare bare(path);
  bare.Do("ATTACH '" + tv + "' AS tv");
  for (const std::string table : kTables) {
    sqlite3_stmt* schema = bare.Prepare("SELECT sql FROM tv.sqlite_schema WHERE name = '" + table + "'");
    sqlite3_step(schema);
    const std::string create = reinterpret_cast<const char*>(sqlite3_column_text(schema, 0));
    sqlite3_finalize(schema);
    bare.Do(create);
  }
  return SecondsOf(
      [&] {
        Unpack(packed);
        InsertRows(bare);
      },
      1);
}

// --- ours ----------------------------------------------------------------------------------------

void Export(const std::string& zip) {
  const desktop::ListOutcome outcome = desktop::ExportChannelList(zip);
  Check(outcome.status == desktop::kListDone, outcome.what);
}

void Import(const std::string& zip) {
  const desktop::ListOutcome outcome = desktop::ImportChannelList(zip);
  Check(outcome.status == desktop::kListDone, outcome.what);
}

/// The bytes of an archive's entries, one behind the other.
void WritePlain(const std::string& zip, const std::string& to) {
  std::vector<const char*> names;
  for (const desktop::ListTable& table : desktop::kListFormatTables) names.push_back(table.entry);
  names.push_back(desktop::kManifestEntry);
  desktop::ArchiveReader reader(zip, names);
  std::ofstream out(to, std::ios::binary);
  for (const char* name : names) reader.Read(name, [&](std::string_view piece) { out << piece; });
}

struct Files {
  std::string tv, other, zip, plain, packed, bare;
};

/// Two TVs whose lists have nothing in common but their length, and the archive of the first.
Files MakeFiles(const std::string& directory, const std::string& profile, long services) {
  const std::string own = directory + "/" + profile + std::to_string(services);
  const Files files = {own + ".db", own + "-other.db", own + ".zip", own + ".txt", own + ".z", own + "-bare.db"};
  desktop::MakeTv(files.tv, {profile, services}, true);
  desktop::MakeTv(files.other, {profile, services}, true);
  desktop::Store::Open(files.other);
  desktop::Store::Get().Execute("UPDATE service SET name = 'Other ' || id; UPDATE transponder SET strength = 1");
  desktop::Store::Open(files.tv);
  Export(files.zip);
  WritePlain(files.zip, files.plain);
  Pack(files.plain, files.packed);
  return files;
}

std::vector<Figure> TimeFigures(const Files& files, const std::string& what, int pairs) {
  desktop::Store::Open(files.tv);
  const Figure writing = InTurn(
      "writing " + what, "s", 1.5, pairs, [&] { return SecondsOf([&] { Export(files.zip); }, 1); },
      [&] {
        return SecondsOf(
            [&] {
              ReadRows(files.tv);
              Pack(files.plain, files.packed);
            },
            1);
      });
  desktop::Store::Close();
  const Figure taking = InTurn(
      "importing " + what, "s", 1.5, pairs,
      [&] {
        const fs::path now = files.other + ".now";
        fs::copy_file(files.other, now, fs::copy_options::overwrite_existing);
        desktop::Store::Open(now);
        const double seconds = SecondsOf([&] { Import(files.zip); }, 1);
        desktop::Store::Close();
        return seconds;
      },
      [&] { return SecondsOfInsertion(files.tv, files.bare, files.packed); });
  return {writing, taking};
}

/// How long whoever asks waits, which is how long nothing is drawn.
std::vector<Figure> StillFigures(const std::string& directory) {
  std::vector<Figure> figures;
  for (const std::string profile : {"america", "europe"}) {
    const Files files = MakeFiles(directory, profile, kUsual);
    std::vector<double> writing, taking;
    for (int i = 0; i < kPairs; ++i) {
      desktop::Store::Open(files.tv);
      writing.push_back(SecondsOf([&] { Export(files.zip); }, 1) * 1000);
      desktop::Store::Get().Execute("UPDATE service SET name = 'Other ' || id");
      taking.push_back(SecondsOf([&] { Import(files.zip); }, 1) * 1000);
    }
    desktop::Store::Close();
    figures.push_back({profile + ", 10000 services: an export stands still for", Median(writing), 0, "ms", kMostStill});
    figures.push_back({profile + ", 10000 services: an import stands still for", Median(taking), 0, "ms", kMostStill});
  }
  return figures;
}

std::vector<Figure> MemoryFigures(const std::string& directory, long services) {
  const Files few = MakeFiles(directory, "america", kUsual), many = MakeFiles(directory, "america", services);
  desktop::Store::Close();
  std::vector<Figure> figures;
  for (const std::string what : {"export", "import"}) {
    const auto peak = [&](const Files& files) {
      const std::string& tv = what == "export" ? files.tv : files.other;
      return Child({OwnDirectory() + "quirelle-bench", "--list-child", what, tv, files.zip}).at(0) / 1024;
    };
    figures.push_back({"peak memory of an " + what + ", " + std::to_string(services) + " against " +
                           std::to_string(kUsual) + " services",
                       peak(many), peak(few), "MiB", 1.5});
  }
  return figures;
}

// --- the copy ------------------------------------------------------------------------------------

double SecondsOfCopy(const std::string& from, const std::string& to) {
  CUsbCopyThread copy(from, to);
  const double start = Now();
  copy.Create();
  Ecore_Timer* timer = ecore_timer_add(
      0.002,
      [](void* data) -> Eina_Bool {
        if (static_cast<CUsbCopyThread*>(data)->IsFinished()) ecore_main_loop_quit();
        return ECORE_CALLBACK_RENEW;
      },
      &copy);
  ecore_main_loop_begin();
  ecore_timer_del(timer);
  Check(copy.GetEnd() == CopyEnd::kWhole, "the copy did not end whole");
  return Now() - start;
}

/// As many pieces, as long pauses, nothing else.
double SecondsOfBareCopy(const std::string& from, const std::string& to) {
  const double start = Now();
  const int in = open(from.c_str(), O_RDONLY), out = open(to.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0644);
  std::string piece(kCopyBytes / 300, '\0');
  for (ssize_t count; (count = read(in, piece.data(), piece.size())) > 0;) {
    Check(write(out, piece.data(), static_cast<size_t>(count)) == count, to);
    const timespec pause{0, 5'000'000};
    nanosleep(&pause, nullptr);
  }
  fsync(out);
  close(in);
  close(out);
  Flush(fs::path(to).parent_path());
  return Now() - start;
}

Figure CopyFigure(const std::string& directory) {
  const std::string from = directory + "/from.zip", to = directory + "/to.zip";
  std::ofstream(from, std::ios::binary) << std::string(kCopyBytes, 'x');
  ecore_init();
  const Figure figure = InTurn(
      "copying 100 MB", "s", 1.05, kCopyPairs, [&] { return SecondsOfCopy(from, to); },
      [&] { return SecondsOfBareCopy(from, to); });
  ecore_shutdown();
  return figure;
}

}  // namespace

int RunListChild(const std::vector<std::string>& words) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  desktop::Store::Open(words.at(1));
  words.at(0) == "export" ? Export(words.at(2)) : Import(words.at(2));
  std::printf("%ld\n", PeakKibibytes());
  desktop::Store::Close();
  return 0;
}

std::vector<Figure> ListFigures(const std::string& directory, long services) {
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  std::vector<Figure> figures = StillFigures(directory);
  const auto add = [&](const std::vector<Figure>& more) { figures.insert(figures.end(), more.begin(), more.end()); };
  std::vector<long> counts = {kUsual};
  if (services != kUsual) counts.push_back(services);
  for (const long count : counts) {
    const Files files = MakeFiles(directory, "america", count);
    add(TimeFigures(files, "an archive of " + std::to_string(count) + " services", count > 100'000 ? 3 : kPairs));
  }
  if (services != kUsual) add(MemoryFigures(directory, services));
  figures.push_back(CopyFigure(directory));
  return figures;
}

}  // namespace bench
