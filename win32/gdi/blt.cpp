// Filling with the brush, and moving pixels between contexts.
#include "area.h"
#include "blit.h"
#include "drawing.h"
#include "raster_code.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

BOOL fillArea(HDC context, int x, int y, int width, int height, DWORD rop)
{
    Drawing drawing(context);
    if (!drawing)
        return FALSE;
    return guarded(FALSE, [&] {
        DeviceContext &dc = drawing.dc();
        Paint paint = usesPattern(truthTableOf(rop)) ? dc.brushPaint() : solidPaint(0);
        drawing.fill(Area(dc, x, y, width, height).box(), paint, rop2Of(rop));
        return TRUE;
    });
}

BOOL moveArea(HDC context, int x, int y, int width, int height, HDC sourceContext, int sourceX, int sourceY,
              int sourceWidth, int sourceHeight, DWORD rop)
{
    Drawing drawing(context);
    const DeviceContext *source = drawing ? findContext(sourceContext) : nullptr;
    if (!source)
        return FALSE;
    return guarded(FALSE, [&] {
        DeviceContext &dc = drawing.dc();
        Area to(dc, x, y, width, height);
        Area from(*source, sourceX, sourceY, sourceWidth, sourceHeight);
        if (!drawing.touch(to.box()))
            return TRUE;
        BlitGeometry geometry{to.x, to.y, to.width, to.height, from.x, from.y, from.width, from.height};
        BlitColors colors{dc.plainColor(dc.state.textColor), dc.plainColor(dc.state.backgroundColor),
                          source->plainColor(source->state.backgroundColor)};
        Paint paint = usesPattern(truthTableOf(rop)) ? dc.brushPaint() : Paint{};
        return BOOL{
            blit(dc.surface, drawing.clip(), geometry, source->surface, colors, rop, paint, dc.state.stretchMode)};
    });
}

} // namespace

BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD rop)
{
    if (usesSource(truthTableOf(rop)))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return fillArea(context, x, y, width, height, rop);
}

BOOL BitBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop)
{
    if (!usesSource(truthTableOf(rop)))
        return fillArea(context, x, y, width, height, rop);
    return moveArea(context, x, y, width, height, source, sourceX, sourceY, width, height, rop);
}

BOOL StretchBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD rop)
{
    if (!usesSource(truthTableOf(rop)))
        return fillArea(context, x, y, width, height, rop);
    return moveArea(context, x, y, width, height, source, sourceX, sourceY, sourceWidth, sourceHeight, rop);
}
