#include "EventManager.h"

#include <vector>

#include "Log.h"

CEventManager* CEventManager::m_pEventManager = nullptr;
int EventIDPoll::m_nWidgetIDIndex = 255;

CEventManager* CEventManager::GetInstance() {
  if (!m_pEventManager) m_pEventManager = new CEventManager;
  return m_pEventManager;
}

void CEventManager::ReleaseInstance() {
  delete m_pEventManager;
  m_pEventManager = nullptr;
}

CEventManager::CEventManager()
    : m_ecoreType(ecore_event_type_new()),
      m_handler(ecore_event_handler_add(m_ecoreType, t_HandleEventCallback, this)) {}

CEventManager::~CEventManager() { ecore_event_handler_del(m_handler); }

void CEventManager::RegisterEventCallback(int eventType, Callback callback, void* userData) {
  if (m_callbacks.contains(eventType)) return;
  m_callbacks.insert({eventType, {callback, userData}});
}

void CEventManager::UnregisterEventCallback(int eventType, Callback callback, void* userData) {
  const auto [first, last] = m_callbacks.equal_range(eventType);
  for (auto it = first; it != last; ++it) {
    if (it->second.callback != callback || it->second.userData != userData) continue;
    m_callbacks.erase(it);
    return;
  }
}

int CEventManager::GetRegisteredCallbackCountByType(int eventType) const {
  return static_cast<int>(m_callbacks.count(eventType));
}

void CEventManager::RemoveAllEvents() {
  if (m_callbacks.empty()) return;
  LOG_DEBUG("there are still event callback to unregister.");
  m_callbacks.clear();
}

void CEventManager::SendEvent(int eventType, long param1, long param2, void* data, IEventData* eventData) {
  SendEvent(CEvent{eventType, static_cast<int>(param1), static_cast<int>(param2), data, eventData});
}

void CEventManager::SendEvent(const CEvent& event) {
  ecore_event_add(m_ecoreType, new CEvent(event), ReleseEventData, this);
}

Eina_Bool CEventManager::t_HandleEventCallback(void* manager, int, void* record) {
  auto* pThis = static_cast<CEventManager*>(manager);
  auto* event = static_cast<CEvent*>(record);
  if (!pThis || !event) return EINA_FALSE;

  // A copy: a callback may register, unregister or post while this is under way.
  std::vector<CEventCallbackObject> callbacks;
  const auto [first, last] = pThis->m_callbacks.equal_range(event->nEventType);
  for (auto it = first; it != last; ++it) callbacks.push_back(it->second);
  for (const auto& object : callbacks) {
    if (!object.callback) continue;
    object.callback(object.userData, event);
    LOG_DEBUG("nEventType[%ld]", static_cast<long>(event->nEventType));
  }
  return EINA_TRUE;
}

void CEventManager::ReleseEventData(void*, void* record) {
  auto* event = static_cast<CEvent*>(record);
  if (!event) return;
  delete event->pEventData;
  delete event;
}

int EventIDPoll::GenerateWidgetID() { return m_nWidgetIDIndex > 1023 ? 1024 : ++m_nWidgetIDIndex; }

void EventIDPoll::DeleteWidgetID() {
  LOG_INFO(" call DeleteWidgetID ");
  if (m_nWidgetIDIndex >= 256) --m_nWidgetIDIndex;
}
