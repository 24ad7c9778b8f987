// Rectangles and points: plain arithmetic that wraps at 16 bits.
#include <mtbx/Quickdraw.h>
#include <mtbx/ToolUtils.h>

#include <algorithm>
#include <cmath>

namespace {

SInt16 wrapped(SInt32 coordinate)
{
    return static_cast<SInt16>(coordinate);
}

} // namespace

void MacSetRect(Rect *rect, SInt16 left, SInt16 top, SInt16 right, SInt16 bottom)
{
    *rect = {top, left, bottom, right};
}

void MacOffsetRect(Rect *rect, SInt16 dh, SInt16 dv)
{
    *rect = {wrapped(rect->top + dv), wrapped(rect->left + dh), wrapped(rect->bottom + dv), wrapped(rect->right + dh)};
}

void MacInsetRect(Rect *rect, SInt16 dh, SInt16 dv)
{
    *rect = {wrapped(rect->top + dv), wrapped(rect->left + dh), wrapped(rect->bottom - dv), wrapped(rect->right - dh)};
}

Boolean SectRect(const Rect *a, const Rect *b, Rect *result)
{
    Rect common = {std::max(a->top, b->top), std::max(a->left, b->left), std::min(a->bottom, b->bottom),
                   std::min(a->right, b->right)};
    // An empty rectangle inside the other one leaves an empty common part.
    Boolean overlap = !EmptyRect(&common);
    *result = overlap ? common : Rect{};
    return overlap;
}

void MacUnionRect(const Rect *a, const Rect *b, Rect *result)
{
    *result = {std::min(a->top, b->top), std::min(a->left, b->left), std::max(a->bottom, b->bottom),
               std::max(a->right, b->right)};
}

Boolean MacPtInRect(Point point, const Rect *rect)
{
    return rect->left <= point.h && point.h < rect->right && rect->top <= point.v && point.v < rect->bottom;
}

Boolean MacEqualRect(const Rect *a, const Rect *b)
{
    return a->top == b->top && a->left == b->left && a->bottom == b->bottom && a->right == b->right;
}

Boolean EmptyRect(const Rect *rect)
{
    return rect->left >= rect->right || rect->top >= rect->bottom;
}

Boolean EqualPt(Point a, Point b)
{
    return a.v == b.v && a.h == b.h;
}

void SetPt(Point *point, SInt16 h, SInt16 v)
{
    *point = {v, h};
}

void AddPt(Point source, Point *destination)
{
    *destination = {wrapped(destination->v + source.v), wrapped(destination->h + source.h)};
}

void SubPt(Point source, Point *destination)
{
    *destination = {wrapped(destination->v - source.v), wrapped(destination->h - source.h)};
}

SInt32 DeltaPoint(Point a, Point b)
{
    UInt32 h = static_cast<UInt16>(a.h - b.h), v = static_cast<UInt16>(a.v - b.v);
    return static_cast<SInt32>(h << 16 | v);
}

SInt16 HiWord(SInt32 word)
{
    return static_cast<SInt16>(word >> 16);
}

SInt16 LoWord(SInt32 word)
{
    return static_cast<SInt16>(word);
}

void PtToAngle(const Rect *rect, Point point, SInt16 *angle)
{
    double dx = point.h - (rect->left + rect->right) * 0.5;
    double dy = (rect->top + rect->bottom) * 0.5 - point.v;
    if (dx == 0) {
        *angle = dy > 0 ? 360 : dy < 0 ? 180 : 90;
        return;
    }
    // Pi to four decimals decides where a whole degree begins.
    double degrees = std::atan2(dy, dx) * 180.0 / 3.1416;
    double clockwise = 360.0 - degrees + 90.0;
    *angle = static_cast<SInt16>(clockwise > 360.0 ? clockwise - 360.0 : clockwise);
}
