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
  ButtonsWindow(int count, const char* title) : CViewWindowBase("buttons"), m_count(count), m_title(title) {}

  Texts m_calls;
  const char* m_style = theme::kBottomLarge;
  int m_type = BASE_TYPE_POPUP;

 protected:
  int t_GetBaseType() override { return m_type; }
  std::string t_GetBaseStyle() override { return m_style; }
  std::string t_GetWindowTitleText() override { return m_title; }
  void t_InitWindowProperty() override { t_DefaultButtonNum = m_count; }
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

 private:
  int m_count;
  std::string m_title;
};

TEST(WindowBase, HasAsManyButtonsAsItAsksFor) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Pop();
    const Texts texts[] = {{}, {"Close"}, {"OK", "Close"}, {"OK", "Close", "Close"}};
    for (int count = 0; count <= 3; ++count) {
      test::ClearLog();
      remote.Push(std::make_unique<ButtonsWindow>(count, "A title"));
      EXPECT_EQ(remote.Title(), "A title");
      EXPECT_EQ(remote.Buttons(), texts[count]);
      EXPECT_EQ(test::Logged("[Debug]DefaultNum:" + std::to_string(count)), count > 0);
      remote.Pop();
      EXPECT_TRUE(remote.Texts().empty());
    }
  });
}

TEST(WindowBase, EachButtonCallsItsOwnOperations) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    auto* window = remote.Push(std::make_unique<ButtonsWindow>(3, ""));
    EXPECT_TRUE(test::Logged("[Debug]no title for this item - intentionally, due to new policy"));
    EXPECT_EQ(remote.Title(), "");
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
  struct Case {
    const char *contrast, *menuID, *asked, *final;
  };
  for (const Case& c :
       {Case{"0", "hdmi-delay-level", "Type[1],TmpStyle[picturemodepopup_2017]", "picturemodepopup_2017"},
        Case{"1", "hdmi-delay-level", "Type[1],TmpStyle[picturemodepopup_2017]", "picturemodepopup_2017_hc"},
        Case{"1", "tv-rating", "Type[2],TmpStyle[C_PopupBasic_WhiteBottomLarge]", "C_PopupBasic_WhiteBottomLarge"}}) {
    SCOPED_TRACE(std::string(c.menuID) + " contrast " + c.contrast);
    Tv tv;
    tv.Set("db/menu/system/accessibility/highcontrast", c.contrast);
    test::Run({c.menuID}, [](Remote&) {});
    EXPECT_TRUE(test::Logged(std::string("[Debug]BaseInfo:") + c.asked));
    EXPECT_TRUE(test::Logged(std::string("[Debug]Final Style[") + c.final + "]"));
  }
}

TEST(WindowBase, WithoutAMainBaseItStillLivesAndGoes) {
  constexpr int kNoType = 3;
  for (const int type : {static_cast<int>(BASE_TYPE_LAYOUT), kNoType}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      auto window = std::make_unique<ButtonsWindow>(3, "A title");
      window->m_style = "no-such-group";
      window->m_type = type;
      remote.Push(std::move(window));
      test::TakeToolkitErrors();  // the missing group
      EXPECT_EQ(test::Logged("[Error]failed to layout file set"), type != kNoType);
      EXPECT_TRUE(test::Logged("[Debug]Create MainBase Failed"));
      remote.Press("Return 5 Back");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
  }
}

TEST(RootWindow, MakesNothingBeforeThereIsAWindow) {
  Tv tv;
  for (const int type : {1, 2, 3})
    EXPECT_EQ(CRootWindow::CreateBase(static_cast<base_type>(type), "dimRect", "file"), nullptr);
  EXPECT_EQ(test::Log(), (Texts{"[Debug]", "[Error]Null", "[Debug]", "[Error]Null", "[Debug]", "[Error]Null"}));
}

// --- notices -------------------------------------------------------------------------------------

class Notice : public CViewNotifyWindowBase {
 public:
  Notice(const char* text, bool dim) : CViewNotifyWindowBase("notice"), m_text(text) { t_FlagDim = dim; }

 protected:
  void t_GetDisplayText(char* buffer) override {
    m_text ? static_cast<void>(snprintf(buffer, kDisplayTextSize, "%s", m_text))
           : CViewNotifyWindowBase::t_GetDisplayText(buffer);
  }

