// Menus in use: what the window is told when, and what mouse and keys do.
#include "TrackedMenus.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

TEST_F(TrackedMenus, AreClickedOpenAndChosenFrom)
{
    then([&] { clickAt(popupItem(file, 0)); });
    clickAt(barItem(0));
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "select 1 in file", "close file",
                          "select nothing", "exit 0", "command 1"}));
}

TEST_F(TrackedMenus, AreDraggedThroughAndChosenFromWhereTheButtonGoesUp)
{
    then([&] {
        moveTo(popupItem(edit, 1));
        input.releaseButton();
    });
    moveTo(barItem(0));
    input.pressButton();
    moveTo(barItem(1));
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "close file", "select 1 in bar",
                          "open edit 1", "select 21 in edit", "close edit", "select nothing", "exit 0", "command 21"}));
}

TEST_F(TrackedMenus, AnItemOfTheBarWithoutASubmenuIsChosenByItself)
{
    clickAt(barItem(2));
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 5 in bar", "select nothing", "exit 0", "command 5"}));
}

TEST_F(TrackedMenus, AClickElsewhereClosesAndCounts)
{
    then([&] { clickAt({400, 300, 410, 310}); });
    clickAt(barItem(0));
    windows->noted.clear();
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "close file", "select nothing",
                          "exit 0"}));
    EXPECT_EQ(windows->notedOf(window, {WM_LBUTTONDOWN, WM_LBUTTONUP}),
              (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP}));
}

TEST_F(TrackedMenus, AreWalkedByKeys)
{
    type({VK_MENU, VK_DOWN, VK_DOWN, VK_RIGHT, VK_RETURN});
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "select 1 in file",
                          "select 2 in file", "open recent 2", "select 11 in recent", "close recent", "close file",
                          "select nothing", "exit 0", "command 11"}));
}

TEST_F(TrackedMenus, EscapeGoesBackOneMenuAtATime)
{
    type({VK_F10, VK_DOWN, VK_ESCAPE, VK_RIGHT, VK_ESCAPE});
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "select 1 in file", "close file",
                          "select 1 in bar", "select nothing", "exit 0"}));
    EXPECT_EQ(GetMenuState(bar, 1, MF_BYPOSITION) & MF_HILITE, 0u);
}

TEST_F(TrackedMenus, AnotherPressOfAltLeavesTheBar)
{
    type({VK_MENU, VK_MENU});
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "select nothing", "exit 0"}));
}

TEST_F(TrackedMenus, MarkedLettersOpenAndChoose)
{
    typeWithAlt('F');
    type({'N'});
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "open file 0", "select 1 in file", "close file",
                          "select nothing", "exit 0", "command 1"}));
}

TEST_F(TrackedMenus, OtherLettersAreTheWindowsToAnswer)
{
    LRESULT reply = MAKELRESULT(0, MNC_IGNORE);
    answer = [&](const TestWindows::Noted &noted, LRESULT &result) {
        result = reply;
        return noted.message == WM_MENUCHAR;
    };
    typeWithAlt('Q');
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "char 113 in bar", "select nothing", "exit 0"}));
    reply = MAKELRESULT(1, MNC_EXECUTE);
    thenType({'Z'});
    EXPECT_EQ(track(edit, TPM_RETURNCMD), 21);
    reply = MAKELRESULT(0, MNC_CLOSE);
    thenType({'Z'});
    EXPECT_EQ(track(edit, TPM_RETURNCMD), 0);
}

TEST_F(TrackedMenus, PopupsPostTheirCommand)
{
    thenType({VK_DOWN, VK_RETURN});
    EXPECT_TRUE(track(edit, 0));
    serve();
    EXPECT_EQ(told, (Told{"enter 1", "init edit", "open edit 0", "select 2 in edit", "close edit", "select nothing",
                          "exit 1", "command 2"}));
}

TEST_F(TrackedMenus, PopupsReturnTheirCommandWhenAsked)
{
    thenType({VK_DOWN, VK_DOWN, VK_RIGHT, VK_DOWN, VK_RETURN});
    EXPECT_EQ(track(file, TPM_RETURNCMD), 12);
    thenType({VK_ESCAPE});
    EXPECT_EQ(track(file, TPM_RETURNCMD), 0);
    serve();
    EXPECT_EQ(std::count(told.begin(), told.end(), "command 12"), 0);
}

