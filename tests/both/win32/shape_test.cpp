// Rectangles, ellipses, polygons and parts of ellipses.
#include "Canvas.h"

#include <gtest/gtest.h>

#include <random>

using Rows = std::vector<std::string>;

namespace {

const std::vector<std::pair<uint32_t, char>> marks = {{0, '.'}, {0xffffff, '#'}, {0xff0000, 'r'}, {0x00ffff, 'x'}};

// A white pen and a red brush; where XOR lays both, the pixel is 'x'.
class ShapeCanvas : public Canvas {
public:
    ShapeCanvas(int width, int height, int depth = 32) : Canvas(width, height, depth), brush_(CreateSolidBrush(RGB(255, 0, 0)))
    {
        SelectObject(dc, brush_);
        pen(PS_SOLID, 1);
    }
    ~ShapeCanvas()
    {
        SelectObject(dc, GetStockObject(WHITE_BRUSH));
        DeleteObject(brush_);
        pen(PS_NULL, 0);
        DeleteObject(SelectObject(dc, GetStockObject(NULL_PEN)));
    }

    void pen(int style, int width)
    {
        HGDIOBJ old = SelectObject(dc, CreatePen(style, width, RGB(255, 255, 255)));
        DeleteObject(old);
    }
    Rows marked() const { return rows(marks); }

private:
    HBRUSH brush_;
};

// Whether a pixel's centre is inside a polygon; one on an edge is when the inside is right of it or below.
bool isInside(const std::vector<POINT> &polygon, int x, int y, int mode)
{
    int winding = 0, crossings = 0;
    for (size_t i = 0; i < polygon.size(); ++i) {
        POINT a = polygon[i], b = polygon[(i + 1) % polygon.size()];
        int direction = a.y < b.y ? 1 : -1;
        if (direction < 0)
            std::swap(a, b);
        if (y < a.y || y >= b.y)
            continue;
        int64_t side = int64_t{x - a.x} * (b.y - a.y) - int64_t{b.x - a.x} * (y - a.y);
        if (side >= 0) {
            winding += direction;
            ++crossings;
        }
    }
    return mode == WINDING ? winding != 0 : crossings % 2;
}

} // namespace

TEST(Shapes, RectanglesHaveTheirFrameAndInsideApart)
{
    ShapeCanvas canvas(12, 6);
    SetROP2(canvas.dc, R2_XORPEN);
    ASSERT_TRUE(Rectangle(canvas.dc, 1, 1, 7, 5));
    ASSERT_TRUE(Rectangle(canvas.dc, 11, 5, 8, 1));
    EXPECT_EQ(canvas.marked(),
              (Rows{"............", ".######.###.", ".#rrrr#.#r#.", ".#rrrr#.#r#.", ".######.###.", "............"}));
}

TEST(Shapes, RectanglesWithoutAPenLeaveOutTheLastRowAndColumn)
{
    ShapeCanvas canvas(12, 6);
    canvas.pen(PS_NULL, 1);
    ASSERT_TRUE(Rectangle(canvas.dc, 1, 1, 7, 5));
    ASSERT_TRUE(Rectangle(canvas.dc, 8, 1, 9, 5));
    ASSERT_TRUE(Rectangle(canvas.dc, 9, 3, 9, 5));
    EXPECT_EQ(canvas.marked(),
              (Rows{"............", ".rrrrr......", ".rrrrr......", ".rrrrr......", "............", "............"}));
}

TEST(Shapes, EllipsesAndRoundRectanglesLayTheirPenOnTheirInside)
{
    ShapeCanvas canvas(24, 10);
    SetROP2(canvas.dc, R2_XORPEN);
    ASSERT_TRUE(Ellipse(canvas.dc, 1, 1, 10, 9));
    ASSERT_TRUE(RoundRect(canvas.dc, 11, 1, 23, 9, 6, 4));
    EXPECT_EQ(canvas.marked(), (Rows{"........................", "....xxx.....xxxxxxxxxx..", "..xxrrrxx..xrrrrrrrrrrx.",
                                     ".xrrrrrrrx.xrrrrrrrrrrx.", ".xrrrrrrrx.xrrrrrrrrrrx.", ".xrrrrrrrx.xrrrrrrrrrrx.",
                                     ".xrrrrrrrx.xrrrrrrrrrrx.", "..xxrrrxx..xrrrrrrrrrrx.", "....xxx.....xxxxxxxxxx..",
                                     "........................"}));
}

