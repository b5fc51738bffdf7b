// What an object of the toolkit tells, until its listener goes.
#pragma once

#include <Elementary.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Ends with the listener that owns it, or with the object, whichever goes first. A handler may do away with either.
class Connections {
 public:
  using Heard = std::function<void(Evas_Object* object, void* info)>;
  using KeyPressed = std::function<void(Evas_Object* object, Evas_Event_Key_Down& event)>;
  using Signalled = std::function<void(const char* signal)>;

  Connections() = default;
  ~Connections() { Clear(); }
  Connections(const Connections&) = delete;
  Connections& operator=(const Connections&) = delete;

  /// Nothing happens for a null object. `signal` and what the handlers hold have to last.
  void Smart(Evas_Object* object, const char* signal, Heard heard);
  void Event(Evas_Object* object, Evas_Callback_Type type, Heard heard);
  /// Of the canvas that the object is on.
  void Canvas(Evas_Object* object, Evas_Callback_Type type, std::function<void()> heard);
  /// Lower priorities come first; the toolkit's own handling has the default one.
  void Key(Evas_Object* object, KeyPressed pressed, Evas_Callback_Priority priority = EVAS_CALLBACK_PRIORITY_DEFAULT);
  /// A signal of a layout, whatever its source.
  void Signal(Evas_Object* layout, const char* signal, Signalled signalled);
  void Clear();
  /// Of one object.
  void Clear(const Evas_Object* object);

 private:
  struct Connection;
  void m_Keep(std::shared_ptr<Connection> connection);

  std::vector<std::shared_ptr<Connection>> m_connections;
};

/// Keeps a key from whoever would get it next.
inline void HoldKey(Evas_Event_Key_Down& event) {
  event.event_flags = static_cast<Evas_Event_Flags>(event.event_flags | EVAS_EVENT_FLAG_ON_HOLD);
}
