// The caret: one for a thread's queue, drawn by inverting what lies under it.
#pragma once

#include <windows.h>

namespace win32::user {

// Around the painting of a window, so that nothing is painted over the caret's pixels.
void hideCaretForPainting(HWND window);
void showCaretAfterPainting(HWND window);

// The caret's timer has fired: it appears or disappears.
void blinkCaret();

} // namespace win32::user
