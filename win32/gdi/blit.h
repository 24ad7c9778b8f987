// Moves pixels from one surface to another, through any ternary raster code.
#pragma once

#include "clip_boxes.h"
#include "paint.h"

namespace win32::gdi {

// Which pixels of the source go where. A negative width or height mirrors. Source and destination are in
// the coordinates of their surfaces; source pixels outside the source surface leave the destination alone.
struct BlitGeometry {
    int x, y, width, height;
    int sourceX, sourceY, sourceWidth, sourceHeight;

    bool isStretched() const { return width != sourceWidth || height != sourceHeight || width < 0 || height < 0; }
};

// The colours that decide between monochrome and colour pixels: from a monochrome source 0 becomes the
// text colour and 1 the background colour of the destination; into a monochrome destination the
// background colour of the source becomes 1 and all others 0.
struct BlitColors {
    COLORREF text;
    COLORREF background;
    COLORREF sourceBackground;
};

// One source and one destination may share their pixels and overlap.
bool blit(const Surface &destination, const ClipBoxes &clip, const BlitGeometry &geometry, const Surface &source,
          const BlitColors &colors, DWORD ternaryCode, const Paint &paint, int stretchMode);

} // namespace win32::gdi
