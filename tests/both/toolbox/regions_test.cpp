// Regions, held against sets of single pixels.
#include "PixelSet.h"
#include "Rectangles.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace {

class Region {
public:
    Region() : handle_(NewRgn()) {}
    explicit Region(Rect rect) : Region() { RectRgn(handle_, &rect); }
    ~Region() { DisposeRgn(handle_); }
    Region(const Region &) = delete;
    Region &operator=(const Region &) = delete;

    operator RgnHandle() const { return handle_; }
    Rect box() const { return (*handle_)->rgnBBox; }
    PixelSet pixels() const { return PixelSet::of(handle_); }
    void addRect(Rect rect)
    {
        Region other(rect);
        MacUnionRgn(handle_, other, handle_);
    }

private:
    RgnHandle handle_;
};

class Regions : public testing::Test {
protected:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    Rect randomRect(int from, int to)
    {
        int left = from + below(to - from), top = from + below(to - from);
        return ltrb(left, top, left + 1 + below(25), top + 1 + below(25));
    }
    void scatter(Region &region, int count)
    {
        SetEmptyRgn(region);
        for (int i = 0; i < count; ++i)
            region.addRect(randomRect(-40, 40));
    }

    std::mt19937 random_{43};
};

TEST_F(Regions, NewRegionIsEmpty)
{
    Region region;
    EXPECT_EQ((*region)->rgnSize, 10);
    EXPECT_EQ((*region)->rgnTag, 9094);
    EXPECT_EQ(region.box(), Rect{});
    EXPECT_TRUE(EmptyRgn(region));
}

TEST_F(Regions, RectangleWithoutAreaMakesItEmpty)
{
    Region region(ltrb(10, 10, 30, 10));
    EXPECT_EQ(region.box(), Rect{});
    EXPECT_TRUE(EmptyRgn(region));
    MacSetRectRgn(region, 5, 6, 7, 8);
    EXPECT_EQ(region.box(), ltrb(5, 6, 7, 8));
    EXPECT_FALSE(EmptyRgn(region));
    SetEmptyRgn(region);
    EXPECT_EQ(region.box(), Rect{});
}

TEST_F(Regions, AlgebraIsThatOfPixelSets)
{
    Region regions[3];
    for (Region &region : regions)
        scatter(region, 6);
    for (int round = 0; round < 150; ++round) {
        Region &a = regions[below(3)], &b = regions[below(3)], &result = regions[below(3)];
        PixelSet before[] = {a.pixels(), b.pixels()};
        int operation = below(5);
        if (operation == 0)
            SectRgn(a, b, result);
        else if (operation == 1)
            MacUnionRgn(a, b, result);
        else if (operation == 2)
            DiffRgn(a, b, result);
        else if (operation == 3)
            MacXorRgn(a, b, result);
        else
            MacCopyRgn(a, result);
        PixelSet expected = PixelSet::where([&](int x, int y) {
            bool inA = before[0].has(x, y), inB = before[1].has(x, y);
            const bool results[] = {inA && inB, inA || inB, inA && !inB, inA != inB, inA};
            return results[operation];
        });
        ASSERT_EQ(result.pixels(), expected) << "round " << round << " operation " << operation;
        ASSERT_EQ(result.box(), expected.box());
        if (EmptyRgn(result))
            scatter(result, 6);
    }
}

TEST_F(Regions, QuestionsAskThePixels)
{
    Region region, copy;
    for (int round = 0; round < 40; ++round) {
        scatter(region, 4);
        PixelSet pixels = region.pixels();
        for (int i = 0; i < 50; ++i) {
            Rect rect = randomRect(-50, 60);
            bool meets = false;
            for (int y = rect.top; y < rect.bottom; ++y)
                for (int x = rect.left; x < rect.right; ++x)
                    meets |= pixels.has(x, y);
            ASSERT_EQ(RectInRgn(&rect, region), meets);
            Point corner = {rect.top, rect.left};
            ASSERT_EQ(PtInRgn(corner, region), pixels.has(rect.left, rect.top));
        }
        MacCopyRgn(region, copy);
        ASSERT_TRUE(MacEqualRgn(region, copy));
        Rect corner = ltrb(region.box().left - 1, 0, region.box().left, 1);
        copy.addRect(corner);
        ASSERT_FALSE(MacEqualRgn(region, copy));
    }
    Rect nothing = ltrb(0, 0, 0, 50);
    region.addRect(ltrb(-10, -10, 60, 60));
    EXPECT_FALSE(RectInRgn(&nothing, region));
}

