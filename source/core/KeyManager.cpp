#include "KeyManager.h"

#include <Ecore_Input.h>
#include <Elementary.h>

#include <string_view>

#include "EventManager.h"
#include "IView.h"
#include "Launch.h"
#include "Log.h"
#include "RootWindow.h"
#include "Utils.h"
#include "Window.h"
#include "display.h"
#include "key_router.h"
#include "vconf.h"

bool CKeyManager::t_nFlagInitKeyEvent = false;
std::array<Ecore_Event_Handler*, 8> CKeyManager::t_pKeyEventHandler{};
int CKeyManager::t_FlagHandlingKeyByCtxMgr = 0;
Ecore_Timer* CKeyManager::t_pExitTimer = nullptr;
CKeyManager::WhoIsFirst CKeyManager::t_pFirst = nullptr;

namespace {

constexpr int kGrabMode = 2;
constexpr int kRegisterMode = 5;
constexpr int kGrab[] = {kGrabMode};
constexpr int kRegister[] = {kRegisterMode};
constexpr int kBoth[] = {kGrabMode, kRegisterMode};

constexpr const char* kMenuNormalKeys[] = {"XF86Back", "Return",        "Up",         "Left", "Right",
                                           "Down",     "XF86AudioStop", "XF86EManual"};
constexpr const char* kReleasedKeys[] = {"XF86Back",
                                         "Return",
                                         "Up",
                                         "Left",
                                         "Right",
                                         "Down",
                                         "XF86WheelRightKey",
                                         "XF86WheelLeftKey",
                                         "XF86AudioStop",
                                         "XF86AudioPlay",
                                         "XF86AudioPause",
                                         "XF86PlayBack",
                                         "XF86Red",
                                         "XF86Green",
                                         "XF86EManual",
                                         "XF86ListHome",
                                         "XF86ListEnd",
                                         "XF86VoiceControl",
                                         "XF86LeftPage",
                                         "XF86RightPage",
                                         "XF86UpPage",
                                         "XF86DownPage"};
constexpr const char* kNumberKeys[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};

constexpr const char* kKeyRouterGlobal = "nyxel_keyrouter";
constexpr const char* kEManualService = "org.nyxel.pagelet-host";
constexpr const char* kHotelFactory = "org.nyxel.innkeeper-factory";

void LaunchEManual() {
  Launch({kEManualService, {{"WIDGET_ID_SRC", "com.vantrel.tv.quirelle"}, {"EVENT_TYPE", "4201"}}});
}

void HandleCommonKey(std::string_view key) {
  if (CKeyManager::IsBack(key)) {
    CloseView();
  } else if (key == "XF86EManual") {
    LaunchEManual();
  }
}

}  // namespace

CKeyManager::CKeyManager(WhoIsFirst first) { t_pFirst = first; }

CKeyManager::~CKeyManager() { UnSetTimeOut(); }

void CKeyManager::InitKeyEvent(void* data) {
  LOG_DEBUG("Flag Init Key Event : %d", t_nFlagInitKeyEvent);
  if (t_nFlagInitKeyEvent) return;
  LOG_DEBUG("Init key event");
  t_nFlagInitKeyEvent = true;

  m_KeyRouterInitialize();
  t_pKeyEventHandler.fill(nullptr);
  t_FlagHandlingKeyByCtxMgr = CRootWindow::AddHint("am.input.mode", "priority");
  m_RegisterMenuNormalKey();
  m_GrabMenuNormalKey();
  m_InitCommonKeyHandler(data);
}

void CKeyManager::FiniKeyEvent() {
  LOG_DEBUG("Flag Init Key Event : %d", t_nFlagInitKeyEvent);
  if (!t_nFlagInitKeyEvent) {
    LOG_DEBUG(" Key event is not initialized ");
    return;
  }
  LOG_DEBUG("Fini key event ");
  t_nFlagInitKeyEvent = false;

  CRootWindow::DeleteHint(t_FlagHandlingKeyByCtxMgr);
  m_UnregisterMenuNormalKey();
  m_UnGrabMenuNormalKey();
  m_DelCommonKeyHandler();
  KeyRouter_Finalize();
}

void CKeyManager::m_KeyRouterInitialize() {
  if (display_s* display = display_connect()) {
    KeyRouter_Initialize(display, display_registry_get(display), display_default_seat_get(display),
                         display_global_find(display, kKeyRouterGlobal));
  }
  m_ResetKeyList();
}

void CKeyManager::m_ResetKeyList() { m_Request({}, {}, true); }

void CKeyManager::m_Request(KeyNames keys, std::span<const int> modes, bool set) {
  KeyRouterKeyList list;
  KeyRouter_Reset_KeyList(&list);
  for (const char* key : keys) {
    for (const int mode : modes) KeyRouter_Add_Key(key, mode, &list);
  }
  const bool done = set ? KeyRouter_Set_KeyList(0, &list) : KeyRouter_UnSet_KeyList(0, &list);
  if (!done) LOG_ERROR("FAIL to Set Keyrouter list");
}

void CKeyManager::m_RegisterMenuNormalKey() { m_Request(kMenuNormalKeys, kRegister, true); }

void CKeyManager::m_GrabMenuNormalKey() {
  m_Request(kMenuNormalKeys, kGrab, true);
  LOG_DEBUG("Grab Normal Key Ends");
}

void CKeyManager::m_UnregisterMenuNormalKey() {
  m_Request(kReleasedKeys, kRegister, false);
  LOG_DEBUG("UnregisterMenuNormal");
}

void CKeyManager::m_UnGrabMenuNormalKey() {
  m_Request(kReleasedKeys, kGrab, false);
  LOG_DEBUG("UnGrabMenuNormalKey");
}

