// The text of a notice.
#pragma once

#include <Elementary.h>

#include <memory>
#include <string>

class WidgetTextBlock {
 public:
  WidgetTextBlock() = default;
  virtual ~WidgetTextBlock() = default;

  /// `text` is markup, in which "\n" ends a line too; `lineWrap` is a mode of Elm_Wrap_Type; the width and the height
  /// of a line are pixels of a 1920-pixel screen.
  void Create(Evas_Object* parent, const char* text, int lineWrap, int width, int line);
  /// Into the part of a layout, or as its content when `part` is null.
  void SetContent(Evas_Object* parent, const char* part);
  void Show();
  void Hide();
  void Destroy();

 private:
  Evas_Object* m_label = nullptr;
};

/// The text of a notice as its content, in the size that all notices have.
std::unique_ptr<WidgetTextBlock> AddNoticeText(Evas_Object* notice, const std::string& text);
