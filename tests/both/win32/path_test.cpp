// Paths.
#include "Canvas.h"

#include <gtest/gtest.h>

using Rows = std::vector<std::string>;

namespace {

void star(HDC dc)
{
    MoveToEx(dc, 20, 1, nullptr);
    LineTo(dc, 32, 37);
    LineTo(dc, 2, 14);
    LineTo(dc, 38, 14);
    LineTo(dc, 8, 37);
    CloseFigure(dc);
}

constexpr POINT starPoints[] = {{20, 1}, {32, 37}, {2, 14}, {38, 14}, {8, 37}};

} // namespace

TEST(Paths, RecordAndDrawNothingUntilTheyAreUsed)
{
    Canvas canvas(40, 40, 32);
    ASSERT_TRUE(BeginPath(canvas.dc));
    star(canvas.dc);
    Rectangle(canvas.dc, 1, 1, 9, 9);
    Ellipse(canvas.dc, 10, 10, 30, 30);
    RoundRect(canvas.dc, 10, 10, 30, 30, 5, 5);
    Pie(canvas.dc, 10, 10, 30, 30, 0, 0, 40, 0);
    POINT points[] = {{1, 1}, {30, 1}, {5, 30}, {9, 9}};
    Polygon(canvas.dc, points, 4);
    PolyBezier(canvas.dc, points, 4);
    ASSERT_TRUE(EndPath(canvas.dc));
    EXPECT_EQ(canvas.pixels(), std::vector<uint32_t>(1600));
    ASSERT_TRUE(FillPath(canvas.dc));
    EXPECT_NE(canvas.pixels(), std::vector<uint32_t>(1600));
}

TEST(Paths, OfLinesFillAndStrokeLikePolygons)
{
    for (int mode : {ALTERNATE, WINDING}) {
        Canvas path(40, 40, 32), polygon(40, 40, 32);
        for (Canvas *canvas : {&path, &polygon}) {
            SetPolyFillMode(canvas->dc, mode);
            SelectObject(canvas->dc, GetStockObject(WHITE_PEN));
            SelectObject(canvas->dc, GetStockObject(GRAY_BRUSH));
        }
        BeginPath(path.dc);
        star(path.dc);
        EndPath(path.dc);
        ASSERT_TRUE(StrokeAndFillPath(path.dc));
        Polygon(polygon.dc, starPoints, 5);
        EXPECT_EQ(path.pixels(), polygon.pixels());

        path.clear();
        polygon.clear();
        BeginPath(path.dc);
        star(path.dc);
        EndPath(path.dc);
        ASSERT_TRUE(StrokePath(path.dc));
        SelectObject(polygon.dc, GetStockObject(NULL_BRUSH));
        Polygon(polygon.dc, starPoints, 5);
        EXPECT_EQ(path.pixels(), polygon.pixels());
    }
}

TEST(Paths, BecomeRegionsLikePolygons)
{
    Canvas canvas(40, 40, 32);
    BeginPath(canvas.dc);
    star(canvas.dc);
    EndPath(canvas.dc);
    HRGN region = PathToRegion(canvas.dc), polygon = CreatePolygonRgn(starPoints, 5, ALTERNATE);
    EXPECT_TRUE(EqualRgn(region, polygon));
    EXPECT_EQ(PathToRegion(canvas.dc), nullptr);
    DeleteObject(region);
    DeleteObject(polygon);
}

TEST(Paths, BeginAFigureWhereTheCurrentPositionIs)
{
    Canvas canvas(9, 5, 32);
    SelectObject(canvas.dc, GetStockObject(WHITE_PEN));
    MoveToEx(canvas.dc, 1, 1, nullptr);
    BeginPath(canvas.dc);
    LineTo(canvas.dc, 7, 1);
    POINT other[] = {{1, 3}, {3, 3}}, more[] = {{7, 4}};
    Polyline(canvas.dc, other, 2);
    PolylineTo(canvas.dc, more, 1);
    EndPath(canvas.dc);
    ASSERT_TRUE(StrokePath(canvas.dc));
    EXPECT_EQ(canvas.rows(), (Rows{".........", ".#######.", ".......#.", ".##....#.", "........."}));
}

TEST(Paths, OnlyServeOnceAndOnlyWhenTheyAreComplete)
{
    Canvas canvas(9, 5, 32);
    EXPECT_FALSE(EndPath(canvas.dc));
    EXPECT_FALSE(FillPath(canvas.dc));
    EXPECT_FALSE(CloseFigure(canvas.dc));
    BeginPath(canvas.dc);
    Rectangle(canvas.dc, 1, 1, 5, 4);
    EXPECT_FALSE(StrokePath(canvas.dc));
    EXPECT_EQ(PathToRegion(canvas.dc), nullptr);
    EndPath(canvas.dc);
    EXPECT_FALSE(EndPath(canvas.dc));
    EXPECT_TRUE(StrokePath(canvas.dc));
    EXPECT_FALSE(StrokePath(canvas.dc));

    BeginPath(canvas.dc);
    EXPECT_TRUE(AbortPath(canvas.dc));
    EXPECT_FALSE(EndPath(canvas.dc));
    EXPECT_FALSE(BeginPath(nullptr));
}

TEST(Paths, WidenToWhatAWidePenCovers)
{
    Canvas canvas(16, 6, 32);
    SelectObject(canvas.dc, GetStockObject(WHITE_BRUSH));
    LOGBRUSH brush{BS_SOLID, 0, 0};
    HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT, 4, &brush, 0, nullptr);
    HGDIOBJ old = SelectObject(canvas.dc, pen);
    BeginPath(canvas.dc);
    MoveToEx(canvas.dc, 2, 3, nullptr);
    LineTo(canvas.dc, 13, 3);
    EndPath(canvas.dc);
    ASSERT_TRUE(WidenPath(canvas.dc));
    ASSERT_TRUE(FillPath(canvas.dc));
    EXPECT_EQ(canvas.rows(), (Rows{"................", "..###########...", "..###########...", "..###########...",
                                   "..###########...", "................"}));
    DeleteObject(SelectObject(canvas.dc, old));
}
