// Wide and geometric lines.
#include "Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using Rows = std::vector<std::string>;

namespace {

class WideCanvas : public Canvas {
public:
    WideCanvas(int width, int height) : Canvas(width, height, 32) {}
    ~WideCanvas() { DeleteObject(SelectObject(dc, GetStockObject(BLACK_PEN))); }

    void pen(HPEN pen)
    {
        ASSERT_NE(pen, nullptr);
        DeleteObject(SelectObject(dc, pen));
    }
    void geometric(DWORD style, DWORD width)
    {
        LOGBRUSH brush{BS_SOLID, RGB(255, 255, 255), 0};
        pen(ExtCreatePen(PS_GEOMETRIC | style, width, &brush, 0, nullptr));
    }
    void line(int fromX, int fromY, int toX, int toY)
    {
        MoveToEx(dc, fromX, fromY, nullptr);
        ASSERT_TRUE(LineTo(dc, toX, toY));
    }
};

double distanceToSegment(double x, double y, POINT a, POINT b)
{
    double width = b.x - a.x, height = b.y - a.y, square = width * width + height * height;
    double along = square > 0 ? ((x - a.x) * width + (y - a.y) * height) / square : 0;
    along = std::fmin(1, std::fmax(0, along));
    return std::hypot(x - a.x - along * width, y - a.y - along * height);
}

} // namespace

TEST(WideLines, CoverWholePixelsWhenUpright)
{
    WideCanvas canvas(14, 10);
    canvas.geometric(PS_ENDCAP_FLAT, 3);
    canvas.line(2, 2, 6, 2);
    canvas.geometric(PS_ENDCAP_FLAT, 2);
    canvas.line(10, 1, 10, 4);
    canvas.geometric(PS_ENDCAP_SQUARE, 4);
    canvas.line(4, 7, 9, 7);
    EXPECT_EQ(canvas.rows(),
              (Rows{"..............", "..####...##...", "..####...##...", "..####...##...", "..............",
                    "..#########...", "..#########...", "..#########...", "..#########...", ".............."}));
}

TEST(WideLines, EndRoundAndShowADotWhereTheyGoNowhere)
{
    WideCanvas canvas(16, 7);
    canvas.pen(CreatePen(PS_SOLID, 5, RGB(255, 255, 255)));
    canvas.line(3, 3, 3, 3);
    canvas.line(9, 3, 12, 3);
    EXPECT_EQ(canvas.rows(), (Rows{"................", "..###...######..", ".#####.########.", ".#####.########.",
                                   ".#####.########.", "..###...######..", "................"}));
}

TEST(WideLines, CoverWhatLiesWithinHalfTheirWidth)
{
    std::mt19937 random(8);
    for (int i = 0; i < 120; ++i) {
        WideCanvas canvas(60, 60);
        int width = 2 + static_cast<int>(random() % 12);
        canvas.pen(CreatePen(PS_SOLID, width, RGB(255, 255, 255)));
        POINT a{static_cast<LONG>(random() % 80) - 10, static_cast<LONG>(random() % 80) - 10};
        POINT b{static_cast<LONG>(random() % 80) - 10, static_cast<LONG>(random() % 80) - 10};
        canvas.line(a.x, a.y, b.x, b.y);
        std::vector<uint32_t> pixels = canvas.pixels();
        double shift = width % 2 ? 0 : 0.5;
        for (int p = 0; p < 3600; ++p) {
            double distance = distanceToSegment(p % 60 + shift, p / 60 + shift, a, b);
            bool isDrawn = pixels[static_cast<size_t>(p)];
            ASSERT_TRUE(isDrawn ? distance < width / 2.0 + 1.8 : distance > width / 2.0 - 1.3)
                << a.x << "," << a.y << " to " << b.x << "," << b.y << ", " << width << " wide, at " << p % 60 << ","
                << p / 60;
        }
    }
}

