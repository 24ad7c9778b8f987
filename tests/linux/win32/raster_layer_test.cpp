// Raster codes where the layer is stricter than other systems: patterns keep to the brush origin when a code has
// a source as well, single bits move over themselves in all directions, and a colour that 256 colours lack
// becomes the nearest of them.
#include "RasterChecks.h"

#include <win32/control.h>

namespace {

using namespace raster;

// Draws on a fresh canvas while its k-th allocation of the layer is refused, for every k: drawing succeeds
// wholly, or fails with the error of short memory and leaves the pixels as they were.
template <class Draw> void sweepShortage(Draw draw)
{
    std::vector<uint32_t> before(800), whole;
    for (uint32_t i = 0; i < 800; ++i)
        before[i] = i;
    DWORD refused = 0, count = 0;
    do {
        Canvas canvas(40, 20, 32);
        canvas.setPixels(before);
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_LAYER, refused, 1, 0);
        BOOL isDrawn = draw(canvas);
        DWORD error = GetLastError();
        count = Win32Control_AllocationsCounted(WIN32_ALLOCATION_LAYER);
        Win32Control_AllowAllocations(WIN32_ALLOCATION_LAYER);
        if (refused == 0)
            whole = canvas.pixels();
        EXPECT_EQ(canvas.pixels(), isDrawn ? whole : before) << refused;
        EXPECT_TRUE(isDrawn || error == ERROR_NOT_ENOUGH_MEMORY) << refused;
    } while (refused++ < count);
    EXPECT_NE(whole, before);
}

TEST(RasterLayer, ShortMemoryLeavesPixelsAsTheyAre)
{
    Canvas source(9, 7, 8);
    for (int mode : {BLACKONWHITE, COLORONCOLOR, HALFTONE})
        sweepShortage([&source, mode](Canvas &canvas) {
            SetStretchBltMode(canvas.dc, mode);
            return StretchBlt(canvas.dc, 1, 1, 30, 5, source.dc, 0, 0, 9, 7, SRCCOPY);
        });
    sweepShortage([](Canvas &canvas) { return StretchBlt(canvas.dc, 0, 0, 20, 5, canvas.dc, 3, 1, 7, 9, SRCINVERT); });
    sweepShortage([](Canvas &canvas) { return ScrollDC(canvas.dc, 3, 2, nullptr, nullptr, nullptr, nullptr); });
}

TEST(RasterLayer, ShortMemoryForABrushLeavesPixelsAsTheyAre)
{
    HBRUSH hatch = CreateHatchBrush(HS_CROSS, RGB(9, 9, 9));
    sweepShortage([hatch](Canvas &canvas) {
        SelectObject(canvas.dc, hatch);
        BOOL isDrawn = PatBlt(canvas.dc, 0, 0, 9, 9, PATINVERT);
        SelectObject(canvas.dc, GetStockObject(WHITE_BRUSH));
        return isDrawn;
    });
    DeleteObject(hatch);
}

TEST(RasterLayer, RowsWiderThanAnyBufferAreDrawnWhole)
{
    std::vector<CanvasFormat> formats = allFormats();
    checkPatterns(formats, wide);
    checkMovesOverItself(formats, wide);
    for (const CanvasFormat &from : {formats[0], formats[2], formats[4], formats[6]})
        checkConversions(from, formats, wide);
    checkSources({formats[1], formats[6], formats[7]}, Brushes::All, wide);
}

TEST(RasterLayer, PixelsOutsideTheClipAreNotThere)
{
    Canvas canvas(4, 1, 32);
    HRGN clip = CreateRectRgn(1, 0, 2, 1);
    SelectClipRgn(canvas.dc, clip);
    DeleteObject(clip);
    EXPECT_EQ(SetPixel(canvas.dc, 0, 0, RGB(1, 1, 1)), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas.dc, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(canvas.dc, 1, 0, RGB(1, 1, 1)), RGB(1, 1, 1));
    EXPECT_TRUE(SetPixelV(canvas.dc, 3, 0, RGB(1, 1, 1)));
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{".#.."});
}

TEST(RasterLayer, BadHandlesFailWithTheirError)
{
    Canvas canvas(4, 1, 32);
    HDC stale = CreateCompatibleDC(nullptr);
    DeleteDC(stale);
    auto failsWithInvalidHandle = [](auto call) {
        SetLastError(0);
        return !call() && GetLastError() == ERROR_INVALID_HANDLE;
    };
    EXPECT_TRUE(failsWithInvalidHandle([&] { return PatBlt(stale, 0, 0, 1, 1, PATCOPY); }));
    EXPECT_TRUE(failsWithInvalidHandle([&] { return BitBlt(canvas.dc, 0, 0, 1, 1, stale, 0, 0, SRCCOPY); }));
    EXPECT_TRUE(failsWithInvalidHandle([&] { return StretchBlt(stale, 0, 0, 1, 1, canvas.dc, 0, 0, 1, 1, SRCCOPY); }));
    EXPECT_TRUE(failsWithInvalidHandle([&] { return SetPixelV(stale, 0, 0, 0); }));
    HRGN notARegion = reinterpret_cast<HRGN>(canvas.bitmap);
    EXPECT_TRUE(
        failsWithInvalidHandle([&] { return ScrollDC(canvas.dc, 1, 0, nullptr, nullptr, notARegion, nullptr); }));
    EXPECT_EQ(canvas.rows(), std::vector<std::string>{"...."});
}

TEST(RasterLayer, ScrollingEverythingTellsWhatItLeft)
{
    Canvas canvas(4, 3, 32);
    canvas.clear(1);
    RECT box;
    ASSERT_TRUE(ScrollDC(canvas.dc, 0, -1, nullptr, nullptr, nullptr, &box));
    EXPECT_TRUE(box.left == 0 && box.top == 2 && box.right == 4 && box.bottom == 3);
}

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
