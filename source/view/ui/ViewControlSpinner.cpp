#include "ViewControlSpinner.h"

#include <string_view>

#include "ChannelUtil.h"
#include "DataProvider.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "feedback.h"
#include "settings_api.h"

namespace {

constexpr int kWidth = 220, kWideWidth = 380, kHeight = 124;
constexpr int kAbove = 24;
constexpr size_t kMostDigits = 8;
/// In characters.
constexpr size_t kShortValue = 10;
constexpr int kFeedbackKey = 65;

constexpr std::string_view kFrequency = "signal-information-frequence";
constexpr std::string_view kBandwidth = "signal-information-bandwidth";
constexpr std::string_view kTransponderFrequency = "user-defined-transponder-frequency";
constexpr std::string_view kTransponderRate = "user-defined-transponder-symbolrate";

struct Limits {
  std::string_view menuID;
  CViewControlSpinner::MinMax limits;
};

constexpr Limits kLimits[] = {
    {kTransponderFrequency, {true, 10700, 12750, 9}},
    {kTransponderRate, {true, 1, 50000, 10}},
};

/// By their code.
constexpr const char* kBandwidths[] = {"5 MHz", "6 MHz", "7 MHz", "8 MHz", "10 MHz", "712 MHz"};

struct Unit {
  std::string_view menuID;
  const char* unit;
};

constexpr Unit kUnits[] = {
    {kTransponderFrequency, "MHz"},
    {kBandwidth, "MHz"},
    {kTransponderRate, "KS/s"},
    {kFrequency, "kHz"},
};

void CloseOutside() {
  LOG_DEBUG("enter _block_clicked");
  CloseView();
}

}  // namespace

CViewControlSpinner::CViewControlSpinner(const char* menuID) : CView(menuID) {
  LOG_INFO(" Call Constructor Function ");
}

CViewControlSpinner::MinMax CViewControlSpinner::t_GetMinMaxValue(const std::string& menuID) {
  LOG_DEBUG("menuID: %s", menuID.c_str());
  for (const Limits& entry : kLimits) {
    if (entry.menuID == menuID) return entry.limits;
  }
  return {false, 0, 0, 0};
}

// --- making --------------------------------------------------------------------------------------

void CViewControlSpinner::t_Create() {
  CView::t_Create();
  m_PrepareSpinnerWidth();
  t_SetMainBase(CRootWindow::CreateBase(BASE_TYPE_POPUP, theme::kSpinnerPopup, Utils::GetEDJFile().c_str()));
  if (!t_pMainBase) return;
  m_connections.Smart(t_pMainBase, "block,clicked", [](Evas_Object*, void*) { CloseOutside(); });
  m_ReadValue();
  if (!m_CreateSpinner()) return;
  m_UpdateDispText();
}

void CViewControlSpinner::m_PrepareSpinnerWidth() {
  const bool wide = t_MenuID == "pipchannel";
  LOG_DEBUG("nType[%d]", wide);
  m_nControlPopupWidth = wide ? kWideWidth : kWidth;
  m_nControlPopupHeight = kHeight;
  LOG_DEBUG("PrePareWidth[%d]", m_nControlPopupWidth);
}

void CViewControlSpinner::m_ReadValue() {
  std::string name;
  SettingsAPI::Get()->GetItemValue(t_MenuID, name, m_original);
  LOG_DEBUG("chName = %s", name.c_str());
  m_ShowText(m_original);
  // Steps count from what the tuner receives now.
  if (t_MenuID == kFrequency) ChannelUtil::CacheFrequency = ChannelUtil::GetFrequency(PROFILE_MAIN);
  if (t_MenuID == kBandwidth) ChannelUtil::CacheBandWidth = ChannelUtil::GetBandWidth(PROFILE_MAIN);
}

bool CViewControlSpinner::m_CreateSpinner() {
  const auto pressed = [this](Evas_Object*, Evas_Event_Key_Down& event) { m_SubitemKeyPressed(event); };
  if (!m_spinner.Create(t_pMainBase, {pressed, [this](bool up) { m_ResponseCb(up); }})) return false;
  m_spinner.SetName(DisplayName(t_MenuID));
  Evas_Object* table =
      Utils::WidgetMinSet(m_spinner.GetObject(), t_pMainBase, m_nControlPopupWidth, m_nControlPopupHeight, 1);
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
  return true;
}

void CViewControlSpinner::t_Show() {
  t_PlaceBesideRow(t_pMainBase, m_nControlPopupWidth, m_nControlPopupHeight, kAbove);
  CView::t_Show();
  if (!t_pMainBase) return;
  m_spinner.Show();
  t_ShowMainBase();
  m_spinner.Focus();
}

void CViewControlSpinner::t_FirstEnter(std::string& text) {
  text += spoken::Joined({DisplayName(t_MenuID), m_spinner.GetText()});
}

void CViewControlSpinner::t_Destroy() {
  m_connections.Clear();
  // The spinner goes with the popup: none of its parts may go that is to have the focus.
  CView::t_Destroy();
}

// --- the text ------------------------------------------------------------------------------------

void CViewControlSpinner::m_ShowText(const std::string& text) {
  m_spinner.ShowText(text);
  m_spinner.Emit(text.size() > kShortValue ? theme::kLongValue : theme::kShortValue, "");
}

