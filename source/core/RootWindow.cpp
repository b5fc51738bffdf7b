#include "RootWindow.h"

#include <Ecore_Evas.h>

#include "Log.h"
#include "ThemeNames.h"
#include "app_framework.h"

Evas_Object* CRootWindow::m_pWindow = nullptr;
Evas_Object* CRootWindow::m_WindowSizeRect = nullptr;
Evas_Object* CRootWindow::m_pGround = nullptr;

Evas_Object* CRootWindow::GetWindow() {
  if (m_pWindow) return m_pWindow;
  m_pWindow = app_get_preinitialized_window("quirelle");
  if (!m_pWindow) {
    m_pWindow = elm_win_add(nullptr, "quirelle", ELM_WIN_DIALOG_BASIC);
    if (m_pWindow) elm_win_title_set(m_pWindow, "quirelle");
  }
  if (!m_pWindow) {
    LOG_ERROR("failed to get window");
    return nullptr;
  }

  AddHint("wm.policy.win.zone.desk.layout.mode", "fullscreen");
  elm_win_alpha_set(m_pWindow, EINA_TRUE);
  elm_win_focus_highlight_style_set(m_pWindow, theme::kFocusHighlight);
  AddHint("wm.policy.win.need.dim", "1");
  elm_win_focus_highlight_enabled_set(m_pWindow, EINA_TRUE);
  evas_object_size_hint_weight_set(m_pWindow, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);

  int w = 0, h = 0;
  elm_win_screen_size_get(m_pWindow, nullptr, nullptr, &w, &h);
  LOG_DEBUG("screen size is w: %d, h: %d", w, h);
  m_WindowSizeRect = evas_object_rectangle_add(evas_object_evas_get(m_pWindow));
  evas_object_color_set(m_WindowSizeRect, 0, 0, 0, 0);
  evas_object_size_hint_min_set(m_WindowSizeRect, w, h);
  elm_win_resize_object_add(m_pWindow, m_WindowSizeRect);

  m_AddGround();
  evas_object_show(m_pWindow);
  LOG_ERROR("Window Create Done");
  return m_pWindow;
}

/// Lies behind all views, and has had the focus before any: when a view goes the toolkit falls back to it for a moment,
/// and does not look among the views for one that may be going as well. No arrow key leads to what lies behind it all.
void CRootWindow::m_AddGround() {
  m_pGround = elm_layout_add(m_pWindow);
  if (!m_pGround) {
    LOG_ERROR("failed to add layout");
    return;
  }
  evas_object_size_hint_weight_set(m_pGround, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  elm_win_resize_object_add(m_pWindow, m_pGround);
  elm_object_focus_allow_set(m_pGround, EINA_TRUE);
  evas_object_show(m_pGround);
  elm_object_focus_set(m_pGround, EINA_TRUE);
}

int CRootWindow::AddHint(const char* hint, const char* value) {
  return ecore_evas_aux_hint_add(ecore_evas_ecore_evas_get(evas_object_evas_get(m_pWindow)), hint, value);
}

void CRootWindow::DeleteHint(int id) {
  ecore_evas_aux_hint_del(ecore_evas_ecore_evas_get(evas_object_evas_get(m_pWindow)), id);
}

Evas_Object* CRootWindow::CreateBase(base_type type, const char* styleOrGroup, const char* file) {
  LOG_DEBUG("");
  if (!m_pWindow) {
    LOG_ERROR("Null");
    return nullptr;
  }
  if (type == BASE_TYPE_LAYOUT) return m_CreateLayout(styleOrGroup, file);
  if (type == BASE_TYPE_POPUP) return m_CreatePopup(styleOrGroup);
  return nullptr;
}

Evas_Object* CRootWindow::m_CreateLayout(const char* group, const char* file) {
  Evas_Object* layout = elm_layout_add(m_pWindow);
  if (!layout) {
    LOG_ERROR("failed to add layout");
    return nullptr;
  }
  if (!elm_layout_file_set(layout, file, group)) {
    LOG_ERROR("failed to layout file set");
    evas_object_hide(layout);
    evas_object_del(layout);
    return nullptr;
  }
  evas_object_size_hint_weight_set(layout, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  elm_win_resize_object_add(m_pWindow, layout);
  return layout;
}

Evas_Object* CRootWindow::m_CreatePopup(const char* style) {
  Evas_Object* popup = elm_popup_add(m_pWindow);
  if (!popup) {
    LOG_ERROR("failed to add popup");
    return nullptr;
  }
  elm_object_style_set(popup, style);
  // The style places its panel on the whole screen.
  elm_popup_align_set(popup, ELM_NOTIFY_ALIGN_FILL, ELM_NOTIFY_ALIGN_FILL);
  return popup;
}

void CRootWindow::DeleteWindow() {
  if (m_WindowSizeRect) evas_object_del(m_WindowSizeRect);
  if (m_pWindow) evas_object_del(m_pWindow);
  m_pWindow = m_WindowSizeRect = m_pGround = nullptr;
  LOG_ERROR("DeleteWindow Done");
}
