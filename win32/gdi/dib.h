// Device-independent bitmaps as callers describe them, checked before anything is believed.
#pragma once

#include "palette.h"
#include "surface.h"

namespace win32::gdi {

// To be made as "Dib dib;": without braces the colours of a direct format are never touched.
struct Dib {
    // Complete, also for a core header; the sizes in it are computed, not believed.
    BITMAPINFOHEADER header;
    PixelFormat format;
    int width = 0;
    int height = 0; // positive
    bool isTopDown = false;
    int64_t stride = 0;
    // Of a packed DIB: where the pixels begin, and how many bytes they are.
    int64_t bitsOffset = 0;
    int64_t bitsSize = 0;
    ColorTable colors; // of an indexed format

    bool isCompressed() const { return header.biCompression == BI_RLE8 || header.biCompression == BI_RLE4; }
    // Consecutive rows of an uncompressed DIB as a surface; the bits are those of the first one in memory.
    Surface surfaceOf(const void *bits, int lines) const;
};

// Whether a header of this size, other than a core header, is one that is understood.
bool isInfoHeaderSize(DWORD size);

// The size that a header tells, 0 where it is empty; the height without its sign. False for a header of unknown
// size or a negative width.
bool readDibSize(const BITMAPINFOHEADER *header, int64_t &width, int64_t &height);

// Reads a header with its masks and colours. False, with ERROR_INVALID_PARAMETER, for what no caller can
// mean: unknown sizes, depths, compressions, masks, dimensions whose pixels could not be addressed.
// DIB_PAL_COLORS are looked up in the palette; without one they are refused.
bool readDib(const BITMAPINFO *info, UINT usage, const Palette *palette, Dib &dib);

// Reads the header of a DIB that is to be made from a surface's pixels. Masks and colours are outputs then:
// the surface's own when the depth is the same, otherwise the usual ones of the depth.
bool readWantedDib(const BITMAPINFO *info, const Surface &model, Dib &dib);

// As readDib, of a packed DIB that lies in a block of the given size and must not reach beyond it.
bool readPackedDib(const void *packed, int64_t size, UINT usage, const Palette *palette, Dib &dib);

} // namespace win32::gdi