void CViewControlSpinner::m_UpdateDispText() {
  std::string text = m_spinner.GetText();
  if (t_MenuID == kFrequency) {
    if (ChannelUtil::CacheFrequency >= 0) text = std::to_string(ChannelUtil::CacheFrequency) + " kHz";
  } else if (t_MenuID == kBandwidth) {
    const int code = ChannelUtil::CacheBandWidth;
    if (code >= 0 && code < static_cast<int>(std::size(kBandwidths))) text = kBandwidths[code];
  } else {
    std::string name;
    SettingsAPI::Get()->GetItemValue(t_MenuID, name, text);
  }
  m_ShowText(text);
}

// --- keys and arrows -----------------------------------------------------------------------------

int CViewControlSpinner::m_GetNumFromKey(const char* key) { return Utils::GetNumberFromKey(key); }

void CViewControlSpinner::m_ResponseCb(bool up) {
  if (m_firstInput) {
    LOG_DEBUG("set key by key %s ", up ? "up" : "down");
    m_StepSetting(up);
    m_UpdateDispText();
  }
  m_firstInput = true;
  if (!up) LOG_DEBUG("first_input is true");
}

void CViewControlSpinner::m_SubitemKeyPressed(Evas_Event_Key_Down& event) {
  LOG_DEBUG("_subitem_key_pressed called.");
  feedback_play(kFeedbackKey);
  const std::string key = event.keyname;
  // Arrows step the value: they must not carry the focus to what lies below.
  if (!CKeyManager::IsBack(key)) HoldKey(event);
  m_HandleKey(key);
}

void CViewControlSpinner::m_HandleKey(const std::string& key) {
  const int digit = m_GetNumFromKey(key.c_str());
  if (key == "XF86More") {
    Utils::LaunchNumberPad("type", "NUM_SPIN");
  } else if (key == "Up" || key == "KP_Up") {
    m_Step(true);
  } else if (key == "Down" || key == "KP_Down") {
    m_Step(false);
  } else if (digit >= 0) {
    m_TypeDigit(digit);
  } else if (key == "Return" || key == "KP_Enter") {
    m_Enter();
  }
}

void CViewControlSpinner::m_StepSetting(bool up) {
  SettingsAPI::Get()->SetItemValue(t_MenuID, up ? "Up" : "Down", false);
}

void CViewControlSpinner::m_Step(bool up) {
  m_firstInput = true;
  const MenuKeyDirection direction = up ? MENU_KEY_UP : MENU_KEY_DOWN;
  LOG_DEBUG("set key by key %s ", up ? "up" : "down");
  m_spinner.PressArrow(up);
  if (t_MenuID == kFrequency) {
    ChannelUtil::SetCacheFrequency(direction, nullptr, PROFILE_MAIN);
  } else if (t_MenuID == kBandwidth) {
    ChannelUtil::SetCacheBandWidth(direction, nullptr, PROFILE_MAIN);
  } else {
    m_StepSetting(up);
  }
  m_UpdateDispText();
  LOG_DEBUG("Value : %s", m_spinner.GetText().c_str());
  Speak(m_spinner.GetText());
}

void CViewControlSpinner::m_TypeDigit(int digit) {
  std::string number;
  if (!m_firstInput) {
    LOG_DEBUG("Num Key is pressed over than 2");
    LOG_DEBUG("pDisplayValue : %s", m_spinner.GetText().c_str());
    if (m_spinner.GetText().empty()) {
      LOG_DEBUG("display value is NULL!!!");
      return;
    }
    number = std::to_string(NumberAtStart(m_spinner.GetText().c_str()));
    if (number.size() >= kMostDigits) return;
  }
  for (const Unit& entry : kUnits) {
    if (entry.menuID == t_MenuID) m_ShowText(number + std::to_string(digit) + " " + entry.unit);
  }
  LOG_DEBUG("buff : %s", m_spinner.GetText().c_str());
  m_firstInput = false;
  Speak(m_spinner.GetText());
}

bool CViewControlSpinner::m_CheckItemMinMax() const {
  const MinMax limits = t_GetMinMaxValue(t_MenuID);
  const int entered = NumberAtStart(m_spinner.GetText().c_str());
  return !limits.valid || (entered >= limits.minimum && entered <= limits.maximum);
}

void CViewControlSpinner::m_StoreSetting() {
  if (!m_CheckItemMinMax()) {
    m_ShowText(m_original);
    LOG_DEBUG("Set Original Value");
  }
  SettingsAPI::Get()->SetItemValue(t_MenuID, m_spinner.GetText(), false);
}

void CViewControlSpinner::m_Enter() {
  const char* text = m_spinner.GetText().c_str();
  if (t_MenuID == kBandwidth) {
    const int band = ChannelUtil::SetCacheBandWidth(MENU_KEY_NONE, text, PROFILE_MAIN);
    ChannelUtil::SetBandFreqForSignalInformation(static_cast<EBandwidth>(band),
                                                 ChannelUtil::GetFrequency(PROFILE_MAIN));
  } else if (t_MenuID == kFrequency) {
    const auto band = static_cast<EBandwidth>(ChannelUtil::GetBandWidth(PROFILE_MAIN));
    ChannelUtil::SetBandFreqForSignalInformation(band,
                                                 ChannelUtil::SetCacheFrequency(MENU_KEY_NONE, text, PROFILE_MAIN));
  } else {
    m_StoreSetting();
  }
  LOG_DEBUG("m_pDisplayValue : %s", m_spinner.GetText().c_str());
  m_firstInput = true;
  CloseView();
}
