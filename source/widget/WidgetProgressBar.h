// A progress bar in a part of a layout, with its value as text beside it.
#pragma once

#include <Elementary.h>

#include <string>

class WidgetProgressBar {
 public:
  virtual ~WidgetProgressBar() = default;

  bool Create(Evas_Object* parent, const char* style);
  void AddToParentWithPartName(const char* part);
  /// Whether the value is also shown as text, and in which part of the parent.
  void EnableProgressTextFlag(bool flag, const char* part);
  /// 0.0 to 1.0; the text is the value in whole percent, cut.
  void SetItemData(double value);
  void Show();
  void Hide();
  void SetFocus(bool focus);
  void Destroy();
  Evas_Object* GetObject() const { return m_bar; }

 private:
  Evas_Object* m_parent = nullptr;
  Evas_Object* m_bar = nullptr;
  std::string m_textPart;
  bool m_textFlag = false;
};
