// Menus on the layer's screen: what they look like, what they leave behind, and that nothing done to them in one of
// their messages, by memory that is short or by random hands does harm.
#include "TrackedMenus.h"

#include <win32/control.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <random>

namespace {

std::vector<uint32_t> pixelsOf(const RECT &rect)
{
    int width = rect.right - rect.left, height = rect.bottom - rect.top;
    HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ former = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY);
    std::vector<uint32_t> result(static_cast<uint32_t *>(bits), static_cast<uint32_t *>(bits) + width * height);
    SelectObject(memory, former);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return result;
}

std::vector<uint32_t> wholeScreen()
{
    return pixelsOf({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
}

uint32_t pixelOf(int color)
{
    COLORREF value = GetSysColor(color);
    return static_cast<uint32_t>(GetRValue(value) << 16 | GetGValue(value) << 8 | GetBValue(value));
}

long countOf(const RECT &rect, int color)
{
    std::vector<uint32_t> pixels = pixelsOf(rect);
    return std::count(pixels.begin(), pixels.end(), pixelOf(color));
}

long areaOf(const RECT &rect)
{
    return (rect.right - rect.left) * (rect.bottom - rect.top);
}

using MenusOnTheScreen = TrackedMenus;

TEST_F(MenusOnTheScreen, ShowWhatIsSelectedAndLeaveNothingBehind)
{
    RECT item = barItem(0);
    std::vector<uint32_t> before = wholeScreen();
    EXPECT_EQ(countOf(item, COLOR_HIGHLIGHT), 0);
    then([&] {
        EXPECT_GT(countOf(item, COLOR_HIGHLIGHT), areaOf(item) / 2);
        RECT first = popupItem(file, 0);
        EXPECT_EQ(countOf(first, COLOR_HIGHLIGHT), 0);
        EXPECT_GT(countOf(first, COLOR_MENUTEXT), 20);
        RECT gray = popupItem(file, 3);
        EXPECT_EQ(countOf(gray, COLOR_MENUTEXT), 0);
        EXPECT_GT(countOf(gray, COLOR_3DSHADOW), 20);
        type({VK_DOWN, VK_DOWN, VK_RIGHT});
    });
    then([&] {
        RECT submenu = popupItem(recent, 0);
        EXPECT_GT(countOf(submenu, COLOR_HIGHLIGHT), areaOf(submenu) / 2);
        type({VK_ESCAPE, VK_ESCAPE, VK_ESCAPE});
    });
    clickAt(item);
    serve();
    serve();
    EXPECT_TRUE(wholeScreen() == before);
}

TEST_F(MenusOnTheScreen, AreAsWideAsTheirTexts)
{
    HDC context = GetDC(nullptr);
    HGDIOBJ former = SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    HMENU popup = CreatePopupMenu();
    std::string text(80, 'W'), shortcut = "Ctrl+Shift+Alt+F12";
    AppendMenuA(popup, MF_STRING, 1, (text + "\t" + shortcut).c_str());
    AppendMenuA(popup, MF_STRING, 2, "Short");
    SIZE first, second;
    GetTextExtentPoint32A(context, text.c_str(), 80, &first);
    GetTextExtentPoint32A(context, shortcut.c_str(), static_cast<int>(shortcut.size()), &second);
    SelectObject(context, former);
    ReleaseDC(nullptr, context);
    then([&] {
        RECT item = popupItem(popup, 0), other = popupItem(popup, 1);
        EXPECT_GT(item.right - item.left, first.cx + second.cx + GetSystemMetrics(SM_CXMENUCHECK));
        EXPECT_EQ(item.right, other.right);
        EndMenu();
    });
    EXPECT_FALSE(track(popup, TPM_RETURNCMD));
    DestroyMenu(popup);
}

TEST_F(MenusOnTheScreen, StayOnItAndScrollWhenTheyAreHigherThanIt)
{
    HMENU high = CreatePopupMenu();
    for (UINT i = 1; i <= 200; ++i)
        AppendMenuA(high, MF_STRING, i, ("Item " + std::to_string(i)).c_str());
    RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    auto isOnScreen = [&](UINT position) {
        RECT rect = popupItem(high, position), seen;
        return IntersectRect(&seen, &rect, &screen) && EqualRect(&seen, &rect);
    };
    then([&] {
        EXPECT_TRUE(isOnScreen(0) && !isOnScreen(199));
        type({VK_END});
    });
    then([&] {
        EXPECT_TRUE(isOnScreen(199) && !isOnScreen(0));
        EXPECT_GT(countOf(popupItem(high, 199), COLOR_HIGHLIGHT), 100);
        type({VK_HOME});
    });
    // The mouse on the sign below the items makes them move.
    then([&] {
        EXPECT_TRUE(isOnScreen(0));
        RECT popup;
        GetWindowRect(WindowFromPoint({popupItem(high, 5).left + 5, popupItem(high, 5).top + 5}), &popup);
        EXPECT_TRUE(popup.top >= 0 && popup.bottom <= screen.bottom);
        input.moveTo(popup.left + 30, popup.bottom - 8);
    });
    then([&] { Sleep(150); });
    answer = [&](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message == WM_ENTERIDLE && !isOnScreen(0) && !isOnScreen(199))
            EndMenu();
        return false;
    };
    EXPECT_FALSE(TrackPopupMenu(high, TPM_RETURNCMD, screen.right - 10, screen.bottom - 10, 0, window, nullptr));
    DestroyMenu(high);
}

TEST_F(MenusOnTheScreen, StandWhereTheFlagsSay)
{
    auto placed = [&](UINT flags, int x, int y, const RECT *kept = nullptr) {
        RECT rect{};
        then([&] {
            GetWindowRect(WindowFromPoint({popupItem(edit, 0).left + 5, popupItem(edit, 0).top + 5}), &rect);
            EndMenu();
        });
        TPMPARAMS parameters{sizeof parameters, kept ? *kept : RECT{}};
        TrackPopupMenuEx(edit, flags | TPM_RETURNCMD, x, y, window, kept ? &parameters : nullptr);
        return rect;
    };
    RECT plain = placed(0, 200, 150);
    LONG width = plain.right - plain.left, height = plain.bottom - plain.top;
    EXPECT_TRUE(plain.left == 200 && plain.top == 150);
    RECT ended = placed(TPM_RIGHTALIGN | TPM_BOTTOMALIGN, 200, 150);
    EXPECT_TRUE(ended.right == 200 && ended.bottom == 150);
    RECT middle = placed(TPM_CENTERALIGN | TPM_VCENTERALIGN, 200, 150);
    EXPECT_TRUE(middle.left == 200 - width / 2 && middle.top == 150 - height / 2);
    RECT kept{150, 100, 250, 200};
    RECT beside = placed(TPM_HORIZONTAL, 200, 150, &kept), below = placed(TPM_VERTICAL, 200, 150, &kept), seen;
    EXPECT_FALSE(IntersectRect(&seen, &beside, &kept) || IntersectRect(&seen, &below, &kept));
    EXPECT_TRUE(beside.top == 150 && below.left == 200);
    RECT outside = placed(0, -50, 5000);
    EXPECT_TRUE(outside.left == 0 && outside.bottom <= GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(MenusOnTheScreen, HoveredSubmenusOpenAfterAWhileAndTheWayToThemIsForgiven)
{
    then([&] { moveTo(popupItem(file, 2)); });
    answer = [&](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message != WM_INITMENUPOPUP || noted.wParam != idOf(recent))
            return false;
        then([&] {
            // Over another item, and in time into the submenu.
            RECT target = popupItem(recent, 1);
            moveTo(popupItem(file, 3));
            clickAt(target);
        });
        return false;
    };
    EXPECT_EQ(track(file, TPM_RETURNCMD), 12);
    EXPECT_EQ(std::count(told.begin(), told.end(), "open recent 2"), 1);
}

TEST_F(MenusOnTheScreen, AnAnswerToACharacterMaySelectAnItem)
{
    answer = [&](const TestWindows::Noted &noted, LRESULT &result) {
        result = MAKELRESULT(1, MNC_SELECT);
        return noted.message == WM_MENUCHAR;
    };
    thenType({'Z', VK_RETURN});
    EXPECT_EQ(track(edit, TPM_RETURNCMD), 21);
}

TEST_F(MenusOnTheScreen, LeftAndRightGoThroughColumnsTheBarAndTheSystemMenu)
{
    HMENU columns = CreatePopupMenu();
    for (UINT i = 1; i <= 6; ++i)
        AppendMenuA(columns, i == 4 ? UINT{MF_MENUBARBREAK} : 0u, i, "Item");
    thenType({VK_DOWN, VK_DOWN, VK_RIGHT, VK_RETURN});
    EXPECT_EQ(track(columns, TPM_RETURNCMD), 5);
    thenType({VK_UP, VK_LEFT, VK_RETURN});
    EXPECT_EQ(track(columns, TPM_RETURNCMD), 3);
    DestroyMenu(columns);
    told.clear();
    names[GetSystemMenu(window, FALSE)] = "system";
    type({VK_F10, VK_LEFT, VK_DOWN, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_ESCAPE});
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "select 0 in another", "open system 0",
                          "select 61728 in system", "close system", "select 0 in bar", "open file 0",
                          "select 1 in file", "close file", "select 1 in bar", "open edit 1", "select 2 in edit",
                          "close edit", "select 5 in bar", "select 0 in another", "select nothing", "exit 0"}));
    GetSystemMenu(window, TRUE);
}

