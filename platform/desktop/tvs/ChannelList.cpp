#include "ChannelList.h"

#include <ctime>
#include <functional>
#include <vector>

#include "ArchiveFile.h"
#include "ListRecords.h"
#include "NewFile.h"
#include "State.h"
#include "Store.h"

namespace desktop {

namespace {

constexpr size_t kPiece = 64 * 1024;
constexpr const char* kMaker = "quirelle " QUIRELLE_VERSION;

/// The country of the set, as three letters; no list without one.
std::string Country() {
  const int64_t packed = TvState("country_letters", 0);
  std::string letters;
  for (const int shift : {16, 8, 0}) letters += static_cast<char>(packed >> shift & 0xFF);
  for (const char letter : letters) {
    if (letter < 'A' || letter > 'Z') throw ListError(kListFailed, "the TV does not know which country it is in");
  }
  return letters;
}

std::string Now() {
  const auto now = static_cast<std::time_t>(NowMilliseconds() / 1000);
  std::tm utc;
  gmtime_r(&now, &utc);
  char text[32];
  return std::string(text, std::strftime(text, sizeof text, "%FT%TZ", &utc));
}

/// The list in use, table after table, with what a manifest says of each.
class ListSource {
 public:
  /// `ids` is what `RecordWriter` needs.
  explicit ListSource(ListIds& ids) : m_ids(ids) {}

  /// Appends the table's next piece; false when there is no more.
  bool Draw(size_t table, std::string& out) {
    if (!m_writer) m_writer.emplace(kListFormatTables[table], m_ids);
    const size_t before = out.size();
    while (out.size() < before + kPiece && m_writer->Append(out)) {
    }
    m_digest.Add(std::string_view(out).substr(before));
    m_figures[table].bytes += out.size() - before;
    if (out.size() > before) return true;
    m_figures[table].records = m_writer->Records();
    m_figures[table].digest = m_digest.Finish();
    m_digest = Digest();
    m_writer.reset();
    return false;
  }

  const std::array<EntryFigures, kListTables>& Figures() const { return m_figures; }

 private:
  ListIds& m_ids;
  std::optional<RecordWriter> m_writer;
  Digest m_digest;
  std::array<EntryFigures, kListTables> m_figures;
};

/// All that is read while this lives is the TV of one moment.
class Moment {
 public:
  Moment() { Store::Get().Execute("BEGIN"); }
  ~Moment() { sqlite3_exec(Store::Get().Handle(), "ROLLBACK", nullptr, nullptr, nullptr); }
  Moment(const Moment&) = delete;
  Moment& operator=(const Moment&) = delete;
};

void WriteList(int descriptor) {
  const Moment moment;
  Manifest manifest{Country(), Now(), kMaker, {}};
  ListIds ids;
  ListSource list(ids);
  std::vector<NewEntry> entries;
  for (size_t i = 0; i < kListTables; ++i) {
    entries.push_back({kListFormatTables[i].entry, [&list, i](std::string& out) { return list.Draw(i, out); }});
  }
  bool written = false;
  entries.push_back({kManifestEntry, [&](std::string& out) {
                       if (written) return false;
                       manifest.entries = list.Figures();
                       out += WriteManifest(manifest);
                       return written = true;
                     }});
  WriteArchive(descriptor, entries);
}

EntryFigures FiguresInUse(size_t table, ListIds& ids) {
  ListSource list(ids);
  for (std::string piece; list.Draw(table, piece); piece.clear()) {
  }
  return list.Figures()[table];
}

// --- reading -------------------------------------------------------------------------------------

/// Sets of one country have these in common: comparing them costs less than writing them once more.
constexpr bool kMostlyTheSame[kListTables] = {true, true, false, false};

constexpr const char* kEntries[] = {"satellites.csv", "transponders.csv", "services.csv", "fine-tuning.csv",
                                    kManifestEntry};

/// An archive whose manifest has been read.
class ListArchive {
 public:
  explicit ListArchive(const std::string& path) : m_reader(path, kEntries) {
    if (m_reader.Size(kManifestEntry) > kMostManifestBytes) {
      throw ListError(kListDamaged, path + ": " + kManifestEntry + " is longer than one can be");
    }
    std::string text;
    m_reader.Read(kManifestEntry, [&](std::string_view piece) { text += piece; });
    m_manifest = ReadManifest(text);
  }

