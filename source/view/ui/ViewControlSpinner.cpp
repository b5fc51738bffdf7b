#include "ViewControlSpinner.h"

#include <string_view>

#include "ChannelUtil.h"
#include "ControlPlacement.h"
#include "EventManager.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
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
constexpr int kFeedbackKey = 65;
constexpr double kVoiceDelaySeconds = 0.2;
/// Before the toolkit's own handling of the key.
constexpr Evas_Callback_Priority kKeyPriority = 15000;

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

void PostPop() { CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 0, 0, nullptr, nullptr); }

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
  evas_object_smart_callback_add(t_pMainBase, "block,clicked", t_BlockClicked, this);
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
  m_pDisplayValue = m_original;
  // Steps count from what the tuner receives now.
  if (t_MenuID == kFrequency) ChannelUtil::CacheFrequency = ChannelUtil::GetFrequency(PROFILE_MAIN);
  if (t_MenuID == kBandwidth) ChannelUtil::CacheBandWidth = ChannelUtil::GetBandWidth(PROFILE_MAIN);
}

bool CViewControlSpinner::m_CreateSpinner() {
  const bool touch = Utils::FlagTouchSupport();
  m_pSpinner = elm_spinner_add(t_pMainBase);
  if (!m_pSpinner) return false;
  elm_object_style_set(m_pSpinner, touch ? theme::kSpinnerTouch : theme::kSpinner);
  elm_spinner_editable_set(m_pSpinner, EINA_FALSE);
  elm_spinner_min_max_set(m_pSpinner, 0, 0);
  m_ShowText(m_pDisplayValue);
  m_pIncrease = m_CreateArrow(touch ? theme::kIncreaseTouch : theme::kIncrease, theme::kIncreasePart);
  m_pDecrease = m_CreateArrow(touch ? theme::kDecreaseTouch : theme::kDecrease, theme::kDecreasePart);
  m_CreateFocus();
  Evas_Object* table = Utils::WidgetMinSet(m_pSpinner, t_pMainBase, m_nControlPopupWidth, m_nControlPopupHeight, 1);
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
  return true;
}

Evas_Object* CViewControlSpinner::m_CreateArrow(const char* style, const char* part) {
  Evas_Object* arrow = elm_button_add(m_pSpinner);
  elm_object_style_set(arrow, style);
  elm_object_focus_allow_set(arrow, EINA_FALSE);
  elm_object_part_content_set(m_pSpinner, part, arrow);
  elm_object_signal_emit(arrow, theme::kActionFocus, theme::kSource);
  evas_object_smart_callback_add(arrow, "clicked", m_ResponseCb, this);
  evas_object_show(arrow);
  return arrow;
}

void CViewControlSpinner::m_CreateFocus() {
  m_pFocus = elm_layout_add(m_pSpinner);
  if (!m_pFocus) return;
  elm_object_focus_allow_set(m_pFocus, EINA_TRUE);
  evas_object_event_callback_priority_add(m_pFocus, EVAS_CALLBACK_KEY_DOWN, kKeyPriority, m_SubitemKeyPressed, this);
  evas_object_event_callback_add(m_pFocus, EVAS_CALLBACK_FOCUS_IN, m_FocusedCb, this);
  evas_object_event_callback_add(m_pFocus, EVAS_CALLBACK_FOCUS_OUT, m_UnfocusedCb, this);
  elm_object_part_content_set(m_pSpinner, theme::kSpinnerFocusPart, m_pFocus);
  evas_object_show(m_pFocus);
}

void CViewControlSpinner::m_FocusedCb(void* data, Evas*, Evas_Object*, void*) {
  elm_object_signal_emit(static_cast<CViewControlSpinner*>(data)->m_pSpinner, theme::kActionFocus, theme::kSource);
}

void CViewControlSpinner::m_UnfocusedCb(void* data, Evas*, Evas_Object*, void*) {
  elm_object_signal_emit(static_cast<CViewControlSpinner*>(data)->m_pSpinner, theme::kActionUnfocus, theme::kSource);
}

void CViewControlSpinner::t_Show() {
  PlaceControl(t_pMainBase, {m_x, m_y, m_w, m_nControlPopupWidth, m_nControlPopupHeight, kAbove});
  CView::t_Show();
  if (!t_pMainBase) return;
  elm_object_tree_focus_allow_set(t_pMainBase, EINA_TRUE);
  // Before the popup, which gives the focus to what it finds in it.
  if (m_pSpinner) evas_object_show(m_pSpinner);
  t_ShowMainBase();
  if (m_pFocus) elm_object_focus_set(m_pFocus, EINA_TRUE);
  // A layout keeps it to itself when it gets the focus above another popup.
  if (m_pSpinner) elm_object_signal_emit(m_pSpinner, theme::kActionFocus, theme::kSource);
}

void CViewControlSpinner::t_Hide() {
  t_GiveFocusUp();
  if (m_pSpinner) evas_object_hide(m_pSpinner);
  CView::t_Hide();
}

void CViewControlSpinner::t_FirstEnter(std::string& text) { text += m_pDisplayValue; }

