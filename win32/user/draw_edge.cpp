// Edges that look raised, sunken or etched.
#include "gdi/box.h"

namespace {

constexpr int none = -1;

// The colours of one ring: of its left and top sides, and of its right and bottom sides.
struct RingColors {
    int topLeft = none;
    int bottomRight = none;
};

RingColors outerColors(UINT edge, UINT flags)
{
    if (flags & (BF_FLAT | BF_MONO)) {
        int color = flags & BF_MONO ? int{COLOR_WINDOWFRAME} : int{COLOR_3DSHADOW};
        return edge & BDR_OUTER ? RingColors{color, color} : RingColors{};
    }
    switch (edge & BDR_OUTER) {
    case BDR_RAISEDOUTER:
        return {flags & BF_SOFT ? int{COLOR_3DHILIGHT} : int{COLOR_3DLIGHT}, COLOR_3DDKSHADOW};
    case BDR_SUNKENOUTER:
        return {flags & BF_SOFT ? int{COLOR_3DDKSHADOW} : int{COLOR_3DSHADOW}, COLOR_3DHILIGHT};
    default:
        return {};
    }
}

RingColors innerColors(UINT edge, UINT flags)
{
    if (flags & (BF_FLAT | BF_MONO)) {
        int color = flags & BF_MONO ? int{COLOR_WINDOW} : int{COLOR_3DFACE};
        return edge & BDR_INNER ? RingColors{color, color} : RingColors{};
    }
    switch (edge & BDR_INNER) {
    case BDR_RAISEDINNER:
        return {flags & BF_SOFT ? int{COLOR_3DLIGHT} : int{COLOR_3DHILIGHT}, COLOR_3DSHADOW};
    case BDR_SUNKENINNER:
        return {flags & BF_SOFT ? int{COLOR_3DSHADOW} : int{COLOR_3DDKSHADOW}, COLOR_3DLIGHT};
    default:
        return {};
    }
}

void fillSide(HDC context, int left, int top, int right, int bottom, int color)
{
    RECT side{left, top, right, bottom};
    FillRect(context, &side, GetSysColorBrush(color));
}

// Draws the sides that are asked for and takes them off the rectangle. The right and bottom sides end at the
// corners of the others.
void drawRing(HDC context, RECT &rect, const RingColors &colors, UINT sides)
{
    if (colors.topLeft == none)
        return;
    RECT inner = rect;
    inner.left += sides & BF_LEFT ? 1 : 0;
    inner.top += sides & BF_TOP ? 1 : 0;
    inner.right -= sides & BF_RIGHT ? 1 : 0;
    inner.bottom -= sides & BF_BOTTOM ? 1 : 0;
    if (sides & BF_LEFT)
        fillSide(context, rect.left, rect.top, inner.left, inner.bottom, colors.topLeft);
    if (sides & BF_TOP)
        fillSide(context, rect.left, rect.top, inner.right, inner.top, colors.topLeft);
    if (sides & BF_RIGHT)
        fillSide(context, inner.right, rect.top, rect.right, rect.bottom, colors.bottomRight);
    if (sides & BF_BOTTOM)
        fillSide(context, rect.left, inner.bottom, rect.right, rect.bottom, colors.bottomRight);
    rect = inner;
}

} // namespace

BOOL DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags)
{
    constexpr UINT diagonal = 0x0010;
    if (!rect || (flags & diagonal) || !GetObjectType(context))
        return FALSE;
    RECT inner = *rect;
    drawRing(context, inner, outerColors(edge, flags), flags & BF_RECT);
    drawRing(context, inner, innerColors(edge, flags), flags & BF_RECT);
    if (flags & BF_MIDDLE)
        FillRect(context, &inner, GetSysColorBrush(flags & BF_MONO ? COLOR_WINDOW : COLOR_3DFACE));
    if (flags & BF_ADJUST)
        *rect = inner;
    return TRUE;
}
