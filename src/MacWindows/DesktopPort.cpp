// The Window Manager's own port, and what it leaves to the system.
#include "MacWindows_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>

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

void ClipAbove(WindowPtr)
{
}

void DragWindow(WindowPtr, Point, const Rect *)
{
}

Boolean TrackBox(WindowPtr, Point, WindowPartCode)
{
    return false;
}

Boolean TrackGoAway(WindowPtr, Point)
{
    return true;
}

SInt32 DragGrayRgn(RgnHandle, Point, const Rect *, const Rect *, SInt16, DragGrayRgnProcPtr)
{
    StubError("MacWindows", "DragTheRgn");
    return 0;
}
