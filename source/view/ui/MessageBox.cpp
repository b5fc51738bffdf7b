#include "MessageBox.h"

#include "ChannelUtil.h"
#include "DeviceManager.h"
#include "EventManager.h"
#include "Log.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "string_util.h"

namespace {

enum Window { IMPORT = 2, EXPORT = 3, FREQUENCY_FIRST = 18, FREQUENCY_LAST = 19 };

enum Case {
  CONFIRM_IMPORT = 1,
  COPY = 2,
  NO_DEVICE = 3,
  DEVICE_GONE = 10,
  FILE_LIST = 11,
  DEVICE_LIST = 12,
  SATCR_CONFIRM = 17,
  SATCR_RUNNING = 18,
  SATCR_SUCCESS = 19,
  SATCR_FAILURE = 20,
};

struct StepButtons {
  unsigned int step;
  int count;
  const char* ids[2];
};

constexpr StepButtons kButtons[] = {
    {CONFIRM_IMPORT, 2, {"SID_OK", "SID_CANCEL"}},
    {SATCR_CONFIRM, 1, {"SID_START", nullptr}},
    {SATCR_RUNNING, 1, {"SID_CANCEL", nullptr}},
};

/// Texts of one single-cable run; with two tuners an end is told with the tuner and how it went.
struct SatcrTexts {
  unsigned int first, last;
  const char* running;
  const char* completed;
  const char* succeeded;
  const char* failed;
};

constexpr SatcrTexts kSatcr[] = {
    {6, 7, "TV_SID_DETECTION_IN_PROGRESS_WAIT", "COM_BDP_SID_SATCR_DETECTION_COMPLETED",
     "SID_SATCR_DETECTION_SUCCEEDED_MSG", "TV_SID_UNABLE_DETECT_SLOC_FREQUENCY"},
    {8, 9, "TV_SID_VERIFICAITON_IN_PROFRESS_WAIT", "SID_SATCR_VERIFICATION_SUCCEEDED_MSG",
     "SID_SATCR_VERIFICATION_SUCCEEDED_MSG", "TV_SID_UNABLE_VEFIFY_SLOT_REQUENCY"},
};

std::string T(const char* id) { return Utils::GetTranslationStr(id); }

std::string SatcrEnd(const SatcrTexts& texts, unsigned int windowID, bool success) {
  if (!ChannelUtil::FlagVisibleSatCRTwoTuner()) return success ? texts.succeeded : texts.failed;
  const bool firstTuner = windowID == texts.first;
  return T(texts.completed) + "\n" + T(firstTuner ? "TV_SID_TUNER_1" : "TV_SID_TUNER_2") + " : " +
         T(success ? "COM_SID_SUCCESS" : "SID_FAILED");
}

std::string SatcrText(const SatcrTexts& texts, unsigned int windowID, unsigned int step) {
  switch (step) {
    case SATCR_CONFIRM:
      return "TV_SID_DISCONNECT_TURN_OFF_CONNECTED_CABLE";
    case SATCR_RUNNING:
      return texts.running;
    case SATCR_SUCCESS:
      return SatcrEnd(texts, windowID, true);
    case SATCR_FAILURE:
      return SatcrEnd(texts, windowID, false);
    default:
      return {};
  }
}

std::string ImportText(unsigned int step) {
  if (step == NO_DEVICE || step == DEVICE_GONE) return "SID_NO_USB_CONNECTED_PLEASE_CHECK_CONNECTION";
  if (step != CONFIRM_IMPORT) return "SID_NO_STORED_IN_USB_MSG";
  char text[1024] = {};
  CStringUtil::CombinateStrings(text, sizeof text, T("PJT_SID_IMPORT_FROM_USB_MSG").c_str(),
                                T(Utils::GetProductTypeOSD().c_str()).c_str());
  return text;
}

void Pop(int parameter) { CEventManager::GetInstance()->SendEvent(EVENT_POP_VIEW, parameter, 0, nullptr, nullptr); }

}  // namespace

CMessageBox::~CMessageBox() = default;

unsigned int CMessageBox::t_WindowID() {
  unsigned int windowID = 0, step = 0;
  GetViewKey(windowID, step);
  return windowID;
}

unsigned int CMessageBox::t_Case() {
  unsigned int windowID = 0, step = 0;
  GetViewKey(windowID, step);
  return step;
}

// --- making and showing --------------------------------------------------------------------------

