#include "Connections.h"

#include <algorithm>
#include <utility>

#include "Log.h"

struct Connections::Connection : std::enable_shared_from_this<Connection> {
  Connections* owner = nullptr;
  Evas_Object* object = nullptr;
  Heard heard;
  Signalled signalled;
  /// Takes the callback back.
  std::function<void()> disconnect;

  static void Smart(void* data, Evas_Object* object, void* info) {
    // The handler may end the connection.
    const auto self = static_cast<Connection*>(data)->shared_from_this();
    self->heard(object, info);
  }
  static void Event(void* data, Evas*, Evas_Object* object, void* info) { Smart(data, object, info); }
  static void Canvas(void* data, Evas*, void* info) { Smart(data, static_cast<Connection*>(data)->object, info); }
  static void Signal(void* data, Evas_Object*, const char* signal, const char*) {
    const auto self = static_cast<Connection*>(data)->shared_from_this();
    self->signalled(signal);
  }
  static void Gone(void* data, Evas*, Evas_Object* object, void*) {
    static_cast<Connection*>(data)->owner->Clear(object);
  }
};

void Connections::m_Keep(std::shared_ptr<Connection> connection) {
  connection->owner = this;
  evas_object_event_callback_add(connection->object, EVAS_CALLBACK_DEL, Connection::Gone, connection.get());
  m_connections.push_back(std::move(connection));
}

void Connections::Smart(Evas_Object* object, const char* signal, Heard heard) {
  if (!object) return;
  auto c = std::make_shared<Connection>();
  c->object = object;
  c->heard = std::move(heard);
  evas_object_smart_callback_add(object, signal, Connection::Smart, c.get());
  c->disconnect = [c = c.get(), signal] {
    evas_object_smart_callback_del_full(c->object, signal, Connection::Smart, c);
  };
  m_Keep(std::move(c));
}

void Connections::Event(Evas_Object* object, Evas_Callback_Type type, Heard heard) {
  if (!object) return;
  auto c = std::make_shared<Connection>();
  c->object = object;
  c->heard = std::move(heard);
  evas_object_event_callback_add(object, type, Connection::Event, c.get());
  c->disconnect = [c = c.get(), type] { evas_object_event_callback_del_full(c->object, type, Connection::Event, c); };
  m_Keep(std::move(c));
}

void Connections::Canvas(Evas_Object* object, Evas_Callback_Type type, std::function<void()> heard) {
  if (!object) return;
  auto c = std::make_shared<Connection>();
  c->object = object;
  c->heard = [heard = std::move(heard)](Evas_Object*, void*) { heard(); };
  Evas* canvas = evas_object_evas_get(object);
  evas_event_callback_add(canvas, type, Connection::Canvas, c.get());
  c->disconnect = [c = c.get(), canvas, type] { evas_event_callback_del_full(canvas, type, Connection::Canvas, c); };
  m_Keep(std::move(c));
}

void Connections::Key(Evas_Object* object, KeyPressed pressed, Evas_Callback_Priority priority) {
  if (!object) return;
  auto c = std::make_shared<Connection>();
  c->object = object;
  c->heard = [pressed = std::move(pressed)](Evas_Object* object, void* info) {
    auto* event = static_cast<Evas_Event_Key_Down*>(info);
    if (!event || !event->keyname) {
      LOG_ERROR("Assertion failed");
      return;
    }
    pressed(object, *event);
  };
  evas_object_event_callback_priority_add(object, EVAS_CALLBACK_KEY_DOWN, priority, Connection::Event, c.get());
  c->disconnect = [c = c.get()] {
    evas_object_event_callback_del_full(c->object, EVAS_CALLBACK_KEY_DOWN, Connection::Event, c);
  };
  m_Keep(std::move(c));
}

void Connections::Signal(Evas_Object* layout, const char* signal, Signalled signalled) {
  if (!layout) return;
  auto c = std::make_shared<Connection>();
  c->object = layout;
  c->signalled = std::move(signalled);
  elm_layout_signal_callback_add(layout, signal, "*", Connection::Signal, c.get());
  c->disconnect = [c = c.get(), signal] { elm_layout_signal_callback_del(c->object, signal, "*", Connection::Signal); };
  m_Keep(std::move(c));
}

void Connections::Clear() {
  while (!m_connections.empty()) Clear(m_connections.back()->object);
}

void Connections::Clear(const Evas_Object* object) {
  const auto ended = std::stable_partition(m_connections.begin(), m_connections.end(),
                                           [&](const auto& c) { return c->object != object; });
  const std::vector<std::shared_ptr<Connection>> gone(ended, m_connections.end());
  m_connections.erase(ended, m_connections.end());
  for (const auto& c : gone) {
    evas_object_event_callback_del_full(c->object, EVAS_CALLBACK_DEL, Connection::Gone, c.get());
    c->disconnect();
  }
}
