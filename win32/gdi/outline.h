// Outlines: closed polygons between pixels, and which pixels they cover.
#pragma once

#include "box.h"
#include "fixed_point.h"

#include <cstddef>
#include <cstdint>

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

class OutlineScanner {
public:
    // The pixels whose centres lie inside, by ALTERNATE or WINDING; a centre on an edge counts when the
    // inside is to the right of it or below. Boxes are disjoint, from top to bottom and in each row from left
    // to right; equal rows are joined. They are appended to the list. Only what lies within the bounds is made.
    void scan(const Outline &outline, int fillMode, const Box &bounds, std::vector<Box> &boxes);

private:
    struct Edge {
        int top;    // first row
        int bottom; // behind the last row
        int x;      // of the current row, the first pixel that is not to the left of the edge
        int winding;
        int whole;       // pixels from a row to the next,
        uint32_t part;   // and parts of the length
        uint32_t error;  // parts that the current row is ahead
        uint32_t length;

        void step()
        {
            x += whole;
            error += part;
            if (error >= length) {
                error -= length;
                ++x;
            }
        }
        bool isVertical() const { return whole == 0 && part == 0; }
    };

    void collectEdges(const Outline &outline, const Box &bounds);
    void addEdge(FixedPoint from, FixedPoint to, const Box &bounds);
    int activate(int row);
    void scanPair(int row, int end);
    void scanMany(int row, int end, int fillMode);
    void emitRow(int fillMode);
    void emit(int left, int right);
    void finishRow(int row, int bottom);

    std::vector<Edge> edges_;
    std::vector<Edge *> active_;
    size_t nextEdge_ = 0;
    Box bounds_{};
    std::vector<Box> *boxes_ = nullptr;
    size_t rowStart_ = 0;   // where the boxes of the current row begin
    size_t rowAbove_ = 0;   // where those of the row above it do
};

} // namespace win32::gdi
