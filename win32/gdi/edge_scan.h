// Areas by their edges, row by row: a pixel belongs to the inside when its centre does; a centre on the left or
// upper edge does, one on the right or lower edge does not.
#pragma once

#include "bands.h"
#include "fixed_point.h"

#include <cstdint>

namespace win32::gdi {

// Takes the edges of closed polygons in any order and makes boxes of what lies inside. It may be used again.
class EdgeScan {
public:
    void begin(int fillMode, const Box &bounds);
    // Between the centres of pixels, exact over their whole range.
    void addEdge(POINT from, POINT to);
    // Between any points.
    void addEdge(FixedPoint from, FixedPoint to);
    // Appends the boxes.
    void run(std::vector<Box> &boxes);

private:
    // Where an edge meets the present row: the first pixel that is not left of it. The exact place is
    // x - behind / height.
    struct Edge {
        int top;
        int bottom;
        int64_t x;
        int64_t behind;
        int64_t step; // of x to the next row, and what behind loses with it
        int64_t slope;
        int64_t height;
        int direction;

        bool isVertical() const { return step == 0 && slope == 0; }

        void advance()
        {
            x += step;
            behind -= slope;
            if (behind < 0) {
                behind += height;
                ++x;
            }
        }
    };
    using Writer = BandWriter<std::vector<Box>>;

    static Edge edgeFrom(POINT upper, POINT lower, int firstRow);
    static Edge edgeFrom(FixedPoint upper, FixedPoint lower, int firstRow);
    template <class Point> void add(Point from, Point to, int fromRow, int toRow);
    void walk(int64_t rows);
    void admit(int row);
    void sortActive();
    void write(Writer &writer, int top, int bottom);
    int writePair(Writer &writer, int row, int end);
    int nextChange() const;
    void advance(int row);

    bool isWinding_ = false;
    Box bounds_{};
    std::vector<Edge> edges_; // by their top
    size_t admitted_ = 0;
    std::vector<Edge *> active_; // from left to right
    size_t slanted_ = 0;         // among the active ones
    int64_t walked_ = 0;
};

} // namespace win32::gdi
