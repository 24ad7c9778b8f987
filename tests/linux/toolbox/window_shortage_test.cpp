// Windows when memory is short, and with a host that acts up.
#include "Graphics.h"

#include <mtbx/MTBXMemory.h>

#include <win32/control.h>

namespace {

WindowPtr newRecord()
{
    constexpr Rect bounds = {0, 0, 50, 50};
    const UInt8 title[] = {1, 'w'};
    return NewCWindow(nullptr, &bounds, title, false, documentProc, nullptr, false, 0);
}

WindowPtr spare;

SInt32 disposeSpare(UInt64)
{
    if (!spare)
        return 0;
    DisposeWindow(spare);
    spare = nullptr;
    return 1;
}

class WindowShortage : public Graphics {
protected:
    ~WindowShortage() override { Win32Control_Reset(); }
};

TEST_F(WindowShortage, TheGrowZoneMayDisposeOfWindowsWhileOneIsMade)
{
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 0, 0, 0);
    DisposeWindow(newRecord());
    DWORD count = Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP);
    ASSERT_GT(count, 10u);
    for (DWORD number = 1; number <= count; ++number) {
        spare = newRecord();
        SetGrowZoneEx(disposeSpare);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, number, 1, 0);
        WindowPtr window = newRecord();
        Win32Control_AllowAllocations(WIN32_ALLOCATION_C_HEAP);
        SetGrowZoneEx(nullptr);
        ASSERT_TRUE(window) << number;
        EXPECT_EQ(FrontWindow(), window);
        DisposeWindow(window);
        DisposeWindow(spare);
        spare = nullptr;
        EXPECT_EQ(FrontWindow(), gDesktopWindow);
    }
}

// What the window procedure does to its window at a message, once.
UINT fatalMessage;
WindowPtr victim;

LRESULT CALLBACK disposeAtMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (victim && message == fatalMessage) {
        WindowPtr disposed = victim;
        victim = nullptr;
        DisposeWindow(disposed);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST_F(WindowShortage, AWindowMayBeDisposedOfInsideItsOwnMessages)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = disposeAtMessage;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "MtbxFragileWindow";
    RegisterClassA(&description);
    for (UINT message : {WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_SIZE, WM_MOVE, WM_NCCALCSIZE, WM_NCPAINT,
                         WM_SETTEXT, WM_SETREDRAW, WM_ERASEBKGND}) {
        for (int call = 0; call < 7; ++call) {
            WindowPtr window = newRecord();
            HWND native = CreateWindowExA(0, "MtbxFragileWindow", "", WS_POPUP | WS_CAPTION, 10, 10, 100, 100, mainWindow,
                                          nullptr, GetModuleHandleA(nullptr), nullptr);
            pixMapOf(window).pmWindow = native;
            SetHwndMacWindowPtr(native, window);
            reinterpret_cast<Rect *>(*reinterpret_cast<WindowPeek>(window)->dataHandle)[0] = ltrb(30, 30, 90, 70);
            MacSetPort(window);
            if (call > 0 && call != 2)
                ShowWindow(native, SW_SHOWNA);
            fatalMessage = message;
            victim = window;
            const UInt8 title[] = {1, 't'};
            switch (call) {
            case 0: MacShowWindow(window); break;
            case 1: HideWindow(window); break;
            case 2: SelectWindow(window); break;
            case 3: SizeWindow(window, 70, 80, true); break;
            case 4: ZoomWindow(window, inZoomIn, true); break;
            case 5: SetWTitle(window, title); break;
            default: SetRedraw(window, true); break;
            }
            bool isDisposed = !victim;
            victim = nullptr;
            EXPECT_EQ(IsWindow(native), !isDisposed) << message << " in call " << call;
            if (!isDisposed)
                DisposeWindow(window);
            EXPECT_EQ(FrontWindow(), gDesktopWindow);
        }
    }
    UnregisterClassA("MtbxFragileWindow", GetModuleHandleA(nullptr));
}

} // namespace
