#include "ViewManager.h"

#include <Edje.h>

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "EventManager.h"
#include "IView.h"
#include "KeyManager.h"
#include "Log.h"
#include "MenuControl.h"
#include "ReturnToMenu.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "ViewTable.h"
#include "Window.h"
#include "WrapPatterns.h"
#include "app_framework.h"
#include "avoc.h"
#include "display.h"
#include "toolkit_ext.h"
#include "vconf.h"

CViewManager* CViewManager::m_pViewManager = nullptr;

namespace {

/// An empty screen goes by itself, as a window that nobody works with does.
constexpr int kEmptySeconds = 60;

/// Colour classes of the theme and the chips of the TV that they take their colours from.
constexpr std::pair<const char*, const char*> kColorChips[] = {
    {"2018_LIST_BG_COLOR", "CC_BG210"},
    {"2018_TEXT_COLOR_NORMAL", "CC_Basic1100"},
    {"RATING_BG_NORMAL_COLOR", "CC_Basic200"},
    {"RAING_BALCK_LINE_COLOR", "CC_Basic210"},
    {"RAING_WHITE_LINE_COLOR", "CC_Basic170"},
    {"RATING_CHECK_BG_NORMAL_COLOR", "CC_BG290"},
    {"MAINMENU_GENLIST_TEXT_COLOR_NORMAL", "CC_Basic1100"},
    {"MENU_2017_LIST_BG_COLOR", "CC_BG210"},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_N", "CC_Basic2100"},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_F", "CC_Basic2100"},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_D", "CC_Basic250"},
    {"CC_POINT11100", "CC_Point11100"},
    {"CC_POINT10100", "CC_Point10100"},
    {"CC_BG105", "CC_BG105"},
    {"CC_BG200", "CC_BG200"},
    {"CC_Basic170", "CC_Basic170"},
};

/// Letters are no smaller on screen, whatever the size of the interface; those of the theme are at least as high as
/// these.
constexpr double kLeastLetters = 22.0;
struct Letters {
  const char *textClass, *face;
  int size;
};
constexpr Letters kLetters[] = {{theme::kHintLetters, theme::kFace, 28},
                                {theme::kLetters, theme::kFace, 34},
                                {theme::kStrongLetters, theme::kStrongFace, 32}};

/// What the user's size of the interface means on a screen.
float ScaleOfSize(const char* size, bool hd) {
  if (strcmp(size, "small") == 0) return hd ? 0.8F : 0.75F;
  if (strcmp(size, "exSmall") == 0) return hd ? 0.6F : 0.625F;
  return 1.0F;
}

}  // namespace

CViewManager* CViewManager::GetInstance() {
  if (!m_pViewManager) m_pViewManager = new CViewManager;
  return m_pViewManager;
}

void CViewManager::ReleaseInstance() {
  delete m_pViewManager;
  m_pViewManager = nullptr;
}

CViewManager::~CViewManager() = default;

void CViewManager::Create() {
  if (!m_pViewManager) {
    LOG_ERROR("Null");
    return;
  }
  m_Create();
}

void CViewManager::m_Create() {
  LOG_DEBUG("Create");
  m_pKeyManager = new CKeyManager([]() -> IView* { return GetInstance()->GetCurrentView(); });
  t_RegisterEvents();
}

void CViewManager::Destroy() {
  if (!m_pViewManager) {
    LOG_ERROR("Null");
    return;
  }
  m_Destory();
}

void CViewManager::m_Destory() {
  LOG_DEBUG("Destroy");
  delete m_pKeyManager;
  m_pKeyManager = nullptr;
  t_UnRegisterEvents();
  m_DestroyAllView();
}

void CViewManager::t_RegisterEvents() {
  CEventManager* events = CEventManager::GetInstance();
  if (!events) {
    LOG_ERROR("Assertion failed");
    return;
  }
  events->RegisterEventCallback(EVENT_EXIT_APP, m_OnExitApp, this);
  events->RegisterEventCallback(EVENT_PUSH_VIEW, m_OnPushView, this);
  events->RegisterEventCallback(EVENT_POP_VIEW, m_OnPopView, this);
  events->RegisterEventCallback(EVENT_REFRESH_VIEW, m_OnRefresh, this);
  events->RegisterEventCallback(EVENT_PAUSE_APP, m_OnPauseApp, this);
  events->RegisterEventCallback(EVENT_START_APP, m_OnStart, this);
}

