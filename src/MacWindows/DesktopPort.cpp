// The Window Manager's own port, and where windows stand.
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacWindows.h>

#include "Quickdraw/Quickdraw_internal.h"

namespace {

Rect inMainWindow(const POINT &topLeft, const POINT &bottomRight)
{
    return {static_cast<SInt16>(topLeft.y), static_cast<SInt16>(topLeft.x), static_cast<SInt16>(bottomRight.y),
            static_cast<SInt16>(bottomRight.x)};
}

void setStructure(WindowRecord &record, HWND window)
{
    RECT frame = {};
    GetWindowRect(window, &frame);
    POINT corners[2] = {{frame.left, frame.top}, {frame.right, frame.bottom}};
    for (POINT &corner : corners)
        ScreenToClient(hWndMain, &corner);
    Rect rect = inMainWindow(corners[0], corners[1]);
    RectRgn(record.strucRgn, &rect);
}

void setContent(WindowRecord &record, HWND window)
{
    RECT client = {};
    GetClientRect(window, &client);
    POINT corners[2] = {{client.left, client.top}, {client.right, client.bottom}};
    for (POINT &corner : corners) {
        ClientToScreen(window, &corner);
        ScreenToClient(hWndMain, &corner);
    }
    Rect rect = inMainWindow(corners[0], corners[1]);
    RectRgn(record.contRgn, &rect);
}

} // namespace

void AdjustStrucRgn(WindowPtr window)
{
    PixMapPtr map = pixMapOf(*window);
    if (!map || !map->pmWindow)
        return;
    auto &record = reinterpret_cast<WindowRecord &>(*window);
    setStructure(record, map->pmWindow);
    setContent(record, map->pmWindow);
}

void GetWMgrPort(GrafPtr *port)
{
    *port = gDesktopWindow;
    if (!gDesktopWindow)
        return;
    POINT origin = {0, 0};
    ClientToScreen(hWndMain, &origin);
    GrafPtr former = qd.thePort;
    MacSetPort(gDesktopWindow);
    SetOrigin(static_cast<SInt16>(-origin.x), static_cast<SInt16>(-origin.y));
    MacSetPort(former);
    AdjustStrucRgn(gDesktopWindow);
}

void GetCWMgrPort(CGrafPtr *port)
{
    GetWMgrPort(port);
}

void PaintOne(WindowPtr, RgnHandle)
{
}

void CalcVisBehind(WindowPtr, RgnHandle)
{
}
