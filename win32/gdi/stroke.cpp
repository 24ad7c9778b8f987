#include "stroke.h"

namespace win32::gdi {
namespace {

std::span<const Box> boxesOf(const pixman_region32_t &region)
{
    ClipBoxes boxes = clipBoxesOf(region);
    return {boxes.boxes, static_cast<size_t>(boxes.count)};
}

void setBoxes(pixman_region32_t &region, std::span<const Box> boxes)
{
    pixman_region32_fini(&region);
    if (!pixman_region32_init_rects(&region, boxes.data(), static_cast<int>(boxes.size())))
        throw std::bad_alloc();
}

// What lies in the first boxes and not in the second.
void fillDifference(Drawing &drawing, std::span<const Box> first, std::span<const Box> second, const Paint &paint,
                    int rop2)
{
    RegionValue area;
    RegionValue hole;
    setBoxes(area.pixels, first);
    setBoxes(hole.pixels, second);
    if (!pixman_region32_subtract(&area.pixels, &area.pixels, &hole.pixels))
        throw std::bad_alloc();
    drawing.fill(boxesOf(area.pixels), paint, rop2);
}

bool isSame(POINT a, POINT b)
{
    return a.x == b.x && a.y == b.y;
}

// What strokes work with, kept from one to the next.
struct Scratch {
    std::vector<FixedPoint> points;
    Outline outline;
    std::vector<Box> boxes;
};

thread_local Scratch scratch;

Scratch &emptyScratch()
{
    scratch.points.clear();
    scratch.outline.clear();
    return scratch;
}

// The boxes last until the next scan.
std::span<const Box> scanned(const Outline &outline, const Box &bounds)
{
    scratch.boxes.clear();
    scanOutline(outline, WINDING, bounds, scratch.boxes);
    return scratch.boxes;
}

} // namespace

Stroker::Stroker(Drawing &drawing) : drawing_(drawing), pen_(*drawing.dc().state.pen), rop2_(drawing.dc().state.rop2)
{
    DeviceContext &dc = drawing.dc();
    bool isCosmetic = pen_.isExtended && !pen_.isGeometric();
    if (pen_.width > 1 || (!dc.isTranslation() && pen_.width == 1 && !isCosmetic))
        setShape(dc);
    if (pen_.lineStyle() != PS_SOLID)
        pattern_ = DashPattern(pen_, width_);
    paint_ = dc.penPaint();
    if (!pattern_.isSolid() && !pen_.isExtended && dc.state.backgroundMode == OPAQUE)
        gapPaint_ = solidPaint(pixelFor(dc.surface, dc.plainColor(dc.state.backgroundColor)));
}

// A mapping that stretches heights by another factor than widths leaves pens round: the width decides.
void Stroker::setShape(const DeviceContext &dc)
{
    constexpr int widest = 1 << 26; // beyond any surface
    width_ = std::clamp(dc.deviceWidth(pen_.width), 1, widest);
    shape_.radius = width_ / 2.0;
    shape_.isEven = width_ % 2 == 0;
    shape_.cap = pen_.style & PS_ENDCAP_MASK;
    shape_.join = pen_.style & PS_JOIN_MASK;
    shape_.miterLimit = dc.state.miterLimit;
}

Box Stroker::insideFrame(const Box &box) const
{
    if (pen_.lineStyle() != PS_INSIDEFRAME || !isWide())
        return box;
    int before = width_ / 2;
    int behind = (width_ - 1) / 2;
    return {box.x1 + before, box.y1 + before, box.x2 - behind, box.y2 - behind};
}

void Stroker::line(POINT from, POINT to)
{
    if (isNothing())
        return;
    if (!isWide()) {
        thin(ThinLine(from, to));
        return;
    }
    POINT points[] = {from, to};
    lines(points, false);
}

void Stroker::lines(std::span<const POINT> points, bool isClosed)
{
    if (isNothing() || points.empty())
        return;
    if (isWide()) {
        Scratch &empty = emptyScratch();
        for (POINT point : points)
            empty.points.push_back(toFixed(point));
        widen(empty.points, isClosed, drawing_.clip().extents, empty.outline);
        fillOutline(empty.outline);
        return;
    }
    distance_ = 0;
    for (size_t i = 1; i < points.size(); ++i)
        thin(ThinLine(points[i - 1], points[i]));
    if (isClosed)
        thin(ThinLine(points.back(), points.front()));
}

void Stroker::figures(std::span<const Figure> figures)
{
    if (isNothing())
        return;
    if (isWide()) {
        Scratch &empty = emptyScratch();
        widen(figures, drawing_.clip().extents, empty.outline);
        fillOutline(empty.outline);
        return;
    }
    for (const Figure &figure : figures)
        thinFigure(figure);
}

void Stroker::fillOutline(const Outline &outline)
{
    drawing_.fill(scanned(outline, drawing_.clip().extents), paint_, rop2_);
}

// Between pixels, a segment may end in the pixel that the next one begins with.
void Stroker::thinFigure(const Figure &figure)
{
    const std::vector<FixedPoint> &points = figure.points;
    size_t segments = points.empty() ? 0 : points.size() - (figure.isClosed ? 0 : 1);
    bool hasPixel = false;
    POINT firstPixel{};
    POINT lastPixel{};
    distance_ = 0;
    for (size_t i = 0; i < segments; ++i) {
        ThinLine line(points[i], points[i + 1 == points.size() ? 0 : i + 1]);
        int64_t first = 0;
        int64_t last = line.pixels();
        if (last == 0)
            continue;
        if (!hasPixel)
            firstPixel = line.pixel(0);
        else if (isSame(line.pixel(0), lastPixel))
            first = 1;
        lastPixel = line.pixel(last - 1);
        if (hasPixel && figure.isClosed && i + 1 == segments && isSame(lastPixel, firstPixel))
            --last;
        hasPixel = true;
        thin(line, first, last);
    }
}

// Draws a range of a line's pixels.
void Stroker::thin(const ThinLine &line, int64_t first, int64_t last)
{
    int64_t start = distance_ - first;
    distance_ += std::max<int64_t>(last - first, 0);
    if (first >= last || !drawing_.touch(line.bounds()))
        return;
    line.eachVisible(drawing_.clip(), [&](int64_t from, int64_t to) {
        from = std::max(from, first);
        to = std::min(to, last);
        if (from >= to)
            return;
        if (pattern_.isSolid())
            lay(line, from, to, paint_);
        else
            thinBroken(line, from, to, start);
    });
}

void Stroker::lay(const ThinLine &line, int64_t first, int64_t last, const Paint &paint)
{
    if (paint.kind != Paint::Kind::Nothing)
        line.draw(drawing_.surface(), first, last, paint, rop2_);
}

void Stroker::thinBroken(const ThinLine &line, int64_t first, int64_t last, int64_t start)
{
    DashPattern::Place place = pattern_.at(static_cast<double>(start + first));
    while (first < last) {
        int64_t end = std::min(last, first + static_cast<int64_t>(place.left));
        if (end > first)
            lay(line, first, end, place.isDash() ? paint_ : gapPaint_);
        first = end;
        pattern_.advance(place);
    }
}

void Stroker::widen(std::span<const Figure> figures, const Box &bounds, Outline &outline) const
{
    for (const Figure &figure : figures)
        widen(figure.points, figure.isClosed, bounds, outline);
}

void Stroker::widen(std::span<const FixedPoint> points, bool isClosed, const Box &bounds, Outline &outline) const
{
    Widener widener(shape_, outline);
    if (pattern_.isSolid())
        widener.add(points, isClosed);
    else
        widener.addDashes(points, isClosed, pattern_, bounds);
}

void fillAndStroke(Drawing &drawing, Stroker &stroker, std::span<const Box> inside, std::span<const Figure> figures)
{
    Paint paint = drawing.dc().brushPaint();
    int rop2 = drawing.dc().state.rop2;
    if (!stroker.isWide() || stroker.isNothing() || rop2 == R2_COPYPEN) {
        drawing.fill(inside, paint, rop2);
        stroker.figures(figures);
        return;
    }
    // A wide line leaves out of the inside what it covers.
    Scratch &empty = emptyScratch();
    Box bounds = drawing.clip().extents;
    stroker.widen(figures, bounds, empty.outline);
    std::span<const Box> covered = scanned(empty.outline, bounds);
    fillDifference(drawing, inside, covered, paint, rop2);
    drawing.fill(covered, drawing.dc().penPaint(), rop2);
}

void fillAndStrokeCurves(Drawing &drawing, Stroker &stroker, std::span<const Figure> figures)
{
    Outline outline;
    for (const Figure &figure : figures) {
        if (!figure.isClosed)
            continue;
        for (FixedPoint point : figure.points)
            outline.points.push_back({point.x - stroker.shift(), point.y - stroker.shift()});
        outline.close();
    }
    std::vector<Box> inside;
    scanOutline(outline, WINDING, drawing.clip().extents, inside);
    fillAndStroke(drawing, stroker, inside, figures);
}

} // namespace win32::gdi
