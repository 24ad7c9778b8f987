// Regions drawn on small canvases, held against sets of pixels.
#include "Canvas.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

constexpr int width = 40, height = 30;
constexpr uint32_t ground = 0x123456, red = 0xff0000, green = 0x00ff00;

class RegionDrawing : public testing::Test {
protected:
    RegionDrawing()
        : canvas_(width, height, 32), brush_(CreateSolidBrush(RGB(255, 0, 0))),
          selected_(CreateSolidBrush(RGB(0, 255, 0)))
    {
        RecordProperty("seed", static_cast<int>(seed_));
        SelectObject(canvas_.dc, selected_);
        canvas_.clear(ground);
    }
    ~RegionDrawing() override
    {
        DeleteObject(brush_);
        SelectObject(canvas_.dc, GetStockObject(WHITE_BRUSH));
        DeleteObject(selected_);
        DeleteObject(region_);
    }

    int number(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(random_); }
    void scatter()
    {
        SetRectRgn(region_, 0, 0, 0, 0);
        for (int count = number(1, 7); count > 0; --count) {
            int x = number(-8, width), y = number(-8, height);
            HRGN box = CreateRectRgn(x, y, x + number(1, 20), y + number(1, 12));
            CombineRgn(region_, region_, box, RGN_OR);
            DeleteObject(box);
        }
    }
    // The canvas must show inside(x, y) where the predicate holds and the ground elsewhere.
    template <class Predicate> void expectWhere(uint32_t inside, Predicate predicate)
    {
        std::vector<uint32_t> expected(width * height, ground);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (predicate(x, y))
                    expected[static_cast<size_t>(y * width + x)] = inside;
            }
        }
        EXPECT_EQ(canvas_.pixels(), expected);
        canvas_.clear(ground);
    }
    bool holds(int x, int y) const { return PtInRegion(region_, x, y); }
    bool isFrame(int x, int y, int frameWidth, int frameHeight) const
    {
        if (!holds(x, y))
            return false;
        for (int i = 1; i <= frameWidth; ++i) {
            if (!holds(x - i, y) || !holds(x + i, y))
                return true;
        }
        for (int i = 1; i <= frameHeight; ++i) {
            if (!holds(x, y - i) || !holds(x, y + i))
                return true;
        }
        return false;
    }

    unsigned seed_ = 20263;
    std::mt19937 random_{seed_};
    Canvas canvas_;
    HBRUSH brush_, selected_;
    HRGN region_ = CreateRectRgn(0, 0, 0, 0);
};

TEST_F(RegionDrawing, FillsPaintsFramesAndInvertsTheRegionsPixels)
{
    for (int round = 0; round < 60 && !HasFailure(); ++round) {
        scatter();
        EXPECT_TRUE(FillRgn(canvas_.dc, region_, brush_));
        expectWhere(red, [this](int x, int y) { return holds(x, y); });
        EXPECT_TRUE(PaintRgn(canvas_.dc, region_));
        expectWhere(green, [this](int x, int y) { return holds(x, y); });
        EXPECT_TRUE(InvertRgn(canvas_.dc, region_));
        expectWhere(~ground, [this](int x, int y) { return holds(x, y); });
        for (auto [frameWidth, frameHeight] : {std::pair(1, 1), std::pair(0, 1), std::pair(1, 0), std::pair(-1, 1)}) {
            EXPECT_TRUE(FrameRgn(canvas_.dc, region_, brush_, frameWidth, frameHeight));
            expectWhere(red, [this, frameWidth = abs(frameWidth), frameHeight = frameHeight](int x, int y) {
                return isFrame(x, y, frameWidth, frameHeight);
            });
        }
    }
}