void CMessageBox::t_Create() {
  t_InitWindowButtonInfo();
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

void CMessageBox::t_InitWindowProperty() { t_DefaultButtonNum = t_nButtonNumer; }

void CMessageBox::t_SetButtonSettingInfo() {
  for (int i = 0; i < t_nButtonNumer; ++i) {
    t_ButtonSettings[i] = {T(t_ButtonIDs[i].c_str()), "", theme::kButton, theme::kButtonParts[i]};
  }
}

void CMessageBox::t_Show() {
  CViewNotifyWindowBase::t_Show();
  Evas_Object* button = t_pDefaultButtons[t_nDefaultFocusIndex == 1 ? 1 : 0];
  if (button) elm_object_focus_set(button, EINA_TRUE);
}

void CMessageBox::t_Hide() { CViewNotifyWindowBase::t_Hide(); }

void CMessageBox::t_Destroy() {
  if (m_release) CDeviceManager::GetInstance()->Release();
  CViewNotifyWindowBase::t_Destroy();
}

void CMessageBox::t_FirstEnter(std::string& text) {
  const char* title = t_pMainBase ? elm_object_part_text_get(t_pMainBase, theme::kTitle) : nullptr;
  const std::string& focused = t_ButtonIDs[t_nDefaultFocusIndex == 1 ? 1 : 0];
  text += std::string(" ") + (title ? title : "") + ", " + t_DisplayText + ", " + T(focused.c_str()) + ", " +
          T("TV_SID_BUTTON");
}

// --- the text ------------------------------------------------------------------------------------

std::string CMessageBox::t_TextOf(unsigned int windowID) {
  if (windowID == IMPORT) return ImportText(t_Case());
  if (windowID == EXPORT) return "SID_NO_USB_CONNECTED_PLEASE_CHECK_CONNECTION";
  if (windowID == FREQUENCY_FIRST || windowID == FREQUENCY_LAST) {
    t_FlagDim = true;
    return "TV_SID_CHANNEL_START_FREQUENCY_GREATER_THAN_STOP_CHECK";
  }
  for (const SatcrTexts& texts : kSatcr) {
    if (windowID >= texts.first && windowID <= texts.last) return SatcrText(texts, windowID, t_Case());
  }
  return m_displayText;
}

void CMessageBox::t_GetDisplayText(char* text) {
  if (!text) {
    LOG_DEBUG("Can not malloc memory");
    return;
  }
  CopyText(text, kDisplayTextSize, t_TextOf(t_WindowID()));
}

// --- the buttons ---------------------------------------------------------------------------------

void CMessageBox::t_ProcessDefaultButtonOneClickCallBack() {
  if (!t_pDefaultButtons[0]) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  switch (t_Case()) {
    case CONFIRM_IMPORT:
      return t_TransferChannelBtnClickCB();
    case SATCR_CONFIRM:
      return m_DetectVerifyFrequencyStartBtnClickCB();
    case SATCR_RUNNING:
      return m_DetectVerifyFrequencyCancelBtnClickCB();
    default:
      return m_BtnDefaultClickCB();
  }
}

void CMessageBox::t_ProcessDefaultButtonTwoClickCallBack() {
  if (!t_pDefaultButtons[1]) {
    LOG_DEBUG("Null Pointer");
    return;
  }
  m_BtnDefaultClickCB();
}

void CMessageBox::m_BtnDefaultClickCB() { Pop(0); }

void CMessageBox::m_GoTo(unsigned int nextCase) {
  Pop(1);
  CEventManager::GetInstance()->SendEvent(EVENT_PUSH_VIEW, t_WindowID(), nextCase, nullptr, nullptr);
}

void CMessageBox::m_DetectVerifyFrequencyStartBtnClickCB() {
  if (t_Case() == SATCR_CONFIRM) return m_GoTo(SATCR_RUNNING);
  Pop(1);
  Pop(0);
}

void CMessageBox::m_DetectVerifyFrequencyCancelBtnClickCB() {
  if (t_Case() == SATCR_RUNNING) return m_GoTo(SATCR_FAILURE);
  Pop(1);
}

void CMessageBox::t_TransferChannelBtnClickCB() {
  if (t_Case() != CONFIRM_IMPORT) return;
  // The next step needs the inventory.
  m_release = false;
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  const DEVICE_INFO* selected = devices->GetSelectedDevice();
  if (devices->m_nDeviceWithMapCount > 1) return m_GoTo(DEVICE_LIST);
  m_GoTo(selected && selected->nChmapFileCount >= 2 ? FILE_LIST : COPY);
}
