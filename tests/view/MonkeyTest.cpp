// Somebody who presses, plugs, breaks and interrupts at random, and can be asked to do the same again.
// QUIRELLE_MONKEY="SEED STEPS" (--monkey SEED STEPS) says which and how long; what it says of a fault names a seed
// that comes to it within one TV's steps.
#include <Eina.h>
#include <malloc.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <sstream>

#include "../fuzz/Fuzz.h"
#include "Clock.h"
#include "DeviceManager.h"
#include "EventManager.h"
#include "Gate.h"
#include "Harness.h"
#include "Keys.h"
#include "Screen.h"
#include "Usb.h"
#include "View.h"
#include "ViewTable.h"
#include "Watch.h"

namespace fs = std::filesystem;

using test::Remote;
using test::Tv;

namespace {

constexpr unsigned int kSeed = 1;
constexpr long kSteps = 2000;
/// Steps on one TV.
constexpr long kStay = 250;
constexpr size_t kRemembered = 40;
/// Real seconds for one step, on a machine that is busy with others.
constexpr unsigned int kMostSeconds = 60;
/// What the toolkit's caches may still grow by in the second half, and by how much in each step: some 45 bytes are lost
/// with the layouts that go, 32 with each, and as many are kept for further fonts and scripts.
constexpr long kCaches = 3 * 1024 * 1024;
constexpr long kLost = 100;

class Monkey {
 public:
  Monkey(unsigned int seed, long steps) : m_seed(seed), m_steps(steps) {}

  void Play() {
    const unsigned int first = m_seed;
    long heapHalfway = 0;
    for (; m_step < m_steps && !testing::Test::HasFailure(); m_seed = m_dice.Below(~0U)) {
      m_dice = fuzz::Dice(m_seed);
      StayAtTv();
      CDeviceManager::ReleaseInstance();
      test::ClearLog();
      if (heapHalfway == 0 && m_step >= m_steps / 2) heapHalfway = Heap();
    }
    const long grown = heapHalfway ? Heap() - heapHalfway : 0;
    std::printf("monkey: seed %u, %ld steps, %ld programs, heap %+ld bytes in the second half\n", first, m_step,
                m_programs, grown);
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(grown, kCaches + m_step / 2 * kLost) << "seed " << first << ", " << m_step << " steps";
#endif
  }

 private:
  static long Heap() {
    // What the toolkit has let go of but not yet given back.
    eina_freeq_clear(eina_freeq_main_get());
    return static_cast<long>(mallinfo2().uordblks);
  }

  /// A name that no person would give.
  std::string Name(unsigned int most) {
    std::string name = m_dice.Bytes(most);
    std::replace(name.begin(), name.end(), '/', '%');
    return name.starts_with('.') || name.empty() ? "d" + name : name;
  }

  void Did(const std::string& what) {
    m_did.push_back(what);
    if (m_did.size() > kRemembered) m_did.pop_front();
    m_watch.Tell("\n" + Story());
  }

  std::string Story() const {
    std::string story = "monkey: seed " + std::to_string(m_seed) + ", step " + std::to_string(m_step) + " of " +
                        std::to_string(m_steps) + " on " + m_room + "; the last steps:\n";
    for (const std::string& what : m_did) story += "  " + what + "\n";
    return story;
  }

  void StayAtTv() {
    static constexpr const char* profiles[] = {"america", "europe", "brazil", "hdmi"};
    static constexpr const char* languages[] = {"en_US.utf8", "ar_AE.utf8", "de_DE.utf8", "ko_KR.utf8"};
    const char* profile = m_dice.Any(profiles);
    Tv tv(profile, 200);
    m_tv = &tv;
    const char* language = m_dice.Any(languages);
    const bool contrast = m_dice.Chance(50), voice = m_dice.Chance(50);
    tv.SetLanguage(language);
    tv.Set("db/menu/system/accessibility/highcontrast", contrast ? "1" : "0");
    tv.Set("db/setting/accessibility/tts", voice ? "1" : "0");
    m_room = std::string(profile) + " " + language + (contrast ? " contrast" : "") + (voice ? " voice" : "");
    Did("--- " + m_room);
    for (const long end = std::min(m_steps, m_step + kStay); m_step < end && !testing::Test::HasFailure();) {
      RunProgram();
    }
  }

  const char* AnyMenuID() {
    std::vector<const char*> ids;
    for (const ViewEntry& entry : ViewTable()) {
      if (entry.make) ids.push_back(entry.menuID);
    }
    return m_dice.Any(ids);
  }

