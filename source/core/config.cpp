#include "config.h"

#include <cassert>

#include "MenuControl.h"
#include "WrapPatterns.h"
#include "vconf.h"

void MenuConfig::SetHighContrast() {
  [[maybe_unused]] const MenuControl* pMenuControl = Singleton<MenuControl>::GetInstance();
  assert(nullptr != pMenuControl);

  int value = 0;
  if (vconf_get_int("db/menu/system/accessibility/highcontrast", &value) != 0) {
    LOG_ERROR("get high contrast failed but considering off");
    value = 0;
  }
  LOG_DEBUG("is high contrast on: %d", value);
  if (value == m_nHighContrast) {
    LOG_DEBUG("no need to set high contrast");
    return;
  }
  m_nHighContrast = value;
  if (value) {
    LOG_DEBUG("high contrast on");
  } else {
    LOG_DEBUG("high contrast off");
  }
}
