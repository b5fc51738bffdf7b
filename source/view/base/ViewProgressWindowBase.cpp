#include "ViewProgressWindowBase.h"

#include "Content.h"
#include "Log.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "VoiceGuide.h"

namespace {

/// After the toolkit's own handling of the key.
constexpr Evas_Callback_Priority kKeyPriority = 15000;
constexpr int kSpokenPercent = 25;
/// A message is heard out before the first quarter, and each quarter before the next.
constexpr double kHeardOutSeconds = 2.5;

}  // namespace

std::string CViewProgressWindowBase::t_GetBaseStyle() { return "NoneDifined"; }

void CViewProgressWindowBase::t_Create() {
  CViewWindowBase::t_Create();

  t_FlagProgressText = true;
  t_ProgressStyle = theme::kProgress;
  t_ProgressPart = theme::kProgressPart;
  t_SetProgressSettingInfo();
  t_ContentGroup = "No Defined";
  t_ContentMinWidth = t_ContentMinHeight = 0;
  t_SetContentSettingInfo();

  const char* failure = m_CreateParts();
  if (failure) {
    LOG_DEBUG("%s", failure);
    t_Destroy();
    return;
  }
  t_pProgressBar->AddToParentWithPartName(t_ProgressPart.c_str());
  evas_object_show(t_pContentLayout);
  t_pContentTable = Utils::WidgetMinSet(t_pContentLayout, t_pMainBase, t_ContentMinWidth, t_ContentMinHeight, 1);
  t_PickTableToWindowContent(t_pContentTable);
  t_RegisterProgressEvent();
}

/// Which of them failed; null for none.
const char* CViewProgressWindowBase::m_CreateParts() {
  if (!m_CreateContentLayout()) return "Content Failed";
  if (!m_CreateProgressBar()) return "Progress Bar Failed";
  return t_CreateOtherPartIntoContentLayout(t_pContentLayout) ? nullptr : "Other Part Failed";
}

bool CViewProgressWindowBase::m_CreateContentLayout() {
  if (!t_pMainBase) {
    LOG_DEBUG("Null Pointer");
    return false;
  }
  t_pContentLayout = AddLayout(t_pMainBase, t_ContentGroup.c_str());
  return t_pContentLayout != nullptr;
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
  auto bar = std::make_unique<WidgetProgressBar>();
  if (bar->Create(parent, t_ProgressStyle.c_str())) return bar;
  LOG_DEBUG("Failed to Create");
  return nullptr;
}

bool CViewProgressWindowBase::t_CreateOtherPartIntoContentLayout(Evas_Object*) { return true; }

void CViewProgressWindowBase::t_SetProgressProperty() {
  Evas_Object* bar = t_pProgressBar->GetObject();
  elm_progressbar_horizontal_set(bar, EINA_TRUE);
  elm_object_mirrored_automatic_set(bar, EINA_FALSE);
  elm_object_mirrored_set(bar, EINA_FALSE);
}

void CViewProgressWindowBase::t_SetProgress(int percent) {
  if (!t_pProgressBar) return;
  t_pProgressBar->SetItemData(percent / 100.0);
  spoken::SetState(t_pProgressBar->GetObject(), std::to_string(percent) + "%");
  m_SpeakProgress(percent);
}

void CViewProgressWindowBase::m_SpeakProgress(int percent) {
  const int quarters = percent / kSpokenPercent;
  if (quarters <= m_quarters || ecore_loop_time_get() - m_spokenAt < kHeardOutSeconds) return;
  m_quarters = quarters;
  m_spokenAt = ecore_loop_time_get();
  Speak(spoken::StateOf(t_pProgressBar->GetObject()));
}

void CViewProgressWindowBase::t_PickTableToWindowContent(Evas_Object* table) {
  if (!table || !t_pMainBase) return;
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
}

void CViewProgressWindowBase::t_ProcessProgressBarKeyPress(std::string) { LOG_DEBUG(""); }

void CViewProgressWindowBase::t_RegisterProgressEvent() {
  if (!t_pProgressBar) return;
  const auto pressed = [this](Evas_Object*, const Evas_Event_Key_Down& event) {
    t_ProcessProgressBarKeyPress(event.keyname);
  };
  t_Connections.Key(t_pProgressBar->GetObject(), pressed, kKeyPriority);
}

void CViewProgressWindowBase::t_UnRegisterProgressEvent() {
  if (t_pProgressBar) t_Connections.Clear(t_pProgressBar->GetObject());
}

void CViewProgressWindowBase::t_Show() {
  CViewWindowBase::t_Show();
  m_spokenAt = ecore_loop_time_get();
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
