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

void CViewWidgetListWindowBase::t_AddListToUserDefineContent() {
  LOG_DEBUG("Needs to add list into content by yourself");
}

void CViewWidgetListWindowBase::t_Show() {
  CViewWindowBase::t_Show();
  if (t_pWidgetList) t_pWidgetList->Show();
}

void CViewWidgetListWindowBase::t_Refresh() {
  LOG_DEBUG("");
  CView::t_Refresh();
  if (t_List()) elm_genlist_realized_items_update(t_List());
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
  if (t_pItemClass) elm_genlist_item_class_free(t_pItemClass);
  t_pItemClass = nullptr;
  CViewWindowBase::t_Destroy();
}

// --- the list's events ---------------------------------------------------------------------------

void CViewWidgetListWindowBase::t_RegisterListKeyEvent() {
  if (!t_pWidgetList) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  t_pWidgetList->SetItemSelectCB(m_ItemSelectedCB, this);
  Evas_Object* list = t_List();
  if (!list) return;
  evas_object_smart_callback_add(list, "realized", m_ItemRealized, this);
  evas_object_smart_callback_add(list, "item,focused", m_GenlistFocusedCB, this);
  evas_object_smart_callback_add(list, "item,unfocused", m_GenlistUnFocusedCB, this);
  evas_object_event_callback_add(list, EVAS_CALLBACK_KEY_DOWN, m_GenlistKeyPressedCB, this);
}

void CViewWidgetListWindowBase::t_UnRegisterListKeyEvent() {
  if (!t_pWidgetList) return;
  t_pWidgetList->SetItemSelectCB(nullptr, nullptr);
  Evas_Object* list = t_List();
  if (!list) return;
  evas_object_smart_callback_del_full(list, "realized", m_ItemRealized, this);
  evas_object_smart_callback_del_full(list, "item,focused", m_GenlistFocusedCB, this);
  evas_object_smart_callback_del_full(list, "item,unfocused", m_GenlistUnFocusedCB, this);
  evas_object_event_callback_del_full(list, EVAS_CALLBACK_KEY_DOWN, m_GenlistKeyPressedCB, this);
}

void CViewWidgetListWindowBase::t_ProcessListFocusCB(Evas_Object*, void* item) {
  const int index = elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item)) - 1;
  t_pWidgetList->SetFocusGenlistItemNum(index);
  LOG_DEBUG("CurSubFocusItemNum : %d", index);
}

void CViewWidgetListWindowBase::t_ProcessListUnFocusCB(Evas_Object*, void*) { LOG_DEBUG(""); }

void CViewWidgetListWindowBase::t_ProcessListKeyPressCB(std::string) { LOG_DEBUG(""); }

void CViewWidgetListWindowBase::t_ProcessItemSelected(void*, Evas_Object*, void*) {
  LOG_DEBUG("");
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

void CViewWidgetListWindowBase::m_ItemRealized(void* data, Evas_Object*, void* info) {
  auto* pThis = static_cast<CViewWidgetListWindowBase*>(data);
  if (!pThis || !info) {
    LOG_ERROR("Null");
    return;
  }
  pThis->t_ConfigueTTS(static_cast<Evas_Object*>(info));
}

void CViewWidgetListWindowBase::m_GenlistFocusedCB(void* data, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewWidgetListWindowBase*>(data);
  if (!pThis || !object || !info) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->t_ProcessListFocusCB(object, info);
}

void CViewWidgetListWindowBase::m_GenlistUnFocusedCB(void* data, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewWidgetListWindowBase*>(data);
  if (!pThis || !object || !info) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->t_ProcessListUnFocusCB(object, info);
}

void CViewWidgetListWindowBase::m_GenlistKeyPressedCB(void* data, Evas*, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewWidgetListWindowBase*>(data);
  const auto* key = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !object || !key) {
    LOG_ERROR("Assertion failed");
    return;
  }
  LOG_DEBUG("keyname is [ %s ] ", key->keyname);
  pThis->t_ProcessListKeyPressCB(key->keyname);
}
