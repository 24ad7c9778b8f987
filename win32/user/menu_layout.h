// How large menus are and where their items lie. Nothing here wants the lock: owner-drawn items ask the owner.
#pragma once

#include "menu.h"

namespace win32::user {

constexpr int popupEdge = 3;

// Lays out a bar from the corner of a space in a window's coordinates, in rows of its width; gives the height.
int layOutBar(HWND owner, HMENU menu, const RECT &space);
// Lays out a pop-up; gives the size of its window, were it never to scroll.
SIZE layOutPopup(HWND owner, HMENU menu);

// The fonts of menus are the system's own and stay. The bold one is for default items.
HFONT menuFont(bool isBold);

// What stands behind the tab of an item; null for none.
const char *shortcutOf(const MenuItem &item);
// Null for an item that is text alone.
SIZE bitmapSize(HBITMAP bitmap);

} // namespace win32::user
