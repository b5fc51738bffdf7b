#include "HistoryAbove.h"

#include <utility>

#include "EventManager.h"

namespace {

constexpr int kHistoryWindow = 24;

}  // namespace

HistoryAbove::~HistoryAbove() {
  if (m_pRequest) ecore_job_del(m_pRequest);
}

void HistoryAbove::Request() {
  CEventManager::GetInstance()->SendEvent(EVENT_PUSH_VIEW, kHistoryWindow, 0, nullptr, nullptr);
  // A job stands in the same queue, behind the event.
  if (!m_pRequest) m_pRequest = ecore_job_add(m_EndRequest, this);
}

void HistoryAbove::m_EndRequest(void* data) { static_cast<HistoryAbove*>(data)->m_pRequest = nullptr; }

bool HistoryAbove::Comes() { return m_bThere = m_pRequest; }

bool HistoryAbove::Went() { return std::exchange(m_bThere, false); }
