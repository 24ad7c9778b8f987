// Filled, framed and inverted rectangles.
#include "system_colors.h"

#include "gdi/area.h"
#include "gdi/drawing.h"

#include "kernel/kernel_internal.h"

using namespace win32;
using namespace win32::gdi;

namespace {

// The pixels that a fill of the rectangle covers; sides out of order count back from the first.
Box areaOf(const DeviceContext &dc, const RECT &rect)
{
    return Area(dc, rect.left, rect.top, cutToInt(int64_t{rect.right} - rect.left),
                cutToInt(int64_t{rect.bottom} - rect.top))
        .box();
}

// Lends what the operation needs: the drawing and the brush's paint.
template <class Operation> int withBrush(HDC context, HBRUSH handle, Operation operation)
{
    return guarded(0, [&] {
        Drawing drawing(context);
        const Brush *brush = drawing ? user::brushOrSystemColor(handle) : nullptr;
        if (!brush)
            return 0;
        Tile scratch;
        operation(drawing, drawing.dc().paintOf(*brush, scratch));
        return 1;
    });
}

} // namespace

int FillRect(HDC context, const RECT *rect, HBRUSH brush)
{
    if (!rect)
        return 0;
    return withBrush(context, brush, [&](Drawing &drawing, const Paint &paint) {
        drawing.fill(areaOf(drawing.dc(), *rect), paint, R2_COPYPEN);
    });
}

// A frame of one logical unit on the inside.
int FrameRect(HDC context, const RECT *rect, HBRUSH brush)
{
    if (!rect || rect->left >= rect->right || rect->top >= rect->bottom)
        return 0;
    return withBrush(context, brush, [&](Drawing &drawing, const Paint &paint) {
        auto side = [&](int left, int top, int right, int bottom) {
            drawing.fill(areaOf(drawing.dc(), {left, top, right, bottom}), paint, R2_COPYPEN);
        };
        const RECT &r = *rect;
        side(r.left, r.top, r.right, wrappingSum(r.top, 1));
        side(r.left, wrappingDifference(r.bottom, 1), r.right, r.bottom);
        side(r.left, r.top, wrappingSum(r.left, 1), r.bottom);
        side(wrappingDifference(r.right, 1), r.top, r.right, r.bottom);
    });
}

BOOL InvertRect(HDC context, const RECT *rect)
{
    Drawing drawing(context);
    if (!drawing || !rect)
        return FALSE;
    drawing.fill(areaOf(drawing.dc(), *rect), solidPaint(0), R2_NOT);
    return TRUE;
}

// Every second pixel of the frame is inverted, so that drawing it twice leaves no trace.
BOOL DrawFocusRect(HDC context, const RECT *rect)
{
    if (!rect)
        return FALSE;
    return guarded(FALSE, [&]() -> BOOL {
        Drawing drawing(context);
        if (!drawing)
            return FALSE;
        Box box = intersected(drawing.dc().toSurface(rect->left, rect->top, rect->right, rect->bottom),
                              {-0x4000, -0x4000, 0x4000, 0x4000});
        if (isEmpty(box))
            return TRUE;
        auto dot = [&](int x, int y) {
            if (((x + y) & 1) == 0)
                drawing.fill(pixelBox(x, y), solidPaint(0), R2_NOT);
        };
        for (int x = box.x1; x < box.x2; ++x) {
            dot(x, box.y1);
            if (box.y2 - 1 > box.y1)
                dot(x, box.y2 - 1);
        }
        for (int y = box.y1 + 1; y < box.y2 - 1; ++y) {
            dot(box.x1, y);
            if (box.x2 - 1 > box.x1)
                dot(box.x2 - 1, y);
        }
        return TRUE;
    });
}
