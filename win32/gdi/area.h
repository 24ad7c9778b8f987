// Positions and sizes of calls that move pixels, as pixels of a surface.
#pragma once

#include "device_context.h"

#include <cstdlib>

namespace win32::gdi {

// Without the smallest integer, whose negative is none.
inline int cutToInt(int64_t value)
{
    return static_cast<int>(std::clamp<int64_t>(value, -INT32_MAX, INT32_MAX));
}

// A negative size counts back from the position.
struct Area {
    Area(const DeviceContext &dc, int left, int top, int logicalWidth, int logicalHeight)
    {
        POINT first = dc.toSurface(POINT{left, top});
        x = first.x;
        y = first.y;
        width = cutToInt(logicalWidth);
        height = cutToInt(logicalHeight);
        if (dc.isTranslation())
            return;
        POINT second = dc.toSurface(POINT{cutToInt(int64_t{left} + width), cutToInt(int64_t{top} + height)});
        width = cutToInt(int64_t{second.x} - x);
        height = cutToInt(int64_t{second.y} - y);
    }

    Box box() const
    {
        return {begin(x, width), begin(y, height), cutToInt(begin(x, width) + std::abs(int64_t{width})),
                cutToInt(begin(y, height) + std::abs(int64_t{height}))};
    }

    int x, y, width, height;

private:
    static int begin(int position, int size) { return size < 0 ? cutToInt(int64_t{position} + size + 1) : position; }
};

} // namespace win32::gdi