TEST_F(MenusOnTheScreen, APopupOverAnotherNeedsAFlagAndLeavesTheOtherOpen)
{
    then([&] {
        SetLastError(0);
        EXPECT_FALSE(track(edit, TPM_RETURNCMD));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_POPUP_ALREADY_ACTIVE));
        thenType({VK_DOWN, VK_DOWN, VK_RETURN});
        EXPECT_EQ(track(edit, TPM_RETURNCMD | TPM_RECURSE), 21);
        thenType({VK_DOWN, VK_RETURN});
    });
    EXPECT_EQ(track(file, TPM_RETURNCMD), 1);
}

TEST_F(MenusOnTheScreen, LettersAreThoseOfTheCodePageInEitherCaseAndOneThatSeveralHaveGoesRound)
{
    HMENU letters = CreatePopupMenu();
    for (const char *text : {"&\xDC"
                             "bung",
                             "&Alpha", "&Apfel", "Beta"})
        AppendMenuA(letters, MF_STRING, 1 + static_cast<UINT>(GetMenuItemCount(letters)), text);
    then([] { PostMessageA(window, WM_CHAR, 0xFC, 0); });
    EXPECT_EQ(track(letters, TPM_RETURNCMD), 1);
    thenType({'A', 'A', VK_RETURN});
    EXPECT_EQ(track(letters, TPM_RETURNCMD), 3);
    thenType({'B'});
    EXPECT_EQ(track(letters, TPM_RETURNCMD), 4);
    DestroyMenu(letters);
}