  void RunProgram() {
    const char* menuID = AnyMenuID();
    Did(std::string("run ") + menuID);
    ++m_step, ++m_programs;
    m_watch.Expect(kMostSeconds);
    test::Run({menuID}, [&](Remote& remote) {
      while (m_step < m_steps && !remote.HasExited() && !testing::Test::HasFailure()) {
        Step(remote);
        // Without a window there is nothing left but to be ended.
        if (remote.Stack().empty() && m_dice.Chance(30)) break;
      }
      if (!remote.HasExited()) Post(remote, EVENT_EXIT_APP, 0, 0);
      Check();
      EXPECT_TRUE(remote.HasExited()) << "after the exit event\n" << Story();
    });
    Check();
    m_tv->Heal();
    m_watch.Expect(0);
  }

  void Step(Remote& remote) {
    using Deed = void (Monkey::*)(Remote&);
    static constexpr std::pair<unsigned int, Deed> habits[] = {
        {300, &Monkey::PressKey},    {20, &Monkey::Hammer},     {30, &Monkey::Wait},       {12, &Monkey::Plug},
        {15, &Monkey::ChangeSignal}, {8, &Monkey::ChangeItem},  {10, &Monkey::Break},      {10, &Monkey::Heal},
        {3, &Monkey::Interrupt},     {4, &Monkey::LaunchAgain}, {14, &Monkey::PushWindow}, {10, &Monkey::PushControl},
        {6, &Monkey::ChangeStack},   {2, &Monkey::End},
    };
    unsigned int all = 0;
    for (const auto& [weight, deed] : habits) all += weight;
    unsigned int at = m_dice.Below(all);
    const auto* habit = habits;
    for (; at >= habit->first; ++habit) at -= habit->first;
    ++m_step;
    m_watch.Expect(kMostSeconds);
    (this->*habit->second)(remote);
    remote.Settle();
    Check();
  }

  void Check() {
    for (const std::string& error : test::TakeGraveToolkitErrors()) {
      ADD_FAILURE() << error << "; views: " << testing::PrintToString(Remote().Stack()) << "\n" << Story();
    }
  }

  // --- what it does ------------------------------------------------------------------------------

  std::string AnyKey() {
    static constexpr const char* steering[] = {"Up", "Down", "Left", "Right", "Return"};
    if (m_dice.Chance(70)) return m_dice.Any(steering);
    const std::string key = m_dice.Any(desktop::RemoteKeys());
    return (key == "XF86Back" || key == "BackSpace") && m_dice.Chance(60) ? "Down" : key;
  }

  void PressKey(Remote& remote) {
    const std::string key = AnyKey();
    Did(key);
    remote.Press(key);
  }

  /// Faster than the program.
  void Hammer(Remote&) {
    std::string keys;
    for (unsigned int i = m_dice.Below(6) + 2; i > 0; --i) {
      const std::string key = AnyKey();
      keys += key + " ";
      desktop::PressKey(desktop::RemoteKey(key));
    }
    Did("at once: " + keys);
  }

  void Wait(Remote& remote) {
    static constexpr double seconds[] = {0.01, 0.1, 0.25, 1.0, 1.0, 3.0, 5.5, 14.0, 15.0, 61.0, 7200.0};
    const double wait = m_dice.Any(seconds);
    Did("wait " + std::to_string(wait));
    remote.Wait(wait);
  }

  void Plug(Remote&) {
    const std::string name = m_dice.Chance(70) ? std::string(1, static_cast<char>('A' + m_dice.Below(3))) : Name(60);
    const fs::path stick = desktop::UsbDirectory() / name;
    std::error_code error;
    if (fs::is_directory(stick, error)) {
      Did("unplug " + name);
      fs::remove_all(stick, error);
      return;
    }
    fs::create_directories(stick, error);
    const unsigned int archives = m_dice.Below(4);
    for (unsigned int i = 0; i < archives; ++i) {
      std::ofstream(stick / ((m_dice.Chance(50) ? "list" + std::to_string(i) : Name(100)) + ".zip")) << "x";
    }
    Did("plug " + name + " with " + std::to_string(archives));
  }

  void Change(const std::string& sql) {
    Did(sql);
    test::Change(sql);
  }

