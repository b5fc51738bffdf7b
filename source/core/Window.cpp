#include "Window.h"

#include "EventManager.h"
#include "Log.h"

namespace {

void Post(EVENT_TYPE type, int first, unsigned int second = 0, IEventData* data = nullptr) {
  CEventManager::GetInstance()->SendEvent(type, first, static_cast<long>(second), nullptr, data);
}

}  // namespace

void CloseView() { Post(EVENT_POP_VIEW, 0); }

void PushWindow(Window window, unsigned int step) { Post(EVENT_PUSH_VIEW, static_cast<int>(window), step); }

void GoToStep(Window window, unsigned int step) {
  Post(EVENT_POP_VIEW, 1);
  PushWindow(window, step);
}

void PushControl(const char* menuID, Elm_Object_Item* row) {
  int x = 0, y = 0, w = 0;
  Evas_Object* place = elm_object_item_track(row);
  evas_object_geometry_get(place, &x, &y, &w, nullptr);
  LOG_DEBUG(" pTrackObj is [%p], x is [%d],y is [%d], w is [%d] =============", static_cast<void*>(place), x, y, w);
  elm_object_item_untrack(row);
  auto* position = new CEventPositionData(menuID);
  position->SetPositionData(x, y, w);
  Post(EVENT_PUSH_VIEW, 0, 0, position);
}
