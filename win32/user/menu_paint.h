// Paints the items of menus. Nothing here wants the lock: owner-drawn items are painted by their owner.
#pragma once

#include "menu_layout.h"

namespace win32::user {

enum class MenuLook { Bar, Popup };

// An item in a context of its window. The action is what WM_DRAWITEM tells an owner: ODA_ bits.
void paintMenuItem(HDC context, HWND owner, HMENU menu, size_t index, MenuLook look, UINT action);

// All items, and the ground below and between them.
void paintMenuItems(HDC context, HWND owner, HMENU menu, MenuLook look, const RECT &ground);

// One of the signs that tell that a pop-up can be scrolled.
void paintScrollSign(HDC context, const RECT &rect, bool isUp, bool isEnabled);

} // namespace win32::user
