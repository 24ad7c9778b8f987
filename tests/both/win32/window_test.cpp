// Windows: their messages, tree, places and fields.
#include "TestWindows.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <ostream>

static bool operator==(const RECT &a, const RECT &b)
{
    return EqualRect(&a, &b) != FALSE;
}

static std::ostream &operator<<(std::ostream &out, const RECT &rect)
{
    return out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

namespace {

BOOL CALLBACK collectWindow(HWND window, LPARAM list)
{
    reinterpret_cast<std::vector<HWND> *>(list)->push_back(window);
    return TRUE;
}

int countedCalls;
WNDPROC procedureBefore;

LRESULT CALLBACK countingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    ++countedCalls;
    return CallWindowProcA(procedureBefore, window, message, wParam, lParam);
}

class Windows : public testing::Test {
protected:
    RECT rectOf(HWND window, HWND parent = nullptr)
    {
        RECT rect{};
        GetWindowRect(window, &rect);
        if (parent)
            MapWindowPoints(nullptr, parent, reinterpret_cast<LPPOINT>(&rect), 2);
        return rect;
    }
    std::vector<HWND> childrenOf(HWND parent)
    {
        std::vector<HWND> result;
        for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            result.push_back(child);
        return result;
    }

    // Taking a window of its own from the screen is slow on some systems, so one serves all tests.
    static void SetUpTestSuite() { shared_ = new TestWindows; }
    static void TearDownTestSuite() { delete shared_; }
    void TearDown() override { windows_.forget(frame_); }

    static inline TestWindows *shared_;
    TestWindows &windows_ = *shared_;
    HWND frame_ = windows_.sharedPopup({0, 0, 400, 300});
};

TEST_F(Windows, AChildIsToldOfItsLifeInOrder)
{
    HWND child = windows_.makeChild(frame_, {10, 20, 60, 80});
    DestroyWindow(child);
    const std::vector<UINT> life = {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE,  WM_SIZE,     WM_MOVE,
                                    WM_SHOWWINDOW, WM_SHOWWINDOW, WM_DESTROY, WM_NCDESTROY};
    EXPECT_EQ(windows_.notedOf(child, {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW, WM_DESTROY,
                                       WM_NCDESTROY}),
              life);
    std::vector<UINT> told;
    for (const TestWindows::Noted &noted : windows_.noted) {
        if (noted.window == frame_ && noted.message == WM_PARENTNOTIFY)
            told.push_back(LOWORD(noted.wParam));
    }
    EXPECT_EQ(told, (std::vector<UINT>{WM_CREATE, WM_DESTROY}));
    EXPECT_FALSE(IsWindow(child));
}

TEST_F(Windows, CreationEndsWhereAMessageRefusesIt)
{
    for (UINT refusing : {UINT{WM_NCCREATE}, UINT{WM_CREATE}}) {
        windows_.noted.clear();
        windows_.handler = [&](const TestWindows::Noted &noted, LRESULT &result) {
            result = refusing == WM_CREATE ? -1 : 0;
            return noted.message == refusing;
        };
        EXPECT_EQ(windows_.makeChild(frame_, {0, 0, 10, 10}), nullptr);
        windows_.handler = nullptr;
        bool wasEnded = std::any_of(windows_.noted.begin(), windows_.noted.end(),
                                    [](const auto &noted) { return noted.message == WM_NCDESTROY; });
        EXPECT_TRUE(wasEnded) << refusing;
        EXPECT_TRUE(childrenOf(frame_).empty());
    }
}

TEST_F(Windows, ChildrenComeBelowTheOthersAndMoveInTheOrder)
{
    HWND a = windows_.makeChild(frame_, {0, 0, 10, 10});
    HWND b = windows_.makeChild(frame_, {0, 0, 10, 10});
    HWND c = windows_.makeChild(frame_, {0, 0, 10, 10});
    constexpr UINT orderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    EXPECT_EQ(childrenOf(frame_), (std::vector<HWND>{a, b, c}));
    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, orderOnly);
    EXPECT_EQ(childrenOf(frame_), (std::vector<HWND>{c, a, b}));
    SetWindowPos(c, a, 0, 0, 0, 0, orderOnly);
    EXPECT_EQ(childrenOf(frame_), (std::vector<HWND>{a, c, b}));
    SetWindowPos(a, HWND_BOTTOM, 0, 0, 0, 0, orderOnly);
    EXPECT_EQ(childrenOf(frame_), (std::vector<HWND>{c, b, a}));
    EXPECT_EQ(GetWindow(b, GW_HWNDPREV), c);
    EXPECT_EQ(GetWindow(b, GW_HWNDLAST), a);
    std::vector<HWND> visited;
    EnumChildWindows(frame_, collectWindow, reinterpret_cast<LPARAM>(&visited));
    EXPECT_EQ(visited, (std::vector<HWND>{c, b, a}));
}