TEST_F(TrackedMenus, PopupsThatNotifyByPositionLeaveAMenuCommandInTheQueueThoughNothingElseIsTold)
{
    MENUINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIM_STYLE;
    info.dwStyle = MNS_NOTIFYBYPOS;
    SetMenuInfo(file, &info);
    thenType({VK_UP, VK_UP, VK_RIGHT, VK_DOWN, VK_RETURN});
    EXPECT_TRUE(track(file, TPM_NONOTIFY));
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, window, WM_MENUCOMMAND, WM_MENUCOMMAND, PM_REMOVE));
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(reinterpret_cast<HMENU>(message.lParam), recent);
    for (const char *quiet : {"enter 1", "init file", "open file 0", "close file", "open recent 2"})
        EXPECT_EQ(std::count(told.begin(), told.end(), quiet), 0) << quiet;
}

TEST_F(TrackedMenus, GrayedItemsAndLinesAreNotChosenAndKeepTheMenuOpen)
{
    then([&] { clickAt(popupItem(file, 3)); });
    then([&] { clickAt(popupItem(file, 1)); });
    then([&] { clickAt(popupItem(file, 0)); });
    EXPECT_EQ(track(file, TPM_RETURNCMD), 1);
    EXPECT_NE(std::find(told.begin(), told.end(), "select 3 in file"), told.end());
}

TEST_F(TrackedMenus, SubmenusOpenUnderAClickAndTheMouseChoosesInThem)
{
    then([&] { clickAt(popupItem(file, 2)); });
    then([&] { clickAt(popupItem(recent, 1)); });
    EXPECT_EQ(track(file, TPM_RETURNCMD), 12);
}

