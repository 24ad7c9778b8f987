// Menus as data: items, places, submenus, states, and what ends with what.
#include "SampleMenus.h"
#include "TestWindows.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

TEST_F(Menus, CommandsAreFoundInSubmenusAndPositionsOnlyInTheMenu)
{
    EXPECT_EQ(textOf(bar, 12, MF_BYCOMMAND), "Two");
    EXPECT_EQ(textOf(bar, 1), "&Edit");
    EXPECT_EQ(GetMenuStringA(bar, 2, nullptr, 0, MF_BYPOSITION), 0);
    EXPECT_EQ(GetMenuItemID(file, 0), 1u);
    EXPECT_EQ(GetMenuItemID(file, 2), notThere);
    EXPECT_EQ(GetSubMenu(file, 2), recent);
    EXPECT_EQ(GetSubMenu(file, 0), nullptr);
    EXPECT_EQ(GetMenuItemCount(file), 3);
}

TEST_F(Menus, StringsAreMeasuredWithoutABufferAndLinesHaveNone)
{
    char text[4] = "";
    EXPECT_EQ(GetMenuStringA(bar, 0, nullptr, 0, MF_BYPOSITION), 5);
    EXPECT_EQ(GetMenuStringA(file, 1, text, 4, MF_BYPOSITION), 0);
    EXPECT_STREQ(text, "");
}

TEST_F(Menus, ItemsGoBeforeTheOneNamedWhereverItIs)
{
    EXPECT_TRUE(InsertMenuA(bar, 12, MF_BYCOMMAND, 13, "Between"));
    EXPECT_EQ(textOf(recent, 1), "Between");
    EXPECT_TRUE(InsertMenuA(bar, 0, MF_BYPOSITION, 14, "First"));
    EXPECT_EQ(textOf(bar, 0), "First");
    EXPECT_TRUE(InsertMenuA(bar, 99, MF_BYPOSITION, 15, "Last"));
    EXPECT_EQ(textOf(bar, 3), "Last");
    EXPECT_EQ(GetMenuItemCount(bar), 4);
}

