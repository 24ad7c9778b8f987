#include "path.h"

#include "curve.h"

namespace win32::gdi {

void PathRecorder::add(FixedPoint point, uint8_t type)
{
    dc_.path.points.push_back({point.x, point.y, type});
}

void PathRecorder::continueFigure()
{
    if (dc_.path.isFigureOpen)
        return;
    add(dc_.state.position, PT_MOVETO);
    dc_.path.isFigureOpen = true;
}

void PathRecorder::lineTo(POINT point)
{
    continueFigure();
    add(point, PT_LINETO);
}

void PathRecorder::beziersTo(std::span<const POINT> points)
{
    continueFigure();
    for (POINT point : points)
        add(point, PT_BEZIERTO);
}

template <class Point> void PathRecorder::addFigure(std::span<const Point> points, uint8_t type, bool isClosed)
{
    add(points.front(), PT_MOVETO);
    for (Point point : points.subspan(1))
        add(point, type);
    if (isClosed)
        dc_.path.points.back().type |= PT_CLOSEFIGURE;
    dc_.path.isFigureOpen = false;
}

void PathRecorder::addLines(std::span<const POINT> points, bool isClosed)
{
    addFigure(points, PT_LINETO, isClosed);
}

void PathRecorder::addBeziers(std::span<const POINT> points, bool isClosed)
{
    addFigure(points, PT_BEZIERTO, isClosed);
}

void PathRecorder::addLines(std::span<const FixedPoint> points, bool isClosed)
{
    addFigure(points, PT_LINETO, isClosed);
}

void PathRecorder::addBeziers(std::span<const FixedPoint> points, bool isClosed)
{
    addFigure(points, PT_BEZIERTO, isClosed);
}

void closeFigure(Path &path)
{
    if (path.isFigureOpen)
        path.points.back().type |= PT_CLOSEFIGURE;
    path.isFigureOpen = false;
}

std::vector<Figure> flattened(const Path &path, POINT offset)
{
    std::vector<Figure> figures;
    FixedPoint distance = toFixed(offset);
    auto moved = [distance](const PathPoint &point) {
        return FixedPoint{boundedFixed(point.x + distance.x), boundedFixed(point.y + distance.y)};
    };
    for (size_t i = 0; i < path.points.size(); ++i) {
        const PathPoint &point = path.points[i];
        uint8_t kind = point.type & ~PT_CLOSEFIGURE;
        if (kind == PT_MOVETO)
            figures.emplace_back();
        std::vector<FixedPoint> &points = figures.back().points;
        if (kind == PT_BEZIERTO) {
            FixedPoint start = points.back();
            flattenBezier(start, moved(path.points[i]), moved(path.points[i + 1]), moved(path.points[i + 2]), points);
            i += 2;
        } else {
            points.push_back(moved(point));
        }
        if (path.points[i].type & PT_CLOSEFIGURE)
            figures.back().isClosed = true;
    }
    return figures;
}

Outline outlineOf(std::span<const Figure> figures)
{
    Outline outline;
    for (const Figure &figure : figures) {
        outline.points.insert(outline.points.end(), figure.points.begin(), figure.points.end());
        outline.close();
    }
    return outline;
}

} // namespace win32::gdi
