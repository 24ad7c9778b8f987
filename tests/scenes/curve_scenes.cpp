// Curves of one pixel: Bézier curves, parts of ellipses, paths.
#include "scenes.h"

namespace scenes {
namespace {

void beziers(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    POINT points[] = {{5, 5}, {100, 150}, {130, 0}, {200, 100}, {220, 160}, {30, 150}, {20, 90}};
    PolyBezier(canvas.dc(), points, 7);
    MoveToEx(canvas.dc(), 10, 150, nullptr);
    PolyBezierTo(canvas.dc(), points + 1, 3);
    POINT loop[] = {{120, 5}, {260, 90}, {90, 70}, {205, 5}};
    PolyBezier(canvas.dc(), loop, 4);
}

template <class Part> void parts(Part part)
{
    POINT rays[] = {{60, 0}, {60, 20}, {40, 50}, {20, 45}, {0, 20}, {10, 0}, {30, -10}, {31, 0}};
    for (int i = 0; i < 12; ++i) {
        int x = 2 + i % 4 * 52, y = 2 + i / 4 * 53;
        POINT start = rays[i % 8], end = rays[(i * 3 + 2) % 8];
        part(x, y, x + 48 - i, y + 30 + i, x + start.x, y + start.y, x + end.x, y + end.y);
    }
}

void arcs(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 0));
    parts([&](auto... numbers) { Arc(canvas.dc(), numbers...); });
}

void chords(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 0));
    canvas.brush(RGB(255, 0, 0));
    parts([&](auto... numbers) { Chord(canvas.dc(), numbers...); });
}

void pies(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 0));
    canvas.brush(RGB(0, 0, 255));
    parts([&](auto... numbers) { Pie(canvas.dc(), numbers...); });
}

void unframedPies(Canvas &canvas)
{
    canvas.noPen();
    canvas.brush(RGB(0, 255, 255));
    parts([&](auto... numbers) { Pie(canvas.dc(), numbers...); });
}

// Straight figures only: what is filled and stroked is exact.
void straightFigures(HDC dc)
{
    BeginPath(dc);
    MoveToEx(dc, 10, 10, nullptr);
    LineTo(dc, 120, 30);
    LineTo(dc, 30, 90);
    CloseFigure(dc);
    Rectangle(dc, 60, 20, 180, 80);
    POINT star[] = {{100, 60}, {140, 150}, {40, 90}, {190, 95}, {60, 150}};
    Polygon(dc, star, 5);
    Polyline(dc, star, 3);
    EndPath(dc);
}

void straightPathFilled(Canvas &canvas)
{
    canvas.brush(RGB(255, 0, 255));
    straightFigures(canvas.dc());
    FillPath(canvas.dc());
    SetPolyFillMode(canvas.dc(), WINDING);
    SetROP2(canvas.dc(), R2_XORPEN);
    straightFigures(canvas.dc());
    FillPath(canvas.dc());
}

void straightPathStroked(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    straightFigures(canvas.dc());
    StrokePath(canvas.dc());
}

void straightPathBoth(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    canvas.brush(RGB(0, 128, 0));
    straightFigures(canvas.dc());
    StrokeAndFillPath(canvas.dc());
}

void straightPathRegion(Canvas &canvas)
{
    straightFigures(canvas.dc());
    HRGN region = PathToRegion(canvas.dc());
    InvertRgn(canvas.dc(), region);
    DeleteObject(region);
}

void curvedPath(Canvas &canvas)
{
    HDC dc = canvas.dc();
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    canvas.brush(RGB(0, 0, 255));
    BeginPath(dc);
    Ellipse(dc, 10, 10, 100, 80);
    RoundRect(dc, 50, 40, 200, 150, 40, 30);
    Pie(dc, 110, 5, 200, 90, 200, 0, 110, 90);
    EndPath(dc);
    StrokeAndFillPath(dc);
}

} // namespace

std::vector<Scene> curveScenes()
{
    return {{"curves: beziers", Agreement::Near, beziers},
            {"curves: arcs", Agreement::Near, arcs},
            {"curves: chords", Agreement::Near, chords},
            {"curves: pies", Agreement::Near, pies},
            {"curves: pies without a frame", Agreement::Near, unframedPies},
            {"paths: straight, filled", Agreement::Exact, straightPathFilled},
            {"paths: straight, stroked", Agreement::Exact, straightPathStroked},
            {"paths: straight, filled and stroked", Agreement::Exact, straightPathBoth},
            {"paths: straight, as a region", Agreement::Exact, straightPathRegion},
            {"paths: curved", Agreement::Near, curvedPath}};
}

} // namespace scenes
