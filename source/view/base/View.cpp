#include "View.h"

#include "KeyManager.h"
#include "Log.h"
#include "PageKeys.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "VoiceGuide.h"

namespace {

constexpr int kTimeOutSeconds = 60;
/// Where the toolkit keeps, with the window, who gets the focus as soon as it can have it.
constexpr const char* kNextFocus = "__delayed_focus_set";

}  // namespace

CView::CView(const char* menuID) : t_MenuID(menuID ? menuID : "") {}

CView::~CView() { m_RememberFocus(nullptr); }

void CView::Create() { t_Create(); }

void CView::Destroy() { t_Destroy(); }

void CView::Show() {
  t_Show();
  if (!Utils::FlagVoiceGuideSetting()) return;
  std::string text;
  t_FirstEnter(text);
  Speak(text);
}

void CView::PrepareHide() { t_PrepareHide(); }

void CView::Hide() { t_Hide(); }

void CView::OnRefresh() { t_Refresh(); }

void CView::OnPause() {
  const Evas_Object* window = t_pMainBase ? elm_object_top_widget_get(t_pMainBase) : nullptr;
  Evas_Object* focus = window ? elm_object_focused_object_get(window) : nullptr;
  if (focus && focus != window && focus != CRootWindow::GetGround()) m_RememberFocus(focus);
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kDim50, "");
  t_Pause();
}

void CView::OnResume() {
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kUndim, "");
  t_Resume();
}

void CView::m_RememberFocus(Evas_Object* focus) {
  const auto forget = [](void* view, Evas*, Evas_Object*, void*) { static_cast<CView*>(view)->m_focus = nullptr; };
  if (m_focus) evas_object_event_callback_del_full(m_focus, EVAS_CALLBACK_DEL, forget, this);
  m_focus = focus;
  if (m_focus) evas_object_event_callback_add(m_focus, EVAS_CALLBACK_DEL, forget, this);
}

const char* CView::GetID() { return t_GetID(); }

void CView::SetViewKey(unsigned int key1, unsigned int key2) { m_key1 = key1, m_key2 = key2; }

bool CView::GetViewKey(unsigned int& key1, unsigned int& key2) {
  key1 = m_key1, key2 = m_key2;
  return true;
}

bool CView::HandleMenuSpecialKeyCB(void* data, int type, void* event) {
  LOG_ERROR("");
  return t_HandleMenuSpecialKeyCB(data, type, event);
}

int CView::GetTimeOutSeconds() {
  LOG_DEBUG("");
  return t_GetTimeOutSeconds();
}

int CView::t_GetBaseType() { return BASE_TYPE_LAYOUT; }

void CView::t_Create() { LOG_INFO(" CView::t_Create "); }

void CView::t_Destroy() {
  LOG_INFO(" CView::t_Destroy start");
  CVoiceGuide::GetInstance()->Cancel();
  LOG_INFO(" CView::t_Destroy - VoiceGuide timer destroyed");
  if (!t_pMainBase) return;
  t_GiveFocusUp();
  evas_object_hide(t_pMainBase);
  evas_object_del(t_pMainBase);
  t_pMainBase = nullptr;
}

void CView::t_Show() {
  CKeyManager::SetTimeOut(GetTimeOutSeconds());
  m_TakePageKeys(true);
}

bool CView::t_PrepareHide() {
  LOG_INFO(" CView::t_PrepareHide ");
  return true;
}

void CView::t_Hide() {
  LOG_INFO(" CView::t_Hide ");
  m_TakePageKeys(false);
  t_GiveFocusUp();
  if (t_pMainBase) evas_object_hide(t_pMainBase);
}

void CView::t_Resume() {
  LOG_INFO(" CView::t_Resume ");
  CKeyManager::SetTimeOut(GetTimeOutSeconds());
  m_TakePageKeys(true);
}

void CView::t_Pause() {
  LOG_INFO(" CView::t_Pause ");
  CKeyManager::UnSetTimeOut();
  m_TakePageKeys(false);
}

/// A view below takes them again when it comes up.
void CView::m_TakePageKeys(bool take) {
  if (take == m_pages || (take && !t_List())) return;
  m_pages = take;
  TakePageKeys(take);
}

void CView::t_Refresh() { LOG_INFO(" CView::t_Refresh "); }

const char* CView::t_GetID() { return t_MenuID.c_str(); }

int CView::t_GetTimeOutSeconds() { return kTimeOutSeconds; }

void CView::t_FirstEnter(std::string&) { LOG_DEBUG("FirstEnter"); }

bool CView::t_HandleMenuSpecialKeyCB(void*, int, void*) {
  LOG_ERROR("");
  return false;
}

void CView::t_GoTo(unsigned int step) { GoToStep(t_Window(), step); }

void CView::t_ShowMainBase() {
  if (!t_pMainBase) return;
  elm_object_tree_focus_allow_set(t_pMainBase, EINA_TRUE);
  if (!evas_object_visible_get(t_pMainBase)) evas_object_show(t_pMainBase);
}

bool CView::t_FocusAgain() {
  if (m_focus) elm_object_focus_set(m_focus, EINA_TRUE);
  return m_focus != nullptr;
}

void CView::t_GiveFocusUp() {
  if (!t_pMainBase) return;
  // To what lies behind it all: by itself the toolkit would hand it on from one part of the view to the next.
  if (m_HasFocus()) elm_object_focus_set(CRootWindow::GetGround(), EINA_TRUE);
  elm_object_tree_focus_allow_set(t_pMainBase, EINA_FALSE);
  m_ForgetNextFocus();
}

bool CView::m_IsIn(const Evas_Object* object) const {
  while (object && object != t_pMainBase) object = elm_object_parent_widget_get(object);
  return object != nullptr;
}

bool CView::m_HasFocus() const { return m_IsIn(elm_object_focused_object_get(elm_object_top_widget_get(t_pMainBase))); }

/// The toolkit does not notice when what it waits for goes first, nor when somebody else is to have the focus.
void CView::m_ForgetNextFocus() {
  Evas_Object* window = elm_object_top_widget_get(t_pMainBase);
  if (m_IsIn(static_cast<const Evas_Object*>(evas_object_data_get(window, kNextFocus)))) {
    evas_object_data_del(window, kNextFocus);
  }
}

void CView::t_SetMainBase(Evas_Object* base) {
  t_pMainBase = base;
  if (base) evas_object_name_set(base, ("view:" + t_MenuID).c_str());
}
