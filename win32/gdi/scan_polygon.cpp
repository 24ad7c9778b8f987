// Polygons and outlines.
#include "edge_scan.h"
#include "outline.h"
#include "scan.h"

namespace win32::gdi {
namespace {

// Its edges are room that is kept.
thread_local EdgeScan edgeScan;

template <class Point> void addPolygon(const Point *points, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        edgeScan.addEdge(points[i], points[i + 1 < count ? i + 1 : 0]);
}

} // namespace

void scanPolygons(std::span<const POINT> points, std::span<const int> counts, int fillMode, const Box &bounds,
                  std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    edgeScan.begin(fillMode, bounds);
    size_t first = 0;
    for (int count : counts) {
        addPolygon(points.data() + first, static_cast<size_t>(count));
        first += static_cast<size_t>(count);
    }
    edgeScan.run(boxes);
}

void scanOutline(const Outline &outline, int fillMode, const Box &bounds, std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    edgeScan.begin(fillMode, bounds);
    size_t first = 0;
    for (size_t end : outline.ends) {
        addPolygon(outline.points.data() + first, end - first);
        first = end;
    }
    edgeScan.run(boxes);
}

} // namespace win32::gdi
