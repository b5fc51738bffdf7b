#include "ViewTransferChannelListEnd.h"

#include <utility>

#include "CommonUtil.h"
#include "Content.h"
#include "DeviceManager.h"
#include "KeyManager.h"
#include "Lines.h"
#include "Log.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "TransferFlow.h"
#include "Translation.h"
#include "Utils.h"
#include "power.h"

namespace {

constexpr int kWidth = 918, kHeight = 120;
constexpr double kRebootSeconds = 3.0;
/// Until the message has been heard.
constexpr double kRebootSpokenSeconds = 12.0;
constexpr int kMenuReboot = 3;
constexpr const char* kExitKey = "XF86Exit";
enum Part { kMessage = 1, kVersion, kCountry, kNext };

/// The second is a further line; null for none.
struct EndText {
  unsigned int step;
  const char* ids[2];
};

constexpr EndText kTexts[] = {
    {kInvalidCountry, {"SID_INVALID_COUNTRY_INFORMATION_MSG", nullptr}},
    {kNoSpace, {"SID_UNABLE_EXPORT_CHANNEL_LIST_INSUFFICIENT_SPACE_MSG", nullptr}},
    {kCopyFailed, {"SID_COPYING_FAILED", "SID_PLEASE_CHECK_USB_RETRY"}},
};

std::string StickName() {
  const DEVICE_INFO* device = CDeviceManager::GetInstance()->GetSelectedDevice();
  return Markup(device ? device->productName : "");
}

std::string CompletedText(const std::string& from, const std::string& to) {
  return T("SID_COPYING_CHANNEL_LIST_COMPLETED_MSG") + "<br>" + from + " -> " + to;
}

}  // namespace

// --- the window ----------------------------------------------------------------------------------

std::string CViewTransferChannelListEnd::t_GetBaseStyle() { return theme::kSmallBottom; }

std::vector<CViewWindowBase::Button> CViewTransferChannelListEnd::t_Buttons() {
  return {{"SID_OK", [this] { m_ProcessOk(); }}};
}

void CViewTransferChannelListEnd::t_Create() {
  CViewWindowBase::t_Create();
  m_layout = t_AddContent(theme::kTransferEnd, kWidth, kHeight);
  if (m_layout) {
    if (Utils::IsHighContrastOn()) elm_layout_signal_emit(m_layout, theme::kTransferContrast, theme::kSource);
    SetLines(m_layout, theme::Numbered(theme::kTransferEndText, kMessage).c_str(), t_GetText(), kWidth);
  }
  if (t_Case() == kExported) return m_AddFacts();
  if (t_Case() == kImported) return m_AnnounceReboot();
  if (m_layout) elm_layout_signal_emit(m_layout, theme::kTransferError, theme::kSource);
}

void CViewTransferChannelListEnd::t_Destroy() {
  m_rebootTimer.Stop();
  m_TakeExitKey(false);
  ForgetDevices();
  m_layout = nullptr;
  CViewWindowBase::t_Destroy();
}

void CViewTransferChannelListEnd::t_FirstEnter(std::string& text) {
  const auto part = [this](int number) {
    return t_TextOf(m_layout, theme::Numbered(theme::kTransferEndText, number).c_str());
  };
  text += " " + t_WindowTitle + ", " +
          spoken::Joined({part(kMessage), part(kVersion), part(kCountry), part(kNext), spoken::Button("SID_OK")});
}

// --- what it says --------------------------------------------------------------------------------

void CViewTransferChannelListEnd::m_SetText(int part, const std::string& text) {
  if (!m_layout) return;
  elm_object_part_text_set(m_layout, theme::Numbered(theme::kTransferEndText, part).c_str(), text.c_str());
}

std::string CViewTransferChannelListEnd::t_GetText() {
  if (t_Case() == kImported) return CompletedText(StickName(), ProductName());
  if (t_Case() == kExported) return CompletedText(ProductName(), StickName());
  for (const auto& [step, ids] : kTexts) {
    if (step == t_Case()) return ids[1] ? T(ids[0]) + "<br>" + T(ids[1]) : T(ids[0]);
  }
  return T("SID_INVALID_CHANNEL_LIST_MSG");
}

void CViewTransferChannelListEnd::m_AddFacts() {
  m_SetText(kVersion, T("SID_CHANNEL_LIST_VERSION_MSG") + t_GetDataValue());
  m_SetText(kCountry, T("SID_COUNTRY_CODE_MSG") + t_GetCountryCode());
}

std::string CViewTransferChannelListEnd::t_GetDataValue() {
  std::string date = CommonUtil::GetCurrentDateStr();
  LOG_DEBUG("date values are %s", date.c_str());
  return date;
}

std::string CViewTransferChannelListEnd::t_GetCountryCode() {
  return Utils::WrapMallocdString(Utils::GetCountryCode());
}

void CViewTransferChannelListEnd::m_AnnounceReboot() {
  if (m_layout) elm_layout_signal_emit(m_layout, theme::kTransferImported, theme::kSource);
  m_SetText(kNext, Filled("PJT_SID_TV_REBOOT_MSG", ProductName()));
  m_TakeExitKey(true);
  m_rebootTimer.Start(Utils::FlagVoiceGuideSetting() ? kRebootSpokenSeconds : kRebootSeconds, [this] {
    t_RebootBoard(true);
    m_TakeExitKey(false);
    return false;
  });
}

// --- what comes next -----------------------------------------------------------------------------

void CViewTransferChannelListEnd::m_TakeExitKey(bool take) {
  if (std::exchange(m_exitTaken, take) != take)
    (take ? CKeyManager::RegisterKey : CKeyManager::UnRegisterKey)(kExitKey);
}

void CViewTransferChannelListEnd::m_ProcessOk() {
  if (t_Case() != kImported) return CloseView();
  LOG_DEBUG("reset board because of press OK button");
  t_RebootBoard(false);
}

/// The set takes a moment to restart: a key may still come.
void CViewTransferChannelListEnd::t_RebootBoard(bool fromTimer) {
  if (std::exchange(m_rebooting, true)) return;
  LOG_DEBUG("start _reset_board");
  fb_nv_set_disable(1);
  if (Utils::ResetService()) LOG_DEBUG("Reset Serivce Successfull");
  device_power_request_reboot(kMenuReboot);
  if (!fromTimer) m_rebootTimer.Stop();
}