TEST_F(RegionDrawing, KeepsToTheClip)
{
    HRGN clip = CreateRectRgn(5, 5, 20, 12), more = CreateRectRgn(15, 9, 35, 25);
    CombineRgn(clip, clip, more, RGN_XOR);
    SelectClipRgn(canvas_.dc, clip);
    for (int round = 0; round < 20 && !HasFailure(); ++round) {
        scatter();
        FillRgn(canvas_.dc, region_, brush_);
        expectWhere(red, [this, clip](int x, int y) { return holds(x, y) && PtInRegion(clip, x, y); });
        FrameRgn(canvas_.dc, region_, brush_, 1, 1);
        expectWhere(red, [this, clip](int x, int y) { return isFrame(x, y, 1, 1) && PtInRegion(clip, x, y); });
    }
    SelectClipRgn(canvas_.dc, nullptr);
    DeleteObject(clip);
    DeleteObject(more);
}

TEST_F(RegionDrawing, FollowsTheMappingAndTheRasterMode)
{
    SetWindowOrgEx(canvas_.dc, -3, 2, nullptr);
    SetROP2(canvas_.dc, R2_XORPEN);
    for (int round = 0; round < 20 && !HasFailure(); ++round) {
        scatter();
        FillRgn(canvas_.dc, region_, brush_);
        expectWhere(ground ^ red, [this](int x, int y) { return holds(x - 3, y + 2); });
        PaintRgn(canvas_.dc, region_);
        expectWhere(ground ^ green, [this](int x, int y) { return holds(x - 3, y + 2); });
        FrameRgn(canvas_.dc, region_, brush_, 1, 1);
        expectWhere(ground ^ red, [this](int x, int y) { return isFrame(x - 3, y + 2, 1, 1); });
        InvertRgn(canvas_.dc, region_);
        expectWhere(~ground, [this](int x, int y) { return holds(x - 3, y + 2); });
    }
    SetROP2(canvas_.dc, R2_COPYPEN);
    SetWindowOrgEx(canvas_.dc, 0, 0, nullptr);

    SetMapMode(canvas_.dc, MM_ANISOTROPIC);
    SetWindowExtEx(canvas_.dc, 1, 1, nullptr);
    SetViewportExtEx(canvas_.dc, -2, 3, nullptr);
    SetViewportOrgEx(canvas_.dc, width, 0, nullptr);
    SetRectRgn(region_, 2, 1, 9, 6);
    FillRgn(canvas_.dc, region_, brush_);
    expectWhere(red, [](int x, int y) { return x >= width - 18 && x < width - 4 && y >= 3 && y < 18; });
    FrameRgn(canvas_.dc, region_, brush_, 1, 1);
    expectWhere(red, [](int x, int y) {
        bool isWithin = x >= width - 18 && x < width - 4 && y >= 3 && y < 18;
        return isWithin && !(x >= width - 16 && x < width - 6 && y >= 6 && y < 15);
    });
}

TEST_F(RegionDrawing, RefusesWhatIsNoRegionBrushOrContext)
{
    SetRectRgn(region_, 2, 2, 9, 9);
    auto noBrush = reinterpret_cast<HBRUSH>(region_);
    auto noRegion = reinterpret_cast<HRGN>(brush_);
    EXPECT_FALSE(FillRgn(canvas_.dc, region_, noBrush));
    EXPECT_FALSE(FillRgn(canvas_.dc, noRegion, brush_));
    EXPECT_FALSE(FillRgn(nullptr, region_, brush_));
    EXPECT_FALSE(FrameRgn(canvas_.dc, region_, noBrush, 1, 1));
    EXPECT_FALSE(FrameRgn(canvas_.dc, noRegion, brush_, 1, 1));
    EXPECT_FALSE(PaintRgn(canvas_.dc, noRegion));
    EXPECT_FALSE(InvertRgn(nullptr, region_));
    EXPECT_TRUE(FillRgn(canvas_.dc, region_, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))));
    SetRectRgn(region_, 0, 0, 0, 0);
    EXPECT_TRUE(FillRgn(canvas_.dc, region_, brush_));
    expectWhere(red, [](int, int) { return false; });
}

} // namespace
