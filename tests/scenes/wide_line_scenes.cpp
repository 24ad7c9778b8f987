// Wide and geometric lines.
#include "scenes.h"

namespace scenes {
namespace {

void uprightLines(Canvas &canvas)
{
    for (int width = 2; width <= 9; ++width) {
        canvas.geometricPen(PS_ENDCAP_FLAT, width, RGB(255, 255, 0));
        canvas.line(5, width * 17 - 25, 90, width * 17 - 25);
        canvas.geometricPen(PS_ENDCAP_FLAT, width, RGB(0, 255, 0));
        canvas.line(100 + width * 11, 10, 100 + width * 11, 70);
        SetROP2(canvas.dc(), R2_XORPEN);
        canvas.line(200, width * 17 - 22, 80, width * 17 - 22);
        SetROP2(canvas.dc(), R2_COPYPEN);
    }
}

void widths(Canvas &canvas)
{
    for (int width = 2; width <= 9; ++width) {
        canvas.pen(PS_SOLID, width, RGB(255, 255, 0));
        canvas.line(10, width * 17 - 20, 60, width * 17 - 30);
        canvas.line(60 + width * 15, 10, 56 + width * 14, 80);
        canvas.line(70 + width * 14, 120, 70 + width * 14, 120);
    }
}

void caps(Canvas &canvas)
{
    int x = 10;
    for (DWORD cap : {PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT}) {
        for (int width : {3, 8}) {
            canvas.geometricPen(cap, width, RGB(255, 0, 0));
            canvas.line(x, 12, x, 50);
            canvas.line(x, 70, x + 20, 90);
            canvas.line(x, 150, x + 7, 105);
            x += 33;
        }
    }
}

void joins(Canvas &canvas)
{
    int y = 15;
    for (DWORD join : {PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER}) {
        canvas.geometricPen(join | PS_ENDCAP_FLAT, 9, RGB(0, 255, 0));
        POINT sharp[] = {{10, y + 30}, {60, y}, {20, y}};
        Polyline(canvas.dc(), sharp, 3);
        POINT right[] = {{80, y}, {120, y}, {120, y + 30}};
        Polyline(canvas.dc(), right, 3);
        POINT open[] = {{140, y + 20}, {170, y}, {200, y + 25}};
        Polyline(canvas.dc(), open, 3);
        y += 50;
    }
}

void wideRectangles(Canvas &canvas)
{
    canvas.brush(RGB(255, 0, 0));
    for (int width : {2, 3, 6}) {
        canvas.geometricPen(PS_JOIN_MITER, width, RGB(255, 255, 255));
        Rectangle(canvas.dc(), width * 20, 10, width * 20 + 30, 40);
        SetROP2(canvas.dc(), R2_XORPEN);
        Rectangle(canvas.dc(), width * 20, 60, width * 20 + 40, 90);
        SetROP2(canvas.dc(), R2_COPYPEN);
        canvas.pen(PS_INSIDEFRAME, width, RGB(255, 255, 255));
        Rectangle(canvas.dc(), width * 20, 110, width * 20 + 30, 150);
    }
}

void wideShapes(Canvas &canvas)
{
    canvas.brush(RGB(0, 0, 255));
    SetROP2(canvas.dc(), R2_XORPEN);
    canvas.pen(PS_SOLID, 5, RGB(255, 255, 255));
    Ellipse(canvas.dc(), 10, 10, 100, 70);
    RoundRect(canvas.dc(), 110, 10, 200, 70, 30, 20);
    POINT kite[] = {{50, 80}, {95, 110}, {60, 150}, {10, 120}};
    Polygon(canvas.dc(), kite, 4);
    canvas.pen(PS_INSIDEFRAME, 7, RGB(255, 255, 255));
    Ellipse(canvas.dc(), 110, 80, 200, 150);
}

void wideCurves(Canvas &canvas)
{
    canvas.pen(PS_SOLID, 4, RGB(255, 255, 255));
    POINT points[] = {{10, 10}, {100, 150}, {130, 0}, {200, 100}};
    PolyBezier(canvas.dc(), points, 4);
    Arc(canvas.dc(), 20, 60, 120, 150, 120, 60, 20, 150);
}

void geometricDashes(Canvas &canvas)
{
    DWORD lengths[] = {12, 5, 3, 6};
    LOGBRUSH brush{BS_SOLID, RGB(255, 255, 0), 0};
    int y = 8;
    for (DWORD style : {PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_USERSTYLE}) {
        bool isOwn = style == PS_USERSTYLE;
        for (int width : {3, 6}) {
            canvas.use(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | style, static_cast<DWORD>(width), &brush,
                                    isOwn ? 4 : 0, isOwn ? lengths : nullptr));
            canvas.line(5, y, 200, y);
            y += 15;
        }
    }
}

void patternPens(Canvas &canvas)
{
    LOGBRUSH hatched{BS_HATCHED, RGB(255, 0, 0), HS_DIAGCROSS};
    canvas.use(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 11, &hatched, 0, nullptr));
    canvas.line(10, 20, 200, 20);
    canvas.line(20, 40, 20, 150);
    SetBkMode(canvas.dc(), TRANSPARENT);
    canvas.use(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 12, &hatched, 0, nullptr));
    canvas.line(60, 40, 60, 150);
    WORD rows[8] = {0x11, 0x22, 0x44, 0x88, 0xf0, 0x0f, 0xaa, 0x55};
    HBITMAP pattern = CreateBitmap(8, 8, 1, 1, rows);
    LOGBRUSH patterned{BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(pattern)};
    canvas.use(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 11, &patterned, 0, nullptr));
    SetTextColor(canvas.dc(), RGB(0, 0, 255));
    SetBkColor(canvas.dc(), RGB(0, 255, 0));
    canvas.line(100, 40, 100, 150);
    canvas.line(120, 70, 200, 70);
    DeleteObject(pattern);
}

void widenedPaths(Canvas &canvas)
{
    HDC dc = canvas.dc();
    canvas.brush(RGB(255, 255, 255));
    canvas.geometricPen(PS_ENDCAP_FLAT | PS_JOIN_MITER, 7, RGB(0, 0, 0));
    BeginPath(dc);
    MoveToEx(dc, 10, 20, nullptr);
    LineTo(dc, 100, 20);
    EndPath(dc);
    WidenPath(dc);
    FillPath(dc);
    BeginPath(dc);
    MoveToEx(dc, 20, 40, nullptr);
    LineTo(dc, 120, 60);
    LineTo(dc, 60, 140);
    EndPath(dc);
    WidenPath(dc);
    FillPath(dc);
}

} // namespace

std::vector<Scene> wideLineScenes()
{
    return {{"wide: upright lines", Agreement::Exact, uprightLines},
            {"wide: widths", Agreement::Near, widths},
            {"wide: caps", Agreement::Near, caps},
            {"wide: joins", Agreement::Near, joins},
            {"wide: rectangles", Agreement::Exact, wideRectangles},
            {"wide: shapes", Agreement::Near, wideShapes},
            {"wide: curves", Agreement::Near, wideCurves},
            {"wide: geometric dashes", Agreement::Exact, geometricDashes},
            {"wide: pattern pens", Agreement::Exact, patternPens},
            {"wide: widened paths", Agreement::Own, widenedPaths}};
}

} // namespace scenes