 private:
  const char* m_text;
};

TEST(Notice, ShowsItsTextTranslatedAndDimsTheScreenIfItIsAskedTo) {
  const struct {
    const char *id, *text;
    bool dim;
  } cases[] = {{"SID_SATELLITE_SELECTION", "Satellite selection", true}, {nullptr, "null", false}};
  const auto dimness = [](Remote& remote) { return remote.ColourAt(10, 10) >> 24; };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      EXPECT_EQ(dimness(remote), 0U);
      remote.Push(std::make_unique<Notice>(c.id, c.dim));
      EXPECT_TRUE(remote.Shows(c.text));
      EXPECT_EQ(remote.Focus(), "OK");
      EXPECT_TRUE(test::Logged("[Info]displaytext is: " + std::string(c.id ? c.id : "null")));
      const unsigned int shown = dimness(remote);
      CWidgetDim::GetInstance()->Hide();
      remote.Settle();
      const unsigned int own = dimness(remote);
      EXPECT_GT(own, 0U) << "what the notice lies on recedes";
      EXPECT_EQ(shown > own, c.dim) << shown << " and " << own;
      if (c.dim) CWidgetDim::GetInstance()->Show();
      remote.Settle();
      EXPECT_EQ(dimness(remote), shown);
      remote.Pop();
      EXPECT_EQ(dimness(remote), 0U);
      EXPECT_EQ(remote.Focus(), "All, TV-Y") << "the focus is back where it was";
    });
  }
}

// --- progress ------------------------------------------------------------------------------------

class ProgressWindow : public CViewProgressWindowBase {
 public:
  /// The step that fails: 0 none, 1 content, 2 bar, 3 other parts.
  explicit ProgressWindow(int failing = 0) : CViewProgressWindowBase("progress"), m_failing(failing) {}
  WidgetProgressBar* Bar() { return t_pProgressBar.get(); }

  Texts m_keys;

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
  void t_ProcessProgressBarKeyPress(std::string key) override { m_keys.push_back(key); }

 private:
  int m_failing;
};

TEST(Progress, ShowsItsValueInWholePercentCutAndTakesKeys) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    remote.Pop();
    auto* window = remote.Push(std::make_unique<ProgressWindow>());
    EXPECT_EQ(remote.Texts(), Texts{"0%"});
    for (const auto& [value, text] : std::map<double, const char*>{{0.505, "50%"}, {0.999, "99%"}, {1.0, "100%"}}) {
      window->Bar()->SetItemData(value);
      remote.Settle();
      EXPECT_EQ(remote.Texts(), Texts{text});
    }
    EXPECT_EQ(remote.Screen()["progress"].asInt(), 100);
    window->Bar()->EnableProgressTextFlag(false, "text12");
    window->Bar()->SetItemData(0.25);
    remote.Settle();
    EXPECT_EQ(remote.Texts(), Texts{"100%"}) << "no text follows the value any more";
    EXPECT_EQ(remote.Screen()["progress"].asInt(), 25);
    EXPECT_EQ(remote.Buttons(), Texts{});
    elm_object_focus_allow_set(window->Bar()->GetObject(), EINA_TRUE);
    window->Bar()->SetFocus(true);
    remote.Press("Return 7");
    EXPECT_EQ(window->m_keys, (Texts{"Return", "7"}));
  });
}

TEST(Progress, AFailingStepTakesTheWindowDownAgain) {
  const Texts messages[] = {{"[Debug]Layout File Failed :[No Defined]", "[Debug]Content Failed"},
                            {"[Debug]Null Pointer:t_pMainBase", "[Debug]Progress Bar Failed"},
                            {"[Debug]Other Part Failed"}};
  for (int failing = 1; failing <= 3; ++failing) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      auto* window = remote.Push(std::make_unique<ProgressWindow>(failing));
      test::TakeToolkitErrors();  // the missing group
      for (const std::string& message : messages[failing - 1]) EXPECT_TRUE(test::Logged(message)) << message;
      EXPECT_EQ(window->GetMainBase(), nullptr);
      EXPECT_EQ(window->Bar(), nullptr);
      remote.Press("Back");
      EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
    });
  }
}

}  // namespace
