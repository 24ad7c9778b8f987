// What start-up, offscreen worlds and dialogs need of windows.
#pragma once

#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/MacWindows.h>

inline WindowRecord &recordOf(WindowPtr window)
{
    return *reinterpret_cast<WindowPeek>(window);
}

// The native window of a colour port; null until the host has stored it.
inline HWND nativeWindowOf(WindowPtr window)
{
    PixMapPtr pixMap = pixMapOf(*window);
    return pixMap ? pixMap->pmWindow : nullptr;
}

// Takes the window out of the list; one that is not in it is left alone.
void MTBX_UnlinkWindow(WindowPtr window);

// Puts the window at the head of the list, in which it must not be.
void MTBX_LinkWindow(WindowPtr window);

// Closes a window without freeing its record. Its native window is sent WM_CLOSE.
void MTBX_CloseWindow(WindowPtr window);