TEST_F(Regions, NullAndLostRegionsAreTakenAsEmpty)
{
    Region region(ltrb(0, 0, 5, 5));
    EXPECT_FALSE(PtInRgn({0, 0}, nullptr));
    EXPECT_TRUE(EmptyRgn(nullptr));
    SectRgn(region, nullptr, nullptr);
    MacOffsetRgn(nullptr, 1, 1);
    InsetRgn(nullptr, 1, 1);
    Rect rect = ltrb(0, 0, 9, 9);
    EXPECT_FALSE(RectInRgn(&rect, nullptr));
    MapRgn(nullptr, &rect, &rect);
    MacCopyRgn(nullptr, region);
    EXPECT_TRUE(EmptyRgn(region));
    DisposeRgn(nullptr);
}

TEST_F(Regions, DisposingAForeignHandleFreesOnlyTheHandle)
{
    Region region(ltrb(0, 0, 5, 5));
    auto copy = reinterpret_cast<RgnHandle>(NewHandleClear(sizeof(MacRegion)));
    **copy = **static_cast<RgnHandle>(region);
    (*copy)->rgnTag = 0;
    DisposeRgn(copy);
    EXPECT_TRUE(PtInRgn({4, 4}, region)) << "the native region lives";
    DisposeRgn(reinterpret_cast<RgnHandle>(NewHandle(2)));
}

TEST_F(Regions, OffsetOutOfRangeLeavesTheRegion)
{
    Region region(ltrb(31000, -5, 32000, 5));
    MacOffsetRgn(region, 800, 3);
    EXPECT_EQ(region.box(), ltrb(31000, -5, 32000, 5));
    MacOffsetRgn(region, 760, 3);
    EXPECT_EQ(region.box(), ltrb(31760, -2, 32760, 8));
    MacOffsetRgn(region, 0, -32759);
    EXPECT_EQ(region.box(), ltrb(31760, -2, 32760, 8));
    MacOffsetRgn(region, -32767, -10);
    EXPECT_EQ(region.box(), ltrb(-1007, -12, -7, -2));
}

TEST_F(Regions, InsetCombinesFourMovedCopies)
{
    Region region(ltrb(10, 10, 30, 30));
    InsetRgn(region, 2, 3);
    EXPECT_EQ(region.box(), ltrb(12, 13, 28, 27));
    RectRgn(region, std::make_unique<Rect>(ltrb(10, 10, 30, 30)).get());
    InsetRgn(region, -1, -1);
    EXPECT_EQ(region.box(), ltrb(9, 9, 31, 31));

    for (int round = 0; round < 60; ++round) {
        scatter(region, 5);
        PixelSet before = region.pixels();
        int dh = below(9) - 4, dv = below(9) - 4;
        InsetRgn(region, static_cast<SInt16>(dh), static_cast<SInt16>(dv));
        PixelSet expected = PixelSet::where([&](int x, int y) {
            const bool corners[] = {before.has(x - dh, y - dv), before.has(x + dh, y - dv), before.has(x - dh, y + dv),
                                    before.has(x + dh, y + dv)};
            if (dh < 0 && dv < 0)
                return corners[0] || corners[1] || corners[2] || corners[3];
            if (dh > 0 && dv > 0)
                return corners[0] && corners[1] && corners[2] && corners[3];
            return corners[0];
        });
        ASSERT_EQ(region.pixels(), expected) << dh << ", " << dv;
        ASSERT_EQ(region.box(), expected.box());
    }
}

TEST_F(Regions, MappingScalesAboutTheOrigin)
{
    Region region(ltrb(10, 10, 20, 20));
    region.addRect(ltrb(-8, 30, -4, 40));
    Rect from = ltrb(7, 9, 107, 109), to = ltrb(-50, 3, 150, 203), none = ltrb(3, 3, 3, 90), half = ltrb(0, 0, 50, 50);
    MapRgn(region, &from, &to);
    Region expected(ltrb(20, 20, 40, 40));
    expected.addRect(ltrb(-16, 60, -8, 80));
    EXPECT_EQ(region.pixels(), expected.pixels());
    EXPECT_EQ(region.box(), ltrb(-16, 20, 40, 80));
    MapRgn(region, &none, &to);
    EXPECT_EQ(region.pixels(), expected.pixels()) << "an empty source maps nothing";
    MapRgn(region, &from, &half);
    EXPECT_EQ(region.box(), ltrb(-8, 10, 20, 40));
    EXPECT_EQ((*region)->rgnTag, 9094);
    MapRgn(region, &from, &none);
    EXPECT_TRUE(EmptyRgn(region));
}

