#include "MessageBox.h"

#include "ChannelUtil.h"
#include "DeviceManager.h"
#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"

namespace {

struct StepButtons {
  unsigned int step;
  int count;
  const char* ids[2];
};

constexpr StepButtons kButtons[] = {
    {kImportConfirm, 2, {"SID_OK", "SID_CANCEL"}},
    {kSatcrConfirm, 1, {"SID_START", nullptr}},
    {kSatcrRunning, 1, {"SID_CANCEL", nullptr}},
};

/// Texts of one single-cable run; with two tuners an end is told with the tuner and how it went.
struct SatcrTexts {
  Window first, second;
  const char* running;
  const char* completed;
  const char* succeeded;
  const char* failed;
};

constexpr SatcrTexts kSatcr[] = {
    {Window::kDetectSlot1, Window::kDetectSlot2, "TV_SID_DETECTION_IN_PROGRESS_WAIT",
     "COM_BDP_SID_SATCR_DETECTION_COMPLETED", "SID_SATCR_DETECTION_SUCCEEDED_MSG",
     "TV_SID_UNABLE_DETECT_SLOC_FREQUENCY"},
    {Window::kVerifySlot1, Window::kVerifySlot2, "TV_SID_VERIFICAITON_IN_PROFRESS_WAIT",
     "SID_SATCR_VERIFICATION_SUCCEEDED_MSG", "SID_SATCR_VERIFICATION_SUCCEEDED_MSG",
     "TV_SID_UNABLE_VEFIFY_SLOT_REQUENCY"},
};

std::string SatcrEnd(const SatcrTexts& texts, Window window, bool success) {
  if (!ChannelUtil::FlagVisibleSatCRTwoTuner()) return success ? texts.succeeded : texts.failed;
  return T(texts.completed) + "\n" + T(window == texts.first ? "TV_SID_TUNER_1" : "TV_SID_TUNER_2") + " : " +
         T(success ? "COM_SID_SUCCESS" : "SID_FAILED");
}

std::string SatcrText(const SatcrTexts& texts, Window window, unsigned int step) {
  switch (step) {
    case kSatcrConfirm:
      return "TV_SID_DISCONNECT_TURN_OFF_CONNECTED_CABLE";
    case kSatcrRunning:
      return texts.running;
    case kSatcrSuccess:
      return SatcrEnd(texts, window, true);
    case kSatcrFailure:
      return SatcrEnd(texts, window, false);
    default:
      return {};
  }
}

std::string ImportText(unsigned int step) {
  if (step == kNoDevice || step == kCopyFailed) return "SID_NO_USB_CONNECTED_PLEASE_CHECK_CONNECTION";
  if (step != kImportConfirm) return "SID_NO_STORED_IN_USB_MSG";
  return Filled("PJT_SID_IMPORT_FROM_USB_MSG", T(Utils::GetProductTypeOSD()));
}

bool IsScan(Window window) { return window == Window::kStartFrequency || window == Window::kStopFrequency; }

}  // namespace

CMessageBox::~CMessageBox() = default;

// --- making and showing --------------------------------------------------------------------------

void CMessageBox::t_Create() {
  t_InitWindowButtonInfo();
  t_FlagDim = IsScan(t_Window());
  CViewNotifyWindowBase::t_Create();
  CDeviceManager::GetInstance()->Initialize(false);
}

void CMessageBox::t_InitWindowButtonInfo() {
  t_InitializeButton();
  if (t_nDefaultFocusIndex == -1) t_nDefaultFocusIndex = t_nButtonNumer == 2 ? 1 : 0;
  LOG_DEBUG("t_nButtonNumer=%d", t_nButtonNumer);
  LOG_DEBUG("t_nDefaultFocusIndex=%d", t_nDefaultFocusIndex);
}

void CMessageBox::t_InitializeButton() {
  const unsigned int step = t_Case();
  LOG_DEBUG("CaseNum[%d]", static_cast<int>(step));
  t_nButtonNumer = 1;
  t_ButtonIDs[0] = "SID_OK";
  for (const StepButtons& buttons : kButtons) {
    if (buttons.step != step) continue;
    t_nButtonNumer = buttons.count;
    for (int i = 0; i < buttons.count; ++i) t_ButtonIDs[i] = buttons.ids[i];
  }
}

std::vector<CViewWindowBase::Button> CMessageBox::t_Buttons() {
  std::vector<Button> buttons = {{t_ButtonIDs[0], [this] { m_ProcessButtonOne(); }}};
  if (t_nButtonNumer == 2) buttons.push_back({t_ButtonIDs[1]});
  return buttons;
}

void CMessageBox::t_FocusFirst() { t_FocusButton(t_nDefaultFocusIndex == 1 ? 1 : 0); }

void CMessageBox::t_Destroy() {
  if (m_release) CDeviceManager::GetInstance()->Release();
  CViewNotifyWindowBase::t_Destroy();
}

void CMessageBox::t_FirstEnter(std::string& text) {
  const char* focused = t_ButtonIDs[t_nDefaultFocusIndex == 1 ? 1 : 0];
  text += " " + t_TextOf(t_pMainBase, theme::kTitle) + ", " + t_DisplayText + ", " + spoken::Button(focused);
}

// --- the text ------------------------------------------------------------------------------------

std::string CMessageBox::t_StepText(Window window) const {
  if (window == Window::kImport) return ImportText(t_Case());
  if (window == Window::kExport) return "SID_NO_USB_CONNECTED_PLEASE_CHECK_CONNECTION";
  if (IsScan(window)) return "TV_SID_CHANNEL_START_FREQUENCY_GREATER_THAN_STOP_CHECK";
  for (const SatcrTexts& texts : kSatcr) {
    if (window == texts.first || window == texts.second) return SatcrText(texts, window, t_Case());
  }
  return {};
}

void CMessageBox::t_GetDisplayText(char* text) {
  if (!text) {
    LOG_DEBUG("Can not malloc memory");
    return;
  }
  CopyText(text, kDisplayTextSize, t_StepText(t_Window()));
}

// --- the buttons ---------------------------------------------------------------------------------

void CMessageBox::m_ProcessButtonOne() {
  switch (t_Case()) {
    case kImportConfirm:
      return t_TransferChannelBtnClickCB();
    case kSatcrConfirm:
      return t_GoTo(kSatcrRunning);
    case kSatcrRunning:
      return t_GoTo(kSatcrFailure);
    default:
      return CloseView();
  }
}

void CMessageBox::t_TransferChannelBtnClickCB() {
  if (t_Case() != kImportConfirm) return;
  // The next step needs the inventory.
  m_release = false;
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  const DEVICE_INFO* selected = devices->GetSelectedDevice();
  if (devices->m_nDeviceWithMapCount > 1) return t_GoTo(kDeviceList);
  t_GoTo(selected && selected->nChmapFileCount >= 2 ? kFileList : kCopy);
}
