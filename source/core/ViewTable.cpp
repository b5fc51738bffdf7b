#include "ViewTable.h"

#include <string_view>

#include "DeviceManager.h"
#include "Log.h"
#include "MessageBox.h"
#include "ViewBottomCtxPopup.h"
#include "ViewControlSpinner.h"
#include "ViewFactoryMessageBox.h"
#include "ViewFineTuneWindow.h"
#include "ViewHDMIInfoWindow.h"
#include "ViewSignalInfoWindow.h"
#include "ViewSublist.h"
#include "ViewTvRatingWindow.h"
#include "ViewWeakSignalHistoryWindow.h"

namespace {

template <class View>
IView* Make(const char* menuID, unsigned int&) {
  return new View(menuID);
}

// --- flows with several steps: the case names the step, and some first steps hang on the sticks ---------

struct Step {
  unsigned int nCase;
  IView* (*make)(const char* menuID, unsigned int& nCase);
};

IView* MakeStep(const Step* steps, size_t count, const char* menuID, unsigned int& nCase) {
  for (size_t i = 0; i < count; ++i) {
    if (steps[i].nCase == nCase && steps[i].make) return steps[i].make(menuID, nCase);
  }
  return nullptr;
}

const CDeviceManager& ScannedDevices() {
  CDeviceManager* devices = CDeviceManager::GetInstance();
  devices->Initialize(false);
  return *devices;
}

unsigned int FirstExportStep(const CDeviceManager& devices) {
  if (devices.m_nDeviceCount == 0) return 3;
  return devices.m_nDeviceCount > 1 ? 12 : 2;
}

unsigned int FirstImportStep(const CDeviceManager& devices) {
  if (devices.m_nDeviceCount == 0) return 3;
  return devices.m_nDeviceWithMapCount == 0 ? 4 : 1;
}

constexpr Step kExport[] = {{3, Make<CMessageBox>}, {10, Make<CMessageBox>}};
constexpr Step kImport[] = {
    {1, Make<CMessageBox>}, {3, Make<CMessageBox>}, {4, Make<CMessageBox>}, {10, Make<CMessageBox>}};
constexpr Step kFactoryExport[] = {{3, Make<CViewFactoryMessageBox>}, {10, Make<CViewFactoryMessageBox>}};
constexpr Step kFactoryImport[] = {{1, Make<CViewFactoryMessageBox>},
                                   {3, Make<CViewFactoryMessageBox>},
                                   {4, Make<CViewFactoryMessageBox>},
                                   {10, Make<CViewFactoryMessageBox>}};
constexpr Step kSatcr[] = {{17, Make<CMessageBox>}, {20, Make<CMessageBox>}};

template <unsigned int (*FirstStep)(const CDeviceManager&), const auto& steps>
IView* MakeTransfer(const char* menuID, unsigned int& nCase) {
  LOG_DEBUG("menuID =%s nCase[%d]", menuID, static_cast<int>(nCase));
  const CDeviceManager& devices = ScannedDevices();
  if (nCase == 0) nCase = FirstStep(devices);
  IView* view = MakeStep(steps, std::size(steps), menuID, nCase);
  if (!view) LOG_DEBUG("Invalid[%d]", static_cast<int>(nCase));
  return view;
}

IView* MakeSatcr(const char* menuID, unsigned int& nCase) {
  LOG_DEBUG("menuID =%s nCase[%d]", menuID, static_cast<int>(nCase));
  if (nCase == 0) nCase = 17;
  IView* view = MakeStep(kSatcr, std::size(kSatcr), menuID, nCase);
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
};

constexpr ViewEntry kViews[] = {
    {1, "satellite-selection", nullptr},
    {2, "import-from-usb", MakeTransfer<FirstImportStep, kImport>},
    {3, "export-to-usb", MakeTransfer<FirstExportStep, kExport>},
    {4, "factory-import-from-usb", MakeTransfer<FirstImportStep, kFactoryImport>},
    {5, "factory-export-to-usb", MakeTransfer<FirstExportStep, kFactoryExport>},
    {6, "satcr-detect-slot-frequency-slot1", MakeSatcr},
    {7, "satcr-detect-slot-frequency-slot2", MakeSatcr},
    {8, "satcr-verify-slot-frequency-slot1", MakeSatcr},
    {9, "satcr-verify-slot-frequency-slot2", MakeSatcr},
    {10, "tv-rating", Make<CViewTvRatingWindow>},
    {11, "movie-rating", nullptr},
    {12, "canadian-english-rating", nullptr},
    {13, "canadian-french-rating", nullptr},
    {14, "dynamic-rating", nullptr},
    {15, "fine-tune", Make<CViewFineTuneWindow>},
    {16, "user-defined-transponder", nullptr},
    {17, "reset-all-settings-satellite", nullptr},
    {18, "StartFrequency", Make<CMessageBox>},
    {19, "StopFrequency", Make<CMessageBox>},
    {20, "installermode-store-current-position", nullptr},
    {21, "installermode-go-to-zero", nullptr},
    {22, "installermode-reset-positioner-limit", nullptr},
    {23, "usermode-store-current-position", nullptr},
    {24, "signal-information-weakhistory", Make<CViewWeakSignalHistoryWindow>},
    {25, "hdmi-delay-level", Make<CViewBottomCtxPopup>},
    {0, "signal-information", Make<CViewSignalInfoWindow>},
    {0, "hdmi-information", Make<CViewHDMIInfoWindow>},
    {0, "postype-sat-longitude-settings", nullptr},
};

}  // namespace

std::span<const ViewEntry> ViewTable() { return kViews; }

IView* MakeControl(const char* menuID, int x, int y, int w) {
  for (const ControlEntry& entry : kControls) {
    if (menuID && entry.menuID == menuID) return entry.make(menuID, x, y, w);
  }
  return nullptr;
}
