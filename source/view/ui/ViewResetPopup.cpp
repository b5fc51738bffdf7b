#include "ViewResetPopup.h"

#include <Ecore_Input.h>

#include "KeyManager.h"
#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "VoiceGuide.h"
#include "settings_api.h"

namespace {

constexpr const char* kSatellites = "reset-all-settings-satellite";
constexpr size_t kResultSize = 512;

}  // namespace

// --- the question --------------------------------------------------------------------------------

std::vector<CViewWindowBase::Button> CViewResetPopup::t_Buttons() {
  return {{"SID_YES", [this] { m_Reset(); }}, {"SID_NO"}};
}

/// The confirmation, once it is there, is what is worked.
void CViewResetPopup::t_FocusFirst() {
  if (!m_confirmation.IsShown()) t_FocusButton(0);
}

void CViewResetPopup::t_CreateDisplayText() {
  if (t_MenuID == kSatellites) {
    t_DisplayText = T("TV_SID_ALL_SATELITE_SETTINGS_RESET_DEFAULT");
  } else {
    CViewNotifyWindowBase::t_CreateDisplayText();
  }
}

void CViewResetPopup::t_FirstEnter(std::string& text) {
  text += " " + spoken::Joined({t_WindowTitle, t_DisplayText, spoken::Button("SID_YES"), spoken::Button("SID_NO")});
}

void CViewResetPopup::t_Destroy() {
  m_confirmation.Close();
  CViewNotifyWindowBase::t_Destroy();
}

/// The window leaves the screen to the confirmation, and goes with it.
void CViewResetPopup::m_Reset() {
  t_Hide();
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kDim50, "");
  if (SettingsAPI::Get()->SetItemValue(t_MenuID, "1", false) == -1) {
    LOG_ERROR("%s was not reset", t_MenuID.c_str());
    return CloseView();
  }
  t_CreatAndShowComfirmPopup();
}

// --- the confirmation ----------------------------------------------------------------------------

void CViewResetPopup::t_GetResultText(char* text) {
  if (!text) {
    LOG_ERROR("Assertion failed");
    return;
  }
  if (t_MenuID == kSatellites) CopyText(text, kResultSize, T("SID_TRANSPONDER_DATABASE_RESET"));
  LOG_INFO("%s", text);
}

void CViewResetPopup::t_CreatAndShowComfirmPopup() {
  char text[kResultSize] = {};
  t_GetResultText(text);
  if (!m_confirmation.Show(theme::kSmallBottom, {t_WindowTitle, text, "SID_OK"}, [this](bool) { m_Close(); })) {
    LOG_ERROR("Null");
    return CloseView();
  }
  Speak(spoken::Joined({t_WindowTitle, text, spoken::Button("SID_OK")}));
}

void CViewResetPopup::m_Close() {
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kUndim, "");
  CloseView();
}

/// The confirmation's button has heard of the key before the window does.
bool CViewResetPopup::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  return key && CKeyManager::IsBack(key->keyname) && (m_confirmation.TakeBack() || m_confirmation.IsShown());
}
