// The bases of all windows, by small windows of the test's own shown in the real program.
#include "Harness.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "ViewNotifyWindowBase.h"
#include "ViewProgressWindowBase.h"
#include "WidgetDim.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

// --- buttons -------------------------------------------------------------------------------------

class ButtonsWindow : public CViewWindowBase {
 public:
  ButtonsWindow() : CViewWindowBase("buttons") {}

  Texts m_calls;
  const char* m_style = theme::kBottomLarge;
  int m_type = BASE_TYPE_POPUP;

 protected:
  int t_GetBaseType() override { return m_type; }
  std::string t_GetBaseStyle() override { return m_style; }
  std::string t_GetWindowTitleText() override { return "A title"; }
  void t_InitWindowProperty() override { t_DefaultButtonNum = 3; }
  void t_ProcessDefaultButtonOneFocusCallBack() override { m_calls.push_back("focus 1"); }
  void t_ProcessDefaultButtonTwoFocusCallBack() override { m_calls.push_back("focus 2"); }
  void t_ProcessDefaultButtonThreeFocusCallBack() override { m_calls.push_back("focus 3"); }
  void t_ProcessDefaultButtonOneUnFocusCallBack() override { m_calls.push_back("unfocus 1"); }
  void t_ProcessDefaultButtonTwoUnFocusCallBack() override { m_calls.push_back("unfocus 2"); }
  void t_ProcessDefaultButtonThreeUnFocusCallBack() override { m_calls.push_back("unfocus 3"); }
  void t_ProcessDefaultButtonOneClickCallBack() override { m_calls.push_back("click 1"); }
  void t_ProcessDefaultButtonTwoClickCallBack() override { m_calls.push_back("click 2"); }
  void t_ProcessDefaultButtonThreeClickCallBack() override { m_calls.push_back("click 3"); }
  void t_ProcessDefaultButtonOneKeyPressCallBack(std::string key) override { m_calls.push_back(key + " 1"); }
  void t_ProcessDefaultButtonTwoKeyPressCallBack(std::string key) override { m_calls.push_back(key + " 2"); }
  void t_ProcessDefaultButtonThreeKeyPressCallBack(std::string key) override { m_calls.push_back(key + " 3"); }
};

TEST(WindowBase, EachButtonCallsItsOwnOperations) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Pop();
    auto* window = remote.Push(std::make_unique<ButtonsWindow>());
    EXPECT_EQ(remote.Title(), "A title");
    EXPECT_EQ(remote.Buttons(), (Texts{"OK", "Close", "Close"}));
    const auto took = [&] { return std::exchange(window->m_calls, {}); };
    EXPECT_EQ(took(), Texts{"focus 3"}) << "and none that the focus has passed over";
    remote.Press("Left Left");
    took();
    remote.Press("Return");
    EXPECT_EQ(took(), (Texts{"Return 1", "click 1"}));
    remote.Press("Right");
    EXPECT_EQ(took(), (Texts{"Right 1", "unfocus 1", "focus 2"}));
    remote.Press("Right Return");
    EXPECT_EQ(took(), (Texts{"Right 2", "unfocus 2", "focus 3", "Return 3", "click 3"}));
    remote.Press("Left Return 5");
    EXPECT_EQ(took(), (Texts{"Left 3", "unfocus 3", "focus 2", "Return 2", "click 2", "5 2"}));
  });
}

TEST(WindowBase, AsksForTheHighContrastVariantOfOneStyle) {
  for (const std::string contrast : {"0", "1"}) {
    Tv tv;
    tv.Set("db/menu/system/accessibility/highcontrast", contrast);
    test::Run({"hdmi-delay-level"}, [](Remote&) {});
    EXPECT_EQ(test::Logged("[Debug]Final Style[picturemodepopup_2017_hc]"), contrast == "1");
  }
}

TEST(WindowBase, WithoutAMainBaseItStillLivesAndGoes) {
  constexpr int kNoType = 3;
  for (const int type : {static_cast<int>(BASE_TYPE_LAYOUT), kNoType}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      auto window = std::make_unique<ButtonsWindow>();
      window->m_style = "no-such-group";
      window->m_type = type;
      remote.Push(std::move(window));
      test::TakeToolkitErrors();  // the missing group
      remote.Press("Return 5 Back");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
  }
}

// --- notices -------------------------------------------------------------------------------------

class Notice : public CViewNotifyWindowBase {
 public:
  explicit Notice(bool dim) : CViewNotifyWindowBase("notice") { t_FlagDim = dim; }

