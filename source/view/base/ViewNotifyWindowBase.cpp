#include "ViewNotifyWindowBase.h"

#include <cstdio>

#include "Log.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "WidgetDim.h"

namespace {

constexpr int kWrap = 2;
constexpr int kTextWidth = 1122;
constexpr int kFontSize = 48;

}  // namespace

std::string CViewNotifyWindowBase::t_GetBaseStyle() { return theme::kSmallBottom; }

void CViewNotifyWindowBase::t_InitWindowProperty() { t_DefaultButtonNum = 1; }

void CViewNotifyWindowBase::t_SetButtonSettingInfo() {
  t_ButtonSettings[0] = {Utils::GetTranslationStr("SID_OK"), "", theme::kButton, theme::kButtonParts[0]};
}

void CViewNotifyWindowBase::t_Create() {
  CViewWindowBase::t_Create();
  t_CreateDisplayText();
  t_InitDisplayLabel();
}

void CViewNotifyWindowBase::t_CreateDisplayText() {
  char buffer[kDisplayTextSize] = {};
  t_GetDisplayText(buffer);
  LOG_INFO("displaytext is: %s", buffer);
  t_DisplayText = Utils::GetTranslationStr(buffer);
}

void CViewNotifyWindowBase::t_GetDisplayText(char* buffer) { snprintf(buffer, kDisplayTextSize, "null"); }

void CViewNotifyWindowBase::t_InitDisplayLabel() {
  LOG_DEBUG("DisplayName[%s]", t_DisplayText.c_str());
  if (!t_pMainBase) return;
  t_pTextBlock = std::make_unique<WidgetTextBlock>();
  t_pTextBlock->Create(t_pMainBase, t_DisplayText.c_str(), kWrap, kTextWidth, kFontSize);
  t_pTextBlock->SetContent(t_pMainBase, nullptr);
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
