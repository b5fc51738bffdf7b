#include "ViewSignalInfoWindow.h"

#include <Ecore_Input.h>

#include <future>
#include <string_view>
#include <utility>

#include "ChannelUtil.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "VoiceGuide.h"
#include "settings_api.h"
#include "st_operation.h"

int CViewSignalInfoWindow::m_lastSignalStrength = 0;
int CViewSignalInfoWindow::m_lastSignalQuality = 0;
int CViewSignalInfoWindow::m_lastBER = 0;
bool CViewSignalInfoWindow::m_isFullReloadNeeded = true;
bool CViewSignalInfoWindow::m_strengthInWords = false;

namespace {

constexpr double kRefreshSeconds = 2.0;
constexpr const char* kNumberPadKey = "XF86More";
constexpr const char* kChannelKeys[] = {"XF86LowerChannel", "XF86RaiseChannel"};
constexpr std::string_view kFrequency = "signal-information-frequence";
constexpr std::string_view kBandwidth = "signal-information-bandwidth";
constexpr std::string_view kAntenna = "antenna";
constexpr std::string_view kMeasures[] = {"signal-information-strength", "signal-information-quality",
                                          "signal-information-biterrlevel"};
/// One at least lets what was said with the key be heard.
constexpr int kRoundsToTell = 2;
constexpr const char* kUnknown = "----";
/// Parts of a channel list that the channel keys leave for the whole of it.
constexpr int kWholeListModes[] = {1, 2, 4, 6, 7, 8, 10, 16};

bool IsMeasure(const std::string& menuID) {
  for (const std::string_view measure : kMeasures) {
    if (measure == menuID) return true;
  }
  return false;
}

ENavigationMode ModeOfChannelKeys() {
  const ENavigationMode mode = ChannelUtil::GetTVNavigationMode();
  for (const int whole : kWholeListModes) {
    if (mode == whole) return NAVIGATION_ALL;
  }
  LOG_DEBUG("NaviMode[%d", mode);
  return mode;
}

}  // namespace

CViewSignalInfoWindow::SignalInfoData::SignalInfoData(std::string menuID, std::string title, std::string value)
    : strMenuID(std::move(menuID)), strTitle(std::move(title)), strValue(std::move(value)) {
  LOG_ERROR("constructor");
}

CViewSignalInfoWindow::SignalInfoData::SignalInfoData(const SignalInfoData& other)
    : strMenuID(other.strMenuID), strTitle(other.strTitle), strValue(other.strValue) {
  LOG_ERROR("copy constructor");
}

CViewSignalInfoWindow::CViewSignalInfoWindow(const char* menuID) : CViewInformationWindow(menuID, "SignalInfoWindow ") {
  m_lastSignalStrength = m_lastSignalQuality = m_lastBER = 0;
  m_isFullReloadNeeded = true;
}

std::vector<CViewWindowBase::Button> CViewSignalInfoWindow::t_Buttons() {
  const auto close = [] {
    LOG_DEBUG("APP_EVENT_POP_VIEW");
    CloseView();
  };
  return {{"TV_SID_SIGNAL_HISTORY", [this] { t_OpenHistory(); }, "i_history"}, {"SID_CLOSE", close, "i_close_cancel"}};
}

// --- life cycle ----------------------------------------------------------------------------------

void CViewSignalInfoWindow::t_Create() {
  CViewWindowBase::t_Create();
  if (!t_pMainBase) return;
  const Eina_Bool grabbed =
      elm_win_keygrab_set(CRootWindow::GetWindow(), kNumberPadKey, 0, 0, 0, ELM_WIN_KEYGRAB_EXCLUSIVE);
  LOG_DEBUG("Grab = [%s]", grabbed ? "true" : "false");
  m_nSignalInfoType = CTvsUtil::SIGNAL_INFO_DVB_BASIC;
  m_nSignalInfoType = ChannelUtil::GetSignalInfoType();
  LOG_DEBUG("nType is [%d] ", m_nSignalInfoType);
  t_FetchDataAsync();
  t_CreateContent();
  t_SetContent();
}

void CViewSignalInfoWindow::t_Show() {
  if (vSIContentData.empty()) {
    // Without facts it does not stay. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    CViewWindowBase::t_Show();
    LOG_DEBUG("vSIData is empty");
    return;
  }
  CViewInformationWindow::t_Show();
  t_EndAtFirstButton();
  ST_OPERATION_CALL("SHOW_SIGNAL_INFO", 0);
}

void CViewSignalInfoWindow::t_Stay() {
  CViewInformationWindow::t_Stay();
  t_LoopRefresh();
}

