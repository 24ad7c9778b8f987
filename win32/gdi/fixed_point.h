// Points between pixels: what outlines, curves and paths are made of.
#pragma once

#include <windows.h>

#include <algorithm>
#include <span>
#include <vector>

namespace win32::gdi {

// Sixteenths of a pixel; the centre of a pixel is a whole number of pixels.
struct FixedPoint {
    int x;
    int y;

    bool operator==(const FixedPoint &) const = default;
};

constexpr int fixedBits = 4;
constexpr int fixedOne = 1 << fixedBits;
// Farther from the origin nothing can be told in sixteenths that products of two lengths would still hold.
constexpr int farthestPixel = 1 << 25;

inline int boundedFixed(int sixteenths)
{
    return std::clamp(sixteenths, -farthestPixel * fixedOne, farthestPixel * fixedOne);
}

inline int toFixed(int pixel)
{
    return std::clamp(pixel, -farthestPixel, farthestPixel) * fixedOne;
}

inline int toFixed(double pixels)
{
    double limit = double{farthestPixel} * fixedOne;
    double sixteenths = pixels * fixedOne;
    // NaN, which no caller means, becomes 0.
    if (!(sixteenths == sixteenths))
        return 0;
    return static_cast<int>(std::clamp(sixteenths + (sixteenths < 0 ? -0.5 : 0.5), -limit, limit));
}

inline FixedPoint toFixed(POINT point)
{
    return {toFixed(static_cast<int>(point.x)), toFixed(static_cast<int>(point.y))};
}

// A row of points that are connected, with or without a way back to the first.
struct Figure {
    std::vector<FixedPoint> points;
    bool isClosed = false;
};

inline Figure figureOf(std::span<const POINT> points, bool isClosed)
{
    Figure figure{{}, isClosed};
    figure.points.reserve(points.size());
    for (POINT point : points)
        figure.points.push_back(toFixed(point));
    return figure;
}

} // namespace win32::gdi
