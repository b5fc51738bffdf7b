// The same window on real displays: X11 with a window manager, and Wayland.
#include <fstream>

#include "Process.h"

namespace test {

namespace {

/// Share of the pixels of which a colour is further apart than rounding explains.
double Difference(const Picture& a, const Picture& b) {
  constexpr int kRounding = 8;
  if (a.w != b.w || a.h != b.h) return 1;
  size_t different = 0;
  for (size_t i = 0; i < a.rgb.size(); i += 3) {
    bool apart = false;
    for (size_t c = i; c < i + 3; ++c) apart |= std::abs(a.rgb[c] - b.rgb[c]) > kRounding;
    different += apart;
  }
  return static_cast<double>(different) * 3 / static_cast<double>(a.rgb.size());
}

/// What is seen after these keys, on a new TV.
Picture Session(const Texts& environment, const std::string& keys, const std::string& value) {
  const TvFile tv;
  const Outcome outcome = tv.Program({"tv-rating", "--keys", keys, "--shot", tv / "shot.png"}, environment);
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_FALSE(Says(outcome.errors, "ERR<")) << outcome.errors;
  EXPECT_EQ(tv.Get(kRating + "tv_y7"), value);
  return LoadPicture(tv / "shot.png");
}

/// What is on a display is what is drawn off screen at that size, and that is a window.
void ExpectDrawn(const Texts& environment, const std::string& size) {
  const Texts offScreen = {"QUIRELLE_SCREEN=" + size};
  const Picture wanted = Session(offScreen, "Down Return", "48"), got = Session(environment, "Down Return", "48");
  EXPECT_EQ(std::to_string(got.w) + "x" + std::to_string(got.h), size);
  EXPECT_LT(Difference(wanted, got), 0.001);
  EXPECT_GT(Difference(got, Session(offScreen, "Back", "0")), 0.4) << "no panel";
}

class X11 {
 public:
  /// Without -r a busy machine, slow to let a key go, would press it again and again.
  X11()
      : m_server({"sh", "-c", "exec Xvfb -displayfd 1 -screen 0 1920x1080x24 -nolisten tcp -r 2>/dev/null"}, {},
                 m_directory / "number") {
    Until([this] {
      std::ifstream(m_directory / "number") >> m_number;
      return !m_number.empty();
    });
    m_manager = std::make_unique<Process>(Texts{"openbox"}, Environment());
    Until([this] { return Ask({"xdotool", "get_num_desktops"}) == 0; });
  }
  Texts Environment() const { return {"DISPLAY=:" + m_number}; }
  int Ask(const Texts& words) const {
    return Process(words, Environment(), m_directory / "answer").Wait().value_or(-1);
  }
  std::string Answer() const { return ReadWhole(m_directory / "answer"); }

 private:
  TemporaryDirectory m_directory;
  Process m_server;
  std::unique_ptr<Process> m_manager;
  std::string m_number;
};

TEST(Displays, X11ShowsTheWindowAndTakesRealKeys) {
  const X11 display;
  ExpectDrawn(display.Environment(), "1920x1080");
  const TvFile tv;
  const auto program = tv.Start(display.Environment());
  ASSERT_TRUE(Until([&] {
    return display.Ask({"xdotool", "getwindowfocus", "getwindowname"}) == 0 && display.Answer() == "quirelle\n";
  })) << ReadWhole(tv / "out");
  // Answered when the program has come to rest with the focus that it was given.
  tv.Do({"resume"});
  const auto press = [&](const char* key, const std::string& remote) {
    const auto last = [&] { return ReadWhole(tv / "tv.log").rfind("Common Key [" + remote + "]"); };
    const size_t before = last();
    EXPECT_EQ(display.Ask({"xdotool", "key", key}), 0);
    EXPECT_TRUE(Until([&] { return last() != before; })) << key << "\n" << ReadWhole(tv / "tv.log");
  };
  press("Down", "Down");
  press("Return", "Return");
  EXPECT_TRUE(Until([&] { return tv.Get(kRating + "tv_y7") == "48"; })) << tv.Get(kRating + "tv_y7");
  press("space", "Return");
  EXPECT_TRUE(Until([&] { return tv.Get(kRating + "tv_y7") == "0"; })) << ReadWhole(tv / "tv.log");
  EXPECT_FALSE(program->Wait(0)) << "ended too early";
  press("Escape", "XF86Back");
  EXPECT_EQ(program->Wait(), 0);
}

class Wayland {
 public:
  Wayland(const std::string& width, const std::string& height)
      : m_server({"weston", "--backend=headless-backend.so", "--width=" + width, "--height=" + height,
                  "--socket=display", "--idle-time=0"},
                 Environment(), m_directory / "log") {
    Until([this] { return std::filesystem::is_socket(m_directory / "display"); });
  }
  Texts Environment() const { return {"XDG_RUNTIME_DIR=" + std::string(m_directory / "."), "WAYLAND_DISPLAY=display"}; }

 private:
  TemporaryDirectory m_directory;
  Process m_server;
};

TEST(Displays, WaylandShowsAndScalesTheWindowAndLetsItGo) {
  for (const auto& [width, height] : {std::pair("1920", "1080"), std::pair("1280", "720")}) {
    const Wayland display(width, height);
    ExpectDrawn(display.Environment(), std::string(width) + "x" + height);
    const TvFile tv;
    const auto program = tv.Start(display.Environment());
    tv.Do({"key", "Escape"});
    EXPECT_EQ(program->Wait(), 0) << ReadWhole(tv / "out");
  }
}

}  // namespace

}  // namespace test
