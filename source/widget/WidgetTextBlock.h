// The text of a notice.
#pragma once

#include <Elementary.h>

class WidgetTextBlock {
 public:
  WidgetTextBlock() = default;
  virtual ~WidgetTextBlock() = default;

  /// `lineWrap` is a mode of Elm_Wrap_Type; width and font size are pixels of a 1920-pixel screen.
  void Create(Evas_Object* parent, const char* text, int lineWrap, int width, int fontSize);
  /// Into the part of a layout, or as its content when `part` is null.
  void SetContent(Evas_Object* parent, const char* part);
  void Show();
  void Hide();
  void Destroy();

 private:
  Evas_Object* m_label = nullptr;
};
