#include "ViewTable.h"

#include <string_view>

#include "DeviceManager.h"
#include "Log.h"
#include "MessageBox.h"
#include "ViewBottomCtxPopup.h"
#include "ViewCanadianEnglishRatingWindow.h"
#include "ViewCanadianFrenchRatingWindow.h"
#include "ViewControlSpinner.h"
#include "ViewDynamicRatingWindow.h"
#include "ViewFactoryMessageBox.h"
#include "ViewFactoryTransferCLCopyWindow.h"
#include "ViewFactoryTransferCLEnd.h"
#include "ViewFineTuneWindow.h"
#include "ViewHDMIInfoWindow.h"
#include "ViewMovieRatingWindow.h"
#include "ViewPositioner.h"
#include "ViewResetPopup.h"
#include "ViewSatCRDetectProcessWindow.h"
#include "ViewSatCRDetectSuccessWindow.h"
#include "ViewSatLongitudeSettingsWindow.h"
#include "ViewSatelliteSelectionWindow.h"
#include "ViewSignalInfoWindow.h"
#include "ViewSublist.h"
#include "ViewTransferChannelListCopyWindow.h"
#include "ViewTransferChannelListEnd.h"
#include "ViewTransferChannelListFileList.h"
#include "ViewTransferChannelListUSBList.h"
#include "ViewTvRatingWindow.h"
#include "ViewUserDefineTransponderWindow.h"
#include "ViewWeakSignalHistoryWindow.h"
#include "Window.h"

