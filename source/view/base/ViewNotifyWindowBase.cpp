#include "ViewNotifyWindowBase.h"

#include <cstdio>

#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "WidgetDim.h"

std::string CViewNotifyWindowBase::t_GetBaseStyle() { return theme::kSmallBottom; }

std::vector<CViewWindowBase::Button> CViewNotifyWindowBase::t_Buttons() { return {{"SID_OK"}}; }

void CViewNotifyWindowBase::t_Create() {
  CViewWindowBase::t_Create();
  t_CreateDisplayText();
  t_InitDisplayLabel();
}

void CViewNotifyWindowBase::t_CreateDisplayText() {
  char buffer[kDisplayTextSize] = {};
  t_GetDisplayText(buffer);
  LOG_INFO("displaytext is: %s", buffer);
  t_DisplayText = T(buffer);
}

void CViewNotifyWindowBase::t_GetDisplayText(char* buffer) { snprintf(buffer, kDisplayTextSize, "null"); }

void CViewNotifyWindowBase::t_InitDisplayLabel() {
  LOG_DEBUG("DisplayName[%s]", t_DisplayText.c_str());
  if (!t_pMainBase) return;
  t_pTextBlock = AddNoticeText(t_pMainBase, t_DisplayText);
}

void CViewNotifyWindowBase::t_Show() {
  if (t_FlagDim) CWidgetDim::GetInstance()->Show();
  CViewWindowBase::t_Show();
  if (t_pTextBlock) t_pTextBlock->Show();
}

void CViewNotifyWindowBase::t_Hide() {
  CViewWindowBase::t_Hide();
  if (t_pTextBlock) t_pTextBlock->Hide();
}

void CViewNotifyWindowBase::t_Destroy() {
  if (t_FlagDim) CWidgetDim::ReleaseInstance();
  CViewWindowBase::t_Destroy();
  if (t_pTextBlock) t_pTextBlock->Destroy();
  t_pTextBlock.reset();
}
