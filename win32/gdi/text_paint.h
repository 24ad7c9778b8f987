// Lays glyphs on a surface.
#pragma once

#include "clip_boxes.h"
#include "glyph.h"
#include "surface.h"

#include <span>

namespace win32::gdi {

// A glyph and where its origin lies on the surface.
struct PlacedGlyph {
    const Glyph *glyph;
    int x;
    int y;

    Box box() const { return {x + glyph->left, y + glyph->top, x + glyph->right, y + glyph->bottom}; }
};

// Positions lie within this, so that no sum of them overflows.
constexpr int farthestGlyph = 1 << 28;

// Draws what the clip lets through within a box. The colour is that of the pixel, for smooth glyphs; on surfaces
// of few colours their edges are hard.
void paintGlyphs(const Surface &surface, const ClipBoxes &clip, const Box &within, std::span<const PlacedGlyph> glyphs,
                 uint32_t pixel, COLORREF color);

} // namespace win32::gdi
