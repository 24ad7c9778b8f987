// Ellipses and round rectangles.
#include "curve.h"
#include "scan.h"
#include "shape_call.h"
#include "shape_rows.h"

using namespace win32;
using namespace win32::gdi;

namespace {

// An ellipse is a round rectangle whose corners meet.
struct RoundShape {
    Box box;
    int cornerWidth; // of the whole ellipse that the corners are quarters of
    int cornerHeight;
};

struct Scratch {
    std::vector<Box> boxes;
    std::vector<Box> frame;
    std::vector<Box> inside;
    std::vector<POINT> pixels;
    ShapeRows rows;
};

Scratch &emptyScratch()
{
    thread_local Scratch scratch;
    scratch.boxes.clear();
    scratch.frame.clear();
    scratch.inside.clear();
    scratch.pixels.clear();
    return scratch;
}

std::span<const Box> scanned(const RoundShape &shape, const Box &bounds, Scratch &scratch)
{
    scanRoundRect(shape.box, shape.cornerWidth, shape.cornerHeight, bounds, scratch.boxes);
    return scratch.boxes;
}

// The curve through the outermost pixels of the box, as Bézier curves.
std::vector<FixedPoint> outlineBeziers(const RoundShape &shape)
{
    const Box &box = shape.box;
    int right = box.x2 - shape.cornerWidth;
    int bottom = box.y2 - shape.cornerHeight;
    constexpr double quarter = std::numbers::pi / 2;
    std::vector<FixedPoint> points;
    auto addCorner = [&](int x, int y, double start) {
        EllipseArc corner = wholeEllipse({x, y, x + shape.cornerWidth, y + shape.cornerHeight});
        corner.start = start;
        corner.sweep = quarter;
        FixedPoint first = corner.at(start);
        // The straight side before it, as a curve that does not bend.
        if (!points.empty())
            points.insert(points.end(), {points.back(), first});
        corner.toBeziers(points);
    };
    addCorner(right, box.y1, 0);
    addCorner(box.x1, box.y1, quarter);
    addCorner(box.x1, bottom, 2 * quarter);
    addCorner(right, bottom, 3 * quarter);
    return points;
}

Figure outlineOf(const RoundShape &shape)
{
    std::vector<FixedPoint> beziers = outlineBeziers(shape);
    Figure figure{{beziers.front()}, true};
    for (size_t i = 1; i + 2 < beziers.size(); i += 3)
        flattenBezier(figure.points.back(), beziers[i], beziers[i + 1], beziers[i + 2], figure.points);
    return figure;
}

void drawWide(Drawing &drawing, Stroker &stroker, RoundShape shape)
{
    Box middle = stroker.insideFrame(shape.box);
    shape.cornerWidth -= shape.box.x2 - shape.box.x1 - (middle.x2 - middle.x1);
    shape.cornerHeight -= shape.box.y2 - shape.box.y1 - (middle.y2 - middle.y1);
    shape.cornerWidth = std::max(shape.cornerWidth, 1);
    shape.cornerHeight = std::max(shape.cornerHeight, 1);
    shape.box = middle;
    Figure outline = outlineOf(shape);
    fillAndStrokeCurves(drawing, stroker, {&outline, 1});
}

// Pixels of the frame are told from others a pixel beyond the clip too, since the clip makes no frame.
Box withMargin(const Box &box)
{
    return {box.x1 - 1, box.y1 - 1, box.x2 + 1, box.y2 + 1};
}

bool areOneColor(const Paint &a, const Paint &b)
{
    return a.kind == Paint::Kind::Solid && b.kind == Paint::Kind::Solid && a.pixel == b.pixel;
}

void drawPlain(Drawing &drawing, Stroker &stroker, const RoundShape &shape)
{
    DeviceContext &dc = drawing.dc();
    int rop2 = dc.state.rop2;
    Scratch &scratch = emptyScratch();
    if (rop2 == R2_COPYPEN && areOneColor(dc.brushPaint(), stroker.paint())) {
        drawing.fill(scanned(shape, drawing.clip().extents, scratch), stroker.paint(), rop2);
        return;
    }
    scratch.rows.set(scanned(shape, withMargin(drawing.clip().extents), scratch));
    scratch.rows.split(scratch.frame, scratch.inside);
    // Where a pen covers what the brush leaves, that need not be laid.
    drawing.fill(rop2 == R2_COPYPEN ? scratch.inside : scratch.boxes, dc.brushPaint(), rop2);
    drawing.fill(scratch.frame, stroker.paint(), rop2);
}

void drawBroken(Drawing &drawing, Stroker &stroker, const RoundShape &shape)
{
    Scratch &scratch = emptyScratch();
    drawing.fill(scanned(shape, drawing.clip().extents, scratch), drawing.dc().brushPaint(), drawing.dc().state.rop2);
    // The order of the frame's pixels is worth its memory up to this size.
    constexpr int largestTraced = 16384;
    if (std::max(shape.box.x2 - shape.box.x1, shape.box.y2 - shape.box.y1) > largestTraced) {
        Figure outline = outlineOf(shape);
        stroker.figures({&outline, 1});
        return;
    }
    scratch.boxes.clear();
    scratch.rows.set(scanned(shape, shape.box, scratch));
    scratch.rows.trace(ShapeRows::middleRow(shape.cornerHeight), scratch.pixels);
    ShapeRows::keepCorners(scratch.pixels);
    stroker.lines(scratch.pixels, true);
}

void drawRoundShape(Drawing &drawing, const RoundShape &shape)
{
    Stroker stroker(drawing);
    if (stroker.isNothing()) {
        drawing.fill(scanned(shape, drawing.clip().extents, emptyScratch()), drawing.dc().brushPaint(),
                     drawing.dc().state.rop2);
    } else if (stroker.isWide()) {
        drawWide(drawing, stroker, shape);
    } else if (stroker.isPlain()) {
        drawPlain(drawing, stroker, shape);
    } else {
        drawBroken(drawing, stroker, shape);
    }
}

// Corners are no larger than the box.
RoundShape shapeOf(const Box &box, int cornerWidth, int cornerHeight)
{
    return {box, std::min(box.x2 - box.x1, cornerWidth), std::min(box.y2 - box.y1, cornerHeight)};
}

// Corners of two pixels are square.
bool isSquare(const RoundShape &shape)
{
    return shape.cornerWidth <= 2 || shape.cornerHeight <= 2;
}

BOOL roundCall(HDC context, const RECT &rect, int cornerWidth, int cornerHeight)
{
    return recordOrDraw(
        context,
        [=](PathRecorder &path) {
            Box box = deviceBox(path.dc(), rect.left, rect.top, rect.right, rect.bottom);
            RoundShape shape = shapeOf(box, cornerWidth, cornerHeight);
            if (isSquare(shape))
                recordRectangle(path, box);
            else
                path.addBeziers(outlineBeziers(shape), true);
        },
        [=](Drawing &drawing) {
            Box box = surfaceBox(drawing.dc(), rect.left, rect.top, rect.right, rect.bottom);
            RoundShape shape = shapeOf(box, cornerWidth, cornerHeight);
            if (isSquare(shape))
                drawRectangle(drawing, box);
            else
                drawRoundShape(drawing, shape);
        });
}

} // namespace

BOOL Ellipse(HDC context, int left, int top, int right, int bottom)
{
    return roundCall(context, {left, top, right, bottom}, INT_MAX, INT_MAX);
}

BOOL RoundRect(HDC context, int left, int top, int right, int bottom, int width, int height)
{
    DeviceContext *dc = findContext(context);
    return dc && roundCall(context, {left, top, right, bottom}, dc->deviceWidth(width), dc->deviceHeight(height));
}
