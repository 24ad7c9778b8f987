// Lines of one pixel, held against rows and a slow reference.
#include "SlowPixels.h"

#include <gtest/gtest.h>

#include <cstdlib>

using Rows = std::vector<std::string>;

namespace {

constexpr COLORREF black = RGB(0, 0, 0), white = RGB(255, 255, 255);

// A canvas with a pen in its context.
class LineCanvas : public Canvas {
public:
    using Canvas::Canvas;
    ~LineCanvas()
    {
        SelectObject(dc, GetStockObject(BLACK_PEN));
        for (HGDIOBJ pen : pens_)
            DeleteObject(pen);
    }

    void usePen(HPEN pen)
    {
        ASSERT_NE(pen, nullptr);
        pens_.push_back(pen);
        SelectObject(dc, pen);
    }
    void pen(int style, COLORREF color = white) { usePen(CreatePen(style, 1, color)); }
    void line(int fromX, int fromY, int toX, int toY)
    {
        ASSERT_TRUE(MoveToEx(dc, fromX, fromY, nullptr));
        ASSERT_TRUE(LineTo(dc, toX, toY));
    }

private:
    std::vector<HGDIOBJ> pens_;
};

// The pixels of a line by its definition: in each column or row the nearest one, of two the upper or left.
std::vector<POINT> slowLine(POINT from, POINT to)
{
    int64_t width = int64_t{to.x} - from.x, height = int64_t{to.y} - from.y;
    bool isSteep = std::llabs(height) > std::llabs(width);
    int64_t length = isSteep ? height : width, rise = isSteep ? width : height;
    std::vector<POINT> pixels;
    for (int64_t i = 0; i < std::llabs(length); ++i) {
        // Twice the exact place less one, over twice the length, rounded up.
        int64_t numerator = 2 * i * rise - std::llabs(length), denominator = 2 * std::llabs(length);
        int64_t minor = numerator >= 0 ? (numerator + denominator - 1) / denominator : -(-numerator / denominator);
        int64_t major = length < 0 ? -i : i;
        pixels.push_back({static_cast<LONG>(from.x + (isSteep ? minor : major)),
                          static_cast<LONG>(from.y + (isSteep ? major : minor))});
    }
    return pixels;
}

uint32_t slowMix(int rop2, uint32_t pen, uint32_t old)
{
    uint32_t result = 0;
    for (int bit = 0; bit < 32; ++bit)
        result |= static_cast<uint32_t>((rop2 - 1) >> ((pen >> bit & 1) * 2 + (old >> bit & 1)) & 1) << bit;
    return result;
}

bool isInside(const Canvas &canvas, POINT point)
{
    return point.x >= 0 && point.y >= 0 && point.x < canvas.width() && point.y < canvas.height();
}

} // namespace

TEST(Lines, EndBeforeTheirLastPixelAndFallUpAndLeftOnTies)
{
    LineCanvas canvas(12, 7, 32);
    canvas.pen(PS_SOLID);
    canvas.line(1, 1, 5, 3);
    canvas.line(10, 5, 6, 3);
    canvas.line(1, 5, 1, 3);
    canvas.line(4, 5, 4, 5);
    EXPECT_EQ(canvas.rows(), (Rows{"............", ".##.........", "...##.......", ".......#....", ".#......##..",
                                   ".#........#.", "............"}));
}

