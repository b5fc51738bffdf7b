// The windows by their numbers, and what a view asks of the stack.
#pragma once

#include <Elementary.h>

/// Window IDs, as they travel in push events. The windows that are only launched have none.
enum class Window : int {
  kNone = 0,
  kSatelliteSelection = 1,
  kImport = 2,
  kExport = 3,
  kFactoryImport = 4,
  kFactoryExport = 5,
  kDetectSlot1 = 6,
  kDetectSlot2 = 7,
  kVerifySlot1 = 8,
  kVerifySlot2 = 9,
  kTvRating = 10,
  kMovieRating = 11,
  kCanadianEnglishRating = 12,
  kCanadianFrenchRating = 13,
  kDynamicRating = 14,
  kFineTune = 15,
  kUserTransponder = 16,
  kResetSatellites = 17,
  kStartFrequency = 18,
  kStopFrequency = 19,
  kInstallerStorePosition = 20,
  kInstallerGoToZero = 21,
  kInstallerResetLimit = 22,
  kUserStorePosition = 23,
  kHistory = 24,
  kDelayLevel = 25,
};

/// Steps of the flows with several: the case numbers of their views.
enum Step : unsigned int {
  kFirstStep = 0,
  kImportConfirm = 1,
  kCopy = 2,
  kNoDevice = 3,
  kNoChannelList = 4,
  kImported = 5,
  kInvalidList = 6,
  kInvalidCountry = 7,
  kExported = 8,
  kNoSpace = 9,
  kCopyFailed = 10,
  kFileList = 11,
  kDeviceList = 12,
  kSatcrConfirm = 17,
  kSatcrRunning = 18,
  kSatcrSuccess = 19,
  kSatcrFailure = 20,
};

/// All of these take effect on a later turn of the loop, in the order of the calls.

/// Closes the uppermost view, and the program with the last one.
void CloseView();
/// Opens a window above.
void PushWindow(Window window, unsigned int step = kFirstStep);
/// Puts another step of a window in place of the uppermost view.
void GoToStep(Window window, unsigned int step);
/// Opens the in-place control of an item beside a row of a list.
void PushControl(const char* menuID, Elm_Object_Item* row);
