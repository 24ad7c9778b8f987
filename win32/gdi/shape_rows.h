// Ellipses and round rectangles row by row: their one-pixel frames, as boxes and in drawing order.
#pragma once

#include "box.h"

#include <windows.h>

#include <span>
#include <vector>

namespace win32::gdi {

// A shape without holes and dents: one run of pixels in each row.
class ShapeRows {
public:
    // From the boxes of a scan.
    void set(std::span<const Box> boxes);

    // The pixels with a neighbour above, below or beside that is outside, and the others.
    void split(std::vector<Box> &frame, std::vector<Box> &inside) const;
    // The frame's pixels in order, counter-clockwise from the right end of a row in the upper half.
    void trace(int startRow, std::vector<POINT> &pixels) const;
    // The lowest row of the upper half of what is so many rows high.
    static int middleRow(int rows) { return (rows + 1) / 2 - 1; }

    // Leaves of a row of pixels those at which it changes its direction: lines between them cover the same.
    static void keepCorners(std::vector<POINT> &pixels);

private:
    struct Row {
        int left;
        int right;
    };

    int top_ = 0;
    std::vector<Row> rows_;
};

} // namespace win32::gdi
