// Rectangles of whole pixels, half-open, as pixman has them; a RECT has the same layout.
#pragma once

#include <windows.h>

#include <pixman.h>

#include <algorithm>

namespace win32::gdi {

using Box = pixman_box32_t; // x1, y1, x2, y2

static_assert(sizeof(Box) == sizeof(RECT) && sizeof(LONG) == sizeof(int));

inline bool isEmpty(const Box &box)
{
    return box.x1 >= box.x2 || box.y1 >= box.y2;
}

// May be empty with its sides in any order.
inline Box intersected(const Box &a, const Box &b)
{
    return {std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2), std::min(a.y2, b.y2)};
}

// Of two boxes that are not empty.
inline Box united(const Box &a, const Box &b)
{
    return {std::min(a.x1, b.x1), std::min(a.y1, b.y1), std::max(a.x2, b.x2), std::max(a.y2, b.y2)};
}

inline Box translated(const Box &box, int x, int y)
{
    return {box.x1 + x, box.y1 + y, box.x2 + x, box.y2 + y};
}

inline bool contains(const Box &outer, const Box &inner)
{
    return inner.x1 >= outer.x1 && inner.y1 >= outer.y1 && inner.x2 <= outer.x2 && inner.y2 <= outer.y2;
}

inline bool contains(const Box &box, int x, int y)
{
    return x >= box.x1 && x < box.x2 && y >= box.y1 && y < box.y2;
}

inline Box boxOf(const RECT &rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline RECT rectOf(const Box &box)
{
    return {box.x1, box.y1, box.x2, box.y2};
}

// The same area with the sides in order.
inline Box ordered(const Box &box)
{
    return {std::min(box.x1, box.x2), std::min(box.y1, box.y2), std::max(box.x1, box.x2), std::max(box.y1, box.y2)};
}

} // namespace win32::gdi
