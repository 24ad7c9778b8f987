// What a brush or pen lays on pixels, in the pixel format of the surface that it is for.
#pragma once

#include "surface.h"

#include <vector>

namespace win32::gdi {

class Brush;

// A pattern that repeats in both directions.
struct Tile {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels; // row by row
    // 1 where the tile paints, for patterns with holes; empty when it paints everywhere.
    std::vector<uint8_t> coverage;
    bool isUniform = false; // one pixel value everywhere, as of the black and white patterns
};

struct Paint {
    enum class Kind : uint8_t { Nothing, Solid, Tiled };
    Kind kind = Kind::Nothing;
    uint32_t pixel = 0;         // of Solid
    const Tile *tile = nullptr; // of Tiled; its owner outlives the paint
    int originX = 0;            // where the tile's top left pixel lies on the surface
    int originY = 0;
};

inline Paint solidPaint(uint32_t pixel)
{
    return {Paint::Kind::Solid, pixel, nullptr, 0, 0};
}

// The colours of a context that decide what a brush looks like.
struct BrushColors {
    COLORREF text = 0; // plain RGB values
    COLORREF background = 0;
    bool isBackgroundOpaque = true; // of hatched brushes
    COLORREF brush = 0;             // a solid or hatched brush's own

    bool operator==(const BrushColors &) const = default;
};

// The pixel of lines and hatches, whose colours are never mixed: on a monochrome surface a colour other than
// black, white and the background's is the one that the background is not.
uint32_t linePixelFor(const Surface &surface, COLORREF color, COLORREF background);

// Whether a solid brush of the colour needs a tile, because it is mixed from black and white.
bool isDithered(const Surface &surface, COLORREF color);

// The tile of a hatched or pattern brush for a surface, or of a solid one that is dithered. May throw bad_alloc.
void makeTile(const Brush &brush, const Surface &surface, const BrushColors &colors, Tile &tile);

} // namespace win32::gdi
