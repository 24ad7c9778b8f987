// Scrolling: what moves, and what is left to be drawn anew.
#include "Canvas.h"

#include <gtest/gtest.h>

namespace {

using Rows = std::vector<std::string>;

// A canvas whose pixels are letters, so that it is seen where they went.
class ScrollDc : public testing::Test {
protected:
    ScrollDc() : canvas(8, 5, 32), region(CreateRectRgn(0, 0, 0, 0))
    {
        std::vector<uint32_t> pixels;
        for (uint32_t i = 0; i < 40; ++i)
            pixels.push_back(i);
        canvas.setPixels(pixels);
    }
    ~ScrollDc() override { DeleteObject(region); }

    Rows letters() const
    {
        std::vector<std::pair<uint32_t, char>> marks;
        for (uint32_t i = 0; i < 40; ++i)
            marks.emplace_back(i, static_cast<char>('A' + i));
        return canvas.rows(marks);
    }
    // The region as a picture.
    Rows uncovered() const
    {
        Rows rows(5, std::string(8, '.'));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 8; ++x)
                if (PtInRegion(region, x, y))
                    rows[static_cast<size_t>(y)][static_cast<size_t>(x)] = '#';
        return rows;
    }

    Canvas canvas;
    HRGN region;
    RECT box{-1, -1, -1, -1};
};

TEST_F(ScrollDc, MovesAnAreaAndTellsWhatItLeft)
{
    RECT area{1, 1, 5, 4};
    ASSERT_TRUE(ScrollDC(canvas.dc, 2, -1, &area, nullptr, region, &box));
    EXPECT_EQ(letters(), (Rows{"ABCJKLMH", "IJKRSTUP", "QRSZ[\\]X", "YZ[\\]^_`", "abcdefgh"}));
    EXPECT_EQ(uncovered(), (Rows{"........", ".##.....", ".##.....", ".####...", "........"}));
    EXPECT_TRUE(box.left == 1 && box.top == 1 && box.right == 5 && box.bottom == 4);
}

TEST_F(ScrollDc, KeepsWithinItsClip)
{
    RECT area{1, 1, 5, 4}, clip{2, 1, 6, 3};
    ASSERT_TRUE(ScrollDC(canvas.dc, 1, 1, &area, &clip, region, nullptr));
    EXPECT_EQ(letters(), (Rows{"ABCDEFGH", "IJKLMNOP", "QRSKLMWX", "YZ[\\]^_`", "abcdefgh"}));
    EXPECT_EQ(uncovered(), (Rows{"........", "..###...", "..#.....", "........", "........"}));
}

TEST_F(ScrollDc, KeepsWithinTheClipOfTheContext)
{
    RECT area{1, 1, 5, 4};
    HRGN clip = CreateRectRgn(0, 0, 3, 5);
    SelectClipRgn(canvas.dc, clip);
    DeleteObject(clip);
    ASSERT_TRUE(ScrollDC(canvas.dc, 1, 0, &area, nullptr, region, &box));
    EXPECT_EQ(letters(), (Rows{"ABCDEFGH", "IJJLMNOP", "QRRTUVWX", "YZZ\\]^_`", "abcdefgh"}));
    EXPECT_EQ(uncovered(), (Rows{"........", ".#......", ".#......", ".#......", "........"}));
}

TEST_F(ScrollDc, FarAwayMovesNothingAndUncoversAll)
{
    RECT area{1, 1, 5, 4};
    ASSERT_TRUE(ScrollDC(canvas.dc, 100, 0, &area, nullptr, region, nullptr));
    EXPECT_EQ(uncovered(), (Rows{"........", ".####...", ".####...", ".####...", "........"}));
    EXPECT_EQ(letters()[1], "IJKLMNOP");
    ASSERT_TRUE(ScrollDC(canvas.dc, 0, 0, &area, nullptr, region, &box));
    EXPECT_EQ(uncovered(), Rows(5, "........"));
    EXPECT_TRUE(box.left == box.right && box.top == box.bottom);
    EXPECT_FALSE(ScrollDC(nullptr, 1, 1, nullptr, nullptr, nullptr, nullptr));
}

} // namespace
