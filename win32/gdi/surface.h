// Pixels in memory: where they lie, what they mean, and what colour they have.
#pragma once

#include "box.h"

#include <cstddef>
#include <cstdint>

namespace win32::gdi {

// How the bits of a pixel lie in its row. Index1 and Index4 have the leftmost pixel in the highest bits;
// Bgr24 is three bytes, blue first; Direct16 and Direct32 are little-endian words with channels by masks.
enum class PixelLayout : uint8_t { Index1, Index4, Index8, Direct16, Bgr24, Direct32 };

struct PixelFormat {
    PixelLayout layout = PixelLayout::Index1;
    uint8_t bitsPerPixel = 1;
    // A device bitmap of one bit: between it and colours the text and background colours decide.
    bool isMonochrome = false;
    uint32_t redMask = 0; // of the Direct layouts
    uint32_t greenMask = 0;
    uint32_t blueMask = 0;

    bool operator==(const PixelFormat &) const = default;
    bool isIndexed() const { return layout <= PixelLayout::Index8; }
    // 0x00RRGGBB in a word: the screen's order.
    bool isXrgb32() const
    {
        return layout == PixelLayout::Direct32 && redMask == 0xff0000 && greenMask == 0xff00 && blueMask == 0xff;
    }
};

PixelFormat monochromeFormat();
// The format of BI_RGB at a depth of 1, 4, 8, 16, 24 or 32.
PixelFormat rgbFormat(int bitsPerPixel);
PixelFormat bitfieldsFormat(int bitsPerPixel, uint32_t red, uint32_t green, uint32_t blue);

// The colours of an indexed format. Whoever changes one gives it a new stamp, which no other table has or
// had: caches of what follows from the colours compare it.
struct ColorTable {
    RGBQUAD colors[256];
    int count = 0;
    uint32_t stamp = 0;

    void changed();
};

// Told of what was drawn on a surface that others show.
class DamageListener {
public:
    virtual void damaged(const Box &box) = 0;

protected:
    ~DamageListener() = default;
};

struct Surface {
    uint8_t *bits = nullptr; // the first byte of the top row
    ptrdiff_t stride = 0;    // from a row to the one below it; negative when the bottom row comes first
    int width = 0;
    int height = 0;
    PixelFormat format;
    const ColorTable *colors = nullptr; // of an indexed format that is not monochrome
    DamageListener *listener = nullptr;

    uint8_t *row(int y) const { return bits + y * stride; }
    Box box() const { return {0, 0, width, height}; }
};

// Bytes of a row with its padding: to 4 bytes for a DIB, to 2 for a device bitmap. 64 bits, so that sizes
// from outside cannot overflow.
inline int64_t dibStride(int64_t width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 31) / 32 * 4;
}
inline int64_t bitmapStride(int64_t width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 15) / 16 * 2;
}

// Pixels as numbers. The colours are plain 0x00BBGGRR values. A pixel for a colour that an indexed format
// lacks is the nearest one's; in a monochrome format it is 1 for what is nearer to white than to black.
uint32_t pixelFor(const Surface &surface, COLORREF color);
COLORREF colorOf(const Surface &surface, uint32_t pixel);

uint32_t readPixel(const Surface &surface, int x, int y);
void writePixel(const Surface &surface, int x, int y, uint32_t pixel);

} // namespace win32::gdi