TEST_F(MenusOnTheScreen, TheRightButtonIsToldOfWhereItDoesNotChoose)
{
    then([&] {
        moveTo(popupItem(edit, 1));
        mouse_event(MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
        mouse_event(MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
    });
    then([] { EndMenu(); });
    WPARAM position = 99;
    answer = [&](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message == WM_MENURBUTTONUP && reinterpret_cast<HMENU>(noted.lParam) == edit)
            position = noted.wParam;
        return false;
    };
    EXPECT_EQ(track(edit, TPM_RETURNCMD), 0);
    EXPECT_EQ(position, 1u);
}

TEST_F(MenusOnTheScreen, TheSystemMenuMovesAndSizesItsWindowByKeys)
{
    RECT before, after;
    GetWindowRect(window, &before);
    typeWithAlt(VK_SPACE);
    type({'M', VK_RIGHT, VK_DOWN, VK_RETURN});
    serve();
    GetWindowRect(window, &after);
    EXPECT_TRUE(after.left > before.left && after.top > before.top);
    EXPECT_EQ(after.right - after.left, before.right - before.left);
    typeWithAlt(VK_SPACE);
    type({'S', VK_RIGHT, VK_DOWN, VK_RETURN});
    serve();
    RECT sized;
    GetWindowRect(window, &sized);
    EXPECT_TRUE(sized.left == after.left && sized.right > after.right && sized.bottom > after.bottom);
    SetWindowPos(window, nullptr, before.left, before.top, before.right - before.left, before.bottom - before.top,
                 SWP_NOZORDER);
}

TEST_F(MenusOnTheScreen, AGrayedItemOfTheBarOpensNothing)
{
    EnableMenuItem(bar, 0, MF_BYPOSITION | MF_GRAYED);
    clickAt(barItem(0));
    serve();
    EXPECT_EQ(told, (Told{"enter 0", "init bar", "select 0 in bar", "select nothing", "exit 0"}));
}

TEST_F(MenusOnTheScreen, AGrayedCloseItemTakesTheButtonAway)
{
    HMENU system = GetSystemMenu(window, FALSE);
    RECT rect;
    GetWindowRect(window, &rect);
    int x = rect.right - 14, y = rect.top + 13;
    ASSERT_EQ(SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)), HTCLOSE);
    EnableMenuItem(system, SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
    input.moveTo(x, y);
    input.pressButton();
    input.releaseButton();
    windows->noted.clear();
    serve();
    EXPECT_TRUE(windows->notedOf(window, {WM_SYSCOMMAND, WM_CLOSE}).empty());
    GetSystemMenu(window, TRUE);
}

