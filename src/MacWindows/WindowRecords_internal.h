// Window records without a native window, as InitGraf needs them for its two ports.
#pragma once

#include <mtbx/MacWindows.h>

// A new record over the rectangle, in no list; null when memory is short.
WindowPtr MTBX_NewWindowRecord(const Rect &bounds, bool isVisible);
// Closes the port, with its native window, and frees the record; null is allowed.
void MTBX_DisposeWindowRecord(WindowPtr window);
