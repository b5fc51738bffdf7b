#include "ViewInformationWindow.h"

#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Translation.h"

namespace {

constexpr const char* kMoreKey = "XF86More";

}  // namespace

int CViewInformationWindow::t_GetBaseType() { return BASE_TYPE_POPUP; }

std::string CViewInformationWindow::t_GetBaseStyle() { return theme::kRightLarge; }

std::string CViewInformationWindow::t_GetWindowTitleText() { return T("SID_SIGNAL_INFORMATION_KR_17"); }

void CViewInformationWindow::t_RegisterSpcialKey(bool take) {
  if (take) {
    CKeyManager::RegisterNumberKey();
    CKeyManager::RegisterKey(kMoreKey);
  } else {
    CKeyManager::UnRegisterNumberKey();
    CKeyManager::UnRegisterKey(kMoreKey);
  }
}

void CViewInformationWindow::t_Stay() {
  CKeyManager::UnSetTimeOut();
  t_RegisterSpcialKey(true);
}

void CViewInformationWindow::t_Show() {
  CViewWindowBase::t_Show();
  t_Stay();
}

void CViewInformationWindow::t_Hide() {
  t_RegisterSpcialKey(false);
  CViewWindowBase::t_Hide();
}

void CViewInformationWindow::t_Pause() {
  CViewWindowBase::t_Pause();
  if (!m_history.Comes()) return;
  LOG_DEBUG("need Hide %s", m_name);
  t_Hide();
}

void CViewInformationWindow::t_Resume() {
  CViewWindowBase::t_Resume();
  if (m_history.Went()) CViewWindowBase::t_Show();
  t_Stay();
}

void CViewInformationWindow::t_EndAtFirstButton() {
  const auto& [first, second, third] = t_pDefaultButtons;
  if (!first) return;
  elm_object_focus_next_object_set(first, first, ELM_FOCUS_UP);
  // What is set upwards counts downwards too, unless it is set as well.
  if (second) elm_object_focus_next_object_set(first, second, ELM_FOCUS_DOWN);
}