void CKeyManager::m_InitCommonKeyHandler(void* data) {
  const std::pair<int, Ecore_Event_Handler_Cb> handlers[] = {
      {ECORE_EVENT_KEY_DOWN, HandleMenuCommonKeyCB},
      {ECORE_EVENT_KEY_UP, m_HandleMenuSpecialKeyUpCB},
      {ECORE_EVENT_MOUSE_BUTTON_DOWN, m_HandleMenuCommonMouseCB},
      {ECORE_EVENT_MOUSE_BUTTON_UP, m_HandleMenuCommonMouseCB},
      {ECORE_EVENT_MOUSE_MOVE, m_HandleMenuCommonMouseCB},
      {ECORE_EVENT_MOUSE_WHEEL, m_HandleMenuCommonMouseCB},
  };
  size_t slot = 0;
  for (const auto& [type, callback] : handlers)
    t_pKeyEventHandler[slot++] = ecore_event_handler_add(type, callback, data);
}

void CKeyManager::m_DelCommonKeyHandler() {
  for (Ecore_Event_Handler*& handler : t_pKeyEventHandler) {
    if (handler) ecore_event_handler_del(handler);
    handler = nullptr;
  }
  LOG_DEBUG("Del Common Key Handler");
}

void CKeyManager::RegisterKey(const char* keyName) {
  LOG_DEBUG("Resigster Key : %s, Init Key Flag : %d", keyName, t_nFlagInitKeyEvent);
  if (!t_nFlagInitKeyEvent) {
    LOG_DEBUG("Key Manager is not initialized");
    return;
  }
  m_Request({&keyName, 1}, kBoth, true);
}

void CKeyManager::UnRegisterKey(const char* keyName) {
  LOG_DEBUG("UnResigster Key : %s, Init Key Flag : %d", keyName, t_nFlagInitKeyEvent);
  if (!t_nFlagInitKeyEvent) {
    LOG_DEBUG("Key Manager is not initialized");
    return;
  }
  m_Request({&keyName, 1}, kBoth, false);
}

void CKeyManager::RegisterNumberKey() {
  LOG_DEBUG("Resigster menu_number_key");
  if (!t_nFlagInitKeyEvent) {
    LOG_DEBUG(" Key Manager is not initialized ");
    return;
  }
  m_Request(kNumberKeys, kBoth, true);
}

void CKeyManager::UnRegisterNumberKey() {
  LOG_DEBUG("UnRegister_menu_number_key");
  if (!t_nFlagInitKeyEvent) {
    LOG_DEBUG("Key Manager is not initialized");
    return;
  }
  m_Request(kNumberKeys, kBoth, false);
}

Eina_Bool CKeyManager::HandleMenuCommonKeyCB(void* data, int type, void* event) {
  if (type != ECORE_EVENT_KEY_DOWN) {
    LOG_DEBUG(" This is not KEY DOWN event ");
    return ECORE_CALLBACK_DONE;
  }
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  if (!key || !key->keyname) return ECORE_CALLBACK_DONE;
  LOG_ERROR("Common Key [%s]", key->keyname);

  IView* view = t_pFirst ? t_pFirst() : nullptr;
  if (!view) {
    LOG_DEBUG(" current view is NULL ");
    if (IsBack(key->keyname)) CEventManager::GetInstance()->SendEvent(EVENT_EXIT_APP, 0, 0, nullptr, nullptr);
    return ECORE_CALLBACK_DONE;
  }
  if (view->HandleMenuSpecialKeyCB(data, type, event)) {
    LOG_DEBUG(" This Key was handled by Top Position View ");
    return ECORE_CALLBACK_DONE;
  }
  HandleCommonKey(key->keyname);
  return ECORE_CALLBACK_DONE;
}

Eina_Bool CKeyManager::m_HandleMenuSpecialKeyUpCB(void*, int, void*) {
  LOG_DEBUG("Key Release ,Reset Timer.");
  ResetTimeOut();
  return ECORE_CALLBACK_DONE;
}

Eina_Bool CKeyManager::m_HandleMenuCommonMouseCB(void*, int, void*) {
  LOG_DEBUG("Key press ,Reset Timer.");
  ResetTimeOut();
  return ECORE_CALLBACK_DONE;
}

void CKeyManager::SetTimeOut(int seconds) {
  LOG_DEBUG(" Time out Sec : %d", seconds);
  UnSetTimeOut();
  if (seconds > 0) t_pExitTimer = ecore_timer_add(seconds, m_TimeOutCB, nullptr);
}

void CKeyManager::UnSetTimeOut() {
  if (t_pExitTimer) ecore_timer_del(t_pExitTimer);
  t_pExitTimer = nullptr;
}

void CKeyManager::ResetTimeOut() {
  if (t_pExitTimer) ecore_timer_reset(t_pExitTimer);
}

Eina_Bool CKeyManager::m_TimeOutCB(void*) {
  LOG_ERROR("TimeOut");
  if (Utils::FlagOptionTV()) {
    LOG_DEBUG(" Hotel or LFD ");
    int factoryMode = 0;
    vconf_get_bool("memory/ephotel/hotelmenu/hotelfactorymode", &factoryMode);
    LOG_DEBUG(" Factory Value : %d", factoryMode);
    if (factoryMode) Launch({kHotelFactory, {}});
  }
  CEventManager::GetInstance()->SendEvent(EVENT_EXIT_APP, 0, 0, nullptr, nullptr);
  t_pExitTimer = nullptr;
  return ECORE_CALLBACK_CANCEL;
}
