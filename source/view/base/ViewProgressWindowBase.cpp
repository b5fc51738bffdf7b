#include "ViewProgressWindowBase.h"

#include "Log.h"
#include "ThemeNames.h"
#include "Utils.h"

namespace {

/// Before the toolkit's own handling of the key.
constexpr Evas_Callback_Priority kKeyPriority = 15000;

}  // namespace

std::string CViewProgressWindowBase::t_GetBaseStyle() { return "NoneDifined"; }

void CViewProgressWindowBase::t_InitWindowProperty() { t_DefaultButtonNum = 0; }

void CViewProgressWindowBase::t_Create() {
  CViewWindowBase::t_Create();

  t_FlagProgressText = true;
  t_ProgressStyle = theme::kProgress;
  t_ProgressPart = theme::kProgressPart;
  t_SetProgressSettingInfo();
  t_ContentGroup = "No Defined";
  t_ContentMinWidth = t_ContentMinHeight = 0;
  t_SetContentSettingInfo();

  if (!m_CreateContentLayout()) {
    LOG_DEBUG("Content Failed");
    t_Destroy();
    return;
  }
  if (!m_CreateProgressBar()) {
    LOG_DEBUG("Progress Bar Failed");
    t_Destroy();
    return;
  }
  if (!t_CreateOtherPartIntoContentLayout(t_pContentLayout)) {
    LOG_DEBUG("Other Part Failed");
    t_Destroy();
    return;
  }
  t_pProgressBar->AddToParentWithPartName(t_ProgressPart.c_str());
  evas_object_show(t_pContentLayout);
  t_pContentTable = Utils::WidgetMinSet(t_pContentLayout, t_pMainBase, t_ContentMinWidth, t_ContentMinHeight, 1);
  t_PickTableToWindowContent(t_pContentTable);
  t_RegisterProgressEvent();
}

bool CViewProgressWindowBase::m_CreateContentLayout() {
  if (!t_pMainBase) {
    LOG_DEBUG("Null Pointer");
    return false;
  }
  t_pContentLayout = elm_layout_add(t_pMainBase);
  if (!t_pContentLayout) {
    LOG_DEBUG("Failed to Create Layout");
    return false;
  }
  if (elm_layout_file_set(t_pContentLayout, Utils::GetEDJFile().c_str(), t_ContentGroup.c_str())) return true;
  LOG_DEBUG("Layout File Failed :[%s]", t_ContentGroup.c_str());
  evas_object_del(t_pContentLayout);
  t_pContentLayout = nullptr;
  return false;
}

bool CViewProgressWindowBase::m_CreateProgressBar() {
  t_pProgressBar = t_CreateProgressBar(t_pContentLayout);
  if (!t_pProgressBar) return false;
  if (t_FlagProgressText) {
    t_pProgressBar->EnableProgressTextFlag(true, t_ProgressText.c_str());
    t_pProgressBar->SetItemData(0.0);
  }
  t_SetProgressProperty();
  return true;
}

std::unique_ptr<WidgetProgressBar> CViewProgressWindowBase::t_CreateProgressBar(Evas_Object* parent) {
  if (!parent) {
    LOG_DEBUG("Null Pointer:t_pMainBase");
    return nullptr;
  }
  auto bar = std::make_unique<WidgetProgressBar>(t_MenuID.c_str());
  if (bar->Create(parent, t_ProgressStyle.c_str())) return bar;
  LOG_DEBUG("Failed to Create");
  return nullptr;
}

bool CViewProgressWindowBase::t_CreateOtherPartIntoContentLayout(Evas_Object*) { return true; }

void CViewProgressWindowBase::t_PickTableToWindowContent(Evas_Object* table) {
  if (!table || !t_pMainBase) return;
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
}

void CViewProgressWindowBase::t_ProcessProgressBarKeyPress(std::string) { LOG_DEBUG(""); }

void CViewProgressWindowBase::t_RegisterProgressEvent() {
  if (!t_pProgressBar) return;
  evas_object_event_callback_priority_add(t_pProgressBar->GetObject(), EVAS_CALLBACK_KEY_DOWN, kKeyPriority,
                                          m_ProgressKeyPressCB, this);
}

void CViewProgressWindowBase::t_UnRegisterProgressEvent() {
  if (!t_pProgressBar) return;
  evas_object_event_callback_del_full(t_pProgressBar->GetObject(), EVAS_CALLBACK_KEY_DOWN, m_ProgressKeyPressCB, this);
}

void CViewProgressWindowBase::m_ProgressKeyPressCB(void* data, Evas*, Evas_Object*, void* info) {
  auto* pThis = static_cast<CViewProgressWindowBase*>(data);
  const auto* key = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !key) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  pThis->t_ProcessProgressBarKeyPress(key->keyname);
}

void CViewProgressWindowBase::t_Show() {
  CViewWindowBase::t_Show();
  if (t_pProgressBar) t_pProgressBar->Show();
}

void CViewProgressWindowBase::t_Hide() {
  if (t_pProgressBar) t_pProgressBar->Hide();
  CViewWindowBase::t_Hide();
}

void CViewProgressWindowBase::t_Destroy() {
  t_UnRegisterProgressEvent();
  if (t_pProgressBar) t_pProgressBar->Destroy();
  t_pProgressBar.reset();
  if (t_pContentLayout) evas_object_del(t_pContentLayout);
  if (t_pContentTable) evas_object_del(t_pContentTable);
  t_pContentLayout = t_pContentTable = nullptr;
  CViewWindowBase::t_Destroy();
}
