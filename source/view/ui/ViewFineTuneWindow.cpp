#include "ViewFineTuneWindow.h"

#include <Ecore_Input.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "DataProvider.h"
#include "FineTuneUtil.h"
#include "KeyManager.h"
#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "toolkit_ext.h"
#include "vconf.h"

namespace {

constexpr int kWidth = 918, kHeight = 251;
constexpr double kLowest = -32.0, kHighest = 32.0, kStep = 0.015625;
constexpr double kHair = 0.00001;
constexpr double kPopupSeconds = 5.0;
/// Before the toolkit's own handling of the key.
constexpr Evas_Callback_Priority kKeyPriority = -100;

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

std::string Unmarked(const std::string& markup) {
  char* text = evas_textblock_text_markup_to_utf8(nullptr, markup.c_str());
  return Utils::WrapMallocdString(text);
}

std::string LeftToRightMark() { return Unmarked("&#x200e;"); }

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewFineTuneWindow::t_GetBaseStyle() { return theme::kBottom; }

std::string CViewFineTuneWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

std::vector<CViewWindowBase::Button> CViewFineTuneWindow::t_Buttons() {
  const auto close = [] {
    LOG_DEBUG("APP_EVENT_POP_VIEW");
    CloseView();
  };
  return {{"SID_RESET", [this] { m_Reset(); }}, {"SID_SAVE", [this] { m_Save(); }}, {"SID_CLOSE", close}};
}

void CViewFineTuneWindow::t_Create() {
  CViewWindowBase::t_Create();
  LOG_DEBUG("CViewFineTuneWindow t_Create");
  m_ReadOrientation();
  m_bWrap = false;
  m_pLayout = t_AddContent(theme::kFineTune, kWidth, kHeight);
  if (!m_pLayout) {
    LOG_ERROR("Assertion failed");
    return;
  }
  t_CreateSlider();
  m_ReadChannelName();
  t_nFineTunered = FineTuneUtil::CheckIfInitialFinetuned();
  LOG_DEBUG("t_nFineTunered is: %d", t_nFineTunered);
  t_UpdateChannelCurrentTuneValue(t_nFineTunered);
  elm_object_part_text_set(t_pMainBase, theme::kPopupTitle, T("SID_FINE_TUNE").c_str());
}

void CViewFineTuneWindow::m_ReadChannelName() {
  LOG_DEBUG("get_current_channel_name");
  char* name = t_GetCurrentChannelName();
  CopyText(m_channelName, sizeof m_channelName, name ? name : "");
  free(name);
}

void CViewFineTuneWindow::m_ReadOrientation() {
  const std::string language = Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language"));
  if (!language.empty()) elm_language_set(language.c_str());
  elm_config_mirrored_set(ua_UI_orientation_get() != 0);
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
  const auto pressed = [this](Evas_Object*, Evas_Event_Key_Down& event) { m_SliderKeyPressCB(event); };
  t_Connections.Key(m_pSlider, pressed, kKeyPriority);
  t_Connections.Smart(m_pSlider, "changed", [this](Evas_Object*, void*) { m_SliderValueChanged(); });
  elm_object_part_content_set(m_pLayout, theme::kFineTuneSlider, m_pSlider);
  spoken::SetName(m_pSlider, T("SID_FINE_TUNE"));
  for (Evas_Object* button : t_pDefaultButtons) {
    if (button) elm_object_focus_next_object_set(button, m_pSlider, ELM_FOCUS_UP);
  }
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
  CViewWindowBase::t_Destroy();
  m_pSlider = m_pLayout = nullptr;
}

void CViewFineTuneWindow::t_FirstEnter(std::string& text) {
  text += T("SID_FINE_TUNE") + ", " + t_TextOf(m_pLayout, theme::kFineTuneChannel) + ", " + spoken::Button("SID_CLOSE");
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
  spoken::SetState(m_pSlider, (offset < 0 ? "" : "+") + std::to_string(offset));
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

void CViewFineTuneWindow::m_SliderKeyPressCB(Evas_Event_Key_Down& event) {
  const std::string_view key = event.keyname;
  double lowest = 0.0, highest = 0.0;
  const double value = elm_slider_value_get(m_pSlider);
  elm_slider_min_max_get(m_pSlider, &lowest, &highest);
  LOG_INFO("keyname is [ %s ] ", event.keyname);
  LOG_DEBUG(" value = %f, min = %f, max = %f ", value, lowest, highest);
  if (key == "Down") {
    // The toolkit would take the button that had the focus last.
    HoldKey(event);
    return t_FocusButton(1);
  }
  const bool toTop = key == "Left" && Utils::CompareDouble(value, lowest);
  const bool toBottom = key == "Right" && Utils::CompareDouble(value, highest);
  if (!toTop && !toBottom) return;
  m_bWrap = true;
  elm_slider_value_set(m_pSlider, toTop ? highest : lowest);
}

void CViewFineTuneWindow::m_SliderValueChanged() {
  t_UpdateSliderValue();
  FineTuneUtil::PresetTunerMft(m_nCurrentOffset);
  Speak(spoken::StateOf(m_pSlider));
}

// --- the buttons ---------------------------------------------------------------------------------

void CViewFineTuneWindow::m_Reset() {
  t_nFineTunered = 0;
  FineTuneUtil::ResetTurnerMft();
  FineTuneUtil::ResetFinetuneType();
  FineTuneUtil::SetFinetuneFreq(0);
  LOG_INFO("reset btn clicked");
  t_UpdateChannelCurrentTuneValue(0);
  elm_object_signal_emit(t_pMainBase, theme::kDim50, "");
  t_DrawResetPopup();
}

void CViewFineTuneWindow::m_Save() {
  const int offset = m_nCurrentOffset;
  FineTuneUtil::SetTunerMft();
  FineTuneUtil::SetFineTuneType();
  FineTuneUtil::SetFinetuneFreq(offset);
  t_nFineTunered = 1;
  t_UpdateChannelCurrentTuneValue(1);
  FineTuneUtil::PresetTunerMft(m_nCurrentOffset);
  Speak(spoken::Joined({T("COM_SID_SAVED"), m_channelName, spoken::StateOf(m_pSlider)}));
}

// --- the word after a reset ----------------------------------------------------------------------

void CViewFineTuneWindow::t_DrawResetPopup() {
  const NoticeWords words = {T("SID_RESET"), m_PopupMessage(), "SID_OK"};
  const auto closed = [this](bool byBack) {
    m_ClosePopup();
    if (byBack) {
      LOG_INFO(" popup ok button pressed");
    } else {
      LOG_INFO(" popup ok button clicked");
    }
  };
  if (!m_popup.Show(t_GetBaseStyle().c_str(), words, closed)) return;
  m_popupTimer.Start(kPopupSeconds, [this] {
    LOG_DEBUG("_hide_and_delete_msgbox");
    m_ClosePopup();
    return false;
  });
  Speak(words.title + " , " + Unmarked(words.text) + " ," + T("SID_OK") + " ," + T("TV_SID_BUTTON"));
}

std::string CViewFineTuneWindow::m_PopupMessage() const {
  return *m_channelName ? Filled("SID_MIX_RESET_CHANNEL_NAME", WithNumberInOrder(m_channelName)) : "";
}

void CViewFineTuneWindow::m_ClosePopup() {
  m_popupTimer.Stop();
  m_popup.Close();
  if (t_pMainBase) elm_object_signal_emit(t_pMainBase, theme::kUndim, "");
}

/// The popup's button has heard of the key before the window does.
bool CViewFineTuneWindow::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  return key && CKeyManager::IsBack(key->keyname) && (m_popup.TakeBack() || m_popup.IsShown());
}