// A bitmap of random bits, in memory that ends a byte behind its last row.
struct Mask {
    Mask(int width, int height, int rowBytes, Point topLeft)
        : bytes(static_cast<size_t>(rowBytes * std::max(height, 0) + 1)), map{nullptr, static_cast<SInt16>(rowBytes),
                                                                          ltrb(topLeft.h, topLeft.v, topLeft.h + width,
                                                                               topLeft.v + height)}
    {
        map.baseAddr = reinterpret_cast<Ptr>(bytes.data());
    }
    // What the scan takes for set: whole bytes up to the one with the last pixel.
    bool has(int x, int y) const
    {
        int rowBytes = map.rowBytes & 0x3FFF, width = map.bounds.right - map.bounds.left;
        int visited = std::min(rowBytes, (width + 7) / 8) * 8;
        x -= map.bounds.left, y -= map.bounds.top;
        if (x < 0 || y < 0 || x >= visited || y >= map.bounds.bottom - map.bounds.top)
            return false;
        return bytes[static_cast<size_t>(y * rowBytes + x / 8)] & (0x80 >> x % 8);
    }

    std::vector<UInt8> bytes;
    BitMap map;
};

TEST_F(Regions, BitmapRunsBecomeRectangles)
{
    Mask mask(16, 2, 2, {20, 100});
    mask.bytes = {0xFF, 0x00, 0x0F, 0x0F};
    mask.map.baseAddr = reinterpret_cast<Ptr>(mask.bytes.data());
    Region region;
    EXPECT_EQ(BitMapToRegion(region, &mask.map), noErr);
    Region expected(ltrb(100, 20, 108, 21));
    expected.addRect(ltrb(104, 21, 108, 22));
    expected.addRect(ltrb(112, 21, 116, 22));
    EXPECT_EQ(region.pixels(), expected.pixels());
    EXPECT_EQ(region.box(), ltrb(100, 20, 116, 22));
}

TEST_F(Regions, BitmapScanAgreesWithSingleBits)
{
    Region region;
    for (int round = 0; round < 200; ++round) {
        int width = below(160) - 4, height = below(24) - 2;
        int rowBytes = (std::max(width, 0) + 7) / 8 + below(3);
        Mask mask(width, height, rowBytes, {static_cast<SInt16>(below(60) - 30), static_cast<SInt16>(below(60) - 60)});
        int kind = below(3);
        for (UInt8 &byte : mask.bytes)
            byte = static_cast<UInt8>(kind == 0 ? random_() : kind == 1 ? random_() % 4 ? 0xFF : random_() : 0);
        mask.map.rowBytes = static_cast<SInt16>(mask.map.rowBytes | (below(2) ? 0x8000 : 0));
        OSErr result = BitMapToRegion(region, &mask.map);
        if (result == pixmapTooDeepErr)
            continue;
        ASSERT_EQ(result, noErr);
        ASSERT_EQ(region.pixels(), PixelSet::where([&](int x, int y) { return mask.has(x, y); }))
            << "round " << round << " width " << width << " row bytes " << rowBytes;
    }
}

TEST_F(Regions, BitmapMayHaveMoreRunsThanTheBufferHolds)
{
    Region region;
    BitMapToRegion(nullptr, nullptr);
    for (int rows : {31, 32, 33, 150, 8}) {
        Mask mask(64, rows, 8, {0, 0});
        mask.bytes.assign(mask.bytes.size(), 0x55);
        mask.map.baseAddr = reinterpret_cast<Ptr>(mask.bytes.data());
        ASSERT_EQ(BitMapToRegion(region, &mask.map), noErr);
        ASSERT_EQ(region.pixels(), PixelSet::where([&](int x, int y) { return mask.has(x, y); })) << rows;
    }
    EXPECT_EQ(BitMapToRegion(nullptr, nullptr), noErr);
}

TEST_F(Regions, DepthOfABitmapIsJudgedByItsRows)
{
    Region region(ltrb(1, 2, 3, 4));
    struct {
        int width, rowBytes;
        OSErr result;
    } const cases[] = {{8, 2, pixmapTooDeepErr},
                       {8, 4, noErr},
                       {16, 4, noErr},
                       {17, 4, noErr},
                       {20, 5, pixmapTooDeepErr},
                       {17, 5, pixmapTooDeepErr},
                       {64, 32, pixmapTooDeepErr},
                       {64, 64, pixmapTooDeepErr},
                       {64, 8, noErr},
                       {9, 4, noErr},
                       {63, 32, pixmapTooDeepErr}};
    for (auto &[width, rowBytes, result] : cases) {
        Mask mask(width, 1, rowBytes, {0, 0});
        EXPECT_EQ(BitMapToRegion(region, &mask.map), result) << width << " " << rowBytes;
    }
    RectRgn(region, std::make_unique<Rect>(ltrb(1, 2, 3, 4)).get());
    Mask deep(8, 1, 2, {0, 0}), nowhere(64, 4, 8, {0, 0});
    nowhere.map.baseAddr = nullptr;
    EXPECT_EQ(BitMapToRegion(region, &deep.map), pixmapTooDeepErr);
    EXPECT_EQ(BitMapToRegion(region, &nowhere.map), noErr);
    EXPECT_EQ(region.box(), ltrb(1, 2, 3, 4)) << "neither changes the region";
}

} // namespace
