// Drawing through window and viewport mappings.
#include "scenes.h"

namespace scenes {
namespace {

void drawAll(Canvas &canvas)
{
    HDC dc = canvas.dc();
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 0));
    canvas.brush(RGB(255, 0, 0));
    Rectangle(dc, 5, 5, 50, 40);
    Ellipse(dc, 55, 5, 100, 40);
    POINT triangle[] = {{5, 45}, {50, 60}, {20, 90}};
    Polygon(dc, triangle, 3);
    canvas.line(60, 45, 100, 90);
    PatBlt(dc, 70, 50, 20, 15, PATCOPY);
    RoundRect(dc, 105, 10, 140, 60, 10, 12);
    BitBlt(dc, 110, 65, 30, 20, dc, 5, 5, SRCCOPY);
}

void origins(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetWindowOrgEx(dc, -7, -4, nullptr);
    drawAll(canvas);
    SetViewportOrgEx(dc, 40, 60, nullptr);
    IntersectClipRect(dc, 10, 10, 110, 80);
    drawAll(canvas);
    POINT points[] = {{0, 0}, {50, 20}};
    LPtoDP(dc, points, 2);
    SelectClipRgn(dc, nullptr);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    canvas.line(points[0].x, points[0].y, points[1].x, points[1].y);
}

void scaled(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 100, 100, nullptr);
    SetViewportExtEx(dc, 140, 170, nullptr);
    drawAll(canvas);
}

void shrunk(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 200, 200, nullptr);
    SetViewportExtEx(dc, 130, 90, nullptr);
    SetViewportOrgEx(dc, 30, 40, nullptr);
    drawAll(canvas);
}

void upwards(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 1, 1, nullptr);
    SetViewportExtEx(dc, 1, -1, nullptr);
    SetViewportOrgEx(dc, 10, 120, nullptr);
    drawAll(canvas);
}

void millimetres(Canvas &canvas)
{
    HDC dc = canvas.dc();
    SetMapMode(dc, MM_LOMETRIC);
    SetViewportOrgEx(dc, 5, 5, nullptr);
    canvas.brush(RGB(0, 255, 0));
    Rectangle(dc, 0, 0, 200, -150);
    canvas.line(0, 0, 400, -300);
    canvas.geometricPen(PS_ENDCAP_FLAT, 20, RGB(255, 255, 255));
    canvas.line(50, -50, 450, -50);
}

} // namespace

std::vector<Scene> mappingScenes()
{
    return {{"mapping: origins", Agreement::Exact, origins},
            {"mapping: scaled", Agreement::Exact, scaled},
            {"mapping: shrunk", Agreement::Exact, shrunk},
            {"mapping: upwards", Agreement::Exact, upwards},
            {"mapping: millimetres", Agreement::Exact, millimetres}};
}

} // namespace scenes
