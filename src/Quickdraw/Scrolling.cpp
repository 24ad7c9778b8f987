// Scrolling the pixels of a port.
#include "Regions_internal.h"
#include "Shapes_internal.h"

namespace {

RECT moved(const RECT &rect, SInt32 dh, SInt32 dv)
{
    return {rect.left + dh, rect.top + dv, rect.right + dh, rect.bottom + dv};
}

// Scrolls what lies within the port; the box of what was uncovered. Systems differ on the coordinates of that
// where the context has an origin, so it has none meanwhile.
RECT scroll(const GrafPort &port, HDC context, const Rect &rect, SInt16 dh, SInt16 dv)
{
    POINT origin = {};
    SetWindowOrgEx(context, 0, 0, &origin);
    RECT area = moved({rect.left, rect.top, rect.right, rect.bottom}, -origin.x, -origin.y);
    RECT whole = {0, 0, port.portRect.right - port.portRect.left, port.portRect.bottom - port.portRect.top};
    RECT clip, uncovered = {};
    IntersectRect(&clip, &area, &whole);
    bool isDone = ScrollDC(context, dh, dv, &area, &clip, nullptr, &uncovered);
    SetWindowOrgEx(context, origin.x, origin.y, nullptr);
    return isDone ? moved(uncovered, origin.x, origin.y) : RECT{};
}

} // namespace

void ScrollRect(const Rect *rect, SInt16 dh, SInt16 dv, RgnHandle update)
{
    HDC context = currentContext();
    if (!context)
        return;
    RECT uncovered = scroll(*qd.thePort, context, *rect, dh, dv);
    if (!update)
        return;
    MacSetRectRgn(update, static_cast<SInt16>(uncovered.left), static_cast<SInt16>(uncovered.top),
                  static_cast<SInt16>(uncovered.right), static_cast<SInt16>(uncovered.bottom));
    RasterModeScope raster(context, R2_COPYPEN);
    EraseRgn(update);
}
