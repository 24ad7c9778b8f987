// The scroll bars in a window's frame.
#pragma once

#include "frame.h"

namespace win32::user {

void paintScrollBars(HWND window, HDC context, const FrameLayout &layout);

// A press in a scroll bar: sends WM_HSCROLL or WM_VSCROLL until the button goes up.
void trackScrollBar(HWND window, int bar, POINT screenPoint);

} // namespace win32::user
