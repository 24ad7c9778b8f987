// Polygons and outlines.
#include "edge_scan.h"
#include "outline.h"
#include "scan.h"

namespace win32::gdi {
namespace {

// Its edges are room that is kept.
thread_local EdgeScan edgeScan;

template <class Point> void addPolygon(EdgeScan &scan, const Point *points, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        scan.addEdge(points[i], points[i + 1 < count ? i + 1 : 0]);
}

} // namespace

void scanPolygons(std::span<const POINT> points, std::span<const int> counts, int fillMode, const Box &bounds,
                  std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    EdgeScan &scan = edgeScan;
    scan.begin(fillMode, bounds);
    size_t first = 0;
    for (int count : counts) {
        addPolygon(scan, points.data() + first, static_cast<size_t>(count));
        first += static_cast<size_t>(count);
    }
    scan.run(boxes);
}

void scanOutline(const Outline &outline, int fillMode, const Box &bounds, std::vector<Box> &boxes)
{
    if (isEmpty(bounds))
        return;
    EdgeScan &scan = edgeScan;
    scan.begin(fillMode, bounds);
    size_t first = 0;
    for (size_t end : outline.ends) {
        addPolygon(scan, outline.points.data() + first, end - first);
        first = end;
    }
    scan.run(boxes);
}

} // namespace win32::gdi
