// Rectangles, points, fixed-point numbers and random numbers.
#include "Rectangles.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace {

TEST(Geometry, SidesAreGivenInTheOrderLeftTopRightBottom)
{
    Rect r;
    MacSetRect(&r, 1, 2, 3, 4);
    EXPECT_EQ(r.left, 1);
    EXPECT_EQ(r.top, 2);
    EXPECT_EQ(r.right, 3);
    EXPECT_EQ(r.bottom, 4);
}

TEST(Geometry, CoordinatesWrapAt16Bits)
{
    Rect r = ltrb(32760, -32760, 32767, -32750);
    MacOffsetRect(&r, 10, -20);
    EXPECT_EQ(r, ltrb(-32766, 32756, -32759, 32766));
    r = ltrb(-32760, 0, 32760, 10);
    MacInsetRect(&r, -20, 0);
    EXPECT_EQ(r, ltrb(32756, 0, -32756, 10));
    Point p = {32767, -32768};
    AddPt({1, -1}, &p);
    EXPECT_TRUE(EqualPt(p, {-32768, 32767}));
    SubPt({1, -1}, &p);
    EXPECT_TRUE(EqualPt(p, {32767, -32768}));
    EXPECT_EQ(DeltaPoint({-32768, 5}, {1, 7}), static_cast<SInt32>(0xFFFE7FFF)) << "h high, v low, no borrow between";
}

TEST(Geometry, InsettingTooFarTurnsARectangleInsideOut)
{
    Rect r = ltrb(10, 10, 20, 20), other = ltrb(16, 15, 14, 15);
    MacInsetRect(&r, 6, 5);
    EXPECT_EQ(r, other);
    EXPECT_TRUE(EmptyRect(&r));
    other.left = 17;
    EXPECT_FALSE(MacEqualRect(&r, &other)) << "empty rectangles keep their coordinates";
}

// Whether a pixel lies in a rectangle decides what a common part is.
TEST(Geometry, CommonPartHoldsThePixelsOfBoth)
{
    std::mt19937 random(4201);
    auto coordinate = [&] { return static_cast<SInt16>(random() % 7); };
    for (int round = 0; round < 5000; ++round) {
        Rect a = {coordinate(), coordinate(), coordinate(), coordinate()};
        Rect b = {coordinate(), coordinate(), coordinate(), coordinate()};
        Rect common, inPlace = a;
        Boolean overlap = SectRect(&a, &b, &common);
        ASSERT_EQ(SectRect(&inPlace, &b, &inPlace), overlap);
        ASSERT_EQ(inPlace, common);
        bool any = false;
        for (SInt16 v = 0; v < 7; ++v)
            for (SInt16 h = 0; h < 7; ++h) {
                bool both = MacPtInRect({v, h}, &a) && MacPtInRect({v, h}, &b);
                ASSERT_EQ(MacPtInRect({v, h}, &common), both);
                any |= both;
            }
        ASSERT_EQ(overlap, any);
        if (!any) {
            ASSERT_EQ(common, Rect{});
        }
    }
}

TEST(Geometry, UnionTakesEmptyRectanglesAsTheyStand)
{
    Rect a = ltrb(10, 10, 20, 20), b = {};
    MacUnionRect(&a, &b, &b);
    EXPECT_EQ(b, ltrb(0, 0, 20, 20));
    b = ltrb(100, 100, 100, 100);
    MacUnionRect(&a, &b, &a);
    EXPECT_EQ(a, ltrb(10, 10, 100, 100));
}

TEST(Geometry, RectanglesAreHalfOpen)
{
    Rect r = ltrb(-3, 5, 4, 9);
    EXPECT_TRUE(MacPtInRect({5, -3}, &r));
    EXPECT_TRUE(MacPtInRect({8, 3}, &r));
    EXPECT_FALSE(MacPtInRect({9, 3}, &r));
    EXPECT_FALSE(MacPtInRect({8, 4}, &r));
    EXPECT_FALSE(MacPtInRect({4, 0}, &r));
}

