// The channel list to an archive and back; archives that are none; a list that is refused changes nothing.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "../e2e/Process.h"
#include "ArchiveMaker.h"
#include "Clock.h"
#include "TvsTest.h"
#include "tvs/ArchiveFile.h"
#include "tvs/ChannelList.h"

using namespace desktop;
namespace fs = std::filesystem;

namespace test {

namespace {

constexpr int64_t kMostGrowth = 64 << 20;

void Put(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

/// Every column of every record, as SQL writes it.
std::string ListInUse() {
  std::string all;
  for (const char* table : {"satellite", "transponder", "service", "fine_tune"}) {
    Query q("SELECT * FROM " + std::string(table) + " ORDER BY 1");
    all += std::string(table) + "\n";
    while (q.Row()) {
      for (int i = 0; i < 26; ++i) all += (q.IsNull(i) ? "NULL" : "'" + q.Text(i) + "'") + "|";
      all += "\n";
    }
  }
  return all;
}

/// A list that uses what a list can hold.
void Decorate() {
  Change(
      "UPDATE service SET favourites = id % 32, locked_mode = id % 2, fine_tune_type = 1, fine_tune_offset = 35 "
      "WHERE id % 3 = 0");
  Change("UPDATE service SET major = 60000 - id, minor = id % 7, favourites = NULL WHERE id % 5 = 1");
  const char* const names[] = {
      "", "\"quoted\", with a comma", "\"", "Kurz & Gut <br>", "קול ישראל", "한국방송 一", "\xF0\x9F\x93\xBA"};
  int64_t id = 1;
  for (const char* name : names) Change("UPDATE service SET name = ? WHERE id = ?", name, id++);
  Change("UPDATE service SET name = NULL, transponder = NULL, satellite = NULL, profile = NULL WHERE id = 8");
  Change("UPDATE satellite SET name = 'Mine', low = 5150000, diseqc = 3, motorised = 1 - motorised WHERE id = 65505");
  Change(
      "INSERT INTO transponder (id, satellite, antenna, frequency, user_defined) VALUES (2000000, 65505, 2, 11493000, "
      "1)");
  Change("INSERT INTO fine_tune SELECT id, id % 64 FROM service WHERE id % 4 = 0");
}

/// Bytes that the process has had at most since `StartGrowth`, more than it had then.
class Growth {
 public:
  Growth() {
    Put("/proc/self/clear_refs", "5");
    m_before = Read("VmRSS:");
  }
  int64_t Bytes() const { return Read("VmHWM:") - m_before; }

 private:
  static int64_t Read(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
      int64_t kibibytes = 0;
      if (word == name && status >> kibibytes) return kibibytes * 1024;
    }
    return 0;
  }
  int64_t m_before = 0;
};

class ChannelList : public testing::Test {
 protected:
  std::string Path(const std::string& name = "list.zip") const { return m_directory / name; }

  /// The archive is refused like that, and the list is the same as before.
  void ExpectRefused(ListStatus status, const std::string& path) {
    const std::string before = ListInUse();
    const ListOutcome outcome = ImportChannelList(path);
    EXPECT_EQ(outcome.status, status) << outcome.what;
    EXPECT_FALSE(outcome.what.empty());
    EXPECT_TRUE(ListInUse() == before);
    EXPECT_EQ(CheckChannelList(path).outcome.status, status);
  }

