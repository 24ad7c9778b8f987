// Stretching, shrinking and mirroring. Where the layer is stricter than other systems, its own tests check it.
#include "StretchChecks.h"

namespace {

using namespace raster;

TEST(StretchBlt, EachModeTakesItsSourcePixels)
{
    forFormats(allFormats(), [](const CanvasFormat &format, std::mt19937 &random) {
        Canvas canvas(usual.width, usual.height, format), source(61, 23, format);
        for (int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR})
            for (int trial = 0; trial < 30 && !testing::Test::HasFailure(); ++trial)
                checkStretch(canvas, source, random, mode, trial % 3 ? SRCCOPY : SRCINVERT, Sources::Whole);
    });
}

TEST(StretchBlt, PixelsWithoutASourceStay)
{
    Canvas canvas(12, 1, 32), source(3, 1, 32);
    source.setPixels({1, 2, 3});
    SetStretchBltMode(canvas.dc, COLORONCOLOR);
    ASSERT_TRUE(StretchBlt(canvas.dc, 1, 0, 10, 1, source.dc, -1, 0, 5, 1, SRCCOPY));
    EXPECT_EQ(canvas.rows({{0, '.'}, {1, '1'}, {2, '2'}, {3, '3'}}), std::vector<std::string>{"...112233..."});
}

TEST(StretchBlt, DoublesPixelsThatAreCutByTheClip)
{
    Canvas canvas(8, 1, 32), source(5, 1, 32);
    source.setPixels({1, 2, 3, 4, 5});
    SetStretchBltMode(canvas.dc, COLORONCOLOR);
    auto digits = [&canvas] { return canvas.rows({{0, '.'}, {1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}, {5, '5'}}); };
    ASSERT_TRUE(StretchBlt(canvas.dc, -1, 0, 10, 1, source.dc, 0, 0, 5, 1, SRCCOPY));
    EXPECT_EQ(digits(), std::vector<std::string>{"12233445"});
    canvas.clear();
    ASSERT_TRUE(StretchBlt(canvas.dc, 7, 0, -10, 1, source.dc, 4, 0, -5, 1, SRCCOPY));
    EXPECT_EQ(digits(), std::vector<std::string>{"22334455"});
    canvas.clear();
    ASSERT_TRUE(StretchBlt(canvas.dc, -1, 0, 10, 1, source.dc, 4, 0, -5, 1, SRCCOPY));
    EXPECT_EQ(digits(), std::vector<std::string>{"54433221"});
}

TEST(StretchBlt, HalvesPixelsThatAreCutByTheClip)
{
    Canvas canvas(30, 1, 32), source(62, 1, 32);
    std::vector<uint32_t> pixels(62);
    for (uint32_t i = 0; i < 62; ++i)
        pixels[i] = i + 1;
    source.setPixels(pixels);
    SetStretchBltMode(canvas.dc, COLORONCOLOR);
    for (int direction : {1, -1})
        for (int x = -3; x < 5; ++x) {
            canvas.clear();
            int start = direction > 0 ? x : x + 30, sourceStart = direction > 0 ? 0 : 61;
            ASSERT_TRUE(StretchBlt(canvas.dc, start, 0, direction * 31, 1, source.dc, sourceStart, 0, direction * 62, 1,
                                   SRCCOPY));
            for (int i = 0; i < 30; ++i) {
                // Of each two the one that is counted last.
                uint32_t expected = uint32_t(2 * (i - x) + (direction > 0 ? 2 : 1));
                ASSERT_EQ(canvas.pixels()[size_t(i)], i < x ? 0 : i - x < 31 ? expected : 0) << i << " from " << x;
            }
        }
}

TEST(StretchBlt, ColorsAreConvertedBeforePixelsAreMerged)
{
    forFormats(allFormats(), [](const CanvasFormat &format, std::mt19937 &random) {
        if (format.depth == 8)
            return;
        Canvas canvas(usual.width, usual.height, format), colored(61, 23, 32),
            monochrome(61, 23, CanvasFormat::monochrome());
        SetBkColor(colored.dc, RGB(255, 255, 255));
        for (int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR})
            for (int trial = 0; trial < 10 && !testing::Test::HasFailure(); ++trial) {
                checkStretch(canvas, colored, random, mode, SRCCOPY, Sources::Whole);
                checkStretch(canvas, monochrome, random, mode, SRCCOPY, Sources::Whole);
            }
    });
}

TEST(StretchBlt, BitBltStretchesWhereTheMappingsDiffer)
{
    Canvas canvas(8, 4, 32), source(4, 2, 32);
    source.setPixels({1, 2, 3, 4, 5, 6, 7, 8});
    SetStretchBltMode(canvas.dc, COLORONCOLOR);
    SetMapMode(canvas.dc, MM_ANISOTROPIC);
    SetViewportExtEx(canvas.dc, 2, -2, nullptr);
    SetViewportOrgEx(canvas.dc, 0, 3, nullptr);
    ASSERT_TRUE(BitBlt(canvas.dc, 0, 0, 4, 2, source.dc, 0, 0, SRCCOPY));
    auto digits = [](const Canvas &c) {
        return c.rows({{1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}, {5, '5'}, {6, '6'}, {7, '7'}, {8, '8'}});
    };
    EXPECT_EQ(digits(canvas), (std::vector<std::string>{"55667788", "55667788", "11223344", "11223344"}));
}

TEST(StretchBlt, NoSizeDrawsNothingAndSucceeds)
{
    Canvas canvas(4, 1, 32), source(4, 1, 32);
    source.clear(7);
    EXPECT_TRUE(StretchBlt(canvas.dc, 0, 0, 0, 1, source.dc, 0, 0, 4, 1, SRCCOPY));
    EXPECT_TRUE(StretchBlt(canvas.dc, 0, 0, 4, 1, source.dc, 0, 0, 0, 1, SRCCOPY));
    EXPECT_TRUE(PatBlt(canvas.dc, 0, 0, 0, 0, WHITENESS));
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"...."});
}

TEST(StretchBlt, WithoutASourceItFailsIfTheCodeNeedsOne)
{
    Canvas canvas(4, 1, 32);
    EXPECT_FALSE(StretchBlt(canvas.dc, 0, 0, 2, 1, nullptr, 0, 0, 4, 1, SRCCOPY));
    EXPECT_FALSE(BitBlt(canvas.dc, 0, 0, 2, 1, nullptr, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(nullptr, 0, 0, 2, 1, canvas.dc, 0, 0, SRCCOPY));
    EXPECT_FALSE(PatBlt(canvas.dc, 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"...."});
    EXPECT_TRUE(BitBlt(canvas.dc, 0, 0, 2, 1, nullptr, 0, 0, WHITENESS));
    EXPECT_TRUE(StretchBlt(canvas.dc, 2, 0, -1, 1, nullptr, 0, 0, 4, 1, WHITENESS));
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"###."});
}

} // namespace
