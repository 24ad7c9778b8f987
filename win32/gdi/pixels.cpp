// Single pixels of contexts.
#include "drawing.h"

using namespace win32::gdi;

namespace {

bool isVisible(const ClipBoxes &clip, POINT point)
{
    if (!contains(clip.extents, point.x, point.y))
        return false;
    const Box *end = clip.boxes + clip.count;
    for (const Box *box = firstBoxBelow(clip, point.y); box != end && box->y1 <= point.y; ++box)
        if (contains(*box, point.x, point.y))
            return true;
    return false;
}

enum class Outcome : uint8_t { NoContext, Invisible, Set };

// The colour that was set, as the surface has it.
Outcome setPixel(HDC context, int x, int y, COLORREF color, COLORREF &result)
{
    Drawing drawing(context);
    if (!drawing)
        return Outcome::NoContext;
    DeviceContext &dc = drawing.dc();
    POINT point = dc.toSurface(POINT{x, y});
    if (!isVisible(drawing.clip(), point))
        return Outcome::Invisible;
    uint32_t pixel = pixelFor(dc.surface, dc.plainColor(color));
    drawing.fill({point.x, point.y, point.x + 1, point.y + 1}, solidPaint(pixel), dc.state.rop2);
    result = colorOf(dc.surface, pixel);
    return Outcome::Set;
}

} // namespace

COLORREF GetPixel(HDC context, int x, int y)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return CLR_INVALID;
    POINT point = dc->toSurface(POINT{x, y});
    if (!isVisible(dc->clipBoxes(), point))
        return CLR_INVALID;
    return colorOf(dc->surface, readPixel(dc->surface, point.x, point.y));
}

COLORREF SetPixel(HDC context, int x, int y, COLORREF color)
{
    COLORREF result = CLR_INVALID;
    setPixel(context, x, y, color, result);
    return result;
}

BOOL SetPixelV(HDC context, int x, int y, COLORREF color)
{
    COLORREF result;
    return setPixel(context, x, y, color, result) != Outcome::NoContext;
}
