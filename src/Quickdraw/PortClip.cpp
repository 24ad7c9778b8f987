// The clip of the current port and its origin, and how they become the clip of a native context.
#include "Quickdraw_internal.h"
#include "Regions_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacErrors.h>

#include <utility>

namespace {

// The region that the clip is worked out in, and one that limits it. They are kept, since making one may run the
// host's grow-zone function in the midst of the work.
RgnHandle clipScratchRgn;
RgnHandle clipLimitRgn;

void noteShortage()
{
    if (qdErrorValue == noErr)
        qdErrorValue = memFullErr;
}

// clip, or what it has in common with the limit, if there is one. Gives the kind of the result.
int intersect(HRGN result, HRGN clip, HRGN limit)
{
    int kind = limit ? CombineRgn(result, clip, limit, RGN_AND) : CombineRgn(result, clip, nullptr, RGN_COPY);
    if (kind == ERROR) {
        SetRectRgn(result, 0, 0, 0, 0);
        return NULLREGION;
    }
    return kind;
}

// The port's clip in its own coordinates.
int intersectLocally(HRGN result, const GrafPort &port, HRGN extra)
{
    PixMapPtr map = pixMapOf(port);
    bool isWindow = map && map->pmWindow;
    int kind = intersect(result, nativeRegion(port.clipRgn), isWindow ? nativeRegion(port.visRgn) : nullptr);
    return extra ? intersect(result, result, extra) : kind;
}

// From local coordinates to those of the context. The context may still have another origin than the
// port.
POINT offsetToDevice(const GrafPort &port, HDC context)
{
    POINT corner = {port.portRect.left, port.portRect.top};
    if (!isColorPort(port))
        return {-corner.x, -corner.y};
    POINT device = corner;
    LPtoDP(context, &device, 1);
    return {device.x - corner.x, device.y - corner.y};
}

RECT mainWindowOnDesktop(HWND desktop)
{
    RECT client = {};
    GetClientRect(hWndMain, &client);
    POINT corners[2] = {{client.left, client.top}, {client.right, client.bottom}};
    for (POINT &corner : corners) {
        ClientToScreen(hWndMain, &corner);
        ScreenToClient(desktop, &corner);
    }
    return {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

// Limits the desktop port to the main window; the kind of the result, ERROR when there is no region for it.
int limitToMainWindow(HRGN clip, HWND desktop)
{
    RECT window = mainWindowOnDesktop(desktop);
    HRGN limit = nativeRegion(clipLimitRgn);
    if (!SetRectRgn(limit, window.left, window.top, window.right, window.bottom))
        return ERROR;
    return intersect(clip, clip, limit);
}

bool isDesktopPort(const GrafPort &port)
{
    PixMapPtr map = pixMapOf(port);
    return map && map->pmWindow && map->pmWindow == GetDesktopWindow();
}

// A region that could not be moved into the context's range may hide all drawing. None at all is the
// better answer then.
void selectClip(HDC context, HRGN clip, bool outOfRange)
{
    SelectClipRgn(context, clip);
    RECT box;
    if (outOfRange && GetClipBox(context, &box) == NULLREGION)
        SelectClipRgn(context, nullptr);
}

// The current port, if it is open.
GrafPtr openPort()
{
    GrafPtr port = qd.thePort;
    return port && port->clipRgn && port->visRgn ? port : nullptr;
}

} // namespace

void MTBX_StartClipping()
{
    clipScratchRgn = NewRgn();
    clipLimitRgn = NewRgn();
}

void MTBX_StopClipping()
{
    DisposeRgn(std::exchange(clipScratchRgn, nullptr));
    DisposeRgn(std::exchange(clipLimitRgn, nullptr));
}

void MTBX_ComputePortClip(GrafPort &port, RgnHandle extraRgn)
{
    HRGN clip = nativeRegion(clipScratchRgn);
    if (!clip) {
        noteShortage();
        return;
    }
    HDC context = contextOf(port);
    if (!context)
        return;
    int kind = intersectLocally(clip, port, nativeRegion(extraRgn));
    POINT offset = offsetToDevice(port, context);
    bool refused = !offsetNativeRegion(clip, offset.x, offset.y);
    if (kind != NULLREGION && isDesktopPort(port))
        kind = limitToMainWindow(clip, GetDesktopWindow());
    if (kind == ERROR)
        noteShortage();
    else
        selectClip(context, clip, refused && kind != NULLREGION);
}

void SetOrigin(SInt16 h, SInt16 v)
{
    GrafPtr port = openPort();
    if (!port)
        return;
    auto dh = static_cast<SInt16>(h - port->portRect.left);
    auto dv = static_cast<SInt16>(v - port->portRect.top);
    if (dh != 0 || dv != 0) {
        MacOffsetRect(&port->portRect, dh, dv);
        MacOffsetRgn(port->clipRgn, dh, dv);
        MacOffsetRgn(port->visRgn, dh, dv);
        MTBX_ComputePortClip(*port, nullptr);
    }
    if (HDC context = contextOf(*port))
        SetWindowOrgEx(context, port->portRect.left, port->portRect.top, nullptr);
}

void PortSize(SInt16 width, SInt16 height)
{
    if (!qd.thePort)
        return;
    Rect &rect = qd.thePort->portRect;
    rect.right = static_cast<SInt16>(rect.left + width);
    rect.bottom = static_cast<SInt16>(rect.top + height);
}

void MovePortTo(SInt16 leftGlobal, SInt16 topGlobal)
{
    if (!qd.thePort)
        return;
    Rect &rect = qd.thePort->portRect;
    Point corner = {rect.top, rect.left};
    LocalToGlobal(&corner);
    MacOffsetRect(&rect, static_cast<SInt16>(leftGlobal - corner.h), static_cast<SInt16>(topGlobal - corner.v));
}

void SetClip(RgnHandle rgn)
{
    if (GrafPtr port = openPort()) {
        MacCopyRgn(rgn, port->clipRgn);
        MTBX_ComputePortClip(*port, nullptr);
    }
}

void ClipRect(const Rect *rect)
{
    if (GrafPtr port = openPort()) {
        RectRgn(port->clipRgn, rect);
        MTBX_ComputePortClip(*port, nullptr);
    }
}

void GetClip(RgnHandle rgn)
{
    if (GrafPtr port = openPort())
        MacCopyRgn(port->clipRgn, rgn);
}