TEST_F(Windows, MovingAParentTakesItsChildrenAlong)
{
    HWND child = windows_.makeChild(frame_, {10, 20, 60, 80});
    HWND grandchild = windows_.makeChild(child, {1, 2, 11, 12});
    SetWindowPos(frame_, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT frame = rectOf(frame_);
    RECT expected{frame.left + 11, frame.top + 22, frame.left + 21, frame.top + 32};
    EXPECT_EQ(rectOf(grandchild), expected);
    POINT point{0, 0};
    ClientToScreen(grandchild, &point);
    EXPECT_EQ(point.x, expected.left);
    ScreenToClient(child, &point);
    EXPECT_EQ(point.x, 1);
    EXPECT_EQ(point.y, 2);
}

TEST_F(Windows, SetWindowPosTellsBeforeAndAfterAndTheProgramMayChangeIt)
{
    HWND child = windows_.makeChild(frame_, {10, 20, 60, 80});
    windows_.noted.clear();
    windows_.handler = [&](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.window == child && noted.message == WM_WINDOWPOSCHANGING)
            reinterpret_cast<WINDOWPOS *>(noted.lParam)->cx = 33;
        return false;
    };
    SetWindowPos(child, nullptr, 5, 6, 70, 80, SWP_NOZORDER | SWP_NOACTIVATE);
    windows_.handler = nullptr;
    EXPECT_EQ(rectOf(child, frame_), (RECT{5, 6, 38, 86}));
    EXPECT_EQ(windows_.notedOf(child, {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}),
              (std::vector<UINT>{WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}));
}

TEST_F(Windows, ADestroyedWindowIsKnownEverywhere)
{
    HWND child = windows_.makeChild(frame_, {0, 0, 50, 50});
    HWND grandchild = windows_.makeChild(child, {0, 0, 20, 20});
    SetPropA(child, "Key", reinterpret_cast<HANDLE>(7));
    DestroyWindow(child);
    EXPECT_FALSE(IsWindow(grandchild));
    SetLastError(0);
    EXPECT_FALSE(SetWindowPos(child, nullptr, 0, 0, 1, 1, 0));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_EQ(GetPropA(child, "Key"), nullptr);
    EXPECT_EQ(SendMessageA(child, WM_NULL, 0, 0), 0);
    EXPECT_FALSE(PostMessageA(child, WM_NULL, 0, 0));
    EXPECT_EQ(GetDC(child), nullptr);
    EXPECT_FALSE(DestroyWindow(child));
}

TEST_F(Windows, MayBeDestroyedWithinTheirOwnMessages)
{
    for (UINT during : {UINT{WM_SIZE}, UINT{WM_WINDOWPOSCHANGING}, UINT{WM_WINDOWPOSCHANGED}, UINT{WM_NCCALCSIZE}}) {
        HWND child = windows_.makeChild(frame_, {0, 0, 50, 50});
        HWND grandchild = windows_.makeChild(child, {0, 0, 20, 20});
        windows_.handler = [&](const TestWindows::Noted &noted, LRESULT &) {
            if (noted.window == grandchild && noted.message == during)
                DestroyWindow(child); // the parent of the window that is told
            return false;
        };
        SetWindowPos(grandchild, nullptr, 1, 1, 30, 30, SWP_NOZORDER | SWP_NOACTIVATE);
        windows_.handler = nullptr;
        EXPECT_FALSE(IsWindow(grandchild)) << during;
        EXPECT_TRUE(childrenOf(frame_).empty());
    }
}

