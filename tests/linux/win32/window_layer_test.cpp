// Windows changed at random: exactly what was hidden is painted anew. And windows when memory is short.
#include "TestWindows.h"
#include "WindowScene.h"

#include <win32/control.h>

#include <gtest/gtest.h>

#include <thread>

namespace {

bool isToBePainted(HRGN update, const WindowScene::Shown &shown)
{
    return PtInRegion(update, shown.x, shown.y) != FALSE;
}

struct Updates {
    explicit Updates(const WindowScene &scene)
    {
        add(scene.frame());
        for (HWND window : scene.windows())
            add(window);
    }
    ~Updates()
    {
        for (auto &[window, update] : updates)
            DeleteObject(update);
    }
    void add(HWND window)
    {
        HRGN update = CreateRectRgn(0, 0, 0, 0);
        GetUpdateRgn(window, update, FALSE);
        updates.push_back({window, update});
    }
    HRGN of(HWND window) const
    {
        for (auto &[each, update] : updates)
            if (each == window)
                return update;
        return nullptr;
    }
    std::vector<std::pair<HWND, HRGN>> updates;
};

TEST(RandomWindows, InvalidateExactlyWhatWasHidden)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        WindowScene scene(seed);
        for (int step = 0; step < 60; ++step) {
            WindowScene::Picture before = scene.expected();
            WindowScene::Change change = scene.change();
            WindowScene::Picture after = scene.expected();
            Updates updates(scene);
            int tooMuch = 0, tooLittle = 0;
            for (int y = 0; y < WindowScene::height; ++y)
                for (int x = 0; x < WindowScene::width; ++x) {
                    const WindowScene::Shown &shown = after[static_cast<size_t>(y * WindowScene::width + x)];
                    bool isMoved = scene.isMovedBy(shown.window, change.moved);
                    int oldX = isMoved ? x - change.x : x, oldY = isMoved ? y - change.y : y;
                    bool wasInside = oldX >= 0 && oldY >= 0 && oldX < WindowScene::width && oldY < WindowScene::height;
                    bool isKept = wasInside && before[static_cast<size_t>(oldY * WindowScene::width + oldX)] == shown;
                    bool isPainted = isToBePainted(updates.of(shown.window), shown);
                    tooMuch += isKept && isPainted;
                    tooLittle += !isKept && !isPainted;
                }
            ASSERT_EQ(tooLittle, 0) << change.name << ", seed " << seed << ", step " << step;
            ASSERT_EQ(tooMuch, 0) << change.name << ", seed " << seed << ", step " << step;
            scene.settle();
        }
    }
}

// What cannot be painted for want of memory comes again and again, so there is an end to this.
void serveSome()
{
    MSG message;
    for (int i = 0; i < 100 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); ++i)
        DispatchMessageA(&message);
}

// A life of two windows with input, timers, boxes of both kinds of scroll bars and a caret.
void liveOnce(TestWindows &windows)
{
    HWND frame = windows.make(WS_POPUP | WS_CAPTION | WS_THICKFRAME | WS_HSCROLL | WS_VSCROLL | WS_VISIBLE, {20, 20, 220, 170});
    HWND child = windows.makeChild(frame, {10, 10, 90, 60});
    HWND button = CreateWindowExA(0, "BUTTON", "Press", WS_CHILD | WS_VISIBLE, 100, 10, 60, 25, frame, nullptr, nullptr, nullptr);
    windows.handler = [](const TestWindows::Noted &noted, LRESULT &) {
        if (noted.message != WM_PAINT)
            return false;
        PAINTSTRUCT paint;
        HDC context = BeginPaint(noted.window, &paint);
        Rectangle(context, 5, 5, 50, 40);
        TextOutA(context, 3, 3, "Text", 4);
        EndPaint(noted.window, &paint);
        return true;
    };
    SetPropA(frame, "Property", frame);
    SetWindowTextA(frame, "Another title");
    SetScrollRange(frame, SB_VERT, 0, 50, TRUE);
    CreateCaret(child, nullptr, 2, 10);
    ShowCaret(child);
    SetTimer(frame, 1, 1, nullptr);
    PostMessageA(child, WM_APP, 0, 0);
    SetFocus(child);
    SetWindowPos(frame, nullptr, 40, 35, 180, 160, SWP_NOZORDER);
    ScrollWindow(child, 3, 4, nullptr, nullptr);
    serveSome();
    SetWindowPos(child, HWND_TOP, 0, 0, 70, 50, 0);
    InvalidateRect(button, nullptr, TRUE);
    UpdateWindow(frame);
    if (HDC context = GetWindowDC(frame))
        ReleaseDC(frame, context);
    windows.handler = nullptr;
    windows.noted.clear();
    windows.noted.reserve(1000);
    DestroyWindow(frame);
    DestroyWindow(child);
    DestroyWindow(button);
    serveSome();
}

