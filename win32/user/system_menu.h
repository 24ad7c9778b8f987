// The system menu of a window.
#pragma once

#include <windows.h>

namespace win32::user {

// The menu that holds it as its only item, made when first needed, with its items as the window's state asks for.
// Null for a window without one. Throws bad_alloc.
HMENU preparedSystemMenu(HWND window);

// The caption's icon on the screen, or where it would be.
RECT systemIconRect(HWND window);

// Whether the program lets the user close the window: it may have grayed or removed the item.
bool isCloseEnabled(HWND window);

} // namespace win32::user