TEST(Lines, OfAllDirectionsModesAndDepthsEqualASlowReference)
{
    std::mt19937 random(20240611);
    for (const CanvasFormat &format : allFormats()) {
        LineCanvas canvas(47, 39, format);
        for (int i = 0; i < 150; ++i) {
            int rop2 = i % 16 + 1;
            SetROP2(canvas.dc, rop2);
            bool isWhite = random() % 2;
            canvas.pen(PS_SOLID, isWhite ? white : black);
            std::vector<uint32_t> expected = randomPixels(canvas, random);
            canvas.setPixels(expected);
            int spread = i % 5 ? 60 : 3000;
            auto coordinate = [&] { return static_cast<LONG>(random() % (2 * spread)) - spread + 20; };
            POINT from{coordinate(), coordinate()}, to{coordinate(), coordinate()};
            canvas.line(from.x, from.y, to.x, to.y);
            uint32_t pen = format.depth <= 8 ? isWhite : isWhite ? allBits(format) : 0;
            if (format.depth == 32)
                pen &= 0xffffff;
            if (format.depth == 16 && !format.masks[0])
                pen &= 0x7fff;
            for (POINT point : slowLine(from, to))
                if (isInside(canvas, point)) {
                    uint32_t &pixel = expected[static_cast<size_t>(point.y * canvas.width() + point.x)];
                    pixel = slowMix(rop2, pen, pixel) & allBits(format);
                }
            ASSERT_EQ(canvas.pixels(), expected) << format.depth << " bits, mode " << rop2 << ", " << from.x << ","
                                                 << from.y << " to " << to.x << "," << to.y;
        }
    }
}

TEST(Lines, ShowOfALineThroughAClipExactlyWhatLiesInIt)
{
    std::mt19937 random(77);
    LineCanvas whole(60, 50, 32), clipped(60, 50, 32);
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < 25; ++i) {
        int x = static_cast<int>(random() % 55), y = static_cast<int>(random() % 45);
        HRGN part = CreateRectRgn(x, y, x + 9, y + 7);
        CombineRgn(clip, clip, part, RGN_XOR);
        DeleteObject(part);
    }
    SelectClipRgn(clipped.dc, clip);
    for (int style : {PS_SOLID, PS_DASHDOT}) {
        whole.pen(style);
        clipped.pen(style);
        for (int i = 0; i < 200; ++i) {
            auto coordinate = [&] { return static_cast<int>(random() % 300) - 120; };
            int fromX = coordinate(), fromY = coordinate(), toX = coordinate(), toY = coordinate();
            whole.clear();
            clipped.clear();
            whole.line(fromX, fromY, toX, toY);
            clipped.line(fromX, fromY, toX, toY);
            std::vector<uint32_t> expected = whole.pixels();
            for (int p = 0; p < 60 * 50; ++p)
                if (!PtInRegion(clip, p % 60, p / 60))
                    expected[static_cast<size_t>(p)] = 0;
            ASSERT_EQ(clipped.pixels(), expected) << fromX << "," << fromY << " to " << toX << "," << toY;
        }
    }
    DeleteObject(clip);
}

TEST(Lines, BreakByTheirStyleAndShowTheBackgroundWhereItIsOpaque)
{
    LineCanvas canvas(50, 2, 32);
    SetBkColor(canvas.dc, RGB(255, 0, 0));
    auto drawn = [&](int style) {
        canvas.clear();
        canvas.pen(style);
        canvas.line(0, 0, 50, 0);
        return canvas.rows({{0, '.'}, {0xffffff, '#'}, {0xff0000, '-'}})[0];
    };
    EXPECT_EQ(drawn(PS_DASH), "##################------##################------##");
    EXPECT_EQ(drawn(PS_DOT), "###---###---###---###---###---###---###---###---##");
    EXPECT_EQ(drawn(PS_DASHDOT), "#########------###------#########------###------##");
    EXPECT_EQ(drawn(PS_DASHDOTDOT), "#########---###---###---#########---###---###---##");
    SetBkMode(canvas.dc, TRANSPARENT);
    EXPECT_EQ(drawn(PS_DASHDOTDOT), "#########...###...###...#########...###...###...##");
}

