// Lines and shapes where the layer promises more than others: precision, any coordinates, short memory.
#include "Canvas.h"

#include <win32/control.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <random>
#include <thread>

using Rows = std::vector<std::string>;

namespace {

constexpr COLORREF white = RGB(255, 255, 255);

class DrawingLayer : public testing::Test {
protected:
    void SetUp() override { objects_ = Win32Control_GdiObjects(); }
    void TearDown() override
    {
        Win32Control_Reset();
        EXPECT_EQ(Win32Control_GdiObjects(), objects_);
    }

private:
    DWORD objects_ = 0;
};

class SelectedPen {
public:
    SelectedPen(HDC dc, HPEN pen) : dc_(dc), old_(SelectObject(dc, pen)) {}
    ~SelectedPen() { DeleteObject(SelectObject(dc_, old_)); }
    SelectedPen(const SelectedPen &) = delete;
    SelectedPen &operator=(const SelectedPen &) = delete;

private:
    HDC dc_;
    HGDIOBJ old_;
};

HPEN geometric(DWORD style, DWORD width, UINT brushStyle = BS_SOLID)
{
    LOGBRUSH brush{brushStyle, white, HS_DIAGCROSS};
    return ExtCreatePen(PS_GEOMETRIC | style, width, &brush, 0, nullptr);
}

POINT bezierPoint(const POINT *p, double t)
{
    double u = 1 - t;
    auto at = [&](auto field) {
        return static_cast<LONG>(std::lround(16
                                             * (u * u * u * field(p[0]) + 3 * u * u * t * field(p[1])
                                                + 3 * u * t * t * field(p[2]) + t * t * t * field(p[3]))));
    };
    return {at([](POINT q) { return q.x; }), at([](POINT q) { return q.y; })};
}

// A drawing of everything that has to remember something.
void drawAll(HDC dc)
{
    POINT points[] = {{5, 5}, {50, 10}, {20, 40}, {55, 55}};
    LOGBRUSH brush{BS_SOLID, white, 0};
    DWORD lengths[] = {7, 3};
    HPEN pens[] = {CreatePen(PS_SOLID, 1, white), CreatePen(PS_DOT, 1, white), CreatePen(PS_SOLID, 5, white),
                   geometric(PS_JOIN_MITER, 4), ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 3, &brush, 2, lengths)};
    for (HPEN pen : pens) {
        if (!pen)
            continue;
        SelectedPen selected(dc, pen);
        for (int mode : {R2_COPYPEN, R2_XORPEN}) {
            SetROP2(dc, mode);
            Polyline(dc, points, 4);
            Polygon(dc, points, 4);
            PolyBezier(dc, points, 4);
            Rectangle(dc, 2, 2, 30, 30);
            Ellipse(dc, 20, 20, 60, 50);
            RoundRect(dc, 10, 30, 50, 60, 12, 9);
            Arc(dc, 5, 5, 60, 60, 0, 0, 60, 20);
            Pie(dc, 5, 5, 60, 60, 0, 0, 60, 20);
            BeginPath(dc);
            Ellipse(dc, 10, 10, 50, 50);
            PolylineTo(dc, points, 4);
            EndPath(dc);
            WidenPath(dc);
            if (HRGN region = PathToRegion(dc))
                DeleteObject(region);
            BeginPath(dc);
            Chord(dc, 10, 10, 50, 50, 0, 0, 60, 60);
            EndPath(dc);
            StrokeAndFillPath(dc);
        }
    }
    SetROP2(dc, R2_COPYPEN);
    AbortPath(dc);
}

} // namespace

