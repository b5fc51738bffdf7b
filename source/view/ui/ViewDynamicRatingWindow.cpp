#include "ViewDynamicRatingWindow.h"

#include <Ecore_Input.h>

#include <string_view>
#include <utility>

#include "Content.h"
#include "KeyManager.h"
#include "Log.h"
#include "RowFocus.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"

namespace {

constexpr int kWidth = 820, kHeight = 600;
constexpr int kSpinnerWidth = 258, kSpinnerHeight = 60;
constexpr int kListWidth = 798, kListHeight = 440, kListGap = 22;
/// Stands for all values of its dimension.
constexpr int kAll = 0;

/// What the broadcast has no name for is counted.
std::string NameOr(const char* name, const char* kind, int index) {
  return name && *name ? name : std::string(kind) + " " + std::to_string(index);
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

void CViewDynamicRatingWindow::t_Create() {
  LOG_DEBUG("begin");
  drrt_rating_info* info = nullptr;
  RatingUtils::FillRatingInfo(&info);
  m_pRatingInfo.reset(info);
  LOG_DEBUG("Finish Fill");
  if (!info || info->dimensionCount <= 0) {
    LOG_DEBUG("Null Pointer or No dimensions avaialble");
    return;
  }
  CViewRatingWindowBase::t_Create();
  LOG_DEBUG("end");
}

void CViewDynamicRatingWindow::t_CreateUserDefinedLayout() {
  m_pLayout = t_AddContent(theme::kDynamicRating, kWidth, kHeight);
  if (!m_pLayout) {
    LOG_DEBUG("Failed to Create Layout");
    return;
  }
  elm_object_signal_emit(t_pMainBase, theme::kHeadedContent, "");
  elm_object_part_text_set(m_pLayout, theme::kPopupTitle, Markup(T(m_pRatingInfo->regionName)).c_str());
  m_CreateContentEditLabel();
}

void CViewDynamicRatingWindow::m_CreateContentEditLabel() {
  const auto pressed = [this](Evas_Object*, Evas_Event_Key_Down& event) { m_SpinKeyPressed(event); };
  const auto arrow = [this](bool up) { m_Step(up); };
  if (!m_spinner.Create(m_pLayout, {pressed, arrow, [this] { m_SpinFocusedCB(); }, [this] { m_HideSpinnerArrow(); }})) {
    LOG_DEBUG("Failed to Create DimBtn");
    return;
  }
  Evas_Object* table =
      Utils::WidgetMinSetWithGap(m_spinner.GetObject(), m_pLayout, kSpinnerWidth, kSpinnerHeight, 0, 0, 1);
  evas_object_show(table);
  elm_object_part_content_set(m_pLayout, theme::kDimension, table);
  m_spinner.Show();
  m_spinner.ShowArrows(false);
  m_spinner.ShowText(m_DimensionName(0));
}

void CViewDynamicRatingWindow::t_CreateContent() { m_CreateListItems(); }

void CViewDynamicRatingWindow::t_AddGenlistToContent(Evas_Object* list, Evas_Object* parent) {
  if (!list) return;
  Evas_Object* frame = Utils::WidgetMinSetWithGap(list, parent, kListWidth, kListHeight, kListGap, kListGap, 1);
  evas_object_show(list);
  evas_object_show(frame);
  LOG_DEBUG("Add to Content");
  elm_object_part_content_set(parent, theme::kDimensionList, frame);
}

/// It stays open until it is closed.
void CViewDynamicRatingWindow::t_Show() {
  CViewRatingWindowBase::t_Show();
  CKeyManager::UnSetTimeOut();
}

void CViewDynamicRatingWindow::t_Resume() {
  CViewRatingWindowBase::t_Resume();
  CKeyManager::UnSetTimeOut();
}

/// The spinner goes with the window.
void CViewDynamicRatingWindow::t_Destroy() {
  CViewRatingWindowBase::t_Destroy();
  m_pLayout = nullptr;
  m_pRatingInfo.reset();
}

bool CViewDynamicRatingWindow::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  return key && CKeyManager::IsBack(key->keyname) && std::exchange(m_bBackConsumed, false);
}

// --- words ---------------------------------------------------------------------------------------

std::string CViewDynamicRatingWindow::m_DimensionName(int dimension) const {
  return T(NameOr(m_pRatingInfo->dimensionNames[dimension], "Dimension", dimension));
}

void CViewDynamicRatingWindow::m_GetDimensionTTSInfo(int dimension, std::string& out) const {
  if (!m_pRatingInfo) {
    LOG_DEBUG("m_pRatingInfo is nullptr!");
  } else if (dimension < 0 || dimension >= m_pRatingInfo->dimensionCount) {
    LOG_DEBUG("Invaild Index");
  } else {
    out += " " + m_DimensionName(dimension) + ", " + spoken::Items(m_pRatingInfo->ratingCounts[dimension]);
  }
}

void CViewDynamicRatingWindow::t_FirstEnter(std::string& text) {
  text += " " + t_WindowTitle;
  if (m_nCurDimension != 0) return;
  text += " ";
  m_GetDimensionTTSInfo(0, text);
}

/// The region is named once.
void CViewDynamicRatingWindow::m_SpinFocusedCB() {
  const bool first = std::exchange(m_bFirstFocus, false);
  const std::string region = first ? T(m_pRatingInfo->regionName) : "", dimension = m_DimensionName(m_nSpinner);
  m_spinner.SetName(region);
  LOG_DEBUG("%s", (first ? "  " + region + ". " + dimension + " " : "  " + dimension + ".").c_str());
}

// --- locks ---------------------------------------------------------------------------------------

void CViewDynamicRatingWindow::t_SetRatingNames() {
  const int count = m_pRatingInfo->ratingCounts[m_nCurDimension];
  t_RatingNames.clear();
  for (int i = 0; i < count; ++i) {
    t_RatingNames.push_back(i == kAll ? "SID_ALL"
                                      : NameOr(m_pRatingInfo->ratingNames[m_nCurDimension][i], "Rating", i));
  }
}

bool CViewDynamicRatingWindow::m_IsLocked(int index) {
  bool locked = false;
  if (RatingUtils::GetRRSLock(m_nCurDimension, index, &locked) != -1) return locked;
  LOG_ERROR("CTvService::GetRRSLock failed.");
  return false;
}

bool CViewDynamicRatingWindow::t_InitBlockState(int index) {
  if (index == kAll) return m_CheckTopButtonState();
  LOG_INFO("Get rating lock for rating%d of dimension %d", index, m_nCurDimension);
  return m_IsLocked(index);
}

bool CViewDynamicRatingWindow::m_CheckTopButtonState() {
  const int count = m_pRatingInfo->ratingCounts[m_nCurDimension];
  for (int i = 1; i < count; ++i) {
    if (!m_IsLocked(i)) return false;
  }
  return count > 1;
}

void CViewDynamicRatingWindow::t_UpdateRatingInfo(int index, bool lock) {
  if (index != kAll) {
    m_SetItemCheckInfo(index, lock);
    m_SetItemCheckInfo(kAll, m_CheckTopButtonState());
    return;
  }
  for (int i = 1; t_HasRating(i); ++i) m_SetItemCheckInfo(i, lock);
}

void CViewDynamicRatingWindow::m_SetItemCheckInfo(int index, bool lock) {
  t_SetItemStateInfo(index, lock);
  if (RatingUtils::SetRRSLock(m_nCurDimension, index, lock) != -1) return;
  LOG_DEBUG("CTvService::SetRRSLock failed, m_nCurDimension = %d, i = %d, status = %d", m_nCurDimension, index, lock);
}

// --- the dimensions ------------------------------------------------------------------------------

void CViewDynamicRatingWindow::m_FillIntoRatingVector(int dimension) {
  m_nCurDimension = dimension;
  t_SetRatingNames();
  t_FillRatingInfoVector();
}

void CViewDynamicRatingWindow::m_RemoveListItems() {
  Evas_Object* frame = elm_object_part_content_unset(m_pLayout, theme::kDimensionList);
  if (frame) evas_object_del(frame);
  t_pRatingList = nullptr;
}

void CViewDynamicRatingWindow::m_CreateListItems() {
  t_pRatingList = t_CreateGenList(m_pLayout);
  t_AddGenlistToContent(t_pRatingList, m_pLayout);
}

void CViewDynamicRatingWindow::m_HandleKeyUp() { m_ShowDimension(m_nSpinner + 1); }

void CViewDynamicRatingWindow::m_HandleKeyDown() { m_ShowDimension(m_nSpinner - 1); }

void CViewDynamicRatingWindow::m_ShowDimension(int index) {
  if (index < 0 || index >= m_pRatingInfo->dimensionCount) {
    LOG_DEBUG("Can't scroll any more");
    return;
  }
  m_nSpinner = index;
  m_spinner.ShowText(m_DimensionName(index));
  LOG_DEBUG("The new name [%s]", m_spinner.GetText().c_str());
}

void CViewDynamicRatingWindow::m_Step(bool up) {
  m_spinner.PressArrow(up);
  up ? m_HandleKeyUp() : m_HandleKeyDown();
  m_RemoveListItems();
  m_FillIntoRatingVector(m_nSpinner);
  m_CreateListItems();
  std::string text;
  m_GetDimensionTTSInfo(m_nSpinner, text);
  Speak(text);
}

// --- the spinner ---------------------------------------------------------------------------------

void CViewDynamicRatingWindow::m_ShowSpinnerArrow() { m_UpdateDimeSpinState(true); }

void CViewDynamicRatingWindow::m_HideSpinnerArrow() { m_UpdateDimeSpinState(false); }

void CViewDynamicRatingWindow::m_UpdateDimeSpinState(bool editing) {
  if (m_bEditing == editing) return;
  m_bEditing = editing;
  m_spinner.ShowArrows(editing);
  m_spinner.Emit(theme::kMouseDown, theme::kEvents);
  if (!m_spinner.HasFocus()) return;
  const std::string place =
      Filled("COM_SID_MIX_A_OF_B", std::to_string(m_nSpinner + 1), std::to_string(m_pRatingInfo->dimensionCount));
  Speak(spoken::Joined({m_spinner.GetText(), editing ? place : T("COM_SID_SELECTED")}));
}

void CViewDynamicRatingWindow::m_FocusFirstRating() {
  Elm_Object_Item* first = t_pRatingList ? elm_genlist_first_item_get(t_pRatingList) : nullptr;
  if (!first) return;
  SetFocusRow(first);
  elm_object_focus_set(t_pRatingList, EINA_TRUE);
}

void CViewDynamicRatingWindow::m_SpinKeyPressed(Evas_Event_Key_Down& event) {
  const std::string_view key = event.keyname;
  const bool up = key == "Up" || key == "KP_Up", down = key == "Down" || key == "KP_Down";
  m_bBackConsumed = m_bEditing && CKeyManager::IsBack(key);
  if (m_bBackConsumed) return m_HideSpinnerArrow();
  if (key == "Return" || key == "KP_Enter") return m_bEditing ? m_HideSpinnerArrow() : m_ShowSpinnerArrow();
  // While it is edited the focus stays; otherwise nothing lies above, and what lies beside it is the toolkit's to find.
  if (m_bEditing || up || down || key == "Right") HoldKey(event);
  if (m_bEditing) return up || down ? m_Step(up) : void();
  if (down) m_FocusFirstRating();
  if (key == "Right") t_FocusButton(0);
}
