// The base of every window, popup and in-place control.
#pragma once

#include <Elementary.h>

#include <string>

#include "IView.h"
#include "Window.h"

/// Each public operation forwards to the protected one of the same name, which subclasses override.
class CView : public IView {
 public:
  explicit CView(const char* menuID);
  ~CView() override;

  void Create() final;
  void Destroy() final;
  void Show() final;
  void PrepareHide() final;
  void Hide() final;
  void OnRefresh() final;
  void OnPause() final;
  void OnResume() final;
  const char* GetID() final;
  void SetViewKey(unsigned int key1, unsigned int key2) final;
  bool GetViewKey(unsigned int& key1, unsigned int& key2) final;
  bool HandleMenuSpecialKeyCB(void* data, int type, void* event) final;
  int GetViewStatus() final { return m_status; }
  void SetViewStatus(int status) final { m_status = status; }
  int GetViewProperty() final { return m_property; }
  void SetViewProperty(int property) final { m_property = property; }
  int GetTimeOutSeconds() final;

  Evas_Object* GetMainBase() const { return t_pMainBase; }

 protected:
  /// Kind of the main base: a layout or a popup.
  virtual int t_GetBaseType();
  virtual void t_Create();
  virtual void t_Destroy();
  virtual void t_Show();
  virtual bool t_PrepareHide();
  virtual void t_Hide();
  virtual void t_Resume();
  virtual void t_Pause();
  virtual void t_Refresh();
  /// In which the channel keys move by pages; null for none.
  virtual Evas_Object* t_List() const { return nullptr; }
  virtual const char* t_GetID();
  virtual int t_GetTimeOutSeconds();
  /// Adds what is read out when the view is shown.
  virtual void t_FirstEnter(std::string& text);
  virtual bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event);

  /// Closes this view and goes on, the uppermost one, with another step of its window.
  void t_GoTo(unsigned int step);
  /// The window ID and the case number that it was opened with.
  Window t_Window() const { return static_cast<Window>(m_key1); }
  unsigned int t_Case() const { return m_key2; }

  /// Takes the main base over and names it after the view, so that what looks at the screen can tell.
  void t_SetMainBase(Evas_Object* base);
  /// What is in it can have the focus from now on. Shown once: shown again, the toolkit's popup would give the focus
  /// back to a part of itself when it goes.
  void t_ShowMainBase();
  /// Gives the focus to what had it when the view was paused; false in a view that was not.
  bool t_FocusAgain();
  /// Before the main base goes: the toolkit looks in vain for whoever has the focus in one that is going.
  void t_GiveFocusUp();

  std::string t_MenuID;
  Evas_Object* t_pMainBase = nullptr;

 private:
  void m_RememberFocus(Evas_Object* focus);
  bool m_IsIn(const Evas_Object* object) const;
  bool m_HasFocus() const;
  void m_ForgetNextFocus();
  void m_TakePageKeys(bool take);

  /// What had the focus when another view came on top; null when it has gone.
  Evas_Object* m_focus = nullptr;
  unsigned int m_key1 = 0, m_key2 = 0;
  int m_status = VIEW_STATUS_ACTIVE;
  int m_property = 0;
  bool m_pages = false;
};
