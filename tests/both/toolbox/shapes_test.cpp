// Lines, rectangles, ovals and regions, pixel by pixel.
#include "ShapeCanvas.h"

#include <mtbx/MTBXGlobals.h>

#include <cmath>
#include <functional>
#include <vector>

namespace {

class Shapes : public ShapeCanvas {
protected:
    void setHook(std::function<void(CQDProcs &)> set)
    {
        if (!GetPortGrafProcs(port()))
            NotedHooks::install(port());
        set(*GetPortGrafProcs(port()));
    }
    // In an exclusive-or mode white turns over what it crosses; a pen that is white already does.
    void useXor()
    {
        PenMode(patXor);
        ASSERT_EQ(port()->pnPat, qd.white);
    }
};

TEST_F(Shapes, StraightLinesAreThePenDrawnOutToTheirEnd)
{
    PenSize(3, 2);
    struct {
        SInt16 h, v;
        Rect painted;
    } const cases[] = {{20, 10, ltrb(10, 10, 23, 12)},
                       {2, 10, ltrb(2, 10, 13, 12)},
                       {10, 25, ltrb(10, 10, 13, 27)},
                       {10, 1, ltrb(10, 1, 13, 12)},
                       {10, 10, ltrb(10, 10, 13, 12)}};
    for (auto &[h, v, painted] : cases) {
        std::string line = drawn([&] {
            MoveTo(10, 10);
            MacLineTo(h, v);
        });
        EXPECT_EQ(port()->pnLoc, (Point{v, h}));
        POINT native;
        GetCurrentPositionEx(context(), &native);
        EXPECT_TRUE(native.x == h && native.y == v) << "the context's position follows";
        EXPECT_EQ(line, rectangles({painted})) << h << ", " << v;
        std::string relative = drawn([&] {
            MoveTo(10, 10);
            Line(static_cast<SInt16>(h - 10), static_cast<SInt16>(v - 10));
        });
        EXPECT_EQ(relative, line);
    }
}

TEST_F(Shapes, LinesThatLeaveTheRangeAreCutAndThePenIsNot)
{
    std::string row = rectangles({ltrb(0, 5, 64, 6)});
    EXPECT_EQ(drawn([&] {
                  MoveTo(-32768, 5);
                  MacLineTo(-1, 5);
                  MacLineTo(32767, 5);
              }),
              row);
    EXPECT_EQ(port()->pnLoc, (Point{5, 32767}));
    Line(1, 0);
    EXPECT_EQ(port()->pnLoc, (Point{5, -32768})) << "wraps at 16 bits";
    PenSize(1, 1);
    clear();
    MoveTo(5, 5);
    MacLineTo(32760, 32700);
    EXPECT_TRUE(isBlack(6, 6));
    EXPECT_EQ(port()->pnLoc, (Point{32700, 32760}));
}

TEST_F(Shapes, DiagonalLinesAreThoseOfAPatternPenOfGdi)
{
    auto byGdi = [&](const Pattern &pattern, int width) {
        UInt16 bits[8];
        for (int i = 0; i < 8; ++i)
            bits[i] = pattern.pat[i];
        HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
        LOGBRUSH brush = {BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(bitmap)};
        HPEN pen = ExtCreatePen(PS_GEOMETRIC, width, &brush, 0, nullptr);
        HGDIOBJ former = SelectObject(context(), pen);
        MoveToEx(context(), 5, 7, nullptr);
        LineTo(context(), 50, 30);
        SelectObject(context(), former);
        DeleteObject(pen);
        DeleteObject(bitmap);
    };
    for (int width : {1, 2, 5}) {
        std::string expected = drawn([&] { byGdi(stripes, width); });
        PenPat(&stripes);
        PenSize(static_cast<SInt16>(width), 9);
        EXPECT_EQ(drawn([] {
                      MoveTo(5, 7);
                      MacLineTo(50, 30);
                  }),
                  expected)
            << width;
    }
    PenSize(-1, -1);
    MoveTo(5, 7);
    MacLineTo(50, 30);
}

TEST_F(Shapes, DiagonalLinesUseTheRasterModeAndStraightOnesDoNot)
{
    PenMode(patOr); // R2_MERGEPEN: black adds nothing
    EXPECT_EQ(drawn([] {
                  MoveTo(5, 5);
                  MacLineTo(20, 15);
              }),
              rectangles({}));
    EXPECT_EQ(drawn([] { MacLineTo(5, 15); }), rectangles({ltrb(5, 15, 21, 16)}));
}

TEST_F(Shapes, ExclusiveOrTurnsLinesOverAndBack)
{
    useXor();
    SetROP2(context(), R2_COPYPEN);
    MoveTo(5, 5);
    MacLineTo(40, 20);
    EXPECT_TRUE(isBlack(5, 5));
    EXPECT_GT(countBlack(), 30);
    EXPECT_EQ(GetROP2(context()), R2_COPYPEN) << "as it was before the line";
    MoveTo(5, 5);
    MacLineTo(40, 20);
    EXPECT_EQ(countBlack(), 0);
    PenSize(2, 3);
    MacLineTo(40, 30);
    EXPECT_EQ(countBlack(), 2 * 13);
}

TEST_F(Shapes, PolyLinesJoinAnyNumberOfPoints)
{
    for (int count : {0, 1, 2, 32, 33, 500}) {
        std::vector<Point> points;
        std::vector<POINT> native;
        for (int i = 0; i < count; ++i) {
            points.push_back({static_cast<SInt16>(i * 7 % 60), static_cast<SInt16>(i * 13 % 60)});
            native.push_back({points.back().h, points.back().v});
        }
        PenNormal();
        MoveTo(1, 2);
        std::string lines = drawn([&] { MTBX_PolyLine(static_cast<SInt16>(count), points.data()); });
        EXPECT_EQ(port()->pnLoc, count ? points.back() : (Point{2, 1}));
        LOGBRUSH black = {BS_SOLID, 0, 0};
        HGDIOBJ former = SelectObject(context(), ExtCreatePen(PS_GEOMETRIC, 1, &black, 0, nullptr));
        EXPECT_EQ(lines, drawn([&] { Polyline(context(), native.data(), count); })) << count;
        DeleteObject(SelectObject(context(), former));
    }
    MTBX_PolyLine(-1, nullptr);
}

TEST_F(Shapes, FramesLieInsideWithoutAPixelPaintedTwice)
{
    Rect rect = ltrb(0, 0, 10, 10);
    EXPECT_EQ(drawn([&] { MacFrameRect(&rect); }),
              rectangles({ltrb(0, 0, 10, 1), ltrb(0, 9, 10, 10), ltrb(0, 0, 1, 10), ltrb(9, 0, 10, 10)}));
    EXPECT_EQ(countBlack(), 36);
    useXor();
    PenSize(3, 2);
    rect = ltrb(5, 6, 30, 20);
    EXPECT_EQ(drawn([&] { MacFrameRect(&rect); }),
              rectangles({ltrb(5, 6, 30, 8), ltrb(5, 18, 30, 20), ltrb(5, 8, 8, 18), ltrb(27, 8, 30, 18)}));
    PenNormal();
    PenMode(srcOr);
    EXPECT_EQ(drawn([&] { MacFrameRect(&rect); }).find('?'), std::string::npos);
    EXPECT_EQ(countBlack(), 2 * 25 + 2 * 12) << "copied in mode 1";
    for (Rect thin : {ltrb(3, 3, 13, 4), ltrb(3, 3, 4, 13), ltrb(3, 3, 4, 4)}) {
        PenNormal();
        EXPECT_EQ(drawn([&] { MacFrameRect(&thin); }), rectangles({thin})) << "nothing beyond a thin one";
    }
}

TEST_F(Shapes, RectanglesArePaintedErasedInvertedAndFilled)
{
    Rect rect = ltrb(5, 6, 30, 20), empty = ltrb(9, 9, 9, 20);
    PenPat(&stripes);
    std::string striped = drawn([&] { PaintRect(&rect); });
    EXPECT_EQ(picture(8, 2, 8, 6), "\n####....\n....####\n") << "in phase with the port";
    PenNormal();
    EXPECT_EQ(drawn([&] { MacFillRect(&rect, &stripes); }), striped);
    EXPECT_EQ(port()->pnPat, qd.black);
    for (SInt16 mode : {srcCopy, patXor, notPatCopy, srcOr}) {
        PenMode(mode);
        PenPat(&qd.black);
        EXPECT_EQ(drawn([&] { PaintRect(&rect); }), rectangles({rect})) << "copied in mode " << mode;
    }
    RGBColor black = {0, 0, 0}, white = {65535, 65535, 65535};
    RGBBackColor(&black);
    port()->bkPat = stripes;
    EXPECT_EQ(drawn([&] {
                  EraseRect(&rect);
                  EraseRect(&empty);
              }),
              rectangles({rect}));
    RGBBackColor(&white);
    MacInvertRect(&rect);
    EXPECT_EQ(countBlack(), 0);
    EXPECT_EQ(drawn([&] { MacInvertRect(&rect); }), rectangles({rect}));
    Rect widest = ltrb(-32768, -32768, 32767, 32767);
    PenNormal();
    PaintRect(&widest);
    EXPECT_EQ(countBlack(), side * side);
    EXPECT_EQ(widest, ltrb(-32768, -32768, 32767, 32767));
}

// What the three modes make of a pixel below and the pattern's white or black.
TEST_F(Shapes, ThreeModesOfPaintRectLookAtThePixelsBelow)
{
    RGBColor red = {65535, 0, 0}, blue = {0, 0, 65535}, operation = {65535, 0x8000, 0};
    RGBForeColor(&red); // neither of them shows: the pattern is black and white
    RGBBackColor(&blue);
    Pattern pattern = {{0x07, 0xFF, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
    PenPat(&pattern);
    Rect rect = ltrb(13, 10, 29, 13);
    auto paint = [&](SInt16 mode) {
        memory.clear(0x123456);
        PenMode(mode);
        PaintRect(&rect);
        EXPECT_EQ(memory.pixel(12, 10), 0x123456u);
        EXPECT_EQ(memory.pixel(13, 13), 0x123456u);
    };
    paint(patOr);
    for (int x = 13; x < 29; ++x) {
        EXPECT_EQ(memory.pixel(x, 10), x % 8 >= 5 ? 0x123456u : 0u) << "columns in phase with the port: " << x;
        EXPECT_EQ(memory.pixel(x, 11), 0x123456u);
        EXPECT_EQ(memory.pixel(x, 12), 0u);
    }
    paint(srcBic);
    for (int x = 13; x < 29; ++x)
        EXPECT_EQ(memory.pixel(x, 10), x % 8 >= 5 ? 0xFFFFFFu : 0x123456u);
    OpColor(&operation);
    paint(blend);
    for (int x = 13; x < 29; ++x)
        EXPECT_EQ(memory.pixel(x, 11), 0x007FFFu);
    DisposeHandle(port()->grafVars);
    port()->grafVars = nullptr;
    paint(blend);
    EXPECT_EQ(memory.pixel(13, 12), 0u) << "as in mode 9";
    EXPECT_EQ(memory.pixel(13, 11), 0x123456u);
    EXPECT_EQ(GetTextColor(context()), RGB(255, 0, 0));
    EXPECT_EQ(GetBkColor(context()), RGB(0, 0, 255));
    SetOrigin(-3, -5);
    rect = ltrb(10, 5, 26, 8);
    paint(patOr);
    for (int x = 13; x < 29; ++x)
        EXPECT_EQ(memory.pixel(x, 10), (x - 3) % 8 >= 5 ? 0x123456u : 0u) << "at another origin: " << x;
}

TEST_F(Shapes, MergedRectanglesKnowTheOrderOfPixelsAndTheBitsHook)
{
    static int copies;
    Pattern pattern = {{0x07, 0xFF, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
    PenPat(&pattern);
    Rect rect = ltrb(13, 10, 29, 13);
    for (SInt16 mode : {patOr, srcBic, blend}) {
        RGBColor operation = {0x1000, 0x2000, 0x3000};
        OpColor(&operation);
        PenMode(mode);
        memory.clear(0x80123456);
        PaintRect(&rect);
        std::vector<UInt32> direct;
        for (int i = 0; i < side; ++i)
            direct.push_back(memory.pixel(i, 10));
        // The same pixels with their bytes in the other order.
        PixMap &map = pixMapOf(port());
        map.pmFormat = kPixelFormatMasks;
        map.pmMasks[0] = 0x0000FF00, map.pmMasks[1] = 0x00FF0000, map.pmMasks[2] = 0xFF000000, map.pmMasks[3] = 0xFF;
        map.pixelSize = 32;
        map.pmWidth = map.pmHeight = side;
        map.baseAddr = static_cast<Ptr>(memory.bits());
        map.rowBytes = static_cast<SInt16>(side * 4 | 0x8000);
        memory.clear(0x56341280);
        PaintRect(&rect);
        MTBX_ConvertBitsFast(memory.bits(), side, side, side * 4);
        for (int i = 0; i < side; ++i)
            EXPECT_EQ(memory.pixel(i, 10), direct[static_cast<size_t>(i)]) << i << " in mode " << mode;
        map.pmFormat = kPixelFormatNative;
        EXPECT_EQ(+qd.thePort, port());
    }
    setHook([](CQDProcs &hooks) {
        hooks.bitsProc = [](const BitMap *, const Rect *from, const Rect *to, SInt16 mode, RgnHandle) {
            ++copies;
            EXPECT_EQ(*from, ltrb(5, 0, 21, 3));
            EXPECT_EQ(*to, ltrb(13, 10, 29, 13));
            EXPECT_EQ(mode, notSrcBic);
        };
    });
    PenMode(patOr);
    PaintRect(&rect);
    EXPECT_EQ(copies, 1);
}

// The outline dot by dot, slow and by the letter of the midpoint ellipse.
std::vector<Point> dotsOf(const Rect &rect, Point pen)
{
    std::vector<Point> dots;
    int cx = (rect.left + rect.right - pen.h) >> 1, cy = (rect.top + rect.bottom - pen.v) >> 1;
    double a = std::pow(cx - rect.left, 2), b = std::pow(cy - rect.top, 2);
    int x = 0, y = cy - rect.top;
    auto plot = [&] {
        for (auto [h, v] : {std::pair(cx + x, cy + y), {cx - x, cy - y}, {cx + x, cy - y}, {cx - x, cy + y}})
            dots.push_back({static_cast<SInt16>(v), static_cast<SInt16>(h)});
    };
    double d = b - y * a + a * 0.25;
    plot();
    while (a * (y - 0.5) > b * (x + 1)) {
        if (d < 0)
            d += b * (2 * x + 3);
        else
            d += b * (2 * x + 3) + 2 * a * (1 - y), --y;
        ++x;
        plot();
    }
    if (y >= 1) {
        d = b * (x + 0.5) * (x + 0.5) + a * (y - 1) * (y - 1) - a * b;
        while (y > 0) {
            if (d < 0)
                d += 2 * b * (x + 1), ++x;
            d += a * (3 - 2 * y);
            --y;
            plot();
        }
    }
    return dots;
}

TEST_F(Shapes, FramedOvalsAreDotsOfThePen)
{
    const Rect rects[] = {ltrb(0, 0, 64, 64), ltrb(3, 5, 40, 20),  ltrb(10, 2, 17, 60), ltrb(4, 4, 5, 5),
                          ltrb(4, 4, 12, 5),  ltrb(20, 9, 21, 30), ltrb(9, 9, 9, 9),    ltrb(30, 30, 20, 20)};
    const Point pens[] = {{1, 1}, {2, 3}, {5, 1}, {1, 4}, {7, 7}};
    for (SInt16 mode : {patCopy, patXor})
        for (const Rect &rect : rects)
            for (Point pen : pens) {
                PenNormal();
                PenMode(mode);
                PenSize(pen.h, pen.v);
                std::vector<Point> dots = dotsOf(rect, pen);
                std::string expected = drawn([&] {
                    for (Point dot : dots)
                        PatBlt(context(), dot.h, dot.v, pen.h, pen.v, mode == patXor ? DSTINVERT : BLACKNESS);
                });
                ASSERT_EQ(drawn([&] { FrameOval(&rect); }), expected) << testing::PrintToString(rect);
                EXPECT_EQ(port()->pnLoc, dots.back());
            }
    PenNormal();
    Rect farthest = ltrb(-32768, -32768, 32767, 32767);
    FrameOval(&farthest);
    EXPECT_EQ(port()->pnLoc, (Point{-1, -32768}));
    static std::vector<Point> seen;
    setHook([](CQDProcs &hooks) { hooks.lineProc = [](Point point) { seen.push_back(point); }; });
    FrameOval(&rects[1]);
    EXPECT_EQ(seen, dotsOf(rects[1], {1, 1}));
}

TEST_F(Shapes, OvalsRoundRectanglesAndRegionsAreThoseOfGdi)
{
    RgnHandle rgn = NewRgn(), hole = NewRgn();
    MacSetRectRgn(rgn, 5, 5, 45, 40);
    MacSetRectRgn(hole, 20, 15, 30, 25);
    DiffRgn(rgn, hole, rgn);
    HRGN native = (*rgn)->rgnNative, round = CreateRoundRectRgn(5, 6, 41, 31, 12, 8);
    Rect rect = ltrb(5, 6, 40, 30);
    auto with = [&](HGDIOBJ pen, HGDIOBJ brush, auto draw) {
        return drawn([&] {
            HGDIOBJ formerPen = SelectObject(context(), pen), formerBrush = SelectObject(context(), brush);
            draw();
            SelectObject(context(), formerPen);
            SelectObject(context(), formerBrush);
        });
    };
    PenPat(&stripes);
    PenSize(3, 2);
    HGDIOBJ striped = GetCurrentObject(context(), OBJ_BRUSH), noPen = GetStockObject(NULL_PEN);
    auto brush = static_cast<HBRUSH>(striped);
    HPEN wide = CreatePen(PS_SOLID, 3, 0);
    auto ellipse = [&] { Ellipse(context(), 5, 6, 40, 30); };
    std::string oval = with(GetStockObject(BLACK_PEN), striped, ellipse), erased = with(noPen, striped, ellipse);
    std::string frame = with(wide, GetStockObject(NULL_BRUSH), [&] { RoundRect(context(), 5, 6, 40, 30, 12, 8); });
    std::string inverted = drawn([&] { InvertRgn(context(), round); });
    std::string region = drawn([&] { FillRgn(context(), native, brush); });
    std::string regionsFrame = drawn([&] { FrameRgn(context(), native, brush, 3, 2); });
    std::string shape = drawn([&] { InvertRgn(context(), native); });
    EXPECT_EQ(drawn([&] { PaintOval(&rect); }), oval);
    EXPECT_EQ(drawn([&] { MacPaintRgn(rgn); }), region);
    EXPECT_EQ(drawn([&] { MacFrameRgn(rgn); }), regionsFrame);
    EXPECT_EQ(drawn([&] { MacInvertRgn(rgn); }), shape);
    EXPECT_EQ(drawn([&] {
                  PatBlt(context(), 0, 0, side, side, BLACKNESS);
                  EraseRgn(rgn);
                  PatBlt(context(), 0, 0, side, side, DSTINVERT);
              }),
              shape);
    EXPECT_EQ(drawn([&] { InvertRoundRect(&rect, 12, 8); }), inverted);
    EXPECT_EQ(drawn([&] { PaintRoundRect(&rect, 12, 8), EraseRoundRect(&rect, 12, 8); }), rectangles({}));
    PenPat(&qd.black);
    port()->bkPat = stripes;
    EXPECT_EQ(drawn([&] { EraseOval(&rect); }), erased) << "with bkPat and no outline";
    EXPECT_EQ(GetCurrentObject(context(), OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(drawn([&] { FillOval(&rect, &stripes); }), oval);
    EXPECT_EQ(drawn([&] { MacFillRgn(rgn, &stripes); }), region);
    EXPECT_EQ(port()->pnPat, qd.black);
    RGBColor red = {65535, 0, 0};
    RGBForeColor(&red);
    EXPECT_EQ(drawn([&] { FrameRoundRect(&rect, 12, 8); }), frame) << "black, without a filling";
    DeleteObject(wide);
    DeleteObject(round);
    DisposeRgn(rgn);
    DisposeRgn(hole);
}

TEST_F(Shapes, InvertingAnOvalTwiceLeavesNothing)
{
    Rect rect = ltrb(5, 6, 40, 30);
    PenSize(4, 3);
    MoveTo(9, 8);
    PenMode(patXor);
    PenPat(&stripes);
    InvertOval(&rect);
    EXPECT_GT(countBlack(), 0);
    EXPECT_TRUE(isBlack(22, 5)) << "one pixel larger than the rectangle";
    PenState state;
    GetPenState(&state);
    EXPECT_EQ(state.pnPat, stripes);
    EXPECT_EQ(state.pnMode, patXor);
    EXPECT_EQ(state.pnSize, (Point{3, 4}));
    EXPECT_EQ(state.pnLoc, (Point{8, 9}));
    InvertOval(&rect);
    EXPECT_EQ(countBlack(), 0);
}

TEST_F(Shapes, HooksDrawInTheLibrarysPlace)
{
    setHook([](CQDProcs &hooks) {
        hooks.lineProc = [](Point) { NotedHooks::note("line", 0); };
        hooks.rectProc = [](GrafVerb verb, const Rect *) { NotedHooks::note("rect", verb); };
        hooks.ovalProc = [](GrafVerb verb, const Rect *) { NotedHooks::note("oval", verb); };
        hooks.rRectProc = [](GrafVerb verb, const Rect *, SInt16, SInt16) { NotedHooks::note("round", verb); };
        hooks.polyProc = [](GrafVerb verb, PolyHandle) { NotedHooks::note("poly", verb); };
        hooks.rgnProc = [](GrafVerb verb, RgnHandle) { NotedHooks::note("rgn", verb); };
    });
    Rect rect = ltrb(5, 5, 20, 20), empty = {};
    RgnHandle rgn = NewRgn();
    MoveTo(1, 2);
    MacLineTo(10, 10);
    EXPECT_EQ(port()->pnLoc, (Point{2, 1})) << "a line hook leaves the pen";
    MacFrameRect(&rect), PaintRect(&rect), EraseRect(&rect), EraseRect(&empty), MacInvertRect(&rect);
    MacFillRect(&rect, &stripes);
    FrameOval(&rect), PaintOval(&rect), EraseOval(&rect), InvertOval(&rect), FillOval(&rect, &stripes);
    FrameRoundRect(&rect, 2, 2), InvertRoundRect(&rect, 2, 2);
    PaintPoly(nullptr), InvertPoly(nullptr), FillPoly(nullptr, &stripes);
    EraseRgn(rgn), MacInvertRgn(rgn);
    EXPECT_EQ(NotedHooks::calls, "line0 rect0 rect1 rect2 rect3 rect1 oval0 oval1 oval2 oval3 oval1 round0 round3 "
                                 "poly1 poly3 poly1 rgn2 rgn3 ");
    EXPECT_EQ(countBlack(), 0);
    MacSetRectRgn(rgn, 5, 5, 20, 20);
    MacPaintRgn(rgn);
    EXPECT_EQ(countBlack(), 225) << "has no hook";
    SetStdCProcs(GetPortGrafProcs(port()));
    EXPECT_EQ(drawn([&] { PaintRect(&rect); }), rectangles({rect})) << "null slots stand for the library's drawing";
    DisposeRgn(rgn);
}

TEST_F(Shapes, ScrollingMovesPixelsAndErasesWhatItUncovers)
{
    for (int origin : {0, 7}) {
        SetOrigin(static_cast<SInt16>(origin), static_cast<SInt16>(-origin));
        auto at = [&](int left, int top, int right, int bottom) {
            return ltrb(left + origin, top - origin, right + origin, bottom - origin);
        };
        RgnHandle update = NewRgn();
        Rect box = at(10, 10, 20, 20), area = at(5, 5, 40, 40);
        clear();
        PenNormal();
        PaintRect(&box);
        ScrollRect(&area, 8, 0, update);
        EXPECT_EQ((*update)->rgnBBox, at(5, 5, 13, 40));
        ScrollRect(&area, 0, -3, update);
        EXPECT_EQ((*update)->rgnBBox, at(5, 37, 40, 40));
        EXPECT_TRUE(isBlack(18, 7));
        EXPECT_TRUE(isBlack(27, 16));
        EXPECT_EQ(countBlack(), 100);
        Rect beyond = at(50, 50, 90, 90);
        ScrollRect(&beyond, 3, 0, update);
        EXPECT_EQ((*update)->rgnBBox, at(50, 50, 53, 64)) << "within the port only";
        ScrollRect(&area, 1, 1, nullptr);
        EXPECT_TRUE(isBlack(28, 17));
        ScrollRect(&area, 1, 1, update);
        EXPECT_EQ((*update)->rgnBBox, at(5, 5, 40, 40)) << "the box around both strips, and it is erased";
        EXPECT_EQ(countBlack(), 0);
        DisposeRgn(update);
    }
}

// Every call.
void drawAll()
{
    Rect rect = ltrb(1, 1, 9, 9);
    Point points[2] = {};
    RGBColor color;
    MoveTo(1, 1), MacLineTo(5, 5), MacLineTo(5, 9), Line(1, 1), MTBX_PolyLine(2, points);
    MacFrameRect(&rect), EraseRect(&rect), MacInvertRect(&rect), MacFillRect(&rect, &stripes);
    for (SInt16 mode : {srcBic, patOr, blend, patCopy})
        PenMode(mode), PaintRect(&rect);
    FrameOval(&rect), PaintOval(&rect), EraseOval(&rect), InvertOval(&rect), FillOval(&rect, &stripes);
    FrameRoundRect(&rect, 2, 2), InvertRoundRect(&rect, 2, 2), ScrollRect(&rect, 1, 1, nullptr);
    MacFrameRgn(nullptr), MacPaintRgn(nullptr), EraseRgn(nullptr), MacInvertRgn(nullptr);
    MacFillRgn(nullptr, &stripes);
    FramePoly(nullptr), PaintPoly(nullptr), KillPoly(nullptr), OffsetPoly(nullptr, 1, 1), ClosePoly();
    OpenPoly2(), ClosePoly2(), FramePoly2(nullptr), PaintPoly2(nullptr), InvertPoly2(nullptr);
    GetCPixel(0, 0, &color), GetCPixel(0, 0, nullptr), SetCPixel(0, 0, &color), MacGetPixel(-32768, 0);
}

TEST_F(Shapes, APortWithoutContextDrawsNothing)
{
    CGrafPtr bare = CreateNewPort();
    MacSetPort(bare);
    drawAll();
    EXPECT_EQ(QDError(), noErr);
    DisposePort(bare);
    MTBX_ShutdownGraf();
    ASSERT_FALSE(+qd.thePort);
    drawAll(); // nor is there one at all now
    EXPECT_FALSE(OpenPoly());
    InitGraf(nullptr);
}

} // namespace
