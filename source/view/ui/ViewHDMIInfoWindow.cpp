#include "ViewHDMIInfoWindow.h"

#include <cstdio>

#include "ChannelUtil.h"
#include "EventManager.h"
#include "FitRow.h"
#include "HdmiPorts.h"
#include "InformationContent.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "app_framework.h"
#include "source_api.h"
#include "system_info.h"
#include "tvs_api.h"

namespace {

constexpr int kPadHeight = 116;
/// Where the ports that can be set aside for HDBaseT begin.
constexpr int kSourceBeforePorts = 12;
constexpr int kOnlyName = -2;
constexpr int kFormatUnknown = 2;
constexpr const char* kMoreKey = "XF86More";
constexpr const char* kTroubleShooting = "com.vantrel.tv.wirelore";

constexpr const char* kRegularButtons[] = {"TV_SID_DIAGNOSIS_HDMI_CABLE_TEST", "TV_SID_SIGNAL_HISTORY", "SID_CLOSE"};

/// Video formats whose rate follows the source: from `first` up to but not including `end`.
struct FormatRange {
  int first, end;
};
constexpr FormatRange kVariableRate[] = {{0x70000, 0x7000a}, {0xa0000, 0xa0002}};

std::string T(const char* id) { return Utils::GetTranslationStr(id); }

bool IsVariableRate(int format) {
  for (const FormatRange& range : kVariableRate) {
    if (format >= range.first && format < range.end) return true;
  }
  return false;
}

std::string ResolutionText(const TSResolution& resolution, int format) {
  char text[64];
  if (IsVariableRate(format)) {
    snprintf(text, sizeof text, "%dx%d Freesync", resolution.horizontal, resolution.vertical);
    return text;
  }
  const auto hertz = static_cast<unsigned>((resolution.frameRate + 50) / 100);
  snprintf(text, sizeof text, resolution.progressive ? "%dx%d / %up" : "%dx%d / %ui", resolution.horizontal,
           resolution.vertical, hertz);
  return text;
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

int CViewHDMIInfoWindow::t_GetBaseType() { return BASE_TYPE_POPUP; }

std::string CViewHDMIInfoWindow::t_GetBaseStyle() { return theme::kRightLarge; }

std::string CViewHDMIInfoWindow::t_GetWindowTitleText() { return T("SID_SIGNAL_INFORMATION_KR_17"); }

void CViewHDMIInfoWindow::t_InitWindowProperty() {
  m_GetCurrentSource();
  if (m_IsHDBTOn(m_eCurrentSource)) {
    LOG_ERROR("It's HDBT case, only one button showed");
    t_DefaultButtonNum = 1;
  } else {
    LOG_ERROR("It's regular HDMI case");
    t_DefaultButtonNum = static_cast<int>(std::size(kRegularButtons));
  }
}

void CViewHDMIInfoWindow::t_SetButtonSettingInfo() {
  LOG_INFO("Current source : %d", m_eCurrentSource);
  const size_t skipped = m_IsRegular() ? 0 : std::size(kRegularButtons) - 1;
  for (size_t i = 0; i + skipped < std::size(kRegularButtons); ++i) {
    t_ButtonSettings[i] = {T(kRegularButtons[i + skipped]), "", theme::kButton, theme::kButtonParts[i]};
  }
}

void CViewHDMIInfoWindow::t_Create() {
  CViewWindowBase::t_Create();
  if (!t_pMainBase) return;
  t_CreateContent();
  t_SetContent();
}

void CViewHDMIInfoWindow::t_CreateContent() {
  const std::string text = T("TV_SID_DIAGNOSIS_CHECK_SIGNAL_CURRENT_EXTERNAL_DEV");
  m_pContentLayout = AddInformation(t_pMainBase, text);
  if (!m_pContentLayout) return;
  LOG_DEBUG(" text is [%s] ", text.c_str());
  AddInformationPad(m_pContentLayout, theme::kInformationImagePad, kPadHeight);
}

void CViewHDMIInfoWindow::t_SetContent() {
  if (!m_pContentLayout) return;
  m_pList = AddFactList(m_pContentLayout);
  m_pItemClass = NewRowClass(NeedsAdjustFontSize() ? theme::kFactAbbreviated : theme::kFact,
                             Utils::FlagReverseMode() ? m_ItemGetTextReverse : m_ItemGetText, nullptr);
  if (!m_pItemClass || !m_pList) return;
  elm_genlist_select_mode_set(m_pList, ELM_OBJECT_SELECT_MODE_NONE);
  elm_genlist_homogeneous_set(m_pList, EINA_TRUE);
  elm_genlist_mode_set(m_pList, ELM_LIST_COMPRESS);
  elm_scroller_content_min_limit(m_pList, EINA_FALSE, EINA_TRUE);
  t_AddContentItems();
}

void CViewHDMIInfoWindow::t_AddContentItems() {
  const std::string device = m_GetCurrentHDMIDeviceName(), port = m_GetCurrentHDMIPort();
  const std::string inBrackets = " (" + port + ")";
  m_source = {T("COM_SID_SOURCE_KR_EXT"), device.empty() ? port : device + inBrackets, port};
  if (!device.empty()) {
    const char* part = Utils::FlagReverseMode() ? theme::kRowValueTextReversed : theme::kRowValueText;
    m_source.shown = FitIntoRow(m_pList, m_pItemClass->item_style, part, kInformationWidth, device, inBrackets);
  }
  m_resolution = {T("COM_SID_RESOLUTION_ABBR_10"), m_GetCurrentHDMIResolution(), {}};
  m_resolution.shown = m_resolution.value;
  for (Fact* fact : {&m_source, &m_resolution}) {
    elm_genlist_item_append(m_pList, m_pItemClass, fact, nullptr, ELM_GENLIST_ITEM_NONE, nullptr, nullptr);
  }
  elm_object_part_content_set(m_pContentLayout, theme::kInformationItems, m_pList);
}

char* CViewHDMIInfoWindow::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* fact = static_cast<const Fact*>(data);
  return FactText(part, fact->title, fact->shown, false);
}

char* CViewHDMIInfoWindow::m_ItemGetTextReverse(void* data, Evas_Object*, const char* part) {
  const auto* fact = static_cast<const Fact*>(data);
  return FactText(part, fact->title, fact->shown, true);
}

void CViewHDMIInfoWindow::t_Show() {
  LOG_DEBUG("t_Show");
  CViewWindowBase::t_Show();
  CKeyManager::UnSetTimeOut();
  t_RegisterSpcialKey(true);
  LOG_ERROR("Number of buttons: %d", t_DefaultButtonNum);
  Evas_Object* close = t_pDefaultButtons[static_cast<size_t>(t_DefaultButtonNum) - 1];
  if (close) elm_object_focus_set(close, EINA_TRUE);
}

void CViewHDMIInfoWindow::t_Hide() {
  LOG_DEBUG("t_Hide");
  t_RegisterSpcialKey(false);
  CViewWindowBase::t_Hide();
}

void CViewHDMIInfoWindow::t_Pause() {
  CViewWindowBase::t_Pause();
  if (!m_history.Comes()) return;
  LOG_DEBUG("need Hide HDMIInfoWindow");
  t_Hide();
}

void CViewHDMIInfoWindow::t_Resume() {
  CViewWindowBase::t_Resume();
  if (m_history.Went()) {
    CViewWindowBase::t_Show();
    if (t_pDefaultButtons[1]) elm_object_focus_set(t_pDefaultButtons[1], EINA_TRUE);
  }
  CKeyManager::UnSetTimeOut();
  t_RegisterSpcialKey(true);
}

void CViewHDMIInfoWindow::t_Destroy() {
  CViewWindowBase::t_Destroy();
  m_pContentLayout = m_pList = nullptr;
  if (m_pItemClass) elm_genlist_item_class_free(m_pItemClass);
  m_pItemClass = nullptr;
}

void CViewHDMIInfoWindow::t_RegisterSpcialKey(bool take) {
  if (take) {
    CKeyManager::RegisterNumberKey();
    CKeyManager::RegisterKey(kMoreKey);
  } else {
    CKeyManager::UnRegisterNumberKey();
    CKeyManager::UnRegisterKey(kMoreKey);
  }
}

void CViewHDMIInfoWindow::t_FirstEnter(std::string& text) { text += m_GetReadContent(); }

std::string CViewHDMIInfoWindow::m_GetReadContent() {
  const char* content =
      m_pContentLayout ? elm_object_part_text_get(m_pContentLayout, theme::kInformationText) : nullptr;
  m_sReadBuff = t_WindowTitle + (content ? content : "") + m_source.title + m_source.value + " " + m_resolution.title +
                m_resolution.value + " " + T("SID_CLOSE");
  LOG_DEBUG("m_sReadBuff = %s", m_sReadBuff.c_str());
  return m_sReadBuff;
}

// --- the buttons ---------------------------------------------------------------------------------

void CViewHDMIInfoWindow::t_ProcessDefaultButtonOneClickCallBack() {
  LOG_INFO("t_ProcessDefaultButtonOneClickCallBack called");
  if (m_IsRegular()) {
    m_LaunchHDMITroubleShooting();
  } else {
    CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 0, 0, nullptr, nullptr);
  }
}

