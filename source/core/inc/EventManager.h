// The asynchronous channel through which the window stack is changed.
#pragma once

#include <Ecore.h>

#include <cstdint>
#include <map>

#include "Event.h"

/// Main-loop thread only. Delivery happens on a later turn of the loop, in posting order, never nested.
class CEventManager {
 public:
  using Callback = bool (*)(void* userData, CEvent* event);

  static CEventManager* GetInstance();
  static void ReleaseInstance();

  /// The first registration of a type stays; later ones are dropped.
  void RegisterEventCallback(int eventType, Callback callback, void* userData);
  void UnregisterEventCallback(int eventType, Callback callback, void* userData);
  int GetRegisteredCallbackCountByType(int eventType) const;
  void RemoveAllEvents();

  void SendEvent(int eventType, long param1, long param2, void* data, IEventData* eventData);
  void SendEvent(const CEvent& event);

 private:
  struct CEventCallbackObject {
    Callback callback;
    void* userData;
  };

  CEventManager();
  ~CEventManager();
  static Eina_Bool t_HandleEventCallback(void* manager, int ecoreType, void* event);
  static void ReleseEventData(void* manager, void* event);

  int m_ecoreType;
  Ecore_Event_Handler* m_handler;
  std::multimap<int, CEventCallbackObject> m_callbacks;
  static CEventManager* m_pEventManager;
};

/// Identifiers of list widgets: 256 to 1024, handed out and taken back as a stack depth.
class EventIDPoll {
 public:
  static int GenerateWidgetID();
  static void DeleteWidgetID();
  static int64_t GenerateEventID(int widgetID, int event) { return int64_t{widgetID} * 1024 + event; }

 private:
  static int m_nWidgetIDIndex;
};