void CViewManager::t_UnRegisterEvents() {
  CEventManager* events = CEventManager::GetInstance();
  if (!events) {
    LOG_ERROR("Assertion failed");
    return;
  }
  events->UnregisterEventCallback(EVENT_EXIT_APP, m_OnExitApp, this);
  events->UnregisterEventCallback(EVENT_PUSH_VIEW, m_OnPushView, this);
  events->UnregisterEventCallback(EVENT_POP_VIEW, m_OnPopView, this);
  events->UnregisterEventCallback(EVENT_REFRESH_VIEW, m_OnRefresh, this);
  events->UnregisterEventCallback(EVENT_PAUSE_APP, m_OnPauseApp, this);
  events->UnregisterEventCallback(EVENT_START_APP, m_OnStart, this);
}

IView* CViewManager::GetCurrentView() {
  IView* view = m_viewStack.empty() ? nullptr : m_viewStack.back();
  if (!view) LOG_ERROR(" Current view is NULL ");
  return view;
}

IView* CViewManager::GetLastOldView() {
  LOG_INFO(" Get Last Old View ");
  IView* view = m_viewStack.size() < 2 ? nullptr : m_viewStack[m_viewStack.size() - 2];
  if (!view) LOG_DEBUG(" Current view is NULL ");
  return view;
}

// --- start ---------------------------------------------------------------------------------------

bool CViewManager::m_OnStart(void* manager, CEvent*) {
  LOG_INFO("on start");
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  pThis->m_PrepareColorClass();
  pThis->m_SetSize();
  pThis->m_SetTransparency();
  pThis->m_Start();
  return true;
}

void CViewManager::m_PrepareColorClass() {
  for (const auto& [colorClass, chip] : kColorChips) Utils::setColorChips(colorClass, chip);
}

void CViewManager::m_SetSize() {
  const float scale = m_GetUIScale();
  elm_object_scale_set(CRootWindow::GetWindow(), scale);
  for (const auto& [textClass, faceName, size] : kLetters) {
    edje_text_class_del(textClass);
    const int percent = static_cast<int>(std::ceil(kLeastLetters * 100 / (size * scale)));
    if (percent <= 100) continue;
    char* face = edje_file_data_get(Utils::GetEDJFile().c_str(), faceName);
    if (face) edje_text_class_set(textClass, face, -percent);
    free(face);
  }
}

float CViewManager::m_GetUIScale() {
  int zoom = 0;
  if (vconf_get_int("db/menu/system/accessibility/focuszoom", &zoom) != 0) LOG_ERROR("vconf get fails");
  if (zoom == 1) return 1.2F;

  display_s* display = display_connect();
  if (!display) {
    LOG_ERROR("Connection fail. ecore_wl2_display_connect returned NULL");
    return 1.0F;
  }
  int w = 0, h = 0;
  display_screen_size_get(display, &w, &h);

  char* size = vconf_get_str("db/uifw/uisize");
  if (!size) {
    LOG_ERROR("vconf get failed return");
    return 1.0F;
  }
  const float scale = ScaleOfSize(size, w == 1280 && h == 720);
  free(size);
  return scale;
}

void CViewManager::m_SetTransparency() { ea_object_config_set_auto_transparency(CRootWindow::GetWindow(), 1); }

void CViewManager::m_Start() {
  const std::string launchData = Singleton<MenuControl>::GetInstance()->m_LaunchData;
  LOG_DEBUG("Launch Data : %s", launchData.c_str());
  IView* view = m_GetActionWindow(launchData.c_str(), 0);
  evas_object_smart_callback_add(CRootWindow::GetWindow(), "unfocused", m_WindowFocusOutCB, this);
  m_pKeyManager->InitKeyEvent(m_pKeyManager);
  if (!view) {
    LOG_DEBUG(" view is NULL ");
    CKeyManager::SetTimeOut(kEmptySeconds);
    return;
  }
  if (t_PushView(view)) return;
  LOG_DEBUG("Failed");
  m_OnExitApp(this, nullptr);
}

