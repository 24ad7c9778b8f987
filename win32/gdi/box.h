// Rectangles of whole pixels, half-open, as pixman has them; a RECT has the same layout.
#pragma once

#include <windows.h>

#include <pixman.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace win32::gdi {

using Box = pixman_box32_t; // x1, y1, x2, y2

static_assert(sizeof(Box) == sizeof(RECT) && sizeof(LONG) == sizeof(int));

constexpr Box everywhere = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};

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

// Coordinates from outside may be anything: sums wrap at 32 bits.
inline int wrappingSum(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

inline int wrappingDifference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

// The nearest coordinate, halves upwards; what lies outside of the range becomes its end.
inline int roundedToInt(double value)
{
    double rounded = std::floor(value + 0.5);
    return rounded >= INT_MAX ? INT_MAX : rounded > INT_MIN ? static_cast<int>(rounded) : INT_MIN;
}

inline Box translated(const Box &box, int x, int y)
{
    return {wrappingSum(box.x1, x), wrappingSum(box.y1, y), wrappingSum(box.x2, x), wrappingSum(box.y2, y)};
}

// The same box the other way.
inline Box translatedBack(const Box &box, int x, int y)
{
    return {wrappingDifference(box.x1, x), wrappingDifference(box.y1, y), wrappingDifference(box.x2, x),
            wrappingDifference(box.y2, y)};
}

inline Box pixelBox(int x, int y)
{
    return {x, y, wrappingSum(x, 1), wrappingSum(y, 1)};
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
