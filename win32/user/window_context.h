// The contexts of windows: GetDC and its kin.
#pragma once

#include "window.h"

namespace win32::user {

// Gives back every context that the window has.
void releaseContextsOf(Window &window);

// A context for BeginPaint: the client area, within the update region (screen coordinates), until ReleaseDC.
HDC paintContext(Window &window, const pixman_region32_t &update);

} // namespace win32::user