TEST(Geometry, AnglesRunClockwiseFromStraightUp)
{
    Rect r = ltrb(0, 0, 200, 100);
    struct {
        Point point;
        int angle;
    } const cases[] = {
        {{0, 100}, 360},  {{50, 100}, 90}, {{90, 100}, 180}, {{50, 150}, 90}, {{50, 0}, 270},     {{10, 140}, 45},
        {{90, 140}, 134}, {{90, 60}, 224}, {{10, 60}, 315},  {{0, 200}, 63},  {{-32768, 101}, 0},
    };
    for (auto &[point, angle] : cases) {
        SInt16 result = -1;
        PtToAngle(&r, point, &result);
        EXPECT_EQ(result, angle) << point.v << " " << point.h;
    }
}

TEST(Geometry, WordsHavePointsWithHHigh)
{
    EXPECT_EQ(HiWord(static_cast<SInt32>(0x8001FFFE)), -32767);
    EXPECT_EQ(LoWord(static_cast<SInt32>(0x8001FFFE)), -2);
}

TEST(FixedPoint, ProductsAndQuotientsSaturate)
{
    EXPECT_EQ(FixMul(0x10000, 0x10000), 0x10000);
    EXPECT_EQ(FixMul(0x18000, -0x20000), -0x30000);
    EXPECT_EQ(FixMul(0x7FFF0000, 0x20000), 0x7FFFFFFF);
    EXPECT_EQ(FixMul(0x7FFF0000, -0x20000), INT32_MIN);
    EXPECT_EQ(FixMul(INT32_MIN, 0x10000), INT32_MIN);
    EXPECT_EQ(FixMul(1, -1), 0) << "towards zero";
    EXPECT_EQ(FixMul(-0x7FFFFFFF, 0x10001), INT32_MIN) << "just past the smallest number";
    EXPECT_EQ(FixDiv(1, 2), 0x8000);
    EXPECT_EQ(FixDiv(-1, 3), -21845);
    EXPECT_EQ(FixDiv(100000, 1), 0x7FFFFFFF);
    EXPECT_EQ(FixDiv(5, 0), 0x7FFFFFFF);
    EXPECT_EQ(FixDiv(-5, 0), INT32_MIN);
    EXPECT_EQ(FixDiv(0, 0), INT32_MIN);
    EXPECT_EQ(FracMul(0x40000000, 0x40000000), 0x40000000);
    EXPECT_EQ(FracMul(0x60000000, 0x60000000), 0x7FFFFFFF);
    EXPECT_EQ(FracMul(INT32_MIN, 0x60000000), INT32_MIN);
    EXPECT_EQ(FracMul(-0x20000000, 0x20000000), -0x10000000);
}

TEST(FixedPoint, RatioDoesNotSaturate)
{
    EXPECT_EQ(FixRatio(1, 2), 0x8000);
    EXPECT_EQ(FixRatio(-2, 3), -43690);
    EXPECT_EQ(FixRatio(-32768, -1), INT32_MIN);
    EXPECT_EQ(FixRatio(1, 0), 0x7FFFFFFF);
    EXPECT_EQ(FixRatio(-1, 0), INT32_MIN);
}

TEST(FixedPoint, SineAndCosineAreFracts)
{
    EXPECT_EQ(FracSin(0), 0);
    EXPECT_EQ(FracCos(0), 0x40000000);
    EXPECT_NEAR(FracSin(0x10000), 903522588, 2);
    EXPECT_NEAR(FracCos(-0x20000), -446834263, 2);
}

TEST(RandomNumbers, HaveASignAndStayWithin16Bits)
{
    srand(77);
    int negative = 0, large = 0, smallest = 0, largest = 0;
    for (int i = 0; i < 20000; ++i) {
        int value = Random();
        negative += value < 0;
        large += abs(value) > 16383;
        smallest = std::min(smallest, value);
        largest = std::max(largest, value);
    }
    EXPECT_GE(smallest, -32767);
    EXPECT_LT(smallest, -32000);
    EXPECT_GT(largest, 32000);
    EXPECT_NEAR(negative, 10000, 500);
    EXPECT_NEAR(large, 10000, 500);
    qd.randSeed = 5;
    srand(77);
    SInt16 first = Random();
    srand(77);
    EXPECT_EQ(Random(), first) << "the host seeds rand";
    EXPECT_EQ(qd.randSeed, 5);
}

} // namespace
