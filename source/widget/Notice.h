// A word above a window: a title, a text, and one button that has the focus until it goes.
#pragma once

#include <Elementary.h>

#include <functional>
#include <memory>
#include <string>

#include "Connections.h"
#include "WidgetTextBlock.h"

struct NoticeWords {
  std::string title;
  /// Empty: no text.
  std::string text;
  /// String ID of the button's text.
  const char* button;
};

class Notice {
 public:
  ~Notice() { Close(); }

  /// `closed` is called once, when the button has been pressed, or Back. False when it could not be made.
  using Closed = std::function<void(bool byBack)>;
  bool Show(const char* style, const NoticeWords& words, Closed closed);
  /// Without a word to anybody.
  void Close();
  bool IsShown() const { return m_popup != nullptr; }
  /// Whether the key that is under way, Back, has closed it: the window hears of the key after the button.
  bool TakeBack();

 private:
  bool m_AddButton(const char* id);
  void m_End(bool byBack);

  Evas_Object* m_popup = nullptr;
  std::unique_ptr<WidgetTextBlock> m_text;
  Closed m_closed;
  Connections m_connections;
  bool m_back = false;
};
