// Where windows lie, and the messages around a change of that.
#pragma once

#include "window.h"

namespace win32::user {

// SetWindowPos, with the system's own flags as well.
BOOL changePosition(HWND window, HWND after, int x, int y, int width, int height, UINT flags);

// WM_GETMINMAXINFO, with the system's figures to begin with.
MINMAXINFO askLimits(HWND window);

// WM_NCCALCSIZE for a window that is new.
void calculateFirstClientArea(HWND window);

// The part of a monitor that programs may use.
RECT workArea(HMONITOR monitor);

// Ends a window whose procedure refused to be made: WM_NCDESTROY and nothing else.
void abandonWindow(HWND window);

// Ends the windows of a thread that is over, without a message.
class MessageQueue;
void abandonWindowsOf(MessageQueue &queue);

// WM_PARENTNOTIFY for a child that asks for it.
void notifyParent(HWND window, UINT event);

} // namespace win32::user