// --- creating views ------------------------------------------------------------------------------

std::string CViewManager::m_ConverToMenuID(long id) {
  for (const ViewEntry& entry : ViewTable()) {
    if (id > 0 && static_cast<long>(entry.window) == id) return entry.menuID;
  }
  LOG_DEBUG("Invaild[%ld]", id);
  return {};
}

long CViewManager::m_GetWindowID(const char* menuID) {
  if (!menuID) {
    LOG_DEBUG("Null");
    return 0;
  }
  long id = 0;
  for (const ViewEntry& entry : ViewTable()) {
    if (strcmp(entry.menuID, menuID) == 0) id = static_cast<long>(entry.window);
  }
  LOG_DEBUG("ID[%d]", static_cast<int>(id));
  return id;
}

IView* CViewManager::m_GetActionWindow(const char* menuID, unsigned int nCase) {
  if (!menuID) {
    LOG_DEBUG("Null");
    return nullptr;
  }
  LOG_DEBUG("menuID =%s", menuID);
  const ViewEntry* found = nullptr;
  for (const ViewEntry& entry : ViewTable()) {
    if (strcmp(entry.menuID, menuID) == 0) found = &entry;
  }
  if (!found || !found->make) {
    LOG_DEBUG("Invalid ID[%s]", menuID);
    return nullptr;
  }
  IView* view = found->make(menuID, nCase);
  if (view) view->SetViewKey(static_cast<unsigned int>(m_GetWindowID(menuID)), nCase);
  return view;
}

IView* CViewManager::t_CreateView(CEvent* event) {
  if (!event) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  if (const auto* position = dynamic_cast<CEventPositionData*>(event->pEventData)) {
    int x = 0, y = 0, w = 0;
    position->GetPositionData(&x, &y, &w);
    LOG_DEBUG("nX=%d,nY=%d,nW=%d", x, y, w);
    return MakeControl(event->pEventData->GetMenuID().c_str(), x, y, w);
  }
  LOG_INFO("Not widget. Wiew : %ld", static_cast<long>(event->nParam1));
  return m_GetActionWindow(m_ConverToMenuID(event->nParam1).c_str(), static_cast<unsigned int>(event->nParam2));
}

// --- the stack -----------------------------------------------------------------------------------

bool CViewManager::m_OnPushView(void* manager, CEvent* event) {
  LOG_INFO("");
  if (!event) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) return false;

  const std::string menuID = pThis->m_ConverToMenuID(event->nParam1);
  for (IView* open : pThis->m_viewStack) {
    if (!open || menuID != open->GetID()) continue;
    LOG_ERROR("view exist");
    return false;
  }
  IView* view = pThis->t_CreateView(event);
  if (!view) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  if (pThis->t_GetHideFlag(event, view)) pThis->t_HideOldView(view);
  pThis->t_PushView(view);
  return true;
}

bool CViewManager::t_GetHideFlag(CEvent* event, IView*) {
  return event->nParam1 == static_cast<int>(Window::kDelayLevel);
}

void CViewManager::t_HideOldView(IView* view) {
  for (IView* open : m_viewStack) {
    if (!open || open == view) continue;
    open->PrepareHide();
    open->Hide();
  }
}

bool CViewManager::t_PushView(IView* view) {
  if (!view) {
    LOG_DEBUG("pView is NULL");
    return false;
  }
  if (!m_viewStack.empty() && m_viewStack.back()) m_viewStack.back()->OnPause();
  view->Create();
  m_viewStack.push_back(view);
  view->Show();
  m_LogViews();
  return true;
}

void CViewManager::m_LogViews() {
  for (IView* view : m_viewStack) {
    if (view) LOG_DEBUG("View ID : %s", view->GetID());
  }
}

bool CViewManager::m_OnPopView(void* manager, CEvent* event) {
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) return false;
  edje_message_signal_process();
  if (pThis->m_viewStack.size() == 1 && event && event->nParam1 == 0) {
    m_OnExitApp(manager, event);
    return true;
  }
  if (pThis->m_viewStack.empty()) {
    LOG_INFO("current view stack is empty");
    return false;
  }
  if (IView* view = pThis->t_PopView()) {
    LOG_DEBUG("m_OnPopView");
    view->Destroy();
    delete view;
  }
  LOG_INFO(" End Pop View ");
  return true;
}

