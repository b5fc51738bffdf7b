#include "ViewFineTuneWindow.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "EventManager.h"
#include "FineTuneUtil.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "settings_api.h"
#include "string_util.h"
#include "toolkit_ext.h"
#include "vconf.h"

namespace {

constexpr double kWidth = 918, kHeight = 251.9964;
constexpr double kLowest = -32.0, kHighest = 32.0, kStep = 0.015625;
constexpr double kHair = 0.00001;
constexpr double kPopupSeconds = 5.0;
constexpr double kVoiceDelaySeconds = 0.2;
constexpr int kPopupWrap = 2, kPopupTextWidth = 1122, kPopupFontSize = 48;
/// Before the toolkit's own handling of the key.
constexpr Evas_Callback_Priority kKeyPriority = -100;

constexpr const char* kButtonTexts[] = {"SID_RESET", "SID_SAVE", "SID_CLOSE"};

std::string T(const char* id) { return Utils::GetTranslationStr(id); }

bool IsReversed() { return ua_UI_orientation_get() == 1; }

/// "label: value", each kept together in a right-to-left layout.
std::string Line(const std::string& label, const std::string& value) {
  return IsReversed() ? "&#x200f;" + label + "&#x200f;: " + value : label + ": " + value;
}

/// After a word that runs from right to left, 11-1 would read 1-11.
std::string WithNumberInOrder(std::string name) {
  const size_t blank = name.rfind(' ');
  if (IsReversed()) name.insert(blank == std::string::npos ? 0 : blank + 1, "&#x200e;");
  return name;
}

std::string StatusNumber(int offset) {
  const std::string number = std::to_string(offset);
  if (!IsReversed()) return offset > 0 ? " +" + number : " " + number;
  if (offset > 0) return " " + number + "+";
  return offset < 0 ? " " + std::to_string(-offset) + "-" : " " + number;
}

std::string LeftToRightMark() {
  char* mark = evas_textblock_text_markup_to_utf8(nullptr, "&#x200e;");
  return Utils::WrapMallocdString(mark);
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewFineTuneWindow::t_GetBaseStyle() { return theme::kBottom; }

std::string CViewFineTuneWindow::t_GetWindowTitleText() {
  std::string name;
  SettingsAPI::Get()->GetItemDisplayName(t_MenuID, name);
  return name;
}

void CViewFineTuneWindow::t_InitWindowProperty() { t_DefaultButtonNum = 3; }

void CViewFineTuneWindow::t_SetButtonSettingInfo() {
  for (int i = 0; i < t_DefaultButtonNum; ++i) {
    t_ButtonSettings[i] = {T(kButtonTexts[i]), "", theme::kButton, theme::kButtonParts[i]};
  }
}

void CViewFineTuneWindow::t_Create() {
  CViewWindowBase::t_Create();
  LOG_DEBUG("CViewFineTuneWindow t_Create");
  m_ReadOrientation();
  m_bWrap = false;
  if (!t_pMainBase) return;
  m_pLayout = elm_layout_add(t_pMainBase);
  if (!m_pLayout || !elm_layout_file_set(m_pLayout, Utils::GetEDJFile().c_str(), theme::kFineTune)) {
    LOG_ERROR("Assertion failed");
    if (m_pLayout) evas_object_del(m_pLayout);
    m_pLayout = nullptr;
    return;
  }
  t_SetContent(m_pLayout, kWidth, kHeight);
  t_CreateSlider();
  m_SetFocusDirections();

  LOG_DEBUG("get_current_channel_name");
  char* name = t_GetCurrentChannelName();
  CopyText(m_channelName, sizeof m_channelName, name ? name : "");
  free(name);
  t_nFineTunered = FineTuneUtil::CheckIfInitialFinetuned();
  LOG_DEBUG("t_nFineTunered is: %d", t_nFineTunered);
  t_UpdateChannelCurrentTuneValue(t_nFineTunered);
  elm_object_part_text_set(t_pMainBase, theme::kPopupTitle, T("SID_FINE_TUNE").c_str());
}

void CViewFineTuneWindow::m_ReadOrientation() {
  const std::string language = Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language"));
  if (!language.empty()) elm_language_set(language.c_str());
  elm_config_mirrored_set(ua_UI_orientation_get() != 0);
}

void CViewFineTuneWindow::t_SetContent(Evas_Object* layout, double width, double height) {
  evas_object_size_hint_weight_set(layout, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(layout, EVAS_HINT_FILL, EVAS_HINT_FILL);
  Evas_Object* table = Utils::WidgetMinSet(layout, t_pMainBase, static_cast<int>(width), static_cast<int>(height), 1);
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
}

void CViewFineTuneWindow::t_CreateSlider() {
  m_pSlider = elm_slider_add(m_pLayout);
  if (!m_pSlider) return;
  elm_slider_horizontal_set(m_pSlider, EINA_TRUE);
  elm_object_style_set(m_pSlider, theme::kSlider);
  elm_slider_min_max_set(m_pSlider, kLowest, kHighest);
  elm_slider_step_set(m_pSlider, kStep);
  elm_slider_value_set(m_pSlider, 0.0);
  elm_slider_indicator_format_set(m_pSlider, "0");
  elm_slider_indicator_visible_mode_set(m_pSlider, ELM_SLIDER_INDICATOR_VISIBLE_MODE_ON_FOCUS);
  // Numbers run from left to right in every language.
  elm_object_mirrored_automatic_set(m_pSlider, EINA_FALSE);
  elm_object_mirrored_set(m_pSlider, EINA_FALSE);
  evas_object_event_callback_priority_add(m_pSlider, EVAS_CALLBACK_KEY_DOWN, kKeyPriority, m_SliderKeyPressCB, this);
  evas_object_smart_callback_add(m_pSlider, "changed", m_SliderValueChanged, this);
  elm_object_part_content_set(m_pLayout, theme::kFineTuneSlider, m_pSlider);
}

void CViewFineTuneWindow::m_SetFocusDirections() {
  if (!m_pSlider) return;
  for (Evas_Object* button : t_pDefaultButtons) {
    if (button) elm_object_focus_next_object_set(button, m_pSlider, ELM_FOCUS_UP);
  }
}

void CViewFineTuneWindow::t_Show() {
  CViewWindowBase::t_Show();
  if (m_pLayout) evas_object_show(m_pLayout);
  if (m_pSlider) evas_object_show(m_pSlider);
  if (t_pDefaultButtons[2]) elm_object_focus_set(t_pDefaultButtons[2], EINA_TRUE);
}

/// A popup that outlived the window would be asked for the focus when the view below comes back.
void CViewFineTuneWindow::t_Hide() {
  m_ClosePopup();
  CViewWindowBase::t_Hide();
}

/// A popup that went by itself under another view would take along what that view gives the focus back to.
void CViewFineTuneWindow::t_Pause() {
  m_ClosePopup();
  CViewWindowBase::t_Pause();
}

void CViewFineTuneWindow::t_Destroy() {
  m_ClosePopup();
  if (m_pSlider) evas_object_del(m_pSlider);
  if (m_pLayout) evas_object_del(m_pLayout);
  m_pSlider = m_pLayout = nullptr;
  CViewWindowBase::t_Destroy();
}

void CViewFineTuneWindow::t_FirstEnter(std::string& text) {
  const char* channel = m_pLayout ? elm_object_part_text_get(m_pLayout, theme::kFineTuneChannel) : nullptr;
  text += T("SID_FINE_TUNE") + ", " + (channel ? channel : "") + ", " + T("SID_CLOSE") + ", " + T("TV_SID_BUTTON");
}

// --- what it shows -------------------------------------------------------------------------------

char* CViewFineTuneWindow::t_GetCurrentChannelName() {
  tvs_channel_info* info = FineTuneUtil::TvServiceChannelGetInfo();
  if (!info) {
    LOG_INFO(" tv service channel get info failed ");
    return nullptr;
  }
  std::string name = info->bandLabel ? std::string(info->bandLabel) + " " : "";
  name += std::to_string(info->major);
  if (info->minor >= 1) name += "-" + std::to_string(info->minor);
  LOG_INFO("channel name:%s", name.c_str());
  free(info);
  return strdup(name.c_str());
}

void CViewFineTuneWindow::t_UpdateChannelCurrentTuneValue(int tuned) {
  m_nStoredOffset = FineTuneUtil::GetFinetuneFreq();
  LOG_INFO("Get fine tune value:%d", m_nStoredOffset);
  m_nCurrentOffset = FineTuneUtil::GetTunerMft();
  LOG_INFO("Get fine tune value:%d", m_nCurrentOffset);
  if (!m_pSlider) return;
  elm_slider_value_set(m_pSlider, m_nCurrentOffset);
  t_UpdateSliderValue();
  t_nFineTunered = tuned;
  t_SetTextChannelName();
  t_SetTextResultValue(m_nCurrentOffset);
}

void CViewFineTuneWindow::t_UpdateSliderValue() {
  double value = elm_slider_value_get(m_pSlider), lowest = 0.0, highest = 0.0;
  elm_slider_min_max_get(m_pSlider, &lowest, &highest);
  if (m_bWrap) {
    // The slider has stepped once more from the end that it jumped to.
    if (Utils::CompareDouble(value, lowest + 1)) value = lowest;
    if (Utils::CompareDouble(value, highest - 1)) value = highest;
    elm_slider_value_set(m_pSlider, value);
    m_bWrap = false;
  }
  // Steps of the slider add up to a hair less than a whole number.
  m_nCurrentOffset = static_cast<int>(value + (value < 0 ? -kHair : kHair));
  t_nFineTunered = 0;
  t_SetTextSliderLabel(m_nCurrentOffset);
  t_SetTextChannelName();
  t_SetTextResultValue(m_nCurrentOffset);
}

void CViewFineTuneWindow::t_SetTextSliderLabel(int offset) {
  const std::string label = (offset < 0 ? "" : "+") + LeftToRightMark() + std::to_string(offset);
  elm_slider_indicator_format_set(m_pSlider, label.c_str());
}

void CViewFineTuneWindow::t_SetTextChannelName() {
  char name[sizeof m_channelName] = {};
  if (t_nFineTunered) LOG_DEBUG("Fine tuned,show flag.");
  const int length = snprintf(name, sizeof name, t_nFineTunered ? "%s*" : "%s", m_channelName);
  if (length >= static_cast<int>(sizeof name)) LOG_ERROR("ERROR, channelNameAstr was truncated!");
  const std::string line = Line(T("SID_CHANNEL_KR_GENERAL"), WithNumberInOrder(name));
  elm_object_part_text_set(m_pLayout, theme::kFineTuneChannel, line.c_str());
  LOG_INFO("channelname is [ %s ] ", line.c_str());
}

void CViewFineTuneWindow::t_SetTextResultValue(int offset) {
  if (!t_nFineTunered) {
    LOG_DEBUG("Fine tuned,hide flag.");
    elm_object_signal_emit(m_pLayout, theme::kHideStatus, "");
    return;
  }
  LOG_DEBUG("Fine tuned,show flag.");
  elm_object_signal_emit(m_pLayout, theme::kShowStatus, "");
  const char* part = IsReversed() ? theme::kFineTuneStatusReversed : theme::kFineTuneStatus;
  elm_object_part_text_set(m_pLayout, part, Line(T("SID_FINE_TUNE"), StatusNumber(offset)).c_str());
}

// --- the slider ----------------------------------------------------------------------------------

void CViewFineTuneWindow::m_SliderKeyPressCB(void* data, Evas*, Evas_Object* object, void* info) {
  auto* pThis = static_cast<CViewFineTuneWindow*>(data);
  auto* event = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !object || !event) {
    LOG_ERROR("Assertion failed");
    return;
  }
  const std::string_view key = event->keyname;
  double lowest = 0.0, highest = 0.0;
  const double value = elm_slider_value_get(object);
  elm_slider_min_max_get(object, &lowest, &highest);
  LOG_INFO("keyname is [ %s ] ", event->keyname);
  LOG_DEBUG(" value = %f, min = %f, max = %f ", value, lowest, highest);
  if (key == "Down" && pThis->t_pDefaultButtons[1]) {
    // The toolkit would take the button that had the focus last.
    event->event_flags = static_cast<Evas_Event_Flags>(event->event_flags | EVAS_EVENT_FLAG_ON_HOLD);
    elm_object_focus_set(pThis->t_pDefaultButtons[1], EINA_TRUE);
    return;
  }
  const bool toTop = key == "Left" && Utils::CompareDouble(value, lowest);
  const bool toBottom = key == "Right" && Utils::CompareDouble(value, highest);
  if (!toTop && !toBottom) return;
  pThis->m_bWrap = true;
  elm_slider_value_set(object, toTop ? highest : lowest);
}

void CViewFineTuneWindow::m_SliderValueChanged(void* data, Evas_Object* object, void*) {
  auto* pThis = static_cast<CViewFineTuneWindow*>(data);
  if (!pThis || !object) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->t_UpdateSliderValue();
  FineTuneUtil::PresetTunerMft(pThis->m_nCurrentOffset);
}

// --- the buttons ---------------------------------------------------------------------------------

void CViewFineTuneWindow::t_ProcessDefaultButtonOneClickCallBack() {
  t_nFineTunered = 0;
  FineTuneUtil::ResetTurnerMft();
  FineTuneUtil::ResetFinetuneType();
  FineTuneUtil::SetFinetuneFreq(0);
  LOG_INFO("reset btn clicked");
  t_UpdateChannelCurrentTuneValue(0);
  elm_object_signal_emit(t_pMainBase, theme::kDim50, "");
  t_DrawResetPopup();
}

void CViewFineTuneWindow::t_ProcessDefaultButtonTwoClickCallBack() {
  const int offset = m_nCurrentOffset;
  FineTuneUtil::SetTunerMft();
  FineTuneUtil::SetFineTuneType();
  FineTuneUtil::SetFinetuneFreq(offset);
  t_nFineTunered = 1;
  t_UpdateChannelCurrentTuneValue(1);
  FineTuneUtil::PresetTunerMft(m_nCurrentOffset);
}

void CViewFineTuneWindow::t_ProcessDefaultButtonThreeClickCallBack() {
  LOG_DEBUG("APP_EVENT_POP_VIEW");
  CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 0, 0, nullptr, nullptr);
}

// --- the word after a reset ----------------------------------------------------------------------

void CViewFineTuneWindow::t_DrawResetPopup() {
  m_ClosePopup();
  m_pPopup = CRootWindow::CreateBase(BASE_TYPE_POPUP, t_GetBaseStyle().c_str(), Utils::GetEDJFile().c_str());
  if (!m_pPopup || !m_CreatePopupButton()) {
    LOG_ERROR("Assertion failed");
    m_ClosePopup();
    return;
  }
  Utils::DisableBgRect(m_pPopup);
  const std::string message = m_PopupMessage();
  if (!message.empty()) {
    m_pPopupText = std::make_unique<WidgetTextBlock>();
    m_pPopupText->Create(m_pPopup, message.c_str(), kPopupWrap, kPopupTextWidth, kPopupFontSize);
    m_pPopupText->SetContent(m_pPopup, nullptr);
  }
  elm_object_part_text_set(m_pPopup, theme::kTitle, T("SID_RESET").c_str());
  m_pTimer = ecore_timer_add(kPopupSeconds, m_HideAndDeleteMsgbox, this);
  evas_object_show(m_pPopup);
  elm_object_focus_set(m_pOkButton, EINA_TRUE);
  m_SpeakPopup(message);
}

bool CViewFineTuneWindow::m_CreatePopupButton() {
  m_pOkButton = elm_button_add(m_pPopup);
  if (!m_pOkButton) return false;
  elm_object_style_set(m_pOkButton, theme::kButton);
  elm_object_text_set(m_pOkButton, T("SID_OK").c_str());
  elm_object_part_content_set(m_pPopup, theme::kButtonParts[0], m_pOkButton);
  evas_object_smart_callback_add(m_pOkButton, "clicked", m_PopupOkBtnClicked, this);
  evas_object_event_callback_add(m_pOkButton, EVAS_CALLBACK_KEY_DOWN, m_OkBtnKeyPressed, this);
  evas_object_show(m_pOkButton);
  return true;
}

std::string CViewFineTuneWindow::m_PopupMessage() const {
  if (!*m_channelName) return {};
  char message[sizeof m_channelName] = {};
  CStringUtil::CombinateStrings(message, sizeof message, T("SID_MIX_RESET_CHANNEL_NAME").c_str(), m_channelName);
  return message;
}

void CViewFineTuneWindow::m_SpeakPopup(const std::string& message) {
  if (!Utils::FlagVoiceGuideSetting()) return;
  const std::string text = T("SID_RESET") + " , " + message + " ," + T("SID_OK") + " ," + T("TV_SID_BUTTON");
  CVoiceGuide::GetInstance()->StartVoiceGuide(text.c_str(), kVoiceDelaySeconds, false);
}

void CViewFineTuneWindow::m_ClosePopup() {
  if (m_pTimer) ecore_timer_del(m_pTimer);
  m_pTimer = nullptr;
  if (m_pPopupText) m_pPopupText->Destroy();
  m_pPopupText.reset();
  if (!m_pPopup) return;
  elm_object_part_text_set(m_pPopup, theme::kTitle, nullptr);
  elm_object_tree_focus_allow_set(m_pPopup, EINA_FALSE);
  evas_object_del(m_pPopup);
  m_pPopup = m_pOkButton = nullptr;
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kUndim, "");
}

