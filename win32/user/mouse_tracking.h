// TrackMouseEvent: who wants to hear that the mouse rests on a window, or has left it.
#pragma once

#include <windows.h>

namespace win32::user {

// The mouse has moved over a window.
void mouseIsOver(HWND window);

// A timer of the system has fired on a window: if it is the one for resting, the window may hear of it.
bool mouseRests(HWND window, UINT_PTR timer);

} // namespace win32::user
