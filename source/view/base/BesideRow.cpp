#include "BesideRow.h"

#include "Log.h"
#include "RootWindow.h"
#include "Utils.h"

namespace {

constexpr double kGap = 4.0;

}  // namespace

void BesideRow::t_PlaceBesideRow(Evas_Object* popup, int width, int height, int above) const {
  Evas_Object* window = CRootWindow::GetWindow();
  if (!popup || !window) return;
  int screenW = 1, screenH = 1;
  evas_object_geometry_get(window, nullptr, nullptr, &screenW, &screenH);
  const double s = elm_object_scale_get(window) * elm_config_scale_get() / elm_app_base_scale_get();
  LOG_DEBUG("nX=%d,nY=%d,nW=%d,m_nControlPopupWidth=%d,m_nControlPopupHeight=%d", m_x, m_y, m_w, width, height);

  const bool reversed = Utils::FlagReverseMode();
  const double half = width * s * 0.5 + kGap * s;
  const double startX = reversed ? m_x + half : m_x + m_w - half;
  const double alignX = reversed ? 1.0 - startX / screenW : startX / screenW;
  LOG_DEBUG("dStartXPoS : %f, dPosX : [%f]", startX, alignX);

  const double startY = height * s * 0.5 + m_y - static_cast<int>(above * s);
  const double alignY = startY / screenH;
  LOG_DEBUG("dStartYPoS [%f] , dPosY : [%f]", startY, alignY);
  elm_popup_align_set(popup, alignX, alignY);
}
