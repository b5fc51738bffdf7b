// An in-place control stands beside the list row that opened it.
#pragma once

#include <Elementary.h>

class BesideRow {
 public:
  /// The row, in screen pixels.
  void SetParentItemPostion(int x, int y, int w) { m_x = x, m_y = y, m_w = w; }

 protected:
  /// Puts the control's popup beside the row, on the other side in a right-to-left layout. `width` and `height` are the
  /// control's, `above` is how far above the row's top it begins: pixels of a 1920-pixel screen.
  void t_PlaceBesideRow(Evas_Object* popup, int width, int height, int above) const;

 private:
  int m_x = 0, m_y = 0, m_w = 0;
};
