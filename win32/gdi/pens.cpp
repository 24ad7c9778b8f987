// Making pens.
#include "bitmap.h"
#include "pen.h"

#include "kernel/kernel_internal.h"

#include <climits>
#include <cstdlib>

using namespace win32;
using namespace win32::gdi;

namespace {

HPEN createPen(auto fillIn)
{
    if (refusesCreation(ObjectType::Pen))
        return nullptr;
    Pen *pen = new (std::nothrow) Pen;
    if (!pen)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HPEN{});
    bool isWhole = guarded(false, [&] { return fillIn(*pen); });
    if (!isWhole) {
        delete pen;
        return nullptr;
    }
    return static_cast<HPEN>(enter(pen));
}

bool setBrush(Pen &pen, const LOGBRUSH &brush)
{
    pen.brush.style = brush.lbStyle;
    pen.brush.color = brush.lbColor;
    pen.brush.hatch = brush.lbHatch;
    switch (brush.lbStyle) {
    case BS_SOLID:
    case BS_NULL:
        return true;
    case BS_HATCHED:
        return brush.lbHatch <= HS_DIAGCROSS;
    case BS_PATTERN: {
        Bitmap *bitmap = find<Bitmap>(reinterpret_cast<HGDIOBJ>(brush.lbHatch));
        return bitmap && copyPattern(pen.brush, *bitmap);
    }
    case BS_DIBPATTERNPT:
        pen.brush.style = BS_DIBPATTERN;
        return brush.lbHatch && copyDibPattern(pen.brush, reinterpret_cast<const void *>(brush.lbHatch), brush.lbColor);
    default:
        return fail(ERROR_INVALID_PARAMETER, false);
    }
}

bool areLengthsAllowed(DWORD style, DWORD count, const DWORD *lengths)
{
    constexpr DWORD mostLengths = 16;
    if ((style & PS_STYLE_MASK) != PS_USERSTYLE)
        return count == 0 && !lengths;
    if (count == 0 || count > mostLengths || !lengths)
        return false;
    bool allZero = true;
    for (DWORD i = 0; i < count; ++i) {
        if (static_cast<int>(lengths[i]) < 0)
            return false;
        allZero &= lengths[i] == 0;
    }
    return !allZero;
}

// Cosmetic pens are one pixel wide and solid in colour; inside a frame is for geometric ones, alternate
// pixels for cosmetic ones.
bool isAllowed(DWORD style, DWORD width, const LOGBRUSH &brush)
{
    DWORD lineStyle = style & PS_STYLE_MASK;
    bool isGeometric = (style & PS_TYPE_MASK) == PS_GEOMETRIC;
    if (lineStyle > PS_ALTERNATE)
        return false;
    if (isGeometric)
        return lineStyle != PS_ALTERNATE;
    return (style & PS_TYPE_MASK) == PS_COSMETIC && width == 1 && brush.lbStyle == BS_SOLID
           && lineStyle != PS_INSIDEFRAME;
}

} // namespace

// A null pen has a width of one and no colour. A broken line is for a width of one: wider pens draw solid.
HPEN CreatePen(int style, int width, COLORREF color)
{
    return createPen([&](Pen &pen) {
        bool isKnown = style >= PS_SOLID && style <= PS_INSIDEFRAME;
        pen.style = isKnown ? static_cast<DWORD>(style) : DWORD{PS_SOLID};
        pen.width = width == INT_MIN ? INT_MAX : std::abs(width);
        if (pen.style == PS_NULL) {
            pen.width = 1;
            pen.brush.style = BS_NULL;
            return true;
        }
        pen.brush.color = color;
        return true;
    });
}

HPEN CreatePenIndirect(const LOGPEN *pen)
{
    return pen ? CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor) : nullptr;
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH *brush, DWORD count, const DWORD *lengths)
{
    if (!brush || !areLengthsAllowed(style, count, lengths))
        return fail(ERROR_INVALID_PARAMETER, HPEN{});
    if ((style & PS_STYLE_MASK) == PS_NULL)
        return CreatePen(PS_NULL, 0, 0);
    if (!isAllowed(style, width, *brush))
        return fail(ERROR_INVALID_PARAMETER, HPEN{});
    return createPen([&](Pen &pen) {
        pen.isExtended = true;
        pen.style = style;
        pen.width = static_cast<int>(width & 0x7fffffff);
        if (count)
            pen.lengths.assign(lengths, lengths + count);
        return setBrush(pen, *brush);
    });
}
