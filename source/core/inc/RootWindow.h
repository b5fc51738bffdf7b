// The one top-level window, and the base objects that views are built on.
#pragma once

#include <Elementary.h>

enum base_type { BASE_TYPE_LAYOUT = 1, BASE_TYPE_POPUP = 2 };

class CRootWindow {
 public:
  /// The window, made on the first call; null when it cannot be made.
  static Evas_Object* GetWindow();
  /// A base object on the window, owned by the caller: a layout of the group `styleOrGroup` in `file`, or a
  /// popup of that style. Null when it cannot be made, or for any other type.
  static Evas_Object* CreateBase(base_type type, const char* styleOrGroup, const char* file);
  /// An invisible rectangle that holds the window at the size of the screen.
  static Evas_Object* GetWindowSizeRect() { return m_WindowSizeRect; }
  /// What has the focus when nothing in a view does; null without a window.
  static Evas_Object* GetGround() { return m_pGround; }
  static void DeleteWindow();

  /// A hint to the window manager, by the identifier that adding it gave. The window must be there.
  static int AddHint(const char* hint, const char* value);
  static void DeleteHint(int id);

 private:
  static void m_AddGround();
  static Evas_Object* m_CreateLayout(const char* group, const char* file);
  static Evas_Object* m_CreatePopup(const char* style);

  static Evas_Object* m_pWindow;
  static Evas_Object* m_WindowSizeRect;
  static Evas_Object* m_pGround;
};
