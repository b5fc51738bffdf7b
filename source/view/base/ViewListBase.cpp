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
  const auto hear = [this](const char* signal, void (CViewListBase::*heard)(Evas_Object*, void*)) {
    t_Connections.Smart(t_List(), signal, [this, heard](Evas_Object* list, void* item) { (this->*heard)(list, item); });
  };
  hear("realized", &CViewListBase::m_ItemRealized);
  hear("item,focused", &CViewListBase::m_GenlistFocusedCB);
  hear("item,unfocused", &CViewListBase::m_GenlistUnFocusedCB);
  t_Connections.Key(t_List(), [this](Evas_Object*, const Evas_Event_Key_Down& event) {
    LOG_DEBUG("keyname is [ %s ] ", event.keyname);
    t_ProcessListKeyPressCB(event.keyname);
  });
}

void CViewListBase::t_UnRegisterListKeyEvent() {
  if (t_List()) t_Connections.Clear(t_List());
}

void CViewListBase::t_ProcessListFocusCB(Evas_Object*, void* item) {
  LOG_DEBUG("CurSubFocusItemNum : %d", elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item)) - 1);
}

void CViewListBase::t_ProcessListUnFocusCB(Evas_Object*, void*) { LOG_DEBUG(""); }

void CViewListBase::t_ProcessListKeyPressCB(std::string) { LOG_DEBUG(""); }

void CViewListBase::t_ProcessItemSelected(void*, Evas_Object*, void*) { LOG_DEBUG(""); }

void CViewListBase::m_ItemRealized(Evas_Object*, void* item) {
  if (!item) {
    LOG_ERROR("Null");
    return;
  }
  t_ProcessItemRealized(static_cast<Elm_Object_Item*>(item));
}

void CViewListBase::m_GenlistFocusedCB(Evas_Object* list, void* item) {
  if (!item) {
    LOG_ERROR("Assertion failed");
    return;
  }
  t_ProcessListFocusCB(list, item);
}

void CViewListBase::m_GenlistUnFocusedCB(Evas_Object* list, void* item) {
  if (!item) {
    LOG_ERROR("Assertion failed");
    return;
  }
  t_ProcessListUnFocusCB(list, item);
}
