// Polygons: how they are recorded, and what is drawn of them.
#include "ShapeCanvas.h"

#include <vector>

namespace {

class Polygons : public ShapeCanvas {
protected:
    PolyHandle recorded(const std::vector<Point> &points)
    {
        PolyHandle poly = OpenPoly();
        for (Point point : points)
            MacLineTo(point.h, point.v);
        ClosePoly();
        return poly;
    }
    static std::vector<Point> pointsOf(PolyHandle poly)
    {
        const Point *first = (*poly)->polyPoints;
        return {first, first + ((*poly)->polySize - 10) / 4};
    }
    HRGN region(const std::vector<Point> &points)
    {
        std::vector<POINT> corners;
        for (Point point : points)
            corners.push_back({point.h, point.v});
        return CreatePolygonRgn(corners.data(), static_cast<int>(corners.size()), ALTERNATE);
    }
};

// A star whose middle two outlines surround.
const std::vector<Point> star = {{2, 30}, {58, 46}, {22, 4}, {22, 56}, {58, 14}};

TEST_F(Polygons, TheEndsOfLinesAreRecorded)
{
    PolyHandle poly = OpenPoly();
    ASSERT_TRUE(poly);
    EXPECT_EQ((*poly)->polySize, 10);
    EXPECT_EQ((*poly)->polyBBox, ltrb(32767, 32767, -32768, -32768));
    EXPECT_EQ(port()->pnVis, 1);
    EXPECT_FALSE(OpenPoly()) << "one at a time";
    MoveTo(1, 1);
    MacLineTo(20, 10);
    EXPECT_EQ((*poly)->polyBBox, ltrb(20, 10, -32768, -32768)) << "one side at a time";
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(poly)), 14);
    MoveTo(5, 5);
    Line(-2, 7);
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(poly)), 58);
    EXPECT_EQ(port()->pnLoc, (Point{12, 3}));
    ClosePoly();
    ClosePoly();
    EXPECT_EQ(port()->pnVis, 0);
    EXPECT_EQ(countBlack(), 0);
    EXPECT_EQ(pointsOf(poly), (std::vector<Point>{{10, 20}, {12, 3}}));
    EXPECT_EQ((*poly)->polyBBox, ltrb(3, 10, -32768, 12));
    OffsetPoly(poly, 32767, -20);
    EXPECT_EQ(pointsOf(poly), (std::vector<Point>{{-10, -32749}, {-8, -32766}}));
    EXPECT_EQ((*poly)->polyBBox, ltrb(3, 10, -32768, 12));
    MacLineTo(9, 12);
    EXPECT_EQ(countBlack(), 7) << "drawn again";
    KillPoly(poly);
}

TEST_F(Polygons, ARecordingEndsWithItsHandleAndAtItsLimit)
{
    PolyHandle poly = OpenPoly();
    KillPoly(poly);
    EXPECT_EQ(port()->pnVis, 0);
    MacLineTo(5, 0);
    EXPECT_EQ(countBlack(), 6);
    poly = OpenPoly();
    MacSetPort(nullptr);
    KillPoly(poly);
    MacSetPort(port());
    clear();
    MacLineTo(10, 0);
    EXPECT_EQ(countBlack(), 6) << "killed while another port was current";
    EXPECT_EQ(port()->pnVis, 0);
    poly = OpenPoly();
    for (int i = 0; i < 9000; ++i)
        MacLineTo(static_cast<SInt16>(i % 60), static_cast<SInt16>(i % 50));
    ClosePoly();
    EXPECT_EQ(pointsOf(poly).size(), 8189u);
    clear();
    PaintPoly(poly);
    EXPECT_GT(countBlack(), 0);
    KillPoly(poly);
}

TEST_F(Polygons, AreDrawnThroughRegionsByAlternateOutlines)
{
    PolyHandle poly = recorded(star);
    HRGN inside = region(star);
    auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    std::string painted = drawn([&] { FillRgn(context(), inside, black); });
    EXPECT_TRUE(isBlack(30, 10));
    EXPECT_FALSE(isBlack(30, 30));
    EXPECT_EQ(drawn([&] { PaintPoly(poly); }), painted);
    EXPECT_EQ(drawn([&] { InvertPoly(poly); }), painted);
    PenSize(2, 3);
    EXPECT_EQ(drawn([&] { FrameRgn(context(), inside, black, 2, 3); }), drawn([&] { FramePoly(poly); }));
    std::string filled = drawn([&] { FillPoly(poly, &stripes); });
    EXPECT_EQ(port()->pnPat, qd.black);
    PenPat(&stripes);
    EXPECT_EQ(drawn([&] { PaintPoly(poly); }), filled);
    DeleteObject(inside);
    KillPoly(poly);
}