TEST(Lines, OfExtendedPensHaveGapsThatTheBackgroundDoesNotFill)
{
    LineCanvas canvas(50, 2, 32);
    LOGBRUSH brush{BS_SOLID, white, 0};
    DWORD lengths[] = {2, 1, 1};
    canvas.usePen(ExtCreatePen(PS_COSMETIC | PS_USERSTYLE, 1, &brush, 3, lengths));
    canvas.line(0, 0, 50, 0);
    canvas.usePen(ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &brush, 0, nullptr));
    canvas.line(0, 1, 50, 1);
    EXPECT_EQ(canvas.rows(), (Rows{"######...###......###...######...###......###...##",
                                   "#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#.#."}));
}

TEST(Lines, KeepTheirStyleAlongAPolylineAndBeginItAnewWithEachCall)
{
    LineCanvas canvas(30, 2, 32);
    SetBkMode(canvas.dc, TRANSPARENT);
    canvas.pen(PS_DOT);
    POINT points[] = {{0, 0}, {4, 0}, {9, 0}, {30, 0}};
    ASSERT_TRUE(Polyline(canvas.dc, points, 4));
    canvas.line(0, 1, 4, 1);
    ASSERT_TRUE(LineTo(canvas.dc, 9, 1));
    ASSERT_TRUE(LineTo(canvas.dc, 30, 1));
    EXPECT_EQ(canvas.rows(), (Rows{"###...###...###...###...###...", "###.###..###...###...###...###"}));
}

TEST(Lines, OfAPolylineTouchEachOfTheirCornersOnce)
{
    LineCanvas canvas(9, 5, 32);
    canvas.pen(PS_SOLID);
    SetROP2(canvas.dc, R2_XORPEN);
    POINT points[] = {{1, 1}, {7, 1}, {7, 3}, {1, 3}, {1, 1}};
    ASSERT_TRUE(Polyline(canvas.dc, points, 5));
    EXPECT_EQ(canvas.rows(), (Rows{".........", ".#######.", ".#.....#.", ".#######.", "........."}));
}

TEST(Lines, MoveTheCurrentPositionAsTheirCallSays)
{
    Canvas canvas(9, 5, 32);
    POINT at{-1, -1}, points[] = {{1, 1}, {7, 1}, {7, 3}};
    DWORD counts[] = {3};
    MoveToEx(canvas.dc, 4, 4, nullptr);
    Polyline(canvas.dc, points, 3);
    Polygon(canvas.dc, points, 3);
    PolyPolyline(canvas.dc, points, counts, 1);
    GetCurrentPositionEx(canvas.dc, &at);
    EXPECT_TRUE(at.x == 4 && at.y == 4);
    PolylineTo(canvas.dc, points, 3);
    GetCurrentPositionEx(canvas.dc, &at);
    EXPECT_TRUE(at.x == 7 && at.y == 3);
    PolyBezierTo(canvas.dc, points, 3);
    LineTo(canvas.dc, 2, 2);
    MoveToEx(canvas.dc, 0, 0, &at);
    EXPECT_TRUE(at.x == 2 && at.y == 2);
}

TEST(Lines, RefuseWhatIsNoLine)
{
    Canvas canvas(9, 5, 32);
    POINT points[7]{};
    DWORD oneEach[] = {1, 3};
    EXPECT_FALSE(Polyline(canvas.dc, points, 1));
    EXPECT_FALSE(PolylineTo(canvas.dc, points, 0));
    EXPECT_FALSE(PolyPolyline(canvas.dc, points, oneEach, 2));
    for (DWORD count : {0u, 1u, 2u, 3u, 5u, 6u})
        EXPECT_FALSE(PolyBezier(canvas.dc, points, count)) << count;
    for (DWORD count : {0u, 1u, 2u, 4u, 5u, 7u})
        EXPECT_FALSE(PolyBezierTo(canvas.dc, points, count)) << count;
    EXPECT_FALSE(LineTo(nullptr, 1, 1));
    EXPECT_FALSE(MoveToEx(reinterpret_cast<HDC>(GetStockObject(BLACK_PEN)), 1, 1, nullptr));
}
