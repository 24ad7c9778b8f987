// Raster codes, brushes and copies. What other systems do in ways of their own is checked by the layer's tests.
#include "RasterChecks.h"

namespace {

using namespace raster;

std::vector<CanvasFormat> formatsWhere(bool (*isWanted)(const CanvasFormat &))
{
    std::vector<CanvasFormat> formats;
    for (const CanvasFormat &format : allFormats())
        if (isWanted(format))
            formats.push_back(format);
    return formats;
}

TEST(RasterCodes, PatBltPutsThePatternThroughAllCodes)
{
    checkPatterns(allFormats());
}

TEST(RasterCodes, BitBltPutsTheSourceThroughAllCodes)
{
    checkSources(allFormats(), Brushes::Solid);
}

TEST(RasterCodes, APictureCanBeMovedOverItself)
{
    checkMovesOverItself(formatsWhere([](const CanvasFormat &format) { return format.depth > 1; }));
}

TEST(RasterCodes, BitBltConvertsBetweenFormats)
{
    for (const CanvasFormat &from : allFormats())
        checkConversions(from, formatsWhere([](const CanvasFormat &to) { return to.depth != 8; }));
}

TEST(RasterCodes, BitBltConvertsFromFewColorsToMany)
{
    for (const CanvasFormat &from : formatsWhere([](const CanvasFormat &format) { return format.depth <= 8; }))
        checkConversions(from, formatsWhere([](const CanvasFormat &to) { return to.depth == 8; }));
}

TEST(RasterCodes, AClipOfManyBoxesWithGapsIsKept)
{
    Canvas canvas(40, 7, 32), source(40, 7, 32);
    source.clear(1);
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    for (int x = 0; x < 40; x += 4)
        for (int y : {0, 1, 4}) {
            HRGN part = CreateRectRgn(x, y, x + (y == 0 ? 2 : 3), y + 2);
            CombineRgn(clip, clip, part, RGN_OR);
            DeleteObject(part);
        }
    SelectClipRgn(canvas.dc, clip);
    DeleteObject(clip);
    std::vector<std::string> expected(7);
    for (int i = 0; i < 10; ++i)
        for (int y = 0; y < 7; ++y)
            expected[static_cast<size_t>(y)] += y == 0 ? "##.." : y == 3 || y == 6 ? "...." : "###.";
    ASSERT_TRUE(PatBlt(canvas.dc, 0, 0, 40, 7, WHITENESS));
    EXPECT_EQ(canvas.rows(), expected);
    canvas.clear();
    ASSERT_TRUE(BitBlt(canvas.dc, 0, 0, 40, 7, source.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(canvas.rows(), expected);
}

} // namespace
