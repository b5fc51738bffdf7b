// One file onto a stick, on its thread: all of it or none, whatever happens on the way.
#include <gtest/gtest.h>

#include <fstream>
#include <mutex>
#include <semaphore>
#include <sstream>
#include <thread>

#include "Clock.h"
#include "LogOutput.h"
#include "TemporaryDirectory.h"
#include "filecopy.h"

namespace fs = std::filesystem;

namespace {

constexpr size_t kSize = 300'000;

std::mutex g_logMutex;
std::string g_log;

void KeepLine(int, const char* line) {
  const std::lock_guard lock(g_logMutex);
  g_log += line;
}

bool Logged(const std::string& text) {
  const std::lock_guard lock(g_logMutex);
  return g_log.find(text) != g_log.npos;
}

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void Put(const fs::path& path, const std::string& contents) { std::ofstream(path, std::ios::binary) << contents; }

class UsbCopy : public testing::Test {
 protected:
  UsbCopy() : m_main(std::this_thread::get_id()) {
    test::KeepMainLoop();
    desktop::LogToStandardError(desktop::LogLevel::kOff);
    desktop::WatchLog(KeepLine);
    g_log.clear();
    fs::create_directory(m_directory / "stick");
    for (size_t i = 0; i < kSize; ++i) m_bytes += static_cast<char>(i * 7 + i / 251);
    Put(Source(), m_bytes);
  }
  ~UsbCopy() override {
    test::OnSleep(nullptr);
    desktop::WatchLog(nullptr);
  }

  fs::path Source() const { return m_directory / "list.zip"; }
  fs::path Stick() const { return m_directory / "stick"; }
  fs::path Target() const { return Stick() / "Channel_list_x.zip"; }

  /// Stops the copy's thread in its pause behind so many chunks, until `GoOn`.
  void StopBehind(int chunks) {
    test::OnSleep([this, chunks] {
      if (std::this_thread::get_id() == m_main) return m_onPoll();
      if (++m_chunks != chunks) return;
      m_reached.release();
      m_goOn.acquire();
    });
  }
  void AwaitStop() { m_reached.acquire(); }
  void GoOn() { m_goOn.release(); }

  /// As a window does: looks while the thread works.
  static bool Finish(const CUsbCopyThread& copy) {
    int last = 0;
    return test::TurnUntil([&] {
      EXPECT_GE(copy.GetProgress(), last);
      last = copy.GetProgress();
      return copy.IsFinished();
    });
  }
  std::vector<std::string> OnStick() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Stick())) names.push_back(entry.path().filename());
    return names;
  }
  /// The stick has the older export, and nothing else.
  void ExpectOld() const {
    EXPECT_EQ(Contents(Target()), "old");
    EXPECT_EQ(OnStick().size(), 1U);
  }

  const test::TemporaryDirectory m_directory;
  const std::thread::id m_main;
  std::string m_bytes;
  int m_chunks = 0;
  std::function<void()> m_onPoll = [] {};
  std::binary_semaphore m_reached{0}, m_goOn{0};
};

