// The event channel, and the stack of views that it drives.
#include "EventManager.h"
#include "Harness.h"
#include "KeyManager.h"
#include "View.h"
#include "ViewManager.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

// --- events --------------------------------------------------------------------------------------

constexpr int kType = 100, kOther = 101;

class Payload : public IEventData {
 public:
  explicit Payload(const std::shared_ptr<int>& count) : m_count(count) {}
  std::string GetMenuID() override { return "payload"; }

 private:
  std::shared_ptr<int> m_count;
};

struct Deliveries {
  std::vector<int> params;
  int depth = 0, deepest = 0;
};

bool Take(void* data, CEvent* event) {
  auto* deliveries = static_cast<Deliveries*>(data);
  deliveries->deepest = std::max(deliveries->deepest, ++deliveries->depth);
  deliveries->params.push_back(event->nParam1);
  if (event->nParam2 > 0) {
    CEventManager::GetInstance()->SendEvent(kType, event->nParam1 + 1, event->nParam2 - 1, nullptr, nullptr);
  }
  --deliveries->depth;
  return false;
}

bool LeaveAfterOne(void* data, CEvent* event) {
  CEventManager::GetInstance()->UnregisterEventCallback(kType, LeaveAfterOne, data);
  return Take(data, event);
}

TEST(Events, TheFirstRegistrationOfATypeStays) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    CEventManager* events = CEventManager::GetInstance();
    Deliveries own, others;
    EXPECT_EQ(events->GetRegisteredCallbackCountByType(kType), 0);
    events->RegisterEventCallback(kType, Take, &own);
    events->RegisterEventCallback(kType, LeaveAfterOne, &own);
    events->RegisterEventCallback(kType, Take, &others);
    EXPECT_EQ(events->GetRegisteredCallbackCountByType(kType), 1);
    events->UnregisterEventCallback(kType, Take, &others);
    events->UnregisterEventCallback(kType, LeaveAfterOne, &own);
    events->UnregisterEventCallback(kOther, Take, &own);
    for (const int param : {7, 8}) events->SendEvent(kType, param, 0, nullptr, nullptr);
    EXPECT_TRUE(own.params.empty()) << "posting calls nobody";
    remote.Settle();
    EXPECT_EQ(own.params, (std::vector<int>{7, 8}));
    EXPECT_TRUE(others.params.empty());
    events->UnregisterEventCallback(kType, Take, &own);
    EXPECT_EQ(events->GetRegisteredCallbackCountByType(kType), 0);
  });
}

TEST(Events, ComeInOrderNeverNestedAndSurviveWhatCallbacksDo) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    CEventManager* events = CEventManager::GetInstance();
    Deliveries own, once;
    events->RegisterEventCallback(kType, Take, &own);
    events->SendEvent(kType, 10, 2, nullptr, nullptr);
    events->SendEvent(CEvent{kType, 20, 0, nullptr, nullptr});
    remote.Settle();
    EXPECT_EQ(own.params, (std::vector<int>{10, 20, 11, 12}));
    EXPECT_EQ(own.deepest, 1);
    events->UnregisterEventCallback(kType, Take, &own);

    events->RegisterEventCallback(kType, LeaveAfterOne, &once);
    for (const int param : {1, 2}) events->SendEvent(kType, param, 0, nullptr, nullptr);
    remote.Settle();
    EXPECT_EQ(once.params, std::vector<int>{1});
  });
}

TEST(Events, APayloadGoesWithItsRecordEvenWhenNobodyListens) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    const auto count = std::make_shared<int>();
    CEventManager::GetInstance()->SendEvent(kType, 0, 0, nullptr, new Payload(count));
    EXPECT_EQ(count.use_count(), 2);
    remote.Settle();
    EXPECT_EQ(count.use_count(), 1);
  });
}

TEST(Events, RemovingAllLeavesTheProgramDeaf) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    for (int i = 0; i < 2; ++i) CEventManager::GetInstance()->RemoveAllEvents();
    remote.Press("Back");
    EXPECT_FALSE(remote.HasExited());
    EXPECT_EQ(remote.Stack(), Texts{"tv-rating"});
  });
}

TEST(Events, PayloadsTakeNullForEmpty) {
  CEventSwitchData none(nullptr, nullptr, nullptr), both("first", "second", "third");
  EXPECT_EQ(CEventPositionData(nullptr).GetMenuID() + CEventStringData(nullptr).GetMenuID() + none.GetMenuID(), "");
  EXPECT_EQ(both.GetMenuID() + CEventParentsIDData("id").GetMenuID(), "firstid");
}

TEST(EventIDPoll, CountsTo1024AndBack) {
  for (int id = 256; id <= 1024; ++id) ASSERT_EQ(EventIDPoll::GenerateWidgetID(), id);
  EXPECT_EQ(EventIDPoll::GenerateWidgetID(), 1024);
  EventIDPoll::DeleteWidgetID();
  EXPECT_EQ(EventIDPoll::GenerateWidgetID(), 1024);
  for (int i = 0; i < 800; ++i) EventIDPoll::DeleteWidgetID();
  EXPECT_EQ(EventIDPoll::GenerateWidgetID(), 256);
  EventIDPoll::DeleteWidgetID();
  EXPECT_EQ(EventIDPoll::GenerateEventID(0x7FFFFFFF, 1), 2199023254529);
}

