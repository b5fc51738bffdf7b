// What every window, popup and in-place control is: an object with a fixed life cycle.
#pragma once

#include <Elementary.h>

#include <string>

class IView {
 public:
  virtual ~IView() = default;
  virtual void Create() = 0;
  virtual void Destroy() = 0;
  virtual void Show() = 0;
  virtual void PrepareHide() = 0;
  virtual void Hide() = 0;
  virtual void OnRefresh() = 0;
  virtual void OnPause() = 0;
  virtual void OnResume() = 0;
  /// The menu ID; lives as long as the view.
  virtual const char* GetID() = 0;
  /// The window ID and the case number.
  virtual void SetViewKey(unsigned int key1, unsigned int key2) = 0;
  virtual bool GetViewKey(unsigned int& key1, unsigned int& key2) = 0;
  /// An ecore key-down; true when the view has dealt with it.
  virtual bool HandleMenuSpecialKeyCB(void* data, int type, void* event) = 0;
  virtual int GetViewStatus() = 0;
  virtual void SetViewStatus(int status) = 0;
  virtual int GetViewProperty() = 0;
  virtual void SetViewProperty(int property) = 0;
  /// 0: no time-out.
  virtual int GetTimeOutSeconds() = 0;
};

enum VIEW_STATUS {
  VIEW_STATUS_ACTIVE = 1,
  VIEW_STATUS_ANIMATING = 2,
  VIEW_STATUS_HIDDEN = 4,
  VIEW_STATUS_PAUSED = 7,
};

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
  virtual const char* t_GetID();
  virtual int t_GetTimeOutSeconds();
  /// Adds what is read out when the view is shown.
  virtual void t_FirstEnter(std::string& text);
  virtual bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event);

  /// Takes the main base over and names it after the view, so that what looks at the screen can tell.
  void t_SetMainBase(Evas_Object* base);
  /// Once: shown again, the toolkit's popup would give the focus back to a part of itself when it goes.
  void t_ShowMainBase();
  /// Gives the focus to what had it when the view was paused; to nothing in a view that was not.
  void t_FocusAgain();
  /// Before the main base goes: the toolkit looks in vain for whoever has the focus in one that is going.
  void t_GiveFocusUp();

  std::string t_MenuID;
  Evas_Object* t_pMainBase = nullptr;

 private:
  void m_RememberFocus(Evas_Object* focus);

  /// What had the focus when another view came on top; null when it has gone.
  Evas_Object* m_focus = nullptr;
  unsigned int m_key1 = 0, m_key2 = 0;
  int m_status = VIEW_STATUS_ACTIVE;
  int m_property = 0;
};