void CViewFineTuneWindow::m_PopupOkBtnClicked(void* data, Evas_Object*, void*) {
  auto* pThis = static_cast<CViewFineTuneWindow*>(data);
  if (!pThis) {
    LOG_ERROR("Assertion failed");
    return;
  }
  pThis->m_ClosePopup();
  LOG_INFO(" popup ok button clicked");
}

void CViewFineTuneWindow::m_OkBtnKeyPressed(void* data, Evas*, Evas_Object*, void* info) {
  auto* pThis = static_cast<CViewFineTuneWindow*>(data);
  const auto* event = static_cast<Evas_Event_Key_Down*>(info);
  if (!pThis || !event) {
    LOG_ERROR("Assertion failed");
    return;
  }
  if (!CKeyManager::IsBack(event->keyname)) return;
  pThis->m_closedAt = event->timestamp;
  pThis->m_ClosePopup();
  LOG_INFO(" popup ok button pressed");
}

/// The window hears of a key before or after the popup's button does.
bool CViewFineTuneWindow::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  if (!key || !CKeyManager::IsBack(key->keyname)) return false;
  return m_pPopup || (m_closedAt != 0 && key->timestamp == m_closedAt);
}

Eina_Bool CViewFineTuneWindow::m_HideAndDeleteMsgbox(void* data) {
  LOG_DEBUG("_hide_and_delete_msgbox");
  auto* pThis = static_cast<CViewFineTuneWindow*>(data);
  pThis->m_pTimer = nullptr;
  pThis->m_ClosePopup();
  return ECORE_CALLBACK_CANCEL;
}
