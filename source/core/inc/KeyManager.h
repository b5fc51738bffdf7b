// Remote-control keys and the menu time-out.
#pragma once

#include <Ecore.h>

#include <array>
#include <span>
#include <string_view>

class IView;

class CKeyManager {
 public:
  /// Says which view is offered each key before anybody else; null for none.
  using WhoIsFirst = IView* (*)();
  explicit CKeyManager(WhoIsFirst first);
  virtual ~CKeyManager();

  /// Grabs the menu's keys and takes part in key and mouse events; `data` is handed to the handlers.
  void InitKeyEvent(void* data);
  void FiniKeyEvent();

  /// One further key, or the ten number keys; refused before InitKeyEvent.
  static void RegisterKey(const char* keyName);
  static void UnRegisterKey(const char* keyName);
  static void RegisterNumberKey();
  static void UnRegisterNumberKey();

  /// The program exits after so many seconds without a key release or a mouse action; 0 or less: never.
  static void SetTimeOut(int seconds);
  static void UnSetTimeOut();
  static void ResetTimeOut();

  /// A remote's key, or the one of a keyboard.
  static bool IsBack(std::string_view key) { return key == "XF86Back" || key == "BackSpace"; }

  static Eina_Bool HandleMenuCommonKeyCB(void* data, int type, void* event);

 private:
  using KeyNames = std::span<const char* const>;

  void m_KeyRouterInitialize();
  void m_RegisterMenuNormalKey();
  void m_GrabMenuNormalKey();
  void m_UnregisterMenuNormalKey();
  void m_UnGrabMenuNormalKey();
  void m_ResetKeyList();
  void m_InitCommonKeyHandler(void* data);
  void m_DelCommonKeyHandler();
  static void m_Request(KeyNames keys, std::span<const int> modes, bool set);
  static Eina_Bool m_HandleMenuSpecialKeyUpCB(void* data, int type, void* event);
  static Eina_Bool m_HandleMenuCommonMouseCB(void* data, int type, void* event);
  static Eina_Bool m_TimeOutCB(void* data);

  static bool t_nFlagInitKeyEvent;
  static std::array<Ecore_Event_Handler*, 8> t_pKeyEventHandler;
  static int t_FlagHandlingKeyByCtxMgr;
  static Ecore_Timer* t_pExitTimer;
  static WhoIsFirst t_pFirst;
};
