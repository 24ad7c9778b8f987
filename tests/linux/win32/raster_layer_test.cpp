// Raster codes where the layer is stricter than other systems: patterns keep to the brush origin when a code has
// a source as well, single bits move over themselves in all directions, and a colour that 256 colours lack
// becomes the nearest of them.
#include "RasterChecks.h"

namespace {

using namespace raster;

TEST(RasterLayer, PatternsKeepToTheirOriginUnderASource)
{
    checkSources(allFormats(), Brushes::All);
}

TEST(RasterLayer, SingleBitsCanBeMovedOverThemselves)
{
    std::vector<CanvasFormat> formats = allFormats();
    std::erase_if(formats, [](const CanvasFormat &format) { return format.depth != 1; });
    checkMovesOverItself(formats);
}

TEST(RasterLayer, BitBltFindsTheNearestOf256Colors)
{
    std::vector<CanvasFormat> formats = allFormats();
    std::erase_if(formats, [](const CanvasFormat &format) { return format.depth != 8; });
    for (const CanvasFormat &from : allFormats())
        if (from.depth > 8)
            checkConversions(from, formats);
}

} // namespace