void CViewSignalInfoWindow::t_Pause() {
  CViewInformationWindow::t_Pause();
  if (m_pActionList && elm_object_focus_get(m_pActionList)) {
    // A popup that closes cannot hand the focus back to a row of a list below it.
    m_bRowHadFocus = true;
    t_FocusButton(1);
  }
  m_refreshTimer.Stop();
}

void CViewSignalInfoWindow::t_Resume() {
  CViewInformationWindow::t_Resume();
  if (!m_pActionList) return;
  for (auto* row = elm_genlist_first_item_get(m_pActionList); row; row = elm_genlist_item_next_get(row)) {
    elm_genlist_item_selected_set(row, EINA_FALSE);
  }
  if (std::exchange(m_bRowHadFocus, false)) elm_object_focus_set(m_pActionList, EINA_TRUE);
  // What was set beside the row is seen at once, not with the next round of the timer.
  t_ChannelChangeRefresh();
  m_roundsToTell = kRoundsToTell;
  m_said.clear();
  m_SpeakNews(vSIActionData);
}

void CViewSignalInfoWindow::t_Hide() {
  LOG_DEBUG("Hide SignalInfoWindow");
  // Without a frequency nothing was read that could be put back.
  if (m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE && t_OriginalFrequency > 0 &&
      ChannelUtil::SetBandFreqForSignalInformation(t_OriginalBandwidth, t_OriginalFrequency) == 0) {
    LOG_DEBUG("SetBandFreqForSignalInformation successful t_OriginalBandwidth %d t_OriginalFrequency %d",
              t_OriginalBandwidth, t_OriginalFrequency);
  }
  CViewInformationWindow::t_Hide();
}

void CViewSignalInfoWindow::t_Destroy() {
  m_refreshTimer.Stop();
  for (Evas_Object* list : {m_pContentList, m_pActionList}) {
    if (list) elm_genlist_clear(list);
  }
  vSIActionData.clear();
  vSIContentData.clear();
  if (t_pMainBase) elm_win_keygrab_unset(CRootWindow::GetWindow(), kNumberPadKey, 0, 0);
  m_pContentLayout = m_pContentList = m_pActionList = m_pImageLayout = nullptr;
  CViewWindowBase::t_Destroy();
  for (Elm_Genlist_Item_Class** itemClass : {&m_pTextClass, &m_pBarClass, &m_pActionClass}) {
    if (*itemClass) elm_genlist_item_class_free(*itemClass);
    *itemClass = nullptr;
  }
}

// --- what the rows say ---------------------------------------------------------------------------

void CViewSignalInfoWindow::m_ReadValue(SignalInfoData& row) {
  std::string unused;
  if (!SettingsAPI::Get()->GetItemValue(row.strMenuID, row.strValue, unused)) {
    LOG_ERROR("No value of %s", row.strMenuID.c_str());
  }
}

CViewSignalInfoWindow::SignalInfoData CViewSignalInfoWindow::m_FetchDataAsync(const char* id, void*) {
  SignalInfoData row(id, "", "");
  if (!SettingsAPI::Get()->GetItemDisplayName(id, row.strTitle)) LOG_ERROR("No name of %s", id);
  m_ReadValue(row);
  return row;
}

void CViewSignalInfoWindow::t_FetchDataAsync() {
  std::vector<std::string> children;
  SettingsAPI::Get()->GetItemChildList(t_MenuID, children);
  std::vector<std::future<SignalInfoData>> rows;
  for (const std::string& child : children) {
    bool visible = false;
    if (!SettingsAPI::Get()->GetItemVisible(child, visible, -1) || !visible) continue;
    rows.push_back(std::async(std::launch::deferred, m_FetchDataAsync, child.c_str(), this));
  }
  vSIActionData.reserve(rows.size());
  vSIContentData.reserve(rows.size());
  for (std::future<SignalInfoData>& row : rows) m_KeepRow(row.get());
}

void CViewSignalInfoWindow::m_KeepRow(const SignalInfoData& row) {
  const bool setTune = m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE;
  const bool frequency = row.strMenuID == kFrequency, bandwidth = row.strMenuID == kBandwidth;
  if (!setTune || (!frequency && !bandwidth)) {
    LOG_DEBUG("vSIContentData : strMenuID is [%s] ,strTitle is [%s], strValue is [%s]", row.strMenuID.c_str(),
              row.strTitle.c_str(), row.strValue.c_str());
    vSIContentData.push_back(row);
    return;
  }
  LOG_DEBUG("vSIActionData : strMenuID is [%s] ,strTitle is [%s], strValue is [%s]", row.strMenuID.c_str(),
            row.strTitle.c_str(), row.strValue.c_str());
  vSIActionData.push_back(row);
  if (frequency) t_OriginalFrequency = NumberAtStart(row.strValue.c_str());
  if (bandwidth) {
    t_OriginalBandwidth = static_cast<EBandwidth>(ChannelUtil::GetBandWidthFromDispStr(row.strValue.c_str()));
  }
}