// --- the stack -----------------------------------------------------------------------------------

/// A view that shows nothing and says what is asked of it.
class ProbeView : public CView {
 public:
  ProbeView(const char* menuID, Texts& calls) : CView(menuID), m_calls(calls) {}
  ~ProbeView() override { Say("delete"); }

  bool m_takesKeys = false;

 protected:
  void t_Create() override { Say("create"), CView::t_Create(); }
  void t_Destroy() override { Say("destroy"), CView::t_Destroy(); }
  void t_Show() override { Say("show"), CView::t_Show(); }
  bool t_PrepareHide() override { return Say("prepare"), CView::t_PrepareHide(); }
  void t_Hide() override { Say("hide"), CView::t_Hide(); }
  void t_Resume() override { Say("resume"), CView::t_Resume(); }
  void t_Pause() override { Say("pause"), CView::t_Pause(); }
  void t_Refresh() override { Say("refresh"), CView::t_Refresh(); }
  int t_GetTimeOutSeconds() override { return 0; }
  bool t_HandleMenuSpecialKeyCB(void*, int, void*) override { return m_takesKeys; }

 private:
  void Say(const char* what) { m_calls.push_back(t_MenuID + " " + what); }

  Texts& m_calls;
};

std::string Top() {
  IView* view = CViewManager::GetInstance()->GetCurrentView();
  return view ? view->GetID() : "";
}

TEST(Stack, EachViewGetsItsLifeCycleInOrder) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    Texts calls;
    const auto took = [&calls] { return std::exchange(calls, {}); };
    remote.Push(std::make_unique<ProbeView>("a", calls));
    EXPECT_EQ(took(), (Texts{"a create", "a show"}));
    remote.Push(std::make_unique<ProbeView>("b", calls));
    EXPECT_EQ(took(), (Texts{"a pause", "b create", "b show"}));
    EXPECT_EQ(Top(), "b");
    EXPECT_STREQ(CViewManager::GetInstance()->GetLastOldView()->GetID(), "a");
    remote.Post(EVENT_REFRESH_VIEW);
    EXPECT_EQ(took(), Texts{"b refresh"});
    remote.Post(EVENT_POP_VIEW);
    EXPECT_EQ(took(), (Texts{"b prepare", "b hide", "a resume", "a refresh", "b destroy", "b delete"}));
    remote.Post(EVENT_PAUSE_APP);
    EXPECT_EQ(took(), (Texts{"a hide", "a destroy", "a delete"}));
    EXPECT_FALSE(remote.HasExited());
    for (const int type : {EVENT_REFRESH_VIEW, EVENT_POP_VIEW, EVENT_PAUSE_APP}) remote.Post(type);
    EXPECT_TRUE(took().empty());
    EXPECT_EQ(Top(), "");
    EXPECT_EQ(CViewManager::GetInstance()->GetLastOldView(), nullptr);
  });
}

TEST(Stack, WhatIsLeftWhenTheProgramEndsIsDestroyed) {
  Tv tv;
  Texts calls;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    remote.Push(std::make_unique<ProbeView>("a", calls));
    remote.End();
  });
  EXPECT_EQ(calls, (Texts{"a create", "a show", "a destroy", "a delete"}));
}

TEST(Stack, TheLastViewPopsAloneOrEndsTheProgram) {
  for (const int keep : {0, 1}) {
    Tv tv;
    test::Run({"tv-rating"}, [&](Remote& remote) {
      remote.Post(EVENT_POP_VIEW, keep);
      EXPECT_EQ(remote.HasExited(), keep == 0);
      EXPECT_TRUE(remote.Stack().empty()) << keep;
    });
  }
}

TEST(Stack, PushesByWindowIDAndNeverTwice) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote& remote) {
    Texts calls;
    remote.Push(std::make_unique<ProbeView>("a", calls));
    remote.Post(EVENT_PUSH_VIEW, 10);
    for (const int id : {0, 20, 23, 26, -1}) remote.Post(EVENT_PUSH_VIEW, id);
    remote.OpenControl("no-such-control");
    EXPECT_EQ(Top(), "a");
    remote.Post(EVENT_PAUSE_APP);
    remote.Post(EVENT_PUSH_VIEW, 10);
    ASSERT_EQ(remote.Stack(), Texts{"tv-rating"});
    unsigned int key1 = 0, key2 = 9;
    EXPECT_TRUE(CViewManager::GetInstance()->GetCurrentView()->GetViewKey(key1, key2));
    EXPECT_EQ(key1, 10U);
    EXPECT_EQ(key2, 0U);
  });
}

TEST(Stack, TheTopViewHasItsOwnTimeOutAndTakesKeysFirst) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    Texts calls;
    auto* view = remote.Push(std::make_unique<ProbeView>("a", calls));
    remote.Wait(600);
    EXPECT_FALSE(remote.HasExited());
    view->m_takesKeys = true;
    remote.Press("Back");
    EXPECT_EQ(Top(), "a");
    view->m_takesKeys = false;
    remote.Press("Back");
    EXPECT_EQ(Top(), "tv-rating");
    remote.Wait(59);
    EXPECT_FALSE(remote.HasExited());
    remote.Wait(1.1);
    EXPECT_TRUE(remote.HasExited());
  });
}

}  // namespace
