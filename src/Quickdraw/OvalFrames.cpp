// The outline of an oval, plotted dot by dot with the pen, so that it lies within its rectangle.
#include "Regions_internal.h"
#include "Shapes_internal.h"

namespace {

struct Oval {
    SInt16 centerH, centerV;
    SInt16 radiusH, radiusV;
};

Oval ovalIn(const Rect &rect, Point pen)
{
    auto centerH = static_cast<SInt16>((rect.left + rect.right - pen.h) >> 1);
    auto centerV = static_cast<SInt16>((rect.top + rect.bottom - pen.v) >> 1);
    return {centerH, centerV, static_cast<SInt16>(centerH - rect.left), static_cast<SInt16>(centerV - rect.top)};
}

// The midpoint ellipse: the dots of one quadrant, as distances from the centre, from the top to the side.
template <class Plot> void walkQuadrant(const Oval &oval, Plot plot)
{
    double a = double{1} * oval.radiusH * oval.radiusH, b = double{1} * oval.radiusV * oval.radiusV;
    SInt32 x = 0, y = oval.radiusV;
    double d = b - y * a + a * 0.25;
    plot(x, y);
    for (; a * (y - 0.5) > b * (x + 1); plot(x, y)) {
        bool isInside = d < 0;
        d += b * (2 * x + 3);
        if (!isInside) {
            d += 2 * a * (1 - y);
            --y;
        }
        ++x;
    }
    if (y < 1)
        return;
    d = b * (x + 0.5) * (x + 0.5) + a * (y - 1) * (y - 1) - a * b;
    while (y > 0) {
        if (d < 0) {
            d += 2 * b * (x + 1);
            ++x;
        }
        d += a * (3 - 2 * y);
        --y;
        plot(x, y);
    }
}

// The four dots by the pen calls, for whatever hook or recording wants them.
void plotByPen(const Oval &oval, SInt32 x, SInt32 y)
{
    auto dot = [](SInt32 h, SInt32 v) {
        MoveTo(static_cast<SInt16>(h), static_cast<SInt16>(v));
        Line(0, 0);
    };
    dot(oval.centerH + x, oval.centerV + y);
    dot(oval.centerH - x, oval.centerV - y);
    dot(oval.centerH + x, oval.centerV - y);
    dot(oval.centerH - x, oval.centerV + y);
}

// Paints dots that stand in a row or a column at once, in each quadrant by itself: what falls on what in the
// exclusive-or modes stays the same.
class RunPainter {
public:
    RunPainter(const GrafPort &port, HDC context, const Oval &oval)
        : context_(context), oval_(oval), pen_(port.pnSize), raster_(MTBX_PatternRaster(port.pnMode)),
          joinsRows_(!isXorMode(port.pnMode) || pen_.h == 1), joinsColumns_(!isXorMode(port.pnMode) || pen_.v == 1)
    {
    }

    void plot(SInt32 x, SInt32 y)
    {
        bool inRow = joinsRows_ && y == top_ && y == bottom_ && x == right_ + 1;
        bool inColumn = joinsColumns_ && x == left_ && x == right_ && y == top_ - 1;
        if (inRow) {
            right_ = x;
        } else if (inColumn) {
            top_ = y;
        } else {
            paint();
            left_ = right_ = x;
            top_ = bottom_ = y;
        }
        lastX_ = x;
        lastY_ = y;
    }
    // Paints what is left; the place of the last dot.
    Point end()
    {
        paint();
        return {static_cast<SInt16>(oval_.centerV + lastY_), static_cast<SInt16>(oval_.centerH - lastX_)};
    }

private:
    void paint()
    {
        if (left_ > right_)
            return;
        paintRun(oval_.centerH + left_, oval_.centerV + top_);
        paintRun(oval_.centerH - right_, oval_.centerV - bottom_);
        paintRun(oval_.centerH + left_, oval_.centerV - bottom_);
        paintRun(oval_.centerH - right_, oval_.centerV + top_);
    }
    void paintRun(SInt32 h, SInt32 v)
    {
        PatBlt(context_, h, v, right_ - left_ + pen_.h, bottom_ - top_ + pen_.v, raster_);
    }

    HDC context_;
    Oval oval_;
    Point pen_;
    DWORD raster_;
    bool joinsRows_, joinsColumns_;
    // The run so far, none at first.
    SInt32 left_ = 1, right_ = 0, top_ = 0, bottom_ = 0;
    SInt32 lastX_ = 0, lastY_ = 0;
};

bool isWithinRange(const Rect &rect, Point pen)
{
    auto isInside = [](SInt16 coordinate) { return coordinate >= -16000 && coordinate <= 16000; };
    auto isUsual = [](SInt16 size) { return size >= 1 && size <= 1000; };
    return isInside(rect.left) && isInside(rect.top) && isInside(rect.right) && isInside(rect.bottom)
           && rect.left <= rect.right && rect.top <= rect.bottom && isUsual(pen.h) && isUsual(pen.v);
}

// Nobody but the context is to hear of the single dots.
bool isPlain(const GrafPort &port)
{
    bool isHooked = port.grafProcs && port.grafProcs->lineProc;
    return !isHooked && !regionRecordingOpen && polyPathDepth == 0 && !port.polySave;
}

} // namespace

void FrameOval(const Rect *rect)
{
    if (MTBX_OvalHook(kQDGrafVerbFrame, rect) || !qd.thePort)
        return;
    const GrafPort &port = *qd.thePort;
    Oval oval = ovalIn(*rect, port.pnSize);
    HDC context = contextOf(port);
    if (context && isPlain(port) && isWithinRange(*rect, port.pnSize)) {
        RunPainter painter(port, context, oval);
        walkQuadrant(oval, [&](SInt32 x, SInt32 y) { painter.plot(x, y); });
        Point last = painter.end();
        MoveTo(last.h, last.v);
    } else {
        walkQuadrant(oval, [&](SInt32 x, SInt32 y) { plotByPen(oval, x, y); });
    }
}