 protected:
  void t_GetDisplayText(char* buffer) override { snprintf(buffer, kDisplayTextSize, "SID_SATELLITE_SELECTION"); }
};

TEST(Notice, ShowsItsTextTranslatedAndDimsTheScreenIfItIsAskedTo) {
  const auto dimness = [](Remote& remote) { return remote.ColourAt(10, 10) >> 24; };
  for (const bool dim : {true, false}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      EXPECT_EQ(dimness(remote), 0U);
      remote.Push(std::make_unique<Notice>(dim));
      EXPECT_TRUE(remote.Shows("Satellite selection"));
      EXPECT_EQ(remote.Focus(), "OK");
      const unsigned int shown = dimness(remote);
      CWidgetDim::GetInstance()->Hide();
      remote.Settle();
      const unsigned int own = dimness(remote);
      EXPECT_GT(own, 0U) << "what the notice lies on recedes";
      EXPECT_EQ(shown > own, dim) << shown << " and " << own;
      dim ? CWidgetDim::GetInstance()->Show() : CWidgetDim::ReleaseInstance();
      remote.Pop();
      EXPECT_EQ(dimness(remote), 0U);
      EXPECT_EQ(remote.Focus(), "All, TV-Y") << "the focus is back where it was";
    });
  }
}

TEST(Notice, OfTheFrequenciesSaysWhatIsWrong) {
  for (const char* menuID : {"StartFrequency", "StopFrequency"}) {
    Tv tv("europe", 0);
    test::Run({menuID}, [&](Remote& remote) {
      EXPECT_TRUE(remote.Shows("The start frequency is higher than the stop frequency. Check both and try again."));
      remote.ExpectExit("Return");
    });
  }
}

// --- progress ------------------------------------------------------------------------------------

class ProgressWindow : public CViewProgressWindowBase {
 public:
  /// The step that fails: 0 none, 1 content, 2 bar, 3 other parts.
  explicit ProgressWindow(int failing = 0) : CViewProgressWindowBase("progress"), m_failing(failing) {}
  WidgetProgressBar* Bar() { return t_pProgressBar.get(); }

 protected:
  std::string t_GetBaseStyle() override { return theme::kBottomLarge; }
  // A group that has a part for the bar and one for its text.
  void t_SetContentSettingInfo() override {
    if (m_failing != 1) t_ContentGroup = theme::kRatingGrid;
    t_ContentMinWidth = 800, t_ContentMinHeight = 200;
  }
  void t_SetProgressSettingInfo() override { t_ProgressPart = "check9", t_ProgressText = "text12"; }
  std::unique_ptr<WidgetProgressBar> t_CreateProgressBar(Evas_Object* parent) override {
    return CViewProgressWindowBase::t_CreateProgressBar(m_failing == 2 ? nullptr : parent);
  }
  bool t_CreateOtherPartIntoContentLayout(Evas_Object*) override { return m_failing != 3; }

 private:
  int m_failing;
};

TEST(Progress, ShowsItsValueInWholePercentCut) {
  Tv tv;
  tv.SetLanguage("ar_AE.utf8");
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Pop();
    auto* window = remote.Push(std::make_unique<ProgressWindow>());
    EXPECT_FALSE(elm_object_mirrored_get(window->Bar()->GetObject())) << "numbers run from left to right";
    EXPECT_EQ(remote.Texts(), Texts{"0%"});
    for (const auto& [value, text] : std::map<double, const char*>{{0.505, "50%"}, {0.999, "99%"}, {1.0, "100%"}}) {
      window->Bar()->SetItemData(value);
      remote.Settle();
      EXPECT_EQ(remote.Texts(), Texts{text});
    }
    window->Bar()->EnableProgressTextFlag(false, "text12");
    window->Bar()->SetItemData(0.25);
    remote.Settle();
    EXPECT_EQ(remote.Texts(), Texts{"100%"}) << "no text follows the value any more";
    EXPECT_EQ(remote.Screen()["progress"].asInt(), 25);
  });
}

TEST(Progress, AFailingStepTakesTheWindowDownAgain) {
  for (int failing = 1; failing <= 3; ++failing) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      auto* window = remote.Push(std::make_unique<ProgressWindow>(failing));
      test::TakeToolkitErrors();  // the missing group
      EXPECT_EQ(window->GetMainBase(), nullptr);
      EXPECT_EQ(window->Bar(), nullptr);
      remote.Press("Back");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
  }
}

}  // namespace
