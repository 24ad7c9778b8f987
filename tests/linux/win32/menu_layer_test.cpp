// What the layer promises of menus beyond what every system keeps: no handle, loop or depth does harm, and the
// documented errors are told.
#include "SampleMenus.h"
#include "TestWindows.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

using MenusInTheLayer = Menus;

TEST_F(MenusInTheLayer, OnlyMenusBecomeSubmenus)
{
    EXPECT_FALSE(AppendMenuA(bar, MF_POPUP, 12345, "Bad"));
    HMENU ended = CreatePopupMenu();
    DestroyMenu(ended);
    EXPECT_FALSE(AppendMenuA(bar, MF_POPUP, idOf(ended), "Ended"));
    EXPECT_FALSE(AppendMenuA(ended, MF_STRING, 1, "Text"));
    EXPECT_EQ(GetMenuItemCount(bar), 2);
    MENUITEMINFOA info = infoWith(MIIM_SUBMENU);
    info.hSubMenu = reinterpret_cast<HMENU>(UINT_PTR{12345});
    EXPECT_FALSE(SetMenuItemInfoA(bar, 0, TRUE, &info));
    EXPECT_EQ(GetSubMenu(bar, 0), file);
}

TEST_F(MenusInTheLayer, AMenuThatHoldsAnotherIsNotPutIntoIt)
{
    EXPECT_FALSE(AppendMenuA(recent, MF_POPUP, idOf(bar), "Loop"));
    EXPECT_FALSE(AppendMenuA(recent, MF_POPUP, idOf(recent), "Self"));
    MENUITEMINFOA info = infoWith(MIIM_SUBMENU);
    info.hSubMenu = file;
    EXPECT_FALSE(SetMenuItemInfoA(recent, 0, TRUE, &info));
    EXPECT_EQ(GetMenuItemCount(recent), 2);
}

TEST_F(MenusInTheLayer, ModifyingEndsASubmenuThatGoes)
{
    EXPECT_TRUE(ModifyMenuA(file, 2, MF_BYPOSITION, 5, "Plain"));
    EXPECT_FALSE(isMenu(recent));
    EXPECT_EQ(GetMenuItemID(file, 2), 5u);
    EXPECT_EQ(GetMenuState(file, 2, MF_BYPOSITION), UINT{MF_ENABLED});
    SetLastError(0);
    EXPECT_FALSE(ModifyMenuA(file, 9, MF_BYPOSITION, 5, "None"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MENU_ITEM_NOT_FOUND});
    EXPECT_FALSE(DestroyMenu(recent));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_MENU_HANDLE});
}

TEST_F(MenusInTheLayer, TextIsCutToTheBufferWithItsEnd)
{
    char text[4] = "";
    EXPECT_EQ(GetMenuStringA(bar, 0, text, 4, MF_BYPOSITION), 3);
    EXPECT_STREQ(text, "&Fi");
    text[0] = 0;
    MENUITEMINFOA info = infoWith(MIIM_STRING);
    info.dwTypeData = text;
    info.cch = sizeof text;
    EXPECT_TRUE(GetMenuItemInfoA(bar, 0, TRUE, &info));
    EXPECT_STREQ(text, "&Fi");
    EXPECT_EQ(info.cch, 3u);
}

TEST_F(MenusInTheLayer, ABarTakesRoomForAsLongAsItsMenuLives)
{
    TestWindows windows;
    HWND window = windows.make(WS_OVERLAPPEDWINDOW, {0, 0, 200, 200});
    auto heightOf = [&] {
        SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
        RECT client;
        GetClientRect(window, &client);
        return client.bottom;
    };
    LONG whole = heightOf();
    EXPECT_TRUE(SetMenu(window, bar));
    EXPECT_EQ(heightOf(), whole - GetSystemMetrics(SM_CYMENU));
    POINT client{0, 0};
    ClientToScreen(window, &client);
    EXPECT_EQ(SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(client.x + 5, client.y - 2)), HTMENU);
    DestroyMenu(bar);
    EXPECT_EQ(heightOf(), whole);
}

TEST(MenusInDepth, AreSearchedAndEndedWithoutStackAndOnce)
{
    // A chain in which every menu holds the next one twice: each path walked apart would never end.
    constexpr int depth = 5000;
    HMENU root = CreatePopupMenu();
    AppendMenuA(root, MF_STRING, 1, "Deepest");
    for (int i = 0; i < depth; ++i) {
        HMENU next = CreatePopupMenu();
        AppendMenuA(next, MF_POPUP, idOf(root), "A");
        AppendMenuA(next, MF_POPUP, idOf(root), "B");
        root = next;
    }
    EXPECT_EQ(textOf(root, 1, MF_BYCOMMAND), "Deepest");
    EXPECT_TRUE(DestroyMenu(root));
}

} // namespace
