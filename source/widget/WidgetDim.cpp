#include "WidgetDim.h"

#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Utils.h"

CWidgetDim* CWidgetDim::m_pInstance = nullptr;

CWidgetDim* CWidgetDim::GetInstance() {
  if (!m_pInstance) {
    LOG_INFO("New WidgetDim Handle");
    m_pInstance = new CWidgetDim;
  }
  return m_pInstance;
}

void CWidgetDim::ReleaseInstance() {
  delete m_pInstance;
  m_pInstance = nullptr;
}

CWidgetDim::CWidgetDim() {
  const std::string file = Utils::GetEDJFile();
  LOG_DEBUG(" pStyle is : %s", theme::kDim);
  m_layout = elm_layout_add(CRootWindow::GetWindow());
  if (!m_layout) {
    LOG_ERROR("Failed");
    return;
  }
  if (!elm_layout_file_set(m_layout, file.c_str(), theme::kDim)) {
    LOG_ERROR("failed to layout file set");
    evas_object_del(m_layout);
    m_layout = nullptr;
    return;
  }
  evas_object_size_hint_weight_set(m_layout, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  elm_win_resize_object_add(CRootWindow::GetWindow(), m_layout);
}

CWidgetDim::~CWidgetDim() {
  if (m_layout) evas_object_del(m_layout);
}

void CWidgetDim::Show() {
  if (!m_layout) return;
  Utils::DisableBgRect(m_layout);
  evas_object_show(m_layout);
}

void CWidgetDim::Hide() {
  if (m_layout) evas_object_hide(m_layout);
}
