// What every window, popup and in-place control is: an object with a fixed life cycle.
#pragma once

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
