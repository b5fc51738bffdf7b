// Which window is shown: the stack of open views, and how the program ends.
#pragma once

#include <Elementary.h>

#include <memory>
#include <string>
#include <vector>

#include "Event.h"

class CKeyManager;
class IView;

class CViewManager {
 public:
  static CViewManager* GetInstance();
  static void ReleaseInstance();
  virtual ~CViewManager();

  void Create();
  void Destroy();

  /// The top view, and the one below it; null when there is none.
  IView* GetCurrentView();
  IView* GetLastOldView();

 private:
  CViewManager() = default;

  void m_Create();
  void m_Destory();
  void t_RegisterEvents();
  void t_UnRegisterEvents();

  void m_PrepareColorClass();
  void m_SetSize();
  float m_GetUIScale();
  void m_SetTransparency();
  void m_Start();

  bool t_PushView(IView* view);
  /// Takes the top view off and hides it; the caller destroys it.
  IView* t_PopView();
  void t_PopAllView();
  void m_DestroyAllView();
  void t_HideOldView(IView* view);
  bool t_GetHideFlag(CEvent* event, IView* view);
  void m_LogViews();

  IView* t_CreateView(CEvent* event);
  IView* m_GetActionWindow(const char* menuID, unsigned int nCase);
  std::string m_ConverToMenuID(long id);
  long m_GetWindowID(const char* menuID);

  void m_BackToMenu();

  static bool m_OnExitApp(void* manager, CEvent* event);
  static bool m_OnPushView(void* manager, CEvent* event);
  static bool m_OnPopView(void* manager, CEvent* event);
  static bool m_OnRefresh(void* manager, CEvent* event);
  static bool m_OnPauseApp(void* manager, CEvent* event);
  static bool m_OnStart(void* manager, CEvent* event);
  static void m_WindowFocusOutCB(void* manager, Evas_Object* object, void* info);
  static void m_WindowFocusInCB(void* manager, Evas_Object* object, void* info);

  /// Bottom first; the manager owns the views.
  std::vector<IView*> m_viewStack;
  CKeyManager* m_pKeyManager = nullptr;
  static CViewManager* m_pViewManager;
};