void CViewHDMIInfoWindow::t_ProcessDefaultButtonTwoClickCallBack() {
  LOG_INFO("t_ProcessDefaultButtonTwoClickCallBack called");
  m_history.Request();
}

void CViewHDMIInfoWindow::t_ProcessDefaultButtonThreeClickCallBack() {
  LOG_INFO("t_ProcessDefaultButtonThreeClickCallBack called");
  CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, 0, 0, nullptr, nullptr);
}

void CViewHDMIInfoWindow::m_LaunchHDMITroubleShooting() {
  LOG_INFO("m_LaunchHDMITroubleShooting called");
  app_control_h handle = nullptr;
  if (const int result = app_control_create(&handle); result != 0) {
    LOG_ERROR("Failed to send request : %d", result);
    return;
  }
  app_control_set_operation(handle, APP_CONTROL_OPERATION_DEFAULT);
  app_control_set_app_id(handle, kTroubleShooting);
  app_control_add_extra_data(handle, "type", "VIDEO_TROUBLE_SHOOTING_SETUP");
  if (const int result = app_control_send_launch_request(handle, nullptr, nullptr); result != 0) {
    LOG_ERROR("Failed to send request : %d", result);
  }
  app_control_destroy(handle);
}

// --- what the TV knows of the input --------------------------------------------------------------

