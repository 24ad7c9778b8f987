// Lines of one pixel.
#include "scenes.h"

namespace scenes {
namespace {

void fan(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 0, 0));
    for (int i = -12; i <= 12; ++i) {
        canvas.line(100, 80, 100 + i * 7, 5);
        canvas.line(100, 80, 100 + i * 7, 155);
        canvas.line(100, 80, 10, 80 + i * 6);
        canvas.line(190, 80 + i * 6, 100, 80);
    }
}

void randomLines(Canvas &canvas)
{
    Random random(1);
    for (int i = 0; i < 150; ++i) {
        canvas.pen(PS_SOLID, random.below(2), random.color());
        canvas.line(random.between(-100, 300), random.between(-100, 260), random.between(-100, 300),
                    random.between(-100, 260));
    }
}

void rasterModes(Canvas &canvas)
{
    for (int mode = R2_BLACK; mode <= R2_WHITE; ++mode) {
        SetROP2(canvas.dc(), mode);
        canvas.pen(PS_SOLID, 1, RGB(200, 100, 50));
        canvas.line(5, mode * 9, 95, mode * 9 - 5);
        canvas.line(100 + mode * 5, 5, 105 + mode * 6, 150);
        canvas.line(0, mode * 9 + 2, 100, mode * 9 + 2);
        canvas.line(205 - mode, 3, 205 - mode, 155);
    }
}

void dashes(Canvas &canvas)
{
    SetBkColor(canvas.dc(), RGB(0, 0, 255));
    int y = 4;
    for (int mode : {TRANSPARENT, OPAQUE}) {
        SetBkMode(canvas.dc(), mode);
        for (int style = PS_SOLID; style <= PS_INSIDEFRAME; ++style, y += 9) {
            canvas.pen(style, 1, RGB(255, 255, 0));
            canvas.line(3, y, 200, y + 5);
            canvas.line(190, y + 4, 20, y + 2);
        }
    }
}

void dashedRasterModes(Canvas &canvas)
{
    SetBkColor(canvas.dc(), RGB(30, 200, 90));
    for (int mode = R2_BLACK; mode <= R2_WHITE; ++mode) {
        SetROP2(canvas.dc(), mode);
        canvas.pen(PS_DASHDOT, 1, RGB(200, 100, 50));
        canvas.line(5, mode * 9, 200, mode * 9 - 4);
    }
}

void dashedFigures(Canvas &canvas)
{
    SetBkMode(canvas.dc(), TRANSPARENT);
    canvas.brush(RGB(255, 0, 255));
    POINT zigzag[] = {{5, 5}, {60, 20}, {8, 40}, {70, 45}, {70, 5}, {40, 60}};
    POINT triangle[] = {{80, 5}, {140, 20}, {90, 60}};
    for (int style : {PS_DASH, PS_DOT, PS_DASHDOT}) {
        canvas.pen(style, 1, RGB(0, 255, 0));
        Polyline(canvas.dc(), zigzag, 6);
        Polygon(canvas.dc(), triangle, 3);
        Rectangle(canvas.dc(), 150, 5 + style * 40, 200, 30 + style * 40);
        Ellipse(canvas.dc(), 5, 30 + style * 40, 60, 60 + style * 40);
        RoundRect(canvas.dc(), 70, 30 + style * 40, 140, 60 + style * 40, 20, 14);
    }
}

void extendedCosmetic(Canvas &canvas)
{
    LOGBRUSH brush{BS_SOLID, RGB(0, 255, 255), 0};
    DWORD lengths[] = {5, 2, 1, 1, 7};
    SetBkColor(canvas.dc(), RGB(255, 0, 0));
    int y = 4;
    for (DWORD style : {PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_ALTERNATE, PS_USERSTYLE}) {
        bool isOwn = style == PS_USERSTYLE;
        canvas.use(ExtCreatePen(PS_COSMETIC | style, 1, &brush, isOwn ? 5 : 0, isOwn ? lengths : nullptr));
        canvas.line(3, y, 200, y + 5);
        canvas.line(190, y + 14, 20, y + 9);
        canvas.line(3 + y, 140, 8 + y, 158);
        y += 18;
    }
}

void clippedLines(Canvas &canvas)
{
    HRGN clip = CreateEllipticRgn(20, 10, 190, 150);
    HRGN hole = CreateRectRgn(80, 60, 130, 90);
    CombineRgn(clip, clip, hole, RGN_DIFF);
    SelectClipRgn(canvas.dc(), clip);
    Random random(2);
    for (int i = 0; i < 80; ++i) {
        canvas.pen(i % 3 ? PS_SOLID : PS_DASH, 1, random.color());
        canvas.line(random.between(-300, 500), random.between(-300, 460), random.between(-300, 500),
                    random.between(-300, 460));
    }
    SelectClipRgn(canvas.dc(), nullptr);
    DeleteObject(clip);
    DeleteObject(hole);
}

void farLines(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    for (int i = 1; i <= 8; ++i) {
        canvas.line(-10000 * i, -3000, 12000 * i, 3100 + i * 100);
        canvas.line(100, -20000, 90 + i * 10, 20000);
    }
}

void crossingPolyline(Canvas &canvas)
{
    SetROP2(canvas.dc(), R2_XORPEN);
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    Random random(3);
    std::vector<POINT> points;
    for (int i = 0; i < 60; ++i)
        points.push_back({random.below(210), random.below(160)});
    Polyline(canvas.dc(), points.data(), 60);
    MoveToEx(canvas.dc(), 0, 0, nullptr);
    PolylineTo(canvas.dc(), points.data(), 10);
    LineTo(canvas.dc(), 100, 80);
    DWORD counts[] = {2, 3, 4};
    PolyPolyline(canvas.dc(), points.data(), counts, 3);
}

} // namespace

std::vector<Scene> lineScenes()
{
    return {{"lines: fan", Agreement::Exact, fan},
            {"lines: random", Agreement::Exact, randomLines},
            {"lines: raster modes", Agreement::Exact, rasterModes},
            {"lines: dashes", Agreement::Exact, dashes},
            {"lines: dashed raster modes", Agreement::Exact, dashedRasterModes},
            {"lines: dashed figures", Agreement::Exact, dashedFigures},
            {"lines: extended cosmetic pens", Agreement::Exact, extendedCosmetic},
            {"lines: clipped", Agreement::Exact, clippedLines},
            {"lines: far", Agreement::Exact, farLines},
            {"lines: polylines crossing", Agreement::Exact, crossingPolyline}};
}

} // namespace scenes
