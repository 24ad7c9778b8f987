// Regions, filled and framed, and clips made of them.
#include "scenes.h"

namespace scenes {
namespace {

HRGN star(int x, int y, int mode)
{
    POINT points[] = {{x + 30, y}, {x + 48, y + 50}, {x, y + 18}, {x + 60, y + 18}, {x + 10, y + 52}};
    return CreatePolygonRgn(points, 5, mode);
}

void fillAndForget(Canvas &canvas, HRGN region, COLORREF color)
{
    HBRUSH brush = CreateSolidBrush(color);
    FillRgn(canvas.dc(), region, brush);
    DeleteObject(brush);
    DeleteObject(region);
}

void shapes(Canvas &canvas)
{
    fillAndForget(canvas, star(5, 5, ALTERNATE), RGB(255, 0, 0));
    fillAndForget(canvas, star(70, 5, WINDING), RGB(0, 255, 0));
    fillAndForget(canvas, CreateRoundRectRgn(140, 5, 200, 50, 20, 30), RGB(0, 0, 255));
    fillAndForget(canvas, CreateRoundRectRgn(140, 55, 200, 100, 0, 8), RGB(0, 0, 255));
    POINT points[] = {{10, 70}, {60, 70}, {60, 110}, {10, 110}, {20, 80}, {50, 80}, {35, 120}};
    INT counts[] = {4, 3};
    fillAndForget(canvas, CreatePolyPolygonRgn(points, counts, 2, ALTERNATE), RGB(255, 255, 0));
    fillAndForget(canvas, CreateRectRgn(130, 150, 90, 110), RGB(255, 255, 255));
}

// Crossing themselves, with corners outside of the canvas and with several rings.
void randomPolygons(Canvas &canvas)
{
    Random random(7);
    for (int i = 0; i < 40; ++i) {
        POINT points[12];
        INT counts[] = {random.between(3, 6), random.between(2, 6)};
        int spread = random.between(5, 120), x = random.below(200), y = random.below(150);
        for (POINT &point : points)
            point = {x + random.between(-spread, spread), y + random.between(-spread, spread)};
        int mode = i % 2 ? ALTERNATE : WINDING;
        fillAndForget(canvas, CreatePolyPolygonRgn(points, counts, i % 3 ? 1 : 2, mode),
                      random.below(2) ? RGB(255, 0, 0) : RGB(0, 0, 255));
    }
}

void ellipses(Canvas &canvas)
{
    int x = 1;
    for (int width = 7; width <= 18; ++width) {
        int y = 1;
        for (int height = 5; height <= 17; height += 3) {
            fillAndForget(canvas, CreateEllipticRgn(x, y, x + width, y + height), RGB(255, 0, 0));
            y += height + 2;
        }
        fillAndForget(canvas, CreateEllipticRgn(x, y, x + width, y + 19), RGB(0, 255, 0));
        fillAndForget(canvas, CreateRoundRectRgn(x, y + 42, x + width, y + 60, width / 2 + 3, 9), RGB(0, 0, 255));
        x += width + 1;
    }
}

void frames(Canvas &canvas)
{
    HBRUSH brush = CreateSolidBrush(RGB(255, 255, 0));
    HRGN first = star(10, 10, WINDING), second = CreateEllipticRgn(90, 10, 190, 80),
         third = CreateRectRgn(20, 90, 90, 150);
    FrameRgn(canvas.dc(), first, brush, 3, 2);
    FrameRgn(canvas.dc(), second, brush, 1, 1);
    FrameRgn(canvas.dc(), second, brush, 5, 9);
    FrameRgn(canvas.dc(), third, brush, 4, 1);
    CombineRgn(first, second, third, RGN_OR);
    OffsetRgn(first, 40, 60);
    FrameRgn(canvas.dc(), first, brush, 2, 2);
    InvertRgn(canvas.dc(), first);
    for (HGDIOBJ object : {HGDIOBJ(first), HGDIOBJ(second), HGDIOBJ(third), HGDIOBJ(brush)})
        DeleteObject(object);
}

void combinations(Canvas &canvas)
{
    HRGN result = CreateRectRgn(0, 0, 0, 0);
    for (int mode = RGN_AND; mode <= RGN_COPY; ++mode)
        for (int row = 0; row < 3; ++row) {
            int x = (mode - 1) * 42, y = row * 53;
            HRGN first = row == 1 ? star(x - 10, y, ALTERNATE) : CreateEllipticRgn(x, y, x + 30, y + 40);
            HRGN second = row == 2 ? star(x - 10, y, WINDING) : CreateRectRgn(x + 12, y + 10, x + 38, y + 48);
            CombineRgn(result, first, second, mode);
            SelectObject(canvas.dc(), GetStockObject(mode % 2 ? WHITE_BRUSH : BLACK_BRUSH));
            PaintRgn(canvas.dc(), result);
            DeleteObject(first);
            DeleteObject(second);
        }
    DeleteObject(result);
}

void clips(Canvas &canvas)
{
    HDC dc = canvas.dc();
    canvas.brush(RGB(255, 0, 0));
    IntersectClipRect(dc, 10, 10, 200, 150);
    ExcludeClipRect(dc, 50, 40, 90, 100);
    PatBlt(dc, 0, 0, 210, 160, PATCOPY);
    SaveDC(dc);
    HRGN region = star(100, 20, WINDING);
    ExtSelectClipRgn(dc, region, RGN_AND);
    PatBlt(dc, 0, 0, 210, 160, DSTINVERT);
    RestoreDC(dc, -1);
    ExtSelectClipRgn(dc, region, RGN_DIFF);
    OffsetClipRgn(dc, 5, 12);
    canvas.brush(RGB(0, 0, 255));
    PatBlt(dc, 0, 0, 210, 160, PATINVERT);
    SelectClipRgn(dc, nullptr);
    DeleteObject(region);
}

void transformed(Canvas &canvas)
{
    HRGN source = star(0, 0, WINDING);
    std::vector<char> data(GetRegionData(source, 0, nullptr));
    auto *records = reinterpret_cast<RGNDATA *>(data.data());
    GetRegionData(source, static_cast<DWORD>(data.size()), records);
    XFORM scaled{1.5f, 0, 0, 0.75f, 20, 10}, mirrored{-1, 0, 0, 1, 200, 90};
    fillAndForget(canvas, ExtCreateRegion(&scaled, static_cast<DWORD>(data.size()), records), RGB(0, 255, 0));
    fillAndForget(canvas, ExtCreateRegion(&mirrored, static_cast<DWORD>(data.size()), records), RGB(255, 0, 0));
    fillAndForget(canvas, ExtCreateRegion(nullptr, static_cast<DWORD>(data.size()), records), RGB(0, 0, 255));
    DeleteObject(source);
}

} // namespace

std::vector<Scene> regionScenes()
{
    return {{"regions: shapes", Agreement::Exact, shapes},
            {"regions: random polygons", Agreement::Exact, randomPolygons},
            {"regions: ellipses", Agreement::Exact, ellipses},
            {"regions: frames", Agreement::Exact, frames},
            {"regions: combinations", Agreement::Exact, combinations},
            {"regions: clips", Agreement::Exact, clips},
            {"regions: transformed", Agreement::Exact, transformed}};
}

} // namespace scenes
