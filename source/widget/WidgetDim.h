// The dimmed screen behind a notice.
#pragma once

#include <Elementary.h>

class CWidgetDim {
 public:
  static CWidgetDim* GetInstance();
  static void ReleaseInstance();
  virtual ~CWidgetDim();

  void Show();
  void Hide();

 private:
  CWidgetDim();

  Evas_Object* m_layout = nullptr;
  static CWidgetDim* m_pInstance;
};
