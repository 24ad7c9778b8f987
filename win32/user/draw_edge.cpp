#include "draw_edge.h"

#include "kernel/kernel_internal.h"

namespace win32::user {
namespace {

using gdi::Box;

// A line along the box: the colours of its left and upper, and of its right and lower sides.
struct Layer {
    int leftTop;
    int rightBottom;
};

constexpr UINT raised = 1, sunken = 2; // of the two bits that an edge has for each layer

// By whether the layer is the inner one, is sunken, is soft.
constexpr Layer layers[2][2][2] = {
    {{{COLOR_3DLIGHT, COLOR_3DDKSHADOW}, {COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW}},
     {{COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT}, {COLOR_3DDKSHADOW, COLOR_BTNHIGHLIGHT}}},
    {{{COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW}, {COLOR_3DLIGHT, COLOR_BTNSHADOW}},
     {{COLOR_3DDKSHADOW, COLOR_3DLIGHT}, {COLOR_BTNSHADOW, COLOR_3DLIGHT}}},
};

Layer layerOf(UINT part, bool isInner, UINT flags)
{
    if (flags & BF_MONO)
        return isInner ? Layer{COLOR_WINDOW, COLOR_WINDOW} : Layer{COLOR_WINDOWFRAME, COLOR_WINDOWFRAME};
    if (flags & BF_FLAT)
        return isInner ? Layer{COLOR_BTNFACE, COLOR_BTNFACE} : Layer{COLOR_BTNSHADOW, COLOR_BTNSHADOW};
    return layers[isInner][part == sunken][(flags & BF_SOFT) != 0];
}

int middleColor(UINT flags)
{
    return flags & BF_MONO ? COLOR_WINDOW : COLOR_BTNFACE;
}

// The layers of an edge from the outside to the inside. A part that is to be raised and sunken at once has no
// colours: it and what is inside of it is not drawn.
struct Layers {
    Layers(UINT edge, UINT flags)
    {
        add(edge & BDR_OUTER, false, flags);
        add((edge & BDR_INNER) >> 2, true, flags);
    }

    Layer layer[2];
    int drawn = 0;
    int count = 0;

    bool isContradictory() const { return drawn < count; }

private:
    void add(UINT part, bool isInner, UINT flags)
    {
        if (part == 0)
            return;
        bool hasColors = part != (raised | sunken) || (flags & (BF_MONO | BF_FLAT));
        if (hasColors && !isContradictory())
            layer[drawn++] = layerOf(part, isInner, flags);
        ++count;
    }
};

void drawSides(SystemPainter &painter, const Box &box, const Layer &layer, UINT flags)
{
    if (flags & BF_LEFT)
        painter.fill(Box{box.x1, box.y1, box.x1 + 1, box.y2}, layer.leftTop);
    if (flags & BF_TOP)
        painter.fill(Box{box.x1, box.y1, box.x2, box.y1 + 1}, layer.leftTop);
    if (flags & BF_RIGHT)
        painter.fill(Box{box.x2 - 1, box.y1, box.x2, box.y2}, layer.rightBottom);
    if (flags & BF_BOTTOM)
        painter.fill(Box{box.x1, box.y2 - 1, box.x2, box.y2}, layer.rightBottom);
}

void shrink(Box &box, UINT flags, int by)
{
    box.x1 += flags & BF_LEFT ? by : 0;
    box.y1 += flags & BF_TOP ? by : 0;
    box.x2 -= flags & BF_RIGHT ? by : 0;
    box.y2 -= flags & BF_BOTTOM ? by : 0;
}

void drawStraight(SystemPainter &painter, Box box, const Layers &all, UINT flags)
{
    for (int i = 0; i < all.drawn && !gdi::isEmpty(box); ++i) {
        drawSides(painter, box, all.layer[i], flags);
        shrink(box, flags, 1);
    }
    if ((flags & BF_MIDDLE) && !all.isContradictory())
        painter.fill(box, middleColor(flags));
}

// Falling lines join the corners of the upper left and lower right, rising ones the others. The inner line and
// the middle lie to the left of the outer line or to its right.
void drawDiagonal(SystemPainter &painter, const Box &box, const Layers &all, UINT flags)
{
    UINT sides = flags & BF_RECT;
    bool isFalling = sides == BF_TOPLEFT || sides == BF_BOTTOMRIGHT;
    bool isInnerRight = isFalling ? sides == BF_TOPLEFT : (sides & BF_RIGHT) != 0;
    int length = std::min(box.x2 - box.x1, box.y2 - box.y1);
    Box seen = painter.visibleBox();
    int first = std::max(0, isFalling ? seen.y1 - box.y1 : box.y2 - seen.y2);
    int end = std::min(length, isFalling ? seen.y2 - box.y1 : box.y2 - seen.y1);
    for (int i = first; i < end; ++i) {
        int x = box.x1 + i, y = isFalling ? box.y1 + i : box.y2 - 1 - i;
        for (int layer = 0; layer < all.drawn; ++layer) {
            int place = isInnerRight ? x + layer : x - layer;
            int color = flags & BF_BOTTOM ? all.layer[layer].rightBottom : all.layer[layer].leftTop;
            bool isShort = layer > 0 && i == (isInnerRight ? length - 1 : 0);
            if (!isShort)
                painter.fill(Box{place, y, place + 1, y + 1}, color);
        }
        bool hasMiddle = (flags & BF_MIDDLE) && !all.isContradictory() && (!isInnerRight || i < length - all.count);
        if (hasMiddle) {
            Box middle = isInnerRight ? Box{x + all.count, y, box.x2, y + 1} : Box{box.x1, y, x + 1 - all.count, y + 1};
            painter.fill(middle, middleColor(flags));
        }
    }
}

} // namespace

bool drawEdge(SystemPainter &painter, Box &box, UINT edge, UINT flags)
{
    Layers all(edge, flags);
    if (flags & BF_DIAGONAL)
        drawDiagonal(painter, box, all, flags);
    else
        drawStraight(painter, box, all, flags);
    shrink(box, flags, all.count);
    return !all.isContradictory();
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

BOOL DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags)
{
    SystemPainter painter(context);
    if (!painter || !rect)
        return FALSE;
    return guarded(FALSE, [&] {
        gdi::Box box = painter.boxOf(*rect);
        bool isDrawn = drawEdge(painter, box, edge, flags);
        if (flags & BF_ADJUST) {
            int rings = !!(edge & BDR_OUTER) + !!(edge & BDR_INNER);
            rect->left = gdi::wrappingSum(rect->left, flags & BF_LEFT ? rings : 0);
            rect->top = gdi::wrappingSum(rect->top, flags & BF_TOP ? rings : 0);
            rect->right = gdi::wrappingDifference(rect->right, flags & BF_RIGHT ? rings : 0);
            rect->bottom = gdi::wrappingDifference(rect->bottom, flags & BF_BOTTOM ? rings : 0);
        }
        return isDrawn ? TRUE : FALSE;
    });
}
