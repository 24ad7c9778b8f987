// The signs of message boxes, which are the system's icons.
#pragma once

#include <windows.h>

namespace win32::user {

constexpr int signSize = 32;

// Draws the sign of a message box with this MB_ICON... flag.
void drawSign(HDC context, int x, int y, UINT type);

// The icon of IDI_HAND and its like; null, with the last error set, for another name. Throws bad_alloc.
HICON systemSign(LPCSTR name);

} // namespace win32::user