  void ChangeSignal(Remote&) {
    static constexpr const char* columns[] = {"strength", "quality", "ber", "snr"};
    const std::string value = std::to_string(m_dice.Chance(20) ? 0 : m_dice.Below(110));
    if (m_dice.Chance(70)) return Change(std::string("UPDATE transponder SET ") + m_dice.Any(columns) + " = " + value);
    if (m_dice.Chance(40)) return Change("UPDATE picture SET source = " + std::to_string(m_dice.Below(3)));
    if (m_dice.Chance(50)) {
      const std::string service = std::to_string(m_dice.Below(200));
      return Change("UPDATE picture SET service = (SELECT id FROM service ORDER BY id LIMIT 1 OFFSET " + service + ")");
    }
    Change("UPDATE picture SET antenna = " + std::to_string(m_dice.Below(4)));
  }

  static std::vector<std::string> Items() {
    std::vector<std::string> items;
    desktop::Query rows("SELECT id FROM item ORDER BY id");
    while (rows.Row()) items.push_back(rows.Text(0));
    return items;
  }

  void ChangeItem(Remote&) {
    const std::string item = m_dice.Any(Items()),
                      value = m_dice.Chance(50) ? m_dice.Bytes(600) : std::to_string(m_dice.Below(100000));
    Did("item " + item + " = " + value.substr(0, 60));
    m_tv->SetItem(item, value);
  }

  void Break(Remote&) {
    std::vector<const desktop::Operation*> breakable;
    for (const desktop::Operation* operation : desktop::Operations()) {
      if (!operation->failures.empty()) breakable.push_back(operation);
    }
    const desktop::Operation& operation = *m_dice.Any(breakable);
    const char* result = m_dice.Any(operation.failures);
    const int times = static_cast<int>(m_dice.Below(4));
    Did(std::string("fault ") + operation.name + " " + result + " " + std::to_string(times));
    m_tv->Fail(operation.name, result, times);
  }

  void Heal(Remote&) {
    Did("heal");
    m_tv->Heal();
  }

  void Interrupt(Remote& remote) {
    if (!m_dice.Chance(50)) {
      Did("pause");
      remote.Pause();
      if (m_dice.Chance(50)) return;
    }
    Did("resume");
    remote.Resume();
  }

  void LaunchAgain(Remote& remote) {
    const char* menuID = AnyMenuID();
    Did(std::string("launch ") + menuID);
    remote.Launch(menuID);
  }

  void Post(Remote& remote, int type, long first, long second) {
    Did("event " + std::to_string(type) + " " + std::to_string(first) + " " + std::to_string(second));
    remote.Post(type, first, second);
  }

  void PushWindow(Remote& remote) {
    Post(remote, EVENT_PUSH_VIEW, m_dice.Below(27), m_dice.Chance(60) ? 0 : m_dice.Below(21));
  }

  void PushControl(Remote& remote) {
    std::vector<std::string> controls;
    for (const std::string& item : Items()) {
      if (const std::unique_ptr<IView> control(MakeControl(item.c_str(), 0, 0, 0)); control) controls.push_back(item);
    }
    const std::string menuID = m_dice.Any(controls);
    const int x = static_cast<int>(m_dice.Below(2000)), y = static_cast<int>(m_dice.Below(1200)),
              w = static_cast<int>(m_dice.Below(900));
    Did("control " + menuID);
    remote.OpenControl(menuID, x, y, w);
  }

  void ChangeStack(Remote& remote) {
    if (m_dice.Chance(50)) return Post(remote, EVENT_REFRESH_VIEW, 0, 0);
    Post(remote, EVENT_POP_VIEW, m_dice.Below(2), 0);
  }

  void End(Remote& remote) {
    if (m_dice.Chance(60)) return Post(remote, EVENT_EXIT_APP, 0, 0);
    Did("focus lost");
    remote.TakeFocus();
  }

  test::Watch m_watch;
  /// Of the TV that it is at: each can be played again by itself.
  unsigned int m_seed;
  long m_steps, m_step = 0, m_programs = 0;
  fuzz::Dice m_dice{0};
  Tv* m_tv = nullptr;
  std::string m_room;
  std::deque<std::string> m_did;
};

TEST(Monkey, LeavesTheProgramWhole) {
  unsigned int seed = kSeed;
  long steps = kSteps;
  if (const char* wanted = std::getenv("QUIRELLE_MONKEY")) {
    ASSERT_TRUE(std::istringstream(wanted) >> seed >> steps) << wanted << ": wants a seed and a number of steps";
  }
  // The same steps at the same times, however long the machine takes.
  test::HoldClock(true);
  // Nobody looks, and a small screen is drawn sooner.
  setenv("QUIRELLE_SCREEN", "480x270", 1);
  Monkey(seed, steps).Play();
  unsetenv("QUIRELLE_SCREEN");
  test::HoldClock(false);
}

}  // namespace
