#include "ViewListActionWindow.h"

#include "ThemeNames.h"
#include "Utils.h"

void CViewListActionWindow::t_InitWindowProperty() {
  t_DefaultButtonNum = t_MenuID == "user-defined-transponder" ? 2 : 1;
}

void CViewListActionWindow::t_SetButtonSettingInfo() {
  static constexpr const char* texts[2][2] = {{"SID_CLOSE", nullptr}, {"SID_SAVE", "SID_CANCEL"}};
  for (int i = 0; i < t_DefaultButtonNum; ++i) {
    t_ButtonSettings[i] = {Utils::GetTranslationStr(texts[t_DefaultButtonNum - 1][i]), "", theme::kButton,
                           theme::kButtonParts[i]};
  }
}

std::string CViewListActionWindow::t_GetBaseStyle() {
  return t_MenuID == "postype-sat-longitude-settings" ? theme::kRight : theme::kBottom;
}
