// Regions where the layer is stricter than other platforms, and where memory is short.
#include "Canvas.h"

#include <win32/control.h>

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <random>
#include <vector>

namespace {

class RegionLayer : public testing::Test {
protected:
    ~RegionLayer() override
    {
        for (HRGN region : made_)
            DeleteObject(region);
        Win32Control_Reset();
    }

    HRGN keep(HRGN region)
    {
        made_.push_back(region);
        return region;
    }
    HRGN box(int left, int top, int right, int bottom) { return keep(CreateRectRgn(left, top, right, bottom)); }

private:
    std::vector<HRGN> made_;
};

std::vector<char> dataOf(HRGN region)
{
    std::vector<char> data(GetRegionData(region, 0, nullptr));
    GetRegionData(region, static_cast<DWORD>(data.size()), reinterpret_cast<RGNDATA *>(data.data()));
    return data;
}

std::vector<char> dataOf(const std::vector<RECT> &boxes)
{
    std::vector<char> buffer(sizeof(RGNDATAHEADER) + boxes.size() * sizeof(RECT));
    auto *data = reinterpret_cast<RGNDATA *>(buffer.data());
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(boxes.size()), 0, {}};
    memcpy(data->Buffer, boxes.data(), boxes.size() * sizeof(RECT));
    return buffer;
}

HRGN create(const std::vector<char> &data, const XFORM *transform = nullptr)
{
    return ExtCreateRegion(transform, static_cast<DWORD>(data.size()), reinterpret_cast<const RGNDATA *>(data.data()));
}

// The same pixels must give the same boxes, or EqualRgn would tell them apart.
TEST_F(RegionLayer, ShapesHaveTheBoxesThatTheirRowsCombineTo)
{
    constexpr POINT star[] = {{50, 0}, {80, 95}, {2, 36},  {98, 36}, {20, 95},
                              {50, 0}, {50, 40}, {70, 40}, {70, 60}, {50, 60}};
    HRGN shapes[] = {keep(CreatePolygonRgn(star, 10, WINDING)), keep(CreatePolygonRgn(star, 10, ALTERNATE)),
                     keep(CreateEllipticRgn(3, 4, 90, 61)), keep(CreateRoundRectRgn(0, 0, 80, 50, 30, 20))};
    for (HRGN shape : shapes) {
        HRGN combined = box(0, 0, 0, 0);
        for (int y = 0; y < 100; ++y) {
            HRGN row = box(0, y, 100, y + 1);
            CombineRgn(row, row, shape, RGN_AND);
            CombineRgn(combined, combined, row, RGN_OR);
        }
        EXPECT_EQ(dataOf(shape), dataOf(combined));
        EXPECT_TRUE(EqualRgn(shape, combined));
        EXPECT_TRUE(EqualRgn(shape, keep(create(dataOf(shape)))));
    }
}

TEST_F(RegionLayer, CoordinatesMayBeAnything)
{
    HRGN whole = box(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_TRUE(PtInRegion(whole, INT_MIN, INT_MAX - 1));
    EXPECT_EQ(OffsetRgn(whole, 1, 0), ERROR);
    EXPECT_EQ(OffsetRgn(whole, 0, INT_MIN), ERROR);
    EXPECT_TRUE(EqualRgn(whole, box(INT_MIN, INT_MIN, INT_MAX, INT_MAX)));

    constexpr POINT corners[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MAX}};
    EXPECT_TRUE(EqualRgn(whole, keep(CreatePolygonRgn(corners, 4, WINDING))));

    // Nearly horizontal: its ten rows are some hundred million pixels apart.
    constexpr POINT flat[] = {{INT_MIN, 0}, {INT_MAX, 10}, {INT_MIN, 10}};
    HRGN wedge = keep(CreatePolygonRgn(flat, 3, ALTERNATE));
    EXPECT_TRUE(PtInRegion(wedge, -1, 5));
    EXPECT_FALSE(PtInRegion(wedge, 0, 5));

    HRGN disc = keep(CreateEllipticRgn(-1000000, -50000, 1000001, 50001));
    RECT bounds;
    GetRgnBox(disc, &bounds);
    EXPECT_EQ(bounds.left, -1000000);
    EXPECT_EQ(bounds.bottom, 50000);
    EXPECT_TRUE(PtInRegion(disc, 799998, 29999)); // 0.8² + 0.6² = 1
    EXPECT_FALSE(PtInRegion(disc, 800050, 30002));

    XFORM huge{1e9f, 0, 0, 1, 0, 0};
    HRGN scaled = keep(create(dataOf({{-5, 0, 5, 1}}), &huge));
    EXPECT_TRUE(EqualRgn(scaled, box(INT_MIN, 0, INT_MAX, 1)));
}

TEST_F(RegionLayer, ShapesOfTooManyRowsAreRefused)
{
    constexpr POINT tall[] = {{0, INT_MIN}, {INT_MAX, INT_MAX}, {-5, INT_MAX}};
    EXPECT_FALSE(CreatePolygonRgn(tall, 3, WINDING));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
    EXPECT_FALSE(CreateEllipticRgn(0, INT_MIN, 100, INT_MAX));
    // Few boxes, but all rows have to be looked at for them.
    constexpr POINT steep[] = {{0, INT_MIN}, {5, INT_MAX}, {-5, INT_MAX}};
    EXPECT_FALSE(CreatePolygonRgn(steep, 3, WINDING));
}

TEST_F(RegionLayer, ManyBoxesOverEachOtherTakeNoTimeOfTheirSquare)
{
    std::vector<RECT> boxes;
    for (int i = 0; i < 100000; ++i)
        boxes.push_back({i, i, 400000 - i, 400000 - i});
    HRGN region = keep(create(dataOf(boxes))); // as pairs, these are ten thousand million
    EXPECT_TRUE(EqualRgn(region, box(0, 0, 400000, 400000)));
}