TEST_F(Polygons, RecordsThatAreTooShortOrLieDrawNothingBeyondTheirHandle)
{
    for (const std::vector<Point> &points : {std::vector<Point>{}, {{5, 5}}, {{5, 5}, {9, 9}}}) {
        PolyHandle poly = recorded(points);
        PaintPoly(poly), FramePoly(poly), InvertPoly(poly);
        KillPoly(poly);
    }
    EXPECT_EQ(countBlack(), 0);
    for (SInt16 size : {32767, 10, 0, -32768}) {
        PolyHandle poly = recorded({{5, 5}, {9, 30}, {30, 9}});
        (*poly)->polySize = size;
        PaintPoly(poly), FramePoly(poly), OffsetPoly(poly, 1, 1);
        KillPoly(poly);
    }
    PolyHandle purged = OpenPoly();
    EmptyHandle(reinterpret_cast<Handle>(purged));
    MacLineTo(5, 5);
    ClosePoly();
    PaintPoly(purged);
    KillPoly(purged);
}

TEST_F(Polygons, ThePathKeepsOutlinesApart)
{
    auto recordSquares = [] {
        EXPECT_EQ(reinterpret_cast<intptr_t>(OpenPoly2()), -1);
        for (SInt16 low : {5, 15}) {
            auto high = static_cast<SInt16>(60 - low);
            MoveTo(low, low);
            MacLineTo(high, low), MacLineTo(high, high), Line(0, 0), MacLineTo(low, high), MacLineTo(low, low);
        }
        ClosePoly2();
    };
    auto squares = [&](auto draw) {
        return drawn([&] {
            recordSquares();
            EXPECT_EQ(countBlack(), 0) << "recorded only";
            draw();
        });
    };
    std::string ring = drawn([&] {
        PatBlt(context(), 5, 5, 50, 50, BLACKNESS);
        PatBlt(context(), 15, 15, 30, 30, WHITENESS);
    });
    EXPECT_EQ(squares([] { PaintPoly2(nullptr); }), ring);
    EXPECT_EQ(port()->pnLoc, (Point{15, 15}));
    EXPECT_EQ(squares([] { FillPoly2(nullptr, &qd.black); }), ring);
    EXPECT_EQ(squares([] { InvertPoly2(nullptr); }), ring);
    EXPECT_EQ(GetROP2(context()), R2_COPYPEN);
    squares([] { FramePoly2(nullptr); });
    EXPECT_TRUE(isBlack(5, 5) && !isBlack(7, 7));
    MacLineTo(0, 15);
    EXPECT_TRUE(isBlack(0, 15)) << "drawn again";
    ClosePoly2(); // one too many is forgotten
    squares([] {});
    PolyHandle token = OpenPoly2();
    ClosePoly2();
    FramePoly(token), PaintPoly(token), OffsetPoly(token, 1, 1), KillPoly(token);
}

TEST_F(Polygons, RegionRecordingComesBeforePolygonRecording)
{
    PolyHandle poly = OpenPoly();
    OpenRgn();
    MacLineTo(5, 5), MacLineTo(30, 5), MacLineTo(30, 30);
    RgnHandle rgn = NewRgn();
    CloseRgn(rgn);
    MacLineTo(7, 7);
    ClosePoly();
    EXPECT_EQ(pointsOf(poly), (std::vector<Point>{{7, 7}}));
    EXPECT_EQ((*rgn)->rgnBBox, ltrb(5, 5, 30, 30));
    KillPoly(poly);
    Rect rect = ltrb(10, 10, 20, 20);
    OpenRgn();
    PaintRect(&rect);
    EXPECT_EQ(countBlack(), 100) << "only lines are diverted";
    FrameOval(&rect);
    EXPECT_EQ(countBlack(), 100) << "whose dots are lines";
    CloseRgn(rgn);
    DisposeRgn(rgn);
}

} // namespace
