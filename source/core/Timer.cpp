#include "Timer.h"

#include <Ecore.h>

#include <utility>

/// Outlives the timer while its action is under way.
struct Timer::Run : std::enable_shared_from_this<Run> {
  Timer* owner;
  Action action;
  Ecore_Timer* timer = nullptr;

  Run(Timer* owner, Action action) : owner(owner), action(std::move(action)) {}

  static Eina_Bool Passed(void* data) {
    const std::shared_ptr<Run> run = static_cast<Run*>(data)->shared_from_this();
    if (run->action() && run->owner) return ECORE_CALLBACK_RENEW;
    if (run->owner) run->owner->m_run.reset();
    return ECORE_CALLBACK_CANCEL;
  }
};

void Timer::Start(double seconds, Action action) {
  Stop();
  m_run = std::make_shared<Run>(this, std::move(action));
  m_run->timer = ecore_timer_add(seconds, Run::Passed, m_run.get());
}

void Timer::Stop() {
  if (!m_run) return;
  ecore_timer_del(m_run->timer);
  m_run->owner = nullptr;
  m_run.reset();
}
