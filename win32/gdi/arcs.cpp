// Parts of ellipses: arcs, chords and pies.
#include "curve.h"
#include "scan.h"
#include "shape_call.h"
#include "shape_rows.h"

#include <array>
#include <cmath>
#include <numbers>

using namespace win32;
using namespace win32::gdi;

namespace {

enum class ArcKind { Arc, Chord, Pie };

// The frame's pixels of an ellipse from a ray to another, counter-clockwise.
class ArcPixels {
public:
    ArcPixels(const Box &box, const EllipseArc &arc) : arc_(arc)
    {
        std::vector<Box> boxes;
        scanRoundRect(box, box.x2 - box.x1, box.y2 - box.y1, box, boxes);
        rows_.set(boxes);
        rows_.trace(ShapeRows::middleRow(box.y2 - box.y1), frame_);
    }

    std::vector<POINT> pick() const;

private:
    double angleOf(POINT pixel) const;

    EllipseArc arc_;
    ShapeRows rows_;
    std::vector<POINT> frame_;
};

// From 0 to a full turn, as the frame's pixels are ordered.
double ArcPixels::angleOf(POINT pixel) const
{
    double angle = std::atan2((arc_.centerY - pixel.y) * arc_.radiusX, (pixel.x - arc_.centerX) * arc_.radiusY);
    return angle < 0 ? angle + 2 * std::numbers::pi : angle;
}

std::vector<POINT> ArcPixels::pick() const
{
    constexpr double turn = 2 * std::numbers::pi;
    double start = arc_.start < 0 ? arc_.start + turn : arc_.start;
    double end = start + arc_.sweep;
    auto firstFrom = [this](double angle) {
        return std::partition_point(frame_.begin(), frame_.end(), [&](POINT pixel) { return angleOf(pixel) < angle; });
    };
    auto firstBehind = [this](double angle) {
        return std::partition_point(frame_.begin(), frame_.end(), [&](POINT pixel) { return angleOf(pixel) <= angle; });
    };
    auto first = firstFrom(start);
    std::vector<POINT> pixels;
    if (end < turn) {
        pixels.assign(first, std::max(first, firstBehind(end)));
    } else {
        pixels.assign(first, frame_.end());
        pixels.insert(pixels.end(), frame_.begin(), firstBehind(end - turn));
    }
    return pixels;
}

// The figure that is drawn: thin pens and the inside follow the pixels of the whole ellipse.
std::vector<POINT> pixelFigure(const Box &box, const EllipseArc &arc, ArcKind kind)
{
    std::vector<POINT> points = ArcPixels(box, arc).pick();
    ShapeRows::keepCorners(points);
    if (kind == ArcKind::Pie)
        points.push_back({box.x1 + (box.x2 - box.x1) / 2, box.y1 + (box.y2 - box.y1) / 2});
    return points;
}

Figure curveFigure(const EllipseArc &arc, ArcKind kind)
{
    Figure figure{{}, kind != ArcKind::Arc};
    arc.flatten(figure.points);
    if (kind == ArcKind::Pie)
        figure.points.push_back({toFixed(arc.centerX), toFixed(arc.centerY)});
    return figure;
}

void drawPixels(Drawing &drawing, Stroker &stroker, const std::vector<POINT> &points, ArcKind kind)
{
    if (points.empty())
        return;
    if (kind != ArcKind::Arc) {
        std::vector<Box> inside;
        int count = static_cast<int>(points.size());
        scanPolygons(points, {&count, 1}, ALTERNATE, drawing.clip().extents, inside);
        drawing.fill(inside, drawing.dc().brushPaint(), drawing.dc().state.rop2);
    }
    stroker.lines(points, kind != ArcKind::Arc);
}

void drawArc(Drawing &drawing, Box box, POINT start, POINT end, ArcKind kind)
{
    if (isEmpty(box))
        return;
    Stroker stroker(drawing);
    box = stroker.insideFrame(box);
    EllipseArc arc = arcBetween(box, start, end);
    // The order of a frame's pixels is worth its memory up to this size.
    constexpr int largestTraced = 16384;
    bool isTraced = std::max(box.x2 - box.x1, box.y2 - box.y1) <= largestTraced;
    if (!stroker.isWide() && isTraced)
        drawPixels(drawing, stroker, pixelFigure(box, arc, kind), kind);
    else
        fillAndStrokeCurves(drawing, stroker, std::array{curveFigure(arc, kind)});
}

void recordArc(PathRecorder &path, const Box &box, POINT start, POINT end, ArcKind kind)
{
    if (isEmpty(box))
        return;
    EllipseArc arc = arcBetween(box, start, end);
    std::vector<FixedPoint> points;
    arc.toBeziers(points);
    if (kind == ArcKind::Pie) {
        // A straight side, as a curve that does not bend.
        FixedPoint center{toFixed(arc.centerX), toFixed(arc.centerY)};
        points.insert(points.end(), {points.back(), center, center});
    }
    path.addBeziers(points, kind != ArcKind::Arc);
}

BOOL arcCall(HDC context, const RECT &rect, POINT start, POINT end, ArcKind kind)
{
    return recordOrDraw(
        context,
        [=](PathRecorder &path) {
            const DeviceContext &dc = path.dc();
            recordArc(path, deviceBox(dc, rect.left, rect.top, rect.right, rect.bottom), dc.toDevice(start),
                      dc.toDevice(end), kind);
        },
        [=](Drawing &drawing) {
            const DeviceContext &dc = drawing.dc();
            drawArc(drawing, surfaceBox(dc, rect.left, rect.top, rect.right, rect.bottom), dc.toSurface(start),
                    dc.toSurface(end), kind);
        });
}

} // namespace

BOOL Arc(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY)
{
    return arcCall(context, {left, top, right, bottom}, {startX, startY}, {endX, endY}, ArcKind::Arc);
}

BOOL Chord(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY)
{
    return arcCall(context, {left, top, right, bottom}, {startX, startY}, {endX, endY}, ArcKind::Chord);
}

BOOL Pie(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY)
{
    return arcCall(context, {left, top, right, bottom}, {startX, startY}, {endX, endY}, ArcKind::Pie);
}