TEST_F(Windows, FindByPlace)
{
    HWND low = windows_.makeChild(frame_, {10, 10, 60, 60});
    HWND high = windows_.makeChild(frame_, {30, 30, 80, 80});
    SetWindowPos(high, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {40, 40}, CWP_ALL), high);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {15, 15}, CWP_ALL), low);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {200, 200}, CWP_ALL), frame_);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {2000, 2000}, CWP_ALL), nullptr);
    ShowWindow(high, SW_HIDE);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {40, 40}, CWP_SKIPINVISIBLE), low);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {40, 40}, CWP_ALL), high);
    EnableWindow(low, FALSE);
    EXPECT_EQ(ChildWindowFromPointEx(frame_, {40, 40}, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED), frame_);
}

TEST_F(Windows, KeepLongsTextsPropertiesAndProcedures)
{
    HWND child = windows_.makeChild(frame_, {0, 0, 50, 50});
    EXPECT_EQ(SetWindowLongPtrA(child, GWLP_USERDATA, 12345), 0);
    EXPECT_EQ(GetWindowLongPtrA(child, GWLP_USERDATA), 12345);
    SetLastError(0);
    EXPECT_EQ(GetWindowLongA(child, 0), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_INDEX);
    char text[8] = "";
    SetWindowTextA(child, "A long title");
    EXPECT_EQ(GetWindowTextA(child, text, sizeof text), 7);
    EXPECT_STREQ(text, "A long ");
    EXPECT_EQ(GetWindowTextLengthA(child), 12);
    EXPECT_TRUE(SetPropA(child, "Some key", reinterpret_cast<HANDLE>(1)));
    EXPECT_TRUE(SetPropA(child, "some KEY", reinterpret_cast<HANDLE>(2)));
    EXPECT_EQ(RemovePropA(child, "Some key"), reinterpret_cast<HANDLE>(2));
    EXPECT_EQ(GetPropA(child, "Some key"), nullptr);
    countedCalls = 0;
    procedureBefore = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(countingProcedure)));
    SendMessageA(child, WM_NULL, 0, 0);
    EXPECT_EQ(countedCalls, 1);
    EXPECT_EQ(windows_.notedOf(child, {WM_NULL}).size(), 1u);
    SetWindowLongPtrA(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedureBefore));
}

TEST_F(Windows, ClassesKeepExtraBytesAndCannotGoWithTheirWindows)
{
    WNDCLASSEXA made{};
    made.cbSize = sizeof made;
    made.lpfnWndProc = DefWindowProcA;
    made.cbClsExtra = 8;
    made.cbWndExtra = 16;
    made.hInstance = GetModuleHandleA(nullptr);
    made.lpszClassName = "Extra";
    ASSERT_NE(RegisterClassExA(&made), 0);
    EXPECT_EQ(RegisterClassExA(&made), 0);
    EXPECT_EQ(GetLastError(), ERROR_CLASS_ALREADY_EXISTS);
    HWND window = CreateWindowExA(0, "extra", "", WS_CHILD, 0, 0, 1, 1, frame_, nullptr, made.hInstance, nullptr);
    ASSERT_NE(window, nullptr);
    SetWindowLongPtrA(window, 8, -5);
    EXPECT_EQ(GetWindowLongPtrA(window, 8), -5);
    SetClassLongA(window, 4, 77);
    EXPECT_EQ(GetClassLongA(window, 4), 77u);
    char name[16];
    EXPECT_EQ(GetClassNameA(window, name, sizeof name), 5);
    EXPECT_STREQ(name, "Extra");
    EXPECT_FALSE(UnregisterClassA("Extra", made.hInstance));
    DestroyWindow(window);
    EXPECT_TRUE(UnregisterClassA("Extra", made.hInstance));
    EXPECT_EQ(CreateWindowExA(0, "Extra", "", WS_CHILD, 0, 0, 1, 1, frame_, nullptr, made.hInstance, nullptr), nullptr);
}

