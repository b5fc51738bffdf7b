#include "ViewWidgetListWindowBase.h"

#include "Log.h"
#include "ThemeNames.h"

namespace {

/// Shown again, yet not by this window.
constexpr int kShownElsewhere = 6;

}  // namespace

void CViewWidgetListWindowBase::t_Create() {
  CViewWindowBase::t_Create();
  if (!t_pMainBase || !t_CreateWidgetList()) {
    LOG_DEBUG("Create List Failed");
    LOG_DEBUG("CreataList Failed");
    return;
  }
  t_pWidgetList->FetchAllContext(true, true);
  t_AddListToUserDefineContent();
  t_RegisterListKeyEvent();
}

bool CViewWidgetListWindowBase::t_CreateWidgetList() {
  t_pWidgetList = std::make_unique<WidgetGenList>(t_MenuID.c_str());
  t_pWidgetList->Create();
  t_pWidgetList->CreateGenlist(theme::kListDefault, false);
  return true;
}

void CViewWidgetListWindowBase::t_Show() {
  CViewWindowBase::t_Show();
  if (t_pWidgetList) t_pWidgetList->Show();
}

void CViewWidgetListWindowBase::t_Hide() {
  CViewWindowBase::t_Hide();
  SetViewStatus(VIEW_STATUS_HIDDEN);
}

void CViewWidgetListWindowBase::t_Pause() {
  CView::t_Pause();
  if (GetViewStatus() != VIEW_STATUS_ACTIVE) return;
  SetViewStatus(VIEW_STATUS_PAUSED);
  CViewWindowBase::t_Hide();
}

void CViewWidgetListWindowBase::t_Resume() {
  CView::t_Resume();
  if (t_pWidgetList) t_pWidgetList->FetchAllContext(true, true);
  const int status = GetViewStatus();
  LOG_DEBUG("View Status : %d", status);
  if (status == VIEW_STATUS_HIDDEN || status == VIEW_STATUS_PAUSED || status == 0) {
    SetViewStatus(VIEW_STATUS_ACTIVE);
    CViewWindowBase::t_Show();
  } else if (status == kShownElsewhere) {
    SetViewStatus(VIEW_STATUS_ACTIVE);
  }
}

void CViewWidgetListWindowBase::t_Destroy() {
  t_UnRegisterListKeyEvent();
  if (t_pWidgetList) t_pWidgetList->Destroy();
  t_pWidgetList.reset();
  CViewListBase::t_Destroy();
}

// --- the list's events ---------------------------------------------------------------------------

void CViewWidgetListWindowBase::t_RegisterListKeyEvent() {
  if (!t_pWidgetList) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  t_pWidgetList->SetItemSelectCB(m_ItemSelectedCB, this);
  CViewListBase::t_RegisterListKeyEvent();
}

void CViewWidgetListWindowBase::t_UnRegisterListKeyEvent() {
  if (t_pWidgetList) t_pWidgetList->SetItemSelectCB(nullptr, nullptr);
  CViewListBase::t_UnRegisterListKeyEvent();
}

void CViewWidgetListWindowBase::t_ProcessListFocusCB(Evas_Object* list, void* item) {
  t_pWidgetList->SetFocusGenlistItemNum(elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item)) - 1);
  CViewListBase::t_ProcessListFocusCB(list, item);
}

void CViewWidgetListWindowBase::t_ProcessItemSelected(void* data, Evas_Object* list, void* item) {
  CViewListBase::t_ProcessItemSelected(data, list, item);
  t_SublistItemPress();
}

void CViewWidgetListWindowBase::t_SublistItemPress() { LOG_DEBUG(""); }

void CViewWidgetListWindowBase::t_ConfigueTTS(Evas_Object*) {}

void CViewWidgetListWindowBase::m_ItemSelectedCB(void* data, Evas_Object* list, void* item, void*) {
  auto* pThis = static_cast<CViewWidgetListWindowBase*>(data);
  if (!pThis) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  if (pThis->t_FlagSelect) pThis->t_pWidgetList->SetWidgetSelectedItem();
  pThis->t_ProcessItemSelected(data, list, item);
}