TEST_F(TrackedMenus, TheRightButtonChoosesOnlyWhereItIsAllowed)
{
    auto clickRight = [&] {
        moveTo(popupItem(edit, 0));
        mouse_event(MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
        mouse_event(MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
    };
    then(clickRight);
    EXPECT_EQ(track(edit, TPM_RETURNCMD | TPM_RIGHTBUTTON), 2);
    then(clickRight);
    thenType({VK_ESCAPE});
    EXPECT_EQ(track(edit, TPM_RETURNCMD), 0);
}

TEST_F(TrackedMenus, EndMenuAndLostCaptureEndThem)
{
    then([] { EndMenu(); });
    EXPECT_EQ(track(file, TPM_RETURNCMD), 0);
    then([] { SendMessageA(window, WM_CANCELMODE, 0, 0); });
    then([] { EndMenu(); });
    EXPECT_EQ(track(file, TPM_RETURNCMD), 0);
    EXPECT_EQ(std::count(told.begin(), told.end(), "exit 1"), 2);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(TrackedMenus, WithoutItemsOrWithoutAMenuNothingOpens)
{
    HMENU empty = CreatePopupMenu();
    EXPECT_FALSE(track(empty, 0));
    DestroyMenu(empty);
    SetLastError(0);
    EXPECT_FALSE(track(empty, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_MENU_HANDLE));
}

TEST_F(TrackedMenus, OwnerDrawnItemsAreMeasuredAndDrawnByTheirOwner)
{
    HMENU drawn = CreatePopupMenu();
    AppendMenuA(drawn, MF_OWNERDRAW | MF_CHECKED, 71, reinterpret_cast<LPCSTR>(0x77));
    AppendMenuA(drawn, MF_OWNERDRAW | MF_GRAYED, 72, reinterpret_cast<LPCSTR>(0x78));
    std::vector<MEASUREITEMSTRUCT> measured;
    std::vector<DRAWITEMSTRUCT> painted;
    answer = [&](const TestWindows::Noted &noted, LRESULT &result) {
        result = TRUE;
        if (noted.message == WM_MEASUREITEM) {
            auto &item = *reinterpret_cast<MEASUREITEMSTRUCT *>(noted.lParam);
            measured.push_back(item);
            item.itemWidth = 60;
            item.itemHeight = 30;
        } else if (noted.message == WM_DRAWITEM) {
            painted.push_back(*reinterpret_cast<const DRAWITEMSTRUCT *>(noted.lParam));
        }
        return noted.message == WM_MEASUREITEM || noted.message == WM_DRAWITEM;
    };
    thenType({VK_DOWN});
    thenType({VK_RETURN});
    EXPECT_EQ(track(drawn, TPM_RETURNCMD), 71);
    ASSERT_EQ(measured.size(), 2u);
    EXPECT_TRUE(measured[0].CtlType == ODT_MENU && measured[0].itemID == 71 && measured[0].itemData == 0x77);
    ASSERT_GE(painted.size(), 3u);
    EXPECT_TRUE(painted[0].CtlType == ODT_MENU && painted[0].itemID == 71 && painted[0].itemData == 0x77);
    EXPECT_EQ(painted[0].hwndItem, reinterpret_cast<HWND>(drawn));
    EXPECT_EQ(painted[0].itemState, UINT{ODS_CHECKED});
    EXPECT_EQ(painted[1].itemState, UINT{ODS_GRAYED | ODS_DISABLED});
    EXPECT_EQ(painted[0].rcItem.bottom - painted[0].rcItem.top, 30);
    EXPECT_GE(painted[0].rcItem.right - painted[0].rcItem.left, 60);
    EXPECT_EQ(painted[1].rcItem.top, painted[0].rcItem.bottom);
    EXPECT_EQ(painted.back().itemState & ODS_SELECTED, UINT{ODS_SELECTED});
    DestroyMenu(drawn);
}

TEST_F(TrackedMenus, TheBarTakesAsManyRowsAsItNeeds)
{
    RECT client, first = barItem(0), last = barItem(2);
    GetClientRect(window, &client);
    POINT corner{0, 0};
    ClientToScreen(window, &corner);
    EXPECT_EQ(first.top, last.top);
    EXPECT_TRUE(first.left >= corner.x && first.right <= last.left && first.bottom <= corner.y);
    for (int i = 0; i < 12; ++i)
        AppendMenuA(bar, MF_STRING, 100 + static_cast<UINT>(i), "Another item");
    DrawMenuBar(window);
    RECT now;
    GetClientRect(window, &now);
    RECT end = barItem(14);
    EXPECT_GT(end.top, first.top);
    EXPECT_EQ(client.bottom - now.bottom, end.top - first.top);
    SetMenu(window, nullptr);
    GetClientRect(window, &now);
    EXPECT_GT(now.bottom, client.bottom);
}

TEST_F(TrackedMenus, ItemsOfTheBarAreHighlightedByHand)
{
    EXPECT_TRUE(HiliteMenuItem(window, bar, 1, MF_BYPOSITION | MF_HILITE));
    EXPECT_TRUE(GetMenuState(bar, 1, MF_BYPOSITION) & MF_HILITE);
    EXPECT_TRUE(HiliteMenuItem(window, bar, 5, MF_BYCOMMAND | MF_HILITE));
    EXPECT_FALSE(GetMenuState(bar, 1, MF_BYPOSITION) & MF_HILITE);
    EXPECT_TRUE(HiliteMenuItem(window, bar, 5, MF_BYCOMMAND));
    EXPECT_FALSE(GetMenuState(bar, 5, MF_BYCOMMAND) & MF_HILITE);
}

TEST_F(TrackedMenus, OfAnyKindAreMeasuredByAWindowThatHasThemAsItsBar)
{
    HMENU popup = CreatePopupMenu();
    for (const char *text : {"A text too long to share a row", "Another text that is long enough"})
        AppendMenuA(popup, MF_STRING, 1, text);
    RECT rect;
    EXPECT_TRUE(!GetMenuItemRect(window, popup, 0, &rect) || IsRectEmpty(&rect));
    EXPECT_FALSE(GetMenuItemRect(nullptr, popup, 0, &rect));
    HWND measuring = CreateWindowExA(0, "static", "measures", 0, CW_USEDEFAULT, CW_USEDEFAULT, 10, 10, nullptr, popup,
                                     GetModuleHandleA(nullptr), nullptr);
    ASSERT_TRUE(measuring);
    SetMenu(measuring, nullptr);
    DestroyWindow(measuring);
    RECT first = rectOf(window, popup, 0), second = rectOf(window, popup, 1);
    EXPECT_GT(first.right - first.left, 100);
    EXPECT_GT(first.bottom, first.top);
    EXPECT_EQ(second.top, first.bottom);
    DestroyMenu(popup);
}

TEST_F(TrackedMenus, TheSystemMenuTellsWhatItsWindowCanDo)
{
    HMENU system = GetSystemMenu(window, FALSE);
    ASSERT_TRUE(system);
    EXPECT_EQ(GetSystemMenu(window, FALSE), system);
    EXPECT_NE(GetMenuState(system, SC_CLOSE, MF_BYCOMMAND), notThere);
    auto isGrayed = [&](UINT command) { return (GetMenuState(system, command, MF_BYCOMMAND) & MF_GRAYED) != 0; };
    then([&] {
        EXPECT_TRUE(isGrayed(SC_RESTORE) && !isGrayed(SC_MAXIMIZE) && !isGrayed(SC_SIZE));
        type({'X'});
    });
    typeWithAlt(VK_SPACE);
    serve();
    EXPECT_TRUE(IsZoomed(window));
    then([&] {
        EXPECT_TRUE(!isGrayed(SC_RESTORE) && isGrayed(SC_MAXIMIZE) && isGrayed(SC_SIZE));
        type({'R'});
    });
    typeWithAlt(VK_SPACE);
    serve();
    EXPECT_FALSE(IsZoomed(window));
    EXPECT_EQ(GetSystemMenu(window, TRUE), nullptr);
    EXPECT_FALSE(isMenu(system));
}

TEST(MenuTemplates, AreReadInBothForms)
{
    constexpr WORD last = 0x80;
    // A pop-up with an item and a line, and an item of the bar.
    constexpr WORD old[] = {0, 0, MF_POPUP, 'F', 0, MF_CHECKED, 7, 'O', 'n', 'e', 0, last, 0, 0, last, 9, 'D', 0};
    HMENU menu = LoadMenuIndirectA(old);
    ASSERT_TRUE(menu);
    EXPECT_EQ(GetMenuItemCount(menu), 2);
    HMENU popup = GetSubMenu(menu, 0);
    EXPECT_EQ(textOf(popup, 0), "One");
    EXPECT_EQ(GetMenuState(popup, 7, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_TRUE(GetMenuState(popup, 1, MF_BYPOSITION) & MF_SEPARATOR);
    EXPECT_EQ(GetMenuItemID(menu, 1), 9u);
    DestroyMenu(menu);
    constexpr WORD extended[] = {1,     4, 0,   0,                               // the help id
                                 0,     0, 0,   0, 5,  0, 1,    'P', 0, 0, 0, 0, // a pop-up, with a help id
                                 0x200, 0, 0x8, 0, 66, 1, last, 'R', 0, 0,       // the last of it
                                 0,     0, 3,   0, 8,  0, last, 'L', 0, 0};
    menu = LoadMenuIndirectA(extended);
    ASSERT_TRUE(menu);
    EXPECT_EQ(textOf(GetSubMenu(menu, 0), 66 + 65536, MF_BYCOMMAND), "R");
    EXPECT_EQ(GetMenuState(menu, 8, MF_BYCOMMAND), UINT{MFS_GRAYED});
    DestroyMenu(menu);
}

TEST(MenuTemplates, NamedByAClassBecomeTheMenuOfItsWindows)
{
    WNDCLASSA description{};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "Class with a menu";
    description.lpszMenuName = "SAMPLE_MENU";
    ASSERT_TRUE(RegisterClassA(&description));
    HWND window = CreateWindowExA(0, description.lpszClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr,
                                  nullptr, description.hInstance, nullptr);
    HMENU menu = GetMenu(window);
    ASSERT_TRUE(menu);
    EXPECT_EQ(textOf(menu, 401, MF_BYCOMMAND), "&Open\tCtrl+O");
    DestroyWindow(window);
    EXPECT_FALSE(isMenu(menu));
    UnregisterClassA(description.lpszClassName, description.hInstance);
    EXPECT_FALSE(LoadMenuA(description.hInstance, "NO_SUCH_MENU"));
}

} // namespace