// --- refresh -------------------------------------------------------------------------------------

void CViewSignalInfoWindow::t_LoopRefresh() {
  m_refreshTimer.Start(kRefreshSeconds, [this] {
    m_UpdateChannelInformation();
    return true;
  });
}

void CViewSignalInfoWindow::m_UpdateChannelInformation() {
  const int strength = ChannelUtil::GetSignalStrength();
  const int quality = ChannelUtil::GetSignalQuality();
  const int ber = CTvsUtil::GetBitErrorRate();
  if (m_isFullReloadNeeded) {
    t_ChannelChangeRefresh();
  } else if (strength == m_lastSignalStrength && quality == m_lastSignalQuality && ber == m_lastBER) {
    LOG_DEBUG("Nothing has changed, no need to reload");
  } else {
    m_RefreshMeasures(strength, quality, ber);
  }
  m_TellTuned();
}

void CViewSignalInfoWindow::m_TellTuned() {
  if (m_roundsToTell > 1) {
    --m_roundsToTell;
  } else if (m_roundsToTell == 1 && !m_isFullReloadNeeded) {
    m_roundsToTell = 0;
    m_SpeakNews(vSIContentData);
  }
}

void CViewSignalInfoWindow::m_RefreshMeasures(int strength, int quality, int ber) {
  m_lastSignalStrength = strength;
  m_lastSignalQuality = quality;
  m_lastBER = ber;
  for (SignalInfoData& row : vSIContentData) {
    if (IsMeasure(row.strMenuID)) m_ReadValue(row);
  }
  t_HandleAdditionalSignalInfoCases();
}

void CViewSignalInfoWindow::t_ChannelChangeRefresh() {
  for (SignalInfoData& row : vSIContentData) {
    m_ReadValue(row);
    if (row.strMenuID == kAntenna) m_isFullReloadNeeded = row.strValue == kUnknown;
  }
  t_HandleAdditionalSignalInfoCases();
}

// --- keys ----------------------------------------------------------------------------------------

void CViewSignalInfoWindow::t_RegisterSpcialKey(bool take) {
  CViewInformationWindow::t_RegisterSpcialKey(take);
  for (const char* key : kChannelKeys) (take ? CKeyManager::RegisterKey : CKeyManager::UnRegisterKey)(key);
}

bool CViewSignalInfoWindow::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  if (!key || !key->keyname) return false;
  const std::string_view name = key->keyname;
  if (name != kChannelKeys[0] && name != kChannelKeys[1]) return false;
  const int direction = name == kChannelKeys[0] ? 0 : 1;
  if (ChannelUtil::TuneChannel(false, direction, ModeOfChannelKeys(), true)) {
    LOG_DEBUG(" TunePrevChannel Successful ");
    t_ChannelChangeRefresh();
    m_roundsToTell = kRoundsToTell;
    m_said.clear();
    m_SpeakNews(vSIContentData);
  }
  return true;
}

// --- voice guide ---------------------------------------------------------------------------------

void CViewSignalInfoWindow::m_SpeakNews(const std::vector<SignalInfoData>& rows) {
  std::string text;
  for (const SignalInfoData& row : rows) {
    const std::string words = row.strTitle + " " + row.strValue;
    if (row.strValue != kUnknown && m_said.insert(words).second) text = spoken::Joined({text, words});
  }
  if (!text.empty()) Speak(text);
}

void CViewSignalInfoWindow::t_FirstEnter(std::string& text) {
  CViewWindowBase::t_FirstEnter(text);
  const bool setTune = m_nSignalInfoType == CTvsUtil::SIGNAL_INFO_DVB_SET_TUNE;
  text = setTune ? m_SetTuneGetReadContent() : m_GetReadContent();
  LOG_DEBUG("m_sReadBuff = %s ", text.c_str());
}

std::string CViewSignalInfoWindow::m_GetReadContent() const {
  std::string text = t_WindowTitle + t_TextOf(m_pContentLayout, theme::kInformationText);
  for (const SignalInfoData& row : vSIContentData) text += row.strTitle + row.strValue + " ";
  return text + T("SID_CLOSE");
}

std::string CViewSignalInfoWindow::m_SetTuneGetReadContent() const {
  std::string text = t_WindowTitle;
  for (const SignalInfoData& row : vSIActionData) text += row.strTitle + row.strValue;
  text += t_TextOf(m_pContentLayout, theme::kInformationText);
  for (const SignalInfoData& row : vSIContentData) text += row.strTitle + row.strValue;
  return text + T("SID_CLOSE");
}