void CViewHDMIInfoWindow::m_GetCurrentSource() {
  m_eCurrentSource = static_cast<ESource>(ChannelUtil::GetCurrentSourceInfo());
}

bool CViewHDMIInfoWindow::m_IsHDBTOn(ESource source) {
  bool supported = false;
  if (system_info_get_custom_bool("com.vantrel/featureconf/hdbt_source_support", &supported) != 0) {
    LOG_ERROR("system info fails");
    return false;
  }
  if (!supported) return false;
  int port = 0;
  if (system_info_get_custom_int("com.vantrel/featureconf/hdmi_port_for_hdbt", &port) != 0) {
    LOG_ERROR("system info fails");
    return false;
  }
  return source == port + kSourceBeforePorts;
}

std::string CViewHDMIInfoWindow::m_GetCurrentHDMIPort() const {
  LOG_INFO("Current source : %d", m_eCurrentSource);
  if (m_IsHDBTOn(m_eCurrentSource)) {
    LOG_ERROR("Current source is HDBT");
    return T("COM_LFD_SID_NON_HDBT");
  }
  if (const HdmiPort* port = FindHdmiPort(m_eCurrentSource)) return T(port->label);
  LOG_ERROR("Current source isn't HDMI");
  return "Error";
}

std::string CViewHDMIInfoWindow::m_GetCurrentHDMIDeviceName() const {
  std::string name;
  CSourceAPI::Get()->GetSourceEditName(m_eCurrentSource, name, kOnlyName);
  LOG_INFO("GetSourceEditName : %s", name.c_str());
  return name;
}

std::string CViewHDMIInfoWindow::m_GetCurrentHDMIResolution() const {
  int format = kFormatUnknown;
  TSResolution resolution;
  CTVSApiWrapper api;
  IAVControl* control = api.CreateAVControl(PROFILE_MAIN, 0);
  if (!control || control->GetResolution(format, resolution) != 0 || !FindHdmiPort(m_eCurrentSource)) {
    LOG_ERROR("Current source isn't HDMI");
    return {};
  }
  LOG_INFO("horizontal : %d, vertical : %d, frequency : %d", resolution.horizontal, resolution.vertical,
           resolution.frameRate);
  if (resolution.horizontal == 0 || resolution.vertical == 0) return {};
  return ResolutionText(resolution, format);
}
