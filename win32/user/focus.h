// Which window is active, has the focus, has the mouse; which is in the foreground.
#pragma once

#include "window.h"

namespace win32::user {

// Makes a top-level window active as SetWindowPos does without SWP_NOACTIVATE; children only come to the top.
void activateForShow(HWND window);

// Activation, with all its messages. False when the window refuses or cannot be active.
bool activate(HWND window, bool byMouse);

// A window was hidden, disabled or is about to be destroyed: focus, capture and activation go on to others.
void windowWasHidden(HWND window);
void windowIsGoing(HWND window);

} // namespace win32::user