// Segments, joins and caps overlap; with a mode that undoes itself that would show.
TEST(WideLines, TouchEachPixelOnceHoweverTheyCross)
{
    std::mt19937 random(9);
    for (int i = 0; i < 60; ++i) {
        WideCanvas once(60, 60), copied(60, 60);
        POINT points[8];
        for (POINT &point : points)
            point = {static_cast<LONG>(random() % 70) - 5, static_cast<LONG>(random() % 70) - 5};
        for (WideCanvas *canvas : {&once, &copied}) {
            DWORD joins[] = {PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER};
            canvas->geometric(joins[i % 3], 2 + i % 9);
            SelectObject(canvas->dc, GetStockObject(NULL_BRUSH));
            SetROP2(canvas->dc, canvas == &once ? R2_XORPEN : R2_COPYPEN);
            if (i % 2)
                ASSERT_TRUE(Polyline(canvas->dc, points, 8));
            else
                ASSERT_TRUE(Polygon(canvas->dc, points, 8));
        }
        ASSERT_EQ(once.pixels(), copied.pixels()) << "polyline " << i;
    }
}

TEST(WideLines, JoinAsTheirPenSays)
{
    auto drawn = [](DWORD join) {
        WideCanvas canvas(9, 8);
        canvas.geometric(PS_ENDCAP_FLAT | join, 5);
        POINT corner[] = {{0, 3}, {5, 3}, {5, 8}};
        Polyline(canvas.dc, corner, 3);
        return canvas.rows();
    };
    EXPECT_EQ(drawn(PS_JOIN_MITER), (Rows{".........", "########.", "########.", "########.", "########.", "########.",
                                          "...#####.", "...#####."}));
    EXPECT_EQ(drawn(PS_JOIN_BEVEL)[1].back(), '.');
    EXPECT_EQ(drawn(PS_JOIN_BEVEL)[1].substr(0, 5), "#####");
    EXPECT_EQ(drawn(PS_JOIN_BEVEL)[1].substr(7), "..");
    EXPECT_EQ(drawn(PS_JOIN_ROUND)[1].substr(7), "..");
    EXPECT_EQ(drawn(PS_JOIN_ROUND)[3], "########.");
}

TEST(WideLines, BevelWhereAMiterWouldPassItsLimit)
{
    auto tip = [](float limit) {
        WideCanvas canvas(60, 20);
        canvas.geometric(PS_ENDCAP_FLAT | PS_JOIN_MITER, 4);
        SetMiterLimit(canvas.dc, limit, nullptr);
        POINT sharp[] = {{2, 6}, {30, 10}, {2, 14}};
        Polyline(canvas.dc, sharp, 3);
        return canvas.rows()[10].rfind('#');
    };
    EXPECT_GE(tip(10), 40u);
    EXPECT_LT(tip(2), 34u);
}

TEST(WideLines, BreakInUnitsOfTheirWidth)
{
    WideCanvas canvas(40, 3);
    LOGBRUSH brush{BS_SOLID, RGB(255, 255, 255), 0};
    canvas.pen(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_DASHDOT, 2, &brush, 0, nullptr));
    canvas.line(0, 1, 40, 1);
    EXPECT_EQ(canvas.rows()[0], "######..##..######..##..######..##..####");
    canvas.clear();
    // With caps a dash keeps its length.
    canvas.pen(ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_SQUARE | PS_DASH, 2, &brush, 0, nullptr));
    canvas.line(1, 1, 39, 1);
    EXPECT_EQ(canvas.rows()[0].substr(0, 32), "######..######..######..######..");
    canvas.clear();
    // Plain pens are broken only where they are thin.
    canvas.pen(CreatePen(PS_DASH, 3, RGB(255, 255, 255)));
    canvas.line(2, 1, 30, 1);
    EXPECT_EQ(canvas.rows()[1].find("#."), 31u);
}

TEST(WideLines, FrameShapesFromInsideWhenTheirPenSaysSo)
{
    WideCanvas canvas(12, 9);
    SelectObject(canvas.dc, GetStockObject(NULL_BRUSH));
    canvas.pen(CreatePen(PS_INSIDEFRAME, 2, RGB(255, 255, 255)));
    ASSERT_TRUE(Rectangle(canvas.dc, 1, 1, 11, 8));
    EXPECT_EQ(canvas.rows(), (Rows{"............", ".##########.", ".##########.", ".##......##.", ".##......##.",
                                   ".##......##.", ".##########.", ".##########.", "............"}));
}
