// Lines with the pen: upright and level ones as pen-shaped rectangles, exactly where the pen hangs.
#include "DiagonalPen.h"
#include "Regions_internal.h"
#include "Shapes_internal.h"

namespace {

// The pen's rectangle at its place, drawn out to the target.
void paintStraight(const GrafPort &port, HDC context, SInt16 dh, SInt16 dv)
{
    auto left = static_cast<SInt16>(port.pnLoc.h + std::min<SInt16>(dh, 0));
    auto top = static_cast<SInt16>(port.pnLoc.v + std::min<SInt16>(dv, 0));
    PatBlt(context, clampedCoordinate(left), clampedCoordinate(top), port.pnSize.h + std::abs(dh),
           port.pnSize.v + std::abs(dv), MTBX_PatternRaster(port.pnMode));
}

void drawDiagonal(const GrafPort &port, HDC context, SInt16 h, SInt16 v)
{
    POINT ends[2] = {{clampedCoordinate(port.pnLoc.h), clampedCoordinate(port.pnLoc.v)},
                     {clampedCoordinate(h), clampedCoordinate(v)}};
    auto draw = [&] {
        MoveToEx(context, ends[0].x, ends[0].y, nullptr);
        LineTo(context, ends[1].x, ends[1].y);
    };
    if (isXorMode(port.pnMode)) {
        RasterModeScope raster(context, MTBX_XorRasterMode());
        draw();
        return;
    }
    DiagonalPen(context, port).draw(draw);
}

void addToPath(GrafPort &port, HDC context, SInt16 h, SInt16 v)
{
    port.pnLoc = {v, h};
    LineTo(context, clampedCoordinate(h), clampedCoordinate(v));
}

void drawLine(GrafPort &port, HDC context, SInt16 h, SInt16 v)
{
    auto dh = static_cast<SInt16>(h - port.pnLoc.h);
    auto dv = static_cast<SInt16>(v - port.pnLoc.v);
    if (dh == 0 || dv == 0) {
        paintStraight(port, context, dh, dv);
        MoveToEx(context, h, v, nullptr);
    } else {
        drawDiagonal(port, context, h, v);
    }
}

} // namespace

void MacLineTo(SInt16 h, SInt16 v)
{
    if (MTBX_LineHook({v, h}) || recordRegionPoint(h, v) || !qd.thePort)
        return;
    GrafPort &port = *qd.thePort;
    HDC context = contextOf(port);
    if (polyPathDepth > 0) {
        addToPath(port, context, h, v);
        return;
    }
    if (port.polySave && MTBX_RecordsPoly(port)) [[unlikely]]
        MTBX_AppendPolyPoint(port, h, v);
    else if (context)
        drawLine(port, context, h, v);
    port.pnLoc = {v, h};
}

void Line(SInt16 dh, SInt16 dv)
{
    if (GrafPtr port = qd.thePort)
        MacLineTo(static_cast<SInt16>(port->pnLoc.h + dh), static_cast<SInt16>(port->pnLoc.v + dv));
}
