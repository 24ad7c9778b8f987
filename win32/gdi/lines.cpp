// Lines, rows of lines and Bézier curves.
#include "curve.h"
#include "line_call.h"

using namespace win32;
using namespace win32::gdi;

namespace {

// A row of curves from its first point on the surface: three points for each.
void drawBeziers(Drawing &drawing, POINT start, std::span<const POINT> points)
{
    const DeviceContext &dc = drawing.dc();
    Figure figure;
    figure.points.push_back(toFixed(dc.toSurface(start)));
    for (size_t i = 0; i + 2 < points.size(); i += 3)
        flattenBezier(figure.points.back(), toFixed(dc.toSurface(points[i])), toFixed(dc.toSurface(points[i + 1])),
                      toFixed(dc.toSurface(points[i + 2])), figure.points);
    Stroker(drawing).figures({&figure, 1});
}

// Whether each of several figures has as many points as a line needs.
bool areCountsAllowed(const DWORD *counts, DWORD figures)
{
    return std::all_of(counts, counts + figures, [](DWORD count) { return count >= 2; });
}

// Sets the current position when the call has succeeded.
BOOL moved(HDC context, BOOL isDone, POINT position)
{
    if (isDone)
        findContext(context)->state.position = position;
    return isDone;
}

} // namespace

BOOL MoveToEx(HDC context, int x, int y, LPPOINT old)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (old)
        *old = dc->state.position;
    dc->state.position = {x, y};
    dc->path.isFigureOpen = false;
    return TRUE;
}

BOOL LineTo(HDC context, int x, int y)
{
    BOOL isDone = recordOrDraw(
        context,
        [x, y](PathRecorder &path) {
            path.lineTo({x, y});
        },
        [x, y](Drawing &drawing) {
            const DeviceContext &dc = drawing.dc();
            Stroker(drawing).line(dc.toSurface(dc.state.position), dc.toSurface(POINT{x, y}));
        });
    return moved(context, isDone, {x, y});
}

BOOL Polyline(HDC context, const POINT *points, int count)
{
    if (!points || count < 2)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::span<const POINT> row(points, static_cast<size_t>(count));
    return recordOrDraw(
        context, [row](PathRecorder &path) { path.addLines(row, false); },
        [row](Drawing &drawing) { Stroker(drawing).lines(surfacePoints(drawing.dc(), row), false); });
}

BOOL PolylineTo(HDC context, const POINT *points, DWORD count)
{
    if (!points || count < 1)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::span<const POINT> row(points, count);
    BOOL isDone = recordOrDraw(
        context,
        [row](PathRecorder &path) {
            for (POINT point : row)
                path.lineTo(point);
        },
        [row](Drawing &drawing) {
            std::vector<POINT> whole{drawing.dc().state.position};
            whole.insert(whole.end(), row.begin(), row.end());
            Stroker(drawing).lines(surfacePoints(drawing.dc(), whole), false);
        });
    return moved(context, isDone, row.back());
}

BOOL PolyPolyline(HDC context, const POINT *points, const DWORD *counts, DWORD lines)
{
    if ((lines && (!points || !counts)) || !areCountsAllowed(counts, lines))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return recordOrDraw(
        context,
        [=](PathRecorder &path) {
            const POINT *next = points;
            for (DWORD i = 0; i < lines; next += counts[i++])
                path.addLines({next, counts[i]}, false);
        },
        [=](Drawing &drawing) {
            Stroker stroker(drawing);
            std::vector<Figure> figures;
            const POINT *next = points;
            for (DWORD i = 0; i < lines; next += counts[i++]) {
                std::span<const POINT> row = surfacePoints(drawing.dc(), {next, counts[i]});
                if (stroker.isWide())
                    figures.push_back(figureOf(row, false));
                else
                    stroker.lines(row, false);
            }
            stroker.figures(figures);
        });
}

BOOL PolyBezier(HDC context, const POINT *points, DWORD count)
{
    if (!points || count < 4 || count % 3 != 1)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::span<const POINT> row(points, count);
    return recordOrDraw(
        context, [row](PathRecorder &path) { path.addBeziers(row, false); },
        [row](Drawing &drawing) { drawBeziers(drawing, row.front(), row.subspan(1)); });
}

BOOL PolyBezierTo(HDC context, const POINT *points, DWORD count)
{
    if (!points || count < 3 || count % 3 != 0)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::span<const POINT> row(points, count);
    BOOL isDone = recordOrDraw(
        context, [row](PathRecorder &path) { path.beziersTo(row); },
        [row](Drawing &drawing) { drawBeziers(drawing, drawing.dc().state.position, row); });
    return moved(context, isDone, row.back());
}
