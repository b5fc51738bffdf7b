#include "ViewBottomCtxPopup.h"

#include <Ecore_Input.h>

#include <algorithm>

#include "DataProvider.h"
#include "KPILog.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "toolkit_ext.h"

namespace {

constexpr int kListWidth = 640;
constexpr int kRowHeight = 80;
constexpr int kMostRows = 6;

}  // namespace

int CViewBottomCtxPopup::t_GetBaseType() { return BASE_TYPE_LAYOUT; }

std::string CViewBottomCtxPopup::t_GetBaseStyle() { return theme::kBottomList; }

void CViewBottomCtxPopup::t_Create() {
  CViewWidgetListWindowBase::t_Create();
  if (!t_pMainBase) return;
  t_WindowTitle = DisplayName(t_MenuID);
  elm_object_part_text_set(t_pMainBase, theme::kBottomListTitle, t_WindowTitle.c_str());
  LOG_DEBUG("Add Bottom Title");
  m_behavior.Create(t_MenuID);
  t_Connections.Signal(t_pMainBase, theme::kRisen, [this](const char* signal) { t_EndMotionCB(signal); });
  t_Connections.Signal(t_pMainBase, theme::kSunk, [this](const char* signal) { t_EndMotionCB(signal); });
  t_Connections.Signal(t_pMainBase, theme::kClickedOutside, [this](const char*) { m_Close(); });
}

void CViewBottomCtxPopup::t_AddListToUserDefineContent() {
  const int rows = std::clamp(t_pWidgetList->GetVisibleListCount(), 1, kMostRows);
  Evas_Object* size = Utils::CreateRectTable(t_pMainBase, kListWidth, rows * kRowHeight, 1);
  elm_object_part_content_set(t_pMainBase, theme::kBottomListSize, size);
  if (!t_List()) return;
  elm_scroller_policy_set(t_List(), ELM_SCROLLER_POLICY_OFF, ELM_SCROLLER_POLICY_AUTO);
  Evas_Object* table = Utils::WidgetMinSetWithGap(t_List(), t_pMainBase, kListWidth, rows * kRowHeight, 0, 0, 1);
  elm_object_part_content_set(t_pMainBase, theme::kBottomListPart, table);
}

void CViewBottomCtxPopup::t_Show() {
  CViewWidgetListWindowBase::t_Show();
  // Pushed when the window had gone already.
  if (!t_pMainBase) return;
  SetViewStatus(VIEW_STATUS_ANIMATING);
  t_pWidgetList->SetFocusPresetItem();
  LOG_DEBUG("SetFocusPresetItem");
  elm_layout_signal_emit(t_pMainBase, theme::kRise, "");
}

void CViewBottomCtxPopup::t_EndMotionCB(const std::string& signal) {
  LOG_DEBUG("t_EndMotionCB");
  LOG_DEBUG("%s", signal.c_str());
  if (signal == theme::kRisen) {
    SetViewStatus(VIEW_STATUS_ACTIVE);
  } else {
    CloseView();
  }
}

/// The end of the motion posts the one pop that closes the popup.
void CViewBottomCtxPopup::m_Close() {
  if (m_closing || !t_pMainBase) return;
  m_closing = true;
  elm_layout_signal_emit(t_pMainBase, theme::kSink, "");
}

void CViewBottomCtxPopup::t_ProcessListFocusCB(Evas_Object* list, void* item) {
  CViewWidgetListWindowBase::t_ProcessListFocusCB(list, item);
  std::string value;
  if (!t_pWidgetList->GetFocusGenlistItemValue(&value)) return;
  LOG_DEBUG("### sItemValue %s", value.c_str());
  m_behavior.DoBehaviorAfterItemFocusChange(value);
  if (elm_config_access_get()) elm_access_force_say(" ");
}

void CViewBottomCtxPopup::t_SublistItemPress() {
  if (m_closing) return;
  m_behavior.DoBehaviorAfterItemSelected();
  SayNow(spoken::Joined({t_WindowTitle, DisplayValue(t_MenuID)}));
  m_Close();
}

void CViewBottomCtxPopup::t_ProcessListKeyPressCB(std::string keyName) {
  if (CKeyManager::IsBack(keyName)) m_Close();
}

bool CViewBottomCtxPopup::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  if (!key || !CKeyManager::IsBack(key->keyname)) return false;
  m_Close();
  return true;
}

bool CViewBottomCtxPopup::t_PrepareHide() {
  CKPILog::SendKpiLog(t_MenuID.c_str(), CKPILog::LOG_TYPE_SELECT_VALUE);
  CKPILog::SendKpiLog(t_MenuID.c_str(), CKPILog::LOG_TYPE_CLICK);
  return CViewWidgetListWindowBase::t_PrepareHide();
}

void CViewBottomCtxPopup::t_FirstEnter(std::string& text) {
  text += t_WindowTitle + ", " + spoken::Items(t_pWidgetList ? t_pWidgetList->GetVisibleListCount() : 0);
}

void CViewBottomCtxPopup::t_Destroy() {
  CViewWidgetListWindowBase::t_Destroy();
  m_behavior.Destroy();
}