TEST_F(RegionLayer, ManyBoxesOverEachOtherCoverWhatTheyCoverTogether)
{
    std::mt19937 random(20262);
    auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
    constexpr int span = 1000;
    for (int round = 0; round < 3; ++round) {
        std::vector<RECT> boxes(3000);
        std::vector<bool> isCovered(size_t{span} * span);
        for (RECT &rect : boxes) {
            int x = below(25) * 40 + below(20);
            rect = {x, below(450), x + 1 + below(20), 550 + below(450)};
            for (int y = rect.top; y < rect.bottom; ++y)
                std::fill_n(isCovered.begin() + y * span + rect.left, rect.right - rect.left, true);
        }
        HRGN region = keep(create(dataOf(boxes)));
        for (int y = 0; y < span; ++y) {
            for (int x = 0; x < span; ++x)
                ASSERT_EQ(!!PtInRegion(region, x, y), isCovered[static_cast<size_t>(y * span + x)]) << x << ", " << y;
        }
        EXPECT_TRUE(EqualRgn(region, keep(create(dataOf(region)))));
    }
}

TEST_F(RegionLayer, FramesHaveTheirFullWidthAlsoAlongNarrowGaps)
{
    Canvas canvas(14, 8);
    HRGN region = box(1, 1, 13, 7), gap = box(6, 1, 7, 5);
    CombineRgn(region, region, gap, RGN_DIFF);
    EXPECT_TRUE(FrameRgn(canvas.dc, region, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)), 3, 1));
    EXPECT_EQ(canvas.rows(),
              (std::vector<std::string>{"..............", ".#####.######.", ".#####.######.", ".#####.######.",
                                        ".#####.######.", ".###..#...###.", ".############.", ".............."}));
}

TEST_F(RegionLayer, DataThatLiesAboutItselfIsRefused)
{
    std::vector<char> good = dataOf({{0, 0, 5, 5}, {3, 3, 8, 8}});
    auto refuses = [&good](auto change, size_t size) {
        std::vector<char> data = good;
        change(reinterpret_cast<RGNDATA *>(data.data())->rdh);
        data.resize(size);
        HRGN region = create(data);
        bool isRefused = !region && GetLastError() == ERROR_INVALID_PARAMETER;
        DeleteObject(region);
        return isRefused;
    };
    EXPECT_FALSE(refuses([](RGNDATAHEADER &) {}, good.size()));
    EXPECT_TRUE(refuses([](RGNDATAHEADER &) {}, good.size() - 1));
    EXPECT_TRUE(refuses([](RGNDATAHEADER &) {}, sizeof(RGNDATAHEADER) - 1));
    EXPECT_TRUE(refuses([](RGNDATAHEADER &header) { header.nCount = 0x10000002; }, good.size()));
    EXPECT_TRUE(refuses([](RGNDATAHEADER &header) { header.dwSize = 0; }, good.size()));
    EXPECT_TRUE(refuses([](RGNDATAHEADER &header) { header.iType = 2; }, good.size()));
    constexpr POINT points[] = {{0, 0}, {9, 0}, {9, 9}};
    EXPECT_FALSE(CreatePolygonRgn(points, 1, ALTERNATE));
    EXPECT_FALSE(CreatePolygonRgn(points, -3, ALTERNATE));
    EXPECT_FALSE(CreatePolygonRgn(points, 3, 0));
    EXPECT_FALSE(CreatePolygonRgn(nullptr, 3, ALTERNATE));
}

TEST_F(RegionLayer, RefusedMemoryFailsTheCallAndLeavesAllAsItWas)
{
    constexpr POINT points[] = {{0, 0}, {90, 20}, {30, 95}, {60, 5}, {4, 80}};
    HRGN first = keep(CreatePolygonRgn(points, 5, ALTERNATE)), second = keep(CreateEllipticRgn(10, 10, 70, 60));
    std::vector<char> overlapping = dataOf({{0, 0, 50, 50}, {5, 5, 20, 60}, {3, 2, 60, 9}}), before = dataOf(first);
    XFORM turn{0.5f, 1, -1, 0.5f, 0, 0};
    const std::function<HRGN()> creations[] = {
        [] { return CreateRectRgn(0, 0, 5, 5); },
        [&points] { return CreatePolygonRgn(points, 5, WINDING); },
        [] { return CreateRoundRectRgn(0, 0, 50, 40, 9, 9); },
        [&overlapping] { return create(overlapping); },
        [&overlapping, &turn] { return create(overlapping, &turn); },
    };
    for (const std::function<HRGN()> &creation : creations) {
        DWORD objects = Win32Control_GdiObjects();
        HRGN region = nullptr;
        for (DWORD refused = 1; !region && refused < 100; ++refused) {
            Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
            region = creation();
            Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
            if (!region) {
                EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
                EXPECT_EQ(Win32Control_GdiObjects(), objects);
            }
        }
        ASSERT_TRUE(region);
        HRGN unhindered = keep(creation());
        EXPECT_TRUE(EqualRgn(region, unhindered));
        DeleteObject(region);
    }
    for (int mode = RGN_AND; mode <= RGN_COPY; ++mode) {
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, 1, 1, 0);
        EXPECT_EQ(CombineRgn(first, first, second, mode), ERROR);
        Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
        EXPECT_EQ(dataOf(first), before);
    }
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_REGION, 1, 1, 0);
    EXPECT_FALSE(CreateRectRgn(0, 0, 1, 1));
}

} // namespace
