#include <climits>

#include "Clock.h"
#include "Gate.h"
#include "TvsTest.h"

namespace test {

namespace {

/// How many calls of the platform `body` makes.
int CallsOf(const std::function<void()>& body) {
  int calls = 0;
  desktop::Gate::Watch([&](const desktop::Operation&, const desktop::Entry&, const std::string&) { ++calls; });
  body();
  desktop::Gate::Watch(nullptr);
  return calls;
}

/// The wall clock stands at the beginning of a millisecond, with time to spare in it.
void AlignClock() {
  const unsigned long long now = GetCurrentTimeStamp();
  while (GetCurrentTimeStamp() == now) {
  }
}

class CacheTest : public TvsTest {
 protected:
  CacheTest() : TvsTest("hdmi") {}
  CCacheManager& m_cache = *CCacheManager::GetInstance();
};

}  // namespace

TEST_F(CacheTest, ServesForHalfASecondOfAClockThatGoesForward) {
  m_cache.Store("key", 7);
  AlignClock();
  m_cache.Store("key", 8);
  MoveClock(0.500);
  ASSERT_TRUE(m_cache.Find<int>("key"));
  EXPECT_EQ(*m_cache.Find<int>("key"), 8);
  MoveClock(0.001);
  EXPECT_FALSE(m_cache.Find<int>("key"));
  EXPECT_EQ(*m_cache.FindStored<int>("key"), 8);
  MoveClock(-10);
  EXPECT_FALSE(m_cache.Find<int>("key"));
}

TEST_F(CacheTest, AnotherTypeIsNeitherServedNorOverwritten) {
  m_cache.Store("key", true);
  m_cache.Store("key", 7);
  EXPECT_FALSE(m_cache.Find<int>("key"));
  ASSERT_TRUE(m_cache.Find<bool>("key"));
  EXPECT_TRUE(*m_cache.Find<bool>("key"));
  // A reader whose key is taken by another type goes on asking the service.
  m_cache.Store("GetCurrentSource_MAIN", 13);
  for (int i = 0; i < 2; ++i) EXPECT_GT(CallsOf([] { CTvsUtil::GetCurrentSource(PROFILE_MAIN); }), 0);
}

TEST_F(CacheTest, PrintsEveryTypeAsAStreamDoes) {
  m_cache.Store("a", ESource(13));
  m_cache.Store("b", ~0ULL);
  m_cache.Store("c", TCCriteriaHelper());
  TakeLog();
  m_cache.PrintCachedData();
  const Texts log = TakeLog();
  for (const char* said :
       {"a value : 13", "b value : 18446744073709551615", "c value : cannot print TCCriteriaHelper"}) {
    EXPECT_TRUE(Contains(log, std::string(" key : ") + said + " time : ")) << said;
  }
}

TEST_F(CacheTest, ReadersAskOnceAndAgainWhenItIsOld) {
  unsigned long long id;
  TCCriteriaHelper criteria;
  TSTvMode mode;
  const struct {
    const char* name;
    std::function<void()> read;
    int kept;  ///< calls that a cached read still makes
  } readers[] = {
      {"source", [] { CTvsUtil::GetCurrentSource(PROFILE_MAIN); }, 0},
      {"source of the sub picture", [] { CTvsUtil::GetCurrentSource(PROFILE_PIP); }, 0},
      {"service", [&] { CTvsUtil::GetCurrentServiceId(id, false); }, 0},
      {"kind", [] { CTvsUtil::GetSignalKind(); }, 0},
      {"type", [] { CTvsUtil::GetSignalInfoType(); }, 0},
      {"record", [] { CTvsUtil::m_GetSignalInfo(); }, 0},
      {"analog", [] { CTvsUtil::FlagCurrentChannelAnalog(PROFILE_MAIN); }, 0},
      {"digital of the sub picture", [] { CTvsUtil::FlagCurrentChannelDigital(PROFILE_PIP); }, 0},
      {"criteria", [&] { CTvsUtil::m_GetCriteria(criteria, &mode, false); }, 2},
  };
  for (const auto& reader : readers) {
    ForgetKept();
    const int fresh = CallsOf(reader.read);
    EXPECT_GT(fresh, reader.kept) << reader.name;
    TakeLog();
    EXPECT_EQ(CallsOf(reader.read), reader.kept) << reader.name;
    EXPECT_TRUE(Contains(TakeLog(), "return cached v")) << reader.name;
    MoveClock(0.502);
    EXPECT_EQ(CallsOf(reader.read), fresh) << reader.name;
  }
}

TEST_F(CacheTest, AnExternalSourceIsNeitherAnalogNorDigitalForHalfASecond) {
  EXPECT_FALSE(CTvsUtil::FlagCurrentChannelDigital(PROFILE_MAIN));
  Change("UPDATE picture SET source = 0");
  EXPECT_FALSE(CTvsUtil::FlagCurrentChannelDigital(PROFILE_MAIN));
  MoveClock(0.502);
  EXPECT_TRUE(CTvsUtil::FlagCurrentChannelDigital(PROFILE_MAIN));
}

TEST_F(CacheTest, TypeFiveIsNotKept) {
  for (const int country : {0, 2, 87}) {
    Change("REPLACE INTO model_value VALUES (1, ?)", country);
    for (int i = 0; i < 2; ++i) {
      EXPECT_GT(CallsOf([] { EXPECT_EQ(CTvsUtil::GetSignalInfoType(), CTvsUtil::SIGNAL_INFO_ATSC); }), 0) << country;
    }
  }
}

TEST_F(CacheTest, TheStaticCacheHoldsOneRecordUntilItIsFlushed) {
  CTvsUtil::FlushCache();
  EXPECT_TRUE(Contains(TakeLog(), "Cache is not enabled"));
  CTvsUtil::t_CacheEnabled = true;
  tvs_ch_info* first = CTvsUtil::m_TvServiceChannelGetInfo(false);
  ASSERT_TRUE(first);
  CTvsUtil::m_TvServiceChannelDelInfo(first);
  EXPECT_EQ(CallsOf([&] { EXPECT_EQ(CTvsUtil::m_TvServiceChannelGetInfo(false), first); }), 0);
  EXPECT_NE(CTvsUtil::m_TvServiceChannelGetInfo(true), first);
  EXPECT_EQ(CTvsUtil::GetCurrentSource(PROFILE_MAIN), 13);
  CCacheManager::FlushCache();
  EXPECT_EQ(CallsOf([] { CTvsUtil::GetCurrentSource(PROFILE_MAIN); }), 0);
  const tvs_ch_info* shown = CTvsUtil::m_GetSignalInfo();
  CTvsUtil::FlushCache();
  EXPECT_TRUE(Contains(TakeLog(), "Cache flushing..."));
  // What the keyed cache still hands out outlives the record that was flushed.
  EXPECT_EQ(CTvsUtil::m_GetSignalInfo(), shown);
  EXPECT_EQ(shown->channelType, CHANNEL_DIGITAL_AIR);
  EXPECT_GT(CallsOf([] { CTvsUtil::m_TvServiceChannelGetInfo(false); }), 0);
}

TEST_F(CacheTest, SteppedFrequency) {
  const struct {
    MenuKeyDirection direction;
    const char* text;
    int stored, expected;
  } steps[] = {{MENU_KEY_NONE, "46999", 600000, 600000}, {MENU_KEY_NONE, "890001", 600000, 600000},
               {MENU_KEY_NONE, "47000", 600000, 47000},  {MENU_KEY_NONE, "890000", 600000, 890000},
               {MENU_KEY_UP, nullptr, 890000, 890000},   {MENU_KEY_DOWN, nullptr, 47000, 47000},
               {MENU_KEY_UP, nullptr, 600000, 600001},   {MENU_KEY_DOWN, nullptr, 600000, 599999},
               {MENU_KEY_NONE, nullptr, 600000, 600000}, {MENU_KEY_NONE, "", 600000, 600000},
               {MENU_KEY_UP, nullptr, INT_MAX, INT_MAX}, {MENU_KEY_NONE, "4295567296", 600000, 600000}};
  for (const auto& step : steps) {
    SCOPED_TRACE(testing::Message() << step.direction << " " << (step.text ? step.text : "-") << " from "
                                    << step.stored);
    ChannelUtil::CacheFrequency = step.stored;
    m_cache.m_FlushCache();
    m_cache.Store("SignalInfo-Frequency", step.stored);
    EXPECT_EQ(CTvsUtil::SetCacheFrequency(step.direction, step.text, PROFILE_MAIN), step.expected);
    EXPECT_EQ(ChannelUtil::SetCacheFrequency(step.direction, step.text, PROFILE_MAIN), step.expected);
    EXPECT_EQ(*m_cache.FindStored<int>("SignalInfo-Frequency"), step.expected);
  }
  // With nothing stored the one takes the first number as it is.
  ForgetKept();
  EXPECT_EQ(CTvsUtil::SetCacheFrequency(MENU_KEY_NONE, "46999", PROFILE_MAIN), 46999);
  EXPECT_EQ(CTvsUtil::SetCacheFrequency(MENU_KEY_UP, nullptr, PROFILE_MAIN), 0);
  EXPECT_EQ(ChannelUtil::SetCacheFrequency(MENU_KEY_NONE, "890001", PROFILE_MAIN), -1);
  EXPECT_EQ(ChannelUtil::SetCacheFrequency(MENU_KEY_UP, nullptr, PROFILE_MAIN), 0);
}

TEST_F(CacheTest, SteppedBandwidth) {
  const struct {
    int from;
    MenuKeyDirection direction;
    const char* text;
    int elsewhere, nordic;
  } steps[] = {
      {0, MENU_KEY_UP, nullptr, 1, -1},  {5, MENU_KEY_UP, nullptr, 0, -1},    {2, MENU_KEY_UP, nullptr, 3, 3},
      {3, MENU_KEY_UP, nullptr, 4, 2},   {0, MENU_KEY_DOWN, nullptr, 5, 0},   {5, MENU_KEY_DOWN, nullptr, 4, 5},
      {2, MENU_KEY_DOWN, nullptr, 1, 3}, {3, MENU_KEY_DOWN, nullptr, 2, 2},   {-1, MENU_KEY_UP, nullptr, 0, -1},
      {3, MENU_KEY_NONE, nullptr, 3, 3}, {-1, MENU_KEY_DOWN, nullptr, 4, -1}, {0, MENU_KEY_NONE, "8 MHz", 3, 3},
      {2, MENU_KEY_NONE, "5 MHz", 0, 2}, {3, MENU_KEY_NONE, "712 MHz", 5, 3}, {2, MENU_KEY_NONE, "8MHz", 2, 2},
      {0, MENU_KEY_NONE, "7 MHz", 2, 2}, {3, MENU_KEY_NONE, "", 3, 3}};
  for (const int country : {8, 10, 28}) {
    SetCountry(country);
    for (const auto& step : steps) {
      SCOPED_TRACE(testing::Message() << "country " << country << ", " << step.direction << " "
                                      << (step.text ? step.text : "-") << " from " << step.from);
      m_cache.m_FlushCache();
      m_cache.Store("SignalInfo-BandWidth", step.from);
      ChannelUtil::CacheBandWidth = step.from;
      const int expected = country == 8 ? step.elsewhere : step.nordic;
      EXPECT_EQ(CTvsUtil::SetCacheBandWidth(step.direction, step.text, PROFILE_MAIN), expected);
      EXPECT_EQ(ChannelUtil::SetCacheBandWidth(step.direction, step.text, PROFILE_MAIN), expected);
      EXPECT_EQ(*m_cache.FindStored<int>("SignalInfo-BandWidth"), expected);
    }
  }
}

}  // namespace test
