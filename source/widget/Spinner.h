// A vertical spinner that shows whatever text it is given: its owner steps the value.
#pragma once

#include <Elementary.h>

#include <functional>
#include <string>

#include "Connections.h"

class Spinner {
 public:
  struct Handlers {
    /// Of the spinner while it has the focus. What is not held moves the focus.
    Connections::KeyPressed key;
    /// The pointer has pressed an arrow.
    std::function<void(bool up)> arrow;
    /// It has got the focus; may be empty.
    std::function<void()> focused = {};
    /// It has lost it; may be empty.
    std::function<void()> unfocused = {};
  };

  Spinner() = default;
  ~Spinner() { Destroy(); }
  Spinner(const Spinner&) = delete;
  Spinner& operator=(const Spinner&) = delete;

  /// False when it could not be made. It goes with its parent, or before.
  bool Create(Evas_Object* parent, Handlers handlers);
  void Destroy();

  /// What the screen reader calls it; the text is its state.
  void SetName(const std::string& name);
  void ShowText(const std::string& text);
  const std::string& GetText() const { return m_text; }
  void Show();
  void Hide();
  /// Without them it looks like something to be pressed, with them like something that steps. It has them at first.
  void ShowArrows(bool shown);
  /// Brighter than those of a spinner beside it, as they are at first.
  void LightArrows(bool lit);
  void Focus();
  bool HasFocus() const { return m_pFocus && elm_object_focus_get(m_pFocus); }
  /// Shows that an arrow is pressed.
  void PressArrow(bool up);
  void Emit(const char* signal, const char* source);
  /// Null before it is made.
  Evas_Object* GetObject() const { return m_pSpinner; }
  Evas_Object* GetFocusObject() const { return m_pFocus; }

 private:
  Evas_Object* m_CreateArrow(const char* style, const char* part, bool up);
  void m_CreateFocus();
  static void m_FocusMovedCB(void* spinner, const struct _Efl_Event* event);
  void m_FocusMoved();

  Handlers m_handlers;
  std::string m_text;
  Evas_Object* m_pSpinner = nullptr;
  /// Has the focus in the spinner's place: the toolkit gives it to the arrows of a spinner, never to itself.
  Evas_Object* m_pFocus = nullptr;
  bool m_hadFocus = false;
  Evas_Object* m_pIncrease = nullptr;
  Evas_Object* m_pDecrease = nullptr;
  Connections m_connections;
};
