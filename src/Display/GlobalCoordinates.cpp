// Global coordinates: their mode, and the way of points to and from a port's own.
#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/Displays.h>
#include <mtbx/MTBXGlobals.h>

namespace {

SInt32 globalMode = 0;

Point cutPoint(POINT point)
{
    return {static_cast<SInt16>(point.y), static_cast<SInt16>(point.x)};
}

// The native window of the current port if its points have to be converted. The desktop's are those of
// the main window while that is what global means.
HWND convertedWindow()
{
    PixMapPtr pixMap = qd.thePort ? pixMapOf(*qd.thePort) : nullptr;
    if (!pixMap || !pixMap->pmWindow)
        return nullptr;
    return globalMode == 0 && pixMap->pmWindow == GetDesktopWindow() ? nullptr : pixMap->pmWindow;
}

} // namespace

SInt32 GetGlobalMode()
{
    return globalMode;
}

void SetGlobalMode(SInt32 mode)
{
    if (mode == globalMode)
        return;
    globalMode = mode;
    UpdateGlobalMode();
}

void UpdateGlobalMode()
{
    Rect &bounds = qd.screenBits.bounds;
    bounds.top = bounds.left = 0;
    if (globalMode == 0) {
        RECT client{};
        GetClientRect(hWndMain, &client);
        bounds.bottom = static_cast<SInt16>(client.bottom);
        bounds.right = static_cast<SInt16>(client.right);
    } else if (globalMode == 1) {
        MTBX_GetGrayRect(&bounds);
    }
}

void LocalToGlobal(Point *point)
{
    HWND window = convertedWindow();
    if (!window)
        return;
    const Rect &portRect = qd.thePort->portRect;
    POINT native = {point->h - portRect.left, point->v - portRect.top};
    ClientToScreen(window, &native);
    if (globalMode == 0)
        ScreenToClient(hWndMain, &native);
    *point = cutPoint(native);
}

void GlobalToLocal(Point *point)
{
    HWND window = convertedWindow();
    if (!window)
        return;
    POINT native = {point->h, point->v};
    if (globalMode == 0)
        ClientToScreen(hWndMain, &native);
    ScreenToClient(window, &native);
    const Rect &portRect = qd.thePort->portRect;
    *point = cutPoint({native.x + portRect.left, native.y + portRect.top});
}

void GetGlobalMouse(Point *point)
{
    POINT native{};
    GetCursorPos(&native);
    if (globalMode == 0)
        ScreenToClient(hWndMain, &native);
    *point = cutPoint(native);
}
