// The window list, and showing and hiding.
#include "MacWindows_internal.h"

#include <mtbx/MTBXGlobals.h>

#include <cstring>

namespace {

// The entry before a window in the list; null for the head.
struct Link {
    WindowPtr before;
    bool isFound;
};
Link findLink(WindowPtr window)
{
    WindowPtr before = nullptr;
    for (WindowPtr entry = gFrontWindow; entry; before = entry, entry = recordOf(entry).nextWindow)
        if (entry == window)
            return {before, true};
    return {nullptr, false};
}

bool isInList(WindowPtr window)
{
    return window && findLink(window).isFound;
}

bool isOverlay(HWND native)
{
    char className[32] = {};
    GetClassNameA(native, className, sizeof className);
    return strcmp(className, "ZP_Overlay_Cls") == 0;
}

} // namespace

void MTBX_UnlinkWindow(WindowPtr window)
{
    Link link = findLink(window);
    if (!link.isFound)
        return;
    WindowRecord &record = recordOf(window);
    if (link.before)
        recordOf(link.before).nextWindow = record.nextWindow;
    else
        gFrontWindow = record.nextWindow;
    record.nextWindow = nullptr;
}

void MTBX_LinkWindow(WindowPtr window)
{
    recordOf(window).nextWindow = gFrontWindow;
    gFrontWindow = window;
}

WindowPtr FrontWindow()
{
    return gFrontWindow;
}

void BringToFront(WindowPtr window)
{
    if (window == gFrontWindow || !isInList(window))
        return;
    MTBX_UnlinkWindow(window);
    MTBX_LinkWindow(window);
}

void SelectWindow(WindowPtr window)
{
    HWND native = nativeWindowOf(window);
    BringToFront(window);
    if (!recordOf(window).visible)
        MacShowWindow(window);
    if (IsWindow(native))
        recordOf(window).hilited = 1;
}

void SendBehind(WindowPtr window, WindowPtr behindWindow)
{
    if (window == behindWindow || !isInList(window) || !isInList(behindWindow))
        return;
    MTBX_UnlinkWindow(window);
    recordOf(window).nextWindow = recordOf(behindWindow).nextWindow;
    recordOf(behindWindow).nextWindow = window;
    HWND native = nativeWindowOf(window), nativeBehind = nativeWindowOf(behindWindow);
    // Without a window to come behind, the system would bring this one to the top.
    if (native && nativeBehind)
        SetWindowPos(native, nativeBehind, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
}

void MacShowWindow(WindowPtr window)
{
    HWND native = nativeWindowOf(window);
    if (!native || !IsWindow(native))
        return;
    if (IsIconic(native))
        OpenIcon(native);
    bool isCounted = !isOverlay(native);
    gOpeningWindowL += isCounted;
    ShowWindow(native, SW_SHOWNA);
    gOpeningWindowL -= isCounted;
    // A window procedure may have disposed of it.
    if (IsWindow(native))
        recordOf(window).visible = 1;
}

void HideWindow(WindowPtr window)
{
    HWND native = nativeWindowOf(window);
    if (!native || !IsWindow(native))
        return;
    ShowWindow(native, SW_HIDE);
    if (IsWindow(native))
        recordOf(window).visible = 0;
}

void ShowHide(WindowPtr window, Boolean showFlag)
{
    if (showFlag)
        MacShowWindow(window);
    else
        HideWindow(window);
}

void HiliteWindow(WindowPtr window, Boolean fHilite)
{
    recordOf(window).hilited = fHilite;
}
