#include "paint.h"

#include "brush.h"
#include "convert.h"

#include <algorithm>
#include <functional>

namespace win32::gdi {

namespace {

// Rows of the hatches: a set bit, from the left, is a line.
constexpr uint8_t hatchRows[6][8] = {
    {0x00, 0x00, 0x00, 0xff, 0x00, 0x00, 0x00, 0x00}, // HS_HORIZONTAL
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08}, // HS_VERTICAL
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, // HS_FDIAGONAL
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}, // HS_BDIAGONAL
    {0x08, 0x08, 0x08, 0xff, 0x08, 0x08, 0x08, 0x08}, // HS_CROSS
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}, // HS_DIAGCROSS
};

// The brightness from which on a pixel of a colour that a monochrome surface lacks is white.
constexpr uint8_t ditherThresholds[8][8] = {
    {254, 126, 222, 94, 246, 118, 214, 86}, {62, 190, 30, 158, 54, 182, 22, 150},
    {206, 78, 238, 110, 198, 70, 230, 102}, {14, 142, 46, 174, 6, 134, 38, 166},
    {242, 114, 210, 82, 250, 122, 218, 90}, {50, 178, 18, 146, 58, 186, 26, 154},
    {194, 66, 226, 98, 202, 74, 234, 106},  {2, 130, 34, 162, 10, 138, 42, 170},
};

void setSize(Tile &tile, int width, int height)
{
    tile.pixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height));
    tile.coverage.clear();
    tile.width = width;
    tile.height = height;
}

void fillBitmapTile(Tile &tile, const uint8_t rows[8], uint32_t clear, uint32_t set)
{
    setSize(tile, 8, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            tile.pixels[static_cast<size_t>(y * 8 + x)] = rows[y] & 0x80 >> x ? set : clear;
}

void makeHatch(const Brush &brush, const Surface &surface, const BrushColors &colors, Tile &tile)
{
    const uint8_t *rows = hatchRows[std::min<ULONG_PTR>(brush.hatch, HS_DIAGCROSS)];
    fillBitmapTile(tile, rows, linePixelFor(surface, colors.background, colors.background),
                   linePixelFor(surface, colors.brush, colors.background));
    if (colors.isBackgroundOpaque)
        return;
    tile.coverage.resize(64);
    for (int i = 0; i < 64; ++i)
        tile.coverage[static_cast<size_t>(i)] = (rows[i / 8] & 0x80 >> i % 8) != 0;
}

void makeDither(COLORREF color, Tile &tile)
{
    setSize(tile, 8, 8);
    int brightness = (GetRValue(color) * 30 + GetGValue(color) * 59 + GetBValue(color) * 11) / 100;
    for (int i = 0; i < 64; ++i)
        tile.pixels[static_cast<size_t>(i)] = brightness >= ditherThresholds[i / 8][i % 8];
}

void makePattern(const Surface &pattern, const Surface &surface, const BrushColors &colors, Tile &tile)
{
    setSize(tile, pattern.width, pattern.height);
    PixelConverter converter(surface, pattern, {colors.text, colors.background, colors.background});
    for (int y = 0; y < pattern.height; ++y)
        converter.convert(pattern.row(y), 0, pattern.width, &tile.pixels[static_cast<size_t>(y) * tile.width]);
}

void fillTile(const Brush &brush, const Surface &surface, const BrushColors &colors, Tile &tile)
{
    if (brush.style == BS_HATCHED)
        return makeHatch(brush, surface, colors, tile);
    if (brush.style == BS_SOLID)
        return makeDither(colors.brush, tile);
    if (!brush.isSmallPattern)
        return makePattern(brush.pattern->surface, surface, colors, tile);
    bool areBitsPixels = surface.format.isMonochrome;
    fillBitmapTile(tile, brush.rows, areBitsPixels ? 0 : pixelFor(surface, colors.text),
                   areBitsPixels ? 1 : pixelFor(surface, colors.background));
}

} // namespace

uint32_t linePixelFor(const Surface &surface, COLORREF color, COLORREF background)
{
    uint32_t pixel = pixelFor(surface, color);
    if (surface.format.bitsPerPixel != 1 || colorOf(surface, pixel) == color)
        return pixel;
    uint32_t backgroundPixel = pixelFor(surface, background);
    return color == background ? backgroundPixel : backgroundPixel ^ 1;
}

bool isDithered(const Surface &surface, COLORREF color)
{
    return surface.format.isMonochrome && color != RGB(0, 0, 0) && color != RGB(255, 255, 255);
}

void makeTile(const Brush &brush, const Surface &surface, const BrushColors &colors, Tile &tile)
{
    fillTile(brush, surface, colors, tile);
    bool hasTwoPixels = std::ranges::adjacent_find(tile.pixels, std::not_equal_to{}) != tile.pixels.end();
    tile.isUniform = !tile.pixels.empty() && tile.coverage.empty() && !hasTwoPixels;
}

} // namespace win32::gdi