TEST_F(DrawingLayer, LinesAreExactOverTheWholeRangeOfCoordinates)
{
    std::mt19937 random(31);
    Canvas canvas(64, 48, 32);
    SelectedPen pen(canvas.dc, CreatePen(PS_SOLID, 1, white));
    for (int i = 0; i < 60; ++i) {
        // Through a point of the canvas, from one end of the plane to the other.
        int64_t slope = static_cast<int64_t>(random() % 2000000) - 1000000;
        POINT from{INT_MIN + static_cast<int>(random() % 1000), 0}, to{INT_MAX - static_cast<int>(random() % 1000), 0};
        from.y = static_cast<LONG>(24 - slope * 1000);
        to.y = static_cast<LONG>(24 + slope * 1000);
        if (i % 2) {
            std::swap(from.x, from.y);
            std::swap(to.x, to.y);
        }
        canvas.clear();
        MoveToEx(canvas.dc, from.x, from.y, nullptr);
        ASSERT_TRUE(LineTo(canvas.dc, to.x, to.y));
        __int128 length = i % 2 ? __int128{to.y} - from.y : __int128{to.x} - from.x;
        __int128 rise = i % 2 ? __int128{to.x} - from.x : __int128{to.y} - from.y;
        std::vector<uint32_t> expected(64 * 48), drawn = canvas.pixels();
        for (int major = 0; major < (i % 2 ? 48 : 64); ++major) {
            __int128 along = __int128{major} - (i % 2 ? from.y : from.x);
            __int128 numerator = 2 * along * rise - length, denominator = 2 * length;
            __int128 quotient = numerator / denominator + (numerator % denominator > 0);
            auto minor = static_cast<int64_t>(quotient + (i % 2 ? from.x : from.y));
            if (minor >= 0 && minor < (i % 2 ? 64 : 48))
                expected[static_cast<size_t>(i % 2 ? major * 64 + minor : minor * 64 + major)] = 0xffffff;
        }
        ASSERT_EQ(drawn, expected) << "slope " << slope << (i % 2 ? ", steep" : "");
    }
}

TEST_F(DrawingLayer, CurvesOfOnePixelAreConnectedOnceDrawnAndCloseToTheCurve)
{
    std::mt19937 random(32);
    for (int i = 0; i < 80; ++i) {
        Canvas once(80, 80, 32), copied(80, 80, 32);
        POINT points[4];
        for (POINT &point : points)
            point = {static_cast<LONG>(random() % 80), static_cast<LONG>(random() % 80)};
        // No loops: the control points lie in order.
        std::sort(std::begin(points), std::end(points), [](POINT a, POINT b) { return a.x < b.x; });
        for (Canvas *canvas : {&once, &copied}) {
            SelectedPen pen(canvas->dc, CreatePen(PS_SOLID, 1, white));
            SetROP2(canvas->dc, canvas == &once ? R2_XORPEN : R2_COPYPEN);
            ASSERT_TRUE(PolyBezier(canvas->dc, points, 4));
        }
        ASSERT_EQ(once.pixels(), copied.pixels()) << "curve " << i;
        std::vector<uint32_t> pixels = copied.pixels();
        auto isDrawn = [&](LONG x, LONG y) {
            return x >= 0 && y >= 0 && x < 80 && y < 80 && pixels[static_cast<size_t>(y * 80 + x)];
        };
        for (int step = 0; step < 1000; ++step) {
            POINT place = bezierPoint(points, step / 1000.0);
            LONG x = (place.x + 8) >> 4, y = (place.y + 8) >> 4;
            bool isNear = false;
            for (int k = 0; k < 9; ++k)
                isNear |= isDrawn(x + k % 3 - 1, y + k / 3 - 1);
            ASSERT_TRUE(isNear) << "curve " << i << " has a gap at " << x << "," << y;
        }
        for (int p = 0; p < 6400; ++p) {
            if (!pixels[static_cast<size_t>(p)])
                continue;
            double nearest = 1000;
            for (int step = 0; step <= 1000; ++step) {
                POINT place = bezierPoint(points, step / 1000.0);
                nearest = std::min(nearest, std::hypot(place.x / 16.0 - p % 80, place.y / 16.0 - p / 80));
            }
            ASSERT_LT(nearest, 0.8) << "curve " << i << " at " << p % 80 << "," << p / 80;
        }
    }
}

TEST_F(DrawingLayer, WideLinesFollowTheirTrueShape)
{
    std::mt19937 random(33);
    for (int i = 0; i < 100; ++i) {
        Canvas canvas(60, 60, 32);
        int width = 2 + i % 11;
        SelectedPen pen(canvas.dc, geometric(PS_ENDCAP_FLAT, static_cast<DWORD>(width)));
        double shift = width % 2 ? 0 : 0.5;
        POINT a{static_cast<LONG>(random() % 50) + 5, static_cast<LONG>(random() % 50) + 5};
        POINT b{static_cast<LONG>(random() % 50) + 5, static_cast<LONG>(random() % 50) + 5};
        double length = std::hypot(b.x - a.x, b.y - a.y);
        if (length < 1)
            continue;
        MoveToEx(canvas.dc, a.x, a.y, nullptr);
        LineTo(canvas.dc, b.x, b.y);
        std::vector<uint32_t> pixels = canvas.pixels();
        for (int p = 0; p < 3600; ++p) {
            double x = p % 60 + shift - a.x, y = p / 60 + shift - a.y;
            double along = (x * (b.x - a.x) + y * (b.y - a.y)) / length;
            double across = std::fabs(x * (b.y - a.y) - y * (b.x - a.x)) / length;
            double outside = std::max({across - width / 2.0, -along, along - length});
            bool isTooClose = std::fabs(outside) < 0.15;
            ASSERT_TRUE(isTooClose || (pixels[static_cast<size_t>(p)] != 0) == (outside < 0))
                << a.x << "," << a.y << " to " << b.x << "," << b.y << ", " << width << " wide, at " << p % 60 << ","
                << p / 60;
        }
    }
}

