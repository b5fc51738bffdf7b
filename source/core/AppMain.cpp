#include "AppMain.h"

#include <Elementary.h>
#include <libintl.h>

#include "EventManager.h"
#include "KeyManager.h"
#include "Log.h"
#include "MenuControl.h"
#include "RootWindow.h"
#include "Utils.h"
#include "ViewManager.h"
#include "WrapPatterns.h"
#include "app_framework.h"
#include "config.h"
#include "toolkit_ext.h"

namespace quirelle {

bool isAnyWindowActive = false;

namespace {

constexpr double kBaseScale = 2.0;
constexpr const char* kLocaleDirectory = "/usr/apps/com.vantrel.tv.quirelle/shared/locale";

void SetOrientation() {
  if (ua_UI_orientation_get() == 1) {
    elm_config_mirrored_set(EINA_TRUE);
    LOG_DEBUG("AppMain - UA_RTL_UI_ORIENTATION");
  } else {
    elm_config_mirrored_set(EINA_FALSE);
    LOG_DEBUG("AppMain - UA_LTR_UI_ORIENTATION");
  }
}

bool _create(void*) {
  LOG_ERROR("App Create");
  ea_init();
  elm_app_base_scale_set(kBaseScale);
  ui_config_manager_init();
  elm_theme_overlay_add(nullptr, Utils::GetEDJFile().c_str());
  if (!bindtextdomain("quirelle", app_get_deployed_path(kLocaleDirectory))) LOG_ERROR("Unable to set domain");
  SetOrientation();
  CViewManager::GetInstance()->Create();
  return true;
}

void _service(app_control_h request, void*) {
  LOG_ERROR("start service");
  if (isAnyWindowActive) {
    LOG_ERROR("Second window not avaible");
    return;
  }
  isAnyWindowActive = true;
  if (!Singleton<MenuControl>::GetInstance()->SetLaunchParam(request)) {
    LOG_ERROR("LFD special case - Quirelle launch faild");
    return;
  }
  Singleton<MenuConfig>::GetInstance()->SetHighContrast();
  if (!CRootWindow::GetWindow()) {
    LOG_ERROR("Faild RootWin");
    return;
  }
  vc_elm_initialize();
  vc_elm_set_auto_register_mode(1, 1);
  CEventManager::GetInstance()->SendEvent(EVENT_START_APP, 0, 0, nullptr, nullptr);
}

void _pause(void*) {
  LOG_ERROR("App Pause");
  Singleton<MenuControl>::GetInstance()->Clear();
  CKeyManager::UnSetTimeOut();
  CEventManager::GetInstance()->SendEvent(EVENT_PAUSE_APP, 0, 0, nullptr, nullptr);
}

void _resume(void*) { LOG_ERROR(""); }

void _terminate(void*) {
  LOG_ERROR("in terminate");
  CEventManager::ReleaseInstance();
  CViewManager::GetInstance()->Destroy();
  CViewManager::ReleaseInstance();
  ui_config_manager_fini();
  vc_elm_deinitialize();
  ea_shutdown();
}

}  // namespace

int main(int argc, char** argv) {
  ui_app_lifecycle_callback_s callbacks = {_create, _terminate, _pause, _resume, _service};
  LOG_ERROR("start app_efl_main");
  ui_app_main(argc, argv, &callbacks, nullptr);
  return 0;
}

}  // namespace quirelle
