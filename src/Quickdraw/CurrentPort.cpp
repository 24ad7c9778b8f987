// The current port, and how ports take a context and give it back.
#include "Quickdraw_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacWindows.h>

GrafPtr firstPort;
HDC fallbackDC;
SInt16 qdErrorValue;
PortFontCalls portFontCalls;

namespace {

void selectFont(GrafPort &port)
{
    if (portFontCalls.select)
        portFontCalls.select(&port);
}

// A window that has none of the host's updates under way; no window record lies behind other ports.
bool isFreeToShowAll(const GrafPort &port, const PixMap *map)
{
    bool isWindow = !port.portOffscreen && map && map->pmWindow;
    return !isWindow || reinterpret_cast<const WindowRecord &>(port).windowPic == 0;
}

// A window gets its context for as long as it is current; false for one that is gone.
bool openWindowContext(GrafPort &port, PixMap &map)
{
    if (!map.pmWindow)
        return false;
    map.pmDC = map.pmWindow == GetDesktopWindow() ? GetWindowDC(map.pmWindow) : GetDC(map.pmWindow);
    if (!map.pmDC && !IsWindow(map.pmWindow)) {
        map.pmWindow = nullptr;
        return false;
    }
    unselectPortFont(port);
    if (gcurrent_palette)
        SelectPalette(map.pmDC, gcurrent_palette, TRUE);
    return map.pmDC;
}

void setOriginAndBrush(GrafPort &port, HDC context)
{
    if (port.portRect.left != 0 || port.portRect.top != 0)
        SetWindowOrgEx(context, port.portRect.left, port.portRect.top, nullptr);
    if (port.portBrush)
        port.portSavedBrush = SelectObject(context, port.portBrush);
}

void selectBitmap(const PixMap &map)
{
    HGDIOBJ former = SelectObject(map.pmDC, map.pmBitmap);
    if (former && former != map.pmBitmap)
        DeleteObject(former);
}

} // namespace

void MTBX_TakeContext(GrafPort &port)
{
    if (!isColorPort(port)) {
        // Its context is its own and keeps its colours.
        if (port.portDC) {
            setOriginAndBrush(port, port.portDC);
            selectFont(port);
        }
        return;
    }
    PixMapPtr map = pixMapOf(port);
    if (!map || (!map->pmPersistentDC && !openWindowContext(port, *map)) || !map->pmDC)
        return;
    setOriginAndBrush(port, map->pmDC);
    selectFont(port);
    if (map->pmBitmap)
        selectBitmap(*map);
    SetBkColor(map->pmDC, port.bkColor);
    SetTextColor(map->pmDC, port.fgColor);
    SetBkMode(map->pmDC, port.txMode == srcOr ? TRANSPARENT : OPAQUE);
}

void MTBX_GiveBackContext(GrafPort &port)
{
    HDC context = contextOf(port);
    if (!context)
        return;
    if (port.portSavedBrush != nothingSaved)
        SelectObject(context, port.portSavedBrush);
    port.portSavedBrush = nothingSaved;
    unselectPortFont(port);
    PixMapPtr map = pixMapOf(port);
    if (map && map->pmWindow && !map->pmPersistentDC) {
        ReleaseDC(map->pmWindow, context);
        map->pmDC = nullptr;
    }
}

void MacSetPort(GrafPtr port)
{
    qdErrorValue = noErr;
    if (!port)
        port = firstPort;
    if (!port || port == qd.thePort)
        return;
    if (qd.thePort)
        MTBX_GiveBackContext(*qd.thePort);
    qd.thePort = port;
    MTBX_TakeContext(*port);
    MTBX_ComputePortClip(*port, nullptr);
    // After the clip was computed: it serves the next computation.
    if (port->visRgn && isFreeToShowAll(*port, pixMapOf(*port)))
        RectRgn(port->visRgn, &port->portRect);
}

void GetPort(GrafPtr *port)
{
    qdErrorValue = noErr;
    *port = qd.thePort;
}

SInt16 QDError()
{
    SInt16 error = qdErrorValue;
    qdErrorValue = noErr;
    return error;
}
