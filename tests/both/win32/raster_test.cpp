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

} // namespace
