// The calls on a context's path. One that uses a path up forgets it.
#include "line_call.h"
#include "region.h"

using namespace win32;
using namespace win32::gdi;

namespace {

enum class Use { Stroke, Fill, Both };

// The complete path of a context; null with the last error set when there is none.
Path *completePath(DeviceContext *dc)
{
    if (!dc)
        return nullptr;
    return dc->path.isComplete ? &dc->path : fail(ERROR_CAN_NOT_COMPLETE, static_cast<Path *>(nullptr));
}

void forget(Path &path)
{
    path.isOpen = path.isComplete = path.isFigureOpen = false;
    path.points.clear();
}

std::vector<Box> insideOf(std::span<const Figure> figures, int fillMode, const Box &bounds)
{
    std::vector<Box> boxes;
    scanOutline(outlineOf(figures), fillMode, bounds, boxes);
    return boxes;
}

BOOL usePath(HDC context, Use use)
{
    Drawing drawing(context);
    Path *path = completePath(drawing ? &drawing.dc() : nullptr);
    if (!path)
        return FALSE;
    DeviceContext &dc = drawing.dc();
    BOOL isDone = guarded(BOOL{FALSE}, [&]() -> BOOL {
        std::vector<Figure> figures = flattened(*path, dc.origin);
        std::vector<Box> inside;
        if (use != Use::Stroke)
            inside = insideOf(figures, dc.state.polyFillMode, drawing.clip().extents);
        if (use == Use::Both)
            for (Figure &figure : figures)
                figure.isClosed = true;
        Stroker stroker(drawing);
        if (use == Use::Fill)
            drawing.fill(inside, dc.brushPaint(), dc.state.rop2);
        else if (use == Use::Stroke)
            stroker.figures(figures);
        else
            fillAndStroke(drawing, stroker, inside, figures);
        return TRUE;
    });
    if (isDone)
        forget(*path);
    return isDone;
}

// Replaces the points of a path by figures of lines.
void setFigures(Path &path, std::span<const Figure> figures)
{
    std::vector<PathPoint> points;
    for (const Figure &figure : figures) {
        for (FixedPoint point : figure.points)
            points.push_back({point.x, point.y, PT_LINETO});
        if (figure.points.empty())
            continue;
        points[points.size() - figure.points.size()].type = PT_MOVETO;
        if (figure.isClosed)
            points.back().type |= PT_CLOSEFIGURE;
    }
    path.points.swap(points);
}

std::vector<Figure> figuresOf(const Outline &outline)
{
    std::vector<Figure> figures;
    auto start = outline.points.begin();
    for (size_t end : outline.ends) {
        auto behind = outline.points.begin() + static_cast<ptrdiff_t>(end);
        figures.push_back({{start, behind}, true});
        start = behind;
    }
    return figures;
}

// A box around all points, with room for rounding.
Box boundsOf(std::span<const Figure> figures)
{
    constexpr int reach = farthestPixel + 1;
    Box bounds{reach, reach, -reach, -reach};
    for (const Figure &figure : figures)
        for (FixedPoint point : figure.points)
            bounds = {std::min(bounds.x1, point.x / fixedOne - 1), std::min(bounds.y1, point.y / fixedOne - 1),
                      std::max(bounds.x2, point.x / fixedOne + 2), std::max(bounds.y2, point.y / fixedOne + 2)};
    return bounds;
}

} // namespace

BOOL BeginPath(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    forget(dc->path);
    dc->path.isOpen = true;
    return TRUE;
}

BOOL EndPath(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (!dc->path.isOpen)
        return fail(ERROR_CAN_NOT_COMPLETE, FALSE);
    dc->path.isOpen = false;
    dc->path.isComplete = true;
    return TRUE;
}

BOOL AbortPath(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    forget(dc->path);
    return TRUE;
}

BOOL CloseFigure(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (!dc->path.isOpen)
        return fail(ERROR_CAN_NOT_COMPLETE, FALSE);
    closeFigure(dc->path);
    return TRUE;
}

BOOL StrokePath(HDC context)
{
    return usePath(context, Use::Stroke);
}

BOOL FillPath(HDC context)
{
    return usePath(context, Use::Fill);
}

BOOL StrokeAndFillPath(HDC context)
{
    return usePath(context, Use::Both);
}

BOOL FlattenPath(HDC context)
{
    Path *path = completePath(findContext(context));
    if (!path)
        return FALSE;
    return guarded(BOOL{FALSE}, [path]() -> BOOL {
        setFigures(*path, flattened(*path, {0, 0}));
        return TRUE;
    });
}

BOOL WidenPath(HDC context)
{
    Drawing drawing(context);
    Path *path = completePath(drawing ? &drawing.dc() : nullptr);
    if (!path)
        return FALSE;
    return guarded(BOOL{FALSE}, [&]() -> BOOL {
        Stroker stroker(drawing);
        if (!stroker.isWide())
            return fail(ERROR_CAN_NOT_COMPLETE, FALSE);
        // Dashes are made as far as a classic coordinate goes.
        constexpr int reach = 1 << 15;
        Outline outline;
        stroker.widen(flattened(*path, {0, 0}), {-reach, -reach, reach, reach}, outline);
        setFigures(*path, figuresOf(outline));
        return TRUE;
    });
}

HRGN PathToRegion(HDC context)
{
    DeviceContext *dc = findContext(context);
    Path *path = completePath(dc);
    if (!path)
        return nullptr;
    return guarded(HRGN{}, [&]() -> HRGN {
        if (path->points.empty())
            return nullptr;
        std::vector<Figure> figures = flattened(*path, {0, 0});
        std::vector<Box> boxes = insideOf(figures, dc->state.polyFillMode, boundsOf(figures));
        HRGN handle = static_cast<HRGN>(create<Region>(Box{}));
        if (!handle)
            return nullptr;
        pixman_region32_t &pixels = find<Region>(handle)->pixels;
        pixman_region32_fini(&pixels);
        if (!pixman_region32_init_rects(&pixels, boxes.data(), static_cast<int>(boxes.size()))) {
            destroy(find<Region>(handle));
            throw std::bad_alloc();
        }
        forget(*path);
        return handle;
    });
}
