// Outlines: closed polygons between pixels.
#pragma once

#include "box.h"
#include "fixed_point.h"

#include <cstddef>

namespace win32::gdi {

struct Outline {
    std::vector<FixedPoint> points;
    std::vector<size_t> ends; // behind the last point of each polygon

    void clear()
    {
        points.clear();
        ends.clear();
    }
    // Ends the polygon of the points that were appended since the last one.
    void close()
    {
        if (points.size() > (ends.empty() ? 0 : ends.back()))
            ends.push_back(points.size());
    }
};

// The inside of an outline as boxes, as scan.h makes them of polygons.
void scanOutline(const Outline &outline, int fillMode, const Box &bounds, std::vector<Box> &boxes);

} // namespace win32::gdi
