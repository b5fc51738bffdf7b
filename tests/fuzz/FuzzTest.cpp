// Texts that nobody would write, for everything that reads texts. QUIRELLE_FUZZ="SEED RUNS [READER]"
// (--fuzz SEED RUNS) says which and how many.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <sstream>

#include "Fuzz.h"
#include "Harness.h"
#include "LogOutput.h"
#include "Store.h"

using desktop::Store;
using test::Tv;

/// There where a sanitizer is: it reports, and ends the program itself.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*)());

namespace fuzz {

namespace {

constexpr unsigned int kSeed = 1;
constexpr long kRuns = 4000;
/// Runs until what was written into the TV is taken back.
constexpr long kBatch = 2048;
constexpr size_t kMostLog = 1 << 16;

// --- the log -------------------------------------------------------------------------------------

std::string g_log;

void TakeLine(int, const char* line) {
  if (g_log.size() < kMostLog) g_log += line;
}

// --- what is told of a reader that brought the program down ---------------------------------------

const char* g_reader = "";
const std::string* g_input = nullptr;

std::string Story() {
  return std::string("reader '") + g_reader + "' of " + (g_input ? testing::PrintToString(*g_input) : "") + "\n";
}

void TellStory() {
  if (!g_input) return;
  const std::string story = "\nfuzz: " + Story();
  static_cast<void>(!write(STDERR_FILENO, story.data(), story.size()));
}

void Fell(int signal) {
  std::signal(signal, SIG_DFL);
  TellStory();
  std::raise(signal);
}

void TellWhenItFalls(bool tell) {
  if (__sanitizer_set_death_callback) return __sanitizer_set_death_callback(tell ? TellStory : nullptr);
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) std::signal(signal, tell ? Fell : SIG_DFL);
}

// --- the runs ------------------------------------------------------------------------------------

bool ReadOne(const Reader& reader, const std::string& input, const std::string& when) {
  ForgetLog();
  g_reader = reader.name;
  g_input = &input;
  bool read = false;
  try {
    read = reader.read(input);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what() << ": " << when << Story();
  }
  g_input = nullptr;
  return read;
}

/// What a reader has written goes back with the batch; the journal stays.
void TakingBack(const std::function<void()>& body) {
  Store::Get().Write(
      [&] {
        Store::Get().Execute("SAVEPOINT fuzz");
        body();
        Store::Get().Execute("ROLLBACK TO fuzz");
        Store::Get().Execute("RELEASE fuzz");
      },
      false);
}

/// The number of texts that could not be read.
long ReadMany(const Reader& reader, unsigned int seed, long runs) {
  Dice dice(seed);
  long unreadable = 0;
  long run = 0;
  const auto batch = [&] {
    for (const long end = std::min(runs, run + kBatch); run < end && !testing::Test::HasFailure(); ++run) {
      const std::string when = "seed " + std::to_string(seed) + ", run " + std::to_string(run) + ", ";
      unreadable += ReadOne(reader, reader.make(dice), when) ? 0 : 1;
    }
  };
  while (run < runs && !testing::Test::HasFailure()) TakingBack(batch);
  return unreadable;
}

std::vector<Reader> AllReaders() {
  std::vector<Reader> readers = ProgramReaders();
  for (const auto more : {DesktopReaders, ListReaders, RatingReaders}) {
    for (Reader& reader : more()) readers.push_back(std::move(reader));
  }
  return readers;
}

class Fuzz : public testing::Test {
 protected:
  Fuzz() {
    // The tests' own watcher keeps every line for ever.
    desktop::WatchLog(TakeLine);
    TellWhenItFalls(true);
  }
  ~Fuzz() override { TellWhenItFalls(false); }

 private:
  Tv m_tv{"europe", 40};
};

TEST_F(Fuzz, EveryReaderLivesWithAnyText) {
  unsigned int seed = kSeed;
  long runs = kRuns;
  std::string only;
  if (const char* wanted = std::getenv("QUIRELLE_FUZZ")) {
    std::istringstream words(wanted);
    ASSERT_TRUE(words >> seed >> runs) << wanted << ": wants a seed and a number of runs";
    std::getline(words >> std::ws, only);
  }
  std::string unreadable;
  size_t readers = 0;
  for (const Reader& reader : AllReaders()) {
    if (!only.empty() && only != reader.name) continue;
    ++readers;
    const long times = std::max(1L, runs / reader.every);
    const long count = ReadMany(reader, seed, times);
    EXPECT_LT(count, times) << reader.name << ": nothing could be read at all";
    unreadable += Format("%s%s %ld of %ld", unreadable.empty() ? "" : ", ", reader.name, count, times);
  }
  std::printf("fuzz: seed %u, %ld runs per reader, %zu readers; unreadable: %s\n", seed, runs, readers,
              unreadable.c_str());
}

// --- texts that brought a reader down -------------------------------------------------------------

struct Known {
  std::string reader, input;
  bool readable;
};

std::string ManyUmlauts() {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "ü";
  return text;
}

const Known kKnown[] = {
    // The last second whose year an int holds, and the one after it.
    {"notes of weak signal", "67767976233532799:7:1", true},
    {"notes of weak signal", "67767976233532800:7:1", true},
    {"numbers", "4294978000 MHz", true},
    {"filled texts", "<<A>>\nx" + ManyUmlauts(), true},
    {"items", "user-defined-transponder-frequency\n99999999999", true},
    {"names on air", "\xE0\x80\x80", false},
    {"names on air", "\xF0\x89\x93\xBA", false},
    {"scan tables", "[CHANNEL]\n\tDELIVERY_SYSTEM = DVBT\n\tFREQUENCY = 91\n\tBANDWIDTH_HZ = 8000000\n", false},
    {"profiles", "[menu]\nitem hdmi-delay-level SID_DELAY 0:SID_LOW\nitem hdmi-delay-level SID_DELAY 0:SID_LOW", true},
    {"profiles", "[tv]\nletters \xFF\xFF\xFF", false},
    {"profiles", "[settings]\nint system_info/284 99999999999", false},
};

TEST_F(Fuzz, TextsThatOnceBroughtAReaderDown) {
  const std::vector<Reader> readers = AllReaders();
  for (const auto& [name, input, readable] : kKnown) {
    SCOPED_TRACE(name + " of " + testing::PrintToString(input));
    const auto reader = std::find_if(readers.begin(), readers.end(), [&](const Reader& r) { return name == r.name; });
    ASSERT_NE(reader, readers.end());
    TakingBack([&] { EXPECT_EQ(ReadOne(*reader, input, ""), readable); });
  }
}

}  // namespace

bool Logged(std::string_view text) { return g_log.find(text) != g_log.npos; }

void ForgetLog() { g_log.clear(); }

}  // namespace fuzz
