// A menu bar with submenus, and short ways to ask about menus.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

inline constexpr UINT notThere = static_cast<UINT>(-1);

inline std::string textOf(HMENU menu, UINT item, UINT flags = MF_BYPOSITION)
{
    char text[64] = "untouched";
    GetMenuStringA(menu, item, text, sizeof text, flags);
    return text;
}

inline bool isMenu(HMENU menu)
{
    return GetMenuItemCount(menu) != -1;
}

inline UINT_PTR idOf(HMENU menu)
{
    return reinterpret_cast<UINT_PTR>(menu);
}

inline MENUITEMINFOA infoWith(UINT mask)
{
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

// File: New (1), a line, Recent: One (11), Two (12). Edit: Undo (2).
class Menus : public testing::Test {
protected:
    Menus()
    {
        AppendMenuA(recent, MF_STRING, 11, "One");
        AppendMenuA(recent, MF_STRING, 12, "Two");
        AppendMenuA(file, MF_STRING, 1, "New");
        AppendMenuA(file, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(file, MF_POPUP, idOf(recent), "Recent");
        AppendMenuA(edit, MF_STRING | MF_GRAYED, 2, "Undo");
        AppendMenuA(bar, MF_POPUP, idOf(file), "&File");
        AppendMenuA(bar, MF_POPUP, idOf(edit), "&Edit");
    }
    ~Menus() override { DestroyMenu(bar); }

    HMENU bar = CreateMenu(), file = CreatePopupMenu(), edit = CreatePopupMenu(), recent = CreatePopupMenu();
};