  const TemporaryDirectory m_directory;
};

class SmallChannelList : public ChannelList {
 protected:
  SmallChannelList() : m_tv("hdmi", 3) { Decorate(); }
  Tv m_tv;
};

// --- there and back ------------------------------------------------------------------------------

TEST_F(ChannelList, ComesBackColumnByColumnOnEachProfile) {
  std::vector<long> sizes = {0, 100, 10'000};
  if (const char* more = std::getenv("QUIRELLE_SERVICES")) sizes.push_back(std::atol(more));
  for (const char* profile : {"europe", "america", "brazil", "hdmi"}) {
    for (const long size : sizes) {
      SCOPED_TRACE(std::string(profile) + " " + std::to_string(size));
      std::string list;
      {
        const Tv tv(profile, size);
        Decorate();
        list = ListInUse();
        const Growth growth;
        ASSERT_EQ(ExportChannelList(Path()).what, "");
        EXPECT_LT(growth.Bytes(), kMostGrowth);
      }
      const Tv other(profile, 50);
      Change("UPDATE transponder SET fec = 1");
      ASSERT_TRUE(ListInUse() != list);
      const Growth growth;
      ASSERT_EQ(ImportChannelList(Path()).what, "");
      EXPECT_LT(growth.Bytes(), kMostGrowth);
      EXPECT_TRUE(ListInUse() == list);
      EXPECT_EQ(Ask("PRAGMA integrity_check"), "ok");
    }
  }
}

TEST_F(ChannelList, TheSetGoesOnWithWhatTheNewListHas) {
  const Tv tv("europe", 100);
  Change("DELETE FROM service WHERE id = 1 OR id > 50");
  ASSERT_EQ(ExportChannelList(Path()).what, "");
  const Tv other("europe", 100);
  Change("UPDATE picture SET service = iif(profile = 1, 1, 51)");
  Change("INSERT INTO recorder VALUES (60, 1, 0), (3, 1, 0)");
  Change("REPLACE INTO shown VALUES (1, 2, 1, 1), (1, 2, 7, 60), (101, 2, 1, 2), (101, 0, -1, 3)");
  Change("INSERT INTO fine_tune VALUES (60, 5)");
  ASSERT_EQ(ImportChannelList(Path()).what, "");
  EXPECT_EQ(Ask("SELECT service FROM picture WHERE profile = 1"), "2") << "the first of its mode";
  EXPECT_EQ(Ask("SELECT count(*) FROM picture p JOIN service s ON s.id = p.service WHERE s.antenna = p.antenna AND "
                "s.service_mode = p.service_mode AND s.transponder IS p.transponder"),
            Ask("SELECT count(*) FROM picture WHERE service NOT NULL"));
  EXPECT_EQ(Ask("SELECT group_concat(service) FROM recorder"), "3");
  EXPECT_EQ(Ask("SELECT group_concat(service) FROM shown"), "2");
  EXPECT_EQ(Ask("SELECT count(*) FROM fine_tune"), "0");
}

TEST_F(SmallChannelList, WhatNoListMayHoldIsPutRightOnTheWayOut) {
  Change(
      "UPDATE service SET satellite = 7, transponder = 4711, name = CAST(x'41C3280A42EDA08000' AS TEXT) WHERE id = 1");
  Change("UPDATE service SET name = ? WHERE id = 2", std::string(5000, 'x') + "\xC3\xA4");
  Change("INSERT INTO fine_tune VALUES (999, 1)");
  ASSERT_EQ(ExportChannelList(Path()).what, "");
  ASSERT_EQ(ImportChannelList(Path()).what, "");
  EXPECT_EQ(Ask("SELECT satellite IS NULL AND transponder IS NULL AND major FROM service WHERE id = 1"),
            Ask("SELECT major > 0 FROM service WHERE id = 1"));
  EXPECT_EQ(Ask("SELECT name FROM service WHERE id = 1"),
            "A\xEF\xBF\xBD(\xEF\xBF\xBD"
            "B\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Ask("SELECT length(name) FROM service WHERE id = 2"), "4096");
  EXPECT_EQ(Ask("SELECT count(*) FROM fine_tune"), "0");

  Change("UPDATE service SET major = 70000 WHERE id = 3");
  Put(Path(), "old");
  const ListOutcome outcome = ExportChannelList(Path());
  EXPECT_EQ(outcome.status, kListFailed);
  EXPECT_EQ(outcome.what, "service 3: no list can hold its major, 70000");
  EXPECT_EQ(ReadWhole(Path()), "old");
}

TEST_F(SmallChannelList, AnExportThatFailsLeavesWhatWasThere) {
  const std::string old = "an older one";
  Put(Path(), old);
  Put(Path() + ".part", "what a killed one left");
  fs::create_directory(Path("folder.zip"));
  EXPECT_EQ(ExportChannelList(Path("folder.zip")).status, kListFailed);
  EXPECT_EQ(ExportChannelList(Path("none/list.zip")).status, kListFailed);
  fs::create_symlink(Path(), Path("link.zip.part"));
  EXPECT_EQ(ExportChannelList(Path("link.zip")).status, kListFailed);
  m_tv.Fail("Util::GetServiceDb");
  CTVSApiWrapper api;
  EXPECT_EQ(api.CreateUtil()->GetServiceDb(Path()), 0);
  m_tv.Heal();
  Change("UPDATE tv_state SET value = 0 WHERE name = 'country_letters'");
  EXPECT_EQ(ExportChannelList(Path()).what, "the TV does not know which country it is in");
  EXPECT_EQ(ReadWhole(Path()), old);
  EXPECT_FALSE(fs::exists(Path() + ".part"));
  Change("UPDATE tv_state SET value = 4478277 WHERE name = 'country_letters'");
  EXPECT_EQ(api.CreateUtil()->GetServiceDb(Path()), 1);
  EXPECT_EQ(CheckChannelList(Path()).outcome.what, "");
}

// --- what is in one ------------------------------------------------------------------------------

TEST_F(SmallChannelList, ACheckCountsWhatAnImportWouldChange) {
  ASSERT_EQ(ExportChannelList(Path()).what, "");
  EXPECT_EQ(CheckChannelList(Path()).differences[kServiceTable], (ListDifference{0, 0, 0}));
  Change("UPDATE service SET name = NULL WHERE id = 1");
  Change("DELETE FROM service WHERE id = 2");
  Change("INSERT INTO service (id, antenna, service_mode) VALUES (50, 0, -1), (51, 0, -1)");
  Change("UPDATE transponder SET strength = 100 - strength");
  const std::string before = ListInUse();
  const ListContents contents = CheckChannelList(Path());
  EXPECT_EQ(contents.outcome.what, "");
  EXPECT_EQ(contents.manifest->entries[kServiceTable].records, 3);
  EXPECT_EQ(contents.differences[kSatelliteTable], (ListDifference{0, 0, 0}));
  EXPECT_EQ(contents.differences[kTransponderTable],
            (ListDifference{0, contents.manifest->entries[kTransponderTable].records, 0}));
  EXPECT_EQ(contents.differences[kServiceTable], (ListDifference{1, 1, 2}));
  EXPECT_TRUE(ListInUse() == before);
}

// --- hostile archives ----------------------------------------------------------------------------

struct Hostile {
  const char* name;
  ListStatus status;
  std::function<std::string(ListTexts&)> make;
};

/// An entry says something else, or is something else.
Hostile Entry(const char* name, const std::function<void(ZipEntry&)>& change, const char* entry = "services.csv",
              ListStatus status = kListDamaged) {
  return {name, status, [=](ListTexts& list) {
            std::vector<ZipEntry> entries = list.Entries();
            for (ZipEntry& one : entries) {
              if (one.name == entry) change(one);
            }
            return MakeZip(entries);
          }};
}

/// So many entries more.
Hostile More(const char* name, int count) {
  return {name, kListDamaged, [=](ListTexts& list) {
            std::vector<ZipEntry> entries = list.Entries();
            for (int i = 0; i < count; ++i) entries.push_back({std::to_string(i), "", false});
            return MakeZip(entries);
          }};
}

Hostile Zip(const char* name, const std::function<std::string(const std::string&)>& change) {
  return {name, kListDamaged, [=](ListTexts& list) { return change(list.Zip()); }};
}

Hostile Says(const char* name, const std::function<void(Manifest&)>& change, ListStatus status = kListUnknown) {
  return {name, status, [=](ListTexts& list) { return change(list.manifest), list.Zip(); }};
}

Hostile SaysText(const char* name, const std::function<std::string(std::string)>& change) {
  return {name, kListUnknown,
          [=](ListTexts& list) { return list.manifestText = change(WriteManifest(list.manifest)), list.Zip(); }};
}

/// A text of another content, in an archive that says the truth of itself.
Hostile Holds(const char* name, const std::function<void(std::string&)>& change, ListTableIndex table = kServiceTable) {
  return {name, kListUnknown, [=](ListTexts& list) { return change(list.Of(table)), list.Seal().Zip(); }};
}

/// A field of the first record.
Hostile Field(const char* name, const std::string& column, const std::string& value,
              ListTableIndex table = kServiceTable) {
  const auto change = [=](std::string& text) {
    const auto& columns = kListFormatTables[table].columns;
    const auto is = [&](const ListColumn& each) { return column == each.name; };
    size_t at = text.find('\n') + 1;
    for (auto left = std::find_if(columns.begin(), columns.end(), is) - columns.begin(); left > 0; --left) {
      at = text.find(',', at) + 1;
    }
    text.replace(at, text.find_first_of(",\n", at) - at, value);
  };
  return Holds(name, change, table);
}

const size_t kEnd = 22;  // bytes at the end of an archive

const Hostile kHostile[] = {
    Zip("nothing", [](const std::string&) { return std::string(); }),
    Zip("no archive", [](const std::string&) { return std::string(100'000, 'P'); }),
    Zip("an archive of nothing", [](const std::string&) { return MakeZip({}); }),
    Zip("somebody's pictures",
        [](const std::string&) {
          return MakeZip({{"a.jpg", "x"}, {"b.jpg", "y"}});
        }),
    Zip("something behind it", [](const std::string& zip) { return zip + "x"; }),
    Zip("a second end in its remark",
        [](const std::string& zip) {
          return zip.substr(0, zip.size() - 2) + std::string("\x16\0", 2) + zip.substr(zip.size() - kEnd);
        }),
    Zip("an end of 64 bits",
        [](const std::string& zip) {
          return std::string(zip).insert(zip.size() - kEnd, "PK\6\7" + std::string(16, '\0'));
        }),
    More("an entry more", 1),
    More("100,000 entries", 100'000),
    More("65,541 entries, which counts as five", 65'536),
    Entry("an entry twice", [](ZipEntry& e) { e.name = "transponders.csv"; }),
    Entry("../", [](ZipEntry& e) { e.name = "../services.csv"; }),
    Entry("an absolute path", [](ZipEntry& e) { e.name = "/services.csv"; }),
    Entry("capitals", [](ZipEntry& e) { e.name = "SERVICES.CSV"; }),
    Entry("a link", [](ZipEntry& e) { e.attributes = 0120777u << 16; }),
    Entry("a folder", [](ZipEntry& e) { e.attributes = 0040777u << 16; }),
    Entry("encrypted", [](ZipEntry& e) { e.flags = 1; }),
    Entry("strongly encrypted", [](ZipEntry& e) { e.flags = 1 | 1 << 6; }),
    Entry("packed with bzip2", [](ZipEntry& e) { e.method = 12; }),
    Entry("packed as nobody packs", [](ZipEntry& e) { e.method = 77; }),
    Entry("a wrong checksum", [](ZipEntry& e) { e.checksum = 1; }),
    Entry(
        "shorter than it says", [](ZipEntry& e) { e.data.resize(10), e.size = 15; }, "fine-tuning.csv"),
    Entry("longer than it says",
          [](ZipEntry& e) {
            e.size = static_cast<uint32_t>(e.data.size());
            e.data += std::string(1 << 20, 'x');
          }),
    Entry("sizes of 64 bits",
          [](ZipEntry& e) {
            e.size = 0xFFFFFFFF;
            e.extra = std::string("\1\0\x8\0", 4) + std::string(7, '\xFF') + "\x7F";
          }),
    Entry(
        "a bomb of 10 GiB that says 2",
        [](ZipEntry& e) {
          e = Bomb(e.name, 10 * 1024);
          e.size = 0x80000000;
        },
        "services.csv", kListUnknown),
    Entry("a bomb of 10 GiB that says what the manifest says",
          [](ZipEntry& e) {
            const auto size = static_cast<uint32_t>(e.data.size());
            e = Bomb(e.name, 10 * 1024);
            e.size = size;
          }),
    Entry(
        "a bomb as manifest", [](ZipEntry& e) { e = Bomb(e.name, 100); }, kManifestEntry),
    // The manifest.
    SaysText("no JSON", [](const std::string&) { return "list"; }),
    SaysText("nested JSON", [](const std::string&) { return std::string(16'000, '['); }),
    SaysText("a newer format", [](const std::string&) { return R"({"format": 2, "what": "new"})"; }),
    SaysText("a format in words",
             [](const std::string& text) { return "{\"format\": \"1\"" + text.substr(text.find(',')); }),
    SaysText("a member more", [](std::string text) { return text.insert(1, "\"run\": \"rm -rf\","); }),
    SaysText("a member twice", [](std::string text) { return text.insert(1, "\"format\": 1,"); }),
    Says(
        "another country", [](Manifest& m) { m.country = "DEU"; }, kListOtherCountry),
    Says("no country", [](Manifest& m) { m.country = "s1"; }),
    Says("no time", [](Manifest& m) { m.madeAt = "yesterday"; }),
    Says("a maker of control characters", [](Manifest& m) { m.madeBy = "a\nb"; }),
    Says("more records than there are", [](Manifest& m) { ++m.entries[kServiceTable].records; }),
    Says("fewer records than there are", [](Manifest& m) { --m.entries[kServiceTable].records; }),
    Says("more records than there can be", [](Manifest& m) { m.entries[kServiceTable].records = INT64_MAX; }),
    Says("fewer than no records", [](Manifest& m) { m.entries[kServiceTable].records = -1; }),
    Says("more bytes than there are", [](Manifest& m) { ++m.entries[kTransponderTable].bytes; }),
    Says("another digest", [](Manifest& m) { m.entries[kServiceTable].digest[0] ^= 1; }),
    Says("another digest of what is the same", [](Manifest& m) { m.entries[kSatelliteTable].digest[0] ^= 1; }),
    Says("no digest", [](Manifest& m) { m.entries[kServiceTable].digest = "sha"; }),
    // The records.
    Holds("no head", [](std::string& text) { text.erase(0, text.find('\n') + 1); }),
    Holds("nothing at all in an entry", [](std::string& text) { text.clear(); }),
    Holds("another column", [](std::string& text) { text.replace(0, 2, "ID"); }),
    Holds("cut within a record", [](std::string& text) { text.resize(text.size() - 3); }),
    Holds("a record twice", [](std::string& text) { text += text.substr(text.rfind('\n', text.size() - 2) + 1); }),
    Holds(
        "fine tuning of a channel that is not there", [](std::string& text) { text += "77,1\n"; }, kFineTuneTable),
    Field("a column more", "fine_tune_offset", "35,1"),
    Field("an ID of 0", "id", "0"),
    Field("an ID of 64 bits and more", "id", "9223372036854775808"),
    Field("a number with a sign", "antenna", "+0"),
    Field("a padded number", "antenna", "00"),
    Field("less than nothing", "antenna", "-0"),
    Field("a number that goes on", "antenna", "0x0"),
    Field("words for a number", "frequency", "1;DROP"),
    Field("an antenna that is none", "antenna", "3"),
    Field("a channel number that is none", "major", "65536"),
    Field("what must be there is not", "major", ""),
    Field("a satellite that is not there", "satellite", "77"),
    Field("a transponder that is not there", "transponder", "77"),
    Field("a transponder's satellite that is not there", "satellite", "77", kTransponderTable),
    Field("a name with NUL", "name", std::string("\"a\0b\"", 5)),
    Field("a name with a line feed", "name", "\"a\nb\""),
    Field("a name of 1 MiB", "name", "\"" + std::string(1 << 20, 'x') + "\""),
    Field("a name of 4097 bytes", "name", "\"" + std::string(4097, 'x') + "\""),
    Field("a name that is no UTF-8", "name", "\"\xC3(\""),
    Field("a name of half a pair", "name", "\"\xED\xA0\x80\""),
    Field("a name that is longer than it needs to be", "name", "\"\xC0\xAF\""),
    Field("a name that does not end", "name", "\"a"),
    Field("a name without quotes", "name", "a"),
};

TEST_F(SmallChannelList, HostileArchivesAreRefusedAndChangeNothing) {
  const ListTexts list = ListTexts::OfTv();
  Put(Path(), list.Zip());
  ASSERT_EQ(ImportChannelList(Path()).what, "") << "the archive from which the others are made";
  Change("UPDATE service SET name = 'now' WHERE id = 1");
  for (const Hostile& hostile : kHostile) {
    SCOPED_TRACE(hostile.name);
    ListTexts own = list;
    Put(Path(), hostile.make(own));
    const Growth growth;
    ExpectRefused(hostile.status, Path());
    EXPECT_LT(growth.Bytes(), kMostGrowth);
  }
}

TEST_F(SmallChannelList, WhatIsNoFileIsRefused) {
  fs::create_directory(Path("folder.zip"));
  mkfifo(Path("pipe.zip").c_str(), 0600);
  fs::create_symlink("/dev/zero", Path("device.zip"));
  fs::create_symlink(Path("loop.zip"), Path("loop.zip"));
  for (const char* name : {"folder.zip", "pipe.zip", "device.zip", "loop.zip", "none.zip", ""}) {
    SCOPED_TRACE(name);
    ExpectRefused(kListDamaged, *name ? Path(name) : "");
  }
}

/// Either it is refused and nothing has changed, or what has changed makes no difference to the list.
TEST_F(SmallChannelList, EveryByteCutOffAndEveryBitFlippedIsNoticedOrMakesNoDifference) {
  Change("DELETE FROM transponder WHERE id > 2");
  Change("UPDATE service SET transponder = NULL");
  Store::Get().Execute("PRAGMA synchronous=OFF");  // the power stays on for so many imports
  const std::string zip = ListTexts::OfTv().Zip(), list = ListInUse();
  Change("UPDATE service SET name = 'now' WHERE id = 1");
  const std::string before = ListInUse();
  for (size_t length = 0; length < zip.size(); ++length) {
    Put(Path(), zip.substr(0, length));
    ASSERT_EQ(ImportChannelList(Path()).status, kListDamaged) << length;
  }
  ASSERT_TRUE(ListInUse() == before);
  size_t harmless = 0;
  for (size_t bit = 0; bit < zip.size() * 8; ++bit) {
    std::string flipped = zip;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
    Put(Path(), flipped);
    const ListOutcome outcome = ImportChannelList(Path());
    ASSERT_TRUE(ListInUse() == (outcome.status == kListDone ? list : before)) << bit << ": " << outcome.what;
    if (outcome.status != kListDone) continue;
    ++harmless;
    Change("UPDATE service SET name = 'now' WHERE id = 1");
  }
  // Which system made an entry, and with which rights.
  EXPECT_LT(harmless, zip.size() * 8 / 15);
}

TEST_F(SmallChannelList, AFailureWithinAnImportTakesItBack) {
  ASSERT_EQ(ExportChannelList(Path()).what, "");
  Change("UPDATE service SET name = 'now'");
  Change("CREATE TRIGGER refuse BEFORE INSERT ON service WHEN new.id = 3 BEGIN SELECT raise(ABORT, 'refused'); END");
  const std::string before = ListInUse();
  EXPECT_EQ(ImportChannelList(Path()).status, kListFailed);
  EXPECT_TRUE(ListInUse() == before);
  Change("DROP TRIGGER refuse");
  EXPECT_EQ(ImportChannelList(Path()).what, "");
}

}  // namespace

}  // namespace test
