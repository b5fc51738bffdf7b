#include "ViewTable.h"

#include <string_view>

#include "ViewBottomCtxPopup.h"
#include "ViewControlSpinner.h"
#include "ViewSublist.h"
#include "ViewTvRatingWindow.h"

namespace {

template <class View>
IView* Make(const char* menuID, unsigned int&) {
  return new View(menuID);
}

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
    {2, "import-from-usb", nullptr},
    {3, "export-to-usb", nullptr},
    {4, "factory-import-from-usb", nullptr},
    {5, "factory-export-to-usb", nullptr},
    {6, "satcr-detect-slot-frequency-slot1", nullptr},
    {7, "satcr-detect-slot-frequency-slot2", nullptr},
    {8, "satcr-verify-slot-frequency-slot1", nullptr},
    {9, "satcr-verify-slot-frequency-slot2", nullptr},
    {10, "tv-rating", Make<CViewTvRatingWindow>},
    {11, "movie-rating", nullptr},
    {12, "canadian-english-rating", nullptr},
    {13, "canadian-french-rating", nullptr},
    {14, "dynamic-rating", nullptr},
    {15, "fine-tune", nullptr},
    {16, "user-defined-transponder", nullptr},
    {17, "reset-all-settings-satellite", nullptr},
    {18, "StartFrequency", nullptr},
    {19, "StopFrequency", nullptr},
    {20, "installermode-store-current-position", nullptr},
    {21, "installermode-go-to-zero", nullptr},
    {22, "installermode-reset-positioner-limit", nullptr},
    {23, "usermode-store-current-position", nullptr},
    {24, "signal-information-weakhistory", nullptr},
    {25, "hdmi-delay-level", Make<CViewBottomCtxPopup>},
    {0, "signal-information", nullptr},
    {0, "hdmi-information", nullptr},
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
