// The caret: one for a thread's queue, drawn by inverting what lies under it.
#pragma once

#include <windows.h>

namespace win32::user {

// Around the painting of a window, so that nothing is painted over the caret's pixels.
void hideCaretForPainting(HWND window);
void showCaretAfterPainting(HWND window);

// A timer of the system has fired on a window: if it is the caret's, the caret appears or disappears.
bool blinkCaret(HWND window, UINT_PTR timer);

// The window that has the caret is gone.
void forgetCaret(HWND window);

} // namespace win32::user
