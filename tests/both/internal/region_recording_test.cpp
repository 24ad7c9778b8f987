// The recording of a region, as the drawing calls feed it.
#include "PixelSet.h"
#include "Rectangles.h"

#include "Quickdraw/Regions_internal.h"

#include <gtest/gtest.h>

namespace {

class RegionRecording : public testing::Test {
protected:
    ~RegionRecording() { DisposeRgn(region_); }

    void record(std::initializer_list<Point> points)
    {
        OpenRgn();
        for (Point point : points)
            EXPECT_TRUE(recordRegionPoint(point.h, point.v));
        CloseRgn(region_);
        EXPECT_FALSE(recordRegionPoint(1, 1)) << "no recording is open";
    }

    RgnHandle region_ = NewRgn();
};

TEST_F(RegionRecording, PointsAreThePolygonsCorners)
{
    record({{10, 10}, {10, 20}, {20, 20}});
    EXPECT_EQ((*region_)->rgnBBox, ltrb(10, 10, 20, 20));
    EXPECT_TRUE(PtInRgn({11, 18}, region_));
    EXPECT_FALSE(PtInRgn({18, 11}, region_));
    record({{0, 0}, {0, 8}, {5, 8}, {5, 0}});
    EXPECT_EQ(PixelSet::of(region_), PixelSet::where([](int x, int y) { return x >= 0 && x < 8 && y >= 0 && y < 5; }));
}

TEST_F(RegionRecording, LineThatWindsTwiceFillsItsInside)
{
    record({{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}, {0, 10}, {10, 10}, {10, 0}});
    EXPECT_TRUE(PtInRgn({5, 5}, region_));
}

TEST_F(RegionRecording, OpeningAnewDropsWhatWasOpen)
{
    OpenRgn();
    recordRegionPoint(100, 100);
    record({{0, 0}, {0, 8}, {5, 8}, {5, 0}});
    EXPECT_EQ((*region_)->rgnBBox, ltrb(0, 0, 8, 5));
}

TEST_F(RegionRecording, TooFewPointsGiveAnEmptyRegionThatStaysOfUse)
{
    MacSetRectRgn(region_, 0, 0, 5, 5);
    record({{3, 3}});
    EXPECT_TRUE(EmptyRgn(region_));
    MacSetRectRgn(region_, 0, 0, 5, 5);
    EXPECT_TRUE(PtInRgn({2, 2}, region_));
    OpenRgn();
    CloseRgn(nullptr);
    EXPECT_FALSE(regionRecordingOpen);
}

TEST_F(RegionRecording, PointsBehindTheHundredthAreDropped)
{
    OpenRgn();
    for (SInt16 i = 0; i < 98; ++i)
        recordRegionPoint(i, 0);
    recordRegionPoint(97, 50);
    recordRegionPoint(0, 50);
    EXPECT_TRUE(recordRegionPoint(500, 500)) << "still nothing is drawn";
    CloseRgn(region_);
    EXPECT_EQ((*region_)->rgnBBox, ltrb(0, 0, 97, 50));
}

} // namespace
