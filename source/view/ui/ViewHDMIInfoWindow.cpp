#include "ViewHDMIInfoWindow.h"

#include "ChannelUtil.h"
#include "Content.h"
#include "FitRow.h"
#include "HdmiPorts.h"
#include "InformationContent.h"
#include "Launch.h"
#include "Log.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "app_framework.h"

namespace {

constexpr int kPadHeight = 116;
constexpr const char* kTroubleShooting = "com.vantrel.tv.wirelore";

void LogClick(const char* button) { LOG_INFO("t_ProcessDefaultButton%sClickCallBack called", button); }

/// What a button does, behind its line in the log.
std::function<void()> Logged(const char* button, const std::function<void()>& action) {
  return [button, action] {
    LogClick(button);
    action();
  };
}

}  // namespace

std::vector<CViewWindowBase::Button> CViewHDMIInfoWindow::t_Buttons() {
  m_eCurrentSource = static_cast<ESource>(ChannelUtil::GetCurrentSourceInfo());
  LOG_INFO("Current source : %d", m_eCurrentSource);
  if (IsHdbt(m_eCurrentSource)) {
    LOG_ERROR("It's HDBT case, only one button showed");
    return {{"SID_CLOSE", Logged("One", CloseView)}};
  }
  LOG_ERROR("It's regular HDMI case");
  return {{"TV_SID_DIAGNOSIS_HDMI_CABLE_TEST", Logged("One", m_LaunchHDMITroubleShooting)},
          {"TV_SID_SIGNAL_HISTORY", Logged("Two", [this] { t_OpenHistory(); })},
          {"SID_CLOSE", Logged("Three", CloseView)}};
}

void CViewHDMIInfoWindow::m_LaunchHDMITroubleShooting() {
  LOG_INFO("m_LaunchHDMITroubleShooting called");
  constexpr const char* kFailed = "Failed to send request : %d";
  Launch(
      {kTroubleShooting, {{"type", "VIDEO_TROUBLE_SHOOTING_SETUP"}}, APP_CONTROL_OPERATION_DEFAULT, kFailed, kFailed});
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
  m_pList = AddFactList(m_pContentLayout);
  m_pItemClass = NewRowClass(NeedsAdjustFontSize() ? theme::kFactAbbreviated : theme::kFact,
                             Utils::FlagReverseMode() ? m_ItemGetTextReverse : m_ItemGetText, nullptr);
  if (!m_pItemClass || !m_pList) return;
  elm_genlist_homogeneous_set(m_pList, EINA_TRUE);
  elm_genlist_mode_set(m_pList, ELM_LIST_COMPRESS);
  elm_scroller_content_min_limit(m_pList, EINA_FALSE, EINA_TRUE);
  t_AddContentItems();
}

void CViewHDMIInfoWindow::t_AddContentItems() {
  const std::string device = HdmiDeviceName(m_eCurrentSource), port = m_GetCurrentHDMIPort();
  const std::string inBrackets = " (" + port + ")";
  m_source = {T("COM_SID_SOURCE_KR_EXT"), device.empty() ? port : device + inBrackets, port};
  if (!device.empty()) {
    const char* part = Utils::FlagReverseMode() ? theme::kRowValueTextReversed : theme::kRowValueText;
    m_source.shown = FitIntoRow(m_pList, m_pItemClass->item_style, part, kInformationWidth, device, inBrackets);
  }
  const std::string resolution = HdmiResolution(m_eCurrentSource);
  m_resolution = {T("COM_SID_RESOLUTION_ABBR_10"), resolution, resolution};
  if (resolution.empty() && FindHdmiPort(m_eCurrentSource)) m_resolution.shown = T("TV_SID_NO_SIGNAL");
  for (Fact* fact : {&m_source, &m_resolution}) {
    elm_genlist_item_append(m_pList, m_pItemClass, fact, nullptr, ELM_GENLIST_ITEM_NONE, nullptr, nullptr);
  }
  elm_object_part_content_set(m_pContentLayout, theme::kInformationItems, m_pList);
}

std::string CViewHDMIInfoWindow::m_GetCurrentHDMIPort() const {
  LOG_INFO("Current source : %d", m_eCurrentSource);
  if (IsHdbt(m_eCurrentSource)) {
    LOG_ERROR("Current source is HDBT");
    return T("COM_LFD_SID_NON_HDBT");
  }
  if (const HdmiPort* port = FindHdmiPort(m_eCurrentSource)) return T(port->label);
  LOG_ERROR("Current source isn't HDMI");
  return "Error";
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
  CViewInformationWindow::t_Show();
  t_EndAtFirstButton();
  LOG_ERROR("Number of buttons: %d", t_DefaultButtonNum);
}

void CViewHDMIInfoWindow::t_Hide() {
  LOG_DEBUG("t_Hide");
  CViewInformationWindow::t_Hide();
}

void CViewHDMIInfoWindow::t_Destroy() {
  CViewWindowBase::t_Destroy();
  m_pContentLayout = m_pList = nullptr;
  if (m_pItemClass) elm_genlist_item_class_free(m_pItemClass);
  m_pItemClass = nullptr;
}

void CViewHDMIInfoWindow::t_FirstEnter(std::string& text) { text += m_GetReadContent(); }

std::string CViewHDMIInfoWindow::m_GetReadContent() const {
  std::string read = t_WindowTitle + t_TextOf(m_pContentLayout, theme::kInformationText) + m_source.title +
                     m_source.value + " " + m_resolution.title + m_resolution.shown + " " + T("SID_CLOSE");
  LOG_DEBUG("m_sReadBuff = %s", read.c_str());
  return read;
}
