// The window and its part at a point.
#include "MacWindows_internal.h"

#include <mtbx/MTBXGlobals.h>

namespace {

constexpr UINT seenChildren = CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT;

struct Target {
    HWND native;
    WindowPtr window;
};

// A window of its own: one of ours if the main window is among its parents and owners.
Target ownedWindow(HWND native)
{
    HWND parent = GetParent(native);
    while (parent && parent != hWndMain)
        parent = GetParent(parent);
    return {native, parent ? GetHwndMacWindowPtr(native) : nullptr};
}

// Inside the main window: a child, or the main window's own area, which is the Window Manager's port.
Target childOfMain(POINT screenPoint, WindowPtr managerPort)
{
    POINT local = screenPoint;
    ScreenToClient(hWndMain, &local);
    HWND child = ChildWindowFromPointEx(hWndMain, local, seenChildren);
    if (child == hWndMain)
        return {GetDesktopWindow(), managerPort};
    return {child, child ? GetHwndMacWindowPtr(child) : nullptr};
}

Target targetAt(POINT screenPoint)
{
    WindowPtr managerPort = nullptr;
    GetWMgrPort(&managerPort);
    if (!managerPort || !nativeWindowOf(managerPort))
        return {};
    HWND desktop = nativeWindowOf(managerPort);
    POINT local = screenPoint;
    ScreenToClient(desktop, &local);
    HWND native = ChildWindowFromPointEx(desktop, local, seenChildren);
    if (!native)
        return {};
    return native == hWndMain ? childOfMain(screenPoint, managerPort) : ownedWindow(native);
}

bool isContent(LRESULT hit)
{
    return hit == HTCLIENT || hit == HTHSCROLL || hit == HTVSCROLL;
}

} // namespace

WindowPartCode MacFindWindow(Point thePoint, WindowPtr *whichWindow)
{
    *whichWindow = nullptr;
    POINT screenPoint = {thePoint.h, thePoint.v};
    ClientToScreen(hWndMain, &screenPoint);
    Target target = targetAt(screenPoint);
    if (!target.window)
        return inDesk;
    *whichWindow = target.window;
    LPARAM packed = MAKELPARAM(screenPoint.x, screenPoint.y);
    return isContent(DefWindowProcA(target.native, WM_NCHITTEST, 0, packed)) ? inContent : inDrag;
}
