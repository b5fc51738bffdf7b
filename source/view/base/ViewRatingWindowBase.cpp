#include "ViewRatingWindowBase.h"

#include "CheckRow.h"
#include "Content.h"
#include "Log.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "feedback.h"

namespace {

constexpr int kWidth = 820, kHeight = 552, kGap = 33;
constexpr int kFeedbackFocus = 65;

void Pack(Evas_Object* table, Evas_Object* object, int cell, int w, int h) {
  evas_object_size_hint_min_set(object, w, h);
  evas_object_size_hint_align_set(object, EVAS_HINT_FILL, EVAS_HINT_FILL);
  elm_table_pack(table, object, cell, cell, 1, 1);
}

/// Room that is left over goes to where these stand.
void PackFilling(Evas_Object* table, Evas_Object* object, int cell, int w, int h) {
  evas_object_size_hint_weight_set(object, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  Pack(table, object, cell, w, h);
  evas_object_show(object);
}

Evas_Object* AddUnseen(Evas_Object* parent) {
  Evas_Object* unseen = evas_object_rectangle_add(evas_object_evas_get(parent));
  evas_object_color_set(unseen, 0, 0, 0, 0);
  return unseen;
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewRatingWindowBase::t_GetBaseStyle() { return theme::kRightLarge; }

void CViewRatingWindowBase::t_Create() {
  CViewWindowBase::t_Create();
  t_SetRatingNames();
  t_FillRatingInfoVector();
  t_CreateUserDefinedLayout();
  t_CreateContent();
}

/// The list goes with the window, and lasts as long as its rows may be asked for.
void CViewRatingWindowBase::t_Destroy() {
  CViewWindowBase::t_Destroy();
  t_pRatingList = nullptr;
}

void CViewRatingWindowBase::t_FocusFirst() {
  if (t_pRatingList) elm_object_focus_set(t_pRatingList, EINA_TRUE);
}

void CViewRatingWindowBase::t_ProcessDefaultButtonOneFocusCallBack() { feedback_play(kFeedbackFocus); }

void CViewRatingWindowBase::t_FirstEnter(std::string& text) {
  text += " " + t_WindowTitle + ", " + spoken::Items(static_cast<int>(t_Ratings.size()));
  if (!t_Ratings.empty()) text += ", " + t_Ratings[0].name + ", " + T(t_Ratings[0].lock ? "SID_ON" : "SID_OFF");
}

void CViewRatingWindowBase::t_CreateUserDefinedLayout() { LOG_DEBUG(""); }

void CViewRatingWindowBase::t_CreateContent() {
  t_pRatingList = t_CreateGenList(t_pMainBase);
  t_AddGenlistToContent(t_pRatingList, t_pMainBase);
}

void CViewRatingWindowBase::t_AddGenlistToContent(Evas_Object* list, Evas_Object* parent) {
  Evas_Object* frame = t_AddWidgetMinSetWithGap(list, parent, kWidth, kHeight, kGap, kGap, 1);
  if (!frame) return;
  evas_object_show(frame);
  elm_object_part_content_set(parent, theme::kContent, frame);
  elm_object_signal_emit(parent, theme::kFramedContent, "");
}

Evas_Object* CViewRatingWindowBase::t_AddWidgetMinSetWithGap(Evas_Object* object, Evas_Object* parent, int w, int h,
                                                             int gapW, int gapH, int scaled) {
  if (!object || !parent) {
    LOG_DEBUG("Null Pointer");
    return nullptr;
  }
  Evas_Object* table = elm_table_add(parent);
  if (!table) {
    LOG_DEBUG("Failed to Creat Table");
    return nullptr;
  }
  const auto size = [&](int pixels) { return scaled == 1 ? Utils::Scaled(parent, pixels) : pixels; };
  for (const int corner : {0, 2}) Pack(table, AddUnseen(table), corner, size(gapW), size(gapH));
  if (Evas_Object* ground = AddLayout(table, theme::kListGround)) PackFilling(table, ground, 1, size(w), size(h));
  PackFilling(table, object, 1, size(w), size(h));
  return table;
}

// --- the ratings ---------------------------------------------------------------------------------

void CViewRatingWindowBase::t_SetRatingNames() { LOG_DEBUG(""); }

bool CViewRatingWindowBase::t_InitBlockState(int) { return true; }

void CViewRatingWindowBase::t_UpdateRatingInfo(int, bool) { LOG_DEBUG(""); }

void CViewRatingWindowBase::t_FillRatingInfoVector() {
  t_Ratings.clear();
  for (const std::string& name : t_RatingNames) {
    const int index = static_cast<int>(t_Ratings.size());
    t_Ratings.push_back({index, T(name), t_InitBlockState(index)});
  }
}

std::string CViewRatingWindowBase::m_Spoken(const Rating& rating) {
  return rating.name + ", " + T(rating.lock ? "COM_SID_SECURITY_ON" : "COM_SID_SECURITY_OFF");
}

void CViewRatingWindowBase::t_SetItemStateInfo(int index, bool lock) {
  LOG_DEBUG("Index[%d],state[%d]", index, lock);
  if (!t_HasRating(index)) {
    LOG_DEBUG("Invalid data");
    return;
  }
  t_Ratings[index].lock = lock;
  Elm_Object_Item* item = t_pRatingList ? elm_genlist_nth_item_get(t_pRatingList, index) : nullptr;
  Evas_Object* box = BoxOf(item);
  if (!box) return;
  elm_check_state_set(box, lock);
  spoken::SetRowName(item, m_Spoken(t_Ratings[index]));
}

// --- the list ------------------------------------------------------------------------------------

Evas_Object* CViewRatingWindowBase::t_CreateGenList(Evas_Object* parent) {
  if (!parent) {
    LOG_DEBUG("Null Pointer");
    return nullptr;
  }
  Evas_Object* list = AddList(parent);
  if (!list) {
    LOG_DEBUG("Failed to Create");
    return nullptr;
  }
  Elm_Genlist_Item_Class* rowClass = NewRowClass(theme::kRowValue, m_GetItemText, m_ItemGetContent);
  if (!rowClass) {
    LOG_DEBUG("Failed For Itc");
    evas_object_del(list);
    return nullptr;
  }
  t_Connections.Smart(list, "realized",
                      [](Evas_Object*, void* item) { m_ItemRealized(static_cast<Elm_Object_Item*>(item)); });
  for (Rating& rating : t_Ratings) {
    elm_genlist_item_append(list, rowClass, &rating, nullptr, ELM_GENLIST_ITEM_NONE, m_ItemSelCB, this);
  }
  elm_genlist_item_class_free(rowClass);
  return list;
}

char* CViewRatingWindowBase::m_GetItemText(void* data, Evas_Object*, const char* part) {
  return CheckRowText(part, static_cast<const Rating*>(data)->name);
}

Evas_Object* CViewRatingWindowBase::m_ItemGetContent(void* data, Evas_Object* list, const char* part) {
  return AddRowBox(list, part, theme::kRatingListCheck, static_cast<const Rating*>(data)->lock);
}

void CViewRatingWindowBase::m_ItemRealized(Elm_Object_Item* item) {
  ShowRowBox(item);
  spoken::SetRowName(item, m_Spoken(*static_cast<const Rating*>(elm_object_item_data_get(item))));
}

void CViewRatingWindowBase::m_ItemSelCB(void* data, Evas_Object*, void* item) {
  static_cast<CViewRatingWindowBase*>(data)->m_Select(static_cast<Elm_Object_Item*>(item));
}

void CViewRatingWindowBase::m_Select(Elm_Object_Item* item) {
  const int index = elm_genlist_item_index_get(item) - 1;
  LOG_DEBUG("nIndex %d", index);
  if (Evas_Object* box = BoxOf(item)) elm_check_state_set(box, !elm_check_state_get(box));
  if (t_HasRating(index)) m_Change(item, t_Ratings[index]);
  elm_genlist_item_selected_set(item, EINA_FALSE);
}

void CViewRatingWindowBase::m_Change(Elm_Object_Item* item, Rating& rating) {
  rating.lock = !rating.lock;
  t_UpdateRatingInfo(rating.index, rating.lock);
  spoken::SetRowName(item, m_Spoken(rating));
  Speak(m_Spoken(rating));
}
