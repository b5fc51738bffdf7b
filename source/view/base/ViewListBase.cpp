#include "ViewListBase.h"

#include "Log.h"

void CViewListBase::t_Refresh() {
  LOG_DEBUG("");
  CView::t_Refresh();
  if (t_List()) elm_genlist_realized_items_update(t_List());
}

/// After the list has gone: its rows are made from the class.
void CViewListBase::t_Destroy() {
  if (t_pItemClass) elm_genlist_item_class_free(t_pItemClass);
  t_pItemClass = nullptr;
  CViewWindowBase::t_Destroy();
}

void CViewListBase::t_AddListToUserDefineContent() { LOG_DEBUG("Needs to add list into content by yourself"); }

// --- the list's events ---------------------------------------------------------------------------

void CViewListBase::t_RegisterListKeyEvent() {
  Evas_Object* list = t_List();
  if (!list) return;
  evas_object_smart_callback_add(list, "realized", m_ItemRealized, this);
  evas_object_smart_callback_add(list, "item,focused", m_GenlistFocusedCB, this);
  evas_object_smart_callback_add(list, "item,unfocused", m_GenlistUnFocusedCB, this);
  evas_object_event_callback_add(list, EVAS_CALLBACK_KEY_DOWN, m_GenlistKeyPressedCB, this);
}

void CViewListBase::t_UnRegisterListKeyEvent() {
  Evas_Object* list = t_List();
  if (!list) return;
  evas_object_smart_callback_del_full(list, "realized", m_ItemRealized, this);
  evas_object_smart_callback_del_full(list, "item,focused", m_GenlistFocusedCB, this);
  evas_object_smart_callback_del_full(list, "item,unfocused", m_GenlistUnFocusedCB, this);
  evas_object_event_callback_del_full(list, EVAS_CALLBACK_KEY_DOWN, m_GenlistKeyPressedCB, this);
}

void CViewListBase::t_ProcessListFocusCB(Evas_Object*, void* item) {
  LOG_DEBUG("CurSubFocusItemNum : %d", elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item)) - 1);
}

void CViewListBase::t_ProcessListUnFocusCB(Evas_Object*, void*) { LOG_DEBUG(""); }

void CViewListBase::t_ProcessListKeyPressCB(std::string) { LOG_DEBUG(""); }

void CViewListBase::t_ProcessItemSelected(void*, Evas_Object*, void*) { LOG_DEBUG(""); }

void CViewListBase::m_ItemRealized(void* data, Evas_Object*, void* info) {
  auto* pThis = static_cast<CViewListBase*>(data);
  if (!pThis || !info) {
    LOG_ERROR("Null");
    return;
  }
  pThis->t_ProcessItemRealized(static_cast<Elm_Object_Item*>(info));
}

void CViewListBase::m_GenlistFocusedCB(void* data, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewListBase*>(data);
  if (!pThis || !object || !info) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->t_ProcessListFocusCB(object, info);
}

void CViewListBase::m_GenlistUnFocusedCB(void* data, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewListBase*>(data);
  if (!pThis || !object || !info) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->t_ProcessListUnFocusCB(object, info);
}

void CViewListBase::m_GenlistKeyPressedCB(void* data, Evas*, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewListBase*>(data);
  const auto* key = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !object || !key) {
    LOG_ERROR("Assertion failed");
    return;
  }
  LOG_DEBUG("keyname is [ %s ] ", key->keyname);
  pThis->t_ProcessListKeyPressCB(key->keyname);
}
