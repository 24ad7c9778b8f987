// The menu bar in a window's frame.
#pragma once

#include <windows.h>

namespace win32::user {

// Lays out the bar of a window that is to be so wide, and notes the height. Asks the program, so it wants no lock.
void layOutMenuBar(HWND window, int width);

// The bar's menu while the user can work it; null for none.
HMENU usableMenuBar(HWND window);

// Paints the bar at a place of the window's context.
void paintMenuBar(HWND window, HDC context, const RECT &bar);
// Paints one item anew; the menu is the window's or nothing happens.
void repaintBarItem(HWND window, HMENU menu, int item);

// The bar's item under a point of the screen: -1 between items. False when the point is not in the bar.
bool hitMenuBar(HWND window, POINT screenPoint, int &item);
// On the screen.
bool barItemRect(HWND window, int item, RECT &rect);

} // namespace win32::user