  const Manifest& Contents() const { return m_manifest; }

  /// Refuses the list of another country, then what is not as the manifest has it.
  void CheckCountry() const {
    if (const std::string own = Country(); m_manifest.country != own) {
      throw ListError(kListOtherCountry, "the list is of " + m_manifest.country + ", this TV is in " + own);
    }
  }

  void ReadInto(ListStage& stage) {
    for (size_t i = 0; i < kListTables; ++i) CheckSize(i);
    ListIds ids;
    for (size_t i = 0; i < kListTables; ++i) {
      ListIds kept = ids;
      if (kMostlyTheSame[i] && FiguresInUse(i, kept) == m_manifest.entries[i]) {
        ids = std::move(kept);
        Verify(i);
        stage.Keep(kListFormatTables[i]);
      } else {
        ReadTable(i, ids, stage);
      }
    }
    stage.Finish();
  }

 private:
  [[noreturn]] static void Disagree(size_t table, const char* what) {
    throw ListError(kListUnknown,
                    std::string(kListFormatTables[table].entry) + ": " + what + " is not what the manifest says");
  }

  void CheckSize(size_t table) {
    if (m_reader.Size(kListFormatTables[table].entry) != m_manifest.entries[table].bytes) Disagree(table, "its size");
  }

  /// The entry holds what the manifest says, record by record what is in use.
  void Verify(size_t index) {
    Digest digest;
    m_reader.Read(kListFormatTables[index].entry, [&](std::string_view piece) { digest.Add(piece); });
    if (digest.Finish() != m_manifest.entries[index].digest) Disagree(index, "its digest");
  }

  void ReadTable(size_t index, ListIds& ids, ListStage& stage) {
    const ListTable& table = kListFormatTables[index];
    Digest digest;
    RecordReader reader(table, ids, [&](const std::vector<ListValue>& record) { stage.Add(table, record); });
    m_reader.Read(table.entry, [&](std::string_view piece) {
      digest.Add(piece);
      reader.Read(piece);
    });
    if (reader.Finish() != m_manifest.entries[index].records) Disagree(index, "the number of its records");
    if (digest.Finish() != m_manifest.entries[index].digest) Disagree(index, "its digest");
  }

  ArchiveReader m_reader;
  Manifest m_manifest;
};

/// What is in use now is what was in the archive; otherwise nothing has happened.
void ReadBack(const Manifest& manifest) {
  for (size_t i = 0; i < kListTables; ++i) {
    Query q(std::string("SELECT count(*) FROM ") + kListFormatTables[i].table);
    if (!q.Row() || q.Int(0) != manifest.entries[i].records) {
      throw ListError(kListFailed, "the list does not read as it was written");
    }
  }
}

ListOutcome Try(const std::function<void()>& body) {
  const std::lock_guard lock(Store::Get().Mutex());
  try {
    body();
    return {};
  } catch (const ListError& error) {
    return {error.status, error.what()};
  } catch (const StoreError& error) {
    return {kListFailed, error.what()};
  }
}

}  // namespace

ListOutcome ExportChannelList(const std::string& path) {
  return Try([&] {
    NewFile file(path);
    WriteList(file.Descriptor());
    file.Finish();
  });
}

ListOutcome ImportChannelList(const std::string& path) {
  return Try([&] {
    ListArchive archive(path);
    archive.CheckCountry();
    ListStage stage;
    archive.ReadInto(stage);
    Store::Get().Write([&] {
      stage.Swap();
      ReadBack(archive.Contents());
    });
  });
}

ListContents CheckChannelList(const std::string& path) {
  ListContents contents;
  contents.outcome = Try([&] {
    ListArchive archive(path);
    contents.manifest = archive.Contents();
    archive.CheckCountry();
    ListStage stage;
    archive.ReadInto(stage);
    for (size_t i = 0; i < kListTables; ++i) contents.differences[i] = stage.Compare(kListFormatTables[i]);
  });
  return contents;
}

}  // namespace desktop
