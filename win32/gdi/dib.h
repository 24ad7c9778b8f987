// Device-independent bitmaps as callers describe them, checked before anything is believed.
#pragma once

#include "palette.h"
#include "surface.h"

namespace win32::gdi {

struct Dib {
    BITMAPINFOHEADER header; // complete, also for a core header
    PixelFormat format;
    int width = 0;
    int height = 0; // positive
    bool isTopDown = false;
    int64_t stride = 0;
    ColorTable colors; // of an indexed format

    // The rows in memory as a surface; scan line 0 is the first in memory.
    Surface surfaceOf(const void *bits, int lines) const;
};

// Reads a header with its masks and colours. False for what no caller can mean: unknown sizes, depths,
// compressions, dimensions whose pixels could not be addressed. DIB_PAL_COLORS are looked up in the palette.
bool readDib(const BITMAPINFO *info, UINT usage, const Palette *palette, Dib &dib);

} // namespace win32::gdi
