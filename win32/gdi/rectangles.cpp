// Rectangles.
#include "shape_call.h"

#include <array>

using namespace win32;
using namespace win32::gdi;

namespace {

// The corners of a frame in the outermost pixels of a box, counter-clockwise from the upper right one.
std::array<POINT, 4> corners(const Box &box)
{
    return {{{box.x2 - 1, box.y1}, {box.x1, box.y1}, {box.x1, box.y2 - 1}, {box.x2 - 1, box.y2 - 1}}};
}

void drawFrame(Drawing &drawing, const Box &box, const Paint &paint)
{
    Box sides[4] = {{box.x1, box.y1, box.x2, box.y1 + 1}};
    size_t count = 1;
    if (box.y2 - box.y1 > 2)
        sides[count++] = {box.x1, box.y1 + 1, box.x1 + 1, box.y2 - 1};
    if (box.y2 - box.y1 > 2 && box.x2 - box.x1 > 1)
        sides[count++] = {box.x2 - 1, box.y1 + 1, box.x2, box.y2 - 1};
    if (box.y2 - box.y1 > 1)
        sides[count++] = {box.x1, box.y2 - 1, box.x2, box.y2};
    drawing.fill({sides, count}, paint, drawing.dc().state.rop2);
}

// A broken frame; a box of one row or column has one line only.
void drawThinFrame(Stroker &stroker, const Box &box)
{
    if (box.x2 - box.x1 == 1)
        stroker.line({box.x1, box.y1}, {box.x1, box.y2});
    else if (box.y2 - box.y1 == 1)
        stroker.line({box.x1, box.y1}, {box.x2, box.y1});
    else
        stroker.lines(corners(box), true);
}

} // namespace

void win32::gdi::drawRectangle(Drawing &drawing, const Box &box)
{
    if (isEmpty(box))
        return;
    DeviceContext &dc = drawing.dc();
    int rop2 = dc.state.rop2;
    Stroker stroker(drawing);
    // Without a frame, its last row and column are left out all the same.
    if (stroker.isNothing()) {
        drawing.fill({box.x1, box.y1, box.x2 - 1, box.y2 - 1}, dc.brushPaint(), rop2);
        return;
    }
    if (stroker.isWide()) {
        Box middle = stroker.insideFrame(box);
        Box inside{middle.x1, middle.y1, middle.x2 - 1, middle.y2 - 1};
        Figure frame = figureOf(corners(middle), true);
        fillAndStroke(drawing, stroker, {&inside, isEmpty(inside) ? 0u : 1u}, {&frame, 1});
        return;
    }
    drawing.fill({box.x1 + 1, box.y1 + 1, box.x2 - 1, box.y2 - 1}, dc.brushPaint(), rop2);
    if (stroker.isPlain())
        drawFrame(drawing, box, stroker.paint());
    else
        drawThinFrame(stroker, box);
}

void win32::gdi::recordRectangle(PathRecorder &path, const Box &box)
{
    if (!isEmpty(box))
        path.addLines(figureOf(corners(box), true).points, true);
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom)
{
    return recordOrDraw(
        context, [=](PathRecorder &path) { recordRectangle(path, deviceBox(path.dc(), left, top, right, bottom)); },
        [=](Drawing &drawing) { drawRectangle(drawing, surfaceBox(drawing.dc(), left, top, right, bottom)); });
}
