// Texts that nobody would write, for everything that reads texts. QUIRELLE_FUZZ="SEED RUNS [READER]"
// (--fuzz SEED RUNS) says which and how many.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "DeviceManager.h"
#include "Fuzz.h"
#include "Harness.h"
#include "LogOutput.h"
#include "Store.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

using desktop::Query;
using desktop::Store;
using test::Tv;

namespace fuzz {

namespace {

constexpr unsigned int kSeed = 1;
constexpr long kRuns = 4000;
/// Runs between two looks at what has been written into the TV.
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

/// As a text of a program: what cannot be seen in octal.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char byte : text) {
    char octal[8];
    const auto code = static_cast<unsigned char>(byte);
    snprintf(octal, sizeof octal,
             code < 32 || code > 126       ? "\\%03o"
             : byte == '"' || byte == '\\' ? "\\%c"
                                           : "%c",
             code);
    escaped += octal;
  }
  return escaped;
}

std::string Story() {
  return std::string("reader '") + g_reader + "' of \"" + (g_input ? Escaped(*g_input) : "") + "\"\n";
}

void TellStory() {
  const std::string story = "\nfuzz: " + Story();
  static_cast<void>(!write(STDERR_FILENO, story.data(), story.size()));
}

#if !defined(__SANITIZE_ADDRESS__)
void Fell(int signal) {
  struct sigaction action {};
  action.sa_handler = SIG_DFL;
  sigaction(signal, &action, nullptr);
  TellStory();
  raise(signal);
}
#endif

class Watchdog {
 public:
  Watchdog() {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] {
      if (g_input) TellStory();
    });
#else
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS}) {
      struct sigaction action {
      }, old{};
      action.sa_handler = Fell;
      sigaction(signal, &action, &old);
      m_old.emplace_back(signal, old);
    }
#endif
  }
  ~Watchdog() {
    for (const auto& [signal, action] : m_old) sigaction(signal, &action, nullptr);
    g_input = nullptr;
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  std::vector<std::pair<int, struct sigaction>> m_old;
};

// --- the runs ------------------------------------------------------------------------------------

bool ReadOne(const Reader& reader, const std::string& input, const std::string& when) {
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
  for (long run = 0; run < runs && !testing::Test::HasFailure();) {
    const auto batch = [&] {
      for (const long end = std::min(runs, run + kBatch); run < end && !testing::Test::HasFailure(); ++run) {
        const std::string when = "seed " + std::to_string(seed) + ", run " + std::to_string(run) + ", ";
        ForgetLog();
        unreadable += ReadOne(reader, reader.make(dice), when) ? 0 : 1;
      }
    };
    if (reader.writes) {
      TakingBack(batch);
    } else {
      batch();
    }
  }
  return unreadable;
}

std::vector<Reader> AllReaders() {
  std::vector<Reader> readers = ProgramReaders();
  readers.insert(readers.end(), DesktopReaders().begin(), DesktopReaders().end());
  return readers;
}

/// The tests' own watcher keeps every line for ever.
class ShortLog {
 public:
  ShortLog() { desktop::WatchLog(TakeLine); }
  ~ShortLog() { desktop::WatchLog(nullptr); }
  ShortLog(const ShortLog&) = delete;
  ShortLog& operator=(const ShortLog&) = delete;
};

TEST(Fuzz, EveryReaderLivesWithAnyText) {
  unsigned int seed = kSeed;
  long runs = kRuns;
  std::string only;
  if (const char* wanted = std::getenv("QUIRELLE_FUZZ")) {
    std::istringstream words(wanted);
    ASSERT_TRUE(words >> seed >> runs) << wanted << ": wants a seed and a number of runs";
    std::getline(words >> std::ws, only);
  }
  Tv tv("europe", 40);
  const ShortLog log;
  const Watchdog watchdog;
  std::string unreadable;
  size_t readers = 0;
  for (const Reader& reader : AllReaders()) {
    if (!only.empty() && only != reader.name) continue;
    ++readers;
    const long times = std::max(1L, runs / reader.every);
    const long count = ReadMany(reader, seed, times);
    EXPECT_LT(count, times) << reader.name << ": nothing could be read at all";
    unreadable += (unreadable.empty() ? "" : ", ") + std::string(reader.name) + " " + std::to_string(count) + " of " +
                  std::to_string(times);
  }
  CDeviceManager::ReleaseInstance();
  std::printf("fuzz: seed %u, %ld runs per reader, %zu readers; unreadable: %s\n", seed, runs, readers,
              unreadable.c_str());
}

// --- texts that brought a reader down -------------------------------------------------------------

struct Known {
  const char* reader;
  std::string input;
  bool readable;
};

std::string Times(size_t count, const std::string& text) {
  std::string repeated;
  for (size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

const std::vector<Known>& KnownTexts() {
  static const std::vector<Known> known = {
      // The last second whose year an int holds, and the one after it.
      {"notes of weak signal", "whole day\n67767976233532799:7:1\n67767976233532800:7:1", true},
      {"numbers", "4294978000 MHz", true},
      {"frequencies and bandwidths", "2147483647\n7 MHz", true},
      {"frequencies and bandwidths", "-2147483648\n4295567296", false},
      {"filled texts", "<<A>>\nx" + Times(300, "ü"), true},
      {"items", "user-defined-transponder-frequency\n99999999999", true},
      {"positions", "S-nanE", false},
      {"positions", "S-1e1E", false},
      {"names on air", "\xE0\x80\x80", false},
      {"names on air", "\xF0\x89\x93\xBA", false},
      {"scan tables", "[CHANNEL]\n\tDELIVERY_SYSTEM = DVBT\n\tFREQUENCY = 91\n\tBANDWIDTH_HZ = 8000000\n", false},
      {"profiles", "[menu]\nitem hdmi-delay-level SID_DELAY 0:SID_LOW\nitem hdmi-delay-level SID_DELAY 0:SID_LOW",
       true},
      {"profiles", "[tv]\nletters \xFF\xFF\xFF", false},
      {"profiles", "[settings]\nint system_info/284 99999999999", false},
      {"settings", "int\n8 9 4", false},
      {"settings", "int\n4294967297", false},
      {"settings", "ints\n8 x 4", false},
  };
  return known;
}

TEST(Fuzz, TextsThatOnceBroughtAReaderDown) {
  Tv tv("europe", 40);
  const ShortLog log;
  const Watchdog watchdog;
  const std::vector<Reader> readers = AllReaders();
  for (const Known& known : KnownTexts()) {
    const auto reader = std::find_if(readers.begin(), readers.end(),
                                     [&](const Reader& r) { return std::strcmp(r.name, known.reader) == 0; });
    ASSERT_NE(reader, readers.end()) << known.reader;
    TakingBack([&] {
      ForgetLog();
      EXPECT_EQ(ReadOne(*reader, known.input, ""), known.readable) << known.reader << " of " << Escaped(known.input);
    });
  }
  CDeviceManager::ReleaseInstance();
}

}  // namespace

bool Logged(std::string_view text) { return g_log.find(text) != g_log.npos; }

void ForgetLog() { g_log.clear(); }

}  // namespace fuzz