TEST_F(UsbCopy, GoesInThreeHundredChunksAndIsThereOnlyWhenItIsWhole) {
  for (const auto& [size, chunks] :
       {std::pair<size_t, int>{kSize, 300}, {300'100, 301}, {1000, 334}, {299, 299}, {1, 1}, {0, 0}}) {
    SCOPED_TRACE(size);
    m_bytes.resize(size, 'z');
    Put(Source(), m_bytes);
    Put(Target(), "old");
    m_chunks = 0;
    int early = 0;
    CUsbCopyThread copy(Source(), Target());
    test::OnSleep([&] {
      ++m_chunks;
      early += copy.GetProgress() == 100 || Contents(Target()) != "old";
    });
    copy.Create();
    ASSERT_TRUE(Finish(copy));
    EXPECT_EQ(copy.GetEnd(), CopyEnd::kWhole);
    EXPECT_EQ(copy.GetProgress(), size ? 100 : 0);
    EXPECT_EQ(early, 0) << "done before it was";
    EXPECT_EQ(m_chunks, chunks);
    EXPECT_TRUE(Contents(Target()) == m_bytes);
    EXPECT_EQ(OnStick().size(), 1U);
  }
}

TEST_F(UsbCopy, CancelledAtEachTenthLeavesTheOlderFile) {
  Put(Target(), "old");
  for (int tenth = 0; tenth <= 10; ++tenth) {
    SCOPED_TRACE(tenth);
    m_chunks = 0;
    g_log.clear();
    StopBehind(std::max(1, 30 * tenth));
    m_onPoll = [&, first = true]() mutable {
      if (std::exchange(first, false)) GoOn();
      for (int i = 0; i < 20'000 && !Logged("FileTransfer end"); ++i) test::Pause();
      test::Pause();
    };
    CUsbCopyThread copy(Source(), Target());
    copy.Create();
    AwaitStop();
    EXPECT_LT(copy.GetProgress(), 100);
    EXPECT_EQ(copy.GetProgress(), tenth ? 10 * tenth - (tenth == 10) : 0);
    copy.Destroy();
    EXPECT_TRUE(Logged("transfer cancelled after "));
    ASSERT_TRUE(Finish(copy));
    EXPECT_EQ(copy.GetEnd(), CopyEnd::kCancelled);
    ExpectOld();
  }
}

TEST_F(UsbCopy, AThreadThatOutlivesItsWindowTouchesNothingOfIt) {
  for (const bool told : {true, false}) {
    Put(Target(), "old");
    m_chunks = 0;
    g_log.clear();
    StopBehind(150);
    auto copy = std::make_unique<CUsbCopyThread>(Source(), Target());
    copy->Create();
    AwaitStop();
    if (told) copy->Destroy();
    EXPECT_EQ(Logged("transfer cancelled after 200 ms"), told);
    copy.reset();
    GoOn();
    EXPECT_TRUE(test::TurnUntil([] { return Logged("m_SendCopyThreadEndEvent is called"); }));
    ExpectOld();
  }
}

TEST_F(UsbCopy, WhatCannotBeOpenedEndsItAndIsLeftAlone) {
  const fs::path elsewhere = m_directory / "elsewhere";
  Put(elsewhere, "mine");
  fs::create_symlink(Source(), m_directory / "link.zip");
  fs::create_symlink(elsewhere, Stick() / "link.zip");
  fs::create_symlink(elsewhere, Stick() / "other.zip.part");
  const struct {
    const char* name;
    fs::path source, target;
    CopyEnd end;
  } cases[] = {{"no source", m_directory / "none", Target(), CopyEnd::kNoSource},
               {"a link as source", m_directory / "link.zip", Target(), CopyEnd::kNoSource},
               {"a folder as source", Stick(), Target(), CopyEnd::kNoSource},
               {"a link as target", Source(), Stick() / "link.zip", CopyEnd::kNoDestination},
               {"a link in the way", Source(), Stick() / "other.zip", CopyEnd::kNoDestination},
               {"no stick", Source(), m_directory / "gone" / "a.zip", CopyEnd::kNoDestination}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CUsbCopyThread copy(c.source, c.target);
    copy.Create();
    ASSERT_TRUE(Finish(copy));
    EXPECT_EQ(copy.GetEnd(), c.end);
    EXPECT_EQ(copy.GetProgress(), 0);
    EXPECT_EQ(Contents(elsewhere), "mine");
    EXPECT_FALSE(fs::exists(Target()));
  }
}

TEST_F(UsbCopy, ASourceThatChangesMeanwhileIsNotTakenForWhole) {
  Put(Target(), "old");
  for (const size_t size : {kSize / 2, kSize * 2}) {
    m_chunks = 0;
    StopBehind(200);
    CUsbCopyThread copy(Source(), Target());
    copy.Create();
    AwaitStop();
    fs::resize_file(Source(), size);
    GoOn();
    ASSERT_TRUE(Finish(copy));
    EXPECT_EQ(copy.GetEnd(), CopyEnd::kReadError);
    EXPECT_LT(copy.GetProgress(), 100);
    ExpectOld();
    Put(Source(), m_bytes);
  }
}

/// The folder is the stick: it goes with what is in it, and another comes in its place.
TEST_F(UsbCopy, AnotherStickInItsPlaceGetsNothing) {
  StopBehind(150);
  CUsbCopyThread copy(Source(), Target());
  copy.Create();
  AwaitStop();
  fs::rename(Stick(), m_directory / "pulled");
  fs::create_directory(Stick());
  GoOn();
  ASSERT_TRUE(Finish(copy));
  EXPECT_TRUE(OnStick().empty());
  EXPECT_TRUE(Contents(m_directory / "pulled/Channel_list_x.zip") == m_bytes) << "what is held open is written";
}

}  // namespace
