// The screen: the window that the framework makes, the focus, keys that reach it.
#pragma once

#include <Elementary.h>

#include <string_view>

namespace desktop {

/// Chooses Wayland, X11 or drawing off screen from the environment; before the toolkit is started.
void ChooseDisplay();
bool IsOffScreen();
/// Whether somebody can sit at the display, so that the focus comes from there.
bool HasSeat();
/// Lets the display say how large it is; after the toolkit is started. Throws std::runtime_error when there is
/// no such display.
void MeetDisplay();
/// "1920x1080"; false leaves the numbers as they are.
bool ParseScreenSize(std::string_view text, int& w, int& h);

/// The program's window, null when there is none (any more).
Evas_Object* Window();
/// Size of the screen that `window` is on; not off screen.
void ScreenSize(const Evas_Object* window, int& w, int& h);
/// Makes the window the one that has the focus, where nobody else does so: off screen, and on a display that
/// nobody sits at.
void GiveFocus();
/// Draws nothing until told to.
void HoldFrames(bool hold);
/// Takes the focus away, as another application coming up does.
void TakeFocus();

/// A press and release of a remote key, as from the display.
void PressKey(const char* remoteKey);
/// Turns keyboard keys into the remote's from now on.
Ecore_Event_Filter* TranslateKeyboard();

}  // namespace desktop