TEST_F(Windows, OwnedWindowsGoWithTheirOwner)
{
    HWND owner = windows_.make(WS_POPUP, {0, 0, 100, 100});
    HWND owned = windows_.make(WS_POPUP, {0, 0, 50, 50}, owner);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    EXPECT_EQ(GetParent(owned), owner);
    EXPECT_FALSE(IsChild(owner, owned));
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(Windows, FramesTakeFromTheWindowWhatAdjustWindowRectAdds)
{
    struct {
        DWORD style, extendedStyle;
    } kinds[] = {{WS_CAPTION | WS_SYSMENU, 0},   {WS_POPUP | WS_BORDER, 0},
                 {WS_POPUP | WS_THICKFRAME, 0},  {WS_OVERLAPPEDWINDOW, 0},
                 {WS_POPUP, WS_EX_CLIENTEDGE},   {WS_CAPTION | WS_SYSMENU, WS_EX_TOOLWINDOW},
                 {WS_POPUP | WS_DLGFRAME, 0},    {WS_POPUP, WS_EX_DLGMODALFRAME}};
    for (auto kind : kinds) {
        HWND window = windows_.make(kind.style, {50, 50, 350, 250}, nullptr, kind.extendedStyle);
        RECT client{};
        GetClientRect(window, &client);
        RECT around = client;
        AdjustWindowRectEx(&around, kind.style, FALSE, kind.extendedStyle);
        RECT whole = rectOf(window);
        EXPECT_EQ(around.right - around.left, whole.right - whole.left) << std::hex << kind.style << " " << kind.extendedStyle;
        EXPECT_EQ(around.bottom - around.top, whole.bottom - whole.top) << std::hex << kind.style << " " << kind.extendedStyle;
        POINT corner{0, 0};
        ClientToScreen(window, &corner);
        EXPECT_EQ(corner.x - whole.left, -around.left);
        EXPECT_EQ(corner.y - whole.top, -around.top);
    }
}

TEST_F(Windows, HitTestsTellThePartsOfAFrame)
{
    HWND window = windows_.make(WS_OVERLAPPEDWINDOW | WS_VSCROLL, {50, 50, 350, 250});
    RECT whole = rectOf(window);
    POINT client{5, 5};
    ClientToScreen(window, &client);
    auto hit = [&](int x, int y) { return SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)); };
    EXPECT_EQ(hit(client.x, client.y), HTCLIENT);
    EXPECT_EQ(hit((whole.left + whole.right) / 2, client.y - 5 - GetSystemMetrics(SM_CYCAPTION) / 2), HTCAPTION);
    EXPECT_EQ(hit(whole.left, whole.top), HTTOPLEFT);
    EXPECT_EQ(hit(whole.right - 1, whole.bottom - 1), HTBOTTOMRIGHT);
    EXPECT_EQ(hit(whole.left, (whole.top + whole.bottom) / 2), HTLEFT);
    RECT area;
    GetClientRect(window, &area);
    POINT bar{area.right + 3, area.bottom / 2};
    ClientToScreen(window, &bar);
    EXPECT_EQ(hit(bar.x, bar.y), HTVSCROLL);
    EXPECT_EQ(hit(whole.left - 10, whole.top), HTNOWHERE);
}

TEST_F(Windows, MinimizeMaximizeAndRestore)
{
    HWND window = windows_.make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, {50, 60, 350, 260});
    RECT normal = rectOf(window);
    ShowWindow(window, SW_MAXIMIZE);
    EXPECT_TRUE(IsZoomed(window));
    EXPECT_GT(rectOf(window).right - rectOf(window).left, 500);
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(window));
    EXPECT_FALSE(IsZoomed(window));
    ShowWindow(window, SW_RESTORE);
    EXPECT_TRUE(IsZoomed(window));
    ShowWindow(window, SW_RESTORE);
    EXPECT_FALSE(IsZoomed(window));
    EXPECT_EQ(rectOf(window), normal);
    WINDOWPLACEMENT placement{sizeof placement, 0, 0, {}, {}, {}};
    EXPECT_TRUE(GetWindowPlacement(window, &placement));
    EXPECT_EQ(placement.showCmd, UINT{SW_SHOWNORMAL});
}

TEST_F(Windows, ManyAreMadeAndGoneInOrder)
{
    std::vector<HWND> made;
    for (int i = 0; i < 1000; ++i)
        made.push_back(windows_.makeChild(frame_, {i % 100, i % 70, i % 100 + 20, i % 70 + 20}));
    EXPECT_EQ(childrenOf(frame_), made);
    for (size_t i = 0; i < made.size(); i += 2)
        DestroyWindow(made[i]);
    EXPECT_EQ(childrenOf(frame_).size(), 500u);
}

} // namespace