void CViewControlSpinner::t_Destroy() {
  for (Evas_Object* arrow : {m_pIncrease, m_pDecrease}) {
    if (arrow) evas_object_smart_callback_del_full(arrow, "clicked", m_ResponseCb, this);
  }
  if (m_pFocus) {
    evas_object_event_callback_del_full(m_pFocus, EVAS_CALLBACK_KEY_DOWN, m_SubitemKeyPressed, this);
    evas_object_event_callback_del_full(m_pFocus, EVAS_CALLBACK_FOCUS_IN, m_FocusedCb, this);
    evas_object_event_callback_del_full(m_pFocus, EVAS_CALLBACK_FOCUS_OUT, m_UnfocusedCb, this);
  }
  if (t_pMainBase) evas_object_smart_callback_del_full(t_pMainBase, "block,clicked", t_BlockClicked, this);
  m_pSpinner = m_pFocus = m_pIncrease = m_pDecrease = nullptr;
  CView::t_Destroy();
}

// --- the text ------------------------------------------------------------------------------------

void CViewControlSpinner::m_ShowText(const std::string& text) {
  m_pDisplayValue = text;
  if (!m_pSpinner) return;
  const char* shown = Showable(text.c_str());
  elm_spinner_special_value_add(m_pSpinner, 0, shown);
  elm_spinner_value_set(m_pSpinner, 0);
  // A spinner with arrows writes its value on a button of its own, which one that was made without them lacks.
  const std::string markup = Utils::WrapMallocdString(elm_entry_utf8_to_markup(shown));
  elm_layout_text_set(m_pSpinner, theme::kLabelText, markup.c_str());
}

void CViewControlSpinner::m_UpdateDispText() {
  std::string text = m_pDisplayValue;
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

void CViewControlSpinner::m_ResponseCb(void* data, Evas_Object* object, void*) {
  auto* pThis = static_cast<CViewControlSpinner*>(data);
  if (!pThis) {
    LOG_ERROR("Assertion failed");
    return;
  }
  const bool up = object == pThis->m_pIncrease;
  if (pThis->m_firstInput) {
    if (up) {
      LOG_DEBUG("set key by key up ");
    } else {
      LOG_DEBUG("set key by key down ");
    }
    pThis->m_StepSetting(up);
    pThis->m_UpdateDispText();
  }
  pThis->m_firstInput = true;
  if (!up) LOG_DEBUG("first_input is true");
}

void CViewControlSpinner::m_SubitemKeyPressed(void* data, Evas*, Evas_Object*, void* info) {
  auto* pThis = static_cast<CViewControlSpinner*>(data);
  auto* event = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !event || !event->keyname) return;
  LOG_DEBUG("_subitem_key_pressed called.");
  feedback_play(kFeedbackKey);
  const std::string key = event->keyname;
  // Arrows step the value: they must not carry the focus to what lies below.
  if (!CKeyManager::IsBack(key)) {
    event->event_flags = static_cast<Evas_Event_Flags>(event->event_flags | EVAS_EVENT_FLAG_ON_HOLD);
  }
  pThis->m_HandleKey(key);
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
  if (up) {
    LOG_DEBUG("set key by key up ");
  } else {
    LOG_DEBUG("set key by key down ");
  }
  elm_object_signal_emit(up ? m_pIncrease : m_pDecrease, theme::kPressed, theme::kSource);
  if (t_MenuID == kFrequency) {
    ChannelUtil::SetCacheFrequency(direction, nullptr, PROFILE_MAIN);
  } else if (t_MenuID == kBandwidth) {
    ChannelUtil::SetCacheBandWidth(direction, nullptr, PROFILE_MAIN);
  } else {
    m_StepSetting(up);
  }
  m_UpdateDispText();
  LOG_DEBUG("Value : %s", m_pDisplayValue.c_str());
  if (!Utils::FlagVoiceGuideSetting()) return;
  CVoiceGuide::GetInstance()->StartVoiceGuide(m_pDisplayValue.c_str(), kVoiceDelaySeconds, false);
}

void CViewControlSpinner::m_TypeDigit(int digit) {
  std::string number;
  if (!m_firstInput) {
    LOG_DEBUG("Num Key is pressed over than 2");
    LOG_DEBUG("pDisplayValue : %s", m_pDisplayValue.c_str());
    if (m_pDisplayValue.empty()) {
      LOG_DEBUG("display value is NULL!!!");
      return;
    }
    number = std::to_string(NumberAtStart(m_pDisplayValue.c_str()));
    if (number.size() >= kMostDigits) return;
  }
  for (const Unit& entry : kUnits) {
    if (entry.menuID == t_MenuID) m_ShowText(number + std::to_string(digit) + " " + entry.unit);
  }
  LOG_DEBUG("buff : %s", m_pDisplayValue.c_str());
  m_firstInput = false;
}

bool CViewControlSpinner::m_CheckItemMinMax() const {
  const MinMax limits = t_GetMinMaxValue(t_MenuID);
  const int entered = NumberAtStart(m_pDisplayValue.c_str());
  return !limits.valid || (entered >= limits.minimum && entered <= limits.maximum);
}

void CViewControlSpinner::m_StoreSetting() {
  if (!m_CheckItemMinMax()) {
    m_ShowText(m_original);
    LOG_DEBUG("Set Original Value");
  }
  SettingsAPI::Get()->SetItemValue(t_MenuID, m_pDisplayValue, false);
}

void CViewControlSpinner::m_Enter() {
  const char* text = m_pDisplayValue.c_str();
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
  LOG_DEBUG("m_pDisplayValue : %s", m_pDisplayValue.c_str());
  m_firstInput = true;
  PostPop();
}

void CViewControlSpinner::t_BlockClicked(void*, Evas_Object*, void*) {
  LOG_DEBUG("enter _block_clicked");
  PostPop();
}