// One round with a bar, a pop-up and submenus.
void workMenus(HWND window, HMENU bar, HMENU file, Input &input)
{
    RECT rect{};
    GetMenuItemRect(window, bar, 0, &rect);
    input.moveTo(rect.left + 5, rect.top + 5);
    input.pressButton();
    input.releaseButton();
    for (WORD key : {VK_DOWN, VK_DOWN, VK_RIGHT, VK_ESCAPE, VK_ESCAPE, VK_ESCAPE})
        input.type(key);
    TestWindows::drain();
    PostMessageA(window, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    TrackPopupMenu(file, 0, 10, 10, 0, window, nullptr);
    DrawMenuBar(window);
    TestWindows::drain();
}

TEST_F(MenusOnTheScreen, CloseWholeWhenMemoryIsShort)
{
    // A key that was refused is not waited for.
    answer = [](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message == WM_ENTERIDLE)
            EndMenu();
        return false;
    };
    workMenus(window, bar, file, input);
    DWORD handles = Win32Control_GdiObjects();
    for (Win32Allocation kind : {WIN32_ALLOCATION_LAYER, WIN32_ALLOCATION_CONTEXT, WIN32_ALLOCATION_BITMAP}) {
        DWORD most = 1;
        for (DWORD number = 1; number <= most && number < 3000; number += 1 + number / 40) {
            told.clear();
            Win32Control_RefuseAllocations(kind, number, 1, 0);
            workMenus(window, bar, file, input);
            most = std::max(most, Win32Control_AllocationsCounted(kind));
            Win32Control_AllowAllocations(kind);
            TestWindows::drain();
            ASSERT_EQ(GetCapture(), nullptr);
            for (const char *name : {"file", "recent"}) {
                auto opened = std::count_if(told.begin(), told.end(), [&](const std::string &each) {
                    return each.starts_with("open " + std::string(name));
                });
                ASSERT_EQ(opened, std::count(told.begin(), told.end(), "close " + std::string(name))) << number;
            }
        }
    }
    EXPECT_EQ(Win32Control_GdiObjects(), handles);
    answer = nullptr;
    thenType({VK_DOWN, VK_RETURN});
    EXPECT_EQ(track(file, TPM_RETURNCMD), 1);
}

// What a program may do, at the worst of times.
TEST_F(MenusOnTheScreen, WhateverEndsInOneOfTheirMessagesTheLoopEndsAndNothingElseDoes)
{
    constexpr UINT messages[] = {WM_ENTERMENULOOP,   WM_INITMENU, WM_INITMENUPOPUP, WM_MENUSELECT, WM_ENTERIDLE,
                                 WM_UNINITMENUPOPUP, WM_MENUCHAR, WM_MEASUREITEM,   WM_DRAWITEM,   WM_EXITMENULOOP};
    enum { EndRoot, EndSubmenu, EndItems, EndWindow, LoseCapture, Deeds };
    for (UINT message : messages) {
        for (int deed = 0; deed < Deeds * 3; ++deed) {
            HWND owner = windows->make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 50, 300, 250});
            HMENU root = CreatePopupMenu(), below = CreatePopupMenu();
            AppendMenuA(root, MF_STRING, 1, "One");
            AppendMenuA(root, MF_OWNERDRAW, 2, nullptr);
            AppendMenuA(root, MF_POPUP, idOf(below), "&Below");
            AppendMenuA(below, MF_STRING, 3, "Three");
            int number = 0;
            windows->handler = [&](const TestWindows::Noted &noted, LRESULT &) {
                if (noted.window != owner || noted.message != message || number++ != deed / Deeds)
                    return false;
                switch (deed % Deeds) {
                case EndRoot: DestroyMenu(root); break;
                case EndSubmenu: DestroyMenu(below); break;
                case EndItems:
                    while (DeleteMenu(root, 0, MF_BYPOSITION)) {
                    }
                    break;
                case EndWindow: DestroyWindow(owner); break;
                default: ReleaseCapture(); break;
                }
                return false;
            };
            for (WORD key : {VK_DOWN, VK_DOWN, VK_DOWN, VK_RIGHT, int{'Q'}, VK_ESCAPE, VK_ESCAPE, VK_ESCAPE})
                PostMessageA(owner, WM_KEYDOWN, key, 0);
            PostMessageA(owner, WM_TIMER, 0, 0);
            SetTimer(owner, 1, 100, [](HWND, UINT, UINT_PTR, DWORD) { EndMenu(); });
            TrackPopupMenu(root, TPM_RETURNCMD, 60, 60, 0, owner, nullptr);
            windows->handler = nullptr;
            ASSERT_EQ(GetCapture(), nullptr) << message << ' ' << deed;
            ASSERT_EQ(FindWindowA(MAKEINTATOM(32768), nullptr), nullptr) << message << ' ' << deed;
            DestroyMenu(root);
            if (IsWindow(owner))
                DestroyWindow(owner);
            TestWindows::drain();
        }
    }
}