IView* CViewManager::t_PopView() {
  if (m_viewStack.empty()) {
    LOG_DEBUG("No View");
    return nullptr;
  }
  IView* view = m_viewStack.back();
  if (!view) {
    LOG_DEBUG("NULL");
    return nullptr;
  }
  m_viewStack.pop_back();
  view->PrepareHide();
  view->Hide();
  if (!m_viewStack.empty() && m_viewStack.back()) {
    m_viewStack.back()->OnResume();
    m_viewStack.back()->OnRefresh();
  } else {
    // The next step of a flow may be refused.
    CKeyManager::SetTimeOut(kEmptySeconds);
  }
  m_LogViews();
  return view;
}

void CViewManager::t_PopAllView() {
  LOG_DEBUG("ViewStackSize : %d", static_cast<int>(m_viewStack.size()));
  while (!m_viewStack.empty()) {
    IView* view = m_viewStack.back();
    m_viewStack.pop_back();
    if (!view) continue;
    view->Hide();
    view->Destroy();
    delete view;
  }
}

void CViewManager::m_DestroyAllView() {
  LOG_DEBUG("ViewStackSize : %d", static_cast<int>(m_viewStack.size()));
  while (!m_viewStack.empty()) {
    IView* view = m_viewStack.back();
    m_viewStack.pop_back();
    if (!view) continue;
    view->Destroy();
    delete view;
  }
}

bool CViewManager::m_OnRefresh(void* manager, CEvent* event) {
  if (!event) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) {
    LOG_INFO("!pThis");
    return false;
  }
  if (pThis->m_viewStack.empty()) {
    LOG_INFO("current view stack is empty");
    return false;
  }
  for (auto it = pThis->m_viewStack.rbegin(); it != pThis->m_viewStack.rend(); ++it) {
    if (!*it) continue;
    LOG_DEBUG("Refresh View ID : %s", (*it)->GetID());
    (*it)->OnRefresh();
    return true;
  }
  LOG_DEBUG("None View");
  return true;
}

bool CViewManager::m_OnPauseApp(void* manager, CEvent* event) {
  if (!event) {
    LOG_ERROR("Assertion failed");
    return false;
  }
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) {
    LOG_INFO("!pThis");
    return false;
  }
  pThis->t_PopAllView();
  return true;
}

// --- the end -------------------------------------------------------------------------------------

bool CViewManager::m_OnExitApp(void* manager, CEvent* event) {
  LOG_DEBUG("");
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) return false;
  pThis->t_PopAllView();
  if (pThis->m_pKeyManager) pThis->m_pKeyManager->FiniKeyEvent();
  avoc_exit_osd();
  evas_object_smart_callback_del_full(CRootWindow::GetWindow(), "unfocused", m_WindowFocusOutCB, pThis);
  if (event && event->nEventType == EVENT_POP_VIEW) pThis->m_BackToMenu();
  CRootWindow::DeleteWindow();
  ui_app_exit();
  return true;
}

void CViewManager::m_BackToMenu() {
  const std::string launchData = Singleton<MenuControl>::GetInstance()->m_LaunchData;
  LOG_DEBUG("LaunchData[%s]", launchData.c_str());
  if (launchData.empty()) {
    LOG_ERROR("Null");
    return;
  }
  ReturnToMenu(launchData);
}

void CViewManager::m_WindowFocusOutCB(void* manager, Evas_Object*, void*) {
  auto* pThis = static_cast<CViewManager*>(manager);
  if (!pThis) {
    LOG_INFO("NUll Pointer");
    return;
  }
  if (IView* view = pThis->GetCurrentView()) LOG_INFO("Focus Out to [%s] View", view->GetID());
  m_OnExitApp(manager, nullptr);
}

void CViewManager::m_WindowFocusInCB(void*, Evas_Object*, void*) { LOG_ERROR("m_WindowFocusInCB"); }