TEST(ThreadsThatEnd, TakeWindowsOfOthersAlongThatStandInTheirs)
{
    TestWindows windows;
    HWND frame = nullptr, own = nullptr, child = nullptr;
    HANDLE made = CreateEventA(nullptr, FALSE, FALSE, nullptr), over = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    auto makeIn = [](HWND parent) {
        return CreateWindowExA(WS_EX_NOPARENTNOTIFY, TestWindows::className, "", parent ? WS_CHILD : WS_POPUP, 0, 0, 50, 50, parent,
                               nullptr, nullptr, nullptr);
    };
    std::thread thread([&] {
        frame = makeIn(nullptr);
        own = makeIn(frame);
        SetEvent(made);
        WaitForSingleObject(over, INFINITE);
    });
    WaitForSingleObject(made, INFINITE);
    child = makeIn(own);
    HWND stays = makeIn(nullptr);
    SetEvent(over);
    thread.join();
    EXPECT_TRUE(IsWindow(stays));
    for (HWND window : {frame, own, child})
        EXPECT_TRUE(window && !IsWindow(window));
    EXPECT_EQ(GetParent(child), nullptr);
    DestroyWindow(stays);
    CloseHandle(made);
    CloseHandle(over);
}

TEST(WindowShortage, AnyRefusedMemoryOrObjectIsSurvived)
{
    TestWindows windows;
    windows.noted.reserve(1000);
    LoadCursorA(nullptr, IDC_ARROW); // made once
    for (int i = 0; i < 3; ++i)
        liveOnce(windows);
    for (Win32Allocation kind : {WIN32_ALLOCATION_LAYER, WIN32_ALLOCATION_CONTEXT, WIN32_ALLOCATION_BRUSH, WIN32_ALLOCATION_REGION,
                                 WIN32_ALLOCATION_BITMAP, WIN32_ALLOCATION_FONT, WIN32_ALLOCATION_PEN}) {
        Win32Control_RefuseAllocations(kind, 0, 0, 0);
        liveOnce(windows);
        DWORD count = Win32Control_AllocationsCounted(kind);
        Win32Control_AllowAllocations(kind);
        DWORD objects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), pictures = Win32Control_GdiObjects();
        for (DWORD number = 1; number <= count; ++number)
            for (DWORD refused : {DWORD{1}, DWORD{WIN32_WITHOUT_END}}) {
                Win32Control_RefuseAllocations(kind, number, refused, 0);
                liveOnce(windows);
                Win32Control_AllowAllocations(kind);
                TestWindows::drain();
                ASSERT_EQ(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), objects) << kind << ", " << number;
                ASSERT_LE(Win32Control_GdiObjects(), pictures) << kind << ", " << number;
            }
        liveOnce(windows);
        EXPECT_EQ(Win32Control_GdiObjects(), pictures) << kind;
    }
    Win32Control_Reset();
}

} // namespace
