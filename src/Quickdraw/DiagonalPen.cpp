// The pen of diagonal lines, and lines through several points.
#include "DiagonalPen.h"

#include "GdiGuard_internal.h"

#include <mtbx/MacMemory.h>

namespace {

// A pen without a width is none of GDI's; asking for it would look like a shortage.
HPEN newPatternPen(const GrafPort &port)
{
    return port.pnSize.h < 0 ? nullptr : MTBX_NewPatternPen(port.pnPat, port.pnSize.h);
}

HPEN newSolidPen(SInt16 width)
{
    LOGBRUSH black = {BS_SOLID, 0, 0};
    return width < 0 ? nullptr : MTBX_ExtCreatePen(PS_GEOMETRIC, static_cast<DWORD>(width), &black, 0, nullptr);
}

void drawThrough(GrafPort &port, HDC context, const Point *points, POINT *corners, SInt16 count)
{
    for (SInt16 i = 0; i < count; ++i)
        corners[i] = {points[i].h, points[i].v};
    DiagonalPen(context, port).draw([&] { Polyline(context, corners, count); });
}

} // namespace

DiagonalPen::DiagonalPen(HDC context, const GrafPort &port)
    : context_(context), port_(port), brush_(MTBX_NewPatternBrush(port.pnPat)), pen_(newPatternPen(port)),
      brushSelection_(context, brush_), penSelection_(context, pen_)
{
}

void DiagonalPen::fillOutline(void (*call)(void *), void *argument)
{
    OwnObject brush(MTBX_NewPatternBrush(port_.pnPat));
    OwnObject pen(newSolidPen(port_.pnSize.h));
    Selection brushSelection(context_, brush), penSelection(context_, pen);
    BeginPath(context_);
    call(argument);
    EndPath(context_);
    WidenPath(context_);
    FillPath(context_);
}

void MTBX_PolyLine(SInt16 count, const Point *points)
{
    constexpr SInt16 usualCount = 32;
    GrafPtr port = qd.thePort;
    if (!port || count <= 0)
        return;
    if (HDC context = contextOf(*port)) {
        POINT few[usualCount];
        Ptr many = count > usualCount ? NewPtr(static_cast<Size>(count * sizeof(POINT))) : nullptr;
        if (many || count <= usualCount)
            drawThrough(*port, context, points, many ? reinterpret_cast<POINT *>(many) : few, count);
        if (many)
            DisposePtr(many);
    }
    MoveTo(points[count - 1].h, points[count - 1].v);
}
