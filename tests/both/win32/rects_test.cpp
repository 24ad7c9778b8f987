// Rectangles: their arithmetic, held against sets of pixels, and drawing them.
#include "Canvas.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Pixels = std::set<std::pair<int, int>>;
using Rows = std::vector<std::string>;

Pixels pixelsOf(const RECT &rect)
{
    Pixels pixels;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x)
            pixels.insert({y, x});
    }
    return pixels;
}

bool operator==(const RECT &a, const RECT &b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// The least rectangle around pixels; zeros for none.
RECT around(const Pixels &pixels)
{
    if (pixels.empty())
        return {};
    RECT bounds{INT_MAX, pixels.begin()->first, INT_MIN, pixels.rbegin()->first + 1};
    for (auto [y, x] : pixels) {
        bounds.left = std::min<LONG>(bounds.left, x);
        bounds.right = std::max<LONG>(bounds.right, x + 1);
    }
    return bounds;
}

Pixels without(const Pixels &first, const Pixels &second)
{
    Pixels rest;
    for (auto pixel : first) {
        if (!second.count(pixel))
            rest.insert(pixel);
    }
    return rest;
}

TEST(Rects, CombineAsTheirPixelsDo)
{
    std::mt19937 random(20264);
    auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
    auto any = [&below] {
        RECT rect{below(8), below(8), 0, 0};
        rect.right = rect.left + below(7) - 1;
        rect.bottom = rect.top + below(7) - 1;
        return rect;
    };
    for (int round = 0; round < 3000; ++round) {
        RECT first = any(), second = any(), result{9, 9, 9, 9};
        Pixels firstPixels = pixelsOf(first), secondPixels = pixelsOf(second);
        ASSERT_EQ(!!IsRectEmpty(&first), firstPixels.empty());
        Pixels rest = without(firstPixels, secondPixels), both = without(firstPixels, rest), all = firstPixels;
        all.insert(secondPixels.begin(), secondPixels.end());

        ASSERT_EQ(!!IntersectRect(&result, &first, &second), !both.empty());
        ASSERT_TRUE(result == around(both));
        ASSERT_EQ(!!UnionRect(&result, &first, &second), !all.empty());
        ASSERT_TRUE(result == around(all));
        bool isRect = pixelsOf(around(rest)) == rest;
        ASSERT_EQ(!!SubtractRect(&result, &first, &second), !(isRect && rest.empty()));
        ASSERT_TRUE(result == around(isRect ? rest : firstPixels));
        POINT point{below(10), below(10)};
        ASSERT_EQ(!!PtInRect(&first, point), firstPixels.count({point.y, point.x}) == 1);
    }
}

TEST(Rects, AreSetCopiedMovedAndCompared)
{
    RECT rect, copy;
    EXPECT_TRUE(SetRect(&rect, 5, 6, -7, 8));
    EXPECT_TRUE(CopyRect(&copy, &rect));
    EXPECT_TRUE(EqualRect(&copy, &rect));
    EXPECT_TRUE(OffsetRect(&copy, -5, 2));
    EXPECT_TRUE((copy == RECT{0, 8, -12, 10}));
    EXPECT_FALSE(EqualRect(&copy, &rect));
    EXPECT_TRUE(InflateRect(&rect, 2, -1));
    EXPECT_TRUE((rect == RECT{3, 7, -5, 7}));
    SetRect(&rect, INT_MIN, 0, INT_MAX, 0);
    OffsetRect(&rect, 1, 1);
    EXPECT_TRUE((rect == RECT{INT_MIN + 1, 1, INT_MIN, 1}));
    // The result may be one of the sources.
    SetRect(&rect, 0, 0, 10, 10);
    SetRect(&copy, 0, 0, 4, 20);
    EXPECT_TRUE(SubtractRect(&copy, &rect, &copy));
    EXPECT_TRUE((copy == RECT{4, 0, 10, 10}));
}

class RectDrawing : public testing::Test {
protected:
    ~RectDrawing() override { DeleteObject(brush_); }

    Rows drawn() { return canvas_.rows(); }

    Canvas canvas_{10, 7};
    HBRUSH brush_ = CreateSolidBrush(RGB(1, 2, 3));
};

TEST_F(RectDrawing, FillsHalfOpenRectanglesWhateverTheRasterMode)
{
    SetROP2(canvas_.dc, R2_NOP);
    RECT rect{2, 1, 6, 4};
    EXPECT_TRUE(FillRect(canvas_.dc, &rect, brush_));
    EXPECT_EQ(drawn(),
              (Rows{"..........", "..####....", "..####....", "..####....", "..........", "..........", ".........."}));
    canvas_.clear();
    // Sides out of order count back from the first ones.
    rect = {6, 4, 2, 1};
    FillRect(canvas_.dc, &rect, brush_);
    EXPECT_EQ(drawn(),
              (Rows{"..........", "..........", "...####...", "...####...", "...####...", "..........", ".........."}));
    rect = {6, 4, 2, 1};
    InvertRect(canvas_.dc, &rect);
    EXPECT_EQ(canvas_.pixel(4, 3), 0xfffefdfcu);
    InvertRect(canvas_.dc, &rect);
    EXPECT_EQ(canvas_.pixel(4, 3), 0x010203u);
    EXPECT_TRUE(FillRect(canvas_.dc, &rect, reinterpret_cast<HBRUSH>(COLOR_BTNTEXT + 1)));
    EXPECT_EQ(canvas_.pixel(4, 3), 0u);
}

TEST_F(RectDrawing, FramesTheInnermostPixels)
{
    RECT rect{1, 1, 8, 6};
    EXPECT_TRUE(FrameRect(canvas_.dc, &rect, brush_));
    EXPECT_EQ(drawn(),
              (Rows{"..........", ".#######..", ".#.....#..", ".#.....#..", ".#.....#..", ".#######..", ".........."}));
    canvas_.clear();
    rect = {3, 2, 4, 5};
    EXPECT_TRUE(FrameRect(canvas_.dc, &rect, brush_));
    EXPECT_EQ(drawn(),
              (Rows{"..........", "..........", "...#......", "...#......", "...#......", "..........", ".........."}));
    for (RECT empty : {RECT{3, 2, 3, 5}, RECT{5, 5, 2, 2}})
        EXPECT_FALSE(FrameRect(canvas_.dc, &empty, brush_));
    EXPECT_FALSE(FrameRect(nullptr, &rect, brush_));
    EXPECT_FALSE(InvertRect(nullptr, &rect));
}

TEST_F(RectDrawing, ScalesTheFrameWithTheMapping)
{
    SetMapMode(canvas_.dc, MM_ANISOTROPIC);
    SetWindowExtEx(canvas_.dc, 1, 1, nullptr);
    SetViewportExtEx(canvas_.dc, 2, 1, nullptr);
    RECT rect{0, 1, 5, 6};
    FrameRect(canvas_.dc, &rect, brush_);
    EXPECT_EQ(drawn(),
              (Rows{"..........", "##########", "##......##", "##......##", "##......##", "##########", ".........."}));
}

} // namespace