HMENU randomMenu(std::mt19937 &random, int depth)
{
    auto number = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    HMENU menu = CreatePopupMenu();
    int count = number(depth ? 12 : 60);
    for (int i = 0; i < count; ++i) {
        UINT flags = static_cast<UINT>((number(5) ? 0 : MF_GRAYED) | (number(4) ? 0 : MF_CHECKED)
                                       | (number(9) ? 0 : MF_MENUBREAK) | (number(9) ? 0 : MF_MENUBARBREAK)
                                       | (number(7) ? 0 : MF_OWNERDRAW));
        std::string text(static_cast<size_t>(number(30)), static_cast<char>('A' + number(25)));
        if (!number(2))
            text.insert(0, "&");
        if (!number(2))
            text += "\tCtrl+X";
        if (!number(6))
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        else if (depth < 4 && !number(3))
            AppendMenuA(menu, flags | MF_POPUP, idOf(randomMenu(random, depth + 1)), text.c_str());
        else
            AppendMenuA(menu, flags, static_cast<UINT>(1 + number(1000)), text.c_str());
    }
    return menu;
}

TEST_F(MenusOnTheScreen, SurviveRandomHands)
{
    constexpr WORD keys[] = {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, 'A', 'K', VK_RETURN, 'X', VK_ESCAPE};
    std::vector<uint32_t> before = wholeScreen();
    int rounds = 0;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        auto number = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
        HMENU menu = randomMenu(random, 0);
        int idles = 0;
        answer = [&](const TestWindows::Noted &noted, LRESULT &) {
            if (noted.message == WM_MEASUREITEM) {
                auto &item = *reinterpret_cast<MEASUREITEMSTRUCT *>(noted.lParam);
                item.itemWidth = static_cast<UINT>(number(200));
                item.itemHeight = static_cast<UINT>(number(60));
            }
            // A press beside the menu is not to move or close the window.
            if (noted.message != WM_ENTERIDLE)
                return noted.message == WM_NCLBUTTONDOWN || noted.message == WM_NCLBUTTONDBLCLK;
            ++rounds;
            if (++idles > 60)
                EndMenu();
            for (int i = number(3); i >= 0; --i) {
                if (number(1)) {
                    input.type(keys[number(12) ? number(7) : 8 + number(2)]);
                    continue;
                }
                POINT point{number(GetSystemMetrics(SM_CXSCREEN)), number(GetSystemMetrics(SM_CYSCREEN))};
                input.moveTo(point.x, point.y);
                char name[16] = "";
                GetClassNameA(WindowFromPoint(point), name, sizeof name);
                if (!strcmp(name, "#32768") || !number(20)) {
                    input.pressButton();
                    input.releaseButton();
                }
            }
            return false;
        };
        UINT chosen =
            static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD, number(1000), number(700), 0, window, nullptr));
        EXPECT_FALSE(chosen && (GetMenuState(menu, chosen, MF_BYCOMMAND) & MF_SEPARATOR));
        EXPECT_EQ(GetCapture(), nullptr);
        serve();
        DestroyMenu(menu);
    }
    EXPECT_GT(rounds, 500) << "the menus were really worked";
    answer = nullptr;
    SetForegroundWindow(window);
    input.moveTo(700, 600);
    serve();
    EXPECT_TRUE(wholeScreen() == before);
}

} // namespace