// However large an ellipse is and wherever the canvas cuts it, the frame is what has a neighbour outside.
TEST(Shapes, FramesOfEllipsesAreTheirOutermostPixels)
{
    std::mt19937 random(5);
    for (int i = 0; i < 60; ++i) {
        ShapeCanvas framed(40, 30), filled(42, 32);
        int left = static_cast<int>(random() % 50) - 40, top = static_cast<int>(random() % 40) - 30;
        int right = left + 6 + static_cast<int>(random() % 80), bottom = top + 6 + static_cast<int>(random() % 60);
        ASSERT_TRUE(Ellipse(framed.dc, left, top, right, bottom));
        // One pixel farther in each direction.
        ASSERT_TRUE(Ellipse(filled.dc, left + 1, top + 1, right + 1, bottom + 1));
        std::vector<uint32_t> all = filled.pixels(), drawn = framed.pixels();
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 40; ++x) {
                auto at = [&](int dx, int dy) { return all[static_cast<size_t>((y + 1 + dy) * 42 + x + 1 + dx)] != 0; };
                bool isFrame = at(0, 0) && !(at(-1, 0) && at(1, 0) && at(0, -1) && at(0, 1));
                uint32_t expected = isFrame ? 0xffffff : at(0, 0) ? 0xff0000 : 0;
                ASSERT_EQ(drawn[static_cast<size_t>(y * 40 + x)], expected)
                    << left << "," << top << "," << right << "," << bottom << " at " << x << "," << y;
            }
    }
}

TEST(Shapes, PolygonsCoverWhatASlowReferenceSaysUnderTheirFrame)
{
    std::mt19937 random(6);
    for (int i = 0; i < 200; ++i) {
        ShapeCanvas canvas(40, 30);
        canvas.pen(PS_NULL, 0);
        int mode = i % 2 ? WINDING : ALTERNATE;
        SetPolyFillMode(canvas.dc, mode);
        std::vector<POINT> polygon(3 + random() % 8);
        for (POINT &point : polygon)
            point = {static_cast<LONG>(random() % 70) - 15, static_cast<LONG>(random() % 60) - 15};
        ASSERT_TRUE(Polygon(canvas.dc, polygon.data(), static_cast<int>(polygon.size())));
        std::vector<uint32_t> drawn = canvas.pixels();
        for (int p = 0; p < 40 * 30; ++p)
            ASSERT_EQ(drawn[static_cast<size_t>(p)] != 0, isInside(polygon, p % 40, p / 40, mode))
                << "polygon " << i << " at " << p % 40 << "," << p / 40;
    }
}

TEST(Shapes, PolygonsOfSeveralPartsAreFilledTogether)
{
    ShapeCanvas canvas(11, 7);
    POINT points[] = {{0, 0}, {10, 0}, {10, 6}, {0, 6}, {3, 2}, {7, 2}, {7, 4}, {3, 4}};
    INT counts[] = {4, 4}, tooFew[] = {4, 1};
    ASSERT_TRUE(PolyPolygon(canvas.dc, points, counts, 2));
    EXPECT_EQ(canvas.marked(), (Rows{"###########", "#rrrrrrrrr#", "#rr#####rr#", "#rr#...#rr#", "#rr#####rr#",
                                     "#rrrrrrrrr#", "###########"}));
    EXPECT_FALSE(PolyPolygon(canvas.dc, points, tooFew, 2));
    EXPECT_TRUE(PolyPolygon(canvas.dc, points, counts, 0));
    EXPECT_FALSE(Polygon(canvas.dc, points, 1));
}

TEST(Shapes, AnEllipseWithPenAndBrushOfOneColorCoversTheSame)
{
    for (int depth : {8, 16, 24, 32}) {
        for (int width : {1, 2, 7, 30, 150}) {
            // The widest reaches beyond both sides.
            ShapeCanvas canvas(140, 90, depth);
            RECT rect = {width > 100 ? -5 : 1, 1, width > 100 ? width - 5 : 1 + width, 88};
            Ellipse(canvas.dc, rect.left, rect.top, rect.right, rect.bottom);
            Rows twoColors = canvas.rows();
            HGDIOBJ brush = SelectObject(canvas.dc, GetStockObject(WHITE_BRUSH));
            canvas.clear();
            Ellipse(canvas.dc, rect.left, rect.top, rect.right, rect.bottom);
            EXPECT_EQ(canvas.rows(), twoColors) << width << " at " << depth << " bits";
            SelectObject(canvas.dc, brush);
        }
    }
}

TEST(Shapes, ArcsRunCounterClockwiseFromOneRayToTheOther)
{
    ShapeCanvas canvas(30, 11);
    ASSERT_TRUE(Arc(canvas.dc, 1, 1, 10, 10, 20, 5, -20, 5));
    ASSERT_TRUE(Chord(canvas.dc, 11, 1, 20, 10, -20, 5, 50, 5));
    ASSERT_TRUE(Pie(canvas.dc, 20, 1, 29, 10, 24, -5, 0, 5));
    Rows rows = canvas.marked();
    // The upper half of the first, the lower half of the second, the upper left quarter of the third.
    EXPECT_EQ(rows[1].substr(0, 11), "....###....");
    EXPECT_EQ(rows[9].substr(0, 11), "...........");
    EXPECT_EQ(rows[1].substr(11, 9), ".........");
    EXPECT_EQ(rows[9].substr(11, 9), "...###...");
    EXPECT_EQ(rows[7].substr(13, 5), "rrrrr");
    EXPECT_EQ(rows[3].substr(22, 2), "rr");
    EXPECT_EQ(rows[3].substr(26, 3), "...");
    EXPECT_EQ(rows[8].substr(20, 9), ".........");
}
