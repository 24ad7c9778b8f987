// Rectangles compared and shown by tests.
#pragma once

#include <mtbx/Quickdraw.h>

#include <ostream>

inline bool operator==(const Rect &a, const Rect &b)
{
    return MacEqualRect(&a, &b);
}

inline void PrintTo(const Rect &r, std::ostream *out)
{
    *out << "left " << r.left << " top " << r.top << " right " << r.right << " bottom " << r.bottom;
}

constexpr Rect ltrb(int left, int top, int right, int bottom)
{
    return {static_cast<SInt16>(top), static_cast<SInt16>(left), static_cast<SInt16>(bottom),
            static_cast<SInt16>(right)};
}