namespace {

template <class View>
IView* Make(const char* menuID, unsigned int&) {
  return new View(menuID);
}

// --- flows with several steps: the case names the step, and some first steps hang on the sticks ---------

struct StepView {
  unsigned int nCase;
  ViewMaker make;
};

IView* MakeStep(std::span<const StepView> steps, const char* menuID, unsigned int& nCase) {
  for (const StepView& step : steps) {
    if (step.nCase == nCase) return step.make(menuID, nCase);
  }
  return nullptr;
}

const CDeviceManager& ScannedDevices() {
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  return *devices;
}

unsigned int FirstExportStep(const CDeviceManager& devices) {
  if (devices.m_nDeviceCount == 0) return kNoDevice;
  return devices.m_nDeviceCount > 1 ? kDeviceList : kCopy;
}

unsigned int FirstImportStep(const CDeviceManager& devices) {
  if (devices.m_nDeviceCount == 0) return kNoDevice;
  return devices.m_nDeviceWithMapCount == 0 ? kNoChannelList : kImportConfirm;
}

using FirstStep = unsigned int (*)(const CDeviceManager&);

constexpr StepView kExport[] = {{kCopy, Make<CViewTransferChannelListCopyWindow>},
                                {kNoDevice, Make<CMessageBox>},
                                {kExported, Make<CViewTransferChannelListEnd>},
                                {kNoSpace, Make<CViewTransferChannelListEnd>},
                                {kCopyFailed, Make<CMessageBox>},
                                {kDeviceList, Make<CViewTransferChannelListUSBList>}};
constexpr StepView kImport[] = {{kImportConfirm, Make<CMessageBox>},
                                {kCopy, Make<CViewTransferChannelListCopyWindow>},
                                {kNoDevice, Make<CMessageBox>},
                                {kNoChannelList, Make<CMessageBox>},
                                {kImported, Make<CViewTransferChannelListEnd>},
                                {kInvalidList, Make<CViewTransferChannelListEnd>},
                                {kInvalidCountry, Make<CViewTransferChannelListEnd>},
                                {kCopyFailed, Make<CMessageBox>},
                                {kFileList, Make<CViewTransferChannelListFileList>},
                                {kDeviceList, Make<CViewTransferChannelListUSBList>}};
constexpr StepView kFactoryExport[] = {
    {kCopy, Make<CViewFactoryTransferCLCopyWindow>}, {kNoDevice, Make<CViewFactoryMessageBox>},
    {kExported, Make<CViewFactoryTransferCLEnd>},    {kNoSpace, Make<CViewFactoryTransferCLEnd>},
    {kCopyFailed, Make<CViewFactoryMessageBox>},     {kDeviceList, Make<CViewTransferChannelListUSBList>}};
constexpr StepView kFactoryImport[] = {
    {kImportConfirm, Make<CViewFactoryMessageBox>},      {kCopy, Make<CViewFactoryTransferCLCopyWindow>},
    {kNoDevice, Make<CViewFactoryMessageBox>},           {kNoChannelList, Make<CViewFactoryMessageBox>},
    {kImported, Make<CViewFactoryTransferCLEnd>},        {kInvalidList, Make<CViewFactoryTransferCLEnd>},
    {kInvalidCountry, Make<CViewFactoryTransferCLEnd>},  {kCopyFailed, Make<CViewFactoryMessageBox>},
    {kFileList, Make<CViewTransferChannelListFileList>}, {kDeviceList, Make<CViewTransferChannelListUSBList>}};
constexpr StepView kSatcr[] = {{kSatcrConfirm, Make<CMessageBox>},
                               {kSatcrRunning, Make<CViewSatCRDetectProcessWindow>},
                               {kSatcrSuccess, Make<CViewSatCRDetectSuccessWindow>},
                               {kSatcrFailure, Make<CMessageBox>}};

IView* MakeTransfer(FirstStep first, std::span<const StepView> steps, const char* menuID, unsigned int& nCase) {
  LOG_DEBUG("menuID =%s nCase[%d]", menuID, static_cast<int>(nCase));
  const CDeviceManager& devices = ScannedDevices();
  if (nCase == kFirstStep) nCase = first(devices);
  IView* view = MakeStep(steps, menuID, nCase);
  if (!view) LOG_DEBUG("Invalid[%d]", static_cast<int>(nCase));
  return view;
}

IView* MakeExport(const char* menuID, unsigned int& nCase) {
  return MakeTransfer(FirstExportStep, kExport, menuID, nCase);
}

IView* MakeImport(const char* menuID, unsigned int& nCase) {
  return MakeTransfer(FirstImportStep, kImport, menuID, nCase);
}

IView* MakeFactoryExport(const char* menuID, unsigned int& nCase) {
  return MakeTransfer(FirstExportStep, kFactoryExport, menuID, nCase);
}

IView* MakeFactoryImport(const char* menuID, unsigned int& nCase) {
  return MakeTransfer(FirstImportStep, kFactoryImport, menuID, nCase);
}

IView* MakeSatcr(const char* menuID, unsigned int& nCase) {
  LOG_DEBUG("menuID =%s nCase[%d]", menuID, static_cast<int>(nCase));
  if (nCase == kFirstStep) nCase = kSatcrConfirm;
  IView* view = MakeStep(kSatcr, menuID, nCase);
  if (!view) LOG_DEBUG("Invailed[%d]", static_cast<int>(nCase));
  return view;
}

// --- controls beside a row -------------------------------------------------------------------------------

using ControlMaker = IView* (*)(const char* menuID, int x, int y, int w);

template <class Control>
IView* MakeAt(const char* menuID, int x, int y, int w) {
  auto* control = new Control(menuID);
  control->SetParentItemPostion(x, y, w);
  return control;
}

struct ControlEntry {
  std::string_view menuID;
  ControlMaker make;
};

constexpr ControlEntry kControls[] = {
    {"user-defined-transponder-frequency", MakeAt<CViewControlSpinner>},
    {"user-defined-transponder-symbolrate", MakeAt<CViewControlSpinner>},
    {"signal-information-bandwidth", MakeAt<CViewControlSpinner>},
    {"signal-information-frequence", MakeAt<CViewControlSpinner>},
    {"user-defined-transponder-polarity", MakeAt<CViewSublist>},
    {"setting-user-sat-1", MakeAt<CViewPositioner>},
    {"setting-user-sat-2", MakeAt<CViewPositioner>},
    {"setting-user-sat-3", MakeAt<CViewPositioner>},
    {"setting-user-sat-4", MakeAt<CViewPositioner>},
};

constexpr ViewEntry kViews[] = {
    {Window::kSatelliteSelection, "satellite-selection", Make<CViewSatelliteSelectionWindow>},
    {Window::kImport, "import-from-usb", MakeImport},
    {Window::kExport, "export-to-usb", MakeExport},
    {Window::kFactoryImport, "factory-import-from-usb", MakeFactoryImport},
    {Window::kFactoryExport, "factory-export-to-usb", MakeFactoryExport},
    {Window::kDetectSlot1, "satcr-detect-slot-frequency-slot1", MakeSatcr},
    {Window::kDetectSlot2, "satcr-detect-slot-frequency-slot2", MakeSatcr},
    {Window::kVerifySlot1, "satcr-verify-slot-frequency-slot1", MakeSatcr},
    {Window::kVerifySlot2, "satcr-verify-slot-frequency-slot2", MakeSatcr},
    {Window::kTvRating, "tv-rating", Make<CViewTvRatingWindow>},
    {Window::kMovieRating, "movie-rating", Make<CViewMovieRatingWindow>},
    {Window::kCanadianEnglishRating, "canadian-english-rating", Make<CViewCanadianEnglishRatingWindow>},
    {Window::kCanadianFrenchRating, "canadian-french-rating", Make<CViewCanadianFrenchRatingWindow>},
    {Window::kDynamicRating, "dynamic-rating", Make<CViewDynamicRatingWindow>},
    {Window::kFineTune, "fine-tune", Make<CViewFineTuneWindow>},
    {Window::kUserTransponder, "user-defined-transponder", Make<CViewUserDefineTransponderWindow>},
    {Window::kResetSatellites, "reset-all-settings-satellite", Make<CViewResetPopup>},
    {Window::kStartFrequency, "StartFrequency", Make<CMessageBox>},
    {Window::kStopFrequency, "StopFrequency", Make<CMessageBox>},
    {Window::kInstallerStorePosition, "installermode-store-current-position", nullptr},
    {Window::kInstallerGoToZero, "installermode-go-to-zero", nullptr},
    {Window::kInstallerResetLimit, "installermode-reset-positioner-limit", nullptr},
    {Window::kUserStorePosition, "usermode-store-current-position", nullptr},
    {Window::kHistory, "signal-information-weakhistory", Make<CViewWeakSignalHistoryWindow>},
    {Window::kDelayLevel, "hdmi-delay-level", Make<CViewBottomCtxPopup>},
    {Window::kNone, "signal-information", Make<CViewSignalInfoWindow>},
    {Window::kNone, "hdmi-information", Make<CViewHDMIInfoWindow>},
    {Window::kNone, "postype-sat-longitude-settings", Make<CViewSatLongitudeSettingsWindow>},
};

}  // namespace

std::span<const ViewEntry> ViewTable() { return kViews; }

IView* MakeControl(const char* menuID, int x, int y, int w) {
  for (const ControlEntry& entry : kControls) {
    if (menuID && entry.menuID == menuID) return entry.make(menuID, x, y, w);
  }
  return nullptr;
}