TEST_F(Menus, StatesAnswerWhatTheyWere)
{
    EXPECT_EQ(CheckMenuItem(bar, 11, MF_BYCOMMAND | MF_CHECKED), DWORD{MF_UNCHECKED});
    EXPECT_EQ(CheckMenuItem(bar, 11, MF_BYCOMMAND | MF_UNCHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(EnableMenuItem(bar, 2, MF_BYCOMMAND | MF_ENABLED), BOOL{MF_GRAYED});
    EXPECT_EQ(EnableMenuItem(bar, 2, MF_BYCOMMAND | MF_DISABLED), BOOL{MF_ENABLED});
    EXPECT_EQ(GetMenuState(bar, 2, MF_BYCOMMAND), UINT{MF_DISABLED});
    EXPECT_EQ(CheckMenuItem(bar, 99, MF_BYCOMMAND | MF_CHECKED), notThere);
    EXPECT_EQ(EnableMenuItem(bar, 99, MF_BYCOMMAND), -1);
    EXPECT_EQ(GetMenuState(bar, 99, MF_BYCOMMAND), notThere);
    EXPECT_TRUE(GetMenuState(file, 1, MF_BYPOSITION) & MF_SEPARATOR);
    UINT popup = GetMenuState(bar, 0, MF_BYPOSITION);
    EXPECT_TRUE(popup & MF_POPUP);
    EXPECT_EQ(popup >> 8, 3u);
}

TEST_F(Menus, ModifyingReplacesTheItemAndKeepsASubmenuThatStays)
{
    EXPECT_TRUE(ModifyMenuA(file, 2, MF_BYPOSITION | MF_POPUP | MF_CHECKED, idOf(recent), "Latest"));
    EXPECT_TRUE(isMenu(recent));
    EXPECT_EQ(textOf(file, 2), "Latest");
    EXPECT_TRUE(ModifyMenuA(file, 0, MF_BYPOSITION | MF_GRAYED, 5, "Plain"));
    EXPECT_EQ(GetMenuItemID(file, 0), 5u);
    EXPECT_EQ(GetMenuState(file, 0, MF_BYPOSITION), UINT{MF_GRAYED});
    EXPECT_FALSE(ModifyMenuA(file, 9, MF_BYPOSITION, 5, "None"));
}

TEST_F(Menus, SubmenusEndWithTheirItemsAndTheirMenus)
{
    EXPECT_TRUE(DeleteMenu(bar, 0, MF_BYPOSITION));
    EXPECT_FALSE(isMenu(file));
    EXPECT_FALSE(isMenu(recent));
    EXPECT_TRUE(DeleteMenu(bar, 2, MF_BYCOMMAND));
    EXPECT_EQ(GetMenuItemCount(edit), 0);
    EXPECT_FALSE(DeleteMenu(bar, 2, MF_BYCOMMAND));
    EXPECT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(isMenu(edit));
    EXPECT_FALSE(DestroyMenu(bar));
}

TEST_F(Menus, RecordsCarryIdDataTypeAndBitmaps)
{
    HBITMAP bitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    MENUITEMINFOA info = infoWith(MIIM_ID | MIIM_DATA | MIIM_STATE | MIIM_CHECKMARKS | MIIM_TYPE);
    char text[] = "Changed";
    info.wID = 77;
    info.dwItemData = 1234;
    info.fState = MFS_CHECKED | MFS_DISABLED;
    info.hbmpChecked = bitmap;
    info.fType = MFT_STRING | MFT_MENUBARBREAK;
    info.dwTypeData = text;
    EXPECT_TRUE(SetMenuItemInfoA(file, 0, TRUE, &info));

    char read[16] = "";
    MENUITEMINFOA answer = infoWith(MIIM_ID | MIIM_DATA | MIIM_STATE | MIIM_CHECKMARKS | MIIM_TYPE | MIIM_SUBMENU);
    answer.dwTypeData = read;
    answer.cch = sizeof read;
    EXPECT_TRUE(GetMenuItemInfoA(bar, 77, FALSE, &answer));
    EXPECT_EQ(answer.dwItemData, 1234u);
    EXPECT_EQ(answer.fState, UINT{MFS_CHECKED | MFS_DISABLED});
    EXPECT_EQ(answer.hbmpChecked, bitmap);
    EXPECT_EQ(answer.hbmpUnchecked, nullptr);
    EXPECT_EQ(answer.fType, UINT{MFT_MENUBARBREAK});
    EXPECT_EQ(answer.hSubMenu, nullptr);
    EXPECT_STREQ(read, "Changed");
    EXPECT_EQ(answer.cch, 7u);

    EXPECT_TRUE(AppendMenuA(edit, MF_BITMAP, 3, reinterpret_cast<LPCSTR>(bitmap)));
    answer = infoWith(MIIM_BITMAP);
    EXPECT_TRUE(GetMenuItemInfoA(edit, 3, FALSE, &answer));
    EXPECT_EQ(answer.hbmpItem, bitmap);
    EXPECT_TRUE(AppendMenuA(edit, MF_OWNERDRAW, 4, reinterpret_cast<LPCSTR>(UINT_PTR{4321})));
    answer = infoWith(MIIM_DATA | MIIM_FTYPE);
    EXPECT_TRUE(GetMenuItemInfoA(edit, 4, FALSE, &answer));
    EXPECT_EQ(answer.dwItemData, 4321u);
    EXPECT_EQ(answer.fType, UINT{MFT_OWNERDRAW});
    DeleteObject(bitmap);
}

TEST_F(Menus, RecordsAreChecked)
{
    MENUITEMINFOA info = infoWith(MIIM_TYPE | MIIM_STRING);
    SetLastError(0);
    EXPECT_FALSE(GetMenuItemInfoA(bar, 0, TRUE, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    info = infoWith(MIIM_ID);
    info.cbSize = 3;
    EXPECT_FALSE(GetMenuItemInfoA(bar, 0, TRUE, &info));
}

TEST_F(Menus, AMenusOwnRecordMayGoToItsSubmenus)
{
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_MENUDATA | MIM_STYLE | MIM_APPLYTOSUBMENUS;
    info.dwMenuData = 99;
    info.dwStyle = MNS_NOTIFYBYPOS;
    EXPECT_TRUE(SetMenuInfo(file, &info));
    for (HMENU menu : {file, recent, edit}) {
        info.fMask = MIM_MENUDATA | MIM_STYLE;
        EXPECT_TRUE(GetMenuInfo(menu, &info));
        EXPECT_EQ(info.dwMenuData, menu == edit ? 0u : 99u);
        EXPECT_EQ(info.dwStyle, menu == edit ? 0u : DWORD{MNS_NOTIFYBYPOS});
    }
}

TEST_F(Menus, AMenuEndsWithItsWindowUnlessItWasTakenOff)
{
    TestWindows windows;
    HWND first = windows.make(WS_OVERLAPPEDWINDOW, {0, 0, 200, 200});
    HWND second = windows.make(WS_OVERLAPPEDWINDOW, {0, 0, 200, 200});
    EXPECT_TRUE(SetMenu(first, bar));
    EXPECT_EQ(GetMenu(first), bar);
    EXPECT_TRUE(SetMenu(first, nullptr));
    DestroyWindow(first);
    EXPECT_TRUE(isMenu(bar));
    EXPECT_TRUE(SetMenu(second, bar));
    DestroyWindow(second);
    EXPECT_FALSE(isMenu(bar));
    EXPECT_FALSE(isMenu(recent));
}

} // namespace
