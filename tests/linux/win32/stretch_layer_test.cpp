// Stretching where the layer is stricter than other systems, or goes its own way: single bits whose source is
// partly missing, destinations of one pixel, averages, sizes at the end of the range, and refused memory.
#include "StretchChecks.h"

#include <win32/control.h>

namespace {

using namespace raster;

TEST(StretchLayer, SourcesMayBePartlyMissingAndDestinationsSmallInAllModes)
{
    forFormats(allFormats(), [](const CanvasFormat &format, std::mt19937 &random) {
        Canvas canvas(usual.width, usual.height, format), source(41, 12, format);
        for (int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR})
            for (int trial = 0; trial < 30 && !testing::Test::HasFailure(); ++trial)
                checkStretch(canvas, source, random, mode, SRCCOPY, Sources::PartlyMissing, 1);
    });
}

TEST(StretchLayer, HalftoneAveragesWhatItShrinks)
{
    Canvas canvas(3, 1, 32), source(6, 2, 32);
    source.setPixels({0x000000, 0xff00ff, 0x101010, 0x101011, 0x0000fe, 0x0000fe, //
                      0x000000, 0xff00ff, 0x101010, 0x101011, 0x0000ff, 0x0000ff});
    SetStretchBltMode(canvas.dc, HALFTONE);
    ASSERT_TRUE(StretchBlt(canvas.dc, 0, 0, 3, 1, source.dc, 0, 0, 6, 2, SRCCOPY));
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0x800080, 0x101011, 0x0000ff}));
    canvas.clear();
    ASSERT_TRUE(StretchBlt(canvas.dc, 0, 0, 3, 1, source.dc, 2, 0, 1, 1, SRCCOPY));
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{0x101010, 0x101010, 0x101010}));
}

TEST(StretchLayer, SizesAtTheEndOfTheRangeDrawWhatCanBeSeen)
{
    Canvas canvas(4, 1, 32), source(4, 1, 32);
    source.setPixels({1, 2, 3, 4});
    SetStretchBltMode(canvas.dc, COLORONCOLOR);
    std::vector<uint32_t> left{1, 1, 1, 1};
    ASSERT_TRUE(StretchBlt(canvas.dc, 0, 0, INT_MAX, 1, source.dc, 0, 0, 4, 1, SRCCOPY));
    EXPECT_EQ(canvas.pixels(), left);
    canvas.clear();
    ASSERT_TRUE(StretchBlt(canvas.dc, INT_MIN, 0, INT_MAX, 1, source.dc, 0, 0, 4, 1, SRCCOPY));
    ASSERT_TRUE(StretchBlt(canvas.dc, INT_MAX, 0, INT_MIN, 1, source.dc, 0, 0, 4, 1, SRCCOPY));
    ASSERT_TRUE(StretchBlt(canvas.dc, 0, 0, 4, 1, source.dc, INT_MIN, INT_MIN, INT_MAX, INT_MAX, SRCCOPY));
    ASSERT_TRUE(BitBlt(canvas.dc, 1, 0, INT_MAX, INT_MAX, source.dc, 1, 0, SRCCOPY));
    EXPECT_EQ(canvas.pixels()[2], 3u);
    canvas.clear();
    ASSERT_TRUE(BitBlt(canvas.dc, INT_MAX, INT_MIN, INT_MIN, INT_MAX, source.dc, INT_MIN, INT_MAX, SRCCOPY));
    ASSERT_TRUE(PatBlt(canvas.dc, INT_MAX - 1, 0, INT_MIN, 1, WHITENESS));
    EXPECT_EQ(canvas.pixels(), (std::vector<uint32_t>{~0u, ~0u, ~0u, ~0u}));
}

} // namespace
