// Polygons.
#include "line_call.h"
#include "scan.h"

using namespace win32;
using namespace win32::gdi;

namespace {

void drawPolygons(Drawing &drawing, const POINT *points, std::span<const int> counts)
{
    DeviceContext &dc = drawing.dc();
    size_t total = 0;
    for (int count : counts)
        total += static_cast<size_t>(count);
    std::span<const POINT> all = surfacePoints(dc, {points, total});
    thread_local std::vector<Box> inside;
    inside.clear();
    if (dc.state.brush->style != BS_NULL)
        scanPolygons(all, counts, dc.state.polyFillMode, drawing.clip().extents, inside);

    Stroker stroker(drawing);
    std::vector<Figure> figures;
    if (!stroker.isWide())
        drawing.fill(inside, dc.brushPaint(), dc.state.rop2);
    for (size_t next = 0, i = 0; i < counts.size(); next += static_cast<size_t>(counts[i++])) {
        std::span<const POINT> polygon = all.subspan(next, static_cast<size_t>(counts[i]));
        if (stroker.isWide())
            figures.push_back(figureOf(polygon, true));
        else
            stroker.lines(polygon, true);
    }
    if (stroker.isWide())
        fillAndStroke(drawing, stroker, inside, figures);
}

BOOL polygons(HDC context, const POINT *points, std::span<const int> counts)
{
    return recordOrDraw(
        context,
        [=](PathRecorder &path) {
            const POINT *next = points;
            for (int count : counts) {
                path.addLines(std::span<const POINT>(next, static_cast<size_t>(count)), true);
                next += count;
            }
        },
        [=](Drawing &drawing) { drawPolygons(drawing, points, counts); });
}

} // namespace

BOOL Polygon(HDC context, const POINT *points, int count)
{
    if (!points || count < 2)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return polygons(context, points, {&count, 1});
}

BOOL PolyPolygon(HDC context, const POINT *points, const INT *counts, int count)
{
    if (count < 0 || (count > 0 && (!points || !counts)))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::span<const int> all(counts, static_cast<size_t>(count));
    if (!std::all_of(all.begin(), all.end(), [](int corners) { return corners >= 2; }))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return polygons(context, points, all);
}