TEST_F(DrawingLayer, WidenedFiguresHaveHolesOnlyWhereThePenLeavesThem)
{
    for (int mode : {ALTERNATE, WINDING}) {
        Canvas widened(60, 60, 32), stroked(60, 60, 32);
        for (Canvas *canvas : {&widened, &stroked}) {
            SelectedPen pen(canvas->dc, geometric(PS_JOIN_MITER, 7));
            SelectObject(canvas->dc, GetStockObject(WHITE_BRUSH));
            SetPolyFillMode(canvas->dc, mode);
            BeginPath(canvas->dc);
            POINT triangle[] = {{10, 10}, {50, 15}, {25, 50}};
            Polygon(canvas->dc, triangle, 3);
            EndPath(canvas->dc);
            if (canvas == &widened) {
                ASSERT_TRUE(WidenPath(canvas->dc));
                ASSERT_TRUE(FillPath(canvas->dc));
            } else {
                ASSERT_TRUE(StrokePath(canvas->dc));
            }
        }
        EXPECT_EQ(widened.pixels(), stroked.pixels());
        EXPECT_EQ(widened.pixel(27, 22), 0u);
    }
}

TEST_F(DrawingLayer, DashesWithCapsStayDotsWhereTheirLengthIsUsedUp)
{
    Canvas canvas(30, 4, 32);
    SelectedPen pen(canvas.dc, geometric(PS_ENDCAP_SQUARE | PS_DOT, 2));
    MoveToEx(canvas.dc, 2, 2, nullptr);
    LineTo(canvas.dc, 29, 2);
    EXPECT_EQ(canvas.rows()[1], ".##..##..##..##..##..##..##...");
}

TEST_F(DrawingLayer, ARectangleOfOneColumnIsDrawnOnce)
{
    Canvas canvas(3, 4, 32);
    SelectedPen pen(canvas.dc, CreatePen(PS_SOLID, 1, white));
    SetROP2(canvas.dc, R2_XORPEN);
    Rectangle(canvas.dc, 1, 0, 2, 4);
    EXPECT_EQ(canvas.rows(), (Rows{".#.", ".#.", ".#.", ".#."}));
}

TEST_F(DrawingLayer, PathCallsSayWhatIsMissing)
{
    Canvas canvas(9, 9, 32);
    auto failsWith = [](BOOL result, DWORD error) {
        DWORD last = GetLastError();
        SetLastError(0);
        return !result && last == error;
    };
    EXPECT_TRUE(failsWith(FillPath(canvas.dc), ERROR_CAN_NOT_COMPLETE));
    EXPECT_TRUE(failsWith(EndPath(canvas.dc), ERROR_CAN_NOT_COMPLETE));
    EXPECT_TRUE(failsWith(FlattenPath(canvas.dc), ERROR_CAN_NOT_COMPLETE));
    EXPECT_TRUE(failsWith(PathToRegion(canvas.dc) != nullptr, ERROR_CAN_NOT_COMPLETE));
    EXPECT_TRUE(failsWith(BeginPath(nullptr), ERROR_INVALID_HANDLE));
    EXPECT_TRUE(failsWith(Polyline(canvas.dc, nullptr, 3), ERROR_INVALID_PARAMETER));
    BeginPath(canvas.dc);
    LineTo(canvas.dc, 5, 5);
    BeginPath(canvas.dc); // begins anew
    EndPath(canvas.dc);
    EXPECT_EQ(PathToRegion(canvas.dc), nullptr);
    BeginPath(canvas.dc);
    LineTo(canvas.dc, 5, 5);
    EndPath(canvas.dc);
    // A pen of one pixel has no outline.
    EXPECT_TRUE(failsWith(WidenPath(canvas.dc), ERROR_CAN_NOT_COMPLETE));
    EXPECT_TRUE(StrokePath(canvas.dc));
}

