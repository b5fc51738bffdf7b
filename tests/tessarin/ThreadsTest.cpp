// Many calls and many threads at once, on a TV that nothing else of the tests knows.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "LogOutput.h"
#include "Profile.h"
#include "Store.h"
#include "TemporaryDirectory.h"
#include "tessarin.h"
#include "tvs/RatingTable.h"

namespace {

using Text = std::unique_ptr<char, decltype(&free)>;
std::string Taken(char* text) { return Text(text, free) ? std::string(text) : "null"; }

class ThreadsTest : public testing::Test {
 protected:
  ThreadsTest() {
    desktop::MakeTv(m_path, {"europe", 50}, false);
    setenv("QUIRELLE_TV", m_path.c_str(), 1);
    desktop::LogToStandardError(desktop::LogLevel::kOff);
    desktop::Store::Open(m_path);
    desktop::RatingDimension dimension{desktop::OnAir("D"), {}};
    for (int i = 0; i < 8; ++i) dimension.values.push_back({desktop::OnAir("V")});
    desktop::WriteRatingSystem(RRT_REGION_DOWNLOADABLE, {desktop::OnAir("R"), {dimension}});
    desktop::Store::Get().Execute("UPDATE satcr SET frequency = 1632, slot = 4");
  }
  ~ThreadsTest() override { desktop::Store::Close(); }

  test::TemporaryDirectory m_directory;
  const std::string m_path = m_directory / "tv.db";
};

/// What only reads, and what only the tuner keeps, with the answers that others leave alone.
int ReadAll(int own) {
  const std::string number = std::to_string(own);
  int wrong = 0;
  wrong +=
      Taken(Tessarin_CombinateStrings("<<A>> of <<B>>", number.c_str(), "8", nullptr, nullptr)) != number + " of 8";
  wrong += Taken(Tessarin_GetCurrentCountryCode()) != " DEU";
  wrong += Taken(Tessarin_GetCurrentDateString()).size() < 8;
  wrong += !Tessarin_FlagVisibleSatCRTwoTuner();
  wrong += Taken(Tessarin_GetRatingInfo()).find("\"RegionName\" : \"R\"") == std::string::npos;
  wrong += Taken(Tessarin_GetSatCRProgress(own & 1)).find("\"Progress\"") == std::string::npos;
  wrong += !Tessarin_IsSatCRCommandSuccess(0, 1632, 3);
  wrong += Tessarin_GetSlotFrequency(0) != 1632;
  wrong += Tessarin_GetSlotFrequency(7) != -1;
  wrong += std::abs(Tessarin_GetTunerMft()) > 32;
  wrong += Tessarin_GetRRSLock(1, 0);
  return wrong;
}

/// What is stored; each caller has a rating of its own.
int WriteAll(int own, const std::string& archive) {
  int wrong = 0;
  for (const bool lock : {true, false}) {
    wrong += Tessarin_SetRRSLock(0, own, lock) <= 0;
    wrong += Tessarin_GetRRSLock(0, own) != lock;
  }
  wrong += Tessarin_SetSatCRSlotFrequency(1, 1400 + own) != 1;
  wrong += !Tessarin_SendSatCRCommand(1, TESSARIN_SATCR_STOP);
  Tessarin_PresetTunerMft(own);
  Tessarin_SetTunerMft();
  Tessarin_SetFineTuneType();
  Tessarin_SetFinetuneFreq(own);
  Tessarin_ResetFinetuneType();
  Tessarin_ResetTurnerMft();
  Tessarin_UserStorePosition();
  Tessarin_InstallerStorePosition();
  Tessarin_InstallerGoToZero();
  Tessarin_InstallerResetLimit();
  wrong += Tessarin_TuneAloneSelectedTransponder(own & 1) != 1;
  Tessarin_InitiateExportToTemp(archive.c_str());
  wrong += Tessarin_LoadCopiedChannelList(std::string(archive).data()) != 0;
  return wrong;
}

TEST_F(ThreadsTest, EightAtOnceEachGetTheirOwnAnswer) {
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int own = 0; own < 8; ++own) {
    threads.emplace_back([&, own] {
      for (int round = 0; round < 40; ++round) {
        wrong += ReadAll(own);
        if (round % 10 == own) wrong += WriteAll(own, m_path + std::to_string(own) + ".zip");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(Tessarin_ResetSatelliteSettings(), 1);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
size_t Handles() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<size_t>(std::distance(begin(all), end(all)));
}

TEST_F(ThreadsTest, AHundredThousandCallsTakeNoMoreMemoryThanThousands) {
  int calls = 0, wrong = 0;
  const auto call = [&](int until) {
    for (int round = 0; calls < until; ++round) {
      wrong += ReadAll(3);
      calls += 11;
      if (round % 100 == 0) {
        wrong += WriteAll(3, m_path + ".zip");
        calls += 19;
      }
    }
  };
  call(10'000);
  const size_t memory = mallinfo2().uordblks, handles = Handles();
  call(110'000);
  EXPECT_EQ(wrong, 0);
  EXPECT_LT(mallinfo2().uordblks, memory + 256 * 1024);
  EXPECT_EQ(Handles(), handles);
}

/// In a process of its own: what is kept of a TV that was not found stays with it.
TEST_F(ThreadsTest, WithoutATvWhatIsLoggedDoesNotPileUp) {
  const auto fail = [](int calls) {
    for (int i = 0; i < calls; ++i) Tessarin_GetSlotFrequency(0);
    return mallinfo2().uordblks;
  };
  const auto work = [&] {
    desktop::Store::Close();
    setenv("QUIRELLE_TV", "/none/tv.db", 1);
    desktop::LogToFile();
    const size_t before = fail(1000);
    return fail(10'000) < before + 64 * 1024 && Tessarin_GetSlotFrequency(0) == -1;
  };
  EXPECT_EXIT(_exit(work() ? 0 : 1), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