TEST_F(DrawingLayer, AnyCoordinatesAreHarmless)
{
    std::mt19937 random(34);
    constexpr int edges[] = {INT_MIN, INT_MIN + 1, -(1 << 29), -(1 << 27) - 5, -70000,        -1,          0,
                             1,       33,          70000,      1 << 26,        (1 << 28) + 3, INT_MAX - 1, INT_MAX};
    auto any = [&] {
        return random() % 3 ? edges[random() % std::size(edges)] : static_cast<int>(random() % 100) - 20;
    };
    Canvas canvas(40, 30, 32);
    HPEN pens[] = {CreatePen(PS_SOLID, 1, white),
                   CreatePen(PS_DASHDOT, 1, white),
                   CreatePen(PS_SOLID, 6, white),
                   CreatePen(PS_INSIDEFRAME, INT_MAX, white),
                   geometric(PS_DASH | PS_JOIN_MITER, 9),
                   geometric(PS_DOT, INT_MAX),
                   geometric(PS_ENDCAP_FLAT, 3, BS_HATCHED),
                   CreatePen(PS_NULL, 0, 0)};
    for (int i = 0; i < 1200; ++i) {
        SelectObject(canvas.dc, pens[random() % std::size(pens)]);
        SetROP2(canvas.dc, 1 + static_cast<int>(random() % 16));
        SetViewportOrgEx(canvas.dc, random() % 4 ? 0 : any(), random() % 4 ? 0 : any(), nullptr);
        POINT points[] = {{any(), any()}, {any(), any()}, {any(), any()}, {any(), any()}};
        bool isPath = random() % 8 == 0;
        if (isPath)
            BeginPath(canvas.dc);
        char text[] = "some words\tof text";
        RECT area = {any(), any(), any(), any()};
        switch (random() % 13) {
        case 0: Polyline(canvas.dc, points, 4); break;
        case 1: Polygon(canvas.dc, points, 4); break;
        case 2: PolyBezier(canvas.dc, points, 4); break;
        case 3: Rectangle(canvas.dc, any(), any(), any(), any()); break;
        case 4: Ellipse(canvas.dc, any(), any(), any(), any()); break;
        case 5: RoundRect(canvas.dc, any(), any(), any(), any(), any(), any()); break;
        case 6: Arc(canvas.dc, any(), any(), any(), any(), any(), any(), any(), any()); break;
        case 7: Pie(canvas.dc, any(), any(), any(), any(), any(), any(), any(), any()); break;
        case 8: DrawEdge(canvas.dc, &area, random() % 16, random() & 0xffff); break;
        case 9: DrawFrameControl(canvas.dc, &area, random() % 6, random() & 0xffff); break;
        case 10: DrawTextA(canvas.dc, text, -1, &area, random() & 0xeffff); break;
        case 11:
            ExcludeClipRect(canvas.dc, any(), any(), any(), any());
            SelectClipRgn(canvas.dc, nullptr);
            break;
        default: MoveToEx(canvas.dc, any(), any(), nullptr); LineTo(canvas.dc, any(), any());
        }
        if (isPath) {
            EndPath(canvas.dc);
            if (random() % 2)
                WidenPath(canvas.dc);
            StrokeAndFillPath(canvas.dc);
        }
    }
    SelectObject(canvas.dc, GetStockObject(BLACK_PEN));
    for (HPEN pen : pens)
        DeleteObject(pen);
}

TEST_F(DrawingLayer, RefusedMemoryFailsCleanly)
{
    Canvas whole(64, 64, 32);
    drawAll(whole.dc);
    std::vector<uint32_t> expected = whole.pixels();
    DWORD objects = Win32Control_GdiObjects();
    bool wasRefused = true;
    for (DWORD refused = 1; wasRefused; refused += refused < 100 ? 1 : 7) {
        Canvas canvas(64, 64, 32);
        // A thread of its own has none of the room that others keep from one drawing to the next.
        std::thread([&] {
            Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
            drawAll(canvas.dc);
            wasRefused = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER) >= refused;
            Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
        }).join();
        canvas.clear();
        drawAll(canvas.dc);
        ASSERT_EQ(canvas.pixels(), expected) << refused;
        ASSERT_LT(refused, 20000u);
    }
    EXPECT_EQ(Win32Control_GdiObjects(), objects);
}
